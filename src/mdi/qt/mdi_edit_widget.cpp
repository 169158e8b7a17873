// SPDX-License-Identifier: MIT
#include "mdi/qt/mdi_edit_widget.h"

#include <QtGui/QFocusEvent>
#include <algorithm>

#include "window/qt/control_properties.h"
#include "window/qt/qt_text.h"

namespace pnl {
namespace {

constexpr int kSideMargin = 4;

}  // namespace

MdiEdit::MdiEdit(int id, QWidget* parent) : LimitedEdit(id, kLimit, parent) {
  setFrame(false);
  setTextMargins(kSideMargin, 0, kSideMargin, 0);
}

TextSelection MdiEdit::Selection() const {
  if (!hasSelectedText()) return {cursorPosition(), cursorPosition()};
  return {selectionStart(), selectionEnd()};
}

void MdiEdit::Select(TextSelection selection) {
  if (selection.start < 0) return deselect();
  const int length = static_cast<int>(text().size());
  const int start = std::min(selection.start, length);
  const int end = selection.end < 0 ? length : std::min(selection.end, length);
  // This also removes the selection.
  setCursorPosition(start);
  if (start != end) setSelection(start, end - start);
  chosen_ = Selection();
}

void MdiEdit::ReplaceSelection(const QString& text) { insert(text); }

void MdiEdit::SetColors(const MdiColorPair& colors) {
  // This is called after every message. Qt compares the palettes and does nothing if they are the same.
  SetColorProperty(this, property::kBack, colors.back);
  SetColorProperty(this, property::kFore, colors.text);
  QPalette wanted = palette();
  wanted.setColor(QPalette::Base, ToQColor(colors.back));
  wanted.setColor(QPalette::Text, ToQColor(colors.text));
  setPalette(wanted);
}

bool MdiEdit::event(QEvent* event) {
  const QEvent::Type type = event->type();
  const bool focus = (type == QEvent::FocusIn || type == QEvent::FocusOut) &&
                     static_cast<QFocusEvent*>(event)->reason() != Qt::PopupFocusReason;
  // The base drops the selection with the focus. One that the window has set is a word at fault or the operator's own
  // from before, and he must still see it while the error window has the focus.
  const bool keeps = focus && type == QEvent::FocusOut && hasSelectedText() && Selection() == chosen_;
  const bool handled = LimitedEdit::event(event);
  if (keeps) setSelection(chosen_.start, chosen_.end - chosen_.start);
  // This comes last, because a listener may destroy the edit.
  if (focus) emit FocusChanged(type == QEvent::FocusIn);
  return handled;
}

}  // namespace pnl
