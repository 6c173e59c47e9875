#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace bravona {

__extension__ typedef __int128 Int128;

// An exact fraction: how amounts of money compute inside a statement, as their value in euro. Always reduced, the
// denominator above 0. An operation whose result does not fit throws Errore 6, a division by zero Errore 11.
class Rational {
public:
    constexpr Rational() = default;
    static Rational make(Int128 numerator, Int128 denominator);
    static Rational whole(std::int64_t n) { return make(n, 1); }
    static Rational tenThousandths(std::int64_t n);
    // By its decimal form of 15 significant digits.
    static Rational fromDouble(double value);
    // A decimal number as it stands in a statement: digits, a point, an exponent. Empty for anything else.
    static std::optional<Rational> parse(std::string_view text);

    [[nodiscard]] Int128 numerator() const { return n_; }
    [[nodiscard]] Int128 denominator() const { return d_; }

    // Nearest whole number, halves to the even one. Throws Errore 6 outside 64 bits.
    [[nodiscard]] std::int64_t rounded() const;
    // Nearest count of ten-thousandths, halves to the even one.
    [[nodiscard]] std::int64_t roundedTenThousandths() const;
    [[nodiscard]] double toDouble() const;
    [[nodiscard]] bool isWhole() const { return d_ == 1; }

    Rational operator-() const;
    friend Rational operator+(const Rational& a, const Rational& b);
    friend Rational operator-(const Rational& a, const Rational& b);
    friend Rational operator*(const Rational& a, const Rational& b);
    friend Rational operator/(const Rational& a, const Rational& b);
    // Below 0, 0, above 0.
    static int compare(const Rational& a, const Rational& b);

private:
    Int128 n_ = 0;
    Int128 d_ = 1;
};

}  // namespace bravona
