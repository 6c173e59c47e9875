#include "platform/windowing/Desktop.h"

#include <gtest/gtest.h>

#include "platform/windowing/Fields.h"
#include "support/UtenteDiProva.h"

namespace bravona {
namespace {

// A window that notes what becomes of it.
class Finestra : public Form {
public:
    Finestra(Desktop& desktop, const std::string& name, std::vector<std::string>& log,
             WindowStyle style = WindowStyle::child)
        : Form(desktop, name, name, style),
          log_(log)
    {
        add("txtCampo", txtCampo);
        add("cmdFai", cmdFai);
        cmdFai.onClick = [this] {
            if (command) {
                command();
            }
        };
        setLayout(layout::column({layout::of(txtCampo), layout::of(cmdFai)}));
    }
    ~Finestra() override { log_.push_back(name() + " gone"); }
    void onLoad() override
    {
        log_.push_back(name() + " load");
        if (loading) {
            loading();
        }
    }
    void onActivate() override { log_.push_back(name() + " front"); }
    bool onQueryUnload(CloseCause cause) override
    {
        log_.push_back(name() + (cause == CloseCause::person  ? " asked by person"
                                 : cause == CloseCause::owner ? " asked by owner"
                                                              : " asked by code"));
        if (asked) {
            asked();
        }
        return !refuses;
    }
    void onUnload() override { log_.push_back(name() + " unload"); }

    TextBox txtCampo;
    Button cmdFai{"Fai"};
    std::function<void()> command;
    std::function<void()> loading;
    std::function<void()> asked;
    bool refuses = false;

private:
    std::vector<std::string>& log_;
};

class DesktopTest : public ::testing::Test {
protected:
    DesktopTest()
    {
        user.screens().add("frmMain",
                           [this] { return std::make_unique<Finestra>(user, "frmMain", log, WindowStyle::main); });
        for (const char* name : {"frmA", "frmB", "frmC"}) {
            user.screens().add(name, [this, name] { return std::make_unique<Finestra>(user, name, log); });
        }
    }
    Finestra& form(const std::string& name) { return user.screens().as<Finestra>(name); }
    void show(const std::string& name)
    {
        user.guard([&] { form(name).show(); });
    }
    std::string taken()
    {
        std::string all;
        for (const std::string& entry : log) {
            all += (all.empty() ? "" : ";") + entry;
        }
        log.clear();
        return all;
    }
    [[nodiscard]] std::string front() const { return user.front() == nullptr ? "none" : user.front()->name(); }

