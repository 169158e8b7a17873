// SPDX-License-Identifier: MIT
// Which folders of this machine have a disc mounted on them, from the kernel's table of mounts. Reading it asks no
// disc. Says nothing about when it changes: places/qt/mount_watch.h does.
#pragma once

#include <set>
#include <string>
#include <string_view>

namespace pnl {

/// The folders on which something is mounted, as absolute paths without links.
using MountedFolders = std::set<std::string>;

/// Reads the bytes of a mount table. A line that makes no sense is left out.
[[nodiscard]] MountedFolders ParseMountTable(std::string_view bytes);
/// The table of this process as it is now; empty when there is none.
[[nodiscard]] MountedFolders ReadMountTable();

}  // namespace pnl
