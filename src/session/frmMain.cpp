#include "session/frmMain.h"

#include <filesystem>

#include "platform/values/Numeri.h"
#include "session/ScadenzeInArrivo.h"
#include "session/frmDialogBox.h"
#include "session/frmStartup.h"
#include "session/modMain.h"

namespace bravona {

namespace {

std::function<void()> conPuntatoreNormale(Desktop& desktop, std::function<void()> comando)
{
    return [&desktop, comando = std::move(comando)] {
        desktop.setPointer(Pointer::normal);
        comando();
    };
}

bool allarmeRichiesto(const Settings& settings)
{
    try {
        return leadingNumber(settings.get("Impostazioni", "Allarme")) == 1;
    } catch (const Errore&) {
        return false;
    }
}

}  // namespace

frmMain::frmMain(Sessione& sessione)
    : Form(sessione.desktop(), "frmMain", "Bravona", WindowStyle::main),
      sessione_(sessione)
{
    statusBar = std::make_unique<StatusBar>();
    // The year, the archive's file, a short word on what just happened.
    statusBar->panels.resize(3);
    creaMenu();
    setLayout({});
}

Menu& frmMain::voce(Menu& menu, const char* nome, const char* testo, bool disponibile, std::function<void()> azione)
{
    Menu& nuova = menu.add(nome, testo, std::move(azione));
    nuova.enabled = disponibile;
    return nuova;
}

Menu& frmMain::voce(Menu& menu, const char* nome, const char* testo, const char* schermata, Apertura apertura)
{
    return voce(menu, nome, testo, sessione_.schermate().knows(schermata),
                [this, schermata, apertura] { apri(schermata, apertura); });
}

void frmMain::apri(const std::string& schermata, Apertura apertura)
{
    Form& form = sessione_.schermate().get(schermata);
    if (apertura == Apertura::modale) {
        form.showModal();
    } else {
        form.show();
    }
}

void frmMain::custodito(const std::string& rifiuto, const std::function<void()>& comando)
{
    if (NessunaFinestraAperta(sessione_)) {
        comando();
    } else {
        desktop().inform(rifiuto, "Bravona");
    }
}

void frmMain::creaMenu()
{
    menuBar = std::make_unique<Menu>();
    creaMenuFile();
    creaMenuAnagrafiche();
    creaMenuDocumenti();
}

void frmMain::creaMenuFile()
{
    Menu& file = menuBar->add("mnuFile", "&File");
    voce(file, "mnuNuovoArchivio", "&Crea nuovo archivio", "frmNuovoArchivioDocumenti", Apertura::modale);
    voce(file, "mnuApriArchivio", "&Apri archivio", true, [this] {
        if (sessione_.schermate().loadedCount() > 1) {
            desktop().inform("Chiudere prima le maschere aperte!", "Apertura archivio");
            return;
        }
        auto& startup = sessione_.schermate().as<frmStartup>("frmStartup");
        startup.FormChiamante = "Main";
        startup.showModal();
    }).shortcut = "Ctrl+O";
    file.addSeparator();

    Menu& opzioni = file.add("mnuOpzioni", "&Opzioni");
    voce(opzioni, "mnuScadenze", "Controllo Scadenze all'avvio", "frmControlloScadenze", Apertura::modale);

    Menu& tabelle = file.add("mnuTabelle", "Tabelle");
    voce(tabelle, "mnuDatiAzienda", "&Dati azienda", "frmInformazioniDitta", Apertura::modale);
    voce(tabelle, "mnuCodiciIva", "&Codici IVA", "frmCodiciIva", Apertura::figlia);
    voce(tabelle, "mnuModalitaPagamento", "&Modalità pagamento", "frmModalitaPagamento", Apertura::figlia);
    voce(tabelle, "mnuComuni", "&Gestione Comuni", "frmRegistraComune", Apertura::figlia);
    voce(tabelle, "mnuRegistri", "&Registri Fatture", "frmDescrizioneRegistri", Apertura::modale);
    voce(tabelle, "mnuDescrizioneListini", "&Listini", "frmDescrizioneListini", Apertura::modale);
    tabelle.add("mnuNoteDocumenti", "Note documenti").visible = false;

    Menu& utility = file.add("mnuUtility", "Utility");
    voce(utility, "mnuCompattaArchivio", "Compatta archivio", static_cast<bool>(sessione_.Comandi.CompattaArchivio),
         [this] {
             custodito("Per compattare l'archivio è necessario chiudere tutte le finestre attive.",
                       [this] { sessione_.Comandi.CompattaArchivio(); });
         });
    voce(utility, "mnuPercorsoArchivio", "Percorso archivio", true, [this] {
        custodito("Per modificare il percorso del database è necessario chiudere tutte le finestre attive.",
                  [this] { PercorsoArchivio(); });
    });
    voce(utility, "mnuBackup", "Backup/Ripristino", sessione_.schermate().knows("frmBackup"), [this] {
        custodito("Per effettuare le operazioni di backup e ripristino\n"
                  "del database è necessario chiudere tutte le finestre attive.",
                  [this] { apri("frmBackup", Apertura::modale); });
    });
    utility.add("mnuConversioneArchivi", "Conversione Archivi").visible = false;

    file.addSeparator();
    voce(file, "mnuEsci", "&Esci", true, [this] { unload(); }).shortcut = "Ctrl+Q";
}

void frmMain::creaMenuAnagrafiche()
{
    Menu& clienti = menuBar->add("mnuClienti", "&Clienti / Fornitori");
    voce(clienti, "mnuInserimento", "&Inserimento", "frmRegistraCliente", Apertura::figlia);
    voce(clienti, "mnuVisualizzaModifica", "&Visualizza - Modifica", "frmVariazioneCliente", Apertura::figlia);
    clienti.addSeparator();
    voce(clienti, "mnuStampaElencoClienti", "&Stampa elenco Clienti",
         static_cast<bool>(sessione_.Comandi.StampaElencoClienti), [this] { sessione_.Comandi.StampaElencoClienti(); });
    voce(clienti, "mnuStampaElencoFornitori", "Stampa elenco Fornitori",
         static_cast<bool>(sessione_.Comandi.StampaElencoFornitori),
         [this] { sessione_.Comandi.StampaElencoFornitori(); });

    Menu& articoli = menuBar->add("mnuArticoli", "&Articoli");
    voce(articoli, "mnuInserimentoArticoli", "&Inserimento", "frmRegistraArticolo", Apertura::figlia);
    voce(articoli, "mnuVisualizzaModificaArticoli", "&Visualizza - Modifica", "frmVariazioneArticolo",
         Apertura::figlia);
    articoli.addSeparator();
    voce(articoli, "mnuAggiornaListino", "Aggiorna listino", "frmAggiornamentoListino", Apertura::figlia);
    voce(articoli, "mnuStampaListino", "Stampa listino", "frmStampaListino", Apertura::modale);

    Menu& magazzino = menuBar->add("mnuMagazzino", "&Magazzino");
    voce(magazzino, "mnuMagazzinoIns", "Inserimento Movimenti Magazzino", "frmRegistraMovimentiMagazzino",
         Apertura::modale);
    voce(magazzino, "mnuMagazzinoModifica", "Modifica Movimenti Magazzino", "frmVisualizzaMovimentiMagazzino",
         Apertura::figlia);
}

void frmMain::creaMenuDocumenti()
{
    Menu& documenti = menuBar->add("mnuDocumenti", "&Documenti");
    voce(documenti, "mnuEmettiDocumento", "&Nuovo documento", "frmSelezioneDocumento", Apertura::figlia).shortcut =
        "Ctrl+N";
    voce(documenti, "mnuModificaDocumento", "&Modifica esistente", "frmVisualizzaArchivioDocumenti", Apertura::figlia)
        .shortcut = "Ctrl+M";
    voce(documenti, "mnuResoconto", "Resoconto &Fatture", "frmResoconto", Apertura::figlia);
    voce(documenti, "mnuRistampaDocumento", "&Ristampa", "frmRistampa", Apertura::modale);
    voce(documenti, "mnuAnnulamentoDocumento", "&Annullamento", "frmAnnullamento", Apertura::modale);
    voce(documenti, "mnuScadenzario", "&Scadenzario", sessione_.schermate().knows("frmScadenze"),
         conPuntatoreNormale(desktop(), [this] { apri("frmScadenze", Apertura::figlia); }))
        .shortcut = "Ctrl+D";

    Menu& aiuto = menuBar->add("mnuAiuto", "&?");
    voce(aiuto, "mnuInformazioni", "&Informazioni", "frmAbout", Apertura::modale).shortcut = "F1";
}

void frmMain::onLoad()
{
    AllarmeInSospeso = allarmeRichiesto(sessione_.settings());
    statusBar->panels[1] = std::filesystem::path(sessione_.PercorsoArchivio).filename().string();
    statusBarChanged();
}

void frmMain::onActivate()
{
    if (!AllarmeInSospeso) {
        return;
    }
    // Cleared at once: a check that fails is not run again each time the window comes to the front.
    AllarmeInSospeso = false;
    if (!sessione_.schermate().knows("frmScadenze")) {
        return;
    }
    Form& scadenze = sessione_.schermate().get("frmScadenze");
    desktop().load(scadenze);
    if (dynamic_cast<ScadenzeInArrivo&>(scadenze).TotaleDocumenti() != "0") {
        desktop().setPointer(Pointer::normal);
        scadenze.show();
    } else {
        scadenze.unload();
    }
}

bool frmMain::onQueryUnload(CloseCause)
{
    return desktop().ask("Chiudere il programma?", "Bravona");
}

void frmMain::onDblClick()
{
    apri("frmSplash", Apertura::figlia);
}

void frmMain::PercorsoArchivio()
{
    const std::string percorso = frmDialogBox(sessione_).SelezioneDB();
    if (percorso.empty()) {
        return;
    }
    sessione_.settings().save("Impostazioni", "PercorsoDB", percorso);
    desktop().inform("E' necessario riavviare Bravona per utilizzare il nuovo archivio", "Bravona");
}

}  // namespace bravona
