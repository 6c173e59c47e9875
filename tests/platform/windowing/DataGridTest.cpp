#include <gtest/gtest.h>

#include <filesystem>

#include "platform/store/Connection.h"
#include "platform/windowing/Fields.h"
#include "platform/windowing/Grids.h"
#include "schema/Schema.h"
#include "support/UtenteDiProva.h"
#include "support/journey/ProgramFolder.h"

namespace bravona {
namespace {

class frmGriglia final : public Form {
public:
    explicit frmGriglia(Desktop& desktop) : Form(desktop, "frmGriglia", "Banche")
    {
        add("txtCampo", txtCampo);
        add("DataGrid1", DataGrid1);
        setLayout(layout::column({layout::of(txtCampo), layout::of(DataGrid1)}));
    }
    TextBox txtCampo;
    DataGrid DataGrid1;
};

// Banks: a hidden key, two texts, two amounts.
class DataGridTest : public ::testing::Test {
protected:
    DataGridTest()
    {
        folder.fill(Delivery::bare);
        cn.open(folder.archive().string(), passwordArchivio);
        cn.execute("INSERT INTO BancheDitta (Banca, ContoCorrente, Fido, Saldo) VALUES ('Alfa', '1', 10, 5)");
        cn.execute("INSERT INTO BancheDitta (Banca, ContoCorrente, Fido, Saldo) VALUES ('Beta', '2', 20, 6)");
        set = cn.open("SELECT * FROM BancheDitta ORDER BY IDBanca", OpenMode::updatable);
        user.screens().add("frmGriglia", [this] { return std::make_unique<frmGriglia>(user); });
        user.guard([&] { user.screens().get("frmGriglia").show(); });
        grid().bind(&set);
    }
    ~DataGridTest() override
    {
        user.screens().clear();
        set.close();
    }
    frmGriglia& form() { return user.screens().as<frmGriglia>("frmGriglia"); }
    DataGrid& grid() { return form().DataGrid1; }
    std::string stored()
    {
        Recordset rows = cn.open("SELECT Banca, Fido FROM BancheDitta ORDER BY IDBanca");
        std::string all;
        for (std::size_t row = 0; row < rows.recordCount(); ++row) {
            all += (row == 0 ? "" : "|") + rows.valueAt(row, 0).text() + " " + rows.valueAt(row, 1).text();
        }
        return all;
    }

