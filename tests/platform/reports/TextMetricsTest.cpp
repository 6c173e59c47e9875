#include <gtest/gtest.h>

#include "platform/reports/Report.h"

namespace bravona {
namespace {

struct Width {
    const char* text;
    double points;
    bool bold;
    int twips;
};

class TextWidth : public testing::TestWithParam<Width> {};

TEST_P(TextWidth, isTheSumOfTheFaceAdvancesRoundedUp)
{
    EXPECT_EQ(textWidth(GetParam().text, GetParam().points, GetParam().bold), GetParam().twips);
}

INSTANTIATE_TEST_SUITE_P(Table, TextWidth,
                         testing::Values(Width{"", 9, false, 0}, Width{"0", 10.24, false, 114},
                                         Width{"0123456789", 10.24, false, 1139},
                                         Width{"0123456789", 10.24, true, 1139}, Width{"i", 10.24, false, 46},
                                         Width{"W", 10.24, false, 194}, Width{"W", 10.24, true, 194},
                                         Width{"i", 10.24, true, 57}, Width{"à", 10.24, false, 114},
                                         Width{"€", 10.24, false, 114}, Width{"Ł", 10.24, false, 114},
                                         Width{"…", 10.24, false, 205}, Width{"a\nb", 10.24, false, 285},
                                         Width{"漢", 10.24, false, 280}, Width{"0000000000", 5.12, false, 570}));

TEST(FitText, leavesALineThatJustFits)
{
    const std::string text = "Via Garibaldi, 12";
    EXPECT_EQ(fitText(text, textWidth(text, 8.5, false), 8.5, false), text);
    EXPECT_NE(fitText(text, textWidth(text, 8.5, false) - 1, 8.5, false), text);
}

TEST(FitText, printsBreaksAndTabsAsBlanks)
{
    EXPECT_EQ(fitText("prima\r\nseconda\tterza\nquarta\r", 100'000, 8, false), "prima seconda terza quarta ");
}

TEST(FitText, cutsBetweenLettersAndDropsTheBlankBeforeTheEllipsis)
{
    EXPECT_EQ(fitText("città piccola", textWidth("città p", 8, false) + textWidth("…", 8, false), 8, false),
              "città p…");
    EXPECT_EQ(fitText("città piccola", textWidth("città ", 8, false) + textWidth("…", 8, false), 8, false), "città…");
}

TEST(FitText, neverGivesALineWiderThanItsPlace)
{
    const std::string text = "Perché «Łódź» costa € 1.234,50 — più dell'altro";
    for (int width = 0; width < textWidth(text, 9, true) + 20; width += 7) {
        EXPECT_LE(textWidth(fitText(text, width, 9, true), 9, true), width) << "width " << width;
    }
    EXPECT_EQ(fitText(text, 10, 9, true), "");
}

TEST(FitText, survivesBytesThatAreNoText)
{
    EXPECT_EQ(fitText("a\xC3", 100'000, 9, false), "a\xC3");
    EXPECT_GT(textWidth("\xFF\xFE", 9, false), 0);
}

}  // namespace
}  // namespace bravona
