// SPDX-License-Identifier: MIT
// The two lists of a channel and their files, byte for byte.
#include "mdi/mdi_history.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/failing_files.h"
#include "support/strict_cnc.h"

namespace pnl::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr const char* kHistory = "C:\\P108\\MDIC1.DAT";
constexpr const char* kList = "C:\\P108\\MDAC1.DAT";
constexpr const char* kIni = "C:\\P108\\MDIMAN.INI";

class MdiHistoryTest : public testing::Test, public StrictGround {
 protected:
  MdiHistoryTest() : settings(files, cnc.utilities), history(files, cnc.utilities, settings) {}

  void Load() {
    settings.Open();
    history.LoadLists(record);
  }
  void Limit(const std::string& items) { files.disc[kIni] = "[PRIVATE]\r\nNItems=" + items + "\r\n"; }

  MdiSettings settings;
  MdiHistory history;
  MDIDATA_ST record{cnc.vars, 1};
};

TEST_F(MdiHistoryTest, WithoutFilesBothListsAreEmptyAndTheFirstSaveCreatesThem) {
  Load();
  EXPECT_THAT(record.History, IsEmpty());
  EXPECT_THAT(record.MDAList, IsEmpty());
  EXPECT_EQ(record.LoadState, mdi_load::kMatchesFiles);
  MdiHistory::AddToHistory(record, u"G0 X1");
  record.MDAList.push_back(u"M3");
  EXPECT_THAT(history.SaveLists(record), IsEmpty());
  EXPECT_EQ(files.disc[kHistory], "G0 X1\r\n");
  EXPECT_EQ(files.disc[kList], "M3\r\n");
}

TEST_F(MdiHistoryTest, TheUsersCopyGoesBeforeTheMachines) {
  files.disc[kHistory] = "user\r\n";
  files.disc["C:\\P52\\MDIC1.DAT"] = "machine\r\n";
  files.disc["C:\\P52\\MDAC1.DAT"] = "machine list\r\n";
  Load();
  EXPECT_THAT(record.History, ElementsAre(u"user"));
  EXPECT_THAT(record.MDAList, ElementsAre(u"machine list"));
}

TEST_F(MdiHistoryTest, TheMachinesCopyIsNeverWritten) {
  files.disc["C:\\P52\\MDIC1.DAT"] = "machine\r\n";
  Load();
  MdiHistory::AddToHistory(record, u"new");
  EXPECT_THAT(history.SaveLists(record), IsEmpty());
  EXPECT_EQ(files.disc["C:\\P52\\MDIC1.DAT"], "machine\r\n");
  EXPECT_EQ(files.disc[kHistory], "new\r\nmachine\r\n");
}

TEST_F(MdiHistoryTest, OnlyTheFirstLinesOfALongHistoryAreRead) {
  Limit("2");
  files.disc[kHistory] = "1\r\n2\r\n3\r\n";
  Load();
  EXPECT_THAT(record.History, ElementsAre(u"1", u"2"));
}

TEST_F(MdiHistoryTest, TheListHasNoLimit) {
  Limit("2");
  files.disc[kList] = "1\r\n2\r\n3\r\n";
  Load();
  EXPECT_THAT(record.MDAList, ElementsAre(u"1", u"2", u"3"));
}

TEST_F(MdiHistoryTest, TheLimitIs10WhereTheKeyIsAbsentAnd10IsWrittenAtTheEnd) {
  for (int i = 0; i < 15; ++i) files.disc[kHistory] += std::to_string(i) + "\r\n";
  Load();
  EXPECT_EQ(record.History.size(), 10u);
  EXPECT_TRUE(settings.SaveSettings());
  EXPECT_THAT(files.disc[kIni], testing::HasSubstr("NItems=10"));
}

TEST_F(MdiHistoryTest, TheHistoryMayGrowBeyondTheLimitDuringARunAndIsCutWhenSaved) {
  Limit("2");
  Load();
  for (const TextView text : {u"1", u"2", u"3"}) MdiHistory::AddToHistory(record, Text(text));
  EXPECT_THAT(record.History, ElementsAre(u"3", u"2", u"1"));
  EXPECT_THAT(history.SaveLists(record), IsEmpty());
  EXPECT_EQ(files.disc[kHistory], "3\r\n2\r\n");
}

