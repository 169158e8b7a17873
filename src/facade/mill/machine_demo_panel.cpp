// SPDX-License-Identifier: MIT
#include <algorithm>
#include <utility>

#include "facade/mill/machine_demo.h"
#include "facade/mill/machine_messages.h"
#include "facade/mill/machine_variables.h"

namespace pnl::sim {

namespace {
constexpr int kHighestOverride = 200;
}

rig::MachineState DemoMachine::State() const {
  const Modal& modal = condition_.modal;
  const Point here = Here();
  const Point offset = WorkOffset(modal, condition_.tool);
  const bool move = task_ && !task_->run.Over() && task_->run.Current().kind == Step::Kind::kMove;
  rig::MachineState state;
  for (std::size_t axis = 0; axis < kAxisCount; ++axis) {
    const double toGo = move ? task_->run.Current().path.to[axis] - here[axis] : 0;
    state.axes.push_back({Text(1, kAxes[axis].name), here[axis] - offset[axis], here[axis], toGo});
  }
  const double unit = modal.units == 20 ? kInch : 1;
  state.inches = modal.units == 20;
  state.feedPerRevolution = modal.feedMode == 95;
  state.cuttingSpeed = modal.speedMode == 96;
  state.feed = task_ ? task_->run.Feed() : 0;
  state.rapid = move && task_->run.Current().pace == Step::Pace::kRapid;
  state.programmedFeed = (modal.feedMode == 95 ? modal.feedPerRevolution : modal.feedPerMinute) / unit;
  state.feedOverride = percent_;
  state.spindleSpeed = condition_.spindle.speed;
  state.programmedSpeed = modal.speedMode == 96 ? modal.cuttingSpeed / (modal.units == 20 ? kFoot : 1) : modal.speed;
  state.spindleDirection = condition_.spindle.direction;
  state.tool = condition_.tool;
  state.channelStatus = FullStatus() >> 8;
  state.channelDetail = FullStatus() & 0xFF;
  state.feedHold = task_ && task_->halt == Halt::kFeedHold;
  state.singleBlock = singleBlock_;
  state.inspecting = inspecting_;
  state.coolant = condition_.coolant;
  state.emergencyStop = emergency_;
  state.causes.assign(causes_.begin(), causes_.end());
  if (task_) state.block = task_->run.Block();
  state.gCodes = GCodes(modal);
  state.frame = FrameOf(modal);
  return state;
}

void DemoMachine::OnChanged(std::function<void()> changed) { changed_ = std::move(changed); }

void DemoMachine::FeedHold(bool on) {
  if (!on) {
    if (!MayNotGoOn() && task_ && task_->halt == Halt::kFeedHold) Release();
  } else if (task_ && task_->halt == Halt::kNone) {
    HaltAt(Halt::kFeedHold, Now());
    Publish();
  }
}

void DemoMachine::FeedOverride(int percent) {
  percent_ = std::clamp(percent, 0, kHighestOverride);
  if (task_) task_->run.SetOverride(Now(), percent_);
  if (parked_) parked_->run.SetOverride(Now(), percent_);
  Publish();
}

void DemoMachine::SingleBlock(bool on) {
  singleBlock_ = on;
  Changed();
}

void DemoMachine::Cancel() { MDICancel(1); }

void DemoMachine::Reset() {
  StopSpindleAndCoolant();
  ResetModal();
  // A reset doesn't end a cause.
  RaiseCauses();
  Abort(true);
}

void DemoMachine::Inspection(bool on) {
  if (on && !inspecting_ && Interrupted()) {
    condition_.position = Here();
    if (!task_->comeBack) task_->comeBack = condition_.position;
    parked_ = std::exchange(task_, std::nullopt);
    inspecting_ = true;
    // An old start request would start a block without the key.
    SetInt(machine_variable::kStartOnMdi, 0);
    SetInt(machine_variable::kInspection, 1);
    Publish();
  } else if (!on && inspecting_) {
    if (task_ || aborting_) {
      SetInt(machine_variable::kInspection, 1);
    } else {
      EndInspection();
    }
  }
}

std::vector<rig::MachineControl::PlcMessage> DemoMachine::PlcMessages() const {
  const bool spanish = language_ == MachineLanguage::kSpanish;
  std::vector<MachineControl::PlcMessage> messages;
  for (const sim::PlcMessage& message : sim::PlcMessages()) {
    messages.push_back({CodeOf(message), Text(spanish ? message.spanish : message.english)});
  }
  return messages;
}

void DemoMachine::RaisePlcMessage(std::uint32_t code) {
  environment_.Set(machine_variable::kPlcMessage, static_cast<std::int64_t>(code));
}

void DemoMachine::ManualMode(bool on) {
  if (mdi_) return;
  SetInt(machine_variable::kManualMode, on ? 1 : 0);
  Changed();
}

}  // namespace pnl::sim
