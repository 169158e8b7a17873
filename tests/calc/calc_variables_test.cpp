// SPDX-License-Identifier: MIT
// The list of variables over the keypad, and that only one list is open at a time.
#include "calc_fixture.h"

namespace pnl::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class CalcVariablesTest : public OpenCalcTest {
 protected:
  [[nodiscard]] std::vector<std::string> Variables() const {
    std::vector<std::string> all;
    for (const Text& row : view->variables) all.push_back(ToUtf8(row));
    return all;
  }
  [[nodiscard]] bool IsOpen() const {
    return view->shown.count(calc_id::kVariables) != 0 && view->Shows(calc_id::kVariables);
  }
};

TEST_F(CalcVariablesTest, ShowsWhatIsNotZeroAndTheAccumulator) {
  Confirm("A=5;C=-2;Z=0.25;B=0");
  EXPECT_TRUE(Key(CalcKey::kVariables));
  EXPECT_THAT(Variables(), ElementsAre("A = 5", "C = -2", "Z = 0.25"));
  EXPECT_EQ(view->focus, FakeCalcView::Focus::kVariables);
  Key(CalcKey::kEscape);
  Confirm("12");
  Button(calc_id::kShowVariables);
  EXPECT_THAT(Variables(), ElementsAre("A = 5", "C = -2", "Z = 0.25", "ACC = 12"));
}

TEST_F(CalcVariablesTest, SaysWhenThereAreNoneAndThatRowInsertsNothing) {
  Line("1+");
  Button(calc_id::kShowVariables);
  EXPECT_THAT(Variables(), ElementsAre("None"));
  view->variable = 0;
  Key(CalcKey::kEnter);
  EXPECT_EQ(LineNow(), "1+");
  EXPECT_FALSE(IsOpen());
}

TEST_F(CalcVariablesTest, EnterWritesTheNameAtTheCaret) {
  Confirm("A=5;C=2");
  Line("1+*3");
  Mark(2, 2);
  Key(CalcKey::kVariables);
  view->variable = 1;
  EXPECT_TRUE(Key(CalcKey::kEnter));
  EXPECT_EQ(LineNow(), "1+C*3");
  EXPECT_EQ(view->selection, (TextSelection{3, 3}));
  EXPECT_EQ(view->focus, FakeCalcView::Focus::kEdit);
  EXPECT_FALSE(IsOpen());
  EXPECT_EQ(Status(), "Value : 7");
}

TEST_F(CalcVariablesTest, EnterTakesTheFirstRowToo) {
  Confirm("A=5;C=2");
  Button(calc_id::kShowVariables);
  view->variable = 0;
  Key(CalcKey::kEnter);
  EXPECT_EQ(LineNow(), "A");
}

TEST_F(CalcVariablesTest, ATapWritesTheNameInThePlaceOfTheSelection) {
  Confirm("7");
  Line("1+2");
  Mark(2, 3);
  Button(calc_id::kShowVariables);
  view->variable = 0;
  PickVariable();
  EXPECT_EQ(LineNow(), "1+ACC");
  EXPECT_EQ(Status(), "Value : 8");
}

TEST_F(CalcVariablesTest, LiesWhereTheHistoryLiesAndHidesTheKeypad) {
  Button(calc_id::kShowVariables);
  EXPECT_EQ(view->rects[calc_id::kVariables], (Rect{3, 83, 279, 221}));
  EXPECT_FALSE(view->Shows(calc_id::kFirstKey));
  EXPECT_FALSE(tool->IsListOpen()) << "the history isn't";
  EXPECT_TRUE(Key(CalcKey::kEscape));
  EXPECT_TRUE(view->Shows(calc_id::kFirstKey));
  EXPECT_FALSE(IsOpen());
  EXPECT_THAT(Asked(), IsEmpty()) << "the host was not asked to close";
}

TEST_F(CalcVariablesTest, TheKeyClosesItAgain) {
  Button(calc_id::kShowVariables);
  Button(calc_id::kShowVariables);
  EXPECT_FALSE(IsOpen());
}

TEST_F(CalcVariablesTest, EnterWithoutSelectionJustClosesIt) {
  Confirm("A=5");
  Line("1");
  Button(calc_id::kShowVariables);
  PickVariable();
  EXPECT_TRUE(IsOpen());
  Key(CalcKey::kEnter);
  EXPECT_FALSE(IsOpen());
  EXPECT_EQ(LineNow(), "1");
}

TEST_F(CalcVariablesTest, OnlyOneListIsOpen) {
  Confirm("A=5");
  Line("abc");
  Key(CalcKey::kUp);
  Pick({0});
  EXPECT_EQ(LineNow(), "A=5");
  Key(CalcKey::kVariables);
  EXPECT_TRUE(IsOpen());
  EXPECT_FALSE(tool->IsListOpen());
  EXPECT_EQ(LineNow(), "abc") << "the history closed as by its button";
  EXPECT_FALSE(view->Shows(calc_id::kFirstKey));
  Button(calc_id::kOpenList);
  EXPECT_FALSE(IsOpen());
  EXPECT_TRUE(tool->IsListOpen());
  EXPECT_FALSE(view->Shows(calc_id::kFirstKey));
}

TEST_F(CalcVariablesTest, ArrowsAndDeleteAreTheListsOwn) {
  Button(calc_id::kShowVariables);
  for (const CalcKey key : {CalcKey::kUp, CalcKey::kDown, CalcKey::kDelete}) EXPECT_FALSE(Key(key));
  EXPECT_FALSE(Character(u'+'));
  EXPECT_TRUE(IsOpen());
}

TEST_F(CalcVariablesTest, WritingAndConfirmingCloseIt) {
  Line("1");
  Button(calc_id::kShowVariables);
  Menu(32784);
  EXPECT_FALSE(IsOpen());
  EXPECT_EQ(LineNow(), "1Sin");
  Line("1");
  Button(calc_id::kShowVariables);
  Button(calc_id::kConfirm);
  EXPECT_FALSE(IsOpen());
  Button(calc_id::kShowVariables);
  PressLine();
  EXPECT_FALSE(IsOpen());
}

TEST_F(CalcVariablesTest, CompactingClosesItAndOpensItOverTheResultNextTime) {
  Button(calc_id::kShowVariables);
  Menu(calc_id::kMenuCompact);
  EXPECT_FALSE(IsOpen());
  Button(calc_id::kShowVariables);
  EXPECT_FALSE(view->Shows(calc_id::kResult));
  Key(CalcKey::kEscape);
  EXPECT_TRUE(view->Shows(calc_id::kResult));
}

TEST_F(CalcVariablesTest, PickingInAClosedListIsNothing) {
  Confirm("A=5");
  view->variable = 0;
  PickVariable();
  EXPECT_EQ(LineNow(), "");
}

}  // namespace
}  // namespace pnl::test
