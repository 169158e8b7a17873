// SPDX-License-Identifier: MIT
// Lets a simulated drive hang: a thread that asks something of it waits until it is released, as it would for a disc or
// a server that doesn't respond. Drives are held by capital letter, the network as '\'. Used by any thread.
#pragma once

#include <chrono>
#include <condition_variable>
#include <cstddef>
#include <mutex>
#include <set>

namespace pnl::sim {

class SimHold {
 public:
  /// Has no effect after ReleaseForGood.
  void Hold(char place);
  void Release(char place);
  /// Releases everything; from now on nothing can be held.
  void ReleaseForGood();

  void WaitWhileHeld(char place);
  /// Waits until so many threads wait in WaitWhileHeld. Returns false when they don't come in that time.
  [[nodiscard]] bool AwaitWaiting(std::size_t threads, std::chrono::seconds limit = std::chrono::seconds(60));

 private:
  std::mutex mutex_;
  std::condition_variable changed_;
  std::set<char> held_;
  std::size_t waiting_ = 0;
  bool forGood_ = false;
};

}  // namespace pnl::sim
