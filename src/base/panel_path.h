// SPDX-License-Identifier: MIT
// A panel path split into its drive letter and names, with "." and ".." already resolved. Works on text alone and asks
// no disc. The result can't name a place outside the drive.
#pragma once

#include <optional>
#include <vector>

#include "base/text.h"

namespace pnl {

struct PanelPath {
  char drive = 'C';  // in capitals
  std::vector<Text> names;
};

/// Returns nothing for a text that doesn't begin with a drive letter and a colon, or that contains a NUL. Backslashes
/// and slashes separate the names. Empty names and "." are dropped; ".." removes the name before it and has no effect
/// at the drive's root. A path without a separator after the colon begins at the root too.
[[nodiscard]] std::optional<PanelPath> ParsePanelPath(TextView path);

}  // namespace pnl
