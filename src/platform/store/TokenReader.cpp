#include "platform/store/TokenReader.h"

#include <array>

namespace bravona {
namespace {

constexpr std::array reserved = {
    std::string_view("select"),  std::string_view("from"),   std::string_view("where"),    std::string_view("order"),
    std::string_view("group"),   std::string_view("having"), std::string_view("by"),       std::string_view("as"),
    std::string_view("on"),      std::string_view("inner"),  std::string_view("left"),     std::string_view("right"),
    std::string_view("join"),    std::string_view("and"),    std::string_view("or"),       std::string_view("not"),
    std::string_view("like"),    std::string_view("in"),     std::string_view("is"),       std::string_view("null"),
    std::string_view("between"), std::string_view("true"),   std::string_view("false"),    std::string_view("set"),
    std::string_view("values"),  std::string_view("into"),   std::string_view("update"),   std::string_view("delete"),
    std::string_view("insert"),  std::string_view("top"),    std::string_view("distinct"), std::string_view("union"),
    std::string_view("exists"),  std::string_view("outer")};

bool isReserved(std::string_view word)
{
    for (const std::string_view r : reserved) {
        if (sameName(r, word)) {
            return true;
        }
    }
    return false;
}

}  // namespace

const Token& TokenReader::peek(std::size_t ahead) const
{
    const std::size_t i = at_ + ahead;
    return i < all_.tokens.size() ? all_.tokens[i] : all_.tokens.back();
}

const Token& TokenReader::take()
{
    return all_.tokens[at_ + 1 < all_.tokens.size() ? at_++ : at_];
}

bool TokenReader::isWord(std::string_view word, std::size_t ahead) const
{
    const Token& t = peek(ahead);
    return t.kind == TokenKind::word && sameName(t.text, word);
}

bool TokenReader::isSymbol(char c, std::size_t ahead) const
{
    const Token& t = peek(ahead);
    return t.kind == TokenKind::symbol && t.symbol == c;
}

bool TokenReader::isName(std::size_t ahead) const
{
    const Token& t = peek(ahead);
    return t.kind == TokenKind::quotedName || (t.kind == TokenKind::word && !isReserved(t.text));
}

bool TokenReader::takeWord(std::string_view word)
{
    const bool found = isWord(word);
    if (found) {
        take();
    }
    return found;
}

bool TokenReader::takeSymbol(char c)
{
    const bool found = isSymbol(c);
    if (found) {
        take();
    }
    return found;
}

void TokenReader::needWord(std::string_view word, std::string_view what)
{
    if (!takeWord(word)) {
        fail(what);
    }
}

void TokenReader::needSymbol(char c, std::string_view what)
{
    if (!takeSymbol(c)) {
        fail(what);
    }
}

std::string_view TokenReader::name(std::string_view what)
{
    if (!isName()) {
        fail(what);
    }
    return take().text;
}

std::string_view TokenReader::anyName(std::string_view what)
{
    if (peek().kind != TokenKind::word && peek().kind != TokenKind::quotedName) {
        fail(what);
    }
    return take().text;
}

void TokenReader::needEnd()
{
    takeSymbol(';');
    if (peek().kind != TokenKind::end) {
        fail("testo non atteso");
    }
}

void TokenReader::failAt(std::size_t offset, std::string_view what) const
{
    throw statementError(failure_, all_.statement, offset, what);
}

}  // namespace bravona
