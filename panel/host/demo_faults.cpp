// SPDX-License-Identifier: MIT
#include "host/demo_faults.h"

#include <array>

namespace panel {
namespace {

using Fault = pnl::rig::MachineControl::Fault;

constexpr std::array kFaults = {
    DemoFault{Word::kFaultEmergencyStop, std::nullopt},        DemoFault{Word::kFaultDoor, Fault::kDoorOpen, true},
    DemoFault{Word::kFaultDriveWarning, Fault::kDriveWarning}, DemoFault{Word::kFaultDrive, Fault::kDriveFault, true},
    DemoFault{Word::kFaultBus, Fault::kBusFault, true},        DemoFault{Word::kFaultProgramLine, Fault::kProgramLine},
    DemoFault{Word::kFaultConfirm, Fault::kConfirm},           DemoFault{Word::kFaultFatal, Fault::kFatal, true},
};

}  // namespace

std::span<const DemoFault> DemoFaults() { return kFaults; }

}  // namespace panel
