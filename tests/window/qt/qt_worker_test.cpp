// SPDX-License-Identifier: MIT
#include "window/qt/qt_worker.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <pthread.h>

#include <QCoreApplication>
#include <QEvent>
#include <chrono>
#include <condition_variable>
#include <future>
#include <mutex>
#include <thread>
#include <vector>

#include "support/event_wait.h"

namespace pnl {
namespace {

using test::RunUntil;
using ::testing::ElementsAre;

/// Something that one thread does once and others wait for. Copies are the same gate.
class Gate {
 public:
  void Open() const { shared_->opened.set_value(); }
  /// Returns false after a minute.
  [[nodiscard]] bool Wait() const {
    return shared_->future.wait_for(std::chrono::minutes(1)) == std::future_status::ready;
  }

 private:
  struct Shared {
    std::promise<void> opened;
    std::shared_future<void> future = opened.get_future().share();
  };
  std::shared_ptr<Shared> shared_ = std::make_shared<Shared>();
};

bool RunUntilIdle(const QtWorker& worker) {
  return RunUntil([&] { return !worker.IsBusy(); });
}

/// Delivers what is posted. A step makes room for the next one, so there are more rounds than any test has steps.
void DeliverPosted() {
  for (int round = 0; round < 10; ++round) QCoreApplication::sendPostedEvents();
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

/// Threads that run when the test wants it, on the test's own thread.
class HeldThreads {
 public:
  QtWorker::Launch Launch() {
    return [this](std::function<void()> run) {
      if (fails) return false;
      started.push_back(std::move(run));
      return true;
    };
  }
  void RunAll() {
    for (const auto& run : std::exchange(started, {})) run();
  }

  std::vector<std::function<void()>> started;
  bool fails = false;
};

TEST(QtWorker, TheWorkRunsBesideTheWindowsThreadAndItsStepsOnIt) {
  QtWorker worker;
  const auto window = std::this_thread::get_id();
  std::thread::id work;
  std::thread::id step;
  EXPECT_NE(worker.Start([&](Job& job) {
    work = std::this_thread::get_id();
    job.Post([&] { step = std::this_thread::get_id(); });
  }),
            0U);
  ASSERT_TRUE(RunUntilIdle(worker));
  EXPECT_NE(work, window);
  EXPECT_EQ(step, window);
}

TEST(QtWorker, StepsRunInTheOrderInWhichTheyWerePosted) {
  QtWorker worker;
  std::vector<int> steps;
  worker.Start([&](Job& job) {
    for (int i = 0; i < 1000; ++i) job.Post([&steps, i] { steps.push_back(i); });
  });
  ASSERT_TRUE(RunUntilIdle(worker));
  ASSERT_EQ(steps.size(), 1000U);
  for (int i = 0; i < 1000; ++i) EXPECT_EQ(steps[static_cast<std::size_t>(i)], i);
}

TEST(QtWorker, NoStepRunsBeforeTheEventLoop) {
  QtWorker worker;
  const Gate posted;
  bool ran = false;
  worker.Start([&, posted](Job& job) {
    job.Post([&] { ran = true; });
    posted.Open();
  });
  ASSERT_TRUE(posted.Wait());
  EXPECT_FALSE(ran);
  ASSERT_TRUE(RunUntilIdle(worker));
  EXPECT_TRUE(ran);
}

// Whoever waits for the end in the event loop must be woken, and a job that posts nothing ends too.
TEST(QtWorker, AJobWithoutStepsWakesTheEventLoopWhenItEnds) {
  QtWorker worker;
  worker.Start([](Job&) {});
  EXPECT_TRUE(worker.IsBusy());
  EXPECT_TRUE(RunUntilIdle(worker));
}

TEST(QtWorker, ItIsBusyUntilTheLastStepHasRun) {
  HeldThreads threads;
  QtWorker worker(threads.Launch());
  EXPECT_FALSE(worker.IsBusy());
  std::vector<bool> busy;
  worker.Start([&](Job& job) {
    for (int i = 0; i < 2; ++i) job.Post([&] { busy.push_back(worker.IsBusy()); });
  });
  EXPECT_TRUE(worker.IsBusy());
  threads.RunAll();
  EXPECT_TRUE(worker.IsBusy());
  DeliverPosted();
  EXPECT_FALSE(worker.IsBusy());
  EXPECT_THAT(busy, ElementsAre(true, true));
}

TEST(QtWorker, ItIsBusyWithTheOtherJobAfterOneHasEnded) {
  HeldThreads threads;
  QtWorker worker(threads.Launch());
  worker.Start([](Job&) {});
  worker.Start([](Job&) {});
  threads.started[0]();
  DeliverPosted();
  // The first thread has taken both.
  EXPECT_FALSE(worker.IsBusy());
  worker.Start([](Job&) {});
  EXPECT_TRUE(worker.IsBusy());
  threads.RunAll();
  DeliverPosted();
  EXPECT_FALSE(worker.IsBusy());
}

TEST(QtWorker, ACancelledJobsStepsDoNotRun) {
  HeldThreads threads;
  QtWorker worker(threads.Launch());
  int steps = 0;
  const JobId job = worker.Start([&](Job& at) {
    at.Post([&] { ++steps; });
    at.Post([&] { ++steps; });
  });
  threads.RunAll();
  worker.Cancel(job);
  EXPECT_FALSE(worker.IsBusy());
  DeliverPosted();
  EXPECT_EQ(steps, 0);
}

TEST(QtWorker, AStepMayCancelItsOwnJob) {
  HeldThreads threads;
  QtWorker worker(threads.Launch());
  int steps = 0;
  JobId job = 0;
  job = worker.Start([&](Job& at) {
    for (int i = 0; i < 3; ++i) {
      at.Post([&] {
        ++steps;
        worker.Cancel(job);
      });
    }
  });
  threads.RunAll();
  DeliverPosted();
  EXPECT_EQ(steps, 1);
  EXPECT_FALSE(worker.IsBusy());
}

TEST(QtWorker, TheWorkLearnsThatItIsCancelled) {
  QtWorker worker;
  const Gate begun;
  const Gate cancelled;
  const Gate ended;
  bool before = true;
  bool after = false;
  bool stepRan = false;
  const JobId job = worker.Start([&, begun, cancelled, ended](Job& at) {
    before = at.IsCancelled();
    begun.Open();
    static_cast<void>(cancelled.Wait());
    after = at.IsCancelled();
    at.Post([&] { stepRan = true; });
    ended.Open();
  });
  ASSERT_TRUE(begun.Wait());
  worker.Cancel(job);
  EXPECT_FALSE(worker.IsBusy());
  cancelled.Open();
  ASSERT_TRUE(ended.Wait());
  DeliverPosted();
  EXPECT_FALSE(before);
  EXPECT_TRUE(after);
  EXPECT_FALSE(stepRan);
}

TEST(QtWorker, ACancelledJobThatWaitsNeverBegins) {
  HeldThreads threads;
  QtWorker worker(threads.Launch());
  bool ran = false;
  const auto content = std::make_shared<int>(0);
  const JobId job = worker.Start([&ran, content](Job&) { ran = true; });
  worker.Cancel(job);
  EXPECT_EQ(content.use_count(), 1);
  threads.RunAll();
  EXPECT_FALSE(ran);
}

TEST(QtWorker, CancellingOneJobLeavesTheOthers) {
  HeldThreads threads;
  QtWorker worker(threads.Launch());
  std::vector<int> steps;
  std::vector<JobId> jobs;
  for (int i = 0; i < 3; ++i) {
    jobs.push_back(worker.Start([&steps, i](Job& job) { job.Post([&steps, i] { steps.push_back(i); }); }));
  }
  worker.Cancel(jobs[1]);
  worker.Cancel(jobs[1]);
  worker.Cancel(0);
  worker.Cancel(1000);
  threads.RunAll();
  DeliverPosted();
  EXPECT_THAT(steps, ElementsAre(0, 2));
  EXPECT_FALSE(worker.IsBusy());
  worker.Cancel(jobs[0]);
}

TEST(QtWorker, ANumberIsNeverUsedTwice) {
  HeldThreads threads;
  QtWorker worker(threads.Launch());
  const JobId first = worker.Start([](Job&) {});
  worker.Cancel(first);
  threads.fails = true;
  threads.started.clear();
  const JobId second = worker.Start([](Job&) {});
  EXPECT_GT(first, 0U);
  EXPECT_NE(second, first);
}

TEST(QtWorker, AHungJobDelaysNoOther) {
  const Gate released;
  const Gate hungEnded;
  QtWorker worker;
  const JobId hung = worker.Start([released, hungEnded](Job&) {
    static_cast<void>(released.Wait());
    hungEnded.Open();
  });
  int done = 0;
  for (int i = 0; i < 50; ++i) {
    worker.Start([&done](Job& job) { job.Post([&done] { ++done; }); });
  }
  ASSERT_TRUE(RunUntil([&] { return done == 50; }));
  EXPECT_TRUE(worker.IsBusy());
  worker.Cancel(hung);
  EXPECT_TRUE(RunUntilIdle(worker));
  released.Open();
  ASSERT_TRUE(hungEnded.Wait());
}

TEST(QtWorker, WithSixteenHungJobsTheNextWaitsUntilOneEnds) {
  QtWorker worker;
  std::vector<Gate> begun(QtWorker::kMostThreads);
  std::vector<Gate> released(QtWorker::kMostThreads);
  for (std::size_t i = 0; i < begun.size(); ++i) {
    worker.Start([begun = begun[i], released = released[i]](Job&) {
      begun.Open();
      static_cast<void>(released.Wait());
    });
  }
  for (const Gate& each : begun) ASSERT_TRUE(each.Wait());
  bool ran = false;
  EXPECT_NE(worker.Start([&ran](Job& job) { job.Post([&ran] { ran = true; }); }), 0U);
  DeliverPosted();
  EXPECT_FALSE(ran);
  released[7].Open();
  ASSERT_TRUE(RunUntil([&] { return ran; }));
  for (std::size_t i = 0; i < released.size(); ++i) {
    if (i != 7) released[i].Open();
  }
  EXPECT_TRUE(RunUntilIdle(worker));
}

TEST(QtWorker, NoMoreThanSixteenThreadsAreStarted) {
  HeldThreads threads;
  QtWorker worker(threads.Launch());
  int ran = 0;
  for (int i = 0; i < 40; ++i) EXPECT_NE(worker.Start([&ran](Job&) { ++ran; }), 0U);
  EXPECT_EQ(threads.started.size(), 16U);
  threads.RunAll();
  EXPECT_EQ(ran, 40);
  // All threads have ended, so there is room for as many again.
  for (int i = 0; i < 40; ++i) worker.Start([&ran](Job&) { ++ran; });
  EXPECT_EQ(threads.started.size(), 16U);
  threads.RunAll();
  EXPECT_EQ(ran, 80);
}

TEST(QtWorker, AJobForWhichThereIsNoThreadDoesNotStart) {
  HeldThreads threads;
  threads.fails = true;
  QtWorker worker(threads.Launch());
  const auto content = std::make_shared<int>(0);
  EXPECT_EQ(worker.Start([content](Job&) {}), 0U);
  EXPECT_FALSE(worker.IsBusy());
  EXPECT_EQ(content.use_count(), 1);
  threads.fails = false;
  bool ran = false;
  EXPECT_NE(worker.Start([&ran](Job&) { ran = true; }), 0U);
  threads.RunAll();
  EXPECT_TRUE(ran);
}

TEST(QtWorker, AJobWithoutAThreadOfItsOwnWaitsForOneThatIsThere) {
  HeldThreads threads;
  QtWorker worker(threads.Launch());
  std::vector<int> ran;
  worker.Start([&ran](Job&) { ran.push_back(1); });
  threads.fails = true;
  EXPECT_NE(worker.Start([&ran](Job&) { ran.push_back(2); }), 0U);
  threads.RunAll();
  EXPECT_THAT(ran, ElementsAre(1, 2));
  EXPECT_EQ(worker.Start([](Job&) {}), 0U);
}

// A stack for which no machine has the room.
TEST(QtWorker, WithoutRoomForAThreadNoneIsStarted) {
  pthread_attr_t usual;
  pthread_attr_t huge;
  ASSERT_EQ(pthread_getattr_default_np(&usual), 0);
  ASSERT_EQ(pthread_getattr_default_np(&huge), 0);
  ASSERT_EQ(pthread_attr_setstacksize(&huge, std::size_t{1} << 60), 0);
  ASSERT_EQ(pthread_setattr_default_np(&huge), 0);
  QtWorker worker;
  const bool launched = QtWorker::LaunchThread([] {});
  const JobId job = worker.Start([](Job&) {});
  EXPECT_EQ(pthread_setattr_default_np(&usual), 0);
  pthread_attr_destroy(&huge);
  pthread_attr_destroy(&usual);
  EXPECT_FALSE(launched);
  EXPECT_EQ(job, 0U);
  EXPECT_FALSE(worker.IsBusy());
}

TEST(QtWorker, NoWorkIsNoJob) {
  QtWorker worker;
  EXPECT_EQ(worker.Start(nullptr), 0U);
  EXPECT_FALSE(worker.IsBusy());
}

TEST(QtWorker, AnEmptyStepIsNotTheEndOfItsJob) {
  HeldThreads threads;
  QtWorker worker(threads.Launch());
  bool ran = false;
  worker.Start([&ran](Job& job) {
    job.Post(nullptr);
    job.Post([&ran] { ran = true; });
  });
  threads.RunAll();
  DeliverPosted();
  EXPECT_TRUE(ran);
}

TEST(QtWorker, AStepMayStartAnotherJob) {
  QtWorker worker;
  bool second = false;
  worker.Start(
      [&](Job& job) { job.Post([&] { worker.Start([&](Job& next) { next.Post([&] { second = true; }); }); }); });
  ASSERT_TRUE(RunUntilIdle(worker));
  EXPECT_TRUE(second);
}

TEST(QtWorker, AStepMayRunAnEventLoopInWhichOtherStepsRun) {
  QtWorker worker;
  bool inner = false;
  bool outer = false;
  worker.Start([&](Job& job) {
    job.Post([&] {
      ASSERT_TRUE(RunUntil([&] { return inner; }));
      outer = true;
    });
    job.Post([&] { inner = true; });
  });
  ASSERT_TRUE(RunUntilIdle(worker));
  EXPECT_TRUE(outer);
}

TEST(QtWorker, NoStepRunsAfterTheWorkerIsGone) {
  HeldThreads threads;
  bool ran = false;
  const auto content = std::make_shared<int>(0);
  {
    QtWorker worker(threads.Launch());
    worker.Start([&ran, content](Job& job) { job.Post([&ran, content] { ran = true; }); });
    threads.RunAll();
  }
  EXPECT_EQ(content.use_count(), 1);
  DeliverPosted();
  EXPECT_FALSE(ran);
}

TEST(QtWorker, AThreadMayOutliveTheWorker) {
  const Gate begun;
  const Gate released;
  const Gate ended;
  const auto cancelled = std::make_shared<bool>(false);
  const auto ran = std::make_shared<bool>(false);
  {
    QtWorker worker;
    worker.Start([=](Job& job) {
      begun.Open();
      static_cast<void>(released.Wait());
      *cancelled = job.IsCancelled();
      job.Post([ran] { *ran = true; });
      ended.Open();
    });
    ASSERT_TRUE(begun.Wait());
  }
  released.Open();
  ASSERT_TRUE(ended.Wait());
  DeliverPosted();
  EXPECT_TRUE(*cancelled);
  EXPECT_FALSE(*ran);
}

TEST(QtWorker, AJobThatWaitsDoesNotBeginWhenTheWorkerIsGone) {
  HeldThreads threads;
  bool ran = false;
  const auto content = std::make_shared<int>(0);
  {
    QtWorker worker(threads.Launch());
    worker.Start([&ran, content](Job&) { ran = true; });
  }
  EXPECT_EQ(content.use_count(), 1);
  threads.RunAll();
  EXPECT_FALSE(ran);
}

TEST(QtWorker, AStepMayDestroyTheWorker) {
  HeldThreads threads;
  auto worker = std::make_unique<QtWorker>(threads.Launch());
  int steps = 0;
  worker->Start([&](Job& job) {
    for (int i = 0; i < 3; ++i) {
      job.Post([&] {
        ++steps;
        worker.reset();
      });
    }
  });
  threads.RunAll();
  DeliverPosted();
  EXPECT_EQ(steps, 1);
}

TEST(QtWorker, TheWorkAndWhatItContainsAreGoneWhenTheJobHasEnded) {
  QtWorker worker;
  const auto content = std::make_shared<int>(0);
  worker.Start([content](Job& job) { job.Post([content] {}); });
  ASSERT_TRUE(RunUntilIdle(worker));
  EXPECT_EQ(content.use_count(), 1);
}

// What it contains may take long to destroy, or belong to the job's thread.
TEST(QtWorker, TheWorkIsDestroyedOnItsThread) {
  HeldThreads threads;
  QtWorker worker(threads.Launch());
  const auto content = std::make_shared<int>(0);
  worker.Start([content](Job&) {});
  threads.RunAll();
  EXPECT_EQ(content.use_count(), 1);
  DeliverPosted();
}

TEST(InlineWorker, AJobIsDoneWhenStartReturns) {
  InlineWorker worker;
  std::vector<int> order;
  const JobId first = worker.Start([&](Job& job) {
    EXPECT_FALSE(job.IsCancelled());
    job.Post([&] { order.push_back(1); });
    order.push_back(2);
  });
  EXPECT_THAT(order, ElementsAre(1, 2));
  EXPECT_FALSE(worker.IsBusy());
  EXPECT_NE(worker.Start([](Job&) {}), first);
  worker.Cancel(first);
}

}  // namespace
}  // namespace pnl
