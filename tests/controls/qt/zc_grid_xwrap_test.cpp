// SPDX-License-Identifier: MIT
#include "controls/zc_grid_xwrap.h"

#include "controls/list_box.h"
#include "support/widget_probe.h"
#include "window/qt/control_properties.h"

namespace pnl::test {
namespace {

/// A grid of five rows and five columns: text, number, check, list. The texts are "r1c1" and so on, the numbers 10 to
/// 40, and a field beside it takes the focus.
class ZCGridXWrapTest : public testing::Test {
 protected:
  ZCGridXWrapTest() {
    window.resize(600, 400);
    grid = new ZCGridXWrap(3028, &window);
    grid->setGeometry(0, 0, 500, 300);
    other = new QLineEdit(&window);
    other->setGeometry(500, 0, 90, 30);
    GridModel& cells = grid->Cells();
    cells.SetColumns(5);
    cells.SetRows(5);
    for (int row = 1; row < 5; ++row) {
      cells.SetCellText(row, 1, QString("r%1c1").arg(row));
      cells.SetKind(row, 2, GridCellKind::kNumber);
      cells.SetRowFormat(row, {3, 2, 0, 100});
      cells.SetCellText(row, 2, QString::number(10 * row));
      cells.SetKind(row, 3, GridCellKind::kCheck);
      cells.SetList(row, 4, {"mill", "drill", "tap"});
      cells.SetCellText(row, 4, "drill");
    }
    Activate(window);
    grid->setFocus();
    grid->Select(1, 1);
    Listen();
  }
  void Listen() {
    const auto note = [this](const QString& text) { emitted.push_back(text.toStdString()); };
    QObject::connect(grid, &ZCGridXWrap::Committed, grid, [note](int row, int column, bool changed) {
      note(QString("committed %1 %2%3").arg(row).arg(column).arg(changed ? " changed" : ""));
    });
    QObject::connect(grid, &ZCGridXWrap::EditBegan, grid,
                     [note](int row, int column) { note(QString("began %1 %2").arg(row).arg(column)); });
    QObject::connect(grid, &ZCGridXWrap::Moved, grid,
                     [note](int row, int column) { note(QString("moved %1 %2").arg(row).arg(column)); });
    QObject::connect(grid, &ZCGridXWrap::FocusChanged, grid, [note](bool on) { note(on ? "focus" : "no focus"); });
    QObject::connect(grid, &ZCGridXWrap::HeaderClicked, grid,
                     [note](int column) { note(QString("header %1").arg(column)); });
  }
  [[nodiscard]] std::vector<std::string> Emitted() { return std::exchange(emitted, {}); }
  using Notes = std::vector<std::string>;
  using Cell = std::pair<int, int>;
  [[nodiscard]] Cell Present() const { return {grid->Row(), grid->Column()}; }
  /// The widget that gets the next key.
  [[nodiscard]] QWidget* Keys() const {
    QWidget* focus = QApplication::focusWidget();
    return focus != nullptr ? focus : grid;
  }
  bool Key(int key, Qt::KeyboardModifiers modifiers = {}) { return PressKey(Keys(), key, {}, modifiers); }
  void Write(const QString& text) {
    for (const QChar c : text) PressKey(Keys(), c.toUpper().unicode(), QString(c));
  }
  /// The open line. A closed one may still wait to be deleted.
  [[nodiscard]] QLineEdit* Line() const {
    const auto lines = grid->viewport()->findChildren<QLineEdit*>(Qt::FindDirectChildrenOnly);
    return lines.isEmpty() ? nullptr : lines.last();
  }
  [[nodiscard]] QPoint Middle(int row, int column) const {
    return grid->visualRect(grid->model()->index(row - 1, column)).center();
  }
  void Touch(int row, int column) {
    PressMouse(grid->viewport(), Middle(row, column));
    PressMouse(grid->viewport(), Middle(row, column), QEvent::MouseButtonRelease);
  }
  [[nodiscard]] QString TextAt(int row, int column) const { return grid->Cells().CellText(row, column); }

