#include "masterdata/frmVariazioneComune.h"

#include "masterdata/modRicerca.h"
#include "masterdata/modRicercaComuni.h"
#include "session/modMain.h"

namespace bravona {

namespace {
constexpr const char* titoloComune = "Comune";
constexpr const char* titoloTabella = "Tabella Comuni";
constexpr std::size_t aggiorna = 0;
constexpr std::size_t esci = 1;
constexpr std::size_t nuovo = 2;
}  // namespace

frmVariazioneComune::frmVariazioneComune(Sessione& sessione)
    : Form(sessione.desktop(), "frmVariazioneComune", "Visualizza - Modifica Comune"),
      sessione_(sessione)
{
    for (const char* campo : {"Comune", "Provincia", "Cap"}) {
        cboCampoDiRicerca.addItem(campo);
    }
    cboCampoDiRicerca.setListIndex(0);
    cboCampoDiRicerca.width = 12;
    txtCercaComune.grows = true;
    txtCercaComune.placeholder = "F3 cerca";
    const auto invioCerca = [this](KeyEvent& evento) {
        if (evento.key == Key::enter) {
            evento.drop();
            Ricerca();
        }
    };
    cboCampoDiRicerca.onKeyDown = invioCerca;
    txtCercaComune.onKeyDown = invioCerca;
    lblRicerca_.style = TextStyle::hint;
    Command1.setVisible(false);
    Command1.onClick = [this] { Inserisce(); };
    cmdComune[aggiorna].onClick = [this] { Aggiorna(); };
    cmdComune[esci].onClick = [this] { unload(); };
    cmdComune[nuovo].onClick = [this] {
        if (unload()) {
            sessione_.schermate().get("frmRegistraComune").show();
        }
    };

    add("cboCampoDiRicerca", cboCampoDiRicerca);
    add("txtCercaComune", txtCercaComune);
    add("lblRicerca", lblRicerca_);
    add("txtComune", campi.txtComune);
    add("cmdComune", cmdComune);
    add("Command1", Command1);
    using namespace layout;
    setLayout(column(
        {form({line("&Ricerca per", row({of(cboCampoDiRicerca), grow(of(txtCercaComune)), of(lblRicerca_)}))}),
         campi.layout(), rowEnd({of(Command1), of(cmdComune[aggiorna]), of(cmdComune[esci]), of(cmdComune[nuovo])})}));
    setCancelButton(&cmdComune[esci]);
}

void frmVariazioneComune::onLoad()
{
    CentraFinestra(*this, false);
    const bool sceglie = static_cast<bool>(onInserisci);
    Command1.setVisible(sceglie);
    cmdComune[aggiorna].setVisible(!sceglie);
    cmdComune[nuovo].setVisible(!sceglie);
    setDefaultButton(sceglie ? &Command1 : &cmdComune[aggiorna]);
    comeMostrati_ = contenuto();
    txtCercaComune.setFocus();
    if (IDCodiceComune > 0) {
        Ricerca();
    }
}

void frmVariazioneComune::onKeyDown(KeyEvent& evento)
{
    if (evento.key == Key::f3) {
        evento.drop();
        Ricerca();
    }
}

void frmVariazioneComune::pulisci()
{
    caricato_ = 0;
    campi.svuota();
    comeMostrati_ = contenuto();
}

std::string frmVariazioneComune::subject() const
{
    return titoloTabella;
}

void frmVariazioneComune::Ricerca()
{
    std::int32_t id = IDCodiceComune;
    IDCodiceComune = 0;
    if (id <= 0) {
        id = RicercaComuni(sessione_, static_cast<CampoComune>(cboCampoDiRicerca.listIndex()), txtCercaComune.text());
    }
    if (id == ricerca::nessunRecord) {
        desktop().inform("Nessun record trovato!", "Cliente");
        txtCercaComune.setFocus();
        txtCercaComune.selectAll();
        return;
    }
    if (id == ricerca::annullata) {
        txtCercaComune.selectAll();
        return;
    }
    pulisci();
    clsComuni comune(sessione_);
    if (!comune.RichiamaComune(id).riferisci(desktop())) {
        return;
    }
    caricato_ = id;
    campi.mostra(comune);
    comeMostrati_ = contenuto();
    if (!(onInserisci && Command1.setFocus())) {
        campi.txtComune.front().setFocus();
    }
}

void frmVariazioneComune::Aggiorna()
{
    if (caricato_ == 0) {
        txtCercaComune.setFocus();
        return;
    }
    if (!campi.controlla("Anagrafica Clienti")) {
        return;
    }
    clsComuni comune(sessione_);
    campi.leggi(comune);
    if (!comune.ModificaComune(caricato_).riferisci(desktop())) {
        desktop().inform("Errore nella variazione dei dati!", titoloComune);
        campi.txtComune.front().setFocus();
        return;
    }
    Annuncia(sessione_, "Comune modificato");
    if (!desktop().ask("Variazione dati effettuata\nVuoi variare i dati di un'altro comune?", titoloTabella)) {
        unload();
        return;
    }
    pulisci();
    txtCercaComune.setText({});
    txtCercaComune.setFocus();
}

void frmVariazioneComune::Inserisce()
{
    if (campi.vuoti()) {
        txtCercaComune.setFocus();
        return;
    }
    clsComuni comune(sessione_);
    campi.leggi(comune);
    const auto consegna = onInserisci;
    unload();
    consegna(comune);
}

}  // namespace bravona
