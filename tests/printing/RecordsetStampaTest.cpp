#include <gtest/gtest.h>

#include "platform/values/Errore.h"
#include "support/DocumentoDiProva.h"
#include "support/Vettori.h"

namespace bravona {
namespace {

TEST(NumeroPagine, countsPagesAsTheTableTells)
{
    for (const auto& caso : casi("pages.json", "NumeroPagine")) {
        EXPECT_EQ(NumeroPagine(caso["rows"].get<std::int16_t>(), caso["rows_per_page"].get<std::int16_t>()),
                  caso["pages"].get<std::int16_t>())
            << caso.dump();
    }
}

TEST(VuotoSeZero, leavesZeroesOffThePaperAsTheTableTells)
{
    for (const auto& caso : casi("pages.json", "VuotoSeZero")) {
        EXPECT_EQ(VuotoSeZero(caso["input"].get<std::string>()), caso["text"].get<std::string>()) << caso.dump();
    }
}

Recordset stampa(const DocumentoDiProva& documento, int righePerPagina)
{
    Recordset origine = documento.apri();
    return CostruisciRecordsetStampa(origine,
                                     {.RagioneSocialeRiga1 = "Bianchi",
                                      .RagioneSocialeRiga2 = "",
                                      .Indirizzo = "",
                                      .Citta = "Torino",
                                      .Provincia = "TO",
                                      .Cap = "",
                                      .Telefono = "",
                                      .Fax = "",
                                      .TipoStampa = "",
                                      .PercorsoImmagineLogo = "",
                                      .PartitaIva = ""},
                                     "127", "2", {"10100 Torino", "Via Roma", "Milano"},
                                     static_cast<std::int16_t>(righePerPagina));
}

TEST(CostruisciRecordsetStampa, declaresItsColumnsInOrder)
{
    Recordset dati = stampa({}, 33);
    std::vector<std::string> nomi;
    for (const ColumnInfo& colonna : dati.columns()) {
        nomi.push_back(colonna.name);
    }
    const std::vector<std::string> fisse{"IDdb",
                                         "NumeroDoc",
                                         "NumeroReg",
                                         "RagioneSociale",
                                         "RagioneSociale2",
                                         "azIndirizzo",
                                         "azCitta",
                                         "azFax",
                                         "azTelefono",
                                         "azProv",
                                         "azPartitaIva",
                                         "lblCittaProvincia",
                                         "lblDestinazioneMerceIndirizzo",
                                         "lblDestinazioneMerceCitta",
                                         "SEGUE",
                                         "txtTotaleLire",
                                         "NumeroDocumento"};
    ASSERT_GT(nomi.size(), fisse.size());
    EXPECT_EQ(std::vector<std::string>(nomi.begin(), nomi.begin() + static_cast<std::ptrdiff_t>(fisse.size())), fisse);
    EXPECT_FALSE(dati.hasColumn("PrezzoUnitario"));
    EXPECT_TRUE(dati.hasColumn("AliquotaIva"));  // no row column
    Recordset& righe = dati.chapter("Child");
    EXPECT_EQ(righe.columns().size(), 11U);
    EXPECT_EQ(righe.columns()[0].name, "IDdb");
    EXPECT_EQ(righe.columns()[1].name, "CodiceArticolo");
    EXPECT_EQ(righe.columns()[10].name, "TotaleRiga");
}

struct Taglio {
    int righe, perPagina, pagine, ultima;
};
class Paginazione : public testing::TestWithParam<Taglio> {};

TEST_P(Paginazione, fillsEveryPageWithRowsOrBlanks)
{
    const Taglio& taglio = GetParam();
    DocumentoDiProva documento;
    documento.righe = taglio.righe;
    Recordset dati = stampa(documento, taglio.perPagina);
    ASSERT_EQ(dati.recordCount(), static_cast<std::size_t>(taglio.pagine));
    int riga = 0;
    for (int pagina = 1; pagina <= taglio.pagine; ++pagina, dati.moveNext()) {
        EXPECT_EQ(dati["IDdb"].text(), std::to_string(pagina));
        Recordset& figli = dati.chapter("Child");
        ASSERT_EQ(figli.recordCount(), static_cast<std::size_t>(taglio.perPagina));
        int piene = 0;
        for (figli.moveFirst(); !figli.eof(); figli.moveNext()) {
            EXPECT_EQ(figli["IDdb"].text(), std::to_string(pagina));
            if (!figli["CodiceArticolo"].text().empty()) {
                EXPECT_EQ(figli["CodiceArticolo"].text(), "A" + std::to_string(riga++));
                ++piene;
            } else {
                EXPECT_EQ(figli["TotaleRiga"].text(), "");
            }
        }
        EXPECT_EQ(piene, pagina == taglio.pagine ? taglio.ultima : taglio.perPagina);
    }
}

INSTANTIATE_TEST_SUITE_P(Table, Paginazione,
                         testing::Values(Taglio{1, 33, 1, 1}, Taglio{33, 33, 1, 33}, Taglio{34, 33, 2, 1},
                                         Taglio{39, 39, 1, 39}, Taglio{40, 39, 2, 1}, Taglio{78, 39, 2, 39},
                                         Taglio{79, 39, 3, 1}));

TEST(CostruisciRecordsetStampa, leavesAContinuingPageWithoutTotalsAndDate)
{
    DocumentoDiProva documento;
    documento.righe = 34;
    Recordset dati = stampa(documento, 33);
    EXPECT_EQ(dati["SEGUE"].text(), "SEGUE");
    for (const char* colonna :
         {"DataF", "TotaleDocumento", "TotaleIvaEsclusa", "ImportoTotaleIva", "txtTotaleLire", "CodiceIva1",
          "ImponibileIva1", "AliquotaIva1", "ModalitaPagamento", "Porto", "Banca", "NumeroDocumento"}) {
        EXPECT_EQ(dati[colonna].text(), "") << colonna;
    }
    for (const char* colonna : {"Cliente", "ClienteSecondaRiga", "Clienti.Indirizzo", "PartitaIva", "CodiceFiscale",
                                "DataDocumento", "NumeroDoc", "lblCittaProvincia", "RagioneSociale"}) {
        EXPECT_NE(dati[colonna].text(), "") << colonna;
    }
    dati.moveNext();
    EXPECT_EQ(dati["SEGUE"].text(), "");
    EXPECT_EQ(dati["DataF"].text(), "15/01/2004");
    EXPECT_EQ(dati["TotaleDocumento"].text(), "2.561,40");
    EXPECT_EQ(dati["ImponibileIva1"].text(), "2.134,50");
    EXPECT_EQ(dati["AliquotaIva1"].text(), "20");
    EXPECT_EQ(dati["ImponibileIva2"].text(), "");
    EXPECT_EQ(dati["AliquotaIva2"].text(), "");
    EXPECT_EQ(dati["NumeroReg"].text(), "2");
    EXPECT_EQ(dati["lblDestinazioneMerceCitta"].text(), "Milano");
}

TEST(CostruisciRecordsetStampa, printsLireAndAZeroTotal)
{
    DocumentoDiProva documento;
    documento.altri = {{"TotaleDocumento", "100"}, {"ImportoTotaleIva", "0"}};
    Recordset dati = stampa(documento, 33);
    EXPECT_EQ(dati["txtTotaleLire"].text(), "193.627");
    EXPECT_EQ(dati["ImportoTotaleIva"].text(), "0,00");
    EXPECT_EQ(dati["TotaleDocumento"].text(), "100,00");
}

struct Riga {
    const char* colonna;
    const char* valore;
    const char* stampato;
};
class ValoriDiRiga : public testing::TestWithParam<Riga> {};

TEST_P(ValoriDiRiga, printBlankWhereTheyBeginWithZero)
{
    DocumentoDiProva documento;
    documento.altri = {{GetParam().colonna, GetParam().valore}};
    Recordset dati = stampa(documento, 33);
    Recordset& righe = dati.chapter("Child");
    righe.moveFirst();
    EXPECT_EQ(righe[GetParam().colonna].text(), GetParam().stampato);
}

INSTANTIATE_TEST_SUITE_P(Table, ValoriDiRiga,
                         testing::Values(Riga{"Quantita", "0", ""}, Riga{"Quantita", "0,25", ""},
                                         Riga{"Quantita", "2,5", "2,5"}, Riga{"PrezzoUnitario", "0,75", ""},
                                         Riga{"PrezzoUnitario", "1234,5", "1.234,50"},
                                         Riga{"TotaleRiga", "-3", "-3,00"}, Riga{"Sconto1", "0", ""},
                                         Riga{"CodiceArticolo", "***F", "***F"}, Riga{"Descrizione", "0", ""},
                                         Riga{"Descrizione", "", ""}));

TEST(CostruisciRecordsetStampa, failsForADocumentWithoutRecords)
{
    DocumentoDiProva documento;
    documento.righe = 0;
    try {
        stampa(documento, 39);
        FAIL();
    } catch (const Errore& errore) {
        EXPECT_EQ(errore.numero(), errori::nessunRecordCorrente);
    }
}

}  // namespace
}  // namespace bravona
