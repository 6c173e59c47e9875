#pragma once

#include <concepts>
#include <cstdint>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <variant>

#include "platform/values/Currency.h"
#include "platform/values/Date.h"

namespace bravona {

// What a field, a cell or a bound report column holds. Null is a value of its own.
class Value {
public:
    using Variant = std::variant<std::monostate, bool, std::int64_t, double, Currency, Date, std::string>;

    Value() = default;  // Null
    Value(bool v) : v_(v) {}
    Value(int v) : v_(static_cast<std::int64_t>(v)) {}
    Value(std::int64_t v) : v_(v) {}
    Value(double v) : v_(v) {}
    Value(Currency v) : v_(v) {}
    Value(Date v) : v_(v) {}
    Value(std::string v) : v_(std::move(v)) {}
    Value(std::string_view v) : v_(std::string(v)) {}
    Value(const char* v) : v_(std::string(v)) {}
    template <typename T>
    requires(!std::same_as<std::remove_cv_t<T>, char>) Value(T*)
    = delete;  // no pointer becomes a yes/no

    [[nodiscard]] bool isNull() const { return std::holds_alternative<std::monostate>(v_); }
    [[nodiscard]] const Variant& variant() const { return v_; }

    // Conversions by Italian settings. Throw Errore 94 for Null, 13 for a text that cannot be read, 6 out of range.
    // As a number True is -1 and a day its day number.
    [[nodiscard]] std::int32_t toLong() const;   // fractions to the nearest whole number, halves to even
    [[nodiscard]] std::int16_t toInt() const;    // the same in 16 bits
    [[nodiscard]] std::int64_t toInt64() const;  // the same in 64 bits
    [[nodiscard]] double toDouble() const;
    [[nodiscard]] Currency toCurrency() const;
    [[nodiscard]] Date toDate() const;  // numbers: a day number, its fraction cut off
    [[nodiscard]] bool toBool() const;  // numbers: not 0; texts "True"/"False"/"Vero"/"Falso" or numeric

    // Shown form: empty for Null, "2,5" for numbers and amounts without a pattern, dd/mm/yyyy; yes/no reads "True" or
    // "False".
    [[nodiscard]] std::string text() const;

    // The conversion, or a fallback for Null.
    [[nodiscard]] std::int32_t longOr(std::int32_t fallback) const { return isNull() ? fallback : toLong(); }
    [[nodiscard]] double doubleOr(double fallback) const { return isNull() ? fallback : toDouble(); }
    [[nodiscard]] Currency currencyOr(Currency fallback) const { return isNull() ? fallback : toCurrency(); }

    friend bool operator==(const Value&, const Value&) = default;

private:
    Variant v_;
};

}  // namespace bravona
