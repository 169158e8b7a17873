// SPDX-License-Identifier: MIT
#include "help/manual/manual_cache.h"

#include <gtest/gtest.h>
#include <sys/file.h>
#include <sys/stat.h>

#include <filesystem>
#include <set>

#include "base/files.h"
#include "help/manual/leftovers.h"
#include "support/stepped_worker.h"
#include "unpacked_manual.h"

namespace pnl {
namespace {

namespace fs = std::filesystem;

/// Unpacks into a manual with one page, whose content is the file's.
class FakeExtractor final : public ManualExtractor {
 public:
  [[nodiscard]] Extraction Extract(const std::string& manual, const std::string& folder,
                                   const std::function<bool()>& isCancelled) const override {
    asked.push_back(manual);
    if (isCancelled()) return Extraction::kCancelled;
    if (answer != Extraction::kDone) return answer;
    const auto content = ReadHostFile(manual, 1'000'000).value_or("");
    test::UnpackedObjects unpacked;
    unpacked.Add("a.htm", content);
    unpacked.listing.unreadable = damage;
    unpacked.WriteTo(folder);
    return Extraction::kDone;
  }

  mutable std::vector<std::string> asked;
  Extraction answer = Extraction::kDone;
  std::size_t damage = 0;
};

bool Never() { return false; }

class ManualCacheTest : public testing::Test {
 protected:
  ManualCacheTest() { temp_.Write("m.chm", "one"); }

  [[nodiscard]] ManualCache Cache(ManualCache::Limits limits = {}) const { return {CacheFolder(), extractor_, limits}; }
  [[nodiscard]] std::string CacheFolder() const { return temp_.Path() / "cache" / "manuals"; }
  [[nodiscard]] std::string File(const std::string& name) const { return temp_.Path() / name; }
  [[nodiscard]] std::set<std::string> Kept() const {
    std::set<std::string> names;
    std::error_code ignored;
    for (const auto& entry : fs::directory_iterator(CacheFolder(), ignored)) names.insert(entry.path().string());
    return names;
  }
  /// The manual's folder was last used so many seconds after the beginning of time.
  static void SetUse(const std::string& folder, long seconds) {
    const timespec times[2] = {{seconds, 0}, {seconds, 0}};
    ASSERT_EQ(utimensat(AT_FDCWD, folder.c_str(), times, 0), 0);
  }

