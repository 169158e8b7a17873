// SPDX-License-Identifier: MIT
// What the operator's panel sees of the mill, and when it hears that something has changed.
#include <gtest/gtest.h>

#include <functional>

#include "facade/error_record.h"
#include "facade/mill/machine_data.h"
#include "facade/mill/machine_fakes.h"

namespace pnl::test {
namespace {

TEST(MachinePanel, TheStateSaysInWhichMeasuresFeedAndSpeedAre) {
  MachineBench bench("demo-dual");
  EXPECT_FALSE(bench.machine->State().feedPerRevolution);
  EXPECT_FALSE(bench.machine->State().cuttingSpeed);
  bench.Do(u"G95 F0.2 G96 S120");
  EXPECT_TRUE(bench.machine->State().feedPerRevolution);
  EXPECT_TRUE(bench.machine->State().cuttingSpeed);
  EXPECT_EQ(bench.machine->State().programmedFeed, 0.2);
  EXPECT_EQ(bench.machine->State().programmedSpeed, 120);
  EXPECT_EQ(bench.machine->State().spindleSpeed, 0);
  bench.Do(u"G94 G97");
  EXPECT_FALSE(bench.machine->State().feedPerRevolution);
  EXPECT_FALSE(bench.machine->State().cuttingSpeed);
}

TEST(MachinePanel, TheStateShowsTheSwitchesOfThePanel) {
  MachineBench bench;
  EXPECT_FALSE(bench.machine->State().emergencyStop);
  bench.machine->EmergencyStop(true);
  EXPECT_TRUE(bench.machine->State().emergencyStop);
  bench.machine->EmergencyStop(false);
  EXPECT_FALSE(bench.machine->State().emergencyStop);
  bench.machine->SingleBlock(true);
  bench.machine->SingleBlock(false);
  EXPECT_FALSE(bench.machine->State().singleBlock);
  EXPECT_EQ(bench.machine->State().feedOverride, 100);
}

TEST(MachinePanel, TheDetailOfTheStatusIsItsLowByte) {
  MachineBench bench;
  bench.Send(u"G1 X10 F1000");
  EXPECT_EQ(bench.machine->State().channelDetail, 0);
  bench.machine->FeedHold(true);
  EXPECT_EQ(bench.machine->State().channelStatus, 4);
  EXPECT_EQ(bench.machine->State().channelDetail, 5);
}

TEST(MachinePanel, NothingIsLeftToGoInADwellAndAtRest) {
  MachineBench bench;
  bench.Send(u"G1 X10 F1000");
  EXPECT_EQ(bench.machine->State().axes[0].toGo, 10);
  bench.Wait(600);
  EXPECT_EQ(bench.machine->State().axes[0].toGo, 0);
  EXPECT_EQ(bench.machine->State().feed, 0);
  bench.Send(u"G4 K1");
  EXPECT_EQ(bench.machine->State().axes[0].toGo, 0);
}

TEST(MachinePanel, EverySwitchIsToldToThePanelOnce) {
  MachineBench bench;
  int calls = 0;
  bench.machine->OnChanged([&calls] { ++calls; });
  const std::function<void()> switches[] = {
      [&] { bench.machine->SingleBlock(true); },    [&] { bench.machine->SetMode(1, 1); },
      [&] { bench.machine->FeedOverride(50); },     [&] { bench.machine->EmergencyStop(true); },
      [&] { bench.machine->EmergencyStop(false); }, [&] { bench.machine->Reset(); },
  };
  for (const auto& turn : switches) {
    calls = 0;
    turn();
    EXPECT_EQ(calls, 1) << (&turn - switches);
  }
  calls = 0;
  bench.machine->EmergencyStop(false);
  EXPECT_EQ(calls, 0) << "it is off already";
  bench.machine->SetMdi(1, 0);
  EXPECT_EQ(calls, 0) << "nothing runs that would end";
  bench.machine->ManualMode(false);
  EXPECT_EQ(calls, 1);
}

TEST(MachinePanel, AResetWhileTheEmergencyStopIsPressedRaisesItAgain) {
  MachineBench bench;
  bench.machine->Reset();
  EXPECT_TRUE(bench.environment.errors.empty());
  bench.machine->EmergencyStop(true);
  bench.machine->Reset();
  ASSERT_EQ(bench.environment.errors.size(), 2U);
  for (const ErrorRecord& record : bench.environment.errors) {
    EXPECT_EQ(record.Get<std::int32_t>(error_field::kNumber.offset), 1033);
  }
  bench.machine->EmergencyStop(false);
  bench.machine->Reset();
  EXPECT_EQ(bench.environment.errors.size(), 2U);
}

// It waits for its next start, which is no interruption.
TEST(MachinePanel, ABlockThatWaitsBetweenItsStepsCanNeitherBeCancelledNorInspected) {
  MachineBench bench;
  bench.machine->SingleBlock(true);
  bench.Send(u"M8 G1 X10 F1000");
  bench.Wait(10);
  ASSERT_EQ(bench.Status(), 0x201);
  EXPECT_EQ(bench.machine->PosibleMDICancel(1), 0);
  EXPECT_EQ(bench.machine->MDICancel(1), 1);
  bench.machine->Inspection(true);
  EXPECT_FALSE(bench.machine->State().inspecting);
  bench.machine->FeedHold(true);
  EXPECT_EQ(bench.Status(), 0x201) << "nothing runs that could be held";
  EXPECT_EQ(bench.machine->NextSingleStep(), 0);
}

TEST(MachinePanel, AStopOfTheProgramCanBeCancelled) {
  for (const TextView block : {TextView(u"M0"), TextView(u"M1")}) {
    MachineBench bench;
    bench.Send(block);
    bench.Wait(10);
    EXPECT_EQ(bench.machine->PosibleMDICancel(1), 2) << ToUtf8(block);
    EXPECT_EQ(bench.machine->MDICancel(1), 0);
    bench.Wait(1);
    EXPECT_EQ(bench.Status(), 0x100);
  }
}

// The wait for its end is longer than a timer can be.
TEST(MachinePanel, AMoveOfYearsIsShownAsAnyOther) {
  MachineBench bench;
  int calls = 0;
  bench.machine->OnChanged([&calls] { ++calls; });
  bench.Send(u"G1 X100 F0.0001");
  EXPECT_EQ(calls, 1);
  bench.Wait(1000);
  EXPECT_EQ(calls, 26);
  EXPECT_EQ(bench.Status(), 0x200);
  bench.machine->FeedOverride(0);
  EXPECT_EQ(bench.environment.clock.Running(), 0U);
  bench.machine->FeedOverride(1);
  EXPECT_EQ(bench.environment.clock.Running(), 2U);
}

TEST(MachinePanel, AStartKeyWithoutABlockDoesNothing) {
  MachineBench bench;
  EXPECT_EQ(bench.machine->NextSingleStep(), 1);
  EXPECT_EQ(bench.machine->ClearFeedhold(), 1);
  EXPECT_EQ(bench.Statuses(), "");
}

}  // namespace
}  // namespace pnl::test
