#pragma once

#include <array>
#include <string>

#include "masterdata/CampiComune.h"
#include "platform/windowing/Form.h"
#include "session/Sessione.h"

namespace bravona {

// Adds municipalities.
class frmRegistraComune final : public Form {
public:
    explicit frmRegistraComune(Sessione& sessione);

    CampiComune campi;
    std::array<Button, 3> cmdComune{Button("&Registra"), Button("Esci"), Button("Ricerca ...")};

    void onLoad() override;
    [[nodiscard]] bool hasUnsavedWork() const override { return fieldContents() != comeLasciati_; }
    [[nodiscard]] std::string subject() const override;

private:
    void Registra();
    [[nodiscard]] bool giaPresente();
    void svuota();
    Sessione& sessione_;
    std::string comeLasciati_;  // the fields before anybody typed
};

}  // namespace bravona
