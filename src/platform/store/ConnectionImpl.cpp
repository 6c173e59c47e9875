#include "platform/store/ConnectionImpl.h"

#include <map>

#include "platform/store/RecordsetState.h"
#include "platform/store/ShapeText.h"
#include "platform/text/Text.h"

namespace bravona {
namespace {

constexpr std::size_t mostStatements = 96;

Value defaultOf(const ColumnInfo& column, const char* text)
{
    if (text == nullptr || sameName(text, "NULL")) {
        return {};
    }
    std::string_view plain(text);
    if (column.type == FieldType::text) {
        const bool isQuoted = plain.size() >= 2 && plain.front() == '\'' && plain.back() == '\'';
        return std::string(isQuoted ? plain.substr(1, plain.size() - 2) : plain);
    }
    return convertTo(Value(plain), column.type);
}

std::unique_ptr<Table> readDeclaration(sqlite3* db, const std::string& name)
{
    auto table = std::make_unique<Table>();
    table->name = name;
    bool hasCounter = false;
    {
        EngineStatement s(db, "SELECT sql LIKE '%AUTOINCREMENT%' FROM sqlite_master WHERE type = 'table' AND name = ?");
        s.bindText(1, name);
        hasCounter = s.step() && sqlite3_column_int(s.get(), 0) != 0;
    }
    EngineStatement s(db, "PRAGMA table_info(" + engineName(name) + ")");
    std::vector<ColumnInfo> columns;
    std::map<int, std::size_t> key;
    while (s.step()) {
        const auto text = [&](int i) { return reinterpret_cast<const char*>(sqlite3_column_text(s.get(), i)); };
        const int keyPlace = sqlite3_column_int(s.get(), 5);
        const bool counter = hasCounter && keyPlace == 1;
        const char* declared = text(2);
        ColumnInfo& c = columns.emplace_back();
        c.name = text(1);
        c.table = name;
        c.column = c.name;
        c.type = declaredType(declared != nullptr ? declared : "", counter);
        table->defaults.push_back(defaultOf(c, text(4)));
        if (counter) {
            table->counter = columns.size() - 1;
        }
        if (keyPlace > 0) {
            key[keyPlace] = columns.size() - 1;
        }
    }
    for (const auto& [place, column] : key) {
        table->key.push_back(column);
    }
    table->set = std::make_shared<const ColumnSet>(std::move(columns));
    return table;
}

}  // namespace

// --- StatementCache

PreparedStatement* StatementCache::find(std::string_view shape)
{
    const auto it = statements_.find(shape);
    if (it == statements_.end()) {
        return nullptr;
    }
    it->second.used = ++clock_;
    return &it->second;
}

PreparedStatement& StatementCache::add(const std::string& shape, PreparedStatement statement)
{
    if (statements_.size() >= mostStatements) {
        auto oldest = statements_.begin();
        for (auto it = statements_.begin(); it != statements_.end(); ++it) {
            if (it->second.used < oldest->second.used) {
                oldest = it;
            }
        }
        statements_.erase(oldest);
    }
    statement.used = ++clock_;
    return statements_.insert_or_assign(shape, std::move(statement)).first->second;
}

// --- Impl

void Connection::Impl::needOpen() const
{
    if (engine.get() == nullptr) {
        throw Errore(3420, "L'archivio non è aperto.");
    }
}

void Connection::Impl::take(Hold purpose)
{
    try {
        engine.run(purpose == Hold::toReplace ? "BEGIN EXCLUSIVE" : "BEGIN IMMEDIATE");
    } catch (const Errore& failure) {
        if (purpose == Hold::toReplace || failure.numero() != 3027) {
            throw;
        }
        // What cannot be written is held as by any reader.
        engine.run("BEGIN");
        engine.number("SELECT COUNT(*) FROM sqlite_master");
    }
    inTransaction = true;
    if (purpose == Hold::toReplace) {
        // The engine plays back a journal with something in it and passes over an empty one.
        discardJournal(path);
    }
}

void Connection::Impl::loadCatalogue()
{
    forgetStatements();
    std::vector<std::string> names;
    EngineStatement s(engine.get(), "SELECT name FROM sqlite_master WHERE type = 'table' AND name NOT LIKE 'sqlite_%'");
    while (s.step()) {
        names.emplace_back(reinterpret_cast<const char*>(sqlite3_column_text(s.get(), 0)));
    }
    catalogue.reset(std::move(names), [this](const std::string& name) { return readDeclaration(engine.get(), name); });
}

void Connection::Impl::forgetStatements()
{
    statements.clear();
    writers.clear();
    ++catalogueStamp;
}

PreparedStatement& Connection::Impl::prepare(std::string_view statement, const TranslateOptions& options)
{
    needOpen();
    // What else the translation depends on stands in front of the shape.
    std::string_view prefix = options.updatable ? "u" : "r";
    std::string related;
    if (!options.relatedColumn.empty()) {
        related = "c" + std::string(options.relatedColumn) + "\x03";
        prefix = related;
    }
    tokenize(statement, tokens, prefix);
    if (PreparedStatement* known = statements.find(tokens.shape)) {
        return *known;
    }
    PreparedStatement made;
    made.translation = translate(tokens, catalogue, options);
    made.engine = EngineStatement(engine.get(), made.translation.sql);
    return statements.add(tokens.shape, std::move(made));
}

Translation Connection::Impl::translation(std::string_view statement, const TranslateOptions& options)
{
    needOpen();
    tokenize(statement, tokens);
    return translate(tokens, catalogue, options);
}

std::int64_t Connection::Impl::execute(std::string_view statement)
{
    PreparedStatement& p = prepare(statement, {});
    if (p.translation.kind == StatementKind::select) {
        throw Errore(3065, "Un'istruzione SELECT non si esegue: si apre.");
    }
    beforeWrite(p.translation.table);
    const Running running(p.engine);
    binder.bind(p.engine, p.translation, tokens);
    p.engine.step();
    return engine.touched();
}

void Connection::Impl::readRows(PreparedStatement& p, RowStore& rows, const Value* related)
{
    const Running running(p.engine);
    binder.bind(p.engine, p.translation, tokens, related);
    sqlite3_stmt* s = p.engine.get();
    const int first = p.translation.updatable ? 1 : 0;
    const auto count = static_cast<int>(rows.columns());
    while (p.engine.step()) {
        const std::size_t r = rows.append();
        if (first == 1) {
            rows.setId(r, sqlite3_column_int64(s, 0));
        }
        for (int i = 0; i < count; ++i) {
            const auto column = static_cast<std::size_t>(i);
            switch (sqlite3_column_type(s, first + i)) {
            case SQLITE_INTEGER:
                rows.setWhole(r, column, sqlite3_column_int64(s, first + i));
                break;
            case SQLITE_FLOAT:
                rows.setReal(r, column, sqlite3_column_double(s, first + i));
                break;
            case SQLITE_NULL:
                break;
            default: {
                const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(s, first + i));
                rows.setText(r, column, {text, static_cast<std::size_t>(sqlite3_column_bytes(s, first + i))});
                break;
            }
            }
        }
    }
}

