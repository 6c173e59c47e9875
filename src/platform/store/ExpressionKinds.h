#pragma once

#include "platform/store/Ast.h"

namespace bravona {

// Questions about an analysed expression.

inline bool isLiteral(const Expr& e)
{
    return e.kind == ExprKind::literal;
}
inline bool isNull(const Expr& e)
{
    return e.kind == ExprKind::null;
}
inline bool isWhole(const Expr& e)
{
    return e.type == FieldType::counter || e.type == FieldType::longInt || e.type == FieldType::integer;
}
// An amount, or a number that amounts went into.
inline bool isMoney(const Expr& e)
{
    return e.exact || e.type == FieldType::currency;
}
inline bool isNumber(const Expr& e)
{
    return isWhole(e) || e.type == FieldType::dbl || isMoney(e);
}
// A count of ten-thousandths in the engine.
inline bool isScaled(const Expr& e)
{
    return e.type == FieldType::currency && !e.exact;
}

}  // namespace bravona
