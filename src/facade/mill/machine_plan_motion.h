// SPDX-License-Identifier: MIT
// Plans the move of a block: where it ends, along which path, and how long it takes. A part of machine_plan with the
// checks of geometry; nothing else plans moves. RapidMove serves machine_demo too.
#pragma once

#include <optional>
#include <variant>

#include "facade/mill/machine_fault.h"
#include "facade/mill/machine_modal.h"
#include "facade/mill/machine_request.h"
#include "facade/mill/machine_step.h"

namespace pnl::sim {

/// A block's words, and the modal state and the spindle during its move.
struct MotionInput {
  const Request& request;
  const Modal& modal;
  const Spindle& spindle;
  const Point& from;
  Point offset;  // from workpiece to machine coordinates
  double unit;   // mm in one unit of the block's lengths
};

/// Returns the step of the move, nothing when the block moves no axis, or the fault.
[[nodiscard]] std::variant<std::optional<Step>, Fault> PlanMove(const MotionInput& input);

/// Makes a straight move at rapid speed. All axes arrive at the same time.
[[nodiscard]] Step RapidMove(const Point& from, const Point& to);

}  // namespace pnl::sim
