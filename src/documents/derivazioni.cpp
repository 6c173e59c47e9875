#include "documents/derivazioni.h"

#include <algorithm>

#include "documents/TipoDocumento.h"

namespace bravona {

namespace {

TestataDocumento testataNuova(const NuovoDocumento& nuovo)
{
    TestataDocumento testata;
    testata.NumeroDocumento = nuovo.numero;
    testata.NumeroRegistro = nuovo.registro;
    testata.AnnoDocumento = nuovo.anno;
    testata.DataDocumento = nuovo.data;
    return testata;
}

void aggiungi(GruppiIVA& gruppi, const GruppoIVA& altro)
{
    auto posto = std::ranges::find(gruppi, altro.Codice, &GruppoIVA::Codice);
    if (posto == gruppi.end()) {
        posto = std::ranges::find(gruppi, std::string(), &GruppoIVA::Codice);
        if (posto == gruppi.end())
            return;  // five at most
        *posto = altro;
        return;
    }
    posto->Imponibile += altro.Imponibile;
    posto->ImportoIva += altro.ImportoIva;
    posto->Totale += altro.Totale;
}

// What an invoice and a transport document take alike from a quotation.
Documento copiaDi(const Documento& proforma, const NuovoDocumento& nuovo)
{
    Documento copia{testataNuova(nuovo), proforma.righe, {}};
    const TestataDocumento& vecchia = proforma.testata;
    copia.testata.IDCliente = vecchia.IDCliente;
    copia.testata.ModalitaPagamento = vecchia.ModalitaPagamento;
    copia.testata.TotaleIvaEsclusa = vecchia.TotaleIvaEsclusa;
    copia.testata.ImportoTotaleIva = vecchia.ImportoTotaleIva;
    copia.testata.TotaleDocumento = vecchia.TotaleDocumento;
    copia.testata.NumeroDettagli = vecchia.NumeroDettagli;
    copia.testata.Gruppi = vecchia.Gruppi;
    copia.testata.NoteGeneriche = vecchia.NoteGeneriche;
    copia.testata.NoteEsenzioneIVA = vecchia.NoteEsenzioneIVA;
    return copia;
}

}  // namespace

std::vector<RigaDocumento> righeRiportate(const Documento& ddt)
{
    std::vector<RigaDocumento> riportate;
    riportate.reserve(ddt.righe.size() + 1);
    RigaDocumento riferimento =
        rigaCommento(" ", "Riferimento D.D.T. n." + std::to_string(ddt.testata.NumeroDocumento.value_or(0)) + " del " +
                              ddt.testata.DataDocumento.text());
    riferimento.CodiceIva.clear();
    riportate.push_back(std::move(riferimento));
    for (const RigaDocumento& riga : ddt.righe) {
        if (riga.commento() && riga.CodiceArticolo == righe::codiceSoloDDT)
            continue;
        RigaDocumento& copia = riportate.emplace_back(riga);
        if (copia.CodiceArticolo == righe::codiceTesto)
            copia.CodiceArticolo = righe::codiceSoloFattura;
    }
    return riportate;
}

Documento fatturaDaDDT(std::span<const Documento> ddt, const NuovoDocumento& nuovo)
{
    Documento fattura{testataNuova(nuovo), {}, {}};
    TestataDocumento& testata = fattura.testata;
    testata.TipoDocumento = tipo::colonnaFatturaDifferita;
    testata.RiferimentoBolla = "S";
    for (const Documento& documento : ddt) {
        const TestataDocumento& bolla = documento.testata;
        testata.TotaleIvaEsclusa += bolla.TotaleIvaEsclusa;
        testata.ImportoTotaleIva += bolla.ImportoTotaleIva;
        testata.TotaleDocumento += bolla.TotaleDocumento;
        testata.NumeroDettagli += bolla.NumeroDettagli;
        testata.IDCliente = bolla.IDCliente;
        testata.ModalitaPagamento = bolla.ModalitaPagamento;
        testata.IDmodalitaPagamento = bolla.IDmodalitaPagamento;
        testata.NoteEsenzioneIVA = bolla.NoteEsenzioneIVA;
        for (const GruppoIVA& gruppo : bolla.Gruppi) {
            if (!gruppo.Codice.empty())
                aggiungi(testata.Gruppi, gruppo);
        }
        std::ranges::move(righeRiportate(documento), std::back_inserter(fattura.righe));
    }
    return fattura;
}

Documento fatturaDaProforma(const Documento& proforma, const NuovoDocumento& nuovo)
{
    Documento fattura = copiaDi(proforma, nuovo);
    fattura.testata.TipoDocumento = tipo::fattura;
    fattura.testata.RiferimentoBolla = "N";
    fattura.testata.IDmodalitaPagamento = proforma.testata.IDmodalitaPagamento;
    return fattura;
}

Documento ddtDaProforma(const Documento& proforma, const NuovoDocumento& nuovo)
{
    Documento ddt = copiaDi(proforma, nuovo);
    ddt.testata.Tipo = "V";
    ddt.testata.CausaleTrasporto = "VENDITA";
    return ddt;
}

}  // namespace bravona
