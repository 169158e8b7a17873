// SPDX-License-Identifier: MIT
#include "explorer/xplr_list.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <random>

#include "explorer/xplr_rig.h"

namespace pnl::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr SortState kAscending{{true, true, true, true}, SortColumn::kName};
constexpr std::size_t kMany = 3001;  // rows that aren't sorted at once

/// C:\CNC has the folders DEEP and SUB, then the files a.nc, b.txt and c.nc. In the log, "menus" is an update of them.
template <typename AWorker>
class ListStage : public testing::Test {
 protected:
  explicit ListStage(std::chrono::milliseconds patience = std::chrono::hours(1)) : patience_(patience) {
    for (const char16_t* file : {u"b.txt", u"c.nc", u"a.nc"}) Disc().AddFile(u"C:\\CNC\\" + Text(file));
    Disc().AddFolder(u"C:\\CNC\\SUB");
    Disc().AddFolder(u"C:\\CNC\\DEEP");
    State().Title = u"Pick";
    State().Path = u"C:\\CNC";
    State().Filter = u"*";
    State().Flags = 0;
    State().Layout = LayoutMode::kTreeAndList;
    list_.SetSort(kAscending);
  }
  FakeDisc& Disc() { return *ground_.places.disc; }
  XplrState& State() { return ground_.state; }
  Log Take() { return ground_.Take(); }
  std::vector<std::string> Names() const {
    std::vector<std::string> names;
    for (const XplrRow& row : list_.Rows()) names.push_back(ToUtf8(row.name));
    return names;
  }
  void Fill(ListMode mode = ListMode::kFolder) {
    list_.FillList(mode);
    Take();
  }
  void FillMany(std::size_t count = kMany) {
    std::vector<PlaceEntry>& entries = Disc().folders[u"C:\\MANY"];
    for (std::size_t i = 0; i < count; ++i) entries.push_back({Format(u"f%05d.nc", static_cast<int>(i))});
    State().Path = u"C:\\MANY";
  }
  int RowOf(TextView name) const {
    for (std::size_t i = 0; i < list_.Rows().size(); ++i) {
      if (list_.Rows()[i].name == name) return static_cast<int>(i);
    }
    return -1;
  }
  std::string SelectedName() const {
    return list_.Selected() < 0 ? "" : ToUtf8(list_.Rows()[static_cast<std::size_t>(list_.Selected())].name);
  }

  const std::chrono::milliseconds patience_;
  XplrGround<AWorker> ground_;
  int filled_ = 0;
  XplrList list_{{ground_.state, ground_.places, ground_.network, ground_.jobs, ground_.posts, ground_.access,
                  [this] { ground_.log.push_back("menus"); }},
                 patience_};
};

using XplrListTest = ListStage<InlineWorker>;
using XplrListSteps = ListStage<SteppedWorker>;

/// A folder whose rows come in batches: with the first batch the list shows what it has.
class XplrListBatches : public ListStage<SteppedWorker> {
 protected:
  XplrListBatches() : ListStage(std::chrono::milliseconds(0)) {
    Disc().folders[u"C:\\SLOW"] = {{u"b.nc"}, {u"c.nc"}, {u"F", true}, {u"a.nc"}};
    Disc().batch = 4;  // with the dot entries
    State().Path = u"C:\\SLOW";
  }
};

// ---------------------------------------------------------------- the first load

struct FirstCase {
  std::uint32_t flags;
  TextView file;
  int selected;
  TextView after;  // File
  std::uint32_t result;
  Log log;
};

TEST_F(XplrListTest, TheFirstLoadSelectsTheNameOrTheFirstRow) {
  const std::uint32_t folders = XPLR_FOLDERMODE;
  const std::uint32_t listOnly = XPLR_FOLDERMODE | XPLR_LISTONLY;
  const FirstCase cases[] = {
      // Files: the first row, which is a folder and so no name, or the row of the name.
      {0,
       u"",
       0,
       u"",
       0,
       {"view rows", "view rows", "menus", "view row 0", "send form XPLR_UPDATE_CAPTION ' Pick = '"}},
      {0,
       u"B.TXT",
       3,
       u"b.txt",
       0,
       {"view rows", "view rows", "menus", "view row 3", "send form XPLR_UPDATE_CAPTION ' Pick = b.txt'"}},
      {0,
       u"sub",
       1,
       u"",
       0,
       {"view rows", "view rows", "menus", "view row 1", "send form XPLR_UPDATE_CAPTION ' Pick = '"}},
      {0, u"GONE", -1, u"GONE", xplr_result::kNoSuchRow, {"view rows", "view rows", "menus"}},
      {XPLR_LISTONLY, u"GONE", -1, u"GONE", xplr_result::kNoSuchRow, {"view rows", "view rows", "menus"}},
      // Folders beside a tree: the tree selects.
      {folders, u"", -1, u"", 0, {"view rows", "view rows", "menus"}},
      {folders, u"SUB", -1, u"SUB", 0, {"view rows", "view rows", "menus"}},
      {folders, u"GONE", -1, u"GONE", 0, {"view rows", "view rows", "menus"}},
      // Folders without a tree.
      {listOnly,
       u"",
       0,
       u"DEEP",
       0,
       {"view rows", "view rows", "menus", "view row 0", "send form XPLR_UPDATE_CAPTION ' Pick = DEEP'"}},
      {listOnly,
       u"sub",
       1,
       u"SUB",
       0,
       {"view rows", "view rows", "menus", "view row 1", "send form XPLR_UPDATE_CAPTION ' Pick = SUB'"}},
      {listOnly, u"GONE", -1, u"GONE", xplr_result::kElsewhere, {"view rows", "view rows", "menus"}},
  };
  Disc().folders[u"C:\\CNC"] = {{u"DEEP", true}, {u"SUB", true}, {u"a.nc"}, {u"b.txt"}, {u"c.nc"}};
  for (const FirstCase& row : cases) {
    list_.Clear();
    Take();
    State().Flags = row.flags;
    State().File = row.file;
    State().ResultFlags = 0;
    list_.FirstFill([this] { ++filled_; });
    const std::string what = std::to_string(row.flags) + " " + ToUtf8(row.file);
    EXPECT_EQ(list_.Selected(), row.flags == listOnly && row.file.empty() ? RowOf(Text(row.after)) : row.selected)
        << what;
    EXPECT_EQ(State().ResultFlags, row.result) << what;
    EXPECT_TRUE(State().File == row.after) << what << ToUtf8(State().File);
    EXPECT_EQ(Take(), row.log) << what;
  }
  EXPECT_EQ(filled_, static_cast<int>(std::size(cases)));
}

