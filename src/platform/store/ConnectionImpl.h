#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "platform/store/Catalogue.h"
#include "platform/store/Connection.h"
#include "platform/store/Engine.h"
#include "platform/store/Literals.h"
#include "platform/store/RowStore.h"
#include "platform/store/TableWriter.h"
#include "platform/store/Tokenizer.h"
#include "platform/store/Translator.h"

namespace bravona {

// A statement of one shape: translated and prepared once.
struct PreparedStatement {
    Translation translation;
    EngineStatement engine;
    std::uint64_t used = 0;
};

// The statements of the shapes in use. Holds so many; the one that was not used for longest goes.
class StatementCache {
public:
    PreparedStatement* find(std::string_view shape);
    PreparedStatement& add(const std::string& shape, PreparedStatement statement);
    void clear() { statements_.clear(); }

private:
    struct Hash {
        using is_transparent = void;
        std::size_t operator()(std::string_view s) const { return std::hash<std::string_view>{}(s); }
    };
    std::unordered_map<std::string, PreparedStatement, Hash, std::equal_to<>> statements_;
    std::uint64_t clock_ = 0;
};

struct Connection::Impl {
    // Translated and prepared, from the cache where the shape is known. `tokens` is filled with the statement.
    PreparedStatement& prepare(std::string_view statement, const TranslateOptions& options);
    [[nodiscard]] Translation translation(std::string_view statement, const TranslateOptions& options);

    std::int64_t execute(std::string_view statement);
    std::unique_ptr<Recordset::State> open(std::string_view statement, OpenMode mode);
    std::unique_ptr<Recordset::State> openTable(const Table& table, OpenMode mode);
    std::unique_ptr<Recordset::State> openHierarchy(std::string_view statement);

    // All rows of a table, in key order, with their numbers.
    std::shared_ptr<RowStore> readTable(const Table& table);
    // Runs a prepared SELECT with the literals in `tokens` and adds its rows.
    void readRows(PreparedStatement& statement, RowStore& rows, const Value* related = nullptr);

    const Table& table(std::string_view name);
    TableWriter& writer(const Table& table);
    void beforeWrite(const std::string& table) const;
    // All changes or none of them, inside a transaction or outside.
    void allOrNothing(const std::function<void()>& changes);
    // Keeps other programs from the open archive, by a transaction in which nothing is written.
    void take(Hold purpose);
    void loadCatalogue();
    void forgetStatements();
    void needOpen() const;

    Engine engine;
    std::string path;
    Catalogue catalogue;
    Tokens tokens;
    LiteralBinder binder;
    StatementCache statements;
    std::unordered_map<std::string, TableWriter> writers;  // by table
    std::uint64_t catalogueStamp = 0;  // what is kept of tables and writers holds as long as it does
    std::function<void(const std::string&)> hook;
    bool inTransaction = false;
    std::int64_t heldVersion = 0;  // of what other programs have written, when the archive was held
    std::uint64_t generation = 0;  // of the open file: a set of an earlier one sends nothing
    std::weak_ptr<Impl> self;      // for the sets that send their changes here
};

}  // namespace bravona
