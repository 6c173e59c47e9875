#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/store/Recordset.h"

namespace bravona {

// Finds a name among a few, case folded, by hashing.
class NameIndex {
public:
    static constexpr std::size_t npos = static_cast<std::size_t>(-1);

    // The first of equal names is the one found. The names must outlive the index, at their place.
    void build(const std::vector<ColumnInfo>& columns);
    [[nodiscard]] std::size_t find(std::string_view name) const;

private:
    const std::vector<ColumnInfo>* columns_ = nullptr;
    std::vector<std::uint16_t> slots_;
};

// The columns of a record set or a table: shared by all sets of one statement, never changed once made.
struct ColumnSet {
    explicit ColumnSet(std::vector<ColumnInfo> list) : columns(std::move(list)) { index.build(columns); }
    ColumnSet(const ColumnSet&) = delete;
    ColumnSet& operator=(const ColumnSet&) = delete;

    std::vector<ColumnInfo> columns;
    NameIndex index;
};

struct Table {
    std::string name;
    std::shared_ptr<const ColumnSet> set;
    std::vector<Value> defaults;  // what a new row holds in the columns that its writer leaves alone
    std::size_t counter = NameIndex::npos;
    std::vector<std::size_t> key;  // columns of the primary key, in order; empty when there is none

    [[nodiscard]] const std::vector<ColumnInfo>& columns() const { return set->columns; }
};

// What the open file says of its tables: names and declared types. Tables are looked at when they are first asked for.
class Catalogue {
public:
    using Loader = std::function<std::unique_ptr<Table>(const std::string& name)>;

    void reset(std::vector<std::string> names, Loader loader);
    // Null when there is no such table. Valid until the next reset.
    const Table* find(std::string_view name);

private:
    struct Entry {
        std::string name;
        std::unique_ptr<Table> table;
    };
    std::map<std::string, Entry, std::less<>> entries_;  // by folded name
    Loader loader_;
};

// The type that a declaration of the archive stands for; texts for what is not known.
FieldType declaredType(std::string_view declaration, bool counter);
// The word that declares a type in the archive.
std::string_view declarationOf(FieldType type);

}  // namespace bravona
