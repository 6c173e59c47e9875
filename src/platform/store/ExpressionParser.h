#pragma once

#include <memory>

#include "platform/store/Ast.h"
#include "platform/store/TokenReader.h"

namespace bravona {

// Understands expressions and conditions.
class ExpressionParser : protected TokenReader {
protected:
    explicit ExpressionParser(const Tokens& tokens) : TokenReader(tokens, 3075) {}
    ~ExpressionParser() = default;

    ExprPtr expression();

private:
    static ExprPtr node(ExprKind kind, std::size_t position, char symbol = 0);
    ExprPtr negation();
    ExprPtr predicate();
    ExprPtr wordPredicate(ExprPtr left);
    ExprPtr list(ExprPtr left);
    ExprPtr sum();
    ExprPtr unary();
    ExprPtr primary();
    ExprPtr call();
    template <typename Next>
    ExprPtr chain(std::string_view word, ExprKind kind, Next next);
    template <typename Next>
    ExprPtr operators(char one, char two, Next next);
};

}  // namespace bravona