TEST_F(XplrListTest, TheFirstLoadOfAnEmptyFolderSelectsNothing) {
  Disc().folders[u"C:\\CNC"].clear();
  list_.FirstFill([this] { ++filled_; });
  EXPECT_EQ(list_.Selected(), -1);
  EXPECT_EQ(State().ResultFlags, 0u);
  EXPECT_EQ(filled_, 1);
}

// ---------------------------------------------------------------- loading

TEST_F(XplrListTest, TheModeSaysWhatTheListShows) {
  NetworkResource share{network_display::kShare, u"\\\\SRV\\DATA", u"", u"", u""};
  ground_.network.around->below[u"C:\\CNC"] = {share};
  Disc().AddFolder(u"\\\\SRV\\DATA");
  const struct {
    int mode;
    std::vector<std::string> names;
  } cases[] = {{0, {"DEEP", "SUB", "a.nc", "b.txt", "c.nc"}},
               {1, {"."}},
               {2, {}},
               {3, {"DEEP", "SUB", "a.nc", "b.txt", "c.nc"}},  // any other one
               {-1, {"DEEP", "SUB", "a.nc", "b.txt", "c.nc"}}};
  for (const auto& row : cases) {
    list_.FillList(static_cast<ListMode>(row.mode));
    EXPECT_EQ(Names(), row.names) << row.mode;
    EXPECT_EQ(Take().back(), "menus") << "whatever it shows";
  }
}

TEST_F(XplrListTest, AnUnavailableDriveIsNotRead) {
  State().Kind = NodeKind::kUnavailable;
  for (const ListMode mode : {ListMode::kFolder, ListMode::kShares, ListMode::kNothing}) {
    list_.FillList(mode);
    EXPECT_THAT(Names(), IsEmpty());
    EXPECT_THAT(Take(), ElementsAre("view rows", "menus"));
  }
  EXPECT_THAT(Disc().asked, IsEmpty());
  EXPECT_THAT(ground_.network.around->asked, IsEmpty());
}

TEST_F(XplrListTest, ALoadRemovesTheSelectionAndLeavesTheName) {
  Fill();
  list_.OnRowSelected(RowOf(u"a.nc"));
  Fill();
  EXPECT_EQ(list_.Selected(), -1);
  EXPECT_EQ(ToUtf8(State().File), "a.nc");
}

TEST_F(XplrListTest, ClearRemovesRowsAndSelectionAndLeavesTheName) {
  Fill();
  list_.OnRowSelected(RowOf(u"a.nc"));
  Take();
  list_.Clear();
  EXPECT_THAT(Names(), IsEmpty());
  EXPECT_EQ(list_.Selected(), -1);
  EXPECT_EQ(ToUtf8(State().File), "a.nc");
  EXPECT_THAT(Take(), ElementsAre("view rows"));
}

TEST_F(XplrListTest, AFolderThatCannotBeReadShowsNothingAndSaysNothing) {
  Disc().errors[u"C:\\CNC"] = place_error::kNotReady;
  list_.FillList(ListMode::kFolder);
  EXPECT_THAT(Names(), IsEmpty());
  EXPECT_THAT(ground_.Sent(), ElementsAre("menus"));
}

TEST_F(XplrListSteps, RowsOfAnEarlierLoadAreDropped) {
  list_.FillList(ListMode::kFolder);
  State().Path = u"C:\\CNC\\SUB";
  Disc().AddFile(u"C:\\CNC\\SUB\\new.nc");
  list_.FillList(ListMode::kFolder);
  ground_.worker.RunNext();
  EXPECT_THAT(Names(), IsEmpty());
  EXPECT_TRUE(list_.IsLoading());
  ground_.worker.RunAll();
  EXPECT_THAT(Names(), ElementsAre("new.nc"));
  EXPECT_FALSE(list_.IsLoading());
}

