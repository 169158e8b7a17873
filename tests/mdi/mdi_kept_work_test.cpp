// SPDX-License-Identifier: MIT
// What a host keeps for the operator of the command line: the text that isn't finished, and what was removed from the
// list.
#include "host/kept_work.h"
#include "mdi_fixture.h"

namespace pnl::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr int kDelete = 32771;
constexpr int kChange = 32772;
constexpr int kNew = 32773;
constexpr int kClear = 32776;

class MdiKeptWork : public MdiTest {
 protected:
  std::intptr_t Tell(const char* name, std::intptr_t first, void* record) {
    return Send(RegisterMessage(name), first, reinterpret_cast<std::intptr_t>(record));
  }
  /// Kind, item, text and original in words.
  std::string Unfinished() {
    PnlUnfinished record{};
    EXPECT_EQ(Tell(PNL_NAME_READ_UNFINISHED, 0, &record), 1);
    return std::to_string(record.kind) + " " + std::to_string(record.item) + " '" + ToUtf8(record.text) + "' '" +
           ToUtf8(record.original) + "'";
  }
  std::intptr_t Restore(PnlUnfinishedKind kind, TextView text, int item = -1, TextView original = {}) {
    PnlUnfinished record{};
    FillUnfinished(record, kind, text, item, original);
    return Tell(PNL_NAME_RESTORE_UNFINISHED, 0, &record);
  }
  std::string Removed() {
    PnlRemoved record{};
    const std::intptr_t rows = Tell(PNL_NAME_REMOVED, PNL_REMOVED_READ, &record);
    return std::to_string(rows) + (record.whole != 0 ? " whole '" : " '") + ToUtf8(record.text) + "'";
  }
  std::intptr_t PutBack() { return Tell(PNL_NAME_REMOVED, PNL_REMOVED_PUT_BACK, nullptr); }
  void OpenAbc() { OpenMda("A\r\nB\r\nC\r\n"); }
  [[nodiscard]] std::string Stored() {
    DestroyTool();
    return Disc("MDAC1.DAT");
  }
};

TEST_F(MdiKeptWork, ReadingTellsTheLineAndChangesNothing) {
  Open();
  EXPECT_EQ(Unfinished(), "0 -1 '' ''");
  Type("G1 X10");
  Forget();
  EXPECT_EQ(Unfinished(), "1 -1 'G1 X10' ''");
  EXPECT_THAT(All(), IsEmpty());
}

TEST_F(MdiKeptWork, TheBlockThatRunsIsStillTheLine) {
  Open();
  Type("G1 X10");
  Start();
  EXPECT_EQ(Unfinished(), "1 -1 'G1 X10' ''");
}

TEST_F(MdiKeptWork, ReadingTellsWhichItemIsEdited) {
  OpenAbc();
  EXPECT_EQ(Unfinished(), "0 -1 '' ''");
  view->selected = 1;
  Menu(kChange);
  EXPECT_EQ(Unfinished(), "0 -1 '' ''") << "nobody has changed it yet";
  Type("B2");
  EXPECT_EQ(Unfinished(), "3 1 'B2' 'B'");
  static_cast<void>(Key(MdiKey::kEscape));
  Menu(kNew);
  Type("D");
  EXPECT_EQ(Unfinished(), "2 -1 'D' ''");
}

TEST_F(MdiKeptWork, ATextThatIsTooLongForTheRecordIsNotOffered) {
  Open();
  view->edit = Text(511, u'9');
  EXPECT_EQ(Unfinished().substr(0, 5), "1 -1 ");
  view->edit = Text(512, u'9');
  EXPECT_EQ(Unfinished(), "0 -1 '' ''");
}

TEST_F(MdiKeptWork, ALineComesBackWithTheCaretAtItsEnd) {
  Open();
  Forget();
  EXPECT_EQ(Restore(PNL_UNFINISHED_LINE, u"G1 X10"), 1);
  EXPECT_THAT(All(), ElementsAre("view edit \"G1 X10\"", "view select 6,6")) << "role and menus stay";
  EXPECT_EQ(view->selection, (TextSelection{6, 6}));
  EXPECT_EQ(Unfinished(), "1 -1 'G1 X10' ''");
}

