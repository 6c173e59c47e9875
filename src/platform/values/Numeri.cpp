#include "platform/values/Numeri.h"

#include <charconv>
#include <cmath>
#include <limits>

#include "platform/values/Decimal.h"
#include "platform/values/Errore.h"

namespace bravona {

namespace {

constexpr int decimaliCurrency = 4;
constexpr std::string_view patternData = "dd/mm/yyyy";
constexpr Decimal::Layout dueDecimali{.minWhole = 1, .decimals = 2, .groups = true};

[[noreturn]] void nonUnNumero(std::string_view text)
{
    throw Errore(errori::testoNonConvertibile, "\"" + std::string(text) + "\" non è un numero");
}

Decimal leggi(std::string_view text)
{
    const auto d = Decimal::parse(text);
    if (!d) {
        nonUnNumero(text);
    }
    return *d;
}

template <typename Intero>
Intero intero(std::string_view text)
{
    const auto n = leggi(text).scaled(0, Rounding::halfToEven);
    if (!n || *n < std::numeric_limits<Intero>::min() || *n > std::numeric_limits<Intero>::max()) {
        throw Errore(errori::numeroTroppoGrande, "Numero troppo grande");
    }
    return static_cast<Intero>(*n);
}

Currency importo(const Decimal& d)
{
    const auto n = d.scaled(decimaliCurrency, Rounding::halfToEven);
    if (!n) {
        throw Errore(errori::numeroTroppoGrande, "Importo troppo grande");
    }
    return Currency::fromTenThousandths(*n);
}

std::string conDueDecimali(Decimal d)
{
    return d.round(dueDecimali.decimals, Rounding::halfAwayFromZero).text(dueDecimali);
}

Currency centesimi(const Decimal& d)
{
    constexpr std::int64_t perCentesimo = Currency::unitaPerEuro / 100;
    const auto centesimi = d.scaled(dueDecimali.decimals, Rounding::halfAwayFromZero);
    if (!centesimi || *centesimi > std::numeric_limits<std::int64_t>::max() / perCentesimo ||
        *centesimi < std::numeric_limits<std::int64_t>::min() / perCentesimo) {
        throw Errore(errori::numeroTroppoGrande, "Numero troppo grande");
    }
    return Currency::fromTenThousandths(*centesimi * perCentesimo);
}

std::string importoEuro(Decimal d)
{
    std::string s = conDueDecimali(d);
    s.insert(s.front() == '-' ? 1 : 0, "\u20AC ");
    return s;
}

// The decimal behind a value; empty for Null and for a text that is no number.
std::optional<Decimal> decimale(const Value& value)
{
    struct Visita {
        std::optional<Decimal> operator()(std::monostate) const { return std::nullopt; }
        std::optional<Decimal> operator()(bool v) const { return Decimal::fromScaled(v ? -1 : 0); }
        std::optional<Decimal> operator()(std::int64_t v) const { return Decimal::fromScaled(v); }
        std::optional<Decimal> operator()(double v) const { return Decimal::fromDouble(v); }
        std::optional<Decimal> operator()(Currency v) const
        {
            return Decimal::fromScaled(v.tenThousandths(), decimaliCurrency);
        }
        std::optional<Decimal> operator()(Date v) const { return Decimal::fromScaled(v.dayNumber()); }
        std::optional<Decimal> operator()(const std::string& v) const { return Decimal::parse(v); }
    };
    return std::visit(Visita{}, value.variant());
}

Decimal::Layout layoutDi(std::string_view pattern)
{
    Decimal::Layout layout{.minWhole = 0, .decimals = 0, .groups = false};
    bool decimali = false;
    for (const char c : pattern) {
        if (c == '0') {
            ++(decimali ? layout.decimals : layout.minWhole);
        } else if (c == ',' && !decimali) {
            layout.groups = true;
        } else if (c == '.' && !decimali) {
            decimali = true;
        } else if (c != '#' || decimali) {
            throw Errore(errori::argomentoNonValido, "Formato non previsto: " + std::string(pattern));
        }
    }
    return layout;
}

std::string formatData(const Value& value)
{
    if (const auto* testo = std::get_if<std::string>(&value.variant())) {
        const auto data = Date::parse(*testo);
        return data ? data->text() : *testo;
    }
    return value.toDate().text();
}

bool cifra(char c)
{
    return c >= '0' && c <= '9';
}

std::size_t oltreLeCifre(std::string_view text, std::size_t da)
{
    while (da < text.size() && cifra(text[da])) {
        ++da;
    }
    return da;
}

}  // namespace

double leadingNumber(std::string_view text)
{
    while (!text.empty() &&
           (text.front() == ' ' || text.front() == '\t' || text.front() == '\r' || text.front() == '\n')) {
        text.remove_prefix(1);
    }
    const bool negativo = text.starts_with('-');
    if (negativo || text.starts_with('+')) {
        text.remove_prefix(1);
    }

    std::size_t fine = oltreLeCifre(text, 0);
    std::size_t cifre = fine;
    if (fine < text.size() && text[fine] == '.') {
        const std::size_t dopo = oltreLeCifre(text, fine + 1);
        cifre += dopo - fine - 1;
        fine = dopo;
    }
    if (cifre == 0) {
        return 0;
    }
    if (fine < text.size() && (text[fine] == 'e' || text[fine] == 'E')) {
        std::size_t esponente = fine + 1;
        if (esponente < text.size() && (text[esponente] == '-' || text[esponente] == '+')) {
            ++esponente;
        }
        const std::size_t dopo = oltreLeCifre(text, esponente);
        if (dopo > esponente) {
            fine = dopo;
        }
    }
    double value = 0;
    if (std::from_chars(text.data(), text.data() + fine, value).ec == std::errc::result_out_of_range) {
        // Either too small, which reads as 0, or too big; from_chars does not tell which.
        const std::size_t e = text.substr(0, fine).find_first_of("eE");
        if (e == std::string_view::npos || text[e + 1] != '-') {
            throw Errore(errori::numeroTroppoGrande, "Numero troppo grande");
        }
        return 0;
    }
    return negativo ? 0 - value : value;
}

std::string leadingWholeNumberText(std::string_view text)
{
    return Decimal::fromDouble(std::trunc(leadingNumber(text))).text();
}

std::optional<double> parseNumber(std::string_view text)
{
    const auto d = Decimal::parse(text);
    if (!d) {
        return std::nullopt;
    }
    return d->toDouble();
}

std::optional<Currency> parseAmount(std::string_view text)
{
    const auto d = Decimal::parse(text);
    if (!d) {
        return std::nullopt;
    }
    return importo(*d);
}

bool isNumeric(std::string_view text)
{
    return Decimal::parse(text).has_value();
}

bool isDate(std::string_view text)
{
    return Date::parse(text).has_value();
}

std::int16_t toInt16(std::string_view text)
{
    return intero<std::int16_t>(text);
}

std::int32_t toInt32(std::string_view text)
{
    return intero<std::int32_t>(text);
}

std::int64_t toInt64(std::string_view text)
{
    return intero<std::int64_t>(text);
}

double toDouble(std::string_view text)
{
    return leggi(text).toDouble();
}

Currency toCurrency(std::string_view text)
{
    return importo(leggi(text));
}

Date toDate(std::string_view text)
{
    const auto data = Date::parse(text);
    if (!data) {
        throw Errore(errori::testoNonConvertibile, "\"" + std::string(text) + "\" non è una data");
    }
    return *data;
}

std::string format(const Value& value, std::string_view pattern)
{
    if (value.isNull()) {
        return {};
    }
    if (pattern.empty()) {
        return value.text();
    }
    if (pattern == patternData) {
        return formatData(value);
    }
    const Decimal::Layout layout = layoutDi(pattern);
    auto d = decimale(value);
    if (!d) {
        return value.text();
    }
    return d->round(layout.decimals, Rounding::halfAwayFromZero).text(layout);
}

std::string twoDecimals(double value)
{
    return conDueDecimali(Decimal::fromDouble(value));
}

std::string twoDecimals(Currency value)
{
    return conDueDecimali(Decimal::fromScaled(value.tenThousandths(), decimaliCurrency));
}

std::string numberText(double value)
{
    return Decimal::fromDouble(value).text();
}

std::string numberText(Currency value)
{
    return Decimal::fromScaled(value.tenThousandths(), decimaliCurrency).text();
}

Currency aCentesimi(double value)
{
    return centesimi(Decimal::fromDouble(value));
}

Currency aCentesimi(Currency value)
{
    return centesimi(Decimal::fromScaled(value.tenThousandths(), decimaliCurrency));
}

Currency aCentesimi(std::string_view text)
{
    return text.empty() ? Currency{} : centesimi(leggi(text));
}

std::string FormattaImporto(std::string_view text)
{
    return text.empty() ? std::string() : FormattaImportoForzato(text);
}

std::string FormattaImporto(double value)
{
    return importoEuro(Decimal::fromDouble(value));
}

std::string FormattaImporto(Currency value)
{
    return importoEuro(Decimal::fromScaled(value.tenThousandths(), decimaliCurrency));
}

std::string FormattaImportoDi(const Value& value)
{
    if (value.isNull()) {
        return {};
    }
    if (const auto* testo = std::get_if<std::string>(&value.variant())) {
        return FormattaImporto(std::string_view(*testo));
    }
    return importoEuro(*decimale(value));
}

std::string FormattaImportoForzato(std::string_view text)
{
    return importoEuro(text.empty() ? Decimal() : leggi(text));
}

}  // namespace bravona
