// SPDX-License-Identifier: MIT
// The path of a block: from the start key to the kernel, and back by the channel's reports.
#include "mdi_fixture.h"

namespace pnl::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class MdiBlock : public MdiTest {
 protected:
  void SetUp() override {
    Open();
    Forget();
  }
  [[nodiscard]] bool IsRunning() const { return tool->ControlColors(MdiControl::kOther, false).has_value(); }
};

TEST_F(MdiBlock, ATypedBlockTakesTheInterlockAndGoesToTheKernel) {
  Type("G0 X10");
  EXPECT_EQ(Start(), 0);
  EXPECT_THAT(
      All(), ElementsAre("CogerPlcFree(0,1)=1", "MDILine(0,\"G0 X10\",0,4,0)=0", "view clear focus", "view redraw edit",
                         "view redraw edit", "view read-only", "view focus window", "view sign", "view focus edit",
                         "view select 0,0", "view scroll caret", "view redraw edit"));
  EXPECT_TRUE(view->readOnly);
  EXPECT_TRUE(IsRunning());
}

TEST_F(MdiBlock, ABlockRefusedByTheKernelGivesTheInterlockBack) {
  cnc.kernel.returns["MDILine"] = 5;
  Type("G0 X10");
  EXPECT_EQ(Start(), 0);
  EXPECT_THAT(All(), ElementsAre("CogerPlcFree(0,1)=1", "MDILine(0,\"G0 X10\",0,4,0)=5", "LiberarPlcFree(0,1,1)=1"));
  EXPECT_FALSE(view->readOnly);
  EXPECT_FALSE(IsRunning());
}

TEST_F(MdiBlock, ARefusedBlockStaysInTheEditForCorrection) {
  cnc.kernel.returns["MDILine"] = 5;
  Type("G0 XX");
  Start();
  EXPECT_EQ(view->edit, u"G0 XX");
  cnc.kernel.returns["MDILine"] = 0;
  Type("G0 X1");
  Start();
  Status(2);
  Status(1);
  EXPECT_THAT(HistoryShown(), ElementsAre("G0 X1"));
}

TEST_F(MdiBlock, WithoutTheInterlockNothingIsSentAndNothingShown) {
  cnc.kernel.returns["CogerPlcFree"] = 0;
  Type("G0 X10");
  EXPECT_EQ(Start(), 0);
  EXPECT_THAT(All(), ElementsAre("CogerPlcFree(0,1)=0"));
  EXPECT_FALSE(view->readOnly);
}

TEST_F(MdiBlock, AnEmptyEditNeitherTakesTheInterlockNorSends) {
  EXPECT_EQ(Start(), 0);
  EXPECT_THAT(All(), IsEmpty());
}

TEST_F(MdiBlock, ASecondPressBeforeTheReportSendsNothing) {
  Type("G0 X10");
  Start();
  Forget();
  EXPECT_EQ(Start(), 0);
  EXPECT_THAT(All(), IsEmpty());
}

TEST_F(MdiBlock, StartInChannelZeroMeansTheCurrentOne) {
  Type("M3");
  Start(0);
  EXPECT_THAT(Asked(), ElementsAre("CogerPlcFree(0,1)=1", "MDILine(0,\"M3\",0,4,0)=0"));
}

TEST_F(MdiBlock, StartInAChannelThatIsNotTheCurrentOneDoesNothing) {
  Type("M3");
  for (const int channel : {2, -1, 127}) EXPECT_EQ(Start(channel), 0);
  EXPECT_THAT(All(), IsEmpty());
}

TEST_F(MdiBlock, AHostileBlockOf255UnitsArrivesAtTheKernelAsItIs) {
  Text block(254, u'%');
  block += u'\xD800';
  view->edit = block;
  Start();
  EXPECT_EQ(All()[1], "MDILine(0,\"" + ToUtf8(block) + "\",0,4,0)=0");
}

TEST_F(MdiBlock, TheEndOfABlockEmptiesTheEditAndMakesItReadyAgain) {
  Type("G0 X10");
  Start();
  Status(2);
  Forget();
  Status(1);
  EXPECT_THAT(All(), ElementsAre("view edit \"\"", "view list insert 0 \"G0 X10\"", "view list select 0",
                                 "view redraw edit", "view writable", "view focus edit"));
  EXPECT_FALSE(view->readOnly);
  EXPECT_FALSE(IsRunning());
}

