// SPDX-License-Identifier: MIT
#include "explorer/xplr_scan.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <limits>
#include <random>
#include <string>

namespace pnl {
namespace {

using Five = std::array<std::int32_t, 5>;

struct ScanCase {
  const char16_t* text;
  std::size_t count;
  Five numbers;
};

TEST(XplrScan, ReadingEndsAtTheFirstDifference) {
  const ScanCase cases[] = {
      {u"1 0 1 0,2", 5, {1, 0, 1, 0, 2}},
      {u"", 0, {}},
      {u"x", 0, {}},
      {u"1", 1, {1}},
      {u"1 2 3", 3, {1, 2, 3}},
      {u"1 2 3 4", 4, {1, 2, 3, 4}},
      {u"1 2 3 4,", 4, {1, 2, 3, 4}},
      {u"1 2 3 4,x", 4, {1, 2, 3, 4}},
      {u"1 2 3 4 ,5", 4, {1, 2, 3, 4}},
      {u"1 2 3 4, 5", 5, {1, 2, 3, 4, 5}},
      {u"1 2 3 4;5", 4, {1, 2, 3, 4}},
      {u" \t\n1\v\f\r2 3 4,5", 5, {1, 2, 3, 4, 5}},
      {u"1-2+3-4,+5", 5, {1, -2, 3, -4, 5}},
      {u"1 - 2", 1, {1}},
      {u"1 +", 1, {1}},
      {u"1 2 3 4,5 and more", 5, {1, 2, 3, 4, 5}},
      {u"1\u00A02", 1, {1}},
      {u"99999999999 -99999999999 0,5",
       3,
       {std::numeric_limits<std::int32_t>::max(), std::numeric_limits<std::int32_t>::min(), 0}},
  };
  for (const ScanCase& row : cases) {
    Five numbers{};
    EXPECT_EQ(ScanNumbers(row.text, u"%d %d %d %d,%d", numbers), row.count) << ToUtf8(row.text);
    EXPECT_EQ(numbers, row.numbers) << ToUtf8(row.text);
  }
}

TEST(XplrScan, NumbersThatAreNotReadStayAsTheyWere) {
  Five numbers{7, 7, 7, 7, 7};
  EXPECT_EQ(ScanNumbers(u"1 2,", u"%d %d %d", numbers), 2u);
  EXPECT_EQ(numbers, (Five{1, 2, 7, 7, 7}));
}

TEST(XplrScan, NoMoreNumbersAreReadThanThereIsRoomFor) {
  std::array<std::int32_t, 1> one{};
  EXPECT_EQ(ScanNumbers(u"1 2", u"%d %d", one), 1u);
  EXPECT_EQ(one[0], 1);
}

TEST(XplrScan, AnyTextReadsAsBySscanf) {
  std::mt19937 random(20260801);
  const auto below = [&](unsigned end) { return static_cast<unsigned>(random() % end); };
  const std::string letters = "0123456789 /:,-+\tx";
  for (int i = 0; i < 20000; ++i) {
    std::string text;
    for (std::size_t length = below(24); length > 0; --length)
      text += letters[below(static_cast<unsigned>(letters.size()))];
    if (below(2) == 0) {
      char near[64];
      std::snprintf(near, sizeof near, "%u/%u/%u %u:%u:%u", below(40), below(14), below(3000), below(30), below(70),
                    below(70));
      text = near;
      text[below(static_cast<unsigned>(text.size()))] = letters[below(static_cast<unsigned>(letters.size()))];
    }
    std::array<std::int32_t, 6> ours{};
    std::array<std::int32_t, 6> theirs{};
    const int count = std::sscanf(text.c_str(), "%d/%d/%d %d:%d:%d", &theirs[0], &theirs[1], &theirs[2], &theirs[3],
                                  &theirs[4], &theirs[5]);
    bool tooLong = false;  // for sscanf, which says nothing about such numbers
    std::size_t digits = 0;
    for (const char c : text) {
      digits = c >= '0' && c <= '9' ? digits + 1 : 0;
      tooLong = tooLong || digits > 9;
    }
    if (tooLong) continue;
    EXPECT_EQ(ScanNumbers(FromUtf8(text), u"%d/%d/%d %d:%d:%d", ours), static_cast<std::size_t>(std::max(count, 0)))
        << text;
    EXPECT_EQ(ours, theirs) << text;
  }
}

}  // namespace
}  // namespace pnl
