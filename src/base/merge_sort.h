// SPDX-License-Identifier: MIT
// A stable merge sort for lists whose comparison comes from outside the library. A comparison that isn't a strict order
// may make std::stable_sort read beyond the list; here it only gives some order. Not meant for hot paths that compare
// with code of ours.
#pragma once

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <utility>
#include <vector>

namespace pnl {

/// Sorts by less(a, b), which means "a comes before b". Equal items keep their order. Calls less about n log2 n times,
/// whatever it returns. Afterwards the list contains the same items.
template <typename T, typename Less>
void MergeSort(std::vector<T>& items, Less less) {
  const std::size_t count = items.size();
  std::vector<T> merged;
  for (std::size_t run = 1; run < count; run *= 2) {
    merged.clear();
    merged.reserve(count);
    for (std::size_t first = 0; first < count; first += 2 * run) {
      const std::size_t middle = std::min(first + run, count);
      const std::size_t end = std::min(first + 2 * run, count);
      std::size_t left = first;
      std::size_t right = middle;
      while (left < middle && right < end) {
        // A right item overtakes the left one only if it comes strictly before it. That keeps the sort stable.
        const bool overtakes = less(std::as_const(items[right]), std::as_const(items[left]));
        merged.push_back(std::move(items[overtakes ? right++ : left++]));
      }
      while (left < middle) merged.push_back(std::move(items[left++]));
      while (right < end) merged.push_back(std::move(items[right++]));
    }
    items.swap(merged);
  }
}

}  // namespace pnl
