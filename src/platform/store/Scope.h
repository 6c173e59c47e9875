#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/store/Ast.h"
#include "platform/store/Catalogue.h"
#include "platform/store/Tokenizer.h"

namespace bravona {

// A table of a FROM clause, under the name that the statement gives it.
struct Source {
    const Table* table = nullptr;
    std::string_view name;  // as the statement calls it
    std::string emitted;    // as the engine calls it, quoted
};

// The tables that a statement's names may refer to.
struct Scope {
    std::vector<Source> sources;
    const Select* select = nullptr;  // whose aliases may be sorted by
};

// Adds the tables of a FROM clause in the order of writing. Errore 3078 for an unknown one.
void addSources(const From& from, Catalogue& catalogue, const Tokens& tokens, Scope& scope);

// Finds the column that a name means and notes it in the expression. Errore 3061, 3079.
void resolveColumn(Expr& e, const Scope& scope, const Tokens& tokens);

// The source that a name means, or npos.
std::size_t findSource(const Scope& scope, std::string_view name);

}  // namespace bravona
