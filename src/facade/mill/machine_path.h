// SPDX-License-Identifier: MIT
// The path of a move: a straight line, or an arc in one of the three planes while the third axis moves along. Pure
// geometry in machine coordinates and millimetres, without speed and time.
#pragma once

#include <optional>

#include "facade/mill/machine_data.h"

namespace pnl::sim {

/// The two axes of a plane, in the order in which angles count counter-clockwise, and the axis perpendicular to it.
struct PlaneAxes {
  std::size_t first;
  std::size_t second;
  std::size_t normal;
};
/// The axes of plane 17, 18 or 19.
[[nodiscard]] PlaneAxes AxesOf(int plane);

/// The part of a path that only an arc has.
struct Arc {
  PlaneAxes axes{};
  double centreFirst = 0;
  double centreSecond = 0;
  double startRadius = 0;
  double endRadius = 0;  // differs from startRadius by the tolerance at most; the path uses both, so that it ends
                         // exactly at its end
  double startAngle = 0;
  double sweep = 0;  // radians, negative for clockwise
};

struct Path {
  Point from{};
  Point to{};
  std::optional<Arc> arc;

  [[nodiscard]] double Length() const;
  /// The point at a part of the way, from 0 to 1. At the ends it is exactly from and to.
  [[nodiscard]] Point At(double part) const;
  struct Range {
    double low;
    double high;
  };
  /// The lowest and the highest value of that axis on the path.
  [[nodiscard]] Range Reach(std::size_t axis) const;
};

/// Makes the arc from one point to another around a centre. If the end equals the start, the arc is a full circle.
[[nodiscard]] Path MakeArc(const Point& from, const Point& to, PlaneAxes axes, double centreFirst, double centreSecond,
                           bool clockwise);

}  // namespace pnl::sim
