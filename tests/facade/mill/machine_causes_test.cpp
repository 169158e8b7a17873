// SPDX-License-Identifier: MIT
// What stands in the mill's way until it is mended: that no reset takes it away, that nothing begins or goes on
// meanwhile, and what an open door leaves whole.
#include <gtest/gtest.h>

#include "facade/mill/machine_fakes.h"
#include "facade/mill/machine_raised.h"

namespace pnl::test {
namespace {

using Fault = rig::MachineFault;

constexpr Fault kAll[] = {Fault::kDoorOpen,    Fault::kDriveWarning, Fault::kDriveFault, Fault::kBusFault,
                          Fault::kProgramLine, Fault::kConfirm,      Fault::kFatal};

std::vector<std::int32_t> Numbers(const MachineBench& bench) {
  std::vector<std::int32_t> numbers;
  for (const ErrorRecord& record : bench.environment.errors) {
    numbers.push_back(record.Get<std::int32_t>(error_field::kNumber.offset));
  }
  return numbers;
}

TEST(MachineCauses, OnlySomeFaultsHaveOneAndEachRaisesItsErrorOnce) {
  for (const Fault fault : kAll) {
    MachineBench bench;
    int changes = 0;
    bench.machine->OnChanged([&changes] { ++changes; });
    bench.machine->SetCause(fault, true);
    bench.machine->SetCause(fault, true);
    const bool has = fault != Fault::kDriveWarning && fault != Fault::kProgramLine && fault != Fault::kConfirm;
    EXPECT_EQ(bench.machine->State().causes, has ? std::vector{fault} : std::vector<Fault>());
    EXPECT_EQ(Numbers(bench), has ? std::vector{sim::RaisedNumber(fault)} : std::vector<std::int32_t>());
    EXPECT_EQ(changes != 0, has);
    changes = 0;
    bench.machine->SetCause(fault, false);
    bench.machine->SetCause(fault, false);
    EXPECT_TRUE(bench.machine->State().causes.empty());
    EXPECT_EQ(changes, has ? 1 : 0);
    EXPECT_EQ(bench.Send(u"G0 X1"), 0) << "as before";
  }
}

TEST(MachineCauses, AResetRaisesWhatStandsAndWhatHasEndedNoMore) {
  MachineBench bench;
  bench.machine->SetCause(Fault::kBusFault, true);
  bench.machine->SetCause(Fault::kDoorOpen, true);
  bench.machine->EmergencyStop(true);
  bench.environment.errors.clear();
  bench.machine->Reset();
  EXPECT_EQ(Numbers(bench), (std::vector<std::int32_t>{1033, 5012, 6301}));
  EXPECT_EQ(bench.machine->State().causes, (std::vector{Fault::kDoorOpen, Fault::kBusFault}));
  bench.environment.errors.clear();
  bench.machine->EmergencyStop(false);
  bench.machine->SetCause(Fault::kDoorOpen, false);
  bench.machine->Reset();
  EXPECT_EQ(Numbers(bench), std::vector<std::int32_t>{6301});
}

TEST(MachineCauses, ABlockIsRefusedWithTheErrorOfTheCause) {
  for (const Fault fault : {Fault::kDoorOpen, Fault::kDriveFault, Fault::kBusFault, Fault::kFatal}) {
    MachineBench bench;
    bench.machine->SetCause(fault, true);
    bench.environment.errors.clear();
    EXPECT_EQ(bench.SendWithInterlock(u"G0 X5"), sim::RaisedNumber(fault));
    EXPECT_EQ(Numbers(bench), std::vector{sim::RaisedNumber(fault)});
    EXPECT_EQ(bench.machine->InterlocksHeld(), 0);
    bench.Wait(1000);
    EXPECT_EQ(bench.At(0), 0);
    bench.machine->SetCause(fault, false);
    EXPECT_EQ(bench.SendWithInterlock(u"G0 X5"), 0);
  }
}

TEST(MachineCauses, AFaultAbortsWhatIsInHandAndStopsTheSpindle) {
  for (const Fault fault : {Fault::kDriveFault, Fault::kBusFault, Fault::kFatal}) {
    MachineBench bench;
    bench.Do(u"S100 M3 M8");
    bench.Statuses();
    bench.Send(u"G1 X10 F1000");
    bench.Wait(100);
    bench.machine->SetCause(fault, true);
    bench.Wait(1);
    EXPECT_EQ(bench.Statuses(), "0x200 0x800 0x100");
    EXPECT_EQ(bench.machine->State().spindleDirection, 0);
    EXPECT_FALSE(bench.machine->State().coolant);
  }
}

TEST(MachineCauses, AnOpenDoorHoldsTheBlockAndOnlyAStartAfterClosingItGoesOn) {
  MachineBench bench;
  bench.Do(u"S100 M3 M8");
  bench.Statuses();
  bench.Send(u"G1 X10 F1000");
  bench.Wait(100);
  bench.machine->SetCause(Fault::kDoorOpen, true);
  EXPECT_EQ(bench.Statuses(), "0x200 0x405");
  const double held = bench.At(0);
  EXPECT_GT(held, 0);
  EXPECT_EQ(bench.machine->State().spindleDirection, 0);
  EXPECT_FALSE(bench.machine->State().coolant);
  EXPECT_EQ(bench.machine->ClearFeedhold(), 1);
  bench.machine->FeedHold(false);
  bench.Wait(1000);
  EXPECT_EQ(bench.At(0), held) << "no start moves an axis behind an open door";
  bench.machine->SetCause(Fault::kDoorOpen, false);
  bench.Wait(1000);
  EXPECT_EQ(bench.At(0), held) << "nor does the door that closes";
  EXPECT_EQ(bench.machine->State().spindleDirection, 0);
  EXPECT_EQ(bench.machine->ClearFeedhold(), 0);
  EXPECT_EQ(bench.machine->State().spindleDirection, 1);
  EXPECT_EQ(bench.machine->State().spindleSpeed, 100);
  EXPECT_TRUE(bench.machine->State().coolant);
  bench.Wait(5000);
  EXPECT_EQ(bench.At(0), 10);
}

TEST(MachineCauses, ADoorBetweenTwoStepsHoldsTheNextStep) {
  MachineBench bench;
  bench.machine->SingleBlock(true);
  bench.Send(u"S100 M3 G1 X10 F1000");
  bench.Wait(100);
  ASSERT_EQ(bench.Status(), 0x201);
  bench.machine->SetCause(Fault::kDoorOpen, true);
  EXPECT_EQ(bench.Status(), 0x201);
  EXPECT_EQ(bench.machine->NextSingleStep(), 1);
  bench.machine->SetCause(Fault::kDoorOpen, false);
  EXPECT_EQ(bench.machine->NextSingleStep(), 0);
  EXPECT_EQ(bench.machine->State().spindleDirection, 1);
}

TEST(MachineCauses, ASpindleThatNobodyNeedsStaysStoppedAfterTheDoor) {
  MachineBench bench;
  bench.Do(u"S100 M3");
  bench.machine->SetCause(Fault::kDoorOpen, true);
  bench.machine->SetCause(Fault::kDoorOpen, false);
  bench.Do(u"G0 X1");
  EXPECT_EQ(bench.machine->State().spindleDirection, 0) << "no block was in hand";
  bench.Do(u"S100 M3");
  bench.Send(u"G1 X10 F100");
  bench.Wait(100);
  bench.machine->SetCause(Fault::kDoorOpen, true);
  bench.machine->Cancel();
  bench.machine->SetCause(Fault::kDoorOpen, false);
  bench.Wait(1);
  bench.Do(u"G0 X1");
  EXPECT_EQ(bench.machine->State().spindleDirection, 0) << "the block was given up";
}

TEST(MachineCauses, AnInspectionOutlivesTheDoorAndItsBlocksDecideAboutTheSpindle) {
  MachineBench bench;
  bench.Do(u"S100 M3");
  bench.Send(u"G1 X10 F1000");
  bench.Wait(100);
  bench.machine->FeedHold(true);
  bench.machine->Inspection(true);
  bench.machine->SetCause(Fault::kDoorOpen, true);
  EXPECT_TRUE(bench.machine->State().inspecting);
  EXPECT_EQ(bench.machine->State().spindleDirection, 0);
  bench.machine->SetCause(Fault::kDoorOpen, false);
  bench.Do(u"S300");
  bench.Do(u"M4");
  bench.machine->Inspection(false);
  ASSERT_EQ(bench.Status(), 0x405);
  EXPECT_EQ(bench.machine->ClearFeedhold(), 0);
  EXPECT_EQ(bench.machine->State().spindleDirection, -1) << "what was programmed last";
  bench.Wait(5000);
  EXPECT_EQ(bench.At(0), 10);
}

TEST(MachineCauses, WhatTheBlocksOfAnInspectionDoNotNameComesBackAsTheDoorFoundIt) {
  const struct {
    TextView block;
    int direction;
    double speed;
    bool coolant;
  } rows[] = {{u"G0 X1", 1, 100, true}, {u"M8", 1, 100, true}, {u"M9", 1, 100, false}, {u"S300 M4", -1, 300, true}};
  for (const auto& row : rows) {
    SCOPED_TRACE(ToUtf8(row.block));
    MachineBench bench;
    bench.Do(u"S100 M3 M8");
    bench.Send(u"G1 X10 F1000");
    bench.Wait(100);
    bench.machine->FeedHold(true);
    bench.machine->Inspection(true);
    bench.machine->SetCause(Fault::kDoorOpen, true);
    bench.machine->SetCause(Fault::kDoorOpen, false);
    bench.Do(row.block);
    bench.machine->Inspection(false);
    EXPECT_EQ(bench.machine->ClearFeedhold(), 0);
    EXPECT_EQ(bench.machine->State().spindleDirection, row.direction);
    EXPECT_EQ(bench.machine->State().spindleSpeed, row.speed);
    EXPECT_EQ(bench.machine->State().coolant, row.coolant);
  }
}

TEST(MachineCauses, ALaterHoldDoesNotBringBackWhatTheDoorStoppedLongAgo) {
  for (const bool givenUp : {true, false}) {
    SCOPED_TRACE(givenUp ? "the block was given up" : "the program has ended since");
    MachineBench bench;
    bench.Do(u"S100 M3 M8 F100");
    bench.Send(u"G1 X10");
    bench.Wait(100);
    bench.machine->SetCause(Fault::kDoorOpen, true);
    bench.machine->SetCause(Fault::kDoorOpen, false);
    if (givenUp) {
      bench.machine->Cancel();
      bench.Wait(1);
    } else {
      EXPECT_EQ(bench.machine->ClearFeedhold(), 0);
      bench.Wait(60'000);
      bench.Do(u"M30");
    }
    EXPECT_EQ(bench.Send(u"G1 X20 F100"), 0);
    bench.machine->FeedHold(true);
    bench.machine->FeedHold(false);
    EXPECT_EQ(bench.machine->State().spindleDirection, 0);
    EXPECT_EQ(bench.machine->State().spindleSpeed, 0);
    EXPECT_FALSE(bench.machine->State().coolant);
  }
}

TEST(MachineCauses, TheStateNamesTheFrameAndARapid) {
  MachineBench bench;
  EXPECT_EQ(bench.machine->State().frame, u"G54");
  bench.Do(u"G55");
  EXPECT_EQ(bench.machine->State().frame, u"G55");
  bench.Send(u"G0 X100");
  EXPECT_TRUE(bench.machine->State().rapid);
  bench.Wait(60'000);
  EXPECT_FALSE(bench.machine->State().rapid);
  bench.Send(u"G1 X50 F1000");
  EXPECT_FALSE(bench.machine->State().rapid);
}

}  // namespace
}  // namespace pnl::test
