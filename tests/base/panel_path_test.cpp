// SPDX-License-Identifier: MIT
#include "base/panel_path.h"

#include <gtest/gtest.h>

#include "base/files.h"

namespace pnl {
namespace {

struct PathRow {
  TextView path;
  char drive;
  std::vector<Text> names;
};

TEST(PanelPath, IsADriveAndItsNames) {
  const PathRow rows[] = {
      {u"C:\\P108\\MDIMAN.INI", 'C', {u"P108", u"MDIMAN.INI"}},
      {u"c:/P108/a", 'C', {u"P108", u"a"}},
      {u"C:\\P108/sub\\a", 'C', {u"P108", u"sub", u"a"}},
      {u"C:", 'C', {}},
      {u"C:\\", 'C', {}},
      {u"C:a", 'C', {u"a"}},
      {u"Z:\\\\a\\\\\\b\\", 'Z', {u"a", u"b"}},
      {u"C:\\.\\a\\.", 'C', {u"a"}},
      {u"C:\\a\\..\\b", 'C', {u"b"}},
      {u"C:\\absent\\..\\b", 'C', {u"b"}},
      {u"C:\\..", 'C', {}},
      {u"C:\\..\\..\\etc\\passwd", 'C', {u"etc", u"passwd"}},
      {u"C:\\a\\..\\..\\..\\b", 'C', {u"b"}},
      {u"C:..\\b", 'C', {u"b"}},
      {u"C:\\...\\.a\\a.", 'C', {u"...", u".a", u"a."}},
      {u"C:\\ a \\b c", 'C', {u" a ", u"b c"}},
      {u"C:\\a:b", 'C', {u"a:b"}},
      {u"C:\\ñ\\漢\\\U0001F600", 'C', {u"ñ", u"漢", u"\U0001F600"}},
  };
  for (const PathRow& row : rows) {
    const auto path = ParsePanelPath(row.path);
    ASSERT_TRUE(path) << ToUtf8(row.path);
    EXPECT_EQ(path->drive, row.drive) << ToUtf8(row.path);
    EXPECT_EQ(path->names, row.names) << ToUtf8(row.path);
  }
}

TEST(PanelPath, IsNoneWithoutADriveOrWithANul) {
  const TextView rows[] = {u"",
                           u"C",
                           u":",
                           u"\\a",
                           u"/etc/passwd",
                           u"a\\b",
                           u"1:\\",
                           u"ñ:\\a",
                           u"\\\\server\\share",
                           u"CC:\\a",
                           TextView(u"C:\\a\0b", 6)};
  for (const TextView row : rows) EXPECT_FALSE(ParsePanelPath(row)) << ToUtf8(row);
}

TEST(PanelPath, JoinsWithOneBackslash) {
  EXPECT_EQ(JoinPath(u"C:\\P1", u"a.txt"), u"C:\\P1\\a.txt");
  EXPECT_EQ(JoinPath(u"C:\\P1\\", u"a.txt"), u"C:\\P1\\a.txt");
  EXPECT_EQ(JoinPath(u"C:/P1/", u"a.txt"), u"C:/P1/a.txt");
  EXPECT_EQ(JoinPath(u"C:", u"a.txt"), u"C:\\a.txt");
  EXPECT_EQ(JoinPath(u"", u"a.txt"), u"a.txt");
}

TEST(PanelPath, EndsInAFileNameAndATitle) {
  const struct {
    TextView path;
    TextView name;
    TextView title;
  } rows[] = {
      {u"C:\\P1\\a.txt", u"a.txt", u"a"},
      {u"C:/P1/a.txt", u"a.txt", u"a"},
      {u"C:\\P1.d\\a", u"a", u"a"},
      {u"C:a.b.c", u"a.b.c", u"a.b"},
      {u"a.txt", u"a.txt", u"a"},
      {u"C:\\", u"", u""},
      {u"C:", u"", u""},
      {u"", u"", u""},
      {u"C:\\.hidden", u".hidden", u""},
      {u"C:\\a.", u"a.", u"a"},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(FileNameOf(row.path), row.name) << ToUtf8(row.path);
    EXPECT_EQ(FileTitleOf(row.path), row.title) << ToUtf8(row.path);
  }
}

TEST(DriveMap, KeepsAFolderALetterWithoutRegardToCase) {
  DriveMap drives;
  drives.Set('c', "/srv/c/");
  drives.Set('D', "/");
  drives.Set('1', "/srv/1");
  drives.Set('\0', "/srv/0");
  EXPECT_EQ(drives.Folder('C'), "/srv/c");
  EXPECT_EQ(drives.Folder('c'), "/srv/c");
  EXPECT_EQ(drives.Folder('d'), "/");
  EXPECT_FALSE(drives.Folder('1'));
  EXPECT_FALSE(drives.Folder('\0'));
  EXPECT_EQ(drives.Letters(), (std::vector<char>{'C', 'D'}));
  drives.Set('C', "");
  EXPECT_FALSE(drives.Folder('C'));
  EXPECT_EQ(drives.Letters(), (std::vector<char>{'D'}));
}

TEST(PanelPath, EveryLetterIsADriveAndNoNeighbourOfOne) {
  for (char16_t letter = u'A'; letter <= u'Z'; ++letter) {
    for (const char16_t written : {letter, static_cast<char16_t>(letter + 0x20)}) {
      const auto path = ParsePanelPath(Text(1, written) + u":\\a");
      ASSERT_TRUE(path);
      EXPECT_EQ(path->drive, static_cast<char>(letter));
    }
  }
  for (const char16_t other : {u'@', u'[', u'`', u'{'}) EXPECT_FALSE(ParsePanelPath(Text(1, other) + u":\\a"));
}

TEST(DriveMap, HasADriveForEveryLetterAndNoNeighbourOfOne) {
  DriveMap drives;
  for (const char letter : {'A', 'b', 'y', 'Z', '@', '[', '`', '{'}) drives.Set(letter, "/srv");
  drives.Set('A', "/");
  EXPECT_EQ(drives.Letters(), (std::vector<char>{'A', 'B', 'Y', 'Z'}));
  drives.Set('a', "/one");
  drives.Set('z', "/two//");
  EXPECT_EQ(drives.Folder('A'), "/one");
  EXPECT_EQ(drives.Folder('Z'), "/two");
  drives.Set('A', "///");
  EXPECT_EQ(drives.Folder('A'), "/");
}

}  // namespace
}  // namespace pnl
