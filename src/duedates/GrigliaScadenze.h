#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <vector>

#include "duedates/Rate.h"
#include "platform/clock/Clock.h"
#include "platform/values/Value.h"
#include "platform/windowing/Fields.h"
#include "platform/windowing/Grids.h"
#include "platform/windowing/Layout.h"
#include "platform/windowing/Parts.h"

namespace bravona {

namespace colonne {
inline constexpr int pagata = 0;
inline constexpr int scadenza = 1;
inline constexpr int avere = 2;
inline constexpr int dare = 3;
inline constexpr int saldo = 4;
inline constexpr int dataPagamento = 5;
}  // namespace colonne

// The due-date grid: instalments edited in place, a paid mark in the first column, a line added and removed by two
// buttons. It knows no table: its owner fills it and stores it. Columns: 0 paid, 1 due date, 2 "Avere", 3 "Dare", 4
// "Saldo" (computed), 5 date paid, 6 description; higher ones carry data of the owner. Row 0 is the heading row. Errore
// 9 out of range.
class GrigliaScadenze final : public Composite {
public:
    explicit GrigliaScadenze(const Clock& orologio);

    FlexGrid Griglia;
    std::array<TextBox, 5> casella;  // for the columns 2 to 6
    DatePicker DTPicker1;
    Button Command1{"&Aggiungi"};
    Button Command2{"&Elimina"};

    // In the ledger a new line shows today's date at once, a day of payment that is none gives way to the former one,
    // and deleting the only line raises the event as well.
    bool diScadenzario = false;
    // The plan was changed by hand: set by edits and deletions, cleared by the owner alone.
    bool Modificato = false;

    std::function<void(int riga, int colonna)> CambioCella;
    std::function<void(std::int32_t id)> RigaEliminata;
    // Lines or their amounts changed, whoever changed them.
    std::function<void()> importiCambiati;

    // "Avere" less "Dare" of that line, both rewritten as amount text where they are numbers.
    void CalcolaSaldo(int riga);
    // Column 0: whether the line is paid; any other cell: its text, Null when it is empty.
    [[nodiscard]] Value TextMatrix(int riga, int colonna) const;
    void setTextMatrix(int riga, int colonna, const Value& valore);
    [[nodiscard]] int Rows() const { return Griglia.rows(); }
    void setRows(int righe);  // the heading row counts; new lines are unpaid
    [[nodiscard]] int Cols() const { return Griglia.cols(); }
    void setCols(int colonne);
    [[nodiscard]] bool Locked() const { return bloccata_; }
    void setLocked(bool bloccata);
    // Headings and widths of the six columns of a document's plan, no lines.
    void ImpostaColonne();
    // A document's instalments in place of what is there, and back. Reading: Errore 13 for a date or an amount that is
    // none.
    void mostra(std::span<const Rata> rate);
    [[nodiscard]] std::vector<Rata> rate() const;
    // Lines behind the last one.
    void AddItem(std::vector<FlexGrid::NewRow> linee);
    // Closes an editor that is open, without its events.
    void chiudiEditor();

    [[nodiscard]] Control& mainPart() override { return Griglia; }
    [[nodiscard]] const Layout& layout() const override { return disposizione_; }

private:
    void apriCella(const std::string& testo);
    void tastoGriglia(char32_t& tasto);
    void clicGriglia();
    void tastoCasella(int colonna, char32_t& tasto);
    void confermaCasella(int colonna);
    void spostaCasella(int colonna, KeyEvent& evento);
    void cambioCasella(int colonna);
    void rifiutaImporto(int riga, int colonna);
    void lasciaCasella(int colonna);
    void concludiImporto(int riga, int colonna);
    void scriviCella(int riga, int colonna, std::string testo);
    void dataNonValida();
    void cambioData();
    void lasciaData();
    void aggiungi();
    void elimina();
    void nascondi(int colonna);
    [[nodiscard]] TextBox& casellaDi(int colonna) { return casella[static_cast<std::size_t>(colonna - 2)]; }

    const Clock& orologio_;
    Layout disposizione_;
    bool bloccata_ = false;
    std::string primaDellaModifica_;  // what the cell held when its box was opened
    bool apertura_ = false;           // an editor takes the cell's text: nothing is written back
};

}  // namespace bravona
