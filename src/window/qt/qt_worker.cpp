// SPDX-License-Identifier: MIT
#include "window/qt/qt_worker.h"

#include <QCoreApplication>
#include <QEvent>
#include <QObject>
#include <algorithm>
#include <atomic>
#include <deque>
#include <mutex>
#include <optional>
#include <system_error>
#include <thread>
#include <utility>

namespace pnl {

struct QtWorker::Task {
  JobId id = 0;
  std::function<void(Job&)> work;
  std::atomic<bool> cancelled = false;
};

namespace {

/// Wakes the window's thread: a step waits in the pool.
QEvent::Type StepsWait() {
  static const auto type = static_cast<QEvent::Type>(QEvent::registerEventType());
  return type;
}

/// A step on its way to the window's thread. The last one of a job is empty: the job has ended.
struct Step {
  JobId job = 0;
  std::function<void()> run;
};

}  // namespace

/// What the threads and the window's thread share: the jobs that wait for a thread and the steps that wait for the
/// window.
class QtWorker::Pool final : public std::enable_shared_from_this<Pool> {
 public:
  Pool(Launch launch, QObject* inbox) : launch_(std::move(launch)), inbox_(inbox) {}

  /// Lets the task wait for a thread, and starts one for it if there may be another. Returns false when no thread will
  /// ever take it.
  bool Add(const std::shared_ptr<Task>& task);
  void Remove(const std::shared_ptr<Task>& task);
  void Post(Step step);
  /// The next step; nothing when none waits. If further ones do, the inbox gets an event for them first: the step may
  /// run an event loop, which would not look at events that were posted before it began.
  std::optional<Step> TakeStep();
  /// From now on nothing is posted and no task begins.
  void Shut();

 private:
  class RunningJob final : public Job {
   public:
    RunningJob(Pool& pool, const Task& task) : pool_(pool), task_(task) {}
    [[nodiscard]] bool IsCancelled() const override { return task_.cancelled; }
    void Post(std::function<void()> step) override {
      if (step && !task_.cancelled) pool_.Post({task_.id, std::move(step)});
    }

   private:
    Pool& pool_;
    const Task& task_;
  };

  /// The life of a thread: task after task until none waits.
  void RunTasks();
  std::shared_ptr<Task> TakeTask();
  void Wake() { QCoreApplication::postEvent(inbox_, new QEvent(StepsWait())); }

  const Launch launch_;
  std::mutex mutex_;
  std::deque<std::shared_ptr<Task>> tasks_;
  std::deque<Step> steps_;  // with an event for the first of them under way
  int threads_ = 0;
  QObject* inbox_;
};

bool QtWorker::Pool::Add(const std::shared_ptr<Task>& task) {
  {
    const std::lock_guard lock(mutex_);
    tasks_.push_back(task);
    if (threads_ == kMostThreads) return true;
    ++threads_;
  }
  if (launch_([pool = shared_from_this()] { pool->RunTasks(); })) return true;
  const std::lock_guard lock(mutex_);
  --threads_;
  if (threads_ > 0) return true;
  tasks_.erase(std::remove(tasks_.begin(), tasks_.end(), task), tasks_.end());
  return false;
}

void QtWorker::Pool::Remove(const std::shared_ptr<Task>& task) {
  task->cancelled = true;
  const std::lock_guard lock(mutex_);
  tasks_.erase(std::remove(tasks_.begin(), tasks_.end(), task), tasks_.end());
}

void QtWorker::Pool::Post(Step step) {
  const std::lock_guard lock(mutex_);
  if (inbox_ == nullptr) return;
  steps_.push_back(std::move(step));
  if (steps_.size() == 1) Wake();
}

std::optional<Step> QtWorker::Pool::TakeStep() {
  const std::lock_guard lock(mutex_);
  if (steps_.empty()) return std::nullopt;
  Step step = std::move(steps_.front());
  steps_.pop_front();
  if (!steps_.empty()) Wake();
  return step;
}

void QtWorker::Pool::Shut() {
  // Destroyed after the lock: what the jobs contain is not the pool's.
  std::deque<std::shared_ptr<Task>> tasks;
  std::deque<Step> steps;
  const std::lock_guard lock(mutex_);
  tasks.swap(tasks_);
  steps.swap(steps_);
  inbox_ = nullptr;
}

void QtWorker::Pool::RunTasks() {
  while (const auto task = TakeTask()) {
    RunningJob job(*this, *task);
    task->work(job);
    // What the work contains is given back before the job counts as ended.
    task->work = nullptr;
    Post({task->id, nullptr});
  }
}

std::shared_ptr<QtWorker::Task> QtWorker::Pool::TakeTask() {
  const std::lock_guard lock(mutex_);
  if (tasks_.empty()) {
    --threads_;
    return nullptr;
  }
  auto task = std::move(tasks_.front());
  tasks_.pop_front();
  return task;
}

/// Gets the steps on the window's thread, and runs each as long as the worker has its job.
class QtWorker::Inbox final : public QObject {
 public:
  explicit Inbox(QtWorker& worker) : worker_(&worker) {}

  /// To be called instead of delete: a step that runs now may be what destroys the worker.
  void Close() {
    worker_ = nullptr;
    if (running_ == 0) {
      delete this;
    } else {
      deleteLater();
    }
  }

 protected:
  /// The only event of the library's own that comes here is that steps wait.
  void customEvent(QEvent* /*event*/) override {
    const auto step = worker_ != nullptr ? worker_->pool_->TakeStep() : std::nullopt;
    if (!step || worker_->jobs_.count(step->job) == 0) return;
    if (!step->run) {
      worker_->jobs_.erase(step->job);
      return;
    }
    ++running_;
    step->run();
    --running_;
  }

 private:
  QtWorker* worker_;
  int running_ = 0;
};

bool QtWorker::LaunchThread(std::function<void()> run) {
  try {
    std::thread(std::move(run)).detach();
    return true;
  } catch (const std::system_error&) {
    return false;
  }
}

QtWorker::QtWorker(Launch launch)
    : inbox_(new Inbox(*this)), pool_(std::make_shared<Pool>(std::move(launch), inbox_)) {}

QtWorker::~QtWorker() {
  for (const auto& [id, task] : jobs_) task->cancelled = true;
  pool_->Shut();
  inbox_->Close();
}

JobId QtWorker::Start(std::function<void(Job&)> work) {
  if (!work) return 0;
  const auto task = std::make_shared<Task>();
  task->id = ++last_;
  task->work = std::move(work);
  jobs_.emplace(task->id, task);
  if (pool_->Add(task)) return task->id;
  jobs_.erase(task->id);
  return 0;
}

void QtWorker::Cancel(JobId job) {
  const auto found = jobs_.find(job);
  if (found == jobs_.end()) return;
  pool_->Remove(found->second);
  jobs_.erase(found);
}

}  // namespace pnl
