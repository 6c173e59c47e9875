#include "printing/modStampe.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "platform/preview/frmAnteprima.h"
#include "platform/values/Errore.h"
#include "schema/Schema.h"
#include "support/ArchivioTemporaneo.h"
#include "support/UtenteDiProva.h"

namespace bravona {
namespace {

class Stampe : public testing::Test {
protected:
    Stampe()
    {
        archivio.cn.close();
        sessione.cn.open(archivio.percorso(), passwordArchivio);
        sessione.AnnoRiferimento = "2004";
        sessione.ElencoRegistri = {"", "(1) - Principale", "(2) - Secondo"};
        sessione.DatiDitta.RagioneSocialeRiga1 = "Colorificio Bianchi";
        sessione.DatiDitta.Provincia = "TO";
        sessione.DatiDitta.Citta = "Torino";
        sessione.DatiDitta.Cap = "10146";
        sessione.DatiDitta.PartitaIva = "07654321001";
        esegui("INSERT INTO Clienti (IDCliente, Cliente, ClienteSecondaRiga, Indirizzo, Citta, Provincia, Cap, Stato, "
               "PartitaIva, Banca) VALUES (7, 'Rossi', 'di Mario', 'Via Po 1', 'Torino', 'TO', '10100', 'Italia', "
               "'01234567890', 'Banca di Novara')");
        esegui("INSERT INTO DestinazioneMerceClienti (IDDestinazione, IDCliente, Destinazione, Indirizzo, Citta, "
               "Provincia, Cap) VALUES (4, 7, 'Magazzino', 'Via Roma 2', 'Ivrea', '', '10015')");
    }

    void esegui(const std::string& istruzione) { sessione.cn.execute(istruzione); }

    void testata(const std::string& tabella, int id, int numero, int destinazione = 0, int registro = 1,
                 int anno = 2004)
    {
        esegui("INSERT INTO " + tabella + " (" + (tabella == "Bolle" ? "IDBolla" : "IDFattura") +
               ", NumeroDocumento, AnnoDocumento, NumeroRegistro, DataDocumento, IDCliente, IDDestinazione, "
               "TotaleIvaEsclusa, ImportoTotaleIva, TotaleDocumento, CodiceIva1, Descrizioneiva1, AliquotaIva1, "
               "ImponibileIva1, ImportoIva1) VALUES (" +
               std::to_string(id) + ", " + std::to_string(numero) + ", " + std::to_string(anno) + ", " +
               std::to_string(registro) + ", #15/01/2004#, 7, " + std::to_string(destinazione) +
               ", 100, 20, 120, 'A', 'Ordinaria', 20, 100, 20)");
    }

    void riga(const std::string& tabella, int id, const std::string& codice, double quantita = 2)
    {
        esegui("INSERT INTO " + tabella + "_Dettagli (" + (tabella == "Bolle" ? "IDBolla" : "IDFattura") +
               ", CodiceArticolo, Descrizione, UnitaMisura, Quantita, PrezzoUnitario, TotaleRiga, CodiceIva) VALUES (" +
               std::to_string(id) + ", '" + codice + "', 'Vite', 'Pz', " + std::to_string(quantita) +
               ", 50, 100, 'A')");
    }

    // The one page that the preview in front shows.
    Page pagina()
    {
        const Pages& pagine = dynamic_cast<frmAnteprima&>(*utente.front()).pages();
        EXPECT_EQ(pagine.pages.size(), 1U);
        return pagine.pages.at(0);
    }
    Page paginaModale(const std::function<void()>& stampa)
    {
        Page vista;
        utente.inModal([&](Form&) {
            vista = pagina();
            titolo = utente.front()->caption();
        });
        stampa();
        return vista;
    }

