#include "platform/store/Tokenizer.h"

#include <algorithm>
#include <array>

namespace bravona {
namespace {

enum Class : std::uint8_t { none, blank, letter, digit, mark };

constexpr std::array<std::uint8_t, 256> makeClasses()
{
    std::array<std::uint8_t, 256> t{};
    for (const char c : {' ', '\t', '\r', '\n'}) {
        t[static_cast<unsigned char>(c)] = blank;
    }
    for (int c = '0'; c <= '9'; ++c) {
        t[static_cast<std::size_t>(c)] = digit;
    }
    for (int c = 'a'; c <= 'z'; ++c) {
        t[static_cast<std::size_t>(c)] = letter;
        t[static_cast<std::size_t>(c - 'a') + 'A'] = letter;
    }
    t['_'] = letter;
    for (std::size_t c = 0x80; c < 0x100; ++c) {
        t[c] = letter;
    }
    for (const char c : {'(', ')', ',', '.', ';', '*', '=', '<', '>', '+', '-', '/', '{', '}'}) {
        t[static_cast<unsigned char>(c)] = mark;
    }
    return t;
}
constexpr auto classes = makeClasses();

std::uint8_t classOf(char c)
{
    return classes[static_cast<unsigned char>(c)];
}

class Scanner {
public:
    Scanner(std::string_view statement, Tokens& out) : s_(statement), out_(out) {}

    void run()
    {
        while (true) {
            while (at_ < s_.size() && classOf(s_[at_]) == blank) {
                ++at_;
            }
            if (at_ == s_.size()) {
                break;
            }
            next();
        }
        Token end;
        end.start = static_cast<std::uint32_t>(s_.size());
        out_.tokens.push_back(end);
    }

private:
    void next()
    {
        const char c = s_[at_];
        switch (classOf(c)) {
        case letter:
            word();
            return;
        case digit:
            number();
            return;
        case mark:
            if (c == '.' && at_ + 1 < s_.size() && classOf(s_[at_ + 1]) == digit && !followsName()) {
                number();
            } else {
                symbol(c);
            }
            return;
        default:
            break;
        }
        if (c == '\'' || c == '"') {
            text(c);
        } else if (c == '#') {
            date();
        } else if (c == '[') {
            quotedName();
        } else {
            throw statementError(3075, s_, at_, "carattere non ammesso");
        }
    }

    // A point directly behind a name parts it from the next one.
    [[nodiscard]] bool followsName() const
    {
        return at_ > 0 && (classOf(s_[at_ - 1]) == letter || classOf(s_[at_ - 1]) == digit || s_[at_ - 1] == ']');
    }

    Token& add(TokenKind kind, std::size_t start)
    {
        Token& t = out_.tokens.emplace_back();
        t.kind = kind;
        t.start = static_cast<std::uint32_t>(start);
        return t;
    }

    void word()
    {
        const std::size_t start = at_;
        while (at_ < s_.size() && (classOf(s_[at_]) == letter || classOf(s_[at_]) == digit)) {
            ++at_;
        }
        Token& t = add(TokenKind::word, start);
        t.text = s_.substr(start, at_ - start);
        out_.shape += ' ';
        out_.shape += t.text;
    }

    void quotedName()
    {
        const std::size_t start = at_;
        const std::size_t close = s_.find(']', start);
        if (close == std::string_view::npos) {
            throw statementError(3075, s_, start, "manca la parentesi ]");
        }
        if (close == start + 1) {
            throw statementError(3075, s_, start, "nome vuoto");
        }
        for (const char c : s_.substr(start, close - start)) {
            if (static_cast<unsigned char>(c) < ' ') {
                throw statementError(3075, s_, start, "carattere non ammesso in un nome");
            }
        }
        at_ = close + 1;
        Token& t = add(TokenKind::quotedName, start);
        t.text = s_.substr(start + 1, close - start - 1);
        out_.shape += s_.substr(start, at_ - start);
    }

    void symbol(char c)
    {
        const std::size_t start = at_++;
        if (at_ < s_.size()) {
            const char d = s_[at_];
            if (c == '<' && (d == '=' || d == '>')) {
                c = d == '=' ? 'l' : 'n';
                ++at_;
            } else if (c == '>' && d == '=') {
                c = 'g';
                ++at_;
            }
        }
        add(TokenKind::symbol, start).symbol = c;
        // A letter that stands for two characters must not run into the word before it.
        if (c == 'l' || c == 'g' || c == 'n') {
            out_.shape += '\x02';
        }
        out_.shape += c;
    }

