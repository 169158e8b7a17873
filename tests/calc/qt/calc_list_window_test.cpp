// SPDX-License-Identifier: MIT
// The history and the variables over the keypad, by keys and fingers.
#include <algorithm>

#include "calc/expr/calc_store.h"
#include "calc_stage.h"

namespace pnl::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class CalcListWindowTest : public CalcStage {
 protected:
  void OpenWith(int rows) {
    History(rows);
    Open();
    Key(Qt::Key_Down);
    ASSERT_TRUE(List()->isVisible());
  }
};

TEST_F(CalcListWindowTest, OpensOverTheKeypadWithoutASelection) {
  OpenWith(5);
  EXPECT_EQ(List()->geometry(), QRect(3, 83, 276, 138)) << "from the status line's bottom to the window's";
  EXPECT_EQ(Focus(), List());
  EXPECT_THAT(List()->Selected(), IsEmpty());
  for (int id = calc_id::kFirstKey; id <= calc_id::kLastKey; ++id) EXPECT_FALSE(Control(id)->isVisible()) << id;
}

TEST_F(CalcListWindowTest, TakesThePlaceOfTheResultWhenCompact) {
  History(5);
  Open();
  Menu(calc_id::kMenuCompact);
  Key(Qt::Key_Down);
  EXPECT_EQ(List()->geometry(), QRect(3, 0, 276, 36));
  EXPECT_FALSE(Control(calc_id::kResult)->isVisible());
  Key(Qt::Key_Escape);
  EXPECT_TRUE(Control(calc_id::kResult)->isVisible());
}

TEST_F(CalcListWindowTest, WalksByKeysAndShowsTheRowInTheLine) {
  OpenWith(5);
  Key(Qt::Key_Down);
  EXPECT_EQ(LineText(), "0+1");
  Key(Qt::Key_Down);
  EXPECT_EQ(LineText(), "1+1");
  EXPECT_EQ(Focus(), List());
  Key(Qt::Key_Return);
  EXPECT_FALSE(List()->isVisible());
  EXPECT_EQ(LineText(), "1+1");
  EXPECT_EQ(Line()->Selection(), (TextSelection{3, 3}));
  EXPECT_EQ(Focus(), Line());
}

TEST_F(CalcListWindowTest, ShowsTheValueBesideEachExpression) {
  OpenWith(5);
  EXPECT_EQ(List()->Note(0), (ListNote{u"1", ListSign::kNone, true}));
  EXPECT_EQ(List()->Note(4), (ListNote{u"5", ListSign::kNone, true}));
  EXPECT_EQ(List()->Item(4), u"4+1");
  const QRect row = List()->visualRect(List()->model()->index(0, 0));
  const QImage painted = Paint(*List()->viewport());
  const QRect middle(row.center().x(), row.top(), row.width() / 4, row.height());
  const QRect end(row.right() - 20, row.top(), 20, row.height());
  EXPECT_EQ(Count(painted.copy(middle), 0xF7F3EE), 0);
  EXPECT_GT(Count(painted.copy(end), 0xF7F3EE), 3) << "at the right end";
}

TEST_F(CalcListWindowTest, TheValuesFollowTheBase) {
  OpenWith(3);
  Menu(calc_id::kMenuBase);
  EXPECT_EQ(List()->Note(2).words, u"B11");
}

TEST_F(CalcListWindowTest, EscapeGivesTheLineBack) {
  History(3);
  Open();
  Write("7*7");
  Key(Qt::Key_Up);
  Key(Qt::Key_Down);
  EXPECT_EQ(LineText(), "0+1");
  Key(Qt::Key_Escape);
  EXPECT_EQ(LineText(), "7*7");
  EXPECT_EQ(Focus(), Line());
}

TEST_F(CalcListWindowTest, ThePressedLineTakesTheRow) {
  OpenWith(3);
  Key(Qt::Key_Down);
  Touch(calc_id::kLine);
  EXPECT_FALSE(List()->isVisible());
  EXPECT_EQ(LineText(), "0+1");
  EXPECT_EQ(Line()->Selection(), (TextSelection{3, 3})) << "at the end, wherever the finger was";
}

