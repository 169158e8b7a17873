// SPDX-License-Identifier: MIT
// The colours and fonts of the calculator's controls. The session sets the colours of the result display.
#pragma once

#include <QtGui/QFont>
#include <QtGui/QPalette>
#include <QtGui/QRgb>

#include "controls/fonts.h"
#include "controls/system_colors.h"

namespace pnl::calc_look {

inline constexpr QRgb kGround = 0xff1b222a;
inline constexpr Color kGroundColor = 0x2A221B;  // the same as 0x00BBGGRR
inline constexpr QRgb kEdge = 0xff4db2ff;
inline constexpr QRgb kText = 0xffeef3f7;
inline constexpr QRgb kKey = 0xff2f3b48;
inline constexpr QRgb kOperatorKey = 0xff24303b;
inline constexpr QRgb kExtraKey = 0xff1b222a;
inline constexpr QRgb kConfirmKey = 0xff1f6fb2;
inline constexpr QRgb kPressedKey = 0xff17578c;
inline constexpr QRgb kKeyEdge = 0xff46566a;
inline constexpr QRgb kLineGround = 0xfff4f7fa;
inline constexpr QRgb kLineText = 0xff10141a;
inline constexpr QRgb kSelection = 0xff0074d0;
inline constexpr Color kListBack = 0x342A20;      // 32, 42, 52
inline constexpr Color kListText = 0xF7F3EE;      // 238, 243, 247
inline constexpr Color kListSelected = 0xB26F1F;  // 31, 111, 178

/// The height of the dialog's font, eight points, in pixels at scale 1.
inline constexpr int kDialogHeight = 11;
inline constexpr int kStatusHeight = 13;
inline constexpr int kListHeight = 16;
inline constexpr int kNoteHeight = 14;
inline constexpr int kItemHeight = 15;
inline constexpr int kNormalWeight = 400;
inline constexpr int kBoldWeight = 600;

/// The palette for the parts that Qt's style draws: the menu bar and the background of the window.
[[nodiscard]] inline QPalette DialogPalette() {
  QPalette palette{QColor(kGround)};
  palette.setColor(QPalette::WindowText, QColor(kText));
  palette.setColor(QPalette::ButtonText, QColor(kText));
  palette.setColor(QPalette::Highlight, QColor(kSelection));
  palette.setColor(QPalette::HighlightedText, QColor(kText));
  return palette;
}

/// The font in the dialog's face with characters of that height in pixels.
[[nodiscard]] inline QFont Font(int height, int weight) {
  return MakeFont(QStringLiteral("Arial"), -height, weight).value_or(QFont());
}

/// The font, made smaller until the text fits into width, but never smaller than least pixels.
[[nodiscard]] inline QFont FittingFont(QFont font, const QString& text, int width, int least) {
  while (font.pixelSize() > least && QFontMetrics(font).horizontalAdvance(text) > width) {
    font.setPixelSize(font.pixelSize() - 1);
  }
  return font;
}

}  // namespace pnl::calc_look
