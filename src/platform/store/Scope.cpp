#include "platform/store/Scope.h"

#include "platform/store/Translator.h"

namespace bravona {
namespace {

constexpr std::size_t npos = NameIndex::npos;

void found(Expr& e, const Scope& scope, std::size_t source, std::size_t column)
{
    e.scope = &scope;
    e.source = source;
    e.column = column;
    e.type = scope.sources[source].table->columns()[column].type;
}

bool findQualified(Expr& e, const Scope& scope, std::string_view table, std::string_view name)
{
    const std::size_t source = findSource(scope, table);
    if (source == npos) {
        return false;
    }
    const std::size_t column = scope.sources[source].table->set->index.find(name);
    if (column == npos) {
        return false;
    }
    found(e, scope, source, column);
    return true;
}

bool findBare(Expr& e, const Scope& scope, std::string_view name, const Tokens& tokens)
{
    std::size_t source = npos;
    std::size_t column = npos;
    for (std::size_t i = 0; i < scope.sources.size(); ++i) {
        const std::size_t c = scope.sources[i].table->set->index.find(name);
        if (c == npos) {
            continue;
        }
        if (source != npos) {
            throw statementError(3079, tokens.statement, e.position, "il nome appartiene a più tabelle");
        }
        source = i;
        column = c;
    }
    if (source == npos) {
        return false;
    }
    found(e, scope, source, column);
    return true;
}

}  // namespace

std::size_t findSource(const Scope& scope, std::string_view name)
{
    for (std::size_t i = 0; i < scope.sources.size(); ++i) {
        if (sameName(scope.sources[i].name, name)) {
            return i;
        }
    }
    return npos;
}

void addSources(const From& from, Catalogue& catalogue, const Tokens& tokens, Scope& scope)
{
    if (!from.isTable()) {
        addSources(*from.left, catalogue, tokens, scope);
        addSources(*from.right, catalogue, tokens, scope);
        return;
    }
    const Table* table = catalogue.find(from.table);
    if (table == nullptr) {
        throw statementError(3078, tokens.statement, from.position, "la tabella non esiste");
    }
    Source source;
    source.table = table;
    source.name = from.alias.empty() ? from.table : from.alias;
    source.emitted = engineName(from.alias.empty() ? std::string_view(table->name) : from.alias);
    if (findSource(scope, source.name) != npos) {
        throw statementError(3075, tokens.statement, from.position, "la tabella compare due volte con lo stesso nome");
    }
    scope.sources.push_back(std::move(source));
}

void resolveColumn(Expr& e, const Scope& scope, const Tokens& tokens)
{
    if (e.table.empty() ? findBare(e, scope, e.name, tokens) : findQualified(e, scope, e.table, e.name)) {
        return;
    }
    // Brackets only quote: a name with a point in them is a qualified one.
    const std::size_t point = e.table.empty() ? e.name.find('.') : std::string_view::npos;
    if (point != std::string_view::npos && findQualified(e, scope, e.name.substr(0, point), e.name.substr(point + 1))) {
        return;
    }
    throw statementError(3061, tokens.statement, e.position, "il nome non esiste");
}

}  // namespace bravona
