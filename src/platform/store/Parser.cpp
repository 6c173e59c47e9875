#include "platform/store/Parser.h"

#include "platform/store/ExpressionParser.h"

namespace bravona {
namespace {

class Parser final : ExpressionParser {
public:
    explicit Parser(const Tokens& tokens) : ExpressionParser(tokens) {}

    Statement statement()
    {
        Statement s;
        if (takeWord("select")) {
            s.kind = StatementKind::select;
            s.select = select();
        } else if (takeWord("update")) {
            s.kind = StatementKind::update;
            update(s);
        } else if (takeWord("delete")) {
            s.kind = StatementKind::remove;
            remove(s);
        } else if (takeWord("insert")) {
            s.kind = StatementKind::insert;
            insert(s);
        } else {
            fail("attesa un'istruzione SELECT, UPDATE, DELETE o INSERT");
        }
        needEnd();
        return s;
    }

private:
    // --- tables
    FromPtr from()
    {
        const Depth depth(*this);
        FromPtr left = source();
        std::size_t links = 0;
        while (true) {
            JoinKind kind = JoinKind::inner;
            const std::uint32_t position = peek().start;
            if (isWord("inner") && isWord("join", 1)) {
                take();
            } else if (isWord("left") || isWord("right")) {
                kind = isWord("left") ? JoinKind::left : JoinKind::right;
                take();
                takeWord("outer");
            } else if (!isWord("join")) {
                break;
            }
            needWord("join", "attesa la parola JOIN");
            if (++links > deepest) {
                fail("troppe tabelle");
            }
            auto join = std::make_unique<From>();
            join->position = position;
            join->join = kind;
            join->left = std::move(left);
            join->right = source();
            needWord("on", "attesa la condizione ON");
            join->on = expression();
            left = std::move(join);
        }
        return left;
    }

    FromPtr source()
    {
        if (takeSymbol('(')) {
            FromPtr inner = from();
            needSymbol(')', "attesa una parentesi chiusa");
            return inner;
        }
        return table();
    }

    FromPtr table()
    {
        auto f = std::make_unique<From>();
        f->position = peek().start;
        f->table = name("attesa una tabella");
        if (takeWord("as")) {
            f->alias = name("atteso un nome dopo AS");
        } else if (isName()) {
            f->alias = take().text;
        }
        return f;
    }

    // --- statements
    std::unique_ptr<Select> select()
    {
        const Depth depth(*this);
        auto s = std::make_unique<Select>();
        s->distinct = takeWord("distinct");
        if (takeWord("top")) {
            const Token& t = peek();
            if (t.kind != TokenKind::literal || all_.literals[t.literal].kind != LiteralKind::number) {
                fail("atteso un numero dopo TOP");
            }
            take();
            s->hasTop = true;
            s->top = t.literal;
        }
        do {
            s->items.push_back(item());
        } while (takeSymbol(','));
        if (takeWord("from")) {
            s->from = from();
        }
        if (takeWord("where")) {
            s->where = expression();
        }
        if (isWord("group")) {
            take();
            needWord("by", "atteso BY");
            do {
                s->groupBy.push_back(notPositional(expression()));
            } while (takeSymbol(','));
        }
        if (isWord("order")) {
            take();
            needWord("by", "atteso BY");
            do {
                OrderItem o;
                o.expr = notPositional(expression());
                o.descending = takeWord("desc");
                if (!o.descending) {
                    takeWord("asc");
                }
                s->orderBy.push_back(std::move(o));
            } while (takeSymbol(','));
        }
        return s;
    }

    // A column told by its position would make the sorting a part of the literals.
    ExprPtr notPositional(ExprPtr e) const
    {
        if (e->kind == ExprKind::literal) {
            failAt(e->position, "atteso il nome di una colonna");
        }
        return e;
    }

    SelectItem item()
    {
        SelectItem i;
        i.position = peek().start;
        if (takeSymbol('*')) {
            return i;
        }
        if (isName() && isSymbol('.', 1) && isSymbol('*', 2)) {
            i.table = take().text;
            take();
            take();
            return i;
        }
        i.expr = expression();
        if (takeWord("as")) {
            i.alias = name("atteso un nome dopo AS");
        }
        return i;
    }

    void update(Statement& s)
    {
        s.from = from();
        needWord("set", "attesa la parola SET");
        do {
            Assignment a = target();
            needSymbol('=', "atteso =");
            a.value = expression();
            s.assignments.push_back(std::move(a));
        } while (takeSymbol(','));
        where(s);
    }

    Assignment target()
    {
        Assignment a;
        a.position = peek().start;
        a.column = name("attesa una colonna");
        if (takeSymbol('.')) {
            a.table = a.column;
            a.column = anyName("atteso un nome dopo il punto");
        }
        return a;
    }

    void remove(Statement& s)
    {
        const std::uint32_t position = peek().start;
        std::string_view of;
        if (!takeSymbol('*') && isName() && isSymbol('.', 1) && isSymbol('*', 2)) {
            of = take().text;
            take();
            take();
        }
        needWord("from", "attesa la parola FROM");
        s.from = table();
        if (!of.empty() && !sameName(of, s.from->alias.empty() ? s.from->table : s.from->alias)) {
            failAt(position, "tabella diversa da quella di FROM");
        }
        where(s);
    }

    void insert(Statement& s)
    {
        needWord("into", "attesa la parola INTO");
        s.from = std::make_unique<From>();
        s.from->position = peek().start;
        s.from->table = name("attesa una tabella");
        if (takeSymbol('(')) {
            do {
                s.columns.push_back(target());
            } while (takeSymbol(','));
            needSymbol(')', "attesa una parentesi chiusa");
        }
        needWord("values", "attesa la parola VALUES");
        needSymbol('(', "attesa una parentesi dopo VALUES");
        do {
            s.values.push_back(expression());
        } while (takeSymbol(','));
        needSymbol(')', "attesa una parentesi chiusa");
    }

    void where(Statement& s)
    {
        if (takeWord("where")) {
            s.where = expression();
        }
    }
};

}  // namespace

Statement parse(const Tokens& tokens)
{
    return Parser(tokens).statement();
}

}  // namespace bravona
