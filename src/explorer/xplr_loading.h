// SPDX-License-Identifier: MIT
// Reads a folder or the shares of a server into sorted rows. Runs on a thread beside the window's: knows no window, and
// everything that it is given belongs to it.
#pragma once

#include <chrono>
#include <functional>
#include <memory>
#include <vector>

#include "explorer/xplr_order.h"
#include "explorer/xplr_rows.h"
#include "places/network.h"
#include "places/places.h"

namespace pnl {

/// What is to be read, and how it is to be shown.
struct XplrLoadRequest {
  Text path;
  Text filter;  // of files; folders are always listed
  ListFor mode = ListFor::kFiles;
  SortState sort;
};

using XplrRows = std::vector<XplrRow>;

/// A folder that is read within this time shows all its rows at once.
inline constexpr std::chrono::milliseconds kFirstRows{15};

/// What a reading does between two batches of entries.
struct XplrProgress {
  /// False ends the reading: nobody waits for the rows any more.
  std::function<bool()> goesOn;
  /// Gets the rows that came so far.
  std::function<void(XplrRows rows)> partial;
  std::chrono::milliseconds patience = kFirstRows;
};

/// The folders, then for each pattern of the filter the files that match it, sorted. A file that matches two patterns
/// is there twice; what is hidden isn't. Calls partial once, with the first batch that ends when the patience is over.
/// A folder that can't be read, and a reading that was ended, have no rows.
[[nodiscard]] XplrRows LoadFolder(const FolderReader& reader, const XplrLoadRequest& request,
                                  const XplrProgress& progress);

/// The shares of a server that can be read. Each shows as the entry "." of its folder, so shares differ in their
/// dates alone. A reading that was ended has no rows; partial isn't called.
[[nodiscard]] XplrRows LoadShares(const FolderReader& reader, const NetworkReader& network,
                                  const XplrLoadRequest& request, const XplrProgress& progress);

}  // namespace pnl