TEST_F(XplrListSteps, ClearDropsALoad) {
  list_.FillList(ListMode::kFolder);
  list_.Clear();
  EXPECT_FALSE(list_.IsLoading());
  Take();
  ground_.worker.RunAll();
  EXPECT_THAT(Names(), IsEmpty());
  EXPECT_THAT(Take(), IsEmpty());
}

TEST_F(XplrListSteps, ALoadKeepsWhatWasAskedForWhenItBegan) {
  list_.FillList(ListMode::kFolder);
  State().Path = u"C:\\CNC\\SUB";
  State().Filter = u"*.txt";
  ground_.worker.RunAll();
  EXPECT_EQ(Names().size(), 5u);
}

TEST_F(XplrListSteps, WithoutAWorkerTheListIsEmptyAndNothingHangs) {
  ground_.worker.refuses = true;
  State().File = u"a.nc";
  list_.FirstFill([this] { ++filled_; });
  EXPECT_EQ(filled_, 1);
  EXPECT_THAT(Names(), IsEmpty());
  EXPECT_FALSE(list_.IsLoading());
}

TEST_F(XplrListSteps, AFirstLoadThatIsDroppedStillGoesOn) {
  for (const bool refreshed : {false, true}) {
    filled_ = 0;
    State().File = u"GONE";
    list_.FirstFill([this] { ++filled_; });
    EXPECT_EQ(filled_, 0);
    if (refreshed) {
      list_.FillList(ListMode::kFolder);
    } else {
      list_.Clear();
    }
    EXPECT_EQ(filled_, 1) << "the window still waits for its first focus";
    ground_.worker.RunAll();
    EXPECT_EQ(filled_, 1);
    EXPECT_EQ(list_.Selected(), -1);
    EXPECT_EQ(State().ResultFlags, 0u) << "nobody has looked for the name";
  }
}

TEST_F(XplrListSteps, TheFirstLoadDoesNotUndoWhatTheOperatorTyped) {
  State().File = u"a.nc";
  list_.FirstFill([] {});
  State().File = u"typed";
  ground_.worker.RunAll();
  EXPECT_EQ(ToUtf8(State().File), "typed");
  EXPECT_EQ(list_.Selected(), -1);
  EXPECT_EQ(State().ResultFlags, 0u);
}

TEST_F(XplrListSteps, AFocusThatComesBeforeTheRowsWaitsForThem) {
  State().File = u"old";
  list_.FillList(ListMode::kFolder);
  ground_.view.focused = xplr_control::kList;
  list_.OnFocus();
  EXPECT_EQ(ToUtf8(State().File), "old") << "the name isn't lost while the rows are read";
  ground_.worker.RunAll();
  EXPECT_EQ(SelectedName(), "DEEP");
  EXPECT_THAT(Take(), testing::Contains("view scroll 0"));
  // It doesn't wait for a second load, nor when the focus has gone on.
  list_.FillList(ListMode::kFolder);
  ground_.worker.RunAll();
  EXPECT_EQ(list_.Selected(), -1);
  list_.FillList(ListMode::kFolder);
  list_.OnFocus();
  ground_.view.focused = xplr_control::kName;
  ground_.worker.RunAll();
  EXPECT_EQ(list_.Selected(), -1);
}

TEST_F(XplrListBatches, WhatCameFirstShowsWhileTheRestIsRead) {
  std::vector<std::string> first;
  Disc().betweenBatches = [&] { first = Names(); };
  list_.FillList(ListMode::kFolder);
  ground_.worker.RunAll();
  EXPECT_THAT(first, ElementsAre("b.nc", "c.nc"));
  EXPECT_THAT(Names(), ElementsAre("F", "a.nc", "b.nc", "c.nc"));
  EXPECT_EQ(std::count(ground_.log.begin(), ground_.log.end(), "menus"), 1) << "once it is complete";
}

TEST_F(XplrListBatches, ARowThatIsSelectedBeforeTheRestCameStaysSelected) {
  // With the rest the row gets another index: a folder comes in front.
  for (const TextView name : {u"b.nc", u"c.nc"}) {
    Disc().betweenBatches = [&] { list_.OnRowSelected(RowOf(name)); };
    list_.FillList(ListMode::kFolder);
    ground_.worker.RunAll();
    EXPECT_EQ(SelectedName(), ToUtf8(name));
    EXPECT_TRUE(State().File == name);
  }
}

TEST_F(XplrListBatches, OfAFileThatShowsTwiceTheSelectedRowStaysSelected) {
  State().Filter = u"*.nc,b*";
  for (const std::uint32_t turn : {0u, 1u}) {
    int selected = -1;
    Disc().betweenBatches = [&] {
      for (const XplrRow& row : list_.Rows()) {
        if (row.name == u"b.nc" && (row.index == 0) == (turn == 0))
          selected = static_cast<int>(&row - &list_.Rows()[0]);
      }
      list_.OnRowSelected(selected);
    };
    list_.FillList(ListMode::kFolder);
    ground_.worker.RunAll();
    const XplrRow& row = list_.Rows().at(static_cast<std::size_t>(list_.Selected()));
    EXPECT_EQ(ToUtf8(row.name), "b.nc");
    EXPECT_EQ(row.index, turn == 0 ? 1u : 4u) << "F, b.nc, c.nc, a.nc, b.nc";
  }
}

