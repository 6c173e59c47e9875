#include "masterdata/frmAggiornamentoListino.h"

#include "masterdata/modValidazioneCampi_Caratteri.h"
#include "platform/text/Text.h"
#include "platform/values/Numeri.h"
#include "session/modMain.h"

namespace bravona {

namespace {

constexpr const char* titoloMessaggi = "Aggiornamento listino";
constexpr const char* formatoPrezzo = "###,###,##0.00";
constexpr int perCodice = 1;  // of `cmbFiltro`; 0 is none
constexpr int maggiorazione = 0;

// Digits and control keys, no blank.
void soloCifre(char32_t& tasto)
{
    tasto = tasto == U' ' ? 0 : ValidaCifre(tasto);
}

Currency conIva(Currency prezzo, double aliquota)
{
    return Currency::fromDouble((aliquota / 100 + 1) * prezzo.toDouble());
}

}  // namespace

frmAggiornamentoListino::frmAggiornamentoListino(Sessione& sessione)
    : Form(sessione.desktop(), "frmAggiornamentoListino", "Aggiornamento prezzi listino"),
      sessione_(sessione)
{
    cmbListini.width = 28;
    cmbListini.setAccessibleName("Listino");
    cmbFiltro.width = 16;
    cmbFiltro.onClick = [this] { txtFiltro.setEnabled(cmbFiltro.listIndex() > 0); };
    txtFiltro.setAccessibleName("Testo da cercare");
    txtFiltro.grows = true;
    txtFiltro.setEnabled(false);
    txtPercentuale.align = Align::right;
    txtPercentuale.onKeyPress = soloCifre;
    cmbVariazione.width = 14;
    lvwListino.setColumns({{.caption = "Codice articolo", .key = {}, .width = 1800},
                           {.caption = "Descrizione", .key = {}, .width = 4600},
                           {.caption = "Prezzo", .key = {}, .width = 1500, .align = Align::right},
                           {.caption = "Aliquota IVA", .key = {}, .width = 1300, .align = Align::right},
                           {.caption = "Prezzo (IVA incl.)", .key = {}, .width = 1700, .align = Align::right}});
    lvwListino.checkBoxes = true;
    lvwListino.sortable = true;
    lvwListino.lines = 14;
    lvwListino.setAccessibleName("Articoli del listino");
    creaMenu();
    cmdFiltra.onClick = [this] { CaricaListino(); };
    cmdAggiorna.onClick = [this] { Aggiorna(); };
    cmdAzioni[0].onClick = [this] { unload(); };
    // Enter searches above the list and updates below it.
    for (Control* sopra :
         {static_cast<Control*>(&cmbListini), static_cast<Control*>(&cmbFiltro), static_cast<Control*>(&txtFiltro)}) {
        sopra->onGotFocus = [this] { setDefaultButton(&cmdFiltra); };
    }
    for (Control* sotto : {static_cast<Control*>(&lvwListino), static_cast<Control*>(&cmbVariazione),
                           static_cast<Control*>(&txtPercentuale)}) {
        sotto->onGotFocus = [this] { setDefaultButton(&cmdAggiorna); };
    }

    add("cmbListini", cmbListini);
    add("cmbFiltro", cmbFiltro);
    add("txtFiltro", txtFiltro);
    add("cmdFiltra", cmdFiltra);
    add("lvwListino", lvwListino);
    add("cmbVariazione", cmbVariazione);
    add("txtPercentuale", txtPercentuale);
    add("cmdAggiorna", cmdAggiorna);
    add("cmdAzioni", cmdAzioni);
    using namespace layout;
    setLayout(
        column({form({line("&Listino:", row({of(cmbListini), stretch()})),
                      line("F&iltro", row({of(cmbFiltro), of(txtFiltro), of(cmdFiltra)}))}),
                grow(of(lvwListino)),
                row({form({line("&Variazione", of(cmbVariazione))}), form({line("&Percentuale", of(txtPercentuale))}),
                     of(cmdAggiorna), stretch(), of(cmdAzioni[0])})}));
    setDefaultButton(&cmdFiltra);
    setCancelButton(&cmdAzioni[0]);
}

void frmAggiornamentoListino::creaMenu()
{
    popupMenu = std::make_unique<Menu>();
    popupMenu->add("mnuSeleziona", "&Seleziona Tutti", [this] { spunta(true); });
    popupMenu->add("mnuDeseleziona", "&Deseleziona Tutti", [this] { spunta(false); });
    lvwListino.contextMenu = popupMenu.get();
}

void frmAggiornamentoListino::onLoad()
{
    CentraFinestra(*this, false);
    rileggiListini();
    for (const char* voce : {"(Nessun filtro)", "Codice articolo", "Descrizione"}) {
        cmbFiltro.addItem(voce);
    }
    for (const char* voce : {"maggiorazione", "riduzione"}) {
        cmbVariazione.addItem(voce);
    }
    for (ComboBox* combo : {&cmbListini, &cmbFiltro, &cmbVariazione}) {
        if (!combo->items().empty()) {
            combo->setListIndex(0);
        }
    }
}

std::string frmAggiornamentoListino::subject() const
{
    return titoloMessaggi;
}

void frmAggiornamentoListino::rileggiListini()
{
    const int scelto = cmbListini.listIndex();
    cmbListini.clear();
    Recordset listini = sessione_.cn.open("SELECT Descrizione FROM DescrizioneListini ORDER BY IDListino");
    for (std::int32_t numero = 1; !listini.eof(); listini.moveNext(), ++numero) {
        cmbListini.addItem(std::to_string(numero) + " - " + listini["Descrizione"].text(), numero);
    }
    if (scelto >= 0 && scelto < static_cast<int>(cmbListini.items().size())) {
        cmbListini.setListIndex(scelto);
    }
}

void frmAggiornamentoListino::spunta(bool tutti)
{
    for (std::size_t riga = 0; riga < lvwListino.rowCount(); ++riga) {
        lvwListino.setChecked(riga, tutti);
    }
}

// The text goes in as typed, with the store's wildcards in it.
std::string frmAggiornamentoListino::filtro() const
{
    std::string ordine = " ORDER BY Articoli.DescrizionePrincipale";
    if (cmbFiltro.listIndex() <= 0) {
        return ordine;
    }
    const std::string campo = cmbFiltro.listIndex() == perCodice ? "CodiceMagazzino" : "DescrizionePrincipale";
    return " AND " + campo + " LIKE " + quotedText(txtFiltro.text()) + ordine;
}

void frmAggiornamentoListino::CaricaListino()
{
    std::vector<ListRow> righe;
    {
        const clsCursorWait attesa(desktop());
        lvwListino.clear();
        Recordset prezzi = sessione_.cn.open(
            "SELECT Articoli.IDArticolo, ListiniPrezzi.IDListino, Articoli.DescrizionePrincipale, "
            "ListiniPrezzi.Prezzo, Articoli.CodiceMagazzino, TabellaCodiciIva.AliquotaIva FROM TabellaCodiciIva INNER "
            "JOIN (Articoli INNER JOIN ListiniPrezzi ON Articoli.IDArticolo = ListiniPrezzi.IDarticolo) ON "
            "TabellaCodiciIva.IDCodiceIva = Articoli.IDCodiceIva WHERE ListiniPrezzi.IDListino=" +
            listino() + filtro());
        righe.reserve(prezzi.recordCount());
        for (; !prezzi.eof(); prezzi.moveNext()) {
            const Currency prezzo = prezzi["Prezzo"].currencyOr({});
            const double aliquota = prezzi["AliquotaIva"].doubleOr(0);
            ListRow riga;
            riga.key = "K" + prezzi["IDArticolo"].text();
            riga.text = prezzi["CodiceMagazzino"].text();
            riga.sub = {{prezzi["DescrizionePrincipale"].text(), {}},
                        {format(prezzo, formatoPrezzo), {}},
                        {prezzi["AliquotaIva"].text(), {}},
                        {format(conIva(prezzo, aliquota), formatoPrezzo), {}}};
            righe.push_back(std::move(riga));
        }
        lvwListino.append(std::move(righe));
    }
    if (lvwListino.rowCount() == 0) {
        desktop().inform("Nessun articolo corrisponde alla ricerca!", titoloMessaggi);
        (txtFiltro.enabled() ? static_cast<Control&>(txtFiltro) : cmbListini).setFocus();
        return;
    }
    lvwListino.select(0);
    lvwListino.setFocus();
}

std::vector<std::string> frmAggiornamentoListino::articoliSpuntati() const
{
    std::vector<std::string> articoli;
    for (std::size_t i = 0; i < lvwListino.rowCount(); ++i) {
        if (const ListRow& riga = lvwListino.row(i); riga.checked) {
            articoli.push_back(riga.key.substr(1));
        }
    }
    return articoli;
}

void frmAggiornamentoListino::Aggiorna()
{
    const std::vector<std::string> articoli = articoliSpuntati();
    if (articoli.empty()) {
        desktop().inform("Non è stato indicato alcun articolo al quale aggiornare il prezzo", titoloMessaggi);
        lvwListino.setFocus();
        return;
    }
    const std::string percentuale = trim(txtPercentuale.text());
    if (leadingNumber(percentuale) <= 0) {
        desktop().inform("Attenzione! La percentuale di variazione non è valida.", titoloMessaggi);
        txtPercentuale.setFocus();
        return;
    }
    if (!desktop().ask("Si è sicuri di procedere all'aggiornamento del listino prezzi n." + listino() + "?",
                       titoloMessaggi)) {
        return;
    }
    if (!AggiornaPrezzi(articoli, percentuale)) {
        desktop().critical("Errore durante l'aggiornamento del listino.\nNessun variazione è stata effettuata.",
                           titoloMessaggi);
        return;
    }
    Annuncia(sessione_, "Listino " + listino() + ": " + std::to_string(articoli.size()) + " prezzi aggiornati");
    CaricaListino();
}

bool frmAggiornamentoListino::AggiornaPrezzi(const std::vector<std::string>& articoli, const std::string& percentuale)
{
    const clsCursorWait attesa(desktop());
    const std::string segno = cmbVariazione.listIndex() == maggiorazione ? "+" : "-";
    const std::string inizio =
        "UPDATE ListiniPrezzi SET Prezzo=Prezzo " + segno + "(Prezzo/100) * " + percentuale + " WHERE IDArticolo=";
    const std::string fine = " AND IDlistino=" + listino();
    try {
        Transaction tutti(sessione_.cn);
        for (const std::string& articolo : articoli) {
            std::string istruzione = inizio;
            istruzione.append(articolo).append(fine);
            sessione_.cn.execute(istruzione);
        }
        tutti.commit();
        return true;
    } catch (const Errore&) {
        return false;
    }
}

}  // namespace bravona
