// SPDX-License-Identifier: MIT
#include "zmc/logic/zmc_recompute.h"

#include <gtest/gtest.h>

#include "zmc/logic/zmc_cascade.h"
#include "zmc/logic/zmc_rig.h"

namespace pnl::test {
namespace {

struct RecomputeRow {
  ZmcEvent event;
  const char* name;
  const char* cleared;
  const char* steps;
};

const RecomputeRow kRecomputeRows[] = {
    {ZmcEvent::kSelectedCell, "a selected value", "S F Power DmcText", "S F Power DmcText"},
    {ZmcEvent::kFzLimitCell, "a limit of the feed", "", "DmcText"},
    {ZmcEvent::kOtherCell, "another cell", "", ""},
    {ZmcEvent::kD, "D", "S F Power DmcText", "S F Power DmcText"},
    {ZmcEvent::kZ, "Z", "S F Power DmcText", "S F Power DmcText"},
    {ZmcEvent::kS, "S", "F Power DmcText", "F Power DmcText"},
    {ZmcEvent::kF, "F", "Power DmcText", "Power DmcText"},
    {ZmcEvent::kPower, "Power", "DmcText", "DmcText"},
    {ZmcEvent::kFUnit, "FUnit", "F DmcText", "F DmcText"},
    {ZmcEvent::kSUnit, "SUnit", "", "S"},
    {ZmcEvent::kTool, "the tool", "D Z S F Power DmcText", "S F Power DmcText"},
    {ZmcEvent::kPair, "material or operation", "grid remark S F Power DmcText", "S F Power DmcText"},
};

class ZmcRecomputeTest : public testing::Test {
 protected:
  ZmcRecomputeTest() {
    machine_.DmcOption = true;
    machine_.DriveType = 2;
    machine_.DmcSpindle = 1;
    machine_.RatedPower = 10;
    machine_.FFormat.precision = 1;
    tables_.tools = {{3, {1, 1, 100000, 4}}, {5, {5, 10, 70000, 3}}, {8, {6, 1, 60000, 6}}};
    fields_.Material = u"Steel";
    fields_.Tool = u"T3";
    fields_.Kc = 2000;
    fields_.Cells = {u"a", u"b", u"120", u"0.02", u"0.1", u"0.05", u"c", u"d", u"2", u"e", u"f", u"50"};
    fields_.D = u"10";
    fields_.Z = u"4";
    fields_.S = u"1000";
    fields_.F = u"500";
    fields_.Power = u"7";
    fields_.DmcText = u"old";
    fields_.Remark = u"remark";
  }

  /// The names of the fields that are empty.
  static std::string Empty(const ZmcFields& fields) {
    std::string names;
    const auto note = [&names](bool empty, const char* name) {
      if (empty) names += (names.empty() ? "" : " ") + std::string(name);
    };
    note(std::all_of(fields.Cells.begin(), fields.Cells.end(), [](const Text& cell) { return cell.empty(); }), "grid");
    note(fields.Remark.empty(), "remark");
    note(fields.D.empty(), "D");
    note(fields.Z.empty(), "Z");
    note(fields.S.empty(), "S");
    note(fields.F.empty(), "F");
    note(fields.Power.empty(), "Power");
    note(fields.DmcText.empty(), "DmcText");
    return names;
  }

  /// The names of the fields that differ.
  static std::string Changed(const ZmcFields& before, const ZmcFields& after) {
    std::string names;
    const auto note = [&names](const Text& old, const Text& now, const char* name) {
      if (old != now) names += (names.empty() ? "" : " ") + std::string(name);
    };
    note(before.S, after.S, "S");
    note(before.F, after.F, "F");
    note(before.Power, after.Power, "Power");
    note(before.DmcText, after.DmcText, "DmcText");
    return names;
  }

