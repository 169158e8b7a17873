// SPDX-License-Identifier: MIT
#include <cmath>
#include <numbers>

#include "facade/mill/machine_fakes.h"

namespace pnl::test {
namespace {

struct TimeRow {
  std::vector<TextView> before;
  TextView block;
  std::int64_t milliseconds;
};

class MachineTime : public testing::TestWithParam<TimeRow> {};

TEST_P(MachineTime, ABlockTakesTheTimeItsWordsAskFor) {
  MachineBench bench;
  for (const TextView block : GetParam().before) bench.Do(block);
  EXPECT_EQ(bench.Duration(GetParam().block), GetParam().milliseconds) << ToUtf8(GetParam().block);
  EXPECT_EQ(bench.Status(), 0x100);
  EXPECT_EQ(bench.environment.clock.Running(), 0U);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, MachineTime,
    testing::Values(TimeRow{{}, u"G1 X100 F1000", 6000},                             // length by feed
                    TimeRow{{}, u"G1 X30 Y40 Z-120 F1300", 6000},                    // 130 mm in space
                    TimeRow{{}, u"G1 X1 F7000", 9},                                  // 8.57 ms, rounded up
                    TimeRow{{}, u"G0 X100", 600}, TimeRow{{}, u"G0 Z-60 X90", 600},  // the slowest axis decides
                    TimeRow{{}, u"G3 X20 I10 F1000", 1885},                          // half a circle
                    TimeRow{{}, u"G2 J10 F1000", 3770},                              // a whole one
                    TimeRow{{}, u"G2 I10 Z-62.83185307 F1000", 5332},                // a helix of 45 degrees
                    TimeRow{{}, u"G20 G1 X1 F10", 6000},                             // inches
                    TimeRow{{u"S1000 M3"}, u"G95 G1 X100 F0.2", 30000},              // mm a turn
                    TimeRow{{}, u"S1000 M3 M8 T1 G1 X100 F1000 M30", 6000},          // functions take no time
                    TimeRow{{}, u"G4 K1.5", 1500}, TimeRow{{}, u"G4 K0", 1},         // dwell
                    TimeRow{{}, u"G90", 1}, TimeRow{{}, u"(nothing)", 1},            // at least a millisecond
                    TimeRow{{}, u"M6 T1", 1}, TimeRow{{}, u"G0 X0", 1}));            // no way at all

TEST(MachineMotion, ADwellMayLastADay) {
  MachineBench bench;
  bench.Send(u"G4 K86400");
  bench.Wait(86'399'999);
  EXPECT_EQ(bench.Status(), 0x200);
  bench.Wait(1);
  EXPECT_EQ(bench.Status(), 0x100);
}

TEST(MachineMotion, PositionsFollowTheClock) {
  MachineBench bench;
  bench.Send(u"G1 X100 Y-50 F1000");
  bench.Wait(1677);
  const double part = 1677 / (std::hypot(100, 50) * 60);
  EXPECT_NEAR(bench.At(0), 100 * part, 1e-9);
  EXPECT_NEAR(bench.At(1), -50 * part, 1e-9);
  const auto state = bench.machine->State();
  EXPECT_NEAR(state.axes[0].toGo, 100 * (1 - part), 1e-9);
  EXPECT_NEAR(state.axes[1].toGo, -50 * (1 - part), 1e-9);
  EXPECT_EQ(state.axes[2].toGo, 0);
  EXPECT_NEAR(state.feed, 1000, 1e-9);
}

TEST(MachineMotion, AnArcKeepsItsDistanceFromTheCentreAllTheWay) {
  MachineBench bench;
  bench.Send(u"G2 X40 I20 F1000");
  for (int i = 0; i < 37; ++i) {
    bench.Wait(100);
    EXPECT_NEAR(std::hypot(bench.At(0) - 20, bench.At(1)), 20, 1e-9);
    EXPECT_GE(bench.At(1), 0);
  }
}

TEST(MachineMotion, TheWorkpieceOffsetShowsInWorkpieceCoordinatesOnly) {
  MachineBench bench;
  bench.Do(u"G55 G0 X10 Y20 Z-5");
  const auto axes = bench.machine->State().axes;
  ASSERT_EQ(axes.size(), 3U);
  EXPECT_EQ(axes[0].name, u"X");
  EXPECT_EQ(axes[0].position, 10);
  EXPECT_EQ(axes[0].machine, 110);
  EXPECT_EQ(axes[1].position, 20);
  EXPECT_EQ(axes[1].machine, 70);
  EXPECT_EQ(axes[2].position, -5);
  EXPECT_EQ(bench.environment.GetDouble(u"[1].A.POS.X"), 10);
}

TEST(MachineMotion, ToolLengthCompensationShiftsWhatZShows) {
  MachineBench bench;
  bench.Do(u"T1 M6");
  bench.Do(u"G43");
  EXPECT_EQ(bench.machine->State().axes[2].position, -50);
  EXPECT_EQ(bench.environment.GetDouble(u"[1].A.POS.Z"), -50);
  bench.Do(u"G0 Z0");
  EXPECT_EQ(bench.At(2), 50);
}

TEST(MachineMotion, FeedHoldKeepsTheRemainingPathExactly) {
  MachineBench bench;
  bench.Send(u"G1 X100 F1000");
  bench.Wait(1234);
  bench.machine->FeedHold(true);
  EXPECT_EQ(bench.environment.clock.Running(), 0U);
  const double held = bench.At(0);
  EXPECT_NEAR(held, 100 * 1234 / 6000.0, 1e-9);
  EXPECT_EQ(bench.machine->State().feed, 0);
  EXPECT_TRUE(bench.machine->State().feedHold);
  bench.Wait(100000);
  EXPECT_EQ(bench.At(0), held);
  bench.machine->FeedHold(false);
  bench.Wait(6000 - 1234 - 1);
  EXPECT_EQ(bench.Status(), 0x200);
  bench.Wait(1);
  EXPECT_EQ(bench.Status(), 0x100);
  EXPECT_EQ(bench.At(0), 100);
}

TEST(MachineMotion, FeedHoldStopsADwellToo) {
  MachineBench bench;
  bench.Send(u"G4 K1");
  bench.Wait(300);
  bench.machine->FeedHold(true);
  bench.Wait(5000);
  EXPECT_EQ(bench.machine->ClearFeedhold(), 0);
  bench.Wait(699);
  EXPECT_EQ(bench.Status(), 0x200);
  bench.Wait(1);
  EXPECT_EQ(bench.Status(), 0x100);
}

TEST(MachineMotion, FeedOverrideStretchesWhatIsLeftAndStandsStillAtZero) {
  MachineBench bench;
  bench.Send(u"G1 X100 F1000");
  bench.Wait(3000);
  bench.machine->FeedOverride(50);
  EXPECT_NEAR(bench.machine->State().feed, 500, 1e-9);
  EXPECT_EQ(bench.machine->State().programmedFeed, 1000);
  bench.Wait(3000);
  EXPECT_NEAR(bench.At(0), 75, 1e-9);
  bench.machine->FeedOverride(0);
  EXPECT_EQ(bench.environment.clock.Running(), 0U);
  EXPECT_EQ(bench.Status(), 0x200);
  bench.Wait(100000);
  EXPECT_NEAR(bench.At(0), 75, 1e-9);
  bench.machine->FeedOverride(200);
  bench.Wait(749);
  EXPECT_EQ(bench.Status(), 0x200);
  bench.Wait(1);
  EXPECT_EQ(bench.Status(), 0x100);
}

TEST(MachineMotion, FeedOverrideKeepsToItsRange) {
  MachineBench bench;
  for (const auto& [asked, kept] : {std::pair{-5, 0}, {0, 0}, {120, 120}, {200, 200}, {999, 200}}) {
    bench.machine->FeedOverride(asked);
    EXPECT_EQ(bench.machine->State().feedOverride, kept);
  }
  bench.machine->FeedOverride(50);
  EXPECT_EQ(bench.Duration(u"G1 X100 F1000"), 12000);
  EXPECT_EQ(bench.Duration(u"G4 K1"), 1000);
  EXPECT_EQ(bench.Duration(u"G0 X0"), 1200);
}

TEST(MachineMotion, ProgrammedFeedReadsInTheUnitOfItsCode) {
  MachineBench bench;
  bench.Do(u"G20 F10");
  EXPECT_NEAR(bench.machine->State().programmedFeed, 10, 1e-12);
  bench.Do(u"G21");
  EXPECT_NEAR(bench.machine->State().programmedFeed, 254, 1e-12);
  bench.Do(u"G95 F0.25");
  EXPECT_EQ(bench.machine->State().programmedFeed, 0.25);
}

TEST(MachineMotion, ATimerRunsOnlyWhileSomethingHappens) {
  MachineBench bench;
  EXPECT_EQ(bench.environment.clock.Running(), 0U);
  bench.Send(u"G1 X10 F1000");
  EXPECT_EQ(bench.environment.clock.Running(), 2U);
  bench.Wait(600);
  EXPECT_EQ(bench.environment.clock.Running(), 0U);
  bench.Send(u"G4 K1");
  EXPECT_EQ(bench.environment.clock.Running(), 1U);
  bench.Wait(1000);
  EXPECT_EQ(bench.environment.clock.Running(), 0U);
}

TEST(MachineMotion, WhileAxesMoveThePanelHearsTwentyFiveTimesASecond) {
  MachineBench bench;
  int calls = 0;
  bench.machine->OnChanged([&] { ++calls; });
  bench.Send(u"G1 X100 F1000");
  EXPECT_EQ(calls, 1);
  bench.Wait(1000);
  EXPECT_EQ(calls, 26);
  bench.machine->FeedHold(true);
  EXPECT_EQ(calls, 27);
  bench.Wait(1000);
  EXPECT_EQ(calls, 27);
  bench.machine->OnChanged({});
  bench.machine->Reset();
  EXPECT_EQ(calls, 27);
}

TEST(MachineMotion, TurningTheOverrideDoesNotHoldTheDisplayBack) {
  MachineBench bench;
  bench.Send(u"G1 X100 F1000");
  bench.Wait(30);
  bench.machine->FeedOverride(100);
  int calls = 0;
  bench.machine->OnChanged([&] { ++calls; });
  bench.Wait(10);
  EXPECT_EQ(calls, 1);
}

TEST(MachineMotion, PositionVariablesFollowTheDisplay) {
  MachineBench bench;
  bench.Send(u"G1 X100 F1000");
  bench.Wait(399);
  EXPECT_NEAR(bench.environment.GetDouble(u"[1].A.POS.X"), 6, 1e-9);
  bench.Wait(1);
  EXPECT_NEAR(bench.environment.GetDouble(u"[1].A.POS.X"), 100 * 400 / 6000.0, 1e-9);
  bench.Wait(10000);
  EXPECT_EQ(bench.environment.GetDouble(u"[1].A.POS.X"), 100);
}

TEST(MachineMotion, AMachineThatIsGoneLeavesNoTimerBehind) {
  MachineBench bench;
  bench.Send(u"G1 X100 F1000");
  bench.machine.reset();
  EXPECT_EQ(bench.environment.clock.Running(), 0U);
}

}  // namespace
}  // namespace pnl::test
