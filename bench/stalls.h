// SPDX-License-Identifier: MIT
// How long the window's thread doesn't come back to its events, by the clock, which counts the work of other programs
// too, and by the thread's own clock. Needs an application.
#pragma once

#include <benchmark/benchmark.h>

#include <QTimer>
#include <algorithm>
#include <chrono>
#include <ctime>

using Clock = std::chrono::steady_clock;

inline double MillisecondsSince(Clock::time_point start) {
  return std::chrono::duration<double, std::milli>(Clock::now() - start).count();
}

inline double ThreadMilliseconds() {
  timespec now{};
  clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
  return static_cast<double>(now.tv_sec) * 1e3 + static_cast<double>(now.tv_nsec) / 1e6;
}

/// The longest time between two events of a timer of 1 ms.
class Stalls {
 public:
  Stalls() {
    timer_.setTimerType(Qt::PreciseTimer);
    QObject::connect(&timer_, &QTimer::timeout, [this] { Note(); });
    timer_.start(1);
  }
  /// Counts from here on.
  void Begin() {
    clock_ = busy_ = 0;
    last_ = Clock::now();
    lastBusy_ = ThreadMilliseconds();
  }
  void Count(benchmark::State& state) const {
    Keep(state, "longest stall, ms", clock_);
    Keep(state, "of it own work, ms", busy_);
  }
  static void Keep(benchmark::State& state, const char* name, double value) {
    auto& counter = state.counters[name];
    counter = std::max(static_cast<double>(counter), value);
  }

 private:
  void Note() {
    clock_ = std::max(clock_, MillisecondsSince(last_));
    busy_ = std::max(busy_, ThreadMilliseconds() - lastBusy_);
    last_ = Clock::now();
    lastBusy_ = ThreadMilliseconds();
  }
  QTimer timer_;
  Clock::time_point last_ = Clock::now();
  double lastBusy_ = ThreadMilliseconds();
  double clock_ = 0;
  double busy_ = 0;
};
