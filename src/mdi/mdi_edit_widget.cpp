// SPDX-License-Identifier: MIT
#include "mdi/mdi_edit_widget.h"

#include <QtCore/QSignalBlocker>
#include <QtGui/QFocusEvent>
#include <algorithm>

#include "window/qt/control_properties.h"
#include "window/qt/qt_text.h"

namespace pnl {
namespace {

constexpr int kSideMargin = 4;

}  // namespace

MdiEdit::MdiEdit(int id, QWidget* parent) : QLineEdit(parent) {
  MarkControl(this, id, control_kind::kEdit);
  setProperty(property::kLimit, kLimit);
  setMaxLength(kLimit);
  setFrame(false);
  setTextMargins(kSideMargin, 0, kSideMargin, 0);
  connect(this, &QLineEdit::textChanged, this, &MdiEdit::KeepLimit);
}

void MdiEdit::KeepLimit() {
  const int limit = std::max(kLimit, static_cast<int>(text().size()));
  if (maxLength() == limit) return;
  // Another limit moves the caret to the end.
  const int caret = cursorPosition();
  setMaxLength(limit);
  setCursorPosition(caret);
}

void MdiEdit::SetText(const QString& text) {
  {
    // An edit cuts even a text set from outside, and this one may come from a list that never had a limit.
    const QSignalBlocker quiet(this);
    setMaxLength(std::max(kLimit, static_cast<int>(text.size())));
  }
  setText(text);
  setCursorPosition(0);
}

MdiSelection MdiEdit::Selection() const {
  if (!hasSelectedText()) return {cursorPosition(), cursorPosition()};
  return {selectionStart(), selectionEnd()};
}

void MdiEdit::Select(MdiSelection selection) {
  if (selection.start < 0) return deselect();
  const int length = static_cast<int>(text().size());
  const int start = std::min(selection.start, length);
  const int end = selection.end < 0 ? length : std::min(selection.end, length);
  deselect();
  setCursorPosition(start);
  if (start != end) setSelection(start, end - start);
}

void MdiEdit::ReplaceSelection(const QString& text) { insert(text); }

void MdiEdit::SetColors(const MdiColorPair& colors) {
  // Asked after every message: what stays the same must cost nothing.
  if (colors_ == colors) return;
  colors_ = colors;
  SetColorProperty(this, property::kBack, colors.back);
  SetColorProperty(this, property::kFore, colors.text);
  QPalette wanted = palette();
  wanted.setColor(QPalette::Base, ToQColor(colors.back));
  wanted.setColor(QPalette::Text, ToQColor(colors.text));
  if (wanted != palette()) setPalette(wanted);
}

bool MdiEdit::event(QEvent* event) {
  const QEvent::Type type = event->type();
  const bool focus = (type == QEvent::FocusIn || type == QEvent::FocusOut) &&
                     static_cast<QFocusEvent*>(event)->reason() != Qt::PopupFocusReason;
  const bool handled = QLineEdit::event(event);
  // Last of all: whoever listens may destroy the edit.
  if (focus) emit FocusChanged(type == QEvent::FocusIn);
  return handled;
}

}  // namespace pnl