TEST_F(XplrListBatches, TheFirstLoadKeepsWhatTheOperatorChoseMeanwhile) {
  Disc().betweenBatches = [&] { list_.OnRowSelected(RowOf(u"c.nc")); };
  list_.FirstFill([this] { ++filled_; });
  ground_.worker.RunAll();
  EXPECT_EQ(SelectedName(), "c.nc");
  EXPECT_EQ(ToUtf8(State().File), "c.nc");
  EXPECT_EQ(filled_, 1);
}

TEST_F(XplrListBatches, TheFirstLoadKeepsAFolderThatTheOperatorChoseMeanwhile) {
  Disc().folders[u"C:\\SLOW"] = {{u"b.nc"}, {u"Z", true}, {u"F", true}, {u"a.nc"}};
  Disc().betweenBatches = [&] { list_.OnRowSelected(RowOf(u"Z")); };
  list_.FirstFill([] {});
  ground_.worker.RunAll();
  EXPECT_THAT(Names(), ElementsAre("F", "Z", "a.nc", "b.nc"));
  EXPECT_EQ(SelectedName(), "Z") << "although it gives no name";
}

TEST_F(XplrListBatches, WhatWasTypedStaysWhenTheOtherRowsCome) {
  Disc().betweenBatches = [&] { list_.OnTyped(u"c"); };
  list_.FillList(ListMode::kFolder);
  Take();
  ground_.worker.RunAll();
  EXPECT_EQ(SelectedName(), "c.nc");
  EXPECT_THAT(Take(), testing::Not(testing::Contains("view mark 0")));
  list_.OnTyped(u".");
  EXPECT_THAT(Take(), testing::Contains("view mark 2"));
  list_.SortBy(xplr_command::kSortByName);
  EXPECT_THAT(Take(), testing::Contains("view mark 0"));
}

TEST_F(XplrListBatches, AnOrderThatIsAskedForWhileRowsComeHoldsForAllOfThem) {
  std::vector<std::string> first;
  list_.FillList(ListMode::kFolder);
  list_.SortBy(xplr_command::kSortByName);
  Disc().betweenBatches = [&] { first = Names(); };
  ground_.worker.RunAll();
  EXPECT_THAT(first, ElementsAre("c.nc", "b.nc"));
  EXPECT_THAT(Names(), ElementsAre("F", "c.nc", "b.nc", "a.nc"));
}

TEST_F(XplrListBatches, ALoadThatIsDroppedReadsNoFurtherBatch) {
  int batches = 0;
  Disc().batch = 3;
  Disc().betweenBatches = [&] {
    if (++batches == 1) list_.Clear();
  };
  Disc().folders[u"C:\\SLOW"].resize(30, {u"x.nc"});
  list_.FillList(ListMode::kFolder);
  ground_.worker.RunAll();
  EXPECT_EQ(batches, 1);
  EXPECT_THAT(Names(), IsEmpty());
}

// ---------------------------------------------------------------- sorting

TEST_F(XplrListTest, SortingKeepsTheSelectionAndScrollsToIt) {
  Fill();
  list_.OnRowSelected(RowOf(u"a.nc"));
  Take();
  list_.SortBy(xplr_command::kSortByExtension);
  EXPECT_THAT(Names(), ElementsAre("DEEP", "SUB", "a.nc", "c.nc", "b.txt"));
  EXPECT_EQ(SelectedName(), "a.nc");
  EXPECT_THAT(Take(), ElementsAre("view rows", "view row 2", "view scroll 2", "menus"));
  list_.SortBy(xplr_command::kSortByExtension);
  EXPECT_THAT(Names(), ElementsAre("DEEP", "SUB", "b.txt", "a.nc", "c.nc")) << "equal ones by name, as that is sorted";
  EXPECT_EQ(SelectedName(), "a.nc");
  EXPECT_THAT(Take(), ElementsAre("view rows", "view row 3", "view scroll 3", "menus"));
  EXPECT_EQ(ToUtf8(State().File), "a.nc");
}

TEST_F(XplrListTest, SortingWithoutASelectionSelectsNothing) {
  Fill();
  list_.SortBy(xplr_command::kSortByName);
  EXPECT_THAT(Names(), ElementsAre("SUB", "DEEP", "c.nc", "b.txt", "a.nc"));
  EXPECT_THAT(Take(), ElementsAre("view rows", "menus"));
}

TEST_F(XplrListTest, TheSortedColumnTurnsRoundAndAnotherOneMakesAllAscending) {
  const auto sorted = [&](int command, SortColumn column, std::array<bool, 4> ascending) {
    list_.SortBy(command);
    EXPECT_EQ(list_.Sort(), (SortState{ascending, column})) << command;
  };
  sorted(32770, SortColumn::kName, {false, true, true, true});
  sorted(32772, SortColumn::kDate, {true, true, true, true});
  sorted(32772, SortColumn::kDate, {true, true, false, true});
  sorted(32772, SortColumn::kDate, {true, true, true, true});
  sorted(32771, SortColumn::kSize, {true, true, true, true});
  sorted(32773, SortColumn::kExtension, {true, true, true, true});
  sorted(99999, SortColumn::kExtension, {true, true, true, false});  // counts as the last
  sorted(0, SortColumn::kName, {true, true, true, true});            // and as the first
}

