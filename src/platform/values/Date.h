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
    constexpr Date() = default; // 30/12/1899, day number 0
    // Empty when there is no such day.
    static std::optional<Date> fromYmd(int year, int month, int day);
    static constexpr Date fromDayNumber(std::int32_t days) {
        Date d;
        d.days_ = days;
        return d;
    }
    // Italian reading: d/m/yyyy with "/", "-" or "." between, one or two digits, two-digit years 30-99 as 19xx, 0-29 as
    // 20xx; also 8 or 6 digits without separators. Empty for anything else.
    static std::optional<Date> parse(std::string_view text);

    [[nodiscard]] int year() const;
    [[nodiscard]] int month() const; // 1 to 12
    [[nodiscard]] int day() const;   // 1 to 31
    [[nodiscard]] constexpr std::int32_t dayNumber() const { return days_; }
    [[nodiscard]] Date addDays(std::int32_t days) const;
    // Same day so many months ahead, or that month's last day if there is no such day.
    [[nodiscard]] Date addMonths(int months) const;
    // "dd/mm/yyyy"
    [[nodiscard]] std::string text() const;

    friend constexpr auto operator<=>(Date, Date) = default;

private:
    std::int32_t days_ = 0; // since 30/12/1899
};

} // namespace bravona
