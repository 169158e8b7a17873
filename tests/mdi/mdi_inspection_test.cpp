// SPDX-License-Identifier: MIT
// During an inspection the control decides when a block may run.
#include "mdi_fixture.h"

namespace pnl::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class MdiInspection : public MdiTest {
 protected:
  void SetUp() override {
    cnc.kernel.returns["IsNewInspecAllowed"] = 1;
    MakeTool();
    made_ = All();
    Open();
    Forget();
  }
  void Inspect(int value) { cnc.vars.At("[1].E.INSPECSTATUS").value = value; }
  Log made_;
};

TEST_F(MdiInspection, TheRecordOpensItsReportAndClearsTheStartRequest) {
  EXPECT_THAT(made_, testing::IsSupersetOf({"open report [1].E.INSPECSTATUS", "write [1].E.STARTONMDI=0 ok"}));
  EXPECT_EQ(cnc.vars.OpenReports(), 2u);
}

TEST_F(MdiInspection, WithoutTheVariablesTheRecordHasNone) {
  cnc.kernel.returns["IsNewInspecAllowed"] = 0;
  Forget();
  MakeTool();
  for (const std::string& line : Asked()) EXPECT_NE(line, "open report [1].E.INSPECSTATUS");
}

TEST_F(MdiInspection, AReportOfAnotherVariableChangesNothing) {
  EXPECT_EQ(Send(PNL_MSG_VARIABLE_REPORT, 12345), 0);
  EXPECT_THAT(All(), IsEmpty());
}

TEST_F(MdiInspection, TheStartKeyAsksTheControlAndSendsNothing) {
  Inspect(2);
  Type("M3");
  EXPECT_EQ(Start(), 0);
  EXPECT_THAT(All(), ElementsAre("write [1].E.STARTONMDI=1 ok"));
}

TEST_F(MdiInspection, TheBlockLeavesWhenTheControlSaysSo) {
  Inspect(2);
  Type("M3");
  Start();
  cnc.vars.At("[1].E.STARTONMDI").value = 2;
  Forget();
  cnc.vars.Set("[1].E.INSPECSTATUS", 1);
  Drain();
  EXPECT_THAT(Asked(), ElementsAre("CogerPlcFree(0,1)=1", "MDILine(0,\"M3\",0,4,0)=0", "message \"Hint MDI\""));
}

TEST_F(MdiInspection, OtherAnswersOfTheControlOnlyShowTheHint) {
  Type("M3");
  for (const int status : {0, 2, 3}) {
    cnc.vars.At("[1].E.STARTONMDI").value = 2;
    Forget();
    cnc.vars.Set("[1].E.INSPECSTATUS", status);
    Drain();
    EXPECT_THAT(Asked(), ElementsAre(status == 0 ? "clear message" : "message \"Hint MDI\""));
  }
  for (const int start : {0, 1, 3}) {
    cnc.vars.At("[1].E.STARTONMDI").value = start;
    Forget();
    cnc.vars.Set("[1].E.INSPECSTATUS", 1);
    Drain();
    EXPECT_THAT(Asked(), ElementsAre("message \"Hint MDI\""));
  }
}

struct DiversionRow {
  int byte;
  bool diverted;
};

class MdiDiversion : public MdiInspection, public testing::WithParamInterface<DiversionRow> {};

TEST_P(MdiDiversion, HoldsForStatusBytes1And2And4) {
  Inspect(1);
  Type("M3");
  cnc.vars.At("[1].G.FULLSTATUS").value = GetParam().byte << 8 | 4;
  EXPECT_EQ(Start(), 0);
  const Log asked = Asked();
  EXPECT_EQ(!asked.empty() && asked[0] == "write [1].E.STARTONMDI=1 ok", GetParam().diverted);
  EXPECT_LE(asked.size(), 1u);
}

INSTANTIATE_TEST_SUITE_P(AllBytes, MdiDiversion,
                         testing::Values(DiversionRow{0, false}, DiversionRow{1, true}, DiversionRow{2, true},
                                         DiversionRow{3, false}, DiversionRow{4, true}, DiversionRow{5, false},
                                         DiversionRow{8, false}, DiversionRow{255, false}));

class MdiBothReports : public MdiInspection {
 protected:
  /// A block of the tool runs; its end and the control's start come at once, in either order.
  void BothPending(bool statusFirst) {
    Type("M3");
    Start();
    Status(2);
    cnc.vars.At("[1].E.STARTONMDI").value = 2;
    cnc.kernel.blockInHand = false;
    if (statusFirst) cnc.vars.Set("[1].G.FULLSTATUS", 0x100);
    cnc.vars.Set("[1].E.INSPECSTATUS", 1);
    if (!statusFirst) cnc.vars.Set("[1].G.FULLSTATUS", 0x100);
    Forget();
  }
};

TEST_F(MdiBothReports, EachIsHandledOnceAndNoBlockIsSentTwice) {
  for (const bool statusFirst : {true, false}) {
    SCOPED_TRACE(statusFirst);
    cnc.vars.At("[1].E.INSPECSTATUS").value = 0;
    BothPending(statusFirst);
    ASSERT_EQ(windows.posted.size(), 2u);
    Drain();
    EXPECT_THAT(Asked(), ElementsAre("message \"Hint MDI\""));
    EXPECT_EQ(view->edit, u"");
    EXPECT_FALSE(view->readOnly);
    EXPECT_THAT(view->Items().back(), "M3");
  }
  EXPECT_THAT(HistoryShown(), ElementsAre("M3"));
}

