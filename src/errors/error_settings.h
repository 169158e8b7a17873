// SPDX-License-Identifier: MIT
// "errman.ini": how the error window looks and what it hides. Geometry stands in error_geometry.
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
  int flashPeriod = 500;  // ms; 0: no flash
  ErrorFont titleFont;
  ErrorFont textFont;
  bool hideWarnings = false;
  bool hideErrors = false;
};

/// Defaults where the file is absent. Writes nothing.
[[nodiscard]] ErrorSettings ReadErrorSettings(Files& files, TextView iniPath);
/// A font string: face, height, weight and three styles, parted by commas; missing ones keep their defaults.
[[nodiscard]] ErrorFont ParseErrorFont(TextView text);

}  // namespace pnl
