// SPDX-License-Identifier: MIT
// Work that may take long, beside the window's thread: listing a folder, asking a server. The work knows no window; its
// results come back as steps that run on the window's thread. Whoever starts a job owns nothing of it but its number.
// window/qt/QtWorker runs each job in a thread of its own, so that a job that hangs delays no other one. InlineWorker
// runs it at once, for tests.
#pragma once

#include <cstdint>
#include <functional>

namespace pnl {

/// Identifies a job; 0 is none. Never used twice.
using JobId = std::uint32_t;

/// What the work of a job may use. Belongs to the job's thread.
class Job {
 public:
  virtual ~Job() = default;
  /// True when nobody waits for the results any more. Work that goes on for long asks this from time to time.
  [[nodiscard]] virtual bool IsCancelled() const = 0;
  /// Runs step on the window's thread, after the steps that were posted before. A cancelled job's steps don't run.
  virtual void Post(std::function<void()> step) = 0;
};

/// Used on the window's thread only.
class Worker {
 public:
  virtual ~Worker() = default;
  /// Starts the work. It may use only what it contains and what may be used on any thread. Returns 0 when it can't be
  /// started; no step is run then.
  virtual JobId Start(std::function<void(Job&)> work) = 0;
  /// No further step of the job runs, and its work doesn't begin if it hasn't yet. Does nothing when the job has ended.
  virtual void Cancel(JobId job) = 0;
  /// True while a job that isn't cancelled waits to begin or is under way, or a step of it waits for its turn. It
  /// becomes false in Cancel or in an event that the window's thread gets, so whoever waits for it in the event loop is
  /// woken.
  [[nodiscard]] virtual bool IsBusy() const = 0;
};

/// Runs each job, with its steps, before Start returns.
class InlineWorker final : public Worker {
 public:
  JobId Start(std::function<void(Job&)> work) override {
    class Now final : public Job {
     public:
      [[nodiscard]] bool IsCancelled() const override { return false; }
      void Post(std::function<void()> step) override { step(); }
    } now;
    const JobId id = next_++;
    work(now);
    return id;
  }
  void Cancel(JobId /*job*/) override {}
  [[nodiscard]] bool IsBusy() const override { return false; }

 private:
  JobId next_ = 1;
};

}  // namespace pnl
