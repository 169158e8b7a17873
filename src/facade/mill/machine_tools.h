// SPDX-License-Identifier: MIT
// The tools of the simulated machines: one of each family and subfamily at least. A number means the same kind of tool
// on every machine; its diameter is a metric size or an inch size. Nothing here changes while the machine runs.
#pragma once

#include <cstdint>

#include "facade/mill/machine_kind.h"
#include "facade/sim/machine_seam.h"

namespace pnl::sim {

/// The families of tools. The type by which the tool table is asked for its tools is the family.
enum class ToolFamily : std::uint8_t {
  kNone,  // the number has no tool
  kMillingCutter,
  kDrill,
  kFaceMill,
  kTap,
  kTurningTool,
  kThreadingTool,
  kGroovingTool,
  kInnerTurningTool,
  kOther,
  kProbe,
};

struct ToolFacts {
  int number = 0;
  ToolFamily family = ToolFamily::kNone;
  int subfamily = 0;
  int teeth = 0;            // 1 for a tap, whose feed per tooth is the pitch
  double diameter = 0;      // mm; 0 for a turning tool, where the diameter is that of the part
  double inchDiameter = 0;  // the size in inches that the tool has on an inch machine
  double length = 0;        // mm
};

/// The facts of a tool. Family, diameters and length are 0 for a tool without data.
[[nodiscard]] ToolFacts ToolOf(int number);
/// The diameter that the tool has on a machine with these units, in millimetres.
[[nodiscard]] double DiameterOf(const ToolFacts& tool, Measure measure);
/// Puts all tools into the machine's tool table.
void DefineMachineTools(MachineEnvironment& environment, Measure measure);

}  // namespace pnl::sim
