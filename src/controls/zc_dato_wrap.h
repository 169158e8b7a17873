// SPDX-License-Identifier: MIT
// ZCDatoWrap: a one-line data field for a number. Its text is what was written to it, character for character; its
// digits decide how it is painted and what can be typed. An edit begins with the first typed character or a second
// touch, and ends with Enter, Escape or the loss of the focus.
#pragma once

#include <QtWidgets/QLineEdit>

#include "controls/entry_validator.h"
#include "controls/system_colors.h"

namespace pnl {

class ZCDatoWrap : public QLineEdit {
  Q_OBJECT
  Q_PROPERTY(uint pnlBack READ BackColor)
  Q_PROPERTY(uint pnlFore READ TextColor)

 public:
  ZCDatoWrap(int id, QWidget* parent);

  /// Sets the text without a signal. An open edit is dropped.
  void SetText(const QString& text);
  /// The text that was written or committed last. text() also shows what is being typed.
  [[nodiscard]] QString Written() const { return written_; }
  void SetDigits(const NumberFormat& format);
  [[nodiscard]] const NumberFormat& Digits() const { return format_; }
  /// Does nothing when the font can't be made.
  void SetFont(const QString& face, int height, int weight);
  void SetColors(Color back, Color text);
  [[nodiscard]] uint BackColor() const { return back_; }
  [[nodiscard]] uint TextColor() const { return text_; }

  /// While an edit is open, the field keeps the arrow keys.
  [[nodiscard]] bool IsEditing() const { return editing_; }
  /// Ends the edit. Returns false when its text is no number of the format: the edit is still open, with all of it
  /// selected. The listener to Changed may have destroyed the field.
  bool CommitEdit();
  /// Ends the edit with the old text.
  void CancelEdit();
  /// The text as it is painted while no edit is open.
  [[nodiscard]] QString PaintedText() const { return PaintedNumber(written_, format_); }

 signals:
  /// The operator has changed the text and committed it with Enter or by leaving the field.
  void Changed();

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  void BeginEdit(const QString& start);
  void EndEdit(const QString& text);
  void OnEdited();
  void MarkRefused(bool refused);

  NumberFormat format_;
  EntryValidator* validator_;
  QString written_;
  QString start_;  // the text with which the edit began
  bool editing_ = false;
  bool edited_ = false;   // the key under way has changed the text
  bool refused_ = false;  // the text was refused and not changed since
  bool fresh_ = false;    // the focus has come with a touch whose press follows
  Color back_ = SystemColor(kColorWindow);
  Color text_ = SystemColor(kColorWindowText);
};

}  // namespace pnl
