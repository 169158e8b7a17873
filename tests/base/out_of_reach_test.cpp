// SPDX-License-Identifier: MIT
// "Doesn't exist" and "can't be reached" are two answers: only the first lets a tool make a fresh file.
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>
#include <functional>

#include "base/files.h"
#include "base/ini_file.h"
#include "base/row_file.h"
#include "support/temp_folder.h"

namespace pnl {
namespace {

namespace fs = std::filesystem;

constexpr TextView kPath = u"D:\\share\\user\\a.ini";

/// A file on a drive whose place goes and comes back.
struct Place {
  test::TempFolder temp;
  DriveMap drives;
  DiscFiles files{drives};

  Place() {
    drives.Set('D', (temp.Path() / "drive").string());
    temp.Write("drive/share/user/a.ini", "; mine\r\n[S]\r\nKey=1\r\nUnknown=2\r\n");
  }
  [[nodiscard]] fs::path Host(const std::string& name) const { return temp.Path() / "drive" / name; }
  void Mode(const std::string& name, mode_t mode) const { ASSERT_EQ(chmod(Host(name).c_str(), mode), 0); }
};

struct Cause {
  const char* name;
  std::function<void(Place&)> takeAway;
  std::function<void(Place&)> bringBack;
};

std::ostream& operator<<(std::ostream& out, const Cause& cause) { return out << cause.name; }

void Move(const fs::path& from, const fs::path& to) { fs::rename(from, to); }

const Cause kCauses[] = {
    {"the drive isn't mapped", [](Place& p) { p.drives.Set('D', ""); },
     [](Place& p) { p.drives.Set('D', (p.temp.Path() / "drive").string()); }},
    {"the drive's folder is missing", [](Place& p) { Move(p.temp.Path() / "drive", p.temp.Path() / "away"); },
     [](Place& p) { Move(p.temp.Path() / "away", p.temp.Path() / "drive"); }},
    {"the share isn't mounted: its place is an empty folder",
     [](Place& p) {
       Move(p.Host("share"), p.temp.Path() / "away");
       fs::create_directory(p.Host("share"));
     },
     [](Place& p) {
       fs::remove(p.Host("share"));
       Move(p.temp.Path() / "away", p.Host("share"));
     }},
    {"the folder is renamed away", [](Place& p) { Move(p.Host("share/user"), p.Host("share/user.old")); },
     [](Place& p) { Move(p.Host("share/user.old"), p.Host("share/user")); }},
    {"the folder above is renamed away", [](Place& p) { Move(p.Host("share"), p.Host("share.old")); },
     [](Place& p) { Move(p.Host("share.old"), p.Host("share")); }},
    {"the folder has no rights", [](Place& p) { p.Mode("share/user", 0); },
     [](Place& p) { p.Mode("share/user", 0755); }},
    {"the folder above has no rights", [](Place& p) { p.Mode("share", 0); }, [](Place& p) { p.Mode("share", 0755); }},
    {"the folder can't be entered", [](Place& p) { p.Mode("share/user", 0644); },
     [](Place& p) { p.Mode("share/user", 0755); }},
    {"a file stands in the folder's place",
     [](Place& p) {
       Move(p.Host("share/user"), p.Host("share/user.old"));
       p.temp.Write("drive/share/user", "no folder");
     },
     [](Place& p) {
       fs::remove(p.Host("share/user"));
       Move(p.Host("share/user.old"), p.Host("share/user"));
     }},
    {"the folder is a link in a circle",
     [](Place& p) {
       Move(p.Host("share/user"), p.Host("share/user.old"));
       fs::create_directory_symlink("user", p.Host("share/user"));
     },
     [](Place& p) {
       fs::remove(p.Host("share/user"));
       Move(p.Host("share/user.old"), p.Host("share/user"));
     }},
    {"the file is a link in a circle",
     [](Place& p) {
       Move(p.Host("share/user/a.ini"), p.Host("share/user/b.ini"));
       fs::create_symlink("a.ini", p.Host("share/user/a.ini"));
     },
     [](Place& p) {
       fs::remove(p.Host("share/user/a.ini"));
       Move(p.Host("share/user/b.ini"), p.Host("share/user/a.ini"));
     }},
    {"the file is a link to a disc that is away",
     [](Place& p) {
       Move(p.Host("share/user/a.ini"), p.Host("share/user/b.ini"));
       fs::create_symlink("/nowhere/at/all/a.ini", p.Host("share/user/a.ini"));
     },
     [](Place& p) {
       fs::remove(p.Host("share/user/a.ini"));
       Move(p.Host("share/user/b.ini"), p.Host("share/user/a.ini"));
     }},
};

class OutOfReach : public testing::TestWithParam<Cause> {
 protected:
  Place place;
};

INSTANTIATE_TEST_SUITE_P(EveryCause, OutOfReach, testing::ValuesIn(kCauses),
                         [](const auto& row) { return "Cause" + std::to_string(row.index); });

TEST_P(OutOfReach, IsNeitherThereNorAbsent) {
  GetParam().takeAway(place);
  const FileInfo info = place.files.Query(kPath);
  EXPECT_FALSE(info.exists);
  EXPECT_TRUE(info.outOfReach);
  FileStatus status = FileStatus::kOk;
  EXPECT_FALSE(place.files.OpenRead(kPath, &status));
  EXPECT_EQ(status, FileStatus::kOutOfReach);
  EXPECT_EQ(place.files.CanReplace(kPath), FileStatus::kOutOfReach);
  EXPECT_EQ(place.files.Replace(kPath, "x"), FileStatus::kOutOfReach);
  GetParam().bringBack(place);
  EXPECT_TRUE(place.files.Query(kPath).exists);
  EXPECT_FALSE(place.files.Query(kPath).outOfReach);
}

TEST_P(OutOfReach, AnIniFileOfThatPathIsNotWrittenOverWhenItIsBack) {
  // It was taken for a missing file, and a fresh one without comments and unknown keys was written over it.
  CIniFile ini(place.files);
  GetParam().takeAway(place);
  EXPECT_FALSE(ini.ReadIniFile(kPath));
  ini.WriteInt(u"S", u"Key", 7);
  GetParam().bringBack(place);
  EXPECT_FALSE(ini.WriteIniFile(kPath));
  EXPECT_EQ(place.temp.Read("drive/share/user/a.ini"), "; mine\r\n[S]\r\nKey=1\r\nUnknown=2\r\n");
}

TEST_P(OutOfReach, RowsOfThatPathAreKeptBehindTheSessionsOwnWhenTheyAreBack) {
  // A thousand rows became one.
  std::string rows;
  for (int i = 0; i < 1000; ++i) rows += "G1 X" + std::to_string(i) + "\r\n";
  place.temp.Write("drive/share/user/a.ini", rows);
  GetParam().takeAway(place);
  const RowsRead read = ReadRows(place.files, kPath);
  EXPECT_EQ(read.known, FileKnown::kUnknown);
  const TextRows own = {u"M5"};
  EXPECT_EQ(StoreRows(place.files, kPath, read.known, {own, own}), FileStatus::kOutOfReach) << "it is still away";
  GetParam().bringBack(place);
  EXPECT_EQ(place.temp.Read("drive/share/user/a.ini"), rows);
  EXPECT_EQ(StoreRows(place.files, kPath, read.known, {own, own}), FileStatus::kOk);
  EXPECT_EQ(place.temp.Read("drive/share/user/a.ini"), "M5\r\n" + rows);
}

TEST(OutOfReachTest, AMissingNameInAFolderThatCanBeLookedThroughIsAbsent) {
  Place place;
  const TextView path = u"D:\\share\\user\\none.ini";
  EXPECT_FALSE(place.files.Query(path).exists);
  EXPECT_FALSE(place.files.Query(path).outOfReach);
  FileStatus status = FileStatus::kOk;
  EXPECT_FALSE(place.files.OpenRead(path, &status));
  EXPECT_EQ(status, FileStatus::kNotFound);
  EXPECT_EQ(place.files.CanReplace(path), FileStatus::kOk);
}

TEST(OutOfReachTest, AnExactNameIsFoundInAFolderThatCanNotBeListed) {
  Place place;
  place.Mode("share/user", 0311);
  EXPECT_TRUE(place.files.Query(kPath).exists);
  EXPECT_TRUE(place.files.Query(u"D:\\share\\user\\A.INI").outOfReach);
  EXPECT_TRUE(place.files.Query(u"D:\\share\\user\\none").outOfReach);
}

TEST(OutOfReachTest, ALinkToAMissingFileInAFolderThatIsThereIsAbsent) {
  Place place;
  fs::create_symlink("../made-later.ini", place.Host("share/user/link.ini"));
  EXPECT_FALSE(place.files.Query(u"D:\\share\\user\\link.ini").outOfReach);
  EXPECT_EQ(place.files.Replace(u"D:\\share\\user\\link.ini", "new"), FileStatus::kOk);
  EXPECT_EQ(place.temp.Read("drive/share/made-later.ini"), "new");
}

TEST(OutOfReachTest, ALinkToAMissingFileIsAbsentOnlyWhereTheFolderCanBeLookedThrough) {
  Place place;
  fs::create_directory(place.Host("other"));
  fs::create_symlink("../../other/later.ini", place.Host("share/user/link.ini"));
  const struct {
    mode_t mode;
    bool outOfReach;
  } rows[] = {{0755, false}, {0311, true}, {0644, true}, {0, true}};
  for (const auto& row : rows) {
    place.Mode("other", row.mode);
    EXPECT_EQ(place.files.Query(u"D:\\share\\user\\link.ini").outOfReach, row.outOfReach) << row.mode;
  }
  place.Mode("other", 0755);
}

// Such a name can't be on the disc, so nothing can be made there.
TEST(OutOfReachTest, ALinkToANameThatIsTooLongIsOutOfReach) {
  Place place;
  fs::create_symlink(std::string(300, 'a'), place.Host("share/user/link.ini"));
  EXPECT_TRUE(place.files.Query(u"D:\\share\\user\\link.ini").outOfReach);
}

}  // namespace
}  // namespace pnl
