// SPDX-License-Identifier: MIT
#include "explorer/xplr_layout.h"

#include <gtest/gtest.h>

#include <ostream>

namespace pnl {
static std::ostream& operator<<(std::ostream& out, const Rect& rect) {
  return out << rect.left << ',' << rect.top << ' ' << rect.Width() << 'x' << rect.Height();
}
namespace {

Rect At(int x, int y, int width, int height) { return {x, y, x + width, y + height}; }

TEST(XplrLayout, TheListModeOfARequestGoesBeforeThePin) {
  struct {
    std::uint32_t flags;
    LayoutMode mode;
  } const rows[] = {{0, LayoutMode::kTreeAndList},
                    {XPLR_LISTONLY, LayoutMode::kListOnly},
                    {XPLR_PINNED, LayoutMode::kPinnedList},
                    {XPLR_PINNED | XPLR_LISTONLY, LayoutMode::kListOnly},
                    {XPLR_FOLDERMODE | XPLR_MUSTEXIST, LayoutMode::kTreeAndList}};
  for (const auto& row : rows) {
    XplrState state;
    state.Flags = row.flags;
    EXPECT_EQ(LayoutOf(state), row.mode) << row.flags;
  }
}

TEST(XplrLayout, TreeAndListShareTheRoomBelowTheHeadings) {
  const XplrLayout layout = LayOutXplr(800, 520, LayoutMode::kTreeAndList);
  EXPECT_EQ(layout.caption, At(0, 0, 800, 40));
  EXPECT_EQ(layout.filter, At(0, 39, 300, 30));
  EXPECT_EQ(layout.folder, At(300, 39, 500, 30));
  EXPECT_EQ(layout.tree, At(0, 69, 300, 422));
  EXPECT_EQ(layout.list, At(300, 69, 500, 422));
  EXPECT_EQ(layout.label, At(0, 492, 100, 28));
  EXPECT_EQ(layout.name, At(101, 493, 698, 26));
  EXPECT_TRUE(layout.showsTree);
}

TEST(XplrLayout, AListAloneTakesTheWholeWidth) {
  for (const LayoutMode mode : {LayoutMode::kListOnly, LayoutMode::kPinnedList}) {
    const XplrLayout layout = LayOutXplr(1024, 700, mode);
    EXPECT_EQ(layout.caption, At(0, 0, 1024, 40));
    EXPECT_EQ(layout.folder, At(0, 39, 1024, 30));
    EXPECT_EQ(layout.list, At(0, 69, 1024, 602));
    EXPECT_EQ(layout.label, At(0, 672, 100, 28));
    EXPECT_EQ(layout.name, At(101, 673, 922, 26));
    EXPECT_FALSE(layout.showsTree);
  }
}

}  // namespace
}  // namespace pnl
