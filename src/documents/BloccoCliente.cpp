#include "documents/BloccoCliente.h"

#include "masterdata/clsCliente.h"
#include "masterdata/frmSelezioneDestinazione.h"
#include "masterdata/modPagamenti.h"
#include "masterdata/modRicerca.h"
#include "masterdata/modRicercaClientiFornitori.h"

namespace bravona {

namespace {

constexpr std::size_t nome = 0;
constexpr std::size_t secondaRiga = 1;
constexpr std::size_t indirizzo = 2;
constexpr std::size_t destinazione = 3;
constexpr std::size_t citta = 4;
constexpr std::size_t partitaIva = 5;
constexpr std::size_t codiceFiscale = 6;

}  // namespace

BloccoCliente::BloccoCliente(Sessione& sessione, std::string titolo, std::string chiamante)
    : sessione_(sessione),
      titolo_(std::move(titolo)),
      chiamante_(std::move(chiamante))
{
    add("fraCliente", fraCliente);
    add("txtCliente", txtCliente);
    add("txtScontoAssociato", txtScontoAssociato);
    add("txtListinoAssociato", txtListinoAssociato);
    add("cmdDestinazioneMerce", cmdDestinazioneMerce);
    add("cmdClear", cmdClear);
    add("lblPagamento", lblPagamento);

    for (std::size_t i = secondaRiga; i < txtCliente.size(); ++i)
        txtCliente[i].setLocked(true);
    for (TextBox& campo : txtScontoAssociato) {
        campo.setLocked(true);
        campo.align = Align::right;
    }
    txtListinoAssociato.setLocked(true);
    txtListinoAssociato.align = Align::right;
    cmdDestinazioneMerce.setToolTip("Seleziona la destinazione merce");
    cmdDestinazioneMerce.setAccessibleName("Seleziona la destinazione merce");
    cmdClear.setToolTip("Azzera la destinazione merce");
    cmdClear.setAccessibleName("Azzera la destinazione merce");

    for (TextBox& campo : txtCliente) {
        campo.onKeyDown = [this](KeyEvent& evento) {
            if (evento.key == Key::f3)
                cerca(evento);
        };
    }
    txtCliente[nome].placeholder = "F3 cerca";
    // A name just typed, Enter looks up; under the customer's own it does what it does elsewhere.
    txtCliente[nome].onKeyDown = [this](KeyEvent& evento) {
        const std::string& testo = txtCliente[nome].text();
        if (evento.key == Key::f3 || (evento.key == Key::enter && !(IDCliente > 0 && testo == nomeCliente_)))
            cerca(evento);
    };
    cmdDestinazioneMerce.onClick = [this] { scegliDestinazione(); };
    cmdClear.onClick = [this] { impostaDestinazione(0, "IDEM"); };
}

void BloccoCliente::cerca(KeyEvent& evento)
{
    evento.drop();
    std::int32_t id = 0;
    ImpostaCliente(false, id);
}

void BloccoCliente::scegliDestinazione()
{
    if (IDCliente <= 0) {
        sessione_.desktop().inform("Indicare prima il cliente!", titolo_);
        txtCliente[nome].setFocus();
        return;
    }
    auto& scelta = sessione_.schermate().as<frmSelezioneDestinazione>("frmSelezioneDestinazione");
    scelta.IDCliente = IDCliente;
    scelta.FormChiamante = chiamante_;
    scelta.showModal();
}

Layout BloccoCliente::layout()
{
    using namespace layout;
    return frame(
        fraCliente,
        form({line("Ragione sociale (R)  Premi F3 per la Ricerca", of(txtCliente[nome])),
              line("", of(txtCliente[secondaRiga])), line("Indirizzo", of(txtCliente[indirizzo])),
              line("Citta e Provincia", of(txtCliente[citta])),
              line("Destinazione merce", row({of(txtCliente[destinazione]), of(cmdDestinazioneMerce), of(cmdClear)})),
              line("Partita IVA",
                   row({of(txtCliente[partitaIva]), form({line("Codice Fiscale", of(txtCliente[codiceFiscale]))})})),
              line("Sconti %", row({of(txtScontoAssociato[0]), of(txtScontoAssociato[1]), of(txtScontoAssociato[2]),
                                    form({line("Listino", of(txtListinoAssociato))}),
                                    form({line("Pagamento", of(lblPagamento))}), stretch()}))}));
}

void BloccoCliente::impostaDestinazione(std::int32_t id, const std::string& nomeDestinazione)
{
    txtCliente[destinazione].setText(nomeDestinazione);
    IDDestinazione = id;
}

void BloccoCliente::impostaPagamento(std::int32_t id, const std::string& descrizione)
{
    ModalitaPagamento1 = descrizione;
    ModalitaPagamentoCod1 = id;
    mostraPagamento();
}

void BloccoCliente::mostraPagamento()
{
    lblPagamento.setCaption(ModalitaPagamento1.empty() && IDCliente > 0 ? "(nessuna modalità)" : ModalitaPagamento1);
}

bool BloccoCliente::nomeConfermato()
{
    if (IDCliente <= 0 || txtCliente[nome].text() == nomeCliente_)
        return true;
    txtCliente[nome].setFocus();
    sessione_.desktop().inform("Il nome indicato non è quello del cliente scelto: premere F3 per cercarlo.", titolo_);
    txtCliente[nome].setFocus();
    return false;
}

void BloccoCliente::mostraCondizioni(const CondizioniCliente& condizioni)
{
    for (std::size_t i = 0; i < txtScontoAssociato.size(); ++i)
        txtScontoAssociato[i].setText(std::to_string(condizioni.sconti[i]));
    txtListinoAssociato.setText(std::to_string(condizioni.listino));
}

void BloccoCliente::nessunRecord()
{
    sessione_.desktop().inform("Nessun record trovato!", "Ricerca...");
    nessunCliente();
    txtCliente[nome].setFocus();
}

void BloccoCliente::nessunCliente()
{
    for (TextBox& campo : txtCliente)
        campo.setText({});
    IDDestinazione = 0;
    IDCliente = 0;
    ModalitaPagamento1.clear();
    ModalitaPagamentoCod1 = 0;
    mostraPagamento();
    IDListinoOriginale = 0;
    mostraCondizioni({});
    if (clienteScelto)
        clienteScelto({});
}

void BloccoCliente::ImpostaCliente(bool soloTestata, std::int32_t& id)
{
    if (id <= 0) {
        id = RicercaClientiFornitori(sessione_, TabellaAnagrafica::clienti, txtCliente[nome].text(),
                                     CampoAnagrafica::nome);
        if (id == ricerca::nessunRecord) {
            nessunRecord();
            return;
        }
        if (id == ricerca::annullata)
            return;
    }
    clsCliente cliente(sessione_);
    std::string pagamento;
    try {
        if (!cliente.RichiamaCliente(id).riferisci(sessione_.desktop())) {
            nessunCliente();
            return;
        }
        pagamento = DescrizioneModalitaPagamento(sessione_, cliente.IDpagamento);
    } catch (const Errore&) {
        nessunCliente();  // half of a customer would be a wrong one
        throw;
    }
    IDCliente = cliente.IDCliente;
    nomeCliente_ = cliente.Cliente;
    txtCliente[nome].setText(nomeCliente_);
    txtCliente[secondaRiga].setText(cliente.ClienteSecondaRiga);
    txtCliente[indirizzo].setText(cliente.Indirizzo);
    impostaDestinazione(0, "IDEM");
    txtCliente[citta].setText(cliente.Cap + " " + cliente.Citta +
                              (cliente.Provincia.empty() ? std::string() : " (" + cliente.Provincia + ")"));
    txtCliente[partitaIva].setText(cliente.PartitaIva);
    txtCliente[codiceFiscale].setText(cliente.CodiceFiscale);
    impostaPagamento(cliente.IDpagamento, pagamento);
    IDListinoOriginale = cliente.IDListino;
    if (soloTestata)
        return;

    ClienteDelDocumento scelto;
    scelto.condizioni = {cliente.IDListino,
                         {cliente.ScontoMaggiorazione1, cliente.ScontoMaggiorazione2, cliente.ScontoMaggiorazione3},
                         cliente.EsenteIva};
    if (cliente.EsenteIva)
        scelto.esenzione = cliente.DescrizioneEsenzioneIVA + "\r\n" + cliente.EstremiEsenzioneIVA;
    scelto.conNote = cliente.VisualizzaNoteSuDocumenti;
    scelto.note = cliente.NoteGeneriche;
    mostraCondizioni(scelto.condizioni);
    if (clienteScelto)
        clienteScelto(scelto);
    if (cliente.PartitaIva.empty() && cliente.CodiceFiscale.empty()) {
        sessione_.desktop().inform("Attenzione, il cliente e' sprovvisto di Partita IVA e Codice Fiscale!",
                                   "Anagrafica Cliente");
    }
}

}  // namespace bravona
