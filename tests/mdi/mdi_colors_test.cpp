// SPDX-License-Identifier: MIT
// Which control takes which colours.
#include "mdi/mdi_colors.h"

#include <gtest/gtest.h>

namespace pnl {
namespace {

struct Row {
  MdiControl control;
  bool ready;
  bool focused;
  bool own;  // keeps its own look
  MdiColorPair pair;
};

constexpr MdiColorPair kIdle{0xFFFFFF, 0x78643C};
constexpr MdiColorPair kFocused{0x000000, 0xD3BF97};
constexpr MdiColorPair kRunning{0x000000, 0x00A573};

class MdiColorTable : public testing::TestWithParam<Row> {};

TEST_P(MdiColorTable, GivesEachControlItsPair) {
  const Row& row = GetParam();
  const auto pair = MdiControlColors(MdiColors(), row.control, row.ready, row.focused);
  ASSERT_EQ(pair.has_value(), !row.own);
  if (pair) {
    EXPECT_EQ(*pair, row.pair);
  }
}

INSTANTIATE_TEST_SUITE_P(AllRows, MdiColorTable,
                         testing::Values(Row{MdiControl::kEdit, true, false, false, kIdle},
                                         Row{MdiControl::kEdit, true, true, false, kFocused},
                                         Row{MdiControl::kEdit, false, false, false, kRunning},
                                         Row{MdiControl::kEdit, false, true, false, kRunning},
                                         Row{MdiControl::kList, true, false, false, kIdle},
                                         Row{MdiControl::kList, true, true, false, kIdle},
                                         // The list keeps its colours whatever runs.
                                         Row{MdiControl::kList, false, true, false, kIdle},
                                         Row{MdiControl::kOther, true, true, true, {}},
                                         Row{MdiControl::kOther, false, false, false, kRunning}));

TEST(MdiColorsTest, TheBuiltInColoursAreThoseOfThePanel) {
  const MdiColors colors;
  EXPECT_EQ(colors.back, 60u | 100u << 8 | 120u << 16);
  EXPECT_EQ(colors.backFocus, 151u | 191u << 8 | 211u << 16);
  EXPECT_EQ(colors.backRunning, 115u | 165u << 8);
  EXPECT_EQ(kMdiDialogBack, 210u | 185u << 8 | 5u << 16);
  EXPECT_EQ(kMdiSignBack, 232u | 182u << 8 | 2u << 16);
}

}  // namespace
}  // namespace pnl