TEST_F(XplrListTest, AClickOnAHeaderSortsByItsColumn) {
  const struct {
    int column;
    SortColumn sorted;
  } cases[] = {{1, SortColumn::kSize}, {2, SortColumn::kDate}, {0, SortColumn::kName}};
  for (const auto& row : cases) {
    list_.OnHeaderClicked(row.column);
    EXPECT_EQ(list_.Sort(), (SortState{{true, true, true, true}, row.sorted}));
  }
  list_.OnHeaderClicked(0);
  EXPECT_FALSE(list_.Sort().Ascending(SortColumn::kName)) << "the second click turns it round";
  const SortState before = list_.Sort();
  for (const int column : {-1, 3, 4}) list_.OnHeaderClicked(column);
  EXPECT_EQ(list_.Sort(), before) << "the extension has no column";
}

TEST_F(XplrListSteps, MoreRowsThanAreSortedAtOnceAreSortedBesideTheWindow) {
  FillMany();
  list_.FillList(ListMode::kFolder);
  ground_.worker.RunAll();
  list_.OnRowSelected(0);
  Take();
  list_.SortBy(xplr_command::kSortByName);
  EXPECT_EQ(ground_.worker.Waits(), 1u);
  EXPECT_EQ(Names().front(), "f00000.nc");
  EXPECT_THAT(Take(), ElementsAre("menus"));
  list_.OnRowSelected(1);
  ground_.worker.RunAll();
  EXPECT_EQ(Names().front(), "f03000.nc");
  EXPECT_EQ(SelectedName(), "f00001.nc") << "what is selected when the order comes";
  EXPECT_EQ(list_.Selected(), 2999);
}

TEST_F(XplrListSteps, ManyRowsThatAreReplacedAreDestroyedBesideTheWindow) {
  // A new order of a hundred thousand rows held the window up for three frames: it destroyed the names of the old one.
  FillMany();
  list_.FillList(ListMode::kFolder);
  ground_.worker.RunAll();
  for (const bool sorts : {true, false}) {
    std::weak_ptr<const XplrRows> before = ground_.view.rows;
    if (sorts) {
      list_.SortBy(xplr_command::kSortByName);
      ground_.worker.RunNext();
    } else {
      list_.Clear();
    }
    EXPECT_EQ(ground_.worker.Waits(), 1u);
    EXPECT_FALSE(before.expired());
    ground_.worker.RunNext();
    EXPECT_TRUE(before.expired());
  }
}

TEST_F(XplrListSteps, WithoutAWorkerManyRowsAreDestroyedAtOnce) {
  FillMany();
  list_.FillList(ListMode::kFolder);
  ground_.worker.RunAll();
  const std::weak_ptr<const XplrRows> before = ground_.view.rows;
  ground_.worker.refuses = true;
  list_.Clear();
  EXPECT_TRUE(before.expired());
}

TEST_F(XplrListSteps, AsManyRowsAsAreSortedAtOnceAskNobody) {
  FillMany(kMany - 1);
  list_.FillList(ListMode::kFolder);
  ground_.worker.RunAll();
  list_.SortBy(xplr_command::kSortByName);
  EXPECT_EQ(ground_.worker.Waits(), 0u);
  EXPECT_EQ(Names().front(), "f02999.nc");
}

TEST_F(XplrListSteps, AnOrderThatComesTooLateIsDropped) {
  FillMany();
  list_.FillList(ListMode::kFolder);
  ground_.worker.RunAll();
  list_.SortBy(xplr_command::kSortByName);
  list_.SortBy(xplr_command::kSortByName);
  ground_.worker.RunNext();
  EXPECT_EQ(Names().front(), "f00000.nc") << "descending isn't wanted any more";
  ground_.worker.RunAll();
  EXPECT_EQ(Names().front(), "f00000.nc");
  list_.SortBy(xplr_command::kSortByName);
  State().Path = u"C:\\CNC";
  list_.FillList(ListMode::kFolder);
  ground_.worker.RunAll();
  EXPECT_THAT(Names(), ElementsAre("SUB", "DEEP", "c.nc", "b.txt", "a.nc"));
  list_.SortBy(xplr_command::kSortByName);
  FillMany();
  list_.FillList(ListMode::kFolder);
  ground_.worker.RunAll();
  list_.SortBy(xplr_command::kSortByName);
  list_.Clear();
  ground_.worker.RunAll();
  EXPECT_THAT(Names(), IsEmpty());
}

TEST_F(XplrListSteps, WithoutAWorkerManyRowsAreSortedAtOnce) {
  FillMany();
  list_.FillList(ListMode::kFolder);
  ground_.worker.RunAll();
  ground_.worker.refuses = true;
  list_.SortBy(xplr_command::kSortByName);
  EXPECT_EQ(Names().front(), "f03000.nc");
}

// ---------------------------------------------------------------- the selection

