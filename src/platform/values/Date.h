#pragma once

#include <compare>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace bravona {

// A calendar day, without a time. Years 100 to 9999.
class Date {
public:
    constexpr Date() = default;  // 30/12/1899, day number 0
    // Empty when there is no such day.
    static std::optional<Date> fromYmd(int year, int month, int day);
    static constexpr Date fromDayNumber(std::int32_t days)
    {
        Date d;
        d.days_ = days;
        return d;
    }
    // Italian reading: d/m/yyyy with "/", "-" or "." between (twice the same), one or two digits, two-digit years 30-99
    // as 19xx, 0-29 as 20xx; also 8 or 6 digits without separators; blanks around. Empty for anything else.
    static std::optional<Date> parse(std::string_view text);

    [[nodiscard]] int year() const;
    [[nodiscard]] int month() const;  // 1 to 12
    [[nodiscard]] int day() const;    // 1 to 31
    [[nodiscard]] constexpr std::int32_t dayNumber() const { return days_; }
    // Both throw Errore 6 when the day lies outside the years 100 to 9999.
    [[nodiscard]] Date addDays(std::int32_t days) const;
    // Same day so many months ahead, or that month's last day if there is no such day.
    [[nodiscard]] Date addMonths(int months) const;
    // "dd/mm/yyyy"
    [[nodiscard]] std::string text() const;

    // First and last day that there is: 1/1/100 and 31/12/9999.
    static const Date first;
    static const Date last;

    friend constexpr auto operator<=>(Date, Date) = default;

private:
    std::int32_t days_ = 0;  // since 30/12/1899
};

inline constexpr Date Date::first = Date::fromDayNumber(-657'434);
inline constexpr Date Date::last = Date::fromDayNumber(2'958'465);

}  // namespace bravona
