// SPDX-License-Identifier: MIT
// The guided session's steps with messages of the PLC: each kind of document, several that wait, and an error's help,
// which comes before them.
#pragma once

#include "guided/hands.h"

namespace panel {

[[nodiscard]] std::vector<Step> MessageSteps();

}  // namespace panel
