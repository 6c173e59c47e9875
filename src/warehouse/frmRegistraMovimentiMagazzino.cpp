#include "warehouse/frmRegistraMovimentiMagazzino.h"

#include "platform/windowing/Desktop.h"
#include "session/modMain.h"

namespace bravona {

frmRegistraMovimentiMagazzino::frmRegistraMovimentiMagazzino(Sessione& sessione)
    : SchermataMovimento(sessione, "frmRegistraMovimentiMagazzino", "&Registra", "Annulla")
{
    cmdDocumento[comandoPrincipale].onClick = [this] { RegistraDocumento(); };
    cmdDocumento[comandoChiudi].onClick = [this] { unload(); };
}

void frmRegistraMovimentiMagazzino::onLoad()
{
    const clsCursorWait attesa(desktop());
    CentraFinestra(*this, false);
    inizializzaCampi();
    txtProgressivoDocumento.setText(std::to_string(ProssimoNumeroTabella(sessione(), "MovimentiMagazzino")));
    txtFornitore.setFocus();
}

bool frmRegistraMovimentiMagazzino::onQueryUnload(CloseCause)
{
    return registrato_ || !toccata() || desktop().askBeforeLosing("Vuoi annullare l'inserimento ?", titoloMovimenti);
}

// A number that is taken gives way to the next one, whether that is taken or not.
bool frmRegistraMovimentiMagazzino::numeroAccettato(std::int32_t& numero)
{
    const Recordset uguali =
        sessione().cn.open("SELECT NumeroDocumento, AnnoDocumento FROM MovimentiMagazzino WHERE NumeroDocumento =" +
                           std::to_string(numero) + " AND AnnoDocumento=" + sessione().AnnoRiferimento);
    if (uguali.recordCount() == 0)
        return true;
    if (!desktop().ask("Attenzione! Il numero di documento indicato e' gia' stato utilizzato!\n"
                       "Per registrare il documento corrente verra' utilizzato il numero progressivo di registro.\n"
                       "Continuare con la registrazione?",
                       "Registrazione documento")) {
        return false;
    }
    ++numero;
    return true;
}

void frmRegistraMovimentiMagazzino::RegistraDocumento()
{
    if (!controllaDati())
        return;
    Movimento movimento = movimentoDaiCampi();
    if (!numeroAccettato(movimento.NumeroDocumento))
        return;
    {
        // A failure is told by the host and leaves the screen as it is, to be tried again.
        Transaction transazione(sessione().cn);
        scriviMovimento(sessione().cn, movimento);
        transazione.commit();
    }
    registrato_ = true;
    desktop().inform("Inserimento effettuato correttamente ", titoloEsitoMovimenti);
    abilita(false);
    cmdDocumento[comandoPrincipale].setEnabled(false);
    cmdDocumento[comandoChiudi].setCaption("&Chiudi");
    pulsantiPredefiniti();
    cmdDocumento[comandoChiudi].setFocus();
    Annuncia(sessione(), "Carico registrato: documento n. " + std::to_string(movimento.NumeroDocumento));
}

}  // namespace bravona
