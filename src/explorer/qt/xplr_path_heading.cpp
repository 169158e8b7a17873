// SPDX-License-Identifier: MIT
#include "explorer/qt/xplr_path_heading.h"

#include <QtGui/QFontMetrics>
#include <QtGui/QMouseEvent>
#include <QtGui/QPainter>

#include "explorer/xplr_path.h"
#include "window/qt/qt_text.h"

namespace pnl {
namespace {

/// Where the base class begins its text: after the frame and a margin.
constexpr int kTextLeft = 3;

}  // namespace

void XplrPathHeading::SetLeads(bool leads) {
  leads_ = leads;
  update();
}

int XplrPathHeading::LeftOf(std::size_t character) const {
  return kTextLeft + QFontMetrics(Font()).horizontalAdvance(WindowText().left(static_cast<qsizetype>(character)));
}

void XplrPathHeading::paintEvent(QPaintEvent* event) {
  ZWCStatic::paintEvent(event);
  std::vector<PathPiece> pieces = PathPieces(FromQString(WindowText()));
  if (!leads_ || pieces.empty()) return;
  pieces.pop_back();
  QPainter painter(this);
  QColor line = ToQColor(TextColor());
  line.setAlphaF(0.5F);
  painter.setPen(line);
  const int bottom = (height() + QFontMetrics(Font()).height()) / 2 - 1;
  for (const PathPiece& piece : pieces) painter.drawLine(LeftOf(piece.begin), bottom, LeftOf(piece.end) - 1, bottom);
}

void XplrPathHeading::mousePressEvent(QMouseEvent* event) {
  const auto length = static_cast<std::size_t>(WindowText().size());
  const int x = event->position().toPoint().x();
  if (!leads_ || event->button() != Qt::LeftButton || x >= LeftOf(length)) return ZWCStatic::mousePressEvent(event);
  std::size_t at = 0;
  while (at + 1 < length && LeftOf(at + 1) <= x) ++at;
  emit Touched(at);
}

}  // namespace pnl
