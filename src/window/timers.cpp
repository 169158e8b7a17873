// SPDX-License-Identifier: MIT
#include "window/timers.h"

#include <algorithm>
#include <limits>

namespace pnl {

TimerId ManualTimers::Start(int period, bool once, std::function<void()> tick) {
  const int step = std::max(period, 1);
  timers_.push_back({next_, now_ + step, step, once, std::make_shared<std::function<void()>>(std::move(tick))});
  return next_++;
}

void ManualTimers::Stop(TimerId id) {
  std::erase_if(timers_, [id](const Entry& entry) { return entry.id == id; });
}

void ManualTimers::Advance(std::int64_t milliseconds) {
  const std::int64_t room = std::numeric_limits<std::int64_t>::max() - now_;
  const std::int64_t target = now_ + std::clamp<std::int64_t>(milliseconds, 0, room);
  const auto sooner = [](const Entry& a, const Entry& b) { return a.due != b.due ? a.due < b.due : a.id < b.id; };
  for (;;) {
    const auto next = std::min_element(timers_.begin(), timers_.end(), sooner);
    if (next == timers_.end() || next->due > target) break;
    // A tick may stop its own timer or start others, so everything is settled before it runs.
    const auto tick = next->tick;
    now_ = std::max(now_, next->due);
    if (next->once) {
      timers_.erase(next);
    } else {
      next->due += next->period;
    }
    if (*tick) (*tick)();
    if (afterTick_) afterTick_();
  }
  now_ = std::max(now_, target);
}

}  // namespace pnl
