#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#include "platform/windowing/Control.h"

namespace bravona {

class Menu;

struct ListItem {
    std::string text;
    std::int32_t data = 0;
};

// Items with a number each. Setting the index raises `onClick` when it differs, as the hand does.
// A fixed combo shows an item, or a foreign text that is no item; an editable one takes typed text as well.
class ComboBox final : public Control {
public:
    explicit ComboBox(bool editable = false) : Control(ControlKind::comboBox), editable_(editable) {}
    [[nodiscard]] bool editable() const { return editable_; }
    [[nodiscard]] const std::vector<ListItem>& items() const { return items_; }
    void addItem(std::string text, std::int32_t data = 0);
    void clear();                                           // no items, no index, no text
    [[nodiscard]] int listIndex() const { return index_; }  // -1: none
    void setListIndex(int index);                           // Errore 9 out of range
    [[nodiscard]] const std::string& text() const { return text_; }
    // Of an editable combo: the typed text (raises `onChange`). Of a fixed one: chooses the item of exactly that text,
    // else shows the text with no index.
    void setText(const std::string& text);
    [[nodiscard]] std::int32_t itemData() const;  // of the chosen item; Errore 9 without one
    [[nodiscard]] std::string shownText() const override { return text_; }
    [[nodiscard]] bool focusable() const override { return true; }
    // The first match; false (and the index left) without one.
    bool selectByData(std::int32_t data);
    bool selectByText(const std::string& text);
    [[nodiscard]] bool locked() const { return locked_; }
    void setLocked(bool locked);
    void userText(std::string text);  // typed by hand in an editable combo

    int width = 20;
    bool grows = false;
    std::function<void()> onChange;

private:
    bool editable_;
    bool locked_ = false;
    std::vector<ListItem> items_;
    int index_ = -1;
    std::string text_;
};

class ListBox final : public Control {
public:
    ListBox() : Control(ControlKind::listBox) {}
    [[nodiscard]] const std::vector<ListItem>& items() const { return items_; }
    void addItem(std::string text, std::int32_t data = 0);
    void clear();
    [[nodiscard]] int listIndex() const { return index_; }
    void setListIndex(int index);
    [[nodiscard]] std::int32_t itemData() const;
    bool selectByData(std::int32_t data);  // false, and nothing changes, when there is no such item
    [[nodiscard]] std::string shownText() const override
    {
        return index_ < 0 ? std::string() : items_[static_cast<std::size_t>(index_)].text;
    }
    [[nodiscard]] bool focusable() const override { return true; }
    int lines = 6;

private:
    std::vector<ListItem> items_;
    int index_ = -1;
};

struct ListColumn {
    std::string caption;
    std::string key;
    int width = 1440;  // twips
    Align align = Align::left;
    bool amount = false;  // its numbers are drawn in the one form of amounts, however the cells have them
};

struct SubItem {
    std::string text;
    std::string tag;
};

// A row: a main text (column 0) and one sub-item for each further column.
struct ListRow {
    std::string text;
    std::string key;
    std::string tag;
    std::vector<SubItem> sub;  // sub[0] is column 1
    std::optional<Colour> colour;
    bool bold = false;
    bool checked = false;

    [[nodiscard]] const std::string& cell(std::size_t column) const
    {
        return column == 0 ? text : sub.at(column - 1).text;
    }
};

// Columns and rows, one row selected. Rows are reached by position from 0; keys are unique (Errore 35602), an empty key
// is none.
class ListView final : public Control {
public:
    ListView() : Control(ControlKind::listView) {}
    [[nodiscard]] const std::vector<ListColumn>& columns() const { return columns_; }
    void setColumns(std::vector<ListColumn> columns);

    [[nodiscard]] std::size_t rowCount() const { return rows_.size(); }
    [[nodiscard]] const ListRow& row(std::size_t row) const;  // Errore 9 out of range
    std::size_t add(ListRow row);                             // its position; sub-items are filled up to the columns
    void append(std::vector<ListRow> rows);                   // many at once
    void setRow(std::size_t row, ListRow value);              // the key may not change
    void setCell(std::size_t row, std::size_t column, std::string text);
    void setChecked(std::size_t row, bool checked);  // no event
    void setColour(std::size_t row, std::optional<Colour> colour);
    void remove(std::size_t row);
    void clear();
    [[nodiscard]] std::optional<std::size_t> find(const std::string& key) const;

    [[nodiscard]] std::optional<std::size_t> selected() const { return selected_; }
    [[nodiscard]] std::size_t selectedOrFail() const;  // Errore 91 without one
    void select(std::optional<std::size_t> row);       // no event
    void ensureVisible(std::size_t row);
    void sort(std::size_t column, bool ascending);  // numbers as numbers, dates as dates; the selection follows its row

    [[nodiscard]] std::string shownText() const override { return selected_ ? rows_[*selected_].text : std::string(); }
    [[nodiscard]] bool focusable() const override { return true; }

    // What the hand did; raise the events.
    void userSelect(std::size_t row);               // click on a row: selects it, `onItemClick`
    void userCheck(std::size_t row, bool checked);  // `onItemCheck`
    void userColumnClick(std::size_t column);       // sorts where allowed (up first, then down), `onColumnClick`

    bool checkBoxes = false;
    bool sortable = false;
    std::string emptyText;  // shown in the middle of an empty list
    Menu* contextMenu = nullptr;
    int lines = 8;
    std::function<void(std::size_t)> onItemClick;
    std::function<void(std::size_t)> onItemCheck;
    std::function<void(std::size_t)> onColumnClick;

    [[nodiscard]] int sortColumn() const { return sortColumn_; }  // -1: none
    [[nodiscard]] bool sortAscending() const { return sortAscending_; }

private:
    [[nodiscard]] std::size_t slotOf(const std::string& key) const;  // of its row, or the free one where it would be
    bool index(std::size_t row);                                     // false for a key that another row has
    void makeSlots(std::size_t rows);                                // free ones, enough for so many
    void reindex();
    std::vector<ListColumn> columns_;
    std::vector<ListRow> rows_;
    // Rows by their keys: four bytes or eight a row, and the keys stay in the rows. 0 is free, others a position
    // from 1.
    std::vector<std::uint32_t> slots_;
    std::optional<std::size_t> selected_;
    int sortColumn_ = -1;
    bool sortAscending_ = true;
};

struct TreeNode {
    std::string key;
    std::string text;
    int parent = -1;  // position of its parent, -1 for a root
    std::vector<int> children;
    bool bold = false;
    bool expanded = false;
};

class TreeView final : public Control {
public:
    TreeView() : Control(ControlKind::treeView) {}
    [[nodiscard]] const std::vector<TreeNode>& nodes() const { return nodes_; }
    // Errore 35602 for a key already there; parent empty: a root.
    int add(const std::string& parentKey, const std::string& key, std::string text);
    void clear();
    [[nodiscard]] int find(const std::string& key) const;  // -1: none
    void setBold(const std::string& key, bool bold);
    void setExpanded(int node, bool expanded);
    void ensureVisible(int node);  // opens its parents
    [[nodiscard]] int selected() const { return selected_; }
    void select(int node);  // no event; opens its parents
    [[nodiscard]] std::string shownText() const override
    {
        return selected_ < 0 ? std::string() : nodes_[static_cast<std::size_t>(selected_)].text;
    }
    [[nodiscard]] bool focusable() const override { return true; }
    void userSelect(int node);  // `onNodeClick`
    std::function<void(int)> onNodeClick;

private:
    std::vector<TreeNode> nodes_;
    std::unordered_map<std::string, int> keys_;
    int selected_ = -1;
};

}  // namespace bravona
