// SPDX-License-Identifier: MIT
// Previews of the line and of a selection, and the pieces in which any evaluation runs. A preview works on a copy of
// the variables, so it leaves nothing behind but words on the status line.
#pragma once

#include "calc/calc_state.h"

namespace pnl::calc {

/// The line as a terminated text: up to a NUL, if one got in.
[[nodiscard]] Text LineText(CalcState& state);

void PreviewLine(CalcState& state);
/// The selection if there is one, else the line.
void RefreshPreview(CalcState& state);
/// The timer's tick: a selection that changed since the last one is previewed.
void CompareSelection(CalcState& state);

/// Makes the first pieces of an evaluation at once: true when that was all of it, else it runs on as that task.
[[nodiscard]] bool StartWork(CalcState& state, std::unique_ptr<CalcWork> work, CalcTask task);
/// Whatever runs, runs no more.
void DropWork(CalcState& state);
/// One more piece of a preview or a confirmation.
void ContinueWork(CalcState& state);

}  // namespace pnl::calc