TEST_F(XplrListTest, TheFocusTakesTheFirstRow) {
  Fill();
  list_.OnFocus();
  EXPECT_EQ(list_.Selected(), 0);
  EXPECT_THAT(Take(), ElementsAre("view row 0", "view scroll 0", "send form XPLR_UPDATE_CAPTION ' Pick = '"));
  list_.OnRowSelected(RowOf(u"b.txt"));
  Take();
  State().File = u"typed";
  list_.OnFocus();
  EXPECT_EQ(SelectedName(), "b.txt");
  EXPECT_EQ(ToUtf8(State().File), "b.txt") << "the selected row's name comes back";
  EXPECT_THAT(Take(), ElementsAre("send form XPLR_UPDATE_CAPTION ' Pick = b.txt'"));
}

TEST_F(XplrListTest, TheFocusOnAnEmptyListEmptiesTheName) {
  Disc().folders[u"C:\\CNC"].clear();
  Fill();
  State().File = u"old";
  list_.OnFocus();
  EXPECT_TRUE(State().File.empty());
  EXPECT_THAT(Take(), ElementsAre("send form XPLR_UPDATE_CAPTION ' Pick = '"));
}

TEST_F(XplrListTest, BeforeTheFirstLoadTheSelectionHasNoEffect) {
  State().File = u"old";
  list_.OnFocus();
  list_.OnRowSelected(0);
  EXPECT_EQ(ToUtf8(State().File), "old");
  EXPECT_THAT(Take(), IsEmpty());
}

TEST_F(XplrListTest, OnlyARowThatCanBeChosenGivesTheName) {
  const struct {
    std::uint32_t flags;
    TextView row;
    TextView file;
  } cases[] = {
      {0, u"a.nc", u"a.nc"}, {0, u"SUB", u""}, {XPLR_FOLDERMODE, u"SUB", u"SUB"}, {XPLR_FOLDERMODE, u"a.nc", u""}};
  for (const auto& row : cases) {
    State().Flags = row.flags;
    Fill();
    State().File = u"old";
    list_.OnRowSelected(RowOf(row.row));
    EXPECT_EQ(list_.Selected(), RowOf(row.row)) << "it is selected all the same";
    EXPECT_TRUE(State().File == row.file) << ToUtf8(row.row);
    EXPECT_THAT(Take(), ElementsAre("send form XPLR_UPDATE_CAPTION ' Pick = " + ToUtf8(row.file) + "'"));
  }
}

TEST_F(XplrListTest, WhenFoldersAreChosenAFileCanBeSelectedAndTheNameGoesEmpty) {
  State().Flags = XPLR_FOLDERMODE;
  Fill();
  list_.OnRowSelected(RowOf(u"SUB"));
  list_.OnRowSelected(RowOf(u"a.nc"));
  EXPECT_EQ(SelectedName(), "a.nc");
  EXPECT_TRUE(State().File.empty());
}

TEST_F(XplrListTest, ARowThatThereIsntIsIgnored) {
  Fill();
  list_.OnRowSelected(RowOf(u"a.nc"));
  Take();
  for (const int row : {-1, -2, 5, 1000}) list_.OnRowSelected(row);
  EXPECT_EQ(SelectedName(), "a.nc");
  EXPECT_THAT(Take(), IsEmpty());
}

TEST_F(XplrListTest, TheCaptionHasAtMost520Characters) {
  Disc().AddFile(u"C:\\CNC\\" + Text(250, u'x'));
  State().Title = Text(400, u't');
  Fill();
  list_.OnRowSelected(RowOf(Text(250, u'x')));
  EXPECT_EQ(Take().front().size(), std::string("send form XPLR_UPDATE_CAPTION ''").size() + 520);
}

// ---------------------------------------------------------------- clicks

TEST_F(XplrListTest, AClickTakesAnotherRowAndAlwaysTheFocus) {
  Fill();
  list_.OnClick(3);
  EXPECT_EQ(SelectedName(), "b.txt");
  EXPECT_THAT(Take(), ElementsAre("view row 3", "send form XPLR_UPDATE_CAPTION ' Pick = b.txt'", "view focus 1107"));
  State().File = u"typed";
  list_.OnClick(3);
  EXPECT_EQ(ToUtf8(State().File), "typed") << "the focus alone brings the name back";
  EXPECT_THAT(Take(), ElementsAre("view focus 1107"));
  for (const int row : {-1, 5}) {
    list_.OnClick(row);
    EXPECT_EQ(SelectedName(), "b.txt");
    EXPECT_THAT(Take(), ElementsAre("view focus 1107"));
  }
}

struct DoubleClickCase {
  std::uint32_t flags;
  TextView selected;
  TextView clicked;  // empty: outside the rows
  bool dialog;
  Log log;
  TextView after;  // File
};

