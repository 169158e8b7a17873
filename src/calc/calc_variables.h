// SPDX-License-Identifier: MIT
// The list of variables over the keypad: those that aren't 0, and the accumulator; picking one writes its name.
#pragma once

#include "calc/calc_state.h"

namespace pnl::calc {

/// Opens the list (a history that is open closes with the line as it was), or closes it.
void ToggleVariables(CalcState& state);
/// Nothing happens when it isn't open.
void CloseVariables(CalcState& state);
/// The selected row's name goes to the caret, and the list closes; without a selection it stays open.
void PickVariable(CalcState& state);

}  // namespace pnl::calc
