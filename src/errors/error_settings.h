// SPDX-License-Identifier: MIT
// Reads from "errman.ini" how the error window looks and which errors stay hidden. error_geometry reads the place of
// the window.
#pragma once

#include "base/files.h"
#include "base/text.h"

namespace pnl {

struct ErrorFont {
  Text face;
  int height = 0;
  int weight = 400;
  bool italic = false;
  bool underline = false;
  bool strikeOut = false;
  friend bool operator==(const ErrorFont&, const ErrorFont&) = default;
};

struct ErrorSettings {
  int flashPeriod = 500;  // in ms; no flash if it is 0 or less
  ErrorFont titleFont;
  ErrorFont textFont;
  bool hideWarnings = false;
  bool hideErrors = false;
};

/// Reads the settings and writes nothing. A key that is missing, or the whole file, gives defaults.
[[nodiscard]] ErrorSettings ReadErrorSettings(Files& files, TextView iniPath);
/// Reads face, height, weight and three styles, separated by commas. Fields that are missing keep their defaults. The
/// face is always Arial.
[[nodiscard]] ErrorFont ParseErrorFont(TextView text);

}  // namespace pnl
