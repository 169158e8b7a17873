// SPDX-License-Identifier: MIT
// The calculator's life: the opening steps, the ways to close it, and what is saved when its window goes. After a
// closing nothing is asked of the window any more, and nothing reaches the host.
#pragma once

#include <memory>

#include "calc/calc_state.h"

namespace pnl::calc {

void Open(const std::shared_ptr<CalcState>& state);
/// With that code to the host (PnlCloseReason).
void Close(CalcState& state, int code);
void GoToMachining(CalcState& state);
std::intptr_t OnToolCommand(CalcState& state, std::intptr_t request);
/// Saves history and settings; a second call does nothing.
void OnDestroyed(CalcState& state);

}  // namespace pnl::calc
