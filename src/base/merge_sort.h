// SPDX-License-Identifier: MIT
// A stable merge sort of our own for lists whose order comes from outside: a comparison that is no strict order (which
// std::stable_sort may answer by reading beyond the list) gives some order here, never more. Not for hot paths with a
// comparison of ours.
#pragma once

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <utility>
#include <vector>

namespace pnl {

/// Sorts by less(a, b), "a stands before b"; equal items keep their order. About n log2 n calls of less, whatever it
/// answers. Afterwards the list holds the same items.
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
        // Only a right item that goes truly before the left one overtakes it: that keeps the sort stable.
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
