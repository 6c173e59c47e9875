#include <gtest/gtest.h>

#include "masterdata/ListaDiScelta.h"
#include "masterdata/modRicercaArticolo.h"
#include "masterdata/modRicercaClientiFornitori.h"
#include "masterdata/modRicercaComuni.h"
#include "support/ConArchivio.h"
#include "support/Fallimento.h"

namespace bravona {
namespace {

class Ricerche : public ConArchivio {
protected:
    Ricerche()
    {
        for (const char* valori : {"(1, 'Rossi', 'Via Po 1', '011-123', '01', 'RSS', 'C')",
                                   "(2, 'Rossini', 'Via Dora 2', '02-456', '02', 'RSN', 'C')",
                                   "(3, 'L''Edera', 'Via Roma 3', '06-789', '03', 'EDR', 'C')",
                                   "(4, 'Rosso Forniture', 'Via Po 4', '011-999', '04', 'FRN', 'F')",
                                   "(5, 'Rosanna', 'Corso Re 5', '070-1', '05', 'RSA', Null)"}) {
            esegui("INSERT INTO Clienti (IDCliente, Cliente, Indirizzo, Telefono, PartitaIva, CodiceFiscale, Tipo) "
                   "VALUES " +
                   std::string(valori));
        }
        for (const char* valori : {"(1, 'A1', 'F10', '800100', 'Vite piana')",
                                   "(2, 'A12', 'F20', '800200', 'Dado, per vite')", "(3, 'B7', '', '', 'Bullone')"}) {
            esegui("INSERT INTO Articoli (IDArticolo, CodiceMagazzino, CodiceFornitore, CodiceBarreFornitore, "
                   "DescrizionePrincipale) VALUES " +
                   std::string(valori));
        }
        for (const char* valori :
             {"(1, 'Torino', 'TO', '10100')", "(2, 'Torre Pellice', 'TO', '10066')", "(3, 'Aosta', 'AO', '11100')"}) {
            esegui("INSERT INTO Comuni (IDCodiceComune, Comune, Provincia, Cap) VALUES " + std::string(valori));
        }
    }

    std::int32_t cercaParte(const std::string& testo, CampoAnagrafica campo = CampoAnagrafica::nome)
    {
        return RicercaClientiFornitori(sessione, TabellaAnagrafica::clienti, testo, campo);
    }

