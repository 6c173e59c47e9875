#include "platform/values/Currency.h"

#include "platform/values/Decimal.h"
#include "platform/values/Errore.h"

namespace bravona {

namespace {

[[noreturn]] void fuoriIntervallo()
{
    throw Errore(errori::numeroTroppoGrande, "Importo troppo grande");
}

}  // namespace

Currency Currency::fromEuro(std::int64_t euro)
{
    std::int64_t n = 0;
    if (__builtin_mul_overflow(euro, unitaPerEuro, &n)) {
        fuoriIntervallo();
    }
    return fromTenThousandths(n);
}

Currency Currency::fromDouble(double euro)
{
    constexpr int decimali = 4;
    const auto n = Decimal::fromDouble(euro).scaled(decimali, Rounding::halfToEven);
    if (!n) {
        fuoriIntervallo();
    }
    return fromTenThousandths(*n);
}

Currency& Currency::operator+=(Currency other)
{
    std::int64_t somma = 0;
    if (__builtin_add_overflow(n_, other.n_, &somma)) {
        fuoriIntervallo();
    }
    n_ = somma;
    return *this;
}

Currency& Currency::operator-=(Currency other)
{
    std::int64_t differenza = 0;
    if (__builtin_sub_overflow(n_, other.n_, &differenza)) {
        fuoriIntervallo();
    }
    n_ = differenza;
    return *this;
}

Currency Currency::operator-() const
{
    return Currency() -= *this;
}

}  // namespace bravona
