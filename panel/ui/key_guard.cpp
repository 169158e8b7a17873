// SPDX-License-Identifier: MIT
#include "ui/key_guard.h"

#include <QKeyEvent>
#include <chrono>

namespace panel {
namespace {

bool IsTyping(const QKeyEvent& key) {
  if ((key.modifiers() & ~(Qt::KeypadModifier | Qt::ShiftModifier)) != Qt::NoModifier) return false;
  if (key.key() >= Qt::Key_F1 && key.key() <= Qt::Key_F35) return false;
  switch (key.key()) {
    case Qt::Key_Shift:
    case Qt::Key_Control:
    case Qt::Key_Alt:
    case Qt::Key_AltGr:
    case Qt::Key_Meta:
      return false;
    default:
      return true;
  }
}

}  // namespace

qint64 KeyGuard::SteadyMilliseconds() {
  using std::chrono::steady_clock;
  return std::chrono::duration_cast<std::chrono::milliseconds>(steady_clock::now().time_since_epoch()).count();
}

void KeyGuard::Begin() { since_ = clock_(); }

bool KeyGuard::IsOn() const { return clock_() - since_ < kGuardMilliseconds; }

bool KeyGuard::HoldsBack(const QKeyEvent& key, bool atGuarded) {
  if (!IsTyping(key)) return false;
  const bool on = IsOn();
  const bool early = on || (key.isAutoRepeat() && key.key() == held_);
  if (on) since_ = clock_();
  held_ = atGuarded && !early ? 0 : key.key();
  return atGuarded && early;
}

}  // namespace panel
