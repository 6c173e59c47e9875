#pragma once

#include <cstdint>
#include <optional>

#include "documents/CampoNumeroDocumento.h"
#include "documents/SceltaRegistro.h"
#include "platform/windowing/Fields.h"
#include "platform/windowing/Form.h"
#include "platform/windowing/Lists.h"
#include "session/Sessione.h"

namespace bravona {

// Prints a document of the year again, by its kind, register and number. A note is found, and printed, as an invoice.
class frmRistampa final : public Form {
public:
    explicit frmRistampa(Sessione& sessione);

    ComboBox cboTipoDocumento;
    SceltaRegistro registro;
    CampoNumeroDocumento campoNumero;
    Button cmdShow{"&Stampa"};
    Button cmdClose{"&Chiudi"};

    void onLoad() override;

private:
    void conferma();
    void RistampaDocumento(std::int32_t numero, std::int32_t numeroRegistro, std::int16_t tipoDocumento);
    struct Esistente {
        std::string RiferimentoBolla;  // "S": made from transport documents
    };
    [[nodiscard]] std::optional<Esistente> EsisteDocumento(std::int16_t tipoDocumento, std::int32_t numero,
                                                           std::int32_t numeroRegistro);
    Sessione& sessione_;
};

}  // namespace bravona
