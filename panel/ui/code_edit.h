// SPDX-License-Identifier: MIT
// The text of a program with line numbers, the caret's line lit, and G and M words and comments coloured. Only the
// visible lines are coloured, so that a program of a million lines costs no more than a short one.
#pragma once

#include <QPlainTextEdit>

namespace panel {

class CodeEdit : public QPlainTextEdit {
  Q_OBJECT

 public:
  explicit CodeEdit(QWidget* parent);
  ~CodeEdit() override;
  void PaintNumbers(QPaintEvent* event);
  [[nodiscard]] int NumbersWidth() const;
  void SetFontPixels(int pixels);
  /// Updates line numbers and colours. Call it after a change that sent no signal.
  void Refresh();

 protected:
  void resizeEvent(QResizeEvent* event) override;

 private:
  void PlaceNumbers();
  /// Colours the visible lines and lights the caret's line.
  void ColourVisibleLines();
  QWidget* numbers_;
};

}  // namespace panel
