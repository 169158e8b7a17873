// SPDX-License-Identifier: MIT
#include "calc/qt/calc_label_widget.h"

#include <QtGui/QPainter>

#include "calc/qt/calc_look.h"
#include "window/qt/control_properties.h"

namespace pnl {
namespace {

constexpr int kSideMargin = 2;
constexpr int kSmallest = 11;
const QString kMark = QStringLiteral("< >");

}  // namespace

CalcLabelWidget::CalcLabelWidget(int id, int height, QWidget* parent) : QWidget(parent), height_(height) {
  MarkControl(this, id, control_kind::kStatic);
  setFocusPolicy(Qt::NoFocus);
}

void CalcLabelWidget::SetText(const QString& text) {
  if (text == text_) return;
  text_ = text;
  update();
}

void CalcLabelWidget::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  const QRect field = rect().adjusted(kSideMargin, 0, -kSideMargin, 0);
  const QFont font =
      calc_look::FittingFont(calc_look::Font(height_, calc_look::kNormalWeight), text_, field.width(), kSmallest);
  painter.setFont(font);
  painter.setPen(QColor(calc_look::kText));
  painter.drawText(field, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
                   ShortenAroundMark(QFontMetrics(font), text_, field.width()));
}

QString ShortenAroundMark(const QFontMetrics& metrics, const QString& text, int width) {
  if (metrics.horizontalAdvance(text) <= width) return text;
  const qsizetype mark = text.indexOf(kMark);
  if (mark < 0) return metrics.elidedText(text, Qt::ElideRight, width);
  // A third of the room belongs to what follows the mark, or all that what stands before it leaves free.
  const QString after = text.mid(mark + kMark.size());
  const QString before = text.left(mark);
  const int room = std::max(0, width - metrics.horizontalAdvance(kMark));
  const int needed = metrics.horizontalAdvance(before);
  const int afterRoom = std::max(room / 3, room - needed);
  const QString shownAfter = metrics.elidedText(after, Qt::ElideRight, afterRoom);
  const int beforeRoom = room - metrics.horizontalAdvance(shownAfter);
  return metrics.elidedText(before, Qt::ElideLeft, beforeRoom) + kMark + shownAfter;
}

}  // namespace pnl
