// SPDX-License-Identifier: MIT
#include "base/files.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/types.h>

#include <filesystem>
#include <vector>

#include "support/temp_folder.h"

namespace pnl {
namespace {

namespace fs = std::filesystem;

class FilesTest : public testing::Test {
 protected:
  FilesTest() { drives.Set('C', temp.Path().string()); }
  [[nodiscard]] std::string Host(const std::string& name) const { return (temp.Path() / name).string(); }
  void Mode(const std::string& name, mode_t mode) const { ASSERT_EQ(chmod(Host(name).c_str(), mode), 0); }
  FileStatus OpenStatus(TextView path) {
    FileStatus status = FileStatus::kFailed;
    const bool opened = files.OpenRead(path, &status) != nullptr;
    EXPECT_EQ(opened, status == FileStatus::kOk);
    return status;
  }

  test::TempFolder temp;
  DriveMap drives;
  DiscFiles files{drives};
};

TEST_F(FilesTest, APanelPathBecomesAPathUnderItsDrive) {
  EXPECT_EQ(files.HostPath(u"C:\\a\\b.txt"), Host("a/b.txt"));
  EXPECT_EQ(files.HostPath(u"c:/a/ñ.txt"), Host("a/\xC3\xB1.txt"));
  EXPECT_EQ(files.HostPath(u"C:\\"), temp.Path().string());
  EXPECT_FALSE(files.HostPath(u"D:\\a"));
  EXPECT_FALSE(files.HostPath(u"a"));
  EXPECT_FALSE(files.HostPath(TextView(u"C:\\a\0b", 6)));
}

TEST_F(FilesTest, NoPathLeavesItsDrive) {
  for (const TextView path : {u"C:\\..\\..\\..\\etc\\passwd", u"C:/../etc/passwd", u"C:\\a\\../..\\..\\etc/passwd"}) {
    EXPECT_EQ(files.HostPath(path), Host("etc/passwd"));
  }
}

TEST_F(FilesTest, ADriveOfTheWholeMachineHasOneSlash) {
  drives.Set('R', "/");
  EXPECT_EQ(files.HostPath(u"R:\\none\\x"), "/none/x");
  EXPECT_EQ(files.HostPath(u"R:\\"), "/");
}

TEST_F(FilesTest, TheExactNameGoesBeforeOneThatDiffersInCase) {
  temp.Write("Data/FILE.txt", "upper");
  temp.Write("Data/File.txt", "mixed");
  temp.Write("Data/file.txt", "lower");
  EXPECT_EQ(files.HostPath(u"C:\\Data\\file.txt"), Host("Data/file.txt"));
  EXPECT_EQ(files.HostPath(u"C:\\Data\\File.txt"), Host("Data/File.txt"));
  // Among several the first in byte order, on any disc.
  EXPECT_EQ(files.HostPath(u"C:\\DATA\\fILE.TXT"), Host("Data/FILE.txt"));
}

TEST_F(FilesTest, EachNameOfAPathIsFoundWithoutRegardToCase) {
  temp.Write("Ñandú/P1/a.txt", "x");
  EXPECT_EQ(ReadWhole(files, u"C:\\ñANDÚ\\p1\\A.TXT"), "x");
  EXPECT_EQ(files.HostPath(u"C:\\ñandú\\New\\X"), Host("Ñandú/New/X"));
}

TEST_F(FilesTest, AFileWhoseNameIsNoUtf8IsFoundByItsReplacement) {
  temp.Write("a\xF1o.txt", "latin");
  EXPECT_EQ(ReadWhole(files, u"C:\\a\uFFFDo.txt"), "latin");
}

TEST_F(FilesTest, QueryTellsWhatIsThere) {
  temp.Write("a.txt", "12345");
  fs::create_directory(Host("dir"));
  const FileInfo file = files.Query(u"C:\\A.TXT");
  EXPECT_TRUE(file.exists && !file.folder && file.writable);
  EXPECT_EQ(file.size, 5u);
  const FileInfo folder = files.Query(u"C:\\dir\\");
  EXPECT_TRUE(folder.exists && folder.folder && folder.writable);
  EXPECT_FALSE(files.Query(u"C:\\none").exists);
  EXPECT_FALSE(files.Query(u"C:\\a.txt\\below").exists);
  EXPECT_FALSE(files.Query(u"Q:\\a.txt").exists);
  Mode("a.txt", 0444);
  Mode("dir", 0555);
  EXPECT_FALSE(files.Query(u"C:\\a.txt").writable);
  EXPECT_FALSE(files.Query(u"C:\\dir").writable);
}

TEST_F(FilesTest, AReaderReadsInPiecesAndSeeks) {
  temp.Write("a.txt", "0123456789");
  const auto reader = files.OpenRead(u"C:\\a.txt", nullptr);
  ASSERT_TRUE(reader);
  EXPECT_EQ(reader->Size(), 10u);
  char buffer[4];
  EXPECT_EQ(reader->Read(buffer, 4), 4);
  EXPECT_EQ(std::string(buffer, 4), "0123");
  EXPECT_EQ(reader->Position(), 4u);
  EXPECT_TRUE(reader->Seek(8));
  EXPECT_EQ(reader->Read(buffer, 4), 2);
  EXPECT_EQ(std::string(buffer, 2), "89");
  EXPECT_EQ(reader->Read(buffer, 4), 0);
  EXPECT_TRUE(reader->Seek(10));
  EXPECT_FALSE(reader->Seek(11));
  EXPECT_EQ(reader->Position(), 10u);
}

TEST_F(FilesTest, AReaderKeepsTheFileItOpenedWhenThatIsReplaced) {
  temp.Write("a.txt", "old");
  const auto reader = files.OpenRead(u"C:\\a.txt", nullptr);
  ASSERT_EQ(files.Replace(u"C:\\a.txt", "new"), FileStatus::kOk);
  char buffer[8];
  EXPECT_EQ(reader->Read(buffer, 8), 3);
  EXPECT_EQ(std::string(buffer, 3), "old");
}

TEST_F(FilesTest, OpeningTellsWhyItFailed) {
  temp.Write("secret.txt", "x");
  fs::create_directory(Host("dir"));
  Mode("secret.txt", 0);
  EXPECT_EQ(OpenStatus(u"C:\\secret.txt"), FileStatus::kDenied);
  Mode("secret.txt", 0400);
  EXPECT_EQ(OpenStatus(u"C:\\secret.txt"), FileStatus::kOk);
  EXPECT_EQ(OpenStatus(u"C:\\dir"), FileStatus::kIsFolder);
  EXPECT_EQ(OpenStatus(u"C:\\none"), FileStatus::kNotFound);
  EXPECT_EQ(OpenStatus(u"C:\\none\\none"), FileStatus::kOutOfReach);
  EXPECT_EQ(OpenStatus(u"C:\\secret.txt\\below"), FileStatus::kOutOfReach);
  EXPECT_EQ(OpenStatus(u"D:\\a"), FileStatus::kOutOfReach);
  EXPECT_EQ(OpenStatus(u""), FileStatus::kOutOfReach);
  EXPECT_NE(OpenStatus(u"C:\\" + Text(5000, u'x')), FileStatus::kOk);
}

TEST_F(FilesTest, APipeOrADeviceIsRefusedWithoutWaiting) {
  // Opening a pipe that nobody writes to would wait for ever.
  ASSERT_EQ(mkfifo(Host("pipe").c_str(), 0666), 0);
  EXPECT_EQ(OpenStatus(u"C:\\pipe"), FileStatus::kDenied);
  EXPECT_EQ(files.Replace(u"C:\\pipe", "x"), FileStatus::kDenied);
  EXPECT_FALSE(ReadWhole(files, u"C:\\pipe"));
  drives.Set('D', "/dev");
  EXPECT_EQ(OpenStatus(u"D:\\zero"), FileStatus::kDenied);
  EXPECT_EQ(files.CanReplace(u"D:\\null"), FileStatus::kDenied);
}

TEST_F(FilesTest, ReadWholeHasALimit) {
  temp.Write("a.txt", std::string(1000, 'x'));
  temp.Write("empty", "");
  EXPECT_EQ(ReadWhole(files, u"C:\\a.txt", 1000), std::string(1000, 'x'));
  EXPECT_FALSE(ReadWhole(files, u"C:\\a.txt", 999));
  EXPECT_EQ(ReadWhole(files, u"C:\\empty", 0), "");
  EXPECT_EQ(ReadWhole(files, u"C:\\a.txt", UINT64_MAX).value_or("").size(), 1000u);
}

TEST_F(FilesTest, ReadWholeFollowsAFileWhoseSizeIsntTold) {
  // Such files say 0 and hold more.
  drives.Set('P', "/proc/self");
  const auto status = ReadWhole(files, u"P:\\status");
  ASSERT_TRUE(status);
  EXPECT_GT(status->size(), 100u);
  EXPECT_FALSE(ReadWhole(files, u"P:\\status", 100));
}

TEST_F(FilesTest, MakeFolderMakesItsParents) {
  EXPECT_EQ(files.MakeFolder(u"C:\\a\\b\\c"), FileStatus::kOk);
  EXPECT_TRUE(fs::is_directory(Host("a/b/c")));
  EXPECT_EQ(files.MakeFolder(u"C:\\A\\B\\c\\"), FileStatus::kOk);
  EXPECT_FALSE(temp.Has("A"));
  EXPECT_EQ(files.MakeFolder(u"C:\\"), FileStatus::kOk);
}

TEST_F(FilesTest, MakeFolderTellsWhyItFailed) {
  temp.Write("file", "x");
  fs::create_directory(Host("locked"));
  Mode("locked", 0555);
  EXPECT_EQ(files.MakeFolder(u"C:\\file"), FileStatus::kFailed);
  EXPECT_EQ(files.MakeFolder(u"C:\\file\\below"), FileStatus::kFailed);
  EXPECT_EQ(files.MakeFolder(u"C:\\locked\\below"), FileStatus::kDenied);
  EXPECT_EQ(files.MakeFolder(u"D:\\a"), FileStatus::kOutOfReach);
  fs::create_symlink("circle", Host("circle"));
  EXPECT_EQ(files.MakeFolder(u"C:\\circle"), FileStatus::kOutOfReach);
  drives.Set('D', Host("unplugged"));
  EXPECT_EQ(files.MakeFolder(u"D:\\a"), FileStatus::kOutOfReach);
  EXPECT_FALSE(temp.Has("unplugged"));
}

TEST_F(FilesTest, AFolderOnADriveThatIsAFileIsNotMade) {
  temp.Write("file", "x");
  drives.Set('D', Host("file"));
  EXPECT_EQ(files.MakeFolder(u"D:\\a"), FileStatus::kFailed);
  EXPECT_EQ(files.MakeFolder(u"D:\\"), FileStatus::kFailed);
  EXPECT_TRUE(files.Query(u"D:\\a").outOfReach);
}

TEST_F(FilesTest, WhatReadWholeGivesOfAGrowingFileIsItsContent) {
  drives.Set('P', "/proc/self");
  for (const std::uint64_t limit : {std::uint64_t{1} << 20, std::uint64_t{UINT64_MAX}}) {
    const auto status = ReadWhole(files, u"P:\\status", limit);
    ASSERT_TRUE(status);
    EXPECT_EQ(status->substr(0, 5), "Name:");
    EXPECT_EQ(status->find('\0'), std::string::npos);
    EXPECT_EQ(status->back(), '\n');
  }
}

/// A file that grows while it is read and goes on for ever. It records how much each read asked for.
class EndlessFiles final : public Files {
 public:
  explicit EndlessFiles(Files& inner) : inner_(inner) {}
  FileInfo Query(TextView path) const override { return inner_.Query(path); }
  std::unique_ptr<FileReader> OpenRead(TextView, FileStatus*) const override { return std::make_unique<Reader>(asked); }
  FileStatus CanReplace(TextView path) const override { return inner_.CanReplace(path); }
  FileStatus Replace(TextView path, std::string_view bytes) override { return inner_.Replace(path, bytes); }
  FileStatus MakeFolder(TextView path) override { return inner_.MakeFolder(path); }
  std::optional<std::string> HostPath(TextView path) const override { return inner_.HostPath(path); }
  std::unique_ptr<Files> ForAnotherThread() const override { return inner_.ForAnotherThread(); }

