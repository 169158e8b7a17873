// SPDX-License-Identifier: MIT
// The base of the covers over the panel: no key that is pressed on a cover reaches what is under it, Tab stays among
// the cover's own widgets, and Escape leaves it. A cover places and paints itself and decides when it is shown.
#pragma once

#include <QWidget>
#include <vector>

namespace panel {

class Cover : public QWidget {
  Q_OBJECT

 public:
  /// Whether the cover waits for the operator. It may be hidden meanwhile.
  [[nodiscard]] virtual bool IsOpen() const = 0;
  /// Does what Escape does. It may destroy the cover.
  virtual void Leave() = 0;

 protected:
  /// The arrow keys that move the focus like Shift+Tab and Tab. The widget that has the focus gets them first.
  enum class Arrows { kNone, kLeftRight, kUpDown };

  Cover(QWidget* parent, Arrows arrows) : QWidget(parent), arrows_(arrows) {}
  /// The widgets that Tab visits, in this order.
  [[nodiscard]] virtual std::vector<QWidget*> TabOrder() const = 0;

  void keyPressEvent(QKeyEvent* event) override;
  bool focusNextPrevChild(bool next) override;

 private:
  Arrows arrows_;
};

/// Moves the focus to the next or previous of these widgets, after the last one to the first. Leaves out those that are
/// hidden or disabled. Returns false when none is left.
bool FocusAmong(const std::vector<QWidget*>& widgets, bool next);

}  // namespace panel
