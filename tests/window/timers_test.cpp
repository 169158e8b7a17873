// SPDX-License-Identifier: MIT
#include "window/timers.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>
#include <string>

namespace pnl {
namespace {

using ::testing::ElementsAre;

struct Log {
  std::vector<std::string> lines;
  std::function<void()> Note(ManualTimers& timers, const std::string& name) {
    return [this, &timers, name] { lines.push_back(name + "@" + std::to_string(timers.Now())); };
  }
};

TEST(ManualTimers, TicksComeInOrderOfTheirTimeThenOfTheirStart) {
  ManualTimers timers;
  Log log;
  timers.Start(30, false, log.Note(timers, "a"));
  timers.Start(20, false, log.Note(timers, "b"));
  timers.Start(60, true, log.Note(timers, "c"));
  timers.Advance(60);
  EXPECT_THAT(log.lines, ElementsAre("b@20", "a@30", "b@40", "a@60", "b@60", "c@60"));
  EXPECT_EQ(timers.Now(), 60);
  EXPECT_EQ(timers.Running(), 2u);
}

TEST(ManualTimers, NothingFiresBeforeItsTime) {
  ManualTimers timers;
  Log log;
  timers.Start(10, false, log.Note(timers, "a"));
  timers.Advance(9);
  EXPECT_THAT(log.lines, ElementsAre());
  timers.Advance(1);
  EXPECT_THAT(log.lines, ElementsAre("a@10"));
}

TEST(ManualTimers, ATimerStartedByATickFiresWithinTheSameAdvance) {
  ManualTimers timers;
  Log log;
  timers.Start(10, true, [&] { timers.Start(5, true, log.Note(timers, "inner")); });
  timers.Advance(20);
  EXPECT_THAT(log.lines, ElementsAre("inner@15"));
}

TEST(ManualTimers, ATickMayStopItsOwnTimerAndOthers) {
  ManualTimers timers;
  Log log;
  const TimerId other = timers.Start(10, false, log.Note(timers, "other"));
  TimerId self = 0;
  self = timers.Start(5, false, [&] {
    log.lines.push_back("self");
    timers.Stop(self);
    timers.Stop(other);
  });
  timers.Advance(100);
  EXPECT_THAT(log.lines, ElementsAre("self"));
  EXPECT_EQ(timers.Running(), 0u);
}

TEST(ManualTimers, AfterEachTickTheHookRuns) {
  ManualTimers timers;
  Log log;
  timers.SetAfterTick([&] { log.lines.push_back("settled"); });
  timers.Start(10, false, log.Note(timers, "a"));
  timers.Advance(20);
  EXPECT_THAT(log.lines, ElementsAre("a@10", "settled", "a@20", "settled"));
}

TEST(ManualTimers, APeriodBelowOneIsOneAndNumbersAreNeverUsedTwice) {
  ManualTimers timers;
  int ticks = 0;
  const TimerId first = timers.Start(0, false, [&] { ++ticks; });
  timers.Advance(3);
  EXPECT_EQ(ticks, 3);
  timers.Stop(first);
  EXPECT_NE(timers.Start(-5, true, [] {}), first);
  timers.Stop(4711);
  EXPECT_EQ(timers.Running(), 1u);
}

TEST(ManualTimers, TimeNeverGoesBackAndNeverOverflows) {
  ManualTimers timers;
  timers.Advance(5);
  timers.Advance(-100);
  EXPECT_EQ(timers.Now(), 5);
  timers.Advance(std::numeric_limits<std::int64_t>::max());
  EXPECT_EQ(timers.Now(), std::numeric_limits<std::int64_t>::max());
}

TEST(ManualTimers, AnAdvanceWithinATickDoesntTurnTheClockBack) {
  ManualTimers timers;
  timers.Start(10, true, [&] { timers.Advance(100); });
  timers.Advance(20);
  EXPECT_EQ(timers.Now(), 110);
}

TEST(ScopedTimer, StopsWithItsOwnerAndBeforeANewStart) {
  ManualTimers timers;
  int ticks = 0;
  {
    ScopedTimer timer(timers);
    timer.Start(10, [&] { ++ticks; });
    timer.Start(20, [&] { ticks += 100; });
    timers.Advance(20);
    EXPECT_EQ(ticks, 100);
    EXPECT_TRUE(timer.IsRunning());
  }
  EXPECT_EQ(timers.Running(), 0u);
}

TEST(ScopedTimer, StartedOnceItIsNoLongerRunningInItsTick) {
  ManualTimers timers;
  ScopedTimer timer(timers);
  bool running = true;
  timer.StartOnce(10, [&] { running = timer.IsRunning(); });
  timers.Advance(10);
  EXPECT_FALSE(running);
  EXPECT_EQ(timers.Running(), 0u);
}

TEST(ManualTimers, TheFirstNumberIsNotThatOfNoTimer) {
  ManualTimers timers;
  EXPECT_EQ(timers.Now(), 0);
  EXPECT_NE(timers.Start(10, true, [] {}), 0u);
}

TEST(ManualTimers, ATimerWithoutATickRunsAllTheSame) {
  ManualTimers timers;
  int settled = 0;
  timers.SetAfterTick([&] { ++settled; });
  timers.Start(10, true, nullptr);
  timers.Advance(10);
  EXPECT_EQ(settled, 1);
  EXPECT_EQ(timers.Running(), 0u);
}

TEST(ScopedTimer, RepeatsUntilItIsStopped) {
  ManualTimers timers;
  ScopedTimer timer(timers);
  EXPECT_FALSE(timer.IsRunning());
  int ticks = 0;
  timer.Start(10, [&] { ++ticks; });
  timers.Advance(30);
  EXPECT_EQ(ticks, 3);
  timer.Stop();
  EXPECT_FALSE(timer.IsRunning());
  EXPECT_EQ(timers.Running(), 0u);
  timer.Stop();
  timers.Advance(30);
  EXPECT_EQ(ticks, 3);
}

TEST(ScopedTimer, AStartForOnceTakesThePlaceOfWhatRan) {
  ManualTimers timers;
  ScopedTimer timer(timers);
  std::vector<std::string> ticks;
  timer.Start(10, [&] { ticks.emplace_back("repeated"); });
  timer.StartOnce(20, [&] { ticks.emplace_back("first"); });
  timer.StartOnce(30, [&] { ticks.emplace_back("second"); });
  EXPECT_TRUE(timer.IsRunning());
  EXPECT_EQ(timers.Running(), 1u);
  timers.Advance(100);
  EXPECT_THAT(ticks, ElementsAre("second"));
}

TEST(ScopedTimer, ATickForOnceMayStartItAgain) {
  ManualTimers timers;
  ScopedTimer timer(timers);
  int ticks = 0;
  timer.StartOnce(10, [&] { timer.StartOnce(10, [&] { ++ticks; }); });
  timers.Advance(10);
  EXPECT_TRUE(timer.IsRunning());
  timers.Advance(10);
  EXPECT_EQ(ticks, 1);
  EXPECT_FALSE(timer.IsRunning());
}

}  // namespace
}  // namespace pnl
