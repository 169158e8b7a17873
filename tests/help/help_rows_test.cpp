// SPDX-License-Identifier: MIT
// Rows of the contents, the index and the found pages: what they say, which a typed text means, and their order.
#include "help/help_rows.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <random>

#include "help/help_recent.h"

namespace pnl::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(HelpRows, AWordOfTheIndexLeadsToItsTopics) {
  const ManualPlace one{u"a.htm", u"x"};
  const ManualPlace two{u"b.htm", u""};
  const std::vector<ManualWord> index = {
      {u"one", 0, {{u"A", one, 0}}}, {u"two", 1, {{u"A", one, 0}, {u"B", two, 0}}}, {u"none", 0, {}}};
  EXPECT_THAT(IndexRows(index), ElementsAre(HelpRow{u"one", 0, one}, HelpRow{u"two", 1, one}, HelpRow{u"A", 2, one},
                                            HelpRow{u"B", 2, two}, HelpRow{u"none", 0, {}}));
}

TEST(HelpRows, TheContentsKeepOrderAndDepth) {
  const std::vector<ManualTopic> contents = {{u"A", {u"a.htm", u""}, 0}, {u"B", {u"b.htm", u"x"}, 3}};
  EXPECT_THAT(ContentsRows(contents),
              ElementsAre(HelpRow{u"A", 0, {u"a.htm", u""}}, HelpRow{u"B", 3, {u"b.htm", u"x"}}));
}

TEST(HelpRows, APageIsFoundInTheContents) {
  const std::vector<HelpRow> rows = {{u"-", 0, {}},
                                     {u"A", 0, {u"a.htm", u""}},
                                     {u"A x", 1, {u"A.htm", u"x"}},
                                     {u"A y", 1, {u"a.htm", u"y"}},
                                     {u"B", 0, {u"b.htm", u"z"}}};
  struct Row {
    TextView page;
    TextView anchor;
    int row;
  };
  for (const Row& row : {Row{u"a.htm", u"", 1}, Row{u"a.htm", u"x", 2}, Row{u"a.htm", u"y", 3}, Row{u"a.htm", u"q", 1},
                         Row{u"A.HTM", u"y", 3}, Row{u"b.htm", u"", 4}, Row{u"c.htm", u"", -1}, Row{u"", u"", -1}}) {
    EXPECT_EQ(ContentsRowOf(rows, row.page, row.anchor), row.row);
  }
}

TEST(HelpRows, ATypedTextMeansTheFirstRowThatBeginsWithIt) {
  const std::vector<HelpRow> rows = {
      {u"Axis", 0, {}}, {u"block", 1, {}}, {u"Block", 0, {}}, {u"cut", 2, {}}, {u"Ñu", 0, {}}};
  struct Row {
    TextView typed;
    int row;
  };
  for (const Row& row : {Row{u"", -1}, Row{u"a", 0}, Row{u"AXIS", 0}, Row{u"axiss", -1}, Row{u"b", 2}, Row{u"cu", 3},
                         Row{u"ñ", 4}, Row{u"z", -1}}) {
    EXPECT_EQ(TypedRow(rows, row.typed), row.row);
  }
  EXPECT_EQ(TypedRow({}, u"a"), -1);
}

// The comparator of the found pages.

TEST(HelpResults, TheComparatorComparesTitlesThenPlaces) {
  const Text hundred(100, u'h');
  const std::vector<ResultRow> rows = {
      {u"b", u"", 10},           {u"a", u"", 11},    {u"b", u"", 12}, {u"B", u"", 13}, {hundred + u"z", u"", 14},
      {hundred + u"a", u"", 15}, {hundred, u"", 16}, {u"", u"", 17},  {u"é", u"", 18}};
  const ResultOrder order(rows);
  struct Row {
    std::intptr_t first;
    std::intptr_t second;
    int sign;
  };
  for (const Row& row :
       {Row{11, 10, -1}, Row{10, 11, 1},
        // Equal: 1 for the one further down, else 0, also for a row and itself.
        Row{10, 12, 0}, Row{12, 10, 1}, Row{10, 10, 0},
        // By code units, so capitals come first and accents last.
        Row{13, 11, -1}, Row{18, 10, 1},
        // Only the first 100 characters count.
        Row{14, 15, 0}, Row{15, 14, 1}, Row{16, 14, 1}, Row{14, 16, 0}, Row{17, 11, -1}, Row{11, 17, 1},
        // A row that isn't found comes before every other, whichever it is.
        Row{99, 10, -1}, Row{10, 99, -1}, Row{99, 99, -1}}) {
    const int compared = order.Compare(row.first, row.second);
    EXPECT_EQ((compared > 0) - (compared < 0), row.sign) << row.first << " and " << row.second;
  }
  EXPECT_EQ(order.Compare(12, 10), 1);
  EXPECT_EQ(order.Compare(99, 10), -1);
}

