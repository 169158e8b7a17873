// SPDX-License-Identifier: MIT
#include "facade/mill/machine_path.h"

#include <cmath>
#include <numbers>

namespace pnl::sim {
namespace {

constexpr double kPi = std::numbers::pi;
constexpr double kNear = 1e-9;

void ExpectPoint(const Point& actual, const Point& expected) {
  for (std::size_t axis = 0; axis < kAxisCount; ++axis) EXPECT_NEAR(actual[axis], expected[axis], kNear) << axis;
}

TEST(MachinePath, ALineIsAsLongAsItsEndsAreApart) {
  const Path line{{1, 2, 3}, {4, 6, 15}, std::nullopt};
  EXPECT_DOUBLE_EQ(line.Length(), 13);
  ExpectPoint(line.At(0.5), {2.5, 4, 9});
  EXPECT_EQ(line.At(-1), line.from);
  EXPECT_EQ(line.At(2), line.to);
}

TEST(MachinePath, ArcsTurnAsSeenFromTheEndOfTheStandingAxis) {
  // From the first axis of each plane a quarter turn counter-clockwise ends on its second axis.
  const struct {
    int plane;
    Point from;
    Point quarter;
  } rows[] = {{17, {10, 0, 0}, {0, 10, 0}}, {18, {0, 0, 10}, {10, 0, 0}}, {19, {0, 10, 0}, {0, 0, 10}}};
  for (const auto& row : rows) {
    const PlaneAxes axes = AxesOf(row.plane);
    const Path shortWay = MakeArc(row.from, row.quarter, axes, 0, 0, false);
    EXPECT_NEAR(shortWay.Length(), 5 * kPi, kNear) << row.plane;
    const Path longWay = MakeArc(row.from, row.quarter, axes, 0, 0, true);
    EXPECT_NEAR(longWay.Length(), 15 * kPi, kNear) << row.plane;
    const double half = std::sqrt(50);
    Point middle{};
    middle[axes.first] = half;
    middle[axes.second] = half;
    ExpectPoint(shortWay.At(0.5), middle);
    for (double& value : middle) value = -value;
    ExpectPoint(longWay.At(0.5), middle);
  }
}

TEST(MachinePath, AnEndAtTheStartIsAFullCircle) {
  for (const bool clockwise : {false, true}) {
    const Path circle = MakeArc({10, 0, 0}, {10, 0, 0}, AxesOf(17), 0, 0, clockwise);
    EXPECT_NEAR(circle.Length(), 20 * kPi, kNear);
    ExpectPoint(circle.At(0.5), {-10, 0, 0});
    ExpectPoint(circle.At(0.25), {0, clockwise ? -10.0 : 10.0, 0});
    EXPECT_NEAR(circle.Reach(0).low, -10, kNear);
    EXPECT_NEAR(circle.Reach(0).high, 10, kNear);
    EXPECT_NEAR(circle.Reach(1).low, -10, kNear);
    EXPECT_NEAR(circle.Reach(1).high, 10, kNear);
  }
}

TEST(MachinePath, OnlyAnEndThatIsNearlyTheStartIsAFullCircle) {
  const auto length = [](double off) {
    return MakeArc({10, 0, 0}, {10 * std::cos(off), 10 * std::sin(off), 0}, AxesOf(17), 0, 0, false).Length();
  };
  EXPECT_NEAR(length(1e-8), 20 * kPi, 1e-5);
  EXPECT_NEAR(length(1e-6), 1e-5, 1e-7);
}

TEST(MachinePath, AnArcAcrossTheStartOfTheAnglesGoesTheShortWay) {
  const double half = std::sqrt(50);
  for (const bool clockwise : {false, true}) {
    const Point from{-half, clockwise ? -half : half, 0};
    const Point to{-half, clockwise ? half : -half, 0};
    const Path arc = MakeArc(from, to, AxesOf(17), 0, 0, clockwise);
    EXPECT_NEAR(arc.Length(), 5 * kPi, kNear);
    ExpectPoint(arc.At(0.5), {-10, 0, 0});
    EXPECT_NEAR(arc.Reach(0).low, -10, kNear);
    EXPECT_NEAR(arc.Reach(0).high, -half, kNear);
  }
}

TEST(MachinePath, AHelixClimbsEvenly) {
  const Path helix = MakeArc({10, 0, 0}, {10, 0, 30}, AxesOf(17), 0, 0, false);
  EXPECT_NEAR(helix.Length(), std::hypot(20 * kPi, 30), kNear);
  ExpectPoint(helix.At(0.5), {-10, 0, 15});
  EXPECT_EQ(helix.Reach(2).high, 30);
}

TEST(MachinePath, AnArcReachesBeyondItsEndsOnlyWhereItTurns) {
  const Path over = MakeArc({10, 0, 0}, {-10, 0, 0}, AxesOf(17), 0, 0, false);
  EXPECT_NEAR(over.Reach(1).high, 10, kNear);
  EXPECT_NEAR(over.Reach(1).low, 0, kNear);
  const Path eighth = MakeArc({10, 0, 0}, {std::sqrt(50), std::sqrt(50), 0}, AxesOf(17), 0, 0, false);
  EXPECT_NEAR(eighth.Reach(0).high, 10, kNear);
  EXPECT_NEAR(eighth.Reach(1).high, std::sqrt(50), kNear);
}

TEST(MachinePath, AnEndSlightlyOffTheArcIsReachedExactly) {
  const Path arc = MakeArc({10, 0, 0}, {0, 10.005, 0}, AxesOf(17), 0, 0, false);
  EXPECT_EQ(arc.At(1), (Point{0, 10.005, 0}));
  EXPECT_NEAR(arc.At(0.999999)[1], 10.005, 1e-4);
}

}  // namespace
}  // namespace pnl::sim
