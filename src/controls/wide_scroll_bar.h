// SPDX-License-Identifier: MIT
// A scroll bar for a finger, upright or lying. It is as the kit's own in everything but its width.
#pragma once

#include <QtWidgets/QScrollBar>

#include "window/qt/finger.h"

namespace pnl {

class WideScrollBar : public QScrollBar {
 public:
  using QScrollBar::QScrollBar;
  [[nodiscard]] QSize sizeHint() const override {
    const QSize size = QScrollBar::sizeHint();
    const int width = FingerPixels(*this);
    return orientation() == Qt::Vertical ? QSize(width, size.height()) : QSize(size.width(), width);
  }
};

}  // namespace pnl
