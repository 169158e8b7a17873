// SPDX-License-Identifier: MIT
#include "panel/shift/qt/key_watch.h"

#include <QApplication>
#include <QKeyEvent>

#include "panel/shift/qt/finger.h"
#include "ui/panel_key.h"
#include "ui/touch_keyboard.h"

namespace panel::shift {

KeyWatch::KeyWatch(const Finger& finger) : finger_(finger) { qApp->installEventFilter(this); }

KeyWatch::~KeyWatch() = default;

bool KeyWatch::eventFilter(QObject* watched, QEvent* event) {
  // A key that nobody takes goes on to the parents, and is counted again at each.
  if (event->type() != QEvent::KeyPress || !watched->isWidgetType()) return false;
  const auto* key = static_cast<const QKeyEvent*>(event);
  const QWidget* touched = finger_.Touching();
  const bool ofPanel =
      qobject_cast<const TouchKeyboard*>(touched) != nullptr || qobject_cast<const PanelKey*>(touched) != nullptr;
  if (!event->spontaneous() && finger_.IsTouching() && ofPanel) {
    ++typed_;
    return false;
  }
  const QString where = QString::fromLatin1(watched->metaObject()->className());
  strangers_ << QStringLiteral("%1 in %2").arg(QKeySequence(key->key()).toString(), where);
  return false;
}

}  // namespace panel::shift
