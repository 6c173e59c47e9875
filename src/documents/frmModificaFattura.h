#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "documents/SchermataModifica.h"
#include "duedates/ApreFattura.h"
#include "duedates/BloccoScadenze.h"
#include "platform/windowing/Lists.h"

namespace bravona {

// An invoice, a note or a quotation that was registered. Of an invoice made from transport documents only the rows'
// amounts can be changed. Saving rewrites header, rows and instalments and leaves the stock alone; a plan that nobody
// changed by hand is made anew.
class frmModificaFattura final : public SchermataModifica, public ApreFattura {
public:
    explicit frmModificaFattura(Sessione& sessione);

    std::int16_t TipoDocumento = 0;
    bool FatturaProforma = false;  // a quotation

    Frame fraDocumentiCorrelati{"Documenti di trasporto"};
    ListView lvwDocumenti;
    BloccoScadenze scadenze;

    void CaricaFatturaEsistente() { carica(); }
    void ApriFattura(std::int32_t numero, std::int32_t registro, std::int32_t anno) override
    {
        ApriDocumento({.NumeroDocumento = numero, .NumeroRegistro = registro, .AnnoDocumento = anno});
    }

private:
    Layout disponi();
    [[nodiscard]] bool daDDT() const { return caricata().daDDT(); }
    [[nodiscard]] const char* inizioTitolo() const;
    void caricaRiferimenti(std::int32_t idFattura);

    [[nodiscard]] std::int16_t tipoTabelle() const override;
    void mostra(const Documento& documento) override;
    void mostraRate(std::span<const Rata> rate) override;
    void cambiaScheda() override;
    void prendiProprieta(const DocumentoDaAprire& documento) override;
    void riprendiProprieta() override;
    [[nodiscard]] std::string titoloLettura() const override;
    [[nodiscard]] std::string titoloModifica() const override;
    void primaDellaModifica() override;
    void abilitaAltro(bool modificabili) override;
    void completa(TestataDocumento& testata) override;
    void scriviAltro(const TestataDocumento& testata) override;
    void concluso(bool scritto) override;
    [[nodiscard]] std::string testoAggiornato() const override;
    void stampa() override;

    std::int16_t tipoMostrato_ = 0;
    bool proformaMostrata_ = false;
    std::optional<std::vector<Rata>> rateSostituite_;  // by those made anew in the transaction
};

}  // namespace bravona
