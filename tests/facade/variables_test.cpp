// SPDX-License-Identifier: MIT
#include "facade/variables.h"

#include "support/sim_fixture.h"

namespace pnl {
namespace {

/// A server with one variable, of the PLC, whose format is its own.
class PlcVariable final : public Variables {
 public:
  VariableInfo Bind(TextView name) override {
    if (name != u"PLC.R100") return {};
    return {17, 18, 5, 2, u'*', true};
  }
  int ReadInt(std::int32_t, std::int32_t&) override { return variable_code::kNoValue; }
  int WriteInt(std::int32_t, std::int32_t, int) override { return variable_code::kNotAllowed; }
  int ReadDouble(std::int32_t, double&) override { return variable_code::kNoValue; }
  int WriteDouble(std::int32_t, double) override { return variable_code::kNotAllowed; }
  int ReadTxt(std::int32_t, Text&) override { return variable_code::kNoValue; }
  int WriteTxt(std::int32_t, TextView) override { return variable_code::kNotAllowed; }
  int UpdateCache(std::int32_t) override { return variable_code::kDone; }
  int OpenReport(std::int32_t, WindowHandle) override { return variable_code::kDeadWindow; }
  int CloseReport(std::int32_t, WindowHandle) override { return variable_code::kNoReport; }
  int GeneraReport(std::int32_t, WindowHandle) override { return variable_code::kDeadWindow; }
};

using test::SimFixture;
using testing::ElementsAre;
using testing::IsEmpty;

class Variable : public SimFixture {
 protected:
  Variable() { DefineInt(u"[1].E.PNLMODE", 2); }
  Variables& vars = cnc.Vars();
  WindowHandle window = windows.Open();
};

TEST_F(Variable, AnUnknownNameIsInvalidAndNeedsNoClose) {
  ZCVariable variable(vars, u"[9].E.PNLMODE");
  EXPECT_FALSE(variable.IsValid());
  EXPECT_FALSE(variable.IsReportOpened());
}

TEST_F(Variable, EveryOperationOnAnUnknownNameFailsAndChangesNothing) {
  ZCVariable variable(vars, u"NO.SUCH");
  std::int32_t number = 7;
  double real = 7.5;
  Text text = u"seven";
  EXPECT_NE(variable.ReadInt(number), 0);
  EXPECT_NE(variable.ReadDouble(real), 0);
  EXPECT_NE(variable.ReadTxt(text), 0);
  EXPECT_NE(variable.WriteInt(1, 1), 0);
  EXPECT_NE(variable.WriteDouble(1), 0);
  EXPECT_NE(variable.WriteTxt(u"1"), 0);
  EXPECT_NE(variable.UpdateCache(), 0);
  EXPECT_NE(variable.OpenReport(window), 0);
  EXPECT_NE(variable.CloseReport(), 0);
  EXPECT_NE(variable.GeneraReport(), 0);
  EXPECT_FALSE(variable.HandleReport(-1, 0));
  EXPECT_EQ(number, 7);
  EXPECT_EQ(real, 7.5);
  EXPECT_EQ(text, u"seven");
  EXPECT_THAT(sink.lines, IsEmpty());
  EXPECT_THAT(windows.sent, IsEmpty());
}

TEST_F(Variable, NamesAreCaseSensitive) {
  EXPECT_TRUE(ZCVariable(vars, u"[1].E.PNLMODE").IsValid());
  EXPECT_FALSE(ZCVariable(vars, u"[1].E.pnlmode").IsValid());
  EXPECT_FALSE(ZCVariable(vars, u"[1].E.PNLMODE ").IsValid());
  EXPECT_FALSE(ZCVariable(vars, u"").IsValid());
}

TEST_F(Variable, ANameCanBeBoundLater) {
  ZCVariable variable(vars);
  EXPECT_FALSE(variable.IsValid());
  EXPECT_EQ(variable.SetNombre(u"[1].E.PNLMODE"), 0);
  EXPECT_TRUE(variable.IsValid());
  EXPECT_NE(variable.SetNombre(u"NO.SUCH"), 0);
  EXPECT_FALSE(variable.IsValid());
}

TEST_F(Variable, ReadsAndWritesByType) {
  cnc.Define(u"E.CALCRESUL", rig::VariableType::kDouble, 1.5, true, true);
  cnc.Define(u"E.HELPDATA", rig::VariableType::kText, Text(u"A"), true, true);
  ZCVariable number(vars, u"[1].E.PNLMODE");
  ZCVariable real(vars, u"E.CALCRESUL");
  ZCVariable text(vars, u"E.HELPDATA");
  std::int32_t readNumber = 0;
  double readReal = 0;
  Text readText;
  EXPECT_EQ(number.ReadInt(readNumber), 0);
  EXPECT_EQ(real.ReadDouble(readReal), 0);
  EXPECT_EQ(text.ReadTxt(readText), 0);
  EXPECT_EQ(readNumber, 2);
  EXPECT_EQ(readReal, 1.5);
  EXPECT_EQ(readText, u"A");
  EXPECT_EQ(number.WriteInt(3, 1), 0);
  EXPECT_EQ(real.WriteDouble(2.5), 0);
  EXPECT_EQ(text.WriteTxt(u"B"), 0);
  EXPECT_THAT(sink.lines,
              ElementsAre("write [1].E.PNLMODE=3 ok", "write E.CALCRESUL=2.5 ok", "write E.HELPDATA=\"B\" ok"));
}

TEST_F(Variable, AFailedReadLeavesThePreset) {
  DefineInt(u"[1].MPG.CHTYPE", 1, false);
  ZCVariable variable(vars, u"[1].MPG.CHTYPE");
  std::int32_t value = 2;
  EXPECT_TRUE(variable.IsValid());
  EXPECT_NE(variable.ReadInt(value), 0);
  EXPECT_EQ(value, 2);
}

TEST_F(Variable, AReadAfterUpdateCacheSeesThePresentValue) {
  ZCVariable variable(vars, u"[1].E.PNLMODE");
  cnc.Set(u"[1].E.PNLMODE", std::int64_t{9});
  std::int32_t value = 0;
  EXPECT_EQ(variable.UpdateCache(), 0);
  EXPECT_EQ(variable.ReadInt(value), 0);
  EXPECT_EQ(value, 9);
}

TEST_F(Variable, AChangeReportsToTheWindowThatOpenedIt) {
  ZCVariable variable(vars, u"[1].E.PNLMODE");
  EXPECT_FALSE(variable.IsReport());
  ASSERT_EQ(variable.OpenReport(window), 0);
  EXPECT_TRUE(variable.IsReportOpened());
  cnc.Set(u"[1].E.PNLMODE", std::int64_t{4});
  const auto reports = TakeReports(window);
  ASSERT_EQ(reports.size(), 1U);
  EXPECT_TRUE(variable.HandleReport(reports[0], 0));
}

TEST_F(Variable, AReportIsAboutOneVariableOnly) {
  DefineInt(u"[2].E.PNLMODE", 2);
  ZCVariable first(vars, u"[1].E.PNLMODE");
  ZCVariable second(vars, u"[2].E.PNLMODE");
  first.OpenReport(window);
  second.OpenReport(window);
  cnc.Set(u"[2].E.PNLMODE", std::int64_t{4});
  const auto reports = TakeReports(window);
  ASSERT_EQ(reports.size(), 1U);
  EXPECT_FALSE(first.HandleReport(reports[0], 0));
  EXPECT_TRUE(second.HandleReport(reports[0], 0));
}

TEST_F(Variable, GeneraReportReportsAlthoughNothingChanged) {
  ZCVariable variable(vars, u"[1].E.PNLMODE");
  variable.OpenReport(window);
  EXPECT_EQ(variable.GeneraReport(), 0);
  EXPECT_EQ(TakeReports(window).size(), 1U);
  EXPECT_EQ(Get(u"[1].E.PNLMODE"), "2");
}

TEST_F(Variable, GeneraReportWithoutAnOpenReportFails) {
  ZCVariable variable(vars, u"[1].E.PNLMODE");
  EXPECT_NE(variable.GeneraReport(), 0);
  EXPECT_THAT(windows.sent, IsEmpty());
}

TEST_F(Variable, GeneraReportReachesItsOwnWindowOnly) {
  const WindowHandle other = windows.Open();
  ZCVariable mine(vars, u"[1].E.PNLMODE");
  ZCVariable theirs(vars, u"[1].E.PNLMODE");
  mine.OpenReport(window);
  theirs.OpenReport(other);
  mine.GeneraReport();
  EXPECT_EQ(TakeReports(window).size(), 1U);
  EXPECT_THAT(TakeReports(other), IsEmpty());
}

TEST_F(Variable, AClosedReportIsSilent) {
  ZCVariable variable(vars, u"[1].E.PNLMODE");
  variable.OpenReport(window);
  EXPECT_EQ(variable.CloseReport(), 0);
  EXPECT_FALSE(variable.IsReportOpened());
  cnc.Set(u"[1].E.PNLMODE", std::int64_t{4});
  EXPECT_THAT(TakeReports(window), IsEmpty());
  EXPECT_NE(variable.CloseReport(), 0);
}

TEST_F(Variable, TheHandleClosesItsReportAtItsEnd) {
  {
    ZCVariable variable(vars, u"[1].E.PNLMODE");
    variable.OpenReport(window);
    EXPECT_EQ(cnc.OpenReports(), 1U);
  }
  EXPECT_EQ(cnc.OpenReports(), 0U);
}

TEST_F(Variable, BindingAnotherNameClosesTheReport) {
  DefineInt(u"E.NERRORS", 0);
  ZCVariable variable(vars, u"[1].E.PNLMODE");
  variable.OpenReport(window);
  variable.SetNombre(u"E.NERRORS");
  EXPECT_FALSE(variable.IsReportOpened());
  EXPECT_EQ(cnc.OpenReports(), 0U);
}

TEST_F(Variable, OpeningTwiceForOneWindowOpensOnce) {
  ZCVariable variable(vars, u"[1].E.PNLMODE");
  EXPECT_EQ(variable.OpenReport(window), 0);
  EXPECT_EQ(variable.OpenReport(window), 0);
  EXPECT_EQ(cnc.OpenReports(), 1U);
}

TEST_F(Variable, OpeningForAnotherWindowMovesTheReport) {
  const WindowHandle other = windows.Open();
  ZCVariable variable(vars, u"[1].E.PNLMODE");
  variable.OpenReport(window);
  EXPECT_EQ(variable.OpenReport(other), 0);
  EXPECT_THAT(cnc.Reports(u"[1].E.PNLMODE"), ElementsAre(other));
}

TEST_F(Variable, NoWindowAndADeadOneGetNoReport) {
  const WindowHandle dead = windows.Open();
  windows.Kill(dead);
  ZCVariable variable(vars, u"[1].E.PNLMODE");
  EXPECT_NE(variable.OpenReport(0), 0);
  EXPECT_NE(variable.OpenReport(dead), 0);
  EXPECT_FALSE(variable.IsReportOpened());
  EXPECT_EQ(cnc.OpenReports(), 0U);
}

TEST_F(Variable, MovingHandsTheReportOver) {
  ZCVariable from(vars, u"[1].E.PNLMODE");
  from.SetHexView(1);
  from.OpenReport(window);
  ZCVariable to(std::move(from));
  EXPECT_FALSE(from.IsValid());  // NOLINT(bugprone-use-after-move): what is left behind is part of the contract
  EXPECT_FALSE(from.IsReport());
  EXPECT_TRUE(to.IsValid());
  EXPECT_TRUE(to.IsReport());
  EXPECT_EQ(to.GetHexView(), 1);
  EXPECT_EQ(cnc.OpenReports(), 1U);
}

TEST_F(Variable, TheInlineAccessorsTellTheDisplayFormat) {
  cnc.Define(u"E.CALCRESUL", rig::VariableType::kDouble, 1.5, true, true);
  ZCVariable variable(vars, u"E.CALCRESUL");
  EXPECT_GT(variable.GetIDExterno(), 0);
  EXPECT_EQ(variable.GetNEnteros(), 8);
  EXPECT_EQ(variable.GetNDecimales(), 4);
  EXPECT_EQ(variable.GetPad(), u' ');
  variable.SetPad(u'0');
  EXPECT_EQ(variable.GetPad(), u'0');
  EXPECT_FALSE(variable.IsPLC());
  EXPECT_EQ(variable.GetHexView(), 0);
  variable.SetHexView(1);
  EXPECT_EQ(variable.GetHexView(), 1);
}

TEST_F(Variable, OnlyARealNumberHasDecimalsAndATextHasNoDigits) {
  cnc.Define(u"E.HELPDATA", rig::VariableType::kText, Text(u"A"), true, true);
  const ZCVariable number(vars, u"[1].E.PNLMODE");
  EXPECT_EQ(number.GetNEnteros(), 8);
  EXPECT_EQ(number.GetNDecimales(), 0);
  const ZCVariable text(vars, u"E.HELPDATA");
  EXPECT_EQ(text.GetNEnteros(), 0);
  EXPECT_EQ(text.GetNDecimales(), 0);
}

TEST_F(Variable, WhatTheServerSaysOfAPlcVariableIsKept) {
  PlcVariable server;
  ZCVariable variable(server, u"PLC.R100");
  EXPECT_TRUE(variable.IsPLC());
  EXPECT_EQ(variable.GetIDExterno(), 18);
  EXPECT_EQ(variable.GetNEnteros(), 5);
  EXPECT_EQ(variable.GetNDecimales(), 2);
  EXPECT_EQ(variable.GetPad(), u'*');
}

TEST_F(Variable, BoundToAnotherNameItIsNoPlcVariableAnyMore) {
  PlcVariable server;
  ZCVariable variable(server, u"PLC.R100");
  EXPECT_NE(variable.SetNombre(u"PLC.R101"), 0);
  EXPECT_FALSE(variable.IsPLC());
}

TEST_F(Variable, AReportThatTheServerRefusesIsNotOpen) {
  PlcVariable server;
  ZCVariable variable(server, u"PLC.R100");
  EXPECT_NE(variable.OpenReport(window), 0);
  EXPECT_FALSE(variable.IsReport());
}

}  // namespace
}  // namespace pnl
