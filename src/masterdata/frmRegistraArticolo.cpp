#include "masterdata/frmRegistraArticolo.h"

#include "masterdata/modValidazioneCampi_Caratteri.h"
#include "session/modMain.h"

namespace bravona {

namespace {
constexpr std::array<std::size_t, 3> caselleDate{7, 8, 11};
constexpr std::array<std::size_t, 7> caselleCifre{9, 10, 12, 13, 14, 15, 16};
}  // namespace

frmRegistraArticolo::frmRegistraArticolo(Sessione& sessione)
    : SchedaArticolo(sessione, "frmRegistraArticolo", "Inserimento articolo")
{
    cmdArticolo[0].onClick = [this] { Registra(); };
    cmdArticolo[1].onClick = [this] { unload(); };
    cmdArticolo[2].onClick = [this] {
        unload();
        sessione_.schermate().get("frmVariazioneArticolo").show();
    };
    add("cmdArticolo", cmdArticolo);
    disponi(layout::column({}),
            layout::rowEnd({layout::of(cmdArticolo[0]), layout::of(cmdArticolo[1]), layout::of(cmdArticolo[2])}));
    setDefaultButton(&cmdArticolo[0]);
    setCancelButton(&cmdArticolo[1]);
}

void frmRegistraArticolo::onLoad()
{
    const clsCursorWait attesa(desktop());
    CentraFinestra(*this, false);
    inizializza();
    valoriIniziali();
}

void frmRegistraArticolo::valoriIniziali()
{
    primaVoceDelleCombo();
    for (const std::size_t casella : caselleDate) {
        txtArticolo[casella].setText(clsArticolo::nessunaData);
    }
    for (const std::size_t casella : caselleCifre) {
        txtArticolo[casella].setText("0,00");
    }
    ricordaContenuto();
    vai(codice);
}

void frmRegistraArticolo::Registra()
{
    if (!VerificaRiempimentoCampiEssenziali() || !RegistraNuovoArticolo()) {
        return;
    }
    Annuncia(sessione_, "Articolo " + txtArticolo[codice].text() + " registrato");
    if (!desktop().ask("Registrazione nuovo articolo effettuata! Vuoi inserire i dati di un'altro articolo?",
                       titoloMessaggi)) {
        unload();
        return;
    }
    svuota();
    valoriIniziali();
}

bool frmRegistraArticolo::RegistraNuovoArticolo()
{
    try {
        if (codiceGiaInUso() || !prezziAmmessi()) {
            return false;
        }
        clsArticolo articolo(sessione_);
        raccogli(articolo);
        if (!articolo.RegistraArticolo().riferisci(desktop())) {
            desktop().inform("Errore nella registrazione dell'articolo. \n"
                             "Controllare tutti i campi di inserimento e riprovare!",
                             titoloMessaggi);
            vaiAlCampoErrato();
            return false;
        }
        return registraPrezzi(articolo.IDArticolo);
    } catch (const Errore& errore) {
        MostraErroreStandard(desktop(), errore, "Modulo: frmRegistraArticolo", "Routine: RegistraNuovoArticolo");
        return false;
    }
}

}  // namespace bravona
