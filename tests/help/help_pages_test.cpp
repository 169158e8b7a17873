// SPDX-License-Identifier: MIT
// What the operator does in an open manual: rows, the index, the search, the pages; and the picker.
#include "help/help_rig.h"

namespace pnl::test {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;

class HelpPages : public HelpToolTest {
 protected:
  HelpPages() { MakeTool(); }
  void Choose(HelpPart list, int row) { Call(&HelpSession::OnRowChosen, list, row); }
  void Search(TextView query) {
    view->lines[HelpPart::kSearchLine] = Text(query);
    Call(&HelpSession::OnSearchKey);
  }
};

TEST_F(HelpPages, ARowOfEachListOpensItsPage) {
  OpenAt();
  Choose(HelpPart::kContents, 2);
  EXPECT_EQ(view->shownPage, "mdi.htm#OPT0130");
  Choose(HelpPart::kIndexList, 1);
  EXPECT_EQ(view->shownPage, "start.htm#");
  Choose(HelpPart::kIndexList, 3);
  EXPECT_EQ(view->shownPage, "mdi.htm#K");
  book->found[u"x"] = {{u"Home", u"home.htm"}};
  Search(u"x");
  Choose(HelpPart::kResults, 0);
  EXPECT_EQ(view->shownPage, "home.htm#");
}

TEST_F(HelpPages, ARowThatIsntThereOrLeadsNowhereChangesNothing) {
  OpenAt();
  Forget();
  for (const HelpPart list : kHelpParts) {
    for (const int row : {-1, -100, 5, 100}) Choose(list, row);
  }
  Choose(HelpPart::kIndexList, 4);
  Choose(HelpPart::kContents, 4);
  Choose(HelpPart::kResults, 0);
  EXPECT_THAT(All(), IsEmpty());
}

TEST_F(HelpPages, OnlyTheLineOfTheIndexSelectsWhileItIsTypedIn) {
  OpenAt();
  view->lines[HelpPart::kSearchLine] = view->lines[HelpPart::kFindLine] = u"b";
  view->SelectRow(HelpPart::kIndexList, 3);
  for (const HelpPart line : {HelpPart::kSearchLine, HelpPart::kFindLine}) Call(&HelpSession::OnLineChanged, line);
  EXPECT_EQ(view->SelectedRow(HelpPart::kIndexList), 3);
}

TEST_F(HelpPages, ThePageThatIsShownIsSelectedInTheContents) {
  OpenAt();
  EXPECT_EQ(view->SelectedRow(HelpPart::kContents), 2);
  Choose(HelpPart::kIndexList, 1);
  EXPECT_EQ(view->SelectedRow(HelpPart::kContents), 3);
}

TEST_F(HelpPages, TypingInTheIndexSelectsTheFirstWordThatBeginsSo) {
  OpenAt();
  struct Row {
    TextView typed;
    int row;
  };
  for (const Row& row : {Row{u"b", 0}, Row{u"ST", 1}, Row{u"w", 4}, Row{u"q", -1}, Row{u"", -1}}) {
    view->lines[HelpPart::kIndexLine] = Text(row.typed);
    Call(&HelpSession::OnLineChanged, HelpPart::kIndexLine);
    EXPECT_EQ(view->SelectedRow(HelpPart::kIndexList), row.row);
  }
}

TEST_F(HelpPages, EnterInTheIndexsLineOpensTheSelectedWord) {
  OpenAt();
  view->lines[HelpPart::kIndexLine] = u"sta";
  Call(&HelpSession::OnLineChanged, HelpPart::kIndexLine);
  Call(&HelpSession::OnLineEntered, HelpPart::kIndexLine);
  EXPECT_EQ(view->shownPage, "start.htm#");
}

TEST_F(HelpPages, EnterInWhatIsNoLineSearchesNothing) {
  book->found[u"x"] = {{u"Home", u"home.htm"}};
  OpenAt();
  view->lines[HelpPart::kSearchLine] = u"x";
  Forget();
  for (const HelpPart part : {HelpPart::kPage, HelpPart::kContents, HelpPart::kResults}) {
    Call(&HelpSession::OnLineEntered, part);
  }
  EXPECT_THAT(All(), IsEmpty());
  EXPECT_THAT(view->results, IsEmpty());
}

// The search.

TEST_F(HelpPages, TheSearchsKeyShowsTheResultsTidied) {
  book->found[u"x"] = {{u"b", u"mdi.htm"}, {u"a", u"home.htm"}};
  OpenAt();
  Search(u"x");
  EXPECT_THAT(view->results, ElementsAre("a", "b"));
  EXPECT_EQ(view->status, "found 2");
  EXPECT_EQ(view->SelectedRow(HelpPart::kResults), 0);
  Search(u"none");
  EXPECT_THAT(view->results, IsEmpty());
  EXPECT_EQ(view->status, "nothing none");
  EXPECT_EQ(view->SelectedRow(HelpPart::kResults), -1);
}

// Enter opens a result; without one it searches anew.
TEST_F(HelpPages, EnterSearchesAgainWhileNothingIsFound) {
  OpenAt();
  view->lines[HelpPart::kSearchLine] = u"x";
  Call(&HelpSession::OnLineEntered, HelpPart::kSearchLine);
  ASSERT_EQ(view->status, "nothing x");
  book->found[u"x"] = {{u"Home", u"home.htm"}};
  Call(&HelpSession::OnLineEntered, HelpPart::kSearchLine);
  EXPECT_EQ(view->status, "found 1");
}

TEST_F(HelpPages, AQueryWaitsForTheIndexAndIsAnsweredThen) {
  book->slowSearch = true;
  book->found[u"x"] = {{u"b", u"mdi.htm"}, {u"a", u"home.htm"}};
  OpenAt();
  Search(u"x");
  EXPECT_EQ(view->status, "T326");
  EXPECT_THAT(view->results, IsEmpty());
  book->searchable = true;
  book->ready();
  EXPECT_THAT(view->results, ElementsAre("a", "b"));
  EXPECT_EQ(view->status, "found 2");
}

TEST_F(HelpPages, AnIndexThatNobodyWaitsForChangesNothing) {
  book->slowSearch = true;
  OpenAt();
  book->searchable = true;
  Forget();
  book->ready();
  EXPECT_THAT(All(), IsEmpty());
  EXPECT_EQ(view->status, "");
}

TEST_F(HelpPages, TheIndexOfAManualThatIsGoneIsDropped) {
  book->slowSearch = true;
  OpenAt();
  Search(u"x");
  GoTo(u"prog.chm");
  view->lines[HelpPart::kSearchLine] = u"x";
  book->searchable = true;
  book->ready();
  EXPECT_EQ(view->status, "");
  DestroyTool();
  book->ready();
}

TEST_F(HelpPages, AnIndexThatIsReadyWhenNoManualIsOpenAnyMoreIsDropped) {
  book->slowSearch = true;
  OpenAt();
  Search(u"x");
  const auto ready = book->ready;
  Command(PNL_COMMAND_CLOSE_TOOL);
  view->lines[HelpPart::kSearchLine] = u"x";
  book->searchable = true;
  ready();
  EXPECT_EQ(view->status, "");
}

TEST_F(HelpPages, ASearchWhileTheManualIsBeingOpenedWaits) {
  world.slow = true;
  SetMark(u"OPT0130");
  Command(PNL_COMMAND_OPEN);
  Search(u"x");
  EXPECT_EQ(view->status, "T326");
  book->found[u"x"] = {{u"a", u"home.htm"}};
  world.done({ManualState::kWhole, book});
  EXPECT_THAT(view->results, ElementsAre("a"));
}

TEST_F(HelpPages, AManualThatCantBeSearchedSaysSo) {
  book->searchRefuses = true;
  OpenAt();
  EXPECT_EQ(view->status, "T341");
}

TEST_F(HelpPages, ARowOfTheResultsThatIsSelectedStaysSelected) {
  book->found[u"x"] = {{u"a", u"mdi.htm"}, {u"b", u"home.htm"}};
  OpenAt();
  view->lines[HelpPart::kSearchLine] = u"x";
  Call(&HelpSession::OnLineEntered, HelpPart::kSearchLine);
  view->SelectRow(HelpPart::kResults, 1);
  view->part = HelpPart::kSearchLine;
  Key(HelpKey::kEnter);
  EXPECT_EQ(view->SelectedRow(HelpPart::kResults), 1) << "they are in order already";
}

TEST_F(HelpPages, AnIndexIsAskedOnceForAQueryThatWaited) {
  book->slowSearch = true;
  book->found[u"x"] = {{u"a", u"mdi.htm"}};
  OpenAt();
  Search(u"x");
  book->searchable = true;
  book->ready();
  ASSERT_THAT(view->results, ElementsAre("a"));
  view->lines[HelpPart::kSearchLine] = u"y";
  book->ready();
  EXPECT_THAT(view->results, ElementsAre("a")) << "nobody asked for the other word";
}

TEST_F(HelpPages, ANewManualBeginsWithEmptyLinesAndLists) {
  book->found[u"x"] = {{u"a", u"home.htm"}};
  OpenAt();
  view->lines[HelpPart::kIndexLine] = u"b";
  Search(u"x");
  GoTo(u"prog.chm");
  EXPECT_EQ(view->lines[HelpPart::kIndexLine], u"");
  EXPECT_EQ(view->lines[HelpPart::kSearchLine], u"");
  EXPECT_THAT(view->results, IsEmpty());
  EXPECT_EQ(view->status, "");
}

// Links.

TEST_F(HelpPages, ALinkThatCantBeFollowedIsSaidUntilTheNextPage) {
  OpenAt();
  Tell([](HelpSession& session) { session.OnPageRefused(u"http://example.org"); });
  EXPECT_EQ(view->note, "no address http://example.org");
  Choose(HelpPart::kContents, 0);
  EXPECT_EQ(view->note, "");
}

TEST_F(HelpPages, WhatIsRefusedWithoutAManualIsNotSaid) {
  Forget();
  Tell([](HelpSession& session) { session.OnPageRefused(u"x"), session.OnPageShown(u"a", u"b"); });
  EXPECT_THAT(All(), IsEmpty());
  EXPECT_THAT(tool->Recent().All(), IsEmpty());
}

// The picker.

TEST_F(HelpPages, ThePickerShowsTheManualsAndTheLastPagesRead) {
  OpenAt();
  Choose(HelpPart::kContents, 3);
  GoTo(u"prog.chm");
  Menu(2004);
  EXPECT_EQ(view->picked.code, 0);
  EXPECT_EQ(view->picked.note, u"");
  EXPECT_THAT(view->picked.manuals, ElementsAre(u"oper.chm", u"prog.chm", u"gone.chm"));
  EXPECT_THAT(Utf8Rows(view->picked.recent),
              ElementsAre("Operating - Programming", "Starting - Operating", "Command line - Operating"));
}

TEST_F(HelpPages, APageThatTheContentsDontHaveIsListedByItsName) {
  book->contents.clear();
  OpenAt();
  Menu(2004);
  EXPECT_THAT(Utf8Rows(view->picked.recent), ElementsAre("mdi.htm - Operating"));
}

TEST_F(HelpPages, ThePickerSaysWhyThereIsNoList) {
  struct Row {
    std::function<void()> make;
    int code;
  };
  for (const Row& row : {Row{[this] { Disc("C:\\P113\\Cnc7340.helps") = "[OTHER]\r\n"; }, 1},
                         Row{[this] { files.disc.erase("C:\\P113\\Cnc7340.helps"); }, 4306}}) {
    row.make();
    Menu(2004);
    EXPECT_EQ(view->picked.code, row.code);
    EXPECT_EQ(ToUtf8(view->picked.note), "no list Cnc7340.helps " + std::to_string(row.code));
    EXPECT_THAT(view->picked.manuals, IsEmpty());
  }
}

TEST_F(HelpPages, AChosenManualIsSentToTheViewerByName) {
  OpenAt();
  view->choice = ManualChoice{ManualChoice::List::kManuals, 1};
  std::string name;
  windows.onSend = [&](WindowHandle window, const Message& message) {
    EXPECT_EQ(window, view->handle);
    EXPECT_EQ(RegisteredMessageName(message.number), "HELPHTML_GOTOMANUAL");
    EXPECT_EQ(message.second, 0);
    name = ToUtf8(TextAt(message.first));
    Tell([&](HelpSession& session) { session.OnGoToManual(TextAt(message.first)); });
    return 0;
  };
  Menu(2004);
  EXPECT_EQ(name, "prog.chm");
  EXPECT_EQ(world.asked, "C:\\P113\\prog.chm");
  EXPECT_EQ(view->shownPage, "home.htm#");
}

TEST_F(HelpPages, ANameIsHandedOverInABufferOf260Characters) {
  Disc("C:\\P113\\Cnc7340.helps") = "[MANUALS]\r\nOPT=" + std::string(400, 'n') + "\r\n";
  view->choice = ManualChoice{ManualChoice::List::kManuals, 0};
  std::size_t size = 0;
  windows.onSend = [&](WindowHandle, const Message& message) {
    size = TextAt(message.first).size();
    return 0;
  };
  Menu(2004);
  EXPECT_EQ(size, 259u) << "and its terminator";
}

TEST_F(HelpPages, WithoutAChoiceNothingIsSent) {
  OpenAt();
  for (const auto& choice :
       {std::optional<ManualChoice>(), std::optional(ManualChoice{ManualChoice::List::kManuals, -1}),
        std::optional(ManualChoice{ManualChoice::List::kManuals, 3}),
        std::optional(ManualChoice{ManualChoice::List::kRecent, -1}),
        std::optional(ManualChoice{ManualChoice::List::kRecent, 1}),
        std::optional(ManualChoice{ManualChoice::List::kRecent, 9})}) {
    view->choice = choice;
    Forget();
    Menu(2004);
    EXPECT_THAT(All(), ElementsAre("view pick"));
    EXPECT_THAT(windows.sent, IsEmpty());
  }
}

TEST_F(HelpPages, AChosenPageOpensItsManualThere) {
  OpenAt();
  GoTo(u"prog.chm");
  Forget();
  view->choice = ManualChoice{ManualChoice::List::kRecent, 1};
  Menu(2004);
  EXPECT_EQ(world.asked, "C:\\P113\\oper.chm");
  EXPECT_EQ(view->shownPage, "mdi.htm#OPT0130");
  EXPECT_EQ(view->note, "");
}

TEST_F(HelpPages, AChosenPageOfAManualThatIsGoneIsNotFound) {
  OpenAt();
  files.disc.erase("C:\\P113\\oper.chm");
  view->choice = ManualChoice{ManualChoice::List::kRecent, 0};
  Menu(2004);
  EXPECT_EQ(view->missing, "File not found.");
  EXPECT_FALSE(tool->HasHelpWindow());
}

TEST_F(HelpPages, WhileThePickerIsOpenASecondOneDoesntOpen) {
  std::function<void()> answer;
  view->onPick = [&](const std::function<void()>& later) { answer = later; };
  Forget();
  Menu(2004);
  Menu(2004);
  EXPECT_THAT(All(), ElementsAre("view pick"));
  answer();
  Menu(2004);
  EXPECT_THAT(All(), ElementsAre("view pick"));
}

TEST_F(HelpPages, AChoiceMeansTheRowThatWasShown) {
  OpenAt();
  std::function<void()> answer;
  view->onPick = [&](const std::function<void()>& later) { answer = later; };
  view->choice = ManualChoice{ManualChoice::List::kRecent, 0};
  Menu(2004);
  // Another page is read and the list of manuals changes while the picker is open.
  GoTo(u"prog.chm");
  Disc("C:\\P113\\Cnc7340.helps") = "[MANUALS]\r\n";
  Forget();
  answer();
  EXPECT_EQ(world.asked, "C:\\P113\\oper.chm");
  EXPECT_EQ(view->shownPage, "mdi.htm#OPT0130");
}

TEST_F(HelpPages, ClosingTheViewerTakesThePickerAwayAndItsChoiceToo) {
  OpenAt();
  std::function<void()> answer;
  view->onPick = [&](const std::function<void()>& later) { answer = later; };
  view->choice = ManualChoice{ManualChoice::List::kManuals, 1};
  Menu(2004);
  ASSERT_TRUE(view->pickerOpen);
  Command(PNL_COMMAND_HIDE);
  EXPECT_FALSE(view->pickerOpen);
  answer();
  EXPECT_THAT(windows.sent, IsEmpty());
  OpenAt();
  Menu(2004);
  EXPECT_TRUE(view->pickerOpen) << "it can be opened again";
}

TEST_F(HelpPages, TheWindowMayGoWhileThePickerIsOpen) {
  OpenAt();
  view->choice = ManualChoice{ManualChoice::List::kManuals, 0};
  view->onPick = [this](const std::function<void()>&) { DestroyTool(); };
  Menu(2004);
  EXPECT_EQ(tool, nullptr);
  EXPECT_THAT(windows.sent, IsEmpty());
}

}  // namespace
}  // namespace pnl::test
