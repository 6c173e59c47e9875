#include "masterdata/frmVariazioneArticolo.h"

#include "masterdata/modRicerca.h"
#include "masterdata/modRicercaArticolo.h"
#include "masterdata/modValidazioneCampi_Caratteri.h"
#include "session/modMain.h"

namespace bravona {

frmVariazioneArticolo::frmVariazioneArticolo(Sessione& sessione)
    : SchedaArticolo(sessione, "frmVariazioneArticolo", "Visualizza - Modifica articolo")
{
    // In the order of the search's own keys.
    for (const char* campo : {"Codice articolo", "Codice a barre", "Codice fornitore", "Descrizione"}) {
        cboCampoDiRicerca.addItem(campo);
    }
    cboCampoDiRicerca.width = 18;
    cboCampoDiRicerca.setAccessibleName("Campo di ricerca");
    txtChiaveRicerca.grows = true;
    for (Control* sopra : {static_cast<Control*>(&txtChiaveRicerca), static_cast<Control*>(&cboCampoDiRicerca)}) {
        sopra->onKeyDown = [this](KeyEvent& evento) {
            if (evento.key == Key::enter) {
                evento.drop();
                cerca();
            }
        };
    }
    cmdClearPicture.onClick = [this] { mostraImmagine({}); };
    cmdAzioni[0].onClick = [this] { Aggiorna(); };
    cmdAzioni[1].onClick = [this] { unload(); };
    cmdAzioni[2].onClick = [this] {
        unload();
        sessione_.schermate().get("frmRegistraArticolo").show();
    };
    txtChiaveRicerca.placeholder = "F3 cerca";
    add("txtChiaveRicerca", txtChiaveRicerca);
    add("cboCampoDiRicerca", cboCampoDiRicerca);
    add("cmdClearPicture", cmdClearPicture);
    add("cmdAzioni", cmdAzioni);
    altroComandoImmagine_ = &cmdClearPicture;
    using namespace layout;
    disponi(form({line("Premi F&3 per la Ricerca", row({of(txtChiaveRicerca), of(cboCampoDiRicerca)}))}),
            rowEnd({of(cmdAzioni[0]), of(cmdAzioni[1]), of(cmdAzioni[2])}));
    setDefaultButton(&cmdAzioni[0]);
    setCancelButton(&cmdAzioni[1]);
}

void frmVariazioneArticolo::onLoad()
{
    const clsCursorWait attesa(desktop());
    CentraFinestra(*this, false);
    inizializza();
    cboCampoDiRicerca.setListIndex(0);
    if (!cboCodiciIVA.items().empty()) {
        cboCodiciIVA.setListIndex(0);
    }
    ricordaContenuto();
}

void frmVariazioneArticolo::onKeyDown(KeyEvent& evento)
{
    if (evento.key == Key::f3) {
        evento.drop();
        cerca();
    }
}

// With its text selected, as it may have had the focus all the time.
void frmVariazioneArticolo::tornaAllaRicerca()
{
    txtChiaveRicerca.setFocus();
    txtChiaveRicerca.selectAll();
}

void frmVariazioneArticolo::cerca()
{
    const std::int32_t id =
        RicercaArticolo(sessione_, static_cast<CampoArticolo>(cboCampoDiRicerca.listIndex()), txtChiaveRicerca.text());
    txtChiaveRicerca.selectAll();
    if (id == ricerca::annullata) {
        return;
    }
    if (id == ricerca::nessunRecord) {
        desktop().inform("Nessun record trovato!", titoloMessaggi);
        tornaAllaRicerca();
        return;
    }
    VisualizzaArticolo(id);
}

void frmVariazioneArticolo::VisualizzaArticolo(std::int32_t id)
{
    const clsCursorWait attesa(desktop());
    svuota({&txtChiaveRicerca, &cboCampoDiRicerca});
    clsArticolo articolo(sessione_);
    if (!articolo.RichiamaArticolo(id).riferisci(desktop())) {
        tornaAllaRicerca();
        return;
    }
    IDArticolo_ = id;
    mostra(articolo);
    mostraPrezzi();
    ricordaContenuto();
    vaiAlPrimoCampo();
}

void frmVariazioneArticolo::Aggiorna()
{
    if (IDArticolo_ == nessuno) {
        desktop().inform("Nessun articolo da modificare!", titoloMessaggi);
        tornaAllaRicerca();
        return;
    }
    if (VerificaRiempimentoCampiEssenziali() && VariazioneArticoloEsistente()) {
        Annuncia(sessione_, "Articolo " + txtArticolo[codice].text() + " modificato");
        desktop().inform("Variazione articolo effettuata!", titoloMessaggi);
        tornaAllaRicerca();
    }
}

bool frmVariazioneArticolo::VariazioneArticoloEsistente()
{
    try {
        if (codiceGiaInUso() || !prezziAmmessi()) {
            return false;
        }
        clsArticolo articolo(sessione_);
        // As it stands now: a document registered meanwhile keeps its effect on the dates and figures that nobody
        // typed into.
        if (!articolo.RileggiArticolo(IDArticolo_).riferisci(desktop())) {
            return false;
        }
        raccogli(articolo);
        if (!articolo.ModificaArticolo(IDArticolo_).riferisci(desktop())) {
            desktop().inform("Errore nella variazione dei dati. Controllare tutti i campi di inserimento e riprovare!",
                             titoloMessaggi);
            vaiAlCampoErrato();
            return false;
        }
        mostra(articolo);
        if (!registraPrezzi(IDArticolo_)) {
            return false;
        }
        mostraPrezzi();
        ricordaContenuto();
        return true;
    } catch (const Errore& errore) {
        MostraErroreStandard(desktop(), errore, "Modulo: frmVariazioneArticolo",
                             "Routine: VariazioneArticoloEsistente");
        return false;
    }
}

}  // namespace bravona