    std::vector<std::string> log;
    UtenteDiProva user;
};

TEST_F(DesktopTest, AScreenIsMadeOnceAndDestroyedAfterTheCommandThatUnloadsIt)
{
    show("frmA");
    show("frmA");
    EXPECT_EQ(taken(), "frmA load;frmA front");
    Finestra& a = form("frmA");
    std::string during;
    a.command = [&] {
        EXPECT_TRUE(a.unload());
        during = taken();
    };
    user.click(a.cmdFai);
    EXPECT_EQ(during, "frmA asked by code;frmA unload");
    EXPECT_EQ(taken(), "frmA gone");
    EXPECT_EQ(user.screens().find("frmA"), nullptr);
}

TEST_F(DesktopTest, AHiddenScreenCountsAsLoadedAndIsNotInFront)
{
    show("frmMain");
    user.guard([&] { user.load(form("frmA")); });
    EXPECT_EQ(user.screens().loadedCount(), 2U);
    EXPECT_EQ(front(), "frmMain");
    form("frmA").countsAsWindow = false;
    EXPECT_EQ(user.screens().loadedCount(), 1U);
}

TEST_F(DesktopTest, TheMainWindowLiesUnderItsChildren)
{
    show("frmMain");
    show("frmA");
    show("frmB");
    EXPECT_EQ(front(), "frmB");
    user.bringFront(form("frmMain"));
    EXPECT_EQ(front(), "frmB");
    user.bringFront(form("frmA"));
    EXPECT_EQ(front(), "frmA");
    user.closeWindow(form("frmA"));
    EXPECT_EQ(front(), "frmB");
}

TEST_F(DesktopTest, AModalWindowBlocksTheOthersUntilItCloses)
{
    show("frmMain");
    show("frmA");
    bool clicked = false;
    form("frmA").command = [&] { clicked = true; };
    std::string inside;
    user.inModal([&](Form&) {
        user.click(form("frmA").cmdFai);
        user.bringFront(form("frmA"));
        user.closeWindow(form("frmMain"));
        inside = front();
    });
    user.guard([&] { form("frmB").showModal(); });
    EXPECT_FALSE(clicked);
    EXPECT_EQ(inside, "frmB");
    EXPECT_EQ(front(), "frmA");
    EXPECT_FALSE(user.ended());
}

TEST_F(DesktopTest, AWindowOpenedOverAModalOneIsInFrontAndOutlivesIt)
{
    show("frmMain");
    std::vector<std::string> fronts;
    user.inModal([&](Form&) {
        user.guard([&] { form("frmC").show(); });
        fronts.push_back(front());
        user.bringFront(form("frmB"));
        fronts.push_back(front());
        user.closeWindow(form("frmB"));
    });
    user.guard([&] { form("frmB").showModal(); });
    EXPECT_EQ(fronts, (std::vector<std::string>{"frmC", "frmB"}));
    EXPECT_EQ(front(), "frmC");
}

TEST_F(DesktopTest, LeavingAsksEveryChildAndARefusalLeavesAllInPlace)
{
    show("frmMain");
    show("frmA");
    show("frmB");
    user.guard([&] { user.load(form("frmC")); });
    taken();
    form("frmC").refuses = true;
    user.closeWindow(form("frmMain"));
    EXPECT_EQ(taken(), "frmMain asked by person;frmA asked by owner;frmB asked by owner;frmC asked by owner");
    EXPECT_FALSE(user.ended());
    EXPECT_EQ(user.windows().size(), 3U);

    form("frmC").refuses = false;
    user.closeWindow(form("frmMain"));
    EXPECT_TRUE(user.ended());
    EXPECT_EQ(user.exitStatus(), 0);
    EXPECT_EQ(user.screens().loadedCount(), 0U);
}

TEST_F(DesktopTest, WhileLeavingNoOtherWindowOpens)
{
    show("frmMain");
    show("frmA");
    form("frmA").asked = [&] { form("frmB").show(); };
    user.closeWindow(form("frmMain"));
    EXPECT_TRUE(user.ended());
    EXPECT_EQ(taken().find("frmB load"), std::string::npos);
}

TEST_F(DesktopTest, AFailureIsReportedUndoesItsTransactionAndTheProgramGoesOn)
{
    bool open = false;
    int rolledBack = 0;
    user.setTransactionProbe([&] { return open; },
                             [&] {
                                 open = false;
                                 ++rolledBack;
                             });
    show("frmMain");
    form("frmMain").command = [&] {
        open = true;
        throw Errore(3035, "guasto");
    };
    user.click(form("frmMain").cmdFai);
    EXPECT_EQ(rolledBack, 1);
    ASSERT_EQ(user.boxCount(), 1U);
    EXPECT_EQ(user.lastBox().title, "Errore - Bravona");
    EXPECT_EQ(user.lastBox().text, "3035 - guasto");
    EXPECT_EQ(user.lastBox().icon, MsgIcon::critical);
    EXPECT_TRUE(user.lastBox().fault);
    EXPECT_FALSE(user.ended());
    EXPECT_EQ(front(), "frmMain");
}

TEST_F(DesktopTest, ATransactionOfTheCommandAroundIsNotUndone)
{
    bool open = false;
    bool rolledBack = false;
    user.setTransactionProbe([&] { return open; }, [&] { rolledBack = true; });
    show("frmMain");
    form("frmMain").command = [&] {
        open = true;
        user.guard([] { throw Errore(5, "within"); });
        EXPECT_FALSE(rolledBack);
        open = false;
    };
    user.click(form("frmMain").cmdFai);
    EXPECT_FALSE(rolledBack);
}

TEST_F(DesktopTest, AScreenWhoseLoadingFailsIsNotLoaded)
{
    show("frmMain");
    form("frmA").loading = [] { throw Errore(3021, "vuoto"); };
    show("frmA");
    EXPECT_EQ(user.screens().loadedCount(), 1U);
    EXPECT_EQ(user.lastBox().number, 3021U);
    EXPECT_EQ(front(), "frmMain");
}

TEST_F(DesktopTest, TheEndOfTheProcessUnwindsModalWindows)
{
    show("frmMain");
    bool after = false;
    user.inModal([&](Form&) { user.guard([] { throw FineProcesso{3}; }); });
    user.guard([&] {
        form("frmB").showModal();
        after = true;
    });
    EXPECT_TRUE(user.ended());
    EXPECT_EQ(user.exitStatus(), 3);
    EXPECT_FALSE(after);
}

TEST_F(DesktopTest, AFailureInTheStartEndsTheProcess)
{
    user.guardStart([] { throw Errore(3031, "password"); });
    EXPECT_TRUE(user.ended());
    EXPECT_EQ(user.exitStatus(), 1);
    EXPECT_EQ(user.boxCount(), 1U);
}

TEST_F(DesktopTest, TimersRunWithTheirFormAndStopWithIt)
{
    Timer timer;
    int fired = 0;
    show("frmA");
    timer.onTimer = [&] { ++fired; };
    form("frmA").timers.push_back(&timer);
    user.guard([&] { timer.start(100); });
    user.wait(250);
    EXPECT_EQ(fired, 2);
    user.closeWindow(form("frmA"));
    user.wait(500);
    EXPECT_EQ(fired, 2);
}

}  // namespace
}  // namespace bravona
