// SPDX-License-Identifier: MIT
#include "zmc/logic/zmc_focus.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

namespace pnl::test {
namespace {

using enum ZmcStop;

constexpr ZmcFocusState kEverything{false, true, true, true, true, true};

std::vector<ZmcStop> Walk(bool forward, const ZmcFocusState& state) {
  std::vector<ZmcStop> stops{kMaterial};
  for (ZmcStop at = NextStop(kMaterial, forward, state); at != kMaterial; at = NextStop(at, forward, state)) {
    stops.push_back(at);
    if (stops.size() > kZmcStops) break;
  }
  return stops;
}

TEST(ZmcFocus, ForwardGoesThroughEveryStopInOrder) {
  EXPECT_EQ(Walk(true, kEverything),
            (std::vector<ZmcStop>{kMaterial, kOperation, kGrid, kRemarkCheck, kRemark, kToolCheck, kTool, kM6Check, kD,
                                  kZ, kFCheck, kF, kFUnit, kSCheck, kS, kSUnit, kPower, kDmcCheck, kDmcText}));
}

struct FocusRow {
  const char* name;
  ZmcFocusState state;
  std::vector<ZmcStop> missing;
};

const FocusRow kFocusRows[] = {
    {"everything", kEverything, {}},
    {"no operations", {true, true, true, true, true, true}, {kGrid}},
    {"no M6", {false, false, true, true, true, true}, {kM6Check}},
    {"a cutter", {false, true, false, true, false, true}, {kD, kZ}},
    {"a turning tool", {false, true, true, false, false, true}, {kZ}},
    {"teeth hidden, though enabled", {false, true, true, false, true, true}, {kZ}},
    {"no DMC", {false, true, true, true, true, false}, {kPower, kDmcCheck, kDmcText}},
    {"nothing", {true, false, false, false, false, false}, {kGrid, kM6Check, kD, kZ, kPower, kDmcCheck, kDmcText}},
};

TEST(ZmcFocus, WhatIsNotThereIsSkipped) {
  for (const FocusRow& row : kFocusRows) {
    std::vector<ZmcStop> expected;
    for (int i = 0; i < kZmcStops; ++i) {
      const auto stop = static_cast<ZmcStop>(i);
      if (std::find(row.missing.begin(), row.missing.end(), stop) == row.missing.end()) expected.push_back(stop);
    }
    EXPECT_EQ(Walk(true, row.state), expected) << row.name;
  }
}

TEST(ZmcFocus, BackwardIsTheExactReverse) {
  for (const FocusRow& row : kFocusRows) {
    std::vector<ZmcStop> expected = Walk(true, row.state);
    std::reverse(expected.begin() + 1, expected.end());
    EXPECT_EQ(Walk(false, row.state), expected) << row.name;
  }
}

TEST(ZmcFocus, FromAnOperationBoxWithoutItemsTheFocusGoesToTheRemark) {
  EXPECT_EQ(NextStop(kOperation, true, {true, true, true, true, true, true}), kRemarkCheck);
  EXPECT_EQ(NextStop(kOperation, true, kEverything), kGrid);
}

TEST(ZmcFocus, AStopThatIsGoneIsLeftFromItsPlace) {
  const ZmcFocusState noDmc{false, false, false, false, false, false};
  EXPECT_EQ(NextStop(kDmcCheck, true, noDmc), kMaterial);
  EXPECT_EQ(NextStop(kDmcCheck, false, noDmc), kSUnit);
  EXPECT_EQ(NextStop(kM6Check, true, noDmc), kFCheck);
}

TEST(ZmcFocus, TheGridIsEnteredWhereItsFirstRowCanBeEdited) {
  EXPECT_EQ(FirstEditableCell(true).row, 1);
  EXPECT_EQ(FirstEditableCell(true).column, 3);
  EXPECT_EQ(FirstEditableCell(false).row, 1);
  EXPECT_EQ(FirstEditableCell(false).column, 1);
}

}  // namespace
}  // namespace pnl::test
