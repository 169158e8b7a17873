// SPDX-License-Identifier: MIT
// Evaluations that take long: they run in pieces, give way to the next key, can be cancelled, and are never seen
// half-way.
#include "calc/calc_format.h"
#include "calc/expr/evaluator.h"
#include "calc_fixture.h"

namespace pnl::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// Some five million steps.
constexpr const char* kLong = "INTEGRAL(X^2*SIN(X)+X^3/2)";
/// The same with an assignment before it and one behind.
constexpr const char* kLongAssigning = "A=0;C=7;D=INTEGRAL(X^2*SIN(X)+X^3/2);C=8";

class CalcLongTest : public OpenCalcTest {
 protected:
  CalcLongTest() {
    Confirm("B=1;N=1000000");
    log.clear();
  }
};

TEST_F(CalcLongTest, APreviewThatTakesLongSaysSoAndEndsWithItsValue) {
  Line(kLong);
  EXPECT_THAT(All(), ElementsAre("view working", "view status Computing"));
  EXPECT_TRUE(tool->IsComputing());
  EXPECT_GT(WorkToTheEnd(), 1);
  EXPECT_THAT(All(), ElementsAre("view idle", testing::StartsWith("view status Value : ")));
  EXPECT_EQ(Variable('X'), 0);
}

TEST_F(CalcLongTest, ThePiecesComeToTheSameValueAsTheWhole) {
  Line(kLong);
  WorkToTheEnd();
  const std::string inPieces = Status();
  CScaner scanner;
  CParser parser;
  CalcStore store = SharedCalcStore();
  CEvaluator evaluator(scanner, parser, store);
  const char16_t* place = nullptr;
  ASSERT_EQ(evaluator.Compile(FromUtf8(kLong).c_str(), place), 1);
  double value = 0;
  ASSERT_EQ(evaluator.Evaluate(value), 1);
  EXPECT_EQ(inPieces, "Value : " + ToUtf8(FormatResult(value, number_base::kDecimal)));
}

TEST_F(CalcLongTest, TheNextKeyDropsThePreview) {
  Line(kLong);
  log.clear();
  Line("2");
  EXPECT_THAT(All(), ElementsAre("view idle", "view status Value : 2"));
  EXPECT_FALSE(tool->IsComputing());
  Work();
  EXPECT_THAT(All(), IsEmpty());
}

TEST_F(CalcLongTest, ANewSelectionDropsThePreview) {
  Line(std::string(kLong) + "+1");
  Mark(27, 28);
  log.clear();
  Tick();
  EXPECT_EQ(Status(), "Sel Value : 1");
  EXPECT_FALSE(tool->IsComputing());
  Mark(0, 26);
  Tick();
  EXPECT_EQ(Status(), "Computing");
  WorkToTheEnd();
  EXPECT_THAT(Status(), testing::StartsWith("Sel Value : "));
}

TEST_F(CalcLongTest, ASelectionMadeWhileAnExpressionIsConfirmedIsPreviewedAfterIt) {
  Line(std::string(kLong) + "+1");
  Key(CalcKey::kEnter);
  ASSERT_TRUE(tool->IsComputing());
  Mark(27, 28);
  log.clear();
  Tick();
  EXPECT_THAT(log, Not(testing::Contains(testing::HasSubstr("Sel"))));
  WorkToTheEnd();
  Line("1");
  Mark(0, 1);
  Tick();
  EXPECT_EQ(Status(), "Sel Value : 1");
}

TEST_F(CalcLongTest, EscapeAsksToCloseWhileAPreviewRuns) {
  Line(kLong);
  log.clear();
  Key(CalcKey::kEscape);
  EXPECT_THAT(All(), ElementsAre("HostToolWantsClose(3)"));
  EXPECT_TRUE(tool->IsComputing());
}

TEST_F(CalcLongTest, AConfirmationThatTakesLongSaysSoAndEndsAsAShortOne) {
  Line(kLong);
  log.clear();
  Key(CalcKey::kEnter);
  EXPECT_THAT(All(), ElementsAre("view idle", "view working", "view status Confirming", "view focus line"));
  EXPECT_THAT(Rows(), ElementsAre("B=1;N=1000000"));
  WorkToTheEnd();
  const Log ended = All();
  ASSERT_EQ(ended.size(), 5u);
  EXPECT_EQ(ended[0], "view idle");
  EXPECT_THAT(ended[1], testing::StartsWith("view result 0."));
  EXPECT_THAT(ended[2], testing::StartsWith("view row 0 \"INTEGRAL"));
  EXPECT_EQ(ended[3], "view line \"\"");
  EXPECT_EQ(ended[4], "view status Empty");
  EXPECT_EQ(SharedCalcStore().Acc, tool->Value());
}

