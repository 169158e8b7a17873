// SPDX-License-Identifier: MIT
#include "support/failing_files.h"

#include <gtest/gtest.h>

#include "support/temp_folder.h"

namespace pnl::test {
namespace {

using Call = FailingFiles::Call;

class FailingFilesTest : public testing::Test {
 protected:
  FailingFilesTest() {
    drives.Set('C', temp.Path().string());
    temp.Write("a.txt", "old");
    temp.Write("b.txt", "0123456789");
  }
  TempFolder temp;
  DriveMap drives;
  DiscFiles disc{drives};
  FailingFiles files{disc};
};

TEST_F(FailingFilesTest, WhatIsntToldToFailGoesThrough) {
  EXPECT_EQ(files.Replace(u"C:\\a.txt", "new"), FileStatus::kOk);
  EXPECT_EQ(ReadWhole(files, u"C:\\a.txt"), "new");
  EXPECT_EQ(files.CanReplace(u"C:\\a.txt"), FileStatus::kOk);
  EXPECT_EQ(files.MakeFolder(u"C:\\sub"), FileStatus::kOk);
  EXPECT_TRUE(files.Query(u"C:\\sub").folder);
  EXPECT_EQ(files.HostPath(u"C:\\sub"), disc.HostPath(u"C:\\sub"));
}

TEST_F(FailingFilesTest, FailsTheNthCallsOnAPathAndDoesNothingInThem) {
  files.Fail(Call::kReplace, u"c:\\A.TXT", FileStatus::kDenied, 2, 2);
  EXPECT_EQ(files.Replace(u"C:\\a.txt", "1"), FileStatus::kOk);
  EXPECT_EQ(files.Replace(u"C:\\b.txt", "1"), FileStatus::kOk);
  EXPECT_EQ(files.Replace(u"C:\\a.txt", "2"), FileStatus::kDenied);
  EXPECT_EQ(files.Replace(u"C:\\a.txt", "3"), FileStatus::kDenied);
  EXPECT_EQ(temp.Read("a.txt"), "1");
  EXPECT_EQ(files.Replace(u"C:\\a.txt", "4"), FileStatus::kOk);
  EXPECT_EQ(temp.Read("a.txt"), "4");
}

TEST_F(FailingFilesTest, AnEmptyPathFailsEveryPathUntilHealed) {
  files.Fail(Call::kOpenRead, u"", FileStatus::kFailed, 1, FailingFiles::kForEver);
  FileStatus status = FileStatus::kOk;
  for (int i = 0; i < 3; ++i) EXPECT_EQ(files.OpenRead(u"C:\\a.txt", &status), nullptr);
  EXPECT_EQ(status, FileStatus::kFailed);
  EXPECT_EQ(files.OpenRead(u"C:\\b.txt", nullptr), nullptr);
  files.Heal();
  EXPECT_NE(files.OpenRead(u"C:\\a.txt", &status), nullptr);
  EXPECT_EQ(status, FileStatus::kOk);
}

TEST_F(FailingFilesTest, AFullDiscLeavesTheOldFile) {
  files.SetRoom(5);
  EXPECT_EQ(files.Replace(u"C:\\a.txt", "new"), FileStatus::kOk);
  EXPECT_EQ(files.Replace(u"C:\\a.txt", "newer"), FileStatus::kDiscFull);
  EXPECT_EQ(temp.Read("a.txt"), "new");
  EXPECT_EQ(files.Replace(u"C:\\a.txt", "no"), FileStatus::kOk);
}

TEST_F(FailingFilesTest, AReadBreaksOffAfterSoManyBytes) {
  files.FailReadsAfter(u"C:\\b.txt", 4);
  const auto reader = files.OpenRead(u"C:\\b.txt", nullptr);
  char buffer[10];
  EXPECT_EQ(reader->Read(buffer, 10), 4);
  EXPECT_EQ(reader->Read(buffer, 10), -1);
  EXPECT_TRUE(reader->Seek(8));
  EXPECT_EQ(reader->Read(buffer, 10), -1);
  EXPECT_TRUE(reader->Seek(2));
  EXPECT_EQ(reader->Read(buffer, 10), 2);
  EXPECT_FALSE(ReadWhole(files, u"C:\\b.txt"));
  EXPECT_EQ(ReadWhole(files, u"C:\\a.txt"), "old");
}

TEST_F(FailingFilesTest, RecordsWhatWasAskedInOrder) {
  files.Fail(Call::kMakeFolder, u"", FileStatus::kDenied);
  static_cast<void>(files.CanReplace(u"C:\\a.txt"));
  static_cast<void>(files.MakeFolder(u"C:\\sub"));
  static_cast<void>(files.Replace(u"C:\\a.txt", "x"));
  static_cast<void>(files.OpenRead(u"C:\\none", nullptr));
  const std::vector<FailingFiles::Asked> expected = {{Call::kCanReplace, u"C:\\a.txt", FileStatus::kOk},
                                                     {Call::kMakeFolder, u"C:\\sub", FileStatus::kDenied},
                                                     {Call::kReplace, u"C:\\a.txt", FileStatus::kOk},
                                                     {Call::kOpenRead, u"C:\\none", FileStatus::kNotFound}};
  EXPECT_EQ(files.AskedSoFar(), expected);
}

}  // namespace
}  // namespace pnl::test
