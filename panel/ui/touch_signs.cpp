// SPDX-License-Identifier: MIT
#include "ui/touch_signs.h"

#include <QPainter>
#include <algorithm>

#include "ui/theme.h"

namespace panel {
namespace {

Qt::ArrowType ArrowOf(TouchAct act) {
  switch (act) {
    case TouchAct::kLeft:
      return Qt::LeftArrow;
    case TouchAct::kRight:
      return Qt::RightArrow;
    case TouchAct::kUp:
      return Qt::UpArrow;
    case TouchAct::kDown:
      return Qt::DownArrow;
    default:
      return Qt::NoArrow;
  }
}

/// The sign's lines in a square from -1 to 1.
QList<QPolygonF> LinesOf(TouchAct act, bool locked) {
  switch (act) {
    case TouchAct::kCharacter:
      return {{{-1, 0}, {-1, 0.5}, {1, 0.5}, {1, 0}}};
    case TouchAct::kEnter:
      return {{{1, -0.7}, {1, 0.2}, {-0.9, 0.2}}, {{-0.4, -0.3}, {-0.9, 0.2}, {-0.4, 0.7}}};
    case TouchAct::kBack:
      return {{{-0.3, -0.6}, {1, -0.6}, {1, 0.6}, {-0.3, 0.6}, {-1, 0}, {-0.3, -0.6}},
              {{0, -0.3}, {0.6, 0.3}},
              {{0, 0.3}, {0.6, -0.3}}};
    case TouchAct::kShift: {
      QList<QPolygonF> lines = {
          {{0, -0.9}, {0.9, 0}, {0.4, 0}, {0.4, 0.5}, {-0.4, 0.5}, {-0.4, 0}, {-0.9, 0}, {0, -0.9}}};
      if (locked) lines << QPolygonF(QList<QPointF>{{-0.4, 0.9}, {0.4, 0.9}});
      return lines;
    }
    case TouchAct::kHide:
      return {{{-1, -0.7}, {1, -0.7}, {1, 0.2}, {-1, 0.2}, {-1, -0.7}},
              {{-0.6, -0.25}, {0.6, -0.25}},
              {{-0.4, 0.5}, {0, 0.9}, {0.4, 0.5}}};
    default:
      return {};
  }
}

}  // namespace

void DrawTouchSign(QPainter& painter, TouchAct act, const QRect& place, const QColor& color, bool locked) {
  const int side = std::min(place.width(), place.height()) * 2 / 5;
  const QRect middle(place.center().x() - side / 2, place.center().y() - side / 2, side, side);
  if (const Qt::ArrowType arrow = ArrowOf(act); arrow != Qt::NoArrow) {
    return theme::DrawArrow(painter, middle, arrow, color);
  }
  const QTransform fit = QTransform().translate(middle.center().x(), middle.center().y()).scale(side / 2.0, side / 2.0);
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(color, std::max(1.5, side / 11.0), Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  painter.setBrush(Qt::NoBrush);
  for (const QPolygonF& line : LinesOf(act, locked)) painter.drawPolyline(fit.map(line));
  painter.restore();
}

}  // namespace panel
