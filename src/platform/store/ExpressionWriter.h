#pragma once

#include <string>

#include "platform/store/ExpressionFunctions.h"
#include "platform/store/Scope.h"
#include "platform/store/Translator.h"

namespace bravona {

// Writes expressions in the engine's words, with the types of their columns in mind: amounts of money are counts of
// ten-thousandths in the file and compute as exact fractions of euro.
class ExpressionWriter {
public:
    ExpressionWriter(const Tokens& tokens, Catalogue& catalogue, Translation& out)
        : tokens_(tokens),
          catalogue_(catalogue),
          out_(out)
    {}
    ~ExpressionWriter() = default;
    ExpressionWriter(const ExpressionWriter&) = delete;
    ExpressionWriter& operator=(const ExpressionWriter&) = delete;

    // Resolves names and finds types; before anything is written.
    void analyse(Expr& e, const Scope& scope);

    void put(const Expr& e);                          // as it stands
    void putStored(const Expr& e, FieldType target);  // as a column of that type stores it
    void putOutput(const Expr& e);                    // as a column of a result
    void putSorted(const Expr& e);                    // in ORDER BY, GROUP BY
    void write(std::string_view text) { out_.sql += text; }

protected:
    [[noreturn]] void fail(std::uint32_t number, std::size_t position, std::string_view what) const
    {
        throw statementError(number, tokens_.statement, position, what);
    }
    [[nodiscard]] const LiteralToken& literalOf(const Expr& e) const { return tokens_.literals[e.literal]; }

    const Tokens& tokens_;
    Catalogue& catalogue_;
    Translation& out_;

private:
    void analyseArithmetic(Expr& e) const;
    void analyseCall(Expr& e);
    void needCondition(const Expr& e) const;

    void putParam(const Expr& literal, Bind as);
    void putExact(const Expr& e);
    void putArithmetic(const Expr& e);
    void putChain(const Expr& e, std::string_view word);
    void putCall(const Expr& e);
    void putLike(const Expr& e);
    void putIn(const Expr& e);
    void putText(const Expr& e);  // whatever it is, as a text
    void putComparison(const Expr& a, char op, const Expr& b, std::size_t position);
    void putComparedLiteral(const Expr& literal, const Expr& with, char op);
    void putStoredLiteral(const Expr& e, FieldType target);
    void putCollated(const Expr& e);
    bool inAggregate_ = false;  // what is being analysed stands in an aggregate function

    [[nodiscard]] bool fitsList(const Expr& item, const Expr& with) const;
};

}  // namespace bravona
