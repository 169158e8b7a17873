// SPDX-License-Identifier: MIT
#include "explorer/xplr_search.h"

#include <algorithm>

namespace pnl {
namespace {

bool Contains(TextView name, TextView capitals) {
  const auto same = [](char16_t c, char16_t capital) { return ToUpper(c) == capital; };
  return std::search(name.begin(), name.end(), capitals.begin(), capitals.end(), same) != name.end();
}

}  // namespace

std::optional<SearchAnswer> SearchList(const SearchRows& rows, SearchState& state, bool forward) {
  const std::size_t count = rows.Count();
  if (state.text.empty() || count == 0) return std::nullopt;
  state.text = ToUpper(state.text);
  state.forward = forward;
  const std::optional<std::size_t> selected = rows.Selected();
  const bool any = selected && *selected < count;
  // Steps from the row before the first one to be looked at. The selected row itself is looked at last.
  const std::size_t origin = any ? *selected : forward ? count - 1 : 0;
  for (std::size_t step = 1; step <= count; ++step) {
    const std::size_t row = forward ? (origin + step) % count : (origin + count - step) % count;
    if (!Contains(rows.Name(row), state.text)) continue;
    if (any && row == *selected) return SearchAnswer{FindResult::kOnlySelected, 0};
    return SearchAnswer{FindResult::kFound, row};
  }
  return SearchAnswer{};
}

}  // namespace pnl