    ArchivioTemporaneo archivio;
    UtenteDiProva utente;
    MemorySettings impostazioni;
    FixedClock orologio{*Date::parse("20/01/2004")};
    Files files;
    Sessione sessione{{utente, impostazioni, orologio, files, archivio.cartella().file("programma")}};
    std::string titolo;
};

TEST_F(Stampe, aTransportDocumentDropsItsInvoiceOnlyRowsAndNamesTheCountry)
{
    testata("Bolle", 1, 12);
    riga("Bolle", 1, "A1");
    riga("Bolle", 1, "***F");
    riga("Bolle", 1, "B2", 0.25);
    StampaDDT(sessione, 12, 1);
    const Page page = pagina();
    EXPECT_EQ(utente.front()->caption(), "Bravona - Anteprima DDT");
    EXPECT_EQ(detailText(page, 0, "CodiceArticolo"), "A1");
    EXPECT_EQ(detailText(page, 0, "Quantita"), "2");
    EXPECT_EQ(detailText(page, 1, "CodiceArticolo"), "B2");
    EXPECT_EQ(detailText(page, 1, "Quantita"), "");
    EXPECT_EQ(detailText(page, 2, "CodiceArticolo"), "");
    EXPECT_EQ(page.detailRows, 39);
    EXPECT_EQ(printedText(page, "lblCittaProvincia"), "10100 Torino (TO) - Italia");
    EXPECT_EQ(printedText(page, "lblDestinazioneMerceIndirizzo"), "");
    EXPECT_EQ(printedText(page, "lblDestinazioneMerceCitta"), "I D E M");
    EXPECT_EQ(printedText(page, "DataF"), "15/01/2004");
    EXPECT_EQ(printedText(page, "RagioneSociale"), "Colorificio Bianchi");
    EXPECT_EQ(printedText(page, "lblCap"), "10146");
    EXPECT_EQ(printedText(page, "azCitta"), "Torino");
    EXPECT_EQ(printedText(page, "Label45"), "P. IVA :");
    EXPECT_EQ(printedText(page, "Label33"), "Prov.:");
    EXPECT_EQ(printedText(page, "Label46"), "");  // no telephone, no caption
}

TEST_F(Stampe, anImmediateInvoiceIsModalAndLeavesOutTheCountry)
{
    testata("Fatture", 3, 7, 4, 2);
    riga("Fatture", 3, "***F");
    const Page page = paginaModale([&] { StampaFatturaImmediata(sessione, 7, 2); });
    EXPECT_EQ(titolo, "Bravona - Anteprima Fattura");
    EXPECT_EQ(page.detailRows, 33);
    EXPECT_EQ(detailText(page, 0, "CodiceArticolo"), "***F");
    EXPECT_EQ(detailText(page, 0, "PrezzoUnitario"), "50,00");
    EXPECT_EQ(printedText(page, "Text21"), "10100 Torino (TO)");
    EXPECT_EQ(printedText(page, "Text23"), "Via Roma 2");
    EXPECT_EQ(printedText(page, "Text24"), "10015 Ivrea");
    EXPECT_EQ(printedText(page, "Text18"), "Via Po 1");
    EXPECT_EQ(printedText(page, "Text61"), "Banca di Novara");
    EXPECT_EQ(printedText(page, "lblTitolo"), "FATTURA IMMEDIATA");
    EXPECT_EQ(printedText(page, "Registro"), "(2) - Secondo");
    EXPECT_EQ(printedText(page, "TotaleDocumento"), "120,00");
    EXPECT_EQ(printedText(page, "txtTotaleLire"), "232.352");
    EXPECT_EQ(printedText(page, "ImponibileIva1"), "100,00");
    EXPECT_EQ(printedText(page, "ImponibileIva2"), "");
}

TEST_F(Stampe, aDeferredInvoiceTakesTheTitleGiven)
{
    testata("Fatture", 3, 7);
    riga("Fatture", 3, "A1");
    StampaFatturaDifferita(sessione, 7, 1, "NOTA DI CREDITO");
    Page page = pagina();
    EXPECT_EQ(printedText(page, "lblTitolo"), "NOTA DI CREDITO");
    EXPECT_EQ(printedText(page, "Label9"), "N. Fattura");
    EXPECT_EQ(printedText(page, "Text21"), "10100 Torino (TO) - Italia");
    utente.answerFile("");
    utente.key(Key::escape);
    StampaFatturaDifferita(sessione, 7, 1, "");
    page = pagina();
    EXPECT_EQ(printedText(page, "lblTitolo"), "FATTURA");
    EXPECT_EQ(page.detailRows, 39);
}

TEST_F(Stampe, aQuotationHasItsOwnTableAndTitle)
{
    testata("Proforma", 5, 9);
    StampaFatturaProforma(sessione, 9, 1);
    const Page page = pagina();
    EXPECT_EQ(utente.front()->caption(), "Bravona - Anteprima Preventivo di Spesa");
    EXPECT_EQ(printedText(page, "Label5"), "PREVENTIVO DI SPESA");
    EXPECT_EQ(printedText(page, "Label12"), "1 - 1");
    EXPECT_EQ(printedText(page, "Registro"), std::nullopt);
    EXPECT_EQ(printedText(page, "TotaleDocumento"), "120,00");  // without a row, its totals all the same
    EXPECT_EQ(detailText(page, 0, "CodiceArticolo"), "");
}

TEST_F(Stampe, anAddressHasNoHoleWhereTheNameHasOneLine)
{
    testata("Proforma", 5, 9);
    const auto posto = [&](const char* controllo) {
        return PreparaFatturaProforma(sessione, 9, 1).report["H"][controllo].top;
    };
    const int indirizzo = posto("Text18");
    const int citta = posto("Text21");
    esegui("UPDATE Clienti SET ClienteSecondaRiga = '' WHERE IDCliente = 7");
    EXPECT_EQ(posto("Text18"), posto("Text12"));
    EXPECT_EQ(posto("Text21"), indirizzo);
    EXPECT_GT(citta, indirizzo);
}

TEST_F(Stampe, aDocumentThatIsNotThereFails)
{
    testata("Bolle", 1, 12);  // without rows
    testata("Fatture", 3, 7, 0, 1, 2003);
    const auto numero = [](const std::function<void()>& stampa) -> std::uint32_t {
        try {
            stampa();
        } catch (const Errore& errore) {
            return errore.numero();
        }
        return 0;
    };
    EXPECT_EQ(numero([&] { StampaDDT(sessione, 12, 1); }), errori::nessunRecordCorrente);
    EXPECT_EQ(numero([&] { StampaFatturaDifferita(sessione, 7, 1, ""); }), errori::nessunRecordCorrente);
    EXPECT_EQ(utente.front(), nullptr);
}

TEST_F(Stampe, theLogoReplacesTheFirmsBlockFromTheNextPrintOn)
{
    constexpr std::array blocco{"Text13", "Text14", "Text15",  "Text16",  "Text19",
                                "Text11", "Text20", "Label10", "Label45", "Label46"};
    testata("Fatture", 3, 7);
    Report senza = PreparaFatturaDifferita(sessione, 7, 1, "").report;
    EXPECT_FALSE(senza["H"]["image1"].visible);
    const std::filesystem::path logo = std::filesystem::path(sessione.cartellaProgramma()) / "logo" / "logo.gif";
    std::filesystem::create_directories(logo.parent_path());
    files.replace(logo.string(), {'G', 'I', 'F'});
    Report con = PreparaFatturaDifferita(sessione, 7, 1, "").report;
    EXPECT_TRUE(con["H"]["imgLogo"].visible);
    EXPECT_EQ(con["H"]["image1"].path, logo.string());
    for (const char* nome : blocco) {
        EXPECT_TRUE(senza["H"][nome].visible) << nome;
        EXPECT_FALSE(con["H"][nome].visible) << nome;
    }
    // Name, VAT number and province stay as letters, clear of the picture.
    EXPECT_FALSE(senza["H"]["lblDatiLegali"].visible);
    ReportControl& legali = con["H"]["lblDatiLegali"];
    EXPECT_TRUE(legali.visible);
    EXPECT_EQ(legali.caption, "Colorificio Bianchi - P. IVA : 07654321001");
    EXPECT_TRUE(con["H"]["Text68"].visible);
    EXPECT_GT(con["H"]["Label5"].left, legali.left);
    for (const char* nome : {"lblDatiLegali", "Label5", "Text68"}) {
        EXPECT_GT(con["H"][nome].top, con["H"]["image1"].top + con["H"]["image1"].height) << nome;
    }
    testata("Bolle", 1, 12);
    riga("Bolle", 1, "A1");
    EXPECT_FALSE(PreparaDDT(sessione, 12, 1).report["H"]["image1"].visible);
}

TEST_F(Stampe, theFileNameTellsKindNumberYearAndCustomer)
{
    testata("Fatture", 3, 7);
    testata("Proforma", 5, 9);
    testata("Bolle", 1, 12);
    riga("Bolle", 1, "A1");
    EXPECT_EQ(PreparaDDT(sessione, 12, 1).nomeFile, "DDT 12 2004 Rossi");
    EXPECT_EQ(PreparaFatturaImmediata(sessione, 7, 1).nomeFile, "Fattura 7 2004 Rossi");
    EXPECT_EQ(PreparaFatturaDifferita(sessione, 7, 1, "NOTA DI DEBITO").nomeFile, "Nota di debito 7 2004 Rossi");
    EXPECT_EQ(PreparaFatturaProforma(sessione, 9, 1).nomeFile, "Preventivo 9 2004 Rossi");
}

}  // namespace
}  // namespace bravona
