// SPDX-License-Identifier: MIT
#include "base/merge_sort.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <random>
#include <string>

namespace pnl {
namespace {

using Item = std::pair<int, int>;  // key and place in the unsorted list

TEST(MergeSort, SortsAsTheStandardStableSortDoes) {
  std::mt19937 random(1);
  for (std::size_t count = 0; count < 200; ++count) {
    std::vector<Item> items;
    for (std::size_t i = 0; i < count; ++i) items.emplace_back(static_cast<int>(random() % 10), static_cast<int>(i));
    std::vector<Item> expected = items;
    const auto byKey = [](const Item& a, const Item& b) { return a.first < b.first; };
    std::stable_sort(expected.begin(), expected.end(), byKey);
    MergeSort(items, byKey);
    ASSERT_EQ(items, expected);
  }
}

TEST(MergeSort, AnyComparisonLeavesTheSameItems) {
  std::mt19937 random(2);
  const auto always = [](const std::string&, const std::string&) { return true; };
  const auto dice = [&random](const std::string&, const std::string&) { return random() % 2 == 0; };
  const auto circle = [](const std::string& a, const std::string& b) { return (a.size() + 1) % 3 == b.size() % 3; };
  for (std::size_t count = 0; count < 100; ++count) {
    std::vector<std::string> items;
    for (std::size_t i = 0; i < count; ++i) items.emplace_back(20 + i, 'x');
    const std::vector<std::string> before = items;
    MergeSort(items, always);
    ASSERT_TRUE(std::is_permutation(items.begin(), items.end(), before.begin(), before.end()));
    MergeSort(items, dice);
    ASSERT_TRUE(std::is_permutation(items.begin(), items.end(), before.begin(), before.end()));
    MergeSort(items, circle);
    ASSERT_TRUE(std::is_permutation(items.begin(), items.end(), before.begin(), before.end()));
  }
}

TEST(MergeSort, AsksNoMoreThanItsBoundWhateverTheAnswers) {
  std::mt19937 random(3);
  std::vector<int> items(1024);
  int asked = 0;
  MergeSort(items, [&](int, int) {
    ++asked;
    return random() % 2 == 0;
  });
  EXPECT_LE(asked, 1024 * 10);
}

TEST(MergeSort, SortsItemsThatOnlyMove) {
  std::vector<std::unique_ptr<int>> items;
  for (const int value : {3, 1, 2}) items.push_back(std::make_unique<int>(value));
  MergeSort(items, [](const std::unique_ptr<int>& a, const std::unique_ptr<int>& b) { return *a < *b; });
  EXPECT_EQ(*items[0], 1);
  EXPECT_EQ(*items[2], 3);
}

}  // namespace
}  // namespace pnl
