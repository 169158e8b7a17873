// SPDX-License-Identifier: MIT
#include "controls/row_view.h"

#include <QAbstractListModel>
#include <QPainter>
#include <QScrollBar>
#include <QStyledItemDelegate>

#include "support/widget_probe.h"

namespace pnl::test {
namespace {

/// Rows that know their number and take no memory.
class CountingModel : public QAbstractListModel {
 public:
  explicit CountingModel(int count) : count_(count) {}
  [[nodiscard]] int rowCount(const QModelIndex& parent) const override { return parent.isValid() ? 0 : count_; }
  [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override {
    return role == Qt::DisplayRole ? QVariant(index.row()) : QVariant();
  }
  void Insert(int row) {
    beginInsertRows({}, row, row);
    ++count_;
    endInsertRows();
  }
  void Remove(int row) {
    beginRemoveRows({}, row, row);
    --count_;
    endRemoveRows();
  }

 private:
  int count_;
};

class Rows10 : public RowView {
 public:
  Rows10() : RowView(nullptr) {}
  [[nodiscard]] int RowHeight() const override { return height; }
  using RowView::CursorAction;
  using RowView::moveCursor;
  using RowView::MoveDown;
  using RowView::MoveEnd;
  using RowView::MoveHome;
  using RowView::MoveLeft;
  using RowView::MoveNext;
  using RowView::MovePageDown;
  using RowView::MovePageUp;
  using RowView::MovePrevious;
  using RowView::MoveRight;
  using RowView::MoveUp;
  using RowView::setSelection;
  using RowView::visualRegionForSelection;
  int height = 10;
};

/// Fills a row with a colour that tells its number and whether it is selected.
class NumberDelegate : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;
  void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override {
    const bool selected = (option.state & QStyle::State_Selected) != 0;
    painter->fillRect(option.rect, QColor(index.row() % 200, selected ? 255 : 0, 7));
  }
};

/// 100 rows of 10 pixels in a view of 95.
class RowViewTest : public testing::Test {
 protected:
  RowViewTest() {
    view.setFrameShape(QFrame::NoFrame);
    view.setModel(&model);
    view.resize(200, 95);
    Show();
  }
  void Show() {
    view.show();
    QApplication::processEvents();
  }
  [[nodiscard]] int RowAt(int y) const { return view.indexAt({5, y}).row(); }
  [[nodiscard]] int Top(int row) const { return view.visualRect(model.index(row, 0)).top(); }
  void Scroll(int row, QAbstractItemView::ScrollHint hint = QAbstractItemView::EnsureVisible) {
    view.scrollTo(model.index(row, 0), hint);
  }
  [[nodiscard]] std::vector<int> Selected() const {
    std::vector<int> rows;
    for (const QModelIndex& index : view.selectionModel()->selectedIndexes()) rows.push_back(index.row());
    std::sort(rows.begin(), rows.end());
    return rows;
  }

