#include "platform/store/StatementWriter.h"

namespace bravona {

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
        analyseRow(*a.value, scope);
    }
    if (s.where) {
        analyseRow(*s.where, scope);
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
        analyseRow(*s.where, scope);
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
        analyseRow(*e, nothing);
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

}  // namespace bravona
