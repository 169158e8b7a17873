// SPDX-License-Identifier: MIT
#include "places/drive_file.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>

#include "support/temp_folder.h"

namespace pnl {
namespace {

TEST(DriveFile, AWholeFileIsRead) {
  const DriveSetup setup = ParseDriveFile(
      "; the drives of the mill\r\n[C]\r\nFolder=/srv/cnc\r\nLabel=MACHINE\r\n[d]\r\nTYPE=Removable\r\n"
      "[N]\r\nFolder=/mnt/ñ\r\nType=network\r\nRemote=\\\\office\\programs\r\n"
      "[Drives]\r\nHidden=A,b\r\nRemembered=N\r\nLocked=XYZ\r\nCurrent=d:\r\n");
  DriveSetup expected;
  expected.drives['C'] = {"/srv/cnc", drive_type::kFixed, Text(u"MACHINE"), {}};
  expected.drives['D'] = {"", drive_type::kRemovable, {}, {}};
  expected.drives['N'] = {"/mnt/ñ", drive_type::kNetwork, {}, u"\\\\office\\programs"};
  expected.hidden = DriveBit(u'A') | DriveBit(u'B');
  expected.remembered = DriveBit(u'N');
  expected.locked = DriveBit(u'X') | DriveBit(u'Y') | DriveBit(u'Z');
  expected.current = 'D';
  EXPECT_EQ(setup, expected);
}

TEST(DriveFile, AnEmptyFileSaysNothing) { EXPECT_EQ(ParseDriveFile(""), DriveSetup{}); }

TEST(DriveFile, TheTypesHaveTheirNumbers) {
  const std::pair<const char*, int> rows[] = {{"removable", 2}, {"fixed", 3}, {"network", 4}, {"cd", 5},  {"CD", 5},
                                              {" Network ", 4}, {"", 3},      {"4", 3},       {"ram", 3}, {"cdrom", 3}};
  for (const auto& [name, type] : rows) {
    const DriveSetup setup = ParseDriveFile(std::string("[E]\nType=") + name + "\n");
    ASSERT_EQ(setup.drives.count('E'), 1U) << name;
    EXPECT_EQ(setup.drives.at('E').type, type) << name;
  }
}

TEST(DriveFile, OnlyAnAbsolutePathIsAFolder) {
  const std::pair<std::string, std::string> rows[] = {
      {"/", "/"}, {"/a b", "/a b"}, {"a", ""},   {"C:\\a", ""},
      {"", ""},   {"./a", ""},      {"~/a", ""}, {std::string("/a\0b", 4), ""}};
  for (const auto& [value, folder] : rows) {
    EXPECT_EQ(ParseDriveFile("[E]\nFolder=" + value + "\n").drives.at('E').folder, folder) << value;
  }
}

TEST(DriveFile, OnlyANetworkPathIsARemoteName) {
  const std::pair<const char*, TextView> rows[] = {
      {"\\\\s\\x", u"\\\\s\\x"}, {"\\\\", u"\\\\"}, {"\\s\\x", u""}, {"//s/x", u""}, {"s", u""}, {"", u""}};
  for (const auto& [value, remote] : rows) {
    EXPECT_EQ(ParseDriveFile(std::string("[E]\nRemote=") + value + "\n").drives.at('E').remote, remote) << value;
  }
}

TEST(DriveFile, AnEmptyLabelIsALabel) {
  EXPECT_EQ(ParseDriveFile("[E]\nLabel=\n").drives.at('E').label, Text());
  EXPECT_EQ(ParseDriveFile("[E]\nType=cd\n").drives.at('E').label, std::nullopt);
}

TEST(DriveFile, OnlySectionsOfOneLetterAreDrives) {
  const DriveSetup setup = ParseDriveFile(
      "Type=cd\n[]\nType=cd\n[1]\nType=cd\n[CC]\nType=cd\n[C:]\nType=cd\n[ñ]\nType=cd\n[z]\nType=cd\n[E]\n");
  EXPECT_EQ(setup.drives.size(), 1U);
  EXPECT_EQ(setup.drives.count('Z'), 1U);
}

TEST(DriveFile, EveryLetterFromAToZCanBeADrive) {
  std::string bytes;
  for (char letter = 'A'; letter <= 'Z'; ++letter) bytes += std::string("[") + letter + "]\nType=cd\n";
  EXPECT_EQ(ParseDriveFile(bytes).drives.size(), 26U);
}

TEST(DriveFile, InAListOfLettersEverythingElseIsLeftOut) {
  const std::pair<const char*, DriveMask> rows[] = {{"AB", 3}, {"A,B", 3}, {"a b", 3},      {"A;B;1;ñ;", 3},
                                                    {"", 0},   {"123", 0}, {"Z", 1U << 25}, {"AAA", 1}};
  for (const auto& [value, mask] : rows) {
    for (const char* key : {"Hidden", "Remembered", "Locked"}) {
      const DriveSetup setup = ParseDriveFile(std::string("[DRIVES]\n") + key + "=" + value + "\n");
      EXPECT_EQ(setup.hidden, std::string(key) == "Hidden" ? mask : 0) << value;
      EXPECT_EQ(setup.remembered, std::string(key) == "Remembered" ? mask : 0) << value;
      EXPECT_EQ(setup.locked, std::string(key) == "Locked" ? mask : 0) << value;
    }
  }
}

TEST(DriveFile, TheCurrentDriveIsOneLetter) {
  const std::pair<const char*, char> rows[] = {{"D", 'D'}, {"d", 'D'}, {"d:", 'D'}, {"D:\\", 'C'}, {"DE", 'C'},
                                               {"", 'C'},  {"1", 'C'}, {":", 'C'},  {"1:", 'C'},   {"é", 'C'}};
  for (const auto& [value, letter] : rows) {
    EXPECT_EQ(ParseDriveFile(std::string("[DRIVES]\nCurrent=") + value + "\n").current, letter) << value;
  }
}

TEST(DriveFile, AFileOfThisMachineIsReadByItsPath) {
  const test::TempFolder temp;
  temp.Write("drives.ini", "[DRIVES]\nHidden=A\n");
  std::filesystem::create_symlink("drives.ini", temp.Path() / "link");
  for (const char* name : {"drives.ini", "link"}) {
    const auto setup = ReadDriveFile((temp.Path() / name).c_str());
    ASSERT_TRUE(setup) << name;
    EXPECT_EQ(setup->hidden, 1U) << name;
  }
}

TEST(DriveFile, WhatCannotBeReadSaysNothing) {
  const test::TempFolder temp;
  static_cast<void>(temp.Folder("folder"));
  ASSERT_EQ(mkfifo((temp.Path() / "pipe").c_str(), 0644), 0);
  temp.Write("large", std::string((1 << 20) + 1, '\n'));
  temp.Write("full", std::string(1 << 20, '\n'));
  EXPECT_FALSE(ReadDriveFile(nullptr));
  for (const char* name : {"none", "none/none", "folder", "pipe", "large"}) {
    EXPECT_FALSE(ReadDriveFile((temp.Path() / name).c_str())) << name;
  }
  EXPECT_FALSE(ReadDriveFile(""));
  EXPECT_FALSE(ReadDriveFile("/"));
  EXPECT_EQ(ReadDriveFile((temp.Path() / "full").c_str()), DriveSetup{});
}

}  // namespace
}  // namespace pnl