TEST_F(MdiBothReports, TheStatusAnswersForItsOwnReportOnly) {
  cnc.vars.At("[1].E.INSPECSTATUS").value = 1;
  EXPECT_EQ(Send(PNL_MSG_VARIABLE_REPORT, cnc.vars.Id("[1].G.FULLSTATUS")), 0);
  EXPECT_THAT(Asked(), IsEmpty()) << "no hint: the inspection's report is still to come";
  EXPECT_EQ(Send(PNL_MSG_VARIABLE_REPORT, cnc.vars.Id("[1].E.INSPECSTATUS")), 0);
  EXPECT_THAT(Asked(), ElementsAre("message \"Hint MDI\""));
}

TEST_F(MdiBothReports, AnUnreadableStatusAnswersRefusedForItsOwnReportOnly) {
  cnc.vars.At("[1].G.FULLSTATUS").readable = false;
  EXPECT_EQ(Send(PNL_MSG_VARIABLE_REPORT, cnc.vars.Id("[1].G.FULLSTATUS")), -200);
  EXPECT_EQ(Send(PNL_MSG_VARIABLE_REPORT, cnc.vars.Id("[1].E.INSPECSTATUS")), 0);
}

TEST_F(MdiBothReports, TheSecondIsNotAnsweredWhenTheFirstGaveTheChannelBack) {
  Type("M3");
  Start();
  Status(2);
  EXPECT_EQ(Command(5), 1);
  cnc.vars.Set("[1].G.FULLSTATUS", 0x100);
  cnc.vars.Set("[1].E.INSPECSTATUS", 1);
  cnc.kernel.blockInHand = false;
  Forget();
  Drain();
  EXPECT_EQ(Asked().back(), "HostToolClosed(6,2)");
}

TEST_F(MdiInspection, WithoutAStartRequestVariableTheKeyIsDivertedAllTheSame) {
  cnc.vars.Undefine("[1].E.STARTONMDI");
  MakeTool();
  Open();
  Inspect(1);
  Type("M3");
  Forget();
  Start();
  EXPECT_THAT(All(), IsEmpty());
}

TEST_F(MdiInspection, AnUnreadableInspectionIsNone) {
  Inspect(1);
  cnc.vars.At("[1].E.INSPECSTATUS").readable = false;
  Type("M3");
  Start();
  EXPECT_EQ(Asked()[0], "CogerPlcFree(0,1)=1");
}

TEST_F(MdiInspection, TheHintFollowsTheRole) {
  Inspect(1);
  Command(8);
  EXPECT_EQ(Asked().back(), "message \"Hint MDA\"");
  Command(8);
  EXPECT_EQ(Asked().back(), "message \"Hint MDI\"");
  Inspect(0);
  Command(8);
  EXPECT_EQ(Asked().back(), "clear message");
}

TEST_F(MdiInspection, OpeningDuringAnInspectionShowsTheHint) {
  Command(5);
  Inspect(1);
  Forget();
  Command(2);
  EXPECT_EQ(Asked().back(), "message \"Hint MDI\"");
}

TEST_F(MdiInspection, TheVeryFirstOpeningShowsTheHintToo) {
  MakeTool();
  Inspect(1);
  Open();
  EXPECT_EQ(Asked().back(), "message \"Hint MDI\"");
}

TEST_F(MdiInspection, LeavingTheChannelEndsTheInspection) {
  Inspect(1);
  Forget();
  Command(5);
  const Log asked = Asked();
  EXPECT_THAT(asked, testing::Contains("write [1].E.INSPECSTATUS=0 ok"));
  const auto mark = std::find(asked.begin(), asked.end(), "write [1].G.CNCAUTSTATUS=0 ok flag 1");
  ASSERT_NE(mark, asked.end());
  EXPECT_EQ(*(mark + 1), "write [1].E.INSPECSTATUS=0 ok");
}

TEST_F(MdiInspection, Code6ClosesOnlyDuringAnInspection) {
  EXPECT_EQ(Command(6), -200);
  cnc.vars.At("[1].E.INSPECSTATUS").readable = false;
  EXPECT_EQ(Command(6), -200);
  cnc.vars.At("[1].E.INSPECSTATUS").readable = true;
  EXPECT_TRUE(view->visible);
  Inspect(1);
  EXPECT_EQ(Command(6), 0);
  EXPECT_FALSE(view->visible);
}

TEST_F(MdiInspection, Code6WithoutTheVariableIsRefused) {
  cnc.kernel.returns["IsNewInspecAllowed"] = 0;
  MakeTool();
  Open();
  Inspect(1);
  EXPECT_EQ(Command(6), -200);
}

TEST_F(MdiInspection, EscapeDoesNotHideARunningBlockDuringAnInspection) {
  Type("G1 X9");
  Start();
  Status(2);
  cnc.kernel.returns["EnProcesoInspec"] = 1;
  EXPECT_TRUE(Key(MdiKey::kEscape));
  EXPECT_TRUE(view->visible);
  cnc.kernel.returns["EnProcesoInspec"] = 0;
  EXPECT_TRUE(Key(MdiKey::kEscape));
  EXPECT_FALSE(view->visible);
}

TEST_F(MdiInspection, AReportOfAChannelThatIsNotOpenIsNotAnswered) {
  Command(5);
  Forget();
  cnc.vars.Set("[1].E.INSPECSTATUS", 1);
  Drain();
  EXPECT_THAT(All(), IsEmpty());
}

}  // namespace
}  // namespace pnl::test
