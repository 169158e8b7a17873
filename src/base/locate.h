// SPDX-License-Identifier: MIT
// Where a panel path leads on this machine, and whether there is anything. Knows no drive map: base/files hands it the
// drive's own folder. Nothing is opened here but folders, and nothing is changed.
#pragma once

#include <sys/stat.h>

#include <string>
#include <vector>

#include "base/text.h"

namespace pnl {

enum class Presence {
  kThere,
  kAbsent,      // its folder was looked through: nothing in it has that name
  kOutOfReach,  // nobody can say: a folder on the way is missing or refuses, a link leads nowhere, a disc doesn't
                // answer
};

struct Located {
  Presence presence = Presence::kOutOfReach;
  std::string host;     // each name by exact match, else without regard to case; what isn't there as it was given
  struct stat info {};  // of what is there, behind all links
};

[[nodiscard]] Located Locate(const std::string& driveFolder, const std::vector<Text>& names);

/// Where the symbolic links at the end of a path lead, whether or not anything is there; the path itself where none
/// is, and where they lead in a circle.
[[nodiscard]] std::string ThroughLinks(const std::string& hostPath);
/// The part before the last slash.
[[nodiscard]] std::string FolderOf(const std::string& hostPath);

}  // namespace pnl