TEST_F(MdiHistoryTest, ZeroItemsReadAndWriteNoLine) {
  Limit("0");
  files.disc[kHistory] = "old\r\n";
  Load();
  EXPECT_THAT(record.History, IsEmpty());
  MdiHistory::AddToHistory(record, u"new");
  EXPECT_THAT(history.SaveLists(record), IsEmpty());
  EXPECT_EQ(files.disc[kHistory], "");
}

TEST_F(MdiHistoryTest, ANegativeLimitIsNone) {
  Limit("-7");
  files.disc[kHistory] = "old\r\n";
  Load();
  EXPECT_THAT(record.History, IsEmpty());
}

TEST_F(MdiHistoryTest, ALimitOfMinus1CountsAsAbsent) {
  Limit("-1");
  files.disc[kHistory] = "old\r\n";
  Load();
  EXPECT_THAT(record.History, ElementsAre(u"old"));
}

TEST_F(MdiHistoryTest, AnEqualEntryMovesToTheHeadFromWhereverItStood) {
  Load();
  for (const TextView text : {u"a", u"b", u"c", u"a"}) MdiHistory::AddToHistory(record, Text(text));
  EXPECT_THAT(record.History, ElementsAre(u"a", u"c", u"b"));
  EXPECT_EQ(record.LoadState, mdi_load::kChanged);
}

TEST_F(MdiHistoryTest, TheNewestEntryRepeatedStaysOne) {
  Load();
  for (const TextView text : {u"a", u"b", u"b"}) MdiHistory::AddToHistory(record, Text(text));
  EXPECT_THAT(record.History, ElementsAre(u"b", u"a"));
}

TEST_F(MdiHistoryTest, EntriesThatDifferInCaseOrBlanksAreDifferent) {
  Load();
  for (const TextView text : {u"g0", u"G0", u"G0 "}) MdiHistory::AddToHistory(record, Text(text));
  EXPECT_EQ(record.History.size(), 3u);
}

TEST_F(MdiHistoryTest, AnEmptyTextIsIgnored) {
  Load();
  MdiHistory::AddToHistory(record, {});
  EXPECT_THAT(record.History, IsEmpty());
  EXPECT_EQ(record.LoadState, mdi_load::kMatchesFiles);
}

TEST_F(MdiHistoryTest, WithoutAChangeNoFileIsWritten) {
  files.disc[kHistory] = "old\n";
  Load();
  EXPECT_THAT(history.SaveLists(record), IsEmpty());
  EXPECT_THAT(files.replaced, IsEmpty());
}

TEST_F(MdiHistoryTest, AChannelNeverShownIsNotWritten) {
  files.disc[kHistory] = "old\r\n";
  settings.Open();
  EXPECT_THAT(history.SaveLists(record), IsEmpty());
  EXPECT_THAT(files.replaced, IsEmpty());
}

TEST_F(MdiHistoryTest, LoadingTwiceKeepsWhatIsThere) {
  Load();
  MdiHistory::AddToHistory(record, u"new");
  history.LoadLists(record);
  EXPECT_THAT(record.History, ElementsAre(u"new"));
}

TEST_F(MdiHistoryTest, SavingLeavesTheRecordAsAfterALoad) {
  Load();
  MdiHistory::AddToHistory(record, u"new");
  record.MDASelection = 3;
  EXPECT_THAT(history.SaveLists(record), IsEmpty());
  EXPECT_EQ(record.LoadState, mdi_load::kMatchesFiles);
  EXPECT_EQ(record.MDASelection, -1);
}

TEST_F(MdiHistoryTest, AnEmptiedListEmptiesItsFile) {
  files.disc[kList] = "a\r\n";
  Load();
  record.MDAList.clear();
  record.LoadState = mdi_load::kChanged;
  EXPECT_THAT(history.SaveLists(record), IsEmpty());
  EXPECT_EQ(files.disc[kList], "");
}

