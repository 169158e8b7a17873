// SPDX-License-Identifier: MIT
// A panel path taken apart: drive letter and names, with "." and ".." already worked out. Pure text; no disc is asked,
// and nothing here can name a place outside the drive.
#pragma once

#include <optional>
#include <vector>

#include "base/text.h"

namespace pnl {

struct PanelPath {
  char drive = 'C';  // in capitals
  std::vector<Text> names;
};

/// Nothing for a text that doesn't begin with a drive letter and a colon, or that holds a NUL. Backslashes and slashes
/// part the names; empty names and "." don't count, ".." takes the name before it away and stops at the drive's root. A
/// path without a separator behind the colon begins at the root too.
[[nodiscard]] std::optional<PanelPath> ParsePanelPath(TextView path);

}  // namespace pnl
