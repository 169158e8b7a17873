// SPDX-License-Identifier: MIT
#include "calc/qt/calc_result_window.h"

#include <QtGui/QMouseEvent>
#include <QtGui/QPainter>

#include "calc/qt/calc_look.h"
#include "controls/draw_text.h"
#include "window/qt/control_properties.h"
#include "window/qt/qt_text.h"

namespace pnl {
namespace {

constexpr std::uint32_t kFormat =
    draw::kRight | draw::kVCenter | draw::kSingleLine | draw::kNoPrefix | draw::kEndEllipsis;
constexpr int kSideMargin = 4;
/// 32 binary digits must be read too: a text that is too long gets smaller characters.
constexpr int kSmallest = 8;

}  // namespace

ZCResultWnd::ZCResultWnd(int id, QWidget* parent) : QWidget(parent) {
  MarkControl(this, id, control_kind::kStatic);
  setAttribute(Qt::WA_OpaquePaintEvent);
  setFocusPolicy(Qt::NoFocus);
  font_ = calc_look::Font(calc_look::kDialogHeight, calc_look::kNormalWeight);
}

void ZCResultWnd::SetText(const QString& text, bool redraw) {
  text_ = text;
  Redraw(redraw);
}

void ZCResultWnd::SetColors(Color back, Color text, bool redraw) {
  backColor_ = back;
  textColor_ = text;
  Redraw(redraw);
}

void ZCResultWnd::SetFont(const QFont& font) {
  font_ = font;
  Redraw(false);
}

void ZCResultWnd::Redraw(bool now) {
  picture_ = QPixmap();
  if (now && isVisible()) {
    repaint();
  } else {
    update();
  }
}

void ZCResultWnd::Compose() {
  const qreal ratio = devicePixelRatioF();
  picture_ = QPixmap(size() * ratio);
  picture_.setDevicePixelRatio(ratio);
  QPainter painter(&picture_);
  painter.fillRect(rect(), ToQColor(backColor_));
  const QRect field = rect().adjusted(kSideMargin, 0, -kSideMargin, 0);
  painter.setFont(calc_look::FittingFont(font_, text_, field.width(), kSmallest));
  painter.setPen(ToQColor(textColor_));
  DrawText(painter, field, text_, kFormat);
}

void ZCResultWnd::paintEvent(QPaintEvent* /*event*/) {
  if (picture_.isNull() || picture_.deviceIndependentSize().toSize() != size()) Compose();
  QPainter(this).drawPixmap(0, 0, picture_);
}

void ZCResultWnd::mousePressEvent(QMouseEvent* event) { event->accept(); }

void ZCResultWnd::mouseDoubleClickEvent(QMouseEvent* event) { event->accept(); }

}  // namespace pnl
