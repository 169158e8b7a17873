// SPDX-License-Identifier: MIT
// The keys that the calculator takes ahead of its controls, as a table in the code: what each does with Ctrl, and what
// it does without in each state of the lists.
#pragma once

#include "calc/calc_session.h"
#include "calc/calc_state.h"

namespace pnl::calc {

/// True when there is nothing left to do for the focused control.
[[nodiscard]] bool OnKey(CalcState& state, CalcKey key, bool ctrl);

}  // namespace pnl::calc
