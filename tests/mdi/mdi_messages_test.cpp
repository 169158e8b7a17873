// SPDX-License-Identifier: MIT
// The messages beside ToolCommand, and the two small services behind them: calculator result and help mark.
#include "mdi_fixture.h"

namespace pnl::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

using MdiMessages = MdiTest;

TEST_F(MdiMessages, ANumberThatIsNotTheToolsIsNotAnswered) {
  for (const std::uint32_t number : {0u, 0x10u, 0x701u, 0x803u, 0x807u, 0xC123u}) {
    EXPECT_EQ(Answer({number, 1, 1}), std::nullopt) << number;
  }
}

TEST_F(MdiMessages, CycleStartWithoutARecordAnswers0) {
  Open();
  Type("M3");
  Forget();
  EXPECT_EQ(Send(PNL_MSG_CYCLE_START, 1, 0), 0);
  EXPECT_EQ(Send(PNL_MSG_CYCLE_START, 2, 0), 0);
  EXPECT_THAT(All(), IsEmpty());
}

TEST_F(MdiMessages, CycleStartReadsOnlyTheChannelsByteOfTheRecord) {
  Open();
  Type("M3");
  Forget();
  const std::unique_ptr<unsigned char[]> record(new unsigned char[5]{9, 9, 9, 9, 1});
  EXPECT_EQ(Send(PNL_MSG_CYCLE_START, 1, reinterpret_cast<std::intptr_t>(record.get())), 0);
  EXPECT_THAT(Asked(), testing::Contains("MDILine(0,\"M3\",0,4,0)=0"));
}

TEST_F(MdiMessages, TheThirdCycleStartIsReservedAndOthersRefused) {
  PnlCycleStart record = {};
  const auto address = reinterpret_cast<std::intptr_t>(&record);
  EXPECT_EQ(Send(PNL_MSG_CYCLE_START, 3, address), -203);
  EXPECT_EQ(Send(PNL_MSG_CYCLE_START, 3, 0), -203);
  for (const std::intptr_t first : {0, 4, -1, 100}) EXPECT_EQ(Send(PNL_MSG_CYCLE_START, first, address), -200) << first;
}

TEST_F(MdiMessages, WhetherCycleStartMayBeRefusedDependsOnTheInspection) {
  PnlCycleStart record = {};
  record.channel = 1;
  const auto ask = [&] { return Send(PNL_MSG_CYCLE_START, 2, reinterpret_cast<std::intptr_t>(&record)); };
  EXPECT_EQ(ask(), 1);
  cnc.vars.At("[1].E.INSPECSTATUS").value = 3;
  EXPECT_EQ(ask(), 1) << "without the inspection variables there is no inspection";
  cnc.kernel.returns["IsNewInspecAllowed"] = 1;
  EXPECT_EQ(ask(), 4);
  cnc.vars.At("[1].E.INSPECSTATUS").readable = false;
  EXPECT_EQ(ask(), 1);
  cnc.vars.Undefine("[1].E.INSPECSTATUS");
  EXPECT_EQ(ask(), 1);
  cnc.kernel.returns["EnProcesoInspec"] = 1;
  EXPECT_EQ(ask(), 4);
}

TEST_F(MdiMessages, TheHostMayAskForTheTakenChannelAgain) {
  Forget();
  EXPECT_EQ(Send(PNL_MSG_TOOL_NOTIFY, 1, 1), 0);
  EXPECT_THAT(All(), IsEmpty());
  Open();
  Forget();
  EXPECT_EQ(Send(PNL_MSG_TOOL_NOTIFY, 1, 1), 0);
  EXPECT_THAT(All(), ElementsAre("ToolNotify 41 channel 1"));
  EXPECT_EQ(Send(PNL_MSG_TOOL_NOTIFY, 1, 2), 0);
  EXPECT_EQ(Send(PNL_MSG_TOOL_NOTIFY, 2, 1), 0);
  EXPECT_EQ(Send(PNL_MSG_TOOL_NOTIFY, 79, 1), 0);
  EXPECT_THAT(All(), IsEmpty());
}

TEST_F(MdiMessages, OtherResultsAnswer0) {
  Open();
  Forget();
  for (const std::intptr_t first : {0, 3, 4, -1}) EXPECT_EQ(Send(PNL_MSG_RESULT_READY, first), 0);
  EXPECT_THAT(All(), IsEmpty());
}

TEST_F(MdiMessages, TheCalculatorsResultReplacesTheSelection) {
  Open();
  Type("G0 X100 Z3");
  Tell([](MdiSession& session) { session.OnEditFocus(false); });
  view->selection = {4, 7};
  cnc.vars.At("E.CALCRESUL").real = 12.5;
  EXPECT_EQ(Send(PNL_MSG_RESULT_READY, 1), 0);
  EXPECT_EQ(view->edit, u"G0 X12.5 Z3");
}

struct NumberRow {
  double value;
  const char16_t* text;
};

class MdiCalcResult : public MdiTest, public testing::WithParamInterface<NumberRow> {};

