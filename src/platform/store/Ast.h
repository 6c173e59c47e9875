#pragma once

#include <cstdint>
#include <memory>
#include <string_view>
#include <vector>

#include "platform/store/Recordset.h"

namespace bravona {

// A parsed statement. Names are slices of the statement, positions byte offsets in it, literals indices into its
// tokens.

struct Select;
struct Scope;

enum class ExprKind : std::uint8_t {
    literal,
    null,
    yesNo,
    column,
    negate,
    logicalNot,
    logicalAnd,
    logicalOr,
    compare,     // symbol: = < > l g n
    arithmetic,  // symbol: + - * /
    like,
    in,
    between,
    isNull,
    call,
    related  // the key of a parent row, bound when a child set is read
};

struct Expr {
    ExprKind kind = ExprKind::null;
    char symbol = 0;
    bool negated = false;  // of a literal: its sign; NOT of LIKE, IN, BETWEEN, IS NULL
    bool star = false;     // COUNT(*)
    bool value = false;    // of yesNo
    std::uint32_t position = 0;
    std::uint32_t literal = 0;
    std::string_view table;  // of a column, as written; empty when bare
    std::string_view name;   // of a column or a function
    std::vector<std::unique_ptr<Expr>> operands;

    // --- found by the translator
    FieldType type = FieldType::text;
    // Its value in the engine is an exact fraction of euro rather than a count of ten-thousandths or a plain number.
    bool exact = false;
    const Scope* scope = nullptr;  // of a column: where its table stands, which one it is there, which of its columns
    std::size_t source = 0;
    std::size_t column = 0;
};
using ExprPtr = std::unique_ptr<Expr>;

enum class JoinKind : std::uint8_t { inner, left, right };

// A table or a join of two.
struct From {
    std::uint32_t position = 0;
    std::string_view table;
    std::string_view alias;
    JoinKind join = JoinKind::inner;
    std::unique_ptr<From> left;
    std::unique_ptr<From> right;
    ExprPtr on;

    [[nodiscard]] bool isTable() const { return left == nullptr; }
};
using FromPtr = std::unique_ptr<From>;

struct SelectItem {
    ExprPtr expr;            // empty for a star
    std::string_view table;  // of a star: `table.*`; empty for `*`
    std::string_view alias;
    std::uint32_t position = 0;
};

struct OrderItem {
    ExprPtr expr;
    bool descending = false;
    const Expr* aliasOf = nullptr;  // found by the translator: the item of the result that is sorted by
};

struct Select {
    bool distinct = false;
    bool hasTop = false;
    std::uint32_t top = 0;  // literal
    std::vector<SelectItem> items;
    FromPtr from;
    ExprPtr where;
    std::vector<ExprPtr> groupBy;
    std::vector<OrderItem> orderBy;
    Scope* scope = nullptr;  // made by the translator
};

struct Assignment {
    std::uint32_t position = 0;
    std::string_view table;
    std::string_view column;
    ExprPtr value;
};

enum class StatementKind : std::uint8_t { select, update, remove, insert };

struct Statement {
    StatementKind kind = StatementKind::select;
    std::unique_ptr<Select> select;
    FromPtr from;  // what an UPDATE changes; the table of a DELETE or an INSERT
    std::vector<Assignment> assignments;
    std::vector<Assignment> columns;  // of an INSERT, without values
    std::vector<ExprPtr> values;
    ExprPtr where;
};

}  // namespace bravona
