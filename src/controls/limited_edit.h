// SPDX-License-Identifier: MIT
// A line that limits what is typed or pasted into it, but takes any text that is set from outside: a window's own rules
// write longer texts than an operator may type. It decides nothing else.
#pragma once

#include <QtWidgets/QLineEdit>

namespace pnl {

class LimitedEdit : public QLineEdit {
  Q_OBJECT

 public:
  /// A control with that id and the kind "edit".
  LimitedEdit(int id, int limit, QWidget* parent);

  void SetLimit(int limit);
  [[nodiscard]] int Limit() const { return limit_; }
  /// Also beyond the limit, which then holds again once the text is shorter. The caret goes to the start.
  void SetText(const QString& text);

 private:
  void KeepLimit();
  int limit_;
};

}  // namespace pnl