TEST_F(CalcListWindowTest, APressOnTheGroundLeavesTheFocusToTheListThatIsOpen) {
  OpenWith(3);
  auto* ground = tool->findChild<CalcClientWidget*>();
  const QPoint edge(1, 1);
  ASSERT_EQ(ground->childAt(edge), nullptr);
  PressMouse(ground, edge, QEvent::MouseButtonPress);
  EXPECT_EQ(Focus(), List());
  Key(Qt::Key_Escape);
  other->setFocus();
  PressMouse(ground, edge, QEvent::MouseButtonPress);
  EXPECT_EQ(Focus(), Line());
  Touch(calc_id::kShowVariables);
  ASSERT_EQ(Focus(), Variables());
  QMouseEvent press(QEvent::MouseButtonPress, edge, ground->mapToGlobal(edge), Qt::LeftButton, Qt::LeftButton,
                    Qt::NoModifier);
  press.ignore();
  QApplication::sendEvent(ground, &press);
  EXPECT_TRUE(press.isAccepted()) << "what is below doesn't get it";
  EXPECT_EQ(Focus(), Variables());
}

TEST_F(CalcListWindowTest, RowsThatTheToolChangesAreNoChoiceOfTheOperator) {
  OpenWith(3);
  Key(Qt::Key_Down);
  TouchRow(List(), 1);
  auto* client = tool->findChild<CalcClientWidget*>();
  int told = 0;
  QObject::connect(client, &CalcClientWidget::HistorySelected, client, [&told] { ++told; });
  client->DeleteRow(1);
  client->SelectRow(0);
  client->InsertRow(0, u"9");
  client->FillHistory({});
  EXPECT_EQ(told, 0);
}

TEST_F(CalcListWindowTest, ADoublePressTakesTheRow) {
  OpenWith(3);
  TouchRow(List(), 1);
  EXPECT_EQ(LineText(), "1+1");
  const QPoint place = List()->visualRect(List()->model()->index(1, 0)).center();
  PressMouse(List()->viewport(), place, QEvent::MouseButtonDblClick);
  EXPECT_FALSE(List()->isVisible());
  EXPECT_EQ(LineText(), "1+1");
}

TEST_F(CalcListWindowTest, DeleteTakesAllSelectedRowsAway) {
  OpenWith(5);
  TouchRow(List(), 1);
  TouchRow(List(), 3, Qt::ControlModifier);
  EXPECT_THAT(List()->Selected(), ElementsAre(1, 3));
  Key(Qt::Key_Delete);
  ASSERT_EQ(List()->Count(), 3);
  EXPECT_EQ(List()->Item(0), u"0+1");
  EXPECT_EQ(List()->Item(1), u"2+1");
  EXPECT_EQ(List()->Item(2), u"4+1");
  EXPECT_THAT(List()->Selected(), IsEmpty()) << "no neighbour slips under the next Delete";
}

TEST_F(CalcListWindowTest, HomeAndEndCopyTheirRowAlsoAfterTheToolHasChangedRowsOrSelection) {
  History(4);
  Open();
  Write("7*7");
  Key(Qt::Key_Return);
  Key(Qt::Key_Down);
  Key(Qt::Key_Down);
  ASSERT_EQ(LineText(), "7*7");
  Key(Qt::Key_End);
  EXPECT_EQ(LineText(), "3+1") << "after a row came";
  Key(Qt::Key_Delete);
  Key(Qt::Key_Home);
  EXPECT_EQ(LineText(), "7*7") << "after a row went";
  Key(Qt::Key_Delete);
  Key(Qt::Key_Down);
  ASSERT_EQ(LineText(), "0+1");
  Key(Qt::Key_End);
  EXPECT_EQ(LineText(), "2+1") << "after the tool selected a row";
}

TEST_F(CalcListWindowTest, AStretchIsSelectedWithShift) {
  OpenWith(5);
  TouchRow(List(), 1);
  TouchRow(List(), 3, Qt::ShiftModifier);
  EXPECT_THAT(List()->Selected(), ElementsAre(1, 2, 3));
  Key(Qt::Key_Delete);
  EXPECT_EQ(List()->Count(), 2);
}

TEST_F(CalcListWindowTest, DeleteInTheLineIsOrdinaryEditing) {
  History(3);
  Open();
  Write("12");
  Key(Qt::Key_Home);
  Key(Qt::Key_Delete);
  EXPECT_EQ(LineText(), "2");
  EXPECT_EQ(List()->Count(), 3);
}

