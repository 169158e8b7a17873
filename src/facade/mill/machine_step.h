// SPDX-License-Identifier: MIT
// One step of a block that runs: functions, a move along a path, a dwell or a stop.
#pragma once

#include <cstdint>
#include <optional>

#include "facade/mill/machine_modal.h"
#include "facade/mill/machine_path.h"

namespace pnl::sim {

/// What a functions step switches, all at once; what isn't set stays.
struct Functions {
  std::optional<int> tool;  // put into the spindle
  std::optional<Spindle> spindle;
  std::optional<bool> coolant;
  bool programEnd = false;  // modal start values, spindle and coolant off

  [[nodiscard]] bool Any() const { return tool || spindle || coolant || programEnd; }
};

struct Step {
  enum class Kind : std::uint8_t { kFunctions, kMove, kDwell, kStop };
  /// What the feed override does to the step: nothing, slow down and speed up, or only slow down.
  enum class Pace : std::uint8_t { kFixed, kFeed, kRapid };
  Kind kind = Kind::kFunctions;
  Pace pace = Pace::kFixed;
  double duration = 0;  // ms at 100 percent
  double done = 0;      // of it
  Path path;
  Functions functions;
  int stopCode = 0;  // 0 or 1, as M0 and M1
};

}  // namespace pnl::sim
