// SPDX-License-Identifier: MIT
// Opening the calculator, step by step.
#include "calc_fixture.h"

namespace pnl::test {
namespace {

using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::IsEmpty;

Log Icons() {
  Log icons;
  for (int key = 1012; key <= 1036; ++key) icons.push_back("view icon " + std::to_string(key));
  return icons;
}

TEST_F(CalcTest, OpensInItsStepsAndInTheirOrder) {
  Open();
  Log expected = {"view move 0,0",
                  "view height 221",
                  "view fill 0",
                  "view title Calc",
                  "view colors 16711680,65535",
                  "view fonts -6,600 -8,700",
                  "view limit 255"};
  for (const std::string& icon : Icons()) expected.push_back(icon);
  for (const char* step :
       {"view result 0", "view status Empty", "HostToolOpening(3)", "main menu main", "side menu side",
        "SWOption_IsZMCON()=1", "HostUpdateSideMenu(3)", "view show", "view top", "view focus line"}) {
    expected.emplace_back(step);
  }
  EXPECT_THAT(All(), ElementsAreArray(expected));
  EXPECT_EQ(tool->NumberBase(), 1);
  EXPECT_FALSE(tool->Radians());
  EXPECT_FALSE(tool->IsMenuAttached());
  EXPECT_FALSE(tool->IsListOpen());
  EXPECT_EQ(tool->Value(), 0);
  EXPECT_EQ(timers.Running(), 1u);
}

TEST_F(CalcTest, KeysGetTheirIconsInTheOrderOfTheirIds) {
  Open();
  ASSERT_EQ(view->icons.size(), 25u);
  EXPECT_EQ(view->icons[1012], 332);
  EXPECT_EQ(view->icons[1013], 333);
  EXPECT_EQ(view->icons[1036], 356);
}

TEST_F(CalcTest, OpensWhereAndAsItWasClosed) {
  files.disc["C:\\P52\\Calc7340.ini"] = "[COMMON]\r\nWindow=120,45\r\nMinimized=YES\r\n";
  Open();
  EXPECT_EQ(view->left, 120);
  EXPECT_EQ(view->top, 45);
  EXPECT_EQ(view->height, 87);
  ASSERT_NE(Item(calc_id::kMenuCompact), nullptr);
  EXPECT_TRUE(Item(calc_id::kMenuCompact)->checked);
}

// It was left at the right edge of a larger panel, and nobody could find it again.
TEST_F(CalcTest, LeftAtTheEdgeOfALargerPanelItOpensInsideThisOne) {
  files.disc["C:\\P52\\Calc7340.ini"] = "[COMMON]\r\nWindow=1500,800\r\nMinimized=YES\r\n";
  Open();
  EXPECT_EQ(view->left, view->parent.right - view->width);
  EXPECT_EQ(view->top, view->parent.bottom - 87) << "by its compact height";
}

TEST_F(CalcTest, OpensWithTheHistoryOfTheFile) {
  files.disc["C:\\P1\\calc.htr"] = "2*3\r\n1+1\r\n";
  Open();
  EXPECT_THAT(Rows(), ElementsAre("2*3", "1+1"));
}

TEST_F(CalcTest, AHistoryThatCannotBeReadIsEmptyWithoutAWord) {
  files.disc["C:\\P1\\calc.htr"] = "2*3\r\n";
  files.unreadable = {"C:\\P1\\calc.htr"};
  Open();
  EXPECT_THAT(Rows(), IsEmpty());
  EXPECT_TRUE(windows.boxes.empty());
}

TEST_F(CalcTest, WithoutTheMachiningCalculatorItsItemIsTakenOutAfterTheBarsHaveTheMenus) {
  cnc.Returns("SWOption_IsZMCON", {0});
  Open();
  EXPECT_EQ(Item(calc_id::kMenuMachining), nullptr);
  EXPECT_NE(Item(calc_id::kMenuAngle), nullptr);
}

TEST_F(CalcTest, ItemsHaveTheirBitmapsAndTheHelperWord) {
  Open();
  EXPECT_EQ(Item(calc_id::kMenuBase)->bitmap, 366);
  EXPECT_EQ(Item(calc_id::kMenuAngle)->bitmap, 368);
  EXPECT_EQ(Item(calc_id::kMenuMachining)->bitmap, 387);
  EXPECT_EQ(Item(calc_id::kMenuMachining)->helper, u"CALC_ZMC");
  EXPECT_FALSE(Item(calc_id::kMenuCompact)->checked);
}

TEST_F(CalcTest, WithoutLanguageItOpensAllTheSame) {
  language.Use(LanguagePack());
  files.disc.erase("C:\\P15\\LPNLTOOLS.DLL");
  MakeTool();
  Open();
  EXPECT_TRUE(view->visible);
  EXPECT_EQ(Status(), "");
  Menu(calc_id::kMenuBase);
  Menu(calc_id::kMenuCompact);
  Confirm("2+3");
  EXPECT_EQ(Result(), "B101") << "two steps on from decimal";
}

TEST_F(CalcTest, WithoutTheLanguageModuleTheTextsAreThoseInUse) {
  files.disc.erase("C:\\P15\\LPNLTOOLS.DLL");
  Open();
  EXPECT_EQ(view->title, u"Calc");
  EXPECT_TRUE(view->visible);
}

TEST_F(CalcTest, AWindowThatGoesDuringTheLanguagesBoxIsNotAskedAnyMore) {
  files.disc.erase("C:\\P15\\LPNLTOOLS.DLL");
  windows.onBox = [this] { DestroyTool(); };
  Open();
  EXPECT_EQ(timers.Running(), 0u);
  EXPECT_THAT(Asked(), IsEmpty());
}

TEST_F(CalcTest, WithoutHostItOpensAndCloses) {
  table = {};
  Open();
  EXPECT_TRUE(view->visible);
  EXPECT_EQ(Command(20), 2);
}

TEST_F(CalcTest, OpeningTwiceIsOpeningOnce) {
  Open();
  log.clear();
  Open();
  EXPECT_THAT(log, IsEmpty());
}

TEST_F(CalcTest, AHostThatClosesTheToolWhileItOpensLeavesNothingBehind) {
  onHostCall = [this](const std::string& call) {
    if (call == "HostToolOpening(3)") Command(6);
  };
  Open();
  EXPECT_FALSE(view->visible);
  EXPECT_EQ(timers.Running(), 0u);
  EXPECT_EQ(log.back(), "view destroy");
}

TEST_F(CalcTest, AHostThatDestroysTheWindowWhileItOpensLeavesNothingBehind) {
  onHostCall = [this](const std::string& call) {
    if (call == "side menu side") DestroyTool();
  };
  Open();
  EXPECT_EQ(timers.Running(), 0u);
  EXPECT_EQ(menus.Count(), 0u);
}

TEST_F(CalcTest, TenThousandRowsOpen) {
  std::string rows;
  for (int i = 0; i < 10000; ++i) rows += std::to_string(i) + "+1\r\n";
  files.disc["C:\\P1\\calc.htr"] = rows;
  Open();
  ASSERT_EQ(view->rows.size(), 10000u);
  DestroyTool();
  EXPECT_EQ(files.disc["C:\\P1\\calc.htr"], rows);
}

}  // namespace
}  // namespace pnl::test
