#include "platform/values/Value.h"

#include <gtest/gtest.h>

#include <limits>

#include "platform/values/Errore.h"
#include "support/Fallimento.h"

namespace bravona {
namespace {

TEST(Value, NullIsRefusedByEveryConversionAndTakenByTheFallbacks)
{
    const Value nullo;
    EXPECT_EQ(numeroDelFallimento([&] { return nullo.toLong(); }), errori::valoreNullo);
    EXPECT_EQ(numeroDelFallimento([&] { return nullo.toInt(); }), errori::valoreNullo);
    EXPECT_EQ(numeroDelFallimento([&] { return nullo.toDouble(); }), errori::valoreNullo);
    EXPECT_EQ(numeroDelFallimento([&] { return nullo.toCurrency(); }), errori::valoreNullo);
    EXPECT_EQ(numeroDelFallimento([&] { return nullo.toDate(); }), errori::valoreNullo);
    EXPECT_EQ(numeroDelFallimento([&] { return nullo.toBool(); }), errori::valoreNullo);
    EXPECT_EQ(nullo.text(), "");
    EXPECT_EQ(nullo.longOr(7), 7);
    EXPECT_EQ(Value("").isNull(), false);
}

TEST(Value, WholeNumbersTakeHalvesToTheEvenFromEveryKind)
{
    struct Caso {
        Value valore;
        std::int32_t atteso;
    };
    const Caso tabella[] = {
        {0.5, 0},
        {1.5, 2},
        {2.5, 2},
        {-0.5, 0},
        {-1.5, -2},
        {-2.5, -2},
        {2.4999, 2},
        {-2.5001, -3},
        {"2,5", 2},
        {"€ 3,5", 4},
        {true, -1},
        {false, 0},
        {Date(), 0},
        {Currency::fromTenThousandths(25'000), 2},
        {Currency::fromTenThousandths(35'000), 4},
        {Currency::fromTenThousandths(-25'001), -3},
        {Currency::fromTenThousandths(-15'000), -2},
    };
    for (const Caso& caso : tabella) {
        EXPECT_EQ(caso.valore.toLong(), caso.atteso) << caso.valore.text();
    }
}

TEST(Value, OutOfRangeIsRefusedAtTheLimitOfEachType)
{
    EXPECT_EQ(Value(32767.5 - 1e-9).toInt(), 32767);
    EXPECT_EQ(numeroDelFallimento([] { return Value(32767.5).toInt(); }), errori::numeroTroppoGrande);
    EXPECT_EQ(numeroDelFallimento([] { return Value(-32769).toInt(); }), errori::numeroTroppoGrande);
    EXPECT_EQ(Value(-2147483648.5).toLong(), std::numeric_limits<std::int32_t>::min());
    EXPECT_EQ(numeroDelFallimento([] { return Value(2147483647.5).toLong(); }), errori::numeroTroppoGrande);
    EXPECT_EQ(numeroDelFallimento([] { return Value(9223372036854775808.0).toInt64(); }), errori::numeroTroppoGrande);
    EXPECT_EQ(numeroDelFallimento([] { return Value(std::numeric_limits<double>::quiet_NaN()).toInt64(); }),
              errori::numeroTroppoGrande);
    EXPECT_EQ(numeroDelFallimento([] { return Value(1e15).toCurrency(); }), errori::numeroTroppoGrande);
    EXPECT_EQ(numeroDelFallimento([] { return Value(std::int64_t{1} << 50).toCurrency(); }),
              errori::numeroTroppoGrande);
    EXPECT_EQ(numeroDelFallimento([] { return Value(1e10).toDate(); }), errori::numeroTroppoGrande);
    const auto massimo = Currency::fromTenThousandths(std::numeric_limits<std::int64_t>::max());
    const auto minimo = Currency::fromTenThousandths(std::numeric_limits<std::int64_t>::min());
    EXPECT_EQ(numeroDelFallimento([&] { return massimo + Currency::fromTenThousandths(1); }),
              errori::numeroTroppoGrande);
    EXPECT_EQ(numeroDelFallimento([&] { return minimo - Currency::fromTenThousandths(1); }),
              errori::numeroTroppoGrande);
    EXPECT_EQ(numeroDelFallimento([&] { return -minimo; }), errori::numeroTroppoGrande);
}

TEST(Value, YesAndNoAreReadFromWordsAndNumbers)
{
    for (const Value& si :
         {Value("True"), Value("VERO"), Value("-1"), Value("0,5"), Value(2), Value(-0.1), Value(true)}) {
        EXPECT_TRUE(si.toBool()) << si.text();
    }
    for (const Value& no : {Value("False"), Value("falso"), Value("0"), Value("0,00"), Value(0), Value(Currency())}) {
        EXPECT_FALSE(no.toBool()) << no.text();
    }
    EXPECT_EQ(numeroDelFallimento([] { return Value("forse").toBool(); }), errori::testoNonConvertibile);
    EXPECT_EQ(numeroDelFallimento([] { return Value("").toBool(); }), errori::testoNonConvertibile);
}

TEST(Value, DaysComeFromTextsAndDayNumbers)
{
    const Date giorno = Date::fromYmd(2004, 2, 29).value();
    EXPECT_EQ(Value("29/2/2004").toDate(), giorno);
    EXPECT_EQ(Value(giorno.dayNumber() + 0.75).toDate(), giorno);
    EXPECT_EQ(Value(giorno).toLong(), giorno.dayNumber());
    EXPECT_EQ(numeroDelFallimento([] { return Value("30/2/2004").toDate(); }), errori::testoNonConvertibile);
}

TEST(Value, EveryKindHasItsShownForm)
{
    EXPECT_EQ(Value(true).text(), "True");
    EXPECT_EQ(Value(false).text(), "False");
    EXPECT_EQ(Value(-12).text(), "-12");
    EXPECT_EQ(Value(10.9).text(), "10,9");
    EXPECT_EQ(Value(Currency::fromTenThousandths(25'000)).text(), "2,5");
    EXPECT_EQ(Value(Date::fromYmd(2004, 1, 5).value()).text(), "05/01/2004");
    EXPECT_EQ(Value("così").text(), "così");
}

}  // namespace
}  // namespace bravona
