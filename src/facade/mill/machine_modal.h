// SPDX-License-Identifier: MIT
// The state that lasts from block to block: the modal codes with their values, and the state of the machine. Lengths
// are millimetres and speeds mm/min or rpm, whatever the units of the block.
#pragma once

#include "facade/mill/machine_data.h"
#include "facade/mill/machine_kind.h"

namespace pnl::sim {

/// The modal state. The initial values are those of a machine in millimetres.
struct Modal {
  int motion = 0;
  int plane = 17;
  int units = 21;
  int radius = 40;  // the side of the path on which the tool runs; it has no effect on the simulated path
  int length = 44;  // 43: the length of the tool in the spindle is added in Z
  int offset = 54;
  int distance = 90;
  int feedMode = 94;
  int speedMode = 97;
  double feedPerMinute = 0;      // mm/min; 0: none programmed
  double feedPerRevolution = 0;  // mm
  double speed = 0;              // rpm, for G97
  double cuttingSpeed = 0;       // m/min, for G96
  int nextTool = 0;              // the tool that M6 puts into the spindle
};

/// The modal state at the start of a machine. A reset and the end of a program restore it.
[[nodiscard]] Modal StartModal(Measure measure);

struct Spindle {
  int direction = 0;  // 1 clockwise, -1 counter-clockwise, 0 stopped
  double speed = 0;   // rpm, 0 when stopped
};

/// The state of the machine before the next block.
struct Condition {
  Modal modal;
  Spindle spindle;
  int tool = 0;
  bool coolant = false;
  Point position{};  // machine coordinates
  Measure measure = Measure::kMillimetres;
};

/// The vector from workpiece to machine coordinates: the workpiece offset plus, with G43, the tool's length.
[[nodiscard]] Point WorkOffset(const Modal& modal, int tool);
/// The modal codes in a fixed order with two digits: "G00 G17 G21 G40 G54 G90 G94 G97". While G43 is active, it follows
/// the code of the radius compensation.
[[nodiscard]] Text GCodes(const Modal& modal);
/// The code of the workpiece offset that is in force: "G54".
[[nodiscard]] Text FrameOf(const Modal& modal);

}  // namespace pnl::sim
