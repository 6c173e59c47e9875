#include "platform/windowing/Lists.h"

#include <gtest/gtest.h>

#include "platform/values/Errore.h"
#include "platform/windowing/Parts.h"
#include "support/Fallimento.h"

namespace bravona {
namespace {

ListRow row(const std::string& text, const std::string& second = {}, const std::string& key = {})
{
    ListRow made;
    made.text = text;
    made.key = key;
    made.sub.push_back({second, {}});
    return made;
}

std::string order(const ListView& list, std::size_t column)
{
    std::string all;
    for (std::size_t at = 0; at < list.rowCount(); ++at) {
        all += (at == 0 ? "" : "|") + list.row(at).cell(column);
    }
    return all;
}

TEST(ListView, SortsAColumnByWhatStandsInIt)
{
    struct Case {
        const char* name;
        std::vector<std::string> cells;
        const char* up;
        const char* down;
    };
    const std::vector<Case> cases{
        {"numbers", {"10", "9", "-3", "2,5"}, "-3|2,5|9|10", "10|9|2,5|-3"},
        {"amounts",
         {"€ 1.200,00", "€ 900,50", "-€ 3,00"},
         "-€ 3,00|€ 900,50|€ 1.200,00",
         "€ 1.200,00|€ 900,50|-€ 3,00"},
        {"dates",
         {"01/02/2004", "31/12/2003", "02/01/2004"},
         "31/12/2003|02/01/2004|01/02/2004",
         "01/02/2004|02/01/2004|31/12/2003"},
        {"texts without regard to case", {"beta", "Alfa", "gamma"}, "Alfa|beta|gamma", "gamma|beta|Alfa"},
        {"a text among numbers makes them texts", {"10", "9", "A1"}, "10|9|A1", "A1|9|10"},
        {"empty cells stand first", {"2", "", "1"}, "|1|2", "2|1|"},
    };
    for (const Case& one : cases) {
        ListView list;
        list.setColumns({{"A", "", 100, Align::left}});
        for (const std::string& cell : one.cells) {
            ListRow made;
            made.text = cell;
            list.add(made);
        }
        list.sort(0, true);
        EXPECT_EQ(order(list, 0), one.up) << one.name;
        list.sort(0, false);
        EXPECT_EQ(order(list, 0), one.down) << one.name;
    }
}

TEST(ListView, SelectionAndKeysFollowTheirRows)
{
    ListView list;
    list.setColumns({{"A", "", 100, Align::left}, {"B", "", 100, Align::left}});
    list.add(row("c", "1", "kc"));
    list.add(row("a", "2", "ka"));
    list.add(row("b", "3", "kb"));
    list.select(0);
    list.sort(0, true);
    EXPECT_EQ(order(list, 0), "a|b|c");
    EXPECT_EQ(list.selected(), 2U);
    EXPECT_EQ(list.find("kc"), 2U);
    list.remove(0);
    EXPECT_EQ(list.selected(), 1U);
    EXPECT_EQ(list.find("kc"), 1U);
    EXPECT_FALSE(list.find("ka").has_value());
    list.remove(1);
    EXPECT_FALSE(list.selected().has_value());
}

TEST(ListView, EqualRowsKeepTheirOrder)
{
    ListView list;
    list.setColumns({{"A", "", 100, Align::left}, {"B", "", 100, Align::left}});
    list.add(row("x", "1"));
    list.add(row("x", "2"));
    list.add(row("x", "3"));
    list.sort(0, true);
    list.sort(0, false);
    EXPECT_EQ(order(list, 1), "1|2|3");
}

TEST(ListView, RefusesWhatIsNotThere)
{
    ListView list;
    list.setColumns({{"A", "", 100, Align::left}});
    list.add(row("a", "", "k"));
    EXPECT_EQ(numeroDelFallimento([&] { list.add(row("b", "", "k")); }), 35602U);
    EXPECT_EQ(list.rowCount(), 1U);
    EXPECT_EQ(numeroDelFallimento([&] { return list.row(1); }), 9U);
    EXPECT_EQ(numeroDelFallimento([&] { list.select(1); }), 9U);
    EXPECT_EQ(numeroDelFallimento([&] { return list.selectedOrFail(); }), 91U);
}

TEST(ComboBox, ShowsAForeignTextWithoutAnIndex)
{
    ComboBox combo;
    int clicks = 0;
    combo.onClick = [&] { ++clicks; };
    combo.addItem("alfa", 1);
    combo.addItem("beta", 2);
    combo.setText("beta");
    EXPECT_EQ(combo.itemData(), 2);
    combo.setText("altro");
    EXPECT_EQ(combo.shownText(), "altro");
    EXPECT_EQ(combo.listIndex(), -1);
    EXPECT_EQ(clicks, 1);
    EXPECT_EQ(numeroDelFallimento([&] { return combo.itemData(); }), 9U);
    EXPECT_FALSE(combo.selectByData(7));
    EXPECT_EQ(combo.shownText(), "altro");
    EXPECT_EQ(numeroDelFallimento([&] { combo.setListIndex(2); }), 9U);
}

TEST(TreeView, ASelectedNodeOpensItsParents)
{
    TreeView tree;
    tree.add("", "a", "Anna");
    tree.add("a", "b", "Berta");
    tree.add("b", "c", "Carla");
    tree.select(tree.find("c"));
    EXPECT_TRUE(tree.nodes()[0].expanded);
    EXPECT_TRUE(tree.nodes()[1].expanded);
    EXPECT_EQ(numeroDelFallimento([&] { tree.add("", "a", "x"); }), 35602U);
    EXPECT_EQ(numeroDelFallimento([&] { tree.add("z", "d", "x"); }), 35601U);
    EXPECT_EQ(tree.nodes().size(), 3U);
}

}  // namespace
}  // namespace bravona
