// SPDX-License-Identifier: MIT
#include "controls/zwc_list_ctrl.h"

#include "controls/draw_text.h"
#include "controls/fonts.h"
#include "paint_counter.h"
#include "support/widget_probe.h"

namespace pnl::test {
namespace {

constexpr Color kBack = 0x402010;
constexpr Color kText = 0xFFFFFF;
constexpr Color kSelBack = 0x00A0FF;
constexpr Color kSelText = 0x010203;
constexpr Color kIcon = 0x00FF00;
constexpr Color kOverlay = 0x0000FF;

QPixmap Square(int side, QColor color) {
  QPixmap pixmap(side, side);
  pixmap.fill(color);
  return pixmap;
}

class ZWCListCtrlTest : public testing::Test {
 protected:
  ZWCListCtrlTest() {
    list.Setup(kBack, kText, kSelBack, kSelText, "Arial", 14, 400);
    list.setFrameShape(QFrame::NoFrame);
    list.setHeaderHidden(true);
    list.header()->setStretchLastSection(false);
    list.header()->setMinimumSectionSize(1);
    list.Rows().SetColumns({{"Name", Qt::AlignLeft}, {"Size", Qt::AlignRight}, {"Date", Qt::AlignHCenter}});
    for (int column = 0; column < 3; ++column) list.setColumnWidth(column, 100);
    list.resize(400, 200);
    list.show();
    Settle();
  }
  void Fill(int rows) {
    std::vector<ReportRow> all(static_cast<std::size_t>(rows));
    for (ReportRow& row : all) row.cells = {{"HHHH", 0}, {"HHHH", 1}, {"HHHH", -1}};
    list.Rows().SetRows(std::move(all));
  }
  void Select(int row) {
    list.selectionModel()->select(list.Rows().index(row, 0),
                                  QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
  }
  QImage Draw() { return Paint(*list.viewport()); }
  [[nodiscard]] QRect Row(int row) const { return {0, row * list.RowHeight(), 400, list.RowHeight()}; }
  void GiveIcons() {
    list.SetSmallImages({QSize(16, 16), {Square(16, Qt::green), Square(16, Qt::green), Square(16, Qt::red)}});
  }
  ZWCListCtrl list{1100, nullptr};
};

TEST_F(ZWCListCtrlTest, IsAReportWithRowsOfOneHeight) {
  EXPECT_EQ(list.property("pnlKind").toString(), "report");
  EXPECT_TRUE(list.uniformRowHeights());
  EXPECT_FALSE(list.rootIsDecorated());
}

TEST_F(ZWCListCtrlTest, StartsWithTheSystemsColoursAndBlackOnBlueForTheSelected) {
  ZWCListCtrl fresh(1, nullptr);
  EXPECT_EQ(fresh.BackColor(), 0xFFFFFFu);
  EXPECT_EQ(fresh.TextColor(), 0u);
  fresh.setFrameShape(QFrame::NoFrame);
  fresh.setHeaderHidden(true);
  fresh.SetFont("Arial", 30, 900);  // strokes that fill whole pixels
  fresh.SetSmallImages({QSize(16, 16), {}});
  fresh.Rows().SetColumns({{"Name"}});
  fresh.Rows().SetRows(std::vector<ReportRow>(2, ReportRow{{{"HHHH", -1}}, -1, -1, 0}));
  fresh.selectionModel()->select(fresh.Rows().index(0, 0), QItemSelectionModel::Select | QItemSelectionModel::Rows);
  fresh.resize(200, 100);
  fresh.show();
  Settle();
  const QImage image = Paint(*fresh.viewport());
  const QRect first(0, 0, 200, fresh.RowHeight());
  EXPECT_EQ(ColorAt(image, 199, 3), 0xff0000u);
  EXPECT_EQ(ColorAt(image, 2, 3), 0xff0000u) << "the whole row, under the icon too";
  EXPECT_GT(Count(image, 0, first), 10);
  const QRect second = first.translated(0, first.height());
  EXPECT_EQ(ColorAt(image, 199, second.top() + 3), 0xFFFFFFu);
  EXPECT_GT(Count(image, 0, second), 10);
  EXPECT_FALSE(fresh.SetSubItemImages(false)) << "off at the start";
}

TEST_F(ZWCListCtrlTest, SelectedColoursChangeWithoutARepaint) {
  Fill(1);
  Select(0);
  Draw();
  Settle();
  PaintCounter paints(*list.viewport());
  list.SetSelectedColors(1, 2);
  list.SetFullRow(false);
  list.SetSubItemImages(false);
  Settle();
  EXPECT_EQ(paints.Count(), 0);
  list.SetSubItemImages(true);
  Settle();
  EXPECT_EQ(paints.Count(), 1);
}

TEST_F(ZWCListCtrlTest, LargerIconsMoveTheRowsThatAreOnTheScreen) {
  Fill(3);
  Draw();
  list.SetSmallImages({QSize(60, 60), {Square(60, Qt::green)}});
  Settle();
  EXPECT_EQ(list.RowHeight(), 64);
  EXPECT_EQ(list.visualRect(list.model()->index(1, 0)).top(), 64);
}

TEST_F(ZWCListCtrlTest, AFontThatCannotBeMadeChangesNothing) {
  const int height = list.RowHeight();
  list.SetFont("", 30, 400);
  EXPECT_EQ(list.RowHeight(), height);
  list.SetFont("Arial", 30, 400);
  EXPECT_GT(list.RowHeight(), height);
}

TEST_F(ZWCListCtrlTest, WithoutFullRowTheStateImageStaysInSight) {
  list.SetStateImages({QSize(8, 8), {Square(8, Qt::yellow)}});
  GiveIcons();
  ReportRow row;
  row.cells = {{"a", 0}};
  row.stateImage = 0;
  list.Rows().SetRows({row});
  Select(0);
  list.SetFullRow(false);
  const QImage image = Draw();
  const QRect icons(0, 0, 8 + 16, list.RowHeight());
  EXPECT_EQ(Count(image, kSelBack, icons), 0) << "up to the right edge of the icon";
  EXPECT_EQ(Count(image, 0x00FFFF, icons), 8 * 8);
  EXPECT_EQ(Count(image, kIcon, icons), 16 * 16);
  EXPECT_EQ(ColorAt(image, 8 + 16, 0), kSelBack);
  EXPECT_EQ(ColorAt(image, 0, 0), kBack);
}

TEST_F(ZWCListCtrlTest, WithoutImagesTheFontAloneMakesTheHeight) {
  const QFontMetrics metrics(list.font());
  EXPECT_EQ(list.RowHeight(), CellHeight(metrics) + metrics.leading() + 5);
  Fill(2);
  Settle();
  EXPECT_EQ(list.visualRect(list.Rows().index(0, 0)).height(), list.RowHeight());
}

TEST_F(ZWCListCtrlTest, AnImagePlusFourWinsWhenItIsHigher) {
  const int text = list.RowHeight();
  list.SetSmallImages({QSize(16, 10), {}});
  EXPECT_EQ(list.RowHeight(), text);
  list.SetSmallImages({QSize(32, 32), {}});
  EXPECT_EQ(list.RowHeight(), 36);
}

TEST_F(ZWCListCtrlTest, ASelectedRowTakesTheSelectedColoursAcrossItsWholeLength) {
  Fill(2);
  Select(1);
  const QImage image = Draw();
  EXPECT_EQ(Count(image, kSelBack, Row(0)), 0);
  EXPECT_EQ(Count(image, kBack, Row(1)), 0);
  EXPECT_EQ(ColorAt(image, 399, Row(1).center().y()), kSelBack);
  EXPECT_GT(Count(image, kSelText, Row(1)), 10);
  EXPECT_GT(Count(image, kText, Row(0)), 10);
}

TEST_F(ZWCListCtrlTest, WithoutFullRowTheSelectionStartsBehindTheIcon) {
  Fill(1);
  GiveIcons();
  Select(0);
  EXPECT_EQ(ColorAt(Draw(), 1, 1), kSelBack);
  list.SetFullRow(false);
  list.viewport()->update();
  const QImage image = Draw();
  EXPECT_EQ(Count(image, kSelBack, QRect(0, 0, 16, list.RowHeight())), 0);
  EXPECT_EQ(ColorAt(image, 1, 0), kBack);
  EXPECT_EQ(ColorAt(image, 8, list.RowHeight() / 2), kIcon);
  EXPECT_EQ(ColorAt(image, 17, 0), kSelBack);
}

TEST_F(ZWCListCtrlTest, TheStateImageStandsLeftOfTheIconAndTheOverlayOverIt) {
  list.SetStateImages({QSize(8, 8), {Square(8, Qt::yellow)}});
  GiveIcons();
  ReportRow row;
  row.cells = {{"a", 0}};
  row.stateImage = 0;
  row.overlay = 2;
  list.Rows().SetRows({row});
  const QImage image = Draw();
  const int middle = list.RowHeight() / 2;
  EXPECT_EQ(ColorAt(image, 4, middle), 0x00FFFFu);
  EXPECT_EQ(ColorAt(image, 16, middle), kOverlay);
}

TEST_F(ZWCListCtrlTest, TheFirstColumnIsInsetByHalfTheOffset) {
  Fill(1);
  const int offset = 2 * QFontMetrics(list.font()).horizontalAdvance(' ');
  const QRect ink = Ink(Draw(), kBack, QRect(0, 0, 100, list.RowHeight()));
  EXPECT_NEAR(ink.left(), offset / 2 - 1, 2);
}

TEST_F(ZWCListCtrlTest, FurtherColumnsAreAlignedAsTheyAreTold) {
  Fill(1);
  const QImage image = Draw();
  const int offset = 2 * QFontMetrics(list.font()).horizontalAdvance(' ');
  const QRect right = Ink(image, kBack, QRect(100, 0, 100, list.RowHeight()));
  EXPECT_NEAR(right.right(), 200 - offset, 2);
  const QRect centre = Ink(image, kBack, QRect(200, 0, 100, list.RowHeight()));
  EXPECT_NEAR(centre.center().x(), 250, 2);
}

TEST_F(ZWCListCtrlTest, SubItemsShowTheirImagesWhenAsked) {
  Fill(1);
  GiveIcons();
  const QRect cell(100, 0, 100, list.RowHeight());
  EXPECT_EQ(Count(Draw(), kIcon, cell), 0);
  EXPECT_FALSE(list.SetSubItemImages(true));
  EXPECT_TRUE(list.SetSubItemImages(true));
  const QImage image = Draw();
  EXPECT_EQ(Count(image, kIcon, cell), 16 * 16);
  EXPECT_EQ(Count(image, kIcon, QRect(200, 0, 100, list.RowHeight())), 0) << "a cell without an image";
}

TEST_F(ZWCListCtrlTest, ASubItemsTextHasTheRoomThatItsImageLeaves) {
  Fill(1);
  GiveIcons();
  list.Rows().SetRows({ReportRow{{{"", -1}, {"", -1}, {"text", 1}}, -1, -1, 0}});
  const auto centre = [this](bool images) {
    list.SetSubItemImages(images);
    return Ink(Draw(), kBack, QRect(220, 0, 80, list.RowHeight())).center().x();
  };
  EXPECT_NEAR(centre(false), 250, 2);
  EXPECT_GE(centre(true), 250 + 16 / 2) << "it is centred beside the image";
}

TEST_F(ZWCListCtrlTest, AFirstColumnTextThatDoesNotFitEndsInAnEllipsis) {
  list.Rows().SetRows({ReportRow{{{"a name that is much too long for its column", -1}}, -1, -1, 0}});
  const QImage image = Draw();
  const int offset = 2 * QFontMetrics(list.font()).horizontalAdvance(' ');
  const QRect ink = Ink(image, kBack, QRect(0, 0, 110, list.RowHeight()));
  EXPECT_LE(ink.right(), 100 - offset);
  // Three dots on the base line are all there is at the end.
  const QRect end = Ink(image, kBack, QRect(ink.right() - 8, 0, 9, list.RowHeight()));
  EXPECT_LE(end.height(), 3);
}

TEST_F(ZWCListCtrlTest, TheExtentHoldsAllRowsAndTheWidestText) {
  QSize size(1, 1);
  EXPECT_FALSE(list.GetExtent(size));
  EXPECT_EQ(size, QSize(0, 0));
  list.Rows().SetRows({ReportRow{{{"a"}}, -1, -1, 0}, ReportRow{{{"wide one"}}, -1, -1, 0}});
  const QFontMetrics metrics(list.font());
  EXPECT_TRUE(list.GetExtent(size));
  const int text = metrics.horizontalAdvance("wide one") + 2 * metrics.averageCharWidth();
  EXPECT_EQ(size, QSize(text, 2 * list.RowHeight()));
  GiveIcons();
  EXPECT_TRUE(list.GetExtent(size));
  EXPECT_EQ(size.width(), text + 16);
}

TEST_F(ZWCListCtrlTest, EachCellsTextAndImageLieWhereTheColumnSaysToThePixel) {
  list.SetStateImages({QSize(8, 8), {Square(8, Qt::yellow)}});
  GiveIcons();
  list.SetSubItemImages(true);
  list.setColumnWidth(2, 90);
  list.Rows().SetRows({ReportRow{{{"first", 0}, {"second", 1}, {"third", -1}}, 2, 0, 0}});
  const int height = list.RowHeight();
  QImage expected(400, height, QImage::Format_RGB32);
  expected.fill(QColor(0x10, 0x20, 0x40));
  QPainter painter(&expected);
  painter.setFont(list.RowFont());
  painter.setPen(Qt::white);
  const int offset = 2 * painter.fontMetrics().horizontalAdvance(u' ');
  painter.fillRect(0, (height - 8) / 2, 8, 8, Qt::yellow);
  painter.fillRect(8, (height - 16) / 2, 16, 16, Qt::red);
  DrawText(painter, QRect(24, 0, 76, height).adjusted(offset / 2 - 1, 0, -offset, 0), QString("first"), 0x8824);
  painter.fillRect(100, (height - 16) / 2, 16, 16, Qt::green);
  DrawText(painter, QRect(118, 0, 82, height).adjusted(offset, 0, -offset, 0), QString("second"), 0x8826);
  DrawText(painter, QRect(200, 0, 90, height).adjusted(offset, 0, -offset, 0), QString("third"), 0x8825);
  painter.end();
  EXPECT_EQ(Draw().copy(expected.rect()), expected);
}

TEST_F(ZWCListCtrlTest, AColumnWithoutWidthShowsNothing) {
  Fill(1);
  list.setColumnHidden(0, true);
  const QImage image = Draw();
  const int offset = 2 * QFontMetrics(list.font()).horizontalAdvance(' ');
  EXPECT_NEAR(Ink(image, kBack, QRect(0, 0, 100, list.RowHeight())).right(), 100 - offset, 2);
}

TEST_F(ZWCListCtrlTest, TheGivenColoursAndFontAreTheLists) {
  EXPECT_EQ(list.BackColor(), kBack);
  EXPECT_EQ(list.TextColor(), kText);
  EXPECT_EQ(list.palette().color(QPalette::Base), QColor(0x10, 0x20, 0x40));
  EXPECT_EQ(list.palette().color(QPalette::Text), QColor(Qt::white));
  EXPECT_EQ(list.font().pixelSize(), 12);
  EXPECT_EQ(list.indentation(), 0);
  EXPECT_FALSE(list.itemsExpandable());
  EXPECT_EQ(list.selectionMode(), QAbstractItemView::ExtendedSelection);
  EXPECT_EQ(list.selectionBehavior(), QAbstractItemView::SelectRows);
  EXPECT_EQ(list.editTriggers(), QAbstractItemView::NoEditTriggers);
}

TEST_F(ZWCListCtrlTest, NewStateImagesArePainted) {
  ReportRow row;
  row.cells = {{"", -1}};
  row.stateImage = 1;
  list.Rows().SetRows({row});
  Settle();
  PaintCounter paints(*list.viewport());
  list.SetStateImages({QSize(8, 8), {Square(8, Qt::yellow)}});
  Settle();
  EXPECT_EQ(paints.Count(), 1);
  EXPECT_EQ(Count(Draw(), 0x00FFFF), 0) << "there is no second one";
  row.stateImage = -1;
  list.Rows().SetRows({row});
  EXPECT_EQ(Count(Draw(), 0x00FFFF), 0);
}

TEST(LongReport, OnlyTheRowsThatShowAreDrawn) {
  class Counting : public ZWCListCtrl {
   public:
    using ZWCListCtrl::ZWCListCtrl;
    mutable int drawn = 0;
    void DrawReportRow(QPainter& painter, const QRect& bounds, int row) const override {
      ++drawn;
      ZWCListCtrl::DrawReportRow(painter, bounds, row);
    }
  } list(1100, nullptr);
  list.Rows().SetColumns({{"Name"}});
  list.Rows().SetRows(std::vector<ReportRow>(10000, ReportRow{{{"a", -1}}, -1, -1, 0}));
  list.resize(300, 200);
  list.show();
  Settle();
  list.scrollToBottom();
  list.drawn = 0;
  Paint(*list.viewport());
  EXPECT_GT(list.drawn, 3);
  EXPECT_LE(list.drawn, 200 / list.RowHeight() + 2);
  EXPECT_TRUE(list.viewport()->rect().contains(list.visualRect(list.Rows().index(9999, 0)).center()));
}

}  // namespace
}  // namespace pnl::test
