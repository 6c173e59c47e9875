#include "masterdata/frmRegistraCliente.h"

#include "masterdata/frmVariazioneComune.h"
#include "masterdata/modDestinazioni.h"
#include "platform/text/Text.h"
#include "session/modMain.h"

namespace bravona {

using namespace anagrafica;

frmRegistraCliente::frmRegistraCliente(Sessione& sessione)
    : SchedaCliente(sessione, "frmRegistraCliente", "Inserimento Cliente / Fornitore",
                    {.puoAggiungere = [] { return true; },
                     .aggiunta = [this](const ListRow&) { return "d" + std::to_string(++contatore_); },
                     .eliminare =
                         [this](const std::string&) {
                             return desktop().askBeforeLosing("Vuoi eliminare la destinazione selezionata?", titolo);
                         }},
                    {"&Registra", "&Chiudi", "Ricerca..."})
{
    Command1.setToolTip("Cerca il comune");
    Command1.onClick = [this] { scegliComune(); };
    cmdCliente[0].onClick = [this] { Registra(); };
    cmdCliente[1].onClick = [this] { unload(); };
    cmdCliente[2].onClick = [this] {
        if (unload()) {
            this->sessione().schermate().get("frmVariazioneCliente").show();
        }
    };

    aggiungiControlli();
    add("Command1", Command1);
    using namespace layout;
    setLayout(column({pagine({of(Command1)}, {line("Moda&lità di pagamento", of(List1))}), comandi()}));
}

void frmRegistraCliente::onLoad()
{
    SchedaCliente::onLoad();
    nuova();
}

// What an empty screen starts with.
void frmRegistraCliente::nuova()
{
    Combo1.setListIndex(0);
    if (!List1.items().empty()) {
        List1.setListIndex(0);
    }
    ricordaContenuto();
    SSTab1.setTab(paginaIndirizzo);
    fuocoSuPagina();
}

bool frmRegistraCliente::giaPresente()
{
    return sessione()
               .cn
               .open("SELECT IDCliente FROM CLienti WHERE Cliente = " + quotedText(txtAnagrafica[cliente].text()) +
                     " AND Indirizzo = " + quotedText(txtAnagrafica[indirizzo].text()) +
                     " AND Citta = " + quotedText(txtAnagrafica[citta].text()))
               .recordCount() > 0;
}

void frmRegistraCliente::Registra()
{
    if (!controllaDatiEssenziali()) {
        return;
    }
    if (giaPresente()) {
        desktop().inform("Attenzione. Il cliente indicato e' gia presente in archivio", titolo);
        fuocoSu(txtAnagrafica[cliente], paginaIndirizzo);
        return;
    }
    clsCliente nuovo(sessione());
    nuovo.DataBase = &sessione().cn;
    if (!leggi(nuovo) || !proseguiSenzaDestinazione()) {
        return;
    }
    // A party whose destinations fail must not be left behind: the next attempt would find it.
    const auto scriviDestinazioni = [this](std::int32_t id) {
        RegistraElencoDestinazioni(sessione(), destinazioni.lvwDestinazioni, id);
    };
    if (!nuovo.RegistraCliente(scriviDestinazioni).riferisci(desktop())) {
        desktop().inform("Errore nella registrazione. Controllare tutti i campi di inserimento e riprovare!", titolo);
        fuocoSu(txtAnagrafica[cliente], paginaIndirizzo);
        return;
    }
    Annuncia(sessione(), "Anagrafica registrata");
    if (!desktop().ask("Registrazione nuovo cliente effettuata! Vuoi inserire i dati di un'altro cliente?", titolo)) {
        unload();
        return;
    }
    pulisci();
    cmdCliente[0].setCaption("&Registra");
    nuova();
}

void frmRegistraCliente::scegliComune()
{
    Schermate& schermate = sessione().schermate();
    // Open as the table already, it cannot hand anything over.
    if (Form* aperta = schermate.find("frmVariazioneComune"); aperta != nullptr && !aperta->unload()) {
        return;
    }
    auto& comuni = schermate.as<frmVariazioneComune>("frmVariazioneComune");
    comuni.onInserisci = [this](const clsComuni& comune) {
        txtAnagrafica[citta].setText(comune.Comune);
        txtAnagrafica[provincia].setText(comune.Provincia);
        txtAnagrafica[cap].setText(comune.Cap);
        fuocoSu(txtAnagrafica[citta], paginaIndirizzo);
    };
    comuni.showModal();
}

}  // namespace bravona
