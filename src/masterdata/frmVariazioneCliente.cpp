#include "masterdata/frmVariazioneCliente.h"

#include "masterdata/modDestinazioni.h"
#include "masterdata/modPagamenti.h"
#include "masterdata/modRicerca.h"
#include "masterdata/modRicercaClientiFornitori.h"
#include "session/modMain.h"

namespace bravona {

using namespace anagrafica;

namespace {
constexpr const char* titoloCliente = "Cliente";
constexpr const char* modulo = "Modulo: frmVariazioneCliente";
}  // namespace

frmVariazioneCliente::frmVariazioneCliente(Sessione& sessione)
    : SchedaCliente(sessione, "frmVariazioneCliente", "Visualizza - Modifica Cliente / Fornitore",
                    {.puoAggiungere = [this] { return puoAggiungere(); },
                     .aggiunta =
                         [this](const ListRow& riga) {
                             return "x" +
                                    std::to_string(RegistraDestinazione(this->sessione(), riga, caricato_->IDCliente));
                         },
                     .eliminare = [this](const std::string& chiave) { return eliminaDestinazione(chiave); }},
                    {"&Aggiorna", "&Chiudi", "&Nuovo..."})
{
    for (const char* campo : {"Nome/Ragione sociale", "Telefono", "Partita I.V.A.", "Codice fiscale", "Indirizzo"}) {
        Combo2.addItem(campo);
    }
    Combo2.setListIndex(0);
    Combo2.width = 23;
    txtCercaCliente.grows = true;
    txtCercaCliente.placeholder = "F3 cerca";
    lblRicerca_.style = TextStyle::hint;
    const auto invioCerca = [this](KeyEvent& evento) {
        if (evento.key == Key::enter) {
            evento.drop();
            Ricerca();
        }
    };
    Combo2.onKeyDown = invioCerca;
    txtCercaCliente.onKeyDown = invioCerca;
    List1.setToolTip("Canc toglie la scelta");
    List1.onKeyDown = [this](KeyEvent& evento) {
        if (evento.key == Key::del) {
            evento.drop();
            List1.setListIndex(-1);
        }
    };
    lblModalitaPagamento.sunken = true;
    cmdCliente[0].onClick = [this] { Aggiorna(); };
    cmdCliente[1].onClick = [this] { unload(); };
    cmdCliente[2].onClick = [this] {
        if (unload()) {
            this->sessione().schermate().get("frmRegistraCliente").show();
        }
    };

    add("Combo2", Combo2);
    add("txtCercaCliente", txtCercaCliente);
    add("lblModalitaPagamento", lblModalitaPagamento);
    add("lblRicerca", lblRicerca_);
    aggiungiControlli();
    using namespace layout;
    setLayout(
        column({form({line("C&erca per", row({of(Combo2), grow(of(txtCercaCliente)), of(lblRicerca_)}))}),
                pagine({}, {line("Pagamento", of(lblModalitaPagamento)), line("Cambia con:", of(List1))}), comandi()}));
}

void frmVariazioneCliente::onLoad()
{
    SchedaCliente::onLoad();
    txtCercaCliente.setFocus();
    if (IDCliente > 0) {
        Ricerca();
    }
}

void frmVariazioneCliente::onActivate()
{
    SchedaCliente::onActivate();
    if (caricato_) {
        lblModalitaPagamento.setCaption(DescrizioneModalitaPagamento(sessione(), caricato_->IDpagamento));
    }
}

std::string frmVariazioneCliente::contenuto() const
{
    return fieldContents({&Combo2, &txtCercaCliente});
}

void frmVariazioneCliente::onKeyDown(KeyEvent& evento)
{
    if (evento.key == Key::f3) {
        evento.drop();
        Ricerca();
    }
}

void frmVariazioneCliente::Ricerca()
{
    std::int32_t id = IDCliente;
    IDCliente = 0;
    if (id <= 0) {
        // The lit option is the kind that is searched, whatever another window has set meanwhile.
        sessione().TipoAnagraficaCorrente = tipoScelto();
        id = RicercaClientiFornitori(sessione(), TabellaAnagrafica::clienti, txtCercaCliente.text(),
                                     static_cast<CampoAnagrafica>(Combo2.listIndex()));
    }
    if (id == ricerca::nessunRecord) {
        desktop().inform("Nessun record trovato!", titoloCliente);
        txtCercaCliente.setFocus();
    } else if (id != ricerca::annullata) {
        carica(id);
    }
    txtCercaCliente.selectAll();
}

void frmVariazioneCliente::carica(std::int32_t id)
{
    const std::string cercato = txtCercaCliente.text();
    const int chiave = Combo2.listIndex();
    svuota();
    txtCercaCliente.setText(cercato);
    Combo2.setListIndex(chiave);
    clsCliente letto(sessione());
    if (!letto.RichiamaCliente(id).riferisci(desktop())) {
        return;
    }
    // Saving rewrites the destinations from the list: a party whose list could not be read must not be there to save.
    const std::string pagamento = DescrizioneModalitaPagamento(sessione(), letto.IDpagamento);
    if (!CaricaElenco(id)) {
        return;
    }
    caricato_.emplace(letto);
    mostra(letto);
    lblModalitaPagamento.setCaption(pagamento);
    ricordaContenuto();
    fuocoSuPagina();
}

// False after having told the failure.
bool frmVariazioneCliente::CaricaElenco(std::int32_t id)
{
    try {
        CaricaElencoDestinazioni(sessione(), destinazioni.lvwDestinazioni, id);
    } catch (const Errore& errore) {
        if (errore.numero() != errori::nessunRecordCorrente) {
            MostraErroreStandard(desktop(), errore, modulo, "Routine: CaricaElencoDestinazioni");
            return false;
        }
    }
    return true;
}

void frmVariazioneCliente::svuota()
{
    pulisci();
    caricato_.reset();
    lblModalitaPagamento.setCaption({});
    Combo2.setListIndex(0);
    ricordaContenuto();
}

bool frmVariazioneCliente::puoAggiungere()
{
    if (caricato_) {
        return true;
    }
    desktop().inform("Attenzione! Selezionare prima un cliente.", titolo);
    txtCercaCliente.setFocus();
    return false;
}

bool frmVariazioneCliente::eliminaDestinazione(const std::string& chiave)
{
    const std::int32_t id = DestinazioneDaChiave(chiave);
    if (DestinazioneMerceUtilizzata(sessione(), id)) {
        desktop().inform("Impossibile cancellare la destinazione selezionata in quanto e' correlata ad altri dati "
                         "(Fatture e/o D.D.T.)!",
                         titolo);
        return false;
    }
    if (!desktop().askBeforeLosing("Vuoi eliminare la riga selezionata?", titolo)) {
        return false;
    }
    sessione().cn.execute("DELETE * FROM DestinazioneMerceClienti WHERE IDDestinazione=" + std::to_string(id));
    return true;
}

// False after having told the failure.
bool frmVariazioneCliente::registra(clsCliente& dati)
{
    if (dati.ModificaCliente(caricato_->IDCliente).riferisci(desktop())) {
        return RegistraDestinazioniMerce();
    }
    desktop().inform("Errore nella variazione dei dati!", titoloCliente);
    fuocoSu(txtAnagrafica[anagrafica::cliente], paginaIndirizzo);
    return false;
}

// All destinations or none; the party itself stays saved.
bool frmVariazioneCliente::RegistraDestinazioniMerce()
{
    const std::int32_t id = caricato_->IDCliente;
    try {
        Transaction transazione(sessione().cn);
        sessione().cn.execute("DELETE * FROM DestinazioneMerceClienti WHERE IDcliente=" + std::to_string(id));
        RegistraElencoDestinazioni(sessione(), destinazioni.lvwDestinazioni, id);
        transazione.commit();
        return true;
    } catch (const Errore& errore) {
        MostraErroreStandard(desktop(), errore, modulo, "Routine: RegistraDestinazioniMerce");
        return false;
    }
}

void frmVariazioneCliente::Aggiorna()
{
    if (!caricato_) {
        txtCercaCliente.setFocus();
        return;
    }
    clsCliente dati = *caricato_;
    if (!controllaDatiEssenziali() || !leggi(dati) || !proseguiSenzaDestinazione() || !registra(dati)) {
        return;
    }
    Annuncia(sessione(), "Anagrafica aggiornata");
    if (!desktop().ask("Variazione dati effettuata\nVuoi variare i dati di un'altro cliente?", titolo)) {
        unload();
        return;
    }
    svuota();
    SSTab1.setTab(paginaIndirizzo);
    txtCercaCliente.setFocus();
}

}  // namespace bravona
