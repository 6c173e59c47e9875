#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "documents/CampoNumeroDocumento.h"
#include "documents/SceltaRegistro.h"
#include "platform/windowing/Fields.h"
#include "session/Sessione.h"

namespace bravona {

// Deletes a transport document, or an invoice or note, by its number.
class frmAnnullamento final : public Form {
public:
    explicit frmAnnullamento(Sessione& sessione);

    Frame fraTipo{"Tipo"};
    std::array<OptionButton, 2> optTipo{OptionButton{"&D.D.T."}, OptionButton{"&Fattura"}};
    SceltaRegistro registro;
    CampoNumeroDocumento campoNumero;
    Button cmdShow{"&Annulla documento"};
    Button cmdClose{"&Chiudi"};

    void onLoad() override;

private:
    void conferma();
    void AnnullaDocumento(std::int32_t numero);
    void AnnullaDDT(const std::string& idBolla);
    void AnnullaFattura(const std::string& idFattura, bool daDDT);
    [[nodiscard]] Recordset cerca(const std::string& colonne, const std::string& tabella, std::int32_t numero) const;
    [[nodiscard]] bool chiedi(const std::string& documento) const;

    Sessione& sessione_;
};

}  // namespace bravona
