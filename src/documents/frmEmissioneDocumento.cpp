#include "documents/frmEmissioneDocumento.h"

#include "documents/TipoDocumento.h"
#include "platform/windowing/Desktop.h"
#include "session/modMain.h"

namespace bravona {

namespace {

constexpr const char* titoloMessaggi = "Emissione documento";
constexpr int schedaIntestazione = 0;
constexpr int schedaCorpo = 1;
constexpr int schedaSpedizione = 2;
constexpr int schedaScadenzario = 3;
constexpr std::size_t registra = 0;
constexpr std::size_t annulla = 1;
constexpr std::size_t stampa = 2;

}  // namespace

frmEmissioneDocumento::frmEmissioneDocumento(Sessione& sessione)
    : Form(sessione.desktop(), "frmEmissioneDocumento", titoloMessaggi),
      righe(sessione, {.titolo = titoloMessaggi,
                       .commentoIncompleto = "Attenzione! Mancano alcuni dati.",
                       .nulloDaModificare = "Nessuna riga da modificare!",
                       .nulloDaEliminare = "Nulla da eliminare",
                       .puoAggiungere =
                           [this] {
                               if (cliente.IDCliente > 0)
                                   return true;
                               desktop().inform("E' necessario indicare prima un cliente!", titoloMessaggi);
                               SSTabDocumento.setTab(schedaIntestazione);
                               return false;
                           },
                       .puoAggiungereArticolo = {},
                       .puoModificare = {},
                       .soloImporti = {},
                       .scontiAssociati = [this] { return cliente.scontiAssociati(); },
                       .clienteEsente = [this] { return cliente.bolClienteEsenteIva; }}),
      cliente(sessione, righe, {intestazione.txtEsenzioneIVA, intestazione.lblEsenteIva, trasporto.txtNoteGeneriche},
              titoloMessaggi, "EmissioneDocumenti"),
      Griglia(sessione.clock()),
      sessione_(sessione)
{
    registraControlli();
    setLayout(disponi());
    intestazione.cmbRegistro.onClick = [this] { proponiNumero(); };
    intestazione.dtpDataDocumento.onRefused = [this] {
        desktop().inform("Valore non valido!", titoloMessaggi);
        intestazione.dtpDataDocumento.setFocus();
    };
    SSTabDocumento.onChange = [this](int) { cambiaScheda(); };
    righe.statoCambiato = [this] { pulsantiPredefiniti(); };
    cmdRicalcola.onClick = [this] {
        Griglia.Modificato = false;
        generaScadenze();
    };
    cmdDocumento[registra].onClick = [this] { RegistraDocumento(); };
    cmdDocumento[annulla].onClick = [this] { unload(); };
    cmdDocumento[stampa].onClick = [this] { StampaDocumento(); };
    cmdDocumento[stampa].setEnabled(false);
}

void frmEmissioneDocumento::registraControlli()
{
    const auto aggiungi = [this](const std::string& nome, Control& controllo, int indice) {
        add(nome, controllo, indice);
    };
    add("SSTabDocumento", SSTabDocumento);
    cliente.registra(aggiungi);
    intestazione.registra(aggiungi);
    righe.registra(aggiungi);
    trasporto.registra(aggiungi);
    add("Griglia", Griglia);
    add("cmdRicalcola", cmdRicalcola);
    add("cmdDocumento", cmdDocumento);
}

Layout frmEmissioneDocumento::disponi()
{
    using namespace layout;
    return column(
        {grow(tabs(SSTabDocumento, {column({cliente.layout(), intestazione.layout(), stretch()}), righe.layout(),
                                    trasporto.layout(), column({grow(of(Griglia)), rowEnd({of(cmdRicalcola)})})})),
         rowEnd({of(cmdDocumento[registra]), of(cmdDocumento[annulla]), of(cmdDocumento[stampa])})});
}

void frmEmissioneDocumento::onLoad()
{
    tabelle_ = tabelleDocumento(TipoDocumento);
    setCaption(tabelle_.titolo);
    intestazione.fraCausale.setVisible(TipoDocumento == tipo::ddt);
    SSTabDocumento.setPageEnabled(schedaScadenzario, TipoDocumento != tipo::ddt && TipoDocumento != tipo::proforma);
    SSTabDocumento.setPageEnabled(schedaSpedizione, TipoDocumento != tipo::proforma);
    const clsCursorWait attesa(desktop());
    CentraFinestra(*this, false);
    righe.inizializza();
    trasporto.inizializza();
    ImpostaColonneScadenze(Griglia);
    CaricaComboRegistri(sessione_, intestazione.cmbRegistro);
    if (!intestazione.cmbRegistro.items().empty())
        intestazione.cmbRegistro.setListIndex(0);
    intestazione.dtpDataDocumento.setDate(sessione_.clock().today());
    sessione_.TipoAnagraficaCorrente = "C";
    AbilitaSchede();
    pulsantiPredefiniti();
}

void frmEmissioneDocumento::pulsantiPredefiniti()
{
    if (!registrato_)
        cmdDocumento[registra].setEnabled(!righe.inModifica());  // or the change under way would be lost
    Button* predefinito = nullptr;
    Button* abbandono = &cmdDocumento[annulla];
    if (!registrato_ && SSTabDocumento.tab() == schedaCorpo) {
        predefinito = &righe.cmdDettagli[righe.inModifica() ? 1 : 0];
        if (righe.inModifica())
            abbandono = &righe.cmdDettagli[2];
    }
    setDefaultButton(predefinito);
    setCancelButton(abbandono);
}

void frmEmissioneDocumento::AbilitaSchede()
{
    if (registrato_)
        return;
    const int scheda = SSTabDocumento.tab();
    if (scheda == schedaScadenzario)
        return;
    cliente.fraCliente.setEnabled(scheda == schedaIntestazione);
    righe.fraDettagli.setEnabled(scheda == schedaCorpo);
    righe.lvwDettagli.setEnabled(scheda == schedaCorpo && !righe.inModifica());
    righe.fraTotali.setEnabled(scheda == schedaCorpo);
    trasporto.abilita(scheda == schedaSpedizione);
    if (scheda == schedaIntestazione)
        cliente.txtCliente[0].setFocus();
    else if (scheda == schedaCorpo)
        righe.txtCodiceArticolo.setFocus();
    else
        trasporto.cmbSpedizione.setFocus();
}

void frmEmissioneDocumento::cambiaScheda()
{
    cliente.mostraNome();
    AbilitaSchede();
    pulsantiPredefiniti();
    if (SSTabDocumento.tab() == schedaScadenzario && !registrato_)
        generaScadenze();
}

void frmEmissioneDocumento::proponiNumero()
{
    if (intestazione.cmbRegistro.listIndex() < 0)
        return;
    intestazione.txtNumeroDocumento.setText(std::to_string(ProssimoNumero(sessione_, tabelle_.testata, registro())));
}

void frmEmissioneDocumento::generaScadenze()
{
    GeneraScadenze(sessione_.cn, Griglia, cliente.ModalitaPagamentoCod1, intestazione.dtpDataDocumento.date(),
                   static_cast<std::int16_t>(registro()), righe.txtTotaleImportoDocumento.text());
}

void frmEmissioneDocumento::RiceviDestinazione(std::int32_t idDestinazione, const std::string& destinazione)
{
    cliente.impostaDestinazione(idDestinazione, destinazione);
}

bool frmEmissioneDocumento::onQueryUnload(CloseCause)
{
    if (cmdDocumento[annulla].caption() != "Annulla")
        return true;
    return desktop().ask("Vuoi annullare la compilazione del documento ?", titoloMessaggi);
}

void frmEmissioneDocumento::onUnload()
{
    sessione_.schermate().get("frmSelezioneDocumento").show();
}

}  // namespace bravona
