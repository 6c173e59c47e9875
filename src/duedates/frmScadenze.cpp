#include "duedates/frmScadenze.h"

#include <algorithm>
#include <array>
#include <utility>

#include "duedates/ApreFattura.h"
#include "masterdata/modValidazioneCampi_Caratteri.h"
#include "platform/preview/frmAnteprima.h"
#include "platform/text/Text.h"
#include "platform/values/Numeri.h"
#include "printing/arptScadenzario.h"
#include "printing/modElenchi.h"
#include "session/modMain.h"

namespace bravona {

namespace {

// Digits that do not fit count as none.
std::int16_t giorniDi(const std::string& testo)
{
    try {
        return isNumeric(testo) ? toInt16(testo) : std::int16_t{0};
    } catch (const Errore&) {
        return 0;
    }
}

std::string giorniImpostati(const Settings& settings)
{
    try {
        return std::to_string(toInt16(leadingWholeNumberText(settings.get("Impostazioni", "AllarmeGG"))));
    } catch (const Errore&) {
        return "0";
    }
}

}  // namespace

frmScadenze::frmScadenze(Sessione& sessione)
    : Form(sessione.desktop(), "frmScadenze", "Scadenze fatture"),
      filtri(sessione),
      GrigliaScadenze1(sessione.clock()),
      sessione_(sessione)
{
    const auto aggiorna = [this] {
        if (!carica_) {
            AggiornaScadenze();
        }
    };
    filtri.cambiato = aggiorna;
    for (CheckBox* casella : {&chkSaltato, &chkNonSaltato, &chkNonScadute, &chkinscadenza}) {
        casella->onClick = aggiorna;
    }
    Text1.align = Align::right;
    Text1.setAccessibleName("Giorni di preavviso");
    Text1.onChange = [this] { giorni_ = giorniDi(Text1.text()); };
    Text1.onKeyPress = [](char32_t& tasto) { tasto = ValidaCifre(tasto); };
    Text1.onKeyDown = [this](KeyEvent& evento) {
        if (evento.key == Key::enter) {
            evento.drop();
            AggiornaScadenze();
            Text1.selectAll();
        }
    };
    GrigliaScadenze1.diScadenzario = true;
    GrigliaScadenze1.Command1.setCaption("Aggi&ungi");  // the letters of this window
    GrigliaScadenze1.CambioCella = [this](int riga, int colonna) { cambiaCella(riga, colonna); };
    GrigliaScadenze1.RigaEliminata = [this](std::int32_t id) { eliminata(id); };
    lblTotaleDocumenti.style = TextStyle::total;
    lblTotaleImportoEuro.style = TextStyle::grand;
    Command1.onClick = [this] { AggiornaScadenze(); };
    Command2.onClick = [this] { ApriFattura(); };
    cmdStampa.onClick = [this] { Stampa(); };
    cmdOk.onClick = [this] { unload(); };
    for (const auto& [etichetta, urgenza, testo] : {std::tuple(&lblScadute_, Urgenza::scaduta, "scadute"),
                                                    std::tuple(&lblInScadenza_, Urgenza::inScadenza, "in scadenza"),
                                                    std::tuple(&lblFuture_, Urgenza::futura, "non scadute")}) {
        const AspettoScadenza voce = aspetto(urgenza);
        const std::string segno = voce.segno.sign.empty() ? std::string() : voce.segno.sign + " ";
        etichetta->setCaption("    " + segno + testo);
        etichetta->mark = voce.colore;
    }
    disponi();
}

void frmScadenze::disponi()
{
    add(filtri);
    add("fraScadenze", fraScadenze);
    add("chkSaltato", chkSaltato);
    add("chkNonSaltato", chkNonSaltato);
    add("chkNonScadute", chkNonScadute);
    add("chkinscadenza", chkinscadenza);
    add("Text1", Text1);
    add("lblGiorni", lblGiorni_);
    add("GrigliaScadenze1", GrigliaScadenze1);
    add("lblScadute", lblScadute_);
    add("lblInScadenza", lblInScadenza_);
    add("lblFuture", lblFuture_);
    add("lblTotaleDocumenti", lblTotaleDocumenti);
    add("lblTotaleImportoEuro", lblTotaleImportoEuro);
    add("Command1", Command1);
    add("Command2", Command2);
    add("cmdStampa", cmdStampa);
    add("cmdOk", cmdOk);
    using namespace layout;
    setLayout(column(
        {filtri.layout(),
         frame(fraScadenze, row({of(chkSaltato), of(chkNonSaltato), of(chkNonScadute), of(chkinscadenza), of(Text1),
                                 of(lblGiorni_), stretch()})),
         grow(of(GrigliaScadenze1)),
         row({of(lblScadute_), of(lblInScadenza_), of(lblFuture_), stretch(),
              form({line("Scadenze", of(lblTotaleDocumenti))}), form({line("Totale", of(lblTotaleImportoEuro))})}),
         rowEnd({of(Command1), of(Command2), of(cmdStampa), of(cmdOk)})}));
    setCancelButton(&cmdOk);
}

void frmScadenze::onLoad()
{
    CentraFinestra(*this, false);
    setCaption("Scadenze fatture - Anno " + sessione_.AnnoRiferimento);
    carica_ = true;
    Text1.setText(giorniImpostati(sessione_.settings()));
    giorni_ = giorniDi(Text1.text());
    filtri.carica("SELECT IDcliente,Cliente FROM Clienti Order By Cliente ", true);
    for (CheckBox* casella : {&chkNonSaltato, &chkNonScadute, &chkinscadenza}) {
        casella->setChecked(true);
    }
    impostaColonne();
    carica_ = false;
    AggiornaScadenze();
}

void frmScadenze::impostaColonne()
{
    struct Colonna {
        const char* titolo;
        int larghezza;  // twips
        int allineamento;
    };
    static constexpr std::array<Colonna, colonne::scadenzario - colonne::descrizione> altre{
        {{"Descrizione", 1300, 1},
         {"N° Fattura", 900, 7},
         {"Data Documento", 1100, 7},
         {"Cliente", 1300, 1},
         {"Pagamento", 1300, 1},
         {"ID", 0, 7},
         {"", 0, 7}}};
    GrigliaScadenze1.ImpostaColonne();
    GrigliaScadenze1.setCols(colonne::scadenzario);
    FlexGrid& griglia = GrigliaScadenze1.Griglia;
    for (int i = 0; i < static_cast<int>(altre.size()); ++i) {
        const Colonna& colonna = altre[static_cast<std::size_t>(i)];
        griglia.setText(0, colonne::descrizione + i, colonna.titolo);
        griglia.setColWidth(colonne::descrizione + i, colonna.larghezza);
        griglia.setColAlignment(colonne::descrizione + i, colonna.allineamento);
    }
}

// Free instalments belong to no year, customer, register or month.
std::string frmScadenze::CercaScadenze() const
{
    const bool conLibere = filtri.chkFatture.checked() && filtri.diCliente().empty() && filtri.diRegistro().empty() &&
                           filtri.diPeriodo().empty();
    return "SHAPE {SELECT Fatture.RiferimentoBolla, Fatture.NumeroRegistro, Fatture.TipoDocumento, Fatture.IDfattura, "
           "Fatture.NumeroDocumento,Fatture.TotaleIvaEsclusa, Fatture.ImportoTotaleIva, "
           "Fatture.ModalitaPagamento,Fatture.IDCliente, Fatture.IDmodalitaPagamento, Fatture.AnnoDocumento, "
           "Fatture.DataDocumento,Format(Fatture.DataDocumento,'dd/mm/yyyy') AS DataF, Fatture.TotaleDocumento, "
           "Clienti.Cliente, Clienti.ClienteSecondaRiga FROM Fatture INNER JOIN Clienti ON Fatture.IDcliente = "
           "Clienti.IDcliente WHERE AnnoDocumento= " +
           sessione_.AnnoRiferimento + filtri.diTipo() + filtri.diCliente() + filtri.diRegistro() + filtri.diPeriodo() +
           (conLibere ? " OR Fatture.IDFattura = -1" : "") +
           " ORDER BY NumeroDocumento } AS ParentCMD APPEND ({SELECT * From Scadenzario } AS ChildCMD RELATE IDfattura "
           "TO IDDocumento) AS ChildCMD";
}

SceltaScadenze frmScadenze::scelta() const
{
    return {.saldate = chkSaltato.checked(),
            .nonSaldate = chkNonSaltato.checked(),
            .escludiNonScadute = chkNonScadute.checked(),
            .inScadenza = chkinscadenza.checked(),
            .oggi = sessione_.clock().today(),
            .giorni = giorni_};
}

void frmScadenze::AggiornaScadenze()
{
    const clsCursorWait attesa(desktop());
    const FlexGrid& griglia = GrigliaScadenze1.Griglia;
    const std::size_t corrente = griglia.row() > 0 ? static_cast<std::size_t>(griglia.row()) - 1 : voci_.size();
    const std::int32_t id = corrente < voci_.size() ? voci_[corrente].ID : 0;
    const int colonna = griglia.row() > 0 ? griglia.col() : colonne::scadenza;
    GrigliaScadenze1.setRows(1);
    voci_.clear();
    mostraTotali();
    Recordset documenti = sessione_.cn.open(CercaScadenze());
    voci_ = leggiScadenze(documenti, scelta());
    mostra();
    if (!voci_.empty()) {
        const auto stessa = std::find_if(voci_.begin(), voci_.end(), [id](const auto& v) { return v.ID == id; });
        GrigliaScadenze1.Griglia.setCurrent(stessa == voci_.end() ? 1 : static_cast<int>(stessa - voci_.begin()) + 1,
                                            colonna);
    }
}

void frmScadenze::mostra()
{
    const SceltaScadenze scelte = scelta();
    std::vector<FlexGrid::NewRow> linee;
    linee.reserve(voci_.size());
    for (const VoceScadenzario& voce : voci_) {
        AspettoScadenza come = aspetto(scelte.urgenza(voce));
        linee.push_back({voce.testi, voce.Saldata ? FlexGrid::Picture::paid : FlexGrid::Picture::unpaid, come.colore,
                         std::move(come.segno)});
    }
    GrigliaScadenze1.AddItem(std::move(linee));
    mostraTotali();
}

void frmScadenze::mostraTotali()
{
    Currency totale;
    for (const VoceScadenzario& voce : voci_) {
        totale += voce.Avere - voce.Dare;
    }
    lblTotaleDocumenti.setCaption(std::to_string(voci_.size()));
    lblTotaleImportoEuro.setCaption(FormattaImporto(totale));
}

void frmScadenze::mostraUrgenza(int riga)
{
    AspettoScadenza come = aspetto(scelta().urgenza(voce(riga)));
    GrigliaScadenze1.Griglia.setRowColour(riga, come.colore);
    GrigliaScadenze1.Griglia.setRowSign(riga, std::move(come.segno));
}

// What the archive refuses is told by the host, and the line shows again what the archive has.
void frmScadenze::cambiaCella(int riga, int colonna)
{
    if (static_cast<std::size_t>(riga) > voci_.size()) {
        nuovaRata(riga);
    }
    try {
        salvaCella(riga, colonna);
    } catch (const Errore&) {
        if (static_cast<std::size_t>(riga) <= voci_.size()) {
            ripristina(riga);
        }
        throw;
    }
}

void frmScadenze::ripristina(int riga)
{
    const VoceScadenzario& salvata = voce(riga);
    for (int i = colonne::scadenza; i < colonne::scadenzario; ++i) {
        GrigliaScadenze1.Griglia.setText(riga, i, salvata.testi[static_cast<std::size_t>(i)]);
    }
    GrigliaScadenze1.setTextMatrix(riga, colonne::pagata, salvata.Saldata);
}

void frmScadenze::nuovaRata(int riga)
{
    VoceScadenzario nuova;
    nuova.Scadenza = sessione_.clock().today();
    try {
        nuova.ID = creaRataLibera(sessione_.cn, sessione_.AnnoRiferimento, nuova.Scadenza);
    } catch (const Errore&) {
        GrigliaScadenze1.Griglia.removeRow(riga);
        throw;
    }
    nuova.testi.resize(colonne::scadenzario);
    nuova.testi[colonne::scadenza] = nuova.Scadenza.text();
    nuova.testi[colonne::saldo] = FormattaImporto(Currency());
    nuova.testi[colonne::numeroFattura] = "0";
    nuova.testi[colonne::id] = std::to_string(nuova.ID);
    for (const int i : {colonne::saldo, colonne::numeroFattura, colonne::id}) {
        GrigliaScadenze1.Griglia.setText(riga, i, nuova.testi[static_cast<std::size_t>(i)]);
    }
    voci_.push_back(std::move(nuova));
    mostraTotali();
    mostraUrgenza(riga);
}

void frmScadenze::salvaCella(int riga, int colonna)
{
    VoceScadenzario& salvata = voce(riga);
    const Value valore = GrigliaScadenze1.TextMatrix(riga, colonna);
    const bool segno = colonna == colonne::pagata;
    const std::string testo = segno ? (valore.toBool() ? "-1" : "0") : valore.text();
    std::string& precedente = salvata.testi[static_cast<std::size_t>(colonna)];
    // A cell that was only looked at, or refused what was typed, leaves its record alone.
    if (segno ? valore.toBool() == salvata.Saldata : testo == precedente) {
        return;
    }
    const Date oggi = sessione_.clock().today();
    if (!aggiornaScadenza(sessione_.cn, salvata.ID, assegnazione(colonna, testo, oggi))) {
        desktop().inform("La scadenza non è più nell'archivio: l'elenco viene aggiornato.", "Scadenze");
        AggiornaScadenze();
        return;
    }
    if (segno) {
        salvata.Saldata = valore.toBool();
    } else {
        precedente = testo;
    }
    if (colonna == colonne::avere || colonna == colonne::dare) {
        (colonna == colonne::avere ? salvata.Avere : salvata.Dare) = testo.empty() ? Currency() : toCurrency(testo);
        salvata.testi[colonne::saldo] = GrigliaScadenze1.Griglia.text(riga, colonne::saldo);
        mostraTotali();
    } else if (colonna == colonne::scadenza) {
        salvata.Scadenza = testo.empty() ? oggi : toDate(testo);
    }
    mostraUrgenza(riga);
}

void frmScadenze::eliminata(std::int32_t id)
{
    eliminaScadenza(sessione_.cn, id);
    std::erase_if(voci_, [id](const VoceScadenzario& v) { return v.ID == id; });
    mostraTotali();
}

// The failure is told in the words of the archive's screen, which opens invoices the same way.
void frmScadenze::ApriFattura()
{
    const int riga = GrigliaScadenze1.Griglia.row();
    if (riga < 1) {
        desktop().inform("Nessun documento selezionato!", "Archivio documenti");
        return;
    }
    try {
        const auto numeroIn = [this, riga](int colonna) {
            const std::string& testo = GrigliaScadenze1.Griglia.text(riga, colonna);
            return testo.empty() ? 0 : toInt32(testo);
        };
        const std::int32_t numero = numeroIn(colonne::numeroFattura);
        if (numero == 0) {
            desktop().inform("Non è una Fattura", "Archivio documenti");
            return;
        }
        Form& fattura = sessione_.schermate().get("frmModificaFattura");
        dynamic_cast<ApreFattura&>(fattura).ApriFattura(numero, numeroIn(colonne::registro),
                                                        toInt32(sessione_.AnnoRiferimento));
        fattura.showModal();
        if (loaded()) {
            AggiornaScadenze();  // its plan may be another one now
        }
    } catch (const Errore& errore) {
        MostraOperazioneAnnullata(desktop(), errore, true, "Routine: cmdShow",
                                  "Modulo: frmVisualizzaArchivioDocumenti");
    }
}

void frmScadenze::Stampa()
{
    AggiornaScadenze();
    if (voci_.empty()) {
        desktop().inform("Non esistono dati da stampare!", "Elenco fatture");
        return;
    }
    Report report = arptScadenzario();
    ReportSection& testata = report["H"];
    testata["Label14"].caption = filtri.cmbPeriodo.text();
    testata["Label17"].caption = filtri.cmbCliente.text();
    testata["Label19"].caption = filtri.cmbRegistro.text();
    testata["Label37"].caption = lblTotaleDocumenti.caption();
    testata["Label39"].caption = lblTotaleImportoEuro.caption();
    DeclaredSet forma;
    for (const char* nome :
         {"Saldato", "Scadenza", "Avere", "Dare", "Saldo", "Data_Pagamento", "Descrizione", "NumeroDocumento",
          "DataDocumento", "Cliente", "ModalitaPagamento", "ID", "NumeroRegistro"}) {
        forma.columns.push_back({nome});
    }
    Recordset righe = Recordset::declare(forma);
    for (const VoceScadenzario& voce : voci_) {
        righe.addNew();
        righe[0] = voce.Saldata ? "Ö" : "";
        for (std::size_t i = 1; i < voce.testi.size(); ++i) {
            righe[i] = voce.testi[i];
        }
        righe.update();
    }
    righe.moveFirst();
    MostraElenco(sessione_, std::move(report), std::move(righe),
                 nomeFile({"Scadenzario", filtri.cmbPeriodo.text(), sessione_.AnnoRiferimento}));
}

}  // namespace bravona
