// SPDX-License-Identifier: MIT
// A line edit that limits what is typed or pasted, but takes any text that the program sets: a window may write longer
// texts than an operator may type.
#pragma once

#include <QtWidgets/QLineEdit>

namespace pnl {

class LimitedEdit : public QLineEdit {
  Q_OBJECT

 public:
  /// Makes a control with that id and the kind "edit". limit counts characters.
  LimitedEdit(int id, int limit, QWidget* parent);

  void SetLimit(int limit);
  [[nodiscard]] int Limit() const { return limit_; }
  /// Sets a text, which may be longer than the limit. The limit applies again when the text is shorter. The caret goes
  /// to the start.
  void SetText(const QString& text);

 private:
  void KeepLimit();
  int limit_;
};

}  // namespace pnl
