// SPDX-License-Identifier: MIT
#include "errors/error_geometry.h"

#include <gtest/gtest.h>

#include "support/memory_files.h"
#include "support/sim_fixture.h"

namespace pnl::test {
namespace {

struct MarginCase {
  int width, height, softKeys;
  bool standard;
  int bottom, right;
};

TEST(ErrorGeometry, MarginsFollowThePanelsSize) {
  const MarginCase cases[] = {
      {800, 600, 7, true, 65, 90},     {800, 480, 7, true, 65, 90},     {801, 601, 7, true, 65, 90},
      {1024, 768, 7, true, 83, 115},   {1280, 1023, 7, true, 110, 144}, {1280, 1024, 7, true, 139, 144},
      {400, 1024, 7, true, 65, 90},    {400, 1024, 1, true, 305, 90},   {1920, 1080, 7, true, 209, 216},
      {1920, 1080, 22, true, 66, 216}, {800, 600, 7, false, 65, 90},    {801, 601, 7, false, 75, 90},
      {1024, 768, 7, false, 75, 105},  {1024, 768, 20, false, 65, 105}, {700, 768, 7, false, 75, 90},
      {900, 768, 10, false, 68, 101},  {1920, 1080, 7, false, 75, 105},
  };
  for (const MarginCase& row : cases) {
    const std::string where = std::to_string(row.width) + "x" + std::to_string(row.height) +
                              (row.standard ? " standard, " : " wide, ") + std::to_string(row.softKeys);
    EXPECT_EQ(BottomMargin(row.width, row.height, row.softKeys, row.standard), row.bottom) << where;
    EXPECT_EQ(RightMargin(row.width, row.standard), row.right) << where;
  }
}

TEST(ErrorGeometry, AConfiguredCountOfSoftKeysIsCappedByTheWidth) {
  EXPECT_EQ(SoftKeysIn(7, 100, true), 7);
  EXPECT_EQ(SoftKeysIn(12, 800, true), 9);
  EXPECT_EQ(SoftKeysIn(12, 800, false), 7);
  EXPECT_EQ(SoftKeysIn(12, 1920, true), 12);
  EXPECT_EQ(SoftKeysIn(30, 1920, true), 22);
  EXPECT_EQ(SoftKeysIn(30, 1920, false), 16);
  EXPECT_EQ(SoftKeysIn(3, 800, true), 3);
  EXPECT_EQ(SoftKeysIn(0, 800, true), 7) << "a count below 1 takes the default";
  EXPECT_EQ(SoftKeysIn(-9, 800, true), 7);
}

TEST(ErrorGeometry, TheAreaIsThePanelWithoutItsFrame) {
  EXPECT_EQ(AvailableArea({0, 0, 800, 600}, {73, 90, 65, 25}), (Rect{0, 0, 710, 437}));
  EXPECT_EQ(AvailableArea({100, 50, 900, 650}, {73, 90, 65, 25}), (Rect{0, 0, 710, 437}));
}

TEST(ErrorGeometry, TheWindowScalesWithTheArea) {
  EXPECT_EQ(ScaleErrorWindow({10, 20, 720, 318}, {0, 0, 710, 437}, {0, 0, 1420, 874}), (Rect{20, 40, 1440, 636}));
  EXPECT_EQ(ScaleErrorWindow({0, 0, 710, 298}, {0, 0, 710, 437}, {0, 0, 909, 587}), (Rect{0, 0, 909, 400}));
  EXPECT_EQ(ScaleErrorWindow({0, 0, 710, 298}, {0, 0, 710, 437}, {0, 0, 50, 437}), kDefaultErrorWindow);
  EXPECT_EQ(ScaleErrorWindow({0, 0, 710, 298}, {0, 0, 0, 437}, {0, 0, 710, 437}), kDefaultErrorWindow);
  EXPECT_EQ(ScaleErrorWindow({0, 0, 710, 298}, {0, 0, 710, -1}, {0, 0, 710, 437}), kDefaultErrorWindow);
}

class PlacedErrorWindow : public SimFixture {
 protected:
  PlacedErrorWindow() { cnc.Storage().SetPath(52, u"C:\\P52"); }
  Rect Place() { return PlaceErrorWindow(disc, cnc.Util()); }
  std::string& Ini() { return disc.disc["C:\\P52\\errman.ini"]; }
  MemoryFiles disc;
};

TEST_F(PlacedErrorWindow, WithoutAFileStandsAtItsDefaultAndWritesNothing) {
  EXPECT_EQ(Place(), kDefaultErrorWindow);
  EXPECT_TRUE(disc.replaced.empty());
}

TEST_F(PlacedErrorWindow, ScalesToALargerPanelAndKeepsThat) {
  windows.panelRect = {0, 0, 1024, 768};
  const Rect placed = Place();
  EXPECT_EQ(placed, (Rect{0, 0, 909, 400}));
  EXPECT_EQ(Ini(), "[COMMON]\r\nWindow=0,0,909,400\r\nParentWindow=0,0,1024,768\r\nFrame=73,115,83,25\r\n");
  disc.replaced.clear();
  EXPECT_EQ(Place(), placed) << "the same panel again";
  EXPECT_TRUE(disc.replaced.empty());
}

TEST_F(PlacedErrorWindow, KeepsTheRestOfItsFile) {
  windows.panelRect = {0, 0, 1024, 768};
  Ini() = "; mine\r\n[PRIVATE]\r\nFlash=100\r\n";
  Place();
  EXPECT_NE(Ini().find("; mine"), std::string::npos);
  EXPECT_NE(Ini().find("Flash=100"), std::string::npos);
}

TEST_F(PlacedErrorWindow, AStoredFrameIsTheOneThatTheWindowWasWrittenFor) {
  Ini() = "[COMMON]\r\nWindow=0,0,355,149\r\nParentWindow=0,0,800,600\r\nFrame=73,445,284,25\r\n";
  EXPECT_EQ(Place(), (Rect{0, 0, 710, 298}));
}

TEST_F(PlacedErrorWindow, AWindowThatIsTooSmallTakesBothDefaults) {
  Ini() = "[COMMON]\r\nWindow=0,0,99,298\r\nParentWindow=0,0,10,10\r\nFrame=73,90,65,25\r\n";
  EXPECT_EQ(Place(), kDefaultErrorWindow);
}

TEST_F(PlacedErrorWindow, AWindowThatIsTooSmallForgetsThePanelThatItWasWrittenFor) {
  Ini() = "[COMMON]\r\nWindow=0,0,99,298\r\nParentWindow=0,0,1600,1200\r\nFrame=73,90,65,25\r\n";
  EXPECT_EQ(Place(), kDefaultErrorWindow) << "it isn't made smaller still";
  EXPECT_TRUE(disc.replaced.empty());
}

TEST_F(PlacedErrorWindow, AHundredPixelsAreEnough) {
  Ini() = "[COMMON]\r\nWindow=5,6,105,106\r\n";
  EXPECT_EQ(Place(), (Rect{5, 6, 105, 106}));
  Ini() = "[COMMON]\r\nWindow=5,6,305,105\r\n";
  EXPECT_EQ(Place(), kDefaultErrorWindow) << "a pixel less than that high";
  EXPECT_EQ(ScaleErrorWindow({0, 0, 200, 200}, {0, 0, 700, 400}, {0, 0, 350, 200}), (Rect{0, 0, 100, 100}));
  EXPECT_EQ(ScaleErrorWindow({0, 0, 200, 200}, {0, 0, 700, 400}, {0, 0, 349, 200}), kDefaultErrorWindow);
}

TEST_F(PlacedErrorWindow, AbsurdNumbersTakeTheDefaults) {
  Ini() =
      "[COMMON]\r\nWindow=-2147483648,0,2147483647,2147483647\r\nParentWindow=0,0,2147483647,-5\r\n"
      "Frame=1,2147483647,-2147483648,5\r\n";
  const Rect placed = Place();
  EXPECT_GE(placed.Width(), 100);
  EXPECT_GE(placed.Height(), 100);
}

TEST_F(PlacedErrorWindow, TheCountOfSoftKeysComesFromThePanelsOwnFile) {
  windows.panelRect = {0, 0, 1920, 1080};
  disc.disc["C:\\P52\\HMI_MP.ini"] = "[MENUBAR]\r\nHMenuNSoftkey=22\r\n";
  Place();
  EXPECT_NE(Ini().find("Frame=73,216,66,25"), std::string::npos) << Ini();
}

TEST_F(PlacedErrorWindow, AFileThatIsAwayIsNotReplacedByAFreshOne) {
  const std::string before = "; mine\r\n[COMMON]\r\nWindow=0,0,500,300\r\nUnknown=1\r\n";
  Ini() = before;
  windows.panelRect = {0, 0, 1024, 768};
  disc.away = {"C:\\P52"};
  EXPECT_EQ(Place(), (Rect{0, 0, 909, 400})) << "the default, scaled";
  disc.away.clear();
  EXPECT_EQ(Ini(), before);
  EXPECT_TRUE(disc.replaced.empty());
}

TEST_F(PlacedErrorWindow, AFileThatCannotBeWrittenChangesNothingHere) {
  windows.panelRect = {0, 0, 1024, 768};
  disc.full = true;
  EXPECT_EQ(Place(), (Rect{0, 0, 909, 400}));
}

}  // namespace
}  // namespace pnl::test
