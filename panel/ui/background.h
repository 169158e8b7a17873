// SPDX-License-Identifier: MIT
// One piece of work at a time in a thread of its own, and its result back on the window's thread. The thread may hang
// on a dead share for as long as it likes: the panel goes on. What the work touches must be its own.
#pragma once

#include <QObject>
#include <condition_variable>
#include <functional>
#include <memory>
#include <mutex>
#include <system_error>
#include <thread>
#include <utility>

namespace panel {

class Background : public QObject {
 public:
  using QObject::QObject;
  ~Background() override { Drop(); }

  /// Runs work, then done with its result, never before Run returned. Work that still goes on is dropped.
  template <typename Result>
  void Run(std::function<Result()> work, std::function<void(Result)> done);
  /// The result of what goes on is no longer wanted. The work itself goes on to its end.
  void Drop();
  /// Waits until the work has ended; its result still comes by the event loop.
  void Finish();
  [[nodiscard]] bool Working() const { return job_ != nullptr; }

 private:
  /// What both threads share. Whoever lets go of it last frees it.
  struct Job {
    std::mutex mutex;
    std::condition_variable ended;
    bool done = false;
    Background* owner = nullptr;  // null once nobody waits for the result
  };

  std::shared_ptr<Job> job_;
};

template <typename Result>
void Background::Run(std::function<Result()> work, std::function<void(Result)> done) {
  Drop();
  const auto job = std::make_shared<Job>();
  job->owner = this;
  job_ = job;
  const auto run = [job, work = std::move(work), done = std::move(done)]() mutable {
    Result result = work();
    const std::lock_guard lock(job->mutex);
    job->done = true;
    job->ended.notify_all();
    if (job->owner == nullptr) return;
    QMetaObject::invokeMethod(
        job->owner,
        [job, done = std::move(done), result = std::move(result)]() mutable {
          // On the window's thread, where Drop is called too.
          if (job->owner == nullptr) return;
          job->owner->job_.reset();
          done(std::move(result));
        },
        Qt::QueuedConnection);
  };
  try {
    std::thread(run).detach();
  } catch (const std::system_error&) {
    // Without another thread the panel waits, rather than lose what was asked for.
    auto here = run;
    here();
  }
}

inline void Background::Drop() {
  const auto job = std::exchange(job_, nullptr);
  if (!job) return;
  const std::lock_guard lock(job->mutex);
  job->owner = nullptr;
}

inline void Background::Finish() {
  const auto job = job_;
  if (!job) return;
  std::unique_lock lock(job->mutex);
  job->ended.wait(lock, [&job] { return job->done; });
}

}  // namespace panel
