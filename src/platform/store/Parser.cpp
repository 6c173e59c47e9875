#include "platform/store/Parser.h"

#include <array>
#include <string>

namespace bravona {
namespace {

constexpr int deepest = 60;
constexpr std::size_t longestChain = 400;

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

class Parser {
public:
    explicit Parser(const Tokens& tokens) : all_(tokens) {}

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
        takeSymbol(';');
        if (peek().kind != TokenKind::end) {
            fail("testo non atteso");
        }
        return s;
    }

private:
    class Depth {
    public:
        explicit Depth(Parser& parser) : parser_(parser)
        {
            if (++parser_.depth_ > deepest) {
                parser_.fail("istruzione troppo annidata");
            }
        }
        ~Depth() { --parser_.depth_; }
        Depth(const Depth&) = delete;
        Depth& operator=(const Depth&) = delete;

    private:
        Parser& parser_;
    };

    // --- tokens
    [[nodiscard]] const Token& peek(std::size_t ahead = 0) const
    {
        const std::size_t i = at_ + ahead;
        return i < all_.tokens.size() ? all_.tokens[i] : all_.tokens.back();
    }
    const Token& take() { return all_.tokens[at_ + 1 < all_.tokens.size() ? at_++ : at_]; }

    [[nodiscard]] bool isWord(std::string_view word, std::size_t ahead = 0) const
    {
        const Token& t = peek(ahead);
        return t.kind == TokenKind::word && sameName(t.text, word);
    }
    [[nodiscard]] bool isSymbol(char c, std::size_t ahead = 0) const
    {
        const Token& t = peek(ahead);
        return t.kind == TokenKind::symbol && t.symbol == c;
    }
    bool takeWord(std::string_view word)
    {
        const bool found = isWord(word);
        if (found) {
            take();
        }
        return found;
    }
    bool takeSymbol(char c)
    {
        const bool found = isSymbol(c);
        if (found) {
            take();
        }
        return found;
    }
    void needWord(std::string_view word, std::string_view what)
    {
        if (!takeWord(word)) {
            fail(what);
        }
    }
    void needSymbol(char c, std::string_view what)
    {
        if (!takeSymbol(c)) {
            fail(what);
        }
    }
    [[noreturn]] void fail(std::string_view what) const
    {
        throw statementError(3075, all_.statement, peek().start, what);
    }

    [[nodiscard]] bool isName(std::size_t ahead = 0) const
    {
        const Token& t = peek(ahead);
        return t.kind == TokenKind::quotedName || (t.kind == TokenKind::word && !isReserved(t.text));
    }
    std::string_view name(std::string_view what)
    {
        if (!isName()) {
            fail(what);
        }
        return take().text;
    }
    std::string_view nameBehindPoint()
    {
        const Token& t = peek();
        if (t.kind != TokenKind::word && t.kind != TokenKind::quotedName) {
            fail("atteso un nome dopo il punto");
        }
        return take().text;
    }

    // --- expressions
    ExprPtr node(ExprKind kind, std::size_t position, char symbol = 0)
    {
        auto e = std::make_unique<Expr>();
        e->kind = kind;
        e->position = static_cast<std::uint32_t>(position);
        e->symbol = symbol;
        return e;
    }

    ExprPtr expression()
    {
        const Depth depth(*this);
        return chain("or", ExprKind::logicalOr,
                     [this] { return chain("and", ExprKind::logicalAnd, [this] { return negation(); }); });
    }

    template <typename Next>
    ExprPtr chain(std::string_view word, ExprKind kind, Next next)
    {
        ExprPtr first = next();
        if (!isWord(word)) {
            return first;
        }
        ExprPtr all = node(kind, peek().start);
        all->operands.push_back(std::move(first));
        while (takeWord(word)) {
            all->operands.push_back(next());
        }
        return all;
    }

    ExprPtr negation()
    {
        if (isWord("not")) {
            const Depth depth(*this);
            ExprPtr e = node(ExprKind::logicalNot, take().start);
            e->operands.push_back(negation());
            return e;
        }
        return predicate();
    }

