// SPDX-License-Identifier: MIT
// The guided session's steps with errors: warning, program line, queue, help, list, indicator.
#pragma once

#include "guided/hands.h"

namespace panel {

[[nodiscard]] std::vector<Step> ErrorSteps();
/// Whether the error window is shown.
[[nodiscard]] bool ErrorWindowIsShown(const Hands& hands);

}  // namespace panel