TEST_F(CalcListWindowTest, TheKeyOpensAndClosesIt) {
  History(3);
  Open();
  Write("8");
  Touch(calc_id::kOpenList);
  EXPECT_TRUE(List()->isVisible());
  TouchRow(List(), 0);
  Touch(calc_id::kOpenList);
  EXPECT_FALSE(List()->isVisible());
  EXPECT_EQ(LineText(), "8");
}

TEST_F(CalcListWindowTest, RowsMoveFromTheLineToo) {
  OpenWith(3);
  Line()->setFocus();
  EXPECT_TRUE(Key(Qt::Key_Down)) << "the panel doesn't get it";
  EXPECT_EQ(LineText(), "0+1");
}

// Up at the first row, Down at the last one and a finger on the selected row changed no selection and copied nothing.
TEST_F(CalcListWindowTest, ArrowsAtTheEndsAndAFingerOnTheSelectedRowCopyItAgain) {
  OpenWith(3);
  const auto change = [this] { Menu(32784); };
  Key(Qt::Key_Down);
  change();
  ASSERT_EQ(LineText(), "Sin0+1");
  List()->setFocus();
  Key(Qt::Key_Up);
  EXPECT_EQ(LineText(), "0+1");
  change();
  TouchRow(List(), 0);
  EXPECT_EQ(LineText(), "0+1");
  Key(Qt::Key_End);
  EXPECT_EQ(LineText(), "2+1");
  change();
  List()->setFocus();
  Key(Qt::Key_Down);
  EXPECT_EQ(LineText(), "2+1");
  change();
  Key(Qt::Key_Down);
  EXPECT_EQ(LineText(), "2+1") << "from the line too";
}

TEST_F(CalcListWindowTest, AListOpenedAgainCopiesItsRowByTheFirstArrow) {
  OpenWith(2);
  Key(Qt::Key_Down);
  Key(Qt::Key_Escape);
  EXPECT_EQ(LineText(), "");
  Key(Qt::Key_Down);
  EXPECT_EQ(LineText(), "") << "opening copies nothing";
  Key(Qt::Key_Up);
  EXPECT_EQ(LineText(), "0+1");
}

TEST_F(CalcListWindowTest, TheOnlyRowIsCopiedByEachOpeningsArrow) {
  OpenWith(1);
  for (const int key : {Qt::Key_Down, Qt::Key_Down, Qt::Key_Up}) {
    Key(key);
    EXPECT_EQ(LineText(), "0+1");
    Key(Qt::Key_Escape);
    EXPECT_EQ(LineText(), "");
    Key(Qt::Key_Down);
    ASSERT_TRUE(List()->isVisible());
  }
}

// The row that came into the place of a deleted one was passed over, and the only one left couldn't be reached.
TEST_F(CalcListWindowTest, AfterDeleteTheRowThatTookThePlaceComesNext) {
  OpenWith(4);
  Key(Qt::Key_Down);
  Key(Qt::Key_Delete);
  Key(Qt::Key_Down);
  EXPECT_EQ(LineText(), "1+1");
  EXPECT_THAT(List()->Selected(), ElementsAre(0));
  Key(Qt::Key_Delete);
  Key(Qt::Key_Up);
  EXPECT_EQ(LineText(), "2+1");
  Key(Qt::Key_Down);
  EXPECT_EQ(LineText(), "3+1");
  Key(Qt::Key_Delete);
  Key(Qt::Key_Down);
  EXPECT_EQ(LineText(), "2+1") << "behind the last row comes the last one left";
  Key(Qt::Key_Delete);
  EXPECT_EQ(List()->Count(), 0);
  Key(Qt::Key_Down);
  EXPECT_EQ(LineText(), "2+1") << "nothing is left to copy";
}

TEST_F(CalcListWindowTest, AWalkWithShiftStillSelectsAStretch) {
  OpenWith(4);
  Key(Qt::Key_Down);
  Key(Qt::Key_Down, Qt::ShiftModifier);
  Key(Qt::Key_Down, Qt::ShiftModifier);
  EXPECT_THAT(List()->Selected(), ElementsAre(0, 1, 2));
  EXPECT_EQ(LineText(), "2+1") << "the row that the keys are on";
}

