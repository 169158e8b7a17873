// SPDX-License-Identifier: MIT
// Turns a block's request into the steps that do it. Everything is checked here against the present state of the
// machine, so that every plan can run. When a fault is returned, nothing has moved and no modal state has changed.
// machine_run runs the plan.
#pragma once

#include <cstdint>
#include <optional>
#include <variant>
#include <vector>

#include "facade/mill/machine_modal.h"
#include "facade/mill/machine_path.h"
#include "facade/mill/machine_request.h"
#include "facade/mill/machine_step.h"

namespace pnl::sim {

struct Plan {
  Modal after;              // the modal state from the moment when the block is accepted
  std::vector<Step> steps;  // functions before the move, dwell or move, functions after it, stop; each only if needed
};

[[nodiscard]] std::variant<Plan, Fault> PlanBlock(const Request& request, const Condition& condition);

/// The plan as text: a line for each step, such as "line 100 mm 6000 ms to X100 Y0 Z0", then the modal codes.
[[nodiscard]] Text Print(const Plan& plan);

}  // namespace pnl::sim
