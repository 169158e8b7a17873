// SPDX-License-Identifier: MIT
#include "facade/mill/machine_plan.h"

namespace pnl::sim {
namespace {

std::variant<Plan, Fault> PlanText(TextView text, const Condition& condition) {
  const auto block = ParseBlock(text);
  if (const Fault* fault = std::get_if<Fault>(&block)) return *fault;
  const auto request = ReadRequest(std::get<Block>(block));
  if (const Fault* fault = std::get_if<Fault>(&request)) return *fault;
  return PlanBlock(std::get<Request>(request), condition);
}

/// The machine after one more block, which must be accepted.
Condition After(Condition condition, TextView text) {
  const auto plan = PlanText(text, condition);
  if (const Fault* fault = std::get_if<Fault>(&plan)) {
    ADD_FAILURE() << ToUtf8(text) << ": " << ToUtf8(Text(Wording(fault->code, MachineLanguage::kEnglish)));
    return condition;
  }
  condition.modal = std::get<Plan>(plan).after;
  for (const Step& step : std::get<Plan>(plan).steps) {
    if (step.kind == Step::Kind::kMove) condition.position = step.path.to;
    if (step.functions.tool) condition.tool = *step.functions.tool;
    if (step.functions.spindle) condition.spindle = *step.functions.spindle;
  }
  return condition;
}

struct GoodRow {
  std::vector<TextView> before;
  TextView block;
  TextView printed;
};

void ExpectPlans(const std::vector<GoodRow>& rows) {
  for (const GoodRow& row : rows) {
    Condition condition;
    for (const TextView text : row.before) condition = After(condition, text);
    const auto plan = PlanText(row.block, condition);
    ASSERT_TRUE(std::holds_alternative<Plan>(plan)) << ToUtf8(row.block);
    EXPECT_EQ(ToUtf8(Print(std::get<Plan>(plan))), ToUtf8(row.printed)) << ToUtf8(row.block);
  }
}

TEST(MachinePlan, MovesEndWhereTheirWordsSay) {
  ExpectPlans({
      {{}, u"Y100", u"rapid 100 mm 600 ms to X0 Y100 Z0\nG00 G17 G21 G40 G54 G90 G94 G97"},
      {{}, u"G0 X100", u"rapid 100 mm 600 ms to X100 Y0 Z0\nG00 G17 G21 G40 G54 G90 G94 G97"},
      {{}, u"X100 Z-60", u"rapid 116.619 mm 600 ms to X100 Y0 Z-60\nG00 G17 G21 G40 G54 G90 G94 G97"},
      {{}, u"Z-120 X100", u"rapid 156.205 mm 1200 ms to X100 Y0 Z-120\nG00 G17 G21 G40 G54 G90 G94 G97"},
      {{}, u"G1 X30 Y40 F1000", u"line 50 mm 3000 ms to X30 Y40 Z0\nG01 G17 G21 G40 G54 G90 G94 G97"},
      {{u"G1 X30 F600"}, u"Y-60", u"line 60 mm 6000 ms to X30 Y-60 Z0\nG01 G17 G21 G40 G54 G90 G94 G97"},
      {{u"G0 X30"}, u"G91 X10", u"rapid 10 mm 60 ms to X40 Y0 Z0\nG00 G17 G21 G40 G54 G91 G94 G97"},
      {{u"G0 X30"}, u"G55 X10", u"rapid 80 mm 480 ms to X110 Y0 Z0\nG00 G17 G21 G40 G55 G90 G94 G97"},
      {{u"G55 X10 Y0"}, u"G53 X10 Y5", u"rapid 109.659 mm 600 ms to X10 Y5 Z0\nG00 G17 G21 G40 G55 G90 G94 G97"},
      {{u"G0 X30", u"G91"}, u"G53 X10", u"rapid 20 mm 120 ms to X10 Y0 Z0\nG00 G17 G21 G40 G54 G91 G94 G97"},
      {{}, u"G20 G1 X2 F10", u"line 50.8 mm 12000 ms to X50.8 Y0 Z0\nG01 G17 G20 G40 G54 G90 G94 G97"},
      {{u"G1 F254"}, u"G20 X1", u"line 25.4 mm 6000 ms to X25.4 Y0 Z0\nG01 G17 G20 G40 G54 G90 G94 G97"},
      {{u"T1 M6"}, u"G43 Z10", u"rapid 60 mm 600 ms to X0 Y0 Z60\nG00 G17 G21 G40 G43 G54 G90 G94 G97"},
      {{u"T1 M6", u"G43"}, u"G44 Z10", u"rapid 10 mm 100 ms to X0 Y0 Z10\nG00 G17 G21 G40 G54 G90 G94 G97"},
      {{u"G1 F100"}, u"X0", u"line 0 mm 0 ms to X0 Y0 Z0\nG01 G17 G21 G40 G54 G90 G94 G97"},
  });
}

TEST(MachinePlan, FeedPerRevolutionTakesTheSpeedThatHoldsInTheBlock) {
  ExpectPlans({
      {{u"S1000 M3"}, u"G95 G1 X100 F0.2", u"line 100 mm 30000 ms to X100 Y0 Z0\nG01 G17 G21 G40 G54 G90 G95 G97"},
      {{u"S1000 M3"},
       u"G95 G1 X100 F0.2 S2000",
       u"functions spindle 1 at 2000\nline 100 mm 15000 ms to X100 Y0 Z0\nG01 G17 G21 G40 G54 G90 G95 G97"},
      {{u"G94 F500", u"G95 F0.1 S1000 M4", u"G94"},
       u"G1 X50",
       u"line 50 mm 6000 ms to X50 Y0 Z0\nG01 G17 G21 G40 G54 G90 G94 G97"},
  });
}

TEST(MachinePlan, ArcsFollowTheirCentreOrRadius) {
  ExpectPlans({
      {{}, u"G3 X20 I10 F1000", u"arc 31.4159 mm 1884.96 ms to X20 Y0 Z0\nG03 G17 G21 G40 G54 G90 G94 G97"},
      {{}, u"G2 I10 F1000", u"arc 62.8319 mm 3769.91 ms to X0 Y0 Z0\nG02 G17 G21 G40 G54 G90 G94 G97"},
      {{}, u"G2 I10 Z-20 F1000", u"arc 65.9382 mm 3956.29 ms to X0 Y0 Z-20\nG02 G17 G21 G40 G54 G90 G94 G97"},
      {{}, u"G3 X10 Y10 R10 F1000", u"arc 15.708 mm 942.478 ms to X10 Y10 Z0\nG03 G17 G21 G40 G54 G90 G94 G97"},
      {{}, u"G2 X10 Y10 R10 F1000", u"arc 15.708 mm 942.478 ms to X10 Y10 Z0\nG02 G17 G21 G40 G54 G90 G94 G97"},
      {{}, u"G2 X10 Y10 R-10 F1000", u"arc 47.1239 mm 2827.43 ms to X10 Y10 Z0\nG02 G17 G21 G40 G54 G90 G94 G97"},
      {{}, u"G3 X20 R9.995 F1000", u"arc 31.4159 mm 1884.96 ms to X20 Y0 Z0\nG03 G17 G21 G40 G54 G90 G94 G97"},
      {{u"G0 X5 Y7"},
       u"G3 X15 Y17 R10 F1000",
       u"arc 15.708 mm 942.478 ms to X15 Y17 Z0\nG03 G17 G21 G40 G54 G90 G94 G97"},
      {{}, u"G20 G3 X2 I1 F10", u"arc 79.7965 mm 18849.6 ms to X50.8 Y0 Z0\nG03 G17 G20 G40 G54 G90 G94 G97"},
      {{}, u"G20 G3 X2 R1 F10", u"arc 79.7965 mm 18849.6 ms to X50.8 Y0 Z0\nG03 G17 G20 G40 G54 G90 G94 G97"},
      {{}, u"G18 G2 X20 I10 F1000", u"arc 31.4159 mm 1884.96 ms to X20 Y0 Z0\nG02 G18 G21 G40 G54 G90 G94 G97"},
      {{}, u"G19 G3 Y20 J10 F1000", u"arc 31.4159 mm 1884.96 ms to X0 Y20 Z0\nG03 G19 G21 G40 G54 G90 G94 G97"},
      {{},
       u"G91 G3 X20 Y0.005 I10 F1000",
       u"arc 31.4209 mm 1885.26 ms to X20 Y0.005 Z0\nG03 G17 G21 G40 G54 G91 "
       u"G94 G97"},
  });
}

TEST(MachinePlan, AFirstQuarterOfEachArcGoesTheRightWay) {
  const struct {
    TextView block;
    Point quarter;
  } rows[] = {
      {u"G17 G2 I10 F1", {10, 10, 0}}, {u"G17 G3 I10 F1", {10, -10, 0}}, {u"G18 G2 I10 F1", {10, 0, -10}},
      {u"G18 G3 I10 F1", {10, 0, 10}}, {u"G19 G2 J10 F1", {0, 10, 10}},  {u"G19 G3 J10 F1", {0, 10, -10}},
      {u"G18 G2 K10 F1", {10, 0, 10}}, {u"G19 G2 K10 F1", {0, -10, 10}}, {u"G17 G2 J10 F1", {-10, 10, 0}},
  };
  for (const auto& row : rows) {
    const auto plan = PlanText(row.block, {});
    ASSERT_TRUE(std::holds_alternative<Plan>(plan)) << ToUtf8(row.block);
    const Point point = std::get<Plan>(plan).steps.at(0).path.At(0.25);
    for (std::size_t axis = 0; axis < kAxisCount; ++axis) {
      EXPECT_NEAR(point[axis], row.quarter[axis], 1e-9) << ToUtf8(row.block) << " axis " << axis;
    }
  }
}

TEST(MachinePlan, FunctionsStandBeforeAndBehindTheMove) {
  ExpectPlans({
      {{}, u"F100 S1000 D3", u"G00 G17 G21 G40 G54 G90 G94 G97"},
      {{}, u"M3 S1000", u"functions spindle 1 at 1000\nG00 G17 G21 G40 G54 G90 G94 G97"},
      {{u"S500 M3"}, u"M4", u"functions spindle -1 at 500\nG00 G17 G21 G40 G54 G90 G94 G97"},
      {{u"S500 M3"}, u"M3", u"functions spindle 1 at 500\nG00 G17 G21 G40 G54 G90 G94 G97"},
      {{u"S500 M3"}, u"X10", u"rapid 10 mm 60 ms to X10 Y0 Z0\nG00 G17 G21 G40 G54 G90 G94 G97"},
      {{u"S500 M3"}, u"S0", u"functions spindle 1 at 0\nG00 G17 G21 G40 G54 G90 G94 G97"},
      {{}, u"S500", u"G00 G17 G21 G40 G54 G90 G94 G97"},
      {{}, u"T2 M6", u"functions tool 2 coolant off\nG00 G17 G21 G40 G54 G90 G94 G97"},
      {{u"S500 M3"}, u"T2 M6", u"functions tool 2 spindle 0 at 0 coolant off\nG00 G17 G21 G40 G54 G90 G94 G97"},
      {{},
       u"M8 G0 X10 M5",
       u"functions coolant on\nrapid 10 mm 60 ms to X10 Y0 Z0\nfunctions spindle 0 at 0\n"
       u"G00 G17 G21 G40 G54 G90 G94 G97"},
      {{},
       u"T2 M6 M4 S800 M7 G0 X10 M0",
       u"functions tool 2 spindle -1 at 800 coolant on\nrapid 10 mm 60 ms to X10 Y0 Z0\nstop M0\n"
       u"G00 G17 G21 G40 G54 G90 G94 G97"},
      {{}, u"M5 M9 M1", u"functions spindle 0 at 0 coolant off\nstop M1\nG00 G17 G21 G40 G54 G90 G94 G97"},
      {{}, u"G1 F10 M30", u"functions program end\nG01 G17 G21 G40 G54 G90 G94 G97"},
      {{}, u"M2", u"functions program end\nG00 G17 G21 G40 G54 G90 G94 G97"},
      {{}, u"G41 D1", u"G00 G17 G21 G41 G54 G90 G94 G97"},
  });
}

TEST(MachinePlan, ACuttingSpeedTurnsTheSpindleByTheToolsDiameter) {
  ExpectPlans({
      {{u"T1 M6"}, u"G96 S31.41592653589793 M3", u"functions spindle 1 at 1000\nG00 G17 G21 G40 G54 G90 G94 G96"},
      {{}, u"G96 S100", u"G00 G17 G21 G40 G54 G90 G94 G96"},
      {{u"T1 M6", u"S700 M3", u"G96 S31.41592653589793"},
       u"G97",
       u"functions spindle 1 at 700\nG00 G17 G21 G40 G54 G90 G94 G97"},
  });
}

TEST(MachinePlan, DwellsTakeSecondsByAnyOfThreeLetters) {
  ExpectPlans({
      {{}, u"G4 K1.5", u"dwell 1500 ms\nG00 G17 G21 G40 G54 G90 G94 G97"},
      {{}, u"G04 P2", u"dwell 2000 ms\nG00 G17 G21 G40 G54 G90 G94 G97"},
      {{u"G1 F100"}, u"G04 X0.25", u"dwell 250 ms\nG01 G17 G21 G40 G54 G90 G94 G97"},
      {{}, u"G4 K0", u"dwell 0 ms\nG00 G17 G21 G40 G54 G90 G94 G97"},
      {{}, u"M3 S100 G4 K1", u"functions spindle 1 at 100\ndwell 1000 ms\nG00 G17 G21 G40 G54 G90 G94 G97"},
  });
}

struct BadRow {
  std::vector<TextView> before;
  TextView block;
  FaultCode code;
  TextView word;
};

const BadRow kBadRows[] = {
    {{}, u"G1 X10", FaultCode::kFeedMissing, u"G1"},
    {{u"G1"}, u"Y5 X10", FaultCode::kFeedMissing, u"Y5"},
    {{}, u"G2 I5", FaultCode::kFeedMissing, u"G2"},
    {{u"F100"}, u"G95 G1 X1", FaultCode::kFeedMissing, u"G1"},
    {{}, u"G1 X10 F0", FaultCode::kFeedZero, u"F0"},
    {{}, u"F-5", FaultCode::kFeedZero, u"F-5"},
    {{}, u"F0.00001", FaultCode::kFeedZero, u"F0.00001"},
    {{u"S0.001 M3"}, u"G95 G1 X1 F0.001", FaultCode::kFeedZero, u"F0.001"},
    {{}, u"F20001", FaultCode::kFeedTooHigh, u"F20001"},
    {{}, u"G20 F800", FaultCode::kFeedTooHigh, u"F800"},
    {{u"S5000 M3"}, u"G95 G1 X1 F5", FaultCode::kFeedTooHigh, u"F5"},
    {{u"S5000 M3 G95 F3"}, u"G1 X1 S10000", FaultCode::kFeedTooHigh, u"G1"},
    {{}, u"G95 G1 X1 F0.1", FaultCode::kSpindleStopped, u"F0.1"},
    {{u"F100", u"G95 F0.1", u"G94"}, u"G95 G1 X1", FaultCode::kSpindleStopped, u"G95"},
    {{u"G95 F0.1"}, u"G1 X1", FaultCode::kSpindleStopped, u"G1"},
    {{u"G95 F0.1 G1"}, u"Z1", FaultCode::kSpindleStopped, u"Z1"},
    {{u"S100 M3", u"S0"}, u"G95 G1 X1 F0.1", FaultCode::kSpindleStopped, u"F0.1"},
    {{}, u"G2 X10 F100", FaultCode::kArcCentre, u"G2"},
    {{u"G3 F100"}, u"X10", FaultCode::kArcCentre, u"X10"},
    {{}, u"G2 X10 I5 R5 F100", FaultCode::kArcCentre, u"R5"},
    {{}, u"G2 R5 F100", FaultCode::kArcCentre, u"R5"},
    {{}, u"G2 X0 R5 F100", FaultCode::kArcCentre, u"R5"},
    {{}, u"G2 X10 Y1 I5 F100", FaultCode::kArcEnd, u"X10"},
    {{}, u"G2 Y0.5 X10 I5 F100", FaultCode::kArcEnd, u"Y0.5"},
    {{}, u"G18 G2 X11 I5 F100", FaultCode::kArcEnd, u"X11"},
    {{}, u"G2 X10 R4 F100", FaultCode::kArcRadius, u"R4"},
    {{}, u"G2 X10 R4.98 F100", FaultCode::kArcRadius, u"R4.98"},
    {{u"G2 F100"}, u"J400", FaultCode::kTravelLimit, u"J400"},
    {{u"G18 G2 F100"}, u"K400", FaultCode::kTravelLimit, u"K400"},
    {{u"F100"}, u"G19 G2 Y1 Z1 J1 K1.1", FaultCode::kArcEnd, u"Y1"},
    {{}, u"G2 X10 R0 F100", FaultCode::kArcRadius, u"R0"},
    {{}, u"G2 X10 I0 J0 F100", FaultCode::kArcRadius, u"I0"},
    {{}, u"G2 X1 I1000000000 F1", FaultCode::kArcEnd, u"X1"},
    {{}, u"G0 X500.001", FaultCode::kTravelLimit, u"X500.001"},
    {{}, u"G0 X-501 Y400", FaultCode::kTravelLimit, u"X-501"},
    {{}, u"G0 Y301", FaultCode::kTravelLimit, u"Y301"},
    {{}, u"G0 Z201", FaultCode::kTravelLimit, u"Z201"},
    {{}, u"G0 Z-400.01", FaultCode::kTravelLimit, u"Z-400.01"},
    {{}, u"G55 X401", FaultCode::kTravelLimit, u"X401"},
    {{u"G0 X400"}, u"G91 X101", FaultCode::kTravelLimit, u"X101"},
    {{}, u"G20 X19.7", FaultCode::kTravelLimit, u"X19.7"},
    {{u"T1 M6"}, u"G43 Z151", FaultCode::kTravelLimit, u"Z151"},
    {{u"G0 Y299"}, u"G2 I10 F100", FaultCode::kTravelLimit, u"G2"},
    {{u"G0 Y299"}, u"G2 X20 I10 F100", FaultCode::kTravelLimit, u"G2"},
    {{u"G0 X-499"}, u"G2 X-499 Y20 J10 F100", FaultCode::kTravelLimit, u"X-499"},
    {{}, u"M3", FaultCode::kSpeedMissing, u"M3"},
    {{}, u"S0 M4", FaultCode::kSpeedMissing, u"M4"},
    {{u"S100 M3"}, u"G96", FaultCode::kSpeedMissing, u"G96"},
    {{}, u"S12001", FaultCode::kSpeedTooHigh, u"S12001"},
    {{u"T6 M6"}, u"G96 S500 M3", FaultCode::kSpeedTooHigh, u"S500"},
    {{u"T1 M6", u"G96 S100 M3"}, u"T6 M6 M3 S120", FaultCode::kSpeedTooHigh, u"S120"},
    {{}, u"S-1", FaultCode::kBadValue, u"S-1"},
    {{}, u"G96 S100 M3", FaultCode::kNoToolDiameter, u"S100"},
    {{u"G96 S100"}, u"M3", FaultCode::kNoToolDiameter, u"M3"},
    {{}, u"T100", FaultCode::kUnknownTool, u"T100"},
    {{}, u"T-1", FaultCode::kUnknownTool, u"T-1"},
    {{}, u"T1.5", FaultCode::kUnknownTool, u"T1.5"},
    {{}, u"D100", FaultCode::kBadValue, u"D100"},
    {{}, u"D0.5", FaultCode::kBadValue, u"D0.5"},
    {{}, u"G4", FaultCode::kDwellTime, u"G4"},
    {{}, u"G4 K-1", FaultCode::kBadValue, u"K-1"},
    {{}, u"G4 K86401", FaultCode::kBadValue, u"K86401"},
    {{}, u"G4 K1 P1", FaultCode::kUnusedWord, u"P1"},
    {{}, u"G4 X1 K1", FaultCode::kUnusedWord, u"K1"},
    {{}, u"G4 K1 Y5", FaultCode::kUnusedWord, u"Y5"},
    {{}, u"G4 K1 Z5", FaultCode::kUnusedWord, u"Z5"},
    {{}, u"G4 K1 I5", FaultCode::kUnusedWord, u"I5"},
    {{}, u"G4 K1 J5", FaultCode::kUnusedWord, u"J5"},
    {{}, u"G4 P1 X1", FaultCode::kUnusedWord, u"X1"},
    {{}, u"G0 J5", FaultCode::kUnusedWord, u"J5"},
    {{}, u"G0 K5", FaultCode::kUnusedWord, u"K5"},
    {{}, u"G2 X10 I5 P1 F100", FaultCode::kUnusedWord, u"P1"},
    {{}, u"G18 G2 X10 I5 P1 F100", FaultCode::kUnusedWord, u"P1"},
    {{}, u"G19 G2 Y10 J5 P1 F100", FaultCode::kUnusedWord, u"P1"},
    {{}, u"G4 K1 R5", FaultCode::kUnusedWord, u"R5"},
    {{}, u"G0 X1 I5", FaultCode::kUnusedWord, u"I5"},
    {{}, u"G1 X1 F5 R5", FaultCode::kUnusedWord, u"R5"},
    {{}, u"P5", FaultCode::kUnusedWord, u"P5"},
    {{}, u"G2 X10 I5 K1 F100", FaultCode::kUnusedWord, u"K1"},
    {{}, u"G18 G2 X10 I5 J1 F100", FaultCode::kUnusedWord, u"J1"},
    {{}, u"G19 G2 Y10 J5 I1 F100", FaultCode::kUnusedWord, u"I1"},
};

TEST(MachinePlan, WhatTheMachineCannotDoIsRefusedByTheWordAtFault) {
  for (const BadRow& row : kBadRows) {
    Condition condition;
    for (const TextView text : row.before) condition = After(condition, text);
    const auto plan = PlanText(row.block, condition);
    ASSERT_TRUE(std::holds_alternative<Fault>(plan)) << ToUtf8(row.block);
    const Fault& fault = std::get<Fault>(plan);
    EXPECT_EQ(fault.code, row.code) << ToUtf8(row.block) << ": "
                                    << ToUtf8(Text(Wording(fault.code, MachineLanguage::kEnglish)));
    EXPECT_EQ(ToUtf8(fault.word), ToUtf8(row.word)) << ToUtf8(row.block);
    EXPECT_EQ(ToUtf8(row.block.substr(fault.begin, fault.length)), ToUtf8(row.word));
  }
}

TEST(MachinePlan, AFeedPerRevolutionMayReachTheLimitsOfTheFeedItself) {
  const Condition fast = After({}, u"S4000 M3");
  EXPECT_TRUE(std::holds_alternative<Plan>(PlanText(u"G95 G1 X1 F5", fast)));
  EXPECT_FALSE(std::holds_alternative<Plan>(PlanText(u"G95 G1 X1 F5.001", fast)));
  const Condition slow = After({}, u"S1 M3");
  EXPECT_TRUE(std::holds_alternative<Plan>(PlanText(u"G95 G1 X1 F0.0001", slow)));
  EXPECT_FALSE(std::holds_alternative<Plan>(PlanText(u"G95 G1 X1 F0.0001", After({}, u"S0.5 M3"))));
}

TEST(MachinePlan, ASpeedThatIsTooHighNamesTheCodeThatAsksForIt) {
  Condition turning;
  for (const TextView text : {u"T6 M6", u"G96 S500", u"G97 S100 M3"}) turning = After(turning, text);
  const auto plan = PlanText(u"X1 G96", turning);
  ASSERT_TRUE(std::holds_alternative<Fault>(plan));
  EXPECT_EQ(std::get<Fault>(plan).code, FaultCode::kSpeedTooHigh);
  EXPECT_EQ(std::get<Fault>(plan).word, u"G96");
}

TEST(MachinePlan, TheWorkpieceZerosAreWhereTheyAre) {
  const std::pair<int, Point> zeros[] = {{54, {0, 0, 0}},     {55, {100, 50, 0}},   {56, {-100, -50, 0}},
                                         {57, {200, 0, -50}}, {58, {-200, 0, -50}}, {59, {0, 100, -100}},
                                         {53, {0, 0, 0}},     {60, {0, 0, 0}}};
  for (const auto& [code, zero] : zeros) EXPECT_EQ(OffsetOf(code), zero) << code;
}

TEST(MachinePlan, ACuttingSpeedMayReachTheHighestSpeedOfTheSpindle) {
  const Condition tool = After({}, u"T1 M6");
  EXPECT_TRUE(std::holds_alternative<Plan>(PlanText(u"G96 S376.9911184307752 M3", tool)));
  EXPECT_FALSE(std::holds_alternative<Plan>(PlanText(u"G96 S376.9911184307753 M3", tool)));
}

TEST(MachinePlan, TheSmallestArcHasARadiusOfItsTolerance) {
  EXPECT_TRUE(std::holds_alternative<Plan>(PlanText(u"G2 I0.01 F100", {})));
  EXPECT_FALSE(std::holds_alternative<Plan>(PlanText(u"G2 I0.0099 F100", {})));
}

TEST(MachinePlan, TheLimitsThemselvesAreLegal) {
  for (const TextView block :
       {u"G0 X500 Y300 Z200", u"G0 X-500 Y-300 Z-400", u"G20 X-19.685", u"F20000", u"S12000", u"S0",
        // Rounding may lead past a limit by less than anybody can measure.
        u"G20 X19.6850393701 Y-11.8110236221", u"F0.0001", u"G95 F0.0001", u"T99", u"T0", u"D99", u"D0", u"G4 K86400",
        u"G4 K0"}) {
    EXPECT_TRUE(std::holds_alternative<Plan>(PlanText(block, {}))) << ToUtf8(block);
  }
}

}  // namespace
}  // namespace pnl::sim
