// SPDX-License-Identifier: MIT
// The panel's look: colours, fonts and sizes in one place. Not the look of the tools, which bring their own colours;
// so nothing here is a style sheet on an ancestor of theirs.
#pragma once

#include <QColor>
#include <QFont>
#include <QPainter>
#include <QString>

class QApplication;
class QScreen;
class QWidget;

namespace panel::theme {

inline constexpr QRgb kBackground = 0xff12171d;
inline constexpr QRgb kSurface = 0xff1b222a;
inline constexpr QRgb kRaised = 0xff2a3440;
inline constexpr QRgb kRaisedHover = 0xff334050;
inline constexpr QRgb kPressed = 0xff1f6fb2;
inline constexpr QRgb kBorder = 0xff3d4a58;
inline constexpr QRgb kText = 0xffeef3f7;
inline constexpr QRgb kMuted = 0xff9fb0c0;
inline constexpr QRgb kFaint = 0xff5f6f7f;
inline constexpr QRgb kAccent = 0xff4db2ff;
inline constexpr QRgb kGreen = 0xff2fa35b;
inline constexpr QRgb kAmber = 0xffe8961e;
inline constexpr QRgb kRed = 0xffc62f37;
inline constexpr QRgb kViolet = 0xff8d6be0;
inline constexpr QRgb kSteel = 0xff3b5670;
inline constexpr QRgb kDark = 0xff10141a;  // text on amber

/// Style, palette and font of the whole program; the cursor doesn't flash, so an idle panel sleeps.
void Apply(QApplication& application);

/// A font of that height in pixels. Digits stand in columns.
[[nodiscard]] QFont Font(int pixels, bool bold = false);
[[nodiscard]] QFont MonoFont(int pixels);
/// The biggest font up to pixels in which text fits into width; never below least.
[[nodiscard]] QFont FittingFont(const QString& text, int width, int pixels, int least, bool bold = false);

/// 9 mm on a screen of that density (dots per inch), and never less than 34 pixels. A density that can't be true
/// counts as 96.
[[nodiscard]] int TouchPixels(qreal dotsPerInch);
[[nodiscard]] int TouchPixels(const QWidget& widget);

/// Text within rect, cut with an ellipsis when too long.
void DrawText(QPainter& painter, const QRect& rect, int flags, const QString& text, const QFont& font, QColor color);
/// A filled rounded field with an edge.
void DrawField(QPainter& painter, const QRect& rect, QColor fill, QColor edge, int radius);

/// 0x00BBGGRR, as tools and host exchange colours.
[[nodiscard]] QColor FromColorRef(std::uint32_t color);

}  // namespace panel::theme
