// SPDX-License-Identifier: MIT
// The expression line: what buttons, commands and characters write to it, and what a change of it sets off.
#pragma once

#include "calc/calc_state.h"

namespace pnl::calc {

/// Replaces the line, with the caret at its end.
void WriteLine(CalcState& state, TextView text);
/// A key of the keypad, or a menu command that inserts; other ids do nothing.
void OnButton(CalcState& state, int id);
/// Puts a text at the caret, in the place of a selection.
void InsertText(CalcState& state, TextView text);
/// True for a character that is a command.
[[nodiscard]] bool OnCharacter(CalcState& state, char16_t character);
void OnLineChanged(CalcState& state);

}  // namespace pnl::calc
