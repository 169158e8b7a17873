// SPDX-License-Identifier: MIT
#include "places/disc_places.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

#include "places/network_places.h"
#include "support/temp_folder.h"

namespace pnl {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
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

TEST(DriveBits, EveryLetterHasItsBit) {
  for (int i = 0; i < 26; ++i) {
    EXPECT_EQ(DriveBit(static_cast<char16_t>(u'A' + i)), 1U << i);
    EXPECT_EQ(DriveBit(static_cast<char16_t>(u'a' + i)), 1U << i);
  }
  for (const char16_t other : {u'@', u'[', u'`', u'{', u'1', u'\\', u'\0', u'Á'}) EXPECT_EQ(DriveBit(other), 0U);
}

class DiscPlacesTest : public testing::Test {
 protected:
  DiscPlacesTest() {
    drives.Set('C', temp.Folder("c"));
    drives.Set('D', temp.Folder("d"));
  }
  [[nodiscard]] std::string Host(const std::string& name) const { return (temp.Path() / name).string(); }

  test::TempFolder temp;
  DriveMap drives;
};

TEST_F(DiscPlacesTest, APanelPathIsReadInItsDrivesFolder) {
  temp.Write("c/sub/a.txt", "1");
  temp.Write("d/b.txt", "1");
  const auto reader = DiscPlaces(drives).Reader();
  for (const TextView path : {u"C:\\sub", u"c:\\SUB\\", u"C:/sub", u"C:sub", u"C:\\.\\sub", u"C:\\x\\..\\sub"}) {
    EXPECT_THAT(NamesIn(*reader, path), UnorderedElementsAre(u".", u"..", u"a.txt")) << ToUtf8(path);
  }
  for (const TextView path : {u"D:", u"D:\\", u"d:\\..\\.."}) {
    EXPECT_THAT(NamesIn(*reader, path), ElementsAre(u"b.txt")) << ToUtf8(path);
  }
  EXPECT_EQ(reader->Probe(u"C:\\sub"), place_error::kNone);
  EXPECT_TRUE(reader->Exists(u"C:\\sub\\A.TXT"));
}

TEST_F(DiscPlacesTest, NoPathLeavesItsDrive) {
  temp.Write("secret", "1");
  temp.Write("c/a", "1");
  const auto reader = DiscPlaces(drives).Reader();
  const TextView paths[] = {u"C:\\..",   u"C:\\..\\..",      u"C:/../", u"C:\\a\\..\\..\\..",
                            u"C:..\\..", u"C:\\.\\..\\.\\.."};
  for (const TextView path : paths) EXPECT_THAT(NamesIn(*reader, path), ElementsAre(u"a")) << ToUtf8(path);
  for (const TextView path : {u"C:\\..\\secret", u"C:/../secret", u"C:..\\secret"}) {
    EXPECT_FALSE(reader->Exists(path)) << ToUtf8(path);
    EXPECT_EQ(reader->Probe(path), place_error::kPathNotFound);
  }
  EXPECT_EQ(reader->MakeFolder(u"C:\\..\\made"), place_error::kNone);
  EXPECT_TRUE(temp.Has("c/made"));
  EXPECT_FALSE(temp.Has("made"));
}

TEST_F(DiscPlacesTest, WhatIsNoPanelPathIsNotFound) {
  const auto reader = DiscPlaces(drives).Reader();
  const TextView paths[] = {u"",
                            u"\\",
                            u"a",
                            u"C",
                            u"\\a",
                            u"X:\\",
                            u"1:\\",
                            TextView(u"C:\\\0", 4),
                            TextView(u"C:\\\0a", 5),
                            u"\\\\",
                            u"\\\\server\\share",
                            u"/etc"};
  for (const TextView path : paths) {
    int error = 0;
    EXPECT_TRUE(NamesIn(*reader, path, &error).empty()) << ToUtf8(path);
    EXPECT_EQ(error, place_error::kPathNotFound) << ToUtf8(path);
    EXPECT_EQ(reader->Probe(path), place_error::kPathNotFound) << ToUtf8(path);
    EXPECT_EQ(reader->MakeFolder(path), place_error::kPathNotFound) << ToUtf8(path);
    EXPECT_FALSE(reader->Exists(path));
    EXPECT_FALSE(reader->IsReadOnly(path));
  }
}

TEST_F(DiscPlacesTest, AReaderKeepsTheDrivesThatItWasMadeWith) {
  temp.Write("d/b", "1");
  const DiscPlaces places(drives);
  const auto before = places.Reader();
  drives.Set('D', "");
  EXPECT_THAT(NamesIn(*before, u"D:"), ElementsAre(u"b"));
  EXPECT_EQ(places.Reader()->Probe(u"D:"), place_error::kPathNotFound);
}

TEST_F(DiscPlacesTest, AReaderOutlivesItsPlaces) {
  temp.Write("c/a", "1");
  const auto reader = DiscPlaces(drives).Reader();
  drives = {};
  EXPECT_THAT(NamesIn(*reader, u"C:"), ElementsAre(u"a"));
}

TEST_F(DiscPlacesTest, ADriveOutOfWhichTheDiscIsTakenIsNotReady) {
  const struct {
    int type;
    int error;
  } rows[] = {{drive_type::kRemovable, 21}, {drive_type::kFixed, 3}, {drive_type::kNetwork, 3}, {drive_type::kCd, 21}};
  drives.Set('E', Host("gone"));
  for (const auto& row : rows) {
    DriveSetup setup;
    setup.drives['E'].type = row.type;
    const auto reader = DiscPlaces(drives, setup).Reader();
    for (const TextView path : {u"E:", u"E:\\a\\b"}) {
      EXPECT_EQ(NamesIn(*reader, path, nullptr).size(), 0U);
      EXPECT_EQ(reader->Probe(path), row.error) << row.type;
      EXPECT_EQ(reader->MakeFolder(path), row.error) << row.type;
    }
  }
}

TEST_F(DiscPlacesTest, ADriveWithoutASetupIsNoneOutOfWhichADiscIsTaken) {
  drives.Set('A', Host("gone"));
  EXPECT_EQ(DiscPlaces(drives).Reader()->Probe(u"A:"), place_error::kPathNotFound);
}

TEST_F(DiscPlacesTest, AFolderThatIsMissingOnAStickIsNotFound) {
  DriveSetup setup;
  setup.drives['D'].type = drive_type::kRemovable;
  EXPECT_EQ(DiscPlaces(drives, setup).Reader()->Probe(u"D:\\none"), place_error::kPathNotFound);
}

// ---------------------------------------------------------------- discs that come and go

TEST_F(DiscPlacesTest, OnlyARemovableDriveComesAndGoesWithItsDisc) {
  DriveSetup setup;
  drives.Set('E', Host("e"));
  drives.Set('F', Host("f"));
  drives.Set('G', Host("g") + "/");
  setup.drives['D'].type = drive_type::kFixed;
  setup.drives['E'].type = drive_type::kCd;
  setup.drives['F'].type = drive_type::kRemovable;
  setup.drives['G'].type = drive_type::kRemovable;
  DiscPlaces places(drives, setup);
  const DriveMask always = DriveBit(u'C') | DriveBit(u'D') | DriveBit(u'E');
  EXPECT_EQ(places.LogicalDrives(), always | DriveBit(u'F') | DriveBit(u'G')) << "while nobody has said";
  const struct {
    MountedFolders mounted;
    DriveMask there;
  } rows[] = {
      {{}, always},
      {{"/"}, always},
      {{Host("f")}, always | DriveBit(u'F')},
      {{Host("f") + "/deeper", Host("g")}, always | DriveBit(u'G')},
      {{Host("f"), Host("g")}, always | DriveBit(u'F') | DriveBit(u'G')},
  };
  for (const auto& row : rows) {
    places.SetMounted(row.mounted);
    EXPECT_EQ(places.LogicalDrives(), row.there);
    const bool there = (row.there & DriveBit(u'F')) != 0;
    EXPECT_EQ(places.DriveType('f'), there ? drive_type::kRemovable : drive_type::kNoRoot);
  }
}

TEST_F(DiscPlacesTest, NothingIsListedOrMadeInTheFolderOfADiscThatIsOut) {
  temp.Write("stick/a", "1");
  temp.Write("stick/locked", "1");
  std::filesystem::permissions(temp.Path() / "stick/locked", std::filesystem::perms::owner_read);
  drives.Set('E', Host("stick"));
  DriveSetup setup;
  setup.drives['E'].type = drive_type::kRemovable;
  setup.drives['E'].label = u"STICK";
  DiscPlaces places(drives, setup);
  places.SetMounted({Host("stick")});
  const auto in = places.Reader();
  places.SetMounted({});
  const auto out = places.Reader();
  EXPECT_EQ(in->Probe(u"E:"), place_error::kNone) << "a reader knows the discs of its time";
  EXPECT_EQ(out->Probe(u"E:"), place_error::kNotReady);
  EXPECT_THAT(NamesIn(*out, u"E:", nullptr), testing::IsEmpty());
  EXPECT_FALSE(out->Exists(u"E:\\a"));
  EXPECT_FALSE(out->IsReadOnly(u"E:\\a"));
  EXPECT_TRUE(in->IsReadOnly(u"E:\\locked"));
  EXPECT_FALSE(out->IsReadOnly(u"E:\\locked"));
  EXPECT_EQ(in->ReadStart(u"E:\\a", 10), "1");
  EXPECT_EQ(out->ReadStart(u"E:\\a", 10), std::nullopt);
  EXPECT_EQ(out->ReadStart(u"\\\\S\\A\\f", 10), std::nullopt) << "without a network";
  EXPECT_EQ(out->MakeFolder(u"E:\\made"), place_error::kNotReady);
  EXPECT_FALSE(temp.Has("stick/made")) << "it would be on another disc";
  EXPECT_EQ(places.VolumeLabel('E'), std::nullopt);
}

TEST_F(DiscPlacesTest, TheWatcherLearnsOfDrivesThatComeAndGoAndOfNothingElse) {
  drives.Set('E', Host("e"));
  DriveSetup setup;
  setup.drives['E'].type = drive_type::kRemovable;
  DiscPlaces places(drives, setup);
  std::vector<DriveMask> seen;
  places.Watch([&] { seen.push_back(places.LogicalDrives()); });
  const DriveMask always = DriveBit(u'C') | DriveBit(u'D');
  for (const MountedFolders& mounted :
       {MountedFolders{Host("e")}, {}, {"/other"}, {Host("e"), "/other"}, {Host("e")}, {}}) {
    places.SetMounted(mounted);
  }
  EXPECT_THAT(seen, ElementsAre(always, always | DriveBit(u'E'), always));
}

TEST_F(DiscPlacesTest, WithoutASetupEveryDriveIsFixed) {
  const DiscPlaces places(drives);
  EXPECT_EQ(places.LogicalDrives(), DriveBit(u'C') | DriveBit(u'D'));
  EXPECT_EQ(places.HiddenDrives() | places.LockedDrives() | places.RememberedDrives(), 0U);
  EXPECT_EQ(places.DriveType('C'), drive_type::kFixed);
  EXPECT_EQ(places.DriveType('d'), drive_type::kFixed);
  EXPECT_EQ(places.DriveType('E'), drive_type::kNoRoot);
  EXPECT_EQ(places.VolumeLabel('C'), std::nullopt);
  EXPECT_EQ(places.DriveRemoteName('C').error, place_error::kNotConnected);
  EXPECT_EQ(places.CurrentDrive(), 'C');
}

TEST_F(DiscPlacesTest, TheDrivesAreThoseOfTheMapNow) {
  const DiscPlaces places(drives);
  drives.Set('Z', temp.Folder("z"));
  drives.Set('C', "");
  EXPECT_EQ(places.LogicalDrives(), DriveBit(u'D') | DriveBit(u'Z'));
  EXPECT_EQ(places.DriveType('Z'), drive_type::kFixed);
}

TEST_F(DiscPlacesTest, TheSetupDescribesTheDrives) {
  DriveSetup setup;
  setup.drives['C'] = {"", drive_type::kFixed, Text(u"MACHINE"), {}};
  setup.drives['D'] = {"", drive_type::kNetwork, Text(), u"\\\\office\\programs"};
  setup.drives['R'] = {"", drive_type::kNetwork, {}, u"\\\\office\\old"};
  setup.drives['S'] = {"", drive_type::kCd, Text(u"not there"), {}};
  setup.hidden = DriveBit(u'A');
  setup.locked = DriveBit(u'L');
  setup.remembered = DriveBit(u'R') | DriveBit(u'Q');
  setup.current = 'D';
  const DiscPlaces places(drives, setup);
  EXPECT_EQ(places.HiddenDrives(), DriveBit(u'A'));
  EXPECT_EQ(places.LockedDrives(), DriveBit(u'L'));
  EXPECT_EQ(places.RememberedDrives(), DriveBit(u'R') | DriveBit(u'Q'));
  EXPECT_EQ(places.CurrentDrive(), 'D');
  const struct {
    char letter;
    int type;
    std::optional<Text> label;
    int remoteError;
    Text remote;
  } rows[] = {
      {'C', 3, u"MACHINE", 2250, u""},
      {'d', 4, u"", 0, u"\\\\office\\programs"},
      {'R', 4, {}, 2250, u"\\\\office\\old"},
      {'q', 4, {}, 2250, u""},
      {'S', 1, {}, 2250, u""},
      {'7', 1, {}, 2250, u""},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(places.DriveType(row.letter), row.type) << row.letter;
    EXPECT_EQ(places.VolumeLabel(row.letter), row.label) << row.letter;
    EXPECT_EQ(places.DriveRemoteName(row.letter).error, row.remoteError) << row.letter;
    EXPECT_EQ(places.DriveRemoteName(row.letter).name, row.remote) << row.letter;
  }
}

TEST_F(DiscPlacesTest, TheWatcherHearsOfEachChange) {
  DiscPlaces places(drives);
  places.OnDrivesChanged();
  int changes = 0;
  places.Watch([&] { ++changes; });
  places.OnDrivesChanged();
  places.OnDrivesChanged();
  EXPECT_EQ(changes, 2);
  places.Watch({});
  places.OnDrivesChanged();
  EXPECT_EQ(changes, 2);
}

TEST_F(DiscPlacesTest, AWatcherMayEndItsWatch) {
  DiscPlaces places(drives);
  const auto counter = std::make_shared<int>(0);
  places.Watch([&places, counter] {
    places.Watch({});
    ++*counter;
  });
  places.OnDrivesChanged();
  places.OnDrivesChanged();
  EXPECT_EQ(*counter, 1);
}

/// Answers everything with its own number.
class NumberReader final : public FolderReader {
 public:
  explicit NumberReader(int number) : number_(number) {}
  int List(TextView, const Take& take) const override {
    static_cast<void>(take({PlaceEntry{}}));
    return number_;
  }
  int Probe(TextView) const override { return number_; }
  bool Exists(TextView) const override { return number_ == 1001; }
  bool IsReadOnly(TextView) const override { return number_ == 1001; }
  int MakeFolder(TextView) const override { return number_; }

