// SPDX-License-Identifier: MIT
// The history list over the keypad: opening and closing it, its rows on the line, deleting rows; and how any list lies
// over the keypad.
#pragma once

#include "calc/calc_state.h"

namespace pnl::calc {

/// What stays on the line when the history closes: the selected row, or the line as it was when the list opened.
enum class CalcKeep { kSelectedRow, kSavedLine };

void OpenHistory(CalcState& state);
/// Nothing happens when it isn't open.
void CloseHistory(CalcState& state, CalcKeep keep);
/// Opens it, or closes it with the line as it was.
void ToggleHistory(CalcState& state);
/// The selected row goes to the line.
void ShowSelectedRow(CalcState& state);
/// With nothing selected the row that the keys are on becomes the selected one, and goes to the line; else false. So a
/// row that took the place of a deleted one isn't passed over.
[[nodiscard]] bool TakeCurrentRow(CalcState& state);
void DeleteSelectedRows(CalcState& state);

/// Puts that list over the keypad, or takes it away and shows the keypad again.
void LayOverKeypad(CalcState& state, int list, bool shown);

}  // namespace pnl::calc
