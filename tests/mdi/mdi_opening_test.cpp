// SPDX-License-Identifier: MIT
// Opening, hiding, showing again and closing in a channel: the codes of ToolCommand, and the order in which a channel
// is taken and given back.
#include "mdi_fixture.h"

namespace pnl::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

const Log kTaken = {"HostToolOpening(6)",
                    "clear message",
                    "ToolNotify 41 channel 1",
                    "write [1].E.MANUALMODE=0 ok",
                    "write [1].E.PNLMODE=2 ok",
                    "SetMdi(1,1)=1",
                    "write [1].G.CNCAUTSTATUS=268435456 ok flag 1",
                    "open report [1].G.FULLSTATUS",
                    "side menu position",
                    "main menu none",
                    "clear message"};
using MdiOpening = MdiTest;

TEST_F(MdiOpening, MakingTheToolOnlyReadsAndLaysOut) {
  EXPECT_THAT(Asked(), IsEmpty());
  EXPECT_FALSE(view->visible);
  EXPECT_EQ(view->title, u"MDI");
  EXPECT_EQ(view->blinking, 0);
  EXPECT_EQ(view->layout.window, (Rect{0, 571, 800, 600}));
  EXPECT_EQ(view->signFore, 0x02B6E8u);
  EXPECT_EQ(view->signBack, 0x02B6E8u);
}

TEST_F(MdiOpening, Code2TakesTheChannelInOrderAndShowsTheWindow) {
  Forget();
  EXPECT_EQ(Command(2), 0);
  EXPECT_EQ(Asked(), kTaken);
  EXPECT_TRUE(view->visible);
  EXPECT_EQ(view->blinking, 800);
  EXPECT_EQ(view->focus, FakeMdiView::Focus::kEdit);
  EXPECT_EQ(view->signFore, 0x05B9D2u);
  EXPECT_EQ(view->signBack, 0x02B6E8u);
}

TEST_F(MdiOpening, TheWindowIsShownThenBroughtToTheTopThenFocused) {
  Forget();
  Open();
  const Log all = All();
  const auto show = std::find(all.begin(), all.end(), "view show");
  ASSERT_LT(show + 2, all.end());
  EXPECT_EQ(*(show + 1), "view top");
  EXPECT_EQ(*(show + 2), "view focus window");
}

TEST_F(MdiOpening, Code2WhereMdiIsNotAvailableAnswersRefusedAndChangesNothing) {
  cnc.vars.Define("DM.MDI.ENABLEC1", 0);
  Forget();
  EXPECT_EQ(Command(2), -200);
  EXPECT_THAT(All(), IsEmpty());
}

TEST_F(MdiOpening, AHeldChannelOpensWithoutTheChecks) {
  Open();
  Command(3);
  cnc.vars.At("[1].G.STATUS").value = 2;
  EXPECT_EQ(Command(2), 0);
}

TEST_F(MdiOpening, ResetInspectionOpensAlthoughTheChannelRuns) {
  cnc.kernel.returns["IsMDIAllowedInResetInspect"] = 1;
  cnc.vars.At("[1].G.STATUS").value = 2;
  EXPECT_EQ(Command(2), 0);
}

TEST_F(MdiOpening, UnknownChannelsAreAnsweredAsTold) {
  Open();
  for (const char* name : {"[2].G.STATUS", "[2].E.APISTATUS", "[0].G.STATUS", "[0].E.APISTATUS"}) {
    cnc.vars.Define(name);
  }
  Forget();
  for (const std::intptr_t channel : {std::intptr_t{0}, std::intptr_t{2}, std::intptr_t{-1}, std::intptr_t{257},
                                      std::numeric_limits<std::intptr_t>::min()}) {
    EXPECT_EQ(Command(2, channel), -200) << channel;
    EXPECT_EQ(Command(3, channel), -200) << channel;
    EXPECT_EQ(Command(4, channel), -200) << channel;
    EXPECT_EQ(Command(5, channel), 0) << channel;
    EXPECT_EQ(Command(6, channel), 0) << channel;
  }
  EXPECT_EQ(Command(10, 2), -200);
  EXPECT_THAT(Asked(), IsEmpty());
}