TEST_F(XplrListTest, ADoubleClickStepsIntoAFolderOrAcceptsAFile) {
  const std::uint32_t listOnly = XPLR_LISTONLY;
  const std::uint32_t folders = XPLR_FOLDERMODE;
  const DoubleClickCase cases[] = {
      // With a find dialog open, whatever is clicked.
      {0, u"a.nc", u"a.nc", true, {"view focus dialog"}, u"a.nc"},
      {0, u"SUB", u"SUB", true, {"view focus dialog"}, u""},
      {0, u"SUB", u"a.nc", true, {"view focus dialog"}, u""},
      {0, u"a.nc", u"", true, {"view focus dialog"}, u"a.nc"},
      // Outside the rows.
      {0, u"a.nc", u"", false, {"view focus 1107"}, u"a.nc"},
      // Another row: as a click.
      {0,
       u"SUB",
       u"a.nc",
       false,
       {"view row 2", "send form XPLR_UPDATE_CAPTION ' Pick = a.nc'", "view focus 1107"},
       u"a.nc"},
      {0, u"a.nc", u"SUB", false, {"view row 1", "send form XPLR_UPDATE_CAPTION ' Pick = '", "view focus 1107"}, u""},
      // The selected folder.
      {0, u"SUB", u"SUB", false, {"post form XPLR_UPDATE_TREE"}, u"SUB"},
      {folders, u"SUB", u"SUB", false, {"post form XPLR_UPDATE_TREE"}, u"SUB"},
      {listOnly, u"SUB", u"SUB", false, {}, u""},
      {listOnly | folders, u"SUB", u"SUB", false, {}, u"SUB"},
      // The selected file, if it can be chosen.
      {0, u"a.nc", u"a.nc", false, {"view enter"}, u"a.nc"},
      {listOnly, u"a.nc", u"a.nc", false, {"view enter"}, u"a.nc"},
      {folders, u"a.nc", u"a.nc", false, {}, u""},
      {folders | listOnly, u"a.nc", u"a.nc", false, {}, u""},
  };
  for (const DoubleClickCase& row : cases) {
    State().Flags = row.flags;
    State().FindDialog = 0;
    Fill();
    list_.OnRowSelected(RowOf(row.selected));
    Take();
    if (row.dialog) State().FindDialog = 5;
    list_.OnDoubleClick(RowOf(row.clicked));
    const std::string what = std::to_string(row.flags) + ": " + ToUtf8(row.selected) + ", then " + ToUtf8(row.clicked);
    EXPECT_EQ(Take(), row.log) << what;
    EXPECT_TRUE(State().File == row.after) << what;
  }
}

TEST_F(XplrListTest, TheFolderSearchDoesNotKeepADoubleClick) {
  Fill();
  list_.OnRowSelected(RowOf(u"a.nc"));
  State().FolderDialog = 6;
  Take();
  list_.OnDoubleClick(RowOf(u"a.nc"));
  EXPECT_THAT(Take(), ElementsAre("view enter"));
}

// ---------------------------------------------------------------- the search

TEST_F(XplrListTest, ASearchSelectsScrollsAndTellsTheDialog) {
  Fill();
  list_.SetSearch(u".nc");
  const struct {
    bool forward;
    Log log;
    const char* selected;
  } steps[] = {
      {true,
       {"view row 2", "view scroll 2", "send form XPLR_UPDATE_CAPTION ' Pick = a.nc'", "send find XPLR_FIND_RESULT 1"},
       "a.nc"},
      {true,
       {"view row 4", "view scroll 4", "send form XPLR_UPDATE_CAPTION ' Pick = c.nc'", "send find XPLR_FIND_RESULT 1"},
       "c.nc"},
      {true,
       {"view row 2", "view scroll 2", "send form XPLR_UPDATE_CAPTION ' Pick = a.nc'", "send find XPLR_FIND_RESULT 1"},
       "a.nc"},
      {false,
       {"view row 4", "view scroll 4", "send form XPLR_UPDATE_CAPTION ' Pick = c.nc'", "send find XPLR_FIND_RESULT 1"},
       "c.nc"},
  };
  for (const auto& step : steps) {
    list_.SearchList(step.forward);
    EXPECT_EQ(Take(), step.log);
    EXPECT_EQ(SelectedName(), step.selected);
    EXPECT_EQ(ToUtf8(State().File), step.selected);
  }
  EXPECT_EQ(ToUtf8(list_.Search()), ".NC");
}

TEST_F(XplrListTest, WhatASearchFindsEndsWhatWasTyped) {
  Fill();
  list_.OnTyped(u"b");
  list_.SetSearch(u"c.nc");
  Take();
  list_.SearchList(true);
  EXPECT_EQ(Take(), (Log{"view mark 0", "view row 4", "view scroll 4", "send form XPLR_UPDATE_CAPTION ' Pick = c.nc'",
                         "send find XPLR_FIND_RESULT 1"}));
}

TEST_F(XplrListTest, ASearchThatFindsOnlyTheSelectedRowOrNoneChangesNothing) {
  Fill();
  list_.OnRowSelected(RowOf(u"b.txt"));
  for (const auto& [text, log] : {std::pair<TextView, const char*>{u"TXT", "send find XPLR_FIND_RESULT 2"},
                                  {u"none", "send find XPLR_FIND_RESULT"}}) {
    Take();
    list_.SetSearch(Text(text));
    for (const bool forward : {true, false}) {
      list_.SearchList(forward);
      EXPECT_THAT(Take(), ElementsAre(log));
    }
  }
  EXPECT_EQ(SelectedName(), "b.txt");
}

