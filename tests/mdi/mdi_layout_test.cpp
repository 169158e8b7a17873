// SPDX-License-Identifier: MIT
// Where everything lies, in both roles.
#include "mdi/mdi_layout.h"

#include <gtest/gtest.h>

namespace pnl {

static void PrintTo(const Rect& rect, std::ostream* out) {
  *out << rect.left << "," << rect.top << "," << rect.right << "," << rect.bottom;
}

namespace {

constexpr Rect kParent{0, 0, 800, 600};

TEST(MdiLayoutTest, MdiRoleIsOneLineAtTheBottomOverTheWholeWidth) {
  const MdiLayout layout = LayOutMdi(MdiRole::kMdi, {kParent, true, true, 1});
  EXPECT_EQ(layout.window, (Rect{0, 571, 800, 600}));
  EXPECT_EQ(layout.title, (Rect{0, 0, 65, 30}));
  EXPECT_EQ(layout.edit, (Rect{65, 1, 769, 31}));
  EXPECT_EQ(layout.sign, (Rect{769, 1, 799, 31}));
  EXPECT_TRUE(layout.signShown);
  EXPECT_FALSE(layout.listShown);
}

TEST(MdiLayoutTest, AboveItLiesAtTheTop) {
  EXPECT_EQ(LayOutMdi(MdiRole::kMdi, {kParent, true, false, 1}).window, (Rect{0, 0, 800, 29}));
}

TEST(MdiLayoutTest, ShrunkItTakesHalfTheWidth) {
  const MdiLayout layout = LayOutMdi(MdiRole::kMdi, {{0, 0, 801, 600}, false, true, 1});
  EXPECT_EQ(layout.window, (Rect{0, 571, 400, 600}));
  EXPECT_EQ(layout.edit, (Rect{65, 1, 369, 31}));
  EXPECT_EQ(layout.sign, (Rect{369, 1, 399, 31}));
}

TEST(MdiLayoutTest, TheTitleIsWiderWithMoreThanOneChannel) {
  const MdiLayout layout = LayOutMdi(MdiRole::kMdi, {kParent, true, true, 2});
  EXPECT_EQ(layout.title, (Rect{0, 0, 85, 30}));
  EXPECT_EQ(layout.edit, (Rect{85, 1, 769, 31}));
}

TEST(MdiLayoutTest, MdaRoleTakesTheParentWhole) {
  const MdiLayout layout = LayOutMdi(MdiRole::kMda, {kParent, false, false, 2});
  EXPECT_EQ(layout.window, kParent);
  EXPECT_EQ(layout.title, (Rect{0, 0, 800, 30}));
  EXPECT_EQ(layout.list, (Rect{0, 30, 800, 569}));
  EXPECT_EQ(layout.edit, (Rect{0, 570, 800, 600}));
  EXPECT_TRUE(layout.listShown);
  EXPECT_FALSE(layout.signShown);
}

TEST(MdiLayoutTest, NoRectangleIsEverOfNegativeSize) {
  for (const MdiRole role : {MdiRole::kMdi, MdiRole::kMda}) {
    for (const int size : {0, 1, 20, 60, 70, 100}) {
      const MdiLayout layout = LayOutMdi(role, {{0, 0, size, size}, false, true, 1});
      for (const Rect& rect : {layout.window, layout.title, layout.edit, layout.list, layout.sign}) {
        EXPECT_GE(rect.Width(), 0) << size;
        EXPECT_GE(rect.Height(), 0) << size;
      }
    }
  }
}

TEST(MdiLayoutTest, TheDropListHangsUnderTheEditOrStandsOverIt) {
  const Rect edit{65, 101, 369, 131};
  EXPECT_EQ(MdiDropListRect(edit, false), (Rect{65, 131, 399, 281}));
  EXPECT_EQ(MdiDropListRect(edit, true), (Rect{65, -50, 399, 100}));
}

TEST(MdiLayoutTest, TheTitleNamesTheChannelOnlyAmongSeveral) {
  EXPECT_EQ(MdiTitleText(MdiRole::kMdi, 1, 1), u"MDI");
  EXPECT_EQ(MdiTitleText(MdiRole::kMda, 1, 1), u"MDA");
  EXPECT_EQ(MdiTitleText(MdiRole::kMdi, 2, 1), u"MDI C1");
  EXPECT_EQ(MdiTitleText(MdiRole::kMda, 3, 2), u"MDA C2");
}

TEST(MdiLayoutTest, TheTitleBlinksInMdiRoleOnly) {
  EXPECT_EQ(MdiTitleBlink(MdiRole::kMdi), 800);
  EXPECT_EQ(MdiTitleBlink(MdiRole::kMda), 0);
}

}  // namespace
}  // namespace pnl
