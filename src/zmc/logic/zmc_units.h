// SPDX-License-Identifier: MIT
// The units of the machining calculator: what its screen shows, what it computes with, and what the cutting data and
// the tool table store, which are internal units (1/10000 mm, and 1/10000000 m/min). The thirteen parameters of a pair
// of material and operation, each with its cell of the grid and its conversion. Computes nothing else.
#pragma once

#include <cstdint>
#include <optional>

#include "base/text.h"

namespace pnl {

/// The constants as the calculator uses them everywhere. They are no more exact than this on purpose: the results are
/// compared with those of the machine, digit for digit.
namespace zmc_constant {
inline constexpr double kPi = 3.14159;
inline constexpr double kFeetPerMetre = 3.28084;
inline constexpr double kInchesPerMillimetre = 0.03937;
inline constexpr double kInternalSpeed = 10000000.0;
inline constexpr double kInternalLength = 10000.0;
inline constexpr double kPowerDivisor = 51000.0;
inline constexpr double kSpeedTolerance = 0.05;
}  // namespace zmc_constant

/// The unit system of a machine and its conversions. Screen values are m/min and mm, or sfm and in.
struct ZmcUnits {
  bool inches = false;

  [[nodiscard]] double SpeedToMetric(double value) const;
  [[nodiscard]] double LengthToMetric(double value) const;
  [[nodiscard]] double LengthFromMetric(double value) const;
  [[nodiscard]] double InternalLengthToScreen(double value) const;
  [[nodiscard]] double InternalSpeedToScreen(double value) const;
  [[nodiscard]] double ScreenLengthToInternal(double value) const;
  [[nodiscard]] double ScreenSpeedToInternal(double value) const;

  /// "mm" or "in".
  [[nodiscard]] TextView LengthText() const;
  /// "m/min" or "sfm".
  [[nodiscard]] TextView SpeedText() const;
};

inline constexpr int kZmcGridRows = 4;     // 1 to 4: cutting speed, feed per tooth, depth, radial pass
inline constexpr int kZmcGridColumns = 3;  // 1 to 3: minimum, maximum, selected
inline constexpr int kZmcCells = kZmcGridRows * kZmcGridColumns;
inline constexpr int kZmcRemarkId = 12;  // the parameter that is a text and has no cell

enum class ZmcQuantity { kSpeed, kLength, kPlain };

struct ZmcParameter {
  int id;
  int row;  // of the grid; 0 for the remark
  int column;
  ZmcQuantity quantity;
};

/// The parameters by id, 0 to 12.
inline constexpr ZmcParameter kZmcParameters[] = {
    {0, 1, 1, ZmcQuantity::kSpeed},
    {1, 1, 2, ZmcQuantity::kSpeed},
    {2, 1, 3, ZmcQuantity::kSpeed},
    {3, 2, 1, ZmcQuantity::kLength},
    {4, 2, 2, ZmcQuantity::kLength},
    {5, 2, 3, ZmcQuantity::kLength},
    {6, 3, 1, ZmcQuantity::kLength},
    {7, 3, 2, ZmcQuantity::kLength},
    {8, 3, 3, ZmcQuantity::kLength},
    {9, 4, 1, ZmcQuantity::kPlain},
    {10, 4, 2, ZmcQuantity::kPlain},
    {11, 4, 3, ZmcQuantity::kPlain},
    {kZmcRemarkId, 0, 0, ZmcQuantity::kPlain},
};

/// The parameter of a grid cell, 0 to 11. Returns nothing for a fixed cell or one that doesn't exist.
[[nodiscard]] std::optional<int> ZmcParameterOf(int row, int column);
/// The stored value of a parameter for its value on the screen, and the other way round. Any other id converts nothing.
[[nodiscard]] double ZmcToStored(const ZmcUnits& units, int id, double value);
[[nodiscard]] double ZmcToScreen(const ZmcUnits& units, int id, double value);

}  // namespace pnl
