#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "platform/windowing/Fields.h"
#include "platform/windowing/Form.h"
#include "session/Sessione.h"

namespace bravona {

// One VAT code, a new one, or an old one of which only the description can be changed. Hands its values back to
// `frmCodiciIva`.
class frmInserimentoCodiceIva final : public Form {
public:
    explicit frmInserimentoCodiceIva(Sessione& sessione);

    // An old code. Before showing.
    void Mostra(const std::string& codice, std::int16_t aliquota, const std::string& descrizione);

    TextBox txtCodice{4};
    TextBox txtAliquota{5};
    TextBox txtDescrizione{40};
    std::array<Button, 2> Command1{Button("&Registra"), Button("&Annulla")};

    void onLoad() override;
    [[nodiscard]] bool hasUnsavedWork() const override { return fieldContents() != comeMostrati_; }
    [[nodiscard]] std::string subject() const override { return "Tabella codici IVA"; }
    bool onQueryUnload(CloseCause cause) override;

private:
    void Registra();
    void annulla();
    std::string comeMostrati_;  // the fields before anybody typed
    Sessione& sessione_;
};

}  // namespace bravona
