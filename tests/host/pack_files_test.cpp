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
  for (const char* good : {"en", "es", "pt-br", "zh_cn", "x1"}) EXPECT_TRUE(IsLanguageCode(good)) << good;
  for (const char* bad : {"", ".", "..", "../en", "en/..", "EN", "e n", "aaaaaaaaaaaaaaaaa"}) {
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
  };
  for (const DriveCase& row : cases) {
    DriveMap drives;
    SetStartDrives(drives, row.setting, row.dataHome, row.home);
    EXPECT_EQ(drives.Folder('C').value_or(""), row.c != nullptr ? row.c : "");
    EXPECT_EQ(drives.Folder('D').value_or(""), row.d != nullptr ? row.d : "");
  }
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
