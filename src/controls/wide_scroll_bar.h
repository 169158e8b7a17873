// SPDX-License-Identifier: MIT
// A scroll bar for a finger, upright or lying. It is as the kit's own in everything but its width.
#pragma once

#include <QtWidgets/QScrollBar>

namespace pnl {

class WideScrollBar : public QScrollBar {
 public:
  using QScrollBar::QScrollBar;
  [[nodiscard]] QSize sizeHint() const override {
    const QSize size = QScrollBar::sizeHint();
    return orientation() == Qt::Vertical ? QSize(kWidth, size.height()) : QSize(size.width(), kWidth);
  }

 private:
  static constexpr int kWidth = 30;
};

}  // namespace pnl
