// SPDX-License-Identifier: MIT
// The open edit of a grid's cell: where it lies and how it looks; and the
// measures of the grid around it.
#include <QtGui/QPalette>

#include "controls/fonts.h"
#include "controls/list_box.h"
#include "controls/zc_grid_xwrap.h"
#include "support/widget_probe.h"
#include "window/qt/control_properties.h"
#include "window/qt/finger.h"

namespace pnl::test {
namespace {

const QColor kRefused(0xB0, 0x10, 0x1C);
const QColor kInk(0x14, 0x1A, 0x21);
const QColor kMarked(0x00, 0x74, 0xD0);

class GridEditLookTest : public testing::Test {
 protected:
  GridEditLookTest() {
    window.resize(600, 400);
    grid = new ZCGridXWrap(3028, &window);
    grid->setGeometry(0, 0, 500, 300);
    GridModel& cells = grid->Cells();
    cells.SetColumns(4);
    cells.SetRows(30);
    cells.SetKind(1, 2, GridCellKind::kNumber);
    cells.SetRowFormat(1, {3, 2, 0, 100});
    grid->SetFont("Arial", 16, 400);
    Activate(window);
    grid->setFocus();
    grid->Select(1, 1);
  }
  template <typename Editor>
  Editor* Open(int row, int column) {
    grid->Select(row, column);
    EXPECT_TRUE(grid->BeginEdit());
    const auto editors = grid->viewport()->findChildren<Editor*>(Qt::FindDirectChildrenOnly);
    return editors.isEmpty() ? nullptr : editors.last();
  }
  [[nodiscard]] QRect Cell(int row, int column) const {
    return grid->visualRect(grid->model()->index(row - 1, column));
  }
  QWidget window;
  ZCGridXWrap* grid;
};

TEST_F(GridEditLookTest, ALineIsInsideTheCellsFrameInItsFontWithDarkTextOnWhite) {
  auto* line = Open<QLineEdit>(1, 1);
  ASSERT_NE(line, nullptr);
  EXPECT_EQ(line->geometry(), Cell(1, 1).adjusted(3, 3, -4, -4));
  EXPECT_EQ(line->font(), grid->font());
  EXPECT_FALSE(line->hasFrame());
  EXPECT_EQ(line->contextMenuPolicy(), Qt::NoContextMenu);
  EXPECT_EQ(line->alignment() & Qt::AlignHorizontal_Mask, Qt::AlignLeft);
  EXPECT_EQ(line->palette().color(QPalette::Base), QColor(Qt::white));
  EXPECT_EQ(line->palette().color(QPalette::Text), kInk);
  EXPECT_EQ(line->palette().color(QPalette::Highlight), kMarked);
  EXPECT_EQ(line->palette().color(QPalette::HighlightedText), QColor(Qt::white));
  grid->CancelEdit();
  auto* number = Open<QLineEdit>(1, 2);
  EXPECT_EQ(number->alignment() & Qt::AlignHorizontal_Mask, Qt::AlignRight);
}

TEST_F(GridEditLookTest, ASelectedTextIsWhiteWhateverThePaletteSays) {
  QPalette colors = grid->palette();
  colors.setColor(QPalette::HighlightedText, Qt::green);
  grid->setPalette(colors);
  auto* line = Open<QLineEdit>(1, 1);
  ASSERT_NE(line, nullptr);
  EXPECT_EQ(line->palette().color(QPalette::HighlightedText), QColor(Qt::white));
}

TEST_F(GridEditLookTest, ANumberThatItsFormatForbidsTakesNoLetterEither) {
  grid->Cells().SetCellText(1, 2, "123456");
  auto* line = Open<QLineEdit>(1, 2);
  ASSERT_NE(line, nullptr);
  const QString start = line->text();
  line->deselect();
  line->end(false);
  Type(line, "x");
  EXPECT_EQ(line->text(), start);
}

TEST_F(GridEditLookTest, AnEditThatHasEndedLeavesNothingInTheGrid) {
  Open<QLineEdit>(1, 1);
  grid->CancelEdit();
  Settle();
  EXPECT_EQ(grid->viewport()->findChild<QLineEdit*>(), nullptr);
}

TEST_F(GridEditLookTest, EachKindOfCellIsPaintedAsItIs) {
  grid->Select(5, 1);
  const auto cell = [this](int row, int column) { return Paint(*grid->viewport()).copy(Cell(row, column)); };
  grid->Cells().SetCellText(1, 2, "8");
  EXPECT_GT(Ink(cell(1, 2), 0xFFFFFF, Cell(1, 2).adjusted(0, 2, -2, -2).translated(-Cell(1, 2).topLeft())).left(),
            Cell(1, 2).width() / 2)
      << "a number is at the right";
  grid->Cells().SetKind(3, 1, GridCellKind::kCheck);
  const QImage off = cell(3, 1);
  grid->Cells().SetChecked(3, 1, true);
  EXPECT_NE(cell(3, 1), off);
}

TEST_F(GridEditLookTest, ThePresentCellAloneHasAFrame) {
  grid->Select(5, 2);
  const QImage image = Paint(*grid->viewport());
  const QColor frame(0x0A, 0x6E, 0xC8);
  for (const auto& [row, column] : {std::pair{5, 1}, {4, 2}, {5, 3}}) {
    EXPECT_NE(image.pixelColor(Cell(row, column).topLeft() + QPoint(1, 1)), frame);
  }
  EXPECT_EQ(image.pixelColor(Cell(5, 2).topLeft() + QPoint(1, 1)), frame);
}

TEST_F(GridEditLookTest, ARefusedNumberIsRedUntilItIsTypedOn) {
  auto* line = Open<QLineEdit>(1, 2);
  Type(line, "101");
  EXPECT_EQ(line->palette().color(QPalette::Text), kInk);
  EXPECT_FALSE(grid->CommitEdit());
  EXPECT_EQ(line->palette().color(QPalette::Text), kRefused);
  EXPECT_EQ(line->palette().color(QPalette::Highlight), kRefused);
  Type(line, "5");
  EXPECT_EQ(line->palette().color(QPalette::Text), kInk);
  EXPECT_EQ(line->palette().color(QPalette::Highlight), kMarked);
  EXPECT_TRUE(grid->CommitEdit());
  EXPECT_TRUE(grid->CommitEdit()) << "without an edit there is nothing to refuse";
}

TEST_F(GridEditLookTest, AListLiesRightBelowItsCellAsHighAsItsItems) {
  grid->Cells().SetList(2, 3, {"mill", "drill", "tap"});
  auto* list = Open<ListBox>(2, 3);
  ASSERT_NE(list, nullptr);
  const QRect cell = Cell(2, 3);
  EXPECT_EQ(list->geometry().topLeft(), QPoint(cell.left(), cell.bottom() + 1));
  EXPECT_EQ(list->width(), cell.width());
  EXPECT_EQ(list->height(), 3 * list->RowHeight() + 2 * list->frameWidth());
  EXPECT_GT(list->frameWidth(), 0);
  EXPECT_EQ(list->font(), grid->font());
  EXPECT_EQ(list->BackColor(), 0x342A20u);
  EXPECT_EQ(list->TextColor(), 0xF7F3EEu);
  EXPECT_EQ(list->SelectedBackColor(), 0xB26F1Fu);
  EXPECT_EQ(list->SelectedTextColor(), 0xF7F3EEu);
  EXPECT_EQ(list->property(property::kId).toInt(), -1) << "no control of the window";
  EXPECT_EQ(list->Selection(), -1) << "the cell's text is none of the items";
  list->Select(0);
  grid->CancelEdit();
  EXPECT_EQ(grid->Cells().CellText(2, 3), "");
}

TEST_F(GridEditLookTest, AListThatFitsOnlyAboveEndsAtItsCell) {
  const int row = grid->viewport()->height() / grid->rowHeight(0) - 1;  // one row below is free
  grid->Cells().SetList(row, 3, {"a", "b", "c"});
  auto* list = Open<ListBox>(row, 3);
  ASSERT_NE(list, nullptr);
  EXPECT_EQ(list->geometry().bottom(), Cell(row, 3).top() - 1);
  EXPECT_EQ(list->height(), 3 * list->RowHeight() + 2 * list->frameWidth());
}

TEST_F(GridEditLookTest, AListTooLongForEitherSideTakesTheLargerOne) {
  QStringList many;
  for (int i = 0; i < 50; ++i) many << QString::number(i);
  grid->Cells().SetList(2, 3, many);
  auto* list = Open<ListBox>(2, 3);
  const int bottom = grid->viewport()->rect().bottom();
  EXPECT_EQ(list->geometry().top(), Cell(2, 3).bottom() + 1);
  EXPECT_EQ(list->geometry().bottom(), bottom);
}

TEST_F(GridEditLookTest, APressBesideTheItemsChoosesNone) {
  grid->Cells().SetList(1, 3, {"mill", "drill"});
  auto* list = Open<ListBox>(1, 3);
  list->resize(list->width(), list->height() + 60);
  const QPoint below(5, list->viewport()->height() - 10);
  PressMouse(list->viewport(), below);
  PressMouse(list->viewport(), below, QEvent::MouseButtonRelease);
  EXPECT_TRUE(grid->IsEditing());
  list->Select(1);
  EXPECT_TRUE(grid->CommitEdit());
  EXPECT_EQ(grid->Cells().CellText(1, 3), "drill");
}

TEST_F(GridEditLookTest, AnOpenEditKeepsEscapeFromShortcuts) {
  auto* line = Open<QLineEdit>(1, 1);
  for (const auto& [key, kept] : {std::pair{Qt::Key_Escape, true}, {Qt::Key_F9, false}}) {
    QKeyEvent event(QEvent::ShortcutOverride, key, Qt::NoModifier);
    event.ignore();
    QApplication::sendEvent(line, &event);
    EXPECT_EQ(event.isAccepted(), kept) << key;
  }
}

TEST_F(GridEditLookTest, RowsAndHeadersAreAsHighAsAFingerOrAsTheFontWithItsMargin) {
  const auto heights = [this] { return std::pair(grid->rowHeight(3), grid->horizontalHeader()->height()); };
  EXPECT_EQ(heights(), std::pair(FingerPixels(*grid), FingerPixels(*grid)));
  for (const int cell : {22, 24, 40}) {
    grid->SetFont("Arial", cell, 400);
    const int wanted = std::max(FingerPixels(*grid), CellHeight(QFontMetrics(grid->font())) + 12);
    EXPECT_EQ(heights(), std::pair(wanted, wanted)) << cell;
    EXPECT_EQ(grid->itemDelegate()->sizeHint({}, {}).height(), wanted);
  }
}

TEST_F(GridEditLookTest, TheGridsMeasuresAreThoseOfATouchPanel) {
  EXPECT_EQ(grid->verticalHeader()->width(), 24);
  EXPECT_EQ(grid->verticalScrollBar()->sizeHint().width(), FingerPixels(*grid));
  EXPECT_EQ(grid->horizontalScrollBar()->sizeHint().height(), FingerPixels(*grid));
  EXPECT_EQ(grid->frameWidth(), 0);
  EXPECT_FALSE(grid->showGrid());
  EXPECT_EQ(grid->contextMenuPolicy(), Qt::NoContextMenu);
  EXPECT_EQ(grid->horizontalScrollMode(), QAbstractItemView::ScrollPerPixel);
  EXPECT_EQ(grid->palette().color(QPalette::Base), QColor(0xC0, 0xC0, 0xC0).lighter(108));
  EXPECT_EQ(grid->BackColor(), 0xFFFFFFu);
}

TEST_F(GridEditLookTest, SizesOfRowsAndColumnsThatAreNotThereAreIgnored) {
  grid->SetColumnWidth(3, 70);
  for (const auto& [column, width] : {std::pair{4, 50}, {-1, 50}}) grid->SetColumnWidth(column, width);
  EXPECT_EQ(grid->columnWidth(3), 70);
  grid->SetColumnWidth(1, 1);
  EXPECT_EQ(grid->columnWidth(1), 1);
  grid->SetColumnWidth(1, -5);
  EXPECT_TRUE(grid->isColumnHidden(1));
  grid->SetColumnWidth(0, -5);
  EXPECT_EQ(grid->verticalHeader()->width(), 0);
  grid->SetRowHeight(29, 60);
  EXPECT_EQ(grid->rowHeight(28), 60) << "the last row";
  grid->SetRowHeight(30, 60);
  grid->SetRowHeight(2, 0);
  grid->SetRowHeight(2, -1);
  EXPECT_EQ(grid->rowHeight(1), FingerPixels(*grid));
  grid->SetRowHeight(2, 1);
  EXPECT_EQ(grid->rowHeight(1), 1);
  grid->SetFixed(1, 0);
  EXPECT_EQ(std::pair(grid->FixedRows(), grid->FixedColumns()), std::pair(1, 0));
  grid->SetFixed(0, 1);
  EXPECT_EQ(std::pair(grid->FixedRows(), grid->FixedColumns()), std::pair(0, 1));
}

TEST_F(GridEditLookTest, CellsArePaintedByTheirRowTheirTintAndTheGridsState) {
  grid->SetColors(0xFFFFFF, 0xC0C0C0, 0x80FFFF);
  grid->Cells().SetRowFormat(2, {3, 2, 0, 100});
  grid->Select(5, 1);
  const auto ground = [this](int row, int column) {
    const QRect cell = Cell(row, column);
    return ColorAt(Paint(*grid->viewport()), cell.left() + 6, cell.top() + 6);
  };
  EXPECT_EQ(ground(1, 1), 0xFFFFFFu);
  EXPECT_EQ(ground(2, 1), 0x80FFFFu) << "every second row";
  EXPECT_EQ(ground(3, 1), 0xFFFFFFu);
  grid->Cells().SetTint(3, 1, true);
  EXPECT_EQ(ground(3, 1), 0x83CEFAu);
  EXPECT_EQ(ground(3, 2), 0xFFFFFFu) << "the cell alone";
  EXPECT_EQ(ground(5, 2), 0xE2C8AAu) << "selected, with the focus";
  auto* line = Open<QLineEdit>(5, 1);
  ASSERT_TRUE(line->hasFocus());
  EXPECT_EQ(ground(5, 2), 0xE2C8AAu) << "its edit's focus is its own";
  grid->CancelEdit();
  grid->clearFocus();
  EXPECT_EQ(ground(5, 2), 0xF0E2D2u) << "selected, without it";
}

TEST_F(GridEditLookTest, NumbersArePaintedByTheirFormatAndTextsAsTheyAre) {
  grid->Select(5, 1);
  const auto cell = [this](int column) { return Paint(*grid->viewport()).copy(Cell(1, column)); };
  grid->Cells().SetCellText(1, 2, "12.3456");
  const QImage rounded = cell(2);
  grid->Cells().SetCellText(1, 2, "12.35");
  EXPECT_EQ(cell(2), rounded);
  grid->Cells().SetCellText(1, 2, "12.36");
  EXPECT_NE(cell(2), rounded);
  grid->Cells().SetCellText(1, 1, "12.3456");
  const QImage text = cell(1);
  grid->Cells().SetCellText(1, 1, "12.35");
  EXPECT_NE(cell(1), text);
}

TEST_F(GridEditLookTest, ADisabledGridIsPale) {
  grid->Cells().SetCellText(1, 1, "HHHHHHHH");
  grid->Select(5, 1);
  const auto darkest = [this] {
    const QImage image = Paint(*grid->viewport()).copy(Cell(1, 1).adjusted(1, 1, -2, -2));
    int least = 255;
    for (int y = 0; y < image.height(); ++y) {
      for (int x = 0; x < image.width(); ++x) least = std::min(least, image.pixelColor(x, y).lightness());
    }
    return least;
  };
  EXPECT_LT(darkest(), 90);
  grid->setEnabled(false);
  EXPECT_GT(darkest(), 100);
}

// Presses and keys that look like an edit and are none.

TEST_F(GridEditLookTest, OtherButtonsAndCellsOpenNoEdit) {
  const auto press = [this](int row, Qt::MouseButton button, QEvent::Type type) {
    PressMouse(grid->viewport(), Cell(row, 1).center(), type, button);
    PressMouse(grid->viewport(), Cell(row, 1).center(), QEvent::MouseButtonRelease, button);
  };
  press(2, Qt::RightButton, QEvent::MouseButtonPress);
  EXPECT_EQ(grid->Row(), 1) << "another button moves nothing";
  press(1, Qt::RightButton, QEvent::MouseButtonPress);
  press(1, Qt::RightButton, QEvent::MouseButtonDblClick);
  press(3, Qt::LeftButton, QEvent::MouseButtonDblClick);
  EXPECT_FALSE(grid->IsEditing());
  EXPECT_EQ(grid->Row(), 1);
  const QPoint place = Cell(1, 1).center();
  QMouseEvent shift(QEvent::MouseButtonPress, place, grid->viewport()->mapToGlobal(place), Qt::LeftButton,
                    Qt::LeftButton, Qt::ShiftModifier);
  QApplication::sendEvent(grid->viewport(), &shift);
  PressMouse(grid->viewport(), place, QEvent::MouseButtonRelease);
  EXPECT_FALSE(grid->IsEditing()) << "with Shift a range is selected";
  press(1, Qt::LeftButton, QEvent::MouseButtonPress);
  EXPECT_TRUE(grid->IsEditing());
}

TEST_F(GridEditLookTest, WhatIsTypedIsTextAndNotAControlCharacter) {
  for (const auto modifier : {Qt::ControlModifier, Qt::AltModifier, Qt::MetaModifier}) {
    EXPECT_FALSE(PressKey(grid, Qt::Key_A, "a", modifier));
    EXPECT_FALSE(grid->IsEditing());
  }
  PressKey(grid, Qt::Key_Cancel, QString(QChar(3)));
  EXPECT_FALSE(grid->IsEditing());
  const QString beyond = QString::fromUcs4(U"\U0001F600");
  EXPECT_TRUE(PressKey(grid, 0, beyond));
  ASSERT_TRUE(grid->IsEditing());
  EXPECT_EQ(qobject_cast<QLineEdit*>(QApplication::focusWidget())->text(), beyond);
  EXPECT_TRUE(grid->BeginEdit()) << "it is open already";
  grid->CancelEdit();
  EXPECT_TRUE(PressKey(grid, Qt::Key_Space, " "));
  EXPECT_TRUE(grid->IsEditing()) << "a blank begins a text";
}

}  // namespace
}  // namespace pnl::test
