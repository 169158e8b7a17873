// SPDX-License-Identifier: MIT
// The help viewer's keys and commands: what each sends to whom, where the focus goes, the panes, and finding in the
// page.
#include "help/help_rig.h"

namespace pnl::test {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;

class HelpKeys : public HelpToolTest {
 protected:
  HelpKeys() { MakeTool(); }
  void Focus(HelpPart part) { view->part = part; }
  /// The window hands Enter in a line, or on a row, to the logic.
  void AnswerEnter() {
    view->onKey = [this](HelpKey key, HelpPart part) {
      if (key == HelpKey::kEnter) Call(&HelpSession::OnLineEntered, part);
    };
  }
};

TEST_F(HelpKeys, EachKeyGoesWhereItShouldAndIsConsumed) {
  struct Row {
    HelpKey key;
    bool consumed;
    std::vector<std::string> asked;
  };
  const auto sent = [](HelpKey key) { return "view key " + std::to_string(static_cast<int>(key)); };
  for (const Row& row : {Row{HelpKey::kTab, true, {sent(HelpKey::kTab)}}, Row{HelpKey::kUp, true, {sent(HelpKey::kUp)}},
                         Row{HelpKey::kDown, true, {sent(HelpKey::kDown)}},
                         Row{HelpKey::kEnter, true, {sent(HelpKey::kEnter), "view focus 1"}},
                         Row{HelpKey::kEscape, true, {"HostToolWantsClose(2)"}}, Row{HelpKey::kOther, false, {}}}) {
    OpenAt();
    EXPECT_EQ(Key(row.key), row.consumed);
    EXPECT_EQ(All(), row.asked);
  }
}

TEST_F(HelpKeys, TheKeysAreTheSameWithoutAManual) {
  Forget();
  EXPECT_TRUE(Key(HelpKey::kTab));
  EXPECT_TRUE(Key(HelpKey::kEnter));
  EXPECT_TRUE(Key(HelpKey::kEscape));
  EXPECT_FALSE(Key(HelpKey::kFind));
  EXPECT_FALSE(Key(HelpKey::kOther));
  EXPECT_THAT(Asked(), ElementsAre("HostToolWantsClose(2)"));
}

TEST_F(HelpKeys, EscapeLeavesTheClosingToTheHost) {
  OpenAt();
  Key(HelpKey::kEscape);
  EXPECT_TRUE(view->visible);
  EXPECT_TRUE(tool->HasHelpWindow());
}

TEST_F(HelpKeys, EscapeInTheLineForFindingClosesTheLine) {
  OpenAt();
  Menu(40002);
  ASSERT_EQ(view->part, HelpPart::kFindLine);
  Forget();
  EXPECT_TRUE(Key(HelpKey::kEscape));
  EXPECT_THAT(All(), ElementsAre("view close find line", "view focus 1"));
  Key(HelpKey::kEscape);
  EXPECT_THAT(Asked(), ElementsAre("HostToolWantsClose(2)"));
}

TEST_F(HelpKeys, SystemKeysGoBackAndForwardWithAltAndAreAlwaysConsumed) {
  struct Row {
    bool right;
    bool alt;
    std::vector<std::string> asked;
  };
  for (const Row& row : {Row{false, true, {"view back"}}, Row{true, true, {"view forward"}}, Row{false, false, {}},
                         Row{true, false, {}}}) {
    OpenAt();
    EXPECT_TRUE(Call(&HelpSession::OnSystemKey, row.right, row.alt));
    EXPECT_EQ(All(), row.asked);
  }
  Command(PNL_COMMAND_HIDE);
  Forget();
  EXPECT_TRUE(Call(&HelpSession::OnSystemKey, true, true));
  EXPECT_THAT(All(), IsEmpty());
}

// Enter.

TEST_F(HelpKeys, EnterGoesToTheControlWithTheFocusWhichGetsTheFocusAgain) {
  for (const HelpPart part : kHelpParts) {
    OpenAt();
    Focus(part);
    view->onKey = [this](HelpKey, HelpPart) { view->part = HelpPart::kNone; };
    Forget();
    Key(HelpKey::kEnter);
    EXPECT_THAT(All(), ElementsAre("view key 3", "view focus " + std::to_string(static_cast<int>(part))));
    EXPECT_EQ(view->part, part);
  }
}

TEST_F(HelpKeys, EnterInTheSearchsLineTidiesTheResults) {
  book->found[u"x"] = {{u"b", u"mdi.htm"}, {u"a", u"home.htm"}, {u"b", u"start.htm"}, {u"B", u"home.htm"}};
  OpenAt();
  Menu(2006);
  Focus(HelpPart::kSearchLine);
  view->lines[HelpPart::kSearchLine] = u"x";
  AnswerEnter();
  Key(HelpKey::kEnter);
  EXPECT_THAT(view->results, ElementsAre("B", "a", "b", "b"));
  EXPECT_EQ(view->SelectedRow(HelpPart::kResults), 0);
  // The two of one title keep the manual's order.
  Forget();
  Call(&HelpSession::OnRowChosen, HelpPart::kResults, 2);
  EXPECT_THAT(All(), Contains("view page mdi.htm#"));
}

TEST_F(HelpKeys, TheResultsAreNotTidiedBeforeEnter) {
  book->found[u"x"] = {{u"b", u"mdi.htm"}, {u"a", u"home.htm"}};
  OpenAt();
  Menu(2006);
  view->lines[HelpPart::kSearchLine] = u"x";
  Call(&HelpSession::OnLineEntered, HelpPart::kSearchLine);
  EXPECT_THAT(view->results, ElementsAre("b", "a"));
}

TEST_F(HelpKeys, EnterElsewhereTidiesNothing) {
  book->found[u"x"] = {{u"b", u"mdi.htm"}, {u"a", u"home.htm"}};
  OpenAt();
  view->lines[HelpPart::kSearchLine] = u"x";
  Call(&HelpSession::OnLineEntered, HelpPart::kSearchLine);
  for (const HelpPart part : kHelpParts) {
    if (part == HelpPart::kSearchLine) continue;
    Focus(part);
    Key(HelpKey::kEnter);
    EXPECT_THAT(view->results, ElementsAre("b", "a"));
  }
}

TEST_F(HelpKeys, ASecondEnterOpensTheSelectedResult) {
  book->found[u"x"] = {{u"b", u"mdi.htm"}, {u"a", u"home.htm"}};
  OpenAt();
  Menu(2006);
  view->lines[HelpPart::kSearchLine] = u"x";
  AnswerEnter();
  Key(HelpKey::kEnter);
  view->SelectRow(HelpPart::kResults, 1);
  Key(HelpKey::kEnter);
  EXPECT_EQ(view->shownPage, "mdi.htm#");
  // Another text is sought.
  view->lines[HelpPart::kSearchLine] = u"y";
  Key(HelpKey::kEnter);
  EXPECT_THAT(view->results, IsEmpty());
  EXPECT_EQ(view->status, "nothing y");
}

// The focus.

TEST_F(HelpKeys, TheFocusMovesOnePaneOn) {
  struct Row {
    HelpPane pane;
    HelpPart from;
    HelpPart to;
  };
  using enum HelpPart;
  for (const Row& row : {Row{HelpPane::kContents, kNone, kPage}, Row{HelpPane::kContents, kPage, kContents},
                         Row{HelpPane::kContents, kContents, kPage}, Row{HelpPane::kContents, kFindLine, kContents},
                         Row{HelpPane::kIndex, kNone, kPage}, Row{HelpPane::kIndex, kPage, kIndexLine},
                         Row{HelpPane::kIndex, kIndexLine, kIndexList}, Row{HelpPane::kIndex, kIndexList, kPage},
                         Row{HelpPane::kSearch, kNone, kPage}, Row{HelpPane::kSearch, kPage, kSearchLine},
                         Row{HelpPane::kSearch, kSearchLine, kResults}, Row{HelpPane::kSearch, kResults, kPage}}) {
    OpenAt();
    Call(&HelpSession::OnPaneTab, row.pane);
    Focus(row.from);
    EXPECT_EQ(Command(PNL_COMMAND_RESTORE_FOCUS), 0);
    EXPECT_EQ(view->part, row.to);
    Focus(row.from);
    Call(&HelpSession::OnTabPassed);
    EXPECT_EQ(view->part, row.to);
  }
}

TEST_F(HelpKeys, WithHiddenPanesTheFocusIsOnThePage) {
  OpenAt();
  Call(&HelpSession::OnPanesKey);
  for (const HelpPart part : kHelpParts) {
    Focus(part);
    Command(PNL_COMMAND_RESTORE_FOCUS);
    EXPECT_EQ(view->part, HelpPart::kPage);
  }
}

TEST_F(HelpKeys, WithoutAManualNothingMovesTheFocus) {
  Forget();
  Command(PNL_COMMAND_RESTORE_FOCUS);
  Call(&HelpSession::OnTabPassed);
  EXPECT_THAT(All(), IsEmpty());
}

// Menu commands.

TEST_F(HelpKeys, EachMenuCommandDoesWhatItsHelpCommandSays) {
  struct Row {
    int id;
    std::vector<std::string> asked;
  };
  for (const Row& row : {Row{2001, {"view pane 0 hidden", "view focus 1"}}, Row{2003, {"view pane 1", "view focus 3"}},
                         Row{2006, {"view pane 2", "view focus 5"}}, Row{2000, {"view page home.htm#"}},
                         Row{2002, {"view back"}}, Row{2005, {"view forward"}}, Row{40002, {"view open find line"}},
                         Row{2004, {"view pick"}}, Row{4, {}}, Row{0, {}}, Row{65740, {}}, Row{71559, {}}}) {
    DestroyTool();
    MakeTool();
    OpenAt();
    Menu(row.id);
    EXPECT_EQ(All(), row.asked) << row.id;
  }
}

TEST_F(HelpKeys, WithoutAManualOnlyThePickerComes) {
  Forget();
  for (const int id : {2001, 2003, 2006, 2000, 2002, 2005, 40002}) Menu(id);
  for (const HelpPane pane : {HelpPane::kContents, HelpPane::kIndex, HelpPane::kSearch}) {
    Call(&HelpSession::OnPaneTab, pane);
  }
  Call(&HelpSession::OnPanesKey);
  Call(&HelpSession::OnSearchKey);
  Call(&HelpSession::OnFindKey, true);
  Call(&HelpSession::OnRowChosen, HelpPart::kContents, 0);
  Call(&HelpSession::OnLineEntered, HelpPart::kSearchLine);
  Call(&HelpSession::OnLineChanged, HelpPart::kIndexLine);
  EXPECT_THAT(All(), IsEmpty());
  Menu(2004);
  EXPECT_THAT(All(), ElementsAre("view pick"));
}

TEST_F(HelpKeys, ThePaneThatIsShownHidesAndAnotherComes) {
  OpenAt();
  struct Row {
    int id;
    HelpPane pane;
    bool shown;
    HelpPart part;
  };
  for (const Row& row :
       {Row{2003, HelpPane::kIndex, true, HelpPart::kIndexLine}, Row{2003, HelpPane::kIndex, false, HelpPart::kPage},
        Row{2003, HelpPane::kIndex, true, HelpPart::kIndexLine},
        Row{2001, HelpPane::kContents, true, HelpPart::kContents},
        Row{2006, HelpPane::kSearch, true, HelpPart::kSearchLine}, Row{2006, HelpPane::kSearch, false, HelpPart::kPage},
        Row{2001, HelpPane::kContents, true, HelpPart::kContents}}) {
    Menu(row.id);
    EXPECT_EQ(view->pane, row.pane);
    EXPECT_EQ(view->panesShown, row.shown);
    EXPECT_EQ(view->part, row.part);
    EXPECT_EQ(tool->ArePanesShown(), row.shown);
    EXPECT_EQ(tool->Pane(), row.pane);
  }
}

TEST_F(HelpKeys, ATabNeverHidesThePanes) {
  OpenAt();
  for (int i = 0; i < 2; ++i) {
    Call(&HelpSession::OnPaneTab, HelpPane::kIndex);
    EXPECT_TRUE(view->panesShown);
    EXPECT_EQ(view->pane, HelpPane::kIndex);
    EXPECT_EQ(view->part, HelpPart::kIndexLine);
  }
}

TEST_F(HelpKeys, ThePanesStayHiddenForTheNextManual) {
  OpenAt();
  Menu(2006);
  Call(&HelpSession::OnPanesKey);
  OpenAt(u"OPT0777");
  EXPECT_FALSE(view->panesShown);
  EXPECT_EQ(view->pane, HelpPane::kSearch);
  Call(&HelpSession::OnPanesKey);
  EXPECT_TRUE(view->panesShown);
}

// Finding in the page.

TEST_F(HelpKeys, FindingMovesTheFocusOnUntilThePageHasIt) {
  struct Row {
    HelpPane pane;
    HelpPart from;
    std::vector<std::string> asked;
  };
  for (const Row& row :
       {Row{HelpPane::kContents, HelpPart::kPage, {"view open find line"}},
        Row{HelpPane::kContents, HelpPart::kContents, {"view focus 1", "view open find line"}},
        Row{HelpPane::kIndex, HelpPart::kIndexLine, {"view focus 4", "view focus 1", "view open find line"}},
        Row{HelpPane::kSearch, HelpPart::kResults, {"view focus 1", "view open find line"}},
        Row{HelpPane::kContents, HelpPart::kNone, {"view focus 1", "view open find line"}}}) {
    OpenAt();
    Call(&HelpSession::OnPaneTab, row.pane);
    Call(&HelpSession::OnFindClosed);
    Focus(row.from);
    Forget();
    Menu(40002);
    EXPECT_EQ(All(), row.asked);
    EXPECT_EQ(view->part, HelpPart::kFindLine);
  }
}

TEST_F(HelpKeys, TheFocusMovesOnFiveTimesAtMost) {
  OpenAt();
  Focus(HelpPart::kContents);
  view->stubborn = true;
  Menu(40002);
  Log all = All();
  EXPECT_EQ(std::count(all.begin(), all.end(), "view focus 1"), 5);
  EXPECT_EQ(all.back(), "view open find line") << "it opens all the same";
}

TEST_F(HelpKeys, CtrlFOpensTheLineForFinding) {
  OpenAt();
  EXPECT_TRUE(Key(HelpKey::kFind));
  EXPECT_THAT(All(), ElementsAre("view open find line"));
}

TEST_F(HelpKeys, EnterInTheLineForFindingFindsTheNextPlace) {
  OpenAt();
  Menu(40002);
  view->lines[HelpPart::kFindLine] = u"axis";
  AnswerEnter();
  Forget();
  Key(HelpKey::kEnter);
  EXPECT_THAT(All(), ElementsAre("view key 3", "view find axis", "view focus 7"));
  EXPECT_EQ(view->note, "not in page axis");
  view->pageHas = u"axis";
  Key(HelpKey::kEnter);
  EXPECT_EQ(view->note, "");
  Call(&HelpSession::OnFindKey, true);
  EXPECT_THAT(All(), Contains("view find back axis"));
}

TEST_F(HelpKeys, AnEmptyTextIsNotSought) {
  OpenAt();
  Menu(40002);
  Forget();
  Call(&HelpSession::OnFindKey, false);
  EXPECT_THAT(All(), IsEmpty());
  EXPECT_EQ(view->note, "");
}

TEST_F(HelpKeys, EnterTidiesNothingWhenThePageThatItOpenedHasTheFocus) {
  book->found[u"x"] = {{u"b", u"mdi.htm"}, {u"a", u"home.htm"}};
  OpenAt();
  Menu(2006);
  view->lines[HelpPart::kSearchLine] = u"x";
  Call(&HelpSession::OnLineEntered, HelpPart::kSearchLine);
  view->stubborn = true;
  view->onKey = [this](HelpKey, HelpPart) { view->part = HelpPart::kPage; };
  view->part = HelpPart::kSearchLine;
  Key(HelpKey::kEnter);
  EXPECT_THAT(view->results, ElementsAre("b", "a"));
}

TEST_F(HelpKeys, TheLineForFindingClosesWithItsManual) {
  OpenAt();
  Menu(40002);
  OpenAt();
  EXPECT_FALSE(view->findOpen);
}

}  // namespace
}  // namespace pnl::test
