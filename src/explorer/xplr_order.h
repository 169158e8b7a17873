// SPDX-License-Identifier: MIT
// The order of the file list: what it is sorted by, and how two rows compare by the texts that they show. The
// comparison is no order when a folder is chosen: a folder and a file give 1 whichever comes first. SortRows of
// xplr_sort.h sorts by it without making the texts.
#pragma once

#include <array>
#include <cstdint>

#include "base/text.h"
#include "explorer/xplr_date.h"

namespace pnl {

enum class SortColumn { kName = 0, kSize = 1, kDate = 2, kExtension = 3 };

/// By which column the list is sorted, and each column's direction.
struct SortState {
  std::array<bool, 4> ascending{};  // by SortColumn
  SortColumn column = SortColumn::kName;

  [[nodiscard]] bool Ascending(SortColumn of) const { return ascending[static_cast<std::size_t>(of)]; }
  /// Obeys a menu command, kSortByName to kSortByExtension; others count as the nearest of them. The column that it is
  /// sorted by changes its direction. Another column makes all four ascending.
  void SortBy(int command);

  /// "1 1 0 1,2": the four directions, then the column. Read as far as the text has that form; the rest is 0, as is a
  /// column that there isn't.
  [[nodiscard]] Text ToText() const;
  [[nodiscard]] static SortState FromText(TextView text);

  friend bool operator==(const SortState&, const SortState&) = default;
};

/// A row as the operator sees it, and its flags.
struct ShownRow {
  std::uint16_t flags = 0;
  TextView name;
  TextView size;
  TextView date;
};

/// The comparison of the flags, before that of any column and in both directions the same: 0 when they are equal, -1
/// when the first ones are exactly a file list's folder, else 1.
[[nodiscard]] int CompareFlags(std::uint16_t a, std::uint16_t b);

/// Negative when a comes before b, positive when it comes after it, 0 when the column doesn't decide.
[[nodiscard]] int CompareRows(const ShownRow& a, const ShownRow& b, const SortState& state, LocalZone& zone);

}  // namespace pnl
