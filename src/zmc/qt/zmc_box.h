// SPDX-License-Identifier: MIT
// A drop-down list of the machining calculator, with or without a line to type in. Its list can be opened and walked
// without selecting, and its rows are high enough for a glove. A text of others is shown as plain text.
#pragma once

#include <QtWidgets/QComboBox>
#include <vector>

#include "base/text.h"

namespace pnl {

class ZmcBox : public QComboBox {
  Q_OBJECT

 public:
  ZmcBox(int id, bool typed, QWidget* parent);

  /// Room before the text, in pixels: what another control covers of the box.
  void SetTextIndent(int pixels);
  void Fill(const std::vector<Text>& items);
  [[nodiscard]] std::vector<Text> Items() const;
  /// Selects without a signal; -1 selects nothing.
  void SelectIndex(int index);
  [[nodiscard]] bool IsOpen() const;
  void Open(bool open);
  /// Moves the mark in the open list.
  void MoveMark(int by);
  /// Selects the marked item of the open list and closes it. False when there is none.
  bool AcceptMark();
  /// The list is wider than a narrow box, so that a finger can press its rows.
  void showPopup() override;

 signals:
  /// The line has lost the focus to another control.
  void LineLeft();

 protected:
  void resizeEvent(QResizeEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void changeEvent(QEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;

 private:
  [[nodiscard]] int ArrowWidth() const { return height() / 2 + 4; }
  void PlaceLine();
  [[nodiscard]] QFont FittingFont(const QString& text, int width) const;
  int indent_ = 0;
};

}  // namespace pnl
