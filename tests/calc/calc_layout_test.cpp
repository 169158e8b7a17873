// SPDX-License-Identifier: MIT
// Heights, list rectangles and steps, in pixels.
#include "calc/calc_places.h"

#include <gtest/gtest.h>

namespace pnl {
namespace {

constexpr CalcMeasures kMeasures{{0, 0, 282, 221}, {3, 36, 248, 62},   {3, 3, 279, 31},
                                 {3, 67, 279, 83}, {89, 88, 122, 116}, {3, 190, 36, 218}};

TEST(CalcLayoutTest, NormalSizeRepeatsTheLowestKeysLeftMarginBelowIt) {
  EXPECT_EQ(CalcClientHeight(kMeasures, false), 221);
  CalcMeasures wide = kMeasures;
  wide.lastKey = {10, 190, 40, 218};
  EXPECT_EQ(CalcClientHeight(wide, false), 228);
}

TEST(CalcLayoutTest, CompactSizeEndsAPixelAboveTheKeypad) { EXPECT_EQ(CalcClientHeight(kMeasures, true), 87); }

TEST(CalcLayoutTest, TheListLiesOverTheKeypad) { EXPECT_EQ(CalcListRect(kMeasures, false), (Rect{3, 83, 279, 221})); }

TEST(CalcLayoutTest, InCompactSizeTheListLiesOverTheResult) {
  EXPECT_EQ(CalcListRect(kMeasures, true), (Rect{3, 0, 279, 36}));
}

struct MoveRow {
  Rect window;
  CalcDirection direction;
  std::optional<CalcPlace> place;
};

TEST(CalcLayoutTest, AStepIsEightPixelsAsLongAsTwentyFourStayVisible) {
  constexpr Rect kParent{0, 0, 800, 600};
  const MoveRow rows[] = {
      {{100, 100, 382, 321}, CalcDirection::kLeft, CalcPlace{92, 100}},
      {{100, 100, 382, 321}, CalcDirection::kRight, CalcPlace{108, 100}},
      {{100, 100, 382, 321}, CalcDirection::kUp, CalcPlace{100, 92}},
      {{100, 100, 382, 321}, CalcDirection::kDown, CalcPlace{100, 108}},
      // The last step that leaves 24 pixels, and the first that wouldn't.
      {{-250, 0, 32, 221}, CalcDirection::kLeft, CalcPlace{-258, 0}},
      {{-251, 0, 31, 221}, CalcDirection::kLeft, std::nullopt},
      {{768, 0, 1050, 221}, CalcDirection::kRight, CalcPlace{776, 0}},
      {{769, 0, 1051, 221}, CalcDirection::kRight, std::nullopt},
      {{0, -189, 282, 32}, CalcDirection::kUp, CalcPlace{0, -197}},
      {{0, -190, 282, 31}, CalcDirection::kUp, std::nullopt},
      {{0, 568, 282, 789}, CalcDirection::kDown, CalcPlace{0, 576}},
      {{0, 569, 282, 790}, CalcDirection::kDown, std::nullopt},
      // A window that is out of sight can come back.
      {{2000, 0, 2282, 221}, CalcDirection::kRight, std::nullopt},
      {{2000, 0, 2282, 221}, CalcDirection::kLeft, CalcPlace{1992, 0}},
      {{-2000, 0, -1718, 221}, CalcDirection::kLeft, std::nullopt},
      {{-2000, 0, -1718, 221}, CalcDirection::kRight, CalcPlace{-1992, 0}},
  };
  for (const MoveRow& row : rows) {
    EXPECT_EQ(MoveCalc(row.window, kParent, row.direction), row.place) << row.window.left << "," << row.window.top;
  }
}

}  // namespace
}  // namespace pnl
