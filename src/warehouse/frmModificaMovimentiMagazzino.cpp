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
    idMovimenti_ = idMovimenti;
    carica();
    return true;
}

void frmModificaMovimentiMagazzino::carica()
{
    vecchio_ = leggiMovimento(sessione().cn, idMovimenti_);
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
        carica();
}

bool frmModificaMovimentiMagazzino::onQueryUnload(CloseCause)
{
    return abbandona();
}

void frmModificaMovimentiMagazzino::RegistraDocumento()
{
    if (!controllaDati())
        return;
    Movimento movimento = movimentoDaiCampi();
    movimento.IDMovimenti = idMovimenti_;
    bool inTransazione = false;
    try {
        Transaction transazione(sessione().cn);
        inTransazione = true;
        riscriviMovimento(sessione().cn, movimento, vecchio_.righe);
        transazione.commit();
    } catch (const Errore& errore) {
        MostraOperazioneAnnullata(desktop(), errore, inTransazione, "Routine: RegistraDocumento",
                                  "Modulo: frmEmissioneDocumento");
        return;
    }
    desktop().inform("Modifica effettuata correttamente ", titoloEsitoMovimenti);
    vecchio_ = leggiMovimento(sessione().cn, idMovimenti_);
    impostaModo(Modo::aggiornato);
    cmdDocumento[comandoChiudi].setFocus();
    Annuncia(sessione(), "Carico aggiornato: documento n. " + std::to_string(movimento.NumeroDocumento));
    if (cambiato)
        cambiato();
}

}  // namespace bravona
