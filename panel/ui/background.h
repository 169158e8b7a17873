// SPDX-License-Identifier: MIT
// Runs one piece of work at a time in a thread of its own and brings its result back to the window's thread. The thread
// may hang on a dead share for any time without stopping the panel. The work must use only data of its own.
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

  /// Runs work in its thread, then done with the result on the window's thread, always after Run has returned. Work
  /// that is still running is dropped.
  template <typename Result>
  void Run(std::function<Result()> work, std::function<void(Result)> done);
  /// The same for work that has something to say on its way. It gets a function that brings news to heard on the
  /// window's thread, in order and before done. The function returns false once the work was dropped, and the work
  /// may then end at once.
  template <typename Result, typename News>
  void Run(std::function<Result(const std::function<bool(News)>&)> work, std::function<void(News)> heard,
           std::function<void(Result)> done);
  /// Forgets the result of the running work. The work itself runs to its end.
  void Drop();
  /// Waits until the work has ended. Its result still comes through the event loop.
  void Finish();
  [[nodiscard]] bool Working() const { return job_ != nullptr; }

 private:
  /// What the two threads share. The last one that releases it frees it.
  struct Job {
    std::mutex mutex;
    std::condition_variable ended;
    bool done = false;
    Background* owner = nullptr;  // null once the result isn't wanted
  };

  std::shared_ptr<Job> Begin();
  template <typename Result>
  static void Start(const std::shared_ptr<Job>& job, std::function<Result()> work, std::function<void(Result)> done);

  std::shared_ptr<Job> job_;
};

inline std::shared_ptr<Background::Job> Background::Begin() {
  Drop();
  job_ = std::make_shared<Job>();
  job_->owner = this;
  return job_;
}

template <typename Result>
void Background::Run(std::function<Result()> work, std::function<void(Result)> done) {
  Start<Result>(Begin(), std::move(work), std::move(done));
}

template <typename Result, typename News>
void Background::Run(std::function<Result(const std::function<bool(News)>&)> work, std::function<void(News)> heard,
                     std::function<void(Result)> done) {
  const auto job = Begin();
  const std::function<bool(News)> tell = [job, heard = std::move(heard)](News news) {
    const std::lock_guard lock(job->mutex);
    if (job->owner == nullptr) return false;
    QMetaObject::invokeMethod(
        job->owner,
        [job, heard, news = std::move(news)] {
          // As with the result, no lock is needed.
          if (job->owner != nullptr) heard(news);
        },
        Qt::QueuedConnection);
    return true;
  };
  Start<Result>(
      job, [work = std::move(work), tell] { return work(tell); }, std::move(done));
}

template <typename Result>
void Background::Start(const std::shared_ptr<Job>& job, std::function<Result()> work,
                       std::function<void(Result)> done) {
  const auto run = [job, work = std::move(work), done = std::move(done)]() mutable {
    Result result = work();
    const std::lock_guard lock(job->mutex);
    job->done = true;
    job->ended.notify_all();
    if (job->owner == nullptr) return;
    QMetaObject::invokeMethod(
        job->owner,
        [job, done = std::move(done), result = std::move(result)]() mutable {
          // No lock is needed: this runs on the window's thread, as Drop does.
          if (job->owner == nullptr) return;
          job->owner->job_.reset();
          done(std::move(result));
        },
        Qt::QueuedConnection);
  };
  try {
    std::thread(run).detach();
  } catch (const std::system_error&) {
    // When no thread can be started, the panel waits for the work, so that none is lost.
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
