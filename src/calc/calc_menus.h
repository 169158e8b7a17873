// SPDX-License-Identifier: MIT
// The calculator's soft-key menu: loading it and handing its two parts to the bars, its bitmaps and check mark, and the
// commands that don't write to the line.
#pragma once

#include "calc/calc_state.h"

namespace pnl::calc {

/// Loads the menu, gives the bars their parts and brings them up to date.
void InstallMenus(CalcState& state);
void DestroyMenus(CalcState& state);
/// As a bar on the window, or away from it.
void AttachMenu(CalcState& state, bool attached);
void ResizeWindow(CalcState& state);
/// A command of the menus, or the id of a key.
void OnMenuCommand(CalcState& state, int id);

}  // namespace pnl::calc
