// SPDX-License-Identifier: MIT
#include "help/help_rows.h"

#include <algorithm>

#include "base/merge_sort.h"

namespace pnl {
namespace {

bool BeginsWith(TextView text, TextView start) { return EqualNoCase(text.substr(0, start.size()), start); }

template <typename Matches>
int FirstRow(const std::vector<HelpRow>& rows, Matches matches) {
  const auto found = std::find_if(rows.begin(), rows.end(), matches);
  return found == rows.end() ? -1 : static_cast<int>(found - rows.begin());
}

}  // namespace

std::vector<HelpRow> ContentsRows(const std::vector<ManualTopic>& contents) {
  std::vector<HelpRow> rows;
  rows.reserve(contents.size());
  for (const ManualTopic& topic : contents) rows.push_back({topic.title, topic.depth, topic.place});
  return rows;
}

std::vector<HelpRow> IndexRows(const std::vector<ManualWord>& index) {
  std::vector<HelpRow> rows;
  rows.reserve(index.size());
  for (const ManualWord& word : index) {
    rows.push_back({word.word, word.depth, word.topics.empty() ? ManualPlace() : word.topics.front().place});
    if (word.topics.size() < 2) continue;
    for (const ManualTopic& topic : word.topics) rows.push_back({topic.title, word.depth + 1, topic.place});
  }
  return rows;
}

int ContentsRowOf(const std::vector<HelpRow>& contents, TextView page, TextView anchor) {
  if (page.empty()) return -1;
  const int exact = FirstRow(
      contents, [&](const HelpRow& row) { return row.place.anchor == anchor && EqualNoCase(row.place.page, page); });
  return exact >= 0 ? exact : FirstRow(contents, [&](const HelpRow& row) { return EqualNoCase(row.place.page, page); });
}

int TypedRow(const std::vector<HelpRow>& index, TextView typed) {
  if (typed.empty()) return -1;
  const int outer = FirstRow(index, [&](const HelpRow& row) { return row.depth == 0 && BeginsWith(row.text, typed); });
  return outer >= 0 ? outer : FirstRow(index, [&](const HelpRow& row) { return BeginsWith(row.text, typed); });
}

ResultOrder::ResultOrder(const std::vector<ResultRow>& rows) : rows_(rows) {
  byData_.reserve(rows.size());
  for (std::size_t i = 0; i < rows.size(); ++i) byData_.emplace(rows[i].data, i);
}

int ResultOrder::Compare(std::intptr_t first, std::intptr_t second) const {
  const auto left = byData_.find(first);
  const auto right = byData_.find(second);
  if (left == byData_.end() || right == byData_.end()) return -1;
  const TextView leftTitle = TextView(rows_[left->second].title).substr(0, kComparedCharacters);
  const int order = leftTitle.compare(TextView(rows_[right->second].title).substr(0, kComparedCharacters));
  if (order != 0) return order;
  return left->second > right->second ? 1 : 0;
}

void SortResults(std::vector<ResultRow>& rows) {
  const std::vector<ResultRow> before = rows;
  const ResultOrder order(before);
  MergeSort(rows, [&order](const ResultRow& left, const ResultRow& right) {
    return order.Compare(left.data, right.data) < 0;
  });
}

}  // namespace pnl
