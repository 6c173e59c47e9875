#include "platform/store/Translator.h"

#include "platform/store/ExpressionWriter.h"
#include "platform/store/Parser.h"

namespace bravona {
namespace {

ExprPtr both(ExprPtr one, ExprPtr other)
{
    if (!one) {
        return other;
    }
    auto e = std::make_unique<Expr>();
    e->kind = ExprKind::logicalAnd;
    e->operands.push_back(std::move(one));
    e->operands.push_back(std::move(other));
    return e;
}

class StatementWriter final : public ExpressionWriter {
public:
    StatementWriter(const Tokens& tokens, Catalogue& catalogue, Translation& out)
        : ExpressionWriter(tokens, catalogue, out)
    {}

    void select(Select& s, const TranslateOptions& options)
    {
        if (!options.relatedColumn.empty()) {
            restrict(s, options.relatedColumn);
        }
        analyseSelect(s, nullptr);
        out_.updatable = options.updatable && isUpdatable(s);
        if (out_.updatable) {
            out_.table = s.scope->sources.front().table->name;
        }
        out_.columns = std::make_shared<const ColumnSet>(columnsOf(s));
        putSelect(s, false);
    }

    void update(Statement& s);
    void remove(Statement& s);
    void insert(Statement& s);

    void analyseSelect(Select& select, const Scope* outer) override;
    void putSelect(const Select& select, bool asSubquery) override;

private:
    Scope& newScope() { return *scopes_.emplace_back(std::make_unique<Scope>()); }
    void restrict(Select& s, std::string_view column);
    void expandStars(Select& s, const Scope& scope);
    void analyseOn(From& from, const Scope& scope);
    static bool hasAggregate(const Expr& e);
    static bool isUpdatable(const Select& s);
    [[nodiscard]] std::vector<ColumnInfo> columnsOf(const Select& s) const;
    void orderBy(Select& s, const Scope& scope);

    void putFrom(const From& from, const Scope& scope);
    void putJoin(const From& left, std::string_view word, const From& right, const Expr& on, const Scope& scope);
    void putOperand(const From& from, const Scope& scope, bool nested);
    void putWhere(const Expr* where);
    void putAssignments(const Statement& s, const Scope& scope, std::size_t target, const Scope* related);
    std::size_t targetOf(const Statement& s, const Scope& scope) const;
    [[nodiscard]] const ColumnInfo& columnOf(const Assignment& a, const Table& table) const;
    static bool refersOnlyTo(const Expr& e, std::size_t source);
    void rename(Scope& scope) const;

