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
          layout.sideBar, layout.messages, layout.mainBar, layout.reservedRow, layout.operatorKeys};
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
  EXPECT_GE(layout.operatorKeys.height() * 3, touch * 4) << "12 mm where an ordinary key has 9";
  EXPECT_GE(layout.reservedRow.height() * 3, touch * 4);
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

TEST(LayoutTest, TheBiggestKeysLeaveAnEighthForTheToolArea) {
  for (const QSize& size : {QSize(800, 480), QSize(800, 600), QSize(1024, 768), QSize(1920, 1080)}) {
    const int most = MostTouch(size);
    EXPECT_GE(LayOutWithin(size, most).toolArea.height() * 8, size.height()) << size.width();
    EXPECT_LT(LayOutWithin(size, most + 1).toolArea.height() * 8, size.height()) << size.width();
    EXPECT_GE(most, theme::TouchPixels(130)) << size.width();
  }
  EXPECT_GE(MostTouch(QSize(1, 1)), 34) << "a key is never smaller";
}

struct LayoutRow {
  bool around;  // the size is that of the tool area, else of the window
  QSize size;
  int touch;
  QSize window;
  double scale;
  bool wide;
  QRect status, axes, readings, modal, toolArea, sideBar, messages, mainBar, reservedRow, operatorKeys;
};

