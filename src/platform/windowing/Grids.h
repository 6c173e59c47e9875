#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "platform/store/Recordset.h"
#include "platform/values/Errore.h"
#include "platform/windowing/Control.h"

namespace bravona {

// A grid of cells with a current one. Row 0 is the heading row. Editors (text boxes, a date picker) are laid over its
// cells by their owner. Rows and columns count from 0, Errore 9 out of range.
class FlexGrid final : public Control {
public:
    enum class Picture { none, paid, unpaid };
    FlexGrid() : Control(ControlKind::flexGrid) {}

    [[nodiscard]] int rows() const { return static_cast<int>(rows_.size()); }  // the heading row counts
    [[nodiscard]] int cols() const { return static_cast<int>(cols_.size()); }
    void setRows(int rows);
    void setCols(int cols);
    void insertRow(int at);
    void removeRow(int row);  // Errore 30010 for the heading row

    [[nodiscard]] const std::string& text(int row, int col) const;
    void setText(int row, int col, std::string text);
    [[nodiscard]] Picture picture(int row, int col) const;
    void setPicture(int row, int col, Picture picture);
    [[nodiscard]] std::optional<Colour> rowColour(int row) const;
    void setRowColour(int row, std::optional<Colour> colour);
    // Beside the mark of a row, for what its colour says: drawn, read aloud, no text of a cell.
    struct Sign {
        std::string sign;     // a character; empty: none
        std::string meaning;  // "scaduta"
    };
    [[nodiscard]] const Sign& rowSign(int row) const;
    void setRowSign(int row, Sign sign);
    // Rows behind the last, with one event for all: their texts from the first column on, the picture of column 0.
    struct NewRow {
        std::vector<std::string> texts;
        Picture picture = Picture::none;
        std::optional<Colour> colour;
        Sign sign;
    };
    void append(std::vector<NewRow> rows);

    [[nodiscard]] int colWidth(int col) const;  // twips; 0 hides the column; -1 the default
    void setColWidth(int col, int twips);
    [[nodiscard]] int colAlignment(int col) const;  // 1 left, 4 centre, 7 right
    void setColAlignment(int col, int alignment);
    int rowHeight = 350;  // twips

    [[nodiscard]] int row() const { return row_; }
    [[nodiscard]] int col() const { return col_; }
    void setCurrent(int row, int col);  // by code, no event
    // Nothing in it can be changed; it looks so. Its owner sees to the rest.
    [[nodiscard]] bool locked() const { return locked_; }
    void setLocked(bool locked);
    void scrollToBottom();

    [[nodiscard]] std::string shownText() const override
    {
        return rows() > 0 && cols() > 0 ? text(row_, col_) : std::string();
    }
    [[nodiscard]] bool focusable() const override { return true; }

    // Editors: an overlay stands over one cell while it is visible.
    void placeOver(Control& editor, int row, int col);
    struct Overlay {
        Control* editor = nullptr;
        int row = 0;
        int col = 0;
    };
    [[nodiscard]] const std::vector<Overlay>& overlays() const { return overlays_; }

    // What the hand did: goes to a cell (arrow keys, or a click, which raises `onClick`).
    void userMove(int row, int col);
    void userClick(int row, int col);
    void userDblClick(int row, int col);

private:
    struct Cell {
        std::string text;
        Picture picture = Picture::none;
    };
    struct Row {
        std::vector<Cell> cells;
        std::optional<Colour> colour;
        Sign sign;
    };
    struct Col {
        int width = -1;
        int alignment = 1;
    };
    void check(int row, int col) const;
    std::vector<Row> rows_;
    std::vector<Col> cols_;
    int row_ = 0;
    int col_ = 0;
    bool locked_ = false;
    std::vector<Overlay> overlays_;
};

struct DataColumn {
    std::string field;    // of the bound set; empty: by position
    std::string caption;  // empty: the field's name
    int width = 1440;     // twips; 0 hides the column
    Align align = Align::left;
    std::string pattern;  // "#,##0.00"
    bool locked = false;  // no typing
    bool button = false;  // a button in its cells
    bool visible = true;
};

// An editable grid bound to a record set. The current row is shared with the set. A row is committed (sent, or kept in
// a batch set) when the person leaves it; the row after the last one is the new-row line. What the store or the
// column's type refuses is shown (the box for a value that does not fit, or the platform's report), and the cell kept
// as typed.
class DataGrid final : public Control {
public:
    DataGrid() : Control(ControlKind::dataGrid) {}
    void bind(Recordset* set);  // nullptr unbinds: an edit under way is committed first
    [[nodiscard]] Recordset* recordset() const { return set_; }
    void setColumns(std::vector<DataColumn> columns);
    [[nodiscard]] const std::vector<DataColumn>& columns() const { return columns_; }

