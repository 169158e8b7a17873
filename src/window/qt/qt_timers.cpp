// SPDX-License-Identifier: MIT
#include "window/qt/qt_timers.h"

#include <QTimerEvent>
#include <algorithm>
#include <limits>

namespace pnl {

TimerId QtTimers::Start(int period, bool once, std::function<void()> tick) {
  const int step = std::max(period, 1);
  const TimerId id = next_++;
  timers_.emplace(id, Entry{Now() + step, step, once, std::make_shared<std::function<void()>>(std::move(tick))});
  Arm();
  return id;
}

void QtTimers::Stop(TimerId id) {
  if (timers_.erase(id) != 0) Arm();
}

std::map<TimerId, QtTimers::Entry>::iterator QtTimers::Next() {
  return std::min_element(timers_.begin(), timers_.end(),
                          [](const auto& a, const auto& b) { return a.second.due < b.second.due; });
}

void QtTimers::Arm() {
  const auto next = Next();
  if (next == timers_.end()) {
    source_.stop();
    return;
  }
  const std::int64_t wait = std::clamp<std::int64_t>(next->second.due - Now(), 0, std::numeric_limits<int>::max());
  source_.start(static_cast<int>(wait), Qt::PreciseTimer, this);
}

void QtTimers::timerEvent(QTimerEvent* /*event*/) {
  const std::int64_t now = Now();
  for (auto next = Next(); next != timers_.end() && next->second.due <= now; next = Next()) {
    // A tick may stop its own timer, start others or run an event loop, so everything is settled before it runs.
    const auto tick = next->second.tick;
    if (next->second.once) {
      timers_.erase(next);
    } else {
      const std::int64_t due = next->second.due + next->second.period;
      next->second.due = due > now ? due : now + next->second.period;
    }
    Arm();
    if (*tick) (*tick)();
  }
  Arm();
}

std::int64_t SwitchableTimers::Now() const {
  if (isManual_) return offset_ + manual_.Now();
  return real_ ? real_->Now() : 0;
}

Timers& SwitchableTimers::Inner() {
  if (isManual_) return manual_;
  if (!real_) real_.emplace();
  return *real_;
}

void SwitchableTimers::StartInner(TimerId id, Entry& entry) {
  entry.inner = Inner().Start(entry.period, entry.once, [this, id] {
    const auto found = timers_.find(id);
    if (found == timers_.end()) return;
    const auto tick = found->second.tick;
    if (found->second.once) timers_.erase(found);
    if (*tick) (*tick)();
  });
}

TimerId SwitchableTimers::Start(int period, bool once, std::function<void()> tick) {
  const TimerId id = next_++;
  Entry entry{period, once, std::make_shared<std::function<void()>>(std::move(tick)), 0};
  StartInner(id, entry);
  timers_.emplace(id, std::move(entry));
  return id;
}

void SwitchableTimers::Stop(TimerId id) {
  const auto found = timers_.find(id);
  if (found == timers_.end()) return;
  Inner().Stop(found->second.inner);
  timers_.erase(found);
}

void SwitchableTimers::UseManual() {
  if (isManual_) return;
  offset_ = Now();
  for (const auto& [id, entry] : timers_) real_->Stop(entry.inner);
  isManual_ = true;
  for (auto& [id, entry] : timers_) StartInner(id, entry);
}

void SwitchableTimers::Advance(std::int64_t milliseconds) {
  if (isManual_) manual_.Advance(milliseconds);
}

}  // namespace pnl
