#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace bravona {

enum class Rounding { halfAwayFromZero, halfToEven };

// A number as its decimal digits, on which rounding is exact: 0.d1d2...dn x 10^point. What every reading, rounding and
// writing of numbers goes through. Holds up to 40 digits; of a longer text the rest only tells whether it is more than
// a half.
class Decimal {
public:
    // How a number is written. Always the Italian signs: comma for decimals, points between thousands.
    struct Layout {
        int minWhole = 1;  // digits before the comma, at least
        int decimals = 0;  // digits after the comma, always all of them
        bool groups = false;
    };

    Decimal() = default;  // zero
    // Its decimal form of 15 significant digits. Throws Errore 6 for a value that is no number or infinite.
    static Decimal fromDouble(double value);
    // value / 10^decimals
    static Decimal fromScaled(std::int64_t value, int decimals = 0);
    // Italian reading, see parseNumber. Empty when the text is no number.
    static std::optional<Decimal> parse(std::string_view text);

    [[nodiscard]] bool isZero() const { return n_ == 0; }
    [[nodiscard]] bool isNegative() const { return negative_; }

    // To so many decimals. A value that rounds to zero loses its sign.
    Decimal& round(int decimals, Rounding how);
    // The value times 10^decimals, rounded. Empty when it does not fit.
    [[nodiscard]] std::optional<std::int64_t> scaled(int decimals, Rounding how) const;
    // The nearest double. Throws Errore 6 when it is too big for one.
    [[nodiscard]] double toDouble() const;

    // The digits that there are, without thousands: "2,5", "1000", "-0,25".
    [[nodiscard]] std::string text() const;
    // By a layout; decimals beyond it are left out, so round first.
    [[nodiscard]] std::string text(const Layout& layout) const;

private:
    static constexpr int maxDigits = 40;

    void append(char digit);
    void dropTrailingZeros();
    [[nodiscard]] char digitAt(int i) const { return i >= 0 && i < n_ ? digits_[static_cast<std::size_t>(i)] : '0'; }

    bool negative_ = false;
    int n_ = 0;  // no leading and no trailing zeros among them
    int point_ = 0;
    std::array<char, maxDigits> digits_{};
};

}  // namespace bravona
