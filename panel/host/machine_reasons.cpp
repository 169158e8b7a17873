// SPDX-License-Identifier: MIT
#include "host/machine_reasons.h"

#include <algorithm>

namespace panel {
namespace {

using pnl::rig::MachineFault;
using pnl::rig::MachineState;

constexpr int kRunning = 2;
constexpr int kInterrupted = 4;
constexpr int kBetweenSteps = 1;  // the detail of a running block that waits in single block

/// A cause that stands, as the message line and the start key say it. The first row that applies is said.
struct CauseRow {
  bool (*stands)(const MachineState&);
  Word reason;
  Word note;
};

template <MachineFault kFault>
bool Stands(const MachineState& state) {
  return std::find(state.causes.begin(), state.causes.end(), kFault) != state.causes.end();
}

constexpr CauseRow kCauses[] = {
    {[](const MachineState& state) { return state.emergencyStop; }, Word::kReleaseEmergencyStop, Word::kStoppedNote},
    {&Stands<MachineFault::kFatal>, Word::kControlIsDown, Word::kFaultNote},
    {&Stands<MachineFault::kDriveFault>, Word::kDriveIsOff, Word::kFaultNote},
    {&Stands<MachineFault::kBusFault>, Word::kBusIsDown, Word::kFaultNote},
    {&Stands<MachineFault::kDoorOpen>, Word::kCloseDoor, Word::kDoorNote},
};

const CauseRow* CauseOf(const MachineState& state) {
  const auto* row =
      std::find_if(std::begin(kCauses), std::end(kCauses), [&state](const CauseRow& one) { return one.stands(state); });
  return row == std::end(kCauses) ? nullptr : row;
}

std::optional<Word> Unless(bool possible, Word reason) { return possible ? std::nullopt : std::optional(reason); }

}  // namespace

bool NeedsMachine(Action action) {
  switch (action) {
    case Action::kFeedHold:
    case Action::kSingleBlock:
    case Action::kReset:
    case Action::kCancel:
    case Action::kInspect:
    case Action::kOverrideDown:
    case Action::kOverrideUp:
    case Action::kOverrideFull:
      return true;
    default:
      return false;
  }
}

std::optional<Word> ReasonAgainst(Action action, const MachineState& state) {
  const bool interrupted = state.channelStatus == kInterrupted;
  switch (action) {
    case Action::kCycleStart: {
      const CauseRow* cause = CauseOf(state);
      return cause == nullptr ? std::nullopt : std::optional(cause->reason);
    }
    case Action::kCancel:
      return Unless(interrupted, Word::kNothingInterrupted);
    case Action::kInspect:
      return Unless(interrupted || state.inspecting, Word::kNothingInterrupted);
    case Action::kOverrideDown:
      return Unless(state.feedOverride > 0, Word::kOverrideLowest);
    case Action::kOverrideUp:
      return Unless(state.feedOverride < kOverrideMost, Word::kOverrideHighest);
    case Action::kOverrideFull:
      return Unless(state.feedOverride != 100, Word::kOverrideIsFull);
    default:
      return std::nullopt;
  }
}

std::optional<Word> NoteOnStart(const MachineState& state) {
  const CauseRow* cause = CauseOf(state);
  return cause == nullptr ? std::nullopt : std::optional(cause->note);
}

bool IsAtRest(const MachineState& state) {
  return state.channelStatus != kRunning && state.channelStatus != kInterrupted;
}

std::optional<Word> WhyHoldDoesNothing(const MachineState& state) {
  if (IsAtRest(state)) return Word::kNothingToHold;
  if (state.feedHold) return Word::kHeldAlready;
  if (state.channelStatus == kInterrupted) return Word::kInterruptedAlready;
  return Unless(state.channelDetail != kBetweenSteps, Word::kStepWaits);
}

std::optional<Word> WhyStartDidNothing(const MachineState& before, const MachineState& after) {
  if (IsAtRest(after)) return Unless(!IsAtRest(before), Word::kLineIsEmpty);
  if (after.channelStatus != kRunning) return std::nullopt;
  if (after.feedOverride == 0) return Word::kFeedIsZero;
  const bool ranBefore = before.channelStatus == kRunning && before.channelDetail != kBetweenSteps;
  return Unless(!ranBefore, Word::kRunsAlready);
}

}  // namespace panel