    // Leaves the pick-list by Escape and notes how many rows it had.
    void contaEAnnulla()
    {
        utente.inModal([this](Form& form) {
            righe_ = dynamic_cast<ListaDiScelta&>(form).lwSelect.rowCount();
            utente.key(Key::escape);
        });
    }
    std::size_t righe_ = 0;
};

TEST_F(Ricerche, OneMatchIsTheAnswerAndNoneIsMinusOne)
{
    struct Caso {
        int indice;
        const char* testo;
        std::int32_t atteso;
    };
    for (const Caso& caso : {Caso{0, "b", 3}, Caso{0, "12", 2}, Caso{0, "zz", -1}, Caso{1, "800100", 1},
                             Caso{1, "8001", -1}, Caso{1, "%200", 2}, Caso{1, "", -1}, Caso{2, "", -1},
                             Caso{2, "f20", 2}, Caso{2, "F", -1}, Caso{3, "bul", 3}, Caso{3, "PER VITE", 2}}) {
        EXPECT_EQ(RicercaArticolo(sessione, CampoArticolo{caso.indice}, caso.testo), caso.atteso)
            << caso.indice << " " << caso.testo;
    }
    for (const Caso& caso :
         {Caso{0, "rossin", 2}, Caso{0, "l'e", 3}, Caso{0, "dera", -1}, Caso{0, "rosso", -1}, Caso{0, "rosa", -1},
          Caso{1, "999", 4}, Caso{1, "070", 5}, Caso{2, "02", 2}, Caso{3, "dr", 3}, Caso{4, "corso", 5}}) {
        EXPECT_EQ(cercaParte(caso.testo, CampoAnagrafica{caso.indice}), caso.atteso)
            << caso.indice << " " << caso.testo;
    }
    for (const Caso& caso :
         {Caso{0, "torr", 2}, Caso{0, "ino", -1}, Caso{1, "a", 3}, Caso{2, "00", -1}, Caso{2, "1006", 2}}) {
        EXPECT_EQ(RicercaComuni(sessione, CampoComune{caso.indice}, caso.testo), caso.atteso)
            << caso.indice << " " << caso.testo;
    }
    EXPECT_EQ(utente.boxCount(), 0U);
}

TEST_F(Ricerche, TheNameSearchKeepsToTheCurrentKind)
{
    sessione.TipoAnagraficaCorrente = "F";
    EXPECT_EQ(cercaParte("ross"), 4);
    Form& principale = sessione.schermate().get("frmMain");
    EXPECT_EQ(cercaParte("l'edera"), ricerca::nessunRecord);
    EXPECT_EQ(principale.statusBar->panels.at(2), "Nessun fornitore con questo nome; tra i clienti ce n'è 1");
    EXPECT_EQ(cercaParte("011-123", CampoAnagrafica::telefono), 1);
}

TEST_F(Ricerche, AnEmptyTextListsEveryPartyOfTheKind)
{
    contaEAnnulla();
    EXPECT_EQ(cercaParte(""), ricerca::annullata);
    EXPECT_EQ(righe_, 3U);
    EXPECT_EQ(sessione.SelezioneRecord, ricerca::annullata);
    EXPECT_EQ(utente.screens().find("frmSelezioneRecord"), nullptr);
}

TEST_F(Ricerche, EnterTakesTheSelectedRow)
{
    utente.inModal([this](Form& form) {
        EXPECT_EQ(form.caption(), "Seleziona record");
        utente.key(Key::down);
        utente.key(Key::enter);
    });
    EXPECT_EQ(cercaParte("ross"), 2);
    EXPECT_EQ(sessione.SelezioneRecord, 2);
}

TEST_F(Ricerche, ADoubleClickTakesItsRowAfterSortingByHeading)
{
    utente.inModal([this](Form& form) {
        auto& lista = dynamic_cast<ListaDiScelta&>(form).lwSelect;
        EXPECT_EQ(lista.row(0).key, "1x");
        EXPECT_EQ(lista.columns()[4].caption, "Descrizione Secondaria");
        EXPECT_EQ(lista.row(0).cell(5), "");
        utente.clickColumn(lista, 3);
        EXPECT_EQ(lista.row(0).cell(3), "Dado, per vite");
        utente.doubleClickRow(lista, 0);
    });
    EXPECT_EQ(RicercaArticolo(sessione, CampoArticolo::descrizione, "vite"), 2);
}

TEST_F(Ricerche, EveryWayOutOfTheListWithoutAChoiceCancels)
{
    const std::vector<std::function<void(Form&)>> vie{
        [this](Form&) { utente.key(Key::escape); }, [this](Form& form) { utente.closeWindow(form); },
        [this](Form& form) { utente.click(dynamic_cast<ListaDiScelta&>(form).Command1[1]); }};
    for (const auto& via : vie) {
        sessione.SelezioneRecord = 7;
        sessione.SelezioneArticolo = 7;
        utente.inModal(via);
        EXPECT_EQ(RicercaArticolo(sessione, CampoArticolo::codice, "a"), ricerca::annullata);
        EXPECT_EQ(sessione.SelezioneRecord, ricerca::annullata);
    }
}

TEST_F(Ricerche, AQuoteIsDoubled)
{
    EXPECT_EQ(cercaParte("L'"), 3);
    EXPECT_EQ(RicercaComuni(sessione, CampoComune::comune, "L'"), -1);
    esegui("UPDATE Articoli SET DescrizionePrincipale = 'Olio d''oliva' WHERE IDArticolo = 2");
    EXPECT_EQ(RicercaArticolo(sessione, CampoArticolo::descrizione, "d'oliva"), 2);
}

}  // namespace
}  // namespace bravona
