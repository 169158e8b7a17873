// SPDX-License-Identifier: MIT
#include "zmc/logic/zmc_cascade.h"

#include <gtest/gtest.h>

#include <cmath>

#include "zmc/logic/zmc_rig.h"

namespace pnl::test {
namespace {

/// A mill with DMC, a cutter T3 (10 mm, 4 teeth), a turning tool T5 and a material.
class ZmcCascadeTest : public testing::Test {
 protected:
  ZmcCascadeTest() {
    machine_.DmcOption = true;
    machine_.DriveType = 8;
    machine_.DmcSpindle = 1;
    machine_.RatedPower = 10;
    machine_.FFormat = {5, 3};
    tables_.tools = {{3, {1, 1, 100000, 4}}, {5, {5, 10, 0, 3}}, {6, {2, 7, 80000, 2}}, {9, {9, 0, 60000, 6}}};
    fields_.Material = u"Steel";
    fields_.Operation = u"Milling";
    fields_.Tool = u"T3";
    fields_.Kc = 2000;
    fields_.D = u"10.000000";
    fields_.Z = u"4";
    SetVc(u"120.0000000");
    SetFz(u"0.0500000");
    SetAp(u"2.0000000");
    SetAe(u"50.0000000");
  }
  void SetVc(TextView text) { fields_.Cells[2] = text; }
  void SetFzMin(TextView text) { fields_.Cells[3] = text; }
  void SetFzMax(TextView text) { fields_.Cells[4] = text; }
  void SetFz(TextView text) { fields_.Cells[5] = text; }
  void SetAp(TextView text) { fields_.Cells[8] = text; }
  void SetAe(TextView text) { fields_.Cells[11] = text; }
  [[nodiscard]] std::string S() const { return ToUtf8(fields_.S); }
  [[nodiscard]] std::string F() const { return ToUtf8(fields_.F); }
  [[nodiscard]] std::string Power() const { return ToUtf8(fields_.Power); }
  [[nodiscard]] std::string DmcText() const { return ToUtf8(fields_.DmcText); }

