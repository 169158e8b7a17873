// SPDX-License-Identifier: MIT
// Giving a channel back: at once, when its block ends, or because automatic work waits for it.
#include "mdi_fixture.h"

namespace pnl::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

const Log kGivenBack = {"CogerPlcFree(0,1)=1",     "close report [1].G.FULLSTATUS",
                        "ToolNotify 42 channel 1", "SetMdi(1,0)=1",
                        "EndMDIMode(1)=1",         "SetMode(1,0)=1",
                        "LiberarPlcFree(0,1,1)=1", "write [1].G.CNCAUTSTATUS=0 ok flag 1",
                        "clear message",           "HostToolClosed(6,2)"};

using MdiClosing = MdiTest;

TEST_F(MdiClosing, Code5GivesAnIdleChannelBackInOrder) {
  Open();
  Forget();
  EXPECT_EQ(Command(5), 0);
  EXPECT_EQ(Asked(), kGivenBack);
  EXPECT_FALSE(view->visible);
  EXPECT_EQ(view->blinking, 0);
  EXPECT_EQ(cnc.vars.OpenReports(), 0u);
}

TEST_F(MdiClosing, TheChannelGoesBackBeforeTheWindowHides) {
  Open();
  Forget();
  Command(5);
  const Log all = All();
  const auto at = [&all](const char* line) { return std::find(all.begin(), all.end(), line); };
  EXPECT_LT(at("LiberarPlcFree(0,1,1)=1"), at("view hide"));
  EXPECT_LT(at("view blink 0"), at("HostToolClosed(6,2)"));
}

TEST_F(MdiClosing, Code5AnswersDoneAlsoWhenTheInterlockIsRefused) {
  Open();
  cnc.kernel.returns["CogerPlcFree"] = 0;
  Forget();
  EXPECT_EQ(Command(5), 0);
  EXPECT_THAT(All(), ElementsAre("CogerPlcFree(0,1)=0"));
  EXPECT_TRUE(view->visible);
}

TEST_F(MdiClosing, AChannelWhoseStatusCannotBeReadCountsAsIdle) {
  Open();
  cnc.vars.At("[1].G.FULLSTATUS").readable = false;
  EXPECT_EQ(Command(5), 0);
  EXPECT_FALSE(view->visible);
}

TEST_F(MdiClosing, AChannelThatWasNotHeldKeepsTheInterlock) {
  cnc.vars.At("[1].E.MANUALMODE").writable = false;
  Open();
  Forget();
  EXPECT_EQ(Command(5), 0);
  EXPECT_THAT(Asked(), ElementsAre("CogerPlcFree(0,1)=1", "close report [1].G.FULLSTATUS", "ToolNotify 42 channel 1",
                                   "clear message", "HostToolClosed(6,2)"));
}

TEST_F(MdiClosing, ClosingAChannelThatIsNotOpenTakesTheInterlockAndEnds) {
  Forget();
  EXPECT_EQ(Command(5), 0);
  EXPECT_THAT(All(), ElementsAre("CogerPlcFree(0,1)=1"));
}

TEST_F(MdiClosing, Code5WhileRunningHidesAtOnceAndGivesBackWhenTheBlockEnds) {
  Open();
  Type("G1 X9");
  Start();
  Status(2);
  Forget();
  EXPECT_EQ(Command(5), 1);
  EXPECT_THAT(All(), ElementsAre("view hide", "view redraw edit", "view blink 0", "HostToolClosed(6,2)"));
  Status(1);
  EXPECT_EQ(Asked(), kGivenBack);
}

TEST_F(MdiClosing, Code5InAnInterruptedBlockWaitsToo) {
  Open();
  Type("G1 X9");
  Start();
  Status(2);
  Status(4);
  EXPECT_EQ(Command(5), 1);
  EXPECT_FALSE(view->visible);
}

TEST_F(MdiClosing, Code5InAReadyStateOfABusyChannelWaits) {
  Open();
  cnc.vars.At("[1].G.FULLSTATUS").value = 0x200;
  EXPECT_EQ(Command(5), 1);
  Forget();
  Status(1);
  EXPECT_EQ(Asked(), kGivenBack);
}

TEST_F(MdiClosing, Code2TakesAPendingCloseBack) {
  Open();
  Type("G1 X9");
  Start();
  Command(5);
  EXPECT_EQ(Command(2), 0);
  Forget();
  Status(1);
  EXPECT_THAT(Asked(), IsEmpty());
  EXPECT_TRUE(view->visible);
}

TEST_F(MdiClosing, Code4LeavesAPendingCloseAsItIs) {
  Open();
  Type("G1 X9");
  Start();
  Command(5);
  Command(4);
  EXPECT_TRUE(view->visible);
  Status(1);
  EXPECT_FALSE(view->visible);
}

TEST_F(MdiClosing, APendingCloseTriesAgainWhenTheInterlockWasRefused) {
  Open();
  Type("G1 X9");
  Start();
  Command(5);
  cnc.kernel.returns["CogerPlcFree"] = 0;
  Status(1);
  EXPECT_EQ(cnc.vars.OpenReports(), 1u);
  cnc.kernel.returns["CogerPlcFree"] = 1;
  Forget();
  Status(1);
  EXPECT_EQ(Asked(), kGivenBack);
}