TEST_F(MdiKeptWork, ALineThatComesBackClosesTheDropList) {
  Open();
  static_cast<void>(Key(MdiKey::kDown));
  ASSERT_TRUE(view->dropList);
  EXPECT_EQ(Restore(PNL_UNFINISHED_LINE, u"G1 X10"), 1);
  EXPECT_FALSE(view->dropList);
  EXPECT_EQ(ToUtf8(view->edit), "G1 X10");
}

TEST_F(MdiKeptWork, ALineComesBackInMdiRoleAlsoFromMda) {
  OpenMda();
  EXPECT_EQ(Restore(PNL_UNFINISHED_LINE, u"G1 X10"), 1);
  EXPECT_EQ(Unfinished(), "1 -1 'G1 X10' ''");
}

TEST_F(MdiKeptWork, AnItemComesBackIntoItsEdit) {
  OpenAbc();
  Command(PNL_COMMAND_SWITCH_ROLE);
  EXPECT_EQ(Restore(PNL_UNFINISHED_CHANGED_ITEM, u"B2", 1, u"B"), 1);
  EXPECT_EQ(Unfinished(), "3 1 'B2' 'B'");
  EXPECT_EQ(view->selection, (TextSelection{2, 2}));
  static_cast<void>(Key(MdiKey::kEnter));
  EXPECT_THAT(view->Items(), ElementsAre("A", "B2", "C"));
  EXPECT_EQ(Restore(PNL_UNFINISHED_NEW_ITEM, u"D"), 1);
  EXPECT_EQ(view->selection, (TextSelection{1, 1}));
  EXPECT_EQ(Unfinished(), "2 -1 'D' ''");
}

TEST_F(MdiKeptWork, AnItemThatIsNoLongerThereComesBackAsANewOne) {
  OpenAbc();
  EXPECT_EQ(Restore(PNL_UNFINISHED_CHANGED_ITEM, u"X2", 1, u"X"), 1);
  EXPECT_EQ(Unfinished(), "2 -1 'X2' ''");
  static_cast<void>(Key(MdiKey::kEscape));
  EXPECT_EQ(Restore(PNL_UNFINISHED_CHANGED_ITEM, u"X2", 3, u"X"), 1);
  EXPECT_EQ(Unfinished(), "2 -1 'X2' ''");
}

TEST_F(MdiKeptWork, NothingIsPutOverWhatIsTypedOrRuns) {
  EXPECT_EQ(Restore(PNL_UNFINISHED_LINE, u"G1 X10"), 0) << "not open";
  Open();
  Type("M3");
  EXPECT_EQ(Restore(PNL_UNFINISHED_LINE, u"G1 X10"), 0);
  EXPECT_EQ(ToUtf8(view->edit), "M3");
  Start();
  view->edit.clear();
  EXPECT_EQ(Restore(PNL_UNFINISHED_LINE, u"G1 X10"), 0);
  EXPECT_THAT(ToUtf8(view->edit), IsEmpty());
}

TEST_F(MdiKeptWork, MessagesWithoutARecordOrWithANonsenseKindDoNothing) {
  Open();
  EXPECT_EQ(Tell(PNL_NAME_READ_UNFINISHED, 0, nullptr), 0);
  EXPECT_EQ(Tell(PNL_NAME_RESTORE_UNFINISHED, 0, nullptr), 0);
  PnlUnfinished record{};
  record.kind = 77;
  record.text[0] = u'x';
  EXPECT_EQ(Tell(PNL_NAME_RESTORE_UNFINISHED, 0, &record), 0);
  EXPECT_EQ(Tell(PNL_NAME_REMOVED, 77, nullptr), 0);
  EXPECT_THAT(ToUtf8(view->edit), IsEmpty());
}

