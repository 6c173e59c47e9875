#include "platform/store/ShapeText.h"

#include <charconv>

#include "platform/store/RecordsetState.h"

namespace bravona {
namespace {

constexpr int deepest = 8;

class ShapeParser {
public:
    explicit ShapeParser(const Tokens& tokens) : all_(tokens) {}

    ShapeText hierarchy()
    {
        ShapeText shape;
        needWord("shape");
        shape.parent = statement();
        alias();
        needWord("append");
        needSymbol('(');
        shape.child = statement();
        alias();
        relation(shape.parentColumn, shape.childColumn);
        needSymbol(')');
        needWord("as");
        shape.name = name();
        end();
        return shape;
    }

    struct Declared {
        std::vector<ColumnInfo> columns;  // chapters last
        std::vector<std::size_t> lengths;
        std::vector<Chapter> chapters;
    };

    Declared declaration()
    {
        Declared d;
        if (++depth_ > deepest) {
            fail("testo troppo annidato");
        }
        needWord("shape");
        needWord("append");
        do {
            if (takeSymbol('(')) {
                chapter(d);
            } else {
                column(d);
            }
        } while (takeSymbol(','));
        --depth_;
        std::vector<ColumnInfo> all = d.columns;
        for (const Chapter& c : d.chapters) {
            all.push_back({c.name, FieldType::chapter, {}, {}});
        }
        d.columns = std::move(all);
        return d;
    }

    void end()
    {
        takeSymbol(';');
        if (peek().kind != TokenKind::end) {
            fail("testo non atteso");
        }
    }

private:
    [[nodiscard]] const Token& peek() const { return all_.tokens[at_]; }
    const Token& take() { return all_.tokens[at_ + 1 < all_.tokens.size() ? at_++ : at_]; }
    [[noreturn]] void fail(std::string_view what) const
    {
        throw statementError(3450, all_.statement, peek().start, what);
    }
    bool takeSymbol(char c)
    {
        const bool found = peek().kind == TokenKind::symbol && peek().symbol == c;
        if (found) {
            take();
        }
        return found;
    }
    bool takeWord(std::string_view word)
    {
        const bool found = peek().kind == TokenKind::word && sameName(peek().text, word);
        if (found) {
            take();
        }
        return found;
    }
    void needSymbol(char c)
    {
        if (!takeSymbol(c)) {
            fail(std::string("atteso ") + c);
        }
    }
    void needWord(std::string_view word)
    {
        if (!takeWord(word)) {
            fail("attesa la parola " + std::string(word));
        }
    }
    std::string_view name()
    {
        if (peek().kind != TokenKind::word && peek().kind != TokenKind::quotedName) {
            fail("atteso un nome");
        }
        return take().text;
    }
    void alias()
    {
        if (takeWord("as")) {
            name();
        }
    }
    void relation(std::string_view& parent, std::string_view& child)
    {
        needWord("relate");
        parent = name();
        needWord("to");
        child = name();
    }

    // What stands between braces.
    std::string_view statement()
    {
        const std::uint32_t start = peek().start + 1;
        needSymbol('{');
        while (!(peek().kind == TokenKind::symbol && peek().symbol == '}')) {
            if (peek().kind == TokenKind::end) {
                fail("manca la parentesi }");
            }
            take();
        }
        const std::uint32_t close = take().start;
        return all_.statement.substr(start, close - start);
    }

    void column(Declared& d)
    {
        needWord("new");
        needWord("adVarChar");
        needSymbol('(');
        const Token& t = peek();
        std::size_t length = 0;
        if (t.kind == TokenKind::literal) {
            const std::string_view raw = all_.literals[t.literal].raw;
            std::from_chars(raw.data(), raw.data() + raw.size(), length);
        }
        if (length == 0) {
            fail("attesa la lunghezza del testo");
        }
        take();
        needSymbol(')');
        needWord("as");
        d.columns.push_back({std::string(name()), FieldType::text, {}, {}});
        d.lengths.push_back(length);
    }

    void chapter(Declared& d)
    {
        needSymbol('(');
        Declared child = declaration();
        needSymbol(')');
        std::string_view parentColumn;
        std::string_view childColumn;
        const std::size_t related = at_;
        relation(parentColumn, childColumn);
        needSymbol(')');
        needWord("as");
        Chapter c;
        c.name = std::string(name());
        c.lengths = std::move(child.lengths);
        c.parentColumn = columnOf(d.columns, d.lengths.size(), parentColumn, related);
        c.childColumn = columnOf(child.columns, c.lengths.size(), childColumn, related);
        c.columns = std::make_shared<const ColumnSet>(std::move(child.columns));
        c.chapters = std::make_shared<const std::vector<Chapter>>(std::move(child.chapters));
        d.chapters.push_back(std::move(c));
    }

    std::size_t columnOf(const std::vector<ColumnInfo>& columns, std::size_t count, std::string_view wanted,
                         std::size_t token) const
    {
        for (std::size_t i = 0; i < count; ++i) {
            if (sameName(columns[i].name, wanted)) {
                return i;
            }
        }
        throw statementError(3450, all_.statement, all_.tokens[token].start, "la colonna di RELATE non esiste");
    }

    const Tokens& all_;
    std::size_t at_ = 0;
    int depth_ = 0;
};

}  // namespace

ShapeText parseShape(const Tokens& tokens)
{
    return ShapeParser(tokens).hierarchy();
}

Recordset Recordset::declare(std::string_view shapeText)
{
    Tokens tokens;
    try {
        tokenize(shapeText, tokens);
    } catch (const Errore& e) {
        throw Errore(3450, e.descrizione());
    }
    ShapeParser parser(tokens);
    ShapeParser::Declared d = parser.declaration();
    parser.end();
    auto state = std::make_unique<State>(std::make_shared<const ColumnSet>(std::move(d.columns)),
                                         std::make_shared<RowStore>(d.lengths.size()));
    state->isDeclared = true;
    state->lengths = std::move(d.lengths);
    state->chapters = std::make_shared<const std::vector<Chapter>>(std::move(d.chapters));
    return Recordset(std::move(state));
}

}  // namespace bravona
