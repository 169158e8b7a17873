// SPDX-License-Identifier: MIT
#include "explorer/xplr_sort.h"

#include <algorithm>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>

#include "base/merge_sort.h"
#include "explorer/xplr_names.h"

namespace pnl {
namespace {

/// What is compared first of a row, and where the row is.
struct Key {
  std::uint64_t head = 0;
  std::uint32_t row = 0;
  std::uint16_t flags = 0;
};

/// A number as a head of the same order.
std::uint64_t HeadOf(std::int64_t number) { return static_cast<std::uint64_t>(number) ^ std::uint64_t{1} << 63; }

/// The names in capitals, all in one place, each character with its high byte first: their order is that of their
/// bytes.
class FoldedNames {
 public:
  explicit FoldedNames(std::span<const XplrRow> rows) {
    std::size_t units = 0;
    for (const XplrRow& row : rows) units += row.name.size();
    bytes_.resize(2 * units);
    names_.reserve(rows.size());
    std::size_t at = 0;
    for (const XplrRow& row : rows) {
      const std::size_t title = SplitName(row.name).title.size();
      names_.push_back({at, at + 2 * title, at + 2 * row.name.size()});
      for (const char16_t c : row.name) {
        const char16_t capital = ToUpper(c);
        bytes_[at++] = static_cast<char>(capital >> 8);
        bytes_[at++] = static_cast<char>(capital & 0xFF);
      }
    }
  }
  [[nodiscard]] std::string_view Name(std::uint32_t row) const { return Part(names_[row].first, names_[row].end); }
  [[nodiscard]] std::string_view Extension(std::uint32_t row) const { return Part(names_[row].point, names_[row].end); }

 private:
  struct Place {
    std::size_t first;
    std::size_t point;  // where the extension begins
    std::size_t end;
  };
  [[nodiscard]] std::string_view Part(std::size_t first, std::size_t end) const {
    return std::string_view(bytes_).substr(first, end - first);
  }

  std::string bytes_;
  std::vector<Place> names_;
};

/// The first eight bytes, of which fewer are filled with zeros. Equal heads decide nothing.
std::uint64_t HeadOf(std::string_view bytes) {
  std::uint64_t head = 0;
  for (std::size_t i = 0; i < sizeof head; ++i) {
    head = head << 8 | (i < bytes.size() ? static_cast<unsigned char>(bytes[i]) : 0);
  }
  return head;
}

class Comparison {
 public:
  Comparison(const std::vector<XplrRow>& rows, const SortState& state)
      : column_(state.column),
        ascending_(state.Ascending(state.column)),
        namesAscending_(state.Ascending(SortColumn::kName)),
        names_(IsByText() ? std::span<const XplrRow>(rows) : std::span<const XplrRow>()) {}

  [[nodiscard]] Key KeyOf(const XplrRow& row, std::uint32_t at) const { return {Head(row, at), at, row.flags}; }

  /// As CompareRows of the rows' texts.
  [[nodiscard]] int Rows(const Key& a, const Key& b) const {
    return a.flags != b.flags ? CompareFlags(a.flags, b.flags) : Column(a, b);
  }
  /// The same for equal flags.
  [[nodiscard]] int Column(const Key& a, const Key& b) const {
    if (a.head != b.head) return (a.head < b.head) == ascending_ ? -1 : 1;
    if (column_ == SortColumn::kName) return Directed(names_.Name(a.row).compare(names_.Name(b.row)), ascending_);
    if (column_ != SortColumn::kExtension || (a.flags & item_flag::kFolder) != 0) return 0;
    const int result = names_.Extension(a.row).compare(names_.Extension(b.row));
    if (result != 0) return Directed(result, ascending_);
    return Directed(names_.Name(a.row).compare(names_.Name(b.row)), namesAscending_);
  }

 private:
  [[nodiscard]] bool IsByText() const { return column_ == SortColumn::kName || column_ == SortColumn::kExtension; }
  static int Directed(int result, bool ascending) { return ascending ? result : -result; }
  [[nodiscard]] std::uint64_t Head(const XplrRow& row, std::uint32_t at) const {
    switch (column_) {
      case SortColumn::kName:
        return HeadOf(names_.Name(at));
      case SortColumn::kSize:
        if (row.IsFolder()) return 0;
        return HeadOf(std::int64_t{row.length >= 1024 ? row.length / 1024 * 1024 : row.length});
      case SortColumn::kDate:
        return HeadOf(row.dateKey);
      case SortColumn::kExtension:
        return row.IsFolder() ? 0 : HeadOf(names_.Extension(at));
    }
    return 0;
  }

  SortColumn column_;
  bool ascending_;
  bool namesAscending_;
  FoldedNames names_;
};

/// Brings equal flags together, a file list's folders first, when the comparison does so too, whatever the rows: when
/// there are only two kinds, and either one of them is a file list's folder or they are apart already. Returns the
/// number of rows of the first kind, or nothing and leaves the rows as they are.
std::optional<std::size_t> Group(std::vector<Key>& keys) {
  const std::uint16_t first = keys.front().flags;
  const auto isFirst = [&](const Key& key) { return key.flags == first; };
  const auto other = std::find_if_not(keys.begin(), keys.end(), isFirst);
  if (other == keys.end()) return keys.size();
  const std::uint16_t second = other->flags;
  const auto isSecond = [&](const Key& key) { return key.flags == second; };
  if (!std::all_of(other, keys.end(), [&](const Key& key) { return isFirst(key) || isSecond(key); })) {
    return std::nullopt;
  }
  const bool folders = first == item_flag::kFolder || second == item_flag::kFolder;
  if (!folders && !std::all_of(other, keys.end(), isSecond)) return std::nullopt;
  const auto isFolder = [](const Key& key) { return key.flags == item_flag::kFolder; };
  const auto middle = folders ? std::stable_partition(keys.begin(), keys.end(), isFolder) : other;
  return static_cast<std::size_t>(middle - keys.begin());
}

void SortKeys(std::vector<Key>& keys, const Comparison& compare) {
  const auto count = Group(keys);
  if (!count) {
    MergeSort(keys, [&](const Key& a, const Key& b) { return compare.Rows(a, b) < 0; });
    return;
  }
  const auto less = [&](const Key& a, const Key& b) { return compare.Column(a, b) < 0; };
  const auto middle = keys.begin() + static_cast<std::ptrdiff_t>(*count);
  std::stable_sort(keys.begin(), middle, less);
  std::stable_sort(middle, keys.end(), less);
}

}  // namespace

void SortRows(std::vector<XplrRow>& rows, const SortState& state) {
  if (rows.size() < 2) return;
  const Comparison compare(rows, state);
  std::vector<Key> keys;
  keys.reserve(rows.size());
  for (std::uint32_t at = 0; at < rows.size(); ++at) keys.push_back(compare.KeyOf(rows[at], at));
  SortKeys(keys, compare);
  std::vector<XplrRow> sorted;
  sorted.reserve(rows.size());
  for (const Key& key : keys) sorted.push_back(std::move(rows[key.row]));
  rows.swap(sorted);
}

}  // namespace pnl
