// SPDX-License-Identifier: MIT
#include "window/qt/qt_timers.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QEventLoop>

namespace pnl {
namespace {

using ::testing::ElementsAre;

/// Runs the event loop until the condition holds.
template <typename Condition>
void RunUntil(Condition done) {
  while (!done()) QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
}

TEST(QtTimers, TickInOrderOfTheirTime) {
  QtTimers timers;
  std::vector<std::string> log;
  timers.Start(30, true, [&] { log.emplace_back("c"); });
  timers.Start(1, true, [&] { log.emplace_back("a"); });
  timers.Start(10, true, [&] { log.emplace_back("b"); });
  RunUntil([&] { return log.size() == 3; });
  EXPECT_THAT(log, ElementsAre("a", "b", "c"));
  EXPECT_EQ(timers.Running(), 0u);
}

TEST(QtTimers, NothingWakesTheProcessWhileNoTimerRuns) {
  QtTimers timers;
  EXPECT_FALSE(timers.IsArmed());
  const TimerId id = timers.Start(1000, false, [] {});
  EXPECT_TRUE(timers.IsArmed());
  timers.Stop(id);
  EXPECT_FALSE(timers.IsArmed());
  bool ticked = false;
  timers.Start(1, true, [&] { ticked = true; });
  RunUntil([&] { return ticked; });
  EXPECT_FALSE(timers.IsArmed());
}

TEST(QtTimers, ARepeatedTimerGoesOnUntilItStopsItself) {
  QtTimers timers;
  int ticks = 0;
  TimerId id = 0;
  id = timers.Start(1, false, [&] {
    if (++ticks == 5) timers.Stop(id);
  });
  RunUntil([&] { return ticks == 5; });
  EXPECT_FALSE(timers.IsArmed());
  EXPECT_GE(timers.Now(), 5);
}

TEST(QtTimers, ATickMayRunAnEventLoopInWhichOtherTimersGoOn) {
  QtTimers timers;
  int others = 0;
  bool done = false;
  timers.Start(1, false, [&] { ++others; });
  timers.Start(2, true, [&] {
    const int before = others;
    RunUntil([&] { return others >= before + 2; });
    done = true;
  });
  RunUntil([&] { return done; });
  EXPECT_GE(others, 2);
}

TEST(SwitchableTimers, AManualClockMovesByAdvanceAlone) {
  SwitchableTimers timers;
  timers.UseManual();
  int ticks = 0;
  const TimerId id = timers.Start(250, false, [&] { ++ticks; });
  QCoreApplication::processEvents();
  EXPECT_EQ(ticks, 0);
  timers.Advance(1000);
  EXPECT_EQ(ticks, 4);
  EXPECT_EQ(timers.Now(), 1000);
  timers.Stop(id);
  timers.Advance(1000);
  EXPECT_EQ(ticks, 4);
  EXPECT_EQ(timers.Running(), 0u);
}

TEST(SwitchableTimers, AdvanceDoesNothingToRealTime) {
  SwitchableTimers timers;
  int ticks = 0;
  timers.Start(100000, false, [&] { ++ticks; });
  timers.Advance(1000000);
  EXPECT_EQ(ticks, 0);
  EXPECT_FALSE(timers.IsManual());
}

TEST(SwitchableTimers, TimersThatRunAreTakenOverAtTheSwitchAndTheClockNeverGoesBack) {
  SwitchableTimers timers;
  int ticks = 0;
  bool real = false;
  timers.Start(1, true, [&] { real = true; });
  const TimerId id = timers.Start(100000, false, [&] { ++ticks; });
  RunUntil([&] { return real; });
  const std::int64_t before = timers.Now();
  timers.UseManual();
  EXPECT_GE(timers.Now(), before);
  timers.Advance(100000);
  EXPECT_EQ(ticks, 1);
  timers.Stop(id);
  EXPECT_EQ(timers.Running(), 0u);
}

TEST(SwitchableTimers, ATickMayStopItsOwnTimer) {
  SwitchableTimers timers;
  timers.UseManual();
  int ticks = 0;
  TimerId id = 0;
  id = timers.Start(10, false, [&] {
    ++ticks;
    timers.Stop(id);
  });
  timers.Start(10, true, [&] { timers.Start(10, true, [&] { ticks += 10; }); });
  timers.Advance(100);
  EXPECT_EQ(ticks, 11);
  EXPECT_EQ(timers.Running(), 0u);
}

}  // namespace
}  // namespace pnl