TEST_F(XplrListTest, WithoutTextOrRowsNothingIsSearched) {
  Fill();
  list_.SearchList(true);
  list_.SetSearch(u"a");
  Fill(ListMode::kNothing);
  list_.SearchList(true);
  EXPECT_THAT(Take(), IsEmpty());
}

TEST_F(XplrListTest, FindWrapsFromTheLastRowToRow0) {
  Fill();
  list_.OnRowSelected(4);
  list_.SetSearch(u"e");
  list_.SearchList(true);
  EXPECT_EQ(list_.Selected(), 0);
}

// ---------------------------------------------------------------- the end

TEST(XplrListEnd, WorkThatIsStillUnderWayTouchesNothingOfTheSession) {
  // The works run when everything that they were started from is gone. The sanitizers see what they touch.
  SteppedWorker worker;
  auto ground = std::make_unique<XplrGround<>>();
  const auto disc = ground->places.disc;
  disc->folders[u"C:\\MANY"].resize(kMany, {u"x.nc"});
  disc->batch = 1000;
  auto jobs = std::make_unique<XplrJobs>(worker, XplrSteps([](const std::function<void()>& step) { step(); }));
  auto folders = std::make_unique<XplrFolders>(ground->places, ground->network, *jobs);
  auto list = std::make_unique<XplrList>(
      XplrList::Links{ground->state, ground->places, ground->network, *jobs, ground->posts, ground->access, [] {}},
      std::chrono::milliseconds(0));
  ground->state.Path = u"C:\\MANY";
  ground->state.Filter = u"*";
  list->FillList(ListMode::kFolder);
  worker.RunAll();
  ASSERT_EQ(list->Rows().size(), kMany);
  list->SortBy(xplr_command::kSortByName);
  list->FirstFill([text = Text(100, u'x')] { ADD_FAILURE() << ToUtf8(text); });
  list->SortBy(xplr_command::kSortByName);
  folders->Classify(u"C:\\MANY", 1, [](Outcome) { ADD_FAILURE(); });
  folders->LookAt(u"C:\\MANY", [](const FileFacts&) { ADD_FAILURE(); });
  folders->ListFolders(u"C:\\MANY", [](const std::vector<Text>&) { ADD_FAILURE(); });
  folders->EnumerateTop([](const std::vector<NetworkResource>&) { ADD_FAILURE(); });
  folders->Enumerate({}, [](const Neighbours&) { ADD_FAILURE(); });
  list.reset();
  folders.reset();
  jobs.reset();
  ground.reset();
  EXPECT_GE(worker.Waits(), 6u);
  worker.RunAll();
}

// ---------------------------------------------------------------- any session

TEST_F(XplrListSteps, InAnySessionNameCaptionAndSelectionAgree) {
  std::mt19937 random(20);
  const auto pick = [&random](int count) { return static_cast<int>(random() % static_cast<unsigned>(count)); };
  std::string caption;
  bool told = false;  // the last word on the name was the selection's
  for (int step = 0; step < 6000; ++step) {
    const int row = pick(8) - 1;
    const int action = pick(12);
    if (action == 0) {
      State().Path = pick(2) == 0 ? u"C:\\CNC" : u"C:\\CNC\\GONE";
      list_.FillList(static_cast<ListMode>(pick(3)));
      told = false;
    } else if (action == 1 && pick(10) == 0) {
      list_.Clear();
      told = false;
    } else if (action == 2) {
      State().Flags = pick(2) == 0 ? 0u : std::uint32_t{XPLR_FOLDERMODE};
      list_.FillList(ListMode::kFolder);  // flags belong to the rows
      told = false;
    } else if (action == 3) {
      list_.SortBy(xplr_command::kSortByName + pick(4));
    } else if (action == 4) {
      list_.SetSearch(pick(2) == 0 ? u"c" : u"x");
      list_.SearchList(pick(2) == 0);
    } else if (action == 5) {
      list_.OnFocus();
    } else if (action == 6) {
      list_.OnClick(row);
    } else if (action == 7) {
      list_.OnRowSelected(row);
    } else if (action == 8) {
      State().FindDialog = pick(4) == 0 ? 5 : 0;
      list_.OnDoubleClick(row);
    } else {
      ground_.worker.RunNext();
    }
    const Log log = Take();
    for (const std::string& line : log) {
      if (line.starts_with("send form XPLR_UPDATE_CAPTION")) caption = line, told = true;
      if (line == "post form XPLR_UPDATE_TREE") {
        ASSERT_EQ(ToUtf8(State().File), SelectedName());
        told = false;  // the name is the folder's until the tree has stepped into it
      }
    }
    ASSERT_LT(list_.Selected(), static_cast<int>(list_.Rows().size()));
    ASSERT_GE(list_.Selected(), -1);
    if (!told) continue;
    const bool named = list_.Selected() >= 0 && list_.Rows()[static_cast<std::size_t>(list_.Selected())].IsSelectable();
    ASSERT_EQ(ToUtf8(State().File), named ? SelectedName() : "") << "step " << step << ", action " << action;
    ASSERT_EQ(caption, "send form XPLR_UPDATE_CAPTION ' Pick = " + ToUtf8(State().File) + "'") << "step " << step;
  }
}

}  // namespace
}  // namespace pnl::test