TEST(LayoutTest, EveryPartStandsFourPixelsBesideTheNext) {
  for (const LayoutRow& row : {LayoutRow{false,
                                         {800, 600},
                                         36,
                                         {800, 600},
                                         1,
                                         false,
                                         {4, 4, 330, 40},
                                         {4, 48, 688, 80},
                                         {338, 4, 458, 40},
                                         {4, 132, 688, 22},
                                         {4, 162, 688, 212},
                                         {696, 48, 100, 330},
                                         {4, 382, 792, 44},
                                         {4, 430, 792, 56},
                                         {4, 490, 792, 48},
                                         {4, 542, 792, 54}},
                               LayoutRow{false,
                                         {1024, 768},
                                         36,
                                         {1024, 768},
                                         1.28,
                                         false,
                                         {4, 4, 423, 52},
                                         {4, 60, 884, 102},
                                         {431, 4, 589, 52},
                                         {4, 166, 884, 28},
                                         {4, 202, 884, 289},
                                         {892, 60, 128, 435},
                                         {4, 499, 1016, 56},
                                         {4, 559, 1016, 72},
                                         {4, 635, 1016, 56},
                                         {4, 695, 1016, 69}},
                               LayoutRow{false,
                                         {1199, 700},
                                         36,
                                         {1199, 700},
                                         1.16667,
                                         false,
                                         {4, 4, 496, 47},
                                         {4, 55, 1070, 93},
                                         {504, 4, 691, 47},
                                         {4, 152, 1070, 26},
                                         {4, 186, 1070, 260},
                                         {1078, 55, 117, 395},
                                         {4, 454, 1191, 51},
                                         {4, 509, 1191, 65},
                                         {4, 578, 1191, 51},
                                         {4, 633, 1191, 63}},
                               LayoutRow{false,
                                         {1200, 699},
                                         36,
                                         {1200, 699},
                                         1.165,
                                         false,
                                         {4, 4, 496, 47},
                                         {4, 55, 1071, 93},
                                         {504, 4, 692, 47},
                                         {4, 152, 1071, 26},
                                         {4, 186, 1071, 259},
                                         {1079, 55, 117, 394},
                                         {4, 453, 1192, 51},
                                         {4, 508, 1192, 65},
                                         {4, 577, 1192, 51},
                                         {4, 632, 1192, 63}},
                               LayoutRow{false,
                                         {1200, 700},
                                         36,
                                         {1200, 700},
                                         1.16667,
                                         true,
                                         {4, 4, 1192, 47},
                                         {4, 55, 360, 190},
                                         {4, 249, 360, 132},
                                         {4, 385, 360, 65},
                                         {368, 59, 707, 387},
                                         {1079, 55, 117, 395},
                                         {4, 454, 1192, 51},
                                         {4, 509, 1192, 65},
                                         {4, 578, 1192, 51},
                                         {4, 633, 1192, 63}},
                               LayoutRow{false,
                                         {1920, 1080},
                                         36,
                                         {1920, 1080},
                                         1.6,
                                         true,
                                         {4, 4, 1912, 66},
                                         {4, 74, 528, 331},
                                         {4, 409, 528, 226},
                                         {4, 639, 528, 105},
                                         {536, 78, 1216, 662},
                                         {1756, 74, 160, 670},
                                         {4, 748, 1912, 70},
                                         {4, 822, 1912, 90},
                                         {4, 916, 1912, 70},
                                         {4, 990, 1912, 86}},
                               LayoutRow{false,
                                         {2560, 1440},
                                         36,
                                         {2560, 1440},
                                         1.6,
                                         true,
                                         {4, 4, 2552, 66},
                                         {4, 74, 528, 547},
                                         {4, 625, 528, 370},
                                         {4, 999, 528, 105},
                                         {536, 78, 1856, 1022},
                                         {2396, 74, 160, 1030},
                                         {4, 1108, 2552, 70},
                                         {4, 1182, 2552, 90},
                                         {4, 1276, 2552, 70},
                                         {4, 1350, 2552, 86}},
                               LayoutRow{false,
                                         {800, 600},
                                         60,
                                         {800, 600},
                                         1,
                                         false,
                                         {4, 4, 330, 56},
                                         {4, 64, 664, 80},
                                         {338, 4, 458, 56},
                                         {4, 148, 664, 22},
                                         {4, 178, 664, 138},
                                         {672, 64, 124, 256},
                                         {4, 324, 792, 60},
                                         {4, 388, 792, 60},
                                         {4, 452, 792, 80},
                                         {4, 536, 792, 60}},
                               LayoutRow{true,
                                         {800, 600},
                                         36,
                                         {912, 988},
                                         1,
                                         false,
                                         {4, 4, 376, 40},
                                         {4, 48, 800, 80},
                                         {384, 4, 524, 40},
                                         {4, 132, 800, 22},
                                         {4, 162, 800, 600},
                                         {808, 48, 100, 718},
                                         {4, 770, 904, 44},
                                         {4, 818, 904, 56},
                                         {4, 878, 904, 48},
                                         {4, 930, 904, 54}},
                               LayoutRow{true,
                                         {1099, 560},
                                         36,
                                         {1211, 948},
                                         1,
                                         false,
                                         {4, 4, 501, 40},
                                         {4, 48, 1099, 80},
                                         {509, 4, 698, 40},
                                         {4, 132, 1099, 22},
                                         {4, 162, 1099, 560},
                                         {1107, 48, 100, 678},
                                         {4, 730, 1203, 44},
                                         {4, 778, 1203, 56},
                                         {4, 838, 1203, 48},
                                         {4, 890, 1203, 54}},
                               LayoutRow{true,
                                         {1100, 559},
                                         36,
                                         {1212, 947},
                                         1,
                                         false,
                                         {4, 4, 501, 40},
                                         {4, 48, 1100, 80},
                                         {509, 4, 699, 40},
                                         {4, 132, 1100, 22},
                                         {4, 162, 1100, 559},
                                         {1108, 48, 100, 677},
                                         {4, 729, 1204, 44},
                                         {4, 777, 1204, 56},
                                         {4, 837, 1204, 48},
                                         {4, 889, 1204, 54}},
                               LayoutRow{true,
                                         {1100, 560},
                                         36,
                                         {1546, 838},
                                         1,
                                         true,
                                         {4, 4, 1538, 40},
                                         {4, 48, 330, 294},
                                         {4, 346, 330, 200},
                                         {4, 550, 330, 66},
                                         {338, 52, 1100, 560},
                                         {1442, 48, 100, 568},
                                         {4, 620, 1538, 44},
                                         {4, 668, 1538, 56},
                                         {4, 728, 1538, 48},
                                         {4, 780, 1538, 54}},
                               LayoutRow{true,
                                         {300, 200},
                                         36,
                                         {640, 588},
                                         1,
                                         false,
                                         {4, 4, 263, 40},
                                         {4, 48, 528, 80},
                                         {271, 4, 365, 40},
                                         {4, 132, 528, 22},
                                         {4, 162, 300, 200},
                                         {536, 48, 100, 318},
                                         {4, 370, 632, 44},
                                         {4, 418, 632, 56},
                                         {4, 478, 632, 48},
                                         {4, 530, 632, 54}}}) {
    const PanelLayout layout = row.around ? LayOutAround(row.size, row.touch) : LayOutWithin(row.size, row.touch);
    const std::string what = std::to_string(row.size.width()) + "x" + std::to_string(row.size.height());
    EXPECT_EQ(layout.window, row.window) << what;
    EXPECT_NEAR(layout.scale, row.scale, 0.0001) << what;
    EXPECT_EQ(layout.wide, row.wide) << what;
    EXPECT_EQ(Parts(layout),
              (std::vector<QRect>{row.status, row.readings, row.axes, row.modal, row.toolArea, row.sideBar,
                                  row.messages, row.mainBar, row.reservedRow, row.operatorKeys}))
        << what;
  }
}

