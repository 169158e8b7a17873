// SPDX-License-Identifier: MIT
// Where the settings are read from and written to, and how their values are read.
#include "calc/calc_storage.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "facade/sim/simulated_cnc.h"
#include "support/fake_window_system.h"
#include "support/memory_files.h"
#include "window/timers.h"

namespace pnl::test {
namespace {

using testing::ElementsAre;

constexpr const char* kUsers = "C:\\P108\\Calc7340.ini";
constexpr const char* kMachines = "C:\\P52\\Calc7340.ini";

std::string Ini(const std::string& window, const std::string& minimized = "NO") {
  return "[COMMON]\r\nWindow=" + window + "\r\nMinimized=" + minimized + "\r\n";
}

class CalcSettingsTest : public testing::Test {
 protected:
  CalcSettings Load(int driveStatus = 0) {
    cnc.Returns("UTIL7340_DriveStatus", {driveStatus});
    loaded = LoadCalcSettings(files, cnc.Util());
    return loaded.settings;
  }
  void Save(const CalcSettings& settings, int driveStatus = 0) {
    cnc.Returns("UTIL7340_DriveStatus", {driveStatus});
    stored = SaveCalcSettings(files, cnc.Util(), settings, loaded);
  }

  CalcSettingsRead loaded;
  bool stored = false;
  FakeWindowSystem windows;
  ManualTimers timers;
  MemoryFiles files;
  DriveMap drives;
  sim::SimulatedCnc cnc{windows, timers, files, drives};
};

TEST_F(CalcSettingsTest, WithoutFilesTheyAreTheDefaults) { EXPECT_EQ(Load(), (CalcSettings{0, 0, false})); }

TEST_F(CalcSettingsTest, TheUsersCopyGoesBeforeTheMachines) {
  files.disc[kUsers] = Ini("1,2");
  files.disc[kMachines] = Ini("3,4");
  EXPECT_EQ(Load(), (CalcSettings{1, 2, false}));
}

TEST_F(CalcSettingsTest, TheMachinesCopyStandsInForTheUsers) {
  files.disc[kMachines] = Ini("3,4", "YES");
  EXPECT_EQ(Load(), (CalcSettings{3, 4, true}));
}

TEST_F(CalcSettingsTest, ACopyThatWasReadIsWrittenWholeWhateverWasPutThereMeanwhile) {
  files.disc[kUsers] = Ini("1,2");
  const CalcSettings settings = Load();
  files.disc[kUsers] = Ini("7,8", "YES");
  Save(settings);
  EXPECT_EQ(files.disc[kUsers], Ini("1,2"));
}

TEST_F(CalcSettingsTest, ADriveThatIsNotReadyLeavesTheUsersCopyUntried) {
  files.disc[kUsers] = Ini("1,2");
  files.disc[kMachines] = Ini("3,4");
  for (const int status : {-1, 1, 2}) EXPECT_EQ(Load(status), (CalcSettings{3, 4, false})) << status;
}

TEST_F(CalcSettingsTest, ADamagedUsersCopyIsStillTheOneThatCounts) {
  files.disc[kUsers] = "[COMMON]\r\n";
  files.disc[kMachines] = Ini("3,4");
  EXPECT_EQ(Load(), (CalcSettings{0, 0, false}));
  files.unreadable = {kUsers};
  EXPECT_EQ(Load(), (CalcSettings{0, 0, false}));
}

struct ValueRow {
  const char* window;
  int left;
  int top;
};

TEST_F(CalcSettingsTest, ReadsThePosition) {
  const ValueRow rows[] = {
      {"10,20", 10, 20},
      {" 10 , 20 ", 10, 20},
      {"-5,-6", -5, -6},
      {"7", 7, 0},
      {"", 0, 0},
      {",8", 0, 8},
      {"x,y", 0, 0},
      {"1,2,3", 1, 2},
      {"40000,-40000", 32767, -32767},
      {"99999999999999,0", 32767, 0},
  };
  for (const ValueRow& row : rows) {
    files.disc[kUsers] = Ini(row.window);
    EXPECT_EQ(Load(), (CalcSettings{row.left, row.top, false})) << row.window;
  }
}

TEST_F(CalcSettingsTest, OnlyTheWordYesIsYes) {
  for (const char* yes : {"YES", "yes", "Yes"}) {
    files.disc[kUsers] = Ini("0,0", yes);
    EXPECT_TRUE(Load().minimized) << yes;
  }
  for (const char* no : {"NO", "1", "TRUE", "", "YES!", "Y"}) {
    files.disc[kUsers] = Ini("0,0", no);
    EXPECT_FALSE(Load().minimized) << no;
  }
}

TEST_F(CalcSettingsTest, BothCopiesAreWritten) {
  Save({12, -3, true});
  EXPECT_EQ(files.disc[kUsers], Ini("12,-3", "YES"));
  EXPECT_EQ(files.disc[kMachines], Ini("12,-3", "YES"));
  EXPECT_THAT(files.replaced, ElementsAre(kUsers, kMachines));
}

TEST_F(CalcSettingsTest, ADriveThatCannotBeWrittenKeepsTheUsersCopyOut) {
  Save({1, 2, false}, -1);
  EXPECT_THAT(files.replaced, ElementsAre(kMachines));
}

TEST_F(CalcSettingsTest, AnyOtherStatusLetsTheUsersCopyBeWritten) {
  // Loading wants 0; saving is refused by -1 alone.
  for (const int status : {0, 1, 2}) {
    files.replaced.clear();
    Save({1, 2, false}, status);
    EXPECT_THAT(files.replaced, ElementsAre(kUsers, kMachines)) << status;
  }
}

TEST_F(CalcSettingsTest, EverythingElseInTheFilesStays) {
  files.disc[kUsers] = "; note\r\n[OTHER]\r\na=b\r\n[COMMON]\r\nKey=1\r\nWindow=9,9\r\n";
  files.disc[kMachines] = "[MACHINE]\r\nc=d\r\n";
  Save({1, 2, false});
  EXPECT_EQ(files.disc[kUsers], "; note\r\n[OTHER]\r\na=b\r\n[COMMON]\r\nKey=1\r\nWindow=1,2\r\nMinimized=NO\r\n");
  EXPECT_THAT(files.disc[kMachines], testing::StartsWith("[MACHINE]\r\nc=d\r\n"));
}

TEST_F(CalcSettingsTest, AFileThatCannotBeReadIsNotWrittenOver) {
  files.disc[kUsers] = "precious";
  files.unreadable = {kUsers};
  Save({1, 2, false});
  EXPECT_EQ(files.disc[kUsers], "precious");
  EXPECT_THAT(files.replaced, ElementsAre(kMachines));
}

TEST_F(CalcSettingsTest, AFullDiscIsNoFailure) {
  files.full = true;
  Save({1, 2, false});
  EXPECT_TRUE(files.replaced.empty());
}

}  // namespace
}  // namespace pnl::test
