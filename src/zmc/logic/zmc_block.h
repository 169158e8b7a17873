// SPDX-License-Identifier: MIT
// The block of program text that the machining calculator makes of its screen: tool call, feed, speed, DMC and remark,
// each line with a comment that says what it was computed for. On the way every value goes into its CNC variable.
// Knows no clipboard and no host: who asked for the block hands it on.
#pragma once

#include <functional>

#include "base/text.h"
#include "facade/variables.h"
#include "zmc/logic/zmc_fields.h"

namespace pnl {

struct ZmcBlockInput {
  const ZmcFields& fields;
  const ZmcChecks& checks;
  /// The name of the master spindle, which is the address of the speed.
  TextView spindleName;
  /// Whether DMC can be used; asked once, after the other variables are written.
  std::function<bool()> dmcUsable;
};

/// Returns the block, with CR LF after each line; empty if nothing is checked. A line break in a text of the screen
/// becomes a blank, so that no text of a data file can become a program line of its own. Writes the variables
/// "DM.ZMC."; one that can't be written is passed over.
[[nodiscard]] Text GenerateBlock(const ZmcBlockInput& input, Variables& variables);

}  // namespace pnl
