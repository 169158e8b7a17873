// SPDX-License-Identifier: MIT
// Reads the contents file and the index file of a manual: nested lists of objects with parameters. Takes any markup: a
// list that isn't closed, objects by the hundred thousand and endless nesting give as much as the limits allow. Follows
// no reference to a further file, so contents that contain themselves are read once.
#pragma once

#include <cstddef>
#include <utility>
#include <vector>

#include "base/text.h"

namespace pnl {

/// An object of the file.
struct SitemapItem {
  int depth = 0;  // at most one more than that of the item before; 0 for the first
  Text name;      // the first name; empty if the object has none
  /// The files that it names, each with the title that precedes it; without a title of its own it has the item's name.
  std::vector<std::pair<Text, Text>> topics;  // title, reference
};

inline constexpr std::size_t kMostSitemapItems = 50'000;
inline constexpr std::size_t kMostSitemapTopics = 200;  // of one item
inline constexpr int kDeepestSitemap = 32;
inline constexpr std::size_t kLongestSitemapText = 1'000;

/// The items in the order of the file. An object without a name and without a file is no item.
[[nodiscard]] std::vector<SitemapItem> ReadSitemap(TextView markup);

}  // namespace pnl
