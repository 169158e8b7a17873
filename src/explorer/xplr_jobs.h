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

class XplrJobs {
 public:
  /// run calls a step as an operation of the session; it drops the step when the session has ended.
  XplrJobs(Worker& worker, std::function<void(const std::function<void()>&)> run)
      : worker_(worker), run_(std::move(run)) {}
  ~XplrJobs() { DropAll(); }
  XplrJobs(const XplrJobs&) = delete;
  XplrJobs& operator=(const XplrJobs&) = delete;

  /// Calls then(work()), with work on another thread. Returns 0, and calls nothing, when no job can be started.
  template <typename Work, typename Then>
  JobId Ask(Work work, Then then) {
    return Start([this, work = std::move(work), then = std::move(then)](Job& job) {
      job.Post(Step([then, result = work()]() mutable { then(std::move(result)); }));
    });
  }
  /// Starts work that has several answers: what it posts must go through Step.
  JobId Start(std::function<void(Job&)> work) {
    const auto state = std::make_shared<State>();
    const auto ended = Step([this, state] {
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
  /// A step that runs as an operation of the session. May be made on any thread.
  [[nodiscard]] std::function<void()> Step(std::function<void()> step) const {
    return [run = run_, step = std::move(step)] { run(step); };
  }
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
  const std::function<void(const std::function<void()>&)> run_;
  std::set<JobId> jobs_;
};

}  // namespace pnl
