// SPDX-License-Identifier: MIT
// The facts of the simulated mill: travel, speeds, workpiece offsets. machine_tools has its tools. Lengths are
// millimetres in machine coordinates, speeds mm/min and rpm. Nothing here changes while the machine runs.
#pragma once

#include <array>
#include <cstddef>

#include "base/text.h"

namespace pnl::sim {

inline constexpr std::size_t kAxisCount = 3;
/// X, Y, Z.
using Point = std::array<double, kAxisCount>;

struct AxisFacts {
  char16_t name;
  double low;
  double high;
  double rapid;  // mm/min
};
inline constexpr std::array<AxisFacts, kAxisCount> kAxes{{
    {u'X', -500, 500, 10000},
    {u'Y', -300, 300, 10000},
    {u'Z', -400, 200, 6000},
}};

inline constexpr double kHighestFeed = 20000;  // mm/min
inline constexpr double kLowestFeed = 1e-4;
inline constexpr double kHighestSpeed = 12000;  // rpm
inline constexpr double kArcTolerance = 0.01;   // how much the distances of start and end to the centre may differ, mm
inline constexpr double kLongestDwell = 86400;  // seconds
inline constexpr double kInch = 25.4;
inline constexpr double kFoot = 0.3048;  // metres
inline constexpr int kHighestTool = 99;
inline constexpr int kHighestEdge = 99;

/// The zero point of G54 to G59. Zero for any other code.
[[nodiscard]] Point OffsetOf(int gCode);

}  // namespace pnl::sim
