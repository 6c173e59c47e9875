#include "warehouse/frmModificaMovimentiMagazzino.h"

#include "platform/windowing/Desktop.h"
#include "session/modMain.h"

namespace bravona {

frmModificaMovimentiMagazzino::frmModificaMovimentiMagazzino(Sessione& sessione)
    : SchermataMovimento(sessione, "frmModificaMovimentiMagazzino", "&Modifica", "&Chiudi")
{
    cmdDocumento[comandoPrincipale].onClick = [this] {
        if (modo_ == Modo::lettura)
            modifica();
        else
            RegistraDocumento();
    };
    cmdDocumento[comandoChiudi].onClick = [this] {
        if (modo_ == Modo::modifica)
            annulla();
        else
            unload();
    };
}

void frmModificaMovimentiMagazzino::onLoad()
{
    CentraFinestra(*this, false);
    inizializzaCampi();
    impostaModo(Modo::lettura);
}

bool frmModificaMovimentiMagazzino::CaricaMovimento(std::int32_t idMovimenti)
{
    desktop().load(*this);
    if (!abbandona())
        return false;
    carica(idMovimenti);
    return true;
}

void frmModificaMovimentiMagazzino::carica(std::int32_t idMovimenti)
{
    vecchio_ = leggiMovimento(sessione().cn, idMovimenti);
    mostra(vecchio_);
    impostaModo(Modo::lettura);
}

void frmModificaMovimentiMagazzino::impostaModo(Modo modo)
{
    modo_ = modo;
    const bool inModifica = modo == Modo::modifica;
    abilita(inModifica);
    cmdDocumento[comandoPrincipale].setCaption(inModifica ? "&Aggiorna" : "&Modifica");
    cmdDocumento[comandoPrincipale].setEnabled(modo != Modo::aggiornato);
    cmdDocumento[comandoChiudi].setCaption(inModifica ? "Annulla" : "&Chiudi");
    setCaption("Carico articoli magazzino documento nr. " + std::to_string(vecchio_.NumeroDocumento) +
               (inModifica ? " - Modalita' modifica" : ""));
    txtProgressivoDocumento.setText(std::to_string(vecchio_.NumeroDocumento));
    pulsantiPredefiniti();
}

void frmModificaMovimentiMagazzino::modifica()
{
    impostaModo(Modo::modifica);
    righe.campi.txtCodiceArticolo.setFocus();
}

bool frmModificaMovimentiMagazzino::abbandona()
{
    return modo_ != Modo::modifica || desktop().askBeforeLosing("Vuoi annullare la modifica?", "Variazione Movimenti");
}

void frmModificaMovimentiMagazzino::annulla()
{
    if (abbandona())
        carica(vecchio_.IDMovimenti);
}

bool frmModificaMovimentiMagazzino::onQueryUnload(CloseCause)
{
    return abbandona();
}

void frmModificaMovimentiMagazzino::RegistraDocumento()
{
    bool inTransazione = false;
    try {
        if (!controllaDati())
            return;
        Movimento movimento = movimentoDaiCampi();
        movimento.IDMovimenti = vecchio_.IDMovimenti;
        inTransazione = true;
        Transaction transazione(sessione().cn);
        riscriviMovimento(sessione().cn, movimento, vecchio_.righe);
        transazione.commit();
        vecchio_.NumeroDocumento = movimento.NumeroDocumento;
    } catch (const Errore& errore) {
        MostraOperazioneAnnullata(desktop(), errore, inTransazione, "Routine: RegistraDocumento",
                                  "Modulo: frmEmissioneDocumento");
        return;
    }
    desktop().inform("Modifica effettuata correttamente ", titoloEsitoMovimenti);
    // Not read back: what fails here must not leave a screen that moves the stock a second time.
    impostaModo(Modo::aggiornato);
    cmdDocumento[comandoChiudi].setFocus();
    Annuncia(sessione(), "Carico aggiornato: documento n. " + std::to_string(vecchio_.NumeroDocumento));
    if (cambiato)
        cambiato();
}

}  // namespace bravona
