// SPDX-License-Identifier: MIT
// "Calc7340.ini": where the window stands and whether it is compact, in two copies: the user's (path id 108) and the
// machine's (path id 52). What can't be read is the default, silently.
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

inline constexpr TextView kCalcIniName = u"Calc7340.ini";

struct CalcSettingsRead {
  CalcSettings settings;
  /// The user's copy couldn't be looked at, so that it may hold others.
  bool usersUnknown = false;
};

/// From the user's copy, while its drive can be used and it is there, else from the machine's; defaults without one.
[[nodiscard]] CalcSettingsRead LoadCalcSettings(Files& files, Utilities& utilities);
/// Into both copies, the user's unless its drive can't be written. Everything else in the files stays, and so does a
/// file that is there but can't be read. What the session left as it was loaded isn't written over the user's copy if
/// that couldn't be looked at then. False when the copy that will be read first couldn't be written.
[[nodiscard]] bool SaveCalcSettings(Files& files, Utilities& utilities, const CalcSettings& settings,
                                    const CalcSettingsRead& loaded);

}  // namespace pnl
