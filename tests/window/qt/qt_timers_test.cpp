// SPDX-License-Identifier: MIT
#include "window/qt/qt_timers.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QTimerEvent>
#include <utility>

#include "support/event_wait.h"

namespace pnl {
namespace {

using test::RunUntil;
using ::testing::ElementsAre;

/// Keeps the thread busy until that time.
void StayBusyUntil(const QtTimers& timers, std::int64_t time) {
  while (timers.Now() < time) {
  }
}

/// The event that the kit sends when the timers' source is due.
void WakeUp(QtTimers& timers) {
  QTimerEvent event(1);
  QCoreApplication::sendEvent(&timers, &event);
}

TEST(QtTimers, TickInOrderOfTheirTime) {
  QtTimers timers;
  std::vector<std::string> log;
  timers.Start(30, true, [&] { log.emplace_back("c"); });
  timers.Start(1, true, [&] { log.emplace_back("a"); });
  timers.Start(10, true, [&] { log.emplace_back("b"); });
  ASSERT_TRUE(RunUntil([&] { return log.size() == 3; }));
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
  ASSERT_TRUE(RunUntil([&] { return ticked; }));
  EXPECT_FALSE(timers.IsArmed());
}

TEST(QtTimers, ARepeatedTimerGoesOnUntilItStopsItself) {
  QtTimers timers;
  int ticks = 0;
  TimerId id = 0;
  id = timers.Start(1, false, [&] {
    if (++ticks == 5) timers.Stop(id);
  });
  ASSERT_TRUE(RunUntil([&] { return ticks == 5; }));
  EXPECT_FALSE(timers.IsArmed());
  EXPECT_GE(timers.Now(), 5);
}

// The tick that holds the thread up misses many of its own periods.
TEST(QtTimers, ATimerThatFellBehindTicksOnceAndGoesOnFromThere) {
  constexpr int kPeriod = 20;
  QtTimers timers;
  std::vector<std::int64_t> ticks;
  timers.Start(kPeriod, false, [&] {
    ticks.push_back(timers.Now());
    if (ticks.size() > 1) return;
    while (timers.Now() < ticks[0] + 10 * kPeriod) {
    }
  });
  ASSERT_TRUE(RunUntil([&] { return ticks.size() >= 3; }));
  // One period lies between the late tick and the next; the missed ones are not made up for.
  EXPECT_GE(ticks[2], ticks[0] + 11 * kPeriod);
}

// The clock counts whole milliseconds: some of these runs meet the very millisecond in which the timer is due.
TEST(QtTimers, ATimerTicksInTheMillisecondInWhichItIsDue) {
  for (int run = 0; run < 20; ++run) {
    QtTimers timers;
    int ticks = 0;
    timers.Start(2, true, [&ticks] { ++ticks; });
    StayBusyUntil(timers, timers.Now() + 2);
    WakeUp(timers);
    EXPECT_EQ(ticks, 1);
  }
}

TEST(QtTimers, ATimerThatIsOnePeriodLateTicksOnceInOneWakeUp) {
  for (int run = 0; run < 20; ++run) {
    QtTimers timers;
    int ticks = 0;
    timers.Start(2, false, [&ticks] { ++ticks; });
    StayBusyUntil(timers, timers.Now() + 4);
    WakeUp(timers);
    EXPECT_EQ(ticks, 1);
  }
}

TEST(QtTimers, ATimerThatIsOverdueTicksWithoutAnotherWait) {
  for (int run = 0; run < 20; ++run) {
    QtTimers timers;
    bool ticked = false;
    timers.Start(1, true, [&ticked] { ticked = true; });
    StayBusyUntil(timers, timers.Now() + 1);
    // Another one makes the timers look again at what is due first.
    timers.Start(100'000, true, nullptr);
    QCoreApplication::processEvents();
    EXPECT_TRUE(ticked);
  }
}

TEST(QtTimers, ATickThatIsALittleLateDoesNotDelayTheNextOne) {
  constexpr int kPeriod = 20;
  constexpr int kLate = 6;
  std::string order;
  // A run counts whose first tick wasn't held up for a whole period by something else.
  for (int run = 0; run < 100 && order.empty(); ++run) {
    QtTimers timers;
    std::string ticks;
    const std::int64_t before = timers.Now();
    bool first = true;
    timers.Start(kPeriod, false, [&] {
      if (!std::exchange(first, false)) ticks += "period ";
    });
    const std::int64_t start = timers.Now();
    StayBusyUntil(timers, start + kPeriod + kLate);
    WakeUp(timers);
    const std::int64_t now = timers.Now();
    if (now >= before + 2 * kPeriod) continue;
    timers.Start(static_cast<int>(start + 2 * kPeriod + kLate / 2 - now), true, [&ticks] { ticks += "between "; });
    StayBusyUntil(timers, start + 2 * kPeriod + 2 * kLate);
    WakeUp(timers);
    order = ticks;
  }
  EXPECT_EQ(order.substr(0, order.find(' ')), "period") << order;
}

TEST(QtTimers, ATickMayRunAnEventLoopInWhichOtherTimersGoOn) {
  QtTimers timers;
  int others = 0;
  bool done = false;
  timers.Start(1, false, [&] { ++others; });
  timers.Start(2, true, [&] {
    const int before = others;
    ASSERT_TRUE(RunUntil([&] { return others >= before + 2; }));
    done = true;
  });
  ASSERT_TRUE(RunUntil([&] { return done; }));
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
  ASSERT_TRUE(RunUntil([&] { return real; }));
  const std::int64_t before = timers.Now();
  timers.UseManual();
  EXPECT_GE(timers.Now(), before);
  timers.Advance(100000);
  EXPECT_EQ(ticks, 1);
  timers.Stop(id);
  EXPECT_EQ(timers.Running(), 0u);
}

TEST(SwitchableTimers, ATimerForOnceThatSwitchesToTheManualClockTicksOnce) {
  SwitchableTimers timers;
  int ticks = 0;
  timers.Start(1, true, [&] {
    ++ticks;
    timers.UseManual();
  });
  ASSERT_TRUE(RunUntil([&] { return timers.IsManual(); }));
  EXPECT_EQ(timers.Running(), 0u);
  timers.Advance(1000);
  EXPECT_EQ(ticks, 1);
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

TEST(QtTimers, OfTimersThatAreDueTogetherTheFirstStartedTicksFirst) {
  QtTimers timers;
  std::vector<int> order;
  std::vector<int> expected;
  for (int i = 0; i < 50; ++i) {
    expected.push_back(i);
    timers.Start(5, true, [&order, i] { order.push_back(i); });
  }
  ASSERT_TRUE(RunUntil([&] { return order.size() == 50; }));
  EXPECT_EQ(order, expected);
}

TEST(QtTimers, APeriodBelowOneLeavesOtherTimersTheirTurn) {
  QtTimers timers;
  int ticks = 0;
  bool other = false;
  TimerId id = 0;
  id = timers.Start(0, false, [&] {
    if (++ticks == 100'000 || other) timers.Stop(id);
  });
  EXPECT_NE(id, 0u);
  timers.Start(3, true, [&] { other = true; });
  ASSERT_TRUE(RunUntil([&] { return other; }));
  EXPECT_LT(ticks, 100'000);
}

TEST(QtTimers, ATimerWithoutATickEndsAsAnyOther) {
  QtTimers timers;
  timers.Start(1, true, nullptr);
  EXPECT_TRUE(RunUntil([&] { return timers.Running() == 0; }));
  timers.Stop(4711);
  EXPECT_FALSE(timers.IsArmed());
}

TEST(SwitchableTimers, BeforeTheFirstUseItIsMidnight) {
  const SwitchableTimers timers;
  EXPECT_EQ(timers.Now(), 0);
  EXPECT_FALSE(timers.IsManual());
  EXPECT_EQ(timers.Running(), 0u);
}

TEST(SwitchableTimers, ASecondSwitchChangesNothing) {
  SwitchableTimers timers;
  timers.UseManual();
  int ticks = 0;
  EXPECT_NE(timers.Start(20, false, [&] { ++ticks; }), 0u);
  timers.Advance(10);
  timers.UseManual();
  EXPECT_EQ(timers.Now(), 10);
  timers.Advance(10);
  EXPECT_EQ(ticks, 1);
}

TEST(SwitchableTimers, AfterTheSwitchRealTimeMovesNothing) {
  SwitchableTimers timers;
  int ticks = 0;
  timers.Start(1, false, [&] { ++ticks; });
  timers.UseManual();
  // Another timer in real time, due later than the old one was.
  QtTimers real;
  bool later = false;
  real.Start(20, true, [&] { later = true; });
  ASSERT_TRUE(RunUntil([&] { return later; }));
  EXPECT_EQ(ticks, 0);
  timers.Advance(1);
  EXPECT_EQ(ticks, 1);
}

TEST(SwitchableTimers, ATimerThatIsStoppedOrHasNoTickDoesNothing) {
  SwitchableTimers timers;
  timers.UseManual();
  int settled = 0;
  timers.SetAfterTick([&] { ++settled; });
  timers.Start(10, true, nullptr);
  const TimerId stopped = timers.Start(10, true, [] { ADD_FAILURE(); });
  timers.Stop(stopped);
  timers.Stop(stopped);
  EXPECT_EQ(timers.Running(), 1u);
  timers.Advance(10);
  EXPECT_EQ(settled, 1);
  EXPECT_EQ(timers.Running(), 0u);
}

}  // namespace
}  // namespace pnl
