// SPDX-License-Identifier: MIT
// The conversion between what the machine reports and what an operator reads under G20.
#pragma once

namespace panel {

inline constexpr double kMillimetresPerInch = 25.4;

}  // namespace panel
