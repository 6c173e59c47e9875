#include <gtest/gtest.h>

#include <functional>
#include <optional>
#include <set>
#include <string>

#include "platform/values/Errore.h"
#include "support/OgniIstante.h"
#include "support/ProgrammaDiProva.h"
#include "support/ScritturaUccisa.h"
#include "warehouse/frmModificaMovimentiMagazzino.h"

namespace bravona {
namespace {

constexpr const char* prima = "| A1 1000 0.0000 0.0000, B1 1000 0.0000 0.0000";
constexpr const char* registrato =
    "815 10/01/2004 3| A1 2 S, B1 2 S, A1 2 S| A1 1004 40.0000 10.0000, B1 1002 20.0000 10.0000";
// The first row changed to 5 pieces at 12, a row of B1 added, operation of the 20th.
constexpr const char* corretto =
    "815 20/01/2004 4| A1 5 S, B1 2 S, A1 2 S, B1 2 S| A1 1007 80.0000 12.0000, B1 1004 40.0000 10.0000";

// All that a receipt writes, in words.
std::string stato(Connection& cn)
{
    std::string testo;
    Recordset testate = cn.open("SELECT * FROM MovimentiMagazzino");
    for (; !testate.eof(); testate.moveNext())
        testo += testate["NumeroDocumento"].text() + " " + testate["DataOperazione"].text() + " " +
                 testate["NumeroDettagli"].text();
    const char* separatore = "| ";
    Recordset righe = cn.open("SELECT * FROM MovimentiMagazzino_Dettagli ORDER BY IDRiga");
    for (; !righe.eof(); righe.moveNext(), separatore = ", ")
        testo += separatore + righe["CodiceArticolo"].text() + " " + righe["Quantita"].text() + " " +
                 righe["Aggiornato"].text();
    separatore = "| ";
    Recordset articoli = cn.open("SELECT * FROM Articoli ORDER BY IDArticolo");
    for (; !articoli.eof(); articoli.moveNext(), separatore = ", ")
        testo += separatore + articoli["CodiceMagazzino"].text() + " " + articoli["Carico"].text() + " " +
                 comeTesto(articoli["CaricoValore"].currencyOr({})) + " " +
                 comeTesto(articoli["CostoUltimo"].currencyOr({}));
    return testo;
}

class Carico : public ::testing::Test {
protected:
    Carico()
    {
        ScritturaUccisa::installa();
        programma.emplace();
        cn().execute("INSERT INTO Clienti (IDCliente, Cliente, PartitaIva, Tipo) VALUES (9, 'Ferriere', '01234567890', "
                     "'F')");
    }

    Connection& cn() { return programma->sessione().cn; }
    void premi(const char* comando) { programma->utente.click(programma->controllo(comando)); }
    void scrivi(const char* campo, const char* testo) { programma->utente.type(programma->controllo(campo), testo); }

    void aggiungi(const char* codice)
    {
        scrivi("txtCodiceArticolo", codice);
        programma->utente.key(Key::f3);
        scrivi("txtQuantita", "2");
        scrivi("txtPrezzo", "10");
        premi("cmdDettagli[0]");
    }

    // A receipt composed up to "Registra"; then `passi`, while its window stands.
    void componi(const std::function<void()>& passi)
    {
        bool passati = false;
        programma->utente.inModal([&](Form&) {
            scrivi("txtFornitore", "ferr");
            programma->utente.key(Key::f3);
            scrivi("txtNumeroDocumento", "815");
            scrivi("txtDataDocumento", "10/01/2004");
            for (const char* codice : {"A1", "B1", "A1"})
                aggiungi(codice);
            passi();
            programma->utente.answer(MsgAnswer::yes);  // gives up what was not kept
            premi("cmdDocumento[1]");
            passati = true;
        });
        programma->menu("mnuMagazzinoIns");
        EXPECT_TRUE(passati);
    }

    // A receipt that is kept, changed on its screen up to "Aggiorna".
    void correggi()
    {
        componi([&] { premi("cmdDocumento[0]"); });
        programma->utente.transcript().answers.clear();
        ASSERT_EQ(stato(cn()), registrato);
        const std::int32_t id = std::stoi(programma->valore("SELECT IDMovimenti FROM MovimentiMagazzino"));
        programma->utente.guard([&] {
            auto& schermata =
                programma->sessione().schermate().as<frmModificaMovimentiMagazzino>("frmModificaMovimentiMagazzino");
            schermata.CaricaMovimento(id);
            schermata.show();
        });
        premi("cmdDocumento[0]");
        programma->utente.selectRow(programma->controllo("lvwDettagli"), 0);
        premi("cmdDettagli[1]");
        scrivi("txtQuantita", "5");
        scrivi("txtPrezzo", "12");
        premi("cmdDettagli[1]");
        aggiungi("B1");
        scrivi("txtDataOperazione", "20/01/2004");
    }

    // The command is pressed again and again, another of its writes failing each time, until none is left to fail.
    int fallimentiDi(const std::string& intatto)
    {
        constexpr int massimi = 100;
        for (int fallimento = 1; fallimento < massimi; ++fallimento) {
            int scritture = 0;
            cn().setWriteHook([&](const std::string&) {
                if (++scritture == fallimento)
                    throw Errore(3035, "guasto di prova");
            });
            premi("cmdDocumento[0]");
            cn().setWriteHook({});
            EXPECT_FALSE(cn().inTransaction());
            if (scritture < fallimento)
                return fallimento - 1;
            EXPECT_NE(programma->utente.lastBox().text.find("guasto di prova"), std::string::npos) << fallimento;
            EXPECT_EQ(stato(cn()), intatto) << "after the failure of write " << fallimento;
        }
        return massimi;
    }

    std::set<std::string> statiDopoUccisioni()
    {
        std::set<std::string> visti;
        const int uccisioni = uccidiAOgniIstante(
            *programma, [&] { premi("cmdDocumento[0]"); }, [&](Connection& dopo) { visti.insert(stato(dopo)); });
        EXPECT_GT(uccisioni, 10);
        return visti;
    }

    std::optional<ProgrammaDiProva> programma;
};

TEST_F(Carico, AReceiptWithAFailureAtAnySingleWriteLeavesNoTraceAndCanBeTriedAgain)
{
    componi([&] { EXPECT_EQ(fallimentiDi(prima), 1 + 3 * 2); });  // the header; each row and its article
    EXPECT_EQ(stato(cn()), registrato);
}

TEST_F(Carico, ACorrectionWithAFailureAtAnySingleWriteLeavesTheOldReceipt)
{
    correggi();
    EXPECT_EQ(fallimentiDi(registrato), 1 + 1 + 4 * 2);  // the header, the old rows; each row and its article
    EXPECT_EQ(stato(cn()), corretto);
}

TEST_F(Carico, AReceiptKilledAtAnyInstantIsKeptWholeOrNotAtAll)
{
    componi([&] { EXPECT_EQ(statiDopoUccisioni(), (std::set<std::string>{prima, registrato})); });
}

TEST_F(Carico, ACorrectionKilledAtAnyInstantIsKeptWholeOrNotAtAll)
{
    correggi();
    EXPECT_EQ(statiDopoUccisioni(), (std::set<std::string>{registrato, corretto}));
}

}  // namespace
}  // namespace bravona
