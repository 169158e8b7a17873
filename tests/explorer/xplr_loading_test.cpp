// SPDX-License-Identifier: MIT
#include "explorer/xplr_loading.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/fake_places.h"

namespace pnl::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr SortState kByName{{true, true, true, true}, SortColumn::kName};

PlaceEntry File(TextView name, std::uint64_t size = 0) { return {Text(name), false, false, false, size, 0}; }
PlaceEntry Folder(TextView name) { return {Text(name), true, false, false, 0, 0}; }
PlaceEntry Hidden(PlaceEntry entry) {
  entry.hidden = true;
  return entry;
}
PlaceEntry Dots(TextView name) { return {Text(name), true, false, true, 0, 0}; }

using Names = std::vector<std::string>;

Names NamesOf(const XplrRows& rows) {
  Names names;
  for (const XplrRow& row : rows) names.push_back(ToUtf8(row.name));
  return names;
}

Names InOrderOfInsertion(XplrRows rows) {
  std::sort(rows.begin(), rows.end(), [](const XplrRow& a, const XplrRow& b) { return a.index < b.index; });
  for (std::size_t i = 0; i < rows.size(); ++i) EXPECT_EQ(rows[i].index, i);
  return NamesOf(rows);
}

class XplrLoading : public testing::Test {
 protected:
  XplrRows Load(const XplrLoadRequest& request) { return LoadFolder(FakeReader(disc_), request, progress_); }
  /// The names of the files that a filter shows, in the order in which they were added.
  Names Filtered(TextView filter) {
    return InOrderOfInsertion(Load({u"C:\\A", Text(filter), ListFor::kFiles, kByName}));
  }

  std::shared_ptr<FakeDisc> disc_ = std::make_shared<FakeDisc>();
  std::vector<Names> partial_;
  int asked_ = 0;
  int endsAfter_ = -1;  // so many questions whether it goes on are answered with yes
  XplrProgress progress_{[this] { return endsAfter_ < 0 || asked_++ < endsAfter_; },
                         [this](const XplrRows& rows) { partial_.push_back(NamesOf(rows)); }, std::chrono::hours(1)};
};

// ---------------------------------------------------------------- folders

TEST_F(XplrLoading, FoldersAreAddedFirstThenFilesInTheOrderOfTheDisc) {
  disc_->folders[u"C:\\A"] = {File(u"z.nc"), Folder(u"Y"), File(u"b.nc"), Folder(u"A")};
  const XplrRows rows = Load({u"C:\\A", u"*", ListFor::kFiles, kByName});
  EXPECT_THAT(InOrderOfInsertion(rows), ElementsAre("Y", "A", "z.nc", "b.nc"));
  EXPECT_THAT(NamesOf(rows), ElementsAre("A", "Y", "b.nc", "z.nc")) << "and then sorted";
}

TEST_F(XplrLoading, TheRowsComeInTheOrderThatIsAskedFor) {
  disc_->folders[u"C:\\A"] = {File(u"a.txt", 5000), File(u"b.nc", 10), Folder(u"F")};
  const struct {
    SortColumn column;
    bool ascending;
    Names names;
  } cases[] = {{SortColumn::kName, true, {"F", "a.txt", "b.nc"}},
               {SortColumn::kName, false, {"F", "b.nc", "a.txt"}},
               {SortColumn::kSize, true, {"F", "b.nc", "a.txt"}},
               {SortColumn::kSize, false, {"F", "a.txt", "b.nc"}},
               {SortColumn::kExtension, true, {"F", "b.nc", "a.txt"}}};
  for (const auto& row : cases) {
    SortState sort = kByName;
    sort.column = row.column;
    sort.ascending[static_cast<std::size_t>(row.column)] = row.ascending;
    EXPECT_EQ(NamesOf(Load({u"C:\\A", u"*", ListFor::kFiles, sort})), row.names);
  }
}

