// SPDX-License-Identifier: MIT
// Calling blocks back with the open drop list: it narrows to what begins as typed, and pinned blocks come first.
#include "mdi/mdi_recall.h"

#include "mdi_fixture.h"

namespace pnl::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

using Rows = std::vector<std::string>;

class MdiRecallTest : public MdiTest {
 protected:
  void OpenWith(const std::string& history, const std::string& pins = "") {
    files.disc["C:\\P108\\MDIC1.DAT"] = history;
    if (!pins.empty()) files.disc["C:\\P108\\MDIP1.DAT"] = pins;
    Open();
  }
  void Drop() { Key(MdiKey::kDown); }
  void TypeOn(const std::string& text) {
    Tell([typed = FromUtf8(text)](MdiSession& session) { session.OnDropListTyped(typed); });
  }
  void Erase() { Call(&MdiSession::OnDropListErased); }
  void Switch() { Call(&MdiSession::OnDropListSwitched); }
  void Pin() { Call(&MdiSession::OnDropListPin); }
  void Select(int row) {
    view->dropSelected = row;
    Call(&MdiSession::OnDropListSelection);
  }
  [[nodiscard]] Rows Shown() const { return Utf8Rows(view->dropItems); }
};

constexpr const char* kHistory = "G1 X100 F500\r\nG0 X1\r\ng1 x2\r\nM3\r\n";

TEST_F(MdiRecallTest, TheListOpensWithTheHistoryWhateverIsTyped) {
  OpenWith(kHistory, "M5\r\n");
  Type("G1");
  Drop();
  EXPECT_EQ(Shown(), (Rows{"G1 X100 F500", "G0 X1", "g1 x2", "M3"}));
  EXPECT_EQ(view->dropSelected, 0);
  EXPECT_EQ(view->dropKeys.arrange, u"As typed");
  EXPECT_EQ(view->dropKeys.refused, u"Refused");
}

TEST_F(MdiRecallTest, TypingOnNarrowsItAndErasingWidensIt) {
  OpenWith(kHistory);
  Drop();
  TypeOn("g");
  EXPECT_EQ(view->edit, u"g");
  EXPECT_EQ(Shown(), (Rows{"G1 X100 F500", "G0 X1", "g1 x2"}));
  TypeOn("1x");
  EXPECT_EQ(view->edit, u"g1x");
  EXPECT_EQ(Shown(), (Rows{"G1 X100 F500", "g1 x2"}));
  TypeOn("9");
  EXPECT_THAT(Shown(), IsEmpty());
  Erase();
  Erase();
  Erase();
  EXPECT_EQ(view->edit, u"g");
  EXPECT_EQ(Shown(), (Rows{"G1 X100 F500", "G0 X1", "g1 x2"}));
  Erase();
  Erase();
  EXPECT_EQ(view->edit, u"");
  EXPECT_EQ(Shown(), (Rows{"G1 X100 F500", "G0 X1", "g1 x2", "M3"}));
}

TEST_F(MdiRecallTest, TypingGoesInPlaceOfWhatIsSelectedInTheEdit) {
  OpenWith(kHistory);
  Type("G1 X9");
  view->selection = {3, 5};
  Drop();
  TypeOn("X1");
  EXPECT_EQ(view->edit, u"G1 X1");
  EXPECT_EQ(Shown(), Rows{"G1 X100 F500"});
  view->CancelInDropList();
  EXPECT_EQ(view->selection, (TextSelection{5, 5})) << "the caret stays where the typing ended";
}

TEST_F(MdiRecallTest, ErasingTakesWhatIsSelectedInTheEdit) {
  OpenWith(kHistory);
  Type("G1 X9");
  view->selection = {1, 4};
  Drop();
  Erase();
  EXPECT_EQ(view->edit, u"G9");
  EXPECT_EQ(view->selection, (TextSelection{1, 1}));
}

TEST_F(MdiRecallTest, ErasingAtTheStartTakesNothing) {
  OpenWith(kHistory);
  Type("G1");
  Drop();
  Forget();
  Erase();
  EXPECT_EQ(view->edit, u"G1");
  EXPECT_EQ(All().front(), "view select 0,0");
}

TEST_F(MdiRecallTest, ErasingTakesACharacterOfTwoUnitsWhole) {
  OpenWith(kHistory);
  Drop();
  TypeOn("(\xF0\x9F\x98\x80");
  Erase();
  EXPECT_EQ(view->edit, u"(");
}