TEST_F(MdiKeptWork, AClearedListComesBackAsItWas) {
  OpenAbc();
  view->selected = 1;
  Menu(kClear);
  EXPECT_EQ(Removed(), "3 whole 'A'");
  EXPECT_EQ(PutBack(), 3);
  EXPECT_THAT(view->Items(), ElementsAre("A", "B", "C"));
  EXPECT_EQ(view->selected, 1);
  EXPECT_EQ(Removed(), "0 ''");
  EXPECT_EQ(PutBack(), 0);
  EXPECT_EQ(Stored(), "A\r\nB\r\nC\r\n");
}

TEST_F(MdiKeptWork, WhatCameIntoAClearedListStaysBehindWhatComesBack) {
  OpenAbc();
  Menu(kClear);
  Menu(kNew);
  Type("D");
  static_cast<void>(Key(MdiKey::kEnter));
  EXPECT_EQ(PutBack(), 3);
  EXPECT_THAT(view->Items(), ElementsAre("A", "B", "C", "D"));
  EXPECT_EQ(Stored(), "A\r\nB\r\nC\r\nD\r\n");
}

TEST_F(MdiKeptWork, DeletedItemsComeBackOneAfterTheOther) {
  OpenAbc();
  view->selected = 0;
  Menu(kDelete);
  Menu(kDelete);
  EXPECT_THAT(view->Items(), ElementsAre("C"));
  EXPECT_EQ(Removed(), "1 'B'");
  EXPECT_EQ(PutBack(), 1);
  EXPECT_THAT(view->Items(), ElementsAre("B", "C"));
  EXPECT_EQ(view->selected, 0);
  EXPECT_EQ(Removed(), "1 'A'");
  EXPECT_EQ(PutBack(), 1);
  EXPECT_THAT(view->Items(), ElementsAre("A", "B", "C"));
}

TEST_F(MdiKeptWork, ADeletedItemThatIsBackAlreadyIsNotPutBackTwice) {
  OpenAbc();
  Menu(kDelete);
  Command(PNL_COMMAND_SHOW);
  ASSERT_THAT(view->Items(), ElementsAre("A", "B", "C"));
  static_cast<void>(PutBack());
  EXPECT_THAT(view->Items(), ElementsAre("A", "B", "C"));
}

TEST_F(MdiKeptWork, AListThatWasClearedAfterADeletionComesBackWithoutTheDeletedItem) {
  OpenAbc();
  Menu(kDelete);
  Menu(kClear);
  EXPECT_EQ(PutBack(), 2);
  EXPECT_THAT(view->Items(), ElementsAre("B", "C"));
  EXPECT_EQ(PutBack(), 1);
  EXPECT_THAT(view->Items(), ElementsAre("A", "B", "C"));
}

TEST_F(MdiKeptWork, NothingIsPutBackWhileAnItemIsEditedOrABlockRuns) {
  OpenAbc();
  Menu(kDelete);
  Menu(kNew);
  EXPECT_EQ(PutBack(), 0);
  static_cast<void>(Key(MdiKey::kEscape));
  view->selected = 0;
  Start();
  EXPECT_EQ(PutBack(), 0);
  EXPECT_EQ(Removed(), "1 'A'") << "it can still be put back later";
}

TEST_F(MdiKeptWork, EachRemovalHasItsNumberUntilItIsForgotten) {
  OpenAbc();
  EXPECT_EQ(tool->RemovalNumber(), 0);
  Menu(kDelete);
  EXPECT_EQ(tool->RemovalNumber(), 1);
  Menu(kDelete);
  EXPECT_EQ(tool->RemovalNumber(), 2);
  static_cast<void>(PutBack());
  EXPECT_EQ(tool->RemovalNumber(), 1);
  Menu(kClear);
  EXPECT_EQ(tool->RemovalNumber(), 3);
  EXPECT_EQ(Tell(PNL_NAME_REMOVED, PNL_REMOVED_FORGET, nullptr), 0);
  EXPECT_EQ(tool->RemovalNumber(), 0);
  EXPECT_EQ(PutBack(), 0);
}

