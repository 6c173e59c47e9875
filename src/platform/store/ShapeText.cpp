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

    DeclaredSet declaration()
    {
        DeclaredSet d;
        const Depth depth(*this);
        needWord("shape", "attesa la parola shape");
        needWord("append", "attesa la parola append");
        do {
            if (takeSymbol('(')) {
                d.chapters.push_back(chapter());
            } else {
                d.columns.push_back(column());
            }
        } while (takeSymbol(','));
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

    DeclaredColumn column()
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
        return {std::string(anyName("atteso un nome")), length};
    }

    DeclaredChapter chapter()
    {
        DeclaredChapter c;
        needSymbol('(', "atteso il segno (");
        c.rows = declaration();
        needSymbol(')', "atteso il segno )");
        std::string_view parentColumn;
        std::string_view childColumn;
        relation(parentColumn, childColumn);
        c.parentColumn = parentColumn;
        c.childColumn = childColumn;
        needSymbol(')', "atteso il segno )");
        needWord("as", "attesa la parola as");
        c.name = std::string(anyName("atteso un nome"));
        return c;
    }
};

// What a set and a chapter of it are made of.
struct Layout {
    std::shared_ptr<const ColumnSet> columns;
    std::vector<std::size_t> lengths;
    std::shared_ptr<const std::vector<Chapter>> chapters;
};

std::size_t placeOf(const std::vector<DeclaredColumn>& columns, const std::string& wanted)
{
    for (std::size_t i = 0; i < columns.size(); ++i) {
        if (sameName(columns[i].name, wanted)) {
            return i;
        }
    }
    throw Errore(3450, "La colonna " + wanted + " di RELATE non esiste.");
}

Layout layOut(const DeclaredSet& declared)
{
    Layout layout;
    std::vector<ColumnInfo> columns;
    for (const DeclaredColumn& column : declared.columns) {
        columns.push_back({column.name, FieldType::text, {}, {}});
        layout.lengths.push_back(column.length);
    }
    std::vector<Chapter> chapters;
    for (const DeclaredChapter& child : declared.chapters) {
        columns.push_back({child.name, FieldType::chapter, {}, {}});
        Layout rows = layOut(child.rows);
        Chapter& chapter = chapters.emplace_back();
        chapter.name = child.name;
        chapter.parentColumn = placeOf(declared.columns, child.parentColumn);
        chapter.childColumn = placeOf(child.rows.columns, child.childColumn);
        chapter.columns = std::move(rows.columns);
        chapter.lengths = std::move(rows.lengths);
        chapter.chapters = std::move(rows.chapters);
    }
    layout.columns = std::make_shared<const ColumnSet>(std::move(columns));
    layout.chapters = std::make_shared<const std::vector<Chapter>>(std::move(chapters));
    return layout;
}

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
    const DeclaredSet declared = parser.declaration();
    parser.end();
    return declare(declared);
}

Recordset Recordset::declare(const DeclaredSet& declared)
{
    Layout layout = layOut(declared);
    auto rows = std::make_shared<RowStore>(layout.lengths.size());
    auto state = std::make_unique<State>(std::move(layout.columns), std::move(rows));
    state->isDeclared = true;
    state->lengths = std::move(layout.lengths);
    state->chapters = std::move(layout.chapters);
    return Recordset(std::move(state));
}

}  // namespace bravona
