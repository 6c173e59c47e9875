#include "platform/store/ExpressionFunctions.h"
#include "platform/store/ExpressionKinds.h"
#include "platform/store/ExpressionWriter.h"

namespace bravona {
namespace {

constexpr std::size_t longestWhole = 18;  // digits that surely fit 64 bits

FieldType literalType(const LiteralToken& l)
{
    switch (l.kind) {
    case LiteralKind::text:
        return FieldType::text;
    case LiteralKind::date:
        return FieldType::date;
    case LiteralKind::number:
        break;
    }
    return l.raw.size() <= longestWhole && l.raw.find_first_of(".eE") == std::string_view::npos ? FieldType::longInt
                                                                                                : FieldType::dbl;
}

}  // namespace

void ExpressionWriter::analyse(Expr& e, const Scope& scope)
{
    if (e.kind == ExprKind::column) {
        resolveColumn(e, scope, tokens_);
        return;
    }
    const ExpressionFunction* called = e.kind == ExprKind::call ? findExpressionFunction(e.name) : nullptr;
    const bool around = inAggregate_;
    inAggregate_ = around || (called != nullptr && called->id <= FunctionId::count);
    for (const ExprPtr& operand : e.operands) {
        analyse(*operand, scope);
    }
    inAggregate_ = around;
    switch (e.kind) {
    case ExprKind::literal:
        e.type = literalType(literalOf(e));
        break;
    case ExprKind::null:
        e.type = FieldType::longInt;
        break;
    case ExprKind::related:  // told beforehand
        break;
    case ExprKind::negate:
        if (!isNumber(*e.operands[0]) && !isNull(*e.operands[0])) {
            fail(3464, e.position, "il segno meno vuole un numero");
        }
        e.type = e.operands[0]->type;
        e.exact = e.operands[0]->exact;
        break;
    case ExprKind::arithmetic:
        analyseArithmetic(e);
        break;
    case ExprKind::logicalNot:
    case ExprKind::logicalAnd:
    case ExprKind::logicalOr:
        for (const ExprPtr& operand : e.operands) {
            needCondition(*operand);
        }
        e.type = FieldType::yesNo;
        break;
    case ExprKind::call:
        analyseCall(e);
        break;
    default:
        e.type = FieldType::yesNo;
        break;
    }
}

void ExpressionWriter::needCondition(const Expr& e) const
{
    if (e.type == FieldType::text || e.type == FieldType::date || isMoney(e)) {
        fail(3464, e.position, "attesa una condizione");
    }
}

void ExpressionWriter::analyseArithmetic(Expr& e) const
{
    const Expr& a = *e.operands[0];
    const Expr& b = *e.operands[1];
    if (isNull(a) || isNull(b)) {
        e.type = isNull(a) ? b.type : a.type;
        e.exact = isMoney(a) || isMoney(b);
        return;
    }
    if (!isNumber(a) || !isNumber(b)) {
        fail(3464, e.position, "il calcolo vuole numeri");
    }
    if (isMoney(a) || isMoney(b)) {
        const auto keepsMoney = [](const Expr& x) { return x.type != FieldType::dbl || isLiteral(x); };
        e.type = e.symbol != '/' && keepsMoney(a) && keepsMoney(b) ? FieldType::currency : FieldType::dbl;
        const bool sumOfScaled = (e.symbol == '+' || e.symbol == '-') && isScaled(a) && isScaled(b);
        e.exact = !sumOfScaled;
        return;
    }
    const bool real = e.symbol == '/' || a.type == FieldType::dbl || b.type == FieldType::dbl;
    e.type = real ? FieldType::dbl : FieldType::longInt;
}

void ExpressionWriter::analyseCall(Expr& e)
{
    const ExpressionFunction* f = findExpressionFunction(e.name);
    if (f == nullptr) {
        fail(3075, e.position, "la funzione non è conosciuta");
    }
    const bool countAll = e.star && f->id == FunctionId::count;
    if ((e.star && !countAll) || (!e.star && e.operands.size() != f->arguments)) {
        fail(3075, e.position, "numero di argomenti non valido");
    }
    if (inAggregate_ && f->id <= FunctionId::count) {
        fail(3075, e.position, "la funzione non si può usare qui");
    }
    e.type = f->result;
    e.exact = false;
    const Expr* first = e.operands.empty() ? nullptr : e.operands[0].get();
    switch (f->id) {
    case FunctionId::max:
    case FunctionId::min:
        e.type = first->type;
        break;
    case FunctionId::sum:
        if (!isNumber(*first)) {
            fail(3464, e.position, "la funzione vuole un numero");
        }
        e.exact = first->exact;
        e.type = first->type;
        break;
    case FunctionId::month:
    case FunctionId::year:
        if (first->type != FieldType::date && !isLiteral(*first) && !isNull(*first)) {
            fail(3464, e.position, "la funzione vuole una data");
        }
        break;
    default:
        break;
    }
}

}  // namespace bravona
