// SPDX-License-Identifier: MIT
#include "places/host_tree.h"

#include <dirent.h>
#include <dlfcn.h>
#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>
#include <functional>

#include "support/temp_folder.h"

namespace {

/// Called before this program looks at an entry: an errno other than 0 fails the look. Nothing when empty.
std::function<int(const std::string& name)> beforeLook;
/// After so many names, reading a folder fails with readError. Never when negative.
int namesUntilError = -1;
int readError = EIO;

}  // namespace

extern "C" int fstatat(int folder, const char* name, struct stat* info, int flags) noexcept {
  if (const int error = beforeLook ? beforeLook(name) : 0; error != 0) {
    errno = error;
    return -1;
  }
  return static_cast<int>(syscall(SYS_newfstatat, folder, name, info, flags));
}

extern "C" dirent* readdir(DIR* folder) {
  static const auto real = reinterpret_cast<dirent* (*)(DIR*)>(dlsym(RTLD_NEXT, "readdir"));
  if (namesUntilError == 0) {
    errno = readError;
    return nullptr;
  }
  if (namesUntilError > 0) --namesUntilError;
  return real(folder);
}

namespace pnl {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::UnorderedElementsAre;
using Names = HostTree::Names;

TEST(PlaceErrors, EachErrnoHasItsNumber) {
  const struct {
    int error;
    int place;
  } rows[] = {{0, 0},          {ENOENT, 3},     {ENOTDIR, 267},    {EACCES, 5},
              {EPERM, 5},      {ENOMEDIUM, 21}, {EIO, 21},         {ETIMEDOUT, 51},
              {EHOSTDOWN, 51}, {ELOOP, 5},      {ENAMETOOLONG, 5}, {EMFILE, 5},
              {ENOTCONN, 5},   {EROFS, 5},      {EHOSTUNREACH, 5}, {ENOMEM, 5},
              {-1, 5}};
  for (const auto& row : rows) EXPECT_EQ(PlaceErrorOf(row.error), row.place) << row.error;
}

class HostTreeTest : public testing::Test {
 protected:
  ~HostTreeTest() override {
    beforeLook = nullptr;
    namesUntilError = -1;
  }
  [[nodiscard]] std::string Host(const std::string& name) const { return (temp.Path() / name).string(); }
  void Mode(const std::string& name, mode_t mode) const { ASSERT_EQ(chmod(Host(name).c_str(), mode), 0); }
  /// Lists a folder into entries and sizes.
  int List(const Names& names) { return List(tree, names); }
  int List(const HostTree& of, const Names& names) {
    entries.clear();
    sizes.clear();
    return of.List(names, [&](std::vector<PlaceEntry>&& more) {
      sizes.push_back(more.size());
      entries.insert(entries.end(), more.begin(), more.end());
      return true;
    });
  }
  [[nodiscard]] std::vector<Text> Listed() const {
    std::vector<Text> all;
    for (const PlaceEntry& entry : entries) all.push_back(entry.name);
    return all;
  }
  [[nodiscard]] PlaceEntry Entry(TextView name) const {
    for (const PlaceEntry& entry : entries) {
      if (entry.name == name) return entry;
    }
    ADD_FAILURE() << ToUtf8(name) << " isn't listed";
    return {};
  }