TEST_F(MdiKeptWork, AnEmptyListThatIsClearedOffersNothing) {
  OpenMda();
  Menu(kClear);
  EXPECT_EQ(tool->RemovalNumber(), 0);
}

TEST_F(MdiKeptWork, NoMoreRemovalsAreKeptThanAnybodyWantsBack) {
  OpenAbc();
  for (std::size_t i = 0; i < kMostRemovals + 5; ++i) {
    Menu(kNew);
    Type("D" + std::to_string(i));
    static_cast<void>(Key(MdiKey::kEnter));
    Menu(kDelete);
  }
  std::size_t back = 0;
  while (PutBack() == 1) ++back;
  EXPECT_EQ(back, kMostRemovals);
}

// The rows of the two lists.

class MdiRows : public MdiKeptWork {
 protected:
  std::intptr_t StoreNow() { return Tell(PNL_NAME_STORE_ROWS, 0, nullptr); }
};

TEST_F(MdiRows, BothListsAreStoredWhenTheHostAsksAndAgainAtTheEnd) {
  Open();
  EXPECT_EQ(StoreNow(), 1);
  EXPECT_EQ(files.disc.count("C:\\P108\\MDIC1.DAT"), 0U) << "nothing has changed";
  RunBlock("G1 X10");
  EXPECT_EQ(StoreNow(), 1);
  EXPECT_EQ(Disc("MDIC1.DAT"), "G1 X10\r\n");
  EXPECT_EQ(Disc("MDAC1.DAT"), "G1 X10\r\n");
  RunBlock("G1 X20");
  EXPECT_EQ(Stored(), "G1 X10\r\nG1 X20\r\n");
  EXPECT_EQ(Disc("MDIC1.DAT"), "G1 X20\r\nG1 X10\r\n");
}

TEST_F(MdiRows, AListIsWrittenOnceForEachChange) {
  OpenAbc();
  view->selected = 1;
  Menu(kClear);
  EXPECT_EQ(StoreNow(), 1);
  EXPECT_EQ(Disc("MDAC1.DAT"), "");
  files.disc["C:\\P108\\MDAC1.DAT"] = "by another\r\n";
  EXPECT_EQ(StoreNow(), 1);
  EXPECT_EQ(Disc("MDAC1.DAT"), "by another\r\n");
  EXPECT_GT(PutBack(), 0);
  EXPECT_EQ(StoreNow(), 1);
  EXPECT_EQ(Disc("MDAC1.DAT"), "A\r\nB\r\nC\r\n");
}

TEST_F(MdiRows, TheHistoryIsStoredUpToItsLimit) {
  Open();
  for (int i = 1; i <= 12; ++i) RunBlock("G1 X" + std::to_string(i));
  EXPECT_EQ(StoreNow(), 1);
  const std::string stored = Disc("MDIC1.DAT");
  EXPECT_EQ(std::count(stored.begin(), stored.end(), '\n'), 10);
  EXPECT_EQ(stored.substr(0, 8), "G1 X12\r\n");
}

TEST_F(MdiRows, AFileThatCanNotBeWrittenIsToldAndTriedAgain) {
  Open();
  RunBlock("G1 X10");
  files.readOnly = {"C:\\P108\\MDAC1.DAT"};
  EXPECT_EQ(StoreNow(), 0);
  EXPECT_EQ(Disc("MDIC1.DAT"), "G1 X10\r\n");
  files.readOnly.clear();
  EXPECT_EQ(StoreNow(), 1);
  EXPECT_EQ(Disc("MDAC1.DAT"), "G1 X10\r\n");
}

TEST_F(MdiRows, AFileOutOfReachWaitsForTheEnd) {
  files.disc["C:\\P108\\MDAC1.DAT"] = "Z\r\n";
  files.away = {"C:\\P108"};
  Open();
  RunBlock("G1 X10");
  files.away.clear();
  EXPECT_EQ(StoreNow(), 1);
  EXPECT_EQ(Disc("MDAC1.DAT"), "Z\r\n");
  EXPECT_EQ(Stored(), "G1 X10\r\nZ\r\n");
}

}  // namespace
}  // namespace pnl::test
