// SPDX-License-Identifier: MIT
// A worker whose jobs run when the test says so: to see what happens between a question and its answer.
#pragma once

#include <deque>
#include <set>

#include "window/worker.h"

namespace pnl::test {

class SteppedWorker final : public Worker {
 public:
  JobId Start(std::function<void(pnl::Job&)> work) override {
    if (refuses) return 0;
    waiting_.push_back({next_, std::move(work)});
    return next_++;
  }
  void Cancel(JobId job) override { cancelled_.insert(job); }
  [[nodiscard]] bool IsBusy() const override { return !waiting_.empty(); }

  /// Runs the job that was started first, with its steps. False when none waits.
  bool RunNext() {
    if (waiting_.empty()) return false;
    const Waiting next = std::move(waiting_.front());
    waiting_.pop_front();
    RunningJob job(*this, next.id);
    next.work(job);
    return true;
  }
  void RunAll() {
    while (RunNext()) {
    }
  }
  [[nodiscard]] std::size_t Waits() const { return waiting_.size(); }

  bool refuses = false;  // no job can be started

 private:
  struct Waiting {
    JobId id;
    std::function<void(pnl::Job&)> work;
  };
  class RunningJob final : public pnl::Job {
   public:
    RunningJob(SteppedWorker& worker, JobId id) : worker_(worker), id_(id) {}
    [[nodiscard]] bool IsCancelled() const override { return worker_.cancelled_.count(id_) != 0; }
    void Post(std::function<void()> step) override {
      if (!IsCancelled()) step();
    }

   private:
    SteppedWorker& worker_;
    const JobId id_;
  };
  JobId next_ = 1;
  std::deque<Waiting> waiting_;
  std::set<JobId> cancelled_;
};

}  // namespace pnl::test
