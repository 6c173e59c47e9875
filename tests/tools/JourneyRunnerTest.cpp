#include "support/journey/JourneyRunner.h"

#include <gtest/gtest.h>

#include "support/journey/JourneyEyes.h"
#include "support/journey/ProvaHost.h"

namespace bravona {
namespace {

struct Case {
    const char* name;
    const char* steps;
    int line;            // of the step that fails; 0: the journey passes
    const char* reason;  // a part of it
};

constexpr const char* started = "year 2004\nstart\n";  // two lines

void run(const std::vector<Case>& cases)
{
    ProvaHost host;
    JourneyRunner runner(host, {});
    for (const Case& one : cases) {
        const JourneyResult result = runner.run("x", parseJourney(started + std::string(one.steps)));
        EXPECT_EQ(result.line, one.line) << one.name << ": " << result.reason;
        EXPECT_EQ(result.passed, one.line == 0) << one.name;
        EXPECT_NE(result.reason.find(one.reason), std::string::npos) << one.name << ": " << result.reason;
    }
}

TEST(JourneyRunner, FailsWhatAPersonCouldNotDo)
{
    run({
        {"a hidden menu command", "menu mnuNoteDocumenti", 3, "hidden"},
        {"a menu command that is not there", "menu mnuAltro", 3, "no menu command"},
        {"a menu behind a modal window", "menu mnuInformazioni\nmenu mnuCodiciIva", 4, "behind a modal window"},
        {"a window behind a modal one", "menu mnuCodiciIva\nmenu mnuInformazioni\nfront frmCodiciIva", 5,
         "behind a modal window"},
        {"a control that is not there", "press cmdAltro", 3, "no cmdAltro in frmMain"},
        {"a caption that is not there", "menu mnuInformazioni\npress \"Altro\"", 4, "no \"Altro\" in frmAbout"},
        {"a control of another window", "menu mnuInformazioni\nclose\nexpect closed frmAbout\npress \"Chiudi\"", 6,
         "in frmMain"},
        {"a control on a page not shown", "menu mnuEmettiDocumento\npress \"Ok\"\ntype txtCodiceArticolo \"A\"", 5,
         "hidden"},
        {"a read-only field", "menu mnuEmettiDocumento\npress \"Ok\"\ntype txtListinoAssociato \"1\"", 5, "read-only"},
        {"an item that is not in the list", "menu mnuEmettiDocumento\npress \"Ok\"\nchoose cmbRegistro \"(9) - Altro\"",
         5, "no item"},
        {"a position that is not in the list", "menu mnuEmettiDocumento\npress \"Ok\"\nchoose cmbRegistro #2", 5,
         "no item"},
        {"a row that is not in the list",
         "menu mnuEmettiDocumento\npress \"Ok\"\ntab SSTabDocumento 1\nselect lvwDettagli 1", 6, "has 0 rows"},
        {"a disabled page",
         "menu mnuEmettiDocumento\npress \"Preventivo di Spesa\"\npress \"Ok\"\ntab SSTabDocumento 3", 6,
         "cannot be chosen"},
        {"a step before the start", "restart\nboxes free\nstart", 5, "started already"},
        {"an answer that the box does not offer", "answer \"Cancel\"\nmenu mnuEsci", 4, "no such button"},
        {"a statement that fails", "sql \"DELETE * FROM Nessuna\"", 3, "3"},
    });
}

TEST(JourneyRunner, LooksAtWhatIsThere)
{
    run({
        {"a text that differs", "menu mnuInformazioni\nexpect lbl2000 \"Altro\"", 4,
         "expected lbl2000 \"Altro\", there was \"Bravona\""},
        {"marks of captions are left out", "menu mnuInformazioni\nexpect lbl2000 \"Bra&vona\"", 0, ""},
        {"a box that nobody expected", "answer \"No\"\nmenu mnuEsci", 4, "no step expected"},
        {"a box that nobody expected, allowed", "boxes free\nanswer \"No\"\nmenu mnuEsci", 0, ""},
        {"a box with another icon",
         "answer \"No\"\nmenu mnuEsci\nexpect box \"Bravona\" \"Chiudere il programma?\" critical", 5,
         "question YesNo"},
        {"a box by its beginning",
         "answer \"No\"\nmenu mnuEsci\nexpect box \"Bravona\" begins \"Chiudere\" question YesNo", 0, ""},
        {"a failure that nobody expected",
         "fault Archivi 1\nmenu mnuNuovoArchivio\ntype txtNuovoArchivio \"2005\"\npress \"Crea\"", 6,
         "a failure that no step expected"},
        {"a failure that was expected",
         "fault Archivi 1\nmenu mnuNuovoArchivio\ntype txtNuovoArchivio \"2005\"\npress \"Crea\"\nexpect fault 3035", 0,
         ""},
        {"the second write alone fails",
         "fault Archivi 2\nmenu mnuNuovoArchivio\ntype txtNuovoArchivio \"2005\"\npress \"Crea\"\nexpect running", 0,
         ""},
        {"rows of the archive in their order",
         "expect sql \"SELECT CodiceRegistro, Descrizione FROM TabellaRegistri ORDER BY CodiceRegistro\" "
         "\"1|Principale\" \"2|Secondo\"",
         0, ""},
        {"a row too many", "expect sql \"SELECT CodiceRegistro FROM TabellaRegistri\" \"1\"", 3, "\"1\" \"2\""},
        {"no row where there is one",
         "expect sql \"SELECT CodiceRegistro FROM TabellaRegistri WHERE CodiceRegistro=1\"", 3, "none"},
        {"a setting", "expect setting Impostazioni Versione \"0\"", 3, "\"1.0.0\""},
        {"a file",
         "write \"a\\\\b.txt\" \"x\"\nexpect file \"a/b.txt\" exists\ncopy \"a/b.txt\" \"c\"\nexpect file \"c\" same "
         "\"a/b.txt\"\nexpect file \"c\" absent",
         7, "it exists"},
        {"bytes that differ", "bytes \"a\" 00\nbytes \"b\" 01\nexpect file \"a\" same \"b\"", 5, "differ"},
        {"the end", "answer \"Yes\"\nmenu mnuEsci\nexpect box \"Bravona\" \"Chiudere il programma?\"\nexpect running",
         6, "ended"},
        {"modal steps run inside",
         "menu mnuInformazioni\nexpect open frmAbout\npress \"Chiudi\"\nexpect closed frmAbout", 0, ""},
        {"a journey may end inside a modal window", "menu mnuInformazioni\nexpect open frmAbout", 0, ""},
        {"a failure inside a modal window", "menu mnuInformazioni\nexpect closed frmAbout\nexpect open frmAbout", 4,
         "open"},
    });
}

TEST(JourneyRunner, RestartsFromWhereverTheProgramStands)
{
    run({
        {"over a modal window",
         "menu mnuInformazioni\nrestart\nexpect closed frmAbout\nexpect caption \"Bravona Ver.1.0.0 Anno: 2004\"", 0,
         ""},
        {"with its answers kept",
         "answer \"Yes\"\nrestart\nmenu mnuEsci\nexpect box \"Bravona\" \"Chiudere il programma?\"\nexpect ended", 0,
         ""},
        {"with settings and archive kept",
         "setting A B \"c\"\nsql \"INSERT INTO Archivi (AnnoArchivio) VALUES (2005)\"\nrestart\nexpect setting A B "
         "\"c\"\nexpect sql \"SELECT AnnoArchivio FROM Archivi\" \"2004\" \"2005\"",
         0, ""},
        {"after the end",
         "answer \"Yes\"\nmenu mnuEsci\nexpect box \"Bravona\" \"Chiudere il programma?\"\nrestart\nexpect running", 0,
         ""},
    });
}

TEST(JourneyRunner, WritesValuesAsTheLanguageSays)
{
    EXPECT_EQ(journeyValue(Value()), "Null");
    EXPECT_EQ(journeyValue(Value(true)), "True");
    EXPECT_EQ(journeyValue(Value(12)), "12");
    EXPECT_EQ(journeyValue(Value(0.5)), "0.5");
    EXPECT_EQ(journeyValue(Value(0.1 + 0.2)), "0.30000000000000004");
    EXPECT_EQ(journeyValue(Value(Currency::fromTenThousandths(123400))), "12.3400");
    EXPECT_EQ(journeyValue(Value(Currency::fromTenThousandths(-5))), "-0.0005");
    EXPECT_EQ(journeyValue(Value(*Date::fromYmd(2004, 1, 5))), "05/01/2004");
    EXPECT_EQ(journeyValue(Value("a|b")), "a|b");
}

}  // namespace
}  // namespace bravona