TEST_F(XplrLoading, WithoutAStoredOrderTheFirstListingIsByNameDescending) {
  disc_->folders[u"C:\\A"] = {File(u"a"), File(u"b"), Folder(u"F"), Folder(u"G")};
  EXPECT_THAT(NamesOf(Load({u"C:\\A", u"*", ListFor::kFiles, SortState::FromText(u"")})),
              ElementsAre("G", "F", "b", "a"));
}

TEST_F(XplrLoading, WhatIsHiddenAndTheDotEntriesAreNotShown) {
  disc_->folders[u"C:\\A"] = {Hidden(File(u"x.nc")), Hidden(Folder(u"X")), File(u"y.nc"), Folder(u"Y")};
  EXPECT_THAT(Filtered(u"*"), ElementsAre("Y", "y.nc"));
  EXPECT_THAT(Filtered(u"x.nc,*"), ElementsAre("Y", "y.nc")) << "not even by its name";
}

TEST_F(XplrLoading, TheFilterIsCutAtCommasAndHoldsForFilesOnly) {
  disc_->folders[u"C:\\A"] = {File(u"a.nc"), File(u"b.txt"), File(u"c"), File(u" d.txt"), File(u"e.nc.txt")};
  const struct {
    TextView filter;
    Names names;
  } cases[] = {
      {u"*", {"a.nc", "b.txt", "c", " d.txt", "e.nc.txt"}},
      {u"*.*", {"a.nc", "b.txt", "c", " d.txt", "e.nc.txt"}},  // also a name without a point
      {u"*.nc", {"a.nc"}},
      {u"*.NC", {"a.nc"}},
      {u"*.nc,*.txt", {"a.nc", "b.txt", " d.txt", "e.nc.txt"}},
      {u"*.txt,*.nc", {"b.txt", " d.txt", "e.nc.txt", "a.nc"}},  // pattern after pattern
      {u"*.nc, *.txt", {"a.nc", " d.txt"}},                      // the second pattern keeps its blank
      {u"*.nc *.txt", {}},                                       // one pattern with a blank
      {u",,*.nc,,", {"a.nc"}},                                   // empty ones count for nothing
      {u",", {}},
      {u"", {}},
      {u"?", {"c"}},
      {u"b.txt", {"b.txt"}},
      {u"*.cyc", {}},
  };
  for (const auto& row : cases) EXPECT_EQ(Filtered(row.filter), row.names) << ToUtf8(row.filter);
  disc_->folders[u"C:\\A"] = {Folder(u"sub.x")};
  for (const auto& row : cases) EXPECT_THAT(Filtered(row.filter), ElementsAre("sub.x")) << ToUtf8(row.filter);
}

TEST_F(XplrLoading, AFileThatMatchesTwoPatternsShowsTwice) {
  disc_->folders[u"C:\\A"] = {File(u"a.nc", 7), File(u"b.txt")};
  const XplrRows rows = Load({u"C:\\A", u"*.nc,a*", ListFor::kFiles, kByName});
  ASSERT_THAT(NamesOf(rows), ElementsAre("a.nc", "a.nc"));
  EXPECT_NE(rows[0].index, rows[1].index);
  EXPECT_EQ(rows[0].length, 7);
  EXPECT_EQ(rows[1].length, 7);
  EXPECT_THAT(Filtered(u"*,*,*"), ElementsAre("a.nc", "b.txt", "a.nc", "b.txt", "a.nc", "b.txt"));
}

TEST_F(XplrLoading, TheFlagsSayWhatCanBeChosen) {
  disc_->folders[u"C:\\A"] = {File(u"a.nc"), Folder(u"F")};
  const struct {
    ListFor mode;
    std::uint16_t folder;
    std::uint16_t file;
  } cases[] = {{ListFor::kFiles, 16, 1}, {ListFor::kFolders, 17, 0}};
  for (const auto& row : cases) {
    for (const XplrRow& shown : Load({u"C:\\A", u"*.*", row.mode, kByName})) {
      EXPECT_EQ(shown.flags, shown.name == u"F" ? row.folder : row.file);
    }
  }
}

