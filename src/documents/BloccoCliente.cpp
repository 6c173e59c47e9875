#include "documents/BloccoCliente.h"

#include "masterdata/clsCliente.h"
#include "masterdata/frmSelezioneDestinazione.h"
#include "masterdata/modPagamenti.h"
#include "masterdata/modRicerca.h"
#include "masterdata/modRicercaClientiFornitori.h"

namespace bravona {

namespace {

constexpr int tabellaClienti = 0;
constexpr int perNome = 0;
constexpr std::size_t nome = 0;
constexpr std::size_t secondaRiga = 1;
constexpr std::size_t indirizzo = 2;
constexpr std::size_t destinazione = 3;
constexpr std::size_t citta = 4;
constexpr std::size_t partitaIva = 5;
constexpr std::size_t codiceFiscale = 6;

}  // namespace

BloccoCliente::BloccoCliente(Sessione& sessione, EditorRighe& righe, CampiCliente campi, std::string titolo,
                             std::string chiamante)
    : sessione_(sessione),
      righe_(righe),
      campi_(campi),
      titolo_(std::move(titolo)),
      chiamante_(std::move(chiamante))
{
    for (std::size_t i = secondaRiga; i < txtCliente.size(); ++i)
        txtCliente[i].setLocked(true);
    for (TextBox& campo : txtScontoAssociato)
        campo.setLocked(true);
    for (TextBox& campo : txtScontoAssociato)
        campo.align = Align::right;
    txtListinoAssociato.setLocked(true);
    txtListinoAssociato.align = Align::right;
    txtCliente[destinazione].tag = "0";
    cmdDestinazioneMerce.setToolTip("Seleziona la destinazione merce");
    cmdDestinazioneMerce.setAccessibleName("Seleziona la destinazione merce");
    cmdClear.setToolTip("Azzera la destinazione merce");
    cmdClear.setAccessibleName("Azzera la destinazione merce");

    for (TextBox& campo : txtCliente) {
        campo.onKeyDown = [this](KeyEvent& evento) {
            if (evento.key != Key::f3)
                return;
            evento.drop();
            std::int32_t id = 0;
            ImpostaCliente(false, id);
        };
    }
    cmdDestinazioneMerce.onClick = [this] {
        if (IDCliente <= 0) {
            sessione_.desktop().inform("Indicare prima il cliente!", titolo_);
            txtCliente[nome].setFocus();
            return;
        }
        auto& scelta = sessione_.schermate().as<frmSelezioneDestinazione>("frmSelezioneDestinazione");
        scelta.IDCliente = IDCliente;
        scelta.FormChiamante = chiamante_;
        scelta.showModal();
    };
    cmdClear.onClick = [this] { impostaDestinazione(0, "IDEM"); };
}

void BloccoCliente::registra(const std::function<void(const std::string&, Control&, int)>& aggiungi)
{
    constexpr int semplice = -1;
    aggiungi("fraCliente", fraCliente, semplice);
    for (int i = 0; i < static_cast<int>(txtCliente.size()); ++i)
        aggiungi("txtCliente", txtCliente[static_cast<std::size_t>(i)], i);
    for (int i = 0; i < 3; ++i)
        aggiungi("txtScontoAssociato", txtScontoAssociato[static_cast<std::size_t>(i)], i);
    aggiungi("txtListinoAssociato", txtListinoAssociato, semplice);
    aggiungi("cmdDestinazioneMerce", cmdDestinazioneMerce, semplice);
    aggiungi("cmdClear", cmdClear, semplice);
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
                                    form({line("Listino", of(txtListinoAssociato))})}))}));
}

std::array<std::string, 3> BloccoCliente::scontiAssociati() const
{
    return {txtScontoAssociato[0].text(), txtScontoAssociato[1].text(), txtScontoAssociato[2].text()};
}

void BloccoCliente::impostaDestinazione(std::int32_t id, const std::string& nomeDestinazione)
{
    txtCliente[destinazione].setText(nomeDestinazione);
    txtCliente[destinazione].tag = std::to_string(id);
}

void BloccoCliente::mostraNome()
{
    if (IDCliente > 0)
        txtCliente[nome].setText(nomeCliente_);
}

void BloccoCliente::nessunCliente()
{
    sessione_.desktop().inform("Nessun record trovato!", "Ricerca...");
    for (std::size_t i = nome; i <= destinazione; ++i)
        txtCliente[i].setText({});
    txtCliente[destinazione].tag = "0";
    txtCliente[nome].setFocus();
    IDCliente = 0;
    righe_.setIDListino(0);
    bolClienteEsenteIva = false;
}

void BloccoCliente::ImpostaCliente(bool soloTestata, std::int32_t& id)
{
    if (id <= 0) {
        id = RicercaClientiFornitori(sessione_, tabellaClienti, txtCliente[nome].text(), perNome);
        if (id == ricerca::nessunRecord) {
            nessunCliente();
            return;
        }
        if (id == ricerca::annullata)
            return;
    }
    clsCliente cliente(sessione_);
    if (!cliente.RichiamaCliente(id))
        return;
    IDCliente = cliente.IDCliente;
    txtCliente[nome].tag = std::to_string(cliente.IDCliente);
    nomeCliente_ = cliente.Cliente;
    txtCliente[nome].setText(nomeCliente_);
    txtCliente[secondaRiga].setText(cliente.ClienteSecondaRiga);
    txtCliente[indirizzo].setText(cliente.Indirizzo);
    impostaDestinazione(0, "IDEM");
    txtCliente[citta].setText(cliente.Cap + " " + cliente.Citta +
                              (cliente.Provincia.empty() ? std::string() : " (" + cliente.Provincia + ")"));
    ModalitaPagamento1 = DescrizioneModalitaPagamento(sessione_, cliente.IDpagamento);
    ModalitaPagamentoCod1 = std::to_string(cliente.IDpagamento);
    if (soloTestata)
        return;

    const std::array<std::int32_t, 3> sconti{cliente.ScontoMaggiorazione1, cliente.ScontoMaggiorazione2,
                                             cliente.ScontoMaggiorazione3};
    for (std::size_t i = 0; i < sconti.size(); ++i)
        txtScontoAssociato[i].setText(std::to_string(sconti[i]));
    righe_.riprendiSconti();
    bolClienteEsenteIva = cliente.EsenteIva;
    campi_.txtEsenzioneIVA.setText(
        cliente.EsenteIva ? cliente.DescrizioneEsenzioneIVA + "\r\n" + cliente.EstremiEsenzioneIVA : std::string());
    campi_.lblEsenteIva.setCaption(cliente.EsenteIva ? "ESENTE I.V.A." : "");
    if (cliente.VisualizzaNoteSuDocumenti)
        campi_.txtNoteGeneriche.setText(cliente.NoteGeneriche);
    txtCliente[partitaIva].setText(cliente.PartitaIva);
    txtCliente[codiceFiscale].setText(cliente.CodiceFiscale);
    righe_.IDListinoOriginale = cliente.IDListino;
    righe_.setIDListino(cliente.IDListino);
    txtListinoAssociato.setText(std::to_string(cliente.IDListino));
    if (txtCliente[partitaIva].text().empty() && txtCliente[codiceFiscale].text().empty()) {
        sessione_.desktop().inform("Attenzione, il cliente e' sprovvisto di Partita IVA e Codice Fiscale!",
                                   "Anagrafica Cliente");
    }
}

}  // namespace bravona
