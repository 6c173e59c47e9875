#include "platform/store/ExpressionWriter.h"

#include "platform/store/ExpressionKinds.h"

namespace bravona {
namespace {

constexpr std::string_view collate = " COLLATE ITALIANO";

Bind storedBind(FieldType target)
{
    switch (target) {
    case FieldType::counter:
    case FieldType::longInt:
        return Bind::whole;
    case FieldType::integer:
        return Bind::shortWhole;
    case FieldType::dbl:
        return Bind::real;
    case FieldType::currency:
        return Bind::money;
    case FieldType::date:
        return Bind::date;
    case FieldType::yesNo:
        return Bind::yesNo;
    case FieldType::text:
    case FieldType::chapter:
        break;
    }
    return Bind::text;
}

std::string_view engineOperator(char op)
{
    switch (op) {
    case 'l':
        return " <= ";
    case 'g':
        return " >= ";
    case 'n':
        return " <> ";
    case '<':
        return " < ";
    case '>':
        return " > ";
    default:
        return " = ";
    }
}

}  // namespace

void ExpressionWriter::putParam(const Expr& literal, Bind as)
{
    out_.params.push_back(Param{literal.literal, literal.negated, as});
    write("?");
}

void ExpressionWriter::put(const Expr& e)
{
    switch (e.kind) {
    case ExprKind::literal: {
        const LiteralKind kind = literalOf(e).kind;
        putParam(e, kind == LiteralKind::number ? Bind::number : (kind == LiteralKind::date ? Bind::date : Bind::text));
        break;
    }
    case ExprKind::null:
        write("NULL");
        break;
    case ExprKind::yesNo:
        write(e.value ? "1" : "0");
        break;
    case ExprKind::column: {
        const Source& source = e.scope->sources[e.source];
        write(source.emitted);
        write(".");
        write(engineName(source.table->columns()[e.column].name));
        break;
    }
    case ExprKind::negate:
        write(e.exact ? "bv_neg(" : "-(");
        put(*e.operands[0]);
        write(")");
        break;
    case ExprKind::logicalNot:
        write("(NOT ");
        put(*e.operands[0]);
        write(")");
        break;
    case ExprKind::logicalAnd:
        putChain(e, " AND ");
        break;
    case ExprKind::logicalOr:
        putChain(e, " OR ");
        break;
    case ExprKind::compare:
        putComparison(*e.operands[0], e.symbol, *e.operands[1], e.position);
        break;
    case ExprKind::arithmetic:
        putArithmetic(e);
        break;
    case ExprKind::like:
        putLike(e);
        break;
    case ExprKind::in:
        putIn(e);
        break;
    case ExprKind::between:
        write(e.negated ? "(NOT (" : "(");
        putComparison(*e.operands[0], 'g', *e.operands[1], e.position);
        write(" AND ");
        putComparison(*e.operands[0], 'l', *e.operands[2], e.position);
        write(e.negated ? "))" : ")");
        break;
    case ExprKind::isNull:
        write("(");
        put(*e.operands[0]);
        write(e.negated ? " IS NOT NULL)" : " IS NULL)");
        break;
    case ExprKind::call:
        putCall(e);
        break;
    case ExprKind::related:
        out_.params.push_back(Param{0, false, Bind::related});
        write("?");
        break;
    }
}

void ExpressionWriter::putChain(const Expr& e, std::string_view word)
{
    write("(");
    for (std::size_t i = 0; i < e.operands.size(); ++i) {
        if (i > 0) {
            write(word);
        }
        put(*e.operands[i]);
    }
    write(")");
}

void ExpressionWriter::putExact(const Expr& e)
{
    if (isLiteral(e)) {
        if (literalOf(e).kind != LiteralKind::number) {
            fail(3464, e.position, "il calcolo vuole numeri");
        }
        putParam(e, Bind::exact);
    } else if (isScaled(e)) {
        write("bv_eur(");
        put(e);
        write(")");
    } else {
        put(e);
    }
}

void ExpressionWriter::putArithmetic(const Expr& e)
{
    const Expr& a = *e.operands[0];
    const Expr& b = *e.operands[1];
    const auto function = [&](std::string_view name, auto&& operand) {
        write(name);
        operand(a);
        write(", ");
        operand(b);
        write(")");
    };
    const auto exact = [this](const Expr& x) { putExact(x); };
    const auto plain = [this](const Expr& x) { put(x); };
    if (e.exact) {
        const std::string_view name =
            e.symbol == '+' ? "bv_add(" : (e.symbol == '-' ? "bv_sub(" : (e.symbol == '*' ? "bv_mul(" : "bv_div("));
        function(name, exact);
    } else if (isScaled(e)) {
        function(e.symbol == '+' ? "bv_cadd(" : "bv_csub(", plain);
    } else if (e.symbol == '/') {
        function("bv_fdiv(", plain);
    } else {
        write("(");
        put(a);
        write(e.symbol == '+' ? " + " : (e.symbol == '-' ? " - " : " * "));
        put(b);
        write(")");
    }
}

void ExpressionWriter::putComparison(const Expr& a, char op, const Expr& b, std::size_t position)
{
    if (isNull(a) || isNull(b)) {
        write("NULL");
        return;
    }
    write("(");
    if (isMoney(a) || isMoney(b)) {
        if ((isScaled(a) && isLiteral(b)) || (isScaled(b) && isLiteral(a))) {
            isLiteral(a) ? putComparedLiteral(a, b, op) : put(a);
            write(engineOperator(op));
            isLiteral(b) ? putComparedLiteral(b, a, op) : put(b);
        } else if (isScaled(a) && isScaled(b)) {
            put(a);
            write(engineOperator(op));
            put(b);
        } else if (isNumber(a) && isNumber(b)) {
            write("bv_cmp(");
            putExact(a);
            write(", ");
            putExact(b);
            write(")");
            write(engineOperator(op));
            write("0");
        } else {
            fail(3464, position, "tipi diversi nel confronto");
        }
    } else if (isLiteral(a) != isLiteral(b)) {
        isLiteral(a) ? putComparedLiteral(a, b, op) : put(a);
        if (a.type == FieldType::text && b.type == FieldType::text && a.kind != ExprKind::column &&
            b.kind != ExprKind::column) {
            write(collate);
        }
        write(engineOperator(op));
        isLiteral(b) ? putComparedLiteral(b, a, op) : put(b);
    } else {
        const bool texts = a.type == FieldType::text && b.type == FieldType::text;
        if (!texts && (a.type == FieldType::text || b.type == FieldType::text)) {
            fail(3464, position, "tipi diversi nel confronto");
        }
        put(a);
        if (texts && a.kind != ExprKind::column && b.kind != ExprKind::column) {
            write(collate);
        }
        write(engineOperator(op));
        put(b);
    }
    write(")");
}

void ExpressionWriter::putComparedLiteral(const Expr& literal, const Expr& with, char op)
{
    const LiteralKind kind = literalOf(literal).kind;
    if (isMoney(with)) {
        putParam(literal, Bind::moneyCompare);
        return;
    }
    switch (with.type) {
    case FieldType::text:
        // A number has no place in the order of texts.
        if (kind == LiteralKind::number && op != '=' && op != 'n') {
            fail(3464, literal.position, "tipi diversi nel confronto");
        }
        putParam(literal, Bind::text);
        break;
    case FieldType::date:
        putParam(literal, kind == LiteralKind::number ? Bind::number : Bind::date);
        break;
    case FieldType::yesNo:
        putParam(literal, Bind::yesNo);
        break;
    default:
        putParam(literal, kind == LiteralKind::date ? Bind::date : Bind::number);
        break;
    }
}

void ExpressionWriter::putLike(const Expr& e)
{
    write(e.negated ? "(NOT bv_like(" : "bv_like(");
    putText(*e.operands[0]);
    write(", ");
    if (isLiteral(*e.operands[1])) {
        putParam(*e.operands[1], Bind::text);
    } else {
        putText(*e.operands[1]);
    }
    write(e.negated ? "))" : ")");
}

bool ExpressionWriter::fitsList(const Expr& item, const Expr& with) const
{
    return isLiteral(item) && !with.exact &&
           (with.type != FieldType::text || literalOf(item).kind != LiteralKind::date);
}

void ExpressionWriter::putIn(const Expr& e)
{
    const Expr& left = *e.operands[0];
    write(e.negated ? "(NOT (" : "(");
    bool list = !isLiteral(left) && !isNull(left);
    for (std::size_t i = 1; i < e.operands.size(); ++i) {
        list = list && fitsList(*e.operands[i], left);
    }
    if (list) {
        putCollated(left);
        write(" IN (");
    }
    for (std::size_t i = 1; i < e.operands.size(); ++i) {
        if (list) {
            write(i > 1 ? ", " : "");
            putComparedLiteral(*e.operands[i], left, '=');
        } else {
            write(i > 1 ? " OR " : "");
            putComparison(left, '=', *e.operands[i], e.position);
        }
    }
    write(list ? ")" : "");
    write(e.negated ? "))" : ")");
}

void ExpressionWriter::putCollated(const Expr& e)
{
    put(e);
    if (e.type == FieldType::text && e.kind != ExprKind::column) {
        write(collate);
    }
}

void ExpressionWriter::putSorted(const Expr& e)
{
    if (e.exact) {
        write("bv_real(");
        put(e);
        write(")");
    } else {
        putCollated(e);
    }
}

void ExpressionWriter::putOutput(const Expr& e)
{
    if (e.exact) {
        write(e.type == FieldType::currency ? "bv_money(" : "bv_real(");
        put(e);
        write(")");
    } else {
        put(e);
    }
}

void ExpressionWriter::putText(const Expr& e)
{
    if (e.type == FieldType::text || isNull(e)) {
        put(e);
        return;
    }
    write("bv_text(");
    putOutput(e);
    write(", ");
    write(std::to_string(static_cast<int>(e.type)));
    write(")");
}

void ExpressionWriter::putStoredLiteral(const Expr& e, FieldType target)
{
    const LiteralKind kind = literalOf(e).kind;
    if (kind == LiteralKind::date && target != FieldType::date && target != FieldType::text) {
        fail(3464, e.position, "una data non va in questa colonna");
    }
    putParam(e, storedBind(target));
}

void ExpressionWriter::putStored(const Expr& e, FieldType target)
{
    if (isLiteral(e)) {
        putStoredLiteral(e, target);
        return;
    }
    if (isNull(e)) {
        write("NULL");
        return;
    }
    const auto wrapped = [this](std::string_view function, const Expr& x, bool exact, std::string_view tail) {
        write(function);
        exact ? putExact(x) : put(x);
        write(tail);
    };
    bool understood = true;
    switch (target) {
    case FieldType::currency:
        if (isScaled(e)) {
            put(e);
        } else if (isNumber(e)) {
            wrapped("bv_money(", e, false, ")");
        } else {
            understood = false;
        }
        break;
    case FieldType::dbl:
        if (isNumber(e)) {
            wrapped("bv_real(", e, true, ")");
        } else {
            understood = false;
        }
        break;
    case FieldType::counter:
    case FieldType::longInt:
    case FieldType::integer:
        if (e.type == FieldType::yesNo) {
            wrapped("-(", e, false, ")");  // True is -1 as a number
        } else if (isNumber(e)) {
            wrapped("bv_whole(", e, true, target == FieldType::integer ? ", 16)" : ", 32)");
        } else {
            understood = false;
        }
        break;
    case FieldType::date:
        understood = e.type == FieldType::date || isWhole(e);
        if (understood) {
            put(e);
        }
        break;
    case FieldType::yesNo:
        understood = e.type == FieldType::yesNo || (isNumber(e) && !e.exact);
        if (understood) {
            wrapped("(", e, false, " <> 0)");
        }
        break;
    case FieldType::text:
    case FieldType::chapter:
        putText(e);
        break;
    }
    if (!understood) {
        fail(3464, e.position, "il valore non va in una colonna di questo tipo");
    }
}

}  // namespace bravona
