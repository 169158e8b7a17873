// SPDX-License-Identifier: MIT
// Rows and their file: what was learnt of it when it was read decides what may be written over it.
#include "base/row_file.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "base/format.h"
#include "support/failing_files.h"
#include "support/memory_files.h"

namespace pnl::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr TextView kPath = u"C:\\P1\\rows";
constexpr const char* kKey = "C:\\P1\\rows";

class RowFileTest : public testing::Test {
 protected:
  FileStatus Store(FileKnown known, const TextRows& all, const TextRows& added, bool unique = false,
                   std::size_t most = kAllRows) {
    return StoreRows(files, kPath, known, {all, added, most, unique});
  }
  MemoryFiles files;
};

TEST_F(RowFileTest, ReadingTellsWhetherTheFileWasReadIsMissingOrIsUnknown) {
  EXPECT_EQ(ReadRows(files, kPath).known, FileKnown::kAbsent);
  files.disc[kKey] = "a\r\nb";
  const RowsRead read = ReadRows(files, kPath);
  EXPECT_EQ(read.known, FileKnown::kWhole);
  EXPECT_THAT(read.rows, ElementsAre(u"a", u"b"));
  files.unreadable = {kKey};
  EXPECT_EQ(ReadRows(files, kPath).known, FileKnown::kUnknown);
  files.unreadable.clear();
  files.away = {"C:\\P1"};
  EXPECT_EQ(ReadRows(files, kPath).known, FileKnown::kUnknown);
  files.away.clear();
  FailingFiles broken(files);
  broken.FailReadsAfter({}, 3);
  const RowsRead part = ReadRows(broken, kPath);
  EXPECT_EQ(part.known, FileKnown::kUnknown);
  EXPECT_THAT(part.rows, ElementsAre(u"a"));
}

TEST_F(RowFileTest, ALimitLeavesTheRestUnreadAndTheFileKnown) {
  files.disc[kKey] = "a\nb\nc\n";
  const RowsRead read = ReadRows(files, kPath, 2);
  EXPECT_EQ(read.known, FileKnown::kWhole);
  EXPECT_THAT(read.rows, ElementsAre(u"a", u"b"));
  EXPECT_THAT(ReadRows(files, kPath, 0).rows, IsEmpty());
}

TEST_F(RowFileTest, AFileThatWasReadIsReplacedWithAllRowsUpToTheLimit) {
  files.disc[kKey] = "old\r\n";
  EXPECT_EQ(Store(FileKnown::kWhole, {u"a", u"b", u"c"}, {u"a"}, true, 2), FileStatus::kOk);
  EXPECT_EQ(files.disc[kKey], "a\r\nb\r\n");
}

TEST_F(RowFileTest, AMissingFileIsMadeWhateverWasKnownOfIt) {
  for (const FileKnown known : {FileKnown::kAbsent, FileKnown::kUnknown}) {
    files.disc.clear();
    EXPECT_EQ(Store(known, {u"a", u"b"}, {u"a"}), FileStatus::kOk);
    EXPECT_EQ(files.disc[kKey], "a\r\nb\r\n");
  }
}

TEST_F(RowFileTest, RowsOfTheSessionComeInFrontOfAFileThatWasNotRead) {
  for (const FileKnown known : {FileKnown::kAbsent, FileKnown::kUnknown}) {
    files.disc[kKey] = "x\r\nb\r\n";
    EXPECT_EQ(Store(known, {u"a", u"b", u"c"}, {u"a", u"b"}), FileStatus::kOk);
    EXPECT_EQ(files.disc[kKey], "a\r\nb\r\nx\r\nb\r\n");
    files.disc[kKey] = "x\r\nb\r\n";
    EXPECT_EQ(Store(known, {u"a", u"b", u"c"}, {u"a", u"b"}, true, 3), FileStatus::kOk);
    EXPECT_EQ(files.disc[kKey], "a\r\nb\r\nx\r\n");
  }
}

TEST_F(RowFileTest, WithoutRowsOfTheSessionAFileThatWasNotReadStays) {
  files.disc[kKey] = "old\r\n";
  files.unreadable = {kKey};
  EXPECT_EQ(Store(FileKnown::kUnknown, {u"a"}, {}), FileStatus::kOk);
  EXPECT_THAT(files.replaced, IsEmpty());
}

TEST_F(RowFileTest, AFileThatStillCanNotBeReadStaysAndTheFailureIsTold) {
  files.disc[kKey] = "old\r\n";
  files.unreadable = {kKey};
  EXPECT_EQ(Store(FileKnown::kUnknown, {u"a"}, {u"a"}), FileStatus::kDenied);
  files.away = {"C:"};
  EXPECT_EQ(Store(FileKnown::kUnknown, {u"a"}, {u"a"}), FileStatus::kOutOfReach);
  EXPECT_EQ(Store(FileKnown::kWhole, {u"a"}, {u"a"}), FileStatus::kOutOfReach);
  EXPECT_EQ(files.disc[kKey], "old\r\n");
}

