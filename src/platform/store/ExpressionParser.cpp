#include "platform/store/ExpressionParser.h"

namespace bravona {
namespace {

constexpr std::size_t longestChain = 400;

}  // namespace

ExprPtr ExpressionParser::node(ExprKind kind, std::size_t position, char symbol)
{
    auto e = std::make_unique<Expr>();
    e->kind = kind;
    e->position = static_cast<std::uint32_t>(position);
    e->symbol = symbol;
    return e;
}

ExprPtr ExpressionParser::expression()
{
    const Depth depth(*this);
    return chain("or", ExprKind::logicalOr,
                 [this] { return chain("and", ExprKind::logicalAnd, [this] { return negation(); }); });
}

template <typename Next>
ExprPtr ExpressionParser::chain(std::string_view word, ExprKind kind, Next next)
{
    ExprPtr first = next();
    if (!isWord(word)) {
        return first;
    }
    ExprPtr all = node(kind, peek().start);
    all->operands.push_back(std::move(first));
    while (takeWord(word)) {
        all->operands.push_back(next());
    }
    return all;
}

ExprPtr ExpressionParser::negation()
{
    if (isWord("not")) {
        const Depth depth(*this);
        ExprPtr e = node(ExprKind::logicalNot, take().start);
        e->operands.push_back(negation());
        return e;
    }
    return predicate();
}

ExprPtr ExpressionParser::predicate()
{
    ExprPtr left = sum();
    const Token& t = peek();
    if (t.kind == TokenKind::symbol) {
        switch (t.symbol) {
        case '=':
        case '<':
        case '>':
        case 'l':
        case 'g':
        case 'n': {
            ExprPtr e = node(ExprKind::compare, t.start, t.symbol);
            take();
            e->operands.push_back(std::move(left));
            e->operands.push_back(sum());
            return e;
        }
        default:
            return left;
        }
    }
    if (isWord("is")) {
        ExprPtr e = node(ExprKind::isNull, take().start);
        e->negated = takeWord("not");
        needWord("null", "atteso NULL dopo IS");
        e->operands.push_back(std::move(left));
        return e;
    }
    return wordPredicate(std::move(left));
}

ExprPtr ExpressionParser::wordPredicate(ExprPtr left)
{
    const bool negated = isWord("not") && (isWord("like", 1) || isWord("in", 1) || isWord("between", 1));
    if (negated) {
        take();
    }
    ExprPtr e;
    if (isWord("like")) {
        e = node(ExprKind::like, take().start);
        e->operands.push_back(std::move(left));
        e->operands.push_back(sum());
    } else if (isWord("between")) {
        e = node(ExprKind::between, take().start);
        e->operands.push_back(std::move(left));
        e->operands.push_back(sum());
        needWord("and", "atteso AND in BETWEEN");
        e->operands.push_back(sum());
    } else if (isWord("in")) {
        e = list(std::move(left));
    } else {
        return left;
    }
    e->negated = negated;
    return e;
}

ExprPtr ExpressionParser::list(ExprPtr left)
{
    ExprPtr e = node(ExprKind::in, take().start);
    e->operands.push_back(std::move(left));
    needSymbol('(', "attesa una parentesi dopo IN");
    do {
        e->operands.push_back(sum());
    } while (takeSymbol(','));
    needSymbol(')', "attesa una parentesi chiusa");
    return e;
}

ExprPtr ExpressionParser::sum()
{
    const Depth depth(*this);
    return operators('+', '-', [this] { return operators('*', '/', [this] { return unary(); }); });
}

template <typename Next>
ExprPtr ExpressionParser::operators(char one, char two, Next next)
{
    ExprPtr left = next();
    std::size_t links = 0;
    while (isSymbol(one) || isSymbol(two)) {
        if (++links > longestChain) {
            fail("espressione troppo lunga");
        }
        const Token& t = take();
        ExprPtr e = node(ExprKind::arithmetic, t.start, t.symbol);
        e->operands.push_back(std::move(left));
        e->operands.push_back(next());
        left = std::move(e);
    }
    return left;
}

ExprPtr ExpressionParser::unary()
{
    if (isSymbol('-') || isSymbol('+')) {
        const Depth depth(*this);
        const Token& t = take();
        ExprPtr operand = unary();
        if (t.symbol == '+') {
            return operand;
        }
        if (operand->kind == ExprKind::literal && !operand->negated &&
            all_.literals[operand->literal].kind == LiteralKind::number) {
            operand->negated = true;
            return operand;
        }
        ExprPtr e = node(ExprKind::negate, t.start);
        e->operands.push_back(std::move(operand));
        return e;
    }
    return primary();
}

ExprPtr ExpressionParser::primary()
{
    const Token& t = peek();
    if (t.kind == TokenKind::literal) {
        take();
        ExprPtr e = node(ExprKind::literal, t.start);
        e->literal = t.literal;
        return e;
    }
    if (isSymbol('(')) {
        take();
        ExprPtr e = expression();
        needSymbol(')', "attesa una parentesi chiusa");
        return e;
    }
    if (t.kind == TokenKind::word) {
        if (isSymbol('(', 1)) {
            return call();
        }
        if (sameName(t.text, "null")) {
            return node(ExprKind::null, take().start);
        }
        if (sameName(t.text, "true") || sameName(t.text, "false")) {
            ExprPtr e = node(ExprKind::yesNo, take().start);
            e->value = sameName(t.text, "true");
            return e;
        }
    }
    if (!isName()) {
        fail("attesi un nome o un valore");
    }
    ExprPtr e = node(ExprKind::column, t.start);
    e->name = take().text;
    if (takeSymbol('.')) {
        e->table = e->name;
        e->name = anyName("atteso un nome dopo il punto");
    }
    return e;
}

ExprPtr ExpressionParser::call()
{
    const Depth depth(*this);
    const Token& t = take();
    ExprPtr e = node(ExprKind::call, t.start);
    e->name = t.text;
    take();  // the parenthesis
    if (takeSymbol(')')) {
        return e;
    }
    if (isSymbol('*') && isSymbol(')', 1)) {
        take();
        e->star = true;
    } else {
        do {
            e->operands.push_back(expression());
        } while (takeSymbol(','));
    }
    needSymbol(')', "attesa una parentesi chiusa");
    return e;
}

}  // namespace bravona
