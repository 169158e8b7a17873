// SPDX-License-Identifier: MIT
// The icons of tree and list, cut from one strip of pictures in the language pack.
#pragma once

#include <string>

#include "controls/zwc_list_ctrl.h"

namespace pnl {

/// The strip's icons at their own size; without a strip blank ones of that size.
[[nodiscard]] ImageList MakeXplrIcons(const std::string* strip, double pixelRatio);

}  // namespace pnl
