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
  /// Marks a piece of the text and shows it, in the middle when it was out of sight.
  void Mark(int position, int length);

 signals:
  /// The keys for it were pressed. The owner carries them out.
  void UndoWanted();
  void RedoWanted();

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  /// Leaves out the bar below the text where there is little room.
  void ChooseBars();
  void PlaceNumbers();
  /// Colours the visible lines and lights the caret's line.
  void ColourVisibleLines();
  QWidget* numbers_;
};

}  // namespace panel
