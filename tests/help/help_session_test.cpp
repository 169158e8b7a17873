// SPDX-License-Identifier: MIT
// The help viewer's commands from the host, the opening of marks and manuals, and its closing, each with the order of
// what is asked of window and host.
#include "help/help_ids.h"
#include "help/help_rig.h"

namespace pnl::test {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;

class HelpSessionTest : public HelpToolTest {
 protected:
  HelpSessionTest() { MakeTool(); }
};

/// What closing a manual tells the window, with the orders that a manual's end brings.
constexpr const char* kHideBook = "view hide book";

TEST_F(HelpSessionTest, StartingPublishesTheMenuAndGivesTheFocusBack) {
  EXPECT_THAT(All(), ElementsAre("main menu", "view give focus back"));
  EXPECT_FALSE(view->visible);
  EXPECT_FALSE(tool->HasHelpWindow());
}

TEST_F(HelpSessionTest, OpeningResolvesTheMarkOpensItsManualAndMovesTheFocusOnePaneOn) {
  Forget();
  view->parent = {0, 0, 800, 532};
  SetMark(u"OPT0130");
  EXPECT_EQ(Command(2), 0);
  EXPECT_THAT(All(), ElementsAre("HostToolOpening(2)", kHideBook, "view show book", "open C:\\P113\\oper.chm",
                                 "view pane 0", "view page mdi.htm#OPT0130", "view move", "view show", "view top",
                                 "view focus window", "view focus 1"));
  EXPECT_EQ(view->window, (Rect{0, 0, 800, 532}));
  EXPECT_EQ(view->part, HelpPart::kPage);
  EXPECT_EQ(view->missing, "");
  EXPECT_EQ(view->note, "");
  EXPECT_EQ(view->contents.size(), 4u);
  EXPECT_EQ(view->index.size(), 5u);
  EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(HelpSessionTest, EveryToolCommandHasItsEffectAndItsAnswer) {
  struct Row {
    std::intptr_t command;
    std::intptr_t answer;
    std::vector<std::string> asked;  // of the host
    bool visible;
    bool open;
  };
  const std::vector<std::string> closed{"HostToolClosed(2,2)"};
  for (const Row& row :
       {Row{2, 0, {"HostToolOpening(2)", "open C:\\P113\\oper.chm"}, true, true}, Row{3, 0, closed, false, false},
        Row{6, 0, closed, false, false}, Row{7, 0, {}, true, true}, Row{20, 2, closed, false, false},
        Row{0, 0, {}, true, true}, Row{1, 0, {}, true, true}, Row{4, 0, {}, true, true}, Row{5, 0, {}, true, true},
        Row{8, 0, {}, true, true}, Row{10, 0, {}, true, true}, Row{14, 0, {}, true, true}, Row{34, 0, {}, true, true},
        Row{-1, 0, {}, true, true}}) {
    OpenAt();
    EXPECT_EQ(Command(row.command), row.answer) << row.command;
    EXPECT_EQ(Asked(), row.asked) << row.command;
    EXPECT_EQ(view->visible, row.visible) << row.command;
    EXPECT_EQ(tool->HasHelpWindow(), row.open) << row.command;
  }
}

TEST_F(HelpSessionTest, ClosingHidesTellsTheHostAndThenDropsTheManual) {
  OpenAt();
  Command(PNL_COMMAND_HIDE);
  EXPECT_THAT(All(), ElementsAre("view hide", "HostToolClosed(2,2)", kHideBook));
  EXPECT_EQ(view->shownPage, "");
  EXPECT_THAT(view->contents, IsEmpty());
  EXPECT_THAT(view->index, IsEmpty());
}

TEST_F(HelpSessionTest, ClosingATwiceClosedViewerTellsTheHostAgain) {
  Command(PNL_COMMAND_CLOSE_TOOL);
  Command(PNL_COMMAND_CLOSE_TOOL);
  EXPECT_THAT(Asked(), ElementsAre("main menu", "HostToolClosed(2,2)", "HostToolClosed(2,2)"));
}

TEST_F(HelpSessionTest, WithoutAMarkTheViewerDoesntOpenAndSaysNothing) {
  Forget();
  SetMark(u"");
  EXPECT_EQ(Command(2), -200);
  EXPECT_THAT(All(), ElementsAre("HostToolOpening(2)", "HostToolClosed(2,2)"));
  EXPECT_THAT(Boxes(), IsEmpty());
  EXPECT_FALSE(view->visible);
}

TEST_F(HelpSessionTest, WithoutTheVariableTheViewerDoesntOpenAndSaysNothing) {
  ASSERT_TRUE(cnc.Undefine(u"E.HELPDATA"));
  MakeTool();
  EXPECT_EQ(Command(2), -200);
  EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(HelpSessionTest, AMarkOfNoManualCostsABoxGivesTheFocusToTheParentAndDoesntOpen) {
  Forget();
  SetMark(u"XYZ0001");
  EXPECT_EQ(Command(2), -200);
  EXPECT_THAT(All(), ElementsAre("HostToolOpening(2)", "view focus parent", "HostToolClosed(2,2)"));
  EXPECT_THAT(Boxes(), ElementsAre(testing::StartsWith("Cnc7340.helps: EL FORMATO DE LA MARCA")));
}

TEST_F(HelpSessionTest, AMarkWithoutAPageCostsOneBoxAndOpensTheFallbackPageWithItsOwnAnchor) {
  Forget();
  SetMark(u"OPT0777");
  EXPECT_EQ(Command(2), 0);
  EXPECT_THAT(Boxes(), ElementsAre("Cnc7340.helps: La marca OPT0777 ha sido eliminada o aún no se ha implementado"));
  EXPECT_EQ(view->shownPage, "home.htm#OPT0000");
  EXPECT_EQ(view->note, "fallback home.htm oper.chm");
  const Log all = All();
  ASSERT_GT(all.size(), 2u);
  EXPECT_EQ(all[1], "view focus parent") << "after the box and before the manual";
}

TEST_F(HelpSessionTest, WithoutAFallbackPageTwoBoxesAreShownAndItDoesntOpen) {
  Disc("C:\\P113\\oper.mrk") = "[MARKS]\r\n";
  SetMark(u"OPT0777");
  EXPECT_EQ(Command(2), -200);
  EXPECT_EQ(Boxes().size(), 2u);
}

TEST_F(HelpSessionTest, TheNoteOfAFallbackGoesWithTheNextPage) {
  OpenAt(u"OPT0777");
  ASSERT_NE(view->note, "");
  Call(&HelpSession::OnRowChosen, HelpPart::kContents, 3);
  EXPECT_EQ(view->note, "");
}

TEST_F(HelpSessionTest, AMarkIsReadUpTo260Characters) {
  const std::string key(257, 'x');
  Disc("C:\\P113\\oper.mrk") = "[MARKS]\r\nOPT" + key + "=mdi.htm\r\nOPT0000=home.htm\r\n";
  OpenAt(FromUtf8("OPT" + key + "more"));
  EXPECT_EQ(view->shownPage, "mdi.htm#OPT" + key);
}

TEST_F(HelpSessionTest, OpeningAMissingManualShowsFileNotFoundAndStillReportsSuccess) {
  Forget();
  SetMark(u"NIX0000");
  EXPECT_EQ(Command(2), 0);
  EXPECT_EQ(view->missing, "File not found.");
  EXPECT_THAT(All(),
              ElementsAre("HostToolOpening(2)", kHideBook, "view move", "view show", "view top", "view focus window"));
  EXPECT_FALSE(tool->HasHelpWindow());
  EXPECT_TRUE(view->visible);
}

TEST_F(HelpSessionTest, AFolderInThePlaceOfAManualIsNotFound) {
  files.folders.insert("C:\\P113\\gone.chm");
  OpenAt(u"NIX0000");
  EXPECT_EQ(view->missing, "File not found.");
}

TEST_F(HelpSessionTest, TheNextOpeningTakesFileNotFoundAway) {
  OpenAt(u"NIX0000");
  OpenAt(u"OPT0130");
  EXPECT_EQ(view->missing, "");
  EXPECT_TRUE(view->bookShown);
}

TEST_F(HelpSessionTest, AMissingManualTakesTheOneBeforeAway) {
  OpenAt(u"OPT0130");
  OpenAt(u"NIX0000");
  EXPECT_FALSE(tool->HasHelpWindow());
  EXPECT_FALSE(view->bookShown);
  EXPECT_EQ(view->shownPage, "");
}

TEST_F(HelpSessionTest, ASecondOpeningDropsTheFirstManualBeforeTheNewOneIsOpened) {
  OpenAt();
  std::weak_ptr<FakeBook> first = book;
  world.books["C:\\P113\\oper.chm"].book = other;
  book.reset();
  bool gone = false;
  world.slow = true;
  EXPECT_EQ(Command(2), 0);
  gone = first.expired();
  EXPECT_TRUE(gone) << "nobody keeps the first one while the second is being opened";
  const Log all = All();
  const auto hidden = std::find(all.begin(), all.end(), kHideBook);
  const auto opened = std::find(all.begin(), all.end(), "open C:\\P113\\oper.chm");
  EXPECT_LT(hidden, opened);
}

// Manuals by name.

TEST_F(HelpSessionTest, AManualIsLookedForInThreeFolders) {
  struct Row {
    std::vector<const char*> in;
    const char* opened;
  };
  for (const Row& row : {Row{{"P113", "P18", "P57"}, "C:\\P113\\m.chm"}, Row{{"P18", "P57"}, "C:\\P18\\m.chm"},
                         Row{{"P57"}, "C:\\P57\\m.chm"}}) {
    for (const char* folder : {"P113", "P18", "P57"}) {
      files.disc.erase(std::string("C:\\") + folder + "\\m.chm");
      world.books.erase(std::string("C:\\") + folder + "\\m.chm");
    }
    for (const char* folder : row.in) Disc(std::string("C:\\") + folder + "\\m.chm") = "manual";
    world.books[row.opened] = {ManualState::kWhole, book};
    Forget();
    GoTo(u"m.chm");
    EXPECT_EQ(world.asked, row.opened);
    EXPECT_EQ(view->shownPage, "home.htm#");
    EXPECT_THAT(All(), ElementsAre(kHideBook, "view show book", std::string("open ") + row.opened, "view pane 0",
                                   "view page home.htm#", "view move"));
  }
}

TEST_F(HelpSessionTest, AManualInNoneOfTheThreeFoldersChangesNothing) {
  OpenAt();
  const std::string page = view->shownPage;
  GoTo(u"nowhere.chm");
  GoTo(u"");
  GoTo(u"..");
  EXPECT_THAT(All(), IsEmpty());
  EXPECT_EQ(view->shownPage, page);
  EXPECT_TRUE(tool->HasHelpWindow());
}

TEST_F(HelpSessionTest, AManualByNameDoesntShowAHiddenViewer) {
  GoTo(u"oper.chm");
  EXPECT_TRUE(tool->HasHelpWindow());
  EXPECT_FALSE(view->visible);
}

TEST_F(HelpSessionTest, ANameIsTakenUpTo260Characters) {
  const std::string name(256, 'n');
  Disc("C:\\P113\\" + name + ".chm") = "manual";
  world.books["C:\\P113\\" + name + ".chm"] = {ManualState::kWhole, book};
  GoTo(FromUtf8(name + ".chm and more"));
  EXPECT_EQ(world.asked, "C:\\P113\\" + name + ".chm");
}

// Slow and damaged manuals.

TEST_F(HelpSessionTest, WhileAManualIsBeingOpenedTheWindowSaysSo) {
  world.slow = true;
  SetMark(u"OPT0130");
  EXPECT_EQ(Command(2), 0);
  EXPECT_EQ(view->note, "loading oper.chm");
  EXPECT_TRUE(view->visible);
  EXPECT_EQ(view->shownPage, "");
  world.done({ManualState::kWhole, book});
  EXPECT_EQ(view->shownPage, "mdi.htm#OPT0130");
  EXPECT_EQ(view->note, "");
}

TEST_F(HelpSessionTest, WhatIsStillBeingOpenedIsDroppedByEveryEnd) {
  world.slow = true;
  for (const std::intptr_t close : {PNL_COMMAND_HIDE, PNL_COMMAND_LEAVE, PNL_COMMAND_CLOSE_TOOL}) {
    SetMark(u"OPT0130");
    Command(2);
    world.drops = 0;
    Command(close);
    EXPECT_EQ(world.drops, 1) << close;
  }
  SetMark(u"OPT0130");
  Command(2);
  world.drops = 0;
  DestroyTool();
  EXPECT_GE(world.drops, 1);
}

TEST_F(HelpSessionTest, AManualThatCannotBeStartedLeavesTheViewerReadyForTheNext) {
  world.refuses = true;
  OpenAt();
  EXPECT_FALSE(tool->HasHelpWindow());
  world.refuses = false;
  OpenAt();
  EXPECT_EQ(view->missing, "");
  EXPECT_EQ(view->shownPage, "mdi.htm#OPT0130");
}

TEST_F(HelpSessionTest, AnAnswerForAClosedViewerIsDropped) {
  world.slow = true;
  SetMark(u"OPT0130");
  Command(2);
  const auto done = world.done;
  Command(PNL_COMMAND_HIDE);
  Forget();
  done({ManualState::kWhole, book});
  EXPECT_THAT(All(), IsEmpty());
  EXPECT_FALSE(tool->HasHelpWindow());
}

TEST_F(HelpSessionTest, AnAnswerAfterTheEndIsDropped) {
  world.slow = true;
  SetMark(u"OPT0130");
  Command(2);
  const auto done = world.done;
  DestroyTool();
  Forget();
  done({ManualState::kWhole, book});
  EXPECT_THAT(All(), IsEmpty());
}

TEST_F(HelpSessionTest, EachWayInWhichAManualCantBeShownIsSaid) {
  struct Row {
    ManualState state;
    std::string text;
  };
  for (const Row& row : {Row{ManualState::kMissing, "File not found."},
                         Row{ManualState::kUnusable, "unusable oper.chm"}, Row{ManualState::kNoProgram, "T330"},
                         Row{ManualState::kNoRoom, "T331"}, Row{ManualState::kCancelled, "unusable oper.chm"}}) {
    world.books["C:\\P113\\oper.chm"] = {row.state, nullptr};
    OpenAt();
    EXPECT_EQ(view->missing, row.text);
    EXPECT_FALSE(view->bookShown);
    EXPECT_FALSE(tool->HasHelpWindow());
    EXPECT_TRUE(view->visible);
  }
}

TEST_F(HelpSessionTest, AManualThatCantBeStartedIsSaid) {
  world.refuses = true;
  OpenAt();
  EXPECT_EQ(view->missing, "unusable oper.chm");
}

TEST_F(HelpSessionTest, ADamagedManualSaysSoAndShowsWhatThereIs) {
  world.books["C:\\P113\\oper.chm"] = {ManualState::kDamaged, book};
  OpenAt();
  EXPECT_EQ(view->note, "damaged oper.chm");
  EXPECT_EQ(view->shownPage, "mdi.htm#OPT0130");
  // It stays true on every page.
  Call(&HelpSession::OnRowChosen, HelpPart::kContents, 3);
  EXPECT_EQ(view->note, "damaged oper.chm");
}

TEST_F(HelpSessionTest, ADamagedManualAndAFallbackAreBothSaid) {
  world.books["C:\\P113\\oper.chm"] = {ManualState::kDamaged, book};
  OpenAt(u"OPT0777");
  EXPECT_EQ(view->note, "damaged oper.chm\nfallback home.htm oper.chm");
}

TEST_F(HelpSessionTest, AFallbackWhosePageIsGoneIsNamedAsThatPage) {
  book->pages = {u"mdi.htm", u"start.htm"};
  book->home = u"start.htm";
  OpenAt(u"OPT0777");
  EXPECT_EQ(view->note, "no page home.htm");
  EXPECT_EQ(view->shownPage, "start.htm#");
}

TEST_F(HelpSessionTest, APageThatTheManualDoesntHaveIsSaidAndTheHomePageShown) {
  OpenAt(u"OPT0500");
  EXPECT_EQ(view->shownPage, "home.htm#");
  EXPECT_EQ(view->note, "no page lost.htm");
}

TEST_F(HelpSessionTest, APageThatCantBeShownIsSaid) {
  view->badPages = true;
  OpenAt();
  EXPECT_EQ(view->note, "no page mdi.htm");
}

TEST_F(HelpSessionTest, AManualWithoutAPageShowsItsListsAndNoNote) {
  book->home = u"";
  book->pages.clear();
  GoTo(u"oper.chm");
  EXPECT_EQ(view->note, "");
  EXPECT_EQ(view->shownPage, "");
  EXPECT_EQ(view->contents.size(), 4u);
}

TEST_F(HelpSessionTest, AMarksPageIsFoundByTheManualsOwnRules) {
  Disc("C:\\P113\\oper.mrk") = "[MARKS]\r\nOPT0130=MDI.HTM\r\n";
  OpenAt();
  EXPECT_EQ(view->shownPage, "mdi.htm#OPT0130");
}

TEST_F(HelpSessionTest, TheWindowFollowsItsParentWhileItIsShown) {
  view->parent = {0, 0, 640, 480};
  Forget();
  Call(&HelpSession::OnParentResized);
  EXPECT_THAT(All(), IsEmpty());
  OpenAt();
  view->parent = {0, 0, 1024, 768};
  Call(&HelpSession::OnParentResized);
  EXPECT_THAT(All(), ElementsAre("view move"));
  EXPECT_EQ(view->window, (Rect{0, 0, 1024, 768}));
}

TEST_F(HelpSessionTest, WithoutTheDialogTheTextOfTheStaticIsTheUsualOne) {
  language.Use(LanguagePack());
  MakeTool();
  OpenAt(u"NIX0000");
  EXPECT_EQ(view->missing, "File not found.");
}

TEST_F(HelpSessionTest, WithAllSlotsNullItOpensAndCloses) {
  table = {};
  OpenAt();
  EXPECT_TRUE(view->visible);
  EXPECT_EQ(Command(PNL_COMMAND_CLOSE_TOOL), 2);
  EXPECT_FALSE(view->visible);
}

}  // namespace
}  // namespace pnl::test