TEST_F(MdiRecallTest, TheStartKeyRunsWhatIsTypedUntilARowIsChosen) {
  // The first row isn't what the operator has typed: the tool must not move elsewhere.
  OpenWith(kHistory);
  Drop();
  TypeOn("G1 X1");
  EXPECT_EQ(Shown(), Rows{"G1 X100 F500"});
  Start();
  EXPECT_EQ(tool->ControlColors(MdiControl::kOther, false).has_value(), true);
  Status(2);
  Status(1);
  EXPECT_THAT(HistoryShown(), ElementsAre("G1 X1", "G1 X100 F500", "G0 X1", "g1 x2", "M3"));
}

TEST_F(MdiRecallTest, TheStartKeyRunsTheChosenRow) {
  OpenWith(kHistory);
  Drop();
  TypeOn("G1");
  Select(1);
  Start();
  EXPECT_EQ(view->edit, u"g1 x2");
}

TEST_F(MdiRecallTest, EnterWithoutAChosenRowKeepsWhatIsTyped) {
  OpenWith(kHistory);
  Drop();
  TypeOn("G1 X7");
  view->OkInDropList();
  EXPECT_EQ(view->edit, u"G1 X7");
  EXPECT_FALSE(view->dropList);
  EXPECT_EQ(view->selection, (TextSelection{5, 5}));
}

TEST_F(MdiRecallTest, EnterTakesTheChosenRow) {
  OpenWith(kHistory);
  Drop();
  TypeOn("G1");
  Select(0);
  view->OkInDropList();
  EXPECT_EQ(view->edit, u"G1 X100 F500");
}

TEST_F(MdiRecallTest, TheKeyGoesToThePinnedBlocksAndBackToTheHistory) {
  OpenWith(kHistory, "M5\r\nG0 X1\r\n");
  Drop();
  EXPECT_EQ(view->dropKeys.arrange, u"Pinned");
  Switch();
  EXPECT_EQ(Shown(), (Rows{"M5", "G0 X1", "G1 X100 F500", "g1 x2", "M3"}));
  EXPECT_EQ(view->dropSelected, -1);
  EXPECT_EQ(view->dropKeys.arrange, u"History");
  EXPECT_FALSE(view->dropKeys.pinEnabled);
  Switch();
  EXPECT_EQ(Shown(), (Rows{"G1 X100 F500", "G0 X1", "g1 x2", "M3"}));
  EXPECT_EQ(view->dropSelected, 0);
}

TEST_F(MdiRecallTest, APinnedRowOfTheHistoryHasItsMark) {
  OpenWith(kHistory, "M5\r\nG0 X1\r\n");
  Drop();
  EXPECT_THAT(view->dropMarks,
              ElementsAre(MdiRowMark::kNone, MdiRowMark::kPinned, MdiRowMark::kNone, MdiRowMark::kNone));
}

TEST_F(MdiRecallTest, PinningStoresTheBlockAtOnceInAFileOfItsOwn) {
  OpenWith(kHistory);
  Drop();
  Select(1);
  EXPECT_EQ(view->dropKeys.pin, u"Pin");
  Pin();
  EXPECT_EQ(Disc("MDIP1.DAT"), "G0 X1\r\n");
  EXPECT_EQ(Disc("MDIC1.DAT"), kHistory);
  EXPECT_EQ(view->dropSelected, 1) << "the row stays selected";
  EXPECT_EQ(view->dropKeys.pin, u"Unpin");
  Pin();
  EXPECT_EQ(Disc("MDIP1.DAT"), "");
  EXPECT_EQ(view->dropKeys.pin, u"Pin");
}

TEST_F(MdiRecallTest, ThePinnedRowStaysSelectedWhereItGoes) {
  OpenWith(kHistory);
  Drop();
  Switch();
  Select(3);
  Pin();
  EXPECT_EQ(Shown(), (Rows{"M3", "G1 X100 F500", "G0 X1", "g1 x2"}));
  EXPECT_EQ(view->dropSelected, 0);
}

