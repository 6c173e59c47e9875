#pragma once

#include <deque>
#include <string>

#include "platform/store/Engine.h"
#include "platform/store/Tokenizer.h"
#include "platform/store/Translator.h"

namespace bravona {

// Binds the literals of a statement to its translation. Keeps the texts that it had to make while the statement runs.
class LiteralBinder {
public:
    // `related` is the key of the parent row, for a statement restricted to its children. Throws Errore 13 for a text
    // that is no number or date where one is wanted, 6 for a number out of range, 3075 for a date that does not exist.
    void bind(EngineStatement& statement, const Translation& translation, const Tokens& tokens,
              const Value* related = nullptr);

private:
    void number(EngineStatement& s, int place, const Param& p, const LiteralToken& l);
    void text(EngineStatement& s, int place, const Param& p, const LiteralToken& l, const Tokens& tokens);
    void date(EngineStatement& s, int place, const Param& p, const LiteralToken& l, const Tokens& tokens);
    std::string_view keep(std::string text) { return kept_.emplace_back(std::move(text)); }

    std::deque<std::string> kept_;
};

// Binds a value as a column of that type stores it. The value is of that type already.
void bindValue(EngineStatement& s, int place, const Value& value, FieldType type);

// The value as a field of that type holds it, by Italian settings: an empty text is Null in a numeric or date field.
// Errore 13 for what cannot be read, 6 out of range.
Value convertTo(const Value& value, FieldType type);

}  // namespace bravona
