// SPDX-License-Identifier: MIT
#include "controls/zwc_edit.h"

#include <QtCore/QPointer>
#include <QtGui/QFocusEvent>
#include <QtGui/QInputMethodEvent>
#include <QtGui/QKeyEvent>
#include <QtWidgets/QApplication>
#include <algorithm>

#include "controls/fonts.h"
#include "window/qt/control_properties.h"
#include "window/qt/qt_text.h"

namespace pnl {

ZWCEdit::ZWCEdit(int id, WindowSystem& windows, WindowHandle parentHandle, QWidget* parent)
    : QLineEdit(parent), windows_(windows), parentHandle_(parentHandle), id_(id) {
  MarkControl(this, id, control_kind::kEdit);
}

void ZWCEdit::SetNormalColors(Color back, Color text, bool redraw) {
  if (back != m_BackNormal || text != m_TextNormal) m_hBrush.reset();
  m_BackNormal = back;
  m_TextNormal = text;
  if (redraw) repaint();
}

void ZWCEdit::SetFocusColors(Color back, Color text, bool redraw) {
  if (back != m_BackFocus || text != m_TextFocus) m_hBrush.reset();
  m_BackFocus = back;
  m_TextFocus = text;
  if (redraw) repaint();
}

void ZWCEdit::SetFont(const QString& face, int height, int weight) {
  m_pFont = MakeFont(face, height, weight);
  setFont(m_pFont.value_or(QFont()));
  update();
}

void ZWCEdit::focusInEvent(QFocusEvent* event) {
  // A popup menu takes and returns the focus; the parent must not see that as a change.
  static const std::uint32_t kMessage = RegisterMessage("ZWCEDIT_SETFOCUS");
  if (event->reason() != Qt::PopupFocusReason && !OnFocusChange(kMessage)) return;
  QLineEdit::focusInEvent(event);
}

void ZWCEdit::focusOutEvent(QFocusEvent* event) {
  static const std::uint32_t kMessage = RegisterMessage("ZWCEDIT_KILLFOCUS");
  if (event->reason() != Qt::PopupFocusReason && !OnFocusChange(kMessage)) return;
  QLineEdit::focusOutEvent(event);
}

bool ZWCEdit::OnFocusChange(std::uint32_t message) {
  const QPointer<ZWCEdit> self(this);
  m_hBrush.reset();
  update();
  windows_.Send(parentHandle_, {message, id_, 0});
  return !self.isNull();
}

bool ZWCEdit::IsForbidden(const QString& typed) const {
  return std::any_of(typed.begin(), typed.end(), [this](QChar c) { return m_Forbidden.contains(c); });
}

void ZWCEdit::keyPressEvent(QKeyEvent* event) {
  if (IsForbidden(event->text())) return event->accept();
  QLineEdit::keyPressEvent(event);
}

void ZWCEdit::inputMethodEvent(QInputMethodEvent* event) {
  if (!IsForbidden(event->commitString())) return QLineEdit::inputMethodEvent(event);
  QString allowed = event->commitString();
  allowed.removeIf([this](QChar c) { return m_Forbidden.contains(c); });
  QInputMethodEvent filtered(event->preeditString(), event->attributes());
  filtered.setCommitString(allowed, event->replacementStart(), event->replacementLength());
  QLineEdit::inputMethodEvent(&filtered);
  event->accept();
}

void ZWCEdit::paintEvent(QPaintEvent* event) {
  UseColors();
  QLineEdit::paintEvent(event);
}

void ZWCEdit::UseColors() {
  if (m_hBrush) return;
  m_hBrush.emplace(ToQColor(BackColor()));
  QPalette colors = palette();
  colors.setBrush(QPalette::Base, *m_hBrush);
  colors.setColor(QPalette::Text, ToQColor(TextColor()));
  setPalette(colors);
}

}  // namespace pnl
