#include "documents/ArchivioDocumenti.h"
#include "documents/frmEmissioneDocumento.h"
#include "documents/modScarico.h"
#include "platform/text/Text.h"
#include "platform/values/Numeri.h"
#include "platform/windowing/Desktop.h"
#include "session/modMain.h"

namespace bravona {

// Registration: from the composed document to the archive's records.

bool frmEmissioneDocumento::ControllaDatiDocumento()
{
    const char* mancanza = nullptr;
    if (cliente.IDCliente <= 0)
        mancanza = "Attenzione, non sono stati indicati i dati del cliente!";
    else if (righe.righeValide() == 0)
        mancanza = "Attenzione, non sono e' stato indicato nessun articolo!";
    else if (intestazione.causaleMancante())
        mancanza = "Attenzione, indicare la causale del documento!";
    if (mancanza != nullptr)
        desktop().inform(mancanza, titoloMessaggi());
    return mancanza == nullptr;
}

bool frmEmissioneDocumento::NumeroDisponibile(std::int32_t& numero)
{
    try {
        numero = toInt32(intestazione.txtNumeroDocumento.text());
    } catch (const Errore&) {
        desktop().inform("Valore non valido!", titoloMessaggi());
        intestazione.txtNumeroDocumento.setFocus();
        return false;
    }
    const Recordset uguali = sessione().cn.open("SELECT NumeroDocumento, AnnoDocumento FROM " + tabelle_.testata +
                                                " WHERE NumeroDocumento =" + std::to_string(numero) +
                                                " AND AnnoDocumento=" + sessione().AnnoRiferimento +
                                                " AND NumeroRegistro=" + std::to_string(intestazione.registro()));
    if (uguali.recordCount() == 0)
        return true;
    if (!desktop().ask("Attenzione! Il numero di documento indicato e' gia' stato utilizzato!\n"
                       "Per registrare il documento corrente verra' utilizzato il numero progressivo di registro.\n"
                       "Continuare con la registrazione?",
                       "Registrazione documento")) {
        return false;
    }
    numero = ProssimoNumero(sessione(), tabelle_.testata, intestazione.registro());
    return true;
}

TestataDocumento frmEmissioneDocumento::testata(std::int32_t numero) const
{
    TestataDocumento testata = testataDaiCampi();
    testata.NumeroDocumento = numero;
    testata.NumeroRegistro = intestazione.registro();
    bravona::CausaleTrasporto causale = intestazione.causale();
    causale.testo = upper(causale.testo);
    if (TipoDocumento == tipo::ddt) {
        testata.EmessaFattura = "N";
        testata.Tipo = causale.Tipo;
        testata.CausaleTrasporto = causale.testo;
    } else {
        testata.TipoDocumento = TipoDocumento;
        testata.CausaleTrasporto =
            TipoDocumento == tipo::proforma ? causale.testo : trasporto.cmbCausaleTrasporto.text();
    }
    return testata;
}

void frmEmissioneDocumento::RegistraDocumento()
{
    cliente.mostraNome();
    sessione().TabellaIva->Refresh();
    righe.AggiornaTotali();
    if (!ControllaDatiDocumento() || !righe.totali.CodiciIvaPresenti(titoloMessaggi()))
        return;
    std::int32_t numero = 0;
    if (!NumeroDisponibile(numero))
        return;

    Connection& cn = sessione().cn;
    const auto scrivi = [&] {
        const std::int32_t id = scriviTestata(cn, tabelle_, testata(numero));
        scriviRighe(cn, tabelle_, id, righe.righeDaRegistrare());
        scadenze.GeneraScadenze();
        desktop().processEvents();
        if (conScadenze(TipoDocumento))
            scriviRate(cn, id, intestazione.registro(), scadenze.rate());
    };
    if (!inUnaTransazione(scrivi, "Routine: RegistraDocumento", "Modulo: frmEmissioneDocumento"))
        return;
    numeroRegistrato_ = numero;
    documentoRegistrato();
    ScaricaArticoli(cn, righe.righe(), intestazione.dtpDataDocumento.date());
}

void frmEmissioneDocumento::documentoRegistrato()
{
    cliente.fraCliente.setEnabled(false);
    righe.campi.fraDettagli.setEnabled(false);
    intestazione.fraIntestazioneDocumento.setEnabled(false);
    righe.totali.txtScontoGenerale.setLocked(true);
    trasporto.abilita(false);
    const std::string numero = std::to_string(numeroRegistrato_);
    desktop().inform("Il documento corrente è stato registrato con il numero " + numero, titoloMessaggi());
    setCaption(tabelle_.titolo + " N. " + numero);
    cmdDocumento[comandoStampa].setEnabled(true);
    cmdDocumento[comandoPrincipale].setEnabled(false);
    cmdDocumento[comandoChiudi].setCaption("&Chiudi");
    scadenze.blocca(true);
    setModo(ModoDocumento::registrato);
    cmdDocumento[comandoStampa].setFocus();
    Annuncia(sessione(), "Documento registrato: " + caption());
}

}  // namespace bravona
