// SPDX-License-Identifier: MIT
#include "facade/sim/sim_storage.h"

#include "facade/utilities.h"
#include "support/sim_fixture.h"

namespace pnl::sim {
namespace {

using testing::ElementsAre;

class StorageTest : public test::SimFixture {
 protected:
  SimStorage& storage = cnc.Storage();
};

TEST_F(StorageTest, EveryIdInUseHasItsFolder) {
  for (const int id : {1, 15, 18, 24, 52, 57, 61, 100, 101, 108, 113, 118}) {
    EXPECT_EQ(storage.Path(id), u"C:\\P" + FromUtf8(std::to_string(id)));
  }
  for (const int id : {0, -1, 2, 99, 1000}) EXPECT_EQ(storage.Path(id), u"");
}

TEST_F(StorageTest, ThePathIdsHaveTheirNumbers) {
  using namespace path_id;
  const int ids[] = {kCalcHistory, kLanguage,     kHelpFallback,  kCuttingData,  kSetup,        kHelpThird,
                     kPlcFiles,    kExplorerSafe, kExplorerStart, kUserSettings, kHelpLanguage, kUserCuttingData};
  EXPECT_THAT(ids, testing::ElementsAreArray(kAll));
}

TEST_F(StorageTest, APathIsGivenWithoutItsTrailingBackslash) {
  storage.SetPath(108, u"D:\\User\\\\");
  EXPECT_EQ(storage.Path(108), u"D:\\User");
  storage.SetPath(108, u"E:\\");
  EXPECT_EQ(storage.Path(108), u"E:");
  storage.SetPath(999, u"C:\\Extra");
  EXPECT_EQ(storage.Path(999), u"C:\\Extra");
  storage.SetPath(108, u"");
  EXPECT_EQ(storage.Path(108), u"");
}

TEST_F(StorageTest, TheFoldersAreMadeAtStart) {
  EXPECT_TRUE(storage.MakeFolders());
  EXPECT_THAT(files.made, ElementsAre("C:\\P1", "C:\\P15", "C:\\P18", "C:\\P24", "C:\\P52", "C:\\P57", "C:\\P61",
                                      "C:\\P100", "C:\\P101", "C:\\P108", "C:\\P113", "C:\\P118"));
}

TEST_F(StorageTest, AFolderThatCannotBeMadeDoesNotKeepTheOthers) {
  files.failing = u"C:\\P52";
  EXPECT_FALSE(storage.MakeFolders());
  EXPECT_EQ(files.made.size(), 12U);
}

TEST_F(StorageTest, ADriveReachesTheDriveMap) {
  rig::Drive drive;
  drive.letter = 'd';
  drive.dir = "/media/data";
  drive.type = 2;
  drive.label = u"DATA";
  storage.SetDrive(drive);
  EXPECT_EQ(drives.Folder('D'), "/media/data");
  ASSERT_EQ(storage.Drives().count('D'), 1U);
  EXPECT_EQ(storage.Drives().at('D').type, 2);
  EXPECT_EQ(storage.Drives().at('D').label, u"DATA");
  drive.dir.clear();
  storage.SetDrive(drive);
  EXPECT_FALSE(drives.Folder('D'));
  EXPECT_EQ(storage.Drives().count('D'), 0U);
}

TEST_F(StorageTest, EveryLetterOfBothCasesIsADrive) {
  rig::Drive drive;
  drive.dir = "/media/data";
  for (const char letter : {'a', 'A', 'm', 'z', 'Z'}) {
    drive.letter = letter;
    storage.SetDrive(drive);
  }
  EXPECT_EQ(storage.Drives().size(), 3U);
  for (const char letter : {'A', 'M', 'Z'}) EXPECT_EQ(storage.Drives().count(letter), 1U) << letter;
}

TEST_F(StorageTest, ASmallLetterIsItsDriveToo) {
  for (const char letter : {'a', 'm', 'z'}) {
    rig::Drive drive;
    drive.letter = letter;
    drive.dir = "/media/data";
    storage.SetDrive(drive);
    EXPECT_TRUE(drives.Folder(letter)) << letter;
  }
  EXPECT_EQ(storage.Drives().size(), 3U);
}

TEST_F(StorageTest, OnlyLettersAreDrives) {
  rig::Drive drive;
  drive.dir = "/media/data";
  for (const char letter : {'1', '@', '[', '\0', '\xE9'}) {
    drive.letter = letter;
    storage.SetDrive(drive);
  }
  EXPECT_TRUE(storage.Drives().empty());
}

TEST_F(StorageTest, MasksAndNetworkAreKept) {
  storage.SetDriveMasks("AB", "N", "D");
  EXPECT_EQ(storage.DriveMasks().noDrives, "AB");
  EXPECT_EQ(storage.DriveMasks().remembered, "N");
  EXPECT_EQ(storage.DriveMasks().locked, "D");
  rig::NetworkNode node;
  node.remote = u"\\\\SERVER";
  storage.SetNetwork({node});
  ASSERT_EQ(storage.Network().size(), 1U);
  EXPECT_EQ(storage.Network()[0].remote, u"\\\\SERVER");
}

TEST_F(StorageTest, APathOfThisMachineComesFromTheFiles) {
  EXPECT_EQ(storage.HostPath(u"C:/P1"), "/disc/P1");
  EXPECT_EQ(storage.HostPath(u"X:\\a"), std::nullopt);
}

}  // namespace
}  // namespace pnl::sim
