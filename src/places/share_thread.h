// SPDX-License-Identifier: MIT
// The one thread on which a share's client lives: any thread hands it a call and waits for the answer. A call that
// overruns its time is given up: whoever waits for it or after it goes on without an answer until the thread is back.
// The client is made with the first call. Nobody waits for a thread that hangs, not even the destructor.
#pragma once

#include <chrono>
#include <functional>
#include <memory>

#include "places/share_client.h"

namespace pnl {

class ShareThread {
 public:
  /// Makes the client, on its thread. Returns null when there is none.
  using MakeClient = std::function<std::unique_ptr<ShareClient>()>;
  enum class Result {
    kDone,
    kNoClient,  // there is none, or this object is being destroyed
    kOverrun,   // this call, or one before it, has taken too long
  };

  ShareThread(MakeClient make, std::chrono::milliseconds limit);
  /// Ends the thread. A call that is under way is waited for as long as its limit allows.
  ~ShareThread();
  ShareThread(const ShareThread&) = delete;
  ShareThread& operator=(const ShareThread&) = delete;

  /// Runs work with the client and waits until it has ended. Work may go on after kOverrun, so it must own what it
  /// uses.
  [[nodiscard]] Result Run(std::function<void(ShareClient&)> work);

 private:
  struct State;
  std::shared_ptr<State> state_;  // belongs to the thread too
};

}  // namespace pnl
