// SPDX-License-Identifier: MIT
// The history list: opening, walking, closing in each way, deleting.
#include "calc_fixture.h"

namespace pnl::test {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;

class CalcListTest : public CalcTest {
 protected:
  CalcListTest() {
    files.disc["C:\\P1\\calc.htr"] = "1+1\r\n2+2\r\n3+3\r\n";
    Open();
    Line("abc");
    log.clear();
  }
  /// What the operator sees of the keypad and the list.
  void ExpectShown(bool list) {
    EXPECT_EQ(tool->IsListOpen(), list);
    EXPECT_EQ(view->Shows(calc_id::kHistory) && view->shown.count(calc_id::kHistory) != 0, list);
    for (int key = 1013; key <= 1036; ++key) EXPECT_EQ(view->Shows(key), !list) << key;
    EXPECT_TRUE(view->Shows(calc_id::kAssign));
    EXPECT_TRUE(view->Shows(calc_id::kOpenList));
  }
};

TEST_F(CalcListTest, TheButtonAndBothArrowsOpenIt) {
  Button(calc_id::kOpenList);
  ExpectShown(true);
  Key(CalcKey::kEscape);
  for (const CalcKey key : {CalcKey::kUp, CalcKey::kDown}) {
    EXPECT_TRUE(Key(key));
    ExpectShown(true);
    EXPECT_EQ(view->focus, FakeCalcView::Focus::kList);
    Key(CalcKey::kEscape);
  }
}

TEST_F(CalcListTest, OpenItLiesOverTheKeypadDownToTheBottom) {
  Key(CalcKey::kUp);
  EXPECT_EQ(view->rects[calc_id::kHistory], (Rect{3, 83, 279, 221}));
  EXPECT_TRUE(view->Shows(calc_id::kResult));
}

TEST_F(CalcListTest, InCompactSizeItTakesThePlaceOfTheResult) {
  Menu(calc_id::kMenuCompact);
  Key(CalcKey::kUp);
  EXPECT_EQ(view->rects[calc_id::kHistory], (Rect{3, 0, 279, 36}));
  EXPECT_FALSE(view->Shows(calc_id::kResult));
  Key(CalcKey::kEscape);
  EXPECT_TRUE(view->Shows(calc_id::kResult));
  ExpectShown(false);
}

TEST_F(CalcListTest, WalkingCopiesTheRowIntoTheLine) {
  Key(CalcKey::kUp);
  EXPECT_FALSE(Key(CalcKey::kDown)) << "the list itself moves";
  Pick({1});
  EXPECT_EQ(LineNow(), "2+2");
  EXPECT_EQ(Status(), "Value : 4");
}

// Up at the first row and Down at the last one copied nothing, because the selection stays what it was.
TEST_F(CalcListTest, UpAtTheFirstRowAndDownAtTheLastCopyItAgain) {
  Key(CalcKey::kUp);
  Pick({0});
  Line("changed");
  EXPECT_FALSE(Key(CalcKey::kUp));
  EXPECT_EQ(LineNow(), "1+1");
  Pick({2});
  Line("changed");
  EXPECT_FALSE(Key(CalcKey::kDown));
  EXPECT_EQ(LineNow(), "3+3");
}

TEST_F(CalcListTest, ATapOnTheRowThatIsSelectedCopiesItAgain) {
  Key(CalcKey::kUp);
  Pick({1});
  Menu(32784);
  EXPECT_EQ(LineNow(), "Sin2+2") << "the caret is at the start of a copied row";
  Pick({1});
  EXPECT_EQ(LineNow(), "2+2");
}

TEST_F(CalcListTest, AListOpenedAgainKeepsItsSelectionAndCopiesIt) {
  Key(CalcKey::kUp);
  Pick({0});
  Key(CalcKey::kEscape);
  EXPECT_EQ(LineNow(), "abc");
  Key(CalcKey::kUp);
  EXPECT_EQ(LineNow(), "abc") << "opening copies nothing";
  EXPECT_FALSE(Key(CalcKey::kUp));
  EXPECT_EQ(LineNow(), "1+1");
}

TEST_F(CalcListTest, TheOnlyRowIsCopiedByEachArrow) {
  view->FillList({u"5+5"});
  for (const CalcKey key : {CalcKey::kUp, CalcKey::kDown, CalcKey::kUp}) {
    Key(CalcKey::kUp);
    EXPECT_FALSE(Key(key));
    EXPECT_EQ(LineNow(), "5+5");
    Key(CalcKey::kEscape);
    EXPECT_EQ(LineNow(), "abc");
  }
}

// The row that came into the place of a deleted one was passed over, and the only one left couldn't be reached.
TEST_F(CalcListTest, AfterDeletingTheNextArrowSelectsTheRowThatTookThePlace) {
  struct WalkRow {
    int deleted;
    CalcKey key;
    const char* line;
    int selected;
  };
  const WalkRow rows[] = {{0, CalcKey::kDown, "2+2", 0}, {0, CalcKey::kUp, "2+2", 0},   {1, CalcKey::kDown, "3+3", 1},
                          {1, CalcKey::kUp, "3+3", 1},   {2, CalcKey::kDown, "2+2", 1}, {2, CalcKey::kUp, "2+2", 1}};
  for (const WalkRow& row : rows) {
    SCOPED_TRACE(testing::Message() << "row " << row.deleted);
    view->FillList({u"1+1", u"2+2", u"3+3"});
    Key(CalcKey::kUp);
    Pick({row.deleted});
    Key(CalcKey::kDelete);
    EXPECT_TRUE(Key(row.key));
    EXPECT_EQ(LineNow(), row.line);
    EXPECT_THAT(view->selectedRows, ElementsAre(row.selected));
    Key(CalcKey::kEscape);
  }
}

TEST_F(CalcListTest, AfterDeletingAllButOneTheLastOneCanBeReached) {
  Key(CalcKey::kUp);
  Pick({0, 1});
  Key(CalcKey::kDelete);
  Key(CalcKey::kDown);
  EXPECT_EQ(LineNow(), "3+3");
  Key(CalcKey::kDelete);
  EXPECT_THAT(Rows(), IsEmpty());
  EXPECT_FALSE(Key(CalcKey::kDown));
  EXPECT_EQ(LineNow(), "3+3") << "there is nothing to copy any more";
}

TEST_F(CalcListTest, WithSomethingSelectedTheListMovesItself) {
  Key(CalcKey::kUp);
  Pick({0, 1});
  log.clear();
  EXPECT_FALSE(Key(CalcKey::kDown));
  EXPECT_THAT(All(), testing::Not(Contains(testing::HasSubstr("select row"))));
}

TEST_F(CalcListTest, OfSeveralRowsTheOneUnderTheKeysCounts) {
  Key(CalcKey::kUp);
  Pick({0, 1, 2});
  EXPECT_EQ(LineNow(), "3+3");
  view->currentRow = -1;
  SelectInList();
  EXPECT_EQ(LineNow(), "1+1");
}

TEST_F(CalcListTest, EnterClosesItWithTheRow) {
  Key(CalcKey::kUp);
  Pick({1});
  log.clear();
  EXPECT_TRUE(Key(CalcKey::kEnter));
  EXPECT_EQ(LineNow(), "2+2");
  EXPECT_EQ(view->selection, (TextSelection{3, 3}));
  EXPECT_EQ(view->focus, FakeCalcView::Focus::kEdit);
  ExpectShown(false);
  EXPECT_THAT(Rows(), ElementsAre("1+1", "2+2", "3+3")) << "nothing was confirmed";
}

TEST_F(CalcListTest, ClosingItTakesTheFocusToTheLineWhereverItWas) {
  for (const bool bySoftKey : {false, true}) {
    Key(CalcKey::kUp);
    view->focus = FakeCalcView::Focus::kElsewhere;
    bySoftKey ? Menu(calc_id::kMenuCompact) : Button(calc_id::kOpenList);
    EXPECT_EQ(view->focus, FakeCalcView::Focus::kEdit);
  }
}

TEST_F(CalcListTest, ADoubleClickAndAClickOnTheLineCloseItWithTheRowToo) {
  Key(CalcKey::kUp);
  Pick({2});
  DoubleClickList();
  EXPECT_EQ(LineNow(), "3+3");
  ExpectShown(false);
  Key(CalcKey::kUp);
  Pick({0});
  PressLine();
  EXPECT_EQ(LineNow(), "1+1");
  ExpectShown(false);
}

TEST_F(CalcListTest, WithoutSelectionTheLineKeepsItsText) {
  Key(CalcKey::kUp);
  Key(CalcKey::kEnter);
  EXPECT_EQ(LineNow(), "abc");
  EXPECT_EQ(view->selection, (TextSelection{3, 3}));
}

TEST_F(CalcListTest, AnEmptyListKeepsTheLinesText) {
  view->rows.clear();
  Key(CalcKey::kUp);
  Key(CalcKey::kEnter);
  EXPECT_EQ(LineNow(), "abc");
}

TEST_F(CalcListTest, EscapeAndTheButtonGiveTheLineBack) {
  Key(CalcKey::kUp);
  Pick({1});
  EXPECT_TRUE(Key(CalcKey::kEscape));
  EXPECT_EQ(LineNow(), "abc");
  EXPECT_EQ(view->selection, (TextSelection{3, 3}));
  ExpectShown(false);
  EXPECT_THAT(Asked(), IsEmpty()) << "the host was not asked to close";
  Button(calc_id::kOpenList);
  Pick({0});
  Button(calc_id::kOpenList);
  EXPECT_EQ(LineNow(), "abc");
  ExpectShown(false);
}

TEST_F(CalcListTest, DeleteTakesTheSelectedRowsFromTheLastToTheFirst) {
  Key(CalcKey::kUp);
  Pick({0, 2});
  log.clear();
  EXPECT_TRUE(Key(CalcKey::kDelete));
  EXPECT_THAT(All(), ElementsAre("view delete row 2", "view delete row 0"));
  EXPECT_THAT(Rows(), ElementsAre("2+2"));
  EXPECT_TRUE(Key(CalcKey::kDelete)) << "nothing is selected now";
  EXPECT_THAT(Rows(), ElementsAre("2+2"));
}

TEST_F(CalcListTest, DeletingAllRowsAndClosingLeavesTheOldFile) {
  Key(CalcKey::kUp);
  Pick({0, 1, 2});
  Key(CalcKey::kDelete);
  EXPECT_THAT(Rows(), IsEmpty());
  Command(34);
  DestroyTool();
  EXPECT_EQ(files.disc["C:\\P1\\calc.htr"], "1+1\r\n2+2\r\n3+3\r\n");
}

TEST_F(CalcListTest, WithTheListOpenCharactersAreNotTaken) {
  Key(CalcKey::kUp);
  EXPECT_FALSE(Character(u'+'));
  EXPECT_EQ(LineNow(), "abc");
}

TEST_F(CalcListTest, ACommandThatWritesStillWritesAndEscapeTakesItBack) {
  Key(CalcKey::kUp);
  Menu(32784);
  EXPECT_EQ(LineNow(), "abcSin");
  EXPECT_TRUE(tool->IsListOpen());
  Key(CalcKey::kEscape);
  EXPECT_EQ(LineNow(), "abc");
}

TEST_F(CalcListTest, InsertWithTheListOpenHandsTheRowOver) {
  Key(CalcKey::kUp);
  Pick({1});
  Key(CalcKey::kInsert);
  EXPECT_THAT(Asked(), ElementsAre("write E.CALCRESUL=4.0 ok", "HostToolClosed(3,1)", "HostCalcResultAccepted"));
}

TEST_F(CalcListTest, SelectionsOfAClosedListAreNobodysBusiness) {
  view->selectedRows = {1};
  SelectInList();
  DoubleClickList();
  PressLine();
  EXPECT_EQ(LineNow(), "abc");
  EXPECT_THAT(All(), IsEmpty());
}

TEST_F(CalcListTest, TheMenuCanBeSwitchedFromARowOfTheList) {
  view->rows = {u"SETMENU(TRUE)"};
  Key(CalcKey::kUp);
  Pick({0});
  Key(CalcKey::kEnter);
  EXPECT_TRUE(tool->IsMenuAttached());
  EXPECT_FALSE(tool->IsListOpen());
  EXPECT_EQ(LineNow(), "SETMENU(TRUE)");
}

}  // namespace
}  // namespace pnl::test
