#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include "platform/store/Catalogue.h"
#include "platform/store/Engine.h"
#include "platform/store/RowStore.h"

namespace bravona {

// Sends single rows of one table: prepared once for adding and removing, and once for each choice of changed columns.
class TableWriter {
public:
    static constexpr std::size_t none = NameIndex::npos;

    TableWriter(sqlite3* db, const Table& table) : db_(db), table_(&table) {}

    // Where the columns of a record set stand in the table and the other way round, `none` for those that do not.
    struct Places {
        std::vector<std::size_t> inTable;  // by column of the set; empty for a set that cannot be changed
        std::vector<std::size_t> inSet;    // by column of the table
    };
    static Places places(const std::vector<ColumnInfo>& set, const Table& table);

    [[nodiscard]] const Table& table() const { return *table_; }

    // Adds the row; columns that the set does not have take the table's defaults. The number that the engine gives it.
    std::int64_t insert(const RowStore& rows, std::size_t row, const Places& places);
    // Sends the changed columns of a row. Errore 3167 when the row is gone.
    void update(const RowStore& rows, std::size_t row, const Places& places, const std::vector<bool>& changed);
    void remove(std::int64_t id);

private:
    EngineStatement& updateOf(const std::vector<bool>& columns);

    sqlite3* db_;
    const Table* table_;
    EngineStatement insert_;
    EngineStatement remove_;
    std::map<std::vector<bool>, EngineStatement> updates_;  // by changed columns of the table
};

}  // namespace bravona
