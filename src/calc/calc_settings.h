// SPDX-License-Identifier: MIT
// "Calc7340.ini": where the window stands and whether it is compact, in two copies: the user's (path id 108) and the
// machine's (path id 52). Failures are silent.
#pragma once

#include "base/files.h"
#include "facade/utilities.h"

namespace pnl {

struct CalcSettings {
  int left = 0;  // of the window, in the parent's client area
  int top = 0;
  bool minimized = false;
  friend bool operator==(const CalcSettings&, const CalcSettings&) = default;
};

/// From the user's copy, while its drive can be used and it is there, else from the machine's; defaults without one.
[[nodiscard]] CalcSettings LoadCalcSettings(Files& files, Utilities& utilities);
/// Into both copies, the user's unless its drive can't be written. Everything else in the files stays, and so does a
/// file that is there but can't be read.
void SaveCalcSettings(Files& files, Utilities& utilities, const CalcSettings& settings);

}  // namespace pnl