  mutable std::vector<std::size_t> asked;

 private:
  class Reader final : public FileReader {
   public:
    explicit Reader(std::vector<std::size_t>& asked) : asked_(asked) {}
    std::int64_t Read(char* buffer, std::size_t size) override {
      asked_.push_back(size);
      // A single byte, so that no request can write past its buffer.
      *buffer = 'x';
      return 1;
    }
    bool Seek(std::uint64_t) override { return false; }
    std::uint64_t Position() const override { return 0; }
    std::uint64_t Size() const override { return 4; }

   private:
    std::vector<std::size_t>& asked_;
  };
  Files& inner_;
};

TEST_F(FilesTest, ReadWholeAsksForWhatHasRoomBehindWhatItHas) {
  EndlessFiles endless(files);
  EXPECT_FALSE(ReadWhole(endless, u"C:\\a.txt", 7));
  // Five bytes of room at first, one more than the file's size; then as many as the limit allows and one.
  EXPECT_EQ(endless.asked, (std::vector<std::size_t>{5, 4, 3, 2, 1, 3, 2, 1}));
}

TEST_F(FilesTest, AFileBeyondAGigabyteIsReadOnlyWhereThatIsAsked) {
  temp.Write("huge", "");
  fs::resize_file(Host("huge"), (std::uint64_t{1} << 30) + 1);
  EXPECT_FALSE(ReadWhole(files, u"C:\\huge"));
}

TEST_F(FilesTest, AFileOfTheMachineIsReadByItsOwnPathUpToALimit) {
  temp.Write("sub/a.txt", "12345");
  EXPECT_EQ(ReadHostFile(Host("sub/a.txt"), 5), "12345");
  EXPECT_FALSE(ReadHostFile(Host("sub/a.txt"), 4));
  EXPECT_FALSE(ReadHostFile(Host("sub/none"), 5));
  EXPECT_FALSE(ReadHostFile(Host("sub"), 5));
  EXPECT_FALSE(ReadHostFile("", 5));
}

TEST_F(FilesTest, AnotherThreadsFilesHaveTheDrivesOfTheirMaking) {
  temp.Write("a.txt", "x");
  const auto other = files.ForAnotherThread();
  drives.Set('C', "");
  EXPECT_FALSE(files.HostPath(u"C:\\a.txt"));
  EXPECT_EQ(ReadWhole(*other, u"C:\\a.txt"), "x");
}

}  // namespace
}  // namespace pnl