TEST_F(CalcListWindowTest, TenThousandRowsAreThereAtOnceAndPaintOnlyWhatIsSeen) {
  OpenWith(10'000);
  ASSERT_EQ(List()->Count(), 10'000);
  Key(Qt::Key_Down);
  Key(Qt::Key_End);
  EXPECT_EQ(LineText(), "9999+1");
  Key(Qt::Key_Escape);
  Command(20);
  EXPECT_EQ(OnDisc("C:\\P1\\calc.htr").size(), [] {
    std::size_t size = 0;
    for (int i = 0; i < 10'000; ++i) size += std::to_string(i).size() + 4;
    return size;
  }());
}

TEST_F(CalcListWindowTest, RowsOfAWholeListCanBeDeleted) {
  OpenWith(2000);
  List()->selectAll();
  Key(Qt::Key_Delete);
  EXPECT_EQ(List()->Count(), 0);
  Key(Qt::Key_Down);
  EXPECT_TRUE(List()->isVisible());
}

class CalcVariablesWindowTest : public CalcStage {
 protected:
  /// The second tap of two quick ones, wherever it lands now.
  void TapAgain(QWidget* widget, QPoint place) {
    PressMouse(widget, place, QEvent::MouseButtonDblClick);
    PressMouse(widget, place, QEvent::MouseButtonRelease);
    Settle();
  }
};

// The second tap picked whatever variable had come under the finger.
TEST_F(CalcVariablesWindowTest, TwoQuickTapsOnItsKeyOpenItAndPickNothing) {
  Open();
  Write("A=5;B=2");
  Key(Qt::Key_Return);
  Touch(calc_id::kShowVariables);
  ASSERT_TRUE(Variables()->isVisible());
  const QPoint row = Variables()->visualRect(Variables()->model()->index(0, 0)).center();
  TapAgain(Variables()->viewport(), row);
  EXPECT_TRUE(Variables()->isVisible());
  EXPECT_EQ(LineText(), "");
  TouchRow(Variables(), 1);
  EXPECT_EQ(LineText(), "B");
}

// The second tap wrote whatever key had come under the finger.
TEST_F(CalcVariablesWindowTest, TwoQuickTapsOnARowPickItAndPressNoKey) {
  Open();
  Write("A=5;B=2");
  Key(Qt::Key_Return);
  Touch(calc_id::kShowVariables);
  TouchRow(Variables(), 0);
  ASSERT_EQ(LineText(), "A");
  TapAgain(Control(1017), Control(1017)->rect().center());
  EXPECT_EQ(LineText(), "A");
  Touch(1035);
  TapAgain(Control(1028), Control(1028)->rect().center());
  EXPECT_EQ(LineText(), "A+2") << "the key beside one that is still there";
}

TEST_F(CalcVariablesWindowTest, ShowsWhatIsNotZeroAndTakesItByOneTouch) {
  Open();
  Write("A=5;B=2");
  Key(Qt::Key_Return);
  Key(Qt::Key_R, Qt::ControlModifier);
  ASSERT_TRUE(Variables()->isVisible());
  EXPECT_EQ(Focus(), Variables());
  EXPECT_EQ(Variables()->Item(0), u"A = 5");
  TouchRow(Variables(), 1);
  EXPECT_FALSE(Variables()->isVisible());
  EXPECT_EQ(LineText(), "B");
  EXPECT_EQ(Focus(), Line());
}

TEST_F(CalcVariablesWindowTest, IsWalkedByKeysWithoutPickingAnything) {
  Open();
  Write("A=5;B=2");
  Key(Qt::Key_Return);
  Touch(calc_id::kShowVariables);
  Key(Qt::Key_Down);
  Key(Qt::Key_Down);
  EXPECT_EQ(LineText(), "");
  Key(Qt::Key_Return);
  EXPECT_EQ(LineText(), "B");
}

TEST_F(CalcVariablesWindowTest, SaysWhenThereIsNone) {
  Open();
  Touch(calc_id::kShowVariables);
  EXPECT_EQ(ToUtf8(Variables()->Item(0)), "All variables and ACC are 0");
  Key(Qt::Key_Escape);
  EXPECT_FALSE(Variables()->isVisible());
  EXPECT_EQ(Focus(), Line());
}

}  // namespace
}  // namespace pnl::test
