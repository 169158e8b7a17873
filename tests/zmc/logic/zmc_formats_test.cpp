// SPDX-License-Identifier: MIT
#include "zmc/logic/zmc_formats.h"

#include <gtest/gtest.h>

#include <limits>

namespace pnl::test {
namespace {

struct DigitsRow {
  const char* name;
  ZmcDigits digits;
  ZmcDigits expected;
};

ZmcMachine FormatMachine(bool inches) {
  ZmcMachine machine;
  machine.units.inches = inches;
  machine.FFormat = {6, 3};
  machine.SFormat = {5, 0};
  return machine;
}

void ExpectDigits(const DigitsRow& row) {
  EXPECT_EQ(row.digits.integerDigits, row.expected.integerDigits) << row.name;
  EXPECT_EQ(row.digits.decimals, row.expected.decimals) << row.name;
  EXPECT_EQ(row.digits.least, row.expected.least) << row.name;
  EXPECT_EQ(row.digits.most, row.expected.most) << row.name;
}

TEST(ZmcFormats, EveryFieldHasItsDigitsAndLimits) {
  const ZmcMachine metric = FormatMachine(false);
  const ZmcMachine inch = FormatMachine(true);
  const DigitsRow rows[] = {
      {"D metric", FieldDigits(ZmcField::kD, metric), {5, 4, {}, {}}},
      {"D inch", FieldDigits(ZmcField::kD, inch), {4, 5, {}, {}}},
      {"Z", FieldDigits(ZmcField::kZ, metric), {3, 0, 0.0, 100.0}},
      {"Z inch", FieldDigits(ZmcField::kZ, inch), {3, 0, 0.0, 100.0}},
      {"S", FieldDigits(ZmcField::kS, metric), {5, 0, {}, {}}},
      {"S inch", FieldDigits(ZmcField::kS, inch), {5, 0, {}, {}}},
      {"F", FieldDigits(ZmcField::kF, metric), {6, 3, {}, {}}},
      {"F inch", FieldDigits(ZmcField::kF, inch), {6, 3, {}, {}}},
      {"Power", FieldDigits(ZmcField::kPower, metric), {4, 2, 0.0, 1000.0}},
      {"Power inch", FieldDigits(ZmcField::kPower, inch), {4, 2, 0.0, 1000.0}},
  };
  for (const DigitsRow& row : rows) ExpectDigits(row);
}

TEST(ZmcFormats, EveryRowOfTheGridHasItsDigitsAndLimits) {
  for (int row = 1; row <= 3; ++row) {
    ExpectDigits({"metric", CellDigits(row, ZmcUnits{false}), {5, 4, -99999.9999, 99999.9999}});
    ExpectDigits({"inch", CellDigits(row, ZmcUnits{true}), {4, 5, -9999.99999, 9999.99999}});
  }
  for (const bool inches : {false, true})
    ExpectDigits({"percent", CellDigits(4, ZmcUnits{inches}), {3, 2, 0.0, 100.0}});
}

TEST(ZmcFormats, AMachineWithoutAFormatLimitsNothingAndNoneIsTooWide) {
  ZmcMachine machine;
  ExpectDigits({"nothing", FieldDigits(ZmcField::kS, machine), {0, 0, {}, {}}});
  machine.FFormat = {-3, std::numeric_limits<std::int32_t>::max()};
  ExpectDigits({"odd", FieldDigits(ZmcField::kF, machine), {0, 15, {}, {}}});
}

}  // namespace
}  // namespace pnl::test
