// SPDX-License-Identifier: MIT
#include "calc/qt/calc_note_widget.h"

#include <QtCore/QRegularExpression>
#include <QtGui/QPainter>

#include "calc/calc_ids.h"
#include "calc/calc_places.h"
#include "calc/qt/calc_look.h"
#include "window/qt/control_properties.h"

namespace pnl {
namespace {

constexpr int kMargin = 6;
constexpr int kHeight = 14;

/// Lines break between words, and within one only where it is wider than the note.
int FormatFor(const QFontMetrics& metrics, const QString& text, int width) {
  int format = Qt::AlignLeft | Qt::AlignTop;
  for (const QString& word : text.split(QRegularExpression(QStringLiteral("\\s")))) {
    if (metrics.horizontalAdvance(word) > width) return format | Qt::TextWrapAnywhere;
  }
  return format | Qt::TextWordWrap;
}

}  // namespace

CalcNoteWidget::CalcNoteWidget(int id, WindowHandle owner, QWidget* parent) : QWidget(parent) {
  MarkControl(this, id, control_kind::kStatic);
  setProperty(property::kOwner, owner);
  setAttribute(Qt::WA_OpaquePaintEvent);
  setAttribute(Qt::WA_TransparentForMouseEvents);
  setFocusPolicy(Qt::NoFocus);
  setFont(calc_look::Font(kHeight, calc_look::kNormalWeight));
  hide();
}

void CalcNoteWidget::SetText(const QString& text) {
  text_ = text;
  update();
}

void CalcNoteWidget::PlaceBeside(const QRect& window) {
  const QRect room(0, 0, std::max(1, window.width() - 2 * kMargin), QWIDGETSIZE_MAX);
  const QFontMetrics metrics(font());
  const QRect used = metrics.boundingRect(room, FormatFor(metrics, text_, room.width()), text_);
  const CalcExtent extent{window.width(), used.height() + 2 * kMargin};
  const Rect area{0, 0, parentWidget()->width(), parentWidget()->height()};
  const Rect beside{window.left(), window.top(), window.left() + window.width(), window.top() + window.height()};
  const Rect place = CalcNoteRect(area, beside, extent);
  setGeometry(place.left, place.top, place.Width(), place.Height());
  raise();
}

void CalcNoteWidget::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.fillRect(rect(), QColor(calc_look::kGround));
  painter.setPen(QColor(calc_look::kEdge));
  painter.drawRect(rect().adjusted(0, 0, -1, -1));
  painter.setPen(QColor(calc_look::kText));
  const QRect room = rect().adjusted(kMargin, kMargin, -kMargin, -kMargin);
  painter.drawText(room, FormatFor(QFontMetrics(font()), text_, room.width()), text_);
}

}  // namespace pnl
