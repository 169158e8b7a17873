// SPDX-License-Identifier: MIT
// The MDA list: its commands with their oddities, edits of items, Enter.
#include "mdi_fixture.h"

namespace pnl::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Focus = FakeMdiView::Focus;

class MdiList : public MdiTest {
 protected:
  /// What the store holds, seen through the file at the end.
  [[nodiscard]] std::string Stored() {
    const std::string before = files.disc["C:\\P108\\MDAC1.DAT"];
    DestroyTool();
    return files.disc["C:\\P108\\MDAC1.DAT"];
  }
  void OpenAbc() {
    OpenMda("A\r\nB\r\nC\r\n");
    files.replaced.clear();
  }
  [[nodiscard]] bool ListFileWritten() {
    DestroyTool();
    return std::find(files.replaced.begin(), files.replaced.end(), "C:\\P108\\MDAC1.DAT") != files.replaced.end();
  }
};

TEST_F(MdiList, DeletingTakesTheItemOutOfTheBoxOnlyAndLeavesTheStoreClean) {
  OpenAbc();
  view->selected = 1;
  Menu(32771);
  EXPECT_THAT(All(), ElementsAre("view list delete 1", "view list select 1", "HostUpdateMainMenu(6)"));
  EXPECT_THAT(view->Items(), ElementsAre("A", "C"));
  EXPECT_FALSE(ListFileWritten());
}

TEST_F(MdiList, ADeletedItemIsBackAtTheNextLoad) {
  OpenAbc();
  Menu(32771);
  MakeTool();
  Open();
  EXPECT_THAT(view->Items(), ElementsAre("A", "B", "C"));
}

TEST_F(MdiList, ADeletedItemIsStoredAlongWhenAnotherCommandMarksTheList) {
  OpenAbc();
  Menu(32771);
  Menu(32773);
  Type("M3");
  view->selected = -1;
  static_cast<void>(Key(MdiKey::kEnter));
  EXPECT_EQ(Stored(), "A\r\nB\r\nC\r\nM3\r\n");
}

TEST_F(MdiList, DeletingTheLastItemSelectsTheOneThatIsLastThen) {
  OpenAbc();
  view->selected = 2;
  Menu(32771);
  EXPECT_EQ(view->selected, 1);
  Menu(32771);
  EXPECT_EQ(view->selected, 0);
  Menu(32771);
  EXPECT_EQ(view->selected, -1);
  EXPECT_THAT(view->Items(), IsEmpty());
  Forget();
  Menu(32771);
  EXPECT_THAT(All(), IsEmpty());
}

TEST_F(MdiList, ChangeNeedsASelectedItem) {
  OpenAbc();
  view->selected = -1;
  Forget();
  Menu(32772);
  EXPECT_THAT(All(), IsEmpty());
}

TEST_F(MdiList, ChangeBringsTheItemIntoTheEdit) {
  OpenAbc();
  view->selected = 2;
  Menu(32772);
  EXPECT_THAT(All(), ElementsAre("view edit \"C\"", "view select 1,1", "view writable", "view focus edit",
                                 "view select 1,1", "view scroll caret", "view redraw edit", "HostUpdateMainMenu(6)"));
}

TEST_F(MdiList, AChangedItemThatIsNotSelectedAnyMoreIsAppendedSoThatNoBlockIsLost) {
  OpenMda("A\r\nB\r\n");
  view->selected = 1;
  Menu(32772);
  Type("B2");
  cnc.kernel.returns["MDILine"] = 5;
  Start();
  view->selected = -1;
  cnc.kernel.returns["MDILine"] = 0;
  Start();
  Status(2);
  Status(1);
  DestroyTool();
  EXPECT_EQ(Disc("MDAC1.DAT"), "A\r\nB\r\nB2\r\n");
}

TEST_F(MdiList, NewClearsTheSelectionOfTheEdit) {
  OpenAbc();
  Menu(32773);
  EXPECT_THAT(All(), ElementsAre("view select -1,-1", "view writable", "view focus edit", "view select -1,-1",
                                 "view scroll caret", "view redraw edit", "HostUpdateMainMenu(6)"));
}

TEST_F(MdiList, EndOfEditEmptiesTheEditAndGoesBackToTheList) {
  OpenAbc();
  Menu(32773);
  Type("half");
  Forget();
  Menu(32774);
  EXPECT_EQ(view->edit, u"");
  EXPECT_EQ(view->focus, Focus::kList);
  EXPECT_TRUE(view->readOnly);
  EXPECT_THAT(Asked(), ElementsAre("HostUpdateMainMenu(6)", "HostUpdateMainMenu(6)"));
  EXPECT_FALSE(ListFileWritten());
}

