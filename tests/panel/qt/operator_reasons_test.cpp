// SPDX-License-Identifier: MIT
// What the panel says when a key of the machine is dim, and when a press has done nothing.
#include "host/machine_reasons.h"

#include "panel/qt/host_rig.h"

namespace panel {
namespace {

using State = pnl::rig::MachineState;
using pnl::rig::MachineFault;

void AsItIs(State&) {}
void Stopped(State& s) { s.emergencyStop = true; }
template <int kPercent>
void Override(State& s) {
  s.feedOverride = kPercent;
}
template <MachineFault kFault>
void Cause(State& s) {
  s.causes = {kFault};
}

struct DimRow {
  Action action;
  void (*given)(State&);
  Word reason;
};

class DimKeys : public HostFixture, public ::testing::WithParamInterface<DimRow> {};

TEST_P(DimKeys, SayWhyWhenTheyArePressed) {
  const State able = rig.machine.state;
  GetParam().given(rig.machine.state);
  EXPECT_FALSE(op.Can(GetParam().action));
  EXPECT_EQ(op.WhyNot(GetParam().action), GetParam().reason);
  op.Do(GetParam().action);
  EXPECT_EQ(Calls(), "") << "the machine hears nothing of it";
  EXPECT_EQ(Hint(), Warning(GetParam().reason));
  Settle();
  rig.machine.state = able;
  rig.machine.state.channelStatus = 4;
  rig.queue = {12};
  rig.machine.changed();
  Settle();
  EXPECT_EQ(op.Can(GetParam().action), GetParam().action != Action::kOverrideFull);
  EXPECT_EQ(Hint(), op.Can(GetParam().action) ? "" : Warning(GetParam().reason)) << "said as long as it is true";
}

INSTANTIATE_TEST_SUITE_P(
    All, DimKeys,
    ::testing::Values(DimRow{Action::kCycleStart, Stopped, Word::kReleaseEmergencyStop},
                      DimRow{Action::kCycleStart, Cause<MachineFault::kDoorOpen>, Word::kCloseDoor},
                      DimRow{Action::kCycleStart, Cause<MachineFault::kDriveFault>, Word::kDriveIsOff},
                      DimRow{Action::kCycleStart, Cause<MachineFault::kBusFault>, Word::kBusIsDown},
                      DimRow{Action::kCycleStart, Cause<MachineFault::kFatal>, Word::kControlIsDown},
                      DimRow{Action::kCancel, AsItIs, Word::kNothingInterrupted},
                      DimRow{Action::kInspect, AsItIs, Word::kNothingInterrupted},
                      DimRow{Action::kOverrideDown, Override<0>, Word::kOverrideLowest},
                      DimRow{Action::kOverrideUp, Override<200>, Word::kOverrideHighest},
                      DimRow{Action::kOverrideFull, Override<100>, Word::kOverrideIsFull},
                      DimRow{Action::kClearError, AsItIs, Word::kNoErrorStands}));

TEST_F(HostFixture, OfSeveralCausesTheGravestIsSaidAndItsNoteStandsOnTheKey) {
  State& state = rig.machine.state;
  EXPECT_EQ(op.StartNote(), std::nullopt);
  state.causes = {MachineFault::kDoorOpen};
  EXPECT_EQ(op.StartNote(), Word::kDoorNote);
  state.causes = {MachineFault::kDoorOpen, MachineFault::kBusFault};
  EXPECT_EQ(op.WhyNot(Action::kCycleStart), Word::kBusIsDown);
  EXPECT_EQ(op.StartNote(), Word::kFaultNote);
  state.causes = {MachineFault::kDoorOpen, MachineFault::kDriveFault, MachineFault::kBusFault};
  EXPECT_EQ(op.WhyNot(Action::kCycleStart), Word::kDriveIsOff);
  state.causes.push_back(MachineFault::kFatal);
  EXPECT_EQ(op.WhyNot(Action::kCycleStart), Word::kControlIsDown);
  state.emergencyStop = true;
  EXPECT_EQ(op.WhyNot(Action::kCycleStart), Word::kReleaseEmergencyStop);
  EXPECT_EQ(op.StartNote(), Word::kStoppedNote);
}

struct HoldRow {
  int status;
  int detail;
  bool held;
  std::optional<Word> said;
};

TEST_F(HostFixture, AHoldThatStopsNothingSaysWhyAndReachesTheMachineAllTheSame) {
  const HoldRow rows[] = {{1, 0, false, Word::kNothingToHold}, {8, 0, false, Word::kNothingToHold},
                          {0, 0, false, Word::kNothingToHold}, {2, 0, false, std::nullopt},
                          {2, 1, false, Word::kStepWaits},     {4, 4, false, Word::kInterruptedAlready},
                          {4, 5, true, Word::kHeldAlready}};
  for (const HoldRow& row : rows) {
    State& state = rig.machine.state;
    state.channelStatus = row.status;
    state.channelDetail = row.detail;
    state.feedHold = row.held;
    op.Do(Action::kFeedHold);
    EXPECT_EQ(Calls(), "FeedHold 1");
    EXPECT_EQ(Hint(), row.said ? Say(*row.said) : QString()) << row.status << ", " << row.detail;
    Settle();
    EXPECT_EQ(Hint(), row.said ? Say(*row.said) : QString()) << "said as long as it is true";
  }
  Settle();
  rig.machine.state.channelStatus = 2;
  rig.machine.state.feedHold = false;
  rig.machine.changed();
  Settle();
  EXPECT_EQ(Hint(), "") << "it is no longer true";
}

TEST_F(HostFixture, AnInspectionThatDoesNotEndSaysWhy) {
  rig.machine.state.inspecting = true;
  op.Do(Action::kInspect);
  EXPECT_EQ(Calls(), "Inspection 0");
  EXPECT_EQ(Hint(), Say(Word::kInspectionHasBlock));
  Settle();
  EXPECT_EQ(Hint(), Say(Word::kInspectionHasBlock));
  rig.machine.state.inspecting = false;
  rig.machine.changed();
  Settle();
  EXPECT_EQ(Hint(), "") << "it has ended";
}

struct StartRow {
  int before;
  int detail;
  int after;
  int percent;
  std::optional<Word> said;
};

TEST(StartReasons, TellWhatKeepsThingsFromMovingAndNothingElse) {
  const StartRow rows[] = {
      {1, 0, 1, 100, Word::kLineIsEmpty}, {8, 0, 1, 100, Word::kLineIsEmpty}, {1, 0, 2, 100, std::nullopt},
      {1, 0, 2, 0, Word::kFeedIsZero},    {2, 0, 2, 0, Word::kFeedIsZero},    {2, 0, 2, 100, Word::kRunsAlready},
      {2, 1, 2, 100, std::nullopt},       {4, 5, 2, 100, std::nullopt},       {4, 5, 2, 0, Word::kFeedIsZero},
      {4, 4, 4, 100, std::nullopt},       {2, 1, 1, 100, std::nullopt},       {1, 0, 4, 0, std::nullopt},
  };
  for (const StartRow& row : rows) {
    State before;
    before.channelStatus = row.before;
    before.channelDetail = row.detail;
    State after;
    after.channelStatus = row.after;
    after.feedOverride = row.percent;
    EXPECT_EQ(WhyStartDidNothing(before, after), row.said) << row.before << "." << row.detail << " -> " << row.after;
  }
}

}  // namespace
}  // namespace panel
