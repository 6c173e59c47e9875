#include "platform/store/ExpressionKinds.h"
#include "platform/store/ExpressionWriter.h"

namespace bravona {

void ExpressionWriter::putAggregate(const Expr& e, const ExpressionFunction& f)
{
    const Expr& x = *e.operands[0];
    switch (f.id) {
    case FunctionId::sum:
        write(x.exact ? "bv_sum(" : "SUM(");
        put(x);
        write(")");
        break;
    case FunctionId::avg:
        if (isMoney(x)) {
            write("bv_div(bv_sum(");
            putExact(x);
            write("), COUNT(");
            put(x);
            write("))");
        } else {
            write("AVG(");
            put(x);
            write(")");
        }
        break;
    default:
        // The greatest and the least of exact fractions are taken as the result shows them.
        write(f.engine);
        write("(");
        putOutput(x);
        write(")");
        break;
    }
}

void ExpressionWriter::putCall(const Expr& e)
{
    const ExpressionFunction& f = *findExpressionFunction(e.name);
    switch (f.id) {
    case FunctionId::count:
        write("COUNT(");
        if (e.star) {
            write("*");
        } else {
            put(*e.operands[0]);
        }
        write(")");
        return;
    case FunctionId::max:
    case FunctionId::min:
    case FunctionId::sum:
    case FunctionId::avg:
        putAggregate(e, f);
        return;
    case FunctionId::iif:
        write("(CASE WHEN ");
        put(*e.operands[0]);
        write(" THEN ");
        putStored(*e.operands[1], e.type);
        write(" ELSE ");
        putStored(*e.operands[2], e.type);
        write(" END)");
        return;
    case FunctionId::abs:
        if (e.exact) {
            fail(3075, e.position, "la funzione non si applica a un calcolo di importi");
        }
        break;
    default:
        break;
    }
    write(f.engine);
    write("(");
    for (std::size_t i = 0; i < e.operands.size(); ++i) {
        const Expr& x = *e.operands[i];
        if (i > 0) {
            write(", ");
        }
        switch (f.id) {
        case FunctionId::month:
        case FunctionId::year:
        case FunctionId::day:
            putStored(x, FieldType::date);
            break;
        case FunctionId::format:
            i == 0 ? putOutput(x) : putStored(x, FieldType::text);
            break;
        case FunctionId::abs:
            put(x);
            break;
        default:
            putStored(x, i == 0 ? FieldType::text : FieldType::longInt);
            break;
        }
    }
    if (f.id == FunctionId::format) {
        write(", ");
        write(std::to_string(static_cast<int>(e.operands[0]->type)));
    }
    write(")");
}

}  // namespace bravona
