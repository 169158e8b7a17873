// SPDX-License-Identifier: MIT
// Confirming the line: what the = key, Enter and Insert do with it, and how a confirmation that takes long ends. The
// variables change only when one has ended, never on its way and never when it was cancelled.
#pragma once

#include "calc/calc_state.h"

namespace pnl::calc {

/// The line becomes value, result and a row of the history. A line that doesn't compile changes nothing.
void Confirm(CalcState& state);
/// Its evaluation has ended, at once or after a while.
void EndConfirm(CalcState& state);
/// Drops the running confirmation; the variables are as they were before it.
void CancelConfirm(CalcState& state);
void OnEnter(CalcState& state);
/// Confirms what is on the line, then hands the value over and closes.
void OnInsert(CalcState& state);
/// A value from outside replaces the line.
void TakeValue(CalcState& state);

}  // namespace pnl::calc