std::unique_ptr<Recordset::State> Connection::Impl::open(std::string_view statement, OpenMode mode)
{
    TranslateOptions options;
    options.updatable = mode != OpenMode::readOnly;
    needOpen();
    tokenize(statement, tokens, options.updatable ? "u" : "r");
    const std::vector<Token>& t = tokens.tokens;
    if (t.front().kind == TokenKind::word && sameName(t.front().text, "shape")) {
        return openHierarchy(statement);
    }
    if (t.size() == 2 && (t.front().kind == TokenKind::word || t.front().kind == TokenKind::quotedName)) {
        return openTable(table(t.front().text), mode);
    }
    PreparedStatement* p = statements.find(tokens.shape);
    if (p == nullptr) {
        p = &prepare(statement, options);
    }
    if (p->translation.kind != StatementKind::select) {
        throw Errore(3219, "L'istruzione non restituisce record.");
    }
    const bool updatable = p->translation.updatable;
    auto state = std::make_unique<Recordset::State>(
        p->translation.columns, std::make_shared<RowStore>(p->translation.columns->columns.size(), updatable));
    readRows(*p, *state->rows);
    state->rows->compact();
    state->allRows(0, state->rows->rows());
    if (updatable) {
        state->connection = self;
        state->generation = generation;
        state->table = p->translation.table;
        state->isBatch = mode == OpenMode::batch;
        state->places = TableWriter::places(state->set->columns, table(state->table));
    }
    return state;
}

