// SPDX-License-Identifier: MIT
// The way a move takes: a straight line, or an arc in one of the three planes with the third axis moving along. Pure
// geometry in machine coordinates, millimetres; no speed and no time.
#pragma once

#include <optional>

#include "facade/mill/machine_data.h"

namespace pnl::sim {

/// Which axes span a plane, in the order in which angles count counter-clockwise, and the one that stands on it.
struct PlaneAxes {
  std::size_t first;
  std::size_t second;
  std::size_t normal;
};
/// Of 17, 18 or 19.
[[nodiscard]] PlaneAxes AxesOf(int plane);

/// The part of a path that a straight line hasn't.
struct Arc {
  PlaneAxes axes{};
  double centreFirst = 0;
  double centreSecond = 0;
  double startRadius = 0;
  double endRadius = 0;  // differs by the tolerance at most, so that the path ends exactly at its end
  double startAngle = 0;
  double sweep = 0;  // radians, negative for clockwise
};

struct Path {
  Point from{};
  Point to{};
  std::optional<Arc> arc;

  [[nodiscard]] double Length() const;
  /// At a part of the way from 0 to 1; exactly from and to at the ends.
  [[nodiscard]] Point At(double part) const;
  struct Range {
    double low;
    double high;
  };
  /// How far the path reaches along that axis.
  [[nodiscard]] Range Reach(std::size_t axis) const;
};

/// The arc from one point to another around a centre. An end that is the start makes a full circle.
[[nodiscard]] Path MakeArc(const Point& from, const Point& to, PlaneAxes axes, double centreFirst, double centreSecond,
                           bool clockwise);

}  // namespace pnl::sim
