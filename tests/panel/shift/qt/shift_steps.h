// SPDX-License-Identifier: MIT
// The scripted shift: what an operator does on a day at the panel, by touch alone. Each step works and then checks what
// is seen and what the CNC or the disc has got. Tests and the benchmark play the same steps.
#pragma once

#include <vector>

#include "panel/shift/qt/hands.h"

namespace panel::shift {

struct ShiftStep {
  const char* name;  // also of its captures
  void (*run)(Hands& hands);
};

/// All steps in their order.
[[nodiscard]] std::vector<ShiftStep> Shift();

/// The parts of which the shift is made.
[[nodiscard]] std::vector<ShiftStep> ProgramSteps();
[[nodiscard]] std::vector<ShiftStep> BlockSteps();
[[nodiscard]] std::vector<ShiftStep> ListSteps();
[[nodiscard]] std::vector<ShiftStep> CalculatorSteps();
[[nodiscard]] std::vector<ShiftStep> ErrorSteps();
[[nodiscard]] std::vector<ShiftStep> ShareSteps();
[[nodiscard]] std::vector<ShiftStep> MachiningSteps();

/// Plays one step. Returns what went wrong, and nothing when all went well.
[[nodiscard]] QString Play(const ShiftStep& step, Hands& hands);

// The controls of the tools and the items of their menus that the steps touch.
inline constexpr int kExplorerName = 1105;
inline constexpr int kExplorerTree = 1106;
inline constexpr int kExplorerList = 1107;
inline constexpr int kExplorerToField = 32779;
inline constexpr int kExplorerOk = 3001;
inline constexpr int kCommandEdit = 5000;
inline constexpr int kCommandList = 5001;

}  // namespace panel::shift