TEST_F(CalcLongTest, NobodySeesTheVariablesHalfWay) {
  Confirm("C=1");
  Confirm(kLongAssigning);
  ASSERT_TRUE(tool->IsComputing());
  while (tool->IsComputing()) {
    EXPECT_EQ(Variable('C'), 1);
    EXPECT_EQ(Variable('X'), 0);
    Work();
  }
  EXPECT_EQ(Variable('C'), 8);
}

TEST_F(CalcLongTest, EscapeCancelsAConfirmationAndLeavesTheVariables) {
  const CalcStore before = SharedCalcStore();
  Confirm(kLongAssigning);
  Work();
  log.clear();
  EXPECT_TRUE(Key(CalcKey::kEscape));
  EXPECT_THAT(All(), ElementsAre("view idle", "view working", "view status Computing"));
  EXPECT_EQ(SharedCalcStore().Variables, before.Variables);
  EXPECT_EQ(SharedCalcStore().Acc, before.Acc);
  EXPECT_EQ(LineNow(), kLongAssigning);
  WorkToTheEnd();
  EXPECT_THAT(Status(), testing::StartsWith("Value : ")) << "the preview goes on";
  EXPECT_EQ(SharedCalcStore().Variables, before.Variables);
}

TEST_F(CalcLongTest, WhileItConfirmsNothingElseChangesLineListOrVariables) {
  Confirm(kLong);
  log.clear();
  EXPECT_TRUE(Character(u'+'));
  EXPECT_TRUE(Character(u'7'));
  for (const CalcKey key :
       {CalcKey::kEnter, CalcKey::kInsert, CalcKey::kDelete, CalcKey::kUp, CalcKey::kDown, CalcKey::kVariables}) {
    EXPECT_TRUE(Key(key));
  }
  for (const int id : {1012, 1013, 1017, 1031, 1036, 1037, 1102}) Button(id);
  Menu(32784);
  cnc.Set(u"E.CALCRESUL", 5.0);
  HandleValue();
  PressLine();
  SelectInList();
  DoubleClickList();
  PickVariable();
  Mark(0, 4);
  Tick();
  EXPECT_THAT(All(), IsEmpty());
  EXPECT_EQ(Status(), "Confirming");
  EXPECT_EQ(LineNow(), kLong);
}

TEST_F(CalcLongTest, AListThatIsOpenStaysOpenWhileItConfirms) {
  Line(kLong);
  Key(CalcKey::kUp);
  Key(CalcKey::kInsert);
  ASSERT_TRUE(tool->IsComputing());
  PressLine();
  EXPECT_TRUE(tool->IsListOpen());
  Key(CalcKey::kEscape);
  Key(CalcKey::kEscape);
  ASSERT_FALSE(tool->IsListOpen());
  Button(calc_id::kShowVariables);
  Key(CalcKey::kInsert);
  ASSERT_TRUE(tool->IsComputing());
  view->variable = 0;
  PickVariable();
  EXPECT_TRUE(view->Shows(calc_id::kVariables));
  EXPECT_EQ(LineNow(), kLong);
}

TEST_F(CalcLongTest, AConfirmationTakesThePlaceOfAPreviewThatStillRuns) {
  const std::string text = std::string("N=1;") + kLong;
  Line(text);
  Mark(4, static_cast<int>(text.size()));
  Tick();
  ASSERT_EQ(Status(), "Computing");
  Key(CalcKey::kEnter);
  EXPECT_FALSE(tool->IsComputing());
  EXPECT_FALSE(view->working) << "the window would call for ever";
  EXPECT_EQ(LineNow(), "");
}

TEST_F(CalcLongTest, ALineThatIsTheSameStillKeepsItsCaretWhileItConfirms) {
  Confirm(kLong);
  Mark(3, 3);
  log.clear();
  LineChanged();
  EXPECT_THAT(All(), IsEmpty());
  EXPECT_EQ(view->selection, (TextSelection{3, 3}));
}

TEST_F(CalcLongTest, TheLineIsPutBackWhenSomethingGetsPastTheKeys) {
  Confirm(kLong);
  view->Replace(u"12");
  EXPECT_EQ(LineNow(), kLong);
  EXPECT_EQ(Status(), "Confirming");
  WorkToTheEnd();
  EXPECT_EQ(Rows().front(), kLong);
}

