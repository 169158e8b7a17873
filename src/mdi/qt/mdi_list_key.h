// SPDX-License-Identifier: MIT
// A touch key beside the drop list. It is a child of the panel as the list is, belongs to the list, and never takes the
// focus from it: a list that loses the focus closes.
#pragma once

#include <QtWidgets/QAbstractButton>

#include "window/window.h"

namespace pnl {

class MdiListKey final : public QAbstractButton {
  Q_OBJECT
  Q_PROPERTY(QString pnlText READ text)

 public:
  /// Makes a hidden key. owner is the handle of the list, for those who look for controls by handle and id.
  MdiListKey(int id, WindowHandle owner, QWidget* panel);

  /// The height that a finger needs on the key's screen.
  [[nodiscard]] int LeastHeight() const;

 protected:
  void paintEvent(QPaintEvent* event) override;
};

}  // namespace pnl
