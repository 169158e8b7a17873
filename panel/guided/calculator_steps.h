// SPDX-License-Identifier: MIT
// The guided session's steps with the calculator, from opening it to a value in the command line.
#pragma once

#include "guided/hands.h"

namespace panel {

[[nodiscard]] std::vector<Step> CalculatorSteps();
/// One step that shows the calculator, for the tour in a second language.
[[nodiscard]] Step CalculatorGlance();

}  // namespace panel
