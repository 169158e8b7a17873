// SPDX-License-Identifier: MIT
// The simulated machines by name. A machine runs blocks for the simulated kernel and has an operator's panel. The table
// of variables and the error queue belong to the simulated CNC; a machine reaches them through the seam. The caller
// owns the machine; the environment must outlive it.
#pragma once

#include <memory>
#include <string_view>

#include "facade/sim/machine_seam.h"

namespace pnl::sim {

/// A machine of one channel, seen from the kernel and from the operator's panel.
class Machine : public KernelMachine, public rig::MachineControl {
 public:
  /// Sets the language of its error texts and PLC messages from now on: Spanish for a code that begins with "es",
  /// English for any other.
  virtual void SetLanguage(std::string_view code) = 0;
  /// How many grants of the interlock are open: those that the panel hasn't given back, and those of the running and
  /// the parked block.
  [[nodiscard]] virtual int InterlocksHeld() const = 0;
};

/// Makes the machine of that name, with its variables, tools and error texts. Returns null for an unknown name. All are
/// mills with the axes X, Y and Z and a spindle: "demo", "demo-dual", which turns too, and "demo-inch".
[[nodiscard]] std::unique_ptr<Machine> MakeMachine(std::string_view name, MachineEnvironment& environment);

}  // namespace pnl::sim
