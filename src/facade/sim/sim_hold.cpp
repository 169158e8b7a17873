// SPDX-License-Identifier: MIT
#include "facade/sim/sim_hold.h"

namespace pnl::sim {

void SimHold::Hold(char place) {
  const std::lock_guard lock(mutex_);
  if (!forGood_) held_.insert(place);
}

void SimHold::Release(char place) {
  const std::lock_guard lock(mutex_);
  held_.erase(place);
  changed_.notify_all();
}

void SimHold::ReleaseForGood() {
  const std::lock_guard lock(mutex_);
  forGood_ = true;
  held_.clear();
  changed_.notify_all();
}

void SimHold::WaitWhileHeld(char place) {
  std::unique_lock lock(mutex_);
  if (held_.count(place) == 0) return;
  ++waiting_;
  changed_.notify_all();
  changed_.wait(lock, [&] { return held_.count(place) == 0; });
  --waiting_;
}

bool SimHold::AwaitWaiting(std::size_t threads, std::chrono::seconds limit) {
  std::unique_lock lock(mutex_);
  return changed_.wait_for(lock, limit, [&] { return waiting_ >= threads; });
}

}  // namespace pnl::sim
