// SPDX-License-Identifier: MIT
// The rows of the file list: what a row keeps of a file or folder, and the texts that it shows. A folder may have very
// many files, so a row keeps numbers and makes its texts on demand. The list's control owns the rows; their order is
// made in xplr_sort.h.
#pragma once

#include <cstdint>
#include <limits>

#include "base/text.h"
#include "explorer/xplr_date.h"
#include "explorer/xplr_ids.h"
#include "places/places.h"

namespace pnl {

/// What the operator may choose, and with it the flags of the rows.
enum class ListFor { kFiles, kFolders };

/// The flags of a row. Of files and folders those can be chosen that the list is for; a file list opens its folders.
[[nodiscard]] std::uint16_t ItemFlags(bool folder, ListFor mode);

struct XplrRow {
  static constexpr std::int64_t kNoTime = std::numeric_limits<std::int64_t>::min();

  Text name;
  std::int64_t shownTime = kNoTime;  // the last change by the clock on the wall, as ToSeconds counts
  std::int64_t dateKey = 0;          // what the row is sorted by in the order of dates
  std::int32_t length = 0;           // the low 32 bits of the size, so 2 GiB and more may be negative
  std::uint32_t index = 0;           // at which the row was added; never used twice in a list
  std::uint16_t flags = 0;

  [[nodiscard]] bool IsFolder() const { return (flags & item_flag::kFolder) != 0; }
  [[nodiscard]] bool IsSelectable() const { return (flags & item_flag::kSelectable) != 0; }
};

/// The row of an entry. index is the number of rows added before it.
[[nodiscard]] XplrRow MakeRow(PlaceEntry entry, ListFor mode, std::uint32_t index, LocalZone& zone);

/// A row's data is its index in the high 16 bits and its flags in the low ones. The index begins again at 0 after
/// 65,535, so of more rows two may have the same data; XplrRow::index identifies a row.
[[nodiscard]] constexpr std::uint32_t RowData(const XplrRow& row) { return (row.index & 0xFFFF) << 16 | row.flags; }
[[nodiscard]] constexpr std::uint16_t RowIndex(std::uint32_t data) { return static_cast<std::uint16_t>(data >> 16); }
[[nodiscard]] constexpr std::uint16_t ItemFlags(std::uint32_t data) { return static_cast<std::uint16_t>(data); }

/// Kilobytes from 1024 on, rounded toward zero, else bytes, also below 0. Empty for a folder.
[[nodiscard]] Text SizeText(const XplrRow& row);
/// Empty when the entry's time is beyond all calendars.
[[nodiscard]] Text DateText(const XplrRow& row);

}  // namespace pnl