TEST_F(MdiList, TheFocusOnTheListEndsAnEdit) {
  OpenAbc();
  Menu(32772);
  Forget();
  view->Move(Focus::kList);
  EXPECT_THAT(All(), ElementsAre("view redraw edit", "view edit \"\"", "view read-only", "view redraw edit",
                                 "HostUpdateMainMenu(6)"));
  EXPECT_EQ(MdaItem(32774), nullptr);
}

TEST_F(MdiList, ClearEmptiesBoxAndStore) {
  OpenAbc();
  Menu(32776);
  EXPECT_THAT(All(), ElementsAre("view fill list", "HostUpdateMainMenu(6)"));
  EXPECT_THAT(view->Items(), IsEmpty());
  EXPECT_EQ(Stored(), "");
}

struct MoveRow {
  int command;
  int from;
  int to;
  const char* items;
};

class MdiMove : public MdiList, public testing::WithParamInterface<MoveRow> {};

TEST_P(MdiMove, JoinsBothEnds) {
  OpenAbc();
  view->selected = GetParam().from;
  Menu(GetParam().command);
  EXPECT_EQ(view->selected, GetParam().to);
  std::string shown;
  for (const std::string& item : view->Items()) shown += item + "\r\n";
  EXPECT_EQ(shown, GetParam().items);
  EXPECT_EQ(Stored(), GetParam().items);
}

INSTANTIATE_TEST_SUITE_P(
    AllPlaces, MdiMove,
    testing::Values(MoveRow{40003, 1, 0, "B\r\nA\r\nC\r\n"}, MoveRow{40003, 2, 1, "A\r\nC\r\nB\r\n"},
                    MoveRow{40003, 0, 2, "B\r\nC\r\nA\r\n"}, MoveRow{40004, 0, 1, "B\r\nA\r\nC\r\n"},
                    MoveRow{40004, 1, 2, "A\r\nC\r\nB\r\n"}, MoveRow{40004, 2, 0, "C\r\nA\r\nB\r\n"}));

TEST_F(MdiList, MovingNeedsASelectedItem) {
  OpenAbc();
  view->selected = -1;
  Menu(40003);
  Menu(40004);
  EXPECT_THAT(All(), IsEmpty());
}

TEST_F(MdiList, MovingTheOnlyItemLeavesIt) {
  OpenMda("A\r\n");
  for (const int id : {40003, 40004}) {
    Menu(id);
    EXPECT_THAT(view->Items(), ElementsAre("A"));
    EXPECT_EQ(view->selected, 0);
  }
}

TEST_F(MdiList, MovingAfterADeletionLosesNothingOfTheStore) {
  OpenAbc();
  Menu(32771);
  view->selected = 1;
  Menu(40004);
  EXPECT_THAT(view->Items(), ElementsAre("C", "B"));
  std::string stored = Stored();
  EXPECT_EQ(stored.size(), 9u);
  for (const char item : {'A', 'B', 'C'}) EXPECT_NE(stored.find(item), std::string::npos);
}

TEST_F(MdiList, MovingUpFromTheTopGoesToTheEndOfTheStoreTooAlthoughItIsLonger) {
  OpenAbc();
  Menu(32771);
  view->selected = 0;
  Menu(40003);
  EXPECT_THAT(view->Items(), ElementsAre("C", "B"));
  EXPECT_EQ(Stored(), "B\r\nC\r\nA\r\n");
}

TEST_F(MdiList, EnterOnAnItemChangesItAndWithoutOneBeginsANewOne) {
  OpenAbc();
  EXPECT_TRUE(Key(MdiKey::kEnter));
  EXPECT_EQ(view->edit, u"A");
  Menu(32774);
  view->selected = -1;
  EXPECT_TRUE(Key(MdiKey::kEnter));
  EXPECT_EQ(view->edit, u"");
  EXPECT_EQ(view->focus, Focus::kEdit);
}

TEST_F(MdiList, EnterStoresANewItemWithoutRunningItAndWithoutHistory) {
  OpenAbc();
  view->selected = 1;
  Menu(32773);
  Type("M3");
  Forget();
  EXPECT_TRUE(Key(MdiKey::kEnter));
  for (const std::string& line : Asked()) EXPECT_EQ(line, "HostUpdateMainMenu(6)");
  EXPECT_THAT(view->Items(), ElementsAre("A", "M3", "B", "C"));
  EXPECT_EQ(view->edit, u"");
  EXPECT_EQ(view->focus, Focus::kList);
  EXPECT_EQ(Stored(), "A\r\nM3\r\nB\r\nC\r\n");
  EXPECT_EQ(Disc("MDIC1.DAT"), "");
}