    std::vector<std::unique_ptr<Scope>> scopes_;
};

// --- SELECT

void StatementWriter::restrict(Select& s, std::string_view column)
{
    auto name = std::make_unique<Expr>();
    name->kind = ExprKind::column;
    const std::size_t point = column.find('.');
    name->name = point == std::string_view::npos ? column : column.substr(point + 1);
    name->table = point == std::string_view::npos ? std::string_view{} : column.substr(0, point);
    if (!s.from) {
        fail(3075, 0, "manca la tabella");
    }
    Scope& scope = newScope();
    addSources(*s.from, catalogue_, tokens_, scope);
    resolveColumn(*name, scope, tokens_);
    out_.relatedType = name->type;
    auto key = std::make_unique<Expr>();
    key->kind = ExprKind::related;
    key->type = name->type;
    auto equal = std::make_unique<Expr>();
    equal->kind = ExprKind::compare;
    equal->symbol = '=';
    equal->operands.push_back(std::move(name));
    equal->operands.push_back(std::move(key));
    s.where = both(std::move(s.where), std::move(equal));
}

void StatementWriter::analyseSelect(Select& s, const Scope* outer)
{
    Scope& scope = newScope();
    scope.outer = outer;
    s.scope = &scope;
    if (s.from) {
        addSources(*s.from, catalogue_, tokens_, scope);
        analyseOn(*s.from, scope);
    }
    expandStars(s, scope);
    for (SelectItem& item : s.items) {
        analyse(*item.expr, scope);
    }
    if (s.where) {
        analyse(*s.where, scope);
    }
    for (const ExprPtr& e : s.groupBy) {
        analyse(*e, scope);
    }
    if (s.having) {
        analyse(*s.having, scope);
    }
    orderBy(s, scope);
}

void StatementWriter::orderBy(Select& s, const Scope& scope)
{
    for (OrderItem& o : s.orderBy) {
        // An alias of the result may be sorted by, where no column has its name.
        bool alias = false;
        if (o.expr->kind == ExprKind::column && o.expr->table.empty()) {
            bool column = false;
            for (const Source& source : scope.sources) {
                column = column || source.table->set->index.find(o.expr->name) != NameIndex::npos;
            }
            for (std::size_t i = 0; !column && !alias && i < s.items.size(); ++i) {
                alias = !s.items[i].alias.empty() && sameName(s.items[i].alias, o.expr->name);
                if (alias) {
                    o.aliasOf = s.items[i].expr.get();
                }
            }
        }
        if (!alias) {
            analyse(*o.expr, scope);
        }
    }
}

void StatementWriter::analyseOn(From& from, const Scope& scope)
{
    if (from.isTable()) {
        return;
    }
    analyseOn(*from.left, scope);
    analyseOn(*from.right, scope);
    analyse(*from.on, scope);
}

void StatementWriter::expandStars(Select& s, const Scope& scope)
{
    std::vector<SelectItem> items;
    for (SelectItem& item : s.items) {
        if (item.expr) {
            items.push_back(std::move(item));
            continue;
        }
        const std::size_t only = item.table.empty() ? NameIndex::npos : findSource(scope, item.table);
        if (scope.sources.empty() || (!item.table.empty() && only == NameIndex::npos)) {
            fail(item.table.empty() ? 3075 : 3078, item.position, "la tabella non esiste");
        }
        for (std::size_t i = 0; i < scope.sources.size(); ++i) {
            if (only != NameIndex::npos && only != i) {
                continue;
            }
            for (const ColumnInfo& column : scope.sources[i].table->columns()) {
                SelectItem& one = items.emplace_back();
                one.position = item.position;
                one.expr = std::make_unique<Expr>();
                one.expr->kind = ExprKind::column;
                one.expr->position = item.position;
                one.expr->table = scope.sources[i].name;
                one.expr->name = column.name;
            }
        }
    }
    s.items = std::move(items);
}

bool StatementWriter::hasAggregate(const Expr& e)
{
    if (e.kind == ExprKind::call) {
        const ExpressionFunction* f = findExpressionFunction(e.name);
        if (f != nullptr && f->id <= FunctionId::count) {
            return true;
        }
    }
    for (const ExprPtr& operand : e.operands) {
        if (hasAggregate(*operand)) {
            return true;
        }
    }
    return false;
}

bool StatementWriter::isUpdatable(const Select& s)
{
    if (!s.from || !s.from->isTable() || s.distinct || !s.groupBy.empty() || s.having) {
        return false;
    }
    for (const SelectItem& item : s.items) {
        if (hasAggregate(*item.expr)) {
            return false;
        }
    }
    return true;
}

std::vector<ColumnInfo> StatementWriter::columnsOf(const Select& s) const
{
    std::vector<ColumnInfo> columns;
    columns.reserve(s.items.size());
    for (const SelectItem& item : s.items) {
        const Expr& e = *item.expr;
        ColumnInfo& c = columns.emplace_back();
        c.type = e.type;
        if (e.kind == ExprKind::column) {
            const Table& table = *e.scope->sources[e.source].table;
            c.table = table.name;
            c.column = table.columns()[e.column].name;
            c.name = e.name;
        } else {
            c.name = "Espr" + std::to_string(columns.size());
        }
        if (!item.alias.empty()) {
            c.name = item.alias;
        }
    }
    // Names that a join has twice come back qualified.
    std::vector<std::string> qualified(columns.size());
    for (std::size_t i = 0; i < columns.size(); ++i) {
        const Expr& e = *s.items[i].expr;
        if (e.kind != ExprKind::column || !s.items[i].alias.empty()) {
            continue;
        }
        for (std::size_t j = 0; j < columns.size(); ++j) {
            if (j != i && sameName(columns[i].name, columns[j].name) &&
                (s.items[j].expr->kind != ExprKind::column || s.items[j].expr->source != e.source)) {
                qualified[i] = std::string(e.scope->sources[e.source].name) + "." + columns[i].name;
                break;
            }
        }
    }
    for (std::size_t i = 0; i < columns.size(); ++i) {
        if (!qualified[i].empty()) {
            columns[i].name = std::move(qualified[i]);
        }
    }
    return columns;
}

void StatementWriter::putSelect(const Select& s, bool asSubquery)
{
    write("SELECT ");
    if (s.distinct) {
        write("DISTINCT ");
    }
    if (out_.updatable && !asSubquery) {
        write(s.scope->sources.front().emitted);
        write(".rowid, ");
    }
    for (std::size_t i = 0; i < s.items.size(); ++i) {
        if (i > 0) {
            write(", ");
        }
        putOutput(*s.items[i].expr);
    }
    if (s.from) {
        write(" FROM ");
        putFrom(*s.from, *s.scope);
    }
    putWhere(s.where.get());
    for (std::size_t i = 0; i < s.groupBy.size(); ++i) {
        write(i == 0 ? " GROUP BY " : ", ");
        putSorted(*s.groupBy[i]);
    }
    if (s.having) {
        write(" HAVING ");
        put(*s.having);
    }
    for (std::size_t i = 0; i < s.orderBy.size(); ++i) {
        write(i == 0 ? " ORDER BY " : ", ");
        putSorted(s.orderBy[i].aliasOf != nullptr ? *s.orderBy[i].aliasOf : *s.orderBy[i].expr);
        if (s.orderBy[i].descending) {
            write(" DESC");
        }
    }
    if (s.hasTop) {
        out_.params.push_back(Param{s.top, false, Bind::whole});
        write(" LIMIT ?");
    }
}

// --- FROM

void StatementWriter::putFrom(const From& from, const Scope& scope)
{
    if (from.isTable()) {
        const Source& source = scope.sources[findSource(scope, from.alias.empty() ? from.table : from.alias)];
        const std::string name = engineName(source.table->name);
        write(name);
        if (source.emitted != name) {
            write(" AS ");
            write(source.emitted);
        }
        return;
    }
    switch (from.join) {
    case JoinKind::right:
        putJoin(*from.right, " LEFT JOIN ", *from.left, *from.on, scope);
        break;
    case JoinKind::left:
        putJoin(*from.left, " LEFT JOIN ", *from.right, *from.on, scope);
        break;
    case JoinKind::inner:
        // The sides of an inner join may change places: joins nested on the left need no parentheses.
        if (from.left->isTable() && !from.right->isTable()) {
            putJoin(*from.right, " INNER JOIN ", *from.left, *from.on, scope);
        } else {
            putJoin(*from.left, " INNER JOIN ", *from.right, *from.on, scope);
        }
        break;
    }
}

void StatementWriter::putJoin(const From& left, std::string_view word, const From& right, const Expr& on,
                              const Scope& scope)
{
    putFrom(left, scope);
    write(word);
    putOperand(right, scope, true);
    write(" ON ");
    put(on);
}

void StatementWriter::putOperand(const From& from, const Scope& scope, bool nested)
{
    const bool parentheses = nested && !from.isTable();
    write(parentheses ? "(" : "");
    putFrom(from, scope);
    write(parentheses ? ")" : "");
}

void StatementWriter::putWhere(const Expr* where)
{
    if (where != nullptr) {
        write(" WHERE ");
        put(*where);
    }
}

// --- UPDATE, DELETE, INSERT

const ColumnInfo& StatementWriter::columnOf(const Assignment& a, const Table& table) const
{
    const std::size_t point = a.table.empty() ? a.column.find('.') : std::string_view::npos;
    const std::string_view name = point == std::string_view::npos ? a.column : a.column.substr(point + 1);
    const std::size_t column = table.set->index.find(name);
    if (column == NameIndex::npos) {
        fail(3061, a.position, "il nome non esiste");
    }
    return table.columns()[column];
}

std::size_t StatementWriter::targetOf(const Statement& s, const Scope& scope) const
{
    std::size_t target = NameIndex::npos;
    for (const Assignment& a : s.assignments) {
        Expr e;
        e.kind = ExprKind::column;
        e.position = a.position;
        e.table = a.table;
        e.name = a.column;
        resolveColumn(e, scope, tokens_);
        if (target != NameIndex::npos && target != e.source) {
            fail(3075, a.position, "si può modificare una sola tabella alla volta");
        }
        target = e.source;
    }
    return target;
}

bool StatementWriter::refersOnlyTo(const Expr& e, std::size_t source)
{
    if (e.kind == ExprKind::column && e.source != source) {
        return false;
    }
    if (e.select) {
        return false;
    }
    for (const ExprPtr& operand : e.operands) {
        if (!refersOnlyTo(*operand, source)) {
            return false;
        }
    }
    return true;
}

// The tables of an UPDATE's own joins get names that the table being changed cannot be mistaken for.
void StatementWriter::rename(Scope& scope) const
{
    for (std::size_t i = 0; i < scope.sources.size(); ++i) {
        scope.sources[i].emitted = "\"j" + std::to_string(i) + "\"";
    }
}

void StatementWriter::putAssignments(const Statement& s, const Scope& scope, std::size_t target, const Scope* related)
{
    const Table& table = *scope.sources[target].table;
    for (std::size_t i = 0; i < s.assignments.size(); ++i) {
        const Assignment& a = s.assignments[i];
        const ColumnInfo& column = columnOf(a, table);
        write(i > 0 ? ", " : "");
        write(engineName(column.name));
        write(" = ");
        if (related == nullptr) {
            putStored(*a.value, column.type);
            continue;
        }
        write("(SELECT ");
        putStored(*a.value, column.type);
        write(" FROM ");
        putFrom(*s.from, *related);
        write(" WHERE ");
        if (s.where) {
            put(*s.where);
            write(" AND ");
        }
        write(related->sources[target].emitted);
        write(".rowid = ");
        write(engineName(table.name));
        write(".rowid LIMIT 1)");
    }
}

void StatementWriter::update(Statement& s)
{
    Scope& scope = newScope();
    addSources(*s.from, catalogue_, tokens_, scope);
    analyseOn(*s.from, scope);
    for (Assignment& a : s.assignments) {
        analyse(*a.value, scope);
    }
    if (s.where) {
        analyse(*s.where, scope);
    }
    const std::size_t target = targetOf(s, scope);
    const Table& table = *scope.sources[target].table;
    out_.table = table.name;
    write("UPDATE ");
    write(engineName(table.name));
    write(" SET ");
    if (s.from->isTable()) {
        scope.sources[target].emitted = engineName(table.name);
        putAssignments(s, scope, target, nullptr);
        putWhere(s.where.get());
        return;
    }
    bool ownValues = true;
    for (const Assignment& a : s.assignments) {
        ownValues = ownValues && refersOnlyTo(*a.value, target);
    }
    if (ownValues) {
        scope.sources[target].emitted = engineName(table.name);
        putAssignments(s, scope, target, nullptr);
    }
    rename(scope);
    if (!ownValues) {
        putAssignments(s, scope, target, &scope);
    }
    write(" WHERE rowid IN (SELECT ");
    write(scope.sources[target].emitted);
    write(".rowid FROM ");
    putFrom(*s.from, scope);
    putWhere(s.where.get());
    write(")");
}

void StatementWriter::remove(Statement& s)
{
    Scope& scope = newScope();
    addSources(*s.from, catalogue_, tokens_, scope);
    const Table& table = *scope.sources.front().table;
    scope.sources.front().emitted = engineName(table.name);
    out_.table = table.name;
    if (s.where) {
        analyse(*s.where, scope);
    }
    write("DELETE FROM ");
    write(engineName(table.name));
    putWhere(s.where.get());
}

void StatementWriter::insert(Statement& s)
{
    Scope& scope = newScope();
    addSources(*s.from, catalogue_, tokens_, scope);
    const Table& table = *scope.sources.front().table;
    out_.table = table.name;
    const std::size_t expected = s.columns.empty() ? table.columns().size() : s.columns.size();
    if (s.values.size() != expected) {
        fail(3346, s.from->position, "il numero dei valori non è quello delle colonne");
    }
    const Scope& nothing = newScope();
    for (const ExprPtr& e : s.values) {
        analyse(*e, nothing);
    }
    write("INSERT INTO ");
    write(engineName(table.name));
    write(" (");
    std::vector<FieldType> types;
    for (std::size_t i = 0; i < expected; ++i) {
        const ColumnInfo& column = s.columns.empty() ? table.columns()[i] : columnOf(s.columns[i], table);
        types.push_back(column.type);
        write(i > 0 ? ", " : "");
        write(engineName(column.name));
    }
    write(") VALUES (");
    for (std::size_t i = 0; i < expected; ++i) {
        write(i > 0 ? ", " : "");
        putStored(*s.values[i], types[i]);
    }
    write(")");
}

}  // namespace

std::string engineName(std::string_view name)
{
    std::string result;
    result.reserve(name.size() + 2);
    result += '"';
    for (const char c : name) {
        result += c;
        if (c == '"') {
            result += c;
        }
    }
    result += '"';
    return result;
}

Translation translate(const Tokens& tokens, Catalogue& catalogue, const TranslateOptions& options)
{
    Statement statement = parse(tokens);
    Translation out;
    out.kind = statement.kind;
    out.sql.reserve(tokens.statement.size() * 2);
    StatementWriter writer(tokens, catalogue, out);
    switch (statement.kind) {
    case StatementKind::select:
        writer.select(*statement.select, options);
        break;
    case StatementKind::update:
        writer.update(statement);
        break;
    case StatementKind::remove:
        writer.remove(statement);
        break;
    case StatementKind::insert:
        writer.insert(statement);
        break;
    }
    return out;
}

}  // namespace bravona
