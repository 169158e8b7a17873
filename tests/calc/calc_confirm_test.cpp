// SPDX-License-Identifier: MIT
// Enter, the = key and Insert: what they confirm, recall, hand over and leave alone.
#include "calc_fixture.h"

namespace pnl::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class CalcConfirmTest : public OpenCalcTest {};

TEST_F(CalcConfirmTest, EnterConfirmsInItsSteps) {
  Line("2+3");
  log.clear();
  EXPECT_TRUE(Key(CalcKey::kEnter));
  EXPECT_THAT(All(), ElementsAre("view result 5", "view row 0 \"2+3\"", "view line \"\"", "view status Empty",
                                 "view focus line"));
  EXPECT_EQ(tool->Value(), 5);
  EXPECT_EQ(LineNow(), "");
}

TEST_F(CalcConfirmTest, TheEqualsKeyDoesTheSame) {
  Line("2+3");
  Button(calc_id::kConfirm);
  EXPECT_EQ(Result(), "5");
  EXPECT_THAT(Rows(), ElementsAre("2+3"));
}

TEST_F(CalcConfirmTest, TheNewestRowIsTheFirstAndEqualOnesStay) {
  for (const char* text : {"1", "2", "1"}) Confirm(text);
  EXPECT_THAT(Rows(), ElementsAre("1", "2", "1"));
}

TEST_F(CalcConfirmTest, TheHistoryKeepsTheLineAsItWasTyped) {
  Confirm(" sin 30 ");
  EXPECT_THAT(Rows(), ElementsAre(" sin 30 "));
}

TEST_F(CalcConfirmTest, ALineThatDoesNotCompileChangesNothing) {
  Confirm("7");
  Line("1+");
  EXPECT_EQ(Status(), "Syntax: 1+< >");
  log.clear();
  Key(CalcKey::kEnter);
  EXPECT_THAT(All(), ElementsAre("view focus line"));
  EXPECT_EQ(LineNow(), "1+");
  EXPECT_EQ(Result(), "7");
  EXPECT_THAT(Rows(), ElementsAre("7"));
}

TEST_F(CalcConfirmTest, AFailedEvaluationShowsTheTreeAndKeepsTheLine) {
  Confirm("7");
  Confirm("1/(3-3)");
  EXPECT_EQ(Status(), "Failed: (1/(3-3))");
  EXPECT_EQ(LineNow(), "1/(3-3)");
  EXPECT_EQ(Result(), "7");
  EXPECT_THAT(Rows(), ElementsAre("7"));
}

TEST_F(CalcConfirmTest, AssignmentsBeforeAFailureStayAndAccDoesNotChange) {
  Confirm("9");
  Confirm("A=5;1/0");
  EXPECT_EQ(Variable('A'), 5);
  EXPECT_EQ(SharedCalcStore().Acc, 9);
}

TEST_F(CalcConfirmTest, AccIsTheLastConfirmedValue) {
  Confirm("21");
  Confirm("ACC*2");
  EXPECT_EQ(Result(), "42");
}

TEST_F(CalcConfirmTest, TextsBeyondTheLimitAreRefused) {
  Confirm(std::string(256, '1'));
  EXPECT_THAT(Rows(), IsEmpty());
  Confirm(std::string(255, '1'));
  EXPECT_EQ(Rows().size(), 1u);
}

TEST_F(CalcConfirmTest, EnterOnAnEmptyLineDoesNothingWhileTheResultIsZero) {
  log.clear();
  Key(CalcKey::kEnter);
  EXPECT_THAT(All(), IsEmpty());
}

TEST_F(CalcConfirmTest, EnterOnAnEmptyLineRecallsTheResultInItsOwnNotation) {
  Menu(calc_id::kMenuBase);
  Menu(calc_id::kMenuBase);
  Confirm("255");
  Key(CalcKey::kEnter);
  EXPECT_EQ(LineNow(), "$FF");
  EXPECT_EQ(view->selection, (TextSelection{3, 3}));
  EXPECT_EQ(Status(), "Value : $FF");
}

