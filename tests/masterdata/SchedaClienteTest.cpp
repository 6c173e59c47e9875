#include "masterdata/SchedaCliente.h"

#include <gtest/gtest.h>

#include <vector>

#include "masterdata/frmRegistraCliente.h"
#include "masterdata/frmVariazioneCliente.h"
#include "schema/Schema.h"
#include "support/ConArchivio.h"

namespace bravona {
namespace {

class Scheda : public ConArchivio {
protected:
    // Every text of a party that a person can type, and those of a destination.
    static std::vector<std::string> testi(SchedaCliente& scheda)
    {
        std::vector<std::string> letti;
        for (const Form::Entry& voce : scheda.controls()) {
            const bool libero = voce.name.starts_with("txt") && voce.name != "txtCercaCliente" &&
                                voce.name != "txtDestinazioni" && voce.index < 16;
            if (libero || voce.name == "cmbDescrizioneEsenzioneIVA") {
                letti.push_back(voce.control->shownText());
            }
        }
        for (std::size_t colonna = 0; colonna < 5; ++colonna) {
            letti.push_back(scheda.destinazioni.lvwDestinazioni.row(0).cell(colonna));
        }
        return letti;
    }

    static std::string lungo(std::size_t caratteri, const std::string& prima)
    {
        std::string testo = prima;
        testo.resize(caratteri, 'm');
        return testo;
    }
};

class TestiLunghi : public Scheda, public testing::WithParamInterface<std::size_t> {};

TEST_P(TestiLunghi, ComeBackWholeFromEveryField)
{
    auto& nuova = sessione.schermate().as<frmRegistraCliente>("frmRegistraCliente");
    nuova.show();
    nuova.chkEsenteIva.setChecked(true);
    int numero = 0;
    for (const Form::Entry& voce : nuova.controls()) {
        const std::string testo = lungo(GetParam(), std::to_string(++numero) + "'\"%*[è]");
        if (auto* casella = dynamic_cast<TextBox*>(voce.control); casella != nullptr && voce.index < 16) {
            casella->setText(testo);
        } else if (voce.name == "cmbDescrizioneEsenzioneIVA") {
            nuova.cmbDescrizioneEsenzioneIVA.setText(testo);
        }
    }
    nuova.SSTab1.setTab(2);
    utente.click(nuova.destinazioni.cmdDestinazioni[0]);
    const std::vector<std::string> scritti = testi(nuova);
    utente.answer(MsgAnswer::no);
    utente.click(nuova.cmdCliente[0]);
    ASSERT_EQ(utente.boxCount(), 1U) << ultimoMessaggio();

    auto& trovata = sessione.schermate().as<frmVariazioneCliente>("frmVariazioneCliente");
    trovata.IDCliente = 1;
    trovata.show();
    EXPECT_EQ(testi(trovata), scritti);
}
INSTANTIATE_TEST_SUITE_P(Misure, TestiLunghi, testing::Values(255, 5000));

TEST_F(Scheda, OpensOnTheRowThatACallerNames)
{
    esegui("INSERT INTO Clienti (IDCliente, Cliente, Indirizzo, Citta, Tipo) VALUES (7, 'Rossi', 'Via Po 1', 'Torino', "
           "'F')");
    esegui("INSERT INTO Clienti (IDCliente, Cliente, Indirizzo, Citta, Tipo) VALUES (8, 'Bianchi', 'Via Po 2', "
           "'Torino', 'F')");
    auto& scheda = sessione.schermate().as<frmVariazioneCliente>("frmVariazioneCliente");
    scheda.IDCliente = 7;
    scheda.show();
    EXPECT_EQ(scheda.txtAnagrafica[0].text(), "Rossi");
    EXPECT_EQ(sessione.TipoAnagraficaCorrente, "F");
    // The next search is by its text again.
    scheda.txtCercaCliente.setText("bian");
    utente.key(Key::f3);
    EXPECT_EQ(scheda.txtAnagrafica[0].text(), "Bianchi");
}

TEST_F(Scheda, TheSearchGoesByTheLitKindAndTellsOfTheOther)
{
    esegui("INSERT INTO Clienti (IDCliente, Cliente, Indirizzo, Citta, Tipo) VALUES (7, 'Rossi', 'Via Po 1', 'Torino', "
           "'C')");
    auto& scheda = sessione.schermate().as<frmVariazioneCliente>("frmVariazioneCliente");
    scheda.show();
    scheda.txtCercaCliente.setText("ros");
    scheda.Option2.choose();
    sessione.TipoAnagraficaCorrente = "C";
    utente.key(Key::f3);
    EXPECT_EQ(ultimoMessaggio(), "Cliente: Nessun record trovato!");
    EXPECT_EQ(scheda.txtCercaCliente.selLength(), 3U);
    scheda.Option1.choose();
    sessione.TipoAnagraficaCorrente = "F";
    utente.key(Key::f3);
    EXPECT_EQ(scheda.txtAnagrafica[0].text(), "Rossi");
}

TEST_F(Scheda, APartyDeletedMeanwhileLeavesNothingToSave)
{
    esegui("INSERT INTO Clienti (IDCliente, Cliente, Indirizzo, Citta, Tipo) VALUES (7, 'Rossi', 'Via Po 1', 'Torino', "
           "'C')");
    auto& scheda = sessione.schermate().as<frmVariazioneCliente>("frmVariazioneCliente");
    scheda.IDCliente = 7;
    scheda.show();
    ListRow ufficio;
    ufficio.text = "Ufficio";
    scheda.destinazioni.lvwDestinazioni.add(ufficio);
    esegui("DELETE * FROM Clienti");
    utente.click(scheda.cmdCliente[0]);
    EXPECT_EQ(ultimoMessaggio(), "Cliente: Errore nella variazione dei dati!");
    EXPECT_EQ(riga("SELECT COUNT(*) FROM DestinazioneMerceClienti"), "0");
    EXPECT_FALSE(sessione.cn.inTransaction());
}

class LetturaFallita : public Scheda, public testing::WithParamInterface<const char*> {};

TEST_P(LetturaFallita, LeavesNobodyWhoseDestinationsCouldBeSavedAway)
{
    esegui("INSERT INTO ModalitaPagamento (IDmodalitaPagamento, ModalitaPagamento) VALUES (5, 'Contanti')");
    esegui("INSERT INTO Clienti (IDCliente, Cliente, Indirizzo, Citta, Tipo, IDpagamento) VALUES (7, 'Rossi', "
           "'Via Po 1', 'Torino', 'C', 5)");
    esegui("INSERT INTO DestinazioneMerceClienti (IDDestinazione, IDCliente, Destinazione) VALUES (8, 7, 'Ufficio')");
    auto& scheda = sessione.schermate().as<frmVariazioneCliente>("frmVariazioneCliente");
    scheda.show();
    const std::string tabella = GetParam();
    sessione.cn.executeNative("ALTER TABLE " + tabella + " RENAME TO Altrove");
    scheda.txtCercaCliente.setText("ros");
    utente.key(Key::f3);
    sessione.cn.executeNative("ALTER TABLE Altrove RENAME TO " + tabella);
    ASSERT_NE(ultimoMessaggio().find("3078"), std::string::npos) << ultimoMessaggio();
    EXPECT_EQ(scheda.txtAnagrafica[0].text(), "");

    const std::size_t messaggi = utente.boxCount();
    utente.click(scheda.cmdCliente[0]);
    EXPECT_EQ(utente.boxCount(), messaggi) << "nobody is there to be saved";
    EXPECT_EQ(riga("SELECT IDDestinazione FROM DestinazioneMerceClienti"), "8");
    // The next search finds all of it.
    utente.key(Key::f3);
    EXPECT_EQ(scheda.txtAnagrafica[0].text(), "Rossi");
    EXPECT_EQ(scheda.lblModalitaPagamento.caption(), "Contanti");
    EXPECT_EQ(scheda.destinazioni.lvwDestinazioni.rowCount(), 1U);
}
INSTANTIATE_TEST_SUITE_P(Tabelle, LetturaFallita, testing::Values("DestinazioneMerceClienti", "ModalitaPagamento"));

// Another program works on the archive while a party is registered.
class ArchivioConteso : public Scheda, public testing::WithParamInterface<const char*> {};

TEST_P(ArchivioConteso, IsToldAsAFailedRegistrationThatCanBeTriedAgain)
{
    sessione.cn.executeNative("PRAGMA busy_timeout = 0");
    auto& nuova = sessione.schermate().as<frmRegistraCliente>("frmRegistraCliente");
    nuova.show();
    nuova.txtAnagrafica[0].setText("Rossi");
    nuova.txtAnagrafica[2].setText("Via Po 1");
    nuova.txtAnagrafica[3].setText("Torino");
    Connection altro;
    altro.open(cartella.archive().string(), passwordArchivio);
    altro.executeNative(GetParam());
    static_cast<void>(altro.open("SELECT * FROM Comuni"));
    bool inTransazione = false;
    utente.whileAsked = [&] { inTransazione = inTransazione || sessione.cn.inTransaction(); };
    utente.click(nuova.cmdCliente[0]);
    ASSERT_EQ(utente.boxCount(), 2U) << ultimoMessaggio();
    const std::string primo = utente.transcript().boxes.front().box.text;
    EXPECT_NE(primo.find("3218 - "), std::string::npos) << primo;
    EXPECT_NE(primo.find("\nNel modulo: clsCliente\nNella routine: RegistraCliente"), std::string::npos) << primo;
    EXPECT_EQ(ultimoMessaggio(),
              "Anagrafica Clienti: Errore nella registrazione. Controllare tutti i campi di inserimento e riprovare!");
    EXPECT_EQ(nuova.txtAnagrafica[0].text(), "Rossi");
    altro.executeNative("COMMIT");

    // One that the store refuses: nobody else waits while its boxes stand.
    sessione.cn.setWriteHook([](const std::string&) { throw Errore(errori::testoObbligatorioVuoto, "guasto"); });
    utente.click(nuova.cmdCliente[0]);
    EXPECT_EQ(utente.boxCount(), 4U);
    EXPECT_FALSE(inTransazione);
    sessione.cn.setWriteHook({});
    utente.answer(MsgAnswer::no);
    utente.click(nuova.cmdCliente[0]);
    EXPECT_EQ(riga("SELECT COUNT(*) FROM Clienti WHERE Cliente = 'Rossi'"), "1");
}
// Refused at the beginning, and at the end.
INSTANTIATE_TEST_SUITE_P(Lavori, ArchivioConteso, testing::Values("BEGIN IMMEDIATE", "BEGIN"));

TEST_F(Scheda, TheNextPartyOffersNoMethodWhereThereIsNone)
{
    auto& nuova = sessione.schermate().as<frmRegistraCliente>("frmRegistraCliente");
    nuova.show();
    nuova.txtAnagrafica[0].setText("Rossi");
    nuova.txtAnagrafica[2].setText("Via Po 1");
    nuova.txtAnagrafica[3].setText("Torino");
    utente.answer(MsgAnswer::yes);
    utente.click(nuova.cmdCliente[0]);
    EXPECT_EQ(riga("SELECT IDpagamento, IDListino FROM Clienti"), "0|1");
    EXPECT_EQ(nuova.List1.listIndex(), -1);
    EXPECT_EQ(nuova.Combo1.text(), "1");
}

}  // namespace
}  // namespace bravona
