#include "documents/ArchivioDocumenti.h"
#include "documents/frmEmissioneDocumento.h"
#include "documents/modScarico.h"
#include "platform/text/Text.h"
#include "platform/windowing/Desktop.h"
#include "session/modMain.h"

namespace bravona {

// Registration: from the composed document to the archive's records.

namespace {

// Between the question for it and the transaction.
struct NumeroPreso {};

}  // namespace

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

bool frmEmissioneDocumento::numeroOccupato(std::int32_t numero)
{
    const Recordset uguali = sessione().cn.open("SELECT NumeroDocumento, AnnoDocumento FROM " + tabelle_.testata +
                                                " WHERE NumeroDocumento =" + std::to_string(numero) +
                                                " AND AnnoDocumento=" + sessione().AnnoRiferimento +
                                                " AND NumeroRegistro=" + std::to_string(intestazione.registro()));
    return uguali.recordCount() != 0;
}

bool frmEmissioneDocumento::chiediProgressivo()
{
    return desktop().ask("Attenzione! Il numero di documento indicato e' gia' stato utilizzato!\n"
                         "Per registrare il documento corrente verra' utilizzato il numero progressivo di registro.\n"
                         "Continuare con la registrazione?",
                         "Registrazione documento");
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

// False when it failed: told. NumeroPreso when another program has taken the number meanwhile; nothing is written then.
bool frmEmissioneDocumento::scriviDocumento(std::int32_t numero, bool progressivo)
{
    Connection& cn = sessione().cn;
    const auto scrivi = [&] {
        numeroRegistrato_ =
            progressivo ? ProssimoNumero(sessione(), tabelle_.testata, intestazione.registro()) : numero;
        if (!progressivo && numeroOccupato(numero))
            throw NumeroPreso();
        idRegistrato_ = scriviTestata(cn, tabelle_, testata(numeroRegistrato_));
        scriviRighe(cn, tabelle_, idRegistrato_, righe.righeDaRegistrare());
        scadenze.GeneraScadenze();
        desktop().processEvents();
        if (conScadenze(TipoDocumento))
            scriviRate(cn, idRegistrato_, intestazione.registro(), scadenze.rate());
        annotaScarico(cn, {TipoDocumento, idRegistrato_});
    };
    return inUnaTransazione(scrivi, "Routine: RegistraDocumento", "Modulo: frmEmissioneDocumento");
}

void frmEmissioneDocumento::RegistraDocumento()
{
    sessione().TabellaIva->Refresh();
    righe.AggiornaTotali();
    if (!cliente.nomeConfermato() || !ControllaDatiDocumento() || !righe.totali.CodiciIvaPresenti(titoloMessaggi()) ||
        !nienteInSospeso()) {
        return;
    }
    const std::optional<std::int32_t> numero = intestazione.numero();
    if (!numero) {
        intestazione.txtNumeroDocumento.setFocus();
        Annuncia(sessione(), "Numero del documento: da 1 a 999.999.999");
        desktop().inform("Valore non valido!", titoloMessaggi());
        intestazione.txtNumeroDocumento.setFocus();
        return;
    }
    bool progressivo = false;
    if (numeroOccupato(*numero)) {
        if (!chiediProgressivo())
            return;
        progressivo = true;
    }
    try {
        if (!scriviDocumento(*numero, progressivo))
            return;
    } catch (const NumeroPreso&) {
        if (!chiediProgressivo() || !scriviDocumento(*numero, true))
            return;
    }
    std::optional<Errore> mancato;
    try {
        ScaricaArticoli(sessione().cn, {TipoDocumento, idRegistrato_}, righe.righe(),
                        intestazione.dtpDataDocumento.date());
    } catch (const Errore& errore) {
        mancato = errore;
    }
    documentoRegistrato();
    if (mancato) {
        throw Errore(mancato->numero(), nomeDocumento() + ": la merce non è stata scaricata dal magazzino (" +
                                            mancato->descrizione() + ")");
    }
}

std::string frmEmissioneDocumento::nomeDocumento() const
{
    return tabelle_.titolo + " N. " + std::to_string(numeroRegistrato_);
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
    setCaption(nomeDocumento());
    cmdDocumento[comandoStampa].setEnabled(true);
    cmdDocumento[comandoPrincipale].setEnabled(false);
    cmdDocumento[comandoChiudi].setCaption("&Chiudi");
    scadenze.blocca(true);
    setModo(ModoDocumento::registrato);
    cmdDocumento[comandoStampa].setFocus();
    Annuncia(sessione(), "Documento registrato: " + caption());
}

}  // namespace bravona