TEST_F(MdiBlock, ABlockThatRanInMdiRoleIsAtTheHeadOfTheHistoryAndTheEndOfTheList) {
  RunBlock("G0 X1");
  RunBlock("G0 X2");
  EXPECT_THAT(view->Items(), ElementsAre("G0 X1", "G0 X2"));
  EXPECT_THAT(HistoryShown(), ElementsAre("G0 X2", "G0 X1"));
}

TEST_F(MdiBlock, RunningOneBlockTwiceLeavesOneEntryAtTheHead) {
  RunBlock("G0 X1");
  RunBlock("G0 X2");
  RunBlock("G0 X1");
  EXPECT_THAT(HistoryShown(), ElementsAre("G0 X1", "G0 X2"));
}

TEST_F(MdiBlock, ABlockThatEndsBeforeItsRunningReportIsDoneAsWell) {
  Type("M3");
  Start();
  Status(1);
  EXPECT_THAT(HistoryShown(), ElementsAre("M3"));
}

TEST_F(MdiBlock, AFailedReadOfTheReportAnswersRefusedAndChangesNothing) {
  Type("M3");
  Start();
  cnc.vars.At("[1].G.FULLSTATUS").readable = false;
  Forget();
  EXPECT_EQ(Send(PNL_MSG_VARIABLE_REPORT, cnc.vars.Id("[1].G.FULLSTATUS")), -200);
  EXPECT_THAT(All(), IsEmpty());
  cnc.vars.At("[1].G.FULLSTATUS").readable = true;
  EXPECT_EQ(Send(PNL_MSG_VARIABLE_REPORT, cnc.vars.Id("[1].G.FULLSTATUS")), 0);
  EXPECT_THAT(HistoryShown(), ElementsAre("M3"));
}

TEST_F(MdiBlock, AFailedReadAtTheStartKeySendsNothing) {
  Type("M3");
  cnc.vars.At("[1].G.FULLSTATUS").readable = false;
  EXPECT_EQ(Start(), 0);
  EXPECT_THAT(All(), IsEmpty());
}

TEST_F(MdiBlock, AReportOfAnotherVariableDoesNothing) {
  EXPECT_EQ(Send(PNL_MSG_VARIABLE_REPORT, 9999), 0);
  EXPECT_THAT(All(), IsEmpty());
}

TEST_F(MdiBlock, AReportForAChannelThatIsNotOpenDoesNothing) {
  Command(5);
  Forget();
  EXPECT_EQ(Send(PNL_MSG_VARIABLE_REPORT, cnc.vars.Id("[1].G.FULLSTATUS")), 0);
  EXPECT_THAT(All(), IsEmpty());
}

TEST_F(MdiBlock, AnAbortBetweenAcceptanceAndTheFirstReportIsIgnored) {
  Type("M3");
  Start();
  Forget();
  Status(8);
  EXPECT_THAT(All(), IsEmpty());
  EXPECT_TRUE(IsRunning());
  Status(1);
  EXPECT_THAT(HistoryShown(), ElementsAre("M3"));
}

TEST_F(MdiBlock, AnAbortedBlockIsInTheHistoryOnly) {
  Type("G1 X9");
  Start();
  Status(2);
  Status(4);
  Forget();
  Status(8);
  EXPECT_THAT(All(), ElementsAre("side menu position", "main menu none", "view edit \"\"", "view writable",
                                 "view list on", "view focus edit", "view redraw edit"));
  EXPECT_THAT(view->Items(), IsEmpty());
  EXPECT_FALSE(IsRunning());
  EXPECT_THAT(HistoryShown(), ElementsAre("G1 X9"));
}

TEST_F(MdiBlock, AnAbortInState1LeavesItReady) {
  Type("half typed");
  Forget();
  Status(8);
  EXPECT_THAT(All(),
              ElementsAre("view edit \"\"", "view writable", "view list on", "view focus edit", "view redraw edit"))
      << "the menus stay as they are";
  EXPECT_FALSE(IsRunning());
  EXPECT_EQ(view->edit, u"");
  EXPECT_THAT(HistoryShown(), IsEmpty());
}

TEST_F(MdiBlock, WhatWasTypedBeforeTheLineWasShownAgainGoesIntoTheHistoryAtAnAbort) {
  Type("half typed");
  EXPECT_EQ(Command(4), 0);
  Status(8);
  EXPECT_EQ(view->edit, u"");
  EXPECT_THAT(HistoryShown(), ElementsAre("half typed"));
}

