// SPDX-License-Identifier: MIT
// Where the parts of the panel stand, at every size and density: nothing overlaps, nothing is too small for a finger.
#include "ui/panel_layout.h"

#include <gtest/gtest.h>

#include "common/shortcuts.h"
#include "ui/theme.h"

namespace panel {
namespace {

std::vector<QRect> Parts(const PanelLayout& layout) {
  return {layout.status,  layout.readings, layout.axes,    layout.modal,       layout.toolArea,
          layout.sideBar, layout.messages, layout.mainBar, layout.operatorKeys};
}

void ExpectSound(const PanelLayout& layout, int touch) {
  const auto parts = Parts(layout);
  const QRect window(QPoint(0, 0), layout.window);
  for (std::size_t i = 0; i < parts.size(); ++i) {
    EXPECT_TRUE(window.contains(parts[i])) << "part " << i << " leaves the window";
    EXPECT_FALSE(parts[i].isEmpty()) << "part " << i;
    for (std::size_t j = i + 1; j < parts.size(); ++j) {
      EXPECT_FALSE(parts[i].intersects(parts[j])) << "parts " << i << " and " << j;
    }
  }
  EXPECT_GE(layout.mainBar.height(), touch);
  EXPECT_GE(layout.operatorKeys.height(), touch);
  EXPECT_GE(layout.sideBar.width(), touch);
}

struct SizeRow {
  QSize size;
  double dotsPerInch;
};

class LayoutAt : public ::testing::TestWithParam<SizeRow> {};

TEST_P(LayoutAt, WithinAWindowNothingOverlapsAndKeysAreBigEnough) {
  const int touch = theme::TouchPixels(GetParam().dotsPerInch);
  const PanelLayout layout = LayOutWithin(GetParam().size, touch);
  EXPECT_EQ(layout.window, GetParam().size);
  ExpectSound(layout, touch);
  EXPECT_GE(layout.toolArea.height(), layout.window.height() / 3);
  EXPECT_GE(layout.toolArea.width(), layout.window.width() / 2);
  // Seven keys, two for paging, and the machine's nine share a row.
  EXPECT_GE(layout.mainBar.width() / 9 - 4, touch);
  EXPECT_GE(layout.sideBar.height() / kSideKeys - 4, touch);
}

TEST_P(LayoutAt, AroundAToolAreaTheAreaHasExactlyItsSize) {
  const int touch = theme::TouchPixels(GetParam().dotsPerInch);
  const PanelLayout layout = LayOutAround(GetParam().size, touch);
  EXPECT_EQ(layout.toolArea.size(), GetParam().size);
  ExpectSound(layout, touch);
}

INSTANTIATE_TEST_SUITE_P(Sizes, LayoutAt,
                         ::testing::Values(SizeRow{{800, 600}, 96}, SizeRow{{800, 600}, 110}, SizeRow{{1024, 768}, 96},
                                           SizeRow{{1280, 720}, 96}, SizeRow{{1280, 1024}, 96},
                                           SizeRow{{1199, 701}, 96}, SizeRow{{1366, 768}, 120},
                                           SizeRow{{1920, 1080}, 96}, SizeRow{{1920, 1080}, 160}));

TEST(LayoutTest, AToolAreaOfAnySizeIsGivenExactly) {
  for (const QSize size : {QSize(1, 1), QSize(100, 100), QSize(300, 1000), QSize(8000, 100), QSize(8000, 8000)}) {
    const PanelLayout layout = LayOutAround(size, 35);
    EXPECT_EQ(layout.toolArea.size(), size);
    EXPECT_TRUE(QRect(QPoint(0, 0), layout.window).contains(layout.toolArea));
  }
}

TEST(LayoutTest, AWindowThatIsTooSmallIsLaidOutAsTheLeastOne) {
  EXPECT_EQ(LayOutWithin(QSize(10, 10), 35).window, kLeastWindow);
  ExpectSound(LayOutWithin(QSize(10, 10), 35), 35);
}

TEST(LayoutTest, AWideWindowHasTheAxesBesideTheToolArea) {
  EXPECT_TRUE(LayOutWithin(QSize(1920, 1080), 35).wide);
  EXPECT_FALSE(LayOutWithin(QSize(800, 600), 35).wide);
  EXPECT_EQ(LayOutWithin(QSize(800, 600), 35).scale, 1.0);
  EXPECT_GT(LayOutWithin(QSize(1920, 1080), 35).scale, 1.5);
}

TEST(TouchTest, NineMillimetresHoldAtEveryDensity) {
  for (const double dpi : {72.0, 96.0, 120.0, 160.0, 220.0}) {
    EXPECT_GE(theme::TouchPixels(dpi) * 25.4 / dpi, 9.0 - 1e-6) << dpi;
  }
  EXPECT_EQ(theme::TouchPixels(0), theme::TouchPixels(96));
  EXPECT_EQ(theme::TouchPixels(1e9), theme::TouchPixels(96));
  EXPECT_GE(theme::TouchPixels(40), 34);
}

}  // namespace
}  // namespace panel
