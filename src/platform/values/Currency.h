#pragma once

#include <compare>
#include <cstdint>
#include <string>

namespace bravona {

// An amount of money: a signed 64-bit count of ten-thousandths of a euro. Exact; every operation that would
// leave the range throws Errore 6.
class Currency {
public:
    static constexpr std::int64_t unitaPerEuro = 10'000;

    constexpr Currency() = default;
    static constexpr Currency fromTenThousandths(std::int64_t n)
    {
        Currency c;
        c.n_ = n;
        return c;
    }
    // Whole euro. Throws Errore 6 outside the range.
    static Currency fromEuro(std::int64_t euro);
    // Nearest ten-thousandth, halves to the even one, taken on the exact binary value's shortest decimal form of
    // 15 significant digits. Throws Errore 6 outside the range and for a value that is no number.
    static Currency fromDouble(double euro);

    [[nodiscard]] constexpr std::int64_t tenThousandths() const { return n_; }
    // Amount in euro; may lose digits beyond 15.
    [[nodiscard]] double toDouble() const { return static_cast<double>(n_) / static_cast<double>(unitaPerEuro); }

    Currency& operator+=(Currency other);
    Currency& operator-=(Currency other);
    friend Currency operator+(Currency a, Currency b) { return a += b; }
    friend Currency operator-(Currency a, Currency b) { return a -= b; }
    Currency operator-() const;
    friend constexpr auto operator<=>(Currency, Currency) = default;

private:
    std::int64_t n_ = 0;
};

}  // namespace bravona