TEST_F(MdiList, EnterReplacesAChangedItemWithoutHistory) {
  OpenAbc();
  view->selected = 2;
  Menu(32772);
  Type("C2");
  EXPECT_TRUE(Key(MdiKey::kEnter));
  EXPECT_EQ(view->selected, 2);
  EXPECT_EQ(Stored(), "A\r\nB\r\nC2\r\n");
  EXPECT_EQ(Disc("MDIC1.DAT"), "");
}

TEST_F(MdiList, EnterOnAnEmptyEditStoresNothingAndStaysInTheEdit) {
  OpenAbc();
  Menu(32773);
  EXPECT_TRUE(Key(MdiKey::kEnter));
  EXPECT_THAT(view->Items(), ElementsAre("A", "B", "C"));
  EXPECT_NE(MdaItem(32774), nullptr);
}

TEST_F(MdiList, EnterWhileABlockRunsKeepsTheBlockInHand) {
  OpenAbc();
  Start();
  EXPECT_TRUE(Key(MdiKey::kEnter));
  Status(1);
  Command(8);
  EXPECT_THAT(HistoryShown(), ElementsAre("A"));
}

TEST_F(MdiList, ShowingAgainDuringAChangeStillReplacesTheItem) {
  OpenAbc();
  view->selected = 1;
  Menu(32772);
  Type("B2");
  Command(3);
  Command(4);
  EXPECT_EQ(view->edit, u"B2");
  EXPECT_FALSE(view->readOnly);
  EXPECT_TRUE(Key(MdiKey::kEnter));
  EXPECT_THAT(view->Items(), ElementsAre("A", "B2", "C"));
}

TEST_F(MdiList, ShowingAgainKeepsTheSelectedItem) {
  OpenAbc();
  view->selected = 2;
  Command(3);
  Command(4);
  EXPECT_EQ(view->selected, 2);
}

TEST_F(MdiList, ShowingAgainKeepsTheFirstItemSelected) {
  OpenAbc();
  ASSERT_EQ(view->selected, 0);
  Command(3);
  Command(4);
  EXPECT_EQ(view->selected, 0);
}

// What the session itself has taken back is not put into a list that has come into being meanwhile.
TEST_F(MdiList, OnlyWhatTheSessionStillHasGoesIntoAListThatCameIntoBeing) {
  const auto store = [this](const char* text) {
    Menu(32773);
    Type(text);
    EXPECT_TRUE(Key(MdiKey::kEnter));
  };
  OpenMda();
  store("OLD");
  view->selected = 0;
  Menu(32772);
  Type("NEW");
  EXPECT_TRUE(Key(MdiKey::kEnter));
  files.disc["C:\\P108\\MDAC1.DAT"] = "THEIRS\r\n";
  DestroyTool();
  EXPECT_EQ(Disc("MDAC1.DAT"), "NEW\r\nTHEIRS\r\n");
  files.disc.erase("C:\\P108\\MDAC1.DAT");
  MakeTool();
  OpenMda();
  store("GONE");
  Menu(32776);
  files.disc["C:\\P108\\MDAC1.DAT"] = "THEIRS\r\n";
  DestroyTool();
  EXPECT_EQ(Disc("MDAC1.DAT"), "THEIRS\r\n");
}

TEST_F(MdiList, AStoredChangeHasNoItemInHandAnyMore) {
  OpenAbc();
  view->selected = 1;
  Menu(32772);
  Type("B2");
  EXPECT_TRUE(Key(MdiKey::kEnter));
  Command(8);
  Command(4);
  EXPECT_EQ(view->selected, -1);
}

TEST_F(MdiList, ShowingAgainBringsDeletedItemsBack) {
  OpenAbc();
  Menu(32771);
  Command(4);
  EXPECT_THAT(view->Items(), ElementsAre("A", "B", "C"));
}

TEST_F(MdiList, ClosingDuringAnEditEndsIt) {
  OpenAbc();
  Menu(32773);
  Type("half");
  EXPECT_EQ(Command(5), 0);
  EXPECT_EQ(view->edit, u"");
  EXPECT_EQ(MdaItem(32774), nullptr);
}

TEST_F(MdiList, Code7InTheListSelectsTheFirstItem) {
  OpenAbc();
  view->selected = 2;
  view->Move(Focus::kElsewhere);
  EXPECT_EQ(Command(7), 0);
  EXPECT_EQ(view->selected, 0);
  EXPECT_EQ(view->focus, Focus::kList);
}

TEST_F(MdiList, Code7DuringAnEditGoesToTheEdit) {
  OpenAbc();
  Menu(32772);
  view->Move(Focus::kElsewhere);
  Command(7);
  EXPECT_EQ(view->focus, Focus::kEdit);
}

}  // namespace
}  // namespace pnl::test
