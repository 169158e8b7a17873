// SPDX-License-Identifier: MIT
#include "errors/error_layout.h"

#include <gtest/gtest.h>

namespace pnl::test {
namespace {

const ErrorTopRow kRow{{112, 10, 430, 52}, {61, 10, 106, 52}, {436, 10, 466, 42}, {471, 10, 501, 42}};

struct ErrorScaleRow {
  const char* what;
  int areaWidth, areaHeight, width, height;
  double scale;
};

TEST(ErrorScale, GrowsWithThePanelAsLongAsTheWindowHasRoom) {
  for (const ErrorScaleRow& row : {ErrorScaleRow{"as made", 800, 600, 710, 298, 1},
                                   {"a small panel", 640, 480, 550, 178, 1},
                                   {"twice as large", 1600, 1200, 1500, 700, 2},
                                   {"by the height, when that is less", 1600, 900, 1420, 500, 1.5},
                                   {"by the width, when that is less", 1200, 1200, 1100, 700, 1.5},
                                   {"a narrow window", 1600, 1200, 786, 700, 1.5},
                                   {"a low window", 1600, 1200, 1420, 199, 1},
                                   {"no window", 1600, 1200, 0, 0, 1},
                                   {"no panel", 0, 0, 710, 298, 1},
                                   {"a huge panel", 8000, 6000, 7100, 4000, 3}}) {
    EXPECT_DOUBLE_EQ(ErrorScale({0, 0, row.areaWidth, row.areaHeight}, {5, 5, 5 + row.width, 5 + row.height}),
                     row.scale)
        << row.what;
  }
}

TEST(ErrorLayout, TheTitleBoxStandsInTheMiddleWithoutAChannel) {
  const ErrorTopRow row = LayoutTop(710, kRow, false);
  EXPECT_EQ(row.titleBox, (Rect{195, 10, 515, 52}));
  EXPECT_EQ(row.channelBox, kRow.channelBox);
  EXPECT_EQ(row.help, (Rect{525, 10, 555, 42}));
  EXPECT_EQ(row.sign, (Rect{565, 10, 595, 42}));
}

TEST(ErrorLayout, TheChannelBoxStandsBeforeTheTitleBox) {
  const ErrorTopRow row = LayoutTop(710, kRow, true);
  EXPECT_EQ(row.channelBox, (Rect{180, 10, 225, 52}));
  EXPECT_EQ(row.titleBox, (Rect{225, 10, 545, 52}));
  EXPECT_EQ(row.help, (Rect{555, 10, 585, 42}));
  EXPECT_EQ(row.sign, (Rect{595, 10, 625, 42}));
}

TEST(ErrorLayout, TheTitleLineKeepsItsMarginOnBothSides) {
  EXPECT_EQ(LayoutTitleLine({10, 63, 579, 97}, 710), (Rect{10, 63, 700, 97}));
  EXPECT_EQ(LayoutTitleLine({10, 63, 579, 97}, 5), (Rect{10, 63, 10, 97}));
}

TEST(ErrorLayout, ArrowsStandAboveTheTitleLineWithTheirCounterBelow) {
  const ErrorArrow previous{{10, 24, 40, 56}, {19, 10, 49, 26}};
  const ErrorArrow left = LayoutArrow(previous, 63, 590, 710, false);
  EXPECT_EQ(left.arrow, (Rect{10, 10, 40, 42}));
  EXPECT_EQ(left.counter, (Rect{19, 42, 49, 58}));
  const ErrorArrow next{{537, 10, 567, 42}, {543, 41, 573, 57}};
  const ErrorArrow right = LayoutArrow(next, 63, 590, 710, true);
  EXPECT_EQ(right.arrow, (Rect{657, 10, 687, 42}));
  EXPECT_EQ(right.counter, (Rect{663, 42, 693, 58}));
}

TEST(ErrorLayout, TheDescriptionFillsToFifteenFromTheBottom) {
  EXPECT_EQ(LayoutDescription({10, 63, 700, 97}, 12, {0, 0, 710, 298}), (Rect{10, 109, 700, 283}));
  EXPECT_EQ(LayoutDescription({10, 63, 700, 397}, 12, {0, 0, 710, 298}), (Rect{10, 409, 700, 409}));
}

struct FitCase {
  int base, current, needed;
  bool changed;
  int height;
  bool centred;
};

TEST(ErrorLayout, TheTitleLineFitsItsText) {
  const FitCase cases[] = {
      {34, 34, 34, false, 34, true},  {34, 34, 20, false, 34, true}, {34, 34, 60, true, 60, false},
      {34, 60, 60, false, 60, false}, {34, 60, 20, true, 34, true},  {34, 60, 34, true, 34, true},
      {34, 60, 50, true, 50, false},  {34, 60, 80, true, 80, false},
  };
  for (const FitCase& row : cases) {
    const TitleFit fit = FitTitle(row.base, row.current, row.needed);
    const std::string where = std::to_string(row.current) + " for " + std::to_string(row.needed);
    EXPECT_EQ(fit.changed, row.changed) << where;
    EXPECT_EQ(fit.height, row.height) << where;
    EXPECT_EQ(fit.centred, row.centred) << where;
  }
}

}  // namespace
}  // namespace pnl::test
