#pragma once

#include <array>

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

private:
    void Registra();
    [[nodiscard]] bool giaPresente();
    void svuota();
    Sessione& sessione_;
};

}  // namespace bravona
