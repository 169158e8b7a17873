// SPDX-License-Identifier: MIT
#include "facade/utilities.h"

#include <gtest/gtest.h>

namespace pnl {
namespace {

TEST(Colours, ThreeDecimalNumbersMakeAColour) {
  struct Row {
    TextView text;
    std::uint32_t colour;
  };
  const Row rows[] = {
      {u"60 100 120", 0x78643C},
      {u"255 0 0", 0x0000FF},
      {u"0 0 255", 0xFF0000},
      {u"  1   2   3  ", 0x030201},
      {u"1,2,3", 0x030201},
      {u"100 128 44", 0x2C8064},
      {u"1 2", 0x000201},
      {u"7", 0x000007},
      {u"", 0},
      {u"no colour", 0},
      {u"256 257 -1", 0xFF0100},
      {u"1 2 3 4", 0x030201},
      {u"99999999999999999999 0 0", 255},
  };
  for (const Row& row : rows) EXPECT_EQ(AsciiToColorref(row.text), row.colour) << ToUtf8(row.text);
}

TEST(Rectangles, AreTextsWithCommas) {
  struct Row {
    TextView text;
    Rect rect;
  };
  const Row rows[] = {
      {u"0,0,710,298", {0, 0, 710, 298}},
      {u" 1 , -2, 3,4", {1, -2, 3, 4}},
      {u"5,6", {5, 6, 0, 0}},
      {u"", {0, 0, 0, 0}},
      {u"FAIL", {0, 0, 0, 0}},
      {u"1,2,3,4,5", {1, 2, 3, 4}},
  };
  for (const Row& row : rows) EXPECT_EQ(AsciiToCRect(row.text), row.rect) << ToUtf8(row.text);
  EXPECT_EQ(CRectToAscii({0, -1, 710, 298}), u"0,-1,710,298");
  EXPECT_EQ(AsciiToCRect(CRectToAscii({-5, 6, 7, 8})), (Rect{-5, 6, 7, 8}));
}

TEST(TextFields, AreTakenOffTheFront) {
  Text text = u"Arial,21,400";
  EXPECT_EQ(GetData(text, u','), u"Arial");
  EXPECT_EQ(text, u"21,400");
  EXPECT_EQ(GetIntData(text, u','), 21);
  EXPECT_EQ(text, u"400");
  EXPECT_EQ(GetIntData(text, u','), 400);
  EXPECT_EQ(text, u"");
  EXPECT_EQ(GetData(text, u','), u"");
  EXPECT_EQ(GetIntData(text, u','), 0);
}

TEST(TextFields, AnEmptyFieldIsEmpty) {
  Text text = u",b";
  EXPECT_EQ(GetData(text, u','), u"");
  EXPECT_EQ(text, u"b");
}

TEST(ErrorTextFunctions, HaveTheirOwnNames) {
  const char* const names[] = {"error_to_txt",
                               "error_CS_to_txt",
                               "warning_CS_to_txt",
                               "error_drive_to_txt",
                               "warning_drive_to_txt",
                               "error_unknown_drive_to_txt",
                               "warning_unknown_drive_to_txt",
                               "error_mlink_to_txt",
                               "emcy_Copen_to_txt",
                               "ReadPLCError"};
  ASSERT_EQ(std::size(kErrorTextFunctions), std::size(names));
  for (std::size_t i = 0; i < std::size(names); ++i) {
    EXPECT_STREQ(ErrorTextFunctionName(kErrorTextFunctions[i]), names[i]);
  }
}

class MenuOperations : public testing::Test {
 protected:
  MenuOperations() {
    MenuItem inner;
    inner.id = 20;
    const MenuHandle sub = menus.Create({{inner}});
    MenuItem first;
    first.id = 10;
    MenuItem second;
    second.id = 11;
    second.subMenu = sub;
    menu = menus.Create({{first, second}});
  }
  const MenuItem& Item(int id) { return *menus.FindItem(menu, id); }
  MenuTable menus;
  MenuHandle menu = 0;
};

TEST_F(MenuOperations, BitmapAndHelperById) {
  UTIL7340_SetMenuItemBitmap(menus, menu, 20, false, 361);
  UTIL7340_SetMenuItemHelper(menus, menu, 20, false, u"CALC_ZMC");
  EXPECT_EQ(Item(20).bitmap, 361);
  EXPECT_EQ(Item(20).helper, u"CALC_ZMC");
  EXPECT_EQ(Item(10).bitmap, 0);
}

TEST_F(MenuOperations, BitmapAndHelperByPosition) {
  UTIL7340_SetMenuItemBitmap(menus, menu, 1, true, 362);
  UTIL7340_SetMenuItemHelper(menus, menu, 1, true, u"H");
  EXPECT_EQ(Item(11).bitmap, 362);
  EXPECT_EQ(Item(11).helper, u"H");
}

TEST_F(MenuOperations, HideAndShow) {
  UTIL7340_HideMenuItem(menus, menu, 10);
  EXPECT_TRUE(Item(10).hidden);
  EXPECT_FALSE(Item(11).hidden);
  UTIL7340_ShowMenuItem(menus, menu, 10);
  EXPECT_FALSE(Item(10).hidden);
}

TEST_F(MenuOperations, CleaningOneItemLeavesTheOthers) {
  UTIL7340_SetMenuItemBitmap(menus, menu, 10, false, 1);
  UTIL7340_SetMenuItemBitmap(menus, menu, 11, false, 2);
  UTIL7340_CleanMenuItem(menus, menu, 10, false);
  EXPECT_EQ(Item(10).bitmap, 0);
  EXPECT_EQ(Item(11).bitmap, 2);
  UTIL7340_CleanMenuItem(menus, menu, 1, true);
  EXPECT_EQ(Item(11).bitmap, 0);
}

TEST_F(MenuOperations, CleaningTheMenuReachesItsSubMenus) {
  for (const int id : {10, 11, 20}) {
    UTIL7340_SetMenuItemBitmap(menus, menu, id, false, id);
    UTIL7340_SetMenuItemHelper(menus, menu, id, false, u"H");
  }
  UTIL7340_CleanMenu(menus, menu);
  for (const int id : {10, 11, 20}) {
    EXPECT_EQ(Item(id).bitmap, 0) << id;
    EXPECT_EQ(Item(id).helper, u"") << id;
  }
}

TEST_F(MenuOperations, AMenuInsideItselfDoesNotHang) {
  menus.Find(menu)->items[0].subMenu = menu;
  menus.Find(menu)->items[0].bitmap = 3;
  UTIL7340_CleanMenu(menus, menu);
  EXPECT_EQ(menus.Find(menu)->items[0].bitmap, 0);
  menus.Find(menu)->items[0].subMenu = 0;
}

TEST_F(MenuOperations, WhatIsNotThereIsLeftAlone) {
  for (const MenuHandle handle : {menu, MenuHandle{0}, MenuHandle{999}}) {
    UTIL7340_SetMenuItemBitmap(menus, handle, 77, false, 1);
    UTIL7340_SetMenuItemHelper(menus, handle, -1, true, u"H");
    UTIL7340_ShowMenuItem(menus, handle, 77);
    UTIL7340_HideMenuItem(menus, handle, 77);
    UTIL7340_CleanMenuItem(menus, handle, 77, true);
  }
  UTIL7340_CleanMenu(menus, 999);
  EXPECT_EQ(Item(10).bitmap, 0);
  EXPECT_EQ(menus.Count(), 2U);
}

}  // namespace
}  // namespace pnl
