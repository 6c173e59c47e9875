#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/store/Ast.h"
#include "platform/store/Catalogue.h"
#include "platform/store/Tokenizer.h"

namespace bravona {

// What a literal becomes when it is bound.
enum class Bind : std::uint8_t {
    number,      // whole or real, as written
    shortWhole,  // 16 bits, halves to even
    whole,       // 32 bits, halves to even
    real,
    money,         // ten-thousandths, halves to even
    moneyCompare,  // ten-thousandths to compare with: what lies between two of them stays between
    exact,         // a fraction
    date,          // day number
    text,
    yesNo,
    related  // no literal: the key of the parent row
};

struct Param {
    std::uint32_t literal = 0;
    bool negated = false;
    Bind as = Bind::number;
};

// A statement in the engine's own words, its parameters in order.
struct Translation {
    StatementKind kind = StatementKind::select;
    std::string sql;
    std::vector<Param> params;
    std::shared_ptr<const ColumnSet> columns;  // of a SELECT
    std::string table;                         // that is written to, as the archive spells it
    bool updatable = false;                    // a SELECT on one table: the row's number precedes its columns
    FieldType relatedType = FieldType::longInt;
};

struct TranslateOptions {
    bool updatable = false;          // ask for the row numbers where the statement can be updated
    std::string_view relatedColumn;  // restrict a SELECT to the rows whose column equals the parent's key
};

// Throws Errore 3075 (not understood), 3061 (unknown column), 3078 (unknown table), 3079 (a column that several tables
// have), 3464 (types that do not go together), each with its place.
Translation translate(const Tokens& tokens, Catalogue& catalogue, const TranslateOptions& options = {});

// "name" as the engine quotes it.
std::string engineName(std::string_view name);

}  // namespace bravona
