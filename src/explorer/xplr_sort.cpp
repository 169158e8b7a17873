// SPDX-License-Identifier: MIT
#include "explorer/xplr_sort.h"

#include <algorithm>
#include <array>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>

#include "base/merge_sort.h"
#include "explorer/xplr_names.h"

namespace pnl {
namespace {

/// What is compared of a row as far as it fits into numbers, and where the row is. Few comparisons need more.
struct Key {
  std::array<std::uint64_t, 3> words{};
  std::uint32_t row = 0;
  std::uint16_t flags = 0;
};

constexpr std::size_t kWordBytes = sizeof(std::uint64_t);

/// A number as a word of the same order.
std::uint64_t WordOf(std::int64_t number) { return static_cast<std::uint64_t>(number) ^ std::uint64_t{1} << 63; }

/// Eight bytes from a place on, filled with zeros. Equal words decide nothing: a zero may be a character too.
std::uint64_t WordOf(std::string_view bytes, std::size_t from) {
  std::uint64_t word = 0;
  for (std::size_t i = from; i < from + kWordBytes; ++i) {
    word = word << 8 | (i < bytes.size() ? static_cast<unsigned char>(bytes[i]) : 0);
  }
  return word;
}

/// Seven bytes and the length, which 8 is the highest of. Equal words of less than 8 bytes are equal bytes.
std::uint64_t ShortWordOf(std::string_view bytes) {
  return (WordOf(bytes, 0) & ~std::uint64_t{0xFF}) | std::min(bytes.size(), kWordBytes);
}

bool IsShort(std::uint64_t word) { return (word & 0xFF) < kWordBytes; }

/// The names in capitals, all in one place: a byte a character, or two with the high one first if any name needs them.
/// Either way their order is that of their bytes.
class FoldedNames {
 public:
  explicit FoldedNames(std::span<const XplrRow> rows) {
    for (std::size_t c = 0; c < latin_.size(); ++c) latin_[c] = ToUpper(static_cast<char16_t>(c));
    std::size_t characters = 0;
    for (const XplrRow& row : rows) {
      characters += row.name.size();
      wide_ = wide_ || std::any_of(row.name.begin(), row.name.end(), [&](char16_t c) { return Capital(c) > 0xFF; });
    }
    bytes_.reserve(Bytes(characters));
    names_.reserve(rows.size());
    for (const XplrRow& row : rows) Add(row.name);
  }
  [[nodiscard]] std::string_view Name(std::uint32_t row) const { return Part(names_[row].first, names_[row].end); }
  [[nodiscard]] std::string_view Extension(std::uint32_t row) const { return Part(names_[row].point, names_[row].end); }

 private:
  struct Place {
    std::size_t first;
    std::size_t point;  // where the extension begins
    std::size_t end;
  };
  [[nodiscard]] char16_t Capital(char16_t c) const { return c < latin_.size() ? latin_[c] : ToUpper(c); }
  [[nodiscard]] std::size_t Bytes(std::size_t characters) const { return wide_ ? 2 * characters : characters; }
  void Add(TextView name) {
    const std::size_t first = bytes_.size();
    names_.push_back({first, first + Bytes(SplitName(name).title.size()), first + Bytes(name.size())});
    for (const char16_t c : name) {
      const char16_t capital = Capital(c);
      if (wide_) bytes_.push_back(static_cast<char>(capital >> 8));
      bytes_.push_back(static_cast<char>(capital & 0xFF));
    }
  }
  [[nodiscard]] std::string_view Part(std::size_t first, std::size_t end) const {
    return std::string_view(bytes_).substr(first, end - first);
  }

  std::array<char16_t, 256> latin_{};  // capitals
  bool wide_ = false;
  std::string bytes_;
  std::vector<Place> names_;
};

class Comparison {
 public:
  Comparison(std::span<const XplrRow> rows, const SortState& state)
      : column_(state.column),
        ascending_(state.Ascending(state.column)),
        namesAscending_(state.Ascending(SortColumn::kName)),
        names_(IsByText() ? rows : std::span<const XplrRow>()) {}

  [[nodiscard]] Key KeyOf(const XplrRow& row, std::uint32_t at) const {
    Key key{Words(row, at), at, row.flags};
    if (!ascending_) key.words[0] = ~key.words[0];
    if (!namesAscending_) key.words = {key.words[0], ~key.words[1], ~key.words[2]};
    return key;
  }
  /// As CompareRows of the rows' texts.
  [[nodiscard]] int Rows(const Key& a, const Key& b) const {
    return a.flags != b.flags ? CompareFlags(a.flags, b.flags) : Column(a, b);
  }
  /// The same for equal flags.
  [[nodiscard]] int Column(const Key& a, const Key& b) const {
    if (a.words[0] != b.words[0]) return a.words[0] < b.words[0] ? -1 : 1;
    if (!IsByText()) return 0;
    if (column_ == SortColumn::kExtension) {
      if ((a.flags & item_flag::kFolder) != 0) return 0;
      const int result = Extensions(a, b);
      if (result != 0) return result;
    }
    if (a.words != b.words) return a.words < b.words ? -1 : 1;
    return Directed(names_.Name(a.row).compare(names_.Name(b.row)), namesAscending_);
  }

 private:
  [[nodiscard]] bool IsByText() const { return column_ == SortColumn::kName || column_ == SortColumn::kExtension; }
  static int Directed(int result, bool ascending) { return ascending ? result : -result; }
  [[nodiscard]] int Extensions(const Key& a, const Key& b) const {
    if (IsShort(ascending_ ? a.words[0] : ~a.words[0])) return 0;
    return Directed(names_.Extension(a.row).compare(names_.Extension(b.row)), ascending_);
  }
  /// The words before they are turned round for a descending order.
  [[nodiscard]] std::array<std::uint64_t, 3> Words(const XplrRow& row, std::uint32_t at) const {
    switch (column_) {
      case SortColumn::kName: {
        const std::string_view name = names_.Name(at);
        return {WordOf(name, 0), WordOf(name, kWordBytes), WordOf(name, 2 * kWordBytes)};
      }
      case SortColumn::kSize:
        if (row.IsFolder()) return {};
        return {WordOf(std::int64_t{row.length >= 1024 ? row.length / 1024 * 1024 : row.length})};
      case SortColumn::kDate:
        return {WordOf(row.dateKey)};
      case SortColumn::kExtension: {
        const std::string_view name = names_.Name(at);
        if (row.IsFolder()) return {};
        return {ShortWordOf(names_.Extension(at)), WordOf(name, 0), WordOf(name, kWordBytes)};
      }
    }
    return {};
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
