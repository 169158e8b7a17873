// SPDX-License-Identifier: MIT
// Whether a widget is drawn anew after a change, as the operator would see it.
#pragma once

#include <QCoreApplication>
#include <QEvent>
#include <QWidget>
#include <functional>

namespace panel {

/// Counts what is drawn of one widget, which it shows.
class RepaintCount : public QObject {
 public:
  explicit RepaintCount(QWidget& widget) {
    widget.installEventFilter(this);
    widget.window()->show();
    Settle();
  }
  /// Whether the change leads to a drawing.
  [[nodiscard]] bool After(const std::function<void()>& change) {
    Settle();
    count_ = 0;
    change();
    Settle();
    return count_ > 0;
  }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() == QEvent::Paint) ++count_;
    return QObject::eventFilter(watched, event);
  }

 private:
  static void Settle() {
    for (int i = 0; i < 5; ++i) QCoreApplication::processEvents();
  }
  int count_ = 0;
};

}  // namespace panel
