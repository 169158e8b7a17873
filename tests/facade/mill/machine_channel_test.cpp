// SPDX-License-Identifier: MIT
#include "facade/mill/machine_fakes.h"

namespace pnl::test {
namespace {

using Statuses = std::string;

TEST(MachineChannel, ABlockIsReportedRunningThenReady) {
  MachineBench bench;
  EXPECT_EQ(bench.Send(u"G1 X10 F1000"), 0);
  EXPECT_EQ(bench.machine->State().block, u"G1 X10 F1000");
  EXPECT_EQ(bench.machine->State().channelStatus, 2);
  bench.Wait(600);
  EXPECT_EQ(bench.Statuses(), "0x200 0x100");
  EXPECT_EQ(bench.machine->State().block, u"");
  EXPECT_EQ(bench.machine->State().channelStatus, 1);
  EXPECT_EQ(bench.environment.GetInt(u"[1].G.STATUS"), 1);
}

TEST(MachineChannel, TheShortStatusStandsBeforeTheFullOneIsReported) {
  MachineBench bench;
  std::vector<std::int32_t> seen;
  bench.environment.onSet = [&](TextView name) {
    if (name == u"[1].G.FULLSTATUS") seen.push_back(bench.environment.GetInt(u"[1].G.STATUS"));
  };
  bench.Send(u"G4 K1");
  bench.machine->FeedHold(true);
  bench.machine->Cancel();
  bench.Wait(1);
  EXPECT_EQ(seen, (std::vector<std::int32_t>{2, 4, 8, 1}));
}

TEST(MachineChannel, FeedHoldInterruptsAndAStartGoesOn) {
  MachineBench bench;
  bench.Send(u"G4 K1");
  bench.machine->FeedHold(true);
  EXPECT_EQ(bench.machine->NextSingleStep(), 1);
  EXPECT_EQ(bench.machine->ClearFeedhold(), 0);
  EXPECT_EQ(bench.machine->ClearFeedhold(), 1);
  bench.Wait(1000);
  EXPECT_EQ(bench.Statuses(), "0x200 0x405 0x200 0x100");
}

TEST(MachineChannel, FeedHoldMeansNothingWhenNothingRuns) {
  MachineBench bench;
  bench.machine->FeedHold(true);
  bench.machine->FeedHold(false);
  EXPECT_FALSE(bench.machine->State().feedHold);
  EXPECT_EQ(bench.Statuses(), "");
  bench.Do(u"G4 K1");
  EXPECT_EQ(bench.Statuses(), "0x200 0x100");
}

TEST(MachineChannel, M0AndM1InterruptBehindTheMove) {
  const struct {
    TextView block;
    Statuses before;
    Statuses whole;
  } rows[] = {{u"G1 X10 F1000 M0", "0x200", "0x404 0x200 0x100"}, {u"G1 X10 F1000 M1", "0x200", "0x406 0x200 0x100"}};
  for (const auto& row : rows) {
    MachineBench bench;
    bench.Send(row.block);
    bench.Wait(599);
    EXPECT_EQ(bench.Statuses(), row.before);
    bench.Wait(1);
    EXPECT_EQ(bench.At(0), 10);
    bench.Wait(1000);
    EXPECT_EQ(bench.machine->ClearFeedhold(), 1);
    EXPECT_EQ(bench.machine->NextSingleStep(), 0);
    bench.Wait(1);
    EXPECT_EQ(bench.Statuses(), row.whole);
  }
}

TEST(MachineChannel, SingleBlockWaitsBetweenTheStepsOfABlock) {
  MachineBench bench;
  bench.Do(u"S500 M3");
  bench.Statuses();
  bench.machine->SingleBlock(true);
  EXPECT_TRUE(bench.machine->State().singleBlock);
  bench.Send(u"T2 M8 G1 X10 F1000 M5 M0");
  bench.Wait(5000);
  EXPECT_TRUE(bench.machine->State().coolant);
  EXPECT_EQ(bench.At(0), 0);
  EXPECT_EQ(bench.environment.clock.Running(), 0U);
  EXPECT_EQ(bench.machine->NextSingleStep(), 0);
  EXPECT_EQ(bench.machine->NextSingleStep(), 1);
  bench.Wait(600);
  EXPECT_EQ(bench.At(0), 10);
  EXPECT_EQ(bench.machine->State().spindleDirection, 1);
  EXPECT_EQ(bench.machine->NextSingleStep(), 0);
  bench.Wait(1);
  EXPECT_EQ(bench.machine->State().spindleDirection, 0);
  EXPECT_TRUE(bench.machine->State().coolant);
  EXPECT_EQ(bench.machine->NextSingleStep(), 0);
  bench.Wait(1);
  EXPECT_EQ(bench.Statuses(), "0x200 0x201 0x200 0x201 0x200 0x404 0x200 0x100");
}

TEST(MachineChannel, ABlockOfOneStepDoesNotWaitInSingleBlock) {
  MachineBench bench;
  bench.machine->SingleBlock(true);
  bench.Do(u"G1 X10 F1000");
  EXPECT_EQ(bench.Statuses(), "0x200 0x100");
}

TEST(MachineChannel, AWaitBetweenStepsStartsTheMoveFromItsBeginning) {
  // A display that looks late must not have let the next step begin.
  MachineBench bench;
  bench.machine->SingleBlock(true);
  bench.Send(u"M8 G1 X10 F1000");
  bench.Wait(77);
  EXPECT_EQ(bench.At(0), 0);
  bench.machine->NextSingleStep();
  bench.Wait(599);
  EXPECT_EQ(bench.Status(), 0x200);
  bench.Wait(1);
  EXPECT_EQ(bench.Status(), 0x100);
}

TEST(MachineChannel, CancelAbortsWhatIsInterrupted) {
  for (const bool byKernel : {true, false}) {
    MachineBench bench;
    bench.Send(u"G1 X10 F1000");
    bench.Wait(300);
    EXPECT_EQ(bench.machine->PosibleMDICancel(1), 0);
    EXPECT_EQ(bench.machine->MDICancel(1), 1);
    bench.machine->FeedHold(true);
    EXPECT_EQ(bench.machine->PosibleMDICancel(1), 2);
    EXPECT_EQ(bench.machine->PosibleMDICancel(2), 0);
    EXPECT_EQ(bench.machine->MDICancel(2), 1);
    if (byKernel) {
      EXPECT_EQ(bench.machine->MDICancel(1), 0);
    } else {
      bench.machine->Cancel();
    }
    EXPECT_EQ(bench.machine->PosibleMDICancel(1), 0);
    bench.Wait(1);
    EXPECT_EQ(bench.Statuses(), "0x200 0x405 0x800 0x100");
    EXPECT_NEAR(bench.At(0), 5, 1e-9);
    EXPECT_EQ(bench.machine->State().gCodes.substr(0, 3), u"G01");
  }
}

TEST(MachineChannel, CancelLeavesARunningBlockAndARestingMachineAlone) {
  MachineBench bench;
  bench.machine->Cancel();
  bench.Send(u"G4 K1");
  bench.machine->Cancel();
  bench.Wait(1000);
  EXPECT_EQ(bench.Statuses(), "0x200 0x100");
}

TEST(MachineChannel, ResetAbortsAndGoesBackToTheStartValues) {
  MachineBench bench;
  bench.Do(u"T3 M6 S800 M3 M8 G18 G20 G41 G43 G55 G91 F5");
  bench.Do(u"G95 F0.1");
  EXPECT_EQ(bench.machine->State().gCodes, u"G00 G18 G20 G41 G43 G55 G91 G95 G97");
  bench.Statuses();
  bench.Send(u"G1 X1");
  bench.Wait(100);
  const double at = bench.At(0);
  EXPECT_GT(at, 0);
  bench.machine->Reset();
  bench.Wait(1);
  EXPECT_EQ(bench.Statuses(), "0x200 0x800 0x100");
  const auto state = bench.machine->State();
  EXPECT_EQ(state.gCodes, u"G00 G17 G21 G40 G54 G90 G94 G97");
  EXPECT_EQ(state.spindleDirection, 0);
  EXPECT_EQ(state.spindleSpeed, 0);
  EXPECT_FALSE(state.coolant);
  EXPECT_EQ(state.tool, 3);
  EXPECT_EQ(state.programmedFeed, 0);
  EXPECT_EQ(bench.At(0), at);
}

TEST(MachineChannel, ResetOfARestingMachineAbortsNothing) {
  MachineBench bench;
  bench.Do(u"G91");
  bench.Statuses();
  bench.machine->Reset();
  bench.Wait(10);
  EXPECT_EQ(bench.Statuses(), "");
  EXPECT_EQ(bench.machine->State().gCodes, u"G00 G17 G21 G40 G54 G90 G94 G97");
}

TEST(MachineChannel, ResetKeepsTheToolThatWasChosen) {
  MachineBench bench;
  bench.Do(u"T5");
  bench.machine->Reset();
  bench.Do(u"M6");
  EXPECT_EQ(bench.machine->State().tool, 5);
}

TEST(MachineChannel, AProgramEndGoesBackToTheStartValues) {
  for (const TextView end : {u"M30", u"M2"}) {
    MachineBench bench;
    bench.Do(u"G91 G1 F100 S100 M3 M8");
    bench.Do(Text(u"X5 ") + Text(end));
    const auto state = bench.machine->State();
    EXPECT_EQ(state.gCodes, u"G00 G17 G21 G40 G54 G90 G94 G97");
    EXPECT_EQ(state.spindleDirection, 0);
    EXPECT_FALSE(state.coolant);
    EXPECT_EQ(bench.At(0), 5);
  }
}

TEST(MachineChannel, EmergencyStopAbortsAndRefusesBlocksWhileItIsOn) {
  MachineBench bench;
  bench.Do(u"S100 M3 M8");
  bench.Statuses();
  bench.Send(u"G1 X10 F1000");
  bench.Wait(100);
  bench.machine->EmergencyStop(true);
  bench.machine->EmergencyStop(true);
  bench.Wait(1);
  EXPECT_EQ(bench.Statuses(), "0x200 0x800 0x100");
  ASSERT_EQ(bench.environment.errors.size(), 1U);
  EXPECT_EQ(bench.environment.errorTexts[1033], u"\nEmergency stop");
  EXPECT_EQ(bench.machine->State().spindleDirection, 0);
  EXPECT_FALSE(bench.machine->State().coolant);
  EXPECT_EQ(bench.Send(u"G0 X0"), 1033);
  EXPECT_EQ(bench.environment.errors.size(), 2U);
  bench.machine->EmergencyStop(false);
  EXPECT_EQ(bench.Send(u"G0 X0"), 0);
}

TEST(MachineChannel, ARefusedBlockChangesNothing) {
  MachineBench bench;
  bench.Do(u"G1 X10 F1000");
  bench.Statuses();
  const auto before = bench.machine->State();
  EXPECT_NE(bench.Send(u"G91 G20 G55 T5 S300 F77 X99999"), 0);
  EXPECT_NE(bench.Send(u"M3 S100 M8 G0 G999"), 0);
  bench.Wait(100);
  const auto after = bench.machine->State();
  EXPECT_EQ(after.gCodes, before.gCodes);
  EXPECT_EQ(after.programmedFeed, before.programmedFeed);
  EXPECT_EQ(after.programmedSpeed, before.programmedSpeed);
  EXPECT_EQ(after.spindleDirection, 0);
  EXPECT_EQ(after.axes[0].position, 10);
  EXPECT_EQ(bench.Statuses(), "");
  EXPECT_EQ(bench.environment.clock.Running(), 0U);
  // Not even what T chose.
  bench.Do(u"M6");
  EXPECT_EQ(bench.machine->State().tool, 0);
}

TEST(MachineChannel, OneBlockAtATime) {
  MachineBench bench;
  bench.Send(u"G1 X10 F1000");
  EXPECT_EQ(bench.Send(u"G1 X20"), 1032);
  bench.machine->FeedHold(true);
  EXPECT_EQ(bench.Send(u"G1 X20"), 1032);
  bench.machine->Cancel();
  EXPECT_EQ(bench.Send(u"G1 X20"), 1032);
  bench.Wait(1);
  EXPECT_EQ(bench.Send(u"G1 X20"), 0);
}

TEST(MachineChannel, AWatcherThatInterfersAmongReportsMeetsAConsistentMachine) {
  MachineBench bench;
  bench.environment.onSet = [&](TextView name) {
    if (name == u"[1].G.STATUS" && bench.environment.GetInt(name) == 2) bench.machine->FeedHold(true);
  };
  bench.Send(u"G1 X10 F1000");
  EXPECT_EQ(bench.Status(), 0x405);
  EXPECT_EQ(bench.machine->State().channelStatus, 4);
  EXPECT_EQ(bench.environment.clock.Running(), 0U);
}

TEST(MachineChannel, TheStateShowsSpindleToolAndCoolant) {
  MachineBench bench;
  bench.Do(u"T4");
  EXPECT_EQ(bench.machine->State().tool, 0);
  bench.Do(u"M6 M4 S1500 M7");
  auto state = bench.machine->State();
  EXPECT_EQ(state.tool, 4);
  EXPECT_EQ(state.spindleDirection, -1);
  EXPECT_EQ(state.spindleSpeed, 1500);
  EXPECT_EQ(state.programmedSpeed, 1500);
  EXPECT_TRUE(state.coolant);
  bench.Do(u"M5 M9");
  state = bench.machine->State();
  EXPECT_EQ(state.spindleDirection, 0);
  EXPECT_EQ(state.spindleSpeed, 0);
  EXPECT_EQ(state.programmedSpeed, 1500);
  EXPECT_FALSE(state.coolant);
  EXPECT_EQ(state.tool, 4) << "the block changes no tool";
}

}  // namespace
}  // namespace pnl::test
