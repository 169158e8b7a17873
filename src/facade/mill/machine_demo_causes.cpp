// SPDX-License-Identifier: MIT
// What stops the mill until it is mended: the emergency stop, and the causes of its faults.
#include "facade/mill/machine_demo.h"
#include "facade/mill/machine_raised.h"

namespace pnl::sim {

void DemoMachine::EmergencyStop(bool on) {
  if (on == emergency_) return;
  emergency_ = on;
  if (on) {
    PushFault({FaultCode::kEmergencyStop, {}, 0, 0}, {});
    StopSpindleAndCoolant();
    Abort(true);
  } else {
    Changed();
  }
}

void DemoMachine::Raise(MachineControl::Fault fault, const rig::ProgramSpot& spot) {
  environment_.PushError(MakeRaisedRecord(fault, spot));
}

void DemoMachine::SetCause(MachineControl::Fault fault, bool stands) {
  if (!HasCause(fault)) return;
  if (!stands) {
    if (causes_.erase(fault) != 0) Changed();
    return;
  }
  if (!causes_.insert(fault).second) return;
  Raise(fault, {});
  if (fault == MachineControl::Fault::kDoorOpen) {
    StopForDoor();
  } else {
    StopSpindleAndCoolant();
    Abort(true);
  }
}

/// Raises the error of everything that stands.
void DemoMachine::RaiseCauses() {
  if (emergency_) PushFault({FaultCode::kEmergencyStop, {}, 0, 0}, {});
  // A watcher of the queue may end a cause meanwhile.
  for (const MachineControl::Fault fault : std::set(causes_)) Raise(fault, {});
}

void DemoMachine::StopForDoor() {
  if (task_ && task_->halt == Halt::kNone) HaltAt(Halt::kFeedHold, Now());
  if ((task_ || parked_) && !stopped_) stopped_ = Stopped{condition_.spindle, condition_.coolant};
  StopSpindleAndCoolant();
  Publish();
}

}  // namespace pnl::sim
