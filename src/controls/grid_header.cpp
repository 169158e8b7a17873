// SPDX-License-Identifier: MIT
#include "controls/grid_header.h"

#include <QtCore/QAbstractItemModel>
#include <QtGui/QMouseEvent>
#include <QtGui/QPainter>
#include <QtWidgets/QAbstractItemView>
#include <utility>

#include "controls/draw_text.h"
#include "controls/fonts.h"
#include "window/qt/control_properties.h"
#include "window/qt/qt_text.h"

namespace pnl {
namespace {

constexpr int kSideMargin = 6;
constexpr std::uint32_t kHeaderText = draw::kSingleLine | draw::kVCenter | draw::kNoPrefix | draw::kEndEllipsis;

}  // namespace

GridHeader::GridHeader(Qt::Orientation orientation, const GridColors& colors, QWidget* parent)
    : QHeaderView(orientation, parent), colors_(colors) {
  // A clickable header of the kit turns its sort marker at each click, which only the owner may do.
  setSectionsClickable(false);
  setSectionsMovable(false);
  setSectionResizeMode(QHeaderView::Fixed);
  setMinimumSectionSize(1);
  setHighlightSections(false);
  setContextMenuPolicy(Qt::NoContextMenu);
}

bool GridHeader::IsPresent(int section) const {
  const auto* view = qobject_cast<const QAbstractItemView*>(parentWidget());
  return orientation() == Qt::Vertical && view != nullptr && section >= 0 && view->currentIndex().row() == section;
}

void GridHeader::DrawSection(QPainter& painter, const QRect& rect, int section) const {
  painter.save();
  painter.setClipRect(rect, Qt::IntersectClip);
  const QColor ground = IsPresent(section) ? GridLine(colors_) : ToQColor(colors_.fixed);
  painter.fillRect(rect, ground);
  painter.fillRect(QRect(rect.left(), rect.bottom(), rect.width(), 1), GridLine(colors_).darker(115));
  painter.fillRect(QRect(rect.right(), rect.top(), 1, rect.height()), GridLine(colors_).darker(115));
  const bool across = orientation() == Qt::Horizontal;
  if (!across &&
      model()->headerData(section, Qt::Vertical, kRowStateRole).toInt() == static_cast<int>(GridRowState::kFailed)) {
    DrawFailedBar(painter, rect);
  }
  QFont bold = font();
  bold.setWeight(QFont::DemiBold);
  painter.setFont(across ? bold : font());
  painter.setPen(ReadableOn(ground));
  QRect area = rect.adjusted(kSideMargin, 0, -kSideMargin, -1);
  if (across && isSortIndicatorShown() && sortIndicatorSection() == section) {
    const int width = CellHeight(painter.fontMetrics()) * 2 / 3;
    const QRect marker(area.right() - width, area.top(), width, area.height());
    DrawTriangle(painter, marker, width, sortIndicatorOrder() == Qt::AscendingOrder, ReadableOn(ground));
    area.setRight(marker.left() - kSideMargin);
  }
  const QString text = model()->headerData(across && section < 0 ? 0 : section, orientation()).toString();
  DrawText(painter, area, text, kHeaderText | (across ? draw::kCenter : 0));
  painter.restore();
}

void GridHeader::paintSection(QPainter* painter, const QRect& rect, int section) const {
  DrawSection(*painter, rect, section);
}

void GridHeader::mousePressEvent(QMouseEvent* event) {
  pressed_ = event->button() == Qt::LeftButton ? logicalIndexAt(event->position().toPoint()) : -1;
}

void GridHeader::mouseReleaseEvent(QMouseEvent* event) {
  const int released = rect().contains(event->position().toPoint()) ? logicalIndexAt(event->position().toPoint()) : -1;
  if (std::exchange(pressed_, -1) == released && released >= 0) emit Clicked(released);
}

}  // namespace pnl
