// SPDX-License-Identifier: MIT
// The rows of the help viewer's lists: what a row of the contents, of the index and of the found pages says and where
// it leads, which row a typed text means, and the order of the found pages. Knows no control.
#pragma once

#include <cstdint>
#include <optional>
#include <unordered_map>
#include <vector>

#include "base/text.h"
#include "help/help_books.h"

namespace pnl {

/// A row of the contents or of the index.
struct HelpRow {
  Text text;
  int depth = 0;
  ManualPlace place;  // without a page the row leads nowhere
  friend bool operator==(const HelpRow&, const HelpRow&) = default;
};

[[nodiscard]] std::vector<HelpRow> ContentsRows(const std::vector<ManualTopic>& contents);
/// A word with one topic leads to it. A word with more leads to the first and has a row for each below it.
[[nodiscard]] std::vector<HelpRow> IndexRows(const std::vector<ManualWord>& index);

/// The row of a page in the contents: that with the anchor too, else the first of the page; -1 when there is none.
[[nodiscard]] int ContentsRowOf(const std::vector<HelpRow>& contents, TextView page, TextView anchor);
/// The first row of the outermost depth that begins with the text, else the first of any depth that does, without
/// regard to case; -1 when there is none or the text is empty.
[[nodiscard]] int TypedRow(const std::vector<HelpRow>& index, TextView typed);

/// A row of the list of found pages. data identifies it, wherever it is.
struct ResultRow {
  Text title;
  Text page;
  std::intptr_t data = 0;
  friend bool operator==(const ResultRow&, const ResultRow&) = default;
};

/// The comparator of the found pages, for the rows as they are now.
class ResultOrder {
 public:
  static constexpr std::size_t kComparedCharacters = 100;

  explicit ResultOrder(const std::vector<ResultRow>& rows);
  /// Compares two rows by their data: less than 0 when the first comes before. Equal titles give 1 when the first row
  /// is further down, else 0. A row that isn't found gives -1, so the order isn't a strict one.
  [[nodiscard]] int Compare(std::intptr_t first, std::intptr_t second) const;

 private:
  const std::vector<ResultRow>& rows_;
  std::unordered_map<std::intptr_t, std::size_t> byData_;  // the first row with that data
};

void SortResults(std::vector<ResultRow>& rows);

}  // namespace pnl
