// SPDX-License-Identifier: MIT
// Folders that are written or thrown away in a cache: they have a name of their own until they are whole, and they are
// locked as long as their process lives. So a process killed at any instant leaves only what the next one can remove.
#pragma once

#include <optional>
#include <string>

#include "base/descriptor.h"

namespace pnl {

/// A new folder beside the one that it is to become. Locked until this object is gone.
struct PartFolder {
  std::string path;
  Descriptor lock;
};

/// Makes the folder; nothing when it can't be made.
[[nodiscard]] std::optional<PartFolder> MakePart(const std::string& folder);
/// True for the path of a folder that isn't whole yet or any more.
[[nodiscard]] bool IsLeftover(const std::string& path);
/// Removes the folder and all that is in it, at once as others see it. Does nothing when there is none. Follows no
/// links.
void RemoveWhole(const std::string& folder);
/// Removes the leftovers of ended processes from a cache folder.
void RemoveLeftovers(const std::string& cacheFolder);

}  // namespace pnl