TEST_F(MdiBlock, AnInterruptionOffersCancelWhereTheBlockCanBeCancelled) {
  cnc.kernel.returns["PosibleMDICancel"] = 2;
  Type("G1 X9");
  Start();
  Status(2);
  Forget();
  Status(4);
  EXPECT_THAT(
      All(),
      ElementsAre("side menu position", "PosibleMDICancel(1)=2",
                  "WriteTxtInBlackBox(\"MDI: BLOQUE INTERRUMPIDO: ES POSIBLE CANCELAR EL BLOQUE (PosibleMDICancel = "
                  "2)\",0)=0",
                  "main menu cancel"));
  Menu(40000);
  EXPECT_THAT(All(), ElementsAre("MDICancel(1)=0"));
  EXPECT_TRUE(IsRunning());
  Status(1);
  EXPECT_FALSE(IsRunning());
}

TEST_F(MdiBlock, GoingOnAfterAnInterruptionTakesCancelAway) {
  cnc.kernel.returns["PosibleMDICancel"] = 2;
  Type("G1 X9");
  Start();
  Status(2);
  Status(4);
  Forget();
  Status(2);
  EXPECT_THAT(All(), ElementsAre("side menu position", "main menu none"));
  Status(2);
  EXPECT_THAT(All(), IsEmpty());
}

TEST_F(MdiBlock, ABlockThatEndsOutOfAnInterruptionInstallsTheMenusFirst) {
  Type("G1 X9");
  Start();
  Status(2);
  Status(4);
  Forget();
  Status(1);
  EXPECT_THAT(Asked(), ElementsAre("side menu position", "main menu none"));
  EXPECT_THAT(HistoryShown(), ElementsAre("G1 X9"));
}

TEST_F(MdiBlock, OtherStatusBytesDoNothing) {
  Type("G1 X9");
  Start();
  Forget();
  for (const int byte : {0, 3, 5, 6, 7, 9, 16, 255}) Status(byte);
  EXPECT_THAT(All(), IsEmpty());
  EXPECT_TRUE(IsRunning());
}

struct StartRow {
  int state;  // 1, 2 or 4: brought about before the key
  int byte;
  int detail;
  const char* call;  // what the key leads to, empty for nothing
};

class MdiStartKey : public MdiTest, public testing::WithParamInterface<StartRow> {};

TEST_P(MdiStartKey, DoesAsStateStatusAndDetailSay) {
  const StartRow row = GetParam();
  Open();
  if (row.state != 1) {
    Type("G1 X9");
    Start();
    Status(2);
    if (row.state == 4) Status(4);
  }
  Type("M3");  // which a running block doesn't let in
  cnc.vars.At("[1].G.FULLSTATUS").value = row.byte << 8 | row.detail;
  Forget();
  EXPECT_EQ(Start(), 0);
  const Log asked = Asked();
  EXPECT_EQ(asked.empty() ? "" : asked[0], row.call);
}

INSTANTIATE_TEST_SUITE_P(
    AllRows, MdiStartKey,
    testing::Values(StartRow{1, 1, 0, "CogerPlcFree(0,1)=1"}, StartRow{2, 1, 0, ""}, StartRow{4, 1, 0, ""},
                    StartRow{2, 2, 1, "NextSingleStep(0)=0"}, StartRow{4, 2, 1, "NextSingleStep(0)=0"},
                    StartRow{1, 2, 1, ""}, StartRow{2, 2, 0, ""}, StartRow{2, 2, 2, ""},
                    StartRow{4, 4, 4, "NextSingleStep(0)=0"}, StartRow{4, 4, 6, "NextSingleStep(0)=0"},
                    StartRow{4, 4, 5, "ClearFeedhold(0)=0"}, StartRow{4, 4, 15, "ClearFeedhold(0)=0"},
                    StartRow{4, 4, 0, ""}, StartRow{4, 4, 7, ""}, StartRow{1, 4, 4, "NextSingleStep(0)=0"},
                    StartRow{1, 0, 0, ""}, StartRow{1, 3, 1, ""}, StartRow{1, 8, 1, ""}, StartRow{2, 8, 4, ""}));

}  // namespace
}  // namespace pnl::test
