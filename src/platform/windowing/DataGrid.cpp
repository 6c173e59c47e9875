#include "platform/values/Errore.h"
#include "platform/values/Numeri.h"
#include "platform/windowing/Desktop.h"
#include "platform/windowing/Form.h"
#include "platform/windowing/Grids.h"

namespace bravona {

void DataGrid::bind(Recordset* set)
{
    if (set_ != nullptr && !userLeave() && set_->isOpen()) {
        set_->cancelUpdate();
    }
    set_ = set;
    row_ = 0;
    col_ = 0;
    editing_ = false;
    adding_ = false;
    rowSelected_ = false;
    if (set_ != nullptr && columns_.empty()) {
        for (const ColumnInfo& info : set_->columns()) {
            DataColumn column;
            column.field = info.name;
            columns_.push_back(std::move(column));
        }
    }
    toShownColumn();
    notify(Aspect::columns);
    notify(Aspect::items);
}

void DataGrid::setColumns(std::vector<DataColumn> columns)
{
    columns_ = std::move(columns);
    toShownColumn();
    notify(Aspect::columns);
}

bool DataGrid::shows(std::size_t column) const
{
    return column < columns_.size() && columns_[column].visible && columns_[column].width != 0;
}

void DataGrid::toShownColumn()
{
    for (std::size_t column = 0; !shows(col_) && column < columns_.size(); ++column) {
        if (shows(column)) {
            col_ = column;
        }
    }
}

std::string DataGrid::caption(std::size_t column) const
{
    const DataColumn& wanted = columns_.at(column);
    if (!wanted.caption.empty() || set_ == nullptr || !set_->isOpen()) {
        return wanted.caption;
    }
    return set_->columns().at(setColumn(column)).name;
}

std::size_t DataGrid::dataRows() const
{
    return set_ == nullptr || !set_->isOpen() ? 0 : set_->recordCount();
}

std::size_t DataGrid::shownRows() const
{
    const bool newRow = set_ != nullptr && set_->isOpen() && allowAddNew && set_->isUpdatable();
    return dataRows() + (newRow ? 1 : 0);
}

std::size_t DataGrid::setColumn(std::size_t column) const
{
    const std::string& wanted = columns_.at(column).field;
    if (wanted.empty()) {
        return column;
    }
    const auto& all = set_->columns();
    for (std::size_t i = 0; i < all.size(); ++i) {
        if (all[i].name == wanted) {
            return i;
        }
    }
    throw Errore(3265, "Colonna sconosciuta: " + wanted);
}

std::string DataGrid::cellText(std::size_t row, std::size_t column) const
{
    if (row == row_ && column == col_ && editing_) {
        return editText_;
    }
    if (row >= dataRows()) {
        return {};
    }
    const Value value = set_->valueAt(row, setColumn(column));
    const std::string& pattern = columns_.at(column).pattern;
    return pattern.empty() ? value.text() : format(value, pattern);
}

bool DataGrid::canEdit(std::size_t row, std::size_t column) const
{
    return set_ != nullptr && set_->isOpen() && set_->isUpdatable() && row < shownRows() && shows(column) &&
           !columns_[column].locked;
}

void DataGrid::setCellValue(std::size_t column, const Value& value)
{
    if (set_ == nullptr) {
        throw Errore(errori::nessunRecordCorrente, "Nessun record corrente");
    }
    if (row_ >= dataRows() && !adding_) {
        set_->addNew();
        adding_ = true;
    }
    (*set_)[setColumn(column)].set(value);
    notify(Aspect::row, row_);
}

bool DataGrid::refused(const Errore& error)
{
    if (form() == nullptr) {
        return false;
    }
    if (error.numero() == errori::testoNonConvertibile || error.numero() == errori::numeroTroppoGrande) {
        form()->desktop().inform("Valore non valido!", form()->caption());
    } else {
        form()->desktop().report(error);
    }
    return false;
}

bool DataGrid::commitRow()
{
    if (set_ == nullptr || !set_->isOpen() || (!adding_ && !set_->isEdited())) {
        return true;
    }
    try {
        if (onBeforeUpdate) {
            onBeforeUpdate();
        }
        set_->update();
    } catch (const Errore& error) {
        return refused(error);
    }
    adding_ = false;
    notify(Aspect::items);
    return true;
}

bool DataGrid::userMove(std::size_t row, std::size_t column)
{
    if (row >= shownRows() || column >= columns_.size() || !userEndEdit(true)) {
        return false;
    }
    if (row != row_) {
        // The new-row line that was begun is the last row of the set; below it stands the next new-row line.
        if (!commitRow()) {
            return false;
        }
        if (row < dataRows()) {
            set_->moveTo(row);
        }
    }
    row_ = row;
    col_ = column;
    rowSelected_ = false;
    notify(Aspect::selection, row_);
    return true;
}

bool DataGrid::userBeginEdit(const std::string& text, bool whole)
{
    if (!canEdit(row_, col_)) {
        return false;
    }
    rowSelected_ = false;
    editsWhole_ = whole;
    if (row_ < dataRows() && set_->position() != row_) {
        set_->moveTo(row_);
    }
    editing_ = true;
    editText_ = text;
    notify(Aspect::row, row_);
    return true;
}

bool DataGrid::userEditCell()
{
    return userBeginEdit(cellText(row_, col_), true);
}

void DataGrid::userEditText(std::string text)
{
    if (editing_) {
        editText_ = std::move(text);
        notify(Aspect::row, row_);
    }
}

bool DataGrid::userEndEdit(bool accept)
{
    if (!editing_) {
        return true;
    }
    editing_ = false;
    const std::string typed = editText_;
    if (accept && typed != cellText(row_, col_)) {
        try {
            setCellValue(col_, Value(typed));
        } catch (const Errore& error) {
            editing_ = true;
            notify(Aspect::row, row_);
            return refused(error);
        }
        if (onChange) {
            onChange(row_, col_);
        }
    }
    notify(Aspect::row, row_);
    return true;
}

bool DataGrid::userEscape()
{
    if (editing_) {
        return userEndEdit(false);
    }
    if (set_ == nullptr || !set_->isOpen() || (!adding_ && !set_->isEdited())) {
        return false;
    }
    set_->cancelUpdate();
    adding_ = false;
    notify(Aspect::items);
    return true;
}

bool DataGrid::userDeleteRow(std::size_t row)
{
    if (!allowDelete || set_ == nullptr || !set_->isOpen() || !set_->isUpdatable() || row >= dataRows()) {
        return false;
    }
    if (row == row_ && (adding_ || editing_)) {
        editing_ = false;
        set_->cancelUpdate();
        if (adding_) {
            adding_ = false;
            rowSelected_ = false;
            notify(Aspect::items);
            return true;
        }
    }
    if (!userMove(row, col_)) {
        return false;
    }
    try {
        set_->moveTo(row);
        if (onBeforeDelete && !onBeforeDelete()) {
            return false;
        }
        set_->remove();
    } catch (const Errore& error) {
        return refused(error);
    }
    if (row_ > 0 && row_ >= shownRows()) {
        row_ = shownRows() - 1;
    }
    if (row_ < dataRows()) {
        set_->moveTo(row_);
    }
    notify(Aspect::items);
    return true;
}

void DataGrid::userButton(std::size_t row, std::size_t column)
{
    if (userMove(row, column) && onButtonClick) {
        onButtonClick(column);
    }
}

bool DataGrid::userLeave()
{
    return userEndEdit(true) && commitRow();
}

}  // namespace bravona
