// SPDX-License-Identifier: MIT
// The operator's part in the machine: its keys, and what the panel says when a key does nothing.
#include <algorithm>

#include "host/machine_reasons.h"
#include "host/operator.h"

namespace panel {
namespace {

constexpr int kChannel = 1;
constexpr int kOverrideStep = 10;

}  // namespace

std::optional<Word> Operator::WhyNot(Action action) const {
  if (action == Action::kClearError) {
    return errors_.Standing() != 0 || errors_.ShowsHelp() ? std::nullopt : std::optional(Word::kNoErrorStands);
  }
  if (machine_ != nullptr) return ReasonAgainst(action, machine_->State());
  return NeedsMachine(action) ? std::optional(Word::kNoMachineHere) : std::nullopt;
}

bool Operator::Can(Action action) const {
  return action == Action::kFocusTool ? session_.FrontTool() >= 0 : !WhyNot(action);
}

std::optional<Word> Operator::StartNote() const { return NoteOnStart(Machine()); }

void Operator::DoMachine(Action action) {
  if (machine_ == nullptr) return;
  const auto state = machine_->State();
  switch (action) {
    case Action::kFeedHold:
      return FeedHold(state);
    case Action::kSingleBlock:
      return machine_->SingleBlock(!state.singleBlock);
    case Action::kCancel:
      return machine_->Cancel();
    case Action::kReset:
      // The queue is emptied first, because the reset raises again every error whose cause is still there.
      errors_.ClearAll();
      return machine_->Reset();
    case Action::kInspect:
      return Inspect(!state.inspecting);
    case Action::kOverrideDown:
      return machine_->FeedOverride(std::max(0, state.feedOverride - kOverrideStep));
    case Action::kOverrideUp:
      return machine_->FeedOverride(std::min(kOverrideMost, state.feedOverride + kOverrideStep));
    case Action::kOverrideFull:
      return machine_->FeedOverride(100);
    default:
      return;
  }
}

void Operator::FeedHold(const pnl::rig::MachineState& before) {
  // Not a toggle: a second press on the hold key must not set the axes moving. Only cycle start does that. The machine
  // gets every press, also one that the panel expects to do nothing.
  machine_->FeedHold(true);
  const auto why = WhyHoldDoesNothing(before);
  if (why) SetHint(Say(*why), false, [this, why] { return WhyHoldDoesNothing(Machine()) == why; });
}

void Operator::Inspect(bool on) {
  machine_->Inspection(on);
  if (!on && Machine().inspecting) {
    SetHint(Say(Word::kInspectionHasBlock), false, [this] { return Machine().inspecting; });
  }
}

void Operator::CycleStart() {
  const PnlWindow mdi = session_.ToolWindow(PNL_TOOL_MDI);
  const auto before = Machine();
  const bool atRest = IsAtRest(before);
  // A hidden command line still owns the block that it sent, so the start key must reach it.
  if (mdi == 0 || (atRest && !session_.IsToolOpen(PNL_TOOL_MDI))) {
    if (machine_ != nullptr && before.feedHold) return machine_->FeedHold(false);
    return SetHint(Say(Word::kNothingToStart), true, [this] { return !session_.IsToolOpen(PNL_TOOL_MDI); });
  }
  PnlCycleStart record{};
  record.channel = kChannel;
  const auto address = reinterpret_cast<intptr_t>(&record);
  const bool diverted =
      PnlSendMessage(mdi, PNL_MSG_CYCLE_START, PNL_START_QUERY, address) == PNL_START_DURING_INSPECTION;
  if (diverted) SetHint(Say(Word::kStartInInspection), false, [this] { return Machine().inspecting; });
  const int errors = errors_.Standing();
  PnlSendMessage(mdi, PNL_MSG_CYCLE_START, PNL_START_KEY, address);
  if (!diverted) return TellStart(before, errors);
  // The machine answers first, with a report that is on its way to the command line.
  QMetaObject::invokeMethod(
      this,
      [this, before, errors] {
        if (hint_.text == Say(Word::kStartInInspection)) TellStart(before, errors);
      },
      Qt::QueuedConnection);
}

void Operator::TellStart(const pnl::rig::MachineState& before, int errors) {
  // The error window tells why the machine has refused a block.
  if (machine_ == nullptr || errors_.Standing() != errors) return;
  const auto why = WhyStartDidNothing(before, Machine());
  if (!why) return;
  SetHint(Say(*why), *why == Word::kFeedIsZero,
          [this, before, why] { return WhyStartDidNothing(before, Machine()) == why; });
}

bool Operator::Stands(pnl::rig::MachineFault fault) const {
  const auto causes = Machine().causes;
  return std::find(causes.begin(), causes.end(), fault) != causes.end();
}

void Operator::RaiseFault(const DemoFault& fault, const std::optional<pnl::rig::ProgramSpot>& spot) {
  hint_ = {};
  Touch();
  if (machine_ == nullptr) return SetHint(Say(Word::kNoMachineHere), true);
  if (!fault.fault) {
    return machine_->EmergencyStop(!EmergencyStop());
  }
  if (fault.stands) return machine_->SetCause(*fault.fault, !Stands(*fault.fault));
  const bool ofProgram = *fault.fault == pnl::rig::MachineControl::Fault::kProgramLine;
  if (ofProgram && !spot) return SetHint(Say(Word::kFaultNeedsProgram), true);
  machine_->Raise(*fault.fault, spot.value_or(pnl::rig::ProgramSpot{}));
}

}  // namespace panel
