// SPDX-License-Identifier: MIT
#include "controls/row_view.h"

#include <QtGui/QPaintEvent>
#include <QtGui/QPainter>
#include <QtWidgets/QScrollBar>
#include <algorithm>
#include <limits>

namespace pnl {
namespace {

/// Half the range of an int, because Qt adds the size of a window to the value of a scroll bar.
constexpr std::int64_t kLongestRange = std::numeric_limits<int>::max() / 2;

int Limited(std::int64_t value) { return static_cast<int>(std::clamp(value, -kLongestRange, kLongestRange)); }

}  // namespace

RowView::RowView(QWidget* parent) : QAbstractItemView(parent) {
  setVerticalScrollMode(ScrollPerPixel);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
}

int RowView::RowHeight() const { return std::max(fontMetrics().height(), 1); }

void RowView::setModel(QAbstractItemModel* model) {
  for (const auto& rowCountChange : rowCountChanges_) disconnect(rowCountChange);
  QAbstractItemView::setModel(model);
  if (model == nullptr) return;
  rowCountChanges_ = {
      connect(model, &QAbstractItemModel::rowsInserted, this, &RowView::scheduleDelayedItemsLayout),
      connect(model, &QAbstractItemModel::rowsRemoved, this, &RowView::scheduleDelayedItemsLayout),
  };
}

QRect RowView::visualRect(const QModelIndex& index) const {
  return index.isValid() ? RectOf({index.row(), index.row()}) : QRect();
}

void RowView::scrollTo(const QModelIndex& index, ScrollHint hint) {
  if (!index.isValid()) return;
  executeDelayedItemsLayout();
  const int height = RowHeight();
  const std::int64_t top = std::int64_t{index.row()} * height;
  const std::int64_t atBottom = top + height - viewport()->height();
  const std::int64_t now = Offset();
  switch (hint) {
    case EnsureVisible:
      // Of a row that is higher than the view, the top is shown.
      if (now < atBottom) ScrollToOffset(std::min(atBottom, top));
      if (now > top) ScrollToOffset(top);
      return;
    case PositionAtTop:
      return ScrollToOffset(top);
    case PositionAtBottom:
      return ScrollToOffset(atBottom);
    case PositionAtCenter:
      return ScrollToOffset(top - (viewport()->height() - height) / 2);
  }
}

QModelIndex RowView::indexAt(const QPoint& point) const {
  if (!viewport()->rect().contains(point)) return {};
  const Rows rows = RowsBetween(point.y(), point.y());
  return rows.last < rows.first ? QModelIndex() : model()->index(rows.first, 0, rootIndex());
}

void RowView::updateGeometries() {
  const std::int64_t content = std::int64_t{Count()} * RowHeight();
  const std::int64_t beyond = std::max<std::int64_t>(content - viewport()->height(), 0);
  const std::int64_t offset = Offset();
  scale_ = beyond <= kLongestRange ? 1 : RowHeight();
  // Rounded up, so that the last row can be shown whole.
  verticalScrollBar()->setRange(0, Limited((beyond + scale_ - 1) / scale_));
  verticalScrollBar()->setPageStep(std::max(viewport()->height() / scale_, 1));
  verticalScrollBar()->setSingleStep(std::max(RowHeight() / scale_, 1));
  ScrollToOffset(offset);
  QAbstractItemView::updateGeometries();
}

void RowView::paintEvent(QPaintEvent* event) {
  QPainter painter(viewport());
  QStyleOptionViewItem option;
  initViewItemOption(&option);
  const Rows rows = RowsBetween(event->rect().top(), event->rect().bottom());
  for (int row = rows.first; row <= rows.last; ++row) {
    const QModelIndex index = model()->index(row, 0, rootIndex());
    option.rect = visualRect(index);
    option.state.setFlag(QStyle::State_Selected, selectionModel()->isSelected(index));
    itemDelegateForIndex(index)->paint(&painter, option, index);
  }
}

QModelIndex RowView::moveCursor(CursorAction action, Qt::KeyboardModifiers /*modifiers*/) {
  executeDelayedItemsLayout();
  const int count = Count();
  if (count == 0) return {};
  const QModelIndex current = currentIndex();
  if (!current.isValid()) return model()->index(0, 0, rootIndex());
  const int page = std::max((viewport()->height() - 1) / RowHeight(), 1);
  int row = current.row();
  switch (action) {
    case MoveUp:
    case MovePrevious:
      row -= 1;
      break;
    case MoveDown:
    case MoveNext:
      row += 1;
      break;
    case MovePageUp:
      row -= page;
      break;
    case MovePageDown:
      row += page;
      break;
    case MoveHome:
      row = 0;
      break;
    case MoveEnd:
      row = count - 1;
      break;
    case MoveLeft:
    case MoveRight:
      break;
  }
  return model()->index(std::clamp(row, 0, count - 1), 0, rootIndex());
}

int RowView::verticalOffset() const { return Limited(Offset()); }

void RowView::setSelection(const QRect& rect, QItemSelectionModel::SelectionFlags command) {
  executeDelayedItemsLayout();
  const QRect area = rect.normalized();
  const Rows rows = RowsBetween(area.top(), area.bottom());
  QItemSelection selection;
  if (rows.first <= rows.last) {
    selection.select(model()->index(rows.first, 0, rootIndex()), model()->index(rows.last, 0, rootIndex()));
  }
  selectionModel()->select(selection, command);
}

QRegion RowView::visualRegionForSelection(const QItemSelection& selection) const {
  QRegion region;
  for (const QItemSelectionRange& range : selection) {
    region += RectOf({range.top(), range.bottom()}).intersected(viewport()->rect());
  }
  return region;
}

std::int64_t RowView::Offset() const { return std::int64_t{verticalScrollBar()->value()} * scale_; }

void RowView::ScrollToOffset(std::int64_t offset) {
  verticalScrollBar()->setValue(Limited((offset + scale_ - 1) / scale_));
}

RowView::Rows RowView::RowsBetween(int top, int bottom) const {
  const int height = RowHeight();
  const std::int64_t from = std::max<std::int64_t>(Offset() + top, 0);
  const std::int64_t to = Offset() + bottom;
  if (to < 0) return {};
  const std::int64_t last = Count() - 1;
  return {static_cast<int>(std::min(from / height, last + 1)), static_cast<int>(std::min(to / height, last))};
}

QRect RowView::RectOf(Rows rows) const {
  const int height = RowHeight();
  const std::int64_t top = std::int64_t{rows.first} * height - Offset();
  const std::int64_t bottom = (std::int64_t{rows.last} + 1) * height - Offset() - 1;
  return {QPoint(0, Limited(top)), QPoint(viewport()->width() - 1, Limited(bottom))};
}

}  // namespace pnl
