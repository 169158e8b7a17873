// SPDX-License-Identifier: MIT
// The faults that the demo machine can show, as the panel offers them: one table from soft key to fault. It raises no
// fault itself.
#pragma once

#include <pnltools/rig.h>

#include <optional>
#include <span>

#include "common/words.h"

namespace panel {

struct DemoFault {
  Word word;
  std::optional<pnl::rig::MachineControl::Fault>
      fault;            // nothing: the emergency stop, which stays until it is released
  bool stands = false;  // its cause stands until it is ended
};

/// In the order of their soft keys.
[[nodiscard]] std::span<const DemoFault> DemoFaults();

}  // namespace panel
