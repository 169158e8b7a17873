// SPDX-License-Identifier: MIT
// The fixed row and column of a grid: how their cells are painted, and which
// presses on them count.
#include "controls/grid_header.h"

#include "controls/draw_text.h"
#include "controls/fonts.h"
#include "controls/zc_grid_xwrap.h"
#include "support/widget_probe.h"

namespace pnl::test {
namespace {

constexpr std::uint32_t kFixed = 0xC0C0C0;
const QColor kLine(0xAB, 0xAC, 0xAD);

class GridHeaderTest : public testing::Test {
 protected:
  GridHeaderTest() {
    grid.resize(400, 200);
    GridModel& cells = grid.Cells();
    cells.SetColumns(4);
    cells.SetRows(4);
    cells.SetCellText(0, 0, "corner");
    cells.SetCellText(0, 1, "HHH");
    cells.SetCellText(1, 0, "H");
    grid.SetColors(0xFFFFFF, kFixed, 0xFFFFFF);
    grid.SetFont("Arial", 16, 400);
    for (int column = 1; column < 4; ++column) grid.SetColumnWidth(column, 80);
    grid.SetColumnWidth(0, 60);
    Activate(grid);
    grid.Select(3, 1);
  }
  [[nodiscard]] QHeaderView& Across() { return *grid.horizontalHeader(); }
  [[nodiscard]] QHeaderView& Side() { return *grid.verticalHeader(); }
  void Press(QPoint place, QPoint release, Qt::MouseButton button = Qt::LeftButton) {
    PressMouse(Across().viewport(), place, QEvent::MouseButtonPress, button);
    PressMouse(Across().viewport(), release, QEvent::MouseButtonRelease, button);
  }
  ZCGridXWrap grid{3028, nullptr};
};

TEST_F(GridHeaderTest, ACellHasItsGroundAndDarkLinesAtItsEnds) {
  const QImage image = Paint(*Across().viewport());
  const int bottom = Across().height() - 1;
  const QRgb line = kLine.darker(115).rgb();
  EXPECT_EQ(ColorAt(image, 2, 2), kFixed);
  EXPECT_EQ(image.pixel(40, bottom), line);
  EXPECT_EQ(image.pixel(79, 2), line);
  EXPECT_EQ(ColorAt(image, 40, bottom - 1), kFixed);
  EXPECT_EQ(ColorAt(image, 78, 2), kFixed);
  EXPECT_EQ(ColorAt(image, 80, 2), kFixed);
}

TEST_F(GridHeaderTest, ColumnsAreNamedInBoldInTheMiddleAndRowsAtTheLeft) {
  const QImage across = Paint(*Across().viewport());
  QImage expected(80, Across().height(), QImage::Format_RGB32);
  expected.fill(QColor(0xC0, 0xC0, 0xC0));
  {
    QPainter painter(&expected);
    QFont bold = grid.font();
    bold.setWeight(QFont::DemiBold);
    painter.setFont(bold);
    painter.setPen(QColor(0x14, 0x1A, 0x21));
    DrawText(painter, QRect(6, 0, 68, Across().height() - 1), QString("HHH"), 0x20 | 0x4 | 0x800 | 0x8000 | 0x1);
  }
  const QRect inside(1, 1, 77, Across().height() - 3);
  EXPECT_EQ(across.copy(inside), expected.copy(inside));
  const QImage side = Paint(*Side().viewport());
  QImage row(60, grid.rowHeight(0), QImage::Format_RGB32);
  row.fill(QColor(0xC0, 0xC0, 0xC0));
  {
    QPainter painter(&row);
    painter.setFont(grid.font());
    painter.setPen(QColor(0x14, 0x1A, 0x21));
    DrawText(painter, QRect(6, 0, 48, row.height() - 1), QString("H"), 0x20 | 0x4 | 0x800 | 0x8000);
  }
  const QRect within(1, 1, 57, row.height() - 3);
  EXPECT_EQ(side.copy(within), row.copy(within));
}

TEST_F(GridHeaderTest, TheHeadOfThePresentRowIsDarkerAndThatOfItsColumnIsNot) {
  grid.Select(2, 1);
  const QImage side = Paint(*Side().viewport());
  const int height = grid.rowHeight(0);
  EXPECT_EQ(ColorAt(side, 2, height / 2), kFixed);
  EXPECT_EQ(side.pixelColor(2, height + height / 2), kLine);
  EXPECT_EQ(ColorAt(side, 2, 2 * height + height / 2), kFixed);
  EXPECT_EQ(ColorAt(Paint(*Across().viewport()), 2, 2), kFixed);
}

TEST_F(GridHeaderTest, AFailedRowHasItsBar) {
  const QColor red(0xD8, 0x1E, 0x2C);
  grid.Cells().SetRowState(2, GridRowState::kFailed);
  grid.Cells().SetRowState(3, GridRowState::kFactory);
  const QImage side = Paint(*Side().viewport());
  const int height = grid.rowHeight(0);
  EXPECT_NE(side.pixelColor(2, height / 2), red);
  EXPECT_EQ(side.pixelColor(4, height + height / 2), red);
  EXPECT_NE(side.pixelColor(5, height + height / 2), red);
  EXPECT_NE(side.pixelColor(2, 2 * height + height / 2), red);
}

TEST_F(GridHeaderTest, TheSortMarkerLiesAtTheRightAndPointsUpOrDown) {
  const QImage without = Paint(*Across().viewport()).copy(80, 0, 80, Across().height());
  grid.SetSortMarker(2, true);
  EXPECT_EQ(Across().sortIndicatorOrder(), Qt::AscendingOrder);
  const QImage up = Paint(*Across().viewport()).copy(80, 0, 80, Across().height());
  grid.SetSortMarker(2, false);
  EXPECT_EQ(Across().sortIndicatorOrder(), Qt::DescendingOrder);
  const QImage down = Paint(*Across().viewport()).copy(80, 0, 80, Across().height());
  EXPECT_NE(up, down);
  EXPECT_NE(up, without);
  QFont bold = grid.font();
  bold.setWeight(QFont::DemiBold);
  const int width = CellHeight(QFontMetrics(bold)) * 2 / 3;
  const QRect ink = Ink(up, kFixed, QRect(0, 1, 79, up.height() - 3));
  EXPECT_NEAR(ink.width(), width, 1);
  EXPECT_NEAR(ink.right(), 73, 1) << "before the margin";
  EXPECT_EQ(Paint(*Across().viewport()).copy(0, 0, 80, up.height()).pixelColor(70, up.height() / 2),
            QColor(0xC0, 0xC0, 0xC0))
      << "no other column has one";
  for (const int none : {0, 4, -1}) {
    grid.SetSortMarker(none, true);
    EXPECT_EQ(grid.SortColumn(), -1) << none;
  }
}

TEST_F(GridHeaderTest, ATextMakesRoomForTheSortMarker) {
  grid.Cells().SetCellText(0, 1, "a heading that is longer than its column");
  grid.SetSortMarker(1, true);
  QFont bold = grid.font();
  bold.setWeight(QFont::DemiBold);
  const int width = CellHeight(QFontMetrics(bold)) * 2 / 3;
  const QImage image = Paint(*Across().viewport());
  // Between the text and the marker the margin stays free.
  EXPECT_TRUE(Ink(image, kFixed, QRect(73 - width - 5, 1, 5, image.height() - 3)).isEmpty());
}

TEST_F(GridHeaderTest, TheCornerShowsItsOwnText) {
  auto* corner = grid.findChild<QAbstractButton*>(QString(), Qt::FindDirectChildrenOnly);
  ASSERT_NE(corner, nullptr);
  const QImage image = Paint(*corner);
  EXPECT_EQ(ColorAt(image, 2, 2), kFixed);
  EXPECT_EQ(image.pixel(image.width() - 1, 5), kLine.darker(115).rgb());
  EXPECT_FALSE(Ink(image, kFixed, image.rect().adjusted(6, 2, -6, -2)).isEmpty());
  grid.Cells().SetCellText(0, 0, {});
  EXPECT_TRUE(Ink(Paint(*corner), kFixed, image.rect().adjusted(6, 2, -6, -2)).isEmpty());
}

TEST_F(GridHeaderTest, NobodyDragsTheEdgeOfAColumnOrARow) {
  EXPECT_EQ(Across().sectionResizeMode(1), QHeaderView::Fixed);
  EXPECT_EQ(Side().sectionResizeMode(1), QHeaderView::Fixed);
  for (const QHeaderView* header : {&Across(), &Side()}) {
    EXPECT_FALSE(header->sectionsMovable());
    EXPECT_FALSE(header->sectionsClickable()) << "its owner alone turns the sort marker";
    EXPECT_FALSE(header->highlightSections());
    EXPECT_EQ(header->contextMenuPolicy(), Qt::NoContextMenu);
  }
}

TEST_F(GridHeaderTest, ACellIsPaintedInItsRectangleAloneAndLeavesThePainterAsItWas) {
  grid.Cells().SetRowState(1, GridRowState::kFailed);
  QImage image(60, 60, QImage::Format_RGB32);
  image.fill(Qt::magenta);
  QPainter painter(&image);
  const QFont font = painter.font();
  const QRect narrow(10, 10, 3, 30);
  dynamic_cast<GridHeader&>(Side()).DrawSection(painter, narrow, 0);
  EXPECT_EQ(Ink(image, 0xFF00FF), narrow) << "its bar is wider";
  dynamic_cast<GridHeader&>(Across()).DrawSection(painter, narrow, 1);
  EXPECT_FALSE(painter.hasClipping());
  EXPECT_EQ(painter.font(), font);
  EXPECT_EQ(painter.pen(), QPen());
}

TEST_F(GridHeaderTest, APressOnTheHeadOfTheFirstRowSelectsIt) {
  const auto press = [this](QPoint release, Qt::MouseButton button) {
    PressMouse(Side().viewport(), {5, 5}, QEvent::MouseButtonPress, button);
    PressMouse(Side().viewport(), release, QEvent::MouseButtonRelease, button);
    return grid.Row();
  };
  EXPECT_EQ(press({5, 5}, Qt::RightButton), 3);
  EXPECT_EQ(press({-5, 5}, Qt::LeftButton), 3);
  EXPECT_EQ(press({5, 5}, Qt::LeftButton), 1);
}

TEST_F(GridHeaderTest, OnlyAPressOfTheLeftButtonThatEndsInItsCellIsAClick) {
  std::vector<int> clicked;
  QObject::connect(&grid, &ZCGridXWrap::HeaderClicked, &grid, [&](int column) { clicked.push_back(column); });
  Press({10, 10}, {70, 12});
  EXPECT_EQ(clicked, (std::vector<int>{1}));
  Press({10, 10}, {90, 10});
  Press({10, 10}, {10, -5});
  Press({10, 10}, {10, 10}, Qt::RightButton);
  Press({350, 10}, {350, 10});
  PressMouse(Across().viewport(), {10, 10}, QEvent::MouseButtonRelease);
  EXPECT_EQ(clicked.size(), 1u) << "another cell, outside, another button, no cell, no press";
  Press({90, 10}, {90, 10});
  EXPECT_EQ(clicked, (std::vector<int>{1, 2}));
}

}  // namespace
}  // namespace pnl::test