    ProgramFolder folder;
    Connection cn;
    Recordset set;
    UtenteDiProva user;
};

TEST_F(DataGridTest, ARowIsSentWhenItIsLeftAndNotBefore)
{
    user.editCell(grid(), 0, 1, "Gamma");
    EXPECT_EQ(grid().cellText(0, 1), "Gamma");
    EXPECT_EQ(stored(), "Alfa 10|Beta 20");
    user.goToCell(grid(), 1, 1);
    EXPECT_EQ(stored(), "Gamma 10|Beta 20");
}

TEST_F(DataGridTest, LeavingTheGridSendsTheRow)
{
    user.editCell(grid(), 0, 1, "Gamma");
    user.focus(form().txtCampo);
    EXPECT_EQ(stored(), "Gamma 10|Beta 20");
    EXPECT_TRUE(form().txtCampo.hasFocus());
}

TEST_F(DataGridTest, TheNewRowLineBecomesARow)
{
    EXPECT_EQ(grid().shownRows(), 3U);
    user.editCell(grid(), 2, 1, "Delta");
    EXPECT_EQ(grid().dataRows(), 3U);
    user.editCell(grid(), 2, 3, "30,5");
    EXPECT_EQ(stored(), "Alfa 10|Beta 20");
    user.goToCell(grid(), 0, 1);
    EXPECT_EQ(stored(), "Alfa 10|Beta 20|Delta 30,5");
    EXPECT_EQ(grid().shownRows(), 4U);
}

TEST_F(DataGridTest, AValueThatDoesNotFitKeepsTheCell)
{
    user.editCell(grid(), 0, 3, "tanto");
    ASSERT_EQ(user.boxCount(), 1U);
    EXPECT_EQ(user.lastBox().title, "Banche");
    EXPECT_EQ(user.lastBox().text, "Valore non valido!");
    EXPECT_TRUE(grid().editing());
    EXPECT_EQ(grid().cellText(0, 3), "tanto");
    user.focus(form().txtCampo);
    EXPECT_TRUE(grid().hasFocus());
    user.key(Key::escape);
    EXPECT_EQ(grid().cellText(0, 3), "10");
    user.focus(form().txtCampo);
    EXPECT_TRUE(form().txtCampo.hasFocus());
}

TEST_F(DataGridTest, WhatTheStoreRefusesKeepsTheRow)
{
    cn.setWriteHook([](const std::string&) { throw Errore(3035, "guasto"); });
    user.editCell(grid(), 0, 1, "Gamma");
    user.goToCell(grid(), 1, 1);
    EXPECT_EQ(grid().row(), 0U);
    EXPECT_EQ(user.lastBox().number, 3035U);
    cn.setWriteHook({});
    user.goToCell(grid(), 1, 1);
    EXPECT_EQ(stored(), "Gamma 10|Beta 20");
}

TEST_F(DataGridTest, EscapeForgetsFirstTheCellThenTheRow)
{
    user.editCell(grid(), 2, 1, "Delta");
    user.goToCell(grid(), 2, 2);
    user.type("x");
    user.key(Key::escape);
    EXPECT_EQ(grid().dataRows(), 3U);
    user.key(Key::escape);
    EXPECT_EQ(grid().dataRows(), 2U);
    EXPECT_EQ(stored(), "Alfa 10|Beta 20");
}

TEST_F(DataGridTest, ARowIsDeletedAtOnceAndTheNextOneIsCurrent)
{
    user.deleteRow(grid(), 0);
    EXPECT_EQ(stored(), "Beta 20");
    EXPECT_EQ(grid().row(), 0U);
    EXPECT_EQ(grid().cellText(0, 1), "Beta");
    user.deleteRow(grid(), 0);
    EXPECT_EQ(stored(), "");
    EXPECT_EQ(grid().shownRows(), 1U);
}

TEST_F(DataGridTest, ALockedColumnTakesNoTextAndCodeMaySetIt)
{
    std::vector<DataColumn> columns = grid().columns();
    columns[2].locked = true;
    grid().setColumns(columns);
    grid().onBeforeUpdate = [&] { grid().setCellValue(2, Value("conto")); };
    user.editCell(grid(), 0, 2, "9");
    EXPECT_EQ(grid().cellText(0, 2), "1");
    user.editCell(grid(), 0, 1, "Gamma");
    user.goToCell(grid(), 1, 1);
    EXPECT_EQ(grid().cellText(0, 2), "conto");
}

TEST_F(DataGridTest, TheFocusStartsInAColumnThatCanBeSeen)
{
    std::vector<DataColumn> columns = grid().columns();
    columns[0].width = 0;
    grid().setColumns(columns);
    grid().bind(&set);
    user.focus(grid());
    EXPECT_EQ(grid().col(), 1U);
    user.key(Key::left);
    EXPECT_EQ(grid().col(), 1U);
    grid().userMove(0, 0);
    user.type("9");  // the key of the row
    EXPECT_FALSE(grid().editing());
}

// What is typed, key by key, and the cell it ends in.
TEST_F(DataGridTest, ANewRowIsTypedFromCellToCellWithoutTheMouse)
{
    std::vector<DataColumn> columns = grid().columns();
    columns[0].width = 0;
    grid().setColumns(columns);
    grid().bind(&set);
    user.focus(grid());
    user.key({.key = Key::end, .ctrl = true});
    for (const char* text : {"Delta", "3", "30,5"}) {
        user.type(text);
        user.key(Key::tab);
    }
    user.type("1");
    EXPECT_EQ(grid().col(), 4U);
    EXPECT_EQ(stored(), "Alfa 10|Beta 20");
    user.key(Key::tab);  // from the last cell of a changed row to the next row, which sends it
    EXPECT_EQ(stored(), "Alfa 10|Beta 20|Delta 30,5");
    EXPECT_EQ(grid().row(), 3U);
    EXPECT_EQ(grid().col(), 1U);
    for (int cell = 0; cell < 4; ++cell) {
        user.key(Key::tab);
    }
    EXPECT_FALSE(grid().hasFocus());  // nothing was begun in the new-row line
    EXPECT_EQ(grid().dataRows(), 3U);
}

TEST_F(DataGridTest, KeysOnACell)
{
    struct Case {
        const char* name;
        std::vector<KeyEvent> keys;
        bool editing;
        std::string text;
    };
    const KeyEvent x{.key = Key::character, .character = U'x'};
    const KeyEvent left{.key = Key::left};
    const std::vector<Case> cases{
        {"typing replaces", {x, x}, true, "xx"},
        {"Enter opens with all selected", {{.key = Key::enter}, x}, true, "x"},
        {"F2 too, and Left only drops the selection", {{.key = Key::f2}, left, x}, true, "xAlfa"},
        {"an arrow inside the text stays in it", {x, x, left, x}, true, "xxx"},
        {"an arrow at its end leaves it", {x, {.key = Key::right}}, false, "x"},
        {"Delete empties", {{.key = Key::del}, {.key = Key::enter}}, false, ""},
        {"Backspace empties", {{.key = Key::backspace}, x}, true, "x"},
        {"Enter accepts", {x, {.key = Key::enter}}, false, "x"},
        {"Escape gives back", {x, {.key = Key::escape}}, false, "Alfa"},
    };
    for (const Case& one : cases) {
        SCOPED_TRACE(one.name);
        user.goToCell(grid(), 0, 1);
        for (const KeyEvent& key : one.keys) {
            user.key(key);
        }
        EXPECT_EQ(grid().editing(), one.editing);
        EXPECT_EQ(grid().cellText(0, 1), one.text);
        while (grid().userEscape()) {
        }
    }
}

TEST_F(DataGridTest, OnlyAWholeRowOrControlDeletesARow)
{
    user.goToCell(grid(), 0, 1);
    user.key({.key = Key::character, .character = U' ', .shift = true});
    EXPECT_TRUE(grid().rowSelected());
    user.key(Key::down);  // the row is no longer selected
    user.key(Key::del);
    EXPECT_EQ(stored(), "Alfa 10|Beta 20");
    user.key(Key::escape);
    user.key({.key = Key::del, .ctrl = true});
    EXPECT_EQ(stored(), "Alfa 10");
    user.key(Key::up);
    user.key({.key = Key::character, .character = U' ', .shift = true});
    user.key(Key::del);
    EXPECT_EQ(stored(), "");
    grid().allowDelete = false;
    user.editCell(grid(), 0, 1, "Gamma");
    user.key({.key = Key::del, .ctrl = true});
    EXPECT_EQ(grid().dataRows(), 1U);
}

TEST_F(DataGridTest, EnterAndSpacePressTheButtonOfACell)
{
    std::vector<DataColumn> columns = grid().columns();
    columns[2].button = true;
    columns[2].locked = true;
    grid().setColumns(columns);
    int pressed = 0;
    grid().onButtonClick = [&](std::size_t column) { pressed += column == 2 ? 1 : 100; };
    user.goToCell(grid(), 0, 2);
    user.key(Key::enter);
    user.type(" ");
    EXPECT_EQ(pressed, 2);
    EXPECT_FALSE(grid().editing());
    user.goToCell(grid(), 0, 1);
    user.type(" ");
    EXPECT_EQ(pressed, 2);
    EXPECT_EQ(grid().cellText(0, 1), " ");
}

TEST_F(DataGridTest, APastedTextIsOneLineAndGoesWhereTheCaretIs)
{
    user.goToCell(grid(), 0, 1);
    user.paste("L'Aquila\n100% \"x\"");
    EXPECT_EQ(grid().cellText(0, 1), "L'Aquila 100% \"x\"");
    user.key(Key::home);
    user.paste("*");
    user.key(Key::enter);
    user.goToCell(grid(), 1, 1);
    EXPECT_EQ(stored(), "*L'Aquila 100% \"x\" 10|Beta 20");
    const std::string lungo(5000, 'x');
    user.paste(lungo);
    user.goToCell(grid(), 0, 1);
    EXPECT_EQ(set.valueAt(1, 1).text(), lungo);
}

TEST_F(DataGridTest, UnbindingSendsTheRowUnderWay)
{
    user.editCell(grid(), 0, 1, "Gamma");
    user.goToCell(grid(), 0, 2);
    user.type("77");
    grid().bind(nullptr);
    EXPECT_EQ(stored(), "Gamma 10|Beta 20");
    EXPECT_EQ(cn.open("SELECT ContoCorrente FROM BancheDitta ORDER BY IDBanca").valueAt(0, 0).text(), "77");
}

TEST_F(DataGridTest, CtrlAndDeleteInACellBeingTypedIntoLeaveTheRow)
{
    user.goToCell(grid(), 0, 1);
    user.type("Gam");
    user.key({.key = Key::del, .ctrl = true});
    EXPECT_TRUE(grid().editing());
    EXPECT_EQ(stored(), "Alfa 10|Beta 20");
}

TEST_F(DataGridTest, ADroppedKeyIsToldAndOneThatPassesIsNot)
{
    TextBox& campo = form().txtCampo;
    campo.onKeyPress = [](char32_t& tasto) { tasto = tasto >= U'0' && tasto <= U'9' ? tasto : 0; };
    user.type(campo, "1x2");
    EXPECT_EQ(campo.text(), "12");
    EXPECT_EQ(user.refused, std::vector<std::string>{"txtCampo"});
}

TEST_F(DataGridTest, ATypedPointBecomesACommaWhereNoOtherReadingIsLikely)
{
    TextBox& campo = form().txtCampo;
    const auto lasciato = [&](const std::string& battuto) {
        user.focus(campo);
        campo.setText({});
        user.type(campo, battuto);
        user.focus(grid());
        return campo.text();
    };
    EXPECT_EQ(lasciato("12.5"), "12.5");
    campo.numeric = true;
    EXPECT_EQ(lasciato("12.5"), "12,5");
    EXPECT_EQ(lasciato("-12.50"), "-12,50");
    for (const char* intatto : {"1.500", "1.2.5", "1.234,5", "12.", "12"}) {
        EXPECT_EQ(lasciato(intatto), intatto);
    }
    user.focus(campo);
    campo.selectAll();
    user.paste("12.5");
    user.focus(grid());
    EXPECT_EQ(campo.text(), "12.5");
}

}  // namespace
}  // namespace bravona
