#include "platform/windowing/Grids.h"

#include <algorithm>

// What keys mean on a grid over a record set, the same on every host.

namespace bravona {

bool DataGrid::changed() const
{
    return editing_ || adding_ || (set_ != nullptr && set_->isOpen() && set_->isEdited());
}

// By rows, or to the next column in sight.
bool DataGrid::userStep(int rows, int columns)
{
    const int count = static_cast<int>(columns_.size());
    int column = static_cast<int>(col_) + columns;
    while (columns != 0 && column >= 0 && column < count && !shows(static_cast<std::size_t>(column))) {
        column += columns;
    }
    if (column < 0 || column >= count || (rows < 0 && row_ == 0)) {
        return false;
    }
    return userMove(rows < 0 ? row_ - 1 : row_ + static_cast<std::size_t>(rows), static_cast<std::size_t>(column));
}

// To the first or last row, or column in sight.
bool DataGrid::userEdge(bool last, bool ofRows)
{
    if (ofRows) {
        return userMove(last ? std::max<std::size_t>(shownRows(), 1) - 1 : 0, col_);
    }
    std::size_t wanted = col_;
    for (std::size_t column = 0; column < columns_.size(); ++column) {
        if (shows(column) && (last ? column > wanted : column < wanted)) {
            wanted = column;
        }
    }
    return userMove(row_, wanted);
}

bool DataGrid::userKey(const KeyEvent& event, bool atStart, bool atEnd)
{
    if (event.alt || columns_.empty()) {
        return false;
    }
    switch (event.key) {
    case Key::enter:
        if (editing_) {
            userEndEdit(true);
        } else if (columns_[col_].button) {
            userButton(row_, col_);
        } else {
            userEditCell();
        }
        return true;
    case Key::up:
    case Key::down:
        userStep(event.key == Key::up ? -1 : 1, 0);
        return true;
    case Key::left:
    case Key::right:
        if (editing_ && (event.shift || event.ctrl || !(event.key == Key::left ? atStart : atEnd))) {
            return false;
        }
        userStep(0, event.key == Key::left ? -1 : 1);
        return true;
    default:
        break;
    }
    if (editing_) {
        return false;
    }
    if (event.key == Key::del && event.ctrl) {
        userDeleteRow(row_);
        return true;
    }
    switch (event.key) {
    case Key::home:
    case Key::end:
        userEdge(event.key == Key::end, event.ctrl);
        return true;
    case Key::f2:
        userEditCell();
        return true;
    case Key::del:
        if (rowSelected_) {
            userDeleteRow(row_);
        } else {
            userBeginEdit({});
        }
        return true;
    case Key::backspace:
        userBeginEdit({});
        return true;
    case Key::character:
        if (event.character != U' ' || event.ctrl) {
            return false;
        }
        if (event.shift) {
            userSelectRow(row_);
        } else if (columns_[col_].button) {
            userButton(row_, col_);
        } else {
            return false;
        }
        return true;
    default:
        return false;
    }
}

bool DataGrid::userTab(bool backwards)
{
    std::size_t column = col_;
    while (backwards ? column > 0 : column + 1 < columns_.size()) {
        column = backwards ? column - 1 : column + 1;
        if (shows(column)) {
            userMove(row_, column);
            return true;
        }
    }
    if (backwards || !changed() || row_ + 1 >= shownRows()) {
        return false;
    }
    const std::size_t row = row_;
    if (userMove(row_ + 1, col_) && row_ != row) {
        userEdge(false, false);
    }
    return true;
}

bool DataGrid::userSelectRow(std::size_t row)
{
    if (!userMove(row, col_)) {
        return false;
    }
    rowSelected_ = row_ < dataRows();
    notify(Aspect::selection, row_);
    return true;
}

}  // namespace bravona
