#pragma once

#include <string>

#include "documents/SchermataModifica.h"

namespace bravona {

// A transport document that was registered. Saving rewrites header and rows; the stock, its invoice and the link to
// that stay as they are.
class frmModificaDDT final : public SchermataModifica {
public:
    explicit frmModificaDDT(Sessione& sessione);

    Frame fraFatturaEmessa{"Fattura emessa"};
    TextBox txtNumeroFatturaEmessa{8};
    TextBox txtDataFatturaEmessa{12};

    void CaricaDDTEsistente() { carica(); }

private:
    Layout disponi();
    [[nodiscard]] std::int16_t tipoTabelle() const override { return tipo::ddt; }
    void mostra(const Documento& documento) override;
    [[nodiscard]] std::string titoloLettura() const override;
    [[nodiscard]] std::string titoloModifica() const override { return titoloLettura(); }
    void abilitaAltro(bool modificabili) override;
    void completa(TestataDocumento& testata) override;
    [[nodiscard]] std::string testoAggiornato() const override;
    void stampa() override;
};

}  // namespace bravona
