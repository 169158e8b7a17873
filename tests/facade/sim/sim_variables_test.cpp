// SPDX-License-Identifier: MIT
#include "facade/sim/sim_variables.h"

#include "support/sim_fixture.h"

namespace pnl::sim {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr TextView kName = u"[1].G.FULLSTATUS";

class SimVariablesTest : public test::SimFixture {
 protected:
  Variables& vars = cnc.Vars();
  WindowHandle window = windows.Open();
  WindowHandle other = windows.Open();
};

TEST_F(SimVariablesTest, BareNothingExists) {
  EXPECT_EQ(vars.Bind(kName).identifier, -1);
  EXPECT_EQ(Get(kName), "absent");
  EXPECT_THAT(cnc.Reports(kName), IsEmpty());
  EXPECT_FALSE(cnc.Set(kName, std::int64_t{1}));
  EXPECT_FALSE(cnc.Undefine(kName));
}

TEST_F(SimVariablesTest, DefiningReportsNothingAndRecordsNothing) {
  DefineInt(kName, 0x100);
  ZCVariable variable(vars, kName);
  variable.OpenReport(window);
  DefineInt(kName, 0x200);
  EXPECT_THAT(TakeReports(window), IsEmpty());
  EXPECT_THAT(sink.lines, IsEmpty());
  EXPECT_EQ(Get(kName), "512");
}

TEST_F(SimVariablesTest, SettingReportsToEveryWindowAlsoWhenEqual) {
  DefineInt(kName, 1);
  ZCVariable first(vars, kName);
  ZCVariable second(vars, kName);
  first.OpenReport(window);
  second.OpenReport(other);
  EXPECT_TRUE(cnc.Set(kName, std::int64_t{1}));
  EXPECT_EQ(TakeReports(window).size(), 1U);
  EXPECT_EQ(TakeReports(other).size(), 1U);
  EXPECT_THAT(sink.lines, IsEmpty());
}

TEST_F(SimVariablesTest, SettingAVariableThatToolsCannotTouchWorks) {
  DefineInt(kName, 1, false, false);
  EXPECT_TRUE(cnc.Set(kName, std::int64_t{2}));
  EXPECT_EQ(Get(kName), "2");
}

TEST_F(SimVariablesTest, SettingAValueOfNoUseIsRefused) {
  DefineInt(kName, 1);
  ZCVariable variable(vars, kName);
  variable.OpenReport(window);
  EXPECT_FALSE(cnc.Set(kName, Text(u"x")));
  EXPECT_FALSE(cnc.Set(kName, {}));
  EXPECT_EQ(Get(kName), "1");
  EXPECT_THAT(TakeReports(window), IsEmpty());
}

TEST_F(SimVariablesTest, AToolsWriteReportsOnlyAChange) {
  DefineInt(kName, 1);
  ZCVariable variable(vars, kName);
  variable.OpenReport(window);
  EXPECT_EQ(variable.WriteInt(1), 0);
  EXPECT_THAT(TakeReports(window), IsEmpty());
  EXPECT_EQ(variable.WriteInt(2), 0);
  EXPECT_EQ(TakeReports(window).size(), 1U);
  EXPECT_THAT(sink.Take(), ElementsAre("write [1].G.FULLSTATUS=1 ok", "write [1].G.FULLSTATUS=2 ok"));
}

TEST_F(SimVariablesTest, AWindowMayHaveItsOwnReportAlone) {
  DefineInt(kName, 1);
  ZCVariable first(vars, kName);
  ZCVariable second(vars, kName);
  first.OpenReport(window);
  second.OpenReport(other);
  EXPECT_EQ(first.GeneraReport(), 0);
  EXPECT_EQ(TakeReports(window), std::vector<std::intptr_t>{vars.Bind(kName).identifier});
  EXPECT_THAT(TakeReports(other), IsEmpty());
}

TEST_F(SimVariablesTest, AVariableKnowsItsFormat) {
  const struct {
    rig::VariableType type;
    std::int32_t integers;
    std::int32_t decimals;
  } rows[] = {{rig::VariableType::kInt, 8, 0}, {rig::VariableType::kDouble, 8, 4}, {rig::VariableType::kText, 0, 0}};
  for (const auto& row : rows) {
    cnc.Define(kName, row.type, std::int64_t{0}, true, true);
    const ZCVariable variable(vars, kName);
    EXPECT_EQ(variable.GetNEnteros(), row.integers);
    EXPECT_EQ(variable.GetNDecimales(), row.decimals);
    EXPECT_EQ(variable.GetIDExterno(), vars.Bind(kName).identifier);
  }
}

TEST_F(SimVariablesTest, NobodyNeedHearOfWrites) {
  const SimRecorder recorder;
  SimVariables alone(windows, recorder);
  alone.Define(kName, rig::VariableType::kInt, std::int64_t{1});
  EXPECT_EQ(ZCVariable(alone, kName).WriteInt(2), 0);
  EXPECT_EQ(test::Describe(alone.Get(kName).value_or(rig::Value{})), "2");
}

TEST_F(SimVariablesTest, AWriteThatIsNotAllowedFailsAndIsRecorded) {
  DefineInt(kName, 1, true, false);
  ZCVariable variable(vars, kName);
  EXPECT_EQ(variable.WriteInt(2), variable_code::kNotAllowed);
  EXPECT_EQ(Get(kName), "1");
  EXPECT_THAT(sink.Take(), ElementsAre("write [1].G.FULLSTATUS=2 failed"));
}

TEST_F(SimVariablesTest, AReadThatIsNotAllowedFails) {
  DefineInt(kName, 1, false, true);
  ZCVariable variable(vars, kName);
  std::int32_t number = 9;
  double real = 9;
  Text text = u"9";
  EXPECT_EQ(variable.ReadInt(number), variable_code::kNotAllowed);
  EXPECT_EQ(variable.ReadDouble(real), variable_code::kNotAllowed);
  EXPECT_EQ(variable.ReadTxt(text), variable_code::kNotAllowed);
  EXPECT_EQ(variable.UpdateCache(), variable_code::kNotAllowed);
  EXPECT_EQ(number, 9);
  EXPECT_EQ(real, 9);
  EXPECT_EQ(text, u"9");
  EXPECT_EQ(variable.WriteInt(5), 0);
}

TEST_F(SimVariablesTest, ReadsAndWritesConvertAmongTypes) {
  cnc.Define(u"R", rig::VariableType::kDouble, 2.9, true, true);
  cnc.Define(u"T", rig::VariableType::kText, Text(u"12"), true, true);
  DefineInt(u"N", 7);
  ZCVariable real(vars, u"R");
  ZCVariable text(vars, u"T");
  ZCVariable number(vars, u"N");
  std::int32_t n = 0;
  double d = 0;
  Text t;
  EXPECT_EQ(real.ReadInt(n), 0);
  EXPECT_EQ(n, 2);
  EXPECT_EQ(text.ReadInt(n), 0);
  EXPECT_EQ(n, 12);
  EXPECT_EQ(number.ReadDouble(d), 0);
  EXPECT_EQ(d, 7);
  EXPECT_EQ(real.ReadTxt(t), 0);
  EXPECT_EQ(t, u"2.9");
  EXPECT_EQ(number.WriteDouble(3.7), 0);
  EXPECT_EQ(Get(u"N"), "3");
  EXPECT_EQ(number.WriteTxt(u"44"), 0);
  EXPECT_EQ(Get(u"N"), "44");
  EXPECT_EQ(real.WriteInt(4), 0);
  EXPECT_EQ(Get(u"R"), "4.0");
  EXPECT_EQ(text.WriteInt(5), 0);
  EXPECT_EQ(Get(u"T"), "\"5\"");
}

TEST_F(SimVariablesTest, WhatHasNoFormOfTheTypeFailsWithACode) {
  cnc.Define(u"T", rig::VariableType::kText, Text(u"abc"), true, true);
  DefineInt(u"N", 7);
  std::int32_t n = 9;
  EXPECT_EQ(ZCVariable(vars, u"T").ReadInt(n), variable_code::kNoValue);
  EXPECT_EQ(n, 9);
  ZCVariable number(vars, u"N");
  EXPECT_EQ(number.WriteTxt(u"abc"), variable_code::kNoValue);
  EXPECT_EQ(number.WriteDouble(1e300), variable_code::kNoValue);
  EXPECT_EQ(Get(u"N"), "7");
  EXPECT_THAT(sink.Take(), testing::Contains("write N=\"abc\" failed"));
}

TEST_F(SimVariablesTest, AValueThatDoesNotFitItsDefinitionCountsAsZero) {
  cnc.Define(u"N", rig::VariableType::kInt, Text(u"x"), true, true);
  cnc.Define(u"T", rig::VariableType::kText, {}, true, true);
  EXPECT_EQ(Get(u"N"), "0");
  EXPECT_EQ(Get(u"T"), "\"\"");
}

TEST_F(SimVariablesTest, HandlesAndReportsLiveThroughARedefinition) {
  DefineInt(kName, 1);
  ZCVariable variable(vars, kName);
  variable.OpenReport(window);
  cnc.Define(kName, rig::VariableType::kText, Text(u"now a text"), true, true);
  EXPECT_THAT(cnc.Reports(kName), ElementsAre(window));
  Text text;
  EXPECT_EQ(variable.ReadTxt(text), 0);
  EXPECT_EQ(text, u"now a text");
  cnc.Set(kName, Text(u"x"));
  EXPECT_EQ(TakeReports(window).size(), 1U);
}

TEST_F(SimVariablesTest, AHandleOnAnUndefinedVariableFails) {
  DefineInt(kName, 1);
  ZCVariable variable(vars, kName);
  EXPECT_TRUE(cnc.Undefine(kName));
  std::int32_t n = 9;
  EXPECT_TRUE(variable.IsValid());
  EXPECT_EQ(variable.ReadInt(n), variable_code::kUnknown);
  EXPECT_EQ(variable.WriteInt(2), variable_code::kUnknown);
  EXPECT_EQ(variable.UpdateCache(), variable_code::kUnknown);
  EXPECT_EQ(variable.OpenReport(window), variable_code::kUnknown);
  EXPECT_EQ(n, 9);
  EXPECT_FALSE(ZCVariable(vars, kName).IsValid());
  EXPECT_EQ(Get(kName), "absent");
  EXPECT_THAT(sink.Take(), ElementsAre("write [1].G.FULLSTATUS=2 failed"));
}

TEST_F(SimVariablesTest, AVariableThatComesBackKeepsItsIdentifierAndItsReports) {
  DefineInt(kName, 1);
  ZCVariable variable(vars, kName);
  variable.OpenReport(window);
  const auto identifier = vars.Bind(kName).identifier;
  cnc.Undefine(kName);
  DefineInt(u"SOMETHING.ELSE", 1);
  DefineInt(kName, 5);
  EXPECT_EQ(vars.Bind(kName).identifier, identifier);
  cnc.Set(kName, std::int64_t{6});
  EXPECT_THAT(TakeReports(window), ElementsAre(identifier));
}

TEST_F(SimVariablesTest, AReportOnAnUndefinedVariableCanBeClosed) {
  DefineInt(kName, 1);
  ZCVariable variable(vars, kName);
  variable.OpenReport(window);
  cnc.Undefine(kName);
  EXPECT_NE(variable.GeneraReport(), 0);
  EXPECT_EQ(variable.CloseReport(), 0);
  EXPECT_EQ(cnc.OpenReports(), 0U);
}

TEST_F(SimVariablesTest, TwoHandlesOfOneWindowGetOneReportAndCloseApart) {
  DefineInt(kName, 1);
  ZCVariable first(vars, kName);
  ZCVariable second(vars, kName);
  first.OpenReport(window);
  second.OpenReport(window);
  EXPECT_THAT(cnc.Reports(kName), ElementsAre(window));
  cnc.Set(kName, std::int64_t{2});
  EXPECT_EQ(TakeReports(window).size(), 1U);
  first.CloseReport();
  cnc.Set(kName, std::int64_t{3});
  EXPECT_EQ(TakeReports(window).size(), 1U);
  second.CloseReport();
  EXPECT_THAT(cnc.Reports(kName), IsEmpty());
}

TEST_F(SimVariablesTest, ADeadWindowIsDropped) {
  DefineInt(kName, 1);
  ZCVariable variable(vars, kName);
  variable.OpenReport(window);
  windows.Kill(window);
  EXPECT_THAT(cnc.Reports(kName), IsEmpty());
  EXPECT_EQ(cnc.OpenReports(), 1U) << "a report left open by a dead window is what a leak check looks for";
  EXPECT_NE(variable.GeneraReport(), 0);
  cnc.Set(kName, std::int64_t{2});
  EXPECT_EQ(cnc.OpenReports(), 0U);
  EXPECT_THAT(windows.sent, IsEmpty());
}

TEST_F(SimVariablesTest, InventedIdentifiersFail) {
  DefineInt(kName, 1);
  std::int32_t n = 9;
  for (const std::int32_t identifier : {-1, 0, 2, 999, std::numeric_limits<std::int32_t>::min()}) {
    EXPECT_NE(vars.ReadInt(identifier, n), 0);
    EXPECT_NE(vars.WriteInt(identifier, 1, 0), 0);
    EXPECT_NE(vars.UpdateCache(identifier), 0);
    EXPECT_NE(vars.OpenReport(identifier, window), 0);
    EXPECT_NE(vars.CloseReport(identifier, window), 0);
    EXPECT_NE(vars.GeneraReport(identifier, window), 0);
  }
  EXPECT_EQ(n, 9);
}

TEST_F(SimVariablesTest, AWatchHearsSetsAndWrites) {
  DefineInt(kName, 1);
  int calls = 0;
  const int watch = cnc.Watch(kName, [&] { ++calls; });
  cnc.Set(kName, std::int64_t{1});
  EXPECT_EQ(calls, 1);
  ZCVariable(vars, kName).WriteInt(1);
  EXPECT_EQ(calls, 2);
  cnc.Environment().Set(kName, std::int64_t{5});
  EXPECT_EQ(calls, 3);
  cnc.Unwatch(watch);
  cnc.Set(kName, std::int64_t{2});
  EXPECT_EQ(calls, 3);
}

TEST_F(SimVariablesTest, AWatchSeesTheNewValue) {
  DefineInt(kName, 1);
  std::string seen;
  cnc.Watch(kName, [&] { seen = Get(kName); });
  cnc.Set(kName, std::int64_t{2});
  EXPECT_EQ(seen, "2");
}

TEST_F(SimVariablesTest, AWatchMayComeBeforeItsVariable) {
  int calls = 0;
  cnc.Watch(u"LATER", [&] { ++calls; });
  EXPECT_FALSE(ZCVariable(vars, u"LATER").IsValid());
  DefineInt(u"LATER", 1);
  EXPECT_EQ(calls, 0);
  cnc.Set(u"LATER", std::int64_t{1});
  EXPECT_EQ(calls, 1);
}

TEST_F(SimVariablesTest, AWatchMayEndItselfAndOthers) {
  DefineInt(kName, 1);
  std::vector<int> calls;
  int first = 0;
  int second = 0;
  first = cnc.Watch(kName, [&] {
    calls.push_back(1);
    cnc.Unwatch(first);
    cnc.Unwatch(second);
  });
  second = cnc.Watch(kName, [&] { calls.push_back(2); });
  cnc.Set(kName, std::int64_t{2});
  cnc.Set(kName, std::int64_t{3});
  EXPECT_THAT(calls, ElementsAre(1));
}

TEST_F(SimVariablesTest, AWatchMayDefineVariables) {
  DefineInt(kName, 1);
  cnc.Watch(kName, [&] {
    for (int i = 0; i < 1000; ++i) DefineInt(u"NEW" + FromUtf8(std::to_string(i)), i);
  });
  cnc.Watch(kName, {});
  EXPECT_TRUE(cnc.Set(kName, std::int64_t{2}));
  EXPECT_EQ(Get(u"NEW999"), "999");
}

}  // namespace
}  // namespace pnl::sim
