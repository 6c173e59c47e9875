#include "support/journey/JourneyText.h"

#include <gtest/gtest.h>

namespace bravona {
namespace {

std::string shown(const std::vector<Step>& steps)
{
    std::string all;
    for (const Step& step : steps) {
        all += std::to_string(step.line) + ":";
        for (const Word& word : step.words) {
            all += word.quoted ? "<" + word.text + ">" : "(" + word.text + ")";
        }
    }
    return all;
}

TEST(JourneyText, PartsLinesIntoWords)
{
    struct Case {
        const char* name;
        const char* text;
        const char* steps;
    };
    const std::vector<Case> cases{
        {"comments and blank lines are passed over", "# a\n\n   \n  # b\nstart\n", "5:(start)"},
        {"blanks part words, many or tabs", "menu \t mnuEsci  ", "1:(menu)(mnuEsci)"},
        {"lines may end in a carriage return", "start\r\nclose\r\n", "1:(start)2:(close)"},
        {"a mark of the encoding is no word", "\xEF\xBB\xBFstart", "1:(start)"},
        {"quotes, backslashes and breaks in a text", R"(sql "a \"b\" \\n \n")", "1:(sql)<a \"b\" \\n \n>"},
        {"other backslashes are themselves", R"(expect file "a\b" exists)", "1:(expect)(file)<a\\b>(exists)"},
        {"a text may be empty or hold a comment", "type \"\"\ntype \"# x\"", "1:(type)<>2:(type)<# x>"},
        {"a position is no comment", "choose cmb #2", "1:(choose)(cmb)(#2)"},
    };
    for (const Case& one : cases) {
        EXPECT_EQ(shown(parseJourney(one.text)), one.steps) << one.name;
    }
}

TEST(JourneyText, KnowsEveryStepInEachOfItsShapes)
{
    for (const char* line : {"folder delivered",
                             "today 15/01/2004",
                             "setting Impostazioni \"Anno Riferimento\" \"2004\"",
                             "year 2004",
                             "copy \"a\" \"b\"",
                             "write \"a\" \"b\"",
                             "bytes \"a\" 00ff",
                             "bytes \"a\"",
                             "restart",
                             "front frmX",
                             "type txtA[0] \"x\"",
                             "key Alt+r",
                             "key Ctrl+Shift+Home",
                             "press \"Ricerca...\"",
                             "choose cmb \"x\"",
                             "select lvw 1",
                             "select lvw \"Rossi\"",
                             "doubleclick frmX",
                             "doubleclick lvw 2",
                             "rightclick lvw",
                             "column lvw 0",
                             "spin spn down",
                             "paste txt \"x\"",
                             "tick lvw 1 on",
                             "tick lvw \"x\" off",
                             "check chk on",
                             "node tvw \"k\"",
                             "cell grd 1 2",
                             "cell grd 1 2 \"\"",
                             "cellbutton grd 1 7",
                             "deleterow grd 2",
                             "date dtp 31/01/2004",
                             "tab ssp 1",
                             "answer \"Yes\"",
                             "answer No",
                             "file \"\"",
                             "colour 255",
                             "colour cancel",
                             "wait 1000",
                             "fault Fatture 1",
                             "fault Fatture 1 3022",
                             "fault file \"a.bk\" 61",
                             "boxes free",
                             "picture a",
                             "show box",
                             "show lvw 1",
                             "expect txt \"x\"",
                             "expect txt readonly",
                             "expect lvw rows 3",
                             "expect lvw 1 8 \"x\"",
                             "expect lvw 1 1 tag \"x\"",
                             "expect lvw 1 key \"x\"",
                             "expect lvw 1 colour 255",
                             "expect lvw 2 ticked",
                             "expect tvw node \"k\" \"x\"",
                             "expect tvw node \"k\" absent",
                             "expect lvw columns \"A|B\"",
                             "expect cmd tip \"x\"",
                             "expect caption \"x\"",
                             "expect loaded frmX",
                             "expect box \"T\" \"x\" information OkCancel",
                             "expect box \"T\" begins \"x\" question",
                             "expect nobox",
                             "expect preview \"x\"",
                             "expect pages 2",
                             "expect printed 1 Label1 \"x\"",
                             "expect printed 1 Label1 hidden",
                             "expect detail 1 2 Prezzo \"x\"",
                             "expect details 1 33",
                             "expect sql \"SELECT 1\"",
                             "expect sql \"SELECT 1\" \"1|a\" \"2|b\"",
                             "expect setting A B \"x\"",
                             "expect setting A B absent",
                             "expect file \"a\" same \"b\"",
                             "expect ended",
                             "expect fault 2147745792"}) {
        EXPECT_NO_THROW(parseJourney(line)) << line;
    }
}

TEST(JourneyText, PutsTheStepsOfAFirmInTheirPlace)
{
    const Firms firms = [](const std::string& name) -> std::optional<std::string> {
        if (name == "vite") {
            return "# an article\nsql \"a\"\nsql \"b\"\n";
        }
        if (name == "negozio") {
            return "year 2004\nfirm vite";
        }
        if (name == "circle" || name == "broken") {
            return name == "circle" ? "firm circle" : "start\ndance";
        }
        return std::nullopt;
    };
    EXPECT_EQ(shown(parseJourney("start\nfirm negozio vite\nclose", firms)),
              "1:(start)2:(year)(2004)2:(sql)<a>2:(sql)<b>2:(sql)<a>2:(sql)<b>3:(close)");
    for (const auto& [line, reason] : std::vector<std::pair<const char*, const char*>>{
             {"firm", "do not fit"},
             {"firm nobody", "there is no firm \"nobody\""},
             {"firm circle", "there is no firm \"circle\""},
             {"firm broken", "firm broken, line 2: there is no step \"dance\""}}) {
        try {
            parseJourney(std::string("start\n") + line, firms);
            ADD_FAILURE() << line << " passes for a step";
        } catch (const NoSuchStep& error) {
            EXPECT_EQ(error.line, 2) << line;
            EXPECT_NE(std::string(error.what()).find(reason), std::string::npos) << error.what();
        }
    }
}

TEST(JourneyText, TellsTheLineOfWhatIsNoStep)
{
    for (const char* line : {"dance",
                             "\"start\"",
                             "start now",
                             "menu",
                             "type txt",
                             "type txt x",
                             "key Entr",
                             "tick lvw 1",
                             "tick lvw 1 maybe",
                             "cell grd 1",
                             "wait long",
                             "wait 1.5",
                             "date dtp 31/02/2004",
                             "answer \"Maybe\"",
                             "colour red",
                             "fault Fatture",
                             "bytes \"a\" 0",
                             "bytes \"a\" 0g",
                             "choose cmb x",
                             "expect",
                             "expect txt",
                             "expect txt happy",
                             "expect box \"T\"",
                             "expect pages many",
                             "expect file \"a\" gone",
                             "sql \"open",
                             "folder empty",
                             "show"}) {
        try {
            parseJourney(std::string("start\n") + line);
            ADD_FAILURE() << line << " passes for a step";
        } catch (const NoSuchStep& error) {
            EXPECT_EQ(error.line, 2) << line;
        }
    }
}

TEST(JourneyText, ReadsKeys)
{
    const auto alt = parseKey("Alt+r");
    ASSERT_TRUE(alt);
    EXPECT_TRUE(alt->alt && alt->key == Key::character && alt->character == U'r');
    EXPECT_EQ(parseKey("F3")->key, Key::f3);
    EXPECT_EQ(parseKey("F12")->key, Key::f12);
    EXPECT_EQ(parseKey("F")->character, U'F');
    EXPECT_EQ(parseKey("+")->character, U'+');
    EXPECT_EQ(parseKey("Ctrl++")->character, U'+');
    EXPECT_EQ(parseKey("è")->character, U'è');
    EXPECT_EQ(parseKey("Space")->character, U' ');
    EXPECT_FALSE(parseKey("F13"));
    EXPECT_FALSE(parseKey("Return"));
    EXPECT_FALSE(parseKey(""));
}

}  // namespace
}  // namespace bravona