 private:
  int number_;
};

TEST(CompositeReader, APathThatBeginsWithTwoBackslashesIsTheNetworks) {
  const auto both = MakeCompositeReader(std::make_shared<NumberReader>(1000), std::make_shared<NumberReader>(1001));
  const std::pair<TextView, int> rows[] = {{u"\\\\server", 1001}, {u"\\\\", 1001},    {u"\\server", 1000},
                                           {u"//server", 1000},   {u"C:\\\\a", 1000}, {u"", 1000},
                                           {u"C:", 1000}};
  for (const auto& [path, number] : rows) {
    int error = 0;
    EXPECT_EQ(NamesIn(*both, path, &error).size(), 1U);
    EXPECT_EQ(error, number) << ToUtf8(path);
    EXPECT_EQ(both->Probe(path), number) << ToUtf8(path);
    EXPECT_EQ(both->MakeFolder(path), number) << ToUtf8(path);
    EXPECT_EQ(both->Exists(path), number == 1001) << ToUtf8(path);
    EXPECT_EQ(both->IsReadOnly(path), number == 1001) << ToUtf8(path);
  }
}

TEST_F(DiscPlacesTest, WithoutANetworkItsPathsAreNotFound) {
  const auto drivesOnly = MakeCompositeReader(std::make_shared<NumberReader>(1001), nullptr);
  int error = 0;
  EXPECT_TRUE(NamesIn(*drivesOnly, u"\\\\s\\x", &error).empty());
  EXPECT_EQ(error, place_error::kPathNotFound);
  EXPECT_EQ(drivesOnly->Probe(u"\\\\s\\x"), place_error::kPathNotFound);
  EXPECT_FALSE(drivesOnly->Exists(u"\\\\s\\x"));
  EXPECT_FALSE(drivesOnly->IsReadOnly(u"\\\\s\\x"));
  EXPECT_EQ(drivesOnly->MakeFolder(u"\\\\s\\x"), place_error::kPathNotFound);
  EXPECT_EQ(drivesOnly->ReadStart(u"\\\\s\\x", 1), std::nullopt);
  EXPECT_EQ(drivesOnly->Probe(u"C:"), 1001);
}

TEST_F(DiscPlacesTest, TheWholeMachinesFolderIsMountedUnderItsOwnName) {
  drives.Set('R', "/");
  DriveSetup setup;
  setup.drives['R'].type = drive_type::kRemovable;
  DiscPlaces places(drives, setup);
  places.SetMounted({"/"});
  EXPECT_NE(places.LogicalDrives() & DriveBit(u'R'), 0U);
  places.SetMounted({"/other"});
  EXPECT_EQ(places.LogicalDrives() & DriveBit(u'R'), 0U);
}

TEST_F(DiscPlacesTest, AFirstAndALastDriveAreFoundInBothCases) {
  drives.Set('A', temp.Folder("a"));
  drives.Set('Z', temp.Folder("z"));
  DriveSetup setup;
  setup.drives['A'].type = drive_type::kRemovable;
  setup.drives['Z'].type = drive_type::kCd;
  const DiscPlaces places(drives, setup);
  for (const char letter : {'A', 'a'}) EXPECT_EQ(places.DriveType(letter), drive_type::kRemovable) << letter;
  for (const char letter : {'Z', 'z'}) EXPECT_EQ(places.DriveType(letter), drive_type::kCd) << letter;
}

TEST_F(DiscPlacesTest, NetworkPathsGoToTheReaderOfShares) {
  DiscPlaces discs(drives);
  EXPECT_EQ(discs.Reader()->Probe(u"\\\\server\\share"), place_error::kPathNotFound);
  const NetworkPlaces places(discs, std::make_shared<NumberReader>(1001));
  EXPECT_EQ(places.Reader()->Probe(u"\\\\server\\share"), 1001);
  EXPECT_EQ(places.Reader()->Probe(u"C:"), place_error::kNothingFound);
}

}  // namespace
}  // namespace pnl
