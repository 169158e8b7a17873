// SPDX-License-Identifier: MIT
#include "ui/touch_stroke.h"

#include <QApplication>
#include <QKeyEvent>
#include <QPointer>
#include <QWidget>

namespace panel {
namespace {

QWidget* Receiver(QWidget* panel) {
  if (QWidget* popup = QApplication::activePopupWidget()) {
    return popup->focusWidget() != nullptr ? popup->focusWidget() : popup;
  }
  QWidget* focus = QApplication::focusWidget();
  return focus != nullptr ? focus : panel;
}

}  // namespace

TouchStroke StrokeOf(QChar character) {
  const Qt::KeyboardModifiers modifiers = character.isUpper() ? Qt::ShiftModifier : Qt::NoModifier;
  return {character.toUpper().unicode(), modifiers, QString(character)};
}

void SendStroke(QWidget& panel, const TouchStroke& stroke, bool repeated) {
  const QPointer<QWidget> alive(&panel);
  QKeyEvent press(QEvent::KeyPress, stroke.key, stroke.modifiers, stroke.text, repeated);
  QCoreApplication::sendEvent(Receiver(&panel), &press);
  // The press may have destroyed its receiver or moved the focus. The release goes to the focus, as a keyboard's does.
  if (!alive) return;
  QKeyEvent release(QEvent::KeyRelease, stroke.key, stroke.modifiers, stroke.text, repeated);
  QCoreApplication::sendEvent(Receiver(&panel), &release);
}

}  // namespace panel
