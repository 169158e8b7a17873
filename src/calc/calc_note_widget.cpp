// SPDX-License-Identifier: MIT
#include "calc/calc_note_widget.h"

#include <QtGui/QPainter>

#include "calc/calc_ids.h"
#include "calc/calc_look_widget.h"
#include "calc/calc_places.h"
#include "window/qt/control_properties.h"

namespace pnl {
namespace {

constexpr int kMargin = 6;
constexpr int kHeight = 14;
constexpr int kFormat = Qt::AlignLeft | Qt::AlignTop | Qt::TextWrapAnywhere | Qt::TextExpandTabs;

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
  const QRect used = QFontMetrics(font()).boundingRect(room, kFormat, text_);
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
  painter.drawText(rect().adjusted(kMargin, kMargin, -kMargin, -kMargin), kFormat, text_);
}

}  // namespace pnl
