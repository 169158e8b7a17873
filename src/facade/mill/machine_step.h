// SPDX-License-Identifier: MIT
// One step of a running block: functions, a move along a path, a dwell or a stop.
#pragma once

#include <cstdint>
#include <optional>

#include "facade/mill/machine_modal.h"
#include "facade/mill/machine_path.h"

namespace pnl::sim {

/// What a step of functions switches, all at once. A member without a value changes nothing.
struct Functions {
  std::optional<int> tool;  // the tool that is put into the spindle
  std::optional<Spindle> spindle;
  std::optional<bool> coolant;
  bool programEnd = false;  // restores the modal start values and stops spindle and coolant

  [[nodiscard]] bool Any() const { return tool || spindle || coolant || programEnd; }
};

struct Step {
  enum class Kind : std::uint8_t { kFunctions, kMove, kDwell, kStop };
  /// The effect of the feed override on the step: none, slower and faster, or only slower.
  enum class Pace : std::uint8_t { kFixed, kFeed, kRapid };
  Kind kind = Kind::kFunctions;
  Pace pace = Pace::kFixed;
  double duration = 0;  // ms at 100 percent
  double done = 0;      // the part of duration that is done
  Path path;
  Functions functions;
  int stopCode = 0;  // 0 for M0, 1 for M1
};

}  // namespace pnl::sim
