#include "documents/derivazioni.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>

#include "documents/TipoDocumento.h"

namespace bravona {
namespace {

const NuovoDocumento nuovo{.numero = 12, .registro = 2, .anno = 2004, .data = *Date::fromYmd(2004, 3, 9)};

Currency euro(int euro)
{
    return Currency::fromTenThousandths(std::int64_t{euro} * 10'000);
}

RigaDocumento riga(std::int32_t idArticolo, std::string codice)
{
    RigaDocumento riga;
    riga.IDRiga = 400;
    riga.IDArticolo = idArticolo;
    riga.CodiceArticolo = std::move(codice);
    riga.Descrizione = "Vite";
    riga.UnitaMisura = "Pz";
    riga.Quantita = 2.5;
    riga.Listino = 3;
    riga.PrezzoUnitario = euro(10);
    riga.Sconti = {1, 2, 3};
    riga.TotaleRiga = euro(25);
    riga.CodiceIva = "A";
    riga.IDCodiceIva = 10;
    riga.AliquotaIva = 20;
    return riga;
}

GruppoIVA gruppo(std::string codice, int imponibile, int imposta)
{
    return {.Codice = std::move(codice),
            .Aliquota = 20,
            .Descrizione = "Aliquota",
            .Imponibile = euro(imponibile),
            .ImportoIva = euro(imposta),
            .Totale = euro(imponibile + imposta)};
}

// A stored document with something in every column.
Documento pieno(std::int32_t numero)
{
    Documento documento;
    TestataDocumento& t = documento.testata;
    t.IDDocumento = 70 + numero;
    t.NumeroDocumento = numero;
    t.NumeroRegistro = 1;
    t.AnnoDocumento = 2003;
    t.DataDocumento = *Date::fromYmd(2003, 12, 5);
    t.IDCliente = 7 + numero;
    t.IDDestinazione = 9;
    t.ModalitaPagamento = "Rimessa " + std::to_string(numero);
    t.IDmodalitaPagamento = 5 + numero;
    t.Trasporto.emplace().Porto = "Franco";
    t.CausaleTrasporto = "RESO";
    t.Sconto = 4;
    t.NumeroDettagli = 1;
    t.TotaleIvaEsclusa = euro(100);
    t.ImportoTotaleIva = euro(20);
    t.TotaleDocumento = euro(120);
    t.Gruppi[0] = gruppo("A", 100, 20);
    t.NoteGeneriche = "note";
    t.NoteEsenzioneIVA = "esente " + std::to_string(numero);
    documento.righe = {riga(3, "A1")};
    documento.rate.resize(2);
    return documento;
}

std::string codici(const GruppiIVA& gruppi)
{
    std::string testo;
    for (const GruppoIVA& gruppo : gruppi) {
        if (gruppo.Codice.empty())
            continue;
        testo += gruppo.Codice + ":" + std::to_string(static_cast<int>(gruppo.Imponibile.toDouble())) + " ";
    }
    return testo;
}

TEST(Derivations, AnInvoiceCarriesTheRowsOfItsDeliveryNotes)
{
    Documento ddt = pieno(3);
    ddt.righe = {
        riga(3, "A1"),   riga(righe::commento, "***"), riga(righe::commento, "***F"), riga(righe::commento, "***D"),
        riga(3, "***D"), riga(righe::libera, "***")};
    const std::vector<RigaDocumento> portate = righeRiportate(ddt);
    const struct {
        std::int32_t idArticolo;
        const char* codice;
    } attese[] = {{righe::commento, " "},    {3, "A1"},   {righe::commento, "***F"},
                  {righe::commento, "***F"}, {3, "***D"}, {righe::libera, "***F"}};
    ASSERT_EQ(portate.size(), std::size(attese));
    for (std::size_t i = 0; i < portate.size(); ++i) {
        EXPECT_EQ(portate[i].IDArticolo, attese[i].idArticolo) << i;
        EXPECT_EQ(portate[i].CodiceArticolo, attese[i].codice) << i;
    }
    EXPECT_EQ(portate[1], ddt.righe[0]);

    RigaDocumento riferimento;
    riferimento.IDArticolo = righe::commento;
    riferimento.CodiceArticolo = riferimento.UnitaMisura = " ";
    riferimento.Descrizione = "Riferimento D.D.T. n.3 del 05/12/2003";
    EXPECT_EQ(portate[0], riferimento);
    ddt.righe.clear();
    EXPECT_EQ(righeRiportate(ddt), (std::vector<RigaDocumento>{riferimento}));
}

TEST(Derivations, AnInvoiceAddsItsDeliveryNotesAndTakesTheLastOnesTerms)
{
    const std::vector<Documento> ddt{pieno(1), pieno(2)};
    Documento attesa;
    TestataDocumento& t = attesa.testata;
    t.NumeroDocumento = 12;
    t.NumeroRegistro = 2;
    t.AnnoDocumento = 2004;
    t.DataDocumento = nuovo.data;
    t.TipoDocumento = tipo::colonnaFatturaDifferita;
    t.RiferimentoBolla = "S";
    t.IDCliente = 9;
    t.ModalitaPagamento = "Rimessa 2";
    t.IDmodalitaPagamento = 7;
    t.NumeroDettagli = 2;
    t.TotaleIvaEsclusa = euro(200);
    t.ImportoTotaleIva = euro(40);
    t.TotaleDocumento = euro(240);
    t.Gruppi[0] = gruppo("A", 200, 40);
    t.NoteEsenzioneIVA = "esente 2";
    for (const Documento& documento : ddt)
        std::ranges::copy(righeRiportate(documento), std::back_inserter(attesa.righe));
    EXPECT_EQ(fatturaDaDDT(ddt, nuovo), attesa);
}

TEST(Derivations, VatCodesOfDeliveryNotesFindFivePlaces)
{
    using Codici = std::vector<std::vector<GruppoIVA>>;
    const struct {
        const char* che;
        Codici ddt;
        const char* gruppi;
    } casi[] = {
        {"a shared code in its first place", {{gruppo("A", 1, 0), gruppo("B", 2, 0)}, {gruppo("B", 4, 0)}}, "A:1 B:6 "},
        {"an empty one between is passed over", {{gruppo("A", 1, 0), {}, gruppo("C", 2, 0)}}, "A:1 C:2 "},
        {"the sixth code is left out, the first five still add",
         {{gruppo("A", 1, 0), gruppo("B", 1, 0), gruppo("C", 1, 0)},
          {gruppo("D", 1, 0), gruppo("E", 1, 0), gruppo("F", 1, 0), gruppo("A", 5, 0)}},
         "A:6 B:1 C:1 D:1 E:1 "},
    };
    for (const auto& caso : casi) {
        std::vector<Documento> ddt;
        for (const auto& gruppi : caso.ddt) {
            Documento& documento = ddt.emplace_back(pieno(1));
            documento.testata.Gruppi = {};
            std::ranges::copy(gruppi, documento.testata.Gruppi.begin());
        }
        const TestataDocumento fattura = fatturaDaDDT(ddt, nuovo).testata;
        EXPECT_EQ(codici(fattura.Gruppi), caso.gruppi) << caso.che;
        EXPECT_EQ(fattura.TotaleDocumento, euro(120 * static_cast<int>(ddt.size()))) << caso.che;
    }
}

TEST(Derivations, AQuotationIsCopiedAsItStands)
{
    Documento proforma = pieno(4);
    proforma.righe = {riga(3, "A1"), riga(righe::commento, "***D"), riga(righe::commento, "***")};
    Documento copia;
    copia.righe = proforma.righe;
    TestataDocumento& t = copia.testata;
    t = proforma.testata;
    t.IDDocumento = t.IDDestinazione = t.Sconto = 0;
    t.Trasporto.reset();
    t.CausaleTrasporto.reset();
    t.NumeroDocumento = 12;
    t.NumeroRegistro = 2;
    t.AnnoDocumento = 2004;
    t.DataDocumento = nuovo.data;

    Documento fattura = copia;
    fattura.testata.TipoDocumento = tipo::fattura;
    fattura.testata.RiferimentoBolla = "N";
    EXPECT_EQ(fatturaDaProforma(proforma, nuovo), fattura);

    Documento ddt = copia;
    ddt.testata.IDmodalitaPagamento = 0;
    ddt.testata.Tipo = "V";
    ddt.testata.CausaleTrasporto = "VENDITA";
    EXPECT_EQ(ddtDaProforma(proforma, nuovo), ddt);
}

}  // namespace
}  // namespace bravona
