// SPDX-License-Identifier: MIT
// The ids of the texts that the calculator and the error manager share, in the order in which they are loaded.
// Language::SharedToolTexts has the texts.
#pragma once

#include <array>

namespace pnl {

/// 71 loads of 70 texts: 203 is loaded twice into the same string.
inline constexpr std::array<int, 71> kSharedTextOrder = {
    1,   2,   3,     4,   5,   6,   100,   101,   102,   203,   205,   251,   254, 206,   207, 203,   209, 237,
    210, 211, 212,   213, 214, 215, 216,   217,   218,   219,   220,   221,   222, 223,   224, 225,   226, 227,
    228, 229, 57345, 230, 231, 232, 233,   245,   234,   235,   246,   238,   247, 241,   252, 242,   243, 244,
    236, 239, 240,   248, 249, 253, 57346, 57347, 57348, 57349, 57352, 57353, 263, 57355, 264, 57356, 265,
};

}  // namespace pnl