TEST_F(MdiRecallTest, AFullHistoryDropsNoPinnedBlock) {
  OpenWith("G0 X1\r\n");
  Drop();
  Pin();
  view->CancelInDropList();
  for (int i = 0; i < 15; ++i) RunBlock("M" + std::to_string(i));
  MakeTool();
  Open();
  EXPECT_EQ(HistoryShown().size(), 10u);
  Drop();
  Switch();
  ASSERT_FALSE(Shown().empty());
  EXPECT_EQ(Shown().front(), "G0 X1");
}

TEST_F(MdiRecallTest, WithoutASelectionNothingIsPinned) {
  OpenWith(kHistory);
  Drop();
  Switch();
  Pin();
  EXPECT_EQ(files.disc.count("C:\\P108\\MDIP1.DAT"), 0u);
}

TEST_F(MdiRecallTest, TheMachinesPinsHoldUntilTheUserHasHisOwn) {
  files.disc["C:\\P52\\MDIP1.DAT"] = "M8\r\n\r\nM8\r\n";
  OpenWith(kHistory);
  Drop();
  Switch();
  EXPECT_EQ(Shown().front(), "M8");
  EXPECT_EQ(Shown().size(), 5u) << "an empty row and a second one don't count";
  Select(1);
  Pin();
  EXPECT_EQ(Disc("MDIP1.DAT"), "G1 X100 F500\r\nM8\r\n");
  EXPECT_EQ(files.disc["C:\\P52\\MDIP1.DAT"], "M8\r\n\r\nM8\r\n");
}

TEST_F(MdiRecallTest, AnUnpinnedBlockDoesNotComeBackFromTheFile) {
  // The file was absent when it was read: what it has now is the session's own.
  OpenWith(kHistory);
  Drop();
  Pin();
  Select(1);
  Pin();
  EXPECT_EQ(Disc("MDIP1.DAT"), "G0 X1\r\nG1 X100 F500\r\n");
  Pin();
  EXPECT_EQ(Disc("MDIP1.DAT"), "G1 X100 F500\r\n");
}

TEST_F(MdiRecallTest, PinsThatWereOutOfReachComeBackBehindTheNewOne) {
  files.away = {"C:\\P108\\MDIP1.DAT"};
  OpenWith(kHistory, "M9\r\nM8\r\n");
  files.away.clear();
  Drop();
  Forget();
  Pin();
  EXPECT_THAT(Asked(), IsEmpty()) << "they are stored";
  EXPECT_EQ(Disc("MDIP1.DAT"), "G1 X100 F500\r\nM9\r\nM8\r\n");
  Switch();
  EXPECT_EQ(Shown(), (Rows{"G1 X100 F500", "M9", "M8", "G0 X1", "g1 x2", "M3"}));
  Select(1);
  Pin();
  EXPECT_EQ(Disc("MDIP1.DAT"), "G1 X100 F500\r\nM8\r\n") << "an unpinned block doesn't come back from the file";
}

TEST_F(MdiRecallTest, PinsThatCanBeWrittenAndNotReadAgainStayAsTheyAre) {
  OpenWith(kHistory);
  files.unreadable = {"C:\\P108\\MDIP1.DAT"};
  Drop();
  Forget();
  Pin();
  EXPECT_EQ(Disc("MDIP1.DAT"), "G1 X100 F500\r\n");
  EXPECT_THAT(view->dropMarks,
              ElementsAre(MdiRowMark::kPinned, MdiRowMark::kNone, MdiRowMark::kNone, MdiRowMark::kNone));
  EXPECT_THAT(Asked(), IsEmpty()) << "nothing was lost that the operator should know of";
}

TEST_F(MdiRecallTest, WithoutAnOpenListNothingHappens) {
  OpenWith(kHistory);
  TypeOn("G1");
  Erase();
  Switch();
  Pin();
  EXPECT_EQ(view->edit, u"");
  EXPECT_EQ(files.disc.count("C:\\P108\\MDIP1.DAT"), 0u);
}

TEST(MdiBeginsAs, BlanksAndTheCaseOfLettersDoNotCount) {
  EXPECT_TRUE(BeginsAs(u"G1 X10", u"g1x1"));
  EXPECT_TRUE(BeginsAs(u"G1X10", u"G1 X"));
  EXPECT_TRUE(BeginsAs(u"G1", u""));
  EXPECT_FALSE(BeginsAs(u"G1 X10", u"X1"));
  EXPECT_FALSE(BeginsAs(u"G1", u"G1 X"));
}

}  // namespace
}  // namespace pnl::test
