#include "duedates/GrigliaScadenze.h"

#include <algorithm>

#include "masterdata/modValidazioneCampi_Caratteri.h"
#include "platform/text/Text.h"
#include "platform/values/Numeri.h"
#include "platform/windowing/Desktop.h"

namespace bravona {

namespace {

constexpr int colonnaPagata = 0;
constexpr int colonnaScadenza = 1;
constexpr int colonnaAvere = 2;
constexpr int colonnaDare = 3;
constexpr int colonnaSaldo = 4;
constexpr int colonnaDataPagamento = 5;
constexpr int ultimaCasella = 6;
constexpr int colonnaID = 11;
constexpr char32_t invio = 13;

bool colonnaDiDate(int colonna)
{
    return colonna == colonnaScadenza || colonna == colonnaDataPagamento;
}
// Sixteen digits and more are no amount.
bool importoPossibile(const std::string& testo)
{
    try {
        static_cast<void>(toCurrency(testo));
        return true;
    } catch (const Errore&) {
        return false;
    }
}

bool colonnaDiImporti(int colonna)
{
    return colonna >= colonnaAvere && colonna <= colonnaSaldo;
}

char32_t filtroDi(int colonna, char32_t tasto)
{
    if (colonnaDiDate(colonna))
        return ValidaData(tasto);
    if (colonnaDiImporti(colonna))
        return ValidaImporto(tasto);
    return tasto;
}

}  // namespace

GrigliaScadenze::GrigliaScadenze(const Clock& orologio) : orologio_(orologio)
{
    addPart("Griglia", Griglia);
    for (int colonna = colonnaAvere; colonna <= ultimaCasella; ++colonna)
        addPart("casella", casellaDi(colonna), colonna);
    addPart("DTPicker1", DTPicker1);
    addPart("Command1", Command1);
    addPart("Command2", Command2);
    disposizione_ =
        layout::column({layout::grow(layout::of(Griglia)), layout::row({layout::of(Command1), layout::of(Command2)})});

    Griglia.onKeyPress = [this](char32_t& tasto) { tastoGriglia(tasto); };
    Griglia.onClick = [this] { clicGriglia(); };
    Griglia.onDblClick = [this] { apriCella({}); };
    for (int colonna = colonnaAvere; colonna <= ultimaCasella; ++colonna) {
        TextBox& box = casellaDi(colonna);
        box.setVisible(false);
        box.selectOnFocus = false;
        if (colonnaDiImporti(colonna))
            box.align = Align::right;
        box.numeric = colonnaDiImporti(colonna);
        box.onKeyPress = [this, colonna](char32_t& tasto) { tastoCasella(colonna, tasto); };
        box.onKeyDown = [this, colonna](KeyEvent& evento) { spostaCasella(colonna, evento); };
        box.onChange = [this, colonna] { cambioCasella(colonna); };
        box.onLostFocus = [this, colonna] { lasciaCasella(colonna); };
    }
    casellaDi(colonnaSaldo).setLocked(true);
    DTPicker1.setVisible(false);
    DTPicker1.onChange = [this] { cambioData(); };
    DTPicker1.onRefused = [this] { dataNonValida(); };
    DTPicker1.onLostFocus = [this] { lasciaData(); };
    DTPicker1.onKeyDown = [this](KeyEvent& evento) {
        if (evento.key == Key::enter || evento.key == Key::escape) {
            if (evento.key == Key::escape)
                DTPicker1.setDate(DTPicker1.date());  // what was typed and is no date yet is forgotten
            evento.drop();
            Griglia.setFocus();
        }
    };
    Command1.onClick = [this] { aggiungi(); };
    Command2.onClick = [this] { elimina(); };
}

void GrigliaScadenze::CalcolaSaldo(int riga)
{
    const auto importo = [this, riga](int colonna) {
        const std::string testo = Griglia.text(riga, colonna);
        if (!isNumeric(testo))
            return Currency{};
        const std::string riscritto = FormattaImporto(testo);
        Griglia.setText(riga, colonna, riscritto);
        return toCurrency(riscritto);
    };
    const Currency dare = importo(colonnaDare);
    const Currency avere = importo(colonnaAvere);
    Griglia.setText(riga, colonnaSaldo, FormattaImporto(avere - dare));
    if (importiCambiati)
        importiCambiati();
}

Value GrigliaScadenze::TextMatrix(int riga, int colonna) const
{
    if (colonna == colonnaPagata && riga != 0)
        return Griglia.picture(riga, colonna) != FlexGrid::Picture::unpaid;
    const std::string& testo = Griglia.text(riga, colonna);
    return testo.empty() ? Value() : Value(testo);
}

void GrigliaScadenze::setTextMatrix(int riga, int colonna, const Value& valore)
{
    if (colonna == colonnaPagata && riga != 0) {
        const bool pagata = !valore.text().empty() && valore.toBool();
        Griglia.setPicture(riga, colonna, pagata ? FlexGrid::Picture::paid : FlexGrid::Picture::unpaid);
        Griglia.setText(riga, colonna, {});
        return;
    }
    Griglia.setText(riga, colonna, valore.text());
}

void GrigliaScadenze::setRows(int righe)
{
    chiudiEditor();
    Griglia.setRows(righe);
    if (Griglia.cols() == 0)
        return;
    for (int riga = 1; riga < righe; ++riga) {
        if (Griglia.picture(riga, colonnaPagata) == FlexGrid::Picture::none) {
            Griglia.setPicture(riga, colonnaPagata, FlexGrid::Picture::unpaid);
        }
    }
    if (importiCambiati)
        importiCambiati();
}

void GrigliaScadenze::setCols(int colonne)
{
    Griglia.setCols(colonne);
}

void GrigliaScadenze::setLocked(bool bloccata)
{
    bloccata_ = bloccata;
    Griglia.setLocked(bloccata);
    if (bloccata)
        chiudiEditor();
    Command1.setEnabled(!bloccata);
    Command2.setEnabled(!bloccata);
}

void GrigliaScadenze::AddItem(std::vector<FlexGrid::NewRow> linee)
{
    Griglia.append(std::move(linee));
    if (importiCambiati)
        importiCambiati();
}

void GrigliaScadenze::chiudiEditor()
{
    apertura_ = true;
    for (TextBox& box : casella)
        box.setVisible(false);
    DTPicker1.setDate(DTPicker1.date());  // a date half typed is none
    DTPicker1.setVisible(false);
    apertura_ = false;
}

void GrigliaScadenze::nascondi(int colonna)
{
    if (colonna == colonnaScadenza)
        DTPicker1.setVisible(false);
    else if (colonna >= colonnaAvere && colonna <= ultimaCasella)
        casellaDi(colonna).setVisible(false);
}

void GrigliaScadenze::apriCella(const std::string& testo)
{
    const int riga = Griglia.row();
    const int colonna = Griglia.col();
    if (colonna == colonnaPagata)
        return;
    if (bloccata_) {
        nascondi(colonna);
        return;
    }
    if (colonna > ultimaCasella || colonna == colonnaSaldo) {
        form()->desktop().inform(Griglia.text(0, colonna) + " :\n" + Griglia.text(riga, colonna),
                                 "Campo Non modificabile");
        Griglia.setFocus();
        return;
    }
    if (riga == 0)
        return;

    if (colonna == colonnaScadenza) {
        if (Griglia.text(riga, colonna).empty())
            scriviCella(riga, colonna, orologio_.today().text());
        apertura_ = true;
        Griglia.placeOver(DTPicker1, riga, colonna);
        DTPicker1.tag = std::to_string(riga);
        DTPicker1.setDate(Date::parse(Griglia.text(riga, colonna)).value_or(orologio_.today()));
        apertura_ = false;
        DTPicker1.setVisible(true);
        DTPicker1.setFocus();
        if (!testo.empty())
            DTPicker1.startTyping(testo);
        return;
    }
    TextBox& box = casellaDi(colonna);
    apertura_ = true;
    Griglia.placeOver(box, riga, colonna);
    box.tag = std::to_string(riga);
    primaDellaModifica_ = Griglia.text(riga, colonna);
    box.setText(primaDellaModifica_);
    apertura_ = false;
    box.setVisible(true);
    box.setFocus();
    if (!testo.empty() && !box.locked()) {
        box.setText(testo);
        box.select(length(testo), 0);
    } else {
        box.select(0, length(box.text()));
    }
}

void GrigliaScadenze::tastoGriglia(char32_t& tasto)
{
    const char32_t premuto = tasto;
    tasto = 0;
    if (bloccata_)
        return;
    if (premuto == invio || premuto == U' ') {
        clicGriglia();
        apriCella({});
        return;
    }
    if (premuto < U' ')
        return;
    const char32_t ammesso = filtroDi(Griglia.col(), premuto);
    if (ammesso != 0)
        apriCella(fromCodePoints(std::u32string(1, ammesso)));
}

void GrigliaScadenze::clicGriglia()
{
    if (bloccata_ || Griglia.row() == 0 || Griglia.col() != colonnaPagata)
        return;
    const int riga = Griglia.row();
    const bool pagata = Griglia.picture(riga, colonnaPagata) != FlexGrid::Picture::unpaid;
    Griglia.setPicture(riga, colonnaPagata, pagata ? FlexGrid::Picture::unpaid : FlexGrid::Picture::paid);
    if (CambioCella)
        CambioCella(riga, colonnaPagata);
}

void GrigliaScadenze::tastoCasella(int colonna, char32_t& tasto)
{
    tasto = bloccata_ ? 0 : filtroDi(colonna, tasto);
}

void GrigliaScadenze::dataNonValida()
{
    form()->desktop().inform("Non è una data valida", "Scadenza");
}

// By hand: only what becomes another text is a change of the plan.
void GrigliaScadenze::scriviCella(int riga, int colonna, std::string testo)
{
    if (Griglia.text(riga, colonna) == testo)
        return;
    Griglia.setText(riga, colonna, std::move(testo));
    Modificato = true;
}

// Enter leaves the editor; a text that is no date goes with it. The ledger tells it whichever way the cell is left.
void GrigliaScadenze::confermaCasella(int colonna)
{
    TextBox& box = casellaDi(colonna);
    const bool dataSbagliata = colonnaDiDate(colonna) && !box.text().empty() && !isDate(box.text());
    if (dataSbagliata && !diScadenzario)
        dataNonValida();
    Griglia.setFocus();
    if (dataSbagliata && !diScadenzario) {
        box.setText({});
    }
}

void GrigliaScadenze::spostaCasella(int colonna, KeyEvent& evento)
{
    const TextBox& box = casellaDi(colonna);
    int riga = Griglia.row();
    int nuova = colonna;
    switch (evento.key) {
    case Key::enter:
        evento.drop();
        confermaCasella(colonna);
        return;
    case Key::escape:  // leaves the cell, not the document
        evento.drop();
        Griglia.setFocus();
        return;
    case Key::down:
        if (riga + 1 >= Griglia.rows())
            return;
        ++riga;
        break;
    case Key::up:
        if (riga <= 1)
            return;
        --riga;
        break;
    case Key::right:
        if (box.selLength() > 0 || box.selStart() < length(box.text()) || colonna + 1 >= Griglia.cols())
            return;
        ++nuova;
        break;
    case Key::left:
        if (box.selStart() > 0 || colonna - 1 <= colonnaPagata)
            return;
        --nuova;
        break;
    default:
        return;
    }
    evento.drop();
    Griglia.setFocus();
    Griglia.setCurrent(riga, nuova);
    apriCella({});
}

// A text without a digit counts as 0; any other that is no amount is told, and the cell keeps what it held.
void GrigliaScadenze::concludiImporto(int riga, int colonna)
{
    const std::string& testo = Griglia.text(riga, colonna);
    if (testo.empty() || isNumeric(testo))
        return;
    const bool nessunaCifra = testo.find_first_of("0123456789") == std::string::npos;
    if (!nessunaCifra)
        form()->desktop().inform("Valore non valido!", "Scadenza");
    scriviCella(riga, colonna, nessunaCifra ? FormattaImporto("0") : primaDellaModifica_);
    CalcolaSaldo(riga);
}

// The box goes back to what the cell holds.
void GrigliaScadenze::rifiutaImporto(int riga, int colonna)
{
    form()->desktop().inform("Valore non valido!", "Scadenza");
    TextBox& box = casellaDi(colonna);
    apertura_ = true;
    box.setText(Griglia.text(riga, colonna));
    apertura_ = false;
    box.select(0, length(box.text()));
}

void GrigliaScadenze::cambioCasella(int colonna)
{
    if (apertura_)
        return;
    const TextBox& box = casellaDi(colonna);
    const int riga = static_cast<int>(leadingNumber(box.tag));
    if (riga < 1 || riga >= Griglia.rows())
        return;
    // What is half typed stands as it is until it is a date or an amount.
    std::string testo = box.text();
    if (colonnaDiDate(colonna)) {
        if (isDate(testo))
            testo = toDate(testo).text();
    } else if (colonnaDiImporti(colonna)) {
        if (isNumeric(testo)) {
            if (!importoPossibile(testo)) {
                rifiutaImporto(riga, colonna);
                return;
            }
            testo = FormattaImporto(testo);
        }
    }
    scriviCella(riga, colonna, std::move(testo));
    CalcolaSaldo(riga);
}

void GrigliaScadenze::lasciaCasella(int colonna)
{
    TextBox& box = casellaDi(colonna);
    if (!box.visible())
        return;
    const int riga = static_cast<int>(leadingNumber(box.tag));
    if (riga < 1 || riga >= Griglia.rows())
        return;
    const bool nessunaData = colonna == colonnaDataPagamento && !isDate(box.text());
    const bool rifiutata = nessunaData && diScadenzario && !box.text().empty();
    if (nessunaData) {
        box.setText({});
        scriviCella(riga, colonna, rifiutata ? primaDellaModifica_ : std::string());
    }
    box.setVisible(false);
    if (rifiutata)
        dataNonValida();
    if (colonnaDiImporti(colonna))
        concludiImporto(riga, colonna);
    if (CambioCella)
        CambioCella(riga, colonna);
}

void GrigliaScadenze::cambioData()
{
    if (apertura_)
        return;
    const int riga = static_cast<int>(leadingNumber(DTPicker1.tag));
    if (riga >= 1 && riga < Griglia.rows())
        scriviCella(riga, colonnaScadenza, DTPicker1.date().text());
}

void GrigliaScadenze::lasciaData()
{
    if (!DTPicker1.visible())
        return;
    DTPicker1.setVisible(false);
    const int riga = static_cast<int>(leadingNumber(DTPicker1.tag));
    if (riga >= 1 && riga < Griglia.rows() && CambioCella)
        CambioCella(riga, colonnaScadenza);
}

void GrigliaScadenze::aggiungi()
{
    const int riga = Griglia.rows();
    setRows(riga + 1);
    if (diScadenzario)
        Griglia.setText(riga, colonnaScadenza, orologio_.today().text());
    Griglia.setCurrent(riga, colonnaScadenza);
    if (CambioCella)
        CambioCella(riga, colonnaScadenza);
    Griglia.setFocus();
    Griglia.scrollToBottom();
}

void GrigliaScadenze::elimina()
{
    const int riga = Griglia.row();
    if (diScadenzario && riga == 0)
        return;
    MessageBox domanda;
    domanda.title = "Elimina Scadenza";
    domanda.text = "Elimino la scadenza del " + Griglia.text(riga, colonnaScadenza) + " ?";
    domanda.icon = MsgIcon::question;
    domanda.buttons = MsgButtons::okCancel;
    domanda.lastIsDefault = true;
    if (form()->desktop().messageBox(domanda) != MsgAnswer::ok) {
        Griglia.setFocus();
        return;
    }
    if (Griglia.rows() < 3 && !diScadenzario) {
        setRows(1);
    } else {
        // Only the ledger's grid has the column of the record's key: elsewhere the failure reaches the host.
        const std::int32_t id = static_cast<std::int32_t>(leadingNumber(Griglia.text(riga, colonnaID)));
        if (RigaEliminata)
            RigaEliminata(id);
        chiudiEditor();
        Griglia.removeRow(riga);
    }
    Modificato = true;
    if (importiCambiati)
        importiCambiati();
}

}  // namespace bravona
