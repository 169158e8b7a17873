// SPDX-License-Identifier: MIT
// What holds from block to block: the modal codes with their values, and the state of the machine that a new block
// meets. Lengths are millimetres and speeds mm/min or rpm, whatever the block was written in.
#pragma once

#include "facade/mill/machine_data.h"

namespace pnl::sim {

/// As at the start of the machine, after a reset and after the end of a program.
struct Modal {
  int motion = 0;
  int plane = 17;
  int units = 21;
  int radius = 40;  // which side of the path the tool is to run; the path is run as programmed
  int length = 44;  // 43: the length of the tool in the spindle counts in Z
  int offset = 54;
  int distance = 90;
  int feedMode = 94;
  int speedMode = 97;
  double feedPerMinute = 0;      // mm; 0: none programmed
  double feedPerRevolution = 0;  // mm
  double speed = 0;              // rpm, for G97
  double cuttingSpeed = 0;       // m/min, for G96
  int nextTool = 0;              // what M6 puts into the spindle
  int edge = 0;                  // as D says
};

struct Spindle {
  int direction = 0;  // 1 clockwise, -1 counter-clockwise, 0 stopped
  double speed = 0;   // rpm, 0 when stopped
};

/// The machine as the next block meets it.
struct Condition {
  Modal modal;
  Spindle spindle;
  int tool = 0;
  bool coolant = false;
  Point position{};  // machine coordinates
};

/// From workpiece coordinates to machine coordinates: the workpiece offset and the tool's length.
[[nodiscard]] Point WorkOffset(const Modal& modal, int tool);
/// The modal codes in fixed order with two digits: "G00 G17 G21 G40 G54 G90 G94 G97", G43 behind G40 while it holds.
[[nodiscard]] Text GCodes(const Modal& modal);

}  // namespace pnl::sim