TEST_F(CalcLongTest, WhileItConfirmsTheWindowStillMovesAndTheUnitsStillChange) {
  Confirm(kLong);
  log.clear();
  EXPECT_TRUE(Key(CalcKey::kEnter, true));
  EXPECT_FALSE(Key(CalcKey::kLeft));
  Menu(calc_id::kMenuBase);
  Menu(calc_id::kMenuAngle);
  Menu(calc_id::kMenuCompact);
  EXPECT_TRUE(Key(CalcKey::kAltF4));
  EXPECT_THAT(All(),
              ElementsAre("view move 0,0", testing::StartsWith("view result B"), "HostUpdateSideMenu(3)",
                          "HostUpdateSideMenu(3)", "HostUpdateMainMenu(3)", "view height 87", "view close panel"));
  EXPECT_TRUE(tool->IsComputing());
  WorkToTheEnd();
  EXPECT_THAT(Result(), testing::StartsWith("B")) << "in the base that holds at its end";
}

TEST_F(CalcLongTest, InsertHandsTheValueOverOnceItIsThere) {
  Line(kLong);
  log.clear();
  Key(CalcKey::kInsert);
  EXPECT_THAT(Asked(), IsEmpty());
  WorkToTheEnd();
  EXPECT_THAT(Asked(), ElementsAre(testing::StartsWith("write E.CALCRESUL=0."), "HostToolClosed(3,1)",
                                   "HostCalcResultAccepted"));
}

TEST_F(CalcLongTest, InsertThatWasCancelledHandsNothingOver) {
  Line(kLong);
  Key(CalcKey::kInsert);
  Key(CalcKey::kEscape);
  WorkToTheEnd();
  EXPECT_THAT(Asked(), IsEmpty());
  EXPECT_FALSE(view->closing);
}

TEST_F(CalcLongTest, AConfirmationThatFailsAfterAWhileKeepsItsAssignments) {
  Confirm("A=0;C=7;INTEGRAL(X^2*SIN(X)+X^3/2);1/0");
  ASSERT_TRUE(tool->IsComputing());
  WorkToTheEnd();
  EXPECT_THAT(Status(), testing::StartsWith("Failed: "));
  EXPECT_EQ(Variable('C'), 7);
  EXPECT_EQ(LineNow(), "A=0;C=7;INTEGRAL(X^2*SIN(X)+X^3/2);1/0");
}

TEST_F(CalcLongTest, ClosingDropsWhateverRuns) {
  const CalcStore before = SharedCalcStore();
  Confirm(kLongAssigning);
  Command(34);
  EXPECT_FALSE(tool->IsComputing());
  EXPECT_EQ(SharedCalcStore().Variables, before.Variables);
  DestroyTool();
  MakeTool();
  Open();
  Line(kLong);
  DestroyTool();
  EXPECT_EQ(SharedCalcStore().Variables, before.Variables);
}

TEST_F(CalcLongTest, TwoToolsDoNotUndoEachOthersVariables) {
  Confirm(kLongAssigning);
  FakeCalcView otherView(log, windows);
  const auto other = std::make_shared<CalcSession>(context, otherView, 0);
  otherView.onLineChanged = [&] { RunOperation(other, [](CalcSession& session) { session.OnLineChanged(); }); };
  RunOperation(other, [](CalcSession& session) { session.Open(); });
  otherView.Replace(u"E=3");
  RunOperation(other, [](CalcSession& session) { session.OnKey(CalcKey::kEnter, false); });
  WorkToTheEnd();
  EXPECT_EQ(Variable('E'), 3);
  EXPECT_EQ(Variable('C'), 8);
}

// What a key press may cost at most: the first pieces, whatever is on the line.
TEST_F(CalcLongTest, WhateverIsOnTheLineAKeyOnlyStartsIt) {
  Confirm("A=1;N=1000000000;E=0");
  for (const char* line : {"2000000000!", "INTEGRAL(X!)", "INTEGRAL(2000000000!)", "ZERO(X^2+1)", "ZERO(170!*X)",
                           "INTEGRAL(SQRT(X)+LN(X+1)+SIN X+COS X+TAN X)"}) {
    Line(line);
    Key(CalcKey::kEnter);
    Key(CalcKey::kEscape);
    Line("");
    EXPECT_FALSE(tool->IsComputing()) << line;
    EXPECT_EQ(Status(), "Empty");
  }
}

}  // namespace
}  // namespace pnl::test