    ExprPtr predicate()
    {
        ExprPtr left = sum();
        const Token& t = peek();
        if (t.kind == TokenKind::symbol) {
            switch (t.symbol) {
            case '=':
            case '<':
            case '>':
            case 'l':
            case 'g':
            case 'n': {
                ExprPtr e = node(ExprKind::compare, t.start, t.symbol);
                take();
                e->operands.push_back(std::move(left));
                e->operands.push_back(sum());
                return e;
            }
            default:
                return left;
            }
        }
        if (isWord("is")) {
            ExprPtr e = node(ExprKind::isNull, take().start);
            e->negated = takeWord("not");
            needWord("null", "atteso NULL dopo IS");
            e->operands.push_back(std::move(left));
            return e;
        }
        const bool negated = isWord("not") && (isWord("like", 1) || isWord("in", 1) || isWord("between", 1));
        if (negated) {
            take();
        }
        ExprPtr e;
        if (isWord("like")) {
            e = node(ExprKind::like, take().start);
            e->operands.push_back(std::move(left));
            e->operands.push_back(sum());
        } else if (isWord("between")) {
            e = node(ExprKind::between, take().start);
            e->operands.push_back(std::move(left));
            e->operands.push_back(sum());
            needWord("and", "atteso AND in BETWEEN");
            e->operands.push_back(sum());
        } else if (isWord("in")) {
            e = node(ExprKind::in, take().start);
            e->operands.push_back(std::move(left));
            needSymbol('(', "attesa una parentesi dopo IN");
            if (takeWord("select")) {
                e->select = select();
            } else {
                do {
                    e->operands.push_back(sum());
                } while (takeSymbol(','));
            }
            needSymbol(')', "attesa una parentesi chiusa");
        } else {
            return left;
        }
        e->negated = negated;
        return e;
    }

    ExprPtr sum()
    {
        const Depth depth(*this);
        return operators('+', '-', [this] { return operators('*', '/', [this] { return unary(); }); });
    }

    template <typename Next>
    ExprPtr operators(char one, char two, Next next)
    {
        ExprPtr left = next();
        std::size_t links = 0;
        while (isSymbol(one) || isSymbol(two)) {
            if (++links > longestChain) {
                fail("espressione troppo lunga");
            }
            const Token& t = take();
            ExprPtr e = node(ExprKind::arithmetic, t.start, t.symbol);
            e->operands.push_back(std::move(left));
            e->operands.push_back(next());
            left = std::move(e);
        }
        return left;
    }

    ExprPtr unary()
    {
        if (isSymbol('-') || isSymbol('+')) {
            const Depth depth(*this);
            const Token& t = take();
            ExprPtr operand = unary();
            if (t.symbol == '+') {
                return operand;
            }
            if (operand->kind == ExprKind::literal && !operand->negated &&
                all_.literals[operand->literal].kind == LiteralKind::number) {
                operand->negated = true;
                return operand;
            }
            ExprPtr e = node(ExprKind::negate, t.start);
            e->operands.push_back(std::move(operand));
            return e;
        }
        return primary();
    }

    ExprPtr primary()
    {
        const Token& t = peek();
        if (t.kind == TokenKind::literal) {
            take();
            ExprPtr e = node(ExprKind::literal, t.start);
            e->literal = t.literal;
            return e;
        }
        if (isSymbol('(')) {
            take();
            ExprPtr e;
            if (isWord("select")) {
                const Depth depth(*this);
                e = node(ExprKind::subquery, take().start);
                e->select = select();
            } else {
                e = expression();
            }
            needSymbol(')', "attesa una parentesi chiusa");
            return e;
        }
        if (t.kind == TokenKind::word) {
            if (isSymbol('(', 1)) {
                return call();
            }
            if (sameName(t.text, "null")) {
                return node(ExprKind::null, take().start);
            }
            if (sameName(t.text, "true") || sameName(t.text, "false")) {
                ExprPtr e = node(ExprKind::yesNo, take().start);
                e->value = sameName(t.text, "true");
                return e;
            }
        }
        if (!isName()) {
            fail("attesi un nome o un valore");
        }
        ExprPtr e = node(ExprKind::column, t.start);
        e->name = take().text;
        if (takeSymbol('.')) {
            e->table = e->name;
            e->name = nameBehindPoint();
        }
        return e;
    }

    ExprPtr call()
    {
        const Depth depth(*this);
        const Token& t = take();
        ExprPtr e = node(ExprKind::call, t.start);
        e->name = t.text;
        take();  // the parenthesis
        if (takeSymbol(')')) {
            return e;
        }
        if (isSymbol('*') && isSymbol(')', 1)) {
            take();
            e->star = true;
        } else {
            do {
                e->operands.push_back(expression());
            } while (takeSymbol(','));
        }
        needSymbol(')', "attesa una parentesi chiusa");
        return e;
    }

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
        if (takeWord("having")) {
            s->having = expression();
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
            throw statementError(3075, all_.statement, e->position, "atteso il nome di una colonna");
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
            a.column = nameBehindPoint();
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
            throw statementError(3075, all_.statement, position, "tabella diversa da quella di FROM");
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

    const Tokens& all_;
    std::size_t at_ = 0;
    int depth_ = 0;
};

}  // namespace

Statement parse(const Tokens& tokens)
{
    return Parser(tokens).statement();
}

}  // namespace bravona
