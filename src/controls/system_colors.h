// SPDX-License-Identifier: MIT
// The panel's system colours by number. Colours from the settings or a tool's own table go before these. ToQColor
// (window/qt/qt_text.h) converts one for painting.
#pragma once

#include <cstdint>

namespace pnl {

/// A colour 0x00BBGGRR: red in the low byte.
using Color = std::uint32_t;

inline constexpr int kColorWindow = 5;
inline constexpr int kColorWindowText = 8;
inline constexpr int kColorHighlight = 13;
inline constexpr int kColorHighlightText = 14;
inline constexpr int kColorButtonFace = 15;
inline constexpr int kColorShadow = 16;
inline constexpr int kColorGrayText = 17;
inline constexpr int kColorButtonText = 18;
inline constexpr int kColorHighlight3D = 20;
inline constexpr int kColorDarkShadow = 21;
inline constexpr int kColorLight = 22;

/// The colour with that number; black for a number that isn't in the table.
[[nodiscard]] constexpr Color SystemColor(int index) {
  switch (index) {
    case kColorWindow:
    case kColorHighlightText:
    case kColorHighlight3D:
      return 0xFFFFFF;
    case kColorHighlight:
      return 0xD07400;
    case kColorButtonFace:
      return 0xF0F0F0;
    case kColorShadow:
      return 0xA0A0A0;
    case kColorDarkShadow:
      return 0x696969;
    case kColorLight:
      return 0xE3E3E3;
    case kColorGrayText:
      return 0x6D6D6D;
    case kColorWindowText:
    case kColorButtonText:
    default:
      return 0;
  }
}

}  // namespace pnl
