#include "platform/store/TableWriter.h"

#include "platform/store/Literals.h"
#include "platform/store/Translator.h"

namespace bravona {
namespace {

constexpr std::size_t mostUpdates = 16;

struct Binder {
    EngineStatement& s;
    int place;
    void operator()(std::monostate) const { s.bindNull(place); }
    void operator()(std::int64_t v) const { s.bindWhole(place, v); }
    void operator()(double v) const { s.bindReal(place, v); }
    void operator()(std::string_view v) const { s.bindText(place, v); }
};

}  // namespace

TableWriter::Places TableWriter::places(const std::vector<ColumnInfo>& set, const Table& table)
{
    Places p;
    p.inSet.assign(table.columns().size(), none);
    for (std::size_t i = 0; i < set.size(); ++i) {
        const std::size_t column = set[i].column.empty() ? none : table.set->index.find(set[i].column);
        p.inTable.push_back(column);
        if (column != none && p.inSet[column] == none) {
            p.inSet[column] = i;
        }
    }
    return p;
}

std::int64_t TableWriter::insert(const RowStore& rows, std::size_t row, const Places& places)
{
    const std::vector<ColumnInfo>& columns = table_->columns();
    if (insert_.get() == nullptr) {
        std::string names;
        std::string marks;
        for (const ColumnInfo& c : columns) {
            names += (names.empty() ? "" : ", ") + engineName(c.name);
            marks += marks.empty() ? "?" : ", ?";
        }
        insert_ =
            EngineStatement(db_, "INSERT INTO " + engineName(table_->name) + " (" + names + ") VALUES (" + marks + ")");
    }
    const Running running(insert_);
    for (std::size_t i = 0; i < columns.size(); ++i) {
        const int place = static_cast<int>(i) + 1;
        if (places.inSet[i] != none) {
            rows.visit(row, places.inSet[i], Binder{insert_, place});
        } else {
            bindValue(insert_, place, table_->defaults[i], columns[i].type);
        }
    }
    insert_.step();
    return sqlite3_last_insert_rowid(db_);
}

EngineStatement& TableWriter::updateOf(const std::vector<bool>& columns)
{
    const auto known = updates_.find(columns);
    if (known != updates_.end()) {
        return known->second;
    }
    if (updates_.size() >= mostUpdates) {
        updates_.clear();
    }
    std::string sql = "UPDATE " + engineName(table_->name) + " SET ";
    bool first = true;
    for (std::size_t i = 0; i < columns.size(); ++i) {
        if (columns[i]) {
            sql += (first ? "" : ", ") + engineName(table_->columns()[i].name) + " = ?";
            first = false;
        }
    }
    sql += " WHERE rowid = ?";
    return updates_.emplace(columns, EngineStatement(db_, sql)).first->second;
}

void TableWriter::update(const RowStore& rows, std::size_t row, const Places& places, const std::vector<bool>& changed)
{
    std::vector<bool> columns(table_->columns().size(), false);
    std::vector<std::size_t> from(columns.size(), none);
    for (std::size_t i = 0; i < places.inTable.size(); ++i) {
        const std::size_t column = places.inTable[i];
        if (changed[i] && column != none) {
            columns[column] = true;
            from[column] = i;
        }
    }
    EngineStatement& s = updateOf(columns);
    const Running running(s);
    int place = 0;
    for (const std::size_t column : from) {
        if (column != none) {
            rows.visit(row, column, Binder{s, ++place});
        }
    }
    s.bindWhole(++place, rows.id(row));
    s.step();
    if (sqlite3_changes(db_) == 0) {
        throw Errore(3167, "Il record è stato eliminato.");
    }
}

void TableWriter::remove(std::int64_t id)
{
    if (remove_.get() == nullptr) {
        remove_ = EngineStatement(db_, "DELETE FROM " + engineName(table_->name) + " WHERE rowid = ?");
    }
    const Running running(remove_);
    remove_.bindWhole(1, id);
    remove_.step();
}

}  // namespace bravona