TEST(HelpResults, ANinetyNinthCharacterStillCounts) {
  const Text head(99, u'h');
  const std::vector<ResultRow> rows = {{head + u"b", u"", 0}, {head + u"a", u"", 1}};
  EXPECT_GT(ResultOrder(rows).Compare(0, 1), 0);
}

TEST(HelpResults, OfTwoRowsWithTheSameDataTheFirstIsFound) {
  const std::vector<ResultRow> rows = {{u"m", u"", 1}, {u"z", u"", 7}, {u"a", u"", 7}};
  EXPECT_LT(ResultOrder(rows).Compare(1, 7), 0);
}

TEST(HelpResults, SortingKeepsTheOrderOfEqualTitles) {
  std::vector<ResultRow> rows = {{u"c", u"1", 0}, {u"a", u"2", 1}, {u"b", u"3", 2}, {u"a", u"4", 3}, {u"A", u"5", 4}};
  SortResults(rows);
  std::vector<Text> pages;
  for (const ResultRow& row : rows) pages.push_back(row.page);
  EXPECT_THAT(pages, ElementsAre(u"5", u"2", u"4", u"3", u"1"));
  // Sorting again changes nothing.
  const std::vector<ResultRow> before = rows;
  SortResults(rows);
  EXPECT_EQ(rows, before);
}

// With data that occurs twice the comparison is no order at all.
TEST(HelpResults, SortingLosesNoRowWhateverTheDataIs) {
  std::mt19937 random(7);
  for (int round = 0; round < 200; ++round) {
    std::vector<ResultRow> rows;
    for (std::size_t i = 0; i < 1 + random() % 40; ++i) {
      rows.push_back({Text(random() % 3, static_cast<char16_t>(u'a' + random() % 3)), u"p",
                      static_cast<std::intptr_t>(random() % 5)});
    }
    const auto key = [](const ResultRow& row) { return std::pair(row.title, row.data); };
    std::vector<std::pair<Text, std::intptr_t>> before;
    for (const ResultRow& row : rows) before.push_back(key(row));
    SortResults(rows);
    std::vector<std::pair<Text, std::intptr_t>> after;
    for (const ResultRow& row : rows) after.push_back(key(row));
    EXPECT_THAT(after, testing::UnorderedElementsAreArray(before));
  }
}

// The pages that were read.

TEST(HelpRecent, TheLatestPageIsInFrontAndEachIsListedOnce) {
  RecentPages recent;
  EXPECT_THAT(recent.All(), IsEmpty());
  recent.Add({u"C:\\M.chm", u"a.htm", u"1", u"A"});
  recent.Add({u"C:\\M.chm", u"b.htm", u"", u"B"});
  recent.Add({u"C:\\N.chm", u"a.htm", u"", u"N A"});
  recent.Add({u"c:\\m.CHM", u"A.htm", u"2", u"A again"});
  std::vector<Text> titles;
  for (const RecentPage& page : recent.All()) titles.push_back(page.title);
  EXPECT_THAT(titles, ElementsAre(u"A again", u"N A", u"B"));
  EXPECT_EQ(recent.All().front().anchor, u"2");
}

TEST(HelpRecent, TenPagesAreKept) {
  RecentPages recent;
  for (int i = 0; i < 25; ++i) recent.Add({u"M", Text(1, static_cast<char16_t>(u'a' + i)), u"", u""});
  ASSERT_EQ(recent.All().size(), 10u);
  EXPECT_EQ(recent.All().front().page, u"y");
  EXPECT_EQ(recent.All().back().page, u"p");
}

}  // namespace
}  // namespace pnl::test
