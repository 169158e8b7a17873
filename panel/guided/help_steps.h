// SPDX-License-Identifier: MIT
// The guided session's steps with the help viewer: the page about a block, contents, index, search, finding in a page,
// and the list of manuals.
#pragma once

#include "guided/hands.h"

namespace panel {

[[nodiscard]] std::vector<Step> HelpSteps();
/// Help on the calculator, for a short look in another language.
[[nodiscard]] Step HelpGlance();

}  // namespace panel
