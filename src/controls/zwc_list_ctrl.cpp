// SPDX-License-Identifier: MIT
#include "controls/zwc_list_ctrl.h"

#include <QtGui/QPainter>
#include <QtWidgets/QHeaderView>
#include <QtWidgets/QStyledItemDelegate>
#include <algorithm>
#include <utility>

#include "controls/draw_text.h"
#include "controls/fonts.h"
#include "window/qt/control_properties.h"
#include "window/qt/qt_text.h"

namespace pnl {
namespace {

constexpr int kTextMargin = 5;
constexpr int kImageMargin = 4;
constexpr int kImageGap = 2;
constexpr std::uint32_t kCellFormat = draw::kSingleLine | draw::kVCenter | draw::kNoPrefix | draw::kEndEllipsis;

/// Gives every row the same height, so that the view asks for one row only.
class RowHeightDelegate : public QStyledItemDelegate {
 public:
  explicit RowHeightDelegate(ZWCListCtrl* list) : QStyledItemDelegate(list), list_(*list) {}
  [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem&, const QModelIndex&) const override {
    return {1, list_.RowHeight()};
  }

 private:
  const ZWCListCtrl& list_;
};

std::uint32_t Aligned(Qt::Alignment alignment) {
  if ((alignment & Qt::AlignRight) != 0) return draw::kRight;
  return (alignment & Qt::AlignHCenter) != 0 ? draw::kCenter : 0;
}

void DrawImage(QPainter& painter, const QRect& cell, int left, const QSize& size, const QPixmap& image) {
  painter.drawPixmap(QRect(QPoint(left, cell.top() + (cell.height() - size.height()) / 2), size), image);
}

}  // namespace

ZWCListCtrl::ZWCListCtrl(int id, QWidget* parent) : QTreeView(parent) {
  MarkControl(this, id, "report");
  setModel(&rows_);
  setItemDelegate(new RowHeightDelegate(this));
  setRootIsDecorated(false);
  setItemsExpandable(false);
  setIndentation(0);
  setUniformRowHeights(true);
  setAllColumnsShowFocus(true);
  setSelectionBehavior(QAbstractItemView::SelectRows);
  setSelectionMode(QAbstractItemView::ExtendedSelection);
  setEditTriggers(QAbstractItemView::NoEditTriggers);
  UseColors();
}

void ZWCListCtrl::SetSelectedColors(Color text, Color back) {
  m_SelText = text;
  m_SelBack = back;
}

void ZWCListCtrl::SetFont(const QString& face, int height, int weight) {
  auto made = MakeFont(face, height, weight);
  if (!made) return;
  m_pFont = std::move(made);
  setFont(*m_pFont);
  scheduleDelayedItemsLayout();
}

void ZWCListCtrl::Setup(Color back, Color text, Color selBack, Color selText, const QString& face, int height,
                        int weight) {
  back_ = back;
  text_ = text;
  UseColors();
  SetSelectedColors(selText, selBack);
  SetFont(face, height, weight);
}

bool ZWCListCtrl::SetSubItemImages(bool flag) {
  const bool old = std::exchange(m_bSubItemImages, flag);
  if (old != flag) viewport()->update();
  return old;
}

void ZWCListCtrl::SetSmallImages(ImageList images) {
  small_ = std::move(images);
  scheduleDelayedItemsLayout();
}

void ZWCListCtrl::SetStateImages(ImageList images) {
  state_ = std::move(images);
  viewport()->update();
}

bool ZWCListCtrl::GetExtent(QSize& size) const {
  size = QSize(0, 0);
  const int count = rows_.rowCount();
  if (count == 0) return false;
  const QFontMetrics metrics(RowFont());
  int widest = 0;
  for (int row = 0; row < count; ++row) {
    widest = std::max(widest, metrics.horizontalAdvance(rows_.Cell(row, 0).text));
  }
  size = QSize(widest + small_.size.width() + 2 * metrics.averageCharWidth(), count * RowHeight());
  if (small_.size.isEmpty()) size.setWidth(widest + 2 * metrics.averageCharWidth());
  return true;
}

int ZWCListCtrl::RowHeight() const {
  const QFontMetrics metrics(RowFont());
  const int text = CellHeight(metrics) + std::max(0, metrics.leading()) + kTextMargin;
  return small_.size.isEmpty() ? text : std::max(text, small_.size.height() + kImageMargin);
}

bool ZWCListCtrl::IsSelected(int row) const {
  return selectionModel() != nullptr && selectionModel()->isSelected(rows_.index(row, 0));
}

QRect ZWCListCtrl::CellRect(const QRect& bounds, int column) const {
  return {columnViewportPosition(column), bounds.top(), columnWidth(column), bounds.height()};
}

void ZWCListCtrl::UseColors() {
  QPalette colors = palette();
  colors.setColor(QPalette::Base, ToQColor(back_));
  colors.setColor(QPalette::Text, ToQColor(text_));
  setPalette(colors);
}

void ZWCListCtrl::drawRow(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const {
  QRect bounds = option.rect;
  bounds.setLeft(0);
  bounds.setRight(std::max(viewport()->width(), bounds.right()));
  DrawReportRow(*painter, bounds, index.row());
}

void ZWCListCtrl::drawBranches(QPainter*, const QRect&, const QModelIndex&) const {}

int ZWCListCtrl::DrawIcons(QPainter& painter, const QRect& cell, const ReportRow& row) const {
  int left = cell.left();
  if (const QPixmap* image = state_.At(row.stateImage)) {
    DrawImage(painter, cell, left, state_.size, *image);
    left += state_.size.width();
  }
  if (!small_.size.isEmpty()) {
    if (!m_bFullRow) {
      const int right = left + small_.size.width();
      painter.fillRect(QRect(0, cell.top(), right, cell.height()), ToQColor(back_));
      // The fill has covered the state image, so it is drawn again.
      if (const QPixmap* image = state_.At(row.stateImage)) DrawImage(painter, cell, cell.left(), state_.size, *image);
    }
    const int icon = row.cells.empty() ? -1 : row.cells.front().image;
    if (const QPixmap* image = small_.At(icon)) DrawImage(painter, cell, left, small_.size, *image);
    if (const QPixmap* image = small_.At(row.overlay)) DrawImage(painter, cell, left, small_.size, *image);
    left += small_.size.width();
  }
  return left;
}

void ZWCListCtrl::DrawReportRow(QPainter& painter, const QRect& bounds, int row) const {
  const ReportRow* content = rows_.Row(row);
  if (content == nullptr) return;
  const bool selected = IsSelected(row);
  painter.fillRect(bounds, ToQColor(selected ? m_SelBack : back_));
  painter.setFont(RowFont());
  painter.setPen(ToQColor(selected ? m_SelText : text_));
  const int offset = 2 * painter.fontMetrics().horizontalAdvance(u' ');
  for (int column = 0; column < rows_.columnCount(); ++column) {
    QRect cell = CellRect(bounds, column);
    if (cell.width() <= 0) continue;
    const ReportCell& value = rows_.Cell(row, column);
    painter.save();
    painter.setClipRect(cell, Qt::IntersectClip);
    if (column == 0) {
      cell.setLeft(DrawIcons(painter, cell, *content));
      cell.adjust(offset / 2 - 1, 0, -offset, 0);
      DrawText(painter, cell, value.text, kCellFormat);
    } else {
      const QPixmap* image = m_bSubItemImages ? small_.At(value.image) : nullptr;
      if (image != nullptr) {
        DrawImage(painter, cell, cell.left(), small_.size, *image);
        cell.setLeft(cell.left() + small_.size.width() + kImageGap);
      }
      cell.adjust(offset, 0, -offset, 0);
      const auto& format = rows_.Columns()[static_cast<std::size_t>(column)];
      DrawText(painter, cell, value.text, kCellFormat | Aligned(format.alignment));
    }
    painter.restore();
  }
}

}  // namespace pnl