TEST_F(RowFileTest, OfAllRowsThoseThatWereAddedAreFoundInTheirOrder) {
  EXPECT_THAT(RowsOf({u"c", u"x", u"a", u"a", u"a"}, {u"a", u"gone", u"a", u"c"}), ElementsAre(u"c", u"a", u"a"));
  EXPECT_THAT(RowsOf({u"c"}, {}), IsEmpty());
}

TEST_F(RowFileTest, ARowIsWrittenAsOneLineWhateverIsInIt) {
  EXPECT_EQ(WriteRows(files, kPath, {u"one\r\ntwo", u"\nthree", u"ñ"}), FileStatus::kOk);
  EXPECT_EQ(files.disc[kKey], "one  two\r\n three\r\n\xC3\xB1\r\n");
}

TEST_F(RowFileTest, AFirstRowThatBeginsWithAMarkComesBackAsItWas) {
  const TextRows rows = {u"\uFEFFa", u"\uFEFFb"};
  EXPECT_EQ(WriteRows(files, kPath, rows), FileStatus::kOk);
  EXPECT_EQ(files.disc[kKey],
            "\xEF\xBB\xBF\xEF\xBB\xBF"
            "a\r\n\xEF\xBB\xBF"
            "b\r\n");
  EXPECT_TRUE(ReadRows(files, kPath).rows == rows);
  EXPECT_EQ(WriteRows(files, kPath, rows, 0), FileStatus::kOk);
  EXPECT_EQ(files.disc[kKey], "") << "no row, no mark";
  EXPECT_EQ(WriteRows(files, kPath, {}), FileStatus::kOk);
  EXPECT_EQ(files.disc[kKey], "");
}

TEST_F(RowFileTest, ManyRowsAreWrittenInTheirOrderUpToTheLimit) {
  TextRows rows;
  std::string expected;
  for (int i = 0; i < 30'000; ++i) {
    rows.push_back(Format(u"G1 X%d", i));
    if (i < 29'999) expected += "G1 X" + std::to_string(i) + "\r\n";
  }
  EXPECT_EQ(WriteRows(files, kPath, rows, 29'999), FileStatus::kOk);
  EXPECT_TRUE(files.disc[kKey] == expected);
}

TEST_F(RowFileTest, TellsHowMuchWasRead) {
  files.disc[kKey] = "ab\r\n\r\n\xC3\xB1\r\n";
  EXPECT_EQ(ReadRows(files, kPath).bytes, 2u + 0 + 2 + 3);
  EXPECT_EQ(ReadRows(files, kPath, 1).bytes, 2u + 1);
}

TEST_F(RowFileTest, EarlyStoringWritesOnlyWhereTheEndWouldReplaceTheFile) {
  const TextRows rows{u"a", u"b", u"c"};
  const TextRows none;
  const auto store = [&](FileKnown known, std::uint64_t mostBytes = 6) {
    const bool stored = StoreRowsEarly(files, kPath, known, {rows, none, 2}, mostBytes);
    return std::make_pair(stored, known);
  };
  EXPECT_EQ(store(FileKnown::kAbsent), std::make_pair(true, FileKnown::kWhole));
  EXPECT_EQ(files.disc[kKey], "a\r\nb\r\n") << "up to the limit";
  files.disc[kKey] = "old\r\n";
  EXPECT_EQ(store(FileKnown::kAbsent), std::make_pair(true, FileKnown::kAbsent)) << "it has come since";
  EXPECT_EQ(store(FileKnown::kUnknown), std::make_pair(true, FileKnown::kUnknown));
  EXPECT_EQ(store(FileKnown::kWhole, 5), std::make_pair(true, FileKnown::kWhole)) << "too long";
  EXPECT_EQ(files.disc[kKey], "old\r\n");
  EXPECT_EQ(store(FileKnown::kWhole), std::make_pair(true, FileKnown::kWhole));
  EXPECT_EQ(files.disc[kKey], "a\r\nb\r\n");
  files.disc.erase(kKey);
  files.away = {"C:\\P1"};
  EXPECT_EQ(store(FileKnown::kAbsent), std::make_pair(true, FileKnown::kAbsent)) << "out of reach by now";
  files.away.clear();
  EXPECT_EQ(files.disc.count(kKey), 0U);
}

TEST_F(RowFileTest, EarlyStoringTellsThatTheFileCanNotBeWritten) {
  const TextRows rows{u"a"};
  const TextRows none;
  files.readOnly = {kKey};
  FileKnown known = FileKnown::kAbsent;
  EXPECT_FALSE(StoreRowsEarly(files, kPath, known, {rows, none}, 100));
  EXPECT_EQ(known, FileKnown::kAbsent);
}

}  // namespace
}  // namespace pnl::test
