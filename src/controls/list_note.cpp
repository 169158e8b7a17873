// SPDX-License-Identifier: MIT
#include "controls/list_note.h"

#include <QtGui/QPainter>
#include <QtGui/QPainterPath>
#include <algorithm>

#include "controls/draw_text.h"
#include "window/qt/qt_text.h"

namespace pnl {
namespace {

constexpr int kGap = 12;
constexpr int kSignSize = 16;
constexpr int kLeastShare = 6;     // of the row, for the item beside words that lead
constexpr int kLeastLetters = 12;  // pixels
constexpr std::uint32_t kWordsFormat =
    draw::kSingleLine | draw::kVCenter | draw::kRight | draw::kNoPrefix | draw::kEndEllipsis;

/// A pin that points down to the left, in a square of 16 units.
void DrawPin(QPainter& painter) {
  QPainterPath head;
  head.moveTo(9, 1);
  head.lineTo(15, 7);
  head.lineTo(13, 8);
  head.lineTo(11, 8);
  head.lineTo(9, 11);
  head.lineTo(9, 14);
  head.lineTo(2, 7);
  head.lineTo(5, 7);
  head.lineTo(8, 5);
  head.lineTo(8, 3);
  painter.fillPath(head, painter.pen().color());
  QPen needle(painter.pen().color(), 1.5);
  painter.setPen(needle);
  painter.drawLine(QPointF(5.5, 10.5), QPointF(1, 15));
}

void DrawCross(QPainter& painter) {
  QPen stroke(painter.pen().color(), 2.5);
  stroke.setCapStyle(Qt::RoundCap);
  painter.setPen(stroke);
  painter.drawLine(QPointF(3, 3), QPointF(13, 13));
  painter.drawLine(QPointF(3, 13), QPointF(13, 3));
}

void DrawSign(QPainter& painter, const QRect& square, ListSign sign) {
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.translate(square.topLeft());
  painter.scale(square.width() / double{kSignSize}, square.height() / double{kSignSize});
  if (sign == ListSign::kPin) DrawPin(painter);
  if (sign == ListSign::kCross) DrawCross(painter);
  painter.restore();
}

/// The font, smaller if the words need it, but never so small that they can't be read.
QFont Fitting(QFont font, const QString& words, int width) {
  for (int size = QFontInfo(font).pixelSize(); size > kLeastLetters; --size) {
    if (QFontMetrics(font).horizontalAdvance(words) <= width) break;
    font.setPixelSize(size - 1);
  }
  return font;
}

}  // namespace

QRect DrawNote(QPainter& painter, const QRect& row, const ListNote& note) {
  const int least = note.leads ? row.left() + row.width() / kLeastShare : row.center().x();
  QRect room = row;
  room.setLeft(least + 1);
  if (note.sign != ListSign::kNone) {
    const int size = std::min({kSignSize, room.width(), room.height()});
    const QRect square(room.right() - size + 1, room.center().y() - size / 2, size, size);
    DrawSign(painter, square, note.sign);
    room.setRight(square.left() - kGap / 2);
  }
  int left = note.sign == ListSign::kNone ? row.right() + 1 : room.right() - kGap / 2;
  if (!note.words.empty() && room.width() > 0) {
    const QFont font = painter.font();
    const QString words = ToQString(note.words);
    if (note.leads) painter.setFont(Fitting(font, words, room.width()));
    left = room.right() + 1 - DrawText(painter, room, words, kWordsFormat).width() - kGap;
    painter.setFont(font);
  }
  QRect rest = row;
  rest.setRight(std::max(left - 1, least - (note.leads ? kGap : 0)));
  return rest;
}

}  // namespace pnl
