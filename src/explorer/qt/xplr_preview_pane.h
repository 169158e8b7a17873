// SPDX-License-Identifier: MIT
// Two things that lie over the list: the pane at its right with the first lines of the selected file, and the sign
// below its rows that more are coming. Neither takes the mouse or the focus.
#pragma once

#include <QtWidgets/QWidget>

#include "explorer/xplr_view.h"

namespace pnl {

class XplrPreviewPane : public QWidget {
  Q_OBJECT

 public:
  explicit XplrPreviewPane(QWidget* list);
  /// The width that it takes of the list's.
  [[nodiscard]] static int WidthIn(int list);
  void SetLook(int fontHeight);
  void Show(const XplrPreviewFace& preview);
  [[nodiscard]] const QStringList& Lines() const { return lines_; }

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  int fontHeight_ = 14;
  QString name_;
  QStringList lines_;
};

class XplrComingSign : public QWidget {
  Q_OBJECT

 public:
  static constexpr int kHeight = 24;
  explicit XplrComingSign(QWidget* list);

 protected:
  void paintEvent(QPaintEvent* event) override;
};

}  // namespace pnl