  ZmcMachine machine_;
  NotedTools tables_;
  ZmcCascade cascade_{machine_, tables_};
  ZmcFields fields_;
};

// The spindle speed.

TEST_F(ZmcCascadeTest, TheSpindleSpeedIsCutForAFieldWithoutDecimals) {
  const auto value = cascade_.UpdateS(fields_);
  ASSERT_TRUE(value);
  EXPECT_EQ(*value, 120 * 1000.0 / (3.14159 * 10));
  EXPECT_NEAR(*value, 3819.72, 0.005);
  EXPECT_EQ(S(), "3819");
  machine_.SFormat.precision = 1;
  cascade_.UpdateS(fields_);
  EXPECT_EQ(S(), "3819.721861") << "six decimals, whatever the precision";
}

TEST_F(ZmcCascadeTest, ADiameterOfZeroGivesASpeedOfZero) {
  fields_.D = u"0.000000";
  EXPECT_EQ(cascade_.UpdateS(fields_), 0.0);
  EXPECT_EQ(S(), "0");
}

struct BlankInput {
  TextView vc;
  TextView d;
  bool written;
};

const BlankInput kBlankSpeedInputs[] = {
    {u"", u"10", false},  {u"0", u"10", false},  {u" 0", u"10", true},   {u"0.0000000", u"10", true},
    {u"120", u"", false}, {u"120", u"0", false}, {u"120", u" 0", false}, {u"120", u"0.0", true},
};

TEST_F(ZmcCascadeTest, WithoutCuttingSpeedOrDiameterTheSpeedStaysAsItIs) {
  for (const BlankInput& row : kBlankSpeedInputs) {
    SetVc(row.vc);
    fields_.D = row.d;
    fields_.S = u"77";
    EXPECT_EQ(cascade_.UpdateS(fields_).has_value(), row.written) << ToUtf8(row.vc) << "," << ToUtf8(row.d);
    EXPECT_EQ(S() != "77", row.written) << ToUtf8(row.vc) << "," << ToUtf8(row.d);
  }
}

TEST_F(ZmcCascadeTest, AConstantCuttingSpeedIsShownUnconverted) {
  fields_.SUnit = 1;
  machine_.units.inches = true;
  SetVc(u"400.7000000");
  cascade_.UpdateS(fields_);
  EXPECT_EQ(S(), "400");
}

TEST_F(ZmcCascadeTest, WithAConstantCuttingSpeedTheFeedComesFromTheRevolutionsThatFollow) {
  fields_.SUnit = 1;
  cascade_.UpdateS(fields_);
  EXPECT_EQ(S(), "120");
  EXPECT_EQ(ToUtf8(cascade_.SpindleRpmText(fields_)), "3819");
  cascade_.UpdateF(fields_);
  EXPECT_EQ(F(), "763.800000");
}

TEST_F(ZmcCascadeTest, WithoutASelectedUnitTheSpeedIsTheCuttingSpeedAsTheBlockSays) {
  fields_.SUnit = kZmcNoSelection;
  cascade_.UpdateS(fields_);
  EXPECT_EQ(S(), "120");
  EXPECT_EQ(ToUtf8(cascade_.SpindleRpmText(fields_)), "3819");
}

TEST_F(ZmcCascadeTest, WithInchesSpeedAndDiameterAreConvertedFirst) {
  machine_.units.inches = true;
  SetVc(u"400.0000000");
  fields_.D = u"0.500000";
  const double v = 400 / 3.28084;
  const double d = 0.5 / 0.03937;
  EXPECT_EQ(cascade_.UpdateS(fields_), v * 1000.0 / (3.14159 * d));
  EXPECT_EQ(S(), "3055");
}

// The revolutions as text.

struct RpmRow {
  TextView s;
  TextView vc;
  TextView d;
  int sUnit;
  const char* rpm;
};

const RpmRow kRpms[] = {
    {u"", u"120", u"10", 0, ""},
    {u"0", u"120", u"10", 0, ""},
    {u" 0", u"120", u"10", 0, "0"},
    {u"3819", u"0", u"10", 0, ""},
    {u"3819", u"", u"10", 0, "3819"},
    {u"3819", u" 0", u"10", 0, "3819"},
    {u"3819", u"120", u"", 0, ""},
    {u"3819", u"120", u"0", 0, ""},
    {u"3819", u"120", u" 0", 0, ""},
    {u"3819.9", u"120", u"0.0", 0, "3819"},
    {u"120", u"120", u"10", 1, "3819"},
    {u"120", u"120", u"0.0", 1, "0"},
    {u"nan", u"120", u"10", 0, "0"},
    {u"0x10", u"120", u"10", 1, "0"},
    {u"1e999", u"1", u"10", 0, "-2147483648"},
};

TEST_F(ZmcCascadeTest, TheRevolutionsAreEmptyForBlankInputsAndCutLikeTheField) {
  for (const RpmRow& row : kRpms) {
    fields_.S = row.s;
    SetVc(row.vc);
    fields_.D = row.d;
    fields_.SUnit = row.sUnit;
    EXPECT_EQ(ToUtf8(cascade_.SpindleRpmText(fields_)), row.rpm) << ToUtf8(row.s) << "," << ToUtf8(row.vc);
  }
}

TEST_F(ZmcCascadeTest, RevolutionsAreNoSpeedAndAreNotConvertedWithInches) {
  machine_.units.inches = true;
  fields_.S = u"1000";
  EXPECT_EQ(ToUtf8(cascade_.SpindleRpmText(fields_)), "1000");
}

// The feed.

TEST_F(ZmcCascadeTest, TheFeedPerMinuteUsesTheCutRevolutionsAndTheFeedPerRevolutionNone) {
  fields_.S = u"3819";
  const auto value = cascade_.UpdateF(fields_);
  ASSERT_TRUE(value);
  EXPECT_EQ(*value, 3819 * 0.05 * 4);
  EXPECT_EQ(F(), "763.800000");
  fields_.FUnit = 1;
  EXPECT_NEAR(cascade_.UpdateF(fields_).value(), 0.2, 1e-12);
  EXPECT_EQ(F(), "0.200000");
  machine_.FFormat.precision = 0;
  cascade_.UpdateF(fields_);
  EXPECT_EQ(F(), "0");
}

TEST_F(ZmcCascadeTest, RevolutionsAreCutBeforeTheFeedSeesThem) {
  fields_.S = u"3819.9";
  EXPECT_EQ(cascade_.UpdateF(fields_), 3819 * 0.05 * 4);
  machine_.SFormat.precision = 1;
  EXPECT_EQ(cascade_.UpdateF(fields_), 3819.9 * 0.05 * 4);
}

TEST_F(ZmcCascadeTest, AToolThatWorksOnThePartHasOneToothWhateverTheFieldShows) {
  fields_.Tool = u"T5";
  fields_.S = u"1000";
  for (const TextView teeth : {TextView(u"4"), TextView(u""), TextView(u"0")}) {
    fields_.Z = teeth;
    EXPECT_EQ(cascade_.UpdateF(fields_), 1000 * 0.05) << ToUtf8(teeth);
  }
}

TEST_F(ZmcCascadeTest, WithoutFeedTeethOrRevolutionsTheFeedStaysAsItIs) {
  struct Row {
    TextView fz, z, s;
    bool written;
  };
  const Row rows[] = {{u"", u"4", u"1000", false},   {u"0", u"4", u"1000", false}, {u" 0", u"4", u"1000", true},
                      {u"1", u"", u"1000", false},   {u"1", u"0", u"1000", false}, {u"1", u" 0", u"1000", false},
                      {u"1", u"0.0", u"1000", true}, {u"1", u"4", u"", false},     {u"1", u"4", u"0", false},
                      {u"1", u"4", u"0.4", false},   {u"1", u"4", u"1", true}};
  for (const Row& row : rows) {
    SetFz(row.fz);
    fields_.Z = row.z;
    fields_.S = row.s;
    fields_.F = u"77";
    EXPECT_EQ(cascade_.UpdateF(fields_).has_value(), row.written) << ToUtf8(row.fz) << "," << ToUtf8(row.s);
    EXPECT_EQ(F() != "77", row.written);
  }
}

TEST_F(ZmcCascadeTest, RevolutionsThatAreCutToZeroStopTheFeedPerRevolutionToo) {
  fields_.S = u"0.4";
  fields_.FUnit = 1;
  EXPECT_FALSE(cascade_.UpdateF(fields_)) << "a speed of 0.4 reads as 0, which is blank";
}

TEST_F(ZmcCascadeTest, WithInchesTheFeedGoesThroughMillimetres) {
  machine_.units.inches = true;
  fields_.S = u"3055";
  SetFz(u"0.0020000");
  EXPECT_EQ(cascade_.UpdateF(fields_), 3055 * (0.002 / 0.03937) * 4 * 0.03937);
}

TEST_F(ZmcCascadeTest, WithoutASelectedUnitTheFeedIsPerMinute) {
  fields_.FUnit = kZmcNoSelection;
  fields_.S = u"1000";
  EXPECT_EQ(cascade_.UpdateF(fields_), 1000 * 0.05 * 4);
}

// The power.

TEST_F(ZmcCascadeTest, ThePowerIsThatOfTheChipDividedByTheRatedPower) {
  fields_.F = u"763.8";
  const auto value = cascade_.UpdatePower(fields_);
  ASSERT_TRUE(value);
  EXPECT_NEAR(*value * 10, 299.53, 0.005);
  EXPECT_EQ(*value, 5.0 * 2.0 * 763.8 * 2000 / 51000.0 / 10);
  EXPECT_EQ(Power(), "29.952941");
}

TEST_F(ZmcCascadeTest, AFeedPerRevolutionEntersThePowerAsItIs) {
  fields_.F = u"0.2";
  fields_.FUnit = 1;
  EXPECT_EQ(cascade_.UpdatePower(fields_), 5.0 * 2.0 * 0.2 * 2000 / 51000.0 / 10)
      << "not per minute: the figure is compared with the machine's";
}

TEST_F(ZmcCascadeTest, TheSpindleSpeedPlaysNoPartInThePower) {
  fields_.F = u"763.8";
  fields_.S = u"";
  SetVc(u"");
  EXPECT_TRUE(cascade_.UpdatePower(fields_));
  EXPECT_EQ(Power(), "29.952941");
}

TEST_F(ZmcCascadeTest, AnEmptyFeedCountsAsZero) {
  fields_.F = u"";
  EXPECT_EQ(cascade_.UpdatePower(fields_), 0.0);
  EXPECT_EQ(Power(), "0.000000");
}

TEST_F(ZmcCascadeTest, WithoutRatedPowerThePowerIsZeroAndThereIsNoDmcText) {
  machine_.RatedPower = 0;
  fields_.F = u"763.8";
  fields_.DmcText = u"old";
  EXPECT_EQ(cascade_.UpdatePower(fields_), 0.0);
  EXPECT_EQ(Power(), "0.000000");
  cascade_.UpdateDmcText(fields_);
  EXPECT_EQ(DmcText(), "");
}

TEST_F(ZmcCascadeTest, EachMissingInputOfThePowerLeavesTheField) {
  using Change = void (*)(ZmcFields&, ZmcMachine&);
  struct Row {
    const char* what;
    bool written;
    Change change;
  };
  const Row rows[] = {
      {"no depth", false, [](ZmcFields& f, ZmcMachine&) { f.Cells[8] = u""; }},
      {"depth 0", false, [](ZmcFields& f, ZmcMachine&) { f.Cells[8] = u"0"; }},
      {"depth blank 0", true, [](ZmcFields& f, ZmcMachine&) { f.Cells[8] = u" 0"; }},
      {"no radial pass", false, [](ZmcFields& f, ZmcMachine&) { f.Cells[11] = u""; }},
      {"radial pass 0", false, [](ZmcFields& f, ZmcMachine&) { f.Cells[11] = u"0"; }},
      {"radial pass blank 0", false, [](ZmcFields& f, ZmcMachine&) { f.Cells[11] = u" 0"; }},
      {"no material", false, [](ZmcFields& f, ZmcMachine&) { f.Material = u""; }},
      {"no constant", false, [](ZmcFields& f, ZmcMachine&) { f.Kc = std::nullopt; }},
      {"constant 0", true, [](ZmcFields& f, ZmcMachine&) { f.Kc = 0; }},
      {"no diameter", false, [](ZmcFields& f, ZmcMachine&) { f.D = u""; }},
      {"diameter 0.0", true, [](ZmcFields& f, ZmcMachine&) { f.D = u"0.0"; }},
      {"no option", false, [](ZmcFields&, ZmcMachine& m) { m.DmcOption = false; }},
      {"another tool", false, [](ZmcFields& f, ZmcMachine&) { f.Tool = u"T6"; }},
      {"no tool", false, [](ZmcFields& f, ZmcMachine&) { f.Tool = u""; }},
  };
  for (const Row& row : rows) {
    ZmcFields fields = fields_;
    ZmcMachine machine = machine_;
    fields.Power = u"77";
    row.change(fields, machine);
    const auto value = ZmcCascade(machine, tables_).UpdatePower(fields);
    EXPECT_EQ(value.has_value(), row.written) << row.what;
    EXPECT_EQ(ToUtf8(fields.Power) != "77", row.written) << row.what;
  }
}

TEST_F(ZmcCascadeTest, WithInchesThePowerIsComputedInMillimetres) {
  machine_.units.inches = true;
  fields_.F = u"30";
  fields_.D = u"0.5";
  SetAp(u"0.08");
  const double d = 0.5 / 0.03937;
  const double p = 50 * d / 100.0 * (0.08 / 0.03937) * (30 / 0.03937) * 2000 / 51000.0;
  EXPECT_EQ(cascade_.UpdatePower(fields_), p / 10);
}

// The DMC line.

struct DmcRow {
  TextView power;
  TextView least;
  TextView most;
  const char* line;
};

const DmcRow kDmcLines[] = {
    {u"29.95", u"0.02", u"0.1", "#DMC ON [PWRSP = 29.95, FZMIN = 0.02, FZMAX = 0.1]"},
    {u"29.95", u"0.02", u"", "#DMC ON [PWRSP = 29.95, FZMIN = 0.02]"},
    {u"29.95", u"", u"0.1", "#DMC ON [PWRSP = 29.95, FZMAX = 0.1]"},
    {u"29.95", u"", u"", "#DMC ON [PWRSP = 29.95]"},
    {u" 29.95 ", u"", u"", "#DMC ON [PWRSP = 29.95]"},
    {u"1", u"0.0000000", u"0.0000000", "#DMC ON [PWRSP = 1, FZMIN = 0.0000000, FZMAX = 0.0000000]"},
    {u"1", u" 0", u"0", "#DMC ON [PWRSP = 1, FZMIN =  0, FZMAX = 0]"},
    {u"0.000000", u"0.02", u"0.1", ""},
    {u"0.000001", u"", u"", "#DMC ON [PWRSP = 0.000001]"},
    {u"-1", u"", u"", ""},
    {u"", u"0.02", u"", ""},
    {u"nan", u"", u"", ""},
    {u"inf", u"", u"", ""},
    {u"0x10", u"", u"", ""},
    {u"1e999", u"", u"", "#DMC ON [PWRSP = 1e999]"},
};

TEST_F(ZmcCascadeTest, TheDmcLineHasThePowerAndTheLimitsThatTheScreenShows) {
  for (const DmcRow& row : kDmcLines) {
    fields_.Power = row.power;
    SetFzMin(row.least);
    SetFzMax(row.most);
    fields_.DmcText = u"old";
    cascade_.UpdateDmcText(fields_);
    EXPECT_EQ(DmcText(), row.line) << ToUtf8(row.power);
  }
}

TEST_F(ZmcCascadeTest, ALimitOfZeroIsPrintedAndAnEmptyOneIsNot) {
  fields_.Power = u"5";
  SetFzMin(u"0.0000000");
  cascade_.UpdateDmcText(fields_);
  EXPECT_EQ(DmcText(), "#DMC ON [PWRSP = 5, FZMIN = 0.0000000]");
}

TEST_F(ZmcCascadeTest, WithoutDmcTheLineStaysAsItIs) {
  machine_.DmcSpindle = 0;
  fields_.Power = u"5";
  fields_.DmcText = u"old";
  cascade_.UpdateDmcText(fields_);
  EXPECT_EQ(DmcText(), "old");
}

// The cutting speed of a speed.

TEST_F(ZmcCascadeTest, ACuttingSpeedThatDiffersByRoundingKeepsTheTablesFigure) {
  machine_.SFormat.precision = 1;
  fields_.S = u"3819";
  EXPECT_EQ(ToUtf8(cascade_.CuttingSpeedFromS(fields_)), "120.000000") << "119.98 is within 0.05 of the table's 120";
  fields_.S = u"3818";
  EXPECT_EQ(ToUtf8(cascade_.CuttingSpeedFromS(fields_)), ToUtf8(Format(u"%f", 3.14159 * 10 * 3818 / 1000.0)));
  machine_.SFormat.precision = 0;
  EXPECT_EQ(ToUtf8(cascade_.CuttingSpeedFromS(fields_)), "119");
}

TEST_F(ZmcCascadeTest, ADifferenceOfTheToleranceItselfIsADifference) {
  machine_.SFormat.precision = 6;
  fields_.D = u"1000";  // the speed is 3.14159 times the revolutions
  fields_.S = u"1";
  SetVc(u"3.0915899999");
  EXPECT_EQ(ToUtf8(cascade_.CuttingSpeedFromS(fields_)), "3.141590");
  SetVc(u"3.0915900001");
  EXPECT_EQ(ToUtf8(cascade_.CuttingSpeedFromS(fields_)), "3.091590");
  fields_.D = u"0.0";
  SetVc(u"0.05");
  EXPECT_EQ(ToUtf8(cascade_.CuttingSpeedFromS(fields_)), "0.000000") << "exactly 0.05 is too much";
}

TEST_F(ZmcCascadeTest, WithInchesTheRevolutionsAreDividedAsIfTheyWereASpeed) {
  machine_.units.inches = true;
  machine_.SFormat.precision = 3;
  fields_.S = u"1000";
  fields_.D = u"0.5";
  SetVc(u"400");
  const double r = 3.14159 * (0.5 / 0.03937) * (1000 / 3.28084) / 1000.0;
  EXPECT_EQ(ToUtf8(cascade_.CuttingSpeedFromS(fields_)), ToUtf8(Format(u"%f", r)));
}

TEST_F(ZmcCascadeTest, TheCuttingSpeedHasTheBlankTestsOfTheRevolutions) {
  for (const RpmRow& row : kRpms) {
    fields_.S = row.s;
    SetVc(row.vc);
    fields_.D = row.d;
    const bool blank = std::string(row.rpm).empty();
    EXPECT_EQ(cascade_.CuttingSpeedFromS(fields_).empty(), blank) << ToUtf8(row.s) << "," << ToUtf8(row.vc);
  }
  fields_.S = u"1000";
  fields_.D = u"0.0";
  SetVc(u"120");
  EXPECT_EQ(ToUtf8(cascade_.CuttingSpeedFromS(fields_)), "0") << "a diameter of 0 that isn't blank";
  fields_.D = u"1";
  EXPECT_EQ(ToUtf8(cascade_.CuttingSpeedFromS(fields_)), "3");
}

// A unit of the speed that the machine forces.

struct ForcedRow {
  std::int32_t forced;
  bool dual;
  int stored;
  int sUnit;
  const char* s;
};

const ForcedRow kForced[] = {
    {0, true, 0, 5, "3000"},  {9, true, 0, 5, "3000"}, {-1, true, 0, 5, "3000"},        {10, true, 0, 0, "3000"},
    {10, true, 1, 0, "3000"}, {11, true, 0, 1, "94"},  {11, true, 1, 1, "3000"},        {11, false, 0, -1, "94"},
    {12, true, 0, -1, "94"},  {11, true, -1, 1, "94"}, {2147483647, true, 0, -1, "94"},
};

TEST_F(ZmcCascadeTest, AForcedUnitSelectsItselfAndMakesTheSpeedACuttingSpeed) {
  for (const ForcedRow& row : kForced) {
    machine_.ForcedSUnit = row.forced;
    machine_.DualPurpose = row.dual;
    fields_.SUnit = 5;
    fields_.S = u"3000";
    cascade_.ForceSUnit(row.stored, fields_);
    EXPECT_EQ(fields_.SUnit, row.sUnit) << row.forced << "," << row.stored;
    EXPECT_EQ(S(), row.s) << row.forced << "," << row.stored;
  }
}

// All together.

TEST_F(ZmcCascadeTest, AllFourAreRecomputedInOrder) {
  SetFzMin(u"0.0200000");
  cascade_.RecalcConditions(fields_);
  EXPECT_EQ(S(), "3819");
  EXPECT_EQ(F(), "763.800000");
  EXPECT_EQ(Power(), "29.952941");
  EXPECT_EQ(DmcText(), "#DMC ON [PWRSP = 29.952941, FZMIN = 0.0200000]");
}

TEST_F(ZmcCascadeTest, LimitsClampNothing) {
  for (const auto& [least, most] : {std::pair(u"0.0000001", u"0.0000002"), std::pair(u"8888", u"9999")}) {
    for (std::size_t row = 0; row < 4; ++row) {
      fields_.Cells[3 * row] = least;
      fields_.Cells[3 * row + 1] = most;
    }
    cascade_.RecalcConditions(fields_);
    EXPECT_EQ(S(), "3819");
    EXPECT_EQ(F(), "763.800000");
    EXPECT_EQ(Power(), "29.952941");
  }
  EXPECT_EQ(DmcText(), "#DMC ON [PWRSP = 29.952941, FZMIN = 8888, FZMAX = 9999]");
}

TEST_F(ZmcCascadeTest, NumbersOfAnyKindInAnyFieldGiveADefinedResult) {
  const TextView odd[] = {u"1e999", u"-1e999", u"nan",    u"inf",    u"0x10",
                          u"1e308", u"-1e308", u"1e-320", u"\uFFFD", u"."};
  for (const bool inches : {false, true}) {
    machine_.units.inches = inches;
    for (const TextView text : odd) {
      for (int place = 0; place < 8; ++place) {
        ZmcFields fields = fields_;
        if (place < 6) {
          fields.Cells[std::vector<std::size_t>{2, 3, 4, 5, 8, 11}[static_cast<std::size_t>(place)]] = text;
        } else {
          (place == 6 ? fields.D : fields.Z) = text;
        }
        cascade_.RecalcConditions(fields);
        ZmcFields again = fields;
        cascade_.RecalcConditions(again);
        EXPECT_TRUE(again.S == fields.S && again.F == fields.F && again.Power == fields.Power) << ToUtf8(text);
      }
    }
  }
}

}  // namespace
}  // namespace pnl::test