  ZmcMachine machine_;
  NotedTools tables_;
  ZmcCascade cascade_{machine_, tables_};
  ZmcFields fields_;
};

TEST_F(ZmcRecomputeTest, EachEventClearsItsFields) {
  for (const RecomputeRow& row : kRecomputeRows) {
    ZmcFields fields = fields_;
    ClearFields(row.event, fields);
    EXPECT_EQ(Empty(fields), row.cleared) << row.name;
  }
}

TEST_F(ZmcRecomputeTest, EachEventRunsItsSteps) {
  for (const RecomputeRow& row : kRecomputeRows) {
    ZmcFields fields = fields_;
    cascade_.Recompute(row.event, fields);
    EXPECT_EQ(Changed(fields_, fields), row.steps) << row.name;
  }
}

TEST_F(ZmcRecomputeTest, TheEventOfACellFollowsFromItsPlace) {
  for (int row = 1; row <= 4; ++row) {
    EXPECT_EQ(ZmcCellEvent(row, 3), ZmcEvent::kSelectedCell);
    for (const int column : {1, 2}) {
      EXPECT_EQ(ZmcCellEvent(row, column), row == 2 ? ZmcEvent::kFzLimitCell : ZmcEvent::kOtherCell) << row;
    }
  }
}

TEST_F(ZmcRecomputeTest, AnotherUnitOfTheFeedLeavesThePowerAsItWas) {
  fields_.FUnit = 1;
  cascade_.Apply(ZmcEvent::kFUnit, fields_);
  EXPECT_EQ(ToUtf8(fields_.F), "0.200000");
  EXPECT_EQ(ToUtf8(fields_.Power), "7");
  EXPECT_EQ(ToUtf8(fields_.DmcText), "#DMC ON [PWRSP = 7, FZMIN = 0.02, FZMAX = 0.1]");
}

TEST_F(ZmcRecomputeTest, AnotherUnitOfTheSpeedLeavesTheFeedAsItWas) {
  fields_.SUnit = 1;
  cascade_.Apply(ZmcEvent::kSUnit, fields_);
  EXPECT_EQ(ToUtf8(fields_.S), "120");
  EXPECT_EQ(ToUtf8(fields_.F), "500");
  EXPECT_EQ(ToUtf8(fields_.DmcText), "old");
}

TEST_F(ZmcRecomputeTest, WithoutItsInputsTheSpeedKeepsItsValueWhenItsUnitChanges) {
  fields_.Cells[2] = u"";
  cascade_.Apply(ZmcEvent::kSUnit, fields_);
  EXPECT_EQ(ToUtf8(fields_.S), "1000") << "this event clears nothing";
}

TEST_F(ZmcRecomputeTest, ACuttingSpeedThatIsClearedLeavesAPowerOfZero) {
  fields_.Cells[2] = u"";
  cascade_.Apply(ZmcEvent::kSelectedCell, fields_);
  EXPECT_EQ(ToUtf8(fields_.S), "");
  EXPECT_EQ(ToUtf8(fields_.F), "");
  EXPECT_EQ(ToUtf8(fields_.Power), "0.000000");
  EXPECT_EQ(ToUtf8(fields_.DmcText), "");
}

TEST_F(ZmcRecomputeTest, AnOperatorsSpeedGivesFeedPowerAndLine) {
  fields_.S = u"2000";
  cascade_.Apply(ZmcEvent::kS, fields_);
  EXPECT_EQ(ToUtf8(fields_.S), "2000");
  EXPECT_EQ(ToUtf8(fields_.F), "400.000000");
  EXPECT_EQ(ToUtf8(fields_.Power), "15.686275");
}

TEST_F(ZmcRecomputeTest, AnOperatorsPowerGivesTheLineAndNothingElse) {
  fields_.Power = u"12.5";
  cascade_.Apply(ZmcEvent::kPower, fields_);
  EXPECT_EQ(ToUtf8(fields_.F), "500");
  EXPECT_EQ(ToUtf8(fields_.DmcText), "#DMC ON [PWRSP = 12.5, FZMIN = 0.02, FZMAX = 0.1]");
}

// The diameter of the part.

TEST_F(ZmcRecomputeTest, TheDiameterOfThePartIsKeptInInternalUnits) {
  fields_.Tool = u"T5";
  fields_.D = u"42.5";
  cascade_.Apply(ZmcEvent::kD, fields_);
  EXPECT_EQ(fields_.LastPartDiameter, 425000);
  machine_.units.inches = true;
  cascade_.Apply(ZmcEvent::kD, fields_);
  EXPECT_EQ(fields_.LastPartDiameter, 42.5 * 10000.0 / 0.03937);
}

TEST_F(ZmcRecomputeTest, TheDiameterOfATurningToolIsNotKept) {
  for (const TextView tool : {TextView(u"T3"), TextView(u"T8"), TextView(u"T99"), TextView(u"")}) {
    fields_.Tool = tool;
    fields_.D = u"42.5";
    fields_.LastPartDiameter = 1;
    cascade_.Apply(ZmcEvent::kD, fields_);
    EXPECT_EQ(fields_.LastPartDiameter, 1) << ToUtf8(tool);
  }
}

// Another tool.

struct ToolRow {
  TextView tool;
  bool inches;
  const char* d;
  const char* z;
  const char* s;
};

const ToolRow kToolRows[] = {
    {u"T3", false, "10.000000", "4", "3819"},
    {u"T3", true, "0.393700", "4", "1164"},
    {u"T5", false, "25.000000", "3", "1527"},
    {u"T5", true, "0.984250", "3", "465"},
    {u"T8", false, "6.000000", "6", "6366"},
    {u"T77", false, "", "", ""},
    {u"", false, "", "", ""},
    {u"3", false, "", "", ""},
};

TEST_F(ZmcRecomputeTest, AnotherToolBringsItsDiameterOrThePartsAndItsTeeth) {
  for (const ToolRow& row : kToolRows) {
    ZmcFields fields = fields_;
    fields.Tool = row.tool;
    fields.LastPartDiameter = 250000;
    machine_.units.inches = row.inches;
    cascade_.Apply(ZmcEvent::kTool, fields);
    EXPECT_EQ(ToUtf8(fields.D), row.d) << ToUtf8(row.tool);
    EXPECT_EQ(ToUtf8(fields.Z), row.z) << ToUtf8(row.tool);
    EXPECT_EQ(ToUtf8(fields.S), row.s) << ToUtf8(row.tool);
    EXPECT_EQ(fields.LastPartDiameter, 250000) << "the kept diameter is only read";
  }
}

TEST_F(ZmcRecomputeTest, AToolWithoutDmcLeavesPowerAndLineEmpty) {
  fields_.Tool = u"T5";
  cascade_.Apply(ZmcEvent::kTool, fields_);
  EXPECT_EQ(ToUtf8(fields_.Power), "");
  EXPECT_EQ(ToUtf8(fields_.DmcText), "");
}

TEST_F(ZmcRecomputeTest, AnotherPairKeepsToolDiameterAndTeeth) {
  ClearFields(ZmcEvent::kPair, fields_);
  fields_.Cells[2] = u"60";
  cascade_.Recompute(ZmcEvent::kPair, fields_);
  EXPECT_EQ(ToUtf8(fields_.D), "10");
  EXPECT_EQ(ToUtf8(fields_.S), "1909");
  EXPECT_EQ(ToUtf8(fields_.F), "") << "the new pair has no feed";
}

}  // namespace
}  // namespace pnl::test