TEST_F(MdiHistoryTest, LinesMayEndInALoneLineFeedAndHoldNul) {
  files.disc[kHistory] = std::string("a\nb\0c\r\nlast", 11);
  Load();
  EXPECT_THAT(record.History, ElementsAre(u"a", Text(u"b\0c", 3), u"last"));
}

TEST_F(MdiHistoryTest, BytesThatAreNoUtf8AreKeptAsLatin1) {
  files.disc[kHistory] = "M3 \xF1\r\n";
  Load();
  EXPECT_THAT(record.History, ElementsAre(u"M3 \u00F1"));
}

TEST_F(MdiHistoryTest, AFullDiscLeavesTheOldFiles) {
  files.disc[kHistory] = "old\r\n";
  Load();
  MdiHistory::AddToHistory(record, u"new");
  files.full = true;
  EXPECT_THAT(history.SaveLists(record), ElementsAre(u"MDIC1.DAT", u"MDAC1.DAT"));
  EXPECT_EQ(files.disc[kHistory], "old\r\n");
}

TEST_F(MdiHistoryTest, AFileThatCouldNotBeReadIsNotReplaced) {
  files.disc[kHistory] = "precious\r\n";
  files.disc[kList] = "precious too\r\n";
  files.unreadable = {kHistory, kList};
  Load();
  EXPECT_THAT(record.History, IsEmpty());
  MdiHistory::AddToHistory(record, u"new");
  EXPECT_THAT(history.SaveLists(record), ElementsAre(u"MDIC1.DAT"));
  EXPECT_EQ(files.disc[kHistory], "precious\r\n");
  EXPECT_EQ(files.disc[kList], "precious too\r\n");
}

TEST_F(MdiHistoryTest, FilesThatBreakOffAreShownAsFarAsTheyGoAndGetWhatWasAddedInFront) {
  // A disc error in the middle once counted as the end of the file, and the part read was saved over the whole.
  const std::string whole = "G0 X1\r\nG0 X2\r\nG0 X3\r\n";
  files.disc[kHistory] = whole;
  files.disc[kList] = whole;
  FailingFiles broken(files);
  broken.FailReadsAfter({}, 14);
  MdiHistory onBrokenDisc(broken, cnc.utilities, settings);
  onBrokenDisc.LoadLists(record);
  EXPECT_THAT(record.History, ElementsAre(u"G0 X1", u"G0 X2"));
  EXPECT_THAT(record.MDAList, ElementsAre(u"G0 X1", u"G0 X2"));
  MdiHistory::AddToHistory(record, u"M5");
  record.MDAList.clear();
  broken.Heal();
  EXPECT_THAT(onBrokenDisc.SaveLists(record), IsEmpty());
  EXPECT_EQ(files.disc[kHistory], "M5\r\n" + whole);
  EXPECT_EQ(files.disc[kList], whole);
}

struct Away {
  const char* what;
  std::set<std::string> away;
};

class MdiListsOutOfReach : public MdiHistoryTest, public testing::WithParamInterface<Away> {
 protected:
  MdiListsOutOfReach() {
    files.disc["C:\\P52\\MDIC1.DAT"] = "machine\r\n";
    Limit("1000");
    files.disc[kIni] += "; mine\r\nUnknown=1\r\n";
    for (int i = 0; i < 1000; ++i) rows += "G1 X" + std::to_string(i) + "\r\n";
    files.disc[kHistory] = rows;
    files.disc[kList] = rows;
    files.away.insert(GetParam().away.begin(), GetParam().away.end());
    Load();
    MdiHistory::AddToHistory(record, u"G1 X7");
    MdiHistory::AddToHistory(record, u"M5");
    record.MDAList.push_back(u"M30");
    record.ListAdded.push_back(u"M30");
  }
  std::string rows;
};

