// SPDX-License-Identifier: MIT
// The guided session's steps with the file explorer: the MDA list is saved as a program, and the files are walked.
#pragma once

#include "guided/hands.h"

namespace panel {

[[nodiscard]] std::vector<Step> ExplorerSteps();

}  // namespace panel
