// SPDX-License-Identifier: MIT
// A network path split into server, share and names, with "." and ".." already resolved. Works on text alone and asks
// no server. The result can't name a place outside the share.
#pragma once

#include <optional>
#include <vector>

#include "base/text.h"

namespace pnl {

struct NetworkPath {
  Text server;  // without the backslashes
  Text share;   // empty for the server itself
  std::vector<Text> names;
};

/// Returns nothing for a text that doesn't begin with two backslashes and a name, that contains a NUL, or whose share
/// is empty, "." or "..". Backslashes at the end don't count. The names below the share follow the rules of a drive's
/// (base/panel_path.h).
[[nodiscard]] std::optional<NetworkPath> ParseNetworkPath(TextView path);

/// "\\server", and "\\server\share".
[[nodiscard]] Text ServerPath(TextView server);
[[nodiscard]] Text SharePath(TextView server, TextView share);

}  // namespace pnl
