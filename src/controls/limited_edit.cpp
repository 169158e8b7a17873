// SPDX-License-Identifier: MIT
#include "controls/limited_edit.h"

#include <QtCore/QPointer>
#include <QtCore/QSignalBlocker>
#include <algorithm>

#include "window/qt/control_properties.h"

namespace pnl {

LimitedEdit::LimitedEdit(int id, int limit, QWidget* parent) : QLineEdit(parent), limit_(limit) {
  MarkControl(this, id, control_kind::kEdit);
  SetLimit(limit);
  connect(this, &QLineEdit::textChanged, this, &LimitedEdit::KeepLimit);
}

void LimitedEdit::SetLimit(int limit) {
  limit_ = limit;
  setProperty(property::kLimit, limit);
  KeepLimit();
}

void LimitedEdit::KeepLimit() {
  const int limit = std::max(limit_, static_cast<int>(text().size()));
  if (maxLength() == limit) return;
  // setMaxLength moves the caret to the end.
  const int caret = cursorPosition();
  setMaxLength(limit);
  setCursorPosition(caret);
}

void LimitedEdit::SetText(const QString& text) {
  {
    // An edit cuts even a text that the program sets, and this one may come from a list without a limit.
    const QSignalBlocker quiet(this);
    setMaxLength(std::max(limit_, static_cast<int>(text.size())));
  }
  const QPointer<LimitedEdit> alive(this);
  setText(text);
  // A listener may have destroyed the edit.
  if (alive) setCursorPosition(0);
}

}  // namespace pnl
