#include "documents/frmEmissioneDocumento.h"

#include "documents/StampaDocumento.h"
#include "platform/windowing/Desktop.h"
#include "session/modMain.h"

namespace bravona {

namespace {

constexpr int schedaIntestazione = 0;
constexpr int schedaCorpo = 1;
constexpr int schedaSpedizione = 2;
constexpr int schedaScadenzario = 3;

}  // namespace

frmEmissioneDocumento::frmEmissioneDocumento(Sessione& sessione)
    : SchermataDocumento(sessione,
                         {.schermata = "frmEmissioneDocumento",
                          .titolo = "Emissione documento",
                          .schede = "SSTabDocumento",
                          .chiamante = "EmissioneDocumenti",
                          .pagine = {"&Intestazione", "&Corpo documento", "&Dati Spedizione", "&Scadenzario"},
                          .comandi = {"&Registra", "Annulla", "&Stampa"}},
                         {.titolo = "Emissione documento",
                          .commentoIncompleto = "Attenzione! Mancano alcuni dati.",
                          .nulloDaModificare = "Nessuna riga da modificare!",
                          .nulloDaEliminare = "Nulla da eliminare",
                          .moduloEliminazione = "frmEmissioneDocumento",
                          .puoAggiungere =
                              [this] {
                                  if (cliente.IDCliente > 0)
                                      return true;
                                  desktop().inform("E' necessario indicare prima un cliente!", titoloMessaggi());
                                  schede.setTab(schedaIntestazione);
                                  return false;
                              },
                          .puoAggiungereArticolo = {},
                          .puoModificare = {},
                          .soloImporti = {}}),
      scadenze(sessione)
{
    add(scadenze);
    setLayout(disponi());
    setPagine({{[this](bool si) { cliente.fraCliente.setEnabled(si); }, &cliente.txtCliente[0]},
               {[this](bool si) { righe.abilita(si); }, &righe.campi.txtCodiceArticolo},
               {[this](bool si) { trasporto.abilita(si); }, &trasporto.cmbSpedizione},
               {}},
              schedaCorpo);
    scadenze.setTitolo(titoloMessaggi());
    scadenze.setBase([this] {
        return BasePiano{cliente.ModalitaPagamentoCod1, intestazione.dtpDataDocumento.date(), intestazione.registro(),
                         righe.totali.totaleDocumento()};
    });
    intestazione.cmbRegistro.onClick = [this] { proponiNumero(); };
    cmdDocumento[comandoPrincipale].onClick = [this] { RegistraDocumento(); };
    cmdDocumento[comandoChiudi].onClick = [this] { unload(); };
    cmdDocumento[comandoStampa].onClick = [this] { StampaDocumento(); };
    cmdDocumento[comandoStampa].setEnabled(false);
}

Layout frmEmissioneDocumento::disponi()
{
    using namespace layout;
    return column({grow(tabs(schede, {column({cliente.layout(), intestazione.layout(), stretch()}), righe.layout(),
                                      trasporto.layout(), scadenze.layout()})),
                   disposizioneComandi()});
}

void frmEmissioneDocumento::onLoad()
{
    tabelle_ = tabelleDocumento(TipoDocumento);
    setCaption(tabelle_.titolo);
    intestazione.fraCausale.setVisible(TipoDocumento == tipo::ddt);
    schede.setPageEnabled(schedaScadenzario, conScadenze(TipoDocumento));
    schede.setPageEnabled(schedaSpedizione, TipoDocumento != tipo::proforma);
    const clsCursorWait attesa(desktop());
    CentraFinestra(*this, false);
    inizializzaCampi();
    scadenze.svuota();
    if (!intestazione.cmbRegistro.items().empty())
        intestazione.cmbRegistro.setListIndex(0);
    intestazione.dtpDataDocumento.setDate(sessione().clock().today());
    sessione().TipoAnagraficaCorrente = "C";
    AbilitaSchede();
    pulsantiPredefiniti();
}

void frmEmissioneDocumento::cambiaScheda()
{
    SchermataDocumento::cambiaScheda();
    if (schede.tab() == schedaScadenzario && !registrato())
        scadenze.GeneraScadenze();
}

void frmEmissioneDocumento::proponiNumero()
{
    if (intestazione.cmbRegistro.listIndex() < 0)
        return;
    intestazione.txtNumeroDocumento.setText(
        std::to_string(ProssimoNumero(sessione(), tabelle_.testata, intestazione.registro())));
}

bool frmEmissioneDocumento::onQueryUnload(CloseCause)
{
    if (registrato())
        return true;
    return desktop().askBeforeLosing("Vuoi annullare la compilazione del documento ?", titoloMessaggi());
}

void frmEmissioneDocumento::onUnload()
{
    sessione().schermate().get("frmSelezioneDocumento").show();
}

void frmEmissioneDocumento::StampaDocumento()
{
    stampaDocumento(sessione(), {TipoDocumento, numeroRegistrato_, intestazione.registro(), false},
                    ChiamanteStampa::emissione);
}

}  // namespace bravona
