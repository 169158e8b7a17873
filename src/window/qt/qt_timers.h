// SPDX-License-Identifier: MIT
// Timers on Qt's event loop. One event source serves all of them and is set to the next due time, so nothing wakes up
// while no timer runs. Also the timers of the library, which can be switched to a manual clock.
#pragma once

#include <QBasicTimer>
#include <QElapsedTimer>
#include <QObject>
#include <map>
#include <optional>

#include "window/timers.h"

namespace pnl {

/// Timers in real time. A timer that is late because the loop was busy ticks once and goes on from there; it doesn't
/// catch up.
class QtTimers final : public QObject, public Timers {
 public:
  QtTimers() { clock_.start(); }
  [[nodiscard]] std::int64_t Now() const override { return clock_.elapsed(); }
  TimerId Start(int period, bool once, std::function<void()> tick) override;
  void Stop(TimerId id) override;
  [[nodiscard]] std::size_t Running() const { return timers_.size(); }
  /// True while the event source is set, that is, while it will wake the process.
  [[nodiscard]] bool IsArmed() const { return source_.isActive(); }

 private:
  struct Entry {
    std::int64_t due;
    int period;
    bool once;
    std::shared_ptr<std::function<void()>> tick;
  };
  void timerEvent(QTimerEvent* event) override;
  /// The timer that is due first; of several, the one that was started first.
  [[nodiscard]] std::map<TimerId, Entry>::iterator Next();
  void Arm();
  QElapsedTimer clock_;
  QBasicTimer source_;
  std::map<TimerId, Entry> timers_;
  TimerId next_ = 1;
};

/// Timers in real time until UseManual. From then on only Advance moves the clock, and timers that run go on with it.
class SwitchableTimers final : public Timers {
 public:
  [[nodiscard]] std::int64_t Now() const override;
  TimerId Start(int period, bool once, std::function<void()> tick) override;
  void Stop(TimerId id) override;
  /// Switches to the manual clock, which needs no event loop. A second call does nothing.
  void UseManual();
  [[nodiscard]] bool IsManual() const { return isManual_; }
  /// Moves the manual clock. Does nothing in real time.
  void Advance(std::int64_t milliseconds);
  /// Called after every tick of the manual clock.
  void SetAfterTick(std::function<void()> afterTick) { manual_.SetAfterTick(std::move(afterTick)); }
  [[nodiscard]] std::size_t Running() const { return timers_.size(); }

 private:
  struct Entry {
    int period;
    bool once;
    std::shared_ptr<std::function<void()>> tick;
    TimerId inner;
  };
  void StartInner(TimerId id, Entry& entry);
  Timers& Inner();
  std::optional<QtTimers> real_;  // made at the first use, when the application exists
  ManualTimers manual_;
  bool isManual_ = false;
  std::int64_t offset_ = 0;  // keeps Now from going back at the switch
  std::map<TimerId, Entry> timers_;
  TimerId next_ = 1;
};

}  // namespace pnl