TEST_F(MdiOpening, UnknownCodesAnswer0AndDoNothing) {
  Open();
  Forget();
  for (const std::intptr_t code : {0, 1, 9, 11, 14, 20, 34, -1, 1000}) EXPECT_EQ(Command(code), 0) << code;
  EXPECT_THAT(All(), IsEmpty());
}

TEST_F(MdiOpening, OpeningAgainTellsTheHostAgainButTakesNothingTwice) {
  Open();
  Forget();
  EXPECT_EQ(Command(2), 0);
  EXPECT_THAT(Asked(), ElementsAre("HostToolOpening(6)", "clear message", "ToolNotify 41 channel 1",
                                   "side menu position", "main menu none", "clear message"));
}

TEST_F(MdiOpening, TheManualModeIsSavedAndMarkedInItsOwnStatusWord) {
  cnc.vars.At("[1].E.MANUALMODE").value = 1;
  cnc.vars.At("[1].G.CNCMANSTATUS").value = 0x21;
  Open();
  EXPECT_EQ(cnc.vars.At("[1].E.MANUALMODE").value, 0);
  EXPECT_EQ(cnc.vars.At("[1].G.CNCMANSTATUS").value, 0x10000021);
  EXPECT_EQ(cnc.vars.At("[1].G.CNCAUTSTATUS").value, 0);
  Forget();
  Command(5);
  const Log asked = Asked();
  EXPECT_THAT(asked, testing::Contains("SetMode(1,1)=1"));
  EXPECT_EQ(cnc.vars.At("[1].G.CNCMANSTATUS").value, 0x21);
}

TEST_F(MdiOpening, AnyOtherManualModeMarksNoWord) {
  cnc.vars.At("[1].E.MANUALMODE").value = 2;
  Open();
  EXPECT_EQ(cnc.vars.At("[1].G.CNCMANSTATUS").value, 0);
  EXPECT_EQ(cnc.vars.At("[1].G.CNCAUTSTATUS").value, 0);
}

TEST_F(MdiOpening, AMarkThatIsGoneIsNotTakenAwayTwice) {
  Open();
  cnc.vars.At("[1].G.CNCAUTSTATUS").value = 0x5;
  Forget();
  Command(5);
  for (const std::string& line : Asked()) EXPECT_EQ(line.find("CNCAUTSTATUS"), std::string::npos) << line;
}

TEST_F(MdiOpening, AnUnreadableStatusWordIsNotWritten) {
  cnc.vars.At("[1].G.CNCAUTSTATUS").readable = false;
  Forget();
  Open();
  for (const std::string& line : Asked()) EXPECT_EQ(line.find("CNCAUTSTATUS"), std::string::npos) << line;
}

TEST_F(MdiOpening, WhereTheManualModeCannotBeWrittenTheWindowOpensButHoldsNothing) {
  cnc.vars.At("[1].E.MANUALMODE").writable = false;
  Forget();
  EXPECT_EQ(Command(2), 0);
  EXPECT_THAT(Asked(), ElementsAre("HostToolOpening(6)", "clear message", "ToolNotify 41 channel 1",
                                   "write [1].E.MANUALMODE=0 failed", "open report [1].G.FULLSTATUS",
                                   "side menu position", "main menu none", "clear message"));
  EXPECT_TRUE(view->visible);
  Type("M3");
  EXPECT_EQ(Start(), 0);
  EXPECT_THAT(Asked(), IsEmpty());
}

TEST_F(MdiOpening, AManualModeThatCannotBeReadKeepsWhatWasSavedLast) {
  cnc.vars.At("[1].E.MANUALMODE").readable = false;
  Forget();
  Open();
  EXPECT_THAT(Asked(), testing::IsSupersetOf({"write [1].E.MANUALMODE=0 ok", "SetMdi(1,1)=1",
                                              "write [1].G.CNCAUTSTATUS=268435456 ok flag 1"}));
  Command(5);
  EXPECT_THAT(Asked(), testing::Contains("SetMode(1,0)=1")) << "nothing was saved yet: 0";

  cnc.vars.At("[1].E.MANUALMODE").readable = true;
  cnc.vars.At("[1].E.MANUALMODE").value = 1;
  Open();
  Command(5);
  cnc.vars.At("[1].E.MANUALMODE").readable = false;
  cnc.vars.At("[1].E.MANUALMODE").value = 2;
  Open();
  Forget();
  Command(5);
  EXPECT_THAT(Asked(), testing::Contains("SetMode(1,1)=1"));
}

