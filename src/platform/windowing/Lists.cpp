#include "platform/windowing/Lists.h"

#include <algorithm>
#include <bit>
#include <iterator>
#include <numeric>

#include "platform/text/Text.h"
#include "platform/values/Date.h"
#include "platform/values/Errore.h"
#include "platform/values/Numeri.h"

namespace bravona {

namespace {

[[noreturn]] void outOfRange()
{
    throw Errore(errori::indiceFuoriIntervallo, "Indice non compreso nell'intervallo");
}
[[noreturn]] void keyTaken()
{
    throw Errore(errori::chiaveGiaInElenco, "La chiave non è univoca nell'insieme");
}

int findText(const std::vector<ListItem>& items, const std::string& text)
{
    for (std::size_t i = 0; i < items.size(); ++i) {
        if (items[i].text == text) {
            return static_cast<int>(i);
        }
    }
    return -1;
}

template <class List>
bool selectItem(List& list, std::int32_t data)
{
    const auto item = std::ranges::find(list.items(), data, &ListItem::data);
    if (item == list.items().end()) {
        return false;
    }
    list.setListIndex(static_cast<int>(item - list.items().begin()));
    return true;
}

}  // namespace

// --- combo ------------------------------------------------------------------------------------------------------

void ComboBox::addItem(std::string text, std::int32_t data)
{
    items_.push_back({std::move(text), data});
    notify(Aspect::items);
}

void ComboBox::clear()
{
    items_.clear();
    index_ = -1;
    text_.clear();
    notify(Aspect::items);
}

void ComboBox::setListIndex(int index)
{
    if (index < -1 || index >= static_cast<int>(items_.size())) {
        outOfRange();
    }
    const bool differs = index != index_;
    const std::string text = index < 0 ? std::string() : items_[static_cast<std::size_t>(index)].text;
    if (!differs && text == text_) {
        return;
    }
    index_ = index;
    text_ = text;
    notify(Aspect::selection);
    if (differs && onClick) {
        onClick();
    }
}

void ComboBox::setText(const std::string& text)
{
    if (editable_) {
        userText(text);
        return;
    }
    if (const int item = findText(items_, text); item >= 0) {
        setListIndex(item);
        return;
    }
    index_ = -1;
    text_ = text;
    notify(Aspect::selection);
}

std::int32_t ComboBox::itemData() const
{
    if (index_ < 0) {
        outOfRange();
    }
    return items_[static_cast<std::size_t>(index_)].data;
}

bool ComboBox::selectByData(std::int32_t data)
{
    return selectItem(*this, data);
}

bool ComboBox::selectByText(const std::string& text)
{
    const int item = findText(items_, text);
    if (item >= 0) {
        setListIndex(item);
    }
    return item >= 0;
}

void ComboBox::setLocked(bool locked)
{
    if (locked_ != locked) {
        locked_ = locked;
        notify(Aspect::value);
    }
}

void ComboBox::userText(std::string text)
{
    if (text_ == text) {
        return;
    }
    text_ = std::move(text);
    index_ = findText(items_, text_);
    notify(Aspect::selection);
    if (onChange) {
        onChange();
    }
}

// --- list box ---------------------------------------------------------------------------------------------------

void ListBox::addItem(std::string text, std::int32_t data)
{
    items_.push_back({std::move(text), data});
    notify(Aspect::items);
}

void ListBox::clear()
{
    items_.clear();
    index_ = -1;
    notify(Aspect::items);
}

void ListBox::setListIndex(int index)
{
    if (index < -1 || index >= static_cast<int>(items_.size())) {
        outOfRange();
    }
    if (index == index_) {
        return;
    }
    index_ = index;
    notify(Aspect::selection);
    if (onClick) {
        onClick();
    }
}

bool ListBox::selectByData(std::int32_t data)
{
    return selectItem(*this, data);
}

std::int32_t ListBox::itemData() const
{
    if (index_ < 0) {
        outOfRange();
    }
    return items_[static_cast<std::size_t>(index_)].data;
}

// --- list view --------------------------------------------------------------------------------------------------

void ListView::setColumns(std::vector<ListColumn> columns)
{
    columns_ = std::move(columns);
    for (ListRow& row : rows_) {
        row.sub.resize(columns_.empty() ? 0 : std::max(columns_.size() - 1, row.sub.size()));
    }
    sortColumn_ = -1;
    notify(Aspect::columns);
}

const ListRow& ListView::row(std::size_t row) const
{
    if (row >= rows_.size()) {
        outOfRange();
    }
    return rows_[row];
}

std::size_t ListView::add(ListRow row)
{
    if (columns_.size() > row.sub.size() + 1) {
        row.sub.resize(columns_.size() - 1);
    }
    rows_.push_back(std::move(row));
    if (!index(rows_.size() - 1)) {
        rows_.pop_back();
        keyTaken();
    }
    notify(Aspect::items);
    return rows_.size() - 1;
}

void ListView::append(std::vector<ListRow> rows)
{
    const std::size_t first = rows_.size();
    if (first == 0) {
        rows_ = std::move(rows);
    } else {
        rows_.insert(rows_.end(), std::make_move_iterator(rows.begin()), std::make_move_iterator(rows.end()));
    }
    for (std::size_t i = first; i < rows_.size(); ++i) {
        ListRow& row = rows_[i];
        if (!index(i)) {
            rows_.resize(i);  // what stands before it stays
            notify(Aspect::items);
            keyTaken();
        }
        if (columns_.size() > row.sub.size() + 1) {
            row.sub.resize(columns_.size() - 1);
        }
    }
    notify(Aspect::items);
}

void ListView::setRow(std::size_t row, ListRow value)
{
    if (row >= rows_.size()) {
        outOfRange();
    }
    value.key = rows_[row].key;
    if (columns_.size() > value.sub.size() + 1) {
        value.sub.resize(columns_.size() - 1);
    }
    rows_[row] = std::move(value);
    notify(Aspect::row, row);
}

void ListView::setCell(std::size_t row, std::size_t column, std::string text)
{
    if (row >= rows_.size() || column > rows_[row].sub.size()) {
        outOfRange();
    }
    (column == 0 ? rows_[row].text : rows_[row].sub[column - 1].text) = std::move(text);
    notify(Aspect::row, row);
}

void ListView::setChecked(std::size_t row, bool checked)
{
    if (row >= rows_.size()) {
        outOfRange();
    }
    if (rows_[row].checked != checked) {
        rows_[row].checked = checked;
        notify(Aspect::checks, row);
    }
}

void ListView::setColour(std::size_t row, std::optional<Colour> colour)
{
    if (row >= rows_.size()) {
        outOfRange();
    }
    rows_[row].colour = colour;
    notify(Aspect::row, row);
}

void ListView::remove(std::size_t row)
{
    if (row >= rows_.size()) {
        outOfRange();
    }
    rows_.erase(rows_.begin() + static_cast<std::ptrdiff_t>(row));
    reindex();
    if (selected_ && *selected_ == row) {
        selected_.reset();
    } else if (selected_ && *selected_ > row) {
        --*selected_;
    }
    notify(Aspect::items);
}

void ListView::clear()
{
    rows_.clear();
    slots_.clear();
    selected_.reset();
    sortColumn_ = -1;
    notify(Aspect::items);
}

std::optional<std::size_t> ListView::find(const std::string& key) const
{
    if (slots_.empty() || key.empty()) {
        return std::nullopt;
    }
    const std::uint32_t place = slots_[slotOf(key)];
    return place == 0 ? std::nullopt : std::optional<std::size_t>(place - 1);
}

std::size_t ListView::selectedOrFail() const
{
    if (!selected_) {
        throw Errore(errori::selezioneMancante, "Nessuna riga selezionata");
    }
    return *selected_;
}

void ListView::select(std::optional<std::size_t> row)
{
    if (row && *row >= rows_.size()) {
        outOfRange();
    }
    if (selected_ != row) {
        selected_ = row;
        notify(Aspect::selection, row.value_or(noRow));
    }
}

void ListView::ensureVisible(std::size_t row)
{
    if (row >= rows_.size()) {
        outOfRange();
    }
    notify(Aspect::scroll, row);
}

void ListView::sort(std::size_t column, bool ascending)
{
    if (column >= columns_.size()) {
        outOfRange();
    }
    // A column counts as numbers, or as dates, when all that stands in it does; the empty cells come first.
    struct SortKey {
        bool empty = true;
        double number = 0;
        std::string folded;
    };
    std::vector<SortKey> keys(rows_.size());
    bool numbers = true;
    bool dates = true;
    for (const ListRow& row : rows_) {
        const std::string& cell = row.cell(column);
        if (cell.empty()) {
            continue;
        }
        numbers = numbers && parseNumber(cell).has_value();
        dates = dates && Date::parse(cell).has_value();
        if (!numbers && !dates) {
            break;
        }
    }
    for (std::size_t i = 0; i < rows_.size(); ++i) {
        const std::string& cell = rows_[i].cell(column);
        keys[i].empty = cell.empty();
        if (cell.empty()) {
            continue;
        }
        if (numbers) {
            keys[i].number = *parseNumber(cell);
        } else if (dates) {
            keys[i].number = Date::parse(cell)->dayNumber();
        } else {
            keys[i].folded = fold(cell);
        }
    }
    const bool byNumber = numbers || dates;
    std::vector<std::size_t> order(rows_.size());
    std::iota(order.begin(), order.end(), std::size_t{0});
    const auto before = [&](std::size_t a, std::size_t b) {
        if (keys[a].empty != keys[b].empty) {
            return keys[a].empty;
        }
        if (byNumber) {
            return keys[a].number < keys[b].number;
        }
        return compareFolded(keys[a].folded, keys[b].folded) < 0;
    };
    std::stable_sort(order.begin(), order.end(),
                     [&](std::size_t a, std::size_t b) { return ascending ? before(a, b) : before(b, a); });
    std::vector<ListRow> sorted;
    sorted.reserve(rows_.size());
    std::optional<std::size_t> selected;
    for (std::size_t i = 0; i < order.size(); ++i) {
        if (selected_ == order[i]) {
            selected = i;
        }
        sorted.push_back(std::move(rows_[order[i]]));
    }
    rows_ = std::move(sorted);
    selected_ = selected;
    reindex();
    sortColumn_ = static_cast<int>(column);
    sortAscending_ = ascending;
    notify(Aspect::items);
}

std::size_t ListView::slotOf(const std::string& key) const
{
    std::size_t slot = std::hash<std::string>{}(key) & (slots_.size() - 1);
    while (slots_[slot] != 0 && rows_[slots_[slot] - 1].key != key) {
        slot = (slot + 1) & (slots_.size() - 1);
    }
    return slot;
}

bool ListView::index(std::size_t row)
{
    if (slots_.size() < 2 * rows_.size()) {
        makeSlots(rows_.size());
        for (std::size_t before = 0; before < row; ++before) {
            index(before);
        }
    }
    if (rows_[row].key.empty()) {
        return true;
    }
    std::uint32_t& place = slots_[slotOf(rows_[row].key)];
    if (place != 0) {
        return false;
    }
    place = static_cast<std::uint32_t>(row + 1);
    return true;
}

void ListView::makeSlots(std::size_t rows)
{
    slots_.assign(std::bit_ceil(2 * rows), 0);
}

void ListView::reindex()
{
    makeSlots(rows_.size());
    for (std::size_t row = 0; row < rows_.size(); ++row) {
        index(row);
    }
}

void ListView::userSelect(std::size_t row)
{
    select(row);
    if (onItemClick) {
        onItemClick(row);
    }
}

void ListView::userCheck(std::size_t row, bool checked)
{
    if (row >= rows_.size() || rows_[row].checked == checked) {
        return;
    }
    setChecked(row, checked);
    if (onItemCheck) {
        onItemCheck(row);
    }
}

void ListView::userColumnClick(std::size_t column)
{
    if (sortable) {
        sort(column, !(sortColumn_ == static_cast<int>(column) && sortAscending_));
    }
    if (onColumnClick) {
        onColumnClick(column);
    }
}

// --- tree -------------------------------------------------------------------------------------------------------

int TreeView::add(const std::string& parentKey, const std::string& key, std::string text)
{
    int parent = -1;
    if (!parentKey.empty()) {
        parent = find(parentKey);
        if (parent < 0) {
            throw Errore(35601, "Elemento non trovato");
        }
    }
    const int made = static_cast<int>(nodes_.size());
    if (!key.empty() && !keys_.emplace(key, made).second) {
        keyTaken();
    }
    TreeNode node;
    node.key = key;
    node.text = std::move(text);
    node.parent = parent;
    nodes_.push_back(std::move(node));
    if (parent >= 0) {
        nodes_[static_cast<std::size_t>(parent)].children.push_back(made);
    }
    notify(Aspect::items);
    return made;
}

void TreeView::clear()
{
    nodes_.clear();
    keys_.clear();
    selected_ = -1;
    notify(Aspect::items);
}

int TreeView::find(const std::string& key) const
{
    const auto place = keys_.find(key);
    return place == keys_.end() ? -1 : place->second;
}

void TreeView::setBold(const std::string& key, bool bold)
{
    const int node = find(key);
    if (node < 0) {
        throw Errore(35601, "Elemento non trovato");
    }
    nodes_[static_cast<std::size_t>(node)].bold = bold;
    notify(Aspect::row, static_cast<std::size_t>(node));
}

void TreeView::setExpanded(int node, bool expanded)
{
    nodes_.at(static_cast<std::size_t>(node)).expanded = expanded;
    notify(Aspect::row, static_cast<std::size_t>(node));
}

void TreeView::ensureVisible(int node)
{
    for (int parent = nodes_.at(static_cast<std::size_t>(node)).parent; parent >= 0;
         parent = nodes_[static_cast<std::size_t>(parent)].parent) {
        if (!nodes_[static_cast<std::size_t>(parent)].expanded) {
            setExpanded(parent, true);
        }
    }
    notify(Aspect::scroll, static_cast<std::size_t>(node));
}

void TreeView::select(int node)
{
    if (node < -1 || node >= static_cast<int>(nodes_.size())) {
        outOfRange();
    }
    selected_ = node;
    if (node >= 0) {
        ensureVisible(node);
    }
    notify(Aspect::selection, node < 0 ? noRow : static_cast<std::size_t>(node));
}

void TreeView::userSelect(int node)
{
    select(node);
    if (onNodeClick) {
        onNodeClick(node);
    }
}

}  // namespace bravona
