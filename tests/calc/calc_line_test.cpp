// SPDX-License-Identifier: MIT
// Typing: what reaches the line through the keys' rules, and what each change shows on the status line.
#include "calc_fixture.h"

namespace pnl::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class CalcLineTest : public OpenCalcTest {};

TEST_F(CalcLineTest, EveryKeystrokeShowsTheValue) {
  Type("2");
  EXPECT_EQ(Status(), "Value : 2");
  Type("+");
  EXPECT_EQ(Status(), "Syntax: 2+< >");
  Type("3");
  EXPECT_EQ(Status(), "Value : 5");
  EXPECT_EQ(LineNow(), "2+3");
  EXPECT_EQ(view->selection, (TextSelection{3, 3}));
  EXPECT_EQ(Result(), "0") << "a preview confirms nothing";
}

TEST_F(CalcLineTest, AnEmptyLineSaysSo) {
  Line("1");
  Line("");
  EXPECT_EQ(Status(), "Empty");
}

TEST_F(CalcLineTest, ALineOfBlanksIsNotEmptyButHasNoExpression) {
  Line("  ");
  EXPECT_EQ(Status(), "Syntax:   < >");
}

TEST_F(CalcLineTest, AFailedEvaluationSaysSo) {
  Line("1/0");
  EXPECT_EQ(Status(), "Failed");
}

TEST_F(CalcLineTest, ALexicalFailureIsPartedAtTheCharacter) {
  Line("12#3");
  EXPECT_EQ(Status(), "Syntax: 12< >#3");
}

TEST_F(CalcLineTest, TwoSolversFailAtTheEnd) {
  Line("ZERO X+ZERO X");
  EXPECT_EQ(Status(), "Syntax: ZERO X+ZERO X< >");
}

TEST_F(CalcLineTest, ThePreviewReads199Characters) {
  Line("1+" + std::string(197, '1') + "#");
  EXPECT_THAT(Status(), testing::StartsWith("Value : 1.11111"));
  Line("1+" + std::string(196, '1') + "#");
  EXPECT_THAT(Status(), testing::EndsWith("< >#"));
}

TEST_F(CalcLineTest, APreviewChangesNoVariable) {
  Line("A=5;A+1");
  EXPECT_EQ(Status(), "Value : 6");
  EXPECT_EQ(Variable('A'), 0);
  EXPECT_EQ(SharedCalcStore().Acc, 0);
  Key(CalcKey::kEnter);
  EXPECT_EQ(Variable('A'), 5);
  EXPECT_EQ(SharedCalcStore().Acc, 6);
}

// The keys of operators and functions wrote on beyond the limit of what is typed, and each press took longer than the
// one before it.
TEST_F(CalcLineTest, NoKeyWritesBeyondTheLimit) {
  struct LimitRow {
    int length;
    int command;
    int after;
  };
  const LimitRow rows[] = {
      {254, 1017, 255},  {255, 1017, 255}, {254, 1035, 255},  {255, 1035, 255},  {251, 32784, 254}, {252, 32784, 255},
      {253, 32784, 253}, {255, 1014, 255}, {254, 1015, 255},  {251, 1031, 255},  {252, 1031, 252},  {252, 1033, 255},
      {253, 1033, 253},  {254, 1037, 255}, {255, 1037, 255},  {252, 1016, 255},  {253, 1016, 253},  {255, 32799, 255},
      {255, 1013, 254},  {255, 0, 255},    {253, 32792, 255}, {254, 32792, 254},
  };
  for (const LimitRow& row : rows) {
    SCOPED_TRACE(testing::Message() << row.command << " at " << row.length);
    Line(std::string(static_cast<std::size_t>(row.length), '1'));
    row.command < 32768 ? Button(row.command) : Menu(row.command);
    EXPECT_EQ(LineNow().size(), static_cast<std::size_t>(row.after));
    EXPECT_EQ(view->focus, FakeCalcView::Focus::kEdit);
  }
}

TEST_F(CalcLineTest, AKeyThatFindsNoRoomLeavesLineAndCaretAsTheyAre) {
  Line(std::string(255, '1'));
  Mark(3, 5);
  log.clear();
  Button(1035);
  Type("=");
  EXPECT_THAT(All(), ElementsAre("view focus line", "view focus line"));
  EXPECT_EQ(view->selection, (TextSelection{3, 5}));
  Button(1017);
  EXPECT_EQ(LineNow(), std::string(3, '1') + "7" + std::string(250, '1')) << "what gives way makes room";
}

