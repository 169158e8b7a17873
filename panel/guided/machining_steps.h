// SPDX-License-Identifier: MIT
// The guided session's steps with the machining calculator, from opening it to the block in the program, by keyboard.
#pragma once

#include "guided/hands.h"

namespace panel {

[[nodiscard]] std::vector<Step> MachiningSteps();

}  // namespace panel
