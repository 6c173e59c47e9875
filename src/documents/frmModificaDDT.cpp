#include "documents/frmModificaDDT.h"

#include "documents/StampaDocumento.h"

namespace bravona {

namespace {

constexpr int schedaCorpo = 1;

}  // namespace

frmModificaDDT::frmModificaDDT(Sessione& sessione)
    : SchermataModifica(sessione,
                        {.schermata = "frmModificaDDT",
                         .titolo = "Gestione D.D.T.",
                         .schede = "SSTabDocumento",
                         .chiamante = "ModificaBolle",
                         .pagine = {"&Intestazione", "&Corpo documento", "&Dati Spedizione"},
                         .comandi = {"&Modifica", "&Chiudi", "&Stampa"}},
                        {.titolo = "Gestione D.D.T.",
                         .commentoIncompleto = "Attenzione! Mancano alcuni dati",
                         .nulloDaModificare = {},
                         .nulloDaEliminare = "Nulla da eliminare",
                         .moduloEliminazione = "frmModificaDDT",
                         .ritentaChiave = true,
                         .unitaIntere = true,
                         .ripetiAvvisoIva = true,
                         .puoAggiungere = [this] { return clienteIndicato(); },
                         .puoAggiungereArticolo = {},
                         .puoModificare = {},
                         .soloImporti = {}},
                        {.modulo = "Modulo: frmModificaDDT",
                         .annullaModifica = "Vuoi annullare la modifica del Documento di Trasporto corrente?",
                         .nessunArticolo = "Attenzione, non e' stato indicato nessun articolo!"})
{
    add("fraFatturaEmessa", fraFatturaEmessa);
    add("txtNumeroFatturaEmessa", txtNumeroFatturaEmessa);
    add("txtDataFatturaEmessa", txtDataFatturaEmessa);
    txtNumeroFatturaEmessa.setLocked(true);
    txtNumeroFatturaEmessa.align = Align::right;
    txtDataFatturaEmessa.setLocked(true);
    setLayout(disponi());
    setPagine({{[this](bool si) { cliente.fraCliente.setEnabled(si); }, &cliente.txtCliente[0]},
               {[this](bool si) { righe.abilita(si); }, &righe.campi.txtCodiceArticolo},
               {[this](bool si) { trasporto.abilita(si); }, &trasporto.cmbSpedizione}},
              schedaCorpo);
    setCaption("Modifica Bolla N. (in corso di compilazione)");
}

Layout frmModificaDDT::disponi()
{
    using namespace layout;
    return column(
        {grow(tabs(schede,
                   {column({cliente.layout(), intestazione.layout(),
                            frame(fraFatturaEmessa, row({form({line("Numero", of(txtNumeroFatturaEmessa))}),
                                                         form({line("Data", of(txtDataFatturaEmessa))}), stretch()})),
                            stretch()}),
                    righe.layout(), trasporto.layout()})),
         disposizioneComandi()});
}

void frmModificaDDT::mostra(const Documento& documento)
{
    const TestataDocumento& testata = documento.testata;
    mostraTestata(testata, true);
    intestazione.mostraCausale(
        {testata.Tipo.value_or(std::string()), testata.CausaleTrasporto.value_or(std::string())});
    const bool fatturato = testata.fatturato();
    txtNumeroFatturaEmessa.setText(fatturato ? std::to_string(testata.NumeroFattura.value_or(0)) : std::string());
    txtDataFatturaEmessa.setText(fatturato ? testata.DataFattura.value_or(std::string()) : std::string());
}

std::string frmModificaDDT::titoloLettura() const
{
    return "D.D.T. N. " + std::to_string(NumeroDocumento);
}

void frmModificaDDT::abilitaAltro(bool modificabili)
{
    intestazione.fraIntestazioneDocumento.setEnabled(modificabili);
}

void frmModificaDDT::completa(TestataDocumento& testata)
{
    const bravona::CausaleTrasporto causale = intestazione.causale();
    testata.Tipo = causale.Tipo;
    testata.CausaleTrasporto = causale.testo;
}

std::string frmModificaDDT::testoAggiornato() const
{
    return "Il Documento di Trasporto n. " + std::to_string(NumeroDocumento) + " è stato aggiornato!";
}

void frmModificaDDT::stampa()
{
    stampaDocumento(sessione(), {tipo::ddt, NumeroDocumento, NumeroRegistro, false}, ChiamanteStampa::modifica);
}

}  // namespace bravona