TEST_F(CalcLineTest, ALineThatIsLongerAlreadyOnlyGetsShorter) {
  Line(std::string(300, '1'));
  Button(1035);
  Button(1014);
  EXPECT_EQ(LineNow().size(), 300u);
  Mark(10, 11);
  Button(1017);
  EXPECT_EQ(LineNow(), std::string(10, '1') + "7" + std::string(289, '1'));
  Line(std::string(300, '1'));
  Button(1013);
  EXPECT_EQ(LineNow().size(), 299u);
}

TEST_F(CalcLineTest, AVariableThatFindsNoRoomIsNotInserted) {
  Confirm("A=5");
  Line(std::string(254, '1'));
  Key(CalcKey::kVariables);
  view->variable = 1;
  PickVariable();
  EXPECT_EQ(LineNow().size(), 254u) << "ACC is three letters";
  Key(CalcKey::kVariables);
  view->variable = 0;
  PickVariable();
  EXPECT_EQ(LineNow(), std::string(254, '1') + "A");
}

TEST_F(CalcLineTest, AHeldOperatorKeyEndsAtTheLimitAndCostsNothingThere) {
  Type(std::string(300, '+'));
  EXPECT_EQ(LineNow(), std::string(255, '+'));
  log.clear();
  Type(std::string(32'768, '+'));
  EXPECT_EQ(LineNow().size(), 255u);
  EXPECT_THAT(log, testing::Each("view focus line")) << "neither the line nor a preview is made anew";
}

TEST_F(CalcLineTest, SqrtWrapsTheSelectionWithTheCaretBehindTheBracket) {
  Line("2+3*4");
  Mark(0, 3);
  Button(1021);
  EXPECT_EQ(LineNow(), "Sqrt(2+3)*4");
  EXPECT_EQ(view->selection, (TextSelection{9, 9}));
  EXPECT_EQ(view->focus, FakeCalcView::Focus::kEdit);
}

TEST_F(CalcLineTest, ADigitReplacesTheSelectionAndPlusWrapsIt) {
  Line("2+3*4");
  Mark(0, 3);
  Button(1017);
  EXPECT_EQ(LineNow(), "7*4");
  Line("2+3*4");
  Mark(0, 3);
  Button(1035);
  EXPECT_EQ(LineNow(), "(2+3)+*4");
}

TEST_F(CalcLineTest, ATypedOperatorWrapsTheSelectionToo) {
  Line("2+3*4");
  Mark(0, 3);
  EXPECT_TRUE(Character(u'!'));
  EXPECT_EQ(LineNow(), "(2+3)!*4");
}

TEST_F(CalcLineTest, TypedBracketsAreOrdinaryCharacters) {
  Line("2");
  Mark(0, 1);
  EXPECT_FALSE(Character(u'('));
  EXPECT_FALSE(Character(u')'));
  EXPECT_FALSE(Character(u'7'));
  EXPECT_FALSE(Character(u'.'));
  EXPECT_FALSE(Character(u' '));
}

TEST_F(CalcLineTest, AccAtTheEndPutsTheCaretAtTheEnd) {
  Line("1+");
  Button(calc_id::kAcc);
  EXPECT_EQ(LineNow(), "1+Acc");
  EXPECT_EQ(view->selection, (TextSelection{5, 5}));
}

TEST_F(CalcLineTest, AccInTheMiddlePutsTheCaretFurtherThanItself) {
  Line("1+2*3");
  Mark(2, 2);
  Button(calc_id::kAcc);
  EXPECT_EQ(LineNow(), "1+Acc2*3");
  EXPECT_EQ(view->selection, (TextSelection{8, 8}));
}

TEST_F(CalcLineTest, ReciprocalAndSignComeAndGo) {
  Line("5");
  Button(calc_id::kReciprocal);
  EXPECT_EQ(LineNow(), "1/(5)");
  Button(calc_id::kReciprocal);
  EXPECT_EQ(LineNow(), "5");
  Button(calc_id::kSign);
  EXPECT_EQ(LineNow(), "-(5)");
  EXPECT_EQ(view->selection, (TextSelection{4, 4}));
  Button(calc_id::kSign);
  EXPECT_EQ(LineNow(), "5");
}

TEST_F(CalcLineTest, BackAtTheStartKeepsTheTextAndTheFocus) {
  Line("12");
  Mark(0, 0);
  log.clear();
  Button(calc_id::kBack);
  EXPECT_THAT(All(), ElementsAre("view line \"12\"", "view focus line", "view caret 0"));
}

TEST_F(CalcLineTest, TheConfirmingKeyDoesNotRewriteTheLineAndBringsTheFocusBack) {
  Line("1+");
  log.clear();
  Button(calc_id::kConfirm);
  EXPECT_THAT(All(), ElementsAre("view focus line"));
}

TEST_F(CalcLineTest, ASelectionIsPreviewedAtTheNextTick) {
  Line("2+3*4");
  Mark(0, 3);
  log.clear();
  Tick();
  EXPECT_THAT(All(), ElementsAre("view status Sel Value : 5"));
  Tick();
  EXPECT_THAT(All(), IsEmpty()) << "the same selection again";
  Mark(2, 5);
  Tick();
  EXPECT_EQ(Status(), "Sel Value : 12");
  Mark(1, 3);
  Tick();
  EXPECT_EQ(Status(), "Sel Syntax: < >+3");
  Mark(5, 5);
  Tick();
  EXPECT_EQ(Status(), "Value : 14");
}

TEST_F(CalcLineTest, ASelectionIsPreviewedEvery250MillisecondsAndNotBefore) {
  Line("2+3*4");
  Tick();
  Mark(0, 3);
  log.clear();
  timers.Advance(249);
  EXPECT_THAT(All(), IsEmpty());
  timers.Advance(1);
  EXPECT_THAT(All(), ElementsAre("view status Sel Value : 5"));
  Mark(2, 5);
  timers.Advance(249);
  EXPECT_THAT(All(), IsEmpty());
  timers.Advance(1);
  EXPECT_THAT(All(), ElementsAre("view status Sel Value : 12"));
}

TEST_F(CalcLineTest, ASelectionThatFailsSaysSo) {
  Line("1/0+2");
  Mark(0, 3);
  Tick();
  EXPECT_EQ(Status(), "Sel Failed");
}

TEST_F(CalcLineTest, TheTextOfTheSelectionCountsNotItsPlace) {
  Line("22");
  Mark(0, 1);
  Tick();
  log.clear();
  Mark(1, 2);
  Tick();
  EXPECT_THAT(log, IsEmpty());
}

TEST_F(CalcLineTest, ATickWithoutSelectionLeavesTheStatusAlone) {
  Line("1/0");
  Key(CalcKey::kEnter);
  EXPECT_EQ(Status(), "Failed: (1/0)");
  Tick();
  EXPECT_EQ(Status(), "Failed: (1/0)");
}

TEST_F(CalcLineTest, ASelectionIsCutToThe199CharactersOfAPreview) {
  Line(std::string(198, '1') + "+5");
  Mark(198, 200);
  Tick();
  EXPECT_EQ(Status(), "Sel Syntax: < >+") << "the 5 is beyond";
  Line(std::string(199, '1') + "+5");
  Mark(199, 201);
  Tick();
  EXPECT_THAT(Status(), testing::StartsWith("Value : 1.11")) << "none is left";
}

TEST_F(CalcLineTest, ALineEndsAtANul) {
  view->Replace(Text(u"1+1\0#", 5));
  EXPECT_EQ(Status(), "Value : 2");
  Key(CalcKey::kEnter);
  EXPECT_THAT(Rows(), ElementsAre("1+1"));
}

TEST_F(CalcLineTest, AValueFromOutsideReplacesTheLine) {
  cnc.Set(u"E.CALCRESUL", 2.5);
  Line("17");
  log.clear();
  HandleValue();
  EXPECT_THAT(All(), ElementsAre("view line \"2.5\"", "view status Value : 2.5", "view caret 3"));
}

TEST_F(CalcLineTest, NoValueFromOutsideLeavesTheLine) {
  Line("17");
  log.clear();
  HandleValue();
  cnc.Define(u"E.CALCRESUL", rig::VariableType::kDouble, 3.0, false, true);
  HandleValue();
  cnc.Undefine(u"E.CALCRESUL");
  HandleValue();
  EXPECT_THAT(All(), IsEmpty());
  EXPECT_EQ(LineNow(), "17");
}

TEST_F(CalcLineTest, AValueThatIsNoNumberIsHarmless) {
  cnc.Set(u"E.CALCRESUL", std::nan(""));
  HandleValue();
  EXPECT_EQ(LineNow(), "nan");
}

}  // namespace
}  // namespace pnl::test
