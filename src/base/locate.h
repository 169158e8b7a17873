// SPDX-License-Identifier: MIT
// Finds out where a panel path leads on this machine and whether anything exists there. Knows no drive map: base/files
// hands it the drive's own folder. Opens nothing but folders and changes nothing.
#pragma once

#include <sys/stat.h>

#include <string>
#include <vector>

#include "base/text.h"

namespace pnl {

enum class Presence {
  kThere,
  kAbsent,      // its folder was searched: nothing in it has that name
  kOutOfReach,  // it can't be found out: a folder on the way is missing or refuses, a link leads to such a place, a
                // disc doesn't respond
};

struct Located {
  Presence presence = Presence::kOutOfReach;
  std::string host;     // each name matched exactly, else without regard to case; a name that doesn't exist as it was
                        // given
  struct stat info {};  // of what exists there, after following all links
};

[[nodiscard]] Located Locate(const std::string& driveFolder, const std::vector<Text>& names);

/// The path to which the symbolic links at the end of hostPath lead, whether or not anything exists there. Returns
/// hostPath itself when its end is no link or the links form a circle.
[[nodiscard]] std::string ThroughLinks(const std::string& hostPath);
/// The part before the last slash: "/" for a path in the root folder, "." for a path without a slash.
[[nodiscard]] std::string FolderOf(const std::string& hostPath);

}  // namespace pnl
