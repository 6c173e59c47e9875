#include "documents/frmDocumentoDaProforma.h"

#include "documents/ArchivioDocumenti.h"
#include "documents/Emissione.h"
#include "platform/values/Numeri.h"
#include "printing/RecordsetStampa.h"
#include "session/modMain.h"

namespace bravona {

frmDocumentoDaProforma::frmDocumentoDaProforma(Sessione& sessione)
    : Form(sessione.desktop(), "frmDocumentoDaProforma", "Emissione Fattura da Fattura Pro-Forma esistente"),
      sessione_(sessione)
{
    lvwFatture.setColumns({{.caption = "Numero", .key = "fNumero", .width = 1000},
                           {.caption = "Data", .key = "fData", .width = 1200},
                           {.caption = "Cliente", .key = "fCliente", .width = 2500},
                           {.caption = "Importo Euro", .key = "fImportoEuro", .width = 1500, .align = Align::right},
                           {.caption = "Importo Lire", .key = "fImporto", .width = 1500, .align = Align::right}});
    lvwFatture.sortable = true;
    lvwFatture.lines = 16;
    lvwFatture.setAccessibleName("Fatture pro-forma");
    registro.registroCambiato = [this] { CaricaProforma(); };
    cmdClose.onClick = [this] { unload(); };

    add(registro);
    add("lblDescrizione", lblDescrizione);
    add("lvwFatture", lvwFatture);
    add("cmdShow", cmdShow);
    add("cmdClose", cmdClose);
    using namespace layout;
    setLayout(column(
        {form({registro.linea()}), of(lblDescrizione), grow(of(lvwFatture)), rowEnd({of(cmdShow), of(cmdClose)})}));
    setCancelButton(&cmdClose);
}

void frmDocumentoDaProforma::onLoad()
{
    const bool inDDT = TipoDocumento == "DDT";
    setCaption(inDDT ? "Emissione D.D.T. da Fattura Pro-Forma esistente"
                     : "Emissione Fattura da Fattura Pro-Forma esistente");
    cmdShow.setCaption(inDDT ? "&Emetti DDT" : "&Emetti Fattura");
    lblDescrizione.setCaption(lblDescrizione.caption() + (inDDT ? " Documento di Trasporto" : " Fattura"));
    cmdShow.onClick = [this, inDDT] { inDDT ? CreaDDTDaProforma() : CreaFatturaDaProforma(); };
    registro.carica(sessione_);
    CaricaProforma();
    lvwFatture.setFocus();
}

void frmDocumentoDaProforma::CaricaProforma()
{
    const clsCursorWait attesa(desktop());
    lvwFatture.clear();
    Recordset proforma = sessione_.cn.open(
        "SELECT Proforma.RiferimentoBolla, Proforma.IDfattura, Proforma.NumeroDocumento, Proforma.AnnoDocumento, "
        "Proforma.DataDocumento, Proforma.TotaleDocumento, Clienti.Cliente, Clienti.ClienteSecondaRiga FROM Proforma "
        "INNER JOIN Clienti ON Proforma.IDcliente = Clienti.IDcliente WHERE AnnoDocumento= " +
        sessione_.AnnoRiferimento + " AND NumeroRegistro=" + registro.testo() + " ORDER BY NumeroDocumento");
    std::vector<ListRow> righe;
    righe.reserve(proforma.recordCount());
    for (; !proforma.eof(); proforma.moveNext()) {
        const Currency totale = proforma["TotaleDocumento"].currencyOr({});
        righe.push_back({.text = proforma["NumeroDocumento"].text(),
                         .key = "x" + proforma["IDfattura"].text(),
                         .tag = {},
                         .sub = {{format(proforma["DataDocumento"].value(), "dd/mm/yyyy"), {}},
                                 {proforma["Cliente"].text(), {}},
                                 {FormattaImporto(totale), {}},
                                 {format(totale.toDouble() * lirePerEuro, "#,###"), {}}},
                         .colour = {}});
    }
    lvwFatture.append(std::move(righe));
}

Documento frmDocumentoDaProforma::proformaScelta() const
{
    const std::string id = lvwFatture.row(lvwFatture.selectedOrFail()).key.substr(1);
    const TabelleDocumento tabelle = tabelleDocumento(tipo::proforma);
    Recordset record = sessione_.cn.open("SELECT * FROM Proforma WHERE IDFattura=" + id + " AND AnnoDocumento=" +
                                         sessione_.AnnoRiferimento + " AND NumeroRegistro=" + registro.testo());
    Documento proforma{leggiTestata(record, tabelle), {}, {}};
    proforma.righe = leggiRighe(sessione_.cn, tabelle, proforma.testata.IDDocumento);
    return proforma;
}

// The command stays disabled after a document: one more from the same quotation is made on purpose, by opening the
// screen again.

void frmDocumentoDaProforma::CreaFatturaDaProforma()
{
    emetti(sessione_, *this, registro,
           {.tipoDocumento = tipo::fattura,
            .routine = "Routine: CreaFatturaDaProforma",
            .modulo = "Modulo: frmFatturaDaProforrma",
            .titolo = "Emissione Fattura da Preventivo di Spesa",
            .emesso = " E' stata emessa la fattura n. ",
            .domanda = "Visualizzare la fattura per l'eventuale modifica dei prezzi?",
            .deriva = [this](const NuovoDocumento& nuovo) { return fatturaDaProforma(proformaScelta(), nuovo); },
            .collega = nullptr,
            .emessoOra = [this] { cmdShow.setEnabled(false); }});
}

void frmDocumentoDaProforma::CreaDDTDaProforma()
{
    emetti(sessione_, *this, registro,
           {.tipoDocumento = tipo::ddt,
            .routine = "Routine: CreaDDTDaProforma",
            .modulo = "Modulo: frmDocumentoDaProforrma",
            .titolo = "Emissione DDT da Preventivo di Spesa",
            .emesso = " E' stato emesso il DDT n. ",
            .domanda = "Visualizzare il documento per l'eventuale modifica?",
            .deriva = [this](const NuovoDocumento& nuovo) { return ddtDaProforma(proformaScelta(), nuovo); },
            .collega = nullptr,
            .emessoOra = [this] { cmdShow.setEnabled(false); }});
}

}  // namespace bravona
