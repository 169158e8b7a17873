// SPDX-License-Identifier: MIT
// Counts the paint events of a widget, for as long as the counter lives, and asks the usual questions with it.
#pragma once

#include <QtCore/QEvent>
#include <QtCore/QObject>
#include <QtWidgets/QWidget>

#include "support/widget_probe.h"

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

/// How often the change has the widget painted.
template <typename Change>
int PaintsAfter(QWidget& widget, const Change& change) {
  Settle();
  const PaintCounter paints(widget);
  change();
  Settle();
  return paints.Count();
}

/// Expects that the widget is painted without what lies below it.
inline void ExpectPaintedAlone(QWidget& widget, QWidget& below) {
  Settle();
  const PaintCounter beneath(below);
  EXPECT_EQ(PaintsAfter(widget, [&widget] { widget.update(); }), 1);
  EXPECT_EQ(beneath.Count(), 0);
}

}  // namespace pnl::test
