// SPDX-License-Identifier: MIT
#include "host/pack_files.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "host/drive_settings.h"
#include "support/temp_folder.h"

namespace pnl {
namespace {

using ::testing::ElementsAre;

TEST(PackFiles, LieBesideTheLibraryUnlessTheEnvironmentNamesAFolder) {
  EXPECT_THAT(PackFolders(nullptr, "/opt/p/lib/libpnltools.so"),
              ElementsAre("/opt/p/share/pnltools/lang", "/opt/share/pnltools/lang"));
  EXPECT_THAT(PackFolders("", "/usr/lib/x86_64-linux-gnu/libpnltools.so"),
              ElementsAre("/usr/lib/share/pnltools/lang", "/usr/share/pnltools/lang"));
  EXPECT_THAT(PackFolders("/packs", "/usr/lib/libpnltools.so"), ElementsAre("/packs"));
  EXPECT_THAT(PackFolders(nullptr, ""), ElementsAre());
}

TEST(PackFiles, ACodeNeverLeadsElsewhere) {
  for (const char* good : {"en", "es", "pt-br", "zh_cn", "x1", "az09", "aaaaaaaaaaaaaaaa"})
    EXPECT_TRUE(IsLanguageCode(good)) << good;
  for (const char* bad : {"", ".", "..", "../en", "en/..", "EN", "e n", "aaaaaaaaaaaaaaaaa", "a`", "a{", "a/", "a:"}) {
    EXPECT_FALSE(IsLanguageCode(bad)) << bad;
  }
}

TEST(PackFiles, TheFirstFolderThatHasThePackGivesIt) {
  const test::TempFolder folder;
  folder.Write("b/en.pnl", "second");
  static_cast<void>(folder.Folder("a/es.pnl"));
  folder.Write("c/en.pnl", "third");
  const std::string root = folder.Path().string();
  const std::vector<std::string> folders = {root + "/none", root + "/a", root + "/b", root + "/c"};
  EXPECT_EQ(ReadPackFile(folders, "en"), "second");
  EXPECT_EQ(ReadPackFile(folders, "es"), std::nullopt) << "a folder is no pack";
  EXPECT_EQ(ReadPackFile(folders, "../b/en"), std::nullopt);
  EXPECT_EQ(ReadPackFile({}, "en"), std::nullopt);
}

TEST(PackFiles, AFolderBesideThePacksHasItsFilesInAlphabeticalOrder) {
  const test::TempFolder folder;
  folder.Write("second/manuals/en/b.chm", "b");
  folder.Write("second/manuals/en/a.chm", "a");
  folder.Write("second/manuals/en/pages/c.html", "no file of the folder itself");
  folder.Write("third/manuals/en/d.chm", "not asked any more");
  const std::string root = folder.Path().string();
  const std::vector<std::string> packs = {root + "/first/lang", root + "/second/lang", root + "/third/lang"};
  EXPECT_THAT(SharedFileNames(packs, "manuals/en"), ElementsAre("a.chm", "b.chm"));
  EXPECT_EQ(ReadSharedFile(packs, "manuals/en/b.chm"), "b");
  EXPECT_THAT(SharedFileNames(packs, "manuals/es"), ElementsAre());
  EXPECT_THAT(SharedFileNames(packs, "manuals/en/a.chm"), ElementsAre()) << "a file is no folder";
  EXPECT_THAT(SharedFileNames({}, "manuals/en"), ElementsAre());
}

struct DriveCase {
  const char* setting;
  const char* dataHome;
  const char* home;
  const char* c;
  const char* d;
};

TEST(DriveSettings, FillTheMapAndFallBackToTheUsersDataFolder) {
  const DriveCase cases[] = {
      {"C=/srv/cnc;D=/media/usb", "/data", "/home/op", "/srv/cnc", "/media/usb"},
      {"d=/media/usb", "/data", "/home/op", "/data/pnltools", "/media/usb"},
      {nullptr, nullptr, "/home/op", "/home/op/.local/share/pnltools", nullptr},
      {nullptr, "not/absolute", "/home/op", "/home/op/.local/share/pnltools", nullptr},
      {";;C=relative;D;=/x;D=", nullptr, nullptr, nullptr, nullptr},
      {"C=/;D=/", "/data", nullptr, "/", "/"},
      {"C=/a;D=/b;", nullptr, nullptr, "/a", "/b"},
      {"C=;C:/a;D-/b;C =/c", nullptr, nullptr, nullptr, nullptr},
      {"", "", "/home/op", "/home/op/.local/share/pnltools", nullptr},
      {"", "/data", nullptr, "/data/pnltools", nullptr},
      {"", nullptr, "home", nullptr, nullptr},
      {"C=/a;C=/b", "/data", nullptr, "/b", nullptr},
  };
  for (const DriveCase& row : cases) {
    DriveMap drives;
    SetStartDrives(drives, row.setting, row.dataHome, row.home);
    EXPECT_EQ(drives.Folder('C').value_or(""), row.c != nullptr ? row.c : "");
    EXPECT_EQ(drives.Folder('D').value_or(""), row.d != nullptr ? row.d : "");
  }
}

TEST(DriveSettings, ADriveThatIsThereAlreadyNeedsNoFallback) {
  DriveMap drives;
  drives.Set('C', "/described");
  SetStartDrives(drives, nullptr, "/data", "/home/op");
  EXPECT_EQ(drives.Folder('C'), "/described");
  SetStartDrives(drives, "C=/set", "/data", "/home/op");
  EXPECT_EQ(drives.Folder('C'), "/set");
}

TEST(SharedFiles, TheFirstPlaceThatHasAFileOrAFolderCounts) {
  const test::TempFolder folder;
  folder.Write("one/errors/a.txt", "first");
  folder.Write("two/errors/a.txt", "second");
  folder.Write("two/errors/b.txt", "b");
  static_cast<void>(folder.Folder("one/empty"));
  folder.Write("two/empty/c.txt", "c");
  const std::string root = folder.Path().string();
  const std::vector<std::string> packs = {root + "/one/lang", root + "/two/lang"};
  EXPECT_EQ(ReadSharedFile(packs, "errors/a.txt"), "first");
  EXPECT_EQ(ReadSharedFile(packs, "errors/b.txt"), "b");
  EXPECT_THAT(SharedFileNames(packs, "errors"), ElementsAre("a.txt"));
  EXPECT_THAT(SharedFileNames(packs, "empty"), ElementsAre());
}

TEST(SharedFiles, LieBesideThePacks) {
  const test::TempFolder folder;
  const std::filesystem::path root = folder.Path();
  std::filesystem::create_directories(root / "one" / "lang");
  std::filesystem::create_directories(root / "two" / "lang");
  std::filesystem::create_directories(root / "two" / "errors");
  std::ofstream(root / "two" / "errors" / "a.txt") << "two";
  const std::vector<std::string> packs = {(root / "one" / "lang").string(), (root / "two" / "lang").string()};
  EXPECT_EQ(ReadSharedFile(packs, "errors/a.txt"), "two");
  EXPECT_EQ(ReadSharedFile(packs, "errors/b.txt"), std::nullopt);
  EXPECT_EQ(ReadSharedFile(packs, "errors"), std::nullopt) << "a folder is no file";
  EXPECT_EQ(ReadSharedFile({}, "errors/a.txt"), std::nullopt);
}

TEST(DescribedDrives, OnlyADriveWithAFolderIsSet) {
  DriveMap drives;
  drives.Set('C', "/c");
  drives.Set('D', "/d");
  DriveSetup setup;
  setup.drives['C'].folder = "/other";
  setup.drives['D'].type = drive_type::kCd;
  setup.drives['E'].folder = "/e";
  SetDescribedDrives(drives, setup);
  EXPECT_EQ(drives.Folder('C'), "/other");
  EXPECT_EQ(drives.Folder('D'), "/d");
  EXPECT_EQ(drives.Folder('E'), "/e");
}

}  // namespace
}  // namespace pnl