TEST_F(MdiOpening, AWindowDestroyedAtTheNewsTakesNoChannel) {
  // The channel was taken for a window that was gone, and nobody gave it back.
  onHostCall = [this](const std::string& called) {
    if (called == "ToolNotify 41 channel 1") DestroyTool();
  };
  Forget();
  Answer({PNL_MSG_TOOL_COMMAND, 2, 1});
  for (const std::string& line : All()) {
    EXPECT_EQ(line.find("SetMdi"), std::string::npos);
    EXPECT_EQ(line.find("write "), std::string::npos) << line;
    EXPECT_EQ(line.find("open report"), std::string::npos) << line;
  }
}

TEST_F(MdiOpening, AReadyReportTakesAChannelThatIsNotHeldYet) {
  cnc.vars.At("[1].E.MANUALMODE").writable = false;
  Open();
  cnc.vars.At("[1].E.MANUALMODE").writable = true;
  Forget();
  Status(1);
  EXPECT_THAT(Asked(), ElementsAre("ToolNotify 41 channel 1", "write [1].E.MANUALMODE=0 ok", "write [1].E.PNLMODE=2 ok",
                                   "SetMdi(1,1)=1", "write [1].G.CNCAUTSTATUS=268435456 ok flag 1"));
}

TEST_F(MdiOpening, Code3HidesAndReportsButKeepsTheChannel) {
  Open();
  Forget();
  EXPECT_EQ(Command(3), 0);
  EXPECT_THAT(All(), ElementsAre("view hide", "view redraw edit", "view blink 0", "HostToolClosed(6,2)"));
  EXPECT_EQ(cnc.vars.OpenReports(), 1u);
  EXPECT_EQ(Send(PNL_MSG_TOOL_NOTIFY, 1, 1), 0);
  EXPECT_THAT(Asked(), ElementsAre("ToolNotify 41 channel 1"));
}

TEST_F(MdiOpening, Code3BeforeTheFirstOpeningDoesNothing) {
  Forget();
  EXPECT_EQ(Command(3), 0);
  EXPECT_THAT(All(), IsEmpty());
}

TEST_F(MdiOpening, Code4ShowsAnOpenChannelAgain) {
  Open();
  Command(3);
  Forget();
  EXPECT_EQ(Command(4), 0);
  EXPECT_THAT(Asked(), ElementsAre("HostToolOpening(6)", "clear message", "ToolNotify 41 channel 1",
                                   "side menu position", "main menu none", "clear message"));
  EXPECT_TRUE(view->visible);
  EXPECT_EQ(view->blinking, 800);
}

TEST_F(MdiOpening, Code4OnAChannelThatIsNotOpenShowsNothing) {
  Forget();
  EXPECT_EQ(Command(4), 0);
  EXPECT_FALSE(view->visible);
  EXPECT_THAT(Asked(), IsEmpty());
}

TEST_F(MdiOpening, Code4WhileABlockRunsLeavesTheEditReadOnly) {
  Open();
  Type("M3");
  Start();
  Command(3);
  Command(4);
  EXPECT_TRUE(view->readOnly);
  Status(1);
  EXPECT_THAT(HistoryShown(), ElementsAre("M3"));
}

TEST_F(MdiOpening, Code4WhileABlockRunsKeepsTheBlockThatWasSent) {
  Open();
  Type("M3");
  Start();
  view->edit = u"not sent";
  Command(4);
  Status(1);
  EXPECT_THAT(HistoryShown(), ElementsAre("M3"));
}

TEST_F(MdiOpening, Code7PutsTheCaretToTheEndAndTheFocusBack) {
  Open();
  Type("G0 X1");
  view->Move(FakeMdiView::Focus::kElsewhere);
  EXPECT_EQ(Command(7), 0);
  EXPECT_EQ(view->selection, (TextSelection{5, 5}));
  EXPECT_EQ(view->focus, FakeMdiView::Focus::kEdit);
}