  test::TempFolder temp;
  HostTree tree{temp.Path().string(), HostTree::Root::kDrive};
  std::vector<PlaceEntry> entries;
  std::vector<std::size_t> sizes;
};

TEST_F(HostTreeTest, AnEntryHasNameSizeAndTimeOfItsFile) {
  temp.Write("a.txt", "12345");
  const timespec times[2] = {{0, 0}, {1234567890, 999999999}};
  ASSERT_EQ(utimensat(AT_FDCWD, Host("a.txt").c_str(), times, 0), 0);
  EXPECT_EQ(List({}), place_error::kNone);
  EXPECT_THAT(entries, ElementsAre(PlaceEntry{u"a.txt", false, false, false, 5, 1234567890}));
}

TEST_F(HostTreeTest, AFileOlderThan1970HasANegativeTime) {
  temp.Write("a.txt", "");
  const timespec times[2] = {{0, 0}, {-86400, 0}};
  ASSERT_EQ(utimensat(AT_FDCWD, Host("a.txt").c_str(), times, 0), 0);
  EXPECT_EQ(List({}), place_error::kNone);
  EXPECT_EQ(Entry(u"a.txt").written, -86400);
}

TEST_F(HostTreeTest, AFileLargerThanFourGigabytesKeepsItsSize) {
  temp.Write("large", "");
  fs::resize_file(Host("large"), 5'000'000'000);
  EXPECT_EQ(List({}), place_error::kNone);
  EXPECT_EQ(Entry(u"large").size, 5'000'000'000U);
}

TEST_F(HostTreeTest, AFolderHasNoSize) {
  static_cast<void>(temp.Folder("sub"));
  EXPECT_EQ(List({}), place_error::kNone);
  EXPECT_TRUE(Entry(u"sub").folder);
  EXPECT_EQ(Entry(u"sub").size, 0U);
}

TEST_F(HostTreeTest, ADrivesRootHasNoDots) {
  temp.Write("a", "");
  EXPECT_EQ(List({}), place_error::kNone);
  EXPECT_THAT(Listed(), ElementsAre(u"a"));
}

TEST_F(HostTreeTest, AnEmptyRootAnswersThatNothingWasFound) {
  EXPECT_EQ(List({}), place_error::kNothingFound);
  EXPECT_EQ(tree.Probe({}), place_error::kNothingFound);
  EXPECT_TRUE(sizes.empty());
}

TEST_F(HostTreeTest, AnEmptyFolderStillHasItsDots) {
  static_cast<void>(temp.Folder("empty"));
  EXPECT_EQ(List({u"empty"}), place_error::kNone);
  EXPECT_THAT(Listed(), ElementsAre(u".", u".."));
  for (const PlaceEntry& entry : entries) {
    EXPECT_TRUE(entry.dots && entry.folder);
    EXPECT_FALSE(entry.hidden);
  }
  EXPECT_EQ(tree.Probe({u"empty"}), place_error::kNone);
}

TEST_F(HostTreeTest, TheRootOfAShareHasDots) {
  const HostTree share(temp.Path().string(), HostTree::Root::kShare);
  EXPECT_EQ(List(share, {}), place_error::kNone);
  EXPECT_THAT(Listed(), ElementsAre(u".", u".."));
  EXPECT_EQ(share.Probe({}), place_error::kNone);
}

TEST_F(HostTreeTest, ANameThatBeginsWithAPointIsHidden) {
  temp.Write("sub/.profile", "");
  temp.Write("sub/...", "");
  temp.Write("sub/a.b", "");
  static_cast<void>(temp.Folder("sub/.folder"));
  EXPECT_EQ(List({u"sub"}), place_error::kNone);
  const std::pair<TextView, bool> rows[] = {{u".", false},  {u"..", false},     {u".profile", true},
                                            {u"...", true}, {u".folder", true}, {u"a.b", false}};
  for (const auto& [name, hidden] : rows) {
    EXPECT_EQ(Entry(name).hidden, hidden) << ToUtf8(name);
    EXPECT_EQ(Entry(name).dots, name == u"." || name == u"..") << ToUtf8(name);
  }
}

TEST_F(HostTreeTest, ALinkIsWhatItLeadsTo) {
  temp.Write("folder/x", "123");
  fs::create_symlink("folder", Host("toFolder"));
  fs::create_symlink("folder/x", Host("toFile"));
  EXPECT_EQ(List({}), place_error::kNone);
  EXPECT_TRUE(Entry(u"toFolder").folder);
  EXPECT_FALSE(Entry(u"toFile").folder);
  EXPECT_EQ(Entry(u"toFile").size, 3U);
  EXPECT_EQ(List({u"toFolder"}), place_error::kNone);
  EXPECT_THAT(Listed(), UnorderedElementsAre(u".", u"..", u"x"));
}

TEST_F(HostTreeTest, ALinkThatLeadsNowhereIsAFileWithoutContent) {
  fs::create_symlink("a target with a name of some length", Host("nowhere"));
  fs::create_symlink("circle", Host("circle"));
  EXPECT_EQ(List({}), place_error::kNone);
  for (const TextView name : {u"nowhere", u"circle"}) {
    EXPECT_FALSE(Entry(name).folder);
    EXPECT_EQ(Entry(name).size, 0U);
    EXPECT_NE(Entry(name).written, 0);
    EXPECT_FALSE(tree.Exists({Text(name)}));
  }
}

TEST_F(HostTreeTest, ANameThatIsNoUtf8ShowsItsReplacementAndOpens) {
  temp.Write("dir\xF1/a\xF1o.txt", "latin");
  EXPECT_EQ(List({}), place_error::kNone);
  EXPECT_THAT(Listed(), ElementsAre(u"dir\uFFFD"));
  EXPECT_EQ(List({u"dir\uFFFD"}), place_error::kNone);
  EXPECT_EQ(Entry(u"a\uFFFDo.txt").size, 5U);
  EXPECT_TRUE(tree.Exists({u"dir\uFFFD", u"a\uFFFDo.txt"}));
}

// Its panel path would lead somewhere else.
TEST_F(HostTreeTest, ANameWithABackslashIsNotListed) {
  temp.Write("a\\b", "");
  EXPECT_EQ(List({}), place_error::kNothingFound);
  EXPECT_EQ(tree.Probe({}), place_error::kNothingFound);
  temp.Write("c", "");
  EXPECT_EQ(List({}), place_error::kNone);
  EXPECT_THAT(Listed(), ElementsAre(u"c"));
}

TEST_F(HostTreeTest, OddNamesAreListedAsTheyAre) {
  const std::vector<std::string> odd = {" ",  "a b", "a,b",  "a:b", "a*?",
                                        "\n", "CON", "\x01", "ñ",   std::string(255, 'x')};
  for (const std::string& name : odd) temp.Write(name, "1");
  EXPECT_EQ(List({}), place_error::kNone);
  EXPECT_EQ(entries.size(), odd.size());
  for (const std::string& name : odd) {
    EXPECT_EQ(Entry(FromUtf8(name)).size, 1U) << name;
    EXPECT_TRUE(tree.Exists({FromUtf8(name)})) << name;
  }
}

TEST_F(HostTreeTest, PipesAndDevicesAreFilesWithoutContent) {
  ASSERT_EQ(mkfifo(Host("pipe").c_str(), 0644), 0);
  EXPECT_EQ(List({}), place_error::kNone);
  EXPECT_FALSE(Entry(u"pipe").folder);
  EXPECT_EQ(Entry(u"pipe").size, 0U);
  EXPECT_EQ(List({u"pipe"}), place_error::kNoFolder);
}

TEST_F(HostTreeTest, ALargeFolderComesInGrowingBatches) {
  static_cast<void>(temp.Folder("many"));
  for (int i = 0; i < 4000; ++i) temp.Write("many/" + std::to_string(i), "");
  EXPECT_EQ(List({u"many"}), place_error::kNone);
  EXPECT_EQ(entries.size(), 4002U);
  EXPECT_THAT(sizes, ElementsAre(64, 128, 256, 512, 1024, 1024, 994));
}

TEST_F(HostTreeTest, AFolderThatFillsItsBatchExactlyHasNoEmptyOneAfterIt) {
  for (int i = 0; i < 64; ++i) temp.Write(std::to_string(i), "");
  EXPECT_EQ(List({}), place_error::kNone);
  EXPECT_THAT(sizes, ElementsAre(64));
}

TEST_F(HostTreeTest, TheListingEndsWhenNoMoreIsWanted) {
  for (int i = 0; i < 300; ++i) temp.Write(std::to_string(i), "");
  int batches = 0;
  EXPECT_EQ(tree.List({},
                      [&](std::vector<PlaceEntry>&&) {
                        ++batches;
                        return batches < 2;
                      }),
            place_error::kNone);
  EXPECT_EQ(batches, 2);
}

TEST_F(HostTreeTest, ADiscThatFailsInTheMiddleGivesWhatItHad) {
  for (int i = 0; i < 100; ++i) temp.Write(std::to_string(i), "");
  namesUntilError = 82;  // two of them may be the dots
  EXPECT_EQ(List({}), place_error::kNotReady);
  EXPECT_GE(entries.size(), 80U);
  EXPECT_LE(entries.size(), 82U);
  namesUntilError = 0;
  readError = ETIMEDOUT;
  EXPECT_EQ(List({}), place_error::kRemoteNotListening);
  EXPECT_EQ(tree.Probe({}), place_error::kRemoteNotListening);
  readError = EIO;
}

TEST_F(HostTreeTest, AnEntryThatVanishesWhileItIsListedIsLeftOut) {
  temp.Write("gone", "");
  temp.Write("kept", "");
  beforeLook = [&](const std::string& name) {
    if (name == "gone") fs::remove(Host("gone"));
    return 0;
  };
  EXPECT_EQ(List({}), place_error::kNone);
  EXPECT_THAT(Listed(), ElementsAre(u"kept"));
}

TEST_F(HostTreeTest, ARootWhoseOnlyEntryVanishesIsEmpty) {
  temp.Write("gone", "");
  beforeLook = [](const std::string&) { return ENOENT; };
  EXPECT_EQ(List({}), place_error::kNothingFound);
}

TEST_F(HostTreeTest, AnEntryThatCannotBeLookedAtIsListedByItsNameAlone) {
  static_cast<void>(temp.Folder("mount"));
  temp.Write("file", "123");
  beforeLook = [](const std::string&) { return ENOTCONN; };
  EXPECT_EQ(List({}), place_error::kNone);
  EXPECT_TRUE(Entry(u"mount").folder);
  EXPECT_EQ(Entry(u"file"), (PlaceEntry{u"file", false, false, false, 0, 0}));
}

TEST_F(HostTreeTest, AFolderThatCannotBeListedAnswersWhy) {
  temp.Write("file", "");
  temp.Write("sub/dir/file", "");
  fs::create_symlink("nowhere", Host("link"));
  const struct {
    const char* what;
    const char* name;
    mode_t mode;
    Names names;
    int error;
  } rows[] = {
      {"there", ".", 0755, {u"sub", u"dir"}, 0},
      {"in another case", ".", 0755, {u"SUB", u"Dir"}, 0},
      {"missing", ".", 0755, {u"none"}, 3},
      {"below a missing one", ".", 0755, {u"none", u"x", u"y"}, 3},
      {"a file", ".", 0755, {u"file"}, 267},
      {"below a file", ".", 0755, {u"file", u"x"}, 267},
      {"a link to nowhere", ".", 0755, {u"link"}, 3},
      {"not to be read", "sub/dir", 0311, {u"sub", u"dir"}, 5},
      {"not to be searched", "sub/dir", 0644, {u"sub", u"dir"}, 5},
      {"below one that can't be searched", "sub", 0600, {u"sub", u"dir"}, 5},
      {"missing below one that can't be searched", "sub", 0600, {u"sub", u"none"}, 5},
      {"exact name below one that can't be read", "sub", 0311, {u"sub", u"dir"}, 0},
      {"another case below one that can't be read", "sub", 0311, {u"sub", u"DIR"}, 5},
      {"a name that is too long", ".", 0755, {Text(300, u'x')}, 5},
  };
  for (const auto& row : rows) {
    Mode(row.name, row.mode);
    EXPECT_EQ(List(row.names), row.error) << row.what;
    EXPECT_EQ(tree.Probe(row.names), row.error) << row.what;
    Mode(row.name, 0755);
  }
}

TEST_F(HostTreeTest, AMissingRootIsNotFound) {
  const HostTree gone(Host("gone"), HostTree::Root::kDrive);
  EXPECT_TRUE(gone.IsMissing());
  EXPECT_EQ(gone.Probe({}), place_error::kPathNotFound);
  EXPECT_EQ(gone.Probe({u"a"}), place_error::kPathNotFound);
  EXPECT_EQ(gone.MakeFolder({u"a"}), place_error::kPathNotFound);
  EXPECT_FALSE(gone.Exists({}));
  EXPECT_FALSE(temp.Has("gone"));
  EXPECT_FALSE(tree.IsMissing());
}

TEST_F(HostTreeTest, ATreeOfTheWholeMachineHasItsPlaces) {
  const HostTree machine("/", HostTree::Root::kDrive);
  EXPECT_EQ(machine.Probe({}), place_error::kNone);
  EXPECT_EQ(machine.Probe({u"proc"}), place_error::kNone);
  EXPECT_EQ(machine.Probe({u"proc", u"none"}), place_error::kPathNotFound);
  EXPECT_EQ(machine.Probe({u"none", u"x"}), place_error::kPathNotFound);
}

TEST_F(HostTreeTest, ReadOnlyIsWhatLacksItsOwnersWritePermission) {
  temp.Write("file", "");
  static_cast<void>(temp.Folder("sub"));
  EXPECT_FALSE(tree.IsReadOnly({u"file"}));
  EXPECT_FALSE(tree.IsReadOnly({u"none"}));
  Mode("file", 0466);
  Mode("sub", 0555);
  EXPECT_TRUE(tree.IsReadOnly({u"FILE"}));
  EXPECT_TRUE(tree.IsReadOnly({u"sub"}));
  EXPECT_TRUE(tree.Exists({u"File"}));
}

TEST_F(HostTreeTest, AFolderIsMadeWithItsParents) {
  EXPECT_EQ(tree.MakeFolder({u"a", u"b", u"ñ"}), place_error::kNone);
  EXPECT_TRUE(fs::is_directory(Host("a/b/ñ")));
  EXPECT_EQ(tree.MakeFolder({u"A", u"c"}), place_error::kNone);
  EXPECT_TRUE(fs::is_directory(Host("a/c")));
}

TEST_F(HostTreeTest, AFolderThatCannotBeMadeAnswersWhy) {
  temp.Write("file", "");
  static_cast<void>(temp.Folder("sub"));
  static_cast<void>(temp.Folder("closed"));
  Mode("sub", 0555);
  Mode("closed", 0644);
  fs::create_symlink("missing/target", Host("link"));
  const struct {
    Names names;
    int error;
  } rows[] = {{{}, 183},
              {{u"SUB"}, 183},
              {{u"file"}, 183},
              {{u"file", u"x"}, 267},
              {{u"sub", u"x"}, 5},
              {{u"sub", u"x", u"y"}, 5},
              {{u"closed", u"x"}, 5},
              {{u"link"}, 5},
              {{Text(300, u'x')}, 5}};
  for (const auto& row : rows) {
    EXPECT_EQ(tree.MakeFolder(row.names), row.error) << (row.names.empty() ? "" : ToUtf8(row.names.back()));
  }
  EXPECT_FALSE(temp.Has("closed/x"));
}

// ---------------------------------------------------------------- the beginning of a file

TEST(HostTreeStart, AtMostSoManyBytesAreRead) {
  const test::TempFolder temp;
  temp.Write("a.nc", "0123456789");
  temp.Write("empty", "");
  const HostTree tree(temp.Path().string(), HostTree::Root::kDrive);
  const struct {
    TextView name;
    std::size_t most;
    std::string bytes;
  } rows[] = {{u"a.nc", 4, "0123"},
              {u"A.NC", 10, "0123456789"},
              {u"a.nc", 4096, "0123456789"},
              {u"a.nc", 0, ""},
              {u"empty", 10, ""}};
  for (const auto& row : rows) EXPECT_EQ(tree.ReadStart({Text(row.name)}, row.most), row.bytes) << row.most;
}

TEST(HostTreeStart, OnlyAFileThatCanBeReadHasOne) {
  const test::TempFolder temp;
  static_cast<void>(temp.Folder("folder"));
  temp.Write("secret", "1");
  fs::permissions(temp.Path() / "secret", fs::perms::owner_write);
  fs::create_symlink("nowhere", temp.Path() / "broken");
  ASSERT_EQ(mkfifo((temp.Path() / "pipe").c_str(), 0600), 0);
  const HostTree tree(temp.Path().string(), HostTree::Root::kDrive);
  for (const TextView name : {u"folder", u"secret", u"broken", u"pipe", u"gone"}) {
    EXPECT_EQ(tree.ReadStart({Text(name)}, 10), std::nullopt) << ToUtf8(name);
  }
  EXPECT_EQ(tree.ReadStart({}, 10), std::nullopt) << "the drive itself";
}

}  // namespace
}  // namespace pnl
