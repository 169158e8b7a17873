// SPDX-License-Identifier: MIT
#include "controls/grid_look.h"

#include <QtGui/QPainter>
#include <QtGui/QPainterPath>
#include <algorithm>

#include "controls/draw_text.h"
#include "controls/fonts.h"
#include "window/qt/qt_text.h"

namespace pnl {
namespace {

constexpr QColor kDark(0x14, 0x1A, 0x21);
constexpr QColor kBright(0xF4, 0xF7, 0xFA);
constexpr QColor kSelection(0x1F, 0x6F, 0xB2);
constexpr QColor kFrame(0x0A, 0x6E, 0xC8);
constexpr QColor kFailed(0xD8, 0x1E, 0x2C);
constexpr QColor kTint(0xF5, 0xA6, 0x1E);
constexpr int kFailedBar = 5;
constexpr int kSideMargin = 8;
constexpr int kSmallestBox = 16;
constexpr int kLargestBox = 30;
constexpr int kBoxMargin = 4;
constexpr int kLowCell = 16;
constexpr std::uint32_t kCellText =
    draw::kSingleLine | draw::kVCenter | draw::kNoPrefix | draw::kExpandTabs | draw::kEndEllipsis;

/// The colour between both: share 0 gives the first, 1 the second.
QColor Between(const QColor& from, const QColor& to, double share) {
  const auto mix = [share](int a, int b) { return qRound(a + (b - a) * share); };
  return {mix(from.red(), to.red()), mix(from.green(), to.green()), mix(from.blue(), to.blue())};
}

int Brightness(const QColor& color) { return (299 * color.red() + 587 * color.green() + 114 * color.blue()) / 1000; }

/// The rest of the cell for its content.
QRect DrawFrame(QPainter& painter, const QRect& cell, const GridColors& colors, const GridCellFace& face) {
  painter.fillRect(cell, GridCellGround(colors, face));
  const QColor line = GridLine(colors);
  painter.fillRect(QRect(cell.left(), cell.bottom(), cell.width(), 1), line);
  painter.fillRect(QRect(cell.right(), cell.top(), 1, cell.height()), line);
  if (face.current) {
    // In a low cell a thick frame would run through the text.
    const int width = face.focused && cell.height() >= kLowCell ? kCellFrame : 1;
    painter.setPen(QPen(face.focused ? kFrame : Between(kFrame, ToQColor(colors.fixed), 0.5), width));
    painter.setBrush(Qt::NoBrush);
    const double half = width / 2.0;
    painter.drawRect(QRectF(cell).adjusted(half, half, -half - 1, -half - 1));
  }
  return cell.adjusted(kSideMargin, 0, -kSideMargin - 1, -1);
}

void DrawCheckCell(QPainter& painter, const QRect& area, const GridColors& colors, const GridCellFace& face) {
  const int side = std::clamp(area.height() - 2 * kBoxMargin, kSmallestBox, kLargestBox);
  QColor ink = GridCellText(colors, face);
  const QColor ground = GridCellGround(colors, face);
  if (!face.editable || !face.enabled) ink = Between(ink, ground, 0.4);
  DrawCheckMark(painter, area, side, face.checked, ink,
                face.editable ? Between(ground, QColor(Qt::white), 0.6) : ground);
}

}  // namespace

QColor ReadableOn(const QColor& ground) { return Brightness(ground) > 128 ? kDark : kBright; }

QColor GridLine(const GridColors& colors) {
  const QColor fixed = ToQColor(colors.fixed);
  return Between(fixed, ReadableOn(fixed), 0.12);
}

QColor GridCellGround(const GridColors& colors, const GridCellFace& face) {
  QColor ground = ToQColor(face.alternate ? colors.alternate : colors.window);
  if (face.state == GridRowState::kFailed) {
    ground = Between(ground, kFailed, 0.3);
  } else if (!face.editable) {
    ground = Between(ground, ToQColor(colors.fixed), 0.35);
  }
  if (face.tint) ground = Between(ground, kTint, 0.55);
  // A failed row stays red when it is selected, and a tinted cell amber.
  const double share = (face.focused ? 0.38 : 0.2) * (face.state == GridRowState::kFailed || face.tint ? 0.5 : 1);
  if (face.selected) ground = Between(ground, kSelection, share);
  return ground;
}

QColor GridCellText(const GridColors& colors, const GridCellFace& face) {
  const QColor ground = GridCellGround(colors, face);
  const QColor text = ReadableOn(ground);
  if (!face.enabled) return Between(text, ground, 0.5);
  return face.state == GridRowState::kFactory ? Between(text, ground, 0.28) : text;
}

void DrawTriangle(QPainter& painter, const QRect& area, int width, bool up, const QColor& ink) {
  const QPointF middle = QRectF(area).center();
  const double half = width / 2.0;
  const double tip = up ? -half / 2 : half / 2;
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  painter.setBrush(ink);
  painter.drawPolygon(QPolygonF{middle + QPointF(-half, -tip), middle + QPointF(half, -tip), middle + QPointF(0, tip)});
  painter.restore();
}

void DrawCheckMark(QPainter& painter, const QRect& area, int side, bool checked, const QColor& ink,
                   const QColor& ground) {
  const QPoint corner(area.left() + (area.width() - side) / 2, area.top() + (area.height() - side) / 2);
  const QRectF box = QRectF(corner, QSizeF(side, side)).adjusted(1, 1, -1, -1);
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(ink, 2));
  painter.setBrush(ground);
  painter.drawRoundedRect(box, 3, 3);
  if (checked) {
    QPainterPath mark;
    mark.moveTo(box.left() + 0.22 * box.width(), box.top() + 0.52 * box.height());
    mark.lineTo(box.left() + 0.43 * box.width(), box.top() + 0.74 * box.height());
    mark.lineTo(box.left() + 0.80 * box.width(), box.top() + 0.26 * box.height());
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(ink, std::max(2.0, side / 7.0), Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.drawPath(mark);
  }
  painter.restore();
}

void DrawGridCell(QPainter& painter, const QRect& cell, const GridColors& colors, const GridCellFace& face) {
  painter.save();
  painter.setClipRect(cell, Qt::IntersectClip);
  QRect area = DrawFrame(painter, cell, colors, face);
  if (face.kind == GridCellKind::kCheck) {
    DrawCheckCell(painter, area, colors, face);
  } else {
    const QColor ink = GridCellText(colors, face);
    if (face.kind == GridCellKind::kList && face.editable) {
      const int width = CellHeight(painter.fontMetrics()) * 2 / 3;
      DrawTriangle(painter, QRect(area.right() - width, area.top(), width, area.height()), width, false, ink);
      area.setRight(area.right() - width - kSideMargin);
    }
    painter.setPen(ink);
    DrawText(painter, area, face.text, kCellText | (face.kind == GridCellKind::kNumber ? draw::kRight : 0));
  }
  painter.restore();
}

void DrawFailedBar(QPainter& painter, const QRect& fixedCell) {
  painter.fillRect(QRect(fixedCell.left(), fixedCell.top(), kFailedBar, fixedCell.height() - 1), kFailed);
}

}  // namespace pnl
