// SPDX-License-Identifier: MIT
// What each key does in each kind of control of the main tab, with the real control having the focus.
#include <QtGui/QClipboard>
#include <QtGui/QShortcut>

#include "zmc/qt/zmc_look.h"
#include "zmc_window_stage.h"

namespace pnl::test {
namespace {

namespace id = zmc_control;
using testing::Contains;
using testing::Not;
using Place = std::pair<int, int>;

/// A material of the operator's own, so that the pair isn't the machine maker's.
constexpr const char* kOwnMaterial =
    "<CondicionesCorte><MaterialesDefinition><MaterialDefinition><id>##</id><descripcion>Own</descripcion>"
    "</MaterialDefinition></MaterialesDefinition><Operaciones/></CondicionesCorte>";

class ZmcKeysWindowTest : public ZmcWindowStage {
 protected:
  void OpenOwnPair() {
    Disc("C:\\P118\\CondicionesCorteP.xml", kOwnMaterial);
    Settings("LastMat=Own\r\nLastOpe=Milling\r\nLastTool=T3\r\n");
    Open();
    ASSERT_EQ(MainText(id::kMaterial), "Own");
  }
  void AtCell(int row, int col) {
    Focus(id::kGrid);
    Grid()->Select(row, col);
  }
};

/// The stops of an end mill on a machine with DMC: D and Z can't be changed, and M6 isn't shown.
constexpr int kOrder[] = {id::kMaterial, id::kOperation, id::kGrid,     id::kRemarkCheck, id::kRemark, id::kToolCheck,
                          id::kTool,     id::kFCheck,    id::kF,        id::kFUnit,       id::kSCheck, id::kS,
                          id::kSUnit,    id::kPower,     id::kDmcCheck, id::kDmcText};

TEST_F(ZmcKeysWindowTest, TabWalksTheWholePageAndComesBackToTheMaterial) {
  Open();
  for (const int stop : kOrder) {
    ASSERT_EQ(FocusedId(), stop);
    // Within the grid the key is the grid's; it is left at its last cell.
    if (stop == id::kGrid) Grid()->Select(4, 3);
    EXPECT_TRUE(Key(Qt::Key_Tab));
  }
  EXPECT_EQ(FocusedId(), id::kMaterial);
}

TEST_F(ZmcKeysWindowTest, ShiftTabWalksTheSameWayBack) {
  Open();
  for (int stop = static_cast<int>(std::size(kOrder)) - 1; stop >= 0; --stop) {
    EXPECT_TRUE(Key(Qt::Key_Backtab, Qt::ShiftModifier));
    ASSERT_EQ(FocusedId(), kOrder[stop]);
  }
}

TEST_F(ZmcKeysWindowTest, AlsoTabWithShiftGoesBack) {
  Open();
  EXPECT_TRUE(Key(Qt::Key_Tab, Qt::ShiftModifier));
  EXPECT_EQ(FocusedId(), id::kDmcText);
}

TEST_F(ZmcKeysWindowTest, TheFocusStopsAtM6WhenItIsShownAndAtTheValuesOfAToolThatIsTyped) {
  cnc.Tables().SetTool(9, 1, {9, 0, 0, 0});
  Settings("LastMat=Steel\r\nLastOpe=Milling\r\nLastTool=T9\r\nToolChecked=1\r\n");
  Open();
  Focus(id::kTool);
  for (const int stop : {id::kM6Check, id::kDiameter, id::kTeeth, id::kFCheck}) {
    Key(Qt::Key_Tab);
    EXPECT_EQ(FocusedId(), stop);
  }
}

// The grid.

TEST_F(ZmcKeysWindowTest, TabInAGridMovesOnAndLeavesItAtTheLastCellOnly) {
  Open();
  AtCell(2, 1);
  Key(Qt::Key_Tab);
  EXPECT_EQ(Cell(), Place(2, 2));
  AtCell(1, 3);
  Key(Qt::Key_Tab);
  EXPECT_EQ(Cell(), Place(2, 1));
  AtCell(4, 3);
  Key(Qt::Key_Tab);
  EXPECT_EQ(FocusedId(), id::kRemarkCheck);
}

TEST_F(ZmcKeysWindowTest, ShiftTabLeavesTheGridOfAFactoryPairAtTheFirstCellThatCanBeEdited) {
  Open();
  AtCell(1, 3);
  Key(Qt::Key_Backtab);
  EXPECT_EQ(FocusedId(), id::kOperation);
  AtCell(2, 1);
  Key(Qt::Key_Backtab);
  EXPECT_EQ(Cell(), Place(1, 3));
  AtCell(1, 1);
  Key(Qt::Key_Backtab);
  EXPECT_EQ(FocusedId(), id::kOperation);
}

TEST_F(ZmcKeysWindowTest, ShiftTabLeavesTheGridOfAnOwnPairAtTheFirstCellAlone) {
  OpenOwnPair();
  AtCell(1, 3);
  Key(Qt::Key_Backtab);
  EXPECT_EQ(Cell(), Place(1, 2));
  AtCell(1, 1);
  Key(Qt::Key_Backtab);
  EXPECT_EQ(FocusedId(), id::kOperation);
}

TEST_F(ZmcKeysWindowTest, TabInAnOpenCellEditCommitsItAndStays) {
  for (const int key : {Qt::Key_Tab, Qt::Key_Backtab}) {
    Open();
    AtCell(1, 3);
    Write("120");
    ASSERT_TRUE(Grid()->IsEditing());
    Key(key);
    EXPECT_FALSE(Grid()->IsEditing());
    EXPECT_EQ(Cell(), Place(1, 3));
    EXPECT_EQ(FocusedId(), id::kGrid);
    EXPECT_EQ(CellText(1, 3), "120");
    EXPECT_EQ(MainText(id::kS), "3819");
    delete tool;
  }
}

struct EdgeRow {
  int key;
  Place from;
  Place to;  // the cell, when the grid keeps the key
  int focus;
};

TEST_F(ZmcKeysWindowTest, ArrowsLeaveTheGridAtItsEdges) {
  Open();
  const EdgeRow rows[] = {
      {Qt::Key_Down, {3, 2}, {4, 2}, id::kGrid},  {Qt::Key_Down, {4, 2}, {4, 2}, id::kRemarkCheck},
      {Qt::Key_Right, {2, 2}, {2, 3}, id::kGrid}, {Qt::Key_Right, {2, 3}, {2, 3}, id::kRemarkCheck},
      {Qt::Key_Up, {2, 3}, {1, 3}, id::kGrid},    {Qt::Key_Up, {1, 3}, {1, 3}, id::kOperation},
      {Qt::Key_Left, {3, 2}, {3, 1}, id::kGrid},  {Qt::Key_Left, {3, 1}, {3, 1}, id::kOperation},
  };
  for (const EdgeRow& row : rows) {
    AtCell(row.from.first, row.from.second);
    EXPECT_TRUE(Key(row.key));
    EXPECT_EQ(FocusedId(), row.focus) << row.key;
    EXPECT_EQ(Cell(), row.to) << row.key;
  }
}

TEST_F(ZmcKeysWindowTest, ArrowsStayInAnOpenCellEdit) {
  Open();
  for (const int key : {Qt::Key_Left, Qt::Key_Right, Qt::Key_Up, Qt::Key_Down}) {
    AtCell(1, 3);
    Write("7");
    Key(key);
    EXPECT_TRUE(Grid()->IsEditing()) << key;
    EXPECT_EQ(Cell(), Place(1, 3)) << key;
    Key(Qt::Key_Escape);
  }
}

TEST_F(ZmcKeysWindowTest, TheGridIsEnteredAtItsFirstEditableCell) {
  Open();
  AtCell(3, 2);
  Focus(id::kOperation);
  Key(Qt::Key_Tab);
  EXPECT_EQ(Cell(), Place(1, 3));
  delete tool;
  OpenOwnPair();
  Focus(id::kRemarkCheck);
  Key(Qt::Key_Backtab);
  EXPECT_EQ(FocusedId(), id::kGrid);
  EXPECT_EQ(Cell(), Place(1, 1));
}

TEST_F(ZmcKeysWindowTest, HomeAndEndGoToTheFirstAndTheLastCellOfTheRowThatCanBeEdited) {
  Open();
  AtCell(2, 1);
  Key(Qt::Key_Home);
  EXPECT_EQ(Cell(), Place(2, 3)) << "of a factory pair there is one";
  delete tool;
  OpenOwnPair();
  AtCell(3, 2);
  Key(Qt::Key_End);
  EXPECT_EQ(Cell(), Place(3, 3));
  Key(Qt::Key_Home);
  EXPECT_EQ(Cell(), Place(3, 1));
}

TEST_F(ZmcKeysWindowTest, EnterInAGridBeginsTheEditAndThenCommitsItInItsCell) {
  Open();
  AtCell(2, 3);
  Key(Qt::Key_Return);
  ASSERT_TRUE(Grid()->IsEditing());
  Write("0.05");
  Key(Qt::Key_Enter, Qt::KeypadModifier);
  EXPECT_FALSE(Grid()->IsEditing());
  EXPECT_EQ(Cell(), Place(2, 3));
  EXPECT_EQ(FocusedId(), id::kGrid);
  EXPECT_EQ(CellText(2, 3), "0.05");
}

TEST_F(ZmcKeysWindowTest, EnterInACellThatCannotBeEditedDoesNothing) {
  Open();
  AtCell(2, 1);
  EXPECT_TRUE(Key(Qt::Key_Return));
  EXPECT_FALSE(Grid()->IsEditing());
  EXPECT_EQ(FocusedId(), id::kGrid);
}

TEST_F(ZmcKeysWindowTest, EscapeInAnOpenCellEditBringsTheOldValueBack) {
  Open();
  AtCell(1, 3);
  Write("120");
  Key(Qt::Key_Escape);
  EXPECT_FALSE(Grid()->IsEditing());
  EXPECT_EQ(CellText(1, 3), "");
  EXPECT_TRUE(tool->isVisible());
  Key(Qt::Key_Escape);
  EXPECT_FALSE(tool->isVisible());
}

// Data fields.

TEST_F(ZmcKeysWindowTest, ArrowsMoveTheFocusFromADataFieldUnlessAnEditIsOpen) {
  Open();
  struct Row {
    int key;
    int to;
  };
  for (const Row& row : {Row{Qt::Key_Right, id::kFUnit}, Row{Qt::Key_Down, id::kFUnit}, Row{Qt::Key_Left, id::kFCheck},
                         Row{Qt::Key_Up, id::kFCheck}}) {
    Focus(id::kF);
    EXPECT_TRUE(Key(row.key));
    EXPECT_EQ(FocusedId(), row.to) << row.key;
    Focus(id::kF);
    Write("12");
    EXPECT_TRUE(Key(row.key));
    EXPECT_EQ(FocusedId(), id::kF) << row.key;
    EXPECT_TRUE(Field(id::kF)->IsEditing()) << row.key;
    Key(Qt::Key_Escape);
    EXPECT_FALSE(Field(id::kF)->IsEditing());
    EXPECT_EQ(MainText(id::kF), "");
  }
}

TEST_F(ZmcKeysWindowTest, EnterInADataFieldMovesOnAndWhatWasTypedCounts) {
  Open();
  Focus(id::kS);
  Write("5000");
  Key(Qt::Key_Return);
  EXPECT_EQ(FocusedId(), id::kSUnit);
  EXPECT_EQ(MainText(id::kS), "5000");
}

TEST_F(ZmcKeysWindowTest, TabInADataFieldCommitsWhatWasTyped) {
  Open();
  Focus(id::kS);
  Write("4000");
  Key(Qt::Key_Tab);
  EXPECT_EQ(FocusedId(), id::kSUnit);
  EXPECT_EQ(MainText(id::kS), "4000");
}

TEST_F(ZmcKeysWindowTest, WhatIsBeingTypedInAFieldDoesNotCountBeforeItIsCommitted) {
  Open();
  Touch(Main(id::kSCheck));
  Focus(id::kS);
  Write("4000");
  Key(Qt::Key_Return);
  Focus(id::kS);
  Write("12");
  Menu(zmc_command::kCopy);
  EXPECT_THAT(QApplication::clipboard()->text().toStdString(), testing::StartsWith("G97 S4000 "));
}

// Lists.

TEST_F(ZmcKeysWindowTest, AnArrowInAClosedListMovesTheFocusAndInAnOpenOneTheMark) {
  Open();
  Key(Qt::Key_Down);
  EXPECT_EQ(FocusedId(), id::kOperation);
  EXPECT_EQ(MainText(id::kMaterial), "Steel");
  Key(Qt::Key_Up);
  EXPECT_EQ(FocusedId(), id::kMaterial);
  Key(Qt::Key_Space);
  ASSERT_TRUE(Box(id::kMaterial)->IsOpen());
  Key(Qt::Key_Down);
  EXPECT_TRUE(Box(id::kMaterial)->IsOpen());
  EXPECT_EQ(MainText(id::kMaterial), "Steel") << "not yet";
  Key(Qt::Key_Return);
  EXPECT_FALSE(Box(id::kMaterial)->IsOpen());
  EXPECT_EQ(MainText(id::kMaterial), "Brass");
  EXPECT_EQ(FocusedId(), id::kOperation);
  EXPECT_EQ(CellText(1, 1), "") << "the pair of Brass has no limits";
}

TEST_F(ZmcKeysWindowTest, TheMarkStopsAtBothEndsOfTheList) {
  Open();
  Key(Qt::Key_Space);
  for (int i = 0; i < 3; ++i) Key(Qt::Key_Up);
  Key(Qt::Key_Return);
  EXPECT_EQ(MainText(id::kMaterial), "Steel");
  Key(Qt::Key_Backtab);
  Key(Qt::Key_Space);
  for (int i = 0; i < 5; ++i) Key(Qt::Key_Right);
  Key(Qt::Key_Return);
  EXPECT_EQ(MainText(id::kMaterial), "Brass");
}

TEST_F(ZmcKeysWindowTest, EscapeClosesAnOpenListWithoutSelectingAndTheToolStays) {
  Open();
  for (const int box : {id::kMaterial, id::kOperation, id::kFUnit, id::kSUnit}) {
    Focus(box);
    const std::string before = MainText(box);
    Key(Qt::Key_Space);
    ASSERT_TRUE(Box(box)->IsOpen()) << box;
    Key(Qt::Key_Down);
    Key(Qt::Key_Escape);
    EXPECT_FALSE(Box(box)->IsOpen()) << box;
    EXPECT_EQ(MainText(box), before);
    EXPECT_EQ(FocusedId(), box);
  }
  EXPECT_TRUE(tool->isVisible());
}

TEST_F(ZmcKeysWindowTest, TabInAnOpenListClosesItAndMovesOn) {
  Open();
  Key(Qt::Key_Space);
  Key(Qt::Key_Down);
  Key(Qt::Key_Tab);
  EXPECT_FALSE(Box(id::kMaterial)->IsOpen());
  EXPECT_EQ(MainText(id::kMaterial), "Steel");
  EXPECT_EQ(FocusedId(), id::kOperation);
}

TEST_F(ZmcKeysWindowTest, EnterInAClosedListMovesOn) {
  Open();
  Key(Qt::Key_Return);
  EXPECT_EQ(FocusedId(), id::kOperation);
}

TEST_F(ZmcKeysWindowTest, AnEmptyListDoesNotOpen) {
  Disc("C:\\P24\\CondicionesCorte.xml", "<CondicionesCorte/>");
  Open();
  Focus(id::kMaterial);
  Key(Qt::Key_Space);
  EXPECT_FALSE(Box(id::kMaterial)->IsOpen());
}

// The tool box.

TEST_F(ZmcKeysWindowTest, ATypedToolCountsWithEnter) {
  Open();
  Focus(id::kTool);
  Box(id::kTool)->lineEdit()->selectAll();
  Write("4");
  Key(Qt::Key_Return);
  EXPECT_EQ(MainText(id::kTool), "T4");
  EXPECT_EQ(MainText(id::kDiameter), "6.000000");
  EXPECT_EQ(FocusedId(), id::kTool);
}

TEST_F(ZmcKeysWindowTest, LeavingTheToolBoxBringsTheLastToolBack) {
  Open();
  for (const int key : {Qt::Key_Tab, Qt::Key_Backtab, Qt::Key_Up, Qt::Key_Down, Qt::Key_Escape}) {
    Focus(id::kTool);
    Box(id::kTool)->lineEdit()->selectAll();
    Write("4");
    ASSERT_EQ(MainText(id::kTool), "4");
    Key(key);
    EXPECT_EQ(MainText(id::kTool), "T3") << key;
    EXPECT_EQ(FocusedId() == id::kTool, key == Qt::Key_Escape) << key;
  }
  EXPECT_TRUE(tool->isVisible()) << "Escape is the box's";
}

TEST_F(ZmcKeysWindowTest, AMouseOnAnotherControlAlsoBringsTheLastToolBack) {
  Open();
  Focus(id::kTool);
  Box(id::kTool)->lineEdit()->selectAll();
  Write("4");
  Focus(id::kFCheck);
  EXPECT_EQ(MainText(id::kTool), "T3");
}

TEST_F(ZmcKeysWindowTest, AToolThatIsBeingTypedIsNotCompleted) {
  Open();
  Focus(id::kTool);
  Box(id::kTool)->lineEdit()->selectAll();
  Write("T");
  EXPECT_EQ(MainText(id::kTool), "T");
}

TEST_F(ZmcKeysWindowTest, AMenuOrAnotherWindowLeavesATypedToolAsItIs) {
  Open();
  Focus(id::kTool);
  Box(id::kTool)->lineEdit()->selectAll();
  Write("4");
  for (const Qt::FocusReason reason : {Qt::PopupFocusReason, Qt::ActiveWindowFocusReason}) {
    QFocusEvent out(QEvent::FocusOut, reason);
    QApplication::sendEvent(Box(id::kTool), &out);
    Settle();
    EXPECT_EQ(MainText(id::kTool), "4");
  }
}

TEST_F(ZmcKeysWindowTest, TheCaretMovesInAToolThatIsBeingTyped) {
  Open();
  Focus(id::kTool);
  Box(id::kTool)->lineEdit()->selectAll();
  Write("4");
  EXPECT_TRUE(Key(Qt::Key_Left));
  EXPECT_EQ(FocusedId(), id::kTool);
  EXPECT_EQ(Box(id::kTool)->lineEdit()->cursorPosition(), 0);
}

TEST_F(ZmcKeysWindowTest, SpaceOpensTheToolsAndEnterTakesTheMarkedOne) {
  Open();
  Focus(id::kTool);
  Key(Qt::Key_Space, {}, " ");
  ASSERT_TRUE(Box(id::kTool)->IsOpen());
  Key(Qt::Key_Down);
  Key(Qt::Key_Return);
  EXPECT_FALSE(Box(id::kTool)->IsOpen());
  EXPECT_EQ(MainText(id::kTool), "T4");
  EXPECT_EQ(FocusedId(), id::kTool);
  EXPECT_EQ(MainText(id::kDiameter), "6.000000");
}

TEST_F(ZmcKeysWindowTest, EscapeInTheOpenToolsClosesThem) {
  Open();
  Focus(id::kTool);
  Key(Qt::Key_Space, {}, " ");
  Key(Qt::Key_Down);
  Key(Qt::Key_Escape);
  EXPECT_FALSE(Box(id::kTool)->IsOpen());
  EXPECT_EQ(MainText(id::kTool), "T3");
  EXPECT_TRUE(tool->isVisible());
}

// The text lines.

TEST_F(ZmcKeysWindowTest, EnterTogglesTheEditModeOfTheRemarkAndTheSecondOneStoresIt) {
  Open();
  Focus(id::kRemark);
  Key(Qt::Key_Return);
  Write("face");
  EXPECT_THAT(OnDisc("C:\\P118\\CondicionesCorteP.xml"), Not(testing::HasSubstr("face")));
  Key(Qt::Key_Return);
  EXPECT_EQ(MainText(id::kRemark), "face");
  EXPECT_EQ(FocusedId(), id::kRemark);
  EXPECT_THAT(OnDisc("C:\\P118\\CondicionesCorteP.xml"), testing::HasSubstr("face"));
}

TEST_F(ZmcKeysWindowTest, WhateverElseLeavesTheEditModeRestoresTheLine) {
  Open();
  for (const int line : {id::kRemark, id::kDmcText}) {
    for (const int key : {Qt::Key_Tab, Qt::Key_Backtab, Qt::Key_Up, Qt::Key_Down, Qt::Key_Escape}) {
      Focus(line);
      const std::string before = MainText(line);
      Key(Qt::Key_Return);
      Write("x");
      ASSERT_NE(MainText(line), before);
      Key(key);
      EXPECT_EQ(MainText(line), before) << line << " " << key;
      EXPECT_EQ(FocusedId() == line, key == Qt::Key_Escape) << line << " " << key;
    }
  }
  EXPECT_TRUE(tool->isVisible());
}

TEST_F(ZmcKeysWindowTest, SidewaysTheCaretMovesInEditModeAndTheFocusWithoutIt) {
  Open();
  Focus(id::kRemark);
  Key(Qt::Key_Left);
  EXPECT_EQ(FocusedId(), id::kRemarkCheck);
  Focus(id::kRemark);
  Key(Qt::Key_Return);
  Write("ab");
  Key(Qt::Key_Left);
  EXPECT_EQ(FocusedId(), id::kRemark);
  EXPECT_EQ(Line(id::kRemark)->cursorPosition(), 1);
}

TEST_F(ZmcKeysWindowTest, SpaceBeginsTheEditModeWithOneBlank) {
  Open();
  Focus(id::kRemark);
  Key(Qt::Key_Space, {}, " ");
  EXPECT_EQ(MainText(id::kRemark), " ");
  Write("a");
  Key(Qt::Key_Space, {}, " ");
  EXPECT_EQ(MainText(id::kRemark), " a ") << "in edit mode it is a character";
  Key(Qt::Key_Escape);
  EXPECT_EQ(MainText(id::kRemark), "");
}

TEST_F(ZmcKeysWindowTest, ALineThatGetsTheFocusIsSelectedWithTheCaretAtItsEnd) {
  Open();
  Focus(id::kRemark);
  Key(Qt::Key_Return);
  Write("face");
  Key(Qt::Key_Return);
  Focus(id::kFCheck);
  Focus(id::kRemark);
  EXPECT_EQ(Line(id::kRemark)->selectedText(), "face");
  EXPECT_EQ(Line(id::kRemark)->cursorPosition(), 4);
}

TEST_F(ZmcKeysWindowTest, ALineThatGetsTheFocusEndsTheGridsEdit) {
  Open();
  AtCell(1, 3);
  Write("120");
  Focus(id::kRemark);
  EXPECT_FALSE(Grid()->IsEditing());
  EXPECT_EQ(CellText(1, 3), "120");
  EXPECT_EQ(FocusedId(), id::kRemark);
}

TEST_F(ZmcKeysWindowTest, TheLineWithTheFocusHasItsOwnColour) {
  Open();
  Focus(id::kRemark);
  EXPECT_EQ(ColorAt(Paint(*Line(id::kRemark)), 40, 4), SystemColor(kColorWindow));
  Focus(id::kFCheck);
  EXPECT_EQ(ColorAt(Paint(*Line(id::kRemark)), 40, 4), zmc_look::kFieldBack);
  EXPECT_NE(SystemColor(kColorWindow), zmc_look::kFieldBack);
}

// Check boxes, and keys everywhere.

TEST_F(ZmcKeysWindowTest, SpaceTurnsACheckBoxAndEnterMovesOn) {
  Open();
  Focus(id::kFCheck);
  Key(Qt::Key_Space, {}, " ");
  EXPECT_NE(Check(id::kFCheck)->State(), 0);
  Key(Qt::Key_Return);
  EXPECT_EQ(FocusedId(), id::kF);
  Focus(id::kFCheck);
  Key(Qt::Key_Left);
  EXPECT_EQ(FocusedId(), id::kTool);
}

TEST_F(ZmcKeysWindowTest, InsertInsertsTheBlockFromAnywhereButALineInEditMode) {
  Open();
  Focus(id::kRemark);
  Key(Qt::Key_Return);
  TakeHostCalls();
  Key(Qt::Key_Insert);
  EXPECT_THAT(TakeHostCalls(), Not(Contains("HostInsertBlock")));
  Key(Qt::Key_Escape);
  for (const int control : {id::kMaterial, id::kGrid, id::kRemark, id::kTool, id::kFCheck, id::kF}) {
    Focus(control);
    Key(Qt::Key_Insert);
    EXPECT_THAT(TakeHostCalls(), Contains("HostInsertBlock")) << control;
    ASSERT_FALSE(tool->isVisible());
    tool->show();
    Settle();
    TakeHostCalls();
  }
}

TEST_F(ZmcKeysWindowTest, InsertAlsoWorksWithAListOpen) {
  Open();
  Key(Qt::Key_Space);
  TakeHostCalls();
  Key(Qt::Key_Insert);
  EXPECT_THAT(TakeHostCalls(), Contains("HostInsertBlock"));
  EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
}

TEST_F(ZmcKeysWindowTest, EscapeClosesTheToolFromEveryControlThatHasNoEdit) {
  for (const int control : {id::kMaterial, id::kGrid, id::kRemark, id::kFCheck, id::kF, id::kDmcText}) {
    Open();
    Focus(control);
    TakeHostCalls();
    Key(Qt::Key_Escape);
    EXPECT_THAT(TakeHostCalls(), Contains("HostToolClosed(4,2)")) << control;
    delete tool;
  }
}

TEST_F(ZmcKeysWindowTest, AKeyWithCtrlOrAltIsNotTheTools) {
  Open();
  for (const auto modifier : {Qt::ControlModifier, Qt::AltModifier, Qt::MetaModifier}) {
    Key(Qt::Key_Insert, modifier);
    Key(Qt::Key_Escape, modifier);
    EXPECT_TRUE(tool->isVisible());
    EXPECT_EQ(FocusedId(), id::kMaterial);
  }
}

TEST_F(ZmcKeysWindowTest, NoShortcutOfThePanelTakesAKeyOfTheTool) {
  Open();
  int shots = 0;
  const int keys[] = {Qt::Key_Tab,       Qt::Key_Backtab, Qt::Key_Up,       Qt::Key_Down,   Qt::Key_Left,
                      Qt::Key_Right,     Qt::Key_Home,    Qt::Key_End,      Qt::Key_Return, Qt::Key_Space,
                      Qt::Key_Insert,    Qt::Key_Escape,  Qt::Key_PageDown, Qt::Key_PageUp, Qt::Key_Delete,
                      Qt::Key_Backspace, Qt::Key_7};
  for (const int key : keys) {
    auto* shortcut = new QShortcut(QKeySequence(key), &panel);
    QObject::connect(shortcut, &QShortcut::activated, [&shots] { ++shots; });
  }
  Settle();
  for (const int control : {id::kMaterial, id::kGrid, id::kRemark, id::kTool, id::kFCheck, id::kF}) {
    for (const int key : keys) {
      tool->show();
      Settle();
      Focus(control);
      Key(key, {}, key == Qt::Key_7 ? "7" : QString());
      EXPECT_EQ(std::exchange(shots, 0), 0) << "control " << control << ", key " << key;
      Command(20);
    }
  }
  tool->show();
  Settle();
  Focus(id::kMaterial);
  Key(Qt::Key_Space);
  ASSERT_TRUE(Box(id::kMaterial)->IsOpen());
  Key(Qt::Key_Down);
  EXPECT_EQ(shots, 0) << "an open list";
  Key(Qt::Key_Escape);
  other->setFocus();
  Key(Qt::Key_Insert);
  EXPECT_EQ(shots, 1) << "elsewhere the shortcut works";
}

// The formula follows the focus, also to the grid and away from it.
TEST_F(ZmcKeysWindowTest, TheFormulaIsThatOfTheFieldInFocus) {
  Open();
  EditCell(1, 3, "120");
  EditCell(2, 3, "0.05");
  Focus(id::kS);
  EXPECT_NE(MainText(id::kFormula), "");
  Focus(id::kGrid);
  EXPECT_EQ(MainText(id::kFormula), "");
  Focus(id::kF);
  EXPECT_NE(MainText(id::kFormula), "");
  Focus(id::kFCheck);
  EXPECT_EQ(MainText(id::kFormula), "");
}

}  // namespace
}  // namespace pnl::test