TEST_F(XplrLoading, WhenFoldersAreChosenFilesShowToo) {
  disc_->folders[u"C:\\A"] = {File(u"a"), Folder(u"F")};
  EXPECT_THAT(InOrderOfInsertion(Load({u"C:\\A", u"*.*", ListFor::kFolders, kByName})), ElementsAre("F", "a"));
}

TEST_F(XplrLoading, AFolderThatCannotBeReadOrIsEmptyHasNoRows) {
  disc_->folders[u"C:\\A"];
  disc_->folders[u"C:"];
  EXPECT_THAT(Filtered(u"*"), IsEmpty());
  EXPECT_THAT(Load({u"C:", u"*", ListFor::kFiles, kByName}), IsEmpty());
  EXPECT_THAT(Load({u"C:\\GONE", u"*", ListFor::kFiles, kByName}), IsEmpty());
  disc_->folders[u"C:\\A"] = {File(u"a")};
  disc_->errors[u"C:\\A"] = place_error::kAccessDenied;
  EXPECT_THAT(Filtered(u"*"), IsEmpty());
}

/// A folder that breaks off after its first entries.
class BrokenReader final : public FolderReader {
 public:
  [[nodiscard]] int List(TextView /*folder*/, const Take& take) const override {
    take({Dots(u"."), File(u"a"), Folder(u"F")});
    return place_error::kNotReady;
  }
  [[nodiscard]] int Probe(TextView /*folder*/) const override { return place_error::kNone; }
  [[nodiscard]] bool Exists(TextView /*path*/) const override { return false; }
  [[nodiscard]] bool IsReadOnly(TextView /*path*/) const override { return false; }
  [[nodiscard]] int MakeFolder(TextView /*path*/) const override { return place_error::kAccessDenied; }
};

TEST_F(XplrLoading, AFolderThatBreaksOffShowsWhatCameUntilThen) {
  EXPECT_THAT(NamesOf(LoadFolder(BrokenReader(), {u"C:\\A", u"*", ListFor::kFiles, kByName}, progress_)),
              ElementsAre("F", "a"));
}

TEST_F(XplrLoading, EachFolderIsListedOnceWhateverTheFilter) {
  disc_->folders[u"C:\\A"] = {File(u"a.nc")};
  Filtered(u"*.nc,*.txt,*");
  EXPECT_THAT(disc_->asked, ElementsAre(u"list C:\\A"));
}

// ---------------------------------------------------------------- rows that come late

TEST_F(XplrLoading, AQuickFolderHasNoPartialRows) {
  disc_->batch = 1;
  disc_->folders[u"C:\\A"] = {File(u"a"), File(u"b")};
  EXPECT_THAT(Filtered(u"*"), ElementsAre("a", "b"));
  EXPECT_THAT(partial_, IsEmpty());
}

TEST_F(XplrLoading, ASlowFolderShowsWhatCameFirstOnceSortedAndFiltered) {
  progress_.patience = std::chrono::milliseconds(0);
  disc_->batch = 5;  // with the dot entries
  disc_->folders[u"C:\\A"] = {Folder(u"F"), File(u"c.nc"), File(u"b.nc"), File(u"x.txt"), File(u"a.nc"), File(u"d.nc")};
  EXPECT_THAT(NamesOf(Load({u"C:\\A", u"*.nc,c*", ListFor::kFiles, kByName})),
              ElementsAre("F", "a.nc", "b.nc", "c.nc", "c.nc", "d.nc"));
  EXPECT_THAT(partial_, ElementsAre(Names{"F", "b.nc", "c.nc", "c.nc"}));
}