  test::TempFolder temp_;
  std::shared_ptr<FakeExtractor> extractor_ = std::make_shared<FakeExtractor>();
};

TEST_F(ManualCacheTest, AManualIsUnpackedOnce) {
  const ManualCache cache = Cache();
  for (int i = 0; i < 3; ++i) {
    const OpenedManual opened = cache.Open(File("m.chm"), Never);
    ASSERT_EQ(opened.state, ManualState::kWhole);
    EXPECT_EQ(opened.manual->Read(u"a.htm"), "one");
  }
  EXPECT_EQ(extractor_->asked, std::vector<std::string>{File("m.chm")});
  EXPECT_EQ(Kept(), std::set<std::string>{cache.FolderOf(File("m.chm"))});
}

TEST_F(ManualCacheTest, AManualOfAnotherSizeTimeOrPathIsAnother) {
  const ManualCache cache = Cache();
  const std::string first = cache.FolderOf(File("m.chm"));
  SetUse(File("m.chm"), 1'000);
  const std::string second = cache.FolderOf(File("m.chm"));
  temp_.Write("m.chm", "four");
  SetUse(File("m.chm"), 1'000);
  const std::string third = cache.FolderOf(File("m.chm"));
  temp_.Write("n.chm", "four");
  SetUse(File("n.chm"), 1'000);
  const std::string fourth = cache.FolderOf(File("n.chm"));
  EXPECT_EQ((std::set<std::string>{first, second, third, fourth}.size()), 4u);
}

TEST_F(ManualCacheTest, AChangedManualIsUnpackedAgain) {
  const ManualCache cache = Cache();
  ASSERT_EQ(cache.Open(File("m.chm"), Never).state, ManualState::kWhole);
  temp_.Write("m.chm", "another");
  EXPECT_EQ(cache.Open(File("m.chm"), Never).manual->Read(u"a.htm"), "another");
  EXPECT_EQ(extractor_->asked.size(), 2u);
}

TEST_F(ManualCacheTest, ADamagedManualSaysSoAndShowsWhatThereIs) {
  extractor_->damage = 1;
  const OpenedManual opened = Cache().Open(File("m.chm"), Never);
  EXPECT_EQ(opened.state, ManualState::kDamaged);
  EXPECT_EQ(opened.manual->Read(u"a.htm"), "one");
  EXPECT_EQ(Cache().Open(File("m.chm"), Never).state, ManualState::kDamaged);
}

TEST_F(ManualCacheTest, EachEndOfTheExtractorHasItsState) {
  struct Row {
    Extraction extraction;
    ManualState state;
  };
  const Row rows[] = {
      {Extraction::kNothing, ManualState::kUnusable},    {Extraction::kOverrun, ManualState::kUnusable},
      {Extraction::kCancelled, ManualState::kCancelled}, {Extraction::kNoProgram, ManualState::kNoProgram},
      {Extraction::kNoRoom, ManualState::kNoRoom},
  };
  for (const Row& row : rows) {
    extractor_->answer = row.extraction;
    const OpenedManual opened = Cache().Open(File("m.chm"), Never);
    EXPECT_EQ(opened.state, row.state) << static_cast<int>(row.extraction);
    EXPECT_EQ(opened.manual, nullptr);
  }
}

TEST_F(ManualCacheTest, AMissingManualIsntUnpacked) {
  EXPECT_EQ(Cache().Open(File("gone.chm"), Never).state, ManualState::kMissing);
  EXPECT_EQ(Cache().Open(temp_.Path(), Never).state, ManualState::kMissing);
  EXPECT_EQ(Cache().FolderOf(File("gone.chm")), "");
  EXPECT_TRUE(extractor_->asked.empty());
}

TEST_F(ManualCacheTest, WithoutAFolderThereIsNoRoom) {
  const ManualCache none("", extractor_);
  EXPECT_EQ(none.Open(File("m.chm"), Never).state, ManualState::kNoRoom);
  const ManualCache blocked(File("m.chm") + "/cache", extractor_);
  EXPECT_EQ(blocked.Open(File("m.chm"), Never).state, ManualState::kNoRoom);
  EXPECT_TRUE(extractor_->asked.empty());
}

TEST_F(ManualCacheTest, AFolderThatLostAFileIsMadeAnew) {
  const ManualCache cache = Cache();
  const std::string objects = cache.FolderOf(File("m.chm")) + "/" + ManualListing::kObjectFile;
  ASSERT_EQ(cache.Open(File("m.chm"), Never).state, ManualState::kWhole);
  // A power cut may leave a part of a file, or none.
  fs::resize_file(objects, 2);
  EXPECT_EQ(cache.Open(File("m.chm"), Never).manual->Read(u"a.htm"), "one");
  fs::remove(objects);
  EXPECT_EQ(cache.Open(File("m.chm"), Never).manual->Read(u"a.htm"), "one");
  fs::remove(cache.FolderOf(File("m.chm")) + "/" + ManualListing::kFile);
  EXPECT_EQ(cache.Open(File("m.chm"), Never).manual->Read(u"a.htm"), "one");
  EXPECT_EQ(extractor_->asked.size(), 4u);
}

TEST_F(ManualCacheTest, AManualThatIsThrownAwayWhileItIsOpenIsReadToItsEnd) {
  const ManualCache cache = Cache();
  const OpenedManual opened = cache.Open(File("m.chm"), Never);
  RemoveWhole(cache.FolderOf(File("m.chm")));
  EXPECT_EQ(opened.manual->Read(u"a.htm"), "one");
}

TEST_F(ManualCacheTest, TheManualsThatWereOpenedLongestAgoAreThrownAway) {
  const ManualCache cache = Cache({1'000'000, 2});
  std::vector<std::string> folders;
  for (const char* name : {"a.chm", "b.chm", "c.chm"}) {
    temp_.Write(name, name);
    folders.push_back(cache.FolderOf(File(name)));
  }
  ASSERT_EQ(cache.Open(File("a.chm"), Never).state, ManualState::kWhole);
  ASSERT_EQ(cache.Open(File("b.chm"), Never).state, ManualState::kWhole);
  SetUse(folders[0], 100);
  SetUse(folders[1], 200);
  // Opening it again is a use.
  ASSERT_EQ(cache.Open(File("a.chm"), Never).state, ManualState::kWhole);
  ASSERT_EQ(cache.Open(File("c.chm"), Never).state, ManualState::kWhole);
  EXPECT_EQ(Kept(), (std::set<std::string>{folders[0], folders[2]}));
}

TEST_F(ManualCacheTest, ManualsAboveTheLimitOfBytesAreThrownAwayButNotTheOneThatIsOpened) {
  const ManualCache cache = Cache({10, 100});
  temp_.Write("a.chm", "123456");
  temp_.Write("b.chm", "1234");
  temp_.Write("c.chm", "12345678901234567890");
  ASSERT_EQ(cache.Open(File("a.chm"), Never).state, ManualState::kWhole);
  ASSERT_EQ(cache.Open(File("b.chm"), Never).state, ManualState::kWhole);
  EXPECT_EQ(Kept().size(), 2u);
  ASSERT_EQ(cache.Open(File("c.chm"), Never).state, ManualState::kWhole);
  EXPECT_EQ(Kept(), std::set<std::string>{cache.FolderOf(File("c.chm"))});
}

TEST_F(ManualCacheTest, WhatIsntAManualStays) {
  temp_.Write("cache/manuals/letter.txt", "mine");
  temp_.Write("cache/manuals/folder/letter.txt", "mine");
  ASSERT_EQ(Cache({0, 0}).Open(File("m.chm"), Never).state, ManualState::kWhole);
  EXPECT_EQ(temp_.Read("cache/manuals/letter.txt"), "mine");
  EXPECT_EQ(temp_.Read("cache/manuals/folder/letter.txt"), "mine");
}

TEST_F(ManualCacheTest, WhatEndedProcessesLeftIsRemovedAndWhatLivingOnesMakeIsnt) {
  temp_.Write("cache/manuals/dead.part/objects.bin", "x");
  const auto living = MakePart(CacheFolder() + "/living");
  ASSERT_TRUE(living.has_value());
  ASSERT_EQ(Cache().Open(File("m.chm"), Never).state, ManualState::kWhole);
  EXPECT_FALSE(temp_.Has("cache/manuals/dead.part"));
  EXPECT_TRUE(fs::exists(living->path));
}

TEST_F(ManualCacheTest, ALinkInALeftoverIsntFollowed) {
  temp_.Write("kept/letter.txt", "mine");
  static_cast<void>(temp_.Folder("cache/manuals/dead.part"));
  fs::create_symlink(temp_.Path() / "kept", temp_.Path() / "cache/manuals/dead.part/link");
  fs::create_symlink(temp_.Path() / "kept", temp_.Path() / "cache/manuals/link.part");
  ASSERT_EQ(Cache().Open(File("m.chm"), Never).state, ManualState::kWhole);
  EXPECT_FALSE(temp_.Has("cache/manuals/dead.part"));
  EXPECT_EQ(temp_.Read("kept/letter.txt"), "mine");
}

TEST_F(ManualCacheTest, NobodysManualIsCancelled) {
  EXPECT_EQ(Cache().Open(File("m.chm"), [] { return true; }).state, ManualState::kCancelled);
  EXPECT_TRUE(Kept().empty());
}

TEST(ManualCacheFolder, FollowsTheEnvironment) {
  struct Row {
    const char* cacheHome;
    const char* home;
    const char* folder;
  };
  const Row rows[] = {
      {"/c", "/h", "/c/pnltools/manuals"},
      {nullptr, "/h", "/h/.cache/pnltools/manuals"},
      {"", "/h", "/h/.cache/pnltools/manuals"},
      {"relative", "/h", "/h/.cache/pnltools/manuals"},
      {nullptr, "relative", ""},
      {nullptr, nullptr, ""},
  };
  for (const Row& row : rows) EXPECT_EQ(ManualCacheFolder(row.cacheHome, row.home), row.folder);
}

class ManualOpenerTest : public ManualCacheTest {
 protected:
  std::shared_ptr<const ManualCache> cache_ =
      std::make_shared<ManualCache>(temp_.Path() / "cache" / "manuals", extractor_);
  test::SteppedWorker worker_;
};

TEST_F(ManualOpenerTest, TheAnswerComesFromTheWorker) {
  ManualOpener opener(worker_, cache_);
  std::vector<ManualState> answers;
  EXPECT_TRUE(opener.Open(File("m.chm"), [&](const OpenedManual& opened) { answers.push_back(opened.state); }));
  EXPECT_TRUE(answers.empty());
  worker_.RunAll();
  EXPECT_EQ(answers, std::vector<ManualState>{ManualState::kWhole});
}

TEST_F(ManualOpenerTest, OnlyTheLastQuestionIsAnswered) {
  ManualOpener opener(worker_, cache_);
  std::vector<std::string> answers;
  temp_.Write("n.chm", "two");
  EXPECT_TRUE(opener.Open(File("m.chm"), [&](const OpenedManual&) { answers.emplace_back("m"); }));
  EXPECT_TRUE(opener.Open(File("n.chm"), [&](const OpenedManual&) { answers.emplace_back("n"); }));
  worker_.RunAll();
  EXPECT_EQ(answers, std::vector<std::string>{"n"});
}

TEST_F(ManualOpenerTest, NothingComesAfterDropOrTheEnd) {
  int answers = 0;
  ManualOpener opener(worker_, cache_);
  EXPECT_TRUE(opener.Open(File("m.chm"), [&](const OpenedManual&) { ++answers; }));
  opener.Drop();
  {
    ManualOpener shortLived(worker_, cache_);
    EXPECT_TRUE(shortLived.Open(File("m.chm"), [&](const OpenedManual&) { ++answers; }));
  }
  worker_.RunAll();
  EXPECT_EQ(answers, 0);
}

TEST_F(ManualOpenerTest, WithoutAThreadItSaysSo) {
  ManualOpener opener(worker_, cache_);
  worker_.refuses = true;
  EXPECT_FALSE(opener.Open(File("m.chm"), [](const OpenedManual&) {}));
}

}  // namespace
}  // namespace pnl
