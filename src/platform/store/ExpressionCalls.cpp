#include "platform/store/ExpressionKinds.h"
#include "platform/store/ExpressionWriter.h"

namespace bravona {

void ExpressionWriter::putCall(const Expr& e)
{
    const ExpressionFunction& f = *findExpressionFunction(e.name);
    if (f.id == FunctionId::sum && e.operands[0]->exact) {
        write("bv_sum(");
        put(*e.operands[0]);
        write(")");
        return;
    }
    write(f.engine);
    write("(");
    switch (f.id) {
    case FunctionId::count:
    case FunctionId::sum:
        e.star ? write("*") : put(*e.operands[0]);
        break;
    case FunctionId::max:
    case FunctionId::min:
        // The greatest and the least of exact fractions are taken as the result shows them.
        putOutput(*e.operands[0]);
        break;
    case FunctionId::month:
    case FunctionId::year:
        putStored(*e.operands[0], FieldType::date);
        break;
    case FunctionId::format:
        putOutput(*e.operands[0]);
        write(", ");
        putStored(*e.operands[1], FieldType::text);
        write(", ");
        write(std::to_string(static_cast<int>(e.operands[0]->type)));
        break;
    }
    write(")");
}

}  // namespace bravona
