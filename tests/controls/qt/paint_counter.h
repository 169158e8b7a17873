// SPDX-License-Identifier: MIT
// Counts the paint events of a widget, for as long as the counter lives.
#pragma once

#include <QtCore/QEvent>
#include <QtCore/QObject>
#include <QtWidgets/QWidget>

namespace pnl::test {

class PaintCounter final : public QObject {
 public:
  explicit PaintCounter(QWidget& widget) { widget.installEventFilter(this); }
  [[nodiscard]] int Count() const { return count_; }

 protected:
  bool eventFilter(QObject* /*watched*/, QEvent* event) override {
    if (event->type() == QEvent::Paint) ++count_;
    return false;
  }

 private:
  int count_ = 0;
};

}  // namespace pnl::test
