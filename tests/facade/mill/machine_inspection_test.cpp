// SPDX-License-Identifier: MIT
#include "facade/mill/machine_fakes.h"

namespace pnl::test {
namespace {

constexpr TextView kInspection = u"[1].E.INSPECSTATUS";
constexpr TextView kStart = u"[1].E.STARTONMDI";

/// A block interrupted at X50 of X100, and inspection on.
class MachineInspection : public testing::Test {
 protected:
  MachineInspection() {
    bench.SendWithInterlock(u"G1 X100 F1000");
    bench.Wait(3000);
    bench.machine->FeedHold(true);
    bench.Statuses();
    bench.machine->Inspection(true);
  }
  /// As the start key of the command line does while inspection is on.
  void PressStart() { Write(kStart, 1); }
  void Write(TextView name, std::int64_t value) {
    bench.environment.variables[Text(name)] = value;
    bench.machine->OnWritten(name);
  }

  MachineBench bench;
};

TEST_F(MachineInspection, ParksTheInterruptedBlockAndMakesTheChannelReady) {
  EXPECT_EQ(bench.environment.GetInt(kInspection), 1);
  EXPECT_EQ(bench.environment.GetInt(kStart), 0);
  EXPECT_EQ(bench.machine->EnProcesoInspec(1), 1);
  EXPECT_EQ(bench.machine->EnProcesoInspec(2), 0);
  EXPECT_EQ(bench.machine->IsMDIAllowedInResetInspect(1), 1);
  EXPECT_TRUE(bench.machine->State().inspecting);
  EXPECT_EQ(bench.machine->State().block, u"");
  EXPECT_EQ(bench.Statuses(), "0x100");
  EXPECT_EQ(bench.machine->InterlocksHeld(), 1);
  EXPECT_EQ(bench.machine->PosibleMDICancel(1), 0);
  EXPECT_EQ(bench.environment.clock.Running(), 0U);
}

TEST_F(MachineInspection, AnswersAStartRequestOfTheTool) {
  bench.environment.reports.clear();
  PressStart();
  ASSERT_EQ(bench.environment.reports.size(), 2U);
  EXPECT_EQ(bench.environment.reports[0].name, kStart);
  EXPECT_EQ(std::get<std::int64_t>(bench.environment.reports[0].value), 2);
  EXPECT_EQ(bench.environment.reports[1].name, kInspection);
  EXPECT_EQ(std::get<std::int64_t>(bench.environment.reports[1].value), 1);
}

TEST_F(MachineInspection, RunsBlocksOfItsOwnAndTakesTheRequestBack) {
  PressStart();
  bench.Statuses();
  EXPECT_EQ(bench.SendWithInterlock(u"G0 Z60"), 0);
  EXPECT_EQ(bench.environment.GetInt(kStart), 0);
  EXPECT_EQ(bench.machine->InterlocksHeld(), 2);
  bench.Wait(600);
  EXPECT_EQ(bench.Statuses(), "0x200 0x100");
  EXPECT_EQ(bench.At(2), 60);
  EXPECT_EQ(bench.machine->InterlocksHeld(), 1);
}

TEST_F(MachineInspection, ARefusedBlockTakesTheRequestBackToo) {
  PressStart();
  EXPECT_NE(bench.Send(u"G999"), 0);
  EXPECT_EQ(bench.environment.GetInt(kStart), 0);
}

TEST_F(MachineInspection, AHeldBlockOfItsOwnGoesOnByTheSameRequest) {
  bench.Send(u"G0 Z60");
  bench.machine->FeedHold(true);
  PressStart();
  EXPECT_EQ(bench.environment.GetInt(kStart), 2);
  EXPECT_EQ(bench.machine->ClearFeedhold(), 0);
  EXPECT_EQ(bench.environment.GetInt(kStart), 0);
  bench.Wait(600);
  EXPECT_EQ(bench.At(2), 60);
}

TEST_F(MachineInspection, AStoppedBlockOfItsOwnGoesOnByTheSameRequest) {
  bench.Do(u"G0 Z60 M0");
  ASSERT_EQ(bench.Status(), 0x404);
  PressStart();
  EXPECT_EQ(bench.environment.GetInt(kStart), 2);
  EXPECT_EQ(bench.machine->NextSingleStep(), 0);
  EXPECT_EQ(bench.environment.GetInt(kStart), 0);
}

TEST_F(MachineInspection, EndsInTheInterruptedBlockWhichComesBackAndGoesOn) {
  bench.Do(u"G0 X80 Y100 Z60");
  bench.Statuses();
  bench.machine->Inspection(false);
  EXPECT_EQ(bench.environment.GetInt(kInspection), 0);
  EXPECT_FALSE(bench.machine->State().inspecting);
  EXPECT_EQ(bench.machine->State().block, u"G1 X100 F1000");
  EXPECT_EQ(bench.At(0), 80);
  EXPECT_EQ(bench.machine->ClearFeedhold(), 0);
  bench.Wait(600);
  EXPECT_NEAR(bench.At(0), 50, 1e-9);
  EXPECT_NEAR(bench.At(1), 0, 1e-9);
  EXPECT_NEAR(bench.At(2), 0, 1e-9);
  bench.Wait(2999);
  EXPECT_EQ(bench.Status(), 0x200);
  bench.Wait(1);
  EXPECT_EQ(bench.At(0), 100);
  EXPECT_EQ(bench.Statuses(), "0x405 0x200 0x100");
  EXPECT_EQ(bench.machine->InterlocksHeld(), 0);
}

TEST_F(MachineInspection, WithoutAMoveTheBlockGoesOnAtOnce) {
  bench.machine->Inspection(false);
  bench.machine->ClearFeedhold();
  bench.Wait(3000);
  EXPECT_EQ(bench.Status(), 0x100);
  EXPECT_EQ(bench.At(0), 100);
}

TEST_F(MachineInspection, WithoutAMoveThereIsNoWayBackToWaitBehind) {
  bench.machine->SingleBlock(true);
  bench.machine->Inspection(false);
  bench.Statuses();
  bench.machine->ClearFeedhold();
  bench.Wait(3000);
  EXPECT_EQ(bench.Statuses(), "0x200 0x100");
}

TEST_F(MachineInspection, AnOverrideTurnedMeanwhileHoldsForTheBlockThatGoesOn) {
  bench.machine->FeedOverride(200);
  bench.machine->Inspection(false);
  bench.machine->ClearFeedhold();
  bench.Wait(1499);
  EXPECT_EQ(bench.Status(), 0x200);
  bench.Wait(1);
  EXPECT_EQ(bench.Status(), 0x100);
}

TEST_F(MachineInspection, ASecondInspectionComesBackToTheSamePlace) {
  bench.Do(u"G0 Y10");
  bench.machine->Inspection(false);
  bench.machine->Inspection(true);
  bench.Do(u"G0 Y20");
  bench.machine->Inspection(false);
  EXPECT_EQ(bench.At(1), 20);
  bench.machine->ClearFeedhold();
  bench.Wait(120);
  EXPECT_NEAR(bench.At(0), 50, 1e-9);
  EXPECT_NEAR(bench.At(1), 0, 1e-9);
  bench.Wait(3000);
  EXPECT_EQ(bench.Status(), 0x100);
  EXPECT_EQ(bench.At(0), 100);
  EXPECT_NEAR(bench.At(1), 0, 1e-9);
}

TEST_F(MachineInspection, AWayBackCanBeInterruptedAsWell) {
  bench.Do(u"G0 Y100");
  bench.machine->Inspection(false);
  bench.machine->ClearFeedhold();
  bench.Wait(300);
  bench.machine->FeedHold(true);
  EXPECT_NEAR(bench.At(1), 50, 1e-9);
  bench.machine->Inspection(true);
  bench.Do(u"G0 X0");
  bench.machine->Inspection(false);
  bench.machine->ClearFeedhold();
  bench.Wait(300);
  EXPECT_NEAR(bench.At(0), 50, 1e-9);
  EXPECT_NEAR(bench.At(1), 50, 1e-9);
  bench.Wait(300 + 3000);
  EXPECT_EQ(bench.Status(), 0x100);
  EXPECT_EQ(bench.At(0), 100);
  EXPECT_NEAR(bench.At(1), 0, 1e-9);
}

TEST_F(MachineInspection, AStopOfTheProgramIsInspectedAsAHoldIs) {
  bench.machine->Reset();
  bench.Wait(1);
  bench.Do(u"G0 X10 M0");
  bench.machine->Inspection(true);
  bench.Do(u"G0 X20");
  bench.Statuses();
  bench.machine->Inspection(false);
  bench.machine->NextSingleStep();
  bench.Wait(60);
  EXPECT_EQ(bench.Statuses(), "0x404 0x200 0x100");
  EXPECT_EQ(bench.At(0), 10);
}

TEST_F(MachineInspection, DoesNotEndWhileABlockOfItsOwnIsInHand) {
  bench.Send(u"G4 K1");
  bench.machine->Inspection(false);
  EXPECT_TRUE(bench.machine->State().inspecting);
  EXPECT_EQ(bench.environment.GetInt(kInspection), 1);
  bench.Wait(1000);
  bench.machine->Inspection(false);
  EXPECT_FALSE(bench.machine->State().inspecting);
}

TEST_F(MachineInspection, CancelInItAbortsOnlyItsOwnBlock) {
  bench.Send(u"G4 K1");
  bench.machine->FeedHold(true);
  bench.Statuses();
  bench.machine->Cancel();
  bench.machine->Inspection(false);
  bench.Wait(1);
  EXPECT_EQ(bench.Statuses(), "0x800 0x100");
  EXPECT_TRUE(bench.machine->State().inspecting);
  bench.machine->Inspection(false);
  EXPECT_EQ(bench.Status(), 0x405);
}

TEST_F(MachineInspection, ResetAndEmergencyStopEndItWithTheParkedBlock) {
  for (const bool reset : {true, false}) {
    if (!reset) {
      bench.Send(u"G4 K1");
      bench.machine->FeedHold(true);
      bench.machine->Inspection(true);
    }
    bench.Statuses();
    if (reset) {
      bench.machine->Reset();
    } else {
      bench.machine->EmergencyStop(true);
    }
    bench.Wait(1);
    EXPECT_EQ(bench.Statuses(), "0x800 0x100");
    EXPECT_EQ(bench.environment.GetInt(kInspection), 0);
    EXPECT_EQ(bench.machine->InterlocksHeld(), 0);
    EXPECT_FALSE(bench.machine->State().inspecting);
  }
}

TEST_F(MachineInspection, AToolThatWritesItOffEndsIt) {
  Write(kInspection, 0);
  EXPECT_FALSE(bench.machine->State().inspecting);
  EXPECT_EQ(bench.Status(), 0x405);
}

TEST_F(MachineInspection, WrittenOffWhileItsOwnBlockRunsItStandsAgain) {
  bench.Send(u"G4 K1");
  Write(kInspection, 0);
  EXPECT_EQ(bench.environment.GetInt(kInspection), 1);
  EXPECT_TRUE(bench.machine->State().inspecting);
}

TEST_F(MachineInspection, LeavingMdiEndsIt) {
  bench.machine->SetMdi(1, 0);
  bench.Wait(1);
  EXPECT_EQ(bench.environment.GetInt(kInspection), 0);
  EXPECT_FALSE(bench.machine->State().inspecting);
  EXPECT_EQ(bench.Status(), 0x100);
  EXPECT_EQ(bench.machine->InterlocksHeld(), 0);
}

TEST_F(MachineInspection, ALeftOverRequestStartsNothingTheNextTime) {
  PressStart();
  bench.machine->Inspection(false);
  bench.machine->Inspection(true);
  EXPECT_EQ(bench.environment.GetInt(kStart), 0);
}

TEST_F(MachineInspection, ABlockWithoutARequestLeavesTheRequestAlone) {
  bench.environment.reports.clear();
  bench.Do(u"G0 Z10");
  for (const auto& report : bench.environment.reports) EXPECT_NE(report.name, kStart);
}

TEST_F(MachineInspection, OnlyARequestIsAnsweredAndOnlyANoughtEndsIt) {
  bench.environment.reports.clear();
  Write(kStart, 2);
  Write(kStart, 0);
  Write(kInspection, 1);
  EXPECT_TRUE(bench.environment.reports.empty());
  EXPECT_TRUE(bench.machine->State().inspecting);
}

TEST(MachineWithoutInspection, NeedsAnInterruptedBlock) {
  MachineBench bench;
  bench.machine->Inspection(true);
  EXPECT_FALSE(bench.machine->State().inspecting);
  bench.Send(u"G4 K1");
  bench.machine->Inspection(true);
  EXPECT_FALSE(bench.machine->State().inspecting);
  EXPECT_EQ(bench.environment.GetInt(kInspection), 0);
}

TEST(MachineWithoutInspection, LeavesStartRequestsToWhoeverMadeThem) {
  MachineBench bench;
  bench.environment.variables[Text(kStart)] = std::int64_t{1};
  bench.machine->OnWritten(kStart);
  EXPECT_EQ(bench.environment.GetInt(kStart), 1);
  EXPECT_TRUE(bench.environment.reports.empty());
}

}  // namespace
}  // namespace pnl::test
