// SPDX-License-Identifier: MIT
// A touch key beside the drop list. It is a child of the panel as the list is, belongs to the list, and never takes the
// focus from it: a list that loses the focus closes.
#pragma once

#include <QtWidgets/QAbstractButton>

namespace pnl {

class MdiListKey final : public QAbstractButton {
  Q_OBJECT
  Q_PROPERTY(QString pnlText READ text)

 public:
  /// Makes a hidden key. It is no control of the list: who looks for these finds the list box alone.
  MdiListKey(const QString& name, QWidget* panel);

 protected:
  void paintEvent(QPaintEvent* event) override;
};

}  // namespace pnl
