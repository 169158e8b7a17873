// SPDX-License-Identifier: MIT
// The text of a program with the numbers of its lines, the caret's line lit and the words that an eye looks for in
// colours. Only what is seen is coloured, so that a program of a million lines costs no more than a short one.
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
  /// Updates line numbers and colours after a change that sent no signal.
  void Refresh();

 protected:
  void resizeEvent(QResizeEvent* event) override;

 private:
  void PlaceNumbers();
  /// Colours the lines that are seen and lights the caret's.
  void Light();
  QWidget* numbers_;
};

}  // namespace panel
