// SPDX-License-Identifier: MIT
// The guided session's steps with the file explorer: a list becomes a program, and the files are looked at.
#pragma once

#include "guided/hands.h"

namespace panel {

/// The MDA list becomes a program.
[[nodiscard]] std::vector<Step> SavingSteps();
/// The operator looks at his files.
[[nodiscard]] std::vector<Step> FilesSteps();

}  // namespace panel