    [[nodiscard]] std::string caption(std::size_t column) const;

    [[nodiscard]] std::size_t dataRows() const;   // rows of the set, the one being added as well
    [[nodiscard]] std::size_t shownRows() const;  // with the new-row line
    [[nodiscard]] std::string cellText(std::size_t row, std::size_t column) const;
    [[nodiscard]] std::size_t row() const { return row_; }
    [[nodiscard]] std::size_t col() const { return col_; }
    [[nodiscard]] bool editing() const { return editing_; }
    [[nodiscard]] const std::string& editText() const { return editText_; }
    [[nodiscard]] bool editsWhole() const { return editsWhole_; }    // the edit began with its text selected
    [[nodiscard]] bool rowSelected() const { return rowSelected_; }  // the current row, as a whole
    [[nodiscard]] bool shows(std::size_t column) const;              // the column can be seen

    // By code, into the current row.
    void setCellValue(std::size_t column, const Value& value);
    // Sends or keeps the current row; false when it was refused (the box was shown and the cell kept).
    bool commitRow();

    [[nodiscard]] std::string shownText() const override { return {}; }
    [[nodiscard]] bool focusable() const override { return true; }

    // What the hand did. Each answers false when the move was refused and the current cell kept.
    bool userMove(std::size_t row, std::size_t column);
    // Typing on a cell replaces its text; locked and hidden columns refuse. `whole`: the editor opens with its text
    // selected.
    bool userBeginEdit(const std::string& text, bool whole = false);
    // Opens the editor on what the cell holds.
    bool userEditCell();
    void userEditText(std::string text);
    bool userEndEdit(
        bool accept);   // Enter or leaving accepts, Escape gives the old text back; the cell stays the current one
    bool userEscape();  // gives the old text back, or, with no edit under way, forgets the row's unsent changes
    // The row as a whole, for Delete; moving or typing ends it.
    bool userSelectRow(std::size_t row);
    bool userDeleteRow(std::size_t row);
    // A key on the grid, or in its editor with the caret at either end of the text and nothing selected: arrows, Home
    // and End move, Enter ends an edit, presses the cell's button or opens the editor, as F2 does; Space presses the
    // button, with Shift it selects the row; Delete and Backspace empty the cell, Delete on a selected row, or, while
    // no cell is typed into, with Ctrl, deletes it. False for keys that belong to the editor or to nobody.
    bool userKey(const KeyEvent& event, bool atStart, bool atEnd);
    // Tab goes from cell to cell, and from the last one of a row with unsent changes on to the next row. False: it
    // leaves the grid.
    bool userTab(bool backwards);
    void userButton(std::size_t row, std::size_t column);
    bool userLeave();  // the focus leaves the grid: ends the edit and commits the row (called by the core)
    [[nodiscard]] bool canEdit(std::size_t row, std::size_t column) const;

    bool allowAddNew = true;
    bool allowDelete = true;
    std::function<void()> onBeforeUpdate;                    // the current row is about to be committed
    std::function<bool()> onBeforeDelete;                    // the same to be deleted; false keeps it
    std::function<void(std::size_t)> onButtonClick;          // column
    std::function<void(std::size_t, std::size_t)> onChange;  // row, column

private:
    Recordset* set_ = nullptr;
    std::vector<DataColumn> columns_;
    std::size_t row_ = 0;
    std::size_t col_ = 0;
    std::size_t setColumn(std::size_t column) const;
    void toShownColumn();
    bool userStep(int rows, int columns);
    bool userEdge(bool last, bool ofRows);
    bool changed() const;
    bool refused(const Errore& error);
    bool editing_ = false;
    bool adding_ = false;  // the new-row line has become a row not yet sent
    std::string editText_;
    bool editsWhole_ = false;
    bool rowSelected_ = false;
};

}  // namespace bravona