TEST_P(MdiListsOutOfReach, AreKeptWithTheSessionsOwnInFrontOnceTheyAreBack) {
  // 1,000 rows became 1: out of reach was taken for missing, and the limit for 10.
  files.away.clear();
  EXPECT_TRUE(settings.SaveSettings());
  EXPECT_THAT(history.SaveLists(record), IsEmpty());
  const std::string stored = files.disc[kHistory];
  EXPECT_EQ(stored.substr(0, 17), "M5\r\nG1 X7\r\nG1 X0\r");
  EXPECT_EQ(std::count(stored.begin(), stored.end(), '\n'), 1000);
  EXPECT_EQ(stored.find("G1 X7\r"), stored.rfind("G1 X7\r")) << "a block stands once";
  const bool listRead = GetParam().away == std::set<std::string>{kIni};
  EXPECT_EQ(files.disc[kList], listRead ? rows + "M30\r\n" : "M30\r\n" + rows);
  EXPECT_THAT(files.disc[kIni], testing::HasSubstr("NItems=1000\r\n; mine\r\nUnknown=1\r\n"));
  EXPECT_EQ(files.disc["C:\\P52\\MDIC1.DAT"], "machine\r\n");
}

TEST_P(MdiListsOutOfReach, AreNeverCutOrReplacedWhileTheyAreAway) {
  static_cast<void>(settings.SaveSettings());
  const std::vector<Text> failed = history.SaveLists(record);
  EXPECT_EQ(failed.empty(), GetParam().away == std::set<std::string>{kIni});
  files.away.clear();
  EXPECT_THAT(files.disc[kHistory], testing::EndsWith("G1 X998\r\nG1 X999\r\n"));
  EXPECT_THAT(files.disc[kList], testing::HasSubstr(rows));
  EXPECT_THAT(files.disc[kIni], testing::HasSubstr("NItems=1000\r\n; mine\r\nUnknown=1\r\n"));
}

INSTANTIATE_TEST_SUITE_P(EveryFile, MdiListsOutOfReach,
                         testing::Values(Away{"the folder", {"C:\\P108"}}, Away{"the drive", {"C:"}},
                                         Away{"the settings", {kIni}}, Away{"the lists", {kHistory, kList}}));

TEST_F(MdiHistoryTest, AFileThatCameIntoBeingSinceTheListsWereReadKeepsItsRows) {
  // The folder's own disc was mounted over an empty folder.
  Load();
  MdiHistory::AddToHistory(record, u"new");
  files.disc[kHistory] = "old\r\n";
  files.disc[kList] = "item\r\n";
  EXPECT_THAT(history.SaveLists(record), IsEmpty());
  EXPECT_EQ(files.disc[kHistory], "new\r\nold\r\n");
  EXPECT_EQ(files.disc[kList], "item\r\n");
}

TEST_F(MdiHistoryTest, AMachinesCopyThatCouldNotBeReadDoesNotHinderTheUsers) {
  files.disc["C:\\P52\\MDIC1.DAT"] = "machine\r\n";
  files.unreadable = {"C:\\P52\\MDIC1.DAT"};
  Load();
  MdiHistory::AddToHistory(record, u"new");
  EXPECT_THAT(history.SaveLists(record), IsEmpty());
  EXPECT_EQ(files.disc[kHistory], "new\r\n");
}

TEST_F(MdiHistoryTest, TenThousandBlocksComeBackInOrder) {
  Limit("10000");
  std::string bytes;
  for (int i = 0; i < 10000; ++i) bytes += "G1 X" + std::to_string(i) + "\r\n";
  files.disc[kHistory] = bytes;
  Load();
  ASSERT_EQ(record.History.size(), 10000u);
  MdiHistory::AddToHistory(record, u"G1 X9999");
  EXPECT_EQ(record.History.front(), u"G1 X9999");
  EXPECT_EQ(record.History.size(), 10000u);
}

TEST_F(MdiHistoryTest, TheChannelsNumberNamesTheFiles) {
  MDIDATA_ST second(cnc.vars, 2);
  files.disc["C:\\P108\\MDIC2.DAT"] = "two\r\n";
  settings.Open();
  history.LoadLists(second);
  EXPECT_THAT(second.History, ElementsAre(u"two"));
}

}  // namespace
}  // namespace pnl::test
