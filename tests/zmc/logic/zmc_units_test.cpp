// SPDX-License-Identifier: MIT
#include "zmc/logic/zmc_units.h"

#include <gtest/gtest.h>

namespace pnl::test {
namespace {

constexpr ZmcUnits kMetric{false};
constexpr ZmcUnits kInch{true};

struct ConversionRow {
  const char* name;
  double (ZmcUnits::*convert)(double) const;
  double value;
  double metric;
  double inch;
};

/// Bit for bit: the order of the operations is part of the result, and another order would give another last bit here.
const ConversionRow kConversions[] = {
    {"SpeedToMetric", &ZmcUnits::SpeedToMetric, 400, 400, 400 / 3.28084},
    {"SpeedToMetric", &ZmcUnits::SpeedToMetric, 2.7, 2.7, 2.7 / 3.28084},
    {"LengthToMetric", &ZmcUnits::LengthToMetric, 0.5, 0.5, 0.5 / 0.03937},
    {"LengthToMetric", &ZmcUnits::LengthToMetric, 0.7, 0.7, 0.7 / 0.03937},
    {"LengthFromMetric", &ZmcUnits::LengthFromMetric, 12.7, 12.7, 12.7 * 0.03937},
    {"InternalLengthToScreen", &ZmcUnits::InternalLengthToScreen, 1998, 1998 / 10000.0, 1998 * 0.03937 / 10000.0},
    {"InternalSpeedToScreen", &ZmcUnits::InternalSpeedToScreen, 3000009, 3000009 / 10000000.0,
     3000009 / 10000000.0 * 3.28084},
    {"ScreenLengthToInternal", &ZmcUnits::ScreenLengthToInternal, 0.1, 0.1 * 10000.0, 0.1 * 10000.0 / 0.03937},
    {"ScreenSpeedToInternal", &ZmcUnits::ScreenSpeedToInternal, 0.1, 0.1 * 10000000.0, 0.1 / 3.28084 * 10000000.0},
};

TEST(ZmcUnits, EveryConversionComputesInItsOrderAndLeavesMetricScreensAlone) {
  for (const ConversionRow& row : kConversions) {
    EXPECT_EQ((kMetric.*row.convert)(row.value), row.metric) << row.name;
    EXPECT_EQ((kInch.*row.convert)(row.value), row.inch) << row.name;
  }
}

TEST(ZmcUnits, TheConstantsAreNoMoreExactThanTheyAre) {
  EXPECT_EQ(zmc_constant::kPi, 3.14159);
  EXPECT_EQ(zmc_constant::kFeetPerMetre, 3.28084);
  EXPECT_EQ(zmc_constant::kInchesPerMillimetre, 0.03937);
  EXPECT_EQ(zmc_constant::kInternalSpeed, 10000000.0);
  EXPECT_EQ(zmc_constant::kInternalLength, 10000.0);
  EXPECT_EQ(zmc_constant::kPowerDivisor, 51000.0);
  EXPECT_EQ(zmc_constant::kSpeedTolerance, 0.05);
}

TEST(ZmcUnits, TheUnitsHaveTheirTexts) {
  EXPECT_TRUE(kMetric.LengthText() == u"mm" && kMetric.SpeedText() == u"m/min");
  EXPECT_TRUE(kInch.LengthText() == u"in" && kInch.SpeedText() == u"sfm");
}

struct ParameterRow {
  int id;
  int row;
  int column;
  double storedMetric;  // for 2 on the screen
  double storedInch;
};

const ParameterRow kRows[] = {
    {0, 1, 1, 20000000.0, 2 / 3.28084 * 10000000.0},
    {1, 1, 2, 20000000.0, 2 / 3.28084 * 10000000.0},
    {2, 1, 3, 20000000.0, 2 / 3.28084 * 10000000.0},
    {3, 2, 1, 20000.0, 2 * 10000.0 / 0.03937},
    {4, 2, 2, 20000.0, 2 * 10000.0 / 0.03937},
    {5, 2, 3, 20000.0, 2 * 10000.0 / 0.03937},
    {6, 3, 1, 20000.0, 2 * 10000.0 / 0.03937},
    {7, 3, 2, 20000.0, 2 * 10000.0 / 0.03937},
    {8, 3, 3, 20000.0, 2 * 10000.0 / 0.03937},
    {9, 4, 1, 2, 2},
    {10, 4, 2, 2, 2},
    {11, 4, 3, 2, 2},
};

TEST(ZmcUnits, EveryParameterHasItsCellAndItsConversion) {
  for (const ParameterRow& row : kRows) {
    EXPECT_EQ(ZmcParameterOf(row.row, row.column), row.id);
    EXPECT_EQ(kZmcParameters[row.id].id, row.id);
    EXPECT_EQ(kZmcParameters[row.id].row, row.row);
    EXPECT_EQ(kZmcParameters[row.id].column, row.column);
    EXPECT_EQ(ZmcToStored(kMetric, row.id, 2), row.storedMetric) << row.id;
    EXPECT_EQ(ZmcToStored(kInch, row.id, 2), row.storedInch) << row.id;
    EXPECT_EQ(ZmcToScreen(kMetric, row.id, row.storedMetric), 2) << row.id;
    EXPECT_NEAR(ZmcToScreen(kInch, row.id, row.storedInch), 2, 1e-12) << row.id;
  }
}

TEST(ZmcUnits, TheRemarkHasNoCellAndNothingToConvert) {
  EXPECT_EQ(kZmcParameters[kZmcRemarkId].row, 0);
  for (const int id : {kZmcRemarkId, -1, 13, 1000}) {
    EXPECT_EQ(ZmcToStored(kInch, id, 7), 7) << id;
    EXPECT_EQ(ZmcToScreen(kInch, id, 7), 7) << id;
  }
}

TEST(ZmcUnits, FixedCellsAndCellsOutsideTheGridHaveNoParameter) {
  const std::pair<int, int> cells[] = {{0, 1}, {1, 0}, {5, 1}, {1, 4}, {-1, 1}, {1, -1}};
  for (const auto& [row, column] : cells) EXPECT_FALSE(ZmcParameterOf(row, column)) << row << "," << column;
}

}  // namespace
}  // namespace pnl::test
