// SPDX-License-Identifier: MIT
// The simulated machines, by name: what stands behind the simulated kernel and what the operator's panel drives. Not
// the table of variables nor the error queue, which belong to the simulated CNC and are reached through the seam.
// Owned by that CNC; the environment must outlive the machine.
#pragma once

#include <memory>
#include <string_view>

#include "facade/sim/machine_seam.h"

namespace pnl::sim {

/// A machine of one channel, seen from the kernel and from the operator's panel.
class Machine : public KernelMachine, public rig::MachineControl {
 public:
  /// "es" for Spanish texts of its errors, anything else for English ones, from now on.
  virtual void SetLanguage(std::string_view code) = 0;
  /// How many grants of the interlock stand: those the panel hasn't given back and that of the block in hand.
  [[nodiscard]] virtual int InterlocksHeld() const = 0;
};

/// The machine of that name, its variables and error texts made; null for an unknown name. There is "demo", a mill with
/// the axes X, Y and Z and a spindle.
[[nodiscard]] std::unique_ptr<Machine> MakeMachine(std::string_view name, MachineEnvironment& environment);

}  // namespace pnl::sim
