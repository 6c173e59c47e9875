#include "platform/store/StatementWriter.h"

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

}  // namespace

void StatementWriter::select(Select& s, const TranslateOptions& options)
{
    if (!options.relatedColumn.empty()) {
        restrict(s, options.relatedColumn);
    }
    analyseSelect(s);
    out_.updatable = options.updatable && isUpdatable(s);
    if (out_.updatable) {
        out_.table = s.scope->sources.front().table->name;
    }
    out_.columns = std::make_shared<const ColumnSet>(columnsOf(s));
    putSelect(s);
}

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

void StatementWriter::analyseSelect(Select& s)
{
    Scope& scope = newScope();
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
        analyseRow(*s.where, scope);
    }
    for (const ExprPtr& e : s.groupBy) {
        analyseRow(*e, scope);
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
    analyseRow(*from.on, scope);
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

const Expr* StatementWriter::aggregateIn(const Expr& e)
{
    if (e.kind == ExprKind::call) {
        const ExpressionFunction* f = findExpressionFunction(e.name);
        if (f != nullptr && f->id <= FunctionId::count) {
            return &e;
        }
    }
    for (const ExprPtr& operand : e.operands) {
        if (const Expr* found = aggregateIn(*operand)) {
            return found;
        }
    }
    return nullptr;
}

void StatementWriter::analyseRow(Expr& e, const Scope& scope)
{
    if (const Expr* aggregate = aggregateIn(e)) {
        fail(3075, aggregate->position, "la funzione non si può usare qui");
    }
    analyse(e, scope);
}

bool StatementWriter::isUpdatable(const Select& s)
{
    return s.from && s.from->isTable() && isOfRows(s);
}

// Whether each row of the result comes from a row of its tables.
bool StatementWriter::isOfRows(const Select& s)
{
    if (!s.from || s.distinct || !s.groupBy.empty()) {
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

void StatementWriter::putSelect(const Select& s)
{
    write("SELECT ");
    if (s.distinct) {
        write("DISTINCT ");
    }
    if (out_.updatable) {
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
    putOrder(s);
    if (s.hasTop) {
        out_.params.push_back(Param{s.top, false, Bind::whole});
        write(" LIMIT ?");
    }
}

void StatementWriter::putOrder(const Select& s)
{
    for (std::size_t i = 0; i < s.orderBy.size(); ++i) {
        write(i == 0 ? " ORDER BY " : ", ");
        putSorted(s.orderBy[i].aliasOf != nullptr ? *s.orderBy[i].aliasOf : *s.orderBy[i].expr);
        if (s.orderBy[i].descending) {
            write(" DESC");
        }
    }
    // Rows that the statement leaves in no order come in that of their keys, whichever index the engine reads.
    if (!isOfRows(s)) {
        return;
    }
    bool first = s.orderBy.empty();
    for (const Source& source : s.scope->sources) {
        const auto put = [&](std::string_view column) {
            write(first ? " ORDER BY " : ", ");
            write(source.emitted);
            write(".");
            write(column);
            first = false;
        };
        for (const std::size_t column : source.table->key) {
            put(engineName(source.table->columns()[column].name));
        }
        if (source.table->key.empty()) {
            put("rowid");
        }
        if (!s.orderBy.empty()) {
            break;
        }
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

}  // namespace bravona
