#include "platform/store/ShapeText.h"

#include "platform/store/TokenReader.h"

namespace bravona {
namespace {

class ShapeParser final : TokenReader {
public:
    explicit ShapeParser(const Tokens& tokens) : TokenReader(tokens, 3450) {}

    ShapeText hierarchy()
    {
        ShapeText shape;
        needWord("shape", "attesa la parola shape");
        shape.parent = statement();
        alias();
        needWord("append", "attesa la parola append");
        needSymbol('(', "atteso il segno (");
        shape.child = statement();
        alias();
        relation(shape.parentColumn, shape.childColumn);
        needSymbol(')', "atteso il segno )");
        needWord("as", "attesa la parola as");
        shape.name = anyName("atteso un nome");
        needEnd();
        return shape;
    }

private:
    void alias()
    {
        if (takeWord("as")) {
            anyName("atteso un nome");
        }
    }
    void relation(std::string_view& parent, std::string_view& child)
    {
        needWord("relate", "attesa la parola relate");
        parent = anyName("atteso un nome");
        needWord("to", "attesa la parola to");
        child = anyName("atteso un nome");
    }

    // What stands between braces.
    std::string_view statement()
    {
        const std::uint32_t start = peek().start + 1;
        needSymbol('{', "atteso il segno {");
        while (!(peek().kind == TokenKind::symbol && peek().symbol == '}')) {
            if (peek().kind == TokenKind::end) {
                fail("manca la parentesi }");
            }
            take();
        }
        const std::uint32_t close = take().start;
        return all_.statement.substr(start, close - start);
    }
};

}  // namespace

ShapeText parseShape(const Tokens& tokens)
{
    return ShapeParser(tokens).hierarchy();
}

}  // namespace bravona
