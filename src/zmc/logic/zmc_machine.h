// SPDX-License-Identifier: MIT
// What the machining calculator knows of its machine: unit system, channel and master spindle, drive, number formats
// and options. Read once from the CNC when the tool opens, and never again. A value that can't be read gets a default,
// with which the feature that needs it stays off. Nothing here is written.
#pragma once

#include <cstdint>

#include "base/text.h"
#include "facade/variables.h"
#include "zmc/logic/zmc_units.h"

namespace pnl {

/// How the CNC shows a value.
struct ZmcNumberFormat {
  std::int32_t width = 0;      // digits before the point
  std::int32_t precision = 0;  // digits after it
};

struct ZmcMachine {
  ZmcUnits units;
  std::int32_t FocusChannel = -1;   // above 0, or -1
  std::int32_t MasterSpindle = -1;  // above 0, or -1
  Text MasterSpindleName;           // empty without a master spindle
  std::int32_t DriveType = 0;       // of the master spindle
  std::int32_t RatedPower = 0;
  ZmcNumberFormat FFormat;
  ZmcNumberFormat SFormat;
  bool DmcOption = false;
  bool DualPurpose = false;  // mills and turns, so that `S` can be a cutting speed
  std::int32_t ForcedSUnit = 0;
  std::int32_t DmcSpindle = 0;

  [[nodiscard]] bool Inches() const { return units.inches; }
  /// Whether the master spindle's drive can do what DMC needs.
  [[nodiscard]] bool DriveTypeAllowsDmc() const;
  /// The number of units that `S` can have.
  [[nodiscard]] int SUnitCount() const { return DualPurpose ? 2 : 1; }
};

inline constexpr int kZmcFUnitCount = 2;

/// Reads everything, one variable after the other in a fixed order. Of the channel, the spindle and its drive each is
/// read only if the one before is known.
[[nodiscard]] ZmcMachine ReadZmcMachine(Variables& variables);

}  // namespace pnl
