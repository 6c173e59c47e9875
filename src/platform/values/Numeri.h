#pragma once

#include <concepts>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "platform/values/Value.h"

namespace bravona {

// --- Reading ---------------------------------------------------------------------------------------------------

// The leading number of a text, 0 if there is none: leading blanks skipped, sign, digits, the point alone as decimal
// sign, an exponent. Throws Errore 6 for a number too big for a double.
double leadingNumber(std::string_view text);
// The leading number cut to a whole one and written back as plain decimal text ("2004abc" gives "2004").
std::string leadingWholeNumberText(std::string_view text);

// A whole text as a number under Italian settings: optional "€" before or after, sign before or after, points as
// thousands separators wherever they stand, comma as decimal sign, blanks around. Empty when it is no number; throws
// Errore 6 when it is too big for a double.
std::optional<double> parseNumber(std::string_view text);
// The same read exactly into ten-thousandths, halves to even. Empty when it is no number; throws Errore 6 out of range.
std::optional<Currency> parseAmount(std::string_view text);
bool isNumeric(std::string_view text);
bool isDate(std::string_view text);

// Strict conversions: Errore 13 for a text that is no number or date, 6 out of range. Halves to even.
std::int16_t toInt16(std::string_view text);
std::int32_t toInt32(std::string_view text);
std::int64_t toInt64(std::string_view text);
double toDouble(std::string_view text);
Currency toCurrency(std::string_view text);
Date toDate(std::string_view text);

// --- Rounding ---------------------------------------------------------------------------------------------------

// To the cent, as the amount text shows it: halves away from zero on the decimal form (of 15 significant digits for a
// double). Errore 6 out of range; for a text also 13 when it is no number. An empty text is 0.
Currency aCentesimi(double value);
Currency aCentesimi(Currency value);
Currency aCentesimi(std::string_view text);

// --- Writing ---------------------------------------------------------------------------------------------------

// The number patterns in use: "###,###,##0.00" and "#,##0.00" (two decimals, points between thousands, halves away from
// zero on the decimal form of 15 significant digits, no sign on a zero), "#,##0", "#,###" and "#,###,###,###" (whole;
// zero is empty in the last two), "00" (at least two digits), "dd/mm/yyyy". A Null and an empty text give an empty
// text; a text that is no number (or no day) stays as it is. An empty pattern gives the value's own text, a pattern of
// other characters throws Errore 5.
std::string format(const Value& value, std::string_view pattern);
// "1.234,50"
std::string twoDecimals(double value);
std::string twoDecimals(Currency value);
// Without a pattern, in Italian form, up to 15 significant digits: "2,5", "1000", "-0,25".
std::string numberText(double value);
std::string numberText(Currency value);

// --- Amount text -----------------------------------------------------------------------------------------------

// "€ 1.234,50", negative "-€ 1.234,50"; an empty text stays empty. A text that is no number throws Errore 13.
std::string FormattaImporto(std::string_view text);
std::string FormattaImporto(double value);
std::string FormattaImporto(Currency value);
std::string FormattaImportoDi(const Value& value);  // Null gives the empty text
// For a Value and nothing that would become one, so that texts and numbers find their own way.
template <std::same_as<Value> V>
std::string FormattaImporto(const V& value)
{
    return FormattaImportoDi(value);
}
// The same without the test for empty: an empty text gives "€ 0,00".
std::string FormattaImportoForzato(std::string_view text);

}  // namespace bravona
