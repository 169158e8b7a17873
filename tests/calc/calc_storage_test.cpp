// SPDX-License-Identifier: MIT
// The calculator's files: the confirmed expressions byte for byte, where the settings are read from and written to and
// how their values are read, and what the operator is told about both.
#include "calc/calc_storage.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "calc_fixture.h"
#include "facade/sim/simulated_cnc.h"
#include "support/failing_files.h"
#include "support/fake_window_system.h"
#include "support/memory_files.h"
#include "window/timers.h"

namespace pnl::test {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

class CalcDisc : public testing::Test {
 protected:
  FakeWindowSystem windows;
  ManualTimers timers;
  MemoryFiles files;
  DriveMap drives;
  sim::SimulatedCnc cnc{windows, timers, files, drives};
};

// The history.

constexpr const char* kFile = "C:\\P1\\calc.htr";

class CalcHistoryTest : public CalcDisc {
 protected:
  std::string Stored(const TextRows& rows) {
    saved = history.Save(rows);
    return files.disc[kFile];
  }

  bool saved = false;
  CalcHistory history{files, cnc.Util()};
};

TEST_F(CalcHistoryTest, RowsAreLinesInOrderEachEndedByCrLf) {
  EXPECT_EQ(Stored({u"2*3", u"1+1"}), "2*3\r\n1+1\r\n");
  EXPECT_THAT(history.Load(), ElementsAre(u"2*3", u"1+1"));
}

TEST_F(CalcHistoryTest, LiesInTheFolderOfItsPathNumber) {
  cnc.Storage().SetPath(1, u"C:\\users");
  files.folders.insert("C:\\users");
  EXPECT_TRUE(history.Save({u"1"}));
  EXPECT_EQ(files.disc["C:\\users\\calc.htr"], "1\r\n");
}

TEST_F(CalcHistoryTest, WithoutFileTheListIsEmpty) { EXPECT_THAT(history.Load(), IsEmpty()); }

TEST_F(CalcHistoryTest, WithoutRowsTheOldFileStays) {
  files.disc[kFile] = "old\r\n";
  ASSERT_THAT(history.Load(), ElementsAre(u"old"));
  EXPECT_TRUE(history.Save({}));
  EXPECT_EQ(files.disc[kFile], "old\r\n");
  EXPECT_THAT(files.replaced, IsEmpty());
}

TEST_F(CalcHistoryTest, AFileThatCannotBeReadIsNotWrittenOver) {
  files.disc[kFile] = "precious\r\n";
  files.unreadable = {kFile};
  EXPECT_THAT(history.Load(), IsEmpty());
  EXPECT_EQ(Stored({u"new"}), "precious\r\n");
  EXPECT_TRUE(saved) << "nothing was added, so nothing is lost";
  history.NoteAdded(u"new");
  EXPECT_EQ(Stored({u"new"}), "precious\r\n");
  EXPECT_FALSE(saved);
}

TEST_F(CalcHistoryTest, WhatWasAddedComesInFrontOfAFileThatBrokeOffWhenItWasLoaded) {
  files.disc[kFile] = "1+1\r\n2+2\r\n3+3\r\n";
  FailingFiles broken(files);
  broken.FailReadsAfter({}, 10);
  CalcHistory onBrokenDisc(broken, cnc.Util());
  EXPECT_THAT(onBrokenDisc.Load(), ElementsAre(u"1+1", u"2+2"));
  broken.Heal();
  onBrokenDisc.NoteAdded(u"new");
  EXPECT_TRUE(onBrokenDisc.Save({u"new", u"2+2"}));
  EXPECT_EQ(files.disc[kFile], "new\r\n1+1\r\n2+2\r\n3+3\r\n");
}

TEST_F(CalcHistoryTest, WhatWasAddedComesInFrontOfAFileThatWasOutOfReachWhenItWasLoaded) {
  // A thousand rows became one: out of reach was taken for missing.
  files.disc[kFile] = "1+1\r\n2+2\r\n";
  files.away.insert("C:\\P1");
  EXPECT_THAT(history.Load(), IsEmpty());
  for (const TextView row : {u"a", u"deleted", u"b"}) history.NoteAdded(row);
  files.away.clear();
  EXPECT_EQ(Stored({u"b", u"a"}), "b\r\na\r\n1+1\r\n2+2\r\n");
  EXPECT_TRUE(saved);
}

TEST_F(CalcHistoryTest, AFileThatCameIntoBeingSinceItWasLoadedKeepsItsRows) {
  EXPECT_THAT(history.Load(), IsEmpty());
  files.disc[kFile] = "1+1\r\n";
  history.NoteAdded(u"new");
  EXPECT_EQ(Stored({u"new"}), "new\r\n1+1\r\n");
}

TEST_F(CalcHistoryTest, AFileThatStaysOutOfReachIsTold) {
  files.away.insert("C:\\P1");
  EXPECT_THAT(history.Load(), IsEmpty());
  history.NoteAdded(u"new");
  EXPECT_FALSE(history.Save({u"new"}));
}

TEST_F(CalcHistoryTest, AFileThatCanBeReadAgainIsWrittenAgain) {
  files.disc[kFile] = "1+1\r\n";
  files.unreadable = {kFile};
  EXPECT_THAT(history.Load(), IsEmpty());
  files.unreadable.clear();
  EXPECT_THAT(history.Load(), ElementsAre(u"1+1"));
  EXPECT_EQ(Stored({u"2"}), "2\r\n");
  EXPECT_TRUE(saved);
}

TEST_F(CalcHistoryTest, AFullDiscOrAProtectedFileKeepsTheOldOne) {
  files.disc[kFile] = "old\r\n";
  files.full = true;
  ASSERT_THAT(history.Load(), ElementsAre(u"old"));
  EXPECT_EQ(Stored({u"new"}), "old\r\n");
  EXPECT_FALSE(saved);
  files.full = false;
  files.readOnly = {kFile};
  EXPECT_EQ(Stored({u"new"}), "old\r\n");
}

TEST_F(CalcHistoryTest, EmptyRowsAndBlanksStay) {
  EXPECT_EQ(Stored({u"", u"  1 ", u""}), "\r\n  1 \r\n\r\n");
  EXPECT_THAT(history.Load(), ElementsAre(u"", u"  1 ", u""));
}

TEST_F(CalcHistoryTest, ARowWithALineBreakStaysOneRow) { EXPECT_EQ(Stored({u"1\r\n2", u"3"}), "1  2\r\n3\r\n"); }

TEST_F(CalcHistoryTest, ARowThatBeginsWithAByteOrderMarkKeepsIt) {
  // The mark at a file's start says how it is encoded and is dropped on reading.
  EXPECT_EQ(Stored({u"\uFEFF1", u"\uFEFF2"}),
            "\xEF\xBB\xBF\xEF\xBB\xBF"
            "1\r\n\xEF\xBB\xBF"
            "2\r\n");
  EXPECT_THAT(history.Load(), ElementsAre(u"\uFEFF1", u"\uFEFF2"));
}

TEST_F(CalcHistoryTest, OtherEncodingsAreReadAndStoredInUtf8) {
  files.disc[kFile] = std::string(
      "\xFF\xFE"
      "1\0\r\0\n\0\xF1\0",
      10);
  EXPECT_THAT(history.Load(), ElementsAre(u"1", u"\u00F1"));
  files.disc[kFile] = "1+\xF1";
  EXPECT_THAT(history.Load(), ElementsAre(u"1+\u00F1"));
  EXPECT_EQ(Stored({u"1+\u00F1"}), "1+\xC3\xB1\r\n");
}

// The settings.

constexpr const char* kUsers = "C:\\P108\\Calc7340.ini";
constexpr const char* kMachines = "C:\\P52\\Calc7340.ini";

std::string Ini(const std::string& window, const std::string& minimized = "NO") {
  return "[COMMON]\r\nWindow=" + window + "\r\nMinimized=" + minimized + "\r\n";
}

class CalcSettingsTest : public CalcDisc {
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

// What the operator is told about the files.

class CalcToolStorage : public testing::Test, public CalcRig {};

TEST_F(CalcToolStorage, WhatCouldNotBeSavedIsNamedOnTheMessageLine) {
  // A full disc was silent, and the session's expressions were gone.
  MakeTool();
  Open();
  Confirm("1+1");
  files.full = true;
  DestroyTool();
  EXPECT_THAT(Asked(), Contains("message \"not saved: calc.htr, Calc7340.ini\""));
}

TEST_F(CalcToolStorage, WhatIsSavedIsNotSpokenOf) {
  MakeTool();
  Open();
  Confirm("1+1");
  DestroyTool();
  EXPECT_THAT(Asked(), Not(Contains(HasSubstr("message"))));
}

TEST_F(CalcToolStorage, ExpressionsComeInFrontOfAHistoryThatWasAwayWhenTheToolOpened) {
  files.disc["C:\\P1\\calc.htr"] = "old\r\n";
  files.away = {"C:\\P1"};
  MakeTool();
  Open();
  Confirm("1+1");
  files.away.clear();
  DestroyTool();
  EXPECT_EQ(files.disc["C:\\P1\\calc.htr"], "1+1\r\nold\r\n");
}

TEST_F(CalcToolStorage, APositionThatWasAwayWhenTheToolOpenedIsKept) {
  files.disc["C:\\P108\\Calc7340.ini"] = "; mine\r\n[COMMON]\r\nWindow=31,32\r\nMinimized=YES\r\n";
  const std::string before = files.disc["C:\\P108\\Calc7340.ini"];
  files.away = {"C:\\P108"};
  cnc.Returns("UTIL7340_DriveStatus", {0});
  MakeTool();
  Open();
  files.away.clear();
  DestroyTool();
  EXPECT_EQ(files.disc["C:\\P108\\Calc7340.ini"], before);
}

TEST_F(CalcToolStorage, AHistoryBeyondTenMegabytesIsSaidToBeSlow) {
  std::string& history = files.disc["C:\\P1\\calc.htr"];
  const std::string row = std::string(1023, '1') + "\n";
  while (history.size() <= 10u << 20) history += row;
  MakeTool();
  Open();
  EXPECT_THAT(Asked(), Contains("message \"calc.htr is slow\""));
}

}  // namespace
}  // namespace pnl::test
