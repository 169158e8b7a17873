// SPDX-License-Identifier: MIT
// Colours (0x00BBGGRR) and sizes (pixels of a panel 600 high) of the help viewer. HelpScale fits a size to the panel.
#pragma once

#include <QtGui/QFont>
#include <algorithm>

#include "controls/fonts.h"
#include "controls/system_colors.h"
#include "facade/utilities.h"

namespace pnl {

namespace help_look {
inline constexpr Color kBack = 0x46505A;
inline constexpr Color kEdge = 0x2D343A;
inline constexpr Color kKeyBack = 0x838D97;
inline constexpr Color kKeyText = 0;
inline constexpr Color kChosenBack = 0xFFFFFF;
inline constexpr Color kListBack = 0xD7DCE1;
inline constexpr Color kListText = 0;
inline constexpr Color kSelectedBack = 0x82501E;
inline constexpr Color kSelectedText = 0xFFFFFF;
inline constexpr Color kLineBack = 0xFFFFFF;
inline constexpr Color kNoteBack = 0x8CE6F0;
inline constexpr Color kNoteText = 0;
inline constexpr Color kMissingText = 0xFFFFFF;

inline constexpr int kFont = 17;
inline constexpr int kLeastFont = 8;
inline constexpr int kMostFont = 96;
inline constexpr int kFontWeight = 500;
inline constexpr int kLeastRow = 36;  // for a finger, on any panel
inline constexpr int kKeyHeight = 44;
inline constexpr int kGap = 4;
inline constexpr int kPanesKeyWidth = 30;
inline constexpr int kLeastPanes = 230;
inline constexpr int kMostPanes = 520;
}  // namespace help_look

/// Fits sizes to the panel: its fonts grow with it.
class HelpScale {
 public:
  /// finger: the least side of what is pressed, in pixels.
  explicit HelpScale(Utilities& utilities, int finger = 0)
      : font_(FontOf(utilities.UTIL7340_FitFontSize(help_look::kFont))), finger_(finger) {}
  [[nodiscard]] int Font() const { return font_; }
  [[nodiscard]] int operator()(int pixels) const { return std::max(pixels, pixels * font_ / help_look::kFont); }
  [[nodiscard]] int RowHeight() const { return std::max({help_look::kLeastRow, finger_, font_ * 2}); }
  [[nodiscard]] int KeyHeight() const { return std::max((*this)(help_look::kKeyHeight), finger_); }
  [[nodiscard]] int PanesKeyWidth() const { return std::max((*this)(help_look::kPanesKeyWidth), finger_); }
  [[nodiscard]] QFont MakeText(int weight = help_look::kFontWeight) const {
    return MakeFont(QStringLiteral("Arial"), font_, weight).value_or(QFont());
  }

 private:
  /// The panel may answer no size, or an absurd one.
  static int FontOf(int fitted) {
    return fitted > 0 ? std::clamp(fitted, help_look::kLeastFont, help_look::kMostFont) : help_look::kFont;
  }

  int font_;
  int finger_;
};

}  // namespace pnl
