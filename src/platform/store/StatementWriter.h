#pragma once

#include <memory>
#include <vector>

#include "platform/store/ExpressionWriter.h"

namespace bravona {

// Writes whole statements in the engine's words.
class StatementWriter final : public ExpressionWriter {
public:
    StatementWriter(const Tokens& tokens, Catalogue& catalogue, Translation& out)
        : ExpressionWriter(tokens, catalogue, out)
    {}

    void select(Select& s, const TranslateOptions& options);

    void update(Statement& s);
    void remove(Statement& s);
    void insert(Statement& s);

private:
    Scope& newScope() { return *scopes_.emplace_back(std::make_unique<Scope>()); }
    void analyseSelect(Select& select);
    void putSelect(const Select& select);
    void restrict(Select& s, std::string_view column);
    void expandStars(Select& s, const Scope& scope);
    void analyseOn(From& from, const Scope& scope);
    // The first aggregate function in an expression, or none.
    static const Expr* aggregateIn(const Expr& e);
    static bool hasAggregate(const Expr& e) { return aggregateIn(e) != nullptr; }
    void analyseRow(Expr& e, const Scope& scope);  // what is taken from single rows
    static bool isUpdatable(const Select& s);
    static bool isOfRows(const Select& s);
    void putOrder(const Select& s);
    [[nodiscard]] std::vector<ColumnInfo> columnsOf(const Select& s) const;
    void orderBy(Select& s, const Scope& scope);

    void putFrom(const From& from, const Scope& scope);
    void putJoin(const From& left, std::string_view word, const From& right, const Expr& on, const Scope& scope);
    void putOperand(const From& from, const Scope& scope, bool nested);
    void putWhere(const Expr* where);
    void putAssignments(const Statement& s, const Scope& scope, std::size_t target, const Scope* related);
    std::size_t targetOf(const Statement& s, const Scope& scope) const;
    [[nodiscard]] const ColumnInfo& columnOf(const Assignment& a, const Table& table) const;
    static bool refersOnlyTo(const Expr& e, std::size_t source);
    void rename(Scope& scope) const;

    std::vector<std::unique_ptr<Scope>> scopes_;
};

}  // namespace bravona
