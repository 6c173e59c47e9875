#include "platform/values/Numeri.h"

#include <gtest/gtest.h>

#include <clocale>
#include <cmath>
#include <limits>
#include <random>

#include "platform/values/Errore.h"
#include "support/Fallimento.h"

namespace bravona {
namespace {

TEST(Numeri, PatternsRoundGroupAndPad)
{
    struct Caso {
        Value valore;
        std::string_view pattern;
        std::string_view atteso;
    };
    const Caso tabella[] = {
        {1.005, "#,##0.00", "1,01"},
        {2.675, "###,###,##0.00", "2,68"},
        {-2.675, "#,##0.00", "-2,68"},
        {-0.004, "#,##0.00", "0,00"},
        {-0.0, "#,##0.00", "0,00"},
        {-1234567.5, "#,##0.00", "-1.234.567,50"},
        {123456789012345.0, "#,##0.00", "123.456.789.012.345,00"},
        {1e20, "#,##0.00", "100.000.000.000.000.000.000,00"},
        {0.0, "#,##0", "0"},
        {999.5, "#,##0", "1.000"},
        {-999.5, "#,##0", "-1.000"},
        {193627.0, "#,##0", "193.627"},
        {0, "#,###", ""},
        {-0.4, "#,###", ""},
        {0.5, "#,###", "1"},
        {-1234, "#,###", "-1.234"},
        {0, "#,###,###,###", ""},
        {1234567, "#,###,###,###", "1.234.567"},
        {7, "00", "07"},
        {12, "00", "12"},
        {123, "00", "123"},
        {-7, "00", "-07"},
        {0, "00", "00"},
        {"7", "00", "07"},
        {"€ 1.234,565", "#,##0.00", "1.234,57"},
        {"12.50", "#,##0.00", "1.250,00"},
        {"", "#,##0.00", ""},
        {Value(), "#,##0.00", ""},
        {"I D E M", "#,##0.00", "I D E M"},
        {true, "#,##0", "-1"},
        {Currency::fromTenThousandths(-1), "#,##0.00", "0,00"},
        {Currency::fromTenThousandths(std::numeric_limits<std::int64_t>::min()), "#,##0.00", "-922.337.203.685.477,58"},
        {std::numeric_limits<std::int64_t>::min(), "#,##0", "-9.223.372.036.854.775.808"},
        {Date::fromYmd(2004, 2, 1).value(), "dd/mm/yyyy", "01/02/2004"},
        {"1/2/04", "dd/mm/yyyy", "01/02/2004"},
        {"domani", "dd/mm/yyyy", "domani"},
        {38018, "dd/mm/yyyy", "01/02/2004"},
        {2.5, "", "2,5"},
    };
    for (const Caso& caso : tabella) {
        EXPECT_EQ(format(caso.valore, caso.pattern), caso.atteso) << caso.valore.text() << " by " << caso.pattern;
    }
    EXPECT_EQ(numeroDelFallimento([] { return format(1, "0.00 E"); }), errori::argomentoNonValido);
    EXPECT_EQ(numeroDelFallimento([] { return format(std::nan(""), "0"); }), errori::numeroTroppoGrande);
    EXPECT_EQ(numeroDelFallimento([] { return FormattaImporto(HUGE_VAL); }), errori::numeroTroppoGrande);
}

TEST(Numeri, NumbersWithoutAPatternKeepFifteenDigits)
{
    const std::pair<double, std::string_view> tabella[] = {
        {0, "0"},
        {-0.0, "0"},
        {2.5, "2,5"},
        {10.9, "10,9"},
        {1000, "1000"},
        {-0.25, "-0,25"},
        {0.1 + 0.2, "0,3"},
        {1.0 / 3, "0,333333333333333"},
        {1e-7, "0,0000001"},
        {2.0 / 3 * 1e6, "666666,666666667"},
        {1e15, "1000000000000000"},
    };
    for (const auto& [valore, atteso] : tabella) {
        EXPECT_EQ(numberText(valore), atteso);
    }
    EXPECT_EQ(numberText(Currency::fromTenThousandths(12345000)), "1234,5");
    EXPECT_EQ(numberText(Currency::fromTenThousandths(-1)), "-0,0001");
    EXPECT_EQ(numberText(Currency()), "0");
}

TEST(Numeri, ReadingByItalianSettingsTakesSignsAndCurrencyOnEitherSide)
{
    const std::pair<std::string_view, double> numeri[] = {
        {"1.234,50", 1234.5}, {"12.50", 1250},       {" 5 ", 5},  {"+5", 5}, {"5-", -5},  {"5 €", 5},   {"€-5", -5},
        {"-€5", -5},          {"- € 5", -5},         {"-5€", -5}, {"5,", 5}, {",5", 0.5}, {"0,1", 0.1}, {"1.2.3", 123},
        {"007", 7},           {"\u00A05\u00A0€", 5}, {"-0", 0},
    };
    for (const auto& [testo, atteso] : numeri) {
        EXPECT_EQ(parseNumber(testo), atteso) << testo;
        EXPECT_TRUE(isNumeric(testo)) << testo;
    }
    for (const std::string_view testo : {"", " ", "-", "€", ",", ".", "1,2,3", "--5", "-5-", "€5€", "5 5", "1e3",
                                         "0x10", "inf", "nan", "5a", "1'000"}) {
        EXPECT_FALSE(parseNumber(testo)) << testo;
        EXPECT_FALSE(parseAmount(testo)) << testo;
        EXPECT_FALSE(isNumeric(testo)) << testo;
    }
}

TEST(Numeri, AmountsAreReadExactlyAndHalvesGoToTheEven)
{
    const std::pair<std::string_view, std::int64_t> tabella[] = {
        {"0,00005", 0},
        {"0,00015", 2},
        {"0,000050000000000000000000000000000000000000001", 1},
        {"-0,00015", -2},
        {"922.337.203.685.477,5807", std::numeric_limits<std::int64_t>::max()},
        {"-922.337.203.685.477,5808", std::numeric_limits<std::int64_t>::min()},
        {"90.071.992.547.409,93", 900719925474099300},
    };
    for (const auto& [testo, atteso] : tabella) {
        EXPECT_EQ(toCurrency(testo).tenThousandths(), atteso) << testo;
    }
    for (const std::string_view testo :
         {"922.337.203.685.477,5808", "922.337.203.685.477,58075", "1.000.000.000.000.000.000.000"}) {
        EXPECT_EQ(numeroDelFallimento([&] { return parseAmount(testo); }), errori::numeroTroppoGrande) << testo;
    }
}

TEST(Numeri, StrictConversionsFailWithTheirNumber)
{
    EXPECT_EQ(toInt16("32.767"), 32767);
    EXPECT_EQ(toInt16("-32768,4"), -32768);
    EXPECT_EQ(toInt32("0,5"), 0);
    EXPECT_EQ(toInt32("1,5"), 2);
    EXPECT_EQ(toInt32("2,5"), 2);
    EXPECT_EQ(toInt32("-2,5"), -2);
    EXPECT_EQ(toInt32("2,50000000000000000000001"), 3);
    EXPECT_EQ(toInt64("9223372036854775807"), std::numeric_limits<std::int64_t>::max());
    EXPECT_EQ(toDouble("-€ 1.234,50"), -1234.5);

    const std::string enorme(400, '9');
    EXPECT_EQ(numeroDelFallimento([] { return toInt16("32767,5"); }), errori::numeroTroppoGrande);
    EXPECT_EQ(numeroDelFallimento([] { return toInt32("2147483648"); }), errori::numeroTroppoGrande);
    EXPECT_EQ(numeroDelFallimento([] { return toInt64("9223372036854775808"); }), errori::numeroTroppoGrande);
    EXPECT_EQ(numeroDelFallimento([&] { return toDouble(enorme); }), errori::numeroTroppoGrande);
    EXPECT_EQ(numeroDelFallimento([&] { return leadingNumber(enorme); }), errori::numeroTroppoGrande);
    for (const std::string_view testo : {"", "abc", "12abc"}) {
        EXPECT_EQ(numeroDelFallimento([&] { return toInt16(testo); }), errori::testoNonConvertibile) << testo;
        EXPECT_EQ(numeroDelFallimento([&] { return toInt32(testo); }), errori::testoNonConvertibile) << testo;
        EXPECT_EQ(numeroDelFallimento([&] { return toDouble(testo); }), errori::testoNonConvertibile) << testo;
        EXPECT_EQ(numeroDelFallimento([&] { return toCurrency(testo); }), errori::testoNonConvertibile) << testo;
        EXPECT_EQ(numeroDelFallimento([&] { return toDate(testo); }), errori::testoNonConvertibile) << testo;
    }
    EXPECT_EQ(numeroDelFallimento([] { return FormattaImporto("abc"); }), errori::testoNonConvertibile);
    EXPECT_EQ(FormattaImportoForzato(""), "€ 0,00");
    EXPECT_EQ(FormattaImporto(Value()), "");
}

TEST(Numeri, LenientReadingStopsAtWhatCannotGoOn)
{
    const std::pair<std::string_view, double> tabella[] = {
        {"  12", 12}, {"12 34", 12}, {"+3", 3}, {"1e3", 1000},  {"1e", 1},  {"1e+", 1},  {"1e-2x", 0.01},
        {".", 0},     {"-.5", -0.5}, {"-", 0},  {"1.2.3", 1.2}, {"inf", 0}, {"0x10", 0}, {"1e-999", 0},
    };
    for (const auto& [testo, atteso] : tabella) {
        EXPECT_EQ(leadingNumber(testo), atteso) << testo;
    }
    const std::pair<std::string_view, std::string_view> interi[] = {
        {"2004abc", "2004"}, {"", "0"},      {"-", "0"},        {"2004.9", "2004"},
        {"-0.9", "0"},       {"-3.7", "-3"}, {"02004", "2004"},
    };
    for (const auto& [testo, atteso] : interi) {
        EXPECT_EQ(leadingWholeNumberText(testo), atteso) << testo;
    }
}

// Every amount with two decimals survives the way through its texts and back, whatever its size.
TEST(Numeri, WrittenNumbersReadBackTheSame)
{
    std::mt19937_64 caso(20040115);
    for (int i = 0; i < 20000; ++i) {
        const auto cifre = static_cast<int>(caso() % 60);
        const auto n = static_cast<std::int64_t>(caso() >> (63 - cifre)) * (caso() % 2 == 0 ? 1 : -1);
        const auto importo = Currency::fromTenThousandths(n);
        ASSERT_EQ(toCurrency(numberText(importo)), importo);
        const auto centesimi = Currency::fromTenThousandths(n - n % 100);
        ASSERT_EQ(toCurrency(FormattaImporto(centesimi)), centesimi);
        ASSERT_EQ(toCurrency(format(centesimi, "#,##0.00")), centesimi);
        const double valore = static_cast<double>(n) / 1e4;
        if (std::abs(n) < 100'000'000'000'000) {
            ASSERT_EQ(toDouble(numberText(valore)), valore);
            ASSERT_EQ(Currency::fromDouble(valore), importo);
        }
    }
}

TEST(Numeri, TheMiddleBetweenTwoCentsGoesAwayFromZero)
{
    for (const std::int64_t segno : {1, -1}) {
        const Currency atteso = Currency::fromTenThousandths(segno * 1300);
        EXPECT_EQ(aCentesimi(static_cast<double>(segno) * 0.125), atteso);
        EXPECT_EQ(aCentesimi(Currency::fromTenThousandths(segno * 1250)), atteso);
        EXPECT_EQ(aCentesimi(segno > 0 ? "0,125" : "-0,125"), atteso);
    }
}

// The C locale of the machine writes decimals its own way; ours must not follow.
TEST(Numeri, TheMachinesLocaleDoesNotCount)
{
    const std::string prima = std::setlocale(LC_ALL, nullptr);
    for (const char* locale : {"de_DE.UTF-8", "it_IT.UTF-8", "en_US.UTF-8", "C.UTF-8", "C"}) {
        if (std::setlocale(LC_ALL, locale) == nullptr) {
            continue;
        }
        EXPECT_EQ(FormattaImporto(1234.5), "€ 1.234,50") << locale;
        EXPECT_EQ(leadingNumber("1.5"), 1.5) << locale;
        EXPECT_EQ(toDouble("1,5"), 1.5) << locale;
    }
    std::setlocale(LC_ALL, prima.c_str());
}

}  // namespace
}  // namespace bravona
