// SPDX-License-Identifier: MIT
// The menu commands beside those that write: base, angle unit, size, and the way to the machining calculator.
#include "calc_fixture.h"

namespace pnl::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class CalcMenusTest : public OpenCalcTest {};

TEST_F(CalcMenusTest, TheBaseGoesFromDecimalToBinaryToHexadecimal) {
  Confirm("255");
  Line("10");
  log.clear();
  Menu(calc_id::kMenuBase);
  EXPECT_THAT(All(), ElementsAre("view status B1010", "view result B11111111", "HostUpdateSideMenu(3)"));
  EXPECT_EQ(tool->NumberBase(), 2);
  EXPECT_EQ(Item(calc_id::kMenuBase)->bitmap, 367);
  Menu(calc_id::kMenuBase);
  EXPECT_EQ(Status(), "Value : $A");
  EXPECT_EQ(Result(), "$FF");
  EXPECT_EQ(Item(calc_id::kMenuBase)->bitmap, 365);
  Menu(calc_id::kMenuBase);
  EXPECT_EQ(Result(), "255");
  EXPECT_EQ(tool->NumberBase(), 1);
  EXPECT_EQ(Item(calc_id::kMenuBase)->bitmap, 366);
}

TEST_F(CalcMenusTest, TheAngleUnitChangesThePreviewAndNotTheResult) {
  Confirm("SIN 90");
  EXPECT_EQ(Result(), "1");
  Line("INVCOS -1");
  EXPECT_EQ(Status(), "Value : 180");
  log.clear();
  Menu(calc_id::kMenuAngle);
  EXPECT_THAT(All(), ElementsAre("view status Value : 3.14159265358979", "HostUpdateSideMenu(3)"));
  EXPECT_TRUE(tool->Radians());
  EXPECT_EQ(Result(), "1");
  EXPECT_EQ(Item(calc_id::kMenuAngle)->bitmap, 369);
  Menu(calc_id::kMenuAngle);
  EXPECT_EQ(Item(calc_id::kMenuAngle)->bitmap, 368);
}

TEST_F(CalcMenusTest, RefreshingPreviewsTheSelectionIfThereIsOne) {
  Line("2+3*4");
  Mark(0, 3);
  Menu(calc_id::kMenuAngle);
  EXPECT_EQ(Status(), "Sel Value : 5");
  Mark(0, 0);
  Menu(calc_id::kMenuAngle);
  EXPECT_EQ(Status(), "Value : 14");
}

TEST_F(CalcMenusTest, HexadecimalOfFractionsAndNegativesIsTheLowWord) {
  Menu(calc_id::kMenuBase);
  Menu(calc_id::kMenuBase);
  Confirm("3.9");
  EXPECT_EQ(Result(), "$3");
  Confirm("-1");
  EXPECT_EQ(Result(), "$FFFFFFFF");
}

TEST_F(CalcMenusTest, CompactSizeIsMarkedAndToldToTheHost) {
  Menu(calc_id::kMenuCompact);
  EXPECT_THAT(All(), ElementsAre("HostUpdateMainMenu(3)", "view height 87"));
  EXPECT_TRUE(Item(calc_id::kMenuCompact)->checked);
  Menu(calc_id::kMenuCompact);
  EXPECT_THAT(All(), ElementsAre("HostUpdateMainMenu(3)", "view height 221"));
  EXPECT_FALSE(Item(calc_id::kMenuCompact)->checked);
}

TEST_F(CalcMenusTest, CompactingClosesAnOpenListAsEscapeDoes) {
  Confirm("1+1");
  Line("abc");
  Key(CalcKey::kUp);
  Pick({0});
  ASSERT_EQ(LineNow(), "1+1");
  Menu(calc_id::kMenuCompact);
  EXPECT_FALSE(tool->IsListOpen());
  EXPECT_EQ(LineNow(), "abc");
  EXPECT_EQ(view->height, 87);
}

TEST_F(CalcMenusTest, TheMachiningCalculatorIsAskedForBeforeTheWindowGoes) {
  Menu(calc_id::kMenuMachining);
  EXPECT_THAT(All(), ElementsAre("HostToolClosed(3,2)", "HostOpenMachiningCalculator", "view hide", "view destroy"));
}

TEST_F(CalcMenusTest, CommandsWriteToTheLine) {
  Menu(32784);
  EXPECT_EQ(LineNow(), "Sin");
  EXPECT_THAT(All(), testing::IsSupersetOf({"view line \"Sin\"", "view focus line", "view caret 3"}));
}

TEST_F(CalcMenusTest, ACommandOfTheRangeThatNamesNothingPutsTheCaretAtTheStart) {
  Line("1+2");
  Menu(32815);
  EXPECT_EQ(LineNow(), "1+2");
  EXPECT_EQ(view->selection, (TextSelection{0, 0}));
}

TEST_F(CalcMenusTest, OtherIdsDoNothing) {
  Line("1+2");
  log.clear();
  for (const int id : {0, -1, 1, 32700, 32780, 32782, 32822, 99999}) Menu(id);
  EXPECT_THAT(log, IsEmpty());
  EXPECT_EQ(view->selection, (TextSelection{3, 3}));
}

TEST_F(CalcMenusTest, WithoutMenuInTheLanguageTheBarsAreCleared) {
  language.Use(LanguagePack());
  MakeTool();
  log.clear();
  Open();
  EXPECT_THAT(Asked(), ElementsAre("HostToolOpening(3)", "main menu none", "side menu none", "SWOption_IsZMCON()=1",
                                   "HostUpdateSideMenu(3)"));
  EXPECT_EQ(mainMenu, 0u);
  EXPECT_EQ(sideMenu, 0u);
}

TEST_F(CalcMenusTest, WithoutMenuThereIsNoMachiningItemToTakeAway) {
  language.Use(LanguagePack());
  cnc.Returns("SWOption_IsZMCON", {0});
  MakeTool();
  log.clear();
  Open();
  EXPECT_THAT(Asked(), testing::Contains("HostUpdateSideMenu(3)"));
}

}  // namespace
}  // namespace pnl::test