TEST_F(MdiClosing, AfterAnAbortThePendingCloseComesWithTheNextReadyReport) {
  Open();
  Type("G1 X9");
  Start();
  Status(2);
  Status(4);
  Command(5);
  Status(8);
  EXPECT_EQ(cnc.vars.OpenReports(), 1u);
  Status(1);
  EXPECT_EQ(cnc.vars.OpenReports(), 0u);
}

std::intptr_t Mode(std::intptr_t channel, std::intptr_t mode) { return mode << 16 | channel; }

TEST_F(MdiClosing, Code10MovesTheMarkToTheWordOfTheNewMode) {
  Open();
  Forget();
  EXPECT_EQ(Command(10, Mode(1, 1)), 0);
  EXPECT_THAT(All(),
              ElementsAre("write [1].G.CNCAUTSTATUS=0 ok flag 1", "write [1].G.CNCMANSTATUS=268435456 ok flag 1"));
  Command(5);
  EXPECT_THAT(Asked(), testing::Contains("SetMode(1,1)=1"));
}

TEST_F(MdiClosing, Code10OnAChannelThatIsNotHeldDoesNothing) {
  Forget();
  EXPECT_EQ(Command(10, Mode(1, 1)), 0);
  EXPECT_THAT(All(), IsEmpty());
}

TEST_F(MdiClosing, Code10WithAutomaticWorkWaitingGivesAnIdleChannelBack) {
  Open();
  cnc.vars.At("[1].G.CNCAUTSTATUS").value |= 0x3000;
  Command(10, Mode(1, 0));
  EXPECT_EQ(cnc.vars.OpenReports(), 0u);
  EXPECT_FALSE(view->visible);
}

TEST_F(MdiClosing, Code10WithAutomaticWorkWaitingClosesLaterWhileABlockRuns) {
  Open();
  Type("G1 X9");
  Start();
  cnc.vars.At("[1].G.CNCAUTSTATUS").value |= 0x3000;
  Forget();
  EXPECT_EQ(Command(10, Mode(1, 0)), 0);
  EXPECT_EQ(Asked().back(), "HostToolClosed(6,2)");
  EXPECT_FALSE(view->visible);
  Status(1);
  EXPECT_EQ(cnc.vars.OpenReports(), 0u);
}

TEST_F(MdiClosing, InManualModeAutomaticWorkNeverWaits) {
  cnc.vars.At("[1].E.MANUALMODE").value = 1;
  Open();
  cnc.vars.At("[1].G.CNCAUTSTATUS").value = 0x3000;
  Type("M3");
  Start();
  Status(1);
  EXPECT_TRUE(view->visible);
}

struct WaitingRow {
  std::int32_t word;
  bool waits;
};

class MdiWaiting : public MdiTest, public testing::WithParamInterface<WaitingRow> {};

TEST_P(MdiWaiting, AutomaticWorkTakesTheChannelWhenTheBlockEnds) {
  Open();
  Type("M3");
  Start();
  cnc.vars.At("[1].G.CNCAUTSTATUS").value = GetParam().word;
  Status(1);
  EXPECT_EQ(view->visible, !GetParam().waits);
  EXPECT_EQ(cnc.vars.OpenReports(), GetParam().waits ? 0u : 1u);
}

INSTANTIATE_TEST_SUITE_P(AllBits, MdiWaiting,
                         testing::Values(WaitingRow{0x1000, true}, WaitingRow{0x2000, true}, WaitingRow{0x4000, true},
                                         WaitingRow{0x8000, true}, WaitingRow{0x10000, true}, WaitingRow{0x20000, true},
                                         WaitingRow{0x40000, false}, WaitingRow{0x800, false},
                                         WaitingRow{~0x3F000, false}));

TEST_F(MdiClosing, ABlockThatEndsOutOfSightTakesNoFocus) {
  Open();
  for (const int end : {1, 8}) {
    Type("G1 X9");
    Start();
    Status(2);
    Status(4);
    Command(3);
    Forget();
    Status(end);
    const Log all = All();
    EXPECT_THAT(all, testing::Not(testing::Contains("view focus edit"))) << end;
    EXPECT_THAT(all, testing::Contains("view writable")) << end;
    Status(1);
    Command(4);
  }
}

// The host closes the channel when it hears that it is taken.
TEST_F(MdiClosing, AChannelThatTheHostClosesAtTheNewsIsGivenBackOnce) {
  cnc.vars.At("[1].E.MANUALMODE").writable = false;
  Open();
  cnc.vars.At("[1].G.FULLSTATUS").value = 0x200;
  ASSERT_EQ(Command(5), 1);
  bool closed = false;
  onHostCall = [this, &closed](const std::string& called) {
    if (called == "ToolNotify 41 channel 1" && !std::exchange(closed, true)) Command(5);
  };
  Forget();
  Status(1);
  onHostCall = nullptr;
  const Log asked = Asked();
  EXPECT_EQ(std::count(asked.begin(), asked.end(), "CogerPlcFree(0,1)=1"), 1);
}

TEST_F(MdiClosing, AReportThatCannotBeClosedDoesNotKeepTheChannel) {
  Open();
  cnc.vars.At("[1].G.FULLSTATUS").closable = false;
  Forget();
  EXPECT_EQ(Command(5), 0);
  EXPECT_THAT(Asked(), testing::IsSupersetOf(
                           {"close report [1].G.FULLSTATUS failed", "LiberarPlcFree(0,1,1)=1", "HostToolClosed(6,2)"}));
  // Reports that still come find the channel closed.
  Status(2);
  EXPECT_THAT(All(), IsEmpty());
}

}  // namespace
}  // namespace pnl::test
