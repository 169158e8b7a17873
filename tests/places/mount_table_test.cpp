// SPDX-License-Identifier: MIT
#include "places/mount_table.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace pnl {
namespace {

using testing::ElementsAre;

struct TableCase {
  const char* bytes;
  MountedFolders folders;
};

TEST(MountTable, TheFolderIsTheFifthWordOfEachLine) {
  const TableCase rows[] = {
      {"", {}},
      {"\n\n", {}},
      {"22 1 8:1 / / rw - ext4 /dev/sda1 rw\n", {"/"}},
      {"22 1 8:1 / / rw - ext4 /dev/sda1 rw\n36 22 8:17 /sub /media/usb rw,noatime master:1 - vfat /dev/sdb1 rw\n",
       {"/", "/media/usb"}},
      {"36 22 8:17 / /media/usb rw - vfat /dev/sdb1 rw", {"/media/usb"}},
      {"36 22 8:17 / /media/usb", {"/media/usb"}},
      {"36 22 8:17 /", {}},
      // A word that is missing keeps its blank.
      {"36 22 8:17 / /a rw\n 22 8:18 / /b rw\n", {"/a", "/b"}},
      {"36 22 8:17 / none rw - tmpfs none rw\n", {}},
      {"36 22 8:17 / /media/MY\\040STICK rw\n", {"/media/MY STICK"}},
      {"36 22 8:17 / /a\\011b\\012c\\134d rw\n", {"/a\tb\nc\\d"}},
      {"36 22 8:17 / /end\\040 rw\n", {"/end "}},
      {"36 22 8:17 / /q\\077 rw\n", {"/q?"}},
      {"36 22 8:17 / /q\\800 rw\n37 22 8:17 / /r\\080 rw\n", {"/q\\800", "/r\\080"}},
      {"36 22 8:17 / /a\\04 rw\n37 22 8:17 / /b\\08 rw\n38 22 8:17 / /c\\ rw\n", {"/a\\04", "/b\\08", "/c\\"}},
      {"36 22 8:17 / /twice rw\n37 36 8:18 / /twice rw\n", {"/twice"}},
  };
  for (const TableCase& row : rows) EXPECT_EQ(ParseMountTable(row.bytes), row.folders) << row.bytes;
}

TEST(MountTable, ThisMachineHasItsRootMounted) { EXPECT_EQ(ReadMountTable().count("/"), 1U); }

}  // namespace
}  // namespace pnl
