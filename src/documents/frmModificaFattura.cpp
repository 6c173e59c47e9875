#include "documents/frmModificaFattura.h"

#include "documents/ArchivioDocumenti.h"
#include "documents/StampaDocumento.h"
#include "platform/text/Text.h"
#include "platform/windowing/Desktop.h"

namespace bravona {

namespace {

constexpr int schedaDettagli = 1;
constexpr int schedaRiferimenti = 3;

}  // namespace

frmModificaFattura::frmModificaFattura(Sessione& sessione)
    : SchermataModifica(sessione,
                        {.schermata = "frmModificaFattura",
                         .titolo = "Gestione Fattura",
                         .schede = "SSTab1",
                         .chiamante = "ModificaFatture",
                         .pagine = {"&Principale", "&Dettagli", "Sp&edizione", "Riferimento documenti", "Scade&nzario"},
                         .comandi = {"&Modifica", "&Chiudi", "&Stampa"}},
                        {.titolo = "Gestione Fattura",
                         .commentoIncompleto = "Attenzione! Mancano alcuni dati",
                         .nulloDaModificare = "Nessuna riga da modificare!",
                         .nulloDaEliminare = "Nessun elemento da eliminare.",
                         .moduloEliminazione = "frmModificaFattura",
                         .puoAggiungere = [this] { return clienteIndicato(); },
                         .puoAggiungereArticolo =
                             [this] {
                                 if (!daDDT())
                                     return true;
                                 desktop().inform("Impossibile aggiungere nuovi articolo a questo tipo di fattura",
                                                  titoloMessaggi());
                                 return false;
                             },
                         .puoModificare =
                             [this](const RigaDocumento& riga) {
                                 // The lines that name a transport document.
                                 if (!daDDT() || !riga.commento() || !trim(riga.CodiceArticolo).empty())
                                     return true;
                                 desktop().inform("Impossibile modificare questa riga", titoloMessaggi());
                                 return false;
                             },
                         .soloImporti = [this](const RigaDocumento&) { return daDDT(); }},
                        {.modulo = "Modulo: frmModificaFattura",
                         .annullaModifica = "Vuoi annullare la modifica della fattura?",
                         .nessunArticolo = "Attenzione, non sono e' stato indicato nessun articolo!"}),
      scadenze(sessione)
{
    add("fraDocumentiCorrelati", fraDocumentiCorrelati);
    add("lvwDocumenti", lvwDocumenti);
    add(scadenze);
    lvwDocumenti.setColumns({{.caption = "", .key = "fcheck", .width = 400},
                             {.caption = "Numero", .key = "fNumero", .width = 1000},
                             {.caption = "Data", .key = "fData", .width = 1200},
                             {.caption = "Causale", .key = "fCausale", .width = 2000}});
    lvwDocumenti.sortable = true;
    lvwDocumenti.setAccessibleName("Documenti di trasporto della fattura");
    setLayout(disponi());
    // Of an invoice made from transport documents the rows alone take input.
    setPagine({{[this](bool si) { cliente.fraCliente.setEnabled(si && !daDDT()); }, &cliente.txtCliente[0]},
               {[this](bool si) { righe.abilita(si); }, &righe.campi.txtCodiceArticolo},
               {[this](bool si) { trasporto.abilita(si && !daDDT()); }, &trasporto.cmbSpedizione},
               {},
               {}},
              schedaDettagli);
    intestazione.fraCausale.setVisible(false);
    scadenze.setTitolo(titoloMessaggi());
    scadenze.setBase([this] {
        return BasePiano{cliente.ModalitaPagamentoCod1, intestazione.dtpDataDocumento.date(),
                         caricata().NumeroRegistro.value_or(0), righe.totali.totaleDocumento()};
    });
}

Layout frmModificaFattura::disponi()
{
    using namespace layout;
    return column({grow(tabs(schede, {column({cliente.layout(), intestazione.layout(), stretch()}), righe.layout(),
                                      trasporto.layout(), frame(fraDocumentiCorrelati, grow(of(lvwDocumenti))),
                                      scadenze.layout()})),
                   disposizioneComandi()});
}

// --- loading

std::int16_t frmModificaFattura::tipoTabelle() const
{
    return FatturaProforma ? tipo::proforma : tipo::fattura;
}

void frmModificaFattura::prendiProprieta(const DocumentoDaAprire& documento)
{
    SchermataModifica::prendiProprieta(documento);
    TipoDocumento = documento.TipoDocumento;
    FatturaProforma = documento.FatturaProforma();
}

void frmModificaFattura::riprendiProprieta()
{
    SchermataModifica::riprendiProprieta();
    TipoDocumento = tipoMostrato_;
    FatturaProforma = proformaMostrata_;
}

void frmModificaFattura::mostra(const Documento& documento)
{
    tipoMostrato_ = TipoDocumento;
    proformaMostrata_ = FatturaProforma;
    const TestataDocumento& testata = documento.testata;
    mostraTestata(testata, false);
    trasporto.cmbCausaleTrasporto.setText(testata.CausaleTrasporto.value_or(std::string()));
    caricaRiferimenti(testata.IDDocumento);
}

void frmModificaFattura::mostraRate(std::span<const Rata> rate)
{
    scadenze.mostra(rate);
}

void frmModificaFattura::caricaRiferimenti(std::int32_t idFattura)
{
    lvwDocumenti.clear();
    fraDocumentiCorrelati.setVisible(daDDT());
    schede.setPageEnabled(schedaRiferimenti, daDDT());
    if (!daDDT()) {
        if (schede.tab() == schedaRiferimenti)
            schede.setTab(0);
        return;
    }
    Recordset ddt = sessione().cn.open(
        "SELECT Fatture_RiferimentoBolle.IDFattura, Bolle.NumeroDocumento, Bolle.DataDocumento, Bolle.IDBolla, "
        "Bolle.CausaleTrasporto FROM Fatture_RiferimentoBolle INNER JOIN Bolle ON Fatture_RiferimentoBolle.IDBolla = "
        "Bolle.IDbolla WHERE IDFattura=" +
        std::to_string(idFattura) + " ORDER BY Bolle.NumeroDocumento");
    for (; !ddt.eof(); ddt.moveNext()) {
        ListRow riga;
        riga.sub = {{ddt["NumeroDocumento"].text(), {}},
                    {ddt["DataDocumento"].text(), {}},
                    {ddt["CausaleTrasporto"].text(), {}}};
        lvwDocumenti.add(std::move(riga));
    }
}

// --- modes

void frmModificaFattura::cambiaScheda()
{
    SchermataModifica::cambiaScheda();
    scadenze.mostraSomma();
}

const char* frmModificaFattura::inizioTitolo() const
{
    if (FatturaProforma)
        return "Modifica Preventivo di Spesa N. ";
    switch (TipoDocumento) {
    case tipo::notaCredito:
        return "Nota di credito n. ";
    case tipo::notaDebito:
        return "Nota di debito n. ";
    default:
        return "Modifica Fattura N. ";
    }
}

std::string frmModificaFattura::titoloLettura() const
{
    return inizioTitolo() + std::to_string(NumeroDocumento);
}

std::string frmModificaFattura::titoloModifica() const
{
    return (FatturaProforma ? "Preventivo di Spesa n. " : "Fattura n. ") + std::to_string(NumeroDocumento) +
           " - Modalita' modifica";
}

void frmModificaFattura::primaDellaModifica()
{
    if (daDDT()) {
        desktop().inform("Attenzione! E' possibile modificare solo il prezzo degli articoli, in quanto il documento e' "
                         "riferito ad un D.D.T.",
                         titoloMessaggi());
        schede.setTab(schedaDettagli);
    }
}

void frmModificaFattura::abilitaAltro(bool modificabili)
{
    intestazione.fraIntestazioneDocumento.setEnabled(modificabili && !daDDT());
    scadenze.blocca(!modificabili);
}

// --- writing

void frmModificaFattura::completa(TestataDocumento& testata)
{
    testata.NumeroDocumento = caricata().NumeroDocumento;
    testata.AnnoDocumento = caricata().AnnoDocumento;
    testata.CausaleTrasporto = trasporto.cmbCausaleTrasporto.text();
    if (FatturaProforma)
        testata.IDDocumento = separaDalleFatture(sessione().cn, testata.IDDocumento);
}

void frmModificaFattura::scriviAltro(const TestataDocumento& testata)
{
    if (!scadenze.Griglia.Modificato)
        rateSostituite_ = scadenze.rate();
    scadenze.GeneraScadenze();
    desktop().processEvents();
    riscriviRate(sessione().cn, testata.IDDocumento, caricata().NumeroRegistro.value_or(0), scadenze.rate());
}

void frmModificaFattura::concluso(bool scritto)
{
    if (!scritto && rateSostituite_)
        scadenze.mostra(*rateSostituite_);
    rateSostituite_.reset();
}

std::string frmModificaFattura::testoAggiornato() const
{
    return (FatturaProforma ? "PROFORMA Il documento n." : "Il documento n.") + std::to_string(NumeroDocumento) +
           " è stato aggiornato!";
}

void frmModificaFattura::stampa()
{
    stampaDocumento(sessione(), {TipoDocumento, NumeroDocumento, NumeroRegistro, daDDT()}, ChiamanteStampa::modifica);
}

}  // namespace bravona