  CountingModel model{100};
  Rows10 view;
};

TEST_F(RowViewTest, ARowLiesWhereItsNumberSays) {
  EXPECT_EQ(view.visualRect(model.index(3, 0)), QRect(0, 30, view.viewport()->width(), 10));
  EXPECT_EQ(RowAt(0), 0);
  EXPECT_EQ(RowAt(9), 0);
  EXPECT_EQ(RowAt(10), 1);
  EXPECT_EQ(RowAt(94), 9);
  EXPECT_EQ(RowAt(95), -1) << "below the view";
  EXPECT_EQ(RowAt(-1), -1);
  EXPECT_FALSE(view.visualRect({}).isValid());
}

TEST_F(RowViewTest, ScrollingToNoRowStaysWhereItIs) {
  Scroll(50, QAbstractItemView::PositionAtTop);
  view.scrollTo({});
  EXPECT_EQ(RowAt(0), 50);
}

TEST_F(RowViewTest, ARowThatHasJustComeCanBeScrolledTo) {
  for (int i = 0; i < 20; ++i) model.Insert(100);
  Scroll(119);
  EXPECT_EQ(view.visualRect(model.index(119, 0)).bottom(), 94);
}

TEST_F(RowViewTest, WithoutAPresentRowAKeyGoesToTheFirst) {
  for (const auto action : {Rows10::MoveUp, Rows10::MoveDown, Rows10::MovePageDown, Rows10::MoveEnd}) {
    view.setCurrentIndex({});
    EXPECT_EQ(view.moveCursor(action, Qt::NoModifier).row(), 0) << action;
  }
}

TEST_F(RowViewTest, MovesByPixelsAndNeverSideways) {
  EXPECT_EQ(view.verticalScrollMode(), QAbstractItemView::ScrollPerPixel);
  EXPECT_EQ(view.horizontalScrollBarPolicy(), Qt::ScrollBarAlwaysOff);
}

TEST_F(RowViewTest, TheBarGoesFromTheFirstRowToTheLast) {
  const QScrollBar& bar = *view.verticalScrollBar();
  EXPECT_EQ(bar.minimum(), 0);
  EXPECT_EQ(bar.maximum(), 1000 - 95);
  EXPECT_EQ(bar.pageStep(), 95);
  EXPECT_EQ(bar.singleStep(), 10);
  view.verticalScrollBar()->setValue(bar.maximum());
  EXPECT_EQ(RowAt(94), 99);
  EXPECT_EQ(Top(99), 85);
  EXPECT_EQ(Top(0), -905);
}

TEST_F(RowViewTest, TheBarFollowsRowsThatComeAndGo) {
  model.Insert(0);
  QApplication::processEvents();
  EXPECT_EQ(view.verticalScrollBar()->maximum(), 1010 - 95);
  model.Remove(0);
  model.Remove(0);
  QApplication::processEvents();
  EXPECT_EQ(view.verticalScrollBar()->maximum(), 990 - 95);
}

TEST_F(RowViewTest, ScrollsNoFurtherThanARowNeeds) {
  const struct {
    int row;
    QAbstractItemView::ScrollHint hint;
    int value;
  } rows[] = {
      {9, QAbstractItemView::EnsureVisible, 5},       {0, QAbstractItemView::EnsureVisible, 0},
      {8, QAbstractItemView::EnsureVisible, 0},       {50, QAbstractItemView::EnsureVisible, 415},
      {45, QAbstractItemView::EnsureVisible, 415},    {41, QAbstractItemView::EnsureVisible, 410},
      {70, QAbstractItemView::PositionAtTop, 700},    {70, QAbstractItemView::PositionAtBottom, 615},
      {70, QAbstractItemView::PositionAtCenter, 658}, {99, QAbstractItemView::PositionAtTop, 905},
      {0, QAbstractItemView::PositionAtBottom, 0},    {1, QAbstractItemView::PositionAtCenter, 0},
  };
  for (const auto& row : rows) {
    Scroll(row.row, row.hint);
    EXPECT_EQ(view.verticalScrollBar()->value(), row.value) << row.row;
  }
  view.scrollTo({}, QAbstractItemView::PositionAtTop);
  EXPECT_EQ(view.verticalScrollBar()->value(), 0);
}

TEST_F(RowViewTest, ARowHigherThanTheViewShowsItsTop) {
  view.height = 300;
  view.doItemsLayout();
  Scroll(2);
  EXPECT_EQ(view.verticalScrollBar()->value(), 600);
}

TEST_F(RowViewTest, KeysMoveByOneByAPageAndToBothEnds) {
  const struct {
    Rows10::CursorAction action;
    int from;
    int to;
  } rows[] = {
      {Rows10::MoveUp, 5, 4},         {Rows10::MoveUp, 0, 0},       {Rows10::MoveDown, 5, 6},
      {Rows10::MoveDown, 99, 99},     {Rows10::MovePrevious, 5, 4}, {Rows10::MoveNext, 5, 6},
      {Rows10::MovePageUp, 50, 41},   {Rows10::MovePageUp, 3, 0},   {Rows10::MovePageDown, 50, 59},
      {Rows10::MovePageDown, 97, 99}, {Rows10::MoveHome, 50, 0},    {Rows10::MoveEnd, 50, 99},
      {Rows10::MoveLeft, 50, 50},     {Rows10::MoveRight, 50, 50},
  };
  view.setCurrentIndex({});
  EXPECT_EQ(view.moveCursor(Rows10::MoveDown, {}).row(), 0) << "without a current row";
  for (const auto& row : rows) {
    view.setCurrentIndex(model.index(row.from, 0));
    EXPECT_EQ(view.moveCursor(row.action, {}).row(), row.to) << row.action << " from " << row.from;
  }
}

TEST_F(RowViewTest, AnEmptyOneHasNoRowAnywhere) {
  CountingModel none(0);
  view.setModel(&none);
  QApplication::processEvents();
  EXPECT_EQ(RowAt(5), -1);
  EXPECT_FALSE(view.moveCursor(Rows10::MoveDown, {}).isValid());
  EXPECT_EQ(view.verticalScrollBar()->maximum(), 0);
  view.setSelection({0, 0, 10, 50}, QItemSelectionModel::ClearAndSelect);
  EXPECT_TRUE(Selected().empty());
  none.Insert(0);
  model.Insert(0);
  QApplication::processEvents();
  EXPECT_EQ(RowAt(5), 0);
  view.setModel(&model);
}

TEST_F(RowViewTest, AStretchSelectsTheRowsThatItTouches) {
  const struct {
    QRect rect;
    std::vector<int> rows;
  } rows[] = {
      {{5, 12, 1, 1}, {1}},   {{5, 19, 1, 2}, {1, 2}}, {QRect(QPoint(5, 35), QPoint(5, 12)), {1, 2, 3}},
      {{5, -50, 1, 51}, {0}}, {{5, -50, 1, 10}, {}},
  };
  for (const auto& row : rows) {
    view.setSelection(row.rect, QItemSelectionModel::ClearAndSelect);
    EXPECT_EQ(Selected(), row.rows);
  }
  Scroll(99);
  view.setSelection({5, 80, 1, 500}, QItemSelectionModel::ClearAndSelect);
  EXPECT_EQ(Selected(), (std::vector<int>{98, 99})) << "below the last row there is none";
}

TEST_F(RowViewTest, ASelectionCoversItsRowsAsFarAsTheyAreSeen) {
  QItemSelection selection(model.index(2, 0), model.index(3, 0));
  selection.select(model.index(8, 0), model.index(50, 0));
  const int width = view.viewport()->width();
  EXPECT_EQ(view.visualRegionForSelection(selection), QRegion(0, 20, width, 20) + QRegion(0, 80, width, 15));
}

TEST_F(RowViewTest, EachRowIsPaintedInItsPlaceAndSelectedOnesAsSuch) {
  view.setItemDelegate(new NumberDelegate(&view));
  Scroll(40, QAbstractItemView::PositionAtTop);
  view.selectionModel()->select(model.index(42, 0), QItemSelectionModel::Select);
  const QImage image = view.viewport()->grab().toImage();
  for (int y = 0; y < 95; ++y) {
    const int row = 40 + y / 10;
    EXPECT_EQ(image.pixelColor(3, y), QColor(row, row == 42 ? 255 : 0, 7)) << y;
  }
}

TEST_F(RowViewTest, TheLastOfMoreRowsThanABarHasStepsIsReached) {
  constexpr int kRows = 1'000'000'000;
  CountingModel many(kRows);
  view.setModel(&many);
  QApplication::processEvents();
  const auto index = [&](int row) { return many.index(row, 0); };
  view.scrollTo(index(kRows - 1), QAbstractItemView::EnsureVisible);
  EXPECT_EQ(view.visualRect(index(kRows - 1)).bottom(), 89) << "whole; the view moves by rows here";
  EXPECT_EQ(RowAt(85), kRows - 1);
  EXPECT_EQ(RowAt(94), -1);
  view.scrollTo(index(234'567'890), QAbstractItemView::PositionAtTop);
  EXPECT_EQ(RowAt(0), 234'567'890);
  view.setCurrentIndex(index(234'567'890));
  EXPECT_EQ(view.moveCursor(Rows10::MovePageDown, {}).row(), 234'567'899);
  view.setSelection({5, 12, 1, 1}, QItemSelectionModel::ClearAndSelect);
  EXPECT_EQ(Selected(), std::vector<int>{234'567'891});
  view.scrollTo(index(0), QAbstractItemView::EnsureVisible);
  EXPECT_EQ(RowAt(0), 0);
  view.setModel(&model);
}

}  // namespace
}  // namespace pnl::test
