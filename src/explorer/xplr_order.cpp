// SPDX-License-Identifier: MIT
#include "explorer/xplr_order.h"

#include <algorithm>

#include "base/format.h"
#include "base/numbers.h"
#include "explorer/xplr_ids.h"
#include "explorer/xplr_names.h"
#include "explorer/xplr_scan.h"

namespace pnl {
namespace {

template <typename T>
int Compare(T a, T b) {
  return a < b ? -1 : a > b ? 1 : 0;
}

bool BothFolders(const ShownRow& a, const ShownRow& b) { return (a.flags & b.flags & item_flag::kFolder) != 0; }

/// The size that a text shows: kilobytes are as coarse as the text.
std::int32_t ShownSize(TextView text) {
  const auto number = static_cast<std::uint32_t>(ParseIntPrefix(text));
  const bool kilobytes = text.find(u'K') != TextView::npos;
  return static_cast<std::int32_t>(kilobytes ? number << 10 : number);
}

int CompareNames(const ShownRow& a, const ShownRow& b, const SortState& state) {
  return state.Ascending(SortColumn::kName) ? CompareNoCase(a.name, b.name) : CompareNoCase(b.name, a.name);
}

int CompareSizes(const ShownRow& a, const ShownRow& b, const SortState& state) {
  if (BothFolders(a, b)) return 0;
  const int result = Compare(ShownSize(a.size), ShownSize(b.size));
  return state.Ascending(SortColumn::kSize) ? result : -result;
}

int CompareDates(const ShownRow& a, const ShownRow& b, const SortState& state, LocalZone& zone) {
  const int result = Compare(zone.SortKey(ParseDateText(a.date)), zone.SortKey(ParseDateText(b.date)));
  return state.Ascending(SortColumn::kDate) ? result : -result;
}

int CompareExtensions(const ShownRow& a, const ShownRow& b, const SortState& state) {
  if (BothFolders(a, b)) return 0;
  const TextView first = SplitName(a.name).extension;
  const TextView second = SplitName(b.name).extension;
  if (EqualNoCase(first, second)) return CompareNames(a, b, state);
  return state.Ascending(SortColumn::kExtension) ? CompareNoCase(first, second) : CompareNoCase(second, first);
}

}  // namespace

void SortState::SortBy(int command) {
  const int nearest = std::clamp(command, xplr_command::kSortByName, xplr_command::kSortByExtension);
  const auto wanted = static_cast<SortColumn>(nearest - xplr_command::kSortByName);
  if (wanted == column) {
    bool& own = ascending[static_cast<std::size_t>(column)];
    own = !own;
    return;
  }
  ascending.fill(true);
  column = wanted;
}

Text SortState::ToText() const {
  return Format(u"%d %d %d %d,%d", ascending[0] ? 1 : 0, ascending[1] ? 1 : 0, ascending[2] ? 1 : 0,
                ascending[3] ? 1 : 0, static_cast<int>(column));
}

SortState SortState::FromText(TextView text) {
  std::array<std::int32_t, 5> numbers{};
  ScanNumbers(text, u"%d %d %d %d,%d", numbers);
  SortState state;
  for (std::size_t i = 0; i < state.ascending.size(); ++i) state.ascending[i] = numbers[i] != 0;
  if (numbers[4] >= 0 && numbers[4] <= 3) state.column = static_cast<SortColumn>(numbers[4]);
  return state;
}

int CompareFlags(std::uint16_t a, std::uint16_t b) {
  if (a == b) return 0;
  return a == item_flag::kFolder ? -1 : 1;
}

int CompareRows(const ShownRow& a, const ShownRow& b, const SortState& state, LocalZone& zone) {
  if (a.flags != b.flags) return CompareFlags(a.flags, b.flags);
  switch (state.column) {
    case SortColumn::kName:
      return CompareNames(a, b, state);
    case SortColumn::kSize:
      return CompareSizes(a, b, state);
    case SortColumn::kDate:
      return CompareDates(a, b, state, zone);
    case SortColumn::kExtension:
      return CompareExtensions(a, b, state);
  }
  return 0;
}

}  // namespace pnl
