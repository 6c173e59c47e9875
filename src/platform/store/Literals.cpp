#include "platform/store/Literals.h"

#include <cmath>
#include <limits>

#include "platform/store/Functions.h"
#include "platform/store/Rational.h"
#include "platform/text/Text.h"
#include "platform/values/Numeri.h"

namespace bravona {
namespace {

constexpr std::int64_t firstDay = -657'434;  // 1/1/100
constexpr std::int64_t lastDay = 2'958'465;  // 31/12/9999

Rational rationalOf(const Param& p, const LiteralToken& l)
{
    const Rational r = Rational::parse(l.raw).value_or(Rational{});
    return p.negated ? -r : r;
}

std::int64_t inRange(std::int64_t n, std::int64_t lowest, std::int64_t highest)
{
    if (n < lowest || n > highest) {
        throw Errore(errori::numeroTroppoGrande, "Overflow");
    }
    return n;
}

std::int64_t wholeFor(Bind as, std::int64_t n)
{
    return as == Bind::shortWhole
               ? inRange(n, std::numeric_limits<std::int16_t>::min(), std::numeric_limits<std::int16_t>::max())
               : inRange(n, std::numeric_limits<std::int32_t>::min(), std::numeric_limits<std::int32_t>::max());
}

// What lies between two ten-thousandths stays between them; beyond the range of money it stays beyond.
void bindCompared(EngineStatement& s, int place, const Rational& euro)
{
    const Rational scaled = euro * Rational::whole(Currency::unitaPerEuro);
    if (scaled.isWhole() && scaled.numerator() <= std::numeric_limits<std::int64_t>::max() &&
        scaled.numerator() >= std::numeric_limits<std::int64_t>::min()) {
        s.bindWhole(place, static_cast<std::int64_t>(scaled.numerator()));
    } else {
        const double value = scaled.toDouble();
        s.bindReal(place, scaled.isWhole() ? value : std::floor(value) + 0.5);
    }
}

void bindExact(EngineStatement& s, int place, const Rational& value)
{
    if (value.isWhole() && value.numerator() <= std::numeric_limits<std::int64_t>::max() &&
        value.numerator() >= std::numeric_limits<std::int64_t>::min()) {
        s.bindWhole(place, static_cast<std::int64_t>(value.numerator()));
    } else {
        const RationalBytes bytes = toBytes(value);
        s.bindBlob(place, bytes.data(), static_cast<int>(bytes.size()));
    }
}

void bindNumber(EngineStatement& s, int place, const Rational& value)
{
    if (value.isWhole() && value.numerator() <= std::numeric_limits<std::int64_t>::max() &&
        value.numerator() >= std::numeric_limits<std::int64_t>::min()) {
        s.bindWhole(place, static_cast<std::int64_t>(value.numerator()));
    } else {
        s.bindReal(place, value.toDouble());
    }
}

// The usual number, a short one without a sign, a point or an exponent. -1 for any other.
std::int64_t simpleWhole(std::string_view raw)
{
    constexpr std::size_t longest = 9;
    if (raw.size() > longest) {
        return -1;
    }
    std::int64_t n = 0;
    for (const char c : raw) {
        if (c < '0' || c > '9') {
            return -1;
        }
        n = n * 10 + (c - '0');
    }
    return n;
}

}  // namespace

void LiteralBinder::bind(EngineStatement& statement, const Translation& translation, const Tokens& tokens,
                         const Value* related)
{
    kept_.clear();
    int place = 0;
    for (const Param& p : translation.params) {
        ++place;
        if (p.as == Bind::related) {
            if (related == nullptr) {
                statement.bindNull(place);
            } else {
                bindValue(statement, place, *related, translation.relatedType);
            }
            continue;
        }
        const LiteralToken& l = tokens.literals[p.literal];
        switch (l.kind) {
        case LiteralKind::number:
            number(statement, place, p, l);
            break;
        case LiteralKind::text:
            text(statement, place, p, l, tokens);
            break;
        case LiteralKind::date:
            date(statement, place, p, l, tokens);
            break;
        }
    }
}

void LiteralBinder::number(EngineStatement& s, int place, const Param& p, const LiteralToken& l)
{
    if (const std::int64_t simple = simpleWhole(l.raw);
        simple >= 0 && (p.as == Bind::number || p.as == Bind::whole || p.as == Bind::exact)) {
        s.bindWhole(place, p.negated ? -simple : simple);
        return;
    }
    switch (p.as) {
    case Bind::number:
        bindNumber(s, place, rationalOf(p, l));
        break;
    case Bind::shortWhole:
    case Bind::whole:
        s.bindWhole(place, wholeFor(p.as, rationalOf(p, l).rounded()));
        break;
    case Bind::real:
        s.bindReal(place, rationalOf(p, l).toDouble());
        break;
    case Bind::money:
        s.bindWhole(place, rationalOf(p, l).roundedTenThousandths());
        break;
    case Bind::moneyCompare:
        bindCompared(s, place, rationalOf(p, l));
        break;
    case Bind::exact:
        bindExact(s, place, rationalOf(p, l));
        break;
    case Bind::date:
        s.bindWhole(place, inRange(rationalOf(p, l).rounded(), firstDay, lastDay));
        break;
    case Bind::text: {
        const Rational r = rationalOf(p, l);
        s.bindText(place, keep(r.isWhole() ? Value(r.rounded()).text() : Value(r.toDouble()).text()));
        break;
    }
    case Bind::yesNo:
        s.bindWhole(place, rationalOf(p, l).numerator() != 0 ? 1 : 0);
        break;
    case Bind::related:
        break;
    }
}

void LiteralBinder::text(EngineStatement& s, int place, const Param& p, const LiteralToken& l, const Tokens& tokens)
{
    if (p.as == Bind::text) {
        s.bindText(place, l.doubled ? keep(l.text()) : l.raw);
        return;
    }
    const std::string content = trim(l.text());
    if (content.empty()) {
        s.bindNull(place);
        return;
    }
    switch (p.as) {
    case Bind::shortWhole:
        s.bindWhole(place, toInt16(content));
        break;
    case Bind::whole:
        s.bindWhole(place, toInt32(content));
        break;
    case Bind::money:
    case Bind::moneyCompare:
        s.bindWhole(place, toCurrency(content).tenThousandths());
        break;
    case Bind::date:
        s.bindWhole(place, toDate(content).dayNumber());
        break;
    case Bind::yesNo:
        s.bindWhole(place, Value(content).toBool() ? 1 : 0);
        break;
    case Bind::number:
    case Bind::real:
        s.bindReal(place, toDouble(content));
        break;
    default:
        throw statementError(3464, tokens.statement, l.start, "atteso un numero");
    }
}

void LiteralBinder::date(EngineStatement& s, int place, const Param& p, const LiteralToken& l, const Tokens& tokens)
{
    const std::optional<Date> day = Date::parse(l.raw);
    if (!day) {
        throw statementError(3075, tokens.statement, l.start, "data non valida");
    }
    if (p.as == Bind::text) {
        s.bindText(place, keep(day->text()));
    } else if (p.as == Bind::date || p.as == Bind::number) {
        s.bindWhole(place, day->dayNumber());
    } else {
        throw statementError(3464, tokens.statement, l.start, "una data non va confrontata con questo");
    }
}

void bindValue(EngineStatement& s, int place, const Value& value, FieldType type)
{
    if (value.isNull()) {
        s.bindNull(place);
        return;
    }
    switch (type) {
    case FieldType::counter:
    case FieldType::longInt:
    case FieldType::integer:
        s.bindWhole(place, value.toInt64());
        break;
    case FieldType::dbl:
        s.bindReal(place, value.toDouble());
        break;
    case FieldType::currency:
        s.bindWhole(place, value.toCurrency().tenThousandths());
        break;
    case FieldType::date:
        s.bindWhole(place, value.toDate().dayNumber());
        break;
    case FieldType::yesNo:
        s.bindWhole(place, value.toBool() ? 1 : 0);
        break;
    case FieldType::text:
    case FieldType::chapter:
        if (const auto* text = std::get_if<std::string>(&value.variant())) {
            s.bindText(place, *text);
        } else {
            s.bindNull(place);
        }
        break;
    }
}

Value convertTo(const Value& value, FieldType type)
{
    if (value.isNull()) {
        return value;
    }
    if (type == FieldType::text) {
        return std::holds_alternative<std::string>(value.variant()) ? value : Value(value.text());
    }
    if (const auto* text = std::get_if<std::string>(&value.variant()); text != nullptr && trim(*text).empty()) {
        return type == FieldType::yesNo ? Value(false) : Value();
    }
    switch (type) {
    case FieldType::counter:
    case FieldType::longInt:
        return value.toLong();
    case FieldType::integer:
        return static_cast<int>(value.toInt());
    case FieldType::dbl:
        return value.toDouble();
    case FieldType::currency:
        return value.toCurrency();
    case FieldType::date:
        return value.toDate();
    case FieldType::yesNo:
        return value.toBool();
    case FieldType::text:
    case FieldType::chapter:
        break;
    }
    throw Errore(3421, "Il valore non è adatto a questo campo.");
}

}  // namespace bravona
