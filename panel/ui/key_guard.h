// SPDX-License-Identifier: MIT
// Decides whether a key or a touch was meant for something that has just come over the operator's work: the error
// window or a question. Nobody can read it and answer it in the first moments, and whoever types goes on for a while.
// It knows no widget. Keyboard reports to it what comes, and asks it about each key and touch.
#pragma once

#include <QtGlobal>
#include <functional>
#include <limits>

class QKeyEvent;

namespace panel {

/// How long what has come takes no answer, and how long the typing must pause.
inline constexpr qint64 kGuardMilliseconds = 700;

class KeyGuard {
 public:
  /// Something has come that must not be answered unread.
  void Begin();
  /// Whether the guard is on: for kGuardMilliseconds after Begin, and after each key that came meanwhile.
  [[nodiscard]] bool IsOn() const;
  /// Takes note of a pressed key. Returns true when it must not act: it has reached what is guarded (atGuarded), but
  /// came while the guard was on, or repeats because it has been held down since then. Function keys and keys with Ctrl
  /// or Alt are commands, which nobody types by the way: they always act.
  [[nodiscard]] bool HoldsBack(const QKeyEvent& key, bool atGuarded);
  /// Sets the clock, in ms, which must never go back. For tests.
  void SetClock(std::function<qint64()> clock) { clock_ = std::move(clock); }

 private:
  static qint64 SteadyMilliseconds();
  std::function<qint64()> clock_ = &SteadyMilliseconds;
  qint64 since_ = std::numeric_limits<qint64>::min() / 2;  // long ago
  int held_ = 0;  // the last key that was pressed elsewhere or held back, else 0
};

}  // namespace panel
