// SPDX-License-Identifier: MIT
#include "window/menu.h"

#include <gtest/gtest.h>

namespace pnl {
namespace {

MenuItem Item(int id, MenuHandle subMenu = 0) {
  MenuItem item;
  item.id = id;
  item.subMenu = subMenu;
  return item;
}

TEST(MenuTable, AHandleIsNeverUsedTwice) {
  MenuTable table;
  const MenuHandle first = table.Create({});
  table.Destroy(first);
  const MenuHandle second = table.Create({});
  EXPECT_NE(first, 0u);
  EXPECT_NE(second, first);
  EXPECT_EQ(table.Find(first), nullptr);
  EXPECT_NE(table.Find(second), nullptr);
}

TEST(MenuTable, AnItemIsFoundByIdInSubMenusAndByPositionInTheMenuItself) {
  MenuTable table;
  const MenuHandle inner = table.Create({{Item(20), Item(21)}});
  const MenuHandle outer = table.Create({{Item(10), Item(0, inner), Item(11)}});
  ASSERT_NE(table.FindItem(outer, 21), nullptr);
  EXPECT_EQ(table.FindItem(outer, 21)->id, 21);
  EXPECT_EQ(table.FindItem(outer, 2, true)->id, 11);
  EXPECT_EQ(table.FindItem(outer, 21, true), nullptr);
  EXPECT_EQ(table.FindItem(outer, -1, true), nullptr);
  EXPECT_EQ(table.FindItem(outer, 99), nullptr);
  EXPECT_EQ(table.FindItem(0, 10), nullptr);
}

TEST(MenuTable, DestroyTakesSubMenusAlongAndLeavesNothingBehind) {
  MenuTable table;
  const MenuHandle inner = table.Create({{Item(20)}});
  const MenuHandle middle = table.Create({{Item(0, inner)}});
  const MenuHandle outer = table.Create({{Item(0, middle)}});
  const MenuHandle other = table.Create({});
  EXPECT_EQ(table.Count(), 4u);
  table.Destroy(outer);
  EXPECT_EQ(table.Count(), 1u);
  EXPECT_EQ(table.Find(inner), nullptr);
  table.Destroy(outer);
  table.Destroy(0);
  table.Destroy(other);
  EXPECT_EQ(table.Count(), 0u);
}

TEST(MenuTable, AMenuThatContainsItselfIsSearchedAndDestroyedAllTheSame) {
  MenuTable table;
  const MenuHandle loop = table.Create({{Item(1)}});
  table.Find(loop)->items[0].subMenu = loop;
  EXPECT_EQ(table.FindItem(loop, 2), nullptr);
  table.Destroy(loop);
  EXPECT_EQ(table.Count(), 0u);
}

TEST(MenuTable, ANewItemIsEnabledSeenAndNothingElse) {
  const MenuItem item;
  EXPECT_TRUE(item.enabled);
  EXPECT_FALSE(item.checked);
  EXPECT_FALSE(item.hidden);
  EXPECT_EQ(item.id, 0);
  EXPECT_EQ(item.bitmap, 0);
  EXPECT_EQ(item.subMenu, 0u);
}

TEST(MenuTable, PositionsGoFromTheFirstItemToTheLast) {
  MenuTable table;
  const MenuHandle menu = table.Create({{Item(10), Item(11)}});
  EXPECT_EQ(table.FindItem(menu, 0, true)->id, 10);
  EXPECT_EQ(table.FindItem(menu, 1, true)->id, 11);
  EXPECT_EQ(table.FindItem(menu, 2, true), nullptr);
  EXPECT_EQ(table.FindItem(menu + 1, 0, true), nullptr);
  const MenuTable& same = table;
  EXPECT_EQ(same.Find(menu)->items.size(), 2u);
  EXPECT_EQ(same.Find(menu + 1), nullptr);
}

TEST(MenuTable, OfSeveralItemsWithAnIdTheFirstInReadingOrderIsFound) {
  MenuTable table;
  MenuItem inner = Item(5);
  inner.bitmap = 1;
  MenuItem later = Item(5);
  later.bitmap = 2;
  const MenuHandle sub = table.Create({{inner}});
  EXPECT_EQ(table.FindItem(table.Create({{Item(0, sub), later}}), 5)->bitmap, 1);
}

TEST(MenuTable, AnItemIsFoundDownToTheSixteenthSubMenu) {
  for (const int depth : {16, 17}) {
    MenuTable table;
    MenuHandle menu = table.Create({{Item(5)}});
    for (int i = 0; i < depth; ++i) menu = table.Create({{Item(0, menu)}});
    EXPECT_EQ(table.FindItem(menu, 5) != nullptr, depth == 16) << depth;
    table.Destroy(menu);
    EXPECT_EQ(table.Count(), 0u) << "however deep";
  }
}

}  // namespace
}  // namespace pnl