  std::vector<std::string> emitted;  // outlives the window, which may emit signals at its end
  QWidget window;
  ZCGridXWrap* grid;
  QLineEdit* other;
};

TEST_F(ZCGridXWrapTest, IsAGridWhoseFixedColumnIsAHeader) {
  EXPECT_EQ(ControlKind(grid), "grid");
  EXPECT_EQ(ControlId(grid), 3028);
  EXPECT_TRUE(grid->isColumnHidden(0));
  EXPECT_EQ(grid->FixedRows(), 1);
  EXPECT_EQ(grid->FixedColumns(), 1);
  grid->Cells().SetColumns(6);
  EXPECT_TRUE(grid->isColumnHidden(0)) << "with other columns too";
  grid->SetFixed(0, 0);
  EXPECT_EQ(grid->FixedRows(), 0);
  EXPECT_EQ(grid->FixedColumns(), 0);
  EXPECT_FALSE(grid->horizontalHeader()->isVisible());
  EXPECT_FALSE(grid->verticalHeader()->isVisible());
}

TEST_F(ZCGridXWrapTest, KeysMoveWithinTheRowsAndColumnsInUse) {
  struct Step {
    int key;
    Cell to;
  };
  const Step steps[] = {{Qt::Key_Left, {1, 1}},  {Qt::Key_Up, {1, 1}},       {Qt::Key_Right, {1, 2}},
                        {Qt::Key_Down, {2, 2}},  {Qt::Key_End, {2, 4}},      {Qt::Key_Right, {2, 4}},
                        {Qt::Key_Home, {2, 1}},  {Qt::Key_PageDown, {4, 1}}, {Qt::Key_Down, {4, 1}},
                        {Qt::Key_PageUp, {1, 1}}};
  for (const Step& step : steps) {
    EXPECT_TRUE(Key(step.key)) << "the grid keeps it at its edge too";
    EXPECT_EQ(Present(), step.to) << step.key;
  }
  EXPECT_EQ(Emitted(), (Notes{"moved 1 2", "moved 2 2", "moved 2 4", "moved 2 1", "moved 4 1", "moved 1 1"}));
}

TEST_F(ZCGridXWrapTest, HiddenColumnsAreLeftOut) {
  grid->SetColumnWidth(4, 0);
  grid->SetColumnWidth(2, 0);
  Key(Qt::Key_End);
  EXPECT_EQ(Present(), (Cell{1, 3}));
  Key(Qt::Key_Left);
  EXPECT_EQ(Present(), (Cell{1, 1}));
  Key(Qt::Key_Tab);
  EXPECT_EQ(Present(), (Cell{1, 3}));
  Key(Qt::Key_Tab);
  EXPECT_EQ(Present(), (Cell{2, 1}));
  grid->Select(1, 4);
  EXPECT_EQ(Present(), (Cell{2, 1})) << "a hidden cell isn't selected";
  grid->SetColumnWidth(4, 90);
  grid->Select(1, 4);
  EXPECT_EQ(Present(), (Cell{1, 4}));
  EXPECT_EQ(grid->columnWidth(4), 90);
}

TEST_F(ZCGridXWrapTest, TabGoesThroughTheCellsAndLeavesAtTheLast) {
  grid->Select(4, 3);
  EXPECT_TRUE(Key(Qt::Key_Tab));
  EXPECT_EQ(Present(), (Cell{4, 4}));
  Key(Qt::Key_Tab);
  EXPECT_EQ(Present(), (Cell{4, 4}));
  EXPECT_FALSE(grid->hasFocus());
  grid->setFocus();
  grid->Select(2, 1);
  EXPECT_TRUE(PressKey(grid, Qt::Key_Backtab, {}, Qt::ShiftModifier));
  EXPECT_EQ(Present(), (Cell{1, 4}));
}

TEST_F(ZCGridXWrapTest, FixedCellsAndCellsThatAreNotThereAreNotSelected) {
  for (const Cell& cell : {Cell{0, 1}, Cell{1, 0}, Cell{5, 1}, Cell{1, 5}, Cell{-1, -1}}) {
    grid->Select(cell.first, cell.second);
    EXPECT_EQ(Present(), (Cell{1, 1}));
  }
  EXPECT_TRUE(Emitted().empty());
}

TEST_F(ZCGridXWrapTest, WhereverTheSelectionGoesItIsToldOnce) {
  grid->Select(3, 2);
  EXPECT_EQ(Emitted(), (Notes{"moved 3 2"}));
  grid->Select(3, 2);
  EXPECT_TRUE(Emitted().empty());
  grid->setCurrentIndex(grid->model()->index(0, 1));
  Settle();
  EXPECT_EQ(Emitted(), (Notes{"moved 1 1"})) << "by a way around Select too";
  grid->Cells().SetRows(1);
  Settle();
  EXPECT_EQ(Emitted(), (Notes{"moved 0 0"}));
  EXPECT_EQ(grid->SelectedRows(), (Cell{0, 0}));
}

TEST_F(ZCGridXWrapTest, ShiftWithArrowsAndADragSelectRows) {
  grid->Select(2, 1);
  EXPECT_EQ(grid->SelectedRows(), (Cell{2, 2}));
  Key(Qt::Key_Down, Qt::ShiftModifier);
  Key(Qt::Key_Down, Qt::ShiftModifier);
  EXPECT_EQ(grid->SelectedRows(), (Cell{2, 4}));
  Key(Qt::Key_Up);
  EXPECT_EQ(grid->SelectedRows(), (Cell{3, 3}));
  grid->SelectRange(1, 3);
  EXPECT_EQ(grid->SelectedRows(), (Cell{1, 3}));
  grid->SelectRange(3, 2);
  EXPECT_EQ(grid->SelectedRows(), (Cell{2, 3})) << "in either direction";
  grid->SelectRange(0, 9);
  EXPECT_EQ(grid->SelectedRows(), (Cell{2, 3}));
  grid->Select(4, 1);
  EXPECT_EQ(grid->SelectedRows(), (Cell{4, 4}));
  PressMouse(grid->viewport(), Middle(1, 3));
  PressMouse(grid->viewport(), Middle(3, 3), QEvent::MouseMove);
  PressMouse(grid->viewport(), Middle(3, 3), QEvent::MouseButtonRelease);
  EXPECT_EQ(grid->SelectedRows(), (Cell{1, 3}));
  EXPECT_FALSE(grid->Cells().IsChecked(1, 3)) << "a drag turns no check";
  EXPECT_FALSE(grid->Cells().IsChecked(3, 3));
}

TEST_F(ZCGridXWrapTest, EnterOpensAndCommitsAndTheCellStaysSelected) {
  Key(Qt::Key_Return);
  EXPECT_TRUE(grid->IsEditing());
  EXPECT_TRUE(grid->property("pnlEditing").toBool());
  ASSERT_NE(Line(), nullptr);
  EXPECT_EQ(Line()->selectedText(), "r1c1");
  Write("new");
  EXPECT_EQ(TextAt(1, 1), "r1c1") << "nothing is stored before the commit";
  Key(Qt::Key_Enter);
  EXPECT_FALSE(grid->IsEditing());
  EXPECT_EQ(TextAt(1, 1), "new");
  EXPECT_EQ(Present(), (Cell{1, 1}));
  EXPECT_TRUE(grid->hasFocus());
  EXPECT_EQ(Emitted(), (Notes{"began 1 1", "committed 1 1 changed"})) << "the focus never left";
}

TEST_F(ZCGridXWrapTest, AnUnchangedCommitIsToldAsSuchAndKeepsTheTextAsWritten) {
  grid->Cells().SetCellText(1, 2, "0.0000000");
  grid->Select(1, 2);
  static_cast<void>(Emitted());
  Key(Qt::Key_Return);
  EXPECT_EQ(Line()->text(), "0.00") << "the editor begins with what was seen";
  Key(Qt::Key_Return);
  EXPECT_EQ(TextAt(1, 2), "0.0000000");
  EXPECT_EQ(Emitted(), (Notes{"began 1 2", "committed 1 2"}));
}

TEST_F(ZCGridXWrapTest, EscapeBringsTheOldTextBack) {
  Write("xyz");
  EXPECT_TRUE(grid->IsEditing());
  EXPECT_TRUE(Key(Qt::Key_Escape)) << "it doesn't reach the window";
  EXPECT_FALSE(grid->IsEditing());
  EXPECT_EQ(TextAt(1, 1), "r1c1");
  EXPECT_TRUE(grid->hasFocus());
  EXPECT_EQ(Emitted(), (Notes{"began 1 1"}));
  EXPECT_FALSE(Key(Qt::Key_Escape)) << "without an edit it does";
}

TEST_F(ZCGridXWrapTest, TypingBeginsAnEditInPlaceOfTheOldText) {
  Write("ab");
  EXPECT_EQ(Line()->text(), "ab");
  Key(Qt::Key_Return);
  EXPECT_EQ(TextAt(1, 1), "ab");
  Key(Qt::Key_Delete);
  EXPECT_TRUE(grid->IsEditing());
  EXPECT_EQ(Line()->text(), "");
  Key(Qt::Key_Return);
  EXPECT_EQ(TextAt(1, 1), "");
  PressKey(Keys(), Qt::Key_A, "a", Qt::ControlModifier);
  EXPECT_FALSE(grid->IsEditing()) << "a control key types nothing";
  PressKey(Keys(), Qt::Key_F5, {});
  EXPECT_FALSE(grid->IsEditing());
}

TEST_F(ZCGridXWrapTest, ANumericCellTakesOnlyWhatItsFormatAllows) {
  grid->Select(2, 2);
  Write("x");
  EXPECT_FALSE(grid->IsEditing()) << "a letter doesn't even open it";
  Write("-");
  EXPECT_FALSE(grid->IsEditing()) << "nor a minus, as its minimum is 0";
  Write("1a2.345");
  EXPECT_EQ(Line()->text(), "12.34");
  Key(Qt::Key_Return);
  EXPECT_EQ(TextAt(2, 2), "12.34");
  Write("7777");
  EXPECT_EQ(Line()->text(), "777") << "three digits before the point";
  Key(Qt::Key_Escape);
  Key(Qt::Key_Backspace);
  Key(Qt::Key_Return);
  EXPECT_EQ(TextAt(2, 2), "") << "a number may be cleared";
}

TEST_F(ZCGridXWrapTest, EnterWithANumberOutOfRangeLeavesTheEditOpen) {
  grid->Select(2, 2);
  static_cast<void>(Emitted());
  Write("101");
  EXPECT_TRUE(Key(Qt::Key_Return));
  EXPECT_TRUE(grid->IsEditing());
  EXPECT_EQ(Line()->selectedText(), "101");
  EXPECT_EQ(TextAt(2, 2), "20");
  EXPECT_FALSE(grid->CommitEdit());
  EXPECT_EQ(Emitted(), (Notes{"began 2 2"}));
  Write("99");
  Key(Qt::Key_Return);
  EXPECT_EQ(TextAt(2, 2), "99");
}

TEST_F(ZCGridXWrapTest, ALostFocusStoresWhatIsAllowedAndDropsTheRest) {
  grid->Select(2, 2);
  Write("101");
  static_cast<void>(Emitted());
  other->setFocus();
  Settle();
  EXPECT_FALSE(grid->IsEditing());
  EXPECT_EQ(TextAt(2, 2), "20");
  EXPECT_FALSE(other->hasFocus() && grid->hasFocus());
  EXPECT_EQ(Emitted(), (Notes{"no focus"}));
  EXPECT_TRUE(other->hasFocus());
  grid->setFocus();
  Write("5");
  static_cast<void>(Emitted());
  other->setFocus();
  Settle();
  EXPECT_EQ(TextAt(2, 2), "5");
  EXPECT_EQ(Emitted(), (Notes{"committed 2 2 changed", "no focus"}));
  EXPECT_TRUE(other->hasFocus());
}

TEST_F(ZCGridXWrapTest, AMenuOrAnotherWindowDoesNotEndAnEdit) {
  Write("abc");
  for (const Qt::FocusReason reason : {Qt::PopupFocusReason, Qt::ActiveWindowFocusReason}) {
    QFocusEvent out(QEvent::FocusOut, reason);
    QApplication::sendEvent(Line(), &out);
    EXPECT_TRUE(grid->IsEditing());
  }
}

TEST_F(ZCGridXWrapTest, AnotherPresentCellEndsTheEdit) {
  Write("abc");
  grid->Select(3, 1);
  EXPECT_FALSE(grid->IsEditing());
  EXPECT_EQ(TextAt(1, 1), "abc");
  EXPECT_EQ(Emitted(), (Notes{"began 1 1", "committed 1 1 changed", "moved 3 1"}));
  grid->Select(2, 2);
  Write("500");
  grid->Select(1, 1);
  EXPECT_FALSE(grid->IsEditing());
  EXPECT_EQ(TextAt(2, 2), "20") << "what isn't allowed is dropped";
}

TEST_F(ZCGridXWrapTest, TabCommitsAndMovesOnUnlessRefused) {
  grid->Select(2, 2);
  Write("5");
  EXPECT_TRUE(Key(Qt::Key_Tab));
  EXPECT_EQ(TextAt(2, 2), "5");
  EXPECT_EQ(Present(), (Cell{2, 3}));
  grid->Select(2, 2);
  Write("500");
  Key(Qt::Key_Tab);
  EXPECT_EQ(Present(), (Cell{2, 2}));
  EXPECT_TRUE(grid->IsEditing());
}

TEST_F(ZCGridXWrapTest, WhatTheOwnerRefusesIsNotTyped) {
  grid->SetTextCheck([](const QString& text) { return !text.contains('<'); });
  Write("<");
  EXPECT_FALSE(grid->IsEditing());
  Write("a<b");
  EXPECT_EQ(Line()->text(), "ab");
  Line()->insert("c<d");
  EXPECT_EQ(Line()->text(), "ab") << "pasted text neither";
  Key(Qt::Key_Return);
  EXPECT_EQ(TextAt(1, 1), "ab");
}

TEST_F(ZCGridXWrapTest, CellsThatAcceptNoEditTakeNoTyping) {
  grid->Cells().SetReadOnly(1, 1, true);
  grid->Cells().SetRowState(2, GridRowState::kFactory);
  for (const Cell& cell : {Cell{1, 1}, Cell{2, 1}, Cell{2, 2}, Cell{2, 4}}) {
    grid->Select(cell.first, cell.second);
    EXPECT_FALSE(Key(Qt::Key_Return));
    Write("5");
    EXPECT_FALSE(grid->BeginEdit());
    grid->edit(grid->currentIndex());
    EXPECT_FALSE(grid->IsEditing()) << cell.first << cell.second;
  }
  grid->Select(2, 3);
  Key(Qt::Key_Space);
  EXPECT_TRUE(grid->Cells().IsChecked(2, 3)) << "but a factory row is checked";
}

TEST_F(ZCGridXWrapTest, SpaceAndATouchTurnACheck) {
  grid->Select(1, 3);
  static_cast<void>(Emitted());
  EXPECT_TRUE(Key(Qt::Key_Space));
  EXPECT_TRUE(grid->Cells().IsChecked(1, 3));
  EXPECT_EQ(Emitted(), (Notes{"committed 1 3 changed"}));
  Touch(2, 3);
  EXPECT_TRUE(grid->Cells().IsChecked(2, 3));
  EXPECT_EQ(Emitted(), (Notes{"moved 2 3", "committed 2 3 changed"}));
  Touch(2, 3);
  EXPECT_FALSE(grid->Cells().IsChecked(2, 3));
  PressMouse(grid->viewport(), Middle(2, 3), QEvent::MouseButtonDblClick);
  PressMouse(grid->viewport(), Middle(2, 3), QEvent::MouseButtonRelease);
  EXPECT_TRUE(grid->Cells().IsChecked(2, 3)) << "each quick touch counts";
  PressMouse(grid->viewport(), Middle(2, 3));
  PressMouse(grid->viewport(), Middle(3, 3), QEvent::MouseButtonRelease);
  EXPECT_TRUE(grid->Cells().IsChecked(2, 3)) << "released elsewhere";
  EXPECT_FALSE(grid->Cells().IsChecked(3, 3));
  grid->Cells().SetReadOnly(2, 3, true);
  Touch(2, 3);
  EXPECT_FALSE(grid->ToggleCheck());
  EXPECT_TRUE(grid->Cells().IsChecked(2, 3));
  grid->Select(1, 1);
  EXPECT_FALSE(grid->ToggleCheck());
}

TEST_F(ZCGridXWrapTest, ASecondTouchOpensACell) {
  Touch(2, 1);
  EXPECT_FALSE(grid->IsEditing());
  Touch(2, 1);
  EXPECT_TRUE(grid->IsEditing());
  grid->CancelEdit();
  grid->Select(3, 2);
  PressMouse(grid->viewport(), Middle(3, 2), QEvent::MouseButtonDblClick);
  EXPECT_TRUE(grid->IsEditing());
  Touch(1, 1);
  EXPECT_FALSE(grid->IsEditing());
  EXPECT_EQ(Present(), (Cell{1, 1}));
}

TEST_F(ZCGridXWrapTest, AListCellOpensItsItems) {
  grid->Select(1, 4);
  Key(Qt::Key_Return);
  auto* list = grid->viewport()->findChild<ListBox*>();
  ASSERT_NE(list, nullptr);
  EXPECT_EQ(list->Count(), 3);
  EXPECT_EQ(list->Selection(), 1) << "its text is selected";
  Key(Qt::Key_Down);
  Key(Qt::Key_Return);
  EXPECT_EQ(TextAt(1, 4), "tap");
  Key(Qt::Key_Return);
  Key(Qt::Key_Up);
  Key(Qt::Key_Escape);
  EXPECT_EQ(TextAt(1, 4), "tap");
  EXPECT_FALSE(grid->IsEditing());
  Settle();
  Write("m");
  Key(Qt::Key_Return);
  EXPECT_EQ(TextAt(1, 4), "mill") << "a letter finds an item";
}

TEST_F(ZCGridXWrapTest, AnItemIsChosenWithATouch) {
  Touch(1, 4);
  Touch(1, 4);
  auto* list = grid->viewport()->findChild<ListBox*>();
  ASSERT_NE(list, nullptr);
  EXPECT_TRUE(grid->viewport()->rect().contains(list->geometry()));
  const QPoint first = list->visualRect(list->model()->index(0, 0)).center();
  PressMouse(list->viewport(), first);
  PressMouse(list->viewport(), first, QEvent::MouseButtonRelease);
  EXPECT_EQ(TextAt(1, 4), "mill");
  EXPECT_FALSE(grid->IsEditing());
}

TEST_F(ZCGridXWrapTest, TheListLiesAboveACellWithoutRoomBelow) {
  grid->Cells().SetRows(40);
  grid->Cells().SetList(39, 4, {"a", "b", "c", "d", "e"});
  grid->Select(39, 4);
  Key(Qt::Key_Return);
  auto* list = grid->viewport()->findChild<ListBox*>();
  ASSERT_NE(list, nullptr);
  EXPECT_LT(list->geometry().bottom(), Middle(39, 4).y());
  EXPECT_TRUE(grid->viewport()->rect().contains(list->geometry()));
  EXPECT_GE(list->height(), 3 * list->RowHeight());
}

TEST_F(ZCGridXWrapTest, TheKeyHookSeesKeysOfTheGridAndOfItsEditFirst) {
  std::vector<int> seen;
  grid->SetKeyHook([&seen](QKeyEvent& event) {
    seen.push_back(event.key());
    return event.key() == Qt::Key_Insert;
  });
  EXPECT_TRUE(Key(Qt::Key_Insert));
  Key(Qt::Key_Down);
  Key(Qt::Key_Return);
  Key(Qt::Key_Insert);
  Key(Qt::Key_Escape);
  EXPECT_EQ(seen, (std::vector<int>{Qt::Key_Insert, Qt::Key_Down, Qt::Key_Return, Qt::Key_Insert, Qt::Key_Escape}));
}

TEST_F(ZCGridXWrapTest, AnOpenEditKeepsTheArrowKeys) {
  Key(Qt::Key_Return);
  for (const int key : {Qt::Key_Up, Qt::Key_Down, Qt::Key_Left, Qt::Key_Right, Qt::Key_PageDown}) Key(key);
  EXPECT_TRUE(grid->IsEditing());
  EXPECT_EQ(Present(), (Cell{1, 1}));
}

TEST_F(ZCGridXWrapTest, AClickedHeaderIsToldAndLeavesTheSortMarker) {
  grid->SetSortMarker(2, true);
  EXPECT_EQ(grid->SortColumn(), 2);
  QHeaderView* header = grid->horizontalHeader();
  const QPoint place(header->sectionViewportPosition(1) + 5, 10);
  PressMouse(header->viewport(), place);
  PressMouse(header->viewport(), place, QEvent::MouseButtonRelease);
  EXPECT_EQ(Emitted(), (Notes{"header 1"}));
  EXPECT_EQ(grid->SortColumn(), 2);
  const QPoint away(header->sectionViewportPosition(2) + 5, 10);
  PressMouse(header->viewport(), place);
  PressMouse(header->viewport(), away, QEvent::MouseButtonRelease);
  EXPECT_TRUE(Emitted().empty()) << "released elsewhere";
  grid->SetSortMarker(-1, true);
  EXPECT_EQ(grid->SortColumn(), -1);
  EXPECT_FALSE(header->isSortIndicatorShown());
}

TEST_F(ZCGridXWrapTest, TheFixedColumnSelectsItsRow) {
  QHeaderView* side = grid->verticalHeader();
  const QPoint place(5, side->sectionViewportPosition(2) + 5);
  PressMouse(side->viewport(), place);
  PressMouse(side->viewport(), place, QEvent::MouseButtonRelease);
  EXPECT_EQ(Present(), (Cell{3, 1}));
}

TEST_F(ZCGridXWrapTest, DeletingTheRowOfAnOpenEditClosesIt) {
  grid->Select(2, 1);
  Write("abc");
  EXPECT_TRUE(grid->Cells().DeleteRow(2));
  EXPECT_FALSE(grid->IsEditing());
  EXPECT_EQ(TextAt(2, 1), "r3c1");
  Settle();
  grid->Select(2, 1);
  EXPECT_TRUE(grid->BeginEdit()) << "the next edit opens";
  grid->Cells().SetColumns(5);
  EXPECT_FALSE(grid->IsEditing());
}

TEST_F(ZCGridXWrapTest, NothingIsToldWhileRowsGoOrColumnsChange) {
  Write("abc");
  static_cast<void>(Emitted());
  QObject::connect(grid->model(), &QAbstractItemModel::rowsAboutToBeRemoved, grid,
                   [this] { EXPECT_TRUE(emitted.empty()); });
  grid->Cells().DeleteRow(1);
  EXPECT_TRUE(Emitted().empty());
  Settle();
  grid->Select(2, 2);
  grid->BeginEdit();
  static_cast<void>(Emitted());
  grid->Cells().SetColumns(3);
  EXPECT_TRUE(Emitted().empty()) << "a listener could destroy the grid in the middle";
  Settle();
  EXPECT_EQ(Emitted(), (Notes{"moved 0 0"}));
}

TEST_F(ZCGridXWrapTest, ACellWrittenDuringAnEditDoesNotTakeWhatIsTyped) {
  Write("abc");
  grid->Cells().SetCellText(1, 1, "from outside");
  EXPECT_EQ(Line()->text(), "abc");
  Key(Qt::Key_Escape);
  EXPECT_EQ(TextAt(1, 1), "from outside");
}

TEST_F(ZCGridXWrapTest, PaintsStatesSelectionAndReadOnlyCellsApart) {
  GridModel& cells = grid->Cells();
  for (int row = 1; row < 5; ++row) cells.SetCellText(row, 1, {});
  grid->SetColors(0xFFFFFF, 0xC0C0C0, 0xFFFFFF);
  cells.SetRowState(1, GridRowState::kFactory);
  cells.SetRowState(2, GridRowState::kFailed);
  cells.SetReadOnly(3, 1, true);
  grid->Select(4, 2);
  const auto ground = [this](int row, int column) {
    const QRect cell = grid->visualRect(grid->model()->index(row - 1, column));
    return ColorAt(Paint(*grid->viewport()), cell.left() + 6, cell.top() + 6);
  };
  std::set<std::uint32_t> grounds{ground(1, 1), ground(2, 1), ground(4, 1)};
  EXPECT_EQ(grounds.size(), 3u);
  EXPECT_EQ(ground(3, 2), 0xFFFFFFu);
  EXPECT_NE(ground(3, 1), 0xFFFFFFu);
  const std::uint32_t failed = ground(2, 2);
  EXPECT_GT(failed & 0xFF, ((failed >> 8) & 0xFF) + 40) << "clearly red";
}

TEST_F(ZCGridXWrapTest, TextIsReadableOnAnyColourOfTheOwner) {
  for (const Color color : {0x000000u, 0x342A20u, 0x808080u, 0xC0C0C0u, 0xFFFFFFu}) {
    for (const GridRowState state : {GridRowState::kFactory, GridRowState::kNormal, GridRowState::kFailed}) {
      for (const bool selected : {false, true}) {
        GridCellFace face;
        face.state = state;
        face.selected = selected;
        face.focused = true;
        const GridColors colors{color, color, color};
        const int apart = std::abs(GridCellText(colors, face).lightness() - GridCellGround(colors, face).lightness());
        EXPECT_GT(apart, 70) << std::hex << color << " " << static_cast<int>(state) << selected;
      }
    }
  }
}

TEST_F(ZCGridXWrapTest, RowsAreHighEnoughForAFingerAndForTheFont) {
  EXPECT_GE(grid->rowHeight(0), 34);
  grid->SetFont("Arial", 40, 400);
  EXPECT_GE(grid->rowHeight(0), 46);
  EXPECT_GE(grid->horizontalHeader()->height(), 46);
  const int height = grid->rowHeight(0);
  grid->SetFont("", 10, 400);
  EXPECT_EQ(grid->rowHeight(0), height) << "a font that can't be made";
  grid->SetRowHeight(2, 80);
  grid->SetRowHeight(0, 50);
  EXPECT_EQ(grid->rowHeight(1), 80);
  EXPECT_EQ(grid->horizontalHeader()->height(), 50);
  grid->SetColumnWidth(0, 60);
  EXPECT_EQ(grid->verticalHeader()->width(), 60);
}

TEST_F(ZCGridXWrapTest, FocusIsToldWhenItComesAndGoes) {
  other->setFocus();
  Settle();
  grid->setFocus();
  EXPECT_EQ(Emitted(), (Notes{"no focus", "focus"}));
}

/// A listener may destroy the grid.
TEST_F(ZCGridXWrapTest, MayBeDestroyedByWhoListens) {
  std::vector<std::function<void()>> ways;
  ways.emplace_back([this] {
    Write("abc");
    Key(Qt::Key_Return);
  });
  ways.emplace_back([this] {
    Write("abc");
    other->setFocus();
    Settle();
  });
  ways.emplace_back([this] { Key(Qt::Key_Down); });
  ways.emplace_back([this] { PressMouse(grid->viewport(), Middle(2, 2)); });
  ways.emplace_back([this] {
    // Moved is emitted only with the key, after the check.
    grid->selectionModel()->setCurrentIndex(grid->model()->index(0, 3), QItemSelectionModel::NoUpdate);
    Key(Qt::Key_Space);
  });
  ways.emplace_back([this] {
    QHeaderView* header = grid->horizontalHeader();
    PressMouse(header->viewport(), QPoint(5, 5));
    PressMouse(header->viewport(), QPoint(5, 5), QEvent::MouseButtonRelease);
  });
  ways.emplace_back([this] { Key(Qt::Key_F12); });  // the key hook
  ways.emplace_back([this] {
    Key(Qt::Key_Return);
    Key(Qt::Key_F12);
  });
  const auto make = [this] {
    delete grid;
    grid = new ZCGridXWrap(1, &window);
    grid->setGeometry(0, 0, 500, 300);
    grid->Cells().SetColumns(4);
    grid->Cells().SetRows(4);
    grid->Cells().SetKind(1, 3, GridCellKind::kCheck);
    grid->show();
    grid->setFocus();
    grid->Select(1, 1);
    Settle();
  };
  for (std::size_t i = 0; i < ways.size(); ++i) {
    make();
    const QPointer<ZCGridXWrap> alive(grid);
    const auto end = [alive] { delete alive; };
    QObject::connect(grid, &ZCGridXWrap::Committed, &window, end);
    QObject::connect(grid, &ZCGridXWrap::Moved, &window, end);
    QObject::connect(grid, &ZCGridXWrap::HeaderClicked, &window, end);
    grid->SetKeyHook([end](QKeyEvent& event) {
      if (event.key() == Qt::Key_F12) end();
      return false;
    });
    ways[i]();
    EXPECT_TRUE(alive.isNull()) << i;
    if (alive.isNull()) grid = nullptr;
  }
}

TEST_F(ZCGridXWrapTest, MayGoWithAnOpenEdit) {
  Write("abc");
  static_cast<void>(Emitted());
  delete std::exchange(grid, nullptr);
  EXPECT_TRUE(emitted.empty()) << "and emits nothing";
}

}  // namespace
}  // namespace pnl::test
