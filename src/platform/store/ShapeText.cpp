#include "platform/store/ShapeText.h"

#include <charconv>

#include "platform/store/RecordsetState.h"
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
        const Depth depth(*this);
        needWord("shape", "attesa la parola shape");
        needWord("append", "attesa la parola append");
        do {
            if (takeSymbol('(')) {
                chapter(d);
            } else {
                column(d);
            }
        } while (takeSymbol(','));
        std::vector<ColumnInfo> all = d.columns;
        for (const Chapter& c : d.chapters) {
            all.push_back({c.name, FieldType::chapter, {}, {}});
        }
        d.columns = std::move(all);
        return d;
    }

    void end() { needEnd(); }

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

    void column(Declared& d)
    {
        needWord("new", "attesa la parola new");
        needWord("adVarChar", "attesa la parola adVarChar");
        needSymbol('(', "atteso il segno (");
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
        needSymbol(')', "atteso il segno )");
        needWord("as", "attesa la parola as");
        d.columns.push_back({std::string(anyName("atteso un nome")), FieldType::text, {}, {}});
        d.lengths.push_back(length);
    }

    void chapter(Declared& d)
    {
        needSymbol('(', "atteso il segno (");
        Declared child = declaration();
        needSymbol(')', "atteso il segno )");
        std::string_view parentColumn;
        std::string_view childColumn;
        const std::size_t related = at_;
        relation(parentColumn, childColumn);
        needSymbol(')', "atteso il segno )");
        needWord("as", "attesa la parola as");
        Chapter c;
        c.name = std::string(anyName("atteso un nome"));
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
