#include "platform/store/Functions.h"

#include <cstring>
#include <exception>
#include <limits>
#include <memory>
#include <string>

#include "platform/store/Engine.h"
#include "platform/store/Like.h"
#include "platform/store/Recordset.h"
#include "platform/text/Text.h"
#include "platform/values/Numeri.h"

namespace bravona {
namespace {

using Arguments = sqlite3_value**;

std::string_view textOf(sqlite3_value* v)
{
    const unsigned char* text = sqlite3_value_text(v);
    const int size = sqlite3_value_bytes(v);
    return text == nullptr ? std::string_view{}
                           : std::string_view(reinterpret_cast<const char*>(text), static_cast<std::size_t>(size));
}

bool isNull(sqlite3_value* v)
{
    return sqlite3_value_type(v) == SQLITE_NULL;
}

Rational rationalOf(sqlite3_value* v)
{
    switch (sqlite3_value_type(v)) {
    case SQLITE_INTEGER:
        return Rational::whole(sqlite3_value_int64(v));
    case SQLITE_FLOAT:
        return Rational::fromDouble(sqlite3_value_double(v));
    case SQLITE_BLOB:
        if (sqlite3_value_bytes(v) == static_cast<int>(sizeof(RationalBytes))) {
            Int128 parts[2];
            std::memcpy(parts, sqlite3_value_blob(v), sizeof parts);
            return Rational::make(parts[0], parts[1]);
        }
        break;
    default:
        break;
    }
    throw Errore(errori::testoNonConvertibile, "Tipo non corrispondente");
}

void result(sqlite3_context* c, const Rational& value)
{
    const RationalBytes bytes = toBytes(value);
    sqlite3_result_blob(c, bytes.data(), static_cast<int>(bytes.size()), SQLITE_TRANSIENT);
}
void result(sqlite3_context* c, std::int64_t value)
{
    sqlite3_result_int64(c, value);
}
void result(sqlite3_context* c, double value)
{
    sqlite3_result_double(c, value);
}
void result(sqlite3_context* c, const std::string& text)
{
    sqlite3_result_text(c, text.data(), static_cast<int>(text.size()), SQLITE_TRANSIENT);
}

template <typename Body>
void guarded(sqlite3_context* c, Body body) noexcept
{
    try {
        body();
    } catch (const Errore& e) {
        const std::string message = numberedFailure(e.numero(), e.descrizione());
        sqlite3_result_error(c, message.data(), static_cast<int>(message.size()));
    } catch (const std::exception& e) {
        sqlite3_result_error(c, e.what(), -1);
    }
}

// A function of values that are not Null; with a Null among them its result is Null.
template <auto Body>
void function(sqlite3_context* c, int count, Arguments a) noexcept
{
    for (int i = 0; i < count; ++i) {
        if (isNull(a[i])) {
            return;
        }
    }
    guarded(c, [&] { result(c, Body(count, a)); });
}

// --- money

Rational euro(int, Arguments a)
{
    return Rational::tenThousandths(sqlite3_value_int64(a[0]));
}
Rational negative(int, Arguments a)
{
    return -rationalOf(a[0]);
}
Rational add(int, Arguments a)
{
    return rationalOf(a[0]) + rationalOf(a[1]);
}
Rational subtract(int, Arguments a)
{
    return rationalOf(a[0]) - rationalOf(a[1]);
}
Rational multiply(int, Arguments a)
{
    return rationalOf(a[0]) * rationalOf(a[1]);
}
Rational divide(int, Arguments a)
{
    return rationalOf(a[0]) / rationalOf(a[1]);
}
std::int64_t money(int, Arguments a)
{
    return rationalOf(a[0]).roundedTenThousandths();
}
std::int64_t compare(int, Arguments a)
{
    return Rational::compare(rationalOf(a[0]), rationalOf(a[1]));
}
std::int64_t addMoney(int, Arguments a)
{
    return (Currency::fromTenThousandths(sqlite3_value_int64(a[0])) +
            Currency::fromTenThousandths(sqlite3_value_int64(a[1])))
        .tenThousandths();
}
std::int64_t subtractMoney(int, Arguments a)
{
    return (Currency::fromTenThousandths(sqlite3_value_int64(a[0])) -
            Currency::fromTenThousandths(sqlite3_value_int64(a[1])))
        .tenThousandths();
}

// --- numbers

double real(int, Arguments a)
{
    return sqlite3_value_type(a[0]) == SQLITE_FLOAT ? sqlite3_value_double(a[0]) : rationalOf(a[0]).toDouble();
}
double divideReal(int, Arguments a)
{
    const double by = sqlite3_value_double(a[1]);
    if (by == 0) {
        throw Errore(errori::divisionePerZero, "Divisione per zero");
    }
    return sqlite3_value_double(a[0]) / by;
}
std::int64_t whole(int, Arguments a)
{
    const std::int64_t n =
        sqlite3_value_type(a[0]) == SQLITE_INTEGER ? sqlite3_value_int64(a[0]) : rationalOf(a[0]).rounded();
    const std::int64_t limit = sqlite3_value_int(a[1]) == 16 ? std::numeric_limits<std::int16_t>::max()
                                                             : std::numeric_limits<std::int32_t>::max();
    if (n > limit || n < -limit - 1) {
        throw Errore(errori::numeroTroppoGrande, "Overflow");
    }
    return n;
}

// --- dates

Date dateOf(sqlite3_value* v)
{
    return Date::fromDayNumber(sqlite3_value_int(v));
}
std::int64_t month(int, Arguments a)
{
    return dateOf(a[0]).month();
}
std::int64_t year(int, Arguments a)
{
    return dateOf(a[0]).year();
}

// --- texts

Value valueOf(sqlite3_value* v, FieldType type)
{
    switch (type) {
    case FieldType::currency:
        return Currency::fromTenThousandths(sqlite3_value_int64(v));
    case FieldType::date:
        return dateOf(v);
    case FieldType::dbl:
        return sqlite3_value_double(v);
    case FieldType::yesNo:
        return sqlite3_value_int(v) != 0;
    case FieldType::text:
    case FieldType::chapter:
        return std::string(textOf(v));
    default:
        return static_cast<std::int64_t>(sqlite3_value_int64(v));
    }
}

std::string asText(int, Arguments a)
{
    return valueOf(a[0], static_cast<FieldType>(sqlite3_value_int(a[1]))).text();
}
std::string formatted(int, Arguments a)
{
    return format(valueOf(a[0], static_cast<FieldType>(sqlite3_value_int(a[2]))), textOf(a[1]));
}

void like(sqlite3_context* c, int, Arguments a) noexcept
{
    if (isNull(a[0]) || isNull(a[1])) {
        return;
    }
    guarded(c, [&] {
        // A pattern that is a parameter is read once for all rows.
        auto* pattern = static_cast<LikePattern*>(sqlite3_get_auxdata(c, 1));
        if (pattern == nullptr) {
            auto made = std::make_unique<LikePattern>(textOf(a[1]));
            const bool matches = made->matches(textOf(a[0]));
            sqlite3_set_auxdata(c, 1, made.release(), [](void* p) { delete static_cast<LikePattern*>(p); });
            sqlite3_result_int(c, matches ? 1 : 0);
            return;
        }
        sqlite3_result_int(c, pattern->matches(textOf(a[0])) ? 1 : 0);
    });
}

// --- the sum of fractions

struct Total {
    Int128 numerator;
    Int128 denominator;  // 0 before the first value
};

void sumStep(sqlite3_context* c, int, Arguments a) noexcept
{
    if (isNull(a[0])) {
        return;
    }
    guarded(c, [&] {
        void* memory = sqlite3_aggregate_context(c, sizeof(Total));
        if (memory == nullptr) {
            throw Errore(7, "Memoria esaurita.");
        }
        Total total;
        std::memcpy(&total, memory, sizeof total);
        const Rational sum = rationalOf(a[0]) +
                             (total.denominator == 0 ? Rational{} : Rational::make(total.numerator, total.denominator));
        total = {sum.numerator(), sum.denominator()};
        std::memcpy(memory, &total, sizeof total);
    });
}

void sumEnd(sqlite3_context* c) noexcept
{
    const void* memory = sqlite3_aggregate_context(c, 0);
    if (memory == nullptr) {
        return;
    }
    guarded(c, [&] {
        Total total;
        std::memcpy(&total, memory, sizeof total);
        if (total.denominator != 0) {
            result(c, Rational::make(total.numerator, total.denominator));
        }
    });
}

int collate(void*, int aSize, const void* a, int bSize, const void* b) noexcept
{
    return compareFolded({static_cast<const char*>(a), static_cast<std::size_t>(aSize)},
                         {static_cast<const char*>(b), static_cast<std::size_t>(bSize)});
}

void check(int code, sqlite3* db)
{
    if (code != SQLITE_OK) {
        throw engineError(db);
    }
}

void add(sqlite3* db, const char* name, int count, void (*body)(sqlite3_context*, int, Arguments))
{
    check(sqlite3_create_function_v2(db, name, count, SQLITE_UTF8 | SQLITE_DETERMINISTIC, nullptr, body, nullptr,
                                     nullptr, nullptr),
          db);
}

}  // namespace

RationalBytes toBytes(const Rational& value)
{
    const Int128 parts[2] = {value.numerator(), value.denominator()};
    RationalBytes bytes;
    std::memcpy(bytes.data(), parts, sizeof parts);
    return bytes;
}

void registerFunctions(sqlite3* db)
{
    check(sqlite3_create_collation_v2(db, collationName, SQLITE_UTF8, nullptr, collate, nullptr), db);
    add(db, "bv_eur", 1, function<euro>);
    add(db, "bv_neg", 1, function<negative>);
    add(db, "bv_add", 2, function<static_cast<Rational (*)(int, Arguments)>(add)>);
    add(db, "bv_sub", 2, function<subtract>);
    add(db, "bv_mul", 2, function<multiply>);
    add(db, "bv_div", 2, function<divide>);
    add(db, "bv_money", 1, function<money>);
    add(db, "bv_cmp", 2, function<compare>);
    add(db, "bv_cadd", 2, function<addMoney>);
    add(db, "bv_csub", 2, function<subtractMoney>);
    add(db, "bv_real", 1, function<real>);
    add(db, "bv_fdiv", 2, function<divideReal>);
    add(db, "bv_whole", 2, function<whole>);
    add(db, "bv_month", 1, function<month>);
    add(db, "bv_year", 1, function<year>);
    add(db, "bv_text", 2, function<asText>);
    add(db, "bv_format", 3, function<formatted>);
    add(db, "bv_like", 2, like);
    check(sqlite3_create_function_v2(db, "bv_sum", 1, SQLITE_UTF8, nullptr, nullptr, sumStep, sumEnd, nullptr), db);
}

}  // namespace bravona
