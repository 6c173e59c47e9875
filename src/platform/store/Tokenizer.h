#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "platform/values/Errore.h"

namespace bravona {

enum class TokenKind : std::uint8_t { end, word, quotedName, literal, symbol };
enum class LiteralKind : std::uint8_t { number, text, date };

struct Token {
    TokenKind kind = TokenKind::end;
    // Of a symbol: its character; 'l', 'g', 'n' stand for <=, >=, <>.
    char symbol = 0;
    std::uint32_t start = 0;    // byte offset in the statement
    std::string_view text;      // of a name without its brackets
    std::uint32_t literal = 0;  // index of a literal
};

// A number, a text or a date as it stands in the statement, without its quotes.
struct LiteralToken {
    LiteralKind kind = LiteralKind::number;
    char quote = 0;
    bool doubled = false;  // holds its own quote twice
    std::uint32_t start = 0;
    std::string_view raw;

    [[nodiscard]] std::string text() const;
};

// A statement cut into tokens. `shape` is the statement with its literals replaced by marks of their kind: statements
// of one shape differ in literals only. Everything refers to the statement's own characters.
struct Tokens {
    std::string_view statement;
    std::vector<Token> tokens;
    std::vector<LiteralToken> literals;
    std::string shape;
};

// Throws Errore 3075, with the place, for what is no token. `out` is filled anew, its memory reused; its shape begins
// with `prefix`.
void tokenize(std::string_view statement, Tokens& out, std::string_view prefix = {});

// The failures of a statement, with their place (characters from 1) and what stands there.
[[nodiscard]] Errore statementError(std::uint32_t number, std::string_view statement, std::size_t offset,
                                    std::string_view what);

// Equality of names: letters of the basic alphabet without regard to case, as the engine does.
bool sameName(std::string_view a, std::string_view b);
inline char lowerAscii(char c)
{
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c;
}

}  // namespace bravona
