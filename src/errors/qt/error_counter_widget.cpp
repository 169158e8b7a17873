// SPDX-License-Identifier: MIT
#include "errors/qt/error_counter_widget.h"

#include <QtGui/QPainter>

#include "window/qt/control_properties.h"

namespace pnl {

namespace {
constexpr int kSmallest = 8;
}

ErrorCounterWidget::ErrorCounterWidget(int id, QWidget* parent) : QWidget(parent) {
  MarkControl(this, id, control_kind::kStatic);
}

void ErrorCounterWidget::SetText(const QString& text) {
  if (text == text_) return;
  text_ = text;
  setAccessibleName(text);
  update();
}

void ErrorCounterWidget::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  // The field is low, so the digits take its whole height. They are smaller if there are too many for the width.
  QFont fitting = font();
  fitting.setPixelSize(std::max(height(), kSmallest));
  while (fitting.pixelSize() > kSmallest && QFontMetrics(fitting).horizontalAdvance(text_) > width()) {
    fitting.setPixelSize(fitting.pixelSize() - 1);
  }
  painter.setFont(fitting);
  painter.setPen(Qt::white);
  painter.drawText(rect(), Qt::AlignCenter, text_);
}

}  // namespace pnl
