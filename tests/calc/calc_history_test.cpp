// SPDX-License-Identifier: MIT
// The file of confirmed expressions, byte for byte.
#include "calc/calc_storage.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "facade/sim/simulated_cnc.h"
#include "support/failing_files.h"
#include "support/fake_window_system.h"
#include "support/memory_files.h"
#include "window/timers.h"

namespace pnl::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr const char* kFile = "C:\\P1\\calc.htr";

class CalcHistoryTest : public testing::Test {
 protected:
  std::string Stored(const TextRows& rows) {
    saved = history.Save(rows);
    return files.disc[kFile];
  }

  bool saved = false;
  FakeWindowSystem windows;
  ManualTimers timers;
  MemoryFiles files;
  DriveMap drives;
  sim::SimulatedCnc cnc{windows, timers, files, drives};
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

}  // namespace
}  // namespace pnl::test