TEST(LayoutTest, WhereThereIsNoRoomAPartIsEmptyAndTheToolAreaAPixel) {
  const PanelLayout layout = LayOutWithin(QSize(640, 480), 400);
  EXPECT_EQ(layout.toolArea.size(), QSize(1, 1));
  EXPECT_EQ(layout.sideBar.height(), 0);
  EXPECT_EQ(LayOutAround(QSize(0, 0), 36).toolArea.size(), QSize(1, 1));
}

TEST_P(LayoutAt, WithAKeyboardNothingOverlapsAndTheMachinesKeysStay) {
  const int touch = theme::TouchPixels(GetParam().dotsPerInch);
  for (const bool around : {false, true}) {
    const PanelLayout rest = around ? LayOutAround(GetParam().size, touch) : LayOutWithin(GetParam().size, touch);
    const int height = std::min(MostForKeyboard(rest, touch), 6 * touch);
    const PanelLayout raised = WithKeyboard(rest, height, touch);
    EXPECT_EQ(raised.keyboard.height(), height);
    EXPECT_EQ(raised.keyboard.bottom(), rest.mainBar.bottom());
    EXPECT_EQ(raised.keyboard.width(), rest.mainBar.width());
    EXPECT_EQ(raised.reservedRow, rest.reservedRow);
    EXPECT_EQ(raised.operatorKeys, rest.operatorKeys);
    EXPECT_EQ(raised.status, rest.status);
    EXPECT_EQ(raised.toolArea.topLeft(), rest.toolArea.topLeft());
    EXPECT_EQ(raised.toolArea.width(), rest.toolArea.width());
    EXPECT_GE(raised.toolArea.height(), 2 * touch) << "what is typed is seen";
    const std::vector<QRect> parts = {raised.status,      raised.readings,     raised.axes,
                                      raised.modal,       raised.toolArea,     raised.messages,
                                      raised.reservedRow, raised.operatorKeys, raised.keyboard};
    for (std::size_t i = 0; i < parts.size(); ++i) {
      EXPECT_TRUE(QRect(QPoint(0, 0), raised.window).contains(parts[i])) << i;
      for (std::size_t j = i + 1; j < parts.size(); ++j) EXPECT_FALSE(parts[i].intersects(parts[j])) << i << " " << j;
    }
  }
}

TEST(LayoutTest, ASideBarWhoseKeysWouldBeTooSmallGoesWhileTheKeyboardIsUp) {
  const PanelLayout rest = LayOutWithin(QSize(1024, 768), 35);
  constexpr int kRows = kSideKeys + 1;
  const int fits = rest.mainBar.height() + rest.sideBar.height() - kRows * (35 + 4);
  EXPECT_EQ(WithKeyboard(rest, fits, 35).sideBar.height(), kRows * 39);
  EXPECT_TRUE(WithKeyboard(rest, fits + 1, 35).sideBar.isEmpty());
}

TEST(LayoutTest, AWideColumnGivesItsAxesAndReadingsUpInProportion) {
  const PanelLayout rest = LayOutWithin(QSize(1920, 1080), 35);
  const PanelLayout raised = WithKeyboard(rest, rest.mainBar.height() + 100, 35);
  EXPECT_EQ(raised.axes.height(), rest.axes.height() - 60);
  EXPECT_EQ(raised.readings,
            QRect(rest.readings.left(), rest.readings.top() - 60, rest.readings.width(), rest.readings.height() - 40));
  EXPECT_EQ(raised.modal, rest.modal.translated(0, -100));
  EXPECT_EQ(raised.messages, rest.messages.translated(0, -100));
}

struct RoomRow {
  const char* what;
  QRect tool;
  QRect room;
};

TEST(RoomTest, AToolLeavesTheRoomAtItsBestSideWhereThatIsAThird) {
  const QRect area(10, 20, 300, 300);
  const auto corners = [](int left, int top, int right, int bottom) {
    return QRect(QPoint(left, top), QPoint(right, bottom));
  };
  for (const RoomRow& row : {RoomRow{"above", {10, 220, 300, 100}, corners(10, 20, 309, 217)},
                             RoomRow{"below", {10, 20, 300, 100}, corners(10, 122, 309, 319)},
                             RoomRow{"at the right", {10, 20, 100, 300}, corners(112, 20, 309, 319)},
                             RoomRow{"at the left", {210, 20, 100, 300}, corners(10, 20, 207, 319)},
                             RoomRow{"just a third", {10, 122, 300, 198}, corners(10, 20, 309, 119)},
                             RoomRow{"less than a third", {10, 121, 300, 199}, area},
                             RoomRow{"beyond the area", {0, 270, 500, 500}, corners(10, 20, 309, 267)},
                             RoomRow{"beside it", {400, 20, 10, 10}, area}, RoomRow{"all of it", area, area}}) {
    EXPECT_EQ(RoomBeside(area, row.tool), row.room) << row.what;
  }
}

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
