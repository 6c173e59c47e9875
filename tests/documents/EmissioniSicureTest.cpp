#include <gtest/gtest.h>

#include <set>

#include "documents/TipoDocumento.h"
#include "platform/values/Errore.h"
#include "support/OgniIstante.h"
#include "support/ProgrammaDiProva.h"
#include "support/ScritturaUccisa.h"

// What derives and cancels documents, each in turn: every single write made to fail, every instant a kill.
namespace bravona {
namespace {

struct Scrittore {
    const char* nome;
    const char* schermata;
    const char* documentoDaFare;  // of the quotation's screen
    int opzione;                  // of the cancelling screen
    int scritture;                // single writes up to the commit
    const char* guasto;           // the box of a failure begins and ends so
    const char* fine;
};

constexpr const char* errore = "Si e' verificato il seguente errore: \n3035 - guasto di prova\n";

const Scrittore scrittori[] = {
    {"FatturaDaDDT", "frmFatturaDaDDT", "", 0, 1 + 5 + 2 + 2 + 3, errore,
     "Routine: EmettiFatturaDaDDT\nModulo: frmFatturaDaDDT"},
    {"FatturaDaProforma", "frmDocumentoDaProforma", "FATTURA", 0, 1 + 2 + 3, errore,
     "Routine: CreaFatturaDaProforma\nModulo: frmFatturaDaProforrma"},
    {"DDTDaProforma", "frmDocumentoDaProforma", "DDT", 0, 1 + 2, errore,
     "Routine: CreaDDTDaProforma\nModulo: frmDocumentoDaProforrma"},
    {"AnnullaDDT", "frmAnnullamento", "", 0, 1, "3035", "guasto di prova"},
    {"AnnullaFattura", "frmAnnullamento", "", 1, 3,
     "Attenzione! Operazione annullata a causa dell'errore n.3035\nguasto di prova\n",
     "Routine: AnnullaFattura \nModulo: frmAnnullamento"},
};

// Two delivery notes of the customer (the second of one row), a quotation, and an invoice of a third delivery note.
constexpr const char* documenti[] = {
    "INSERT INTO Bolle (IDBolla, NumeroDocumento, AnnoDocumento, NumeroRegistro, DataDocumento, IDCliente, Tipo, "
    "EmessaFattura, NumeroFattura, IDmodalitaPagamento, TotaleDocumento) VALUES (1, 1, 2004, 1, #10/01/2004#, 7, 'V', "
    "'N', 0, 5, 90)",
    "INSERT INTO Bolle (IDBolla, NumeroDocumento, AnnoDocumento, NumeroRegistro, DataDocumento, IDCliente, Tipo, "
    "EmessaFattura, NumeroFattura, IDmodalitaPagamento, TotaleDocumento) VALUES (2, 2, 2004, 1, #11/01/2004#, 7, 'V', "
    "'N', 0, 5, 90)",
    "INSERT INTO Bolle (IDBolla, NumeroDocumento, AnnoDocumento, NumeroRegistro, DataDocumento, IDCliente, Tipo, "
    "EmessaFattura, NumeroFattura, DataFattura) VALUES (3, 3, 2004, 1, #11/01/2004#, 7, 'V', 'S', 9, '12/01/2004')",
    "INSERT INTO Bolle_Dettagli (IDBolla, IDArticolo, CodiceArticolo) VALUES (1, 3, 'A1')",
    "INSERT INTO Bolle_Dettagli (IDBolla, IDArticolo, CodiceArticolo) VALUES (1, 4, 'B1')",
    "INSERT INTO Bolle_Dettagli (IDBolla, IDArticolo, CodiceArticolo) VALUES (2, 3, 'A1')",
    "INSERT INTO Bolle_Dettagli (IDBolla, IDArticolo, CodiceArticolo) VALUES (3, 3, 'A1')",
    "INSERT INTO Proforma (IDFattura, NumeroDocumento, AnnoDocumento, NumeroRegistro, DataDocumento, IDCliente, "
    "IDmodalitaPagamento, TotaleDocumento) VALUES (1000000001, 1, 2004, 1, #10/01/2004#, 7, 5, 90)",
    "INSERT INTO Proforma_Dettagli (IDFattura, IDArticolo, CodiceArticolo) VALUES (1000000001, 3, 'A1')",
    "INSERT INTO Proforma_Dettagli (IDFattura, IDArticolo, CodiceArticolo) VALUES (1000000001, 4, 'B1')",
    "INSERT INTO Fatture (IDFattura, NumeroDocumento, AnnoDocumento, NumeroRegistro, DataDocumento, IDCliente, "
    "TipoDocumento, RiferimentoBolla) VALUES (1, 9, 2004, 1, #12/01/2004#, 7, 1, 'S')",
    "INSERT INTO Fatture_Dettagli (IDFattura, IDArticolo, CodiceArticolo) VALUES (1, 3, 'A1')",
    "INSERT INTO Fatture_RiferimentoBolle (IDFattura, IDBolla, NumeroBolla) VALUES (1, 3, 3)",
    "INSERT INTO Scadenzario (IDDocumento, IDRegistro, Saldato) VALUES (1, 1, '0')",
};

std::string contenuto(Connection& cn)
{
    std::string testo;
    for (const char* tabella : {"Bolle", "Bolle_Dettagli", "Fatture", "Fatture_Dettagli", "Fatture_RiferimentoBolle",
                                "Proforma", "Proforma_Dettagli", "Scadenzario", "Articoli"}) {
        testo += std::string("\n") + tabella;
        for (Recordset record = cn.open(std::string("SELECT * FROM ") + tabella); !record.eof(); record.moveNext()) {
            testo += "\n";
            for (std::size_t i = 0; i < record.columns().size(); ++i)
                testo += record[i].isNull() ? "|Null" : "|" + record[i].text();
        }
    }
    return testo;
}

class OgniScrittore : public testing::TestWithParam<Scrittore> {
protected:
    OgniScrittore()
    {
        for (const char* istruzione : documenti)
            cn().execute(istruzione);
        apri();
    }
    Connection& cn() { return programma.sessione().cn; }

