// SPDX-License-Identifier: MIT
// Jobs on threads beside the window's thread. A thread that hangs in a call of the system can't be ended, so no thread
// is ever waited for: the worker may be destroyed while jobs run, and what they post then is dropped. Up to 16 jobs run
// at the same time; further ones wait until a job ends.
#pragma once

#include <functional>
#include <map>
#include <memory>

#include "window/worker.h"

namespace pnl {

class QtWorker final : public Worker {
 public:
  static constexpr int kMostThreads = 16;
  /// Runs a function on a new thread of which nobody keeps hold. Returns false when there is no thread for it.
  using Launch = std::function<bool(std::function<void()>)>;
  [[nodiscard]] static bool LaunchThread(std::function<void()> run);

  explicit QtWorker(Launch launch = &LaunchThread);
  /// Steps that wait are dropped, and jobs that wait never begin. A step may destroy the worker.
  ~QtWorker() override;
  QtWorker(const QtWorker&) = delete;
  QtWorker& operator=(const QtWorker&) = delete;

  /// Returns 0 when no thread can be started and none is there that could take the job later.
  JobId Start(std::function<void(Job&)> work) override;
  void Cancel(JobId job) override;
  [[nodiscard]] bool IsBusy() const override { return !jobs_.empty(); }

 private:
  class Pool;
  class Inbox;
  struct Task;

  Inbox* inbox_;
  std::shared_ptr<Pool> pool_;                   // belongs to the threads too, and outlives this object with them
  std::map<JobId, std::shared_ptr<Task>> jobs_;  // those that aren't cancelled and whose last step hasn't run
  JobId last_ = 0;
};

}  // namespace pnl
