#include "platform/values/Value.h"

#include <cmath>
#include <limits>

#include "platform/values/Errore.h"
#include "platform/values/Numeri.h"

namespace bravona {

namespace {

[[noreturn]] void nullo()
{
    throw Errore(errori::valoreNullo, "Manca un valore");
}

[[noreturn]] void troppoGrande()
{
    throw Errore(errori::numeroTroppoGrande, "Numero troppo grande");
}

// Nearest whole number, halves to even, whatever rounding mode the process is in.
double pari(double v)
{
    const double sotto = std::floor(v);
    const double resto = v - sotto;
    constexpr double mezzo = 0.5;
    if (resto < mezzo || (resto == mezzo && std::fmod(sotto, 2) == 0)) {
        return sotto;
    }
    return sotto + 1;
}

std::int64_t interoDa(double v)
{
    constexpr double limite = 9223372036854775808.0;  // 2^63
    const double n = pari(v);
    if (!(n >= -limite && n < limite)) {
        troppoGrande();
    }
    return static_cast<std::int64_t>(n);
}

std::int64_t interoDa(Currency v)
{
    const std::int64_t unita = Currency::unitaPerEuro;
    std::int64_t intero = v.tenThousandths() / unita;
    const std::int64_t resto = v.tenThousandths() % unita;
    const std::int64_t doppio = 2 * (resto < 0 ? -resto : resto);
    if (doppio > unita || (doppio == unita && intero % 2 != 0)) {
        intero += resto < 0 ? -1 : 1;
    }
    return intero;
}

template <typename Intero>
Intero ridotto(std::int64_t n)
{
    if (n < std::numeric_limits<Intero>::min() || n > std::numeric_limits<Intero>::max()) {
        troppoGrande();
    }
    return static_cast<Intero>(n);
}

struct Intero64 {
    std::int64_t operator()(std::monostate) const { nullo(); }
    std::int64_t operator()(bool v) const { return v ? -1 : 0; }
    std::int64_t operator()(std::int64_t v) const { return v; }
    std::int64_t operator()(double v) const { return interoDa(v); }
    std::int64_t operator()(Currency v) const { return interoDa(v); }
    std::int64_t operator()(Date v) const { return v.dayNumber(); }
    std::int64_t operator()(const std::string& v) const { return bravona::toInt64(v); }
};

struct Reale {
    double operator()(std::monostate) const { nullo(); }
    double operator()(bool v) const { return v ? -1 : 0; }
    double operator()(std::int64_t v) const { return static_cast<double>(v); }
    double operator()(double v) const { return v; }
    double operator()(Currency v) const { return v.toDouble(); }
    double operator()(Date v) const { return v.dayNumber(); }
    double operator()(const std::string& v) const { return bravona::toDouble(v); }
};

struct Importo {
    Currency operator()(std::monostate) const { nullo(); }
    Currency operator()(bool v) const { return Currency::fromEuro(v ? -1 : 0); }
    Currency operator()(std::int64_t v) const { return Currency::fromEuro(v); }
    Currency operator()(double v) const { return Currency::fromDouble(v); }
    Currency operator()(Currency v) const { return v; }
    Currency operator()(Date v) const { return Currency::fromEuro(v.dayNumber()); }
    Currency operator()(const std::string& v) const { return bravona::toCurrency(v); }
};

// ASCII letters do: the words are known.
bool ugualeSenzaMaiuscole(std::string_view testo, std::string_view minuscolo)
{
    if (testo.size() != minuscolo.size()) {
        return false;
    }
    for (std::size_t i = 0; i < testo.size(); ++i) {
        const char c = testo[i] >= 'A' && testo[i] <= 'Z' ? static_cast<char>(testo[i] - 'A' + 'a') : testo[i];
        if (c != minuscolo[i]) {
            return false;
        }
    }
    return true;
}

struct Logico {
    bool operator()(std::monostate) const { nullo(); }
    bool operator()(bool v) const { return v; }
    bool operator()(std::int64_t v) const { return v != 0; }
    bool operator()(double v) const { return v != 0; }
    bool operator()(Currency v) const { return v != Currency(); }
    bool operator()(Date v) const { return v.dayNumber() != 0; }
    bool operator()(const std::string& v) const
    {
        if (ugualeSenzaMaiuscole(v, "true") || ugualeSenzaMaiuscole(v, "vero")) {
            return true;
        }
        if (ugualeSenzaMaiuscole(v, "false") || ugualeSenzaMaiuscole(v, "falso")) {
            return false;
        }
        return bravona::toDouble(v) != 0;
    }
};

struct Testo {
    std::string operator()(std::monostate) const { return {}; }
    std::string operator()(bool v) const { return v ? "True" : "False"; }
    std::string operator()(std::int64_t v) const { return std::to_string(v); }
    std::string operator()(double v) const { return numberText(v); }
    std::string operator()(Currency v) const { return numberText(v); }
    std::string operator()(Date v) const { return v.text(); }
    std::string operator()(const std::string& v) const { return v; }
};

}  // namespace

std::int32_t Value::toLong() const
{
    return ridotto<std::int32_t>(toInt64());
}

std::int16_t Value::toInt() const
{
    return ridotto<std::int16_t>(toInt64());
}

std::int64_t Value::toInt64() const
{
    return std::visit(Intero64{}, v_);
}

double Value::toDouble() const
{
    return std::visit(Reale{}, v_);
}

Currency Value::toCurrency() const
{
    return std::visit(Importo{}, v_);
}

Date Value::toDate() const
{
    if (const auto* data = std::get_if<Date>(&v_)) {
        return *data;
    }
    if (const auto* testo = std::get_if<std::string>(&v_)) {
        return bravona::toDate(*testo);
    }
    const double giorni = std::trunc(toDouble());
    if (!(giorni >= Date::first.dayNumber() && giorni <= Date::last.dayNumber())) {
        troppoGrande();
    }
    return Date::fromDayNumber(static_cast<std::int32_t>(giorni));
}

bool Value::toBool() const
{
    return std::visit(Logico{}, v_);
}

std::string Value::text() const
{
    return std::visit(Testo{}, v_);
}

}  // namespace bravona
