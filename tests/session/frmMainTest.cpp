#include "session/frmMain.h"

#include <gtest/gtest.h>

#include "platform/text/Text.h"
#include "session/ScadenzeInArrivo.h"
#include "support/ConArchivio.h"

namespace bravona {
namespace {

class Principale : public ConArchivio {
protected:
    frmMain& apri()
    {
        auto& principale = sessione.schermate().as<frmMain>("frmMain");
        principale.show();
        return principale;
    }
};

std::string elenco(const Menu& menu, const std::string& rientro = {})
{
    std::string testo;
    for (const auto& voce : menu.entries) {
        if (voce->separator) {
            continue;
        }
        testo += rientro + voce->name + " " + voce->caption + (voce->visible ? "" : " (hidden)") + "\n" +
                 elenco(*voce, rientro + "  ");
    }
    return testo;
}

TEST_F(Principale, TheMenuStandsInItsOrder)
{
    EXPECT_EQ(elenco(*apri().menuBar), R"(mnuFile &File
  mnuNuovoArchivio &Crea nuovo archivio
  mnuApriArchivio &Apri archivio
  mnuOpzioni &Opzioni
    mnuScadenze Controllo Scadenze all'avvio
  mnuTabelle Tabelle
    mnuDatiAzienda &Dati azienda
    mnuCodiciIva &Codici IVA
    mnuModalitaPagamento &Modalità pagamento
    mnuComuni &Gestione Comuni
    mnuRegistri &Registri Fatture
    mnuDescrizioneListini &Listini
    mnuNoteDocumenti Note documenti (hidden)
  mnuUtility Utility
    mnuCompattaArchivio Compatta archivio
    mnuPercorsoArchivio Percorso archivio
    mnuBackup Backup/Ripristino
    mnuConversioneArchivi Conversione Archivi (hidden)
  mnuEsci &Esci
mnuClienti &Clienti / Fornitori
  mnuInserimento &Inserimento
  mnuVisualizzaModifica &Visualizza - Modifica
  mnuStampaElencoClienti &Stampa elenco Clienti
  mnuStampaElencoFornitori Stampa elenco Fornitori
mnuArticoli &Articoli
  mnuInserimentoArticoli &Inserimento
  mnuVisualizzaModificaArticoli &Visualizza - Modifica
  mnuAggiornaListino Aggiorna listino
  mnuStampaListino Stampa listino
mnuMagazzino &Magazzino
  mnuMagazzinoIns Inserimento Movimenti Magazzino
  mnuMagazzinoModifica Modifica Movimenti Magazzino
mnuDocumenti &Documenti
  mnuEmettiDocumento &Nuovo documento
  mnuModificaDocumento &Modifica esistente
  mnuResoconto Resoconto &Fatture
  mnuRistampaDocumento &Ristampa
  mnuAnnulamentoDocumento &Annullamento
  mnuScadenzario &Scadenzario
mnuAiuto &?
  mnuInformazioni &Informazioni
)");
}

TEST_F(Principale, GuardedCommandsRefuseInTheirOwnWordsAndRunWhenIdle)
{
    int compattazioni = 0;
    sessione.Comandi.CompattaArchivio = [&] { ++compattazioni; };
    sessione.schermate().add(
        "frmBackup", [this] { return std::make_unique<Form>(utente, "frmBackup", "Backup", WindowStyle::dialog); });
    frmMain& principale = apri();
    Menu& compatta = *principale.menuBar->find("mnuCompattaArchivio");
    Menu& backup = *principale.menuBar->find("mnuBackup");

    Form& nascosta = sessione.schermate().get("frmAbout");
    utente.load(nascosta);
    utente.menu(principale, compatta);
    EXPECT_EQ(ultimoMessaggio(), "Bravona: Per compattare l'archivio è necessario chiudere tutte le finestre attive.");
    utente.menu(principale, backup);
    EXPECT_EQ(ultimoMessaggio(),
              "Bravona: Per effettuare le operazioni di backup e ripristino\ndel database è necessario "
              "chiudere tutte le finestre attive.");
    EXPECT_EQ(compattazioni, 0);

    nascosta.unload();
    utente.menu(principale, compatta);
    EXPECT_EQ(compattazioni, 1);
    bool aperto = false;
    utente.inModal([&](Form& form) { aperto = form.name() == "frmBackup"; });
    utente.menu(principale, backup);
    EXPECT_TRUE(aperto);
    EXPECT_EQ(utente.boxCount(), 2U);
}

// A ledger that found so many instalments.
class Scadenze final : public Form, public ScadenzeInArrivo {
public:
    Scadenze(Desktop& desktop, std::string totale)
        : Form(desktop, "frmScadenze", "Scadenzario"),
          totale_(std::move(totale))
    {}
    [[nodiscard]] std::string TotaleDocumenti() const override { return totale_; }

private:
    std::string totale_;
};

struct Controllo {
    const char* allarme;
    const char* totale;
    bool mostrato;
};

class ControlloAllAvvio : public Principale, public testing::WithParamInterface<Controllo> {};

TEST_P(ControlloAllAvvio, RunsOnceAtTheFirstActivation)
{
    settings.save("Impostazioni", "Allarme", GetParam().allarme);
    int fatte = 0;
    sessione.schermate().add("frmScadenze", [&] {
        ++fatte;
        return std::make_unique<Scadenze>(utente, GetParam().totale);
    });
    frmMain& principale = apri();
    Form* scadenze = sessione.schermate().find("frmScadenze");
    EXPECT_EQ(scadenze != nullptr && scadenze->shown(), GetParam().mostrato);
    EXPECT_EQ(NessunaFinestraAperta(sessione), !GetParam().mostrato);
    if (scadenze) {
        scadenze->unload();
    }
    const int prima = fatte;
    sessione.schermate().get("frmAbout").show();
    sessione.schermate().get("frmAbout").unload();
    EXPECT_EQ(utente.front(), &principale);
    EXPECT_EQ(fatte, prima);
}

INSTANTIATE_TEST_SUITE_P(Impostazioni, ControlloAllAvvio,
                         testing::Values(Controllo{"1", "3", true}, Controllo{"1", "0", false},
                                         Controllo{"0", "3", false}, Controllo{"", "3", false},
                                         Controllo{"1,5 si", "3", true}, Controllo{"1.5", "3", false},
                                         Controllo{"2", "3", false}));

TEST_F(Principale, NumbersGoOnFromTheHighestOfTheYear)
{
    sessione.AnnoRiferimento = "2004";
    EXPECT_EQ(ProssimoNumero(sessione, "Fatture", 1), 1);
    EXPECT_EQ(ProssimoNumeroTabella(sessione, "Proforma"), 1);
    for (const char* valori : {"(7, 2004, 1)", "(12, 2004, 2)", "(99, 2003, 1)"}) {
        esegui("INSERT INTO Fatture (NumeroDocumento, AnnoDocumento, NumeroRegistro) VALUES " + std::string(valori));
    }
    EXPECT_EQ(ProssimoNumero(sessione, "Fatture", 1), 8);
    EXPECT_EQ(ProssimoNumero(sessione, "Fatture", 2), 13);
    EXPECT_EQ(ProssimoNumero(sessione, "Fatture", 3), 1);
    EXPECT_EQ(ProssimoNumeroTabella(sessione, "Fatture"), 13);

    CaricaRegistri(sessione);
    ComboBox registri;
    CaricaComboRegistri(sessione, registri);
    ASSERT_EQ(registri.items().size(), 2U);
    EXPECT_EQ(registri.items()[1].text, "(2) - Secondo");
    EXPECT_EQ(registri.items()[1].data, 2);
}

}  // namespace
}  // namespace bravona
