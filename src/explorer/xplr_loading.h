// SPDX-License-Identifier: MIT
// Reads a folder or the shares of a server into sorted rows. Runs on a thread beside the window's: knows no window, and
// everything that it is given belongs to it.
#pragma once

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
/// Gets rows that came so far; false ends the reading.
using XplrPartial = std::function<bool(XplrRows rows)>;

/// The folders, then for each pattern of the filter the files that match it, sorted. A file that matches two patterns is
/// there twice; what is hidden isn't. Calls partial once with the rows that came in the first moments when there will be
/// more. A folder that can't be read has no rows.
[[nodiscard]] XplrRows LoadFolder(const FolderReader& reader, const XplrLoadRequest& request, const XplrPartial& partial);

/// The shares of a server that can be read. Each shows as the entry "." of its folder, which is told by that entry's
/// date alone.
[[nodiscard]] XplrRows LoadShares(const FolderReader& reader, const NetworkReader& network,
                                  const XplrLoadRequest& request);

}  // namespace pnl
