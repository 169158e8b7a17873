// SPDX-License-Identifier: MIT
#include "facade/mill/machine_path.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace pnl::sim {

namespace {

constexpr double kTurn = 2 * std::numbers::pi;
constexpr double kQuarter = std::numbers::pi / 2;
/// An end closer than this to the start, in mm, counts as the start.
constexpr double kSamePoint = 1e-6;

}  // namespace

// Seen from the positive end of the normal axis, the turn from first to second is counter-clockwise. Therefore Z comes
// before X in G18.
PlaneAxes AxesOf(int plane) {
  if (plane == 18) return {2, 0, 1};
  if (plane == 19) return {1, 2, 0};
  return {0, 1, 2};
}

double Path::Length() const {
  if (!arc) return std::hypot(to[0] - from[0], to[1] - from[1], to[2] - from[2]);
  const double radius = (arc->startRadius + arc->endRadius) / 2;
  return std::hypot(radius * arc->sweep, to[arc->axes.normal] - from[arc->axes.normal]);
}

Point Path::At(double part) const {
  if (part <= 0) return from;
  if (part >= 1) return to;
  Point point{};
  for (std::size_t axis = 0; axis < kAxisCount; ++axis) point[axis] = from[axis] + (to[axis] - from[axis]) * part;
  if (!arc) return point;
  const double angle = arc->startAngle + arc->sweep * part;
  const double radius = arc->startRadius + (arc->endRadius - arc->startRadius) * part;
  point[arc->axes.first] = arc->centreFirst + radius * std::cos(angle);
  point[arc->axes.second] = arc->centreSecond + radius * std::sin(angle);
  return point;
}

Path::Range Path::Reach(std::size_t axis) const {
  Range range{std::min(from[axis], to[axis]), std::max(from[axis], to[axis])};
  if (!arc || axis == arc->axes.normal) return range;
  // Along an axis an arc can only turn back at a quarter of the circle.
  const double low = std::min(arc->startAngle, arc->startAngle + arc->sweep);
  const double high = std::max(arc->startAngle, arc->startAngle + arc->sweep);
  for (double angle = std::ceil(low / kQuarter) * kQuarter; angle <= high; angle += kQuarter) {
    const double value = At((angle - arc->startAngle) / arc->sweep)[axis];
    range.low = std::min(range.low, value);
    range.high = std::max(range.high, value);
  }
  return range;
}

Path MakeArc(const Point& from, const Point& to, PlaneAxes axes, double centreFirst, double centreSecond,
             bool clockwise) {
  const double startFirst = from[axes.first] - centreFirst;
  const double startSecond = from[axes.second] - centreSecond;
  const double endFirst = to[axes.first] - centreFirst;
  const double endSecond = to[axes.second] - centreSecond;
  Arc arc{axes,
          centreFirst,
          centreSecond,
          std::hypot(startFirst, startSecond),
          std::hypot(endFirst, endSecond),
          std::atan2(startSecond, startFirst),
          0};
  const bool full = std::hypot(endFirst - startFirst, endSecond - startSecond) < kSamePoint;
  double turn = full ? 0 : std::atan2(endSecond, endFirst) - arc.startAngle;
  if (clockwise) turn = -turn;
  while (turn <= 0) turn += kTurn;
  arc.sweep = clockwise ? -turn : turn;
  return {from, to, arc};
}

}  // namespace pnl::sim
