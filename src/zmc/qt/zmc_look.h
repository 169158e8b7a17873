// SPDX-License-Identifier: MIT
// Colours of the machining calculator's pages beside those that its logic names. 0x00BBGGRR.
#pragma once

#include "controls/system_colors.h"

class QComboBox;

namespace pnl {

namespace zmc_look {
inline constexpr Color kPage = 0x2D343A;  // dark enough for the dimmed labels
inline constexpr Color kTitleText = 0xFFFFFF;
inline constexpr Color kLabelText = 0xBFC9D3;
inline constexpr Color kFieldBack = 0xF0F0F0;
inline constexpr Color kFieldText = 0;
inline constexpr Color kFieldOff = 0xBEBEBE;  // of a line that is disabled
inline constexpr Color kFocusBack = 0xFFFFFF;
inline constexpr Color kFocusText = 0;
inline constexpr Color kPowerGood = 0x58B06A;
inline constexpr Color kPowerHigh = 0x2EB8F5;
inline constexpr Color kPowerOver = 0x4040E0;
inline constexpr Color kFrame = 0x8A9299;
// The message box, in the panel's own colours.
inline constexpr Color kBoxBack = 0x1D1712;
inline constexpr Color kBoxRaised = 0x40342A;
inline constexpr Color kBoxPressed = 0xB26F1F;
inline constexpr Color kBoxBorder = 0x584A3D;
inline constexpr Color kBoxText = 0xF7F3EE;
inline constexpr Color kBoxDark = 0x0B0806;
inline constexpr Color kBoxFocus = 0xFFB24D;
inline constexpr Color kBoxEdge = 0x1E96E8;
inline constexpr Color kBoxInfo = 0xB26F1F;
inline constexpr Color kMark = 660510;  // the focus of lists, as in the explorer's name field
}  // namespace zmc_look

/// Gives a drop-down list the look of the page.
void StyleBox(QComboBox& box);

}  // namespace pnl
