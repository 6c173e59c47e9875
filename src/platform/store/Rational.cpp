#include "platform/store/Rational.h"

#include <charconv>
#include <cmath>
#include <cstdio>
#include <limits>

#include "platform/values/Errore.h"

namespace bravona {
namespace {

// Digits behind the point beyond which a number counts as too fine to matter to a ten-thousandth.
constexpr int finest = 30;

[[noreturn]] void overflow()
{
    throw Errore(errori::numeroTroppoGrande, "Overflow");
}

Int128 magnitude(Int128 v)
{
    return v < 0 ? -v : v;
}

Int128 gcd(Int128 a, Int128 b)
{
    a = magnitude(a);
    while (b != 0) {
        // Most values are amounts: 64 bits, a far quicker division.
        if (a <= std::numeric_limits<std::int64_t>::max() && b <= std::numeric_limits<std::int64_t>::max()) {
            auto x = static_cast<std::uint64_t>(a);
            auto y = static_cast<std::uint64_t>(b);
            while (y != 0) {
                const std::uint64_t rest = x % y;
                x = y;
                y = rest;
            }
            return static_cast<Int128>(x);
        }
        const Int128 rest = a % b;
        a = b;
        b = rest;
    }
    return a;
}

Int128 times(Int128 a, Int128 b)
{
    Int128 r = 0;
    if (__builtin_mul_overflow(a, b, &r)) {
        overflow();
    }
    return r;
}

Int128 plus(Int128 a, Int128 b)
{
    Int128 r = 0;
    if (__builtin_add_overflow(a, b, &r)) {
        overflow();
    }
    return r;
}

Int128 powerOfTen(int exponent)
{
    Int128 r = 1;
    for (int i = 0; i < exponent; ++i) {
        r = times(r, 10);
    }
    return r;
}

Int128 halfToEven(Int128 n, Int128 d)
{
    Int128 quotient = n / d;
    const Int128 rest = magnitude(n % d);
    const Int128 other = d - rest;
    if (rest > other || (rest == other && quotient % 2 != 0)) {
        quotient += n < 0 ? -1 : 1;
    }
    return quotient;
}

std::int64_t to64(Int128 v)
{
    if (v > std::numeric_limits<std::int64_t>::max() || v < std::numeric_limits<std::int64_t>::min()) {
        overflow();
    }
    return static_cast<std::int64_t>(v);
}

}  // namespace

Rational Rational::make(Int128 numerator, Int128 denominator)
{
    if (denominator == 0) {
        throw Errore(errori::divisionePerZero, "Divisione per zero");
    }
    constexpr Int128 lowest = static_cast<Int128>(1) << 127;
    if (numerator == lowest || denominator == lowest) {
        overflow();
    }
    if (denominator < 0) {
        numerator = -numerator;
        denominator = -denominator;
    }
    const Int128 common = denominator == 1 ? 1 : gcd(numerator, denominator);
    Rational r;
    r.n_ = numerator / common;
    r.d_ = denominator / common;
    return r;
}

Rational Rational::tenThousandths(std::int64_t n)
{
    return make(n, 10'000);
}

Rational Rational::fromDouble(double value)
{
    if (!std::isfinite(value)) {
        overflow();
    }
    char buffer[40];
    std::snprintf(buffer, sizeof buffer, "%.14e", value);
    // The decimal sign is whatever the process's locale has.
    std::string_view text(buffer);
    const bool negative = text.front() == '-';
    text.remove_prefix(negative ? 1 : 0);
    Int128 mantissa = 0;
    std::size_t i = 0;
    int digits = 0;
    for (; i < text.size() && text[i] != 'e'; ++i) {
        if (text[i] >= '0' && text[i] <= '9') {
            mantissa = mantissa * 10 + (text[i] - '0');
            ++digits;
        }
    }
    ++i;
    if (i < text.size() && text[i] == '+') {
        ++i;
    }
    int exponent = 0;
    std::from_chars(text.data() + i, text.data() + text.size(), exponent);
    exponent -= digits - 1;
    while (mantissa != 0 && mantissa % 10 == 0) {
        mantissa /= 10;
        ++exponent;
    }
    mantissa = negative ? -mantissa : mantissa;
    if (mantissa == 0) {
        return {};
    }
    if (exponent >= 0) {
        return exponent > finest ? (overflow(), Rational{}) : make(times(mantissa, powerOfTen(exponent)), 1);
    }
    if (exponent < -finest) {
        return {};
    }
    return make(mantissa, powerOfTen(-exponent));
}

std::optional<Rational> Rational::parse(std::string_view text)
{
    Int128 n = 0;
    int scale = 0;
    bool point = false;
    bool any = false;
    std::size_t i = 0;
    for (; i < text.size(); ++i) {
        const char c = text[i];
        if (c >= '0' && c <= '9') {
            any = true;
            if (point && scale >= finest) {
                continue;
            }
            n = plus(times(n, 10), c - '0');
            scale += point ? 1 : 0;
        } else if (c == '.' && !point) {
            point = true;
        } else {
            break;
        }
    }
    if (!any) {
        return std::nullopt;
    }
    if (i < text.size() && (text[i] == 'e' || text[i] == 'E')) {
        ++i;
        if (i < text.size() && text[i] == '+') {
            ++i;
        }
        int exponent = 0;
        const auto [end, error] = std::from_chars(text.data() + i, text.data() + text.size(), exponent);
        if (error == std::errc::result_out_of_range) {
            overflow();
        }
        if (error != std::errc{} || end != text.data() + text.size()) {
            return std::nullopt;
        }
        if (exponent > 2 * finest) {
            overflow();
        }
        scale -= exponent < -4 * finest ? -4 * finest : exponent;
        i = text.size();
    }
    if (i != text.size()) {
        return std::nullopt;
    }
    if (n == 0) {
        return Rational{};
    }
    while (scale > 0 && n % 10 == 0) {
        n /= 10;
        --scale;
    }
    if (scale <= 0) {
        return make(times(n, powerOfTen(-scale)), 1);
    }
    if (scale > finest + 7) {
        return Rational{};
    }
    return make(n, powerOfTen(scale));
}

std::int64_t Rational::rounded() const
{
    return to64(halfToEven(n_, d_));
}

std::int64_t Rational::roundedTenThousandths() const
{
    // The fraction apart, so that the factor fits; its own parity is that of the whole, since 10,000 is even.
    const int dropped = d_ > (static_cast<Int128>(1) << 112) ? 15 : 0;
    const Int128 fraction = halfToEven(times((n_ % d_) / (static_cast<Int128>(1) << dropped), 10'000), d_ >> dropped);
    return to64(plus(times(n_ / d_, 10'000), fraction));
}

double Rational::toDouble() const
{
    return static_cast<double>(static_cast<long double>(n_) / static_cast<long double>(d_));
}

Rational Rational::operator-() const
{
    Rational r = *this;
    r.n_ = -r.n_;
    return r;
}

Rational operator+(const Rational& a, const Rational& b)
{
    if (a.d_ == b.d_) {
        return Rational::make(plus(a.n_, b.n_), a.d_);
    }
    const Int128 common = gcd(a.d_, b.d_);
    const Int128 left = a.d_ / common;
    const Int128 right = b.d_ / common;
    return Rational::make(plus(times(a.n_, right), times(b.n_, left)), times(a.d_, right));
}

Rational operator-(const Rational& a, const Rational& b)
{
    return a + (-b);
}

Rational operator*(const Rational& a, const Rational& b)
{
    const Int128 one = gcd(a.n_, b.d_);
    const Int128 two = gcd(b.n_, a.d_);
    return Rational::make(times(a.n_ / one, b.n_ / two), times(a.d_ / two, b.d_ / one));
}

Rational operator/(const Rational& a, const Rational& b)
{
    if (b.n_ == 0) {
        throw Errore(errori::divisionePerZero, "Divisione per zero");
    }
    return a * Rational::make(b.d_, b.n_);
}

int Rational::compare(const Rational& a, const Rational& b)
{
    if (a.d_ == b.d_) {
        return a.n_ < b.n_ ? -1 : (a.n_ > b.n_ ? 1 : 0);
    }
    const Rational difference = a - b;
    return difference.n_ < 0 ? -1 : (difference.n_ > 0 ? 1 : 0);
}

}  // namespace bravona
