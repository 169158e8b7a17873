// SPDX-License-Identifier: MIT
#include "zmc/logic/zmc_formula.h"

#include <gtest/gtest.h>

#include "zmc/logic/zmc_rig.h"

namespace pnl::test {
namespace {

class ZmcFormulaTest : public testing::Test {
 protected:
  ZmcFormulaTest() {
    machine_.DmcOption = true;
    machine_.DriveType = 8;
    machine_.DmcSpindle = 1;
    machine_.RatedPower = 10;
    machine_.FFormat.precision = 3;
    tables_.tools = {{3, {1, 1, 100000, 4}}, {5, {5, 10, 0, 3}}};
    fields_.Material = u"Steel";
    fields_.Tool = u"T3";
    fields_.Kc = 2000;
    fields_.Cells = {u"100", u"150", u"120.0000000", u"", u"", u"0.0500000",
                     u"",    u"",    u"2.0000000",   u"", u"", u"50.0000000"};
    fields_.D = u"10.000000";
    fields_.Z = u"4";
    fields_.S = u"3819";
    fields_.F = u"763.800000";
  }
  std::string Line(ZmcField field) { return ToUtf8(FormulaText(field, cascade_, fields_, u"rev/min")); }

  ZmcMachine machine_;
  NotedTools tables_;
  ZmcCascade cascade_{machine_, tables_};
  ZmcFields fields_;
};

TEST_F(ZmcFormulaTest, TheSpeedComesFromCuttingSpeedAndDiameter) {
  EXPECT_EQ(Line(ZmcField::kS), "S = Vc · 1000 / (π · D) = 120 m/min · 1000 / (3.14159 · 10 mm) = 3819 rev/min");
}

TEST_F(ZmcFormulaTest, WithInchesTheSpeedShowsTheConversions) {
  machine_.units.inches = true;
  fields_.Cells[2] = u"400.0000000";
  fields_.D = u"0.500000";
  EXPECT_EQ(Line(ZmcField::kS),
            "S = Vc / 3.28084 · 1000 / (π · D / 0.03937) = 400 sfm / 3.28084 · 1000 / (3.14159 · 0.5 in / 0.03937) = "
            "3055 rev/min");
}

TEST_F(ZmcFormulaTest, AConstantCuttingSpeedIsItself) {
  fields_.SUnit = 1;
  EXPECT_EQ(Line(ZmcField::kS), "S = Vc = 120 m/min");
  machine_.units.inches = true;
  EXPECT_EQ(Line(ZmcField::kS), "S = Vc = 120 sfm");
}

TEST_F(ZmcFormulaTest, TheFeedComesFromTheRevolutionsOrFromOneRevolution) {
  EXPECT_EQ(Line(ZmcField::kF), "F = n · Fz · z = 3819 rev/min · 0.05 mm · 4 = 763.8 mm/min");
  fields_.FUnit = 1;
  EXPECT_EQ(Line(ZmcField::kF), "F = Fz · z = 0.05 mm · 4 = 0.2 mm/rev");
  machine_.units.inches = true;
  EXPECT_EQ(Line(ZmcField::kF), "F = Fz · z = 0.05 in · 4 = 0.2 in/rev");
}

TEST_F(ZmcFormulaTest, AToolThatWorksOnThePartHasOneToothInTheLineToo) {
  fields_.Tool = u"T5";
  EXPECT_EQ(Line(ZmcField::kF), "F = n · Fz · z = 3819 rev/min · 0.05 mm · 1 = 190.95 mm/min");
}

TEST_F(ZmcFormulaTest, ThePowerIsInMillimetres) {
  EXPECT_EQ(Line(ZmcField::kPower),
            "P = Ae / 100 · D · Ap · F · Kc / (51000 · Pn) = 50 / 100 · 10 mm · 2 mm · 763.8 mm/min · 2000 N/mm² / "
            "(51000 · 10) = 29.95 %");
  machine_.units.inches = true;
  fields_.FUnit = 1;
  fields_.D = u"0.3937";
  fields_.Cells[8] = u"0.07874";
  fields_.F = u"0.03937";
  EXPECT_EQ(Line(ZmcField::kPower),
            "P = Ae / 100 · D · Ap · F · Kc / (51000 · Pn) = 50 / 100 · 10 mm · 2 mm · 1 mm/rev · 2000 N/mm² / "
            "(51000 · 10) = 0.04 %");
}

TEST_F(ZmcFormulaTest, TheLineShowsWhatIsComputedAlsoBesideAnOperatorsOwnValue) {
  fields_.S = u"1000";
  EXPECT_EQ(Line(ZmcField::kS).substr(Line(ZmcField::kS).size() - 14), "= 3819 rev/min");
}

TEST_F(ZmcFormulaTest, AMissingInputLeavesTheLineEmpty) {
  fields_.D = u"";
  EXPECT_EQ(Line(ZmcField::kS), "");
  EXPECT_EQ(Line(ZmcField::kF), "");
  EXPECT_EQ(Line(ZmcField::kPower), "");
  fields_.D = u"0.0";
  EXPECT_EQ(Line(ZmcField::kS), "") << "the formula has no value";
  fields_.SUnit = 1;
  fields_.D = u"";
  EXPECT_EQ(Line(ZmcField::kS), "") << "nor has a cutting speed without a diameter";
  fields_.SUnit = 0;
  fields_.D = u"10";
  fields_.Cells[5] = u"";
  EXPECT_EQ(Line(ZmcField::kF), "");
  machine_.RatedPower = 0;
  EXPECT_EQ(Line(ZmcField::kPower), "");
}

TEST_F(ZmcFormulaTest, TheOtherFieldsHaveNoFormula) {
  EXPECT_EQ(Line(ZmcField::kD), "");
  EXPECT_EQ(Line(ZmcField::kZ), "");
}

struct LimitRow {
  TextView least;
  TextView most;
  TextView selected;
  bool outside;
};

const LimitRow kLimits[] = {
    {u"100", u"150", u"120", false}, {u"100", u"150", u"100.0000000", false}, {u"100", u"150", u"150", false},
    {u"100", u"150", u"99.9", true}, {u"100", u"150", u"150.1", true},        {u"", u"150", u"1", false},
    {u"100", u"", u"1000", false},   {u"100", u"0", u"1000", false},          {u"100", u"0.0000000", u"1000", false},
    {u"100", u"150", u"", false},    {u"100", u"150", u"0", false},           {u"100", u"150", u"0.0000000", true},
    {u"0", u"150", u"-1", false},    {u"0.0000000", u"150", u"-1", true},     {u"nan", u"inf", u"5", false},
};

TEST_F(ZmcFormulaTest, AValueOutsideItsLimitsIsSeenInEachRow) {
  for (int row = 1; row <= 4; ++row) {
    for (const LimitRow& limits : kLimits) {
      ZmcFields fields;
      const auto first = static_cast<std::size_t>((row - 1) * 3);
      fields.Cells[first] = limits.least;
      fields.Cells[first + 1] = limits.most;
      fields.Cells[first + 2] = limits.selected;
      for (int other = 0; other <= 5; ++other) {
        EXPECT_EQ(OutsideLimits(other, fields), limits.outside && other == row)
            << row << " " << ToUtf8(limits.selected);
      }
    }
  }
}

}  // namespace
}  // namespace pnl::test
