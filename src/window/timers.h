// SPDX-License-Identifier: MIT
// Timers and their clock. The tools' logic has no other clock, so a manual clock makes every run repeatable. Some
// windows also measure in real time how long they may compute or wait. Ticks arrive on the window thread, from the
// event loop or from ManualTimers::Advance.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <vector>

namespace pnl {

/// Identifies a timer; 0 is none. Never used twice.
using TimerId = std::uint32_t;

class Timers {
 public:
  virtual ~Timers() = default;
  /// Milliseconds since some fixed moment; never goes back.
  [[nodiscard]] virtual std::int64_t Now() const = 0;
  /// Calls tick every period milliseconds (at least 1), the first time after one period, until Stop. If once is set,
  /// calls it a single time. tick may stop its own timer and start others.
  virtual TimerId Start(int period, bool once, std::function<void()> tick) = 0;
  /// Stops a timer. Does nothing when the id isn't running.
  virtual void Stop(TimerId id) = 0;
};

/// A clock that moves only by Advance.
class ManualTimers final : public Timers {
 public:
  [[nodiscard]] std::int64_t Now() const override { return now_; }
  TimerId Start(int period, bool once, std::function<void()> tick) override;
  void Stop(TimerId id) override;
  /// Moves the clock. Fires every timer that falls due on the way, those started by a tick included, in order of due
  /// time and then of start. Calls afterTick, if one is set, after each tick.
  void Advance(std::int64_t milliseconds);
  void SetAfterTick(std::function<void()> afterTick) { afterTick_ = std::move(afterTick); }
  [[nodiscard]] std::size_t Running() const { return timers_.size(); }

 private:
  struct Entry {
    TimerId id;
    std::int64_t due;
    int period;
    bool once;
    std::shared_ptr<std::function<void()>> tick;
  };
  std::int64_t now_ = 0;
  TimerId next_ = 1;
  std::vector<Entry> timers_;
  std::function<void()> afterTick_;
};

/// A timer that stops with its owner.
class ScopedTimer {
 public:
  explicit ScopedTimer(Timers& timers) : timers_(timers) {}
  ~ScopedTimer() { Stop(); }
  ScopedTimer(const ScopedTimer&) = delete;
  ScopedTimer& operator=(const ScopedTimer&) = delete;
  /// Stops a running timer first.
  void Start(int period, std::function<void()> tick) {
    Stop();
    id_ = timers_.Start(period, false, std::move(tick));
  }
  void StartOnce(int period, std::function<void()> tick) {
    Stop();
    id_ = timers_.Start(period, true, [this, tick = std::move(tick)] {
      id_ = 0;
      tick();
    });
  }
  void Stop() {
    if (id_ != 0) timers_.Stop(id_);
    id_ = 0;
  }
  [[nodiscard]] bool IsRunning() const { return id_ != 0; }

 private:
  Timers& timers_;
  TimerId id_ = 0;
};

}  // namespace pnl
