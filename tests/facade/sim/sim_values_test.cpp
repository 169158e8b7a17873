// SPDX-License-Identifier: MIT
#include "facade/sim/sim_values.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace pnl::sim {
namespace {

using rig::Value;
using rig::VariableType;

const double kInfinity = std::numeric_limits<double>::infinity();

TEST(SimValues, AnIntegerIsReadFromWhatHasOne) {
  struct Row {
    Value value;
    std::optional<std::int32_t> read;
  };
  const Row rows[] = {
      {std::int64_t{5}, 5},
      {std::int64_t{-2147483648LL}, std::numeric_limits<std::int32_t>::min()},
      {std::int64_t{4294967295LL}, -1},  // an unsigned status word
      {std::int64_t{4294967296LL}, std::nullopt},
      {std::int64_t{-2147483649LL}, std::nullopt},
      {4294967295.0, -1},
      {4294967295.9, -1},
      {4294967296.0, std::nullopt},
      {-2147483648.9, std::numeric_limits<std::int32_t>::min()},
      {-2147483649.0, std::nullopt},
      {2.9, 2},
      {-2.9, -2},
      {1e300, std::nullopt},
      {-1e300, std::nullopt},
      {std::nan(""), std::nullopt},
      {kInfinity, std::nullopt},
      {Text(u"12"), 12},
      {Text(u" -3 "), -3},
      {Text(u"12x"), std::nullopt},
      {Text(u"1.5"), std::nullopt},
      {Text(), std::nullopt},
      {Value{}, std::nullopt},
      {std::vector<rig::Field>{}, std::nullopt},
  };
  for (std::size_t i = 0; i < std::size(rows); ++i) EXPECT_EQ(AsInt32(rows[i].value), rows[i].read) << i;
}

TEST(SimValues, ARealIsReadFromWhatHasOne) {
  EXPECT_EQ(AsDouble(std::int64_t{5}), 5.0);
  EXPECT_EQ(AsDouble(2.5), 2.5);
  EXPECT_EQ(AsDouble(Text(u"2.5")), 2.5);
  EXPECT_EQ(AsDouble(Text(u"2,5")), std::nullopt);
  EXPECT_EQ(AsDouble(Text()), std::nullopt);
  EXPECT_EQ(AsDouble(Value{}), std::nullopt);
}

TEST(SimValues, ATextIsMadeOfNumbers) {
  EXPECT_EQ(AsText(std::int64_t{-5}), u"-5");
  EXPECT_EQ(AsText(0.1), u"0.1");
  EXPECT_EQ(AsText(0.0), u"0");
  EXPECT_EQ(AsText(100000.0), u"100000");
  EXPECT_EQ(AsText(-1234.5), u"-1234.5");
  EXPECT_EQ(AsText(1e300), u"1e+300");
  EXPECT_EQ(AsText(1e-9), u"1e-09");
  EXPECT_EQ(AsText(kInfinity), u"inf");
  EXPECT_EQ(AsText(Text(u"x")), u"x");
  EXPECT_EQ(AsText(Value{}), std::nullopt);
}

TEST(SimValues, ARealSurvivesBeingText) {
  for (const double value : {0.1, 1.0 / 3, 123456.789012345, 1e15, 9.9e14, 1e-5, 4.9e-324, 1.7e308}) {
    EXPECT_EQ(AsDouble(*AsText(value)), value);
  }
}

TEST(SimValues, AVariableKeepsItsOwnType) {
  EXPECT_TRUE(SameValue(*ConvertTo(VariableType::kInt, 2.5), std::int64_t{2}));
  EXPECT_TRUE(SameValue(*ConvertTo(VariableType::kDouble, std::int64_t{2}), 2.0));
  EXPECT_TRUE(SameValue(*ConvertTo(VariableType::kText, std::int64_t{2}), Text(u"2")));
  EXPECT_FALSE(ConvertTo(VariableType::kInt, Text(u"x")));
  EXPECT_FALSE(ConvertTo(VariableType::kInt, Value{}));
}

TEST(SimValues, ZeroIsOfTheType) {
  EXPECT_TRUE(SameValue(ZeroOf(VariableType::kInt), std::int64_t{0}));
  EXPECT_TRUE(SameValue(ZeroOf(VariableType::kDouble), 0.0));
  EXPECT_TRUE(SameValue(ZeroOf(VariableType::kText), Text()));
}

TEST(SimValues, SameMeansTypeAndValue) {
  EXPECT_FALSE(SameValue(std::int64_t{2}, 2.0));
  EXPECT_FALSE(SameValue(std::int64_t{2}, std::int64_t{3}));
  EXPECT_FALSE(SameValue(Text(u"a"), Text(u"b")));
  EXPECT_TRUE(SameValue(Value{}, Value{}));
  EXPECT_FALSE(SameValue(std::vector<rig::Field>{}, std::vector<rig::Field>{}));
}

}  // namespace
}  // namespace pnl::sim
