// SPDX-License-Identifier: MIT
// The calculator's note: a framed text beside the window, in the window's parent, so that the window's own layout keeps
// its place. It is as wide as the window, as high as its text needs, and takes no presses.
#pragma once

#include <QtWidgets/QWidget>

#include "window/window.h"

namespace pnl {

class CalcNoteWidget final : public QWidget {
  Q_OBJECT
  Q_PROPERTY(QString pnlText READ Shown)

 public:
  /// owner is the window whose control it is for whoever asks by handle and id.
  CalcNoteWidget(int id, WindowHandle owner, QWidget* parent);

  void SetText(const QString& text);
  [[nodiscard]] QString Shown() const { return text_; }
  /// Beside that window of the same parent, in front of everything.
  void PlaceBeside(const QRect& window);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QString text_;
};

}  // namespace pnl
