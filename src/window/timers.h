// SPDX-License-Identifier: MIT
// Timers and the clock they run on. Nothing in the library asks the time elsewhere, so that a manual clock makes every
// run repeatable. Ticks arrive on the window thread, from the event loop or from ManualTimers::Advance.
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
  /// Calls tick every period milliseconds (at least 1), the first time after one period, until stopped; with once set,
  /// a single time. tick may stop its own timer and start others.
  virtual TimerId Start(int period, bool once, std::function<void()> tick) = 0;
  /// An id that isn't running is left alone.
  virtual void Stop(TimerId id) = 0;
};

/// A clock that stands still until it is told how long to run.
class ManualTimers final : public Timers {
 public:
  [[nodiscard]] std::int64_t Now() const override { return now_; }
  TimerId Start(int period, bool once, std::function<void()> tick) override;
  void Stop(TimerId id) override;
  /// Fires every timer that falls due within the time, in order of due time, then of start; also those started by a
  /// tick. After each tick calls afterTick, if one is set.
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
  /// Stops what was running first.
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
