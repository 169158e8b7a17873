// SPDX-License-Identifier: MIT
// The move of a block: where it ends, along which path, how long it takes. A part of machine_plan, apart because
// geometry has checks of its own; nothing else uses it.
#pragma once

#include <optional>
#include <variant>

#include "facade/mill/machine_fault.h"
#include "facade/mill/machine_modal.h"
#include "facade/mill/machine_request.h"
#include "facade/mill/machine_step.h"

namespace pnl::sim {

/// A block's words with the modal state and spindle that hold during its move.
struct MotionInput {
  const Request& request;
  const Modal& modal;
  const Spindle& spindle;
  const Point& from;
  Point offset;  // of the workpiece
  double unit;   // mm in one unit of the block's lengths
};

/// Nothing when the block moves no axis.
[[nodiscard]] std::variant<std::optional<Step>, Fault> PlanMove(const MotionInput& input);

/// A straight move at rapid speed, every axis arriving at the same time.
[[nodiscard]] Step RapidMove(const Point& from, const Point& to);

}  // namespace pnl::sim
