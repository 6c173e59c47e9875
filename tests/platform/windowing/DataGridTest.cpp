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

TEST_F(DataGridTest, UnbindingSendsTheRowUnderWay)
{
    user.editCell(grid(), 0, 1, "Gamma");
    user.goToCell(grid(), 0, 2);
    user.type("77");
    grid().bind(nullptr);
    EXPECT_EQ(stored(), "Gamma 10|Beta 20");
    EXPECT_EQ(cn.open("SELECT ContoCorrente FROM BancheDitta ORDER BY IDBanca").valueAt(0, 0).text(), "77");
}

}  // namespace
}  // namespace bravona
