#include "platform/text/Text.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

namespace bravona {
namespace {

int segno(int n)
{
    return (n > 0) - (n < 0);
}

TEST(Text, PartsAreCountedInCharacters)
{
    EXPECT_EQ(length("città €"), 7U);
    EXPECT_EQ(left("però", 4), "però");
    EXPECT_EQ(left("però", 3), "per");
    EXPECT_EQ(left("però", 99), "però");
    EXPECT_EQ(left("però", 0), "");
    EXPECT_EQ(right("città", 2), "tà");
    EXPECT_EQ(right("città", 99), "città");
    EXPECT_EQ(right("città", 0), "");
    EXPECT_EQ(mid("€ 1.234", 2, 3), "1.2");
    EXPECT_EQ(mid("€ 1.234", 2), "1.234");
    EXPECT_EQ(mid("à", 1), "");
    EXPECT_EQ(mid("à", 9, 2), "");
}

TEST(Text, MalformedBytesCountOnceAndBecomeReplacementCharacters)
{
    const std::string rotto = std::string("a\xC3") + "b\xFF\xE2\x82";
    EXPECT_EQ(toCodePoints(rotto), U"a\uFFFDb\uFFFD\uFFFD");
    EXPECT_EQ(length(rotto), toCodePoints(rotto).size());
    EXPECT_EQ(mid(rotto, 2, 1), "b");
    EXPECT_EQ(fromCodePoints(U"è€\U0001F4E6"), "è€\U0001F4E6");
    const char32_t invalidi[] = {0xD800, 0x110000};
    EXPECT_EQ(fromCodePoints({invalidi, 2}), "\uFFFD\uFFFD");
    // None of the Italian routines may trip over them.
    EXPECT_EQ(fold(rotto), fold(rotto));
    EXPECT_EQ(compareFolded(rotto, rotto), 0);
    EXPECT_EQ(upper(rotto).substr(0, 1), "A");
}

TEST(Text, PlainPieces)
{
    EXPECT_EQ(trim(" \t a b \r\n"), "a b");
    EXPECT_EQ(trim("  "), "");
    EXPECT_EQ(replaceAll("aaa", "aa", "b"), "ba");
    EXPECT_EQ(replaceAll("a", "a", "aa"), "aa");
    EXPECT_EQ(replaceAll("abc", "", "x"), "abc");
    EXPECT_EQ(quotedText("dell'Aquila d'oro"), "'dell''Aquila d''oro'");
    EXPECT_EQ(split("a;;b;", ';'), (std::vector<std::string>{"a", "", "b", ""}));
    EXPECT_EQ(split("", ';'), std::vector<std::string>{""});
}

TEST(Text, CaptionsLoseTheirMarks)
{
    EXPECT_EQ(withoutMnemonic("&Registra"), "Registra");
    EXPECT_EQ(withoutMnemonic("A&ggiorna && chiudi&"), "Aggiorna & chiudi");
    EXPECT_EQ(mnemonic("A&ggiorna"), U'G');
    EXPECT_EQ(mnemonic("Olio && &aceto"), U'A');
    EXPECT_EQ(mnemonic("Olio && aceto"), 0U);
    EXPECT_EQ(mnemonic("&è"), U'È');
    EXPECT_EQ(mnemonic("fine&"), 0U);
    EXPECT_EQ(mnemonic(""), 0U);
}

TEST(Text, CaseKnowsAccents)
{
    EXPECT_EQ(upper("perché città"), "PERCHÉ CITTÀ");
    EXPECT_EQ(lower("PERCHÉ CITTÀ"), "perché città");
    const std::pair<std::string_view, std::string_view> nomi[] = {
        {"gennaio", "Gennaio"},
        {"MARIO ROSSI", "Mario Rossi"},
        {"ÈLIA", "Èlia"},
        {"l'aquila", "L'Aquila"},
        {"D’ANNUNZIO", "D’Annunzio"},
        {"FORLÌ-CESENA", "Forlì-Cesena"},
        {"reggio nell'emilia", "Reggio Nell'Emilia"},
        {"ditta  di nicolò", "Ditta  Di Nicolò"},
        {"3m", "3m"},
        {"", ""},
    };
    for (const auto& [testo, atteso] : nomi) {
        EXPECT_EQ(properName(testo), atteso) << testo;
    }
}

TEST(Text, EqualityIgnoresCaseAndHeedsAccents)
{
    const std::pair<std::string_view, std::string_view> uguali[] = {
        {"è", "È"}, {"CITTÀ", "città"}, {"e\u0300", "È"}, {"ROSSI", "rossi"}, {"Straße", "STRASSE"}, {"", ""},
    };
    for (const auto& [a, b] : uguali) {
        EXPECT_TRUE(equalFolded(a, b)) << a << " " << b;
        EXPECT_EQ(compareFolded(a, b), 0) << a << " " << b;
        EXPECT_EQ(fold(a), fold(b)) << a << " " << b;
    }
    const std::pair<std::string_view, std::string_view> diversi[] = {
        {"e", "è"},    {"è", "é"},    {"citta'", "città"}, {"a", "a "},
        {"ab", "a b"}, {"a-b", "ab"}, {"1º", "1o"},        {"a\x01", "a"},
    };
    for (const auto& [a, b] : diversi) {
        EXPECT_FALSE(equalFolded(a, b)) << a << " " << b;
        EXPECT_NE(compareFolded(a, b), 0) << a << " " << b;
        EXPECT_EQ(segno(compareFolded(a, b)), -segno(compareFolded(b, a))) << a << " " << b;
    }
    EXPECT_TRUE(startsWithFolded("Città di Castello", "CITTÀ"));
    EXPECT_TRUE(startsWithFolded("Rossi", ""));
    EXPECT_FALSE(startsWithFolded("Città di Castello", "citta"));
    EXPECT_FALSE(startsWithFolded("e\u0300", "e"));
    EXPECT_FALSE(startsWithFolded("Ro", "Rossi"));
}

TEST(Text, TheOrderIsThatOfAnItalianDirectory)
{
    const std::vector<std::string> ordinati = {
        "",     "  Zeta", "'A",     "3M",   "A B",   "Abaco",       "ABETE",   "d'Angelo", "Dallara",
        "Pera", "però",   "Peroni", "perù", "Rossi", "Rossi Mario", "Rossini", "Zanè",
    };
    std::vector<std::string> mescolati = ordinati;
    std::shuffle(mescolati.begin(), mescolati.end(), std::mt19937(7));
    std::sort(mescolati.begin(), mescolati.end(),
              [](const std::string& a, const std::string& b) { return compareFolded(a, b) < 0; });
    EXPECT_EQ(mescolati, ordinati);
    EXPECT_LT(compareFolded("e", "è"), 0);
    EXPECT_LT(compareFolded("È", "f"), 0);
    EXPECT_NE(collationVersion(), "");
}

// An order that is not one loses rows of an index. Plain texts take a short way of their own: it must agree with the
// long.
TEST(Text, TheOrderIsTotalOverPlainAndAccentedTexts)
{
    const std::u32string alfabeto = U"aAbBeEèÈéoºßsS zZ'-_.,\t\x01\u0300"
                                    U"1";
    std::mt19937 caso(3);
    std::vector<std::string> testi;
    for (int i = 0; i < 120; ++i) {
        std::u32string t;
        for (auto n = caso() % 4; n > 0; --n) {
            t.push_back(alfabeto[caso() % alfabeto.size()]);
        }
        testi.push_back(fromCodePoints(t));
    }
    for (const auto& a : testi) {
        for (const auto& b : testi) {
            const int ab = segno(compareFolded(a, b));
            ASSERT_EQ(ab, -segno(compareFolded(b, a))) << a << " " << b;
            ASSERT_EQ(ab == 0, equalFolded(a, b)) << a << " " << b;
            ASSERT_EQ(ab == 0, fold(a) == fold(b)) << a << " " << b;
            for (const auto& c : testi) {
                if (ab <= 0 && compareFolded(b, c) <= 0) {
                    ASSERT_LE(compareFolded(a, c), 0) << a << " " << b << " " << c;
                }
            }
        }
    }
}

}  // namespace
}  // namespace bravona
