// SPDX-License-Identifier: MIT
#include "explorer/xplr_rows.h"

#include <utility>

#include "base/format.h"

namespace pnl {
namespace {

constexpr std::int32_t kKilobyte = 1024;
constexpr std::size_t kSpareUnits = 16;

}  // namespace

std::uint16_t ItemFlags(bool folder, ListFor mode) {
  const std::uint16_t kind = folder ? item_flag::kFolder : 0;
  const bool wanted = folder == (mode == ListFor::kFolders);
  return wanted ? kind | item_flag::kSelectable : kind;
}

XplrRow MakeRow(PlaceEntry entry, ListFor mode, std::uint32_t index, LocalZone& zone) {
  XplrRow row;
  row.name = std::move(entry.name);
  // Bytes took more room than their characters need. The list lives as long as its folder is shown.
  if (row.name.capacity() > row.name.size() + kSpareUnits) row.name.shrink_to_fit();
  row.shownTime = zone.ToLocal(entry.written).value_or(XplrRow::kNoTime);
  row.dateKey = zone.SortKey(row.shownTime == XplrRow::kNoTime ? DateFields() : ToFields(row.shownTime));
  row.length = static_cast<std::int32_t>(static_cast<std::uint32_t>(entry.size));
  row.index = index;
  row.flags = ItemFlags(entry.folder, mode);
  return row;
}

Text SizeText(const XplrRow& row) {
  if (row.IsFolder()) return {};
  if (row.length >= kKilobyte) return Format(u"%d KB", row.length / kKilobyte);
  return Format(u"%d bytes", row.length);
}

Text DateText(const XplrRow& row) {
  if (row.shownTime == XplrRow::kNoTime) return {};
  return DateText(ToFields(row.shownTime));
}

}  // namespace pnl
