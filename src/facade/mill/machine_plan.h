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
#include "facade/mill/machine_step.h"

namespace pnl::sim {

struct Plan {
  Modal after;              // holds from the moment the block is accepted
  std::vector<Step> steps;  // functions before the move, dwell or move, functions after it, stop; each only if needed
};

[[nodiscard]] std::variant<Plan, Fault> PlanBlock(const Request& request, const Condition& condition);

/// One line a step, then the modal codes: "move 100 mm 6000 ms to X100 Y0 Z0".
[[nodiscard]] Text Print(const Plan& plan);

}  // namespace pnl::sim