TEST_F(XplrLoading, AReadingThatIsCancelledEndsWithTheBatch) {
  progress_.patience = std::chrono::milliseconds(0);
  disc_->batch = 3;
  disc_->folders[u"C:\\A"] = {File(u"a"), File(u"b"), File(u"c"), File(u"d"), File(u"e"), File(u"f"), File(u"g")};
  int batches = 0;
  disc_->betweenBatches = [&batches] { ++batches; };
  for (int batch = 0; batch < 3; ++batch) {
    asked_ = batches = 0;
    partial_.clear();
    endsAfter_ = batch;
    EXPECT_THAT(Load({u"C:\\A", u"*", ListFor::kFiles, kByName}), IsEmpty()) << "nobody waits for them";
    EXPECT_EQ(batches, batch) << "no further batch is read";
    EXPECT_EQ(partial_.size(), batch == 0 ? 0u : 1u);
  }
}

// ---------------------------------------------------------------- shares

/// A server's shares in batches that the test gives, and what was asked of it.
class FakeServer final : public NetworkReader {
 public:
  std::vector<std::vector<NetworkResource>> batches;
  int status = network_status::kOk;  // of the first batch
  bool closed = false;
  mutable std::vector<NetworkResource> opened;
  mutable std::vector<NetworkScope> scopes;
  mutable int taken = 0;

  [[nodiscard]] std::unique_ptr<NetworkEnumeration> Open(NetworkScope scope,
                                                         const std::optional<NetworkResource>& below) const override {
    scopes.push_back(scope);
    opened.push_back(below.value_or(NetworkResource()));
    if (closed) return nullptr;
    return std::make_unique<Shares>(*this);
  }
  [[nodiscard]] int Connect(TextView /*path*/, WindowHandle /*owner*/) const override { return 1; }

 private:
  class Shares final : public NetworkEnumeration {
   public:
    explicit Shares(const FakeServer& server) : server_(server) {}
    [[nodiscard]] int Next(std::vector<NetworkResource>& entries) override {
      const auto batch = static_cast<std::size_t>(server_.taken++);
      entries.clear();
      if (server_.status != network_status::kOk) return server_.status;
      if (batch >= server_.batches.size()) return network_status::kNoMore;
      entries = server_.batches[batch];
      return network_status::kOk;
    }

   private:
    const FakeServer& server_;
  };
};

class XplrShares : public XplrLoading {
 protected:
  static NetworkResource Share(TextView name, int display = network_display::kShare) {
    return {display, Text(name), u"", u"", u""};
  }
  XplrRows LoadAll(ListFor mode = ListFor::kFiles) {
    server_.taken = 0;
    return LoadShares(FakeReader(disc_), server_, {u"\\\\SRV", u"*.nc", mode, kByName}, progress_);
  }
  FakeServer server_;
};

TEST_F(XplrShares, EachShareThatCanBeReadShowsAsTheDotEntryOfItsFolder) {
  for (const TextView share : {u"\\\\SRV\\A", u"\\\\SRV\\B", u"\\\\SRV\\C"}) disc_->folders[Text(share)] = {File(u"x")};
  disc_->errors[u"\\\\SRV\\B"] = place_error::kAccessDenied;
  server_.batches = {{Share(u"\\\\SRV\\A"), Share(u"\\\\SRV\\B"), Share(u"\\\\SRV\\C"), Share(u"\\\\SRV\\GONE")}};
  const XplrRows rows = LoadAll();
  ASSERT_THAT(NamesOf(rows), ElementsAre(".", "."));
  EXPECT_EQ(rows[0].flags, 16);
  EXPECT_NE(rows[0].index, rows[1].index);
  EXPECT_THAT(disc_->asked,
              ElementsAre(u"list \\\\SRV\\A", u"list \\\\SRV\\B", u"list \\\\SRV\\C", u"list \\\\SRV\\GONE"));
  EXPECT_EQ(LoadAll(ListFor::kFolders).at(0).flags, 17);
}

TEST_F(XplrShares, TheServerIsAskedForAsAServerOfTheSharesProvider) {
  LoadAll();
  ASSERT_EQ(server_.opened.size(), 1u);
  EXPECT_EQ(server_.scopes[0], NetworkScope::kEverything);
  EXPECT_EQ(server_.opened[0], (NetworkResource{2, u"\\\\SRV", u"", u"", u"Microsoft Network"}));
}

