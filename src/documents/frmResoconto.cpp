#include "documents/frmResoconto.h"

#include <utility>
#include <vector>

#include "documents/TipoDocumento.h"
#include "platform/preview/frmAnteprima.h"
#include "platform/text/Text.h"
#include "platform/values/Numeri.h"
#include "printing/RecordsetStampa.h"
#include "printing/arptElencoFatturevb.h"
#include "printing/modElenchi.h"
#include "session/modMain.h"

namespace bravona {

namespace {

constexpr const char* formatoImporto = "#,##0.00";

}  // namespace

frmResoconto::frmResoconto(Sessione& sessione)
    : Form(sessione.desktop(), "frmResoconto", "Resoconto Fatture"),
      filtri(sessione),
      sessione_(sessione)
{
    filtri.cambiato = [this] {
        const clsCursorWait attesa(desktop());
        Recordset fatture = cerca();
        Riempi(fatture);
    };
    lvwDettaglio.setColumns({{.caption = "Numero", .key = "fNumero", .width = 1000, .align = Align::right},
                             {.caption = "Data", .key = "fData", .width = 1200},
                             {.caption = "Cliente", .key = "fCliente", .width = 3600},
                             {.caption = "Mod. Pagamento", .key = "fModalitaPagamento", .width = 2200},
                             {.caption = "Imponibile", .key = "fImporto", .width = 1400, .align = Align::right},
                             {.caption = "IVA", .key = "fIVA", .width = 1400, .align = Align::right}});
    lvwDettaglio.sortable = true;
    lvwDettaglio.lines = 14;
    lvwDettaglio.setAccessibleName("Fatture");
    lblTotaleImportoEuro.style = lblTotaleIVA.style = lblTotaleDocumenti.style = TextStyle::total;
    lblTotale.style = TextStyle::grand;
    cmdOk.onClick = [this] { filtri.cambiato(); };
    cmdStampa.onClick = [this] { Stampa(); };
    cmdChiudi.onClick = [this] { unload(); };
    disponi();
}

void frmResoconto::disponi()
{
    add(filtri);
    add("lvwDettaglio", lvwDettaglio);
    add("fraTotali", fraTotali);
    add("lblTotaleDocumenti", lblTotaleDocumenti);
    add("lblTotaleImportoEuro", lblTotaleImportoEuro);
    add("lblTotaleIVA", lblTotaleIVA);
    add("lblTotale", lblTotale);
    add("cmdOk", cmdOk);
    add("cmdStampa", cmdStampa);
    add("cmdChiudi", cmdChiudi);
    using namespace layout;
    setLayout(column({filtri.layout(), grow(of(lvwDettaglio)),
                      frame(fraTotali, row({form({line("Documenti", of(lblTotaleDocumenti))}), stretch(),
                                            form({line("Imponibile €", of(lblTotaleImportoEuro))}), stretch(),
                                            form({line("IVA €", of(lblTotaleIVA))}), stretch(),
                                            form({line("Totale €", of(lblTotale))})})),
                      rowEnd({of(cmdOk), of(cmdStampa), of(cmdChiudi)})}));
    setDefaultButton(&cmdOk);
    setCancelButton(&cmdChiudi);
}

void frmResoconto::onLoad()
{
    CentraFinestra(*this, false);
    setCaption("Resoconto fatture - Anno " + sessione_.AnnoRiferimento);
    filtri.carica("SELECT IDcliente,Cliente,Tipo FROM Clienti WHERE Tipo = \"C\" Order By Cliente ", false);
    filtri.cambiato();
}

Recordset frmResoconto::cerca()
{
    return sessione_.cn.open(
        "SELECT Fatture.RiferimentoBolla, Fatture.TipoDocumento, Fatture.IDfattura, Fatture.NumeroDocumento, "
        "Fatture.TotaleIvaEsclusa, Fatture.ImportoTotaleIva, Fatture.ModalitaPagamento,Fatture.IDCliente,"
        "Fatture.AnnoDocumento, Fatture.DataDocumento,Format(Fatture.DataDocumento,'dd/mm/yyyy') AS DataF, "
        "Fatture.TotaleDocumento, Clienti.Cliente, Clienti.ClienteSecondaRiga FROM Fatture INNER JOIN Clienti ON "
        "Fatture.IDcliente = Clienti.IDcliente WHERE AnnoDocumento= " +
        sessione_.AnnoRiferimento + filtri.diRegistro() + filtri.diPeriodo() + filtri.diCliente() + filtri.diTipo() +
        " ORDER BY NumeroDocumento");
}

void frmResoconto::Riempi(Recordset& fatture)
{
    lvwDettaglio.clear();
    MostraTotali(0, {}, {});
    if (fatture.recordCount() == 0) {
        ListRow riga;
        riga.key = "null";
        riga.text = "Nessun documento...";
        riga.sub = {{" ", {}}, {" ", {}}};
        lvwDettaglio.add(std::move(riga));
        return;
    }
    Currency imponibile;
    Currency iva;
    std::vector<ListRow> righe;
    righe.reserve(fatture.recordCount());
    for (; !fatture.eof(); fatture.moveNext()) {
        const bool aCredito = fatture["TipoDocumento"].longOr(0) == tipo::notaCredito;
        const auto importo = [&](const char* colonna, Currency& somma) {
            const Currency valore = fatture[colonna].currencyOr({});
            somma = aCredito ? somma - valore : somma + valore;
            return SubItem{(aCredito ? "- " : "") + format(valore, formatoImporto), {}};
        };
        ListRow riga;
        riga.key = fatture["RiferimentoBolla"].text() + "x" + fatture["IDfattura"].text();
        riga.text = fatture["NumeroDocumento"].text();
        riga.sub = {{fatture["DataF"].text(), {}},
                    {fatture["Cliente"].text(), {}},
                    {fatture["ModalitaPagamento"].text(), {}},
                    importo("TotaleIvaEsclusa", imponibile),
                    importo("ImportoTotaleIva", iva)};
        righe.push_back(std::move(riga));
    }
    lvwDettaglio.append(std::move(righe));
    MostraTotali(fatture.recordCount(), imponibile, iva);
}

void frmResoconto::MostraTotali(std::size_t documenti, Currency imponibile, Currency iva)
{
    totale_ = imponibile + iva;
    lblTotaleDocumenti.setCaption(std::to_string(documenti));
    lblTotaleImportoEuro.setCaption(format(imponibile, formatoImporto));
    lblTotaleIVA.setCaption(format(iva, formatoImporto));
    lblTotale.setCaption(format(totale_, formatoImporto));
}

// The rows of the print show every total as it is, credit notes too; its footer has the totals of the screen.
void frmResoconto::Stampa()
{
    const clsCursorWait attesa(desktop());
    Recordset fatture = cerca();
    Riempi(fatture);
    if (fatture.recordCount() == 0) {
        desktop().inform("Non esistono dati da stampare!", "Resoconto");
        return;
    }
    Report report = arptElencoFatturevb();
    ReportSection& piede = report["F"];
    piede["txtTotaleImp"].caption = lblTotaleImportoEuro.caption();
    piede["txtTotaleIVA"].caption = lblTotaleIVA.caption();
    piede["txtTotale"].caption = lblTotale.caption();
    piede["lblTotaleLire"].caption = "(L. " + format(totale_.toDouble() * lirePerEuro, "#,###,###,###") + ")";
    piede["lblNumeroDocumenti"].caption = "Numero Documenti: " + std::to_string(fatture.recordCount());
    const std::string periodo = replaceAll(filtri.cmbPeriodo.text(), "Intero", "");
    report["H"]["lblTitolo"].caption = "ELENCO FATTURE " + periodo + " " + sessione_.AnnoRiferimento;
    MostraElenco(sessione_, std::move(report), std::move(fatture),
                 nomeFile({"Elenco fatture", filtri.cmbPeriodo.text(), sessione_.AnnoRiferimento}));
}

}  // namespace bravona