TEST_F(CalcConfirmTest, ALineOfBlanksRecallsTheResultToo) {
  Confirm("5");
  Line("   ");
  Key(CalcKey::kEnter);
  EXPECT_EQ(LineNow(), "5");
}

TEST_F(CalcConfirmTest, HexadecimalZeroIsNotTheWordZero) {
  Menu(calc_id::kMenuBase);
  Menu(calc_id::kMenuBase);
  Key(CalcKey::kEnter);
  EXPECT_EQ(LineNow(), "$0");
}

TEST_F(CalcConfirmTest, SetMenuAttachesTheMenuAndThenFailsAsAnExpression) {
  Line("SETMENU(TRUE)");
  Key(CalcKey::kEnter);
  EXPECT_TRUE(tool->IsMenuAttached());
  // Its letters are variables, and none may follow another.
  EXPECT_EQ(Status(), "Syntax: S< >ETMENU(TRUE)");
  EXPECT_EQ(LineNow(), "SETMENU(TRUE)");
}

TEST_F(CalcConfirmTest, SetMenuInAnyCaseSwitchesTheMenuOnTheWindow) {
  Line("setmenu(true)");
  const std::string status = Status();
  EXPECT_THAT(status, testing::StartsWith("Syntax: "));
  log.clear();
  Key(CalcKey::kEnter);
  EXPECT_THAT(All(), ElementsAre("view menu on", "view height 221", "view focus line"));
  EXPECT_TRUE(tool->IsMenuAttached());
  EXPECT_EQ(LineNow(), "setmenu(true)");
  EXPECT_EQ(Status(), status);
  Line("SETMENU(FALSE)");
  log.clear();
  Key(CalcKey::kEnter);
  EXPECT_THAT(All(), ElementsAre("view menu off", "view height 221", "view focus line"));
  EXPECT_FALSE(tool->IsMenuAttached());
}

TEST_F(CalcConfirmTest, SetMenuWithAnythingElseIsJustAnExpression) {
  for (const char* text : {" SETMENU(TRUE)", "SETMENU(TRUE) ", "SETMENU(1)"}) Confirm(text);
  EXPECT_FALSE(tool->IsMenuAttached());
}

TEST_F(CalcConfirmTest, InsertConfirmsHandsTheValueOverAndCloses) {
  Line("2*21");
  log.clear();
  EXPECT_TRUE(Key(CalcKey::kInsert));
  EXPECT_THAT(All(), ElementsAre("view result 42", "view row 0 \"2*21\"", "view line \"\"", "view status Empty",
                                 "write E.CALCRESUL=42.0 ok", "view hide", "HostToolClosed(3,1)",
                                 "HostCalcResultAccepted", "view destroy"));
}

TEST_F(CalcConfirmTest, InsertOnAnEmptyLineHandsTheLastValueOver) {
  Confirm("6");
  log.clear();
  Key(CalcKey::kInsert);
  EXPECT_THAT(Asked(), ElementsAre("write E.CALCRESUL=6.0 ok", "HostToolClosed(3,1)", "HostCalcResultAccepted"));
}

TEST_F(CalcConfirmTest, InsertStopsAtALineThatCannotBeConfirmed) {
  for (const char* text : {"1+", "1/0", "  "}) {
    Line(text);
    Key(CalcKey::kInsert);
    EXPECT_THAT(Asked(), IsEmpty()) << text;
    EXPECT_FALSE(view->closing);
  }
}

TEST_F(CalcConfirmTest, WithoutTheVariableInsertStillCloses) {
  cnc.Undefine(u"E.CALCRESUL");
  Line("1");
  Key(CalcKey::kInsert);
  EXPECT_THAT(Asked(), ElementsAre("HostToolClosed(3,1)", "HostCalcResultAccepted"));
}

TEST_F(CalcConfirmTest, AVariableThatCannotBeWrittenIsNoFailure) {
  cnc.Define(u"E.CALCRESUL", rig::VariableType::kDouble, 0.0, true, false);
  Line("1");
  Key(CalcKey::kInsert);
  EXPECT_THAT(Asked(), testing::Contains("HostCalcResultAccepted"));
  EXPECT_TRUE(windows.boxes.empty());
}

}  // namespace
}  // namespace pnl::test
