#include "platform/clock/Clock.h"

#include <ctime>

namespace bravona {

Date SystemClock::today() const
{
    const std::time_t adesso = std::time(nullptr);
    std::tm locale{};
    constexpr int annoZero = 1900;
    if (localtime_r(&adesso, &locale) == nullptr) {
        return {};
    }
    return Date::fromYmd(locale.tm_year + annoZero, locale.tm_mon + 1, locale.tm_mday).value_or(Date());
}

}  // namespace bravona
