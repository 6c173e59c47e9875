#include <algorithm>

#include "platform/values/Errore.h"
#include "platform/windowing/Grids.h"

namespace bravona {

namespace {

[[noreturn]] void outOfRange()
{
    throw Errore(errori::indiceFuoriIntervallo, "Indice non compreso nell'intervallo");
}

std::size_t at(int position)
{
    return static_cast<std::size_t>(position);
}

}  // namespace

void FlexGrid::check(int row, int col) const
{
    if (row < 0 || row >= rows() || col < 0 || col >= cols()) {
        outOfRange();
    }
}

void FlexGrid::setRows(int rows)
{
    if (rows < 0) {
        outOfRange();
    }
    Row empty;
    empty.cells.resize(cols_.size());
    rows_.resize(at(rows), empty);
    row_ = std::clamp(row_, 0, std::max(0, rows - 1));
    notify(Aspect::items);
}

void FlexGrid::setCols(int cols)
{
    if (cols < 0) {
        outOfRange();
    }
    cols_.resize(at(cols));
    for (Row& row : rows_) {
        row.cells.resize(at(cols));
    }
    col_ = std::clamp(col_, 0, std::max(0, cols - 1));
    notify(Aspect::columns);
}

void FlexGrid::insertRow(int position)
{
    if (position < 0 || position > rows()) {
        outOfRange();
    }
    Row empty;
    empty.cells.resize(cols_.size());
    rows_.insert(rows_.begin() + position, std::move(empty));
    notify(Aspect::items);
}

void FlexGrid::removeRow(int row)
{
    check(row, 0);
    if (row == 0) {
        throw Errore(30010, "La riga di intestazione non può essere eliminata");
    }
    rows_.erase(rows_.begin() + row);
    row_ = std::min(row_, rows() - 1);
    notify(Aspect::items);
}

const std::string& FlexGrid::text(int row, int col) const
{
    check(row, col);
    return rows_[at(row)].cells[at(col)].text;
}

void FlexGrid::setText(int row, int col, std::string text)
{
    check(row, col);
    std::string& cell = rows_[at(row)].cells[at(col)].text;
    if (cell != text) {
        cell = std::move(text);
        notify(Aspect::row, at(row));
    }
}

FlexGrid::Picture FlexGrid::picture(int row, int col) const
{
    check(row, col);
    return rows_[at(row)].cells[at(col)].picture;
}

void FlexGrid::setPicture(int row, int col, Picture picture)
{
    check(row, col);
    rows_[at(row)].cells[at(col)].picture = picture;
    notify(Aspect::row, at(row));
}

std::optional<Colour> FlexGrid::rowColour(int row) const
{
    check(row, 0);
    return rows_[at(row)].colour;
}

void FlexGrid::setRowColour(int row, std::optional<Colour> colour)
{
    check(row, 0);
    rows_[at(row)].colour = colour;
    notify(Aspect::row, at(row));
}

const FlexGrid::Sign& FlexGrid::rowSign(int row) const
{
    check(row, 0);
    return rows_[at(row)].sign;
}

void FlexGrid::setRowSign(int row, Sign sign)
{
    check(row, 0);
    rows_[at(row)].sign = std::move(sign);
    notify(Aspect::row, at(row));
}

void FlexGrid::append(std::vector<NewRow> rows)
{
    rows_.reserve(rows_.size() + rows.size());
    for (NewRow& added : rows) {
        Row& row = rows_.emplace_back();
        row.cells.resize(cols_.size());
        const std::size_t filled = std::min(cols_.size(), added.texts.size());
        for (std::size_t col = 0; col < filled; ++col) {
            row.cells[col].text = std::move(added.texts[col]);
        }
        if (!row.cells.empty()) {
            row.cells.front().picture = added.picture;
        }
        row.colour = added.colour;
        row.sign = std::move(added.sign);
    }
    notify(Aspect::items);
}

int FlexGrid::colWidth(int col) const
{
    if (col < 0 || col >= cols()) {
        outOfRange();
    }
    return cols_[at(col)].width;
}

void FlexGrid::setColWidth(int col, int twips)
{
    if (col < 0 || col >= cols()) {
        outOfRange();
    }
    cols_[at(col)].width = twips;
    notify(Aspect::columns);
}

int FlexGrid::colAlignment(int col) const
{
    if (col < 0 || col >= cols()) {
        outOfRange();
    }
    return cols_[at(col)].alignment;
}

void FlexGrid::setColAlignment(int col, int alignment)
{
    if (col < 0 || col >= cols()) {
        outOfRange();
    }
    cols_[at(col)].alignment = alignment;
    notify(Aspect::columns);
}

void FlexGrid::setCurrent(int row, int col)
{
    check(row, col);
    row_ = row;
    col_ = col;
    notify(Aspect::selection, at(row));
}

void FlexGrid::setLocked(bool locked)
{
    if (locked_ != locked) {
        locked_ = locked;
        notify(Aspect::value);
    }
}

void FlexGrid::scrollToBottom()
{
    notify(Aspect::scroll, rows_.empty() ? 0 : rows_.size() - 1);
}

void FlexGrid::placeOver(Control& editor, int row, int col)
{
    check(row, col);
    const auto place =
        std::find_if(overlays_.begin(), overlays_.end(), [&](const Overlay& o) { return o.editor == &editor; });
    if (place == overlays_.end()) {
        overlays_.push_back({&editor, row, col});
    } else {
        place->row = row;
        place->col = col;
    }
    if (editor.form_ == form()) {
        editor.container_ = this;
        editor.page_ = -1;
    }
    notify(Aspect::structure, at(row));
}

void FlexGrid::userMove(int row, int col)
{
    if (row >= 0 && row < rows() && col >= 0 && col < cols()) {
        setCurrent(row, col);
    }
}

void FlexGrid::userClick(int row, int col)
{
    userMove(row, col);
    if (onClick) {
        onClick();
    }
}

void FlexGrid::userDblClick(int row, int col)
{
    userMove(row, col);
    if (onDblClick) {
        onDblClick();
    }
}

}  // namespace bravona
