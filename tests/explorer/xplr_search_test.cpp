// SPDX-License-Identifier: MIT
#include "explorer/xplr_search.h"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

namespace pnl {
namespace {

constexpr int kNone = -1;

class FakeRows final : public SearchRows {
 public:
  FakeRows(std::vector<Text> names, int selected) : names_(std::move(names)), selected_(selected) {}
  [[nodiscard]] std::size_t Count() const override { return names_.size(); }
  [[nodiscard]] TextView Name(std::size_t row) const override { return names_.at(row); }
  [[nodiscard]] std::optional<std::size_t> Selected() const override {
    if (selected_ == kNone) return std::nullopt;
    return static_cast<std::size_t>(selected_);
  }

 private:
  std::vector<Text> names_;
  int selected_;
};

struct SearchCase {
  std::vector<Text> names;
  int selected;
  const char16_t* text;
  bool forward;
  int result;
  int row;  // of result 1
};

TEST(XplrSearch, ASearchGoesOnFromTheSelectedRowAndRoundTheEnd) {
  const std::vector<Text> four = {u"alpha", u"beta", u"Alto", u"gamma"};
  const SearchCase cases[] = {
      // Nothing selected: from one end to the other.
      {four, kNone, u"al", true, 1, 0},
      {four, kNone, u"al", false, 1, 2},
      {four, kNone, u"gam", true, 1, 3},
      {four, kNone, u"alp", false, 1, 0},
      {four, kNone, u"x", true, 0, 0},
      {four, kNone, u"x", false, 0, 0},
      // From the selected one on.
      {four, 0, u"al", true, 1, 2},
      {four, 2, u"al", true, 1, 0},
      {four, 2, u"al", false, 1, 0},
      {four, 0, u"al", false, 1, 2},
      {four, 1, u"al", true, 1, 2},
      {four, 1, u"al", false, 1, 0},
      {four, 1, u"a", true, 1, 2},
      // From the ends.
      {four, 3, u"alp", true, 1, 0},
      {four, 3, u"a", true, 1, 0},
      {four, 0, u"a", false, 1, 3},
      // Only the selected one, or none.
      {four, 1, u"bet", true, 2, 0},
      {four, 1, u"bet", false, 2, 0},
      {four, 0, u"alp", false, 2, 0},
      {four, 3, u"gam", true, 2, 0},
      {four, 1, u"x", true, 0, 0},
      {four, 1, u"x", false, 0, 0},
      // One row.
      {{u"one"}, kNone, u"ON", true, 1, 0},
      {{u"one"}, kNone, u"ON", false, 1, 0},
      {{u"one"}, 0, u"ON", true, 2, 0},
      {{u"one"}, 0, u"ON", false, 2, 0},
      {{u"one"}, 0, u"x", true, 0, 0},
      // Anywhere in the name, without regard to case.
      {four, kNone, u"TO", true, 1, 2},
      {four, kNone, u"alpha1", true, 0, 0},
      {{u"a", u"CAÑÓN.nc"}, kNone, u"ñó", true, 1, 1},
      // A selection that there isn't is none.
      {four, 4, u"al", true, 1, 0},
      {four, 99, u"gam", false, 1, 3},
      {four, 99, u"x", true, 0, 0},
  };
  for (const SearchCase& row : cases) {
    const std::string what =
        "from " + std::to_string(row.selected) + " for " + ToUtf8(row.text) + (row.forward ? " forward" : " backward");
    SearchState state{row.text, !row.forward};
    const auto answer = SearchList(FakeRows(row.names, row.selected), state, row.forward);
    ASSERT_TRUE(answer) << what;
    EXPECT_EQ(static_cast<int>(answer->result), row.result) << what;
    EXPECT_EQ(answer->row, static_cast<std::size_t>(row.row)) << what;
    EXPECT_EQ(state.forward, row.forward);
  }
}

TEST(XplrSearch, FindWrapsAndASearchFromTheLastRowFindsRow0) {
  SearchState state{u"a"};
  const auto answer = SearchList(FakeRows({u"a1", u"b", u"a2"}, 2), state, true);
  ASSERT_TRUE(answer);
  EXPECT_EQ(answer->result, FindResult::kFound);
  EXPECT_EQ(answer->row, 0u);
}

TEST(XplrSearch, TheTextTurnsIntoCapitals) {
  SearchState state{u"añ1"};
  (void)SearchList(FakeRows({u"b"}, kNone), state, true);
  EXPECT_EQ(ToUtf8(state.text), "AÑ1");
}

TEST(XplrSearch, WithoutTextOrRowsNothingHappens) {
  SearchState empty{u"", true};
  EXPECT_FALSE(SearchList(FakeRows({u"a"}, 0), empty, false));
  EXPECT_TRUE(empty.forward);
  SearchState state{u"a", true};
  EXPECT_FALSE(SearchList(FakeRows({}, kNone), state, false));
  EXPECT_EQ(ToUtf8(state.text), "a");
  EXPECT_TRUE(state.forward);
}

/// Step by step along the list: from the row beside the selected one to the selected one again, or to the end of the
/// list.
int SteppedResult(const std::vector<Text>& names, int selected, TextView capitals, bool forward, int& cur) {
  const int count = static_cast<int>(names.size());
  const int start = forward ? 0 : count - 1;
  const int stop = forward ? count : -1;
  const int step = forward ? 1 : -1;
  const auto contains = [&](int row) {
    return ToUpper(names[static_cast<std::size_t>(row)]).find(capitals) != Text::npos;
  };
  cur = start;
  if (selected != kNone) cur = selected + step == stop ? start : selected + step;
  while (cur != selected) {
    if (contains(cur)) return 1;
    cur += step;
    if (cur == stop) cur = selected != kNone ? start : kNone;
  }
  return cur != kNone && contains(cur) ? 2 : 0;
}

TEST(XplrSearch, AnyListIsSearchedAsStepByStep) {
  std::mt19937 random(5);
  const auto make = [&](TextView letters, std::size_t least, std::size_t most) {
    Text text;
    for (std::size_t length = least + random() % (most - least + 1); length > 0; --length) {
      text += letters[random() % letters.size()];
    }
    return text;
  };
  for (int i = 0; i < 20000; ++i) {
    std::vector<Text> names(1 + random() % 6);
    for (Text& name : names) name = make(u"abAB", 0, 4);
    const int selected = static_cast<int>(random() % (names.size() + 1)) - 1;
    const bool forward = random() % 2 == 0;
    SearchState state{make(u"aB", 1, 3), true};
    int cur = 0;
    const int expected = SteppedResult(names, selected, ToUpper(state.text), forward, cur);
    const auto answer = SearchList(FakeRows(names, selected), state, forward);
    ASSERT_TRUE(answer);
    ASSERT_EQ(static_cast<int>(answer->result), expected);
    if (expected == 1) {
      ASSERT_EQ(answer->row, static_cast<std::size_t>(cur));
    }
  }
}

}  // namespace
}  // namespace pnl
