#pragma once

#include <cstdint>
#include <memory>
#include <unordered_map>
#include <vector>

#include "platform/store/Connection.h"
#include "platform/store/ConnectionImpl.h"

namespace bravona {

// Child rows: of a hierarchical set, all in one store, a stretch of it for each parent row; of a declared set, a set of
// its own for each parent row.
struct Chapter {
    struct Stretch {
        std::uint32_t first = 0;
        std::uint32_t count = 0;
    };
    std::string name;
    std::size_t parentColumn = 0;
    std::size_t childColumn = 0;
    std::shared_ptr<const ColumnSet> columns;
    std::shared_ptr<RowStore> rows;    // of a hierarchical set
    std::vector<Stretch> stretches;    // by row of the parent
    std::vector<std::size_t> lengths;  // of a declared set
    std::shared_ptr<const std::vector<Chapter>> chapters;
};

struct Recordset::State {
    using Row = std::size_t;

    State(std::shared_ptr<const ColumnSet> columns, std::shared_ptr<RowStore> store)
        : set(std::move(columns)),
          rows(std::move(store))
    {}

    // --- where it stands
    void load();  // the rows of a table opened by name, when one is asked for
    [[nodiscard]] bool onRow() const { return cursor >= 0 && cursor < static_cast<std::ptrdiff_t>(order.size()); }
    [[nodiscard]] Row row() const;  // Errore 3021 without one
    void allRows(Row first, std::size_t count);
    void moveTo(std::ptrdiff_t position);
    void leave();  // sends what was not sent
    const Value& value(std::size_t column);
    // Where a cell of any row of the set is kept: the store and its row there. Errore 9 out of range.
    struct Cell {
        const RowStore& rows;
        Row row;
    };
    Cell cell(std::size_t position, std::size_t column);
    [[nodiscard]] std::size_t size() const { return order.size(); }

    // --- changes
    void change(std::size_t column, const Value& value);
    void addNew();
    void update();
    void cancel();
    void remove();
    void updateBatch();
    [[nodiscard]] bool isUpdatable() const { return isDeclared || !places.inTable.empty(); }

    Recordset& chapter(std::string_view name);

    std::shared_ptr<const ColumnSet> set;
    std::shared_ptr<RowStore> rows;
    std::vector<std::uint32_t> order;  // rows of the store in their order in the set
    std::ptrdiff_t cursor = 0;
    bool isLoaded = true;

    // --- a set that can be changed
    std::weak_ptr<Connection::Impl> connection;
    std::uint64_t generation = 0;
    std::string table;
    TableWriter::Places places;
    bool isBatch = false;

    // --- a declared set: texts of so many characters
    bool isDeclared = false;
    std::vector<std::size_t> lengths;
    std::size_t relatedColumn = NameIndex::npos;  // of a child: what its new rows take from the parent
    Value relatedValue;

    std::shared_ptr<const std::vector<Chapter>> chapters;
    std::unordered_map<std::uint64_t, std::unique_ptr<Recordset>> children;  // by row and chapter

    // --- the row being edited
    bool isEditing = false;
    bool isNew = false;
    std::vector<bool> dirty;
    RowStore::Saved before;
    std::ptrdiff_t previous = 0;

private:
    // What `updateBatch` has to send.
    struct Change {
        Row row = 0;
        bool isNew = false;
        bool isRemoved = false;
        std::vector<bool> dirty;
    };

    [[nodiscard]] std::shared_ptr<Connection::Impl> open() const;
    [[nodiscard]] std::size_t dataColumns() const { return rows->columns(); }
    void needUpdatable() const;
    void beginEdit();
    void endEdit();
    TableWriter& writer(Connection::Impl& to);
    void sendNew(TableWriter& writer, Row r);
    [[nodiscard]] std::size_t counterColumn(const Table& table) const;
    void keepChange();
    void forget() { ++stamp_; }

    std::vector<Change> changes_;
    TableWriter* writer_ = nullptr;
    std::uint64_t writerStamp_ = 0;
    std::vector<Value> values_;  // of the current row, as far as they were asked for
    std::vector<std::uint32_t> stamps_;
    std::uint32_t stamp_ = 1;
};

}  // namespace bravona
