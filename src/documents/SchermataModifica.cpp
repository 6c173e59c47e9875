#include "documents/SchermataModifica.h"

#include <optional>

#include "documents/ArchivioDocumenti.h"
#include "masterdata/modDestinazioni.h"
#include "session/modMain.h"

namespace bravona {

namespace {

constexpr int primaScheda = 0;

}  // namespace

SchermataModifica::SchermataModifica(Sessione& sessione, const Nomi& nomi, RegoleRighe regole, Testi testi)
    : SchermataDocumento(sessione, nomi, std::move(regole)),
      testi_(testi)
{
    intestazione.txtNumeroDocumento.setLocked(true);
    intestazione.cmbRegistro.setLocked(true);
    cmdDocumento[comandoPrincipale].onClick = [this] {
        if (modo() == ModoDocumento::modifica)
            RegistraModificheDocumento();
        else
            entraInModifica();
    };
    cmdDocumento[comandoChiudi].onClick = [this] {
        if (modo() == ModoDocumento::modifica)
            annulla();
        else
            unload();
    };
    cmdDocumento[comandoStampa].onClick = [this] { stampa(); };
    // The same customer, searched for again, leaves the document its own payment method.
    cliente.clienteScelto = [this, altri = std::move(cliente.clienteScelto)](const ClienteDelDocumento& scelto) {
        altri(scelto);
        if (cliente.IDCliente > 0 && cliente.IDCliente == caricata_.IDCliente)
            cliente.impostaPagamento(caricata_.IDmodalitaPagamento, caricata_.ModalitaPagamento);
    };
    setModo(ModoDocumento::lettura);
    cmdDocumento[comandoPrincipale].setEnabled(false);
    cmdDocumento[comandoStampa].setEnabled(false);
}

void SchermataModifica::onLoad()
{
    CentraFinestra(*this, false);
    inizializzaCampi();
    sessione().TipoAnagraficaCorrente = "C";
    esceDallaModifica();
}

bool SchermataModifica::onQueryUnload(CloseCause)
{
    return puoLasciare();
}

bool SchermataModifica::puoLasciare()
{
    return modo() != ModoDocumento::modifica || desktop().askBeforeLosing(testi_.annullaModifica, titoloMessaggi());
}

bool SchermataModifica::clienteIndicato()
{
    if (cliente.IDCliente > 0)
        return true;
    desktop().inform("E' necessario indicare prima un cliente!", titoloMessaggi());
    schede.setTab(primaScheda);
    return false;
}

// --- loading

bool SchermataModifica::carica()
{
    if (!puoLasciare()) {
        riprendiProprieta();
        show();
        return false;
    }
    desktop().load(*this);
    const std::int32_t prima = caricata_.IDDocumento;
    try {
        mostraDalArchivio();
    } catch (const Errore&) {
        riprendiProprieta();
        throw;
    }
    if (caricata_.IDDocumento != prima)
        schede.setTab(primaScheda);
    return true;
}

void SchermataModifica::ApriDocumento(const DocumentoDaAprire& documento)
{
    prendiProprieta(documento);
    try {
        if (!carica())
            return;
    } catch (const Errore&) {
        if (!shown() && loaded())
            unload();
        throw;
    }
    modificaAbilitata_ = documento.modificabile;
    cmdDocumento[comandoPrincipale].setEnabled(modificaAbilitata_);
}

void SchermataModifica::prendiProprieta(const DocumentoDaAprire& documento)
{
    NumeroDocumento = documento.NumeroDocumento;
    NumeroRegistro = documento.NumeroRegistro;
    AnnoDocumento = documento.AnnoDocumento;
}

void SchermataModifica::mostraDalArchivio()
{
    const clsCursorWait attesa(desktop());
    std::optional<Documento> documento =
        leggiDocumento(sessione().cn, tipoTabelle(), NumeroDocumento, AnnoDocumento, NumeroRegistro);
    if (!documento)
        throw Errore(errori::nessunRecordCorrente, "Nessun record corrente: documento inesistente");
    try {
        riempi(*documento);
    } catch (const Errore&) {  // half of a document would be a wrong one
        caricata_ = {};
        righe.mostra({});
        esceDallaModifica();
        throw;
    }
}

void SchermataModifica::riempi(const Documento& documento)
{
    caricata_ = documento.testata;
    righe.mostra({});
    righe.campi.nuovaRiga();
    mostra(documento);
    std::optional<Errore> totaliErrati;
    try {
        righe.mostra(documento.righe);
    } catch (const Errore& errore) {  // the rows show all the same, to be mended
        totaliErrati = errore;
    }
    mostraRate(documento.rate);
    esceDallaModifica();
    if (totaliErrati)
        desktop().report(*totaliErrati);
}

void SchermataModifica::riprendiProprieta()
{
    NumeroDocumento = caricata_.NumeroDocumento.value_or(0);
    AnnoDocumento = caricata_.AnnoDocumento;
    NumeroRegistro = caricata_.NumeroRegistro.value_or(0);
}

void SchermataModifica::mostraTestata(const TestataDocumento& testata, bool clienteIntero)
{
    std::int32_t id = testata.IDCliente;
    if (id > 0)
        cliente.ImpostaCliente(!clienteIntero, id);
    else
        cliente.nessunCliente();
    if (!clienteIntero && cliente.clienteScelto) {
        ClienteDelDocumento delDocumento;
        delDocumento.condizioni = {cliente.IDListinoOriginale, {}, !testata.NoteEsenzioneIVA.empty()};
        cliente.mostraCondizioni(delDocumento.condizioni);
        cliente.clienteScelto(delDocumento);
    }
    cliente.impostaDestinazione(testata.IDDestinazione, RilevaDestinazioneMerce(sessione(), testata.IDDestinazione));
    cliente.impostaPagamento(testata.IDmodalitaPagamento, testata.ModalitaPagamento);

    if (!intestazione.cmbRegistro.selectByData(testata.NumeroRegistro.value_or(0)))
        intestazione.cmbRegistro.setListIndex(-1);
    intestazione.txtNumeroDocumento.setText(std::to_string(testata.NumeroDocumento.value_or(0)));
    intestazione.dtpDataDocumento.setDate(testata.DataDocumento);
    intestazione.txtEsenzioneIVA.setText(testata.NoteEsenzioneIVA);
    trasporto.mostra(testata.Trasporto.value_or(DatiTrasporto{}));
    trasporto.txtNoteGeneriche.setText(testata.NoteGeneriche.value_or(std::string()));
    righe.totali.setSconto(testata.Sconto);
}

// --- modes

void SchermataModifica::entraInModifica()
{
    primaDellaModifica();
    setModo(ModoDocumento::modifica);
    cmdDocumento[comandoPrincipale].setCaption("&Aggiorna");
    cmdDocumento[comandoChiudi].setCaption("Annulla");
    cmdDocumento[comandoStampa].setEnabled(false);
    abilitaAltro(true);
    setCaption(titoloModifica());
    AbilitaSchede();
}

void SchermataModifica::esceDallaModifica()
{
    const bool presente = caricata_.IDDocumento != 0;
    disabilitaTutto();
    righe.griglia.lvwDettagli.setEnabled(true);  // a long document is to be walked through
    intestazione.fraIntestazioneDocumento.setEnabled(false);
    abilitaAltro(false);
    cmdDocumento[comandoPrincipale].setCaption("&Modifica");
    cmdDocumento[comandoPrincipale].setEnabled(presente && modificaAbilitata_);
    cmdDocumento[comandoChiudi].setCaption("&Chiudi");
    cmdDocumento[comandoStampa].setEnabled(presente);
    setModo(ModoDocumento::lettura);
    if (presente)
        setCaption(titoloLettura());
    if (!cmdDocumento[comandoPrincipale].setFocus())
        cmdDocumento[comandoChiudi].setFocus();
}

void SchermataModifica::annulla()
{
    if (puoLasciare())
        mostraDalArchivio();
}

// --- writing

bool SchermataModifica::ControllaDatiDocumento()
{
    const char* mancanza = nullptr;
    if (cliente.IDCliente <= 0)
        mancanza = "Attenzione, non sono stati indicati i dati del cliente!";
    else if (righe.righeValide() == 0)
        mancanza = testi_.nessunArticolo;
    if (mancanza != nullptr)
        desktop().inform(mancanza, titoloMessaggi());
    return mancanza == nullptr;
}

void SchermataModifica::RegistraModificheDocumento()
{
    sessione().TabellaIva->Refresh();
    righe.AggiornaTotali();
    if (!cliente.nomeConfermato() || !ControllaDatiDocumento() || !righe.totali.CodiciIvaPresenti(titoloMessaggi()) ||
        !nienteInSospeso()) {
        return;
    }
    Connection& cn = sessione().cn;
    const TabelleDocumento tabelle = tabelleDocumento(tipoTabelle());
    TestataDocumento testata;
    const auto scrivi = [&] {
        testata = testataDaiCampi();
        testata.IDDocumento = caricata_.IDDocumento;
        completa(testata);
        riscriviTestata(cn, tabelle, testata);
        riscriviRighe(cn, tabelle, testata.IDDocumento, righe.righeDaRegistrare());
        scriviAltro(testata);
    };
    const bool scritto = inUnaTransazione(scrivi, "Routine: RegistraModificheDocumento", testi_.modulo);
    concluso(scritto);
    if (!scritto)
        return;
    testata.NumeroDocumento = caricata_.NumeroDocumento;
    testata.NumeroRegistro = caricata_.NumeroRegistro;
    testata.RiferimentoBolla = caricata_.RiferimentoBolla;
    caricata_ = testata;
    disabilitaTutto();
    righe.campi.nuovaRiga();
    desktop().inform(testoAggiornato(), titoloMessaggi());
    esceDallaModifica();
    Annuncia(sessione(), testoAggiornato());
}

}  // namespace bravona