TEST_F(MdiOpening, Code7OutsideState1DoesNothing) {
  Open();
  Type("G0 X1");
  Start();
  Forget();
  EXPECT_EQ(Command(7), 0);
  EXPECT_THAT(All(), IsEmpty());
}

TEST_F(MdiOpening, Code7AndCode8BeforeTheFirstOpeningDoNothing) {
  Forget();
  EXPECT_EQ(Command(7), 0);
  EXPECT_EQ(Command(8), 0);
  EXPECT_THAT(All(), IsEmpty());
}

struct ChannelCountRow {
  int value;  // of MPG.NCHANNEL; -99 for absent
  bool readable;
  int result;  // of code 2 in channel 1
};

class MdiChannelCount : public MdiTest, public testing::WithParamInterface<ChannelCountRow> {};

TEST_P(MdiChannelCount, IsOneUnlessTheMachineSaysNone) {
  if (GetParam().value != -99) cnc.vars.Define("MPG.NCHANNEL", GetParam().value).readable = GetParam().readable;
  MakeTool();
  EXPECT_EQ(Command(2), GetParam().result);
  EXPECT_EQ(Command(2, 2), -200);
  EXPECT_EQ(view->title, u"MDI");
}

INSTANTIATE_TEST_SUITE_P(AllValues, MdiChannelCount,
                         testing::Values(ChannelCountRow{-99, true, 0}, ChannelCountRow{1, false, 0},
                                         ChannelCountRow{0, false, 0}, ChannelCountRow{-1, true, 0},
                                         ChannelCountRow{1, true, 0}, ChannelCountRow{2, true, 0},
                                         ChannelCountRow{3, true, 0}, ChannelCountRow{0, true, -200}));

TEST_F(MdiOpening, WithAllSlotsNullTheToolStillOpensRunsAndCloses) {
  table = {};
  EXPECT_EQ(Command(2), 0);
  RunBlock("M3");
  EXPECT_EQ(Command(8), 0);
  Menu(32775);
  Send(PNL_MSG_EXPLORER_ENDED, 5, 0);
  EXPECT_EQ(Command(5), 0);
}

TEST_F(MdiOpening, DestroyingTheWindowClosesReportsAndMenusAndStoresAll) {
  Open();
  RunBlock("M3");
  DestroyTool();
  EXPECT_EQ(cnc.vars.OpenReports(), 0u);
  EXPECT_EQ(menus.Count(), 0u);
  EXPECT_EQ(Disc("MDIC1.DAT"), "M3\r\n");
  EXPECT_EQ(Disc("MDAC1.DAT"), "M3\r\n");
  EXPECT_NE(Disc("MDIMAN.INI"), "");
}

TEST_F(MdiOpening, AfterARestartBothListsAreBack) {
  Open();
  RunBlock("M3");
  RunBlock("M4");
  MakeTool();
  Open();
  EXPECT_THAT(view->Items(), ElementsAre("M3", "M4"));
  EXPECT_THAT(HistoryShown(), ElementsAre("M4", "M3"));
}

TEST_F(MdiOpening, ADestroyedLogicAnswersNothing) {
  const std::shared_ptr<MdiSession> kept = tool;
  DestroyTool();
  tool = kept;
  EXPECT_EQ(Answer({PNL_MSG_TOOL_COMMAND, 2, 1}), std::nullopt);
  EXPECT_FALSE(Key(MdiKey::kEnter));
  Tell([](MdiSession& session) { session.OnLeftPress(false); });
  Tell([](MdiSession& session) { session.OnWindowFocus(); });
  Tell([](MdiSession& session) { session.OnEditFocus(true); });
  Tell([](MdiSession& session) { session.OnListFocus(); });
  Tell([](MdiSession& session) { session.OnParentResized(); });
  tool->End();
  tool.reset();
}

TEST_F(MdiOpening, AnotherSizeOfTheParentLaysOutAgain) {
  Open();
  view->parent = {0, 0, 1000, 700};
  Tell([](MdiSession& session) { session.OnParentResized(); });
  EXPECT_EQ(view->layout.window, (Rect{0, 671, 1000, 700}));
}

}  // namespace
}  // namespace pnl::test
