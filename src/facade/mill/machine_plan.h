// SPDX-License-Identifier: MIT
// From what a block asks for to the steps that do it. Everything is checked here, against the machine as it stands, so
// that a plan that exists can run: nothing has moved and no modal state has changed when a fault comes back. Not the
// running itself (machine_run).
#pragma once

#include <cstdint>
#include <optional>
#include <variant>
#include <vector>

#include "facade/mill/machine_modal.h"
#include "facade/mill/machine_path.h"
#include "facade/mill/machine_request.h"

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

struct Plan {
  Modal after;              // holds from the moment the block is accepted
  std::vector<Step> steps;  // functions before the move, dwell or move, functions behind it, stop; each only if needed
};

[[nodiscard]] std::variant<Plan, Fault> PlanBlock(const Request& request, const Condition& condition);

/// A straight move at rapid speed, every axis arriving at the same time.
[[nodiscard]] Step RapidMove(const Point& from, const Point& to);

/// One line a step, then the modal codes: "move 100 mm 6000 ms to X100 Y0 Z0".
[[nodiscard]] Text Print(const Plan& plan);

}  // namespace pnl::sim
