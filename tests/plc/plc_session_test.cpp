// SPDX-License-Identifier: MIT
// Messages, help and files compete for one window.
#include <climits>

#include "plc/plc_rig.h"

namespace pnl::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr std::int64_t kErrorType = 0x10000000;

class PlcTest : public PlcToolTest {
 protected:
  PlcTest() {
    Message(0, 3, u"oil is low", u"text.txt#3");
    Message(0, 5, u"door is open", u"page.htm");
    Message(1, 7, u"no air", u"");
    MakeTool();
    All();
  }
};

// Opening.

TEST_F(PlcTest, TheToolWaitsHiddenWithItsDialogsSizeAtTheCorner) {
  EXPECT_FALSE(view->visible);
  EXPECT_EQ(Mode(), PlcMode::kClosed);
  EXPECT_EQ(view->window, (Rect{0, 0, 354, 367}));
  EXPECT_EQ(cnc.OpenReports(), 1u);
  EXPECT_EQ(tool->Queue().CurrentCode(), 2'000'000'000u);
}

TEST_F(PlcTest, BeforeTheFirstMessageTheTitleIsGreyAndBlack) {
  EXPECT_EQ(view->titleBack, 0xC0C0C0u);
  EXPECT_EQ(view->titleText, 0u);
  EXPECT_EQ(view->rects[plc_id::kTitle], (Rect{0, 0, 354, 30}));
}

struct SizeRow {
  int width;
  int height;
  Rect window;
};

TEST_F(PlcTest, ADialogWithoutASizeHasTheUsualOne) {
  for (const SizeRow& row : {SizeRow{100, 80, {0, 0, 150, 130}}, SizeRow{1, 1, {0, 0, 2, 2}},
                             SizeRow{0, 80, {0, 0, 354, 130}}, SizeRow{100, 0, {0, 0, 150, 367}}}) {
    PackContents contents;
    contents.dialogs[plc_id::kDialog].width = row.width;
    contents.dialogs[plc_id::kDialog].height = row.height;
    LanguagePack pack;
    ASSERT_TRUE(pack.Parse(BuildPack(contents)));
    language.Use(std::move(pack));
    MakeTool();
    EXPECT_EQ(view->window, row.window);
  }
}

// A window that has that size already isn't resized, and its controls would have no place.
TEST_F(PlcTest, AWindowThatHasItsDialogsSizeAlreadyGetsItsControlsPlacedAllTheSame) {
  DestroyTool();
  view = std::make_unique<FakePlcView>(log, windows);
  view->window = {0, 0, 354, 367};
  tool = std::make_shared<PlcSession>(context, *view);
  Call(&PlcSession::Start);
  EXPECT_EQ(view->rects[plc_id::kTitle], (Rect{0, 0, 354, 30}));
  EXPECT_EQ(view->rects[plc_id::kText], (Rect{0, 30, 354, 367}));
}

TEST_F(PlcTest, AReportIsReadInOrder) {
  Report(3);
  EXPECT_THAT(All(), ElementsAre("HostMayOpenTool(1)", "HostToolOpening(1)", "view show", "view top", "view focus",
                                 "Connect()=1", "CreateMsg()=1", "ReadMsg(0,3)=1", testing::StartsWith("DeleteMsg("),
                                 testing::StartsWith("Disconnect("), "view top"));
  EXPECT_EQ(Title(), " Message (3): oil is low");
  EXPECT_EQ(view->Area(), "text");
  EXPECT_EQ(view->content, "Text 3");
  EXPECT_EQ(Mode(), PlcMode::kMessage);
}

TEST_F(PlcTest, AReportOfValue0AddsNothingButStillAsksToOpenTheWindow) {
  Report(0);
  EXPECT_THAT(All(), ElementsAre("HostMayOpenTool(1)", "HostToolOpening(1)", "view show", "view top", "view focus"));
  EXPECT_THAT(tool->Queue().Codes(), IsEmpty());
  EXPECT_EQ(Mode(), PlcMode::kClosed);
  EXPECT_EQ(view->Area(), "nothing");
  Escape();
  EXPECT_THAT(HostCalls(), ElementsAre("HostToolClosed(1,2)"));
  EXPECT_FALSE(view->visible);
}

TEST_F(PlcTest, TwoReportsOfOneCodeShowItOnce) {
  Report(3);
  Report(3);
  EXPECT_THAT(tool->Queue().Codes(), ElementsAre(3u));
  Escape();
  EXPECT_EQ(Mode(), PlcMode::kClosed);
}

TEST_F(PlcTest, AHostThatRefusesLeavesTheCodesForTheNextReport) {
  mayOpen = false;
  Report(5);
  EXPECT_THAT(All(), ElementsAre("HostMayOpenTool(1)"));
  EXPECT_FALSE(view->visible);
  EXPECT_THAT(tool->Queue().Codes(), ElementsAre(5u));
  mayOpen = true;
  Report(0);
  EXPECT_TRUE(view->visible);
  EXPECT_EQ(Title(), " Message (5): door is open");
}

TEST_F(PlcTest, WithAllSlotsNullTheWindowStaysHidden) {
  table = {};
  Report(3);
  Help(u"text.txt#1");
  File(u"text.txt#1");
  EXPECT_FALSE(view->visible);
}

TEST_F(PlcTest, AVariableThatCannotBeReadStopsAtOnce) {
  cnc.Define(u"E.PLCMSGDATA", rig::VariableType::kInt, std::int64_t{3}, false, true);
  MakeTool();
  All();
  Report(3);
  EXPECT_THAT(All(), IsEmpty());
  EXPECT_THAT(tool->Queue().Codes(), IsEmpty());
}

TEST_F(PlcTest, AReportOfAnotherVariableIsNotTheTools) {
  Call(&PlcSession::OnReport, 12345, 0);
  EXPECT_THAT(All(), IsEmpty());
}

// Which is shown.

TEST_F(PlcTest, WithCode5OnTheScreenAReportOf3Shows3AtOnceAndEscShows5Again) {
  Report(5);
  EXPECT_EQ(view->Area(), "page");
  Report(3);
  EXPECT_EQ(Title(), " Message (3): oil is low");
  EXPECT_EQ(view->Area(), "text");
  All();
  Escape();
  EXPECT_EQ(Title(), " Message (5): door is open");
  EXPECT_EQ(view->Area(), "page");
  EXPECT_THAT(HostCalls(), IsEmpty()) << "the window stays open";
}

TEST_F(PlcTest, AHigherCodeWaits) {
  Report(3);
  All();
  Report(5);
  EXPECT_EQ(Title(), " Message (3): oil is low");
  EXPECT_THAT(HostCalls(), ElementsAre("HostMayOpenTool(1)", "HostToolOpening(1)"));
}

TEST_F(PlcTest, LeavingTheLastMessageClosesTheWindow) {
  Report(3);
  All();
  Escape();
  EXPECT_THAT(All(), ElementsAre("HostToolClosed(1,2)", "view hide"));
  EXPECT_EQ(Mode(), PlcMode::kClosed);
  EXPECT_EQ(view->Area(), "nothing");
}

TEST_F(PlcTest, ALeftMessageMayComeAgain) {
  Report(3);
  Escape();
  Report(3);
  EXPECT_EQ(Title(), " Message (3): oil is low");
  EXPECT_TRUE(view->visible);
}

TEST_F(PlcTest, EscInHelpClosesTheHelpAndForwardsEscToTheHost) {
  Help(u"text.txt#1");
  EXPECT_EQ(Mode(), PlcMode::kHelp);
  All();
  Escape();
  EXPECT_THAT(All(), ElementsAre("HostToolClosed(1,2)", "view hide", "HostForwardKey(27)"));
}

TEST_F(PlcTest, EscInHelpOverAMessageShowsTheMessageAgainAndForwardsEsc) {
  Report(5);
  Help(u"text.txt#1", u"Help of 12");
  EXPECT_EQ(Title(), "Help of 12");
  All();
  Escape();
  EXPECT_EQ(Title(), " Message (5): door is open");
  EXPECT_THAT(HostCalls(), ElementsAre("HostForwardKey(27)"));
}

TEST_F(PlcTest, HidingTheHelpGoesOnWithoutForwardingAKey) {
  Report(5);
  Help(u"text.txt#1");
  All();
  HideHelp();
  EXPECT_EQ(Mode(), PlcMode::kMessage);
  EXPECT_THAT(tool->Queue().Codes(), ElementsAre(5u)) << "nothing is removed";
  EXPECT_THAT(HostCalls(), IsEmpty());
  HideHelp();
  EXPECT_EQ(Mode(), PlcMode::kMessage) << "without help it does nothing";
  EXPECT_THAT(All(), IsEmpty());
}

TEST_F(PlcTest, HidingTheOnlyHelpClosesTheWindow) {
  Help(u"text.txt#1");
  All();
  HideHelp();
  EXPECT_THAT(All(), ElementsAre("HostToolClosed(1,2)", "view hide"));
}

TEST_F(PlcTest, AMessageNeverDisplacesHelp) {
  Help(u"text.txt#1", u"Help of 12");
  All();
  Report(3);
  EXPECT_EQ(Title(), "Help of 12");
  EXPECT_EQ(Mode(), PlcMode::kHelp);
  EXPECT_THAT(HostCalls(), ElementsAre("HostMayOpenTool(1)", "HostToolOpening(1)")) << "it is asked all the same";
  Escape();
  EXPECT_EQ(Title(), " Message (3): oil is low");
}

TEST_F(PlcTest, AFileIsShownWhenNothingElseIs) {
  File(u"text.txt#2", u"Maintenance");
  EXPECT_THAT(All(), ElementsAre("HostMayOpenTool(1)", "HostToolOpening(1)", "view show", "view top", "view focus",
                                 "view top"));
  EXPECT_EQ(Title(), "Maintenance");
  EXPECT_EQ(view->content, "Text 2");
  EXPECT_EQ(view->titleBack, 0x445566u);
  EXPECT_EQ(view->titleText, 0x010101u);
  EXPECT_EQ(Mode(), PlcMode::kFile);
  EXPECT_EQ(tool->Queue().Files().front().first, 77);
}

TEST_F(PlcTest, AFileWhileSomethingElseIsShownOnlyQueues) {
  Report(3);
  All();
  File(u"text.txt#2", u"Maintenance");
  EXPECT_THAT(All(), IsEmpty());
  EXPECT_EQ(Title(), " Message (3): oil is low");
  Escape();
  EXPECT_EQ(Title(), "Maintenance");
  File(u"page.htm", u"Second");
  EXPECT_EQ(Title(), "Maintenance");
  Escape();
  EXPECT_EQ(Title(), "Second");
  Help(u"text.txt#1", u"Help");
  File(u"text.txt#9", u"Third");
  EXPECT_EQ(Title(), "Help");
  Escape();
  EXPECT_EQ(Title(), "Second") << "help displaced it";
  Escape();
  EXPECT_EQ(Title(), "Third");
  Escape();
  EXPECT_EQ(Mode(), PlcMode::kClosed);
}

TEST_F(PlcTest, AReportDisplacesAFileWhichComesBack) {
  File(u"text.txt#2", u"Maintenance");
  Report(5);
  EXPECT_EQ(Title(), " Message (5): door is open");
  Escape();
  EXPECT_EQ(Title(), "Maintenance");
  EXPECT_EQ(Mode(), PlcMode::kFile);
}

// The mode changes before the host is asked. Whoever turns that round shows a file twice or never.
TEST_F(PlcTest, ARecordThatTheHostRefusesKeepsItsMode) {
  mayOpen = false;
  File(u"text.txt#2", u"Maintenance");
  EXPECT_EQ(Mode(), PlcMode::kFile);
  EXPECT_FALSE(view->visible);
  EXPECT_EQ(view->Area(), "nothing");
  mayOpen = true;
  File(u"text.txt#3", u"Second");
  EXPECT_FALSE(view->visible) << "it only queues";
  Report(5);
  Escape();
  EXPECT_EQ(Title(), "Maintenance");
}

TEST_F(PlcTest, HelpThatTheHostRefusesKeepsItsModeToo) {
  mayOpen = false;
  Help(u"text.txt#1", u"Help of 12");
  EXPECT_EQ(Mode(), PlcMode::kHelp);
  EXPECT_FALSE(view->visible);
  EXPECT_EQ(view->Area(), "nothing");
  mayOpen = true;
  Report(3);
  EXPECT_TRUE(view->visible);
  EXPECT_EQ(Title(), "Help of 12") << "the message waits for the end of the help";
  All();
  Escape();
  EXPECT_EQ(Title(), " Message (3): oil is low");
  EXPECT_THAT(HostCalls(), ElementsAre("HostForwardKey(27)"));
}

TEST_F(PlcTest, ANullRecordDoesNothing) {
  Call(&PlcSession::ShowErrorHelp, nullptr);
  Call(&PlcSession::ShowFile, 1, nullptr);
  EXPECT_THAT(All(), IsEmpty());
  EXPECT_EQ(Mode(), PlcMode::kClosed);
}

TEST_F(PlcTest, ARecordMayHaveNullTexts) {
  const ShowFileRecord record{1, 2, nullptr, nullptr};
  Call(&PlcSession::ShowErrorHelp, &record);
  EXPECT_EQ(Title(), "");
  EXPECT_EQ(view->Area(), "nothing");
}

// Messages.

struct TitleRow {
  std::int64_t code;
  const char* title;
};

TEST_F(PlcTest, TheTypeInTheTopBitsChoosesTheTitlesWord) {
  Message(0, 0x0FFFFFFF, u"last", u"");
  Message(2, 1, u"other", u"");
  for (const TitleRow& row :
       {TitleRow{3, " Message (3): oil is low"}, TitleRow{kErrorType + 7, " PLC error (7): no air"},
        TitleRow{0x0FFFFFFF, " Message (268435455): last"}, TitleRow{0x20000001, ": other"},
        TitleRow{4, " Message (4): "}, TitleRow{kErrorType + 8, " PLC error (8): "}, TitleRow{0x30000001, ": "}}) {
    Report(row.code);
    EXPECT_EQ(Title(), row.title);
    Escape();
  }
}

// The code that means none is no more than a high number.
TEST_F(PlcTest, ACodeAboveTheCodeForNoneOpensAnEmptyWindowAndComesWithEsc) {
  Message(8, 1, u"negative", u"");
  Report(INT_MIN + 1);
  EXPECT_TRUE(view->visible);
  EXPECT_EQ(Mode(), PlcMode::kClosed);
  Escape();
  EXPECT_EQ(Title(), ": negative");
  EXPECT_EQ(Mode(), PlcMode::kMessage);
  Escape();
  EXPECT_FALSE(view->visible);
}

TEST_F(PlcTest, AMessageThatIsNotInTheTableHasNeitherTextNorDocument) {
  Report(5);
  Report(4);
  EXPECT_EQ(Title(), " Message (4): ");
  EXPECT_EQ(view->Area(), "nothing");
}

TEST_F(PlcTest, AMessageThatIsNotFoundIsStillDeletedAndTheTableLeft) {
  Report(4);
  Log calls = All();
  std::erase_if(calls, [](const std::string& line) { return line.starts_with("Host") || line.starts_with("view"); });
  EXPECT_THAT(calls, ElementsAre("Connect()=1", "CreateMsg()=1", "ReadMsg(0,4)=0",
                                 testing::StartsWith("DeleteMsg(0,4)"), testing::StartsWith("Disconnect(")));
}

TEST_F(PlcTest, ATableThatCannotConnectGivesTheSameResult) {
  cnc.Returns("Connect", {0});
  Report(3);
  EXPECT_EQ(Title(), " Message (3): ");
  EXPECT_EQ(view->Area(), "nothing");
  const Log calls = All();
  EXPECT_THAT(calls, testing::Contains("Connect()=0"));
  EXPECT_THAT(calls, testing::Not(testing::Contains(testing::StartsWith("Disconnect"))));
}

TEST_F(PlcTest, AMessageIsGreenWithBlackText) {
  Report(3);
  EXPECT_EQ(view->titleBack, 0x2C8064u);
  EXPECT_EQ(view->titleText, 0u);
  Help(u"text.txt#1");
  EXPECT_EQ(view->titleBack, 0x112233u);
  EXPECT_EQ(view->titleText, 0xFFFFFFu);
  Escape();
  EXPECT_EQ(view->titleBack, 0x2C8064u);
  EXPECT_EQ(view->titleText, 0u);
}

// The text's colour is set together with the background only. So a file that is green itself leaves its text's colour.
TEST_F(PlcTest, AMessageAfterAGreenFileKeepsTheFilesTextColour) {
  const ShowFileRecord record{0x2C8064, 0x0000FF, u"text.txt#1", u"Green"};
  Call(&PlcSession::ShowFile, 0, &record);
  Report(3);
  EXPECT_EQ(view->titleBack, 0x2C8064u);
  EXPECT_EQ(view->titleText, 0x0000FFu);
}

// Commands.

TEST_F(PlcTest, TheHostHidesTheWindowOnly) {
  Report(3);
  All();
  ToolCommand(6);
  EXPECT_THAT(All(), ElementsAre("view hide"));
  EXPECT_EQ(Mode(), PlcMode::kMessage);
  EXPECT_THAT(tool->Queue().Codes(), ElementsAre(3u));
}

TEST_F(PlcTest, TheHostStepsTheQueueAsEscDoes) {
  for (const int command : {20, 34}) {
    Report(3);
    Report(5);
    Help(u"text.txt#1");
    All();
    ToolCommand(command);
    EXPECT_THAT(HostCalls(), ElementsAre("HostForwardKey(27)"));
    ToolCommand(command);
    EXPECT_EQ(Title(), " Message (5): door is open");
    ToolCommand(command);
    EXPECT_THAT(HostCalls(), ElementsAre("HostToolClosed(1,2)"));
  }
}

TEST_F(PlcTest, OtherCommandsDoNothing) {
  Report(3);
  All();
  for (const int command : {0, 1, 2, 3, 4, 5, 7, 8, 10, 14, 21, 33, 35, -1}) ToolCommand(command);
  for (const int command : {0, 32770, 32771, 32772, 32773, 32774}) Command(command);
  EXPECT_THAT(All(), IsEmpty());
}

// Beyond one message.

TEST_F(PlcTest, TheCountIsShownWhileSeveralWait) {
  Report(3);
  EXPECT_EQ(Count(), "");
  Report(5);
  EXPECT_EQ(Count(), "1 of 2");
  File(u"text.txt#1");
  EXPECT_EQ(Count(), "1 of 3");
  Escape();
  EXPECT_EQ(Count(), "2 of 3");
  Help(u"text.txt#2");
  EXPECT_EQ(Count(), "");
  Escape();
  EXPECT_EQ(Count(), "2 of 3");
  Escape();
  EXPECT_EQ(Count(), "3 of 3");
  Escape();
  EXPECT_EQ(Count(), "");
  Report(3);
  EXPECT_EQ(Count(), "") << "the count begins anew";
}

TEST_F(PlcTest, ADisplacedDocumentKeepsItsPlace) {
  Report(5);
  view->page = u"second.htm";
  view->scroll[plc_id::kPage] = 120;
  Report(3);
  view->scroll[plc_id::kText] = 40;
  Help(u"text.txt#1");
  EXPECT_EQ(view->scroll[plc_id::kText], 0) << "help begins at its top";
  view->scroll[plc_id::kText] = 7;
  Escape();
  EXPECT_EQ(view->scroll[plc_id::kText], 40);
  Escape();
  EXPECT_EQ(view->page, u"second.htm");
  EXPECT_EQ(view->scroll[plc_id::kPage], 120);
  Escape();
  Report(5);
  EXPECT_EQ(view->page, u"page.htm") << "a message that was left begins anew";
  EXPECT_EQ(view->scroll[plc_id::kPage], 0);
}

// The area shows the message's text on; its place was kept as the file's.
TEST_F(PlcTest, AFileThatTheHostRefusesBeginsAtItsTop) {
  Report(3);
  File(u"text.txt#2");
  view->scroll[plc_id::kText] = 40;
  mayOpen = false;
  Escape();
  EXPECT_EQ(view->content, "Text 3");
  mayOpen = true;
  Report(5);
  Escape();
  EXPECT_EQ(view->content, "Text 2");
  EXPECT_EQ(view->scroll[plc_id::kText], 0);
}

TEST_F(PlcTest, APlaceIsKeptOnceAndNotForAHelp) {
  Report(5);
  view->scroll[plc_id::kPage] = 120;
  Report(3);
  Escape();
  ASSERT_EQ(view->scroll[plc_id::kPage], 120);
  view->scroll[plc_id::kPage] = 7;
  Help(u"page.htm");
  EXPECT_EQ(view->scroll[plc_id::kPage], 0);
  view->scroll[plc_id::kPage] = 99;
  Help(u"page.htm");
  EXPECT_EQ(view->scroll[plc_id::kPage], 0) << "a help begins at its top";
  Escape();
  EXPECT_EQ(view->scroll[plc_id::kPage], 7) << "where it was last";
}

// The page comes back with the message, but can't be shown; its place is for the next time.
TEST_F(PlcTest, APageThatIsRefusedForAWhileKeepsItsPlace) {
  Report(5);
  view->scroll[plc_id::kPage] = 120;
  Report(3);
  view->refusal = PageRefusal::kUnreadable;
  Escape();
  ASSERT_EQ(view->Area(), "note");
  EXPECT_EQ(view->scroll[plc_id::kPage], 0) << "nothing is shown that could be scrolled";
  Report(3);
  view->refusal = PageRefusal::kNone;
  Escape();
  EXPECT_EQ(view->Area(), "page");
  EXPECT_EQ(view->scroll[plc_id::kPage], 120);
}

TEST_F(PlcTest, AMessageThatIsLeftTakesItsPlaceAlong) {
  Report(5);
  view->scroll[plc_id::kPage] = 120;
  Report(3);
  Escape();
  Escape();
  ASSERT_EQ(Mode(), PlcMode::kClosed);
  Report(5);
  EXPECT_EQ(view->scroll[plc_id::kPage], 0);
}

// Its document wasn't there when it came back, so its place had not been used.
TEST_F(PlcTest, AMessageThatIsLeftWithoutItsDocumentLeavesNoPlaceBehind) {
  File(u"text.txt#2");
  Report(5);
  view->scroll[plc_id::kPage] = 120;
  Report(3);
  const std::string page = files.disc["C:\\P61\\page.htm"];
  files.disc.erase("C:\\P61\\page.htm");
  Escape();
  ASSERT_EQ(view->Area(), "note");
  Escape();
  ASSERT_EQ(Mode(), PlcMode::kFile);
  files.disc["C:\\P61\\page.htm"] = page;
  Report(5);
  EXPECT_EQ(view->scroll[plc_id::kPage], 0);
}

TEST_F(PlcTest, ADisplacedFileThatIsRefusedAndLeftGivesItsPlaceToNobody) {
  File(u"text.txt#1");
  File(u"text.txt#2");
  view->scroll[plc_id::kText] = 55;
  Report(5);
  mayOpen = false;
  Escape();
  Escape();
  mayOpen = true;
  Report(3);
  Escape();
  EXPECT_EQ(view->content, "Text 2");
  EXPECT_EQ(view->scroll[plc_id::kText], 0);
}

TEST_F(PlcTest, ADisplacedFileKeepsItsPlaceAndTheNextOneBeginsAtItsTop) {
  File(u"text.txt#1");
  File(u"text.txt#2");
  view->scroll[plc_id::kText] = 55;
  Report(5);
  Escape();
  EXPECT_EQ(view->scroll[plc_id::kText], 55);
  Escape();
  EXPECT_EQ(view->content, "Text 2");
  EXPECT_EQ(view->scroll[plc_id::kText], 0);
}

}  // namespace
}  // namespace pnl::test
