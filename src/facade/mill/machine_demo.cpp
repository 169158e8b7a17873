// SPDX-License-Identifier: MIT
#include "facade/mill/machine_demo.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "facade/mill/machine_plan_motion.h"
#include "facade/mill/machine_tools.h"
#include "facade/mill/machine_variables.h"

namespace pnl::sim {

namespace {

constexpr int kDisplayPeriod = 40;
/// An end that is later than a whole millisecond by less than this counts as that millisecond.
constexpr double kEndTolerance = 1e-3;
/// A longer wait is split into parts.
constexpr double kLongestWait = 1e9;

struct NamedKind {
  std::string_view name;
  MachineKind kind;
};
constexpr NamedKind kNames[] = {
    {"demo", MachineKind::kMill},
    {"demo-dual", MachineKind::kMillTurn},
    {"demo-inch", MachineKind::kInchMill},
};

}  // namespace

DemoMachine::DemoMachine(MachineEnvironment& environment, MachineKind kind)
    : environment_(environment), display_(environment.Clock()), end_(environment.Clock()) {
  condition_.measure = MeasureOf(kind);
  condition_.modal = StartModal(condition_.measure);
  DefineMachineVariables(environment_, kind);
  DefineMachineTools(environment_, condition_.measure);
  DemoMachine::SetLanguage("en");
}

double DemoMachine::Now() const { return static_cast<double>(environment_.Clock().Now()); }

Point DemoMachine::Here() const {
  if (!task_ || task_->comeBack) return condition_.position;
  return task_->run.Position(Now()).value_or(condition_.position);
}

bool DemoMachine::Interrupted() const {
  return task_ && task_->halt != Halt::kNone && task_->halt != Halt::kSingleStep;
}

int DemoMachine::FullStatus() const {
  if (aborting_) return 0x800;
  if (!task_) return 0x100;
  switch (task_->halt) {
    case Halt::kSingleStep:
      return 0x201;
    case Halt::kFeedHold:
      return 0x405;
    case Halt::kStop:
      return 0x404;
    case Halt::kOptionalStop:
      return 0x406;
    case Halt::kNone:
      break;
  }
  return 0x200;
}

/// Ends every step that is due by now.
void DemoMachine::Work() {
  aborting_ = false;
  while (task_ && task_->halt == Halt::kNone) {
    const std::optional<double> end = task_->run.StepEnd();
    if (!end || *end > Now() + kEndTolerance) break;
    if (task_->run.Over()) {
      task_.reset();
    } else {
      EndStep();
    }
  }
  Publish();
}

void DemoMachine::EndStep() {
  const Step step = task_->run.Current();
  if (step.kind == Step::Kind::kMove) condition_.position = step.path.to;
  if (step.kind == Step::Kind::kFunctions) Apply(step.functions);
  const double end = task_->run.Next();
  if (step.kind == Step::Kind::kStop) {
    HaltAt(step.stopCode == 0 ? Halt::kStop : Halt::kOptionalStop, end);
  } else if (singleBlock_ && !task_->run.Over() && task_->run.Current().kind != Step::Kind::kStop) {
    // No halt before a stop step, which halts by itself: one start key is enough for both.
    HaltAt(Halt::kSingleStep, end);
  }
}

void DemoMachine::Apply(const Functions& functions) {
  if (functions.tool) condition_.tool = *functions.tool;
  if (functions.spindle) condition_.spindle = *functions.spindle;
  if (functions.coolant) condition_.coolant = *functions.coolant;
  // What a block asks of them now is newer than what the door has stopped.
  if (stopped_ && functions.spindle) stopped_->spindle = *functions.spindle;
  if (stopped_ && functions.coolant) stopped_->coolant = *functions.coolant;
  if (!functions.programEnd) return;
  StopSpindleAndCoolant();
  ResetModal();
}

/// The tool that T has chosen stays.
void DemoMachine::ResetModal() {
  Modal start = StartModal(condition_.measure);
  start.nextTool = condition_.modal.nextTool;
  condition_.modal = start;
}

void DemoMachine::StopSpindleAndCoolant() {
  condition_.spindle = {};
  condition_.coolant = false;
}

void DemoMachine::HaltAt(Halt halt, double when) {
  task_->halt = halt;
  task_->run.Hold(when);
}

void DemoMachine::Release() {
  if (task_->comeBack) {
    const Point here = condition_.position;
    if (here != *task_->comeBack) task_->run.Insert(RapidMove(here, *task_->comeBack));
    task_->comeBack.reset();
  }
  if (stopped_) {
    condition_.spindle = stopped_->spindle;
    condition_.coolant = stopped_->coolant;
    stopped_.reset();
  }
  task_->halt = Halt::kNone;
  task_->run.Release(Now());
  Publish();
}

void DemoMachine::Abort(bool parked) {
  const bool any = task_ || (parked && parked_);
  condition_.position = Here();
  task_.reset();
  if (parked) {
    parked_.reset();
    if (std::exchange(inspecting_, false)) SetInt(machine_variable::kInspection, 0);
  }
  if (!parked_) stopped_.reset();
  if (any) aborting_ = true;
  Publish();
}

void DemoMachine::EndInspection() {
  inspecting_ = false;
  task_ = std::exchange(parked_, std::nullopt);
  SetInt(machine_variable::kInspection, 0);
  Publish();
}

void DemoMachine::Publish() {
  Arm();
  ShowPositions();
  const int status = FullStatus();
  if (std::exchange(status_, status) != status) {
    // Set the short status first, because who gets the report of the full one may read both. A watcher may change
    // status_ in between.
    SetInt(machine_variable::kStatus, status_ >> 8);
    SetInt(machine_variable::kFullStatus, status_);
  }
  Changed();
}

void DemoMachine::Arm() {
  const bool runs = task_ && task_->halt == Halt::kNone;
  std::optional<double> end;
  if (aborting_) {
    end = Now();
  } else if (runs) {
    end = task_->run.StepEnd();
  }
  end_.Stop();
  if (end) {
    const double wait = std::clamp(std::ceil(*end - Now() - kEndTolerance), 1.0, kLongestWait);
    end_.StartOnce(static_cast<int>(wait), [this] { Work(); });
  }
  if (!runs || !task_->run.Moves()) {
    display_.Stop();
  } else if (!display_.IsRunning()) {
    display_.Start(kDisplayPeriod, [this] {
      ShowPositions();
      Changed();
    });
  }
}

void DemoMachine::ShowPositions() {
  const Point here = Here();
  const Point offset = WorkOffset(condition_.modal, condition_.tool);
  for (std::size_t axis = 0; axis < kAxisCount; ++axis) {
    const double value = here[axis] - offset[axis];
    if (std::exchange(shown_[axis], value) != value) {
      environment_.Set(machine_variable::kPositions[axis], value);
    }
  }
}

/// Every operation calls this last, because the panel may call the machine again.
void DemoMachine::Changed() const {
  if (const auto changed = changed_) changed();
}

std::unique_ptr<Machine> MakeMachine(std::string_view name, MachineEnvironment& environment) {
  for (const NamedKind& named : kNames) {
    if (named.name == name) return std::make_unique<DemoMachine>(environment, named.kind);
  }
  return nullptr;
}

}  // namespace pnl::sim