TEST_P(MdiCalcResult, IsWrittenInShortestForm) {
  Open();
  cnc.vars.At("E.CALCRESUL").real = GetParam().value;
  Send(PNL_MSG_RESULT_READY, 1);
  EXPECT_EQ(view->edit, GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(AllForms, MdiCalcResult,
                         testing::Values(NumberRow{0, u"0"}, NumberRow{-1.5, u"-1.5"}, NumberRow{1e6, u"1e+06"},
                                         NumberRow{123456, u"123456"}, NumberRow{1.0 / 3, u"0.333333"},
                                         NumberRow{0.00001, u"1e-05"}));

TEST_F(MdiMessages, WithoutTheVariableTheCalculatorsResultIs0) {
  Open();
  cnc.vars.Undefine("E.CALCRESUL");
  Send(PNL_MSG_RESULT_READY, 1);
  EXPECT_EQ(view->edit, u"0");
}

TEST_F(MdiMessages, AResultThatCannotBeReadIs0) {
  Open();
  cnc.vars.At("E.CALCRESUL").real = 12.5;
  cnc.vars.At("E.CALCRESUL").readable = false;
  Send(PNL_MSG_RESULT_READY, 1);
  EXPECT_EQ(view->edit, u"0");
}

TEST_F(MdiMessages, TheCalculatorsResultOutsideState1DoesNothing) {
  Open();
  Type("M3");
  Start();
  Forget();
  Send(PNL_MSG_RESULT_READY, 1);
  EXPECT_THAT(All(), IsEmpty());
}

TEST_F(MdiMessages, TheCalculatorsResultInTheListOnlyMovesTheFocus) {
  OpenMda("M3\r\n");
  view->Move(FakeMdiView::Focus::kElsewhere);
  Send(PNL_MSG_RESULT_READY, 1);
  EXPECT_EQ(view->focus, FakeMdiView::Focus::kList);
  EXPECT_EQ(view->edit, u"");
}

TEST_F(MdiMessages, TheCalculatorsResultGoesIntoAnItemBeingEdited) {
  OpenMda();
  Menu(32773);
  cnc.vars.At("E.CALCRESUL").real = 7;
  Send(PNL_MSG_RESULT_READY, 1);
  EXPECT_EQ(view->edit, u"7");
}

class MdiHelp : public MdiTest {
 protected:
  [[nodiscard]] Text Mark() {
    EXPECT_EQ(Send(PNL_MSG_HELP_KEY, 0), 0);
    return cnc.vars.At("E.HELPDATA").text;
  }
};

TEST_F(MdiHelp, WithoutABlockTheMarkIsTheToolsOwn) {
  EXPECT_EQ(Mark(), u"OPT0130");
  Open();
  EXPECT_EQ(Mark(), u"OPT0130");
}

TEST_F(MdiHelp, ABlockGivesItsOwnMark) {
  Open();
  cnc.utilities.marks[u"G2 X1"] = u"G02";
  Type("G2 X1");
  EXPECT_EQ(Mark(), u"G02");
}

TEST_F(MdiHelp, ABlockWithoutAMarkKeepsTheToolsOwn) {
  Open();
  Type("G2 X1");
  EXPECT_EQ(Mark(), u"OPT0130");
}

TEST_F(MdiHelp, TheSelectedTextGoesBeforeTheWhole) {
  Open();
  cnc.utilities.marks[u"G54"] = u"ORIGIN";
  Type("G0 G54 X1");
  view->selection = {3, 6};
  EXPECT_EQ(Mark(), u"ORIGIN");
  view->selection = {6, 3};
  EXPECT_EQ(Mark(), u"ORIGIN");
  view->selection = {3, 600};
  EXPECT_EQ(Mark(), u"OPT0130");
  cnc.utilities.marks[u"G"] = u"LETTER";
  view->selection = {3, 4};
  EXPECT_EQ(Mark(), u"LETTER") << "one character is a selection";
  cnc.utilities.marks[u"G0 G54 X1"] = u"WHOLE";
  view->selection = {4, 4};
  EXPECT_EQ(Mark(), u"WHOLE") << "a caret is none";
  view->selection = {-7, 900};
  EXPECT_EQ(Mark(), u"WHOLE");
}

TEST_F(MdiHelp, InTheListTheSelectedItemIsAsked) {
  cnc.utilities.marks[u"M6"] = u"TOOLCHANGE";
  OpenMda("M3\r\nM6\r\n");
  cnc.utilities.marks[u"M3"] = u"SPINDLE";
  view->selected = 0;
  EXPECT_EQ(Mark(), u"SPINDLE");
  view->selected = 1;
  EXPECT_EQ(Mark(), u"TOOLCHANGE");
  view->selected = -1;
  EXPECT_EQ(Mark(), u"OPT0130");
}

TEST_F(MdiHelp, WithoutTheVariableTheAnswerIsRefused) {
  cnc.vars.Undefine("E.HELPDATA");
  EXPECT_EQ(Send(PNL_MSG_HELP_KEY, 0), -200);
}

}  // namespace
}  // namespace pnl::test
