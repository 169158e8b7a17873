// SPDX-License-Identifier: MIT
// The explorer's way to ask discs and servers without waiting for them. Each answer comes back as an operation of the
// session, or not at all when the session has ended.
#pragma once

#include <functional>
#include <memory>
#include <set>
#include <utility>

#include "window/worker.h"

namespace pnl {

/// Makes steps that run as operations of the session. A copy may be used on any thread and outlives the session.
class XplrSteps {
 public:
  /// run calls a step as an operation of the session; it drops the step when the session has ended.
  explicit XplrSteps(std::function<void(const std::function<void()>&)> run) : run_(std::move(run)) {}
  [[nodiscard]] std::function<void()> operator()(std::function<void()> step) const {
    return [run = run_, step = std::move(step)] { run(step); };
  }

 private:
  std::function<void(const std::function<void()>&)> run_;
};

class XplrJobs {
 public:
  XplrJobs(Worker& worker, XplrSteps steps) : worker_(worker), steps_(std::move(steps)) {}
  ~XplrJobs() { DropAll(); }
  XplrJobs(const XplrJobs&) = delete;
  XplrJobs& operator=(const XplrJobs&) = delete;

  /// Calls then(work()), with work on another thread. Returns 0, and calls nothing, when no job can be started.
  template <typename Work, typename Then>
  JobId Ask(Work work, Then then) {
    return Start([steps = steps_, work = std::move(work), then = std::move(then)](Job& job) {
      job.Post(steps([then, result = work()]() mutable { then(std::move(result)); }));
    });
  }
  /// Starts work that has several answers: what it posts must go through a copy of Steps().
  JobId Start(std::function<void(Job&)> work) {
    const auto state = std::make_shared<State>();
    const auto ended = steps_([this, state] {
      state->ended = true;
      jobs_.erase(state->id);
    });
    state->id = worker_.Start([work = std::move(work), ended](Job& job) {
      work(job);
      job.Post(ended);
    });
    if (state->id != 0 && !state->ended) jobs_.insert(state->id);
    return state->id;
  }
  [[nodiscard]] const XplrSteps& Steps() const { return steps_; }
  [[nodiscard]] bool IsUnderWay(JobId job) const { return jobs_.count(job) != 0; }
  void Drop(JobId job) {
    if (jobs_.erase(job) != 0) worker_.Cancel(job);
  }
  void DropAll() {
    for (const JobId job : std::exchange(jobs_, {})) worker_.Cancel(job);
  }

 private:
  struct State {
    JobId id = 0;
    bool ended = false;
  };
  Worker& worker_;
  const XplrSteps steps_;
  std::set<JobId> jobs_;
};

}  // namespace pnl
