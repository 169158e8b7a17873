// SPDX-License-Identifier: MIT
// The note beside the window: all three bases, the solvers' parameters, and the hint that comes by itself.
#include "calc_fixture.h"

namespace pnl::test {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;

class CalcNotesTest : public OpenCalcTest {};

TEST_F(CalcNotesTest, TheKeyShowsThePreviewedValueInAllBasesAndTakesItAwayAgain) {
  Line("10");
  log.clear();
  Button(calc_id::kShowBases);
  EXPECT_THAT(All(), ElementsAre("view note \"10  $A  B1010\""));
  EXPECT_TRUE(Key(CalcKey::kBases));
  EXPECT_THAT(All(), ElementsAre("view note \"\""));
}

TEST_F(CalcNotesTest, OnAnEmptyLineItIsTheResult) {
  Confirm("255");
  Button(calc_id::kShowBases);
  EXPECT_EQ(Note(), "255  $FF  B11111111");
}

TEST_F(CalcNotesTest, ItFollowsTheLineAndKeepsTheLastValueWhileTheLineHasNone) {
  Line("10");
  Button(calc_id::kShowBases);
  Line("10+");
  EXPECT_EQ(Note(), "10  $A  B1010");
  Line("10+1");
  EXPECT_EQ(Note(), "11  $B  B1011");
  Mark(0, 2);
  Tick();
  EXPECT_EQ(Note(), "10  $A  B1010");
  Line("");
  EXPECT_EQ(Note(), "0  $0  B0");
}

TEST_F(CalcNotesTest, AFailedEvaluationKeepsTheLastValueToo) {
  Line("10");
  Button(calc_id::kShowBases);
  Line("1/0");
  EXPECT_EQ(Status(), "Failed");
  EXPECT_EQ(Note(), "10  $A  B1010");
}

TEST_F(CalcNotesTest, TheSolversParametersAreThoseOfTheVariables) {
  Confirm("A=1;B=2;N=100;E=0.5");
  Button(calc_id::kShowSolver);
  EXPECT_EQ(Note(), "from 1 to 2, N 100\nstart 1, N 100, E 0.5");
  Confirm("A=3");
  EXPECT_EQ(Note(), "from 3 to 2, N 100\nstart 3, N 100, E 0.5");
  EXPECT_TRUE(Key(CalcKey::kSolver));
  EXPECT_EQ(Note(), "");
}

TEST_F(CalcNotesTest, OneNoteTakesThePlaceOfTheOther) {
  Button(calc_id::kShowSolver);
  Button(calc_id::kShowBases);
  EXPECT_EQ(Note(), "0  $0  B0");
  Button(calc_id::kShowSolver);
  EXPECT_EQ(Note(), "from 0 to 0, N 0\nstart 0, N 0, E 0");
}

TEST_F(CalcNotesTest, ASearchThatStopsShortBringsItsHintByItself) {
  Confirm("A=1;N=7;E=0.001");
  Line("ZERO(X^2+1)");
  EXPECT_THAT(Note(), testing::StartsWith("7 times, "));
  EXPECT_THAT(Note(), testing::EndsWith(" left"));
  Line("ZERO(X-2)");
  EXPECT_EQ(Note(), "");
}

TEST_F(CalcNotesTest, TheHintOfAConfirmationStaysUntilTheLineChanges) {
  Confirm("A=1;N=7;E=0.001");
  Confirm("ZERO(X^2+1)");
  EXPECT_THAT(Note(), testing::StartsWith("7 times, "));
  Mark(0, 0);
  Tick();
  EXPECT_THAT(Note(), testing::StartsWith("7 times, "));
  Type("1");
  EXPECT_EQ(Note(), "");
}

TEST_F(CalcNotesTest, TheHintStandsBelowANoteThatIsThere) {
  Confirm("A=1;N=7;E=0.001");
  Button(calc_id::kShowSolver);
  Line("ZERO(X^2+1)");
  EXPECT_THAT(Note(), testing::StartsWith("from 1 to 0, N 7\nstart 1, N 7, E 0.001\n7 times, "));
  Line("1");
  EXPECT_EQ(Note(), "from 1 to 0, N 7\nstart 1, N 7, E 0.001");
}

TEST_F(CalcNotesTest, ASearchThatFailsHasNoHint) {
  Confirm("A=1;N=7");
  Line("ZERO(1/X)");
  EXPECT_EQ(Status(), "Failed");
  EXPECT_EQ(Note(), "");
}

TEST_F(CalcNotesTest, EscapeTakesTheNoteAndAsksToCloseInOnePress) {
  Button(calc_id::kShowBases);
  log.clear();
  Key(CalcKey::kEscape);
  EXPECT_THAT(All(), ElementsAre("view note \"\"", "HostToolWantsClose(3)"));
}

TEST_F(CalcNotesTest, EscapeTakesTheNoteAndClosesTheListInOnePress) {
  Button(calc_id::kShowBases);
  Key(CalcKey::kUp);
  Key(CalcKey::kEscape);
  EXPECT_EQ(Note(), "");
  EXPECT_FALSE(tool->IsListOpen());
  EXPECT_THAT(Asked(), IsEmpty());
}

TEST_F(CalcNotesTest, TheNoteGoesWithTheTool) {
  Button(calc_id::kShowBases);
  log.clear();
  Command(34);
  EXPECT_THAT(All(), ElementsAre("view note \"\"", "view hide", "HostToolClosed(3,2)", "view destroy"));
}

TEST_F(CalcNotesTest, ALanguageWithOddTextsIsHarmless) {
  language.SetText(calc_id::kTextZero, u"%d %n %s %s %s %s %99999s");
  language.SetText(calc_id::kTextIntegral, u"");
  language.SetText(calc_id::kTextTolerance, u"%s %f %s");
  Confirm("A=1;N=7;E=0.001");
  Button(calc_id::kShowSolver);
  Line("ZERO(X^2+1)");
  EXPECT_NE(Note(), "");
}

}  // namespace
}  // namespace pnl::test
