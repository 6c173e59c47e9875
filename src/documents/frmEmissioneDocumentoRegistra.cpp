#include "documents/TipoDocumento.h"
#include "documents/frmEmissioneDocumento.h"
#include "duedates/modScadenze.h"
#include "platform/text/Text.h"
#include "platform/values/Numeri.h"
#include "platform/windowing/Desktop.h"
#include "printing/modStampe.h"
#include "session/modMain.h"

namespace bravona {

// Registration: from the composed document to the archive's records.

namespace {

constexpr const char* titoloMessaggi = "Emissione documento";
constexpr std::size_t campoDestinazione = 3;
constexpr std::size_t registra = 0;
constexpr std::size_t annulla = 1;
constexpr std::size_t stampa = 2;

bool conScadenze(std::int16_t tipoDocumento)
{
    return tipoDocumento == tipo::fattura || tipoDocumento == tipo::notaCredito || tipoDocumento == tipo::notaDebito;
}

}  // namespace

bool frmEmissioneDocumento::ControllaDatiDocumento()
{
    const char* mancanza = nullptr;
    if (cliente.IDCliente <= 0)
        mancanza = "Attenzione, non sono stati indicati i dati del cliente!";
    else if (righe.numeroRighe_() == 0)
        mancanza = "Attenzione, non sono e' stato indicato nessun articolo!";
    else if (intestazione.causaleMancante())
        mancanza = "Attenzione, indicare la causale del documento!";
    if (mancanza != nullptr)
        desktop().inform(mancanza, titoloMessaggi);
    return mancanza == nullptr;
}

bool frmEmissioneDocumento::NumeroDisponibile(std::int32_t& numero)
{
    try {
        numero = toInt32(intestazione.txtNumeroDocumento.text());
    } catch (const Errore&) {
        desktop().inform("Valore non valido!", titoloMessaggi);
        intestazione.txtNumeroDocumento.setFocus();
        return false;
    }
    const Recordset uguali = sessione_.cn.open("SELECT NumeroDocumento, AnnoDocumento FROM " + tabelle_.testata +
                                               " WHERE NumeroDocumento =" + std::to_string(numero) +
                                               " AND AnnoDocumento=" + sessione_.AnnoRiferimento +
                                               " AND NumeroRegistro=" + std::to_string(registro()));
    if (uguali.recordCount() == 0)
        return true;
    if (!desktop().ask("Attenzione! Il numero di documento indicato e' gia' stato utilizzato!\n"
                       "Per registrare il documento corrente verra' utilizzato il numero progressivo di registro.\n"
                       "Continuare con la registrazione?",
                       "Registrazione documento")) {
        return false;
    }
    numero = ProssimoNumero(sessione_, tabelle_.testata, registro());
    return true;
}

std::int32_t frmEmissioneDocumento::scriviTestata(std::int32_t numero)
{
    Recordset testata = sessione_.cn.openTable(tabelle_.testata);
    testata.addNew();
    testata["NumeroDocumento"] = numero;
    testata["AnnoDocumento"] = sessione_.AnnoRiferimento;
    testata["DataDocumento"] = intestazione.dtpDataDocumento.date();
    testata["IDCliente"] = cliente.IDCliente;
    testata["NumeroRegistro"] = registro();
    testata["IDDestinazione"] = cliente.txtCliente[campoDestinazione].tag;
    testata["ModalitaPagamento"] = cliente.ModalitaPagamento1;
    testata["IDmodalitaPagamento"] = cliente.ModalitaPagamentoCod1;
    testata["SpedizioneAMezzo"] = trasporto.cmbSpedizione.text();
    testata["Porto"] = trasporto.cmbPorto.text();
    testata["Vettore"] = trasporto.txtVettore.text();
    testata["Peso"] = trasporto.txtPeso.text();
    testata["ColliAspetto"] = trasporto.txtColliAspetto.text();
    testata["ColliNumero"] = leadingNumber(trasporto.txtColliNumero.text());
    testata["Sconto"] = righe.txtScontoGenerale.text();
    testata["TotaleDocumento"] = FormattaImporto(righe.txtTotaleImportoDocumento.text());
    ScriviGruppiIva(testata, righe.calcoli());
    testata["ImportoTotaleIva"] = FormattaImporto(righe.txtTotaleImportoIVA.text());
    testata["TotaleIvaEsclusa"] = FormattaImporto(righe.txtTotaleImportoRigheDocumento.text());
    testata["NoteGeneriche"] = trasporto.txtNoteGeneriche.text();
    testata["NoteEsenzioneIVA"] = intestazione.txtEsenzioneIVA.text();
    testata["NumeroDettagli"] = static_cast<int>(righe.numeroRighe_());
    numeroRegistrato_ = testata["NumeroDocumento"].asLong();

    const std::string causale = intestazione.CausaleDocumento();
    if (TipoDocumento == tipo::ddt) {
        testata["EmessaFattura"] = "N";
        testata["Tipo"] = left(causale, 1);
        testata["CausaleTrasporto"] = mid(causale, 1);
    } else {
        testata["TipoDocumento"] = static_cast<int>(TipoDocumento);
        testata["CausaleTrasporto"] =
            TipoDocumento == tipo::proforma ? mid(causale, 1) : trasporto.cmbCausaleTrasporto.text();
    }
    testata.update();
    return testata[tabelle_.chiave].asLong();
}

void frmEmissioneDocumento::RegistraDocumento()
{
    cliente.mostraNome();
    sessione_.TabellaIva->Refresh();
    righe.AggiornaTotali();
    if (!ControllaDatiDocumento() || !righe.CodiciIvaPresenti())
        return;
    std::int32_t numero = 0;
    if (!NumeroDisponibile(numero))
        return;

    bool inTransazione = false;
    try {
        Transaction transazione(sessione_.cn);
        inTransazione = true;
        const std::int32_t idDocumento = scriviTestata(numero);
        ScriviRighe(sessione_.cn, tabelle_, idDocumento, righe.lvwDettagli);
        generaScadenze();
        desktop().processEvents();
        if (conScadenze(TipoDocumento))
            ScriviScadenze(sessione_.cn, idDocumento, registro(), Griglia);
        transazione.commit();
    } catch (const Errore& errore) {
        MostraOperazioneAnnullata(desktop(), errore, inTransazione, "Routine: RegistraDocumento",
                                  "Modulo: frmEmissioneDocumento");
        return;
    }
    documentoRegistrato();
    ScaricaArticoli(sessione_.cn, righeDaScaricare(righe.lvwDettagli), intestazione.dtpDataDocumento.date());
}

void frmEmissioneDocumento::documentoRegistrato()
{
    cliente.fraCliente.setEnabled(false);
    righe.fraDettagli.setEnabled(false);
    intestazione.fraIntestazioneDocumento.setEnabled(false);
    righe.txtScontoGenerale.setLocked(true);
    trasporto.abilita(false);
    const std::string numero = std::to_string(numeroRegistrato_);
    desktop().inform("Il documento corrente è stato registrato con il numero " + numero, titoloMessaggi);
    setCaption(tabelle_.titolo + " N. " + numero);
    cmdDocumento[stampa].setEnabled(true);
    cmdDocumento[registra].setEnabled(false);
    cmdDocumento[annulla].setCaption("&Chiudi");
    Griglia.setLocked(true);
    cmdRicalcola.setEnabled(false);
    registrato_ = true;
    pulsantiPredefiniti();
    cmdDocumento[stampa].setFocus();
    Annuncia(sessione_, "Documento registrato: " + caption());
}

void frmEmissioneDocumento::StampaDocumento()
{
    const auto numeroRegistro = static_cast<std::int16_t>(registro());
    switch (TipoDocumento) {
    case tipo::ddt:
        StampaDDT(sessione_, numeroRegistrato_, numeroRegistro);
        break;
    case tipo::fattura:
        StampaFatturaImmediata(sessione_, numeroRegistrato_, numeroRegistro);
        break;
    case tipo::proforma:
        StampaFatturaProforma(sessione_, numeroRegistrato_, numeroRegistro);
        break;
    // A debit note printed from here is headed as a credit note.
    default:
        StampaFatturaDifferita(sessione_, numeroRegistrato_, numeroRegistro, "NOTA DI CREDITO");
        break;
    }
}

}  // namespace bravona
