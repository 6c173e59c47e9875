#include "masterdata/frmRegistraComune.h"

#include "platform/text/Text.h"
#include "session/modMain.h"

namespace bravona {

namespace {
constexpr const char* titoloTabella = "Tabella Comuni";
constexpr const char* testoRegistra = "&Registra";
constexpr std::size_t registra = 0;
constexpr std::size_t esci = 1;
constexpr std::size_t ricerca = 2;
}  // namespace

frmRegistraComune::frmRegistraComune(Sessione& sessione)
    : Form(sessione.desktop(), "frmRegistraComune", "Inserimento Comuni"),
      sessione_(sessione)
{
    cmdComune[registra].onClick = [this] { Registra(); };
    cmdComune[esci].onClick = [this] { unload(); };
    cmdComune[ricerca].onClick = [this] {
        if (unload()) {
            sessione_.schermate().get("frmVariazioneComune").show();
        }
    };

    add("txtComune", campi.txtComune);
    add("cmdComune", cmdComune);
    setLayout(
        layout::column({campi.layout(), layout::rowEnd({layout::of(cmdComune[registra]), layout::of(cmdComune[esci]),
                                                        layout::of(cmdComune[ricerca])})}));
    setDefaultButton(&cmdComune[registra]);
    setCancelButton(&cmdComune[esci]);
}

void frmRegistraComune::onLoad()
{
    CentraFinestra(*this, false);
    comeLasciati_ = fieldContents();
}

std::string frmRegistraComune::subject() const
{
    return titoloTabella;
}

void frmRegistraComune::svuota()
{
    campi.svuota();
    cmdComune[registra].setCaption(testoRegistra);
    campi.txtComune.front().setFocus();
}

bool frmRegistraComune::giaPresente()
{
    clsComuni comune(sessione_);
    campi.leggi(comune);
    return sessione_.cn
               .open("SELECT IDCodiceComune FROM Comuni WHERE Comune = " + quotedText(comune.Comune) +
                     " AND Provincia = " + quotedText(comune.Provincia) + " AND Cap = " + quotedText(comune.Cap))
               .recordCount() > 0;
}

void frmRegistraComune::Registra()
{
    if (cmdComune[registra].caption() != testoRegistra) {
        svuota();
        return;
    }
    if (!campi.controlla(titoloTabella)) {
        return;
    }
    if (giaPresente()) {
        desktop().inform("Attenzione. Il comune indicato e' gia presente in archivio", titoloTabella);
        campi.txtComune.front().setFocus();
        return;
    }
    clsComuni comune(sessione_);
    comune.DataBase = &sessione_.cn;
    campi.leggi(comune);
    if (!comune.RegistraComune().riferisci(desktop())) {
        desktop().inform("Errore nella registrazione. Controllare tutti i campi di inserimento e riprovare!",
                         titoloTabella);
        campi.txtComune.front().setFocus();
        return;
    }
    Annuncia(sessione_, "Comune registrato");
    if (desktop().ask("Registrazione nuovo Comune effettuata! Vuoi inserire i dati di un'altro comune?",
                      titoloTabella)) {
        svuota();
    } else {
        unload();
    }
}

}  // namespace bravona