    LiteralToken& literal(LiteralKind kind, std::size_t start, char shapeMark)
    {
        Token& t = add(TokenKind::literal, start);
        t.literal = static_cast<std::uint32_t>(out_.literals.size());
        LiteralToken& l = out_.literals.emplace_back();
        l.kind = kind;
        l.start = static_cast<std::uint32_t>(start);
        out_.shape += '\x01';
        out_.shape += shapeMark;
        return l;
    }

    void number()
    {
        const std::size_t start = at_;
        const auto digits = [&] {
            while (at_ < s_.size() && classOf(s_[at_]) == digit) {
                ++at_;
            }
        };
        digits();
        if (at_ < s_.size() && s_[at_] == '.') {
            ++at_;
            digits();
        }
        if (at_ < s_.size() && (s_[at_] == 'e' || s_[at_] == 'E')) {
            std::size_t exponent = at_ + 1;
            if (exponent < s_.size() && (s_[exponent] == '+' || s_[exponent] == '-')) {
                ++exponent;
            }
            if (exponent < s_.size() && classOf(s_[exponent]) == digit) {
                at_ = exponent;
                digits();
            }
        }
        if (at_ < s_.size() && classOf(s_[at_]) == letter) {
            throw statementError(3075, s_, start, "numero non compreso");
        }
        LiteralToken& l = literal(LiteralKind::number, start, 'n');
        l.raw = s_.substr(start, at_ - start);
    }

    void text(char quote)
    {
        const std::size_t start = at_++;
        bool doubled = false;
        while (true) {
            at_ = s_.find(quote, at_);
            if (at_ == std::string_view::npos) {
                throw statementError(3075, s_, start, "testo senza virgolette di chiusura");
            }
            if (at_ + 1 < s_.size() && s_[at_ + 1] == quote) {
                doubled = true;
                at_ += 2;
                continue;
            }
            break;
        }
        LiteralToken& l = literal(LiteralKind::text, start, 't');
        l.raw = s_.substr(start + 1, at_ - start - 1);
        l.quote = quote;
        l.doubled = doubled;
        ++at_;
    }

    void date()
    {
        const std::size_t start = at_;
        const std::size_t close = s_.find('#', start + 1);
        if (close == std::string_view::npos) {
            throw statementError(3075, s_, start, "data senza # di chiusura");
        }
        at_ = close + 1;
        LiteralToken& l = literal(LiteralKind::date, start, 'd');
        l.raw = s_.substr(start + 1, close - start - 1);
    }

    std::string_view s_;
    Tokens& out_;
    std::size_t at_ = 0;
};

}  // namespace

std::string LiteralToken::text() const
{
    if (!doubled) {
        return std::string(raw);
    }
    std::string result;
    result.reserve(raw.size());
    for (std::size_t i = 0; i < raw.size(); ++i) {
        result += raw[i];
        if (raw[i] == quote) {
            ++i;
        }
    }
    return result;
}

void tokenize(std::string_view statement, Tokens& out, std::string_view prefix)
{
    out.statement = statement;
    out.tokens.clear();
    out.literals.clear();
    out.shape.assign(prefix);
    Scanner(statement, out).run();
}

Errore statementError(std::uint32_t number, std::string_view statement, std::size_t offset, std::string_view what)
{
    offset = std::min(offset, statement.size());
    std::size_t position = 1;
    for (std::size_t i = 0; i < offset; ++i) {
        position += (static_cast<unsigned char>(statement[i]) & 0xC0U) != 0x80U ? 1U : 0U;
    }
    constexpr std::size_t shown = 40;
    std::size_t end = std::min(offset + shown, statement.size());
    while (end < statement.size() && (static_cast<unsigned char>(statement[end]) & 0xC0U) == 0x80U) {
        ++end;
    }
    std::string text = "Istruzione non valida, carattere " + std::to_string(position) + ": ";
    text += what;
    if (offset < end) {
        text += ", presso \"";
        text += statement.substr(offset, end - offset);
        text += '"';
    } else {
        text += ", alla fine";
    }
    text += '.';
    return Errore(number, text);
}

bool sameName(std::string_view a, std::string_view b)
{
    return a.size() == b.size() &&
           std::equal(a.begin(), a.end(), b.begin(), [](char x, char y) { return lowerAscii(x) == lowerAscii(y); });
}

}  // namespace bravona