std::unique_ptr<Recordset::State> Connection::Impl::openTable(const Table& t, OpenMode mode)
{
    auto state = std::make_unique<Recordset::State>(t.set, std::make_shared<RowStore>(t.columns().size(), true));
    state->isLoaded = false;
    state->connection = self;
    state->generation = generation;
    state->table = t.name;
    state->isBatch = mode == OpenMode::batch;
    if (mode != OpenMode::readOnly) {
        state->places = TableWriter::places(t.columns(), t);
    }
    return state;
}

std::shared_ptr<RowStore> Connection::Impl::readTable(const Table& t)
{
    std::string sql = "SELECT rowid";
    for (const ColumnInfo& c : t.columns()) {
        sql += ", " + engineName(c.name);
    }
    sql += " FROM " + engineName(t.name) + " ORDER BY ";
    for (const std::size_t column : t.key) {
        sql += engineName(t.columns()[column].name) + ", ";
    }
    sql += "rowid";
    PreparedStatement p;
    p.translation.updatable = true;
    p.engine = EngineStatement(engine.get(), sql);
    auto rows = std::make_shared<RowStore>(t.columns().size(), true);
    readRows(p, *rows);
    rows->compact();
    return rows;
}

std::unique_ptr<Recordset::State> Connection::Impl::openHierarchy(std::string_view statement)
{
    const ShapeText shape = parseShape(tokens);
    std::unique_ptr<Recordset::State> parent = open(shape.parent, OpenMode::readOnly);

    Chapter chapter;
    chapter.name = std::string(shape.name);
    const std::size_t column = parent->set->index.find(shape.parentColumn);
    if (column == NameIndex::npos) {
        throw statementError(3450, statement, static_cast<std::size_t>(shape.parentColumn.data() - statement.data()),
                             "la colonna di RELATE non esiste");
    }
    chapter.parentColumn = column;

    TranslateOptions options;
    options.relatedColumn = shape.childColumn;
    PreparedStatement& p = prepare(shape.child, options);
    if (p.translation.kind != StatementKind::select) {
        throw Errore(3219, "L'istruzione non restituisce record.");
    }
    chapter.columns = p.translation.columns;
    chapter.rows = std::make_shared<RowStore>(chapter.columns->columns.size());
    const FieldType keyType = parent->set->columns[column].type;
    std::map<std::string, Chapter::Stretch> known;  // several parents may share their children
    for (std::size_t r = 0; r < parent->rows->rows(); ++r) {
        const Value key = parent->rows->value(r, column, keyType);
        if (key.isNull()) {
            chapter.stretches.push_back({});
            continue;
        }
        const auto [it, isFirst] = known.try_emplace(fold(key.text()));
        if (isFirst) {
            const Value converted = convertTo(key, p.translation.relatedType);
            it->second.first = static_cast<std::uint32_t>(chapter.rows->rows());
            readRows(p, *chapter.rows, &converted);
            it->second.count = static_cast<std::uint32_t>(chapter.rows->rows()) - it->second.first;
        }
        chapter.stretches.push_back(it->second);
    }
    chapter.rows->compact();

    std::vector<ColumnInfo> columns = parent->set->columns;
    columns.push_back({chapter.name, FieldType::chapter, {}, {}});
    parent->set = std::make_shared<const ColumnSet>(std::move(columns));
    std::vector<Chapter> chapters;
    chapters.push_back(std::move(chapter));
    parent->chapters = std::make_shared<const std::vector<Chapter>>(std::move(chapters));
    return parent;
}

const Table& Connection::Impl::table(std::string_view name)
{
    needOpen();
    const Table* t = catalogue.find(name);
    if (t == nullptr) {
        throw Errore(3078, "La tabella \"" + std::string(name) + "\" non esiste.");
    }
    return *t;
}

TableWriter& Connection::Impl::writer(const Table& t)
{
    return writers.try_emplace(t.name, engine.get(), t).first->second;
}

void Connection::Impl::beforeWrite(const std::string& written) const
{
    if (hook) {
        hook(written);
    }
}

void Connection::Impl::allOrNothing(const std::function<void()>& changes)
{
    engine.run(inTransaction ? "SAVEPOINT gruppo" : "BEGIN IMMEDIATE");
    try {
        changes();
        engine.run(inTransaction ? "RELEASE gruppo" : "COMMIT");
    } catch (...) {
        if (sqlite3_get_autocommit(engine.get()) == 0) {
            engine.run(inTransaction ? "ROLLBACK TO gruppo" : "ROLLBACK");
            if (inTransaction) {
                engine.run("RELEASE gruppo");
            }
        }
        throw;
    }
}

}  // namespace bravona