    // The screen with all chosen, up to its command.
    void apri()
    {
        Form& schermata = programma.sessione().schermate().get(GetParam().schermata);
        if (auto* daProforma = dynamic_cast<DocumentoDaProforma*>(&schermata))
            daProforma->setTipoDocumento(GetParam().documentoDaFare);
        schermata.show();
        if (schermata.name() == "frmFatturaDaDDT") {
            auto& albero = dynamic_cast<TreeView&>(programma.controllo("tvwClienti"));
            programma.utente.selectNode(albero, albero.find("c7"));
            auto& bolle = dynamic_cast<ListView&>(programma.controllo("lvwBolleCliente"));
            programma.utente.tick(bolle, 0);
            programma.utente.tick(bolle, 1);
        } else if (schermata.name() == "frmDocumentoDaProforma") {
            programma.utente.selectRow(programma.controllo("lvwFatture"), 0);
        } else {
            programma.utente.click(programma.controllo("optTipo[" + std::to_string(GetParam().opzione) + "]"));
            programma.utente.type(programma.controllo("txtNumeroDocumento"), GetParam().opzione == 0 ? "1" : "9");
        }
    }
    // By its command. A cancellation asks first, a derivation afterwards.
    void esegui()
    {
        const bool annulla = GetParam().schermata == std::string("frmAnnullamento");
        programma.utente.answer(annulla ? MsgAnswer::yes : MsgAnswer::no);
        programma.utente.click(programma.controllo("cmdShow"));
        programma.utente.transcript().answers.clear();
    }

    bool guardato = (ScritturaUccisa::installa(), true);  // before the archive is opened
    ProgrammaDiProva programma;
};

TEST_P(OgniScrittore, AFailureAtAnySingleWriteLeavesNoTraceOfItAndTheScreenAsItWas)
{
    const std::string prima = contenuto(cn());
    for (int fallimento = 1; fallimento <= GetParam().scritture; ++fallimento) {
        int scritture = 0;
        cn().setWriteHook([&](const std::string&) {
            if (++scritture == fallimento)
                throw Errore(3035, "guasto di prova");
        });
        esegui();
        const MessageBox& detto = programma.utente.lastBox();
        EXPECT_EQ(detto.title, "Errore - Bravona");
        EXPECT_TRUE(detto.text.starts_with(GetParam().guasto) && detto.text.ends_with(GetParam().fine)) << detto.text;
        ASSERT_EQ(contenuto(cn()), prima) << "write " << fallimento;
        EXPECT_FALSE(cn().inTransaction());
        EXPECT_TRUE(programma.controllo("cmdShow").enabled());
    }
    cn().setWriteHook({});
    esegui();  // the same once more, now that the fault is gone
    EXPECT_NE(contenuto(cn()), prima);
    EXPECT_NE(programma.utente.lastBox().title, "Errore - Bravona");
}

TEST_P(OgniScrittore, AKillAtAnyInstantLeavesTheArchiveBeforeOrAfterIt)
{
    const std::string prima = contenuto(cn());
    std::set<std::string> visti;
    const int uccisioni = uccidiAOgniIstante(
        programma, [this] { esegui(); }, [&](Connection& rimasto) { visti.insert(contenuto(rimasto)); });
    EXPECT_GT(uccisioni, 10);
    EXPECT_EQ(visti.size(), 2U);
    EXPECT_TRUE(visti.contains(prima));
}

INSTANTIATE_TEST_SUITE_P(Documenti, OgniScrittore, testing::ValuesIn(scrittori),
                         [](const auto& caso) { return std::string(caso.param.nome); });

}  // namespace
}  // namespace bravona
