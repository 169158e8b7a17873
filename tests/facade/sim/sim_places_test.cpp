// SPDX-License-Identifier: MIT
#include "facade/sim/sim_places.h"

#include <gmock/gmock.h>

#include <atomic>
#include <thread>

#include "support/sim_fixture.h"
#include "support/temp_folder.h"

namespace pnl::sim {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

std::vector<Text> NamesIn(const FolderReader& reader, TextView folder, int* error = nullptr) {
  std::vector<Text> names;
  const int ended = reader.List(folder, [&](std::vector<PlaceEntry>&& entries) {
    for (const PlaceEntry& entry : entries) names.push_back(entry.name);
    return true;
  });
  if (error != nullptr) *error = ended;
  return names;
}

class SimPlacesTest : public test::SimFixture {
 protected:
  rig::Drive Drive(char letter, int type = drive_type::kFixed) {
    rig::Drive drive;
    drive.letter = letter;
    drive.type = type;
    drive.dir = temp.Folder(std::string(1, letter));
    return drive;
  }

  test::TempFolder temp;
  SimStorage& storage = cnc.Storage();
  SimPlaces places{storage};
};

TEST_F(SimPlacesTest, ADriveIsDescribedAsItWasSet) {
  struct Row {
    char letter;
    int type;
    TextView label;
    TextView remote;
    bool labelFails;
    std::optional<Text> readLabel;
    int remoteError;
    TextView readRemote;
  };
  const Row rows[] = {
      {'A', 2, u"STICK", u"", false, u"STICK", 2250, u""},
      {'C', 3, u"", u"", false, u"", 2250, u""},
      {'D', 3, u"X", u"\\\\s\\x", true, {}, 2250, u""},
      {'n', 4, u"N", u"\\\\s\\x", false, u"N", 0, u"\\\\s\\x"},
      {'O', 4, u"", u"", false, u"", 0, u""},
      {'Z', 5, u"CD", u"", false, u"CD", 2250, u""},
  };
  for (const Row& row : rows) {
    rig::Drive drive = Drive(row.letter, row.type);
    drive.label = row.label;
    drive.remote = row.remote;
    drive.labelFails = row.labelFails;
    storage.SetDrive(drive);
    EXPECT_EQ(places.DriveType(row.letter), row.type) << row.letter;
    EXPECT_EQ(places.VolumeLabel(row.letter), row.readLabel) << row.letter;
    EXPECT_EQ(places.DriveRemoteName(row.letter).error, row.remoteError) << row.letter;
    EXPECT_EQ(places.DriveRemoteName(row.letter).name, row.readRemote) << row.letter;
  }
  EXPECT_EQ(places.DriveType('N'), 4);
  DriveMask all = 0;
  for (const char16_t letter : {u'A', u'C', u'D', u'N', u'O', u'Z'}) all |= DriveBit(letter);
  EXPECT_EQ(places.LogicalDrives(), all);
  EXPECT_EQ(places.CurrentDrive(), 'C');
}

TEST_F(SimPlacesTest, ADriveThatIsTakenAwayHasNoRoot) {
  storage.SetDrive(Drive('D', 5));
  rig::Drive none;
  none.letter = 'D';
  storage.SetDrive(none);
  EXPECT_EQ(places.LogicalDrives(), 0U);
  EXPECT_EQ(places.DriveType('D'), drive_type::kNoRoot);
  EXPECT_EQ(places.VolumeLabel('D'), std::nullopt);
  EXPECT_EQ(places.DriveRemoteName('D').error, place_error::kNotConnected);
  EXPECT_EQ(places.Reader()->Probe(u"D:"), place_error::kPathNotFound);
}

TEST_F(SimPlacesTest, ADriveThatOnlyTheMapHasIsAnOrdinaryOne) {
  drives.Set('M', temp.Folder("m"));
  temp.Write("m/a", "1");
  EXPECT_EQ(places.LogicalDrives(), DriveBit(u'M'));
  EXPECT_EQ(places.DriveType('M'), drive_type::kFixed);
  EXPECT_EQ(places.VolumeLabel('M'), Text());
  EXPECT_THAT(NamesIn(*places.Reader(), u"M:"), ElementsAre(u"a"));
}

TEST_F(SimPlacesTest, TheMasksComeFromTheirLetters) {
  storage.SetDriveMasks("Ab1", "N", "Z,");
  EXPECT_EQ(places.HiddenDrives(), DriveBit(u'A') | DriveBit(u'B'));
  EXPECT_EQ(places.RememberedDrives(), DriveBit(u'N'));
  EXPECT_EQ(places.LockedDrives(), DriveBit(u'Z'));
}

TEST_F(SimPlacesTest, ARememberedDriveThatIsNotThereIsANetworkDrive) {
  storage.SetDriveMasks("", "NM", "");
  EXPECT_EQ(places.DriveType('N'), drive_type::kNetwork);
  EXPECT_EQ(places.DriveRemoteName('N').error, place_error::kNotConnected);
  EXPECT_EQ(places.LogicalDrives(), 0U);
  storage.SetDrive(Drive('M', drive_type::kFixed));
  EXPECT_EQ(places.DriveType('M'), drive_type::kFixed);
}

TEST_F(SimPlacesTest, ADriveIsReadInItsFolder) {
  storage.SetDrive(Drive('C'));
  temp.Write("C/sub/a.txt", "12");
  const auto reader = places.Reader();
  EXPECT_THAT(NamesIn(*reader, u"C:"), ElementsAre(u"sub"));
  EXPECT_THAT(NamesIn(*reader, u"c:\\SUB"), UnorderedElementsAre(u".", u"..", u"a.txt"));
  EXPECT_TRUE(reader->Exists(u"C:\\sub\\a.txt"));
  EXPECT_FALSE(reader->IsReadOnly(u"C:\\sub\\a.txt"));
  EXPECT_EQ(reader->MakeFolder(u"C:\\new\\deep"), place_error::kNone);
  EXPECT_TRUE(temp.Has("C/new/deep"));
}

TEST_F(SimPlacesTest, ADriveWithAnErrorAnswersItWhateverIsRead) {
  temp.Write("D/a", "1");
  for (const int error : {2, 3, 5, 21, 51, 86, 267, 1326, 2118, 1234}) {
    rig::Drive drive = Drive('D');
    drive.error = error;
    storage.SetDrive(drive);
    const auto reader = places.Reader();
    for (const TextView path : {u"D:", u"d:\\a", u"D:\\none"}) {
      int listed = 0;
      EXPECT_THAT(NamesIn(*reader, path, &listed), IsEmpty());
      EXPECT_EQ(listed, error);
      EXPECT_EQ(reader->Probe(path), error);
      EXPECT_EQ(reader->MakeFolder(path), error);
      EXPECT_FALSE(reader->Exists(path));
      EXPECT_FALSE(reader->IsReadOnly(path));
    }
  }
}

TEST_F(SimPlacesTest, TheBeginningOfAFileIsReadOnDrivesAndSharesUnlessTheirErrorForbidsIt) {
  temp.Write("D/a", "G0 X1");
  storage.SetDrive(Drive('D'));
  rig::NetworkNode share;
  share.display = 3;
  share.remote = u"\\\\S\\JOBS";
  share.dir = temp.Folder("D");
  storage.SetNetwork({share});
  EXPECT_EQ(places.Reader()->ReadStart(u"D:\\a", 2), "G0");
  EXPECT_EQ(places.Reader()->ReadStart(u"\\\\S\\JOBS\\a", 2), "G0");
  EXPECT_EQ(places.Reader()->ReadStart(u"\\\\S\\NONE\\a", 2), std::nullopt);
  rig::Drive drive = Drive('D');
  drive.error = 21;
  storage.SetDrive(drive);
  EXPECT_EQ(places.Reader()->ReadStart(u"D:\\a", 2), std::nullopt);
}

TEST_F(SimPlacesTest, TheErrorOfOneDriveIsNotThatOfAnother) {
  rig::Drive bad = Drive('D');
  bad.error = 5;
  storage.SetDrive(bad);
  storage.SetDrive(Drive('E'));
  EXPECT_EQ(places.Reader()->Probe(u"E:"), place_error::kNothingFound);
}

TEST_F(SimPlacesTest, ADriveWithoutItsDiscIsNotReady) {
  rig::Drive drive = Drive('D', drive_type::kCd);
  drive.dir = (temp.Path() / "gone").string();
  storage.SetDrive(drive);
  EXPECT_EQ(places.Reader()->Probe(u"D:"), place_error::kNotReady);
  drive.type = drive_type::kFixed;
  storage.SetDrive(drive);
  EXPECT_EQ(places.Reader()->Probe(u"D:"), place_error::kPathNotFound);
}

TEST_F(SimPlacesTest, AReaderKeepsWhatItWasMadeWith) {
  storage.SetDrive(Drive('D'));
  temp.Write("D/a", "1");
  const auto reader = places.Reader();
  rig::Drive drive = Drive('D');
  drive.error = 5;
  storage.SetDrive(drive);
  EXPECT_EQ(reader->Probe(u"D:"), place_error::kNone);
  drive.dir.clear();
  storage.SetDrive(drive);
  EXPECT_THAT(NamesIn(*reader, u"D:"), ElementsAre(u"a"));
}

TEST_F(SimPlacesTest, TheWatcherHearsOfDrivesThatComeAndGoAndOfMasks) {
  int changes = 0;
  places.Watch([&] { ++changes; });
  storage.SetDrive(Drive('D'));
  EXPECT_EQ(changes, 1);
  // Only what is known about it changes.
  rig::Drive drive = Drive('D', drive_type::kRemovable);
  drive.error = 21;
  storage.SetDrive(drive);
  EXPECT_EQ(changes, 1);
  drive.dir.clear();
  storage.SetDrive(drive);
  EXPECT_EQ(changes, 2);
  storage.SetDrive(drive);
  EXPECT_EQ(changes, 2);
  drive.letter = '1';
  drive.dir = "/";
  storage.SetDrive(drive);
  EXPECT_EQ(changes, 2);
  storage.SetDriveMasks("A", "", "");
  EXPECT_EQ(changes, 3);
  storage.SetDriveMasks("A", "", "");
  EXPECT_EQ(changes, 3);
  places.Watch({});
  storage.SetDriveMasks("", "B", "");
  storage.SetDrive(Drive('D'));
  EXPECT_EQ(changes, 3);
}

TEST_F(SimPlacesTest, AWatcherFindsTheDrivesAsTheyAreNow) {
  DriveMask seen = 0;
  places.Watch([&] { seen = places.LogicalDrives() | places.HiddenDrives(); });
  storage.SetDrive(Drive('D'));
  EXPECT_EQ(seen, DriveBit(u'D'));
  storage.SetDriveMasks("H", "", "");
  EXPECT_EQ(seen, DriveBit(u'D') | DriveBit(u'H'));
}

TEST_F(SimPlacesTest, AHeldDriveHangsUntilItIsReleased) {
  storage.SetDrive(Drive('D'));
  storage.SetDrive(Drive('E'));
  temp.Write("D/a", "1");
  storage.Hold()->Hold('D');
  std::atomic<int> error = -1;
  std::thread other([&, reader = places.Reader()] { error = reader->Probe(u"D:"); });
  ASSERT_TRUE(storage.Hold()->AwaitWaiting(1));
  EXPECT_EQ(places.Reader()->Probe(u"E:"), place_error::kNothingFound);
  EXPECT_EQ(error, -1);
  storage.Hold()->Release('E');
  EXPECT_FALSE(storage.Hold()->AwaitWaiting(2, std::chrono::seconds(0)));
  storage.Hold()->Release('D');
  other.join();
  EXPECT_EQ(error, place_error::kNone);
}

TEST_F(SimPlacesTest, EveryQuestionToAHeldDriveHangs) {
  storage.SetDrive(Drive('D'));
  const auto reader = places.Reader();
  storage.Hold()->Hold('D');
  std::vector<std::thread> threads;
  threads.emplace_back([&] { static_cast<void>(NamesIn(*reader, u"D:\\a")); });
  threads.emplace_back([&] { static_cast<void>(reader->Probe(u"d:")); });
  threads.emplace_back([&] { static_cast<void>(reader->Exists(u"D:\\a")); });
  threads.emplace_back([&] { static_cast<void>(reader->IsReadOnly(u"D:\\a")); });
  threads.emplace_back([&] { static_cast<void>(reader->MakeFolder(u"D:\\a")); });
  EXPECT_TRUE(storage.Hold()->AwaitWaiting(5));
  storage.Hold()->Release('D');
  for (std::thread& each : threads) each.join();
}

TEST(SimHold, AThreadThatWasReleasedWaitsNoMore) {
  const auto hold = std::make_shared<SimHold>();
  hold->Hold('D');
  std::thread other([hold] { hold->WaitWhileHeld('D'); });
  ASSERT_TRUE(hold->AwaitWaiting(1));
  hold->Release('D');
  other.join();
  EXPECT_FALSE(hold->AwaitWaiting(1, std::chrono::seconds(0)));
}

TEST(SimHold, NothingIsHeldAfterTheStorageIsGone) {
  const auto hold = std::make_shared<SimHold>();
  hold->Hold('D');
  std::thread other([hold] { hold->WaitWhileHeld('D'); });
  ASSERT_TRUE(hold->AwaitWaiting(1));
  hold->ReleaseForGood();
  other.join();
  hold->Hold('D');
  hold->WaitWhileHeld('D');
}

TEST_F(SimPlacesTest, AConnectedDriveOfTheNetworkIsReadToo) {
  rig::NetworkNode node;
  node.local = u"n:";
  node.dir = temp.Folder("share");
  node.connected = true;
  rig::NetworkNode bad;
  bad.local = u"B:";
  bad.dir = node.dir;
  bad.error = 51;
  rig::NetworkNode mapped;
  mapped.local = u"D:";
  mapped.dir = node.dir;
  mapped.error = 5;
  rig::NetworkNode above;
  above.children = {bad, mapped};
  storage.SetNetwork({node, above});
  storage.SetDrive(Drive('D'));
  temp.Write("share/x", "1");
  temp.Write("D/own", "1");
  const auto reader = places.Reader();
  EXPECT_THAT(NamesIn(*reader, u"N:"), ElementsAre(u"x"));
  EXPECT_EQ(reader->Probe(u"B:"), place_error::kRemoteNotListening);
  EXPECT_THAT(NamesIn(*reader, u"D:"), ElementsAre(u"own"));
  EXPECT_EQ(places.LogicalDrives(), DriveBit(u'D'));
}

TEST_F(SimPlacesTest, AConnectedDriveWithoutAFolderIsNotThere) {
  rig::NetworkNode node;
  node.local = u"E:";
  node.error = 51;
  storage.SetNetwork({node});
  EXPECT_EQ(places.Reader()->Probe(u"E:"), place_error::kPathNotFound);
}

}  // namespace
}  // namespace pnl::sim
