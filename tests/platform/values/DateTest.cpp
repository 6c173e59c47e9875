#include "platform/values/Date.h"

#include <gtest/gtest.h>

#include <limits>

#include "platform/clock/Clock.h"
#include "platform/values/Errore.h"
#include "support/Fallimento.h"

namespace bravona {
namespace {

Date giorno(std::string_view testo)
{
    return Date::parse(testo).value();
}

TEST(Date, ItalianTextsAreRead)
{
    const std::pair<std::string_view, std::string_view> tabella[] = {
        {"15/01/2004", "15/01/2004"}, {"1/2/2004", "01/02/2004"},   {"1-2-2004", "01/02/2004"},
        {"1.2.2004", "01/02/2004"},   {" 1/2/2004 ", "01/02/2004"}, {"1/2/30", "01/02/1930"},
        {"1/2/29", "01/02/2029"},     {"1/2/00", "01/02/2000"},     {"1/2/99", "01/02/1999"},
        {"01022004", "01/02/2004"},   {"010204", "01/02/2004"},     {"29/2/2004", "29/02/2004"},
        {"29/02/2000", "29/02/2000"}, {"01/01/0100", "01/01/0100"}, {"31/12/9999", "31/12/9999"},
    };
    for (const auto& [testo, atteso] : tabella) {
        const auto letto = Date::parse(testo);
        ASSERT_TRUE(letto) << testo;
        EXPECT_EQ(letto->text(), atteso) << testo;
    }
}

TEST(Date, WhatIsNoDayIsRefused)
{
    for (const std::string_view testo :
         {"",           " ",          "/",         "1",         "1/2",       "1/2/",       "//",
          "1//2004",    "/2/2004",    "29/2/2003", "29/2/1900", "31/4/2004", "0/1/2004",   "1/0/2004",
          "1/13/2004",  "00/00/0000", "1/1/0099",  "1/1/2",     "1/1/200",   "1/1/20045",  "001/1/2004",
          "1/001/2004", "1/2-2004",   "1 2 2004",  "1/2/2004x", "x1/2/2004", "-1/2/2004",  "1022004",
          "10220",      "0102200",    "010220045", "0132004",   "31022004",  "2004/02/01", "uno/due/2004"}) {
        EXPECT_FALSE(Date::parse(testo)) << testo;
    }
}

TEST(Date, DayNumbersCountFromTheEndOf1899)
{
    EXPECT_EQ(Date().text(), "30/12/1899");
    EXPECT_EQ(giorno("1/1/1900").dayNumber(), 2);
    EXPECT_EQ(giorno("1/1/1970").dayNumber(), 25569);
    EXPECT_EQ(giorno("29/12/1899").dayNumber(), -1);
    EXPECT_EQ(Date::first, giorno("01/01/0100"));
    EXPECT_EQ(Date::last, giorno("31/12/9999"));
}

TEST(Date, EveryDayOfFourCenturiesFollowsTheOneBefore)
{
    int anno = 1900;
    int mese = 1;
    int giornoDelMese = 1;
    const int lunghezze[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    for (Date d = giorno("1/1/1900"); anno < 2300; d = d.addDays(1)) {
        ASSERT_EQ(d.year(), anno);
        ASSERT_EQ(d.month(), mese);
        ASSERT_EQ(d.day(), giornoDelMese);
        ASSERT_EQ(Date::fromYmd(anno, mese, giornoDelMese), d);
        const bool bisestile = (anno % 4 == 0 && anno % 100 != 0) || anno % 400 == 0;
        if (++giornoDelMese > lunghezze[mese - 1] + (mese == 2 && bisestile ? 1 : 0)) {
            giornoDelMese = 1;
            if (++mese > 12) {
                mese = 1;
                ++anno;
            }
        }
    }
}

TEST(Date, MonthsAheadClipToTheMonthsEnd)
{
    struct Caso {
        std::string_view da;
        int mesi;
        std::string_view atteso;
    };
    const Caso tabella[] = {
        {"31/01/2004", 1, "29/02/2004"},  {"31/01/2003", 1, "28/02/2003"},   {"30/11/2004", 1, "30/12/2004"},
        {"31/10/2004", 1, "30/11/2004"},  {"15/12/2004", 1, "15/01/2005"},   {"31/12/2004", 2, "28/02/2005"},
        {"31/03/2004", -1, "29/02/2004"}, {"15/01/2004", -1, "15/12/2003"},  {"29/02/2004", 12, "28/02/2005"},
        {"31/01/2004", 0, "31/01/2004"},  {"31/01/2004", -25, "31/12/2001"},
    };
    for (const Caso& caso : tabella) {
        EXPECT_EQ(giorno(caso.da).addMonths(caso.mesi).text(), caso.atteso) << caso.da << " " << caso.mesi;
    }
}

TEST(Date, TheCalendarHasEnds)
{
    EXPECT_EQ(numeroDelFallimento([] { return Date::last.addDays(1); }), errori::numeroTroppoGrande);
    EXPECT_EQ(numeroDelFallimento([] { return Date::first.addDays(-1); }), errori::numeroTroppoGrande);
    EXPECT_EQ(numeroDelFallimento([] { return Date::last.addMonths(1); }), errori::numeroTroppoGrande);
    EXPECT_EQ(numeroDelFallimento([] { return Date::first.addMonths(-1); }), errori::numeroTroppoGrande);
    EXPECT_EQ(numeroDelFallimento([] { return Date().addDays(std::numeric_limits<std::int32_t>::max()); }),
              errori::numeroTroppoGrande);
    EXPECT_EQ(numeroDelFallimento([] { return Date().addMonths(std::numeric_limits<int>::min()); }),
              errori::numeroTroppoGrande);
}

TEST(Clock, TheSystemClockGivesADayOfThisAge)
{
    EXPECT_GT(SystemClock().today(), giorno("1/1/2020"));
    EXPECT_LT(SystemClock().today(), giorno("1/1/2200"));
}

}  // namespace
}  // namespace bravona
