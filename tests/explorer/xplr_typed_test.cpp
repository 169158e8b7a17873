// SPDX-License-Identifier: MIT
#include "explorer/xplr_typed.h"

#include <gtest/gtest.h>

namespace pnl::test {
namespace {

std::vector<XplrRow> Rows(const std::vector<Text>& names) {
  std::vector<XplrRow> rows;
  for (const Text& name : names) {
    rows.emplace_back();
    rows.back().name = name;
  }
  return rows;
}

TEST(XplrTyped, EachLetterGoesToTheFirstNameThatBeginsSo) {
  const auto rows = Rows({u"SUB", u"b.txt", u"Part2.nc", u"PART1.nc", u"pocket.nc", u"\u00C9t\u00E9.nc"});
  const struct {
    std::vector<Text> typed;
    std::optional<std::size_t> row;  // after the last letter
    Text letters;
  } cases[] = {
      {{u"p"}, 2, u"p"},
      {{u"p", u"A", u"r", u"t", u"1"}, 3, u"pArt1"},
      {{u"p", u"o"}, 4, u"po"},
      {{u"p", u"x"}, std::nullopt, u"p"},
      {{u"p", u"x", u"o"}, 4, u"po"},
      {{u"\u00E9"}, 5, u"\u00E9"},
      {{u"x"}, std::nullopt, u""},
      {{u" "}, std::nullopt, u""},
      {{u"b", u".txt"}, 1, u"b.txt"},
      {{u"b", u".txt", u"x"}, std::nullopt, u"b.txt"},
      {{u""}, std::nullopt, u""},
  };
  for (const auto& test : cases) {
    XplrTyped typed;
    std::optional<std::size_t> row;
    for (const Text& letters : test.typed) row = typed.Add(letters, rows);
    EXPECT_EQ(row, test.row) << ToUtf8(test.letters);
    EXPECT_TRUE(typed.Letters() == test.letters) << ToUtf8(test.letters);
  }
}

TEST(XplrTyped, ALetterIsTakenBackWhole) {
  const auto rows = Rows({u"ab", u"a\U0001F600c", u"a"});
  XplrTyped typed;
  EXPECT_EQ(typed.Add(u"a", rows), 0u);
  EXPECT_EQ(typed.Add(u"\U0001F600", rows), 1u);
  EXPECT_EQ(typed.TakeBack(rows), 0u);
  EXPECT_TRUE(typed.Letters() == u"a");
  EXPECT_EQ(typed.TakeBack(rows), std::nullopt);
  EXPECT_TRUE(typed.Letters().empty());
  EXPECT_EQ(typed.TakeBack(rows), std::nullopt);
}

TEST(XplrTyped, HalfACharacterIsTakenBackAsOneLetter) {
  const Text half(1, char16_t{0xDE00});
  const auto rows = Rows({half + u"x"});
  XplrTyped typed;
  EXPECT_EQ(typed.Add(half, rows), 0u);
  EXPECT_EQ(typed.TakeBack(rows), std::nullopt);
  EXPECT_TRUE(typed.Letters().empty());
}

TEST(XplrTyped, WithoutRowsNothingIsTyped) {
  XplrTyped typed;
  EXPECT_EQ(typed.Add(u"a", {}), std::nullopt);
  EXPECT_TRUE(typed.Letters().empty());
}

}  // namespace
}  // namespace pnl::test
