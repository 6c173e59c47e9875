#include "platform/values/Decimal.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>

#include "platform/values/Errore.h"

namespace bravona {

namespace {

constexpr std::string_view euro = "\u20AC";
constexpr std::string_view spazioUnificatore = "\u00A0";

bool isDigit(char c)
{
    return c >= '0' && c <= '9';
}

[[noreturn]] void troppoGrande()
{
    throw Errore(errori::numeroTroppoGrande, "Numero troppo grande");
}

// Steps over an optional piece of the text.
bool skip(std::string_view& text, std::string_view piece)
{
    if (!text.starts_with(piece)) {
        return false;
    }
    text.remove_prefix(piece.size());
    return true;
}

void skipBlanks(std::string_view& text)
{
    while (skip(text, " ") || skip(text, "\t") || skip(text, spazioUnificatore)) {
    }
}

// The signs that may stand on either side of the digits; each at most once in all.
struct Segni {
    bool segno = false;
    bool negativo = false;
    bool valuta = false;

    void leggi(std::string_view& text)
    {
        for (;;) {
            skipBlanks(text);
            if (!segno && (text.starts_with('-') || text.starts_with('+'))) {
                segno = true;
                negativo = text.front() == '-';
                text.remove_prefix(1);
            } else if (valuta || !skip(text, euro)) {
                return;
            } else {
                valuta = true;
            }
        }
    }
};

}  // namespace

void Decimal::append(char digit)
{
    if (n_ < maxDigits) {
        digits_[static_cast<std::size_t>(n_++)] = digit;
    } else if (digit != '0') {
        // Keeps a half from looking exact when more follows.
        digits_[maxDigits - 1] = std::max(digits_[maxDigits - 1], '1');
    }
}

void Decimal::dropTrailingZeros()
{
    while (n_ > 0 && digits_[static_cast<std::size_t>(n_ - 1)] == '0') {
        --n_;
    }
    if (n_ == 0) {
        negative_ = false;
        point_ = 0;
    }
}

Decimal Decimal::fromDouble(double value)
{
    if (!std::isfinite(value)) {
        troppoGrande();
    }
    constexpr double limiteInteri = 1e15;
    if (std::fabs(value) < limiteInteri && value == std::trunc(value)) {
        return fromScaled(static_cast<std::int64_t>(value));
    }
    std::array<char, 32> buffer{};
    const auto fine =
        std::to_chars(buffer.data(), buffer.data() + buffer.size(), value, std::chars_format::scientific, 14);
    Decimal d;
    const char* p = buffer.data();
    if (*p == '-') {
        d.negative_ = true;
        ++p;
    }
    for (; *p != 'e'; ++p) {
        if (*p != '.') {
            d.append(*p);
        }
    }
    ++p;
    if (*p == '+') {
        ++p;
    }
    int esponente = 0;
    std::from_chars(p, fine.ptr, esponente);
    d.point_ = esponente + 1;
    d.dropTrailingZeros();
    return d;
}

Decimal Decimal::fromScaled(std::int64_t value, int decimals)
{
    Decimal d;
    d.negative_ = value < 0;
    const auto assoluto = value < 0 ? 0 - static_cast<std::uint64_t>(value) : static_cast<std::uint64_t>(value);
    if (assoluto == 0) {
        return {};
    }
    const auto fine = std::to_chars(d.digits_.data(), d.digits_.data() + d.digits_.size(), assoluto);
    d.n_ = static_cast<int>(fine.ptr - d.digits_.data());
    d.point_ = d.n_ - decimals;
    d.dropTrailingZeros();
    return d;
}

std::optional<Decimal> Decimal::parse(std::string_view text)
{
    Segni segni;
    segni.leggi(text);
    Decimal d;
    bool virgola = false;
    bool cifre = false;
    for (; !text.empty(); text.remove_prefix(1)) {
        const char c = text.front();
        if (isDigit(c)) {
            cifre = true;
            if (c == '0' && d.n_ == 0) {
                if (virgola) {
                    --d.point_;
                }
            } else {
                d.append(c);
                if (!virgola) {
                    ++d.point_;
                }
            }
        } else if (c == ',' && !virgola) {
            virgola = true;
        } else if (c != '.') {
            break;
        }
    }
    segni.leggi(text);
    if (!cifre || !text.empty()) {
        return std::nullopt;
    }
    d.negative_ = segni.negativo;
    d.dropTrailingZeros();
    return d;
}

Decimal& Decimal::round(int decimals, Rounding how)
{
    const int tenute = point_ + decimals;
    if (tenute >= n_) {
        return *this;
    }
    if (tenute < 0) {
        *this = {};
        return *this;
    }
    const char prima = digitAt(tenute);
    const bool resto = tenute + 1 < n_;  // the last digit is never a zero
    bool su = prima > '5' || (prima == '5' && resto);
    if (prima == '5' && !resto) {
        su = how == Rounding::halfAwayFromZero || (tenute > 0 && (digitAt(tenute - 1) - '0') % 2 != 0);
    }
    n_ = tenute;
    if (su) {
        int i = n_ - 1;
        while (i >= 0 && digits_[static_cast<std::size_t>(i)] == '9') {
            --i;
        }
        if (i >= 0) {
            ++digits_[static_cast<std::size_t>(i)];
            n_ = i + 1;
        } else {
            digits_[0] = '1';
            n_ = 1;
            ++point_;
        }
    }
    dropTrailingZeros();
    return *this;
}

std::optional<std::int64_t> Decimal::scaled(int decimals, Rounding how) const
{
    Decimal d = *this;
    d.round(decimals, how);
    const int quante = d.n_ == 0 ? 0 : d.point_ + decimals;
    constexpr int cifreMassime = std::numeric_limits<std::int64_t>::digits10 + 1;
    if (quante > cifreMassime) {
        return std::nullopt;
    }
    std::uint64_t n = 0;
    for (int i = 0; i < quante; ++i) {
        n = n * 10 + static_cast<std::uint64_t>(d.digitAt(i) - '0');
    }
    constexpr auto massimo = static_cast<std::uint64_t>(std::numeric_limits<std::int64_t>::max());
    if (n > massimo + (d.negative_ ? 1U : 0U)) {
        return std::nullopt;
    }
    return static_cast<std::int64_t>(d.negative_ ? 0 - n : n);
}

double Decimal::toDouble() const
{
    std::array<char, maxDigits + 16> buffer{};
    char* p = buffer.data();
    if (n_ == 0) {
        return 0;
    }
    if (negative_) {
        *p++ = '-';
    }
    p = std::copy_n(digits_.data(), n_, p);
    *p++ = 'e';
    p = std::to_chars(p, buffer.data() + buffer.size(), point_ - n_).ptr;
    double value = 0;
    if (std::from_chars(buffer.data(), p, value).ec == std::errc::result_out_of_range) {
        if (point_ > 0) {
            troppoGrande();
        }
        return 0;
    }
    return value;
}

std::string Decimal::text() const
{
    return text({.minWhole = 1, .decimals = std::max(n_ - point_, 0), .groups = false});
}

std::string Decimal::text(const Layout& layout) const
{
    const int interi = n_ == 0 ? 0 : std::max(point_, 0);
    const int scritti = std::max(interi, layout.minWhole);
    std::string s;
    s.reserve(static_cast<std::size_t>(scritti) + static_cast<std::size_t>(scritti / 3 + layout.decimals) + 2);
    if (negative_) {
        s.push_back('-');
    }
    for (int restano = scritti; restano > 0; --restano) {
        // The digit of 10^(restano - 1).
        s.push_back(digitAt(point_ - restano));
        if (layout.groups && restano > 1 && restano % 3 == 1) {
            s.push_back('.');
        }
    }
    if (layout.decimals > 0) {
        s.push_back(',');
    }
    for (int i = 0; i < layout.decimals; ++i) {
        s.push_back(digitAt(point_ + i));
    }
    return s;
}

}  // namespace bravona
