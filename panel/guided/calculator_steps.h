// SPDX-License-Identifier: MIT
// The guided session's steps with the calculator, from its opening to a value in the command line.
#pragma once

#include "guided/hands.h"

namespace panel {

[[nodiscard]] std::vector<Step> CalculatorSteps();
/// One look at it, for another language.
[[nodiscard]] Step CalculatorGlance();

}  // namespace panel
