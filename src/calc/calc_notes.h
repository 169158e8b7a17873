// SPDX-License-Identifier: MIT
// The note beside the window: a value in all three bases, the parameters of the solvers, or the hint that a search
// stopped short of its tolerance. It follows the line and the variables; it changes nothing itself.
#pragma once

#include "calc/calc_state.h"

namespace pnl::calc {

/// Shows that note in the place of another; takes it away when it is there.
void ToggleNote(CalcState& state, CalcNote note);
void CloseNote(CalcState& state);
/// Brings the note up to date.
void RefreshNote(CalcState& state);
/// What a finished evaluation has to tell of its solver: a tolerance that wasn't reached brings the hint,
/// which goes with the next report or change of the line.
void TakeSolverReport(CalcState& state, const SolverReport& report);

}  // namespace pnl::calc