TEST_F(XplrShares, OtherResourcesOfTheServerAreNotRead) {
  disc_->folders[u"\\\\SRV\\A"];
  for (const int display : {0, 1, 2, 4, 6, 7, 9}) {
    server_.batches = {{Share(u"\\\\SRV\\A", display)}};
    EXPECT_THAT(LoadAll(), IsEmpty()) << display;
  }
  EXPECT_THAT(disc_->asked, IsEmpty());
}

TEST_F(XplrShares, OneBatchOfSharesIsTakenAndNoMore) {
  disc_->folders[u"\\\\SRV\\A"];
  disc_->folders[u"\\\\SRV\\B"];
  server_.batches = {{Share(u"\\\\SRV\\A")}, {Share(u"\\\\SRV\\B")}};
  EXPECT_EQ(LoadAll().size(), 1u);
  EXPECT_EQ(server_.taken, 1);
  EXPECT_THAT(disc_->asked, ElementsAre(u"list \\\\SRV\\A"));
}

TEST_F(XplrShares, AnEnumerationThatFailsHasNoRows) {
  disc_->folders[u"\\\\SRV\\A"];
  server_.batches = {{Share(u"\\\\SRV\\A")}};
  for (const int status : {network_status::kTooLarge, network_status::kNoMore, network_status::kExtended, 5}) {
    server_.status = status;
    EXPECT_THAT(LoadAll(), IsEmpty()) << status;
  }
  server_.status = network_status::kOk;
  server_.closed = true;
  EXPECT_THAT(LoadAll(), IsEmpty());
  EXPECT_THAT(disc_->asked, IsEmpty());
}

TEST_F(XplrShares, OnlyAFolderThatIsADotEntryAndNotHiddenCounts) {
  const struct {
    std::vector<PlaceEntry> entries;
    Names names;
  } cases[] = {{{Folder(u"F"), File(u"a")}, {}},
               {{Folder(u"F"), Dots(u"..")}, {".."}},
               {{Dots(u".."), Dots(u".")}, {".."}},  // the first one
               {{Hidden(Dots(u".")), Dots(u"..")}, {".."}}};
  server_.batches = {{Share(u"X:")}};  // a root, which has no dot entries of its own here
  for (const auto& row : cases) {
    disc_->folders[u"X:"] = row.entries;
    EXPECT_EQ(NamesOf(LoadAll()), row.names);
  }
}

TEST_F(XplrShares, AShareIsReadNoFurtherThanItsDotEntry) {
  disc_->folders[u"\\\\SRV\\A"] = {File(u"a"), File(u"b"), File(u"c")};
  disc_->batch = 1;
  int batches = 0;
  disc_->betweenBatches = [&batches] { ++batches; };
  server_.batches = {{Share(u"\\\\SRV\\A")}};
  EXPECT_EQ(LoadAll().size(), 1u);
  EXPECT_EQ(batches, 0);
}

TEST_F(XplrShares, ADotEntryMayComeLate) {
  disc_->folders[u"X:"] = {File(u"a"), File(u"b"), Dots(u".")};
  disc_->batch = 1;
  server_.batches = {{Share(u"X:")}};
  EXPECT_EQ(NamesOf(LoadAll()), Names{"."});
}

TEST_F(XplrShares, AReadingThatIsCancelledAsksNoFurtherShare) {
  disc_->folders[u"\\\\SRV\\A"];
  disc_->folders[u"\\\\SRV\\B"];
  server_.batches = {{Share(u"\\\\SRV\\A"), Share(u"\\\\SRV\\B")}};
  endsAfter_ = 1;
  EXPECT_THAT(LoadAll(), IsEmpty());
  EXPECT_THAT(disc_->asked, ElementsAre(u"list \\\\SRV\\A"));
}

}  // namespace
}  // namespace pnl::test
