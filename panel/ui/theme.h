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
inline constexpr QRgb kFaint = 0xff5f6f7f;  // of what can't be used now; nothing that is read
inline constexpr QRgb kAccent = 0xff4db2ff;
inline constexpr QRgb kGreen = 0xff1b7a40;
inline constexpr QRgb kAmber = 0xffe8961e;
inline constexpr QRgb kRed = 0xffc62f37;
inline constexpr QRgb kViolet = 0xff7650c8;
inline constexpr QRgb kSteel = 0xff3b5670;
inline constexpr QRgb kDark = 0xff06080b;  // text on bright fields

/// How far two colours are apart for an eye that reads: 1 to 21, as the web's accessibility guidelines compute it.
[[nodiscard]] double Contrast(const QColor& one, const QColor& other);
/// What a text in small letters needs at least.
inline constexpr double kLeastContrast = 4.5;
/// kText or kDark, whichever is read better on that field.
[[nodiscard]] QColor InkOn(const QColor& fill);
/// What a key's field looks like under a mouse, and when it is latched. Both stay dark enough for the text on them.
[[nodiscard]] QColor HoverOf(const QColor& fill);
[[nodiscard]] QColor LatchedOf(const QColor& tint);

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

/// Text on one line within rect, cut with an ellipsis when too long. A path is cut in its middle.
void DrawText(QPainter& painter, const QRect& rect, int flags, const QString& text, const QFont& font, QColor color,
              Qt::TextElideMode cut = Qt::ElideRight);
/// Text on as many lines as rect has room for, broken between words, or within one that is longer than a line. What
/// finds no room leaves its middle out. One line always shows, however flat rect is.
void DrawParagraph(QPainter& painter, const QRect& rect, Qt::Alignment alignment, const QString& text,
                   const QFont& font, QColor color);
/// What DrawParagraph shows of a text in a field of that size.
[[nodiscard]] QString ParagraphIn(const QString& text, const QFont& font, QSize field);
/// An arrow in the middle of rect. Drawn, not typed: not every system has a font with such signs.
void DrawArrow(QPainter& painter, const QRect& rect, Qt::ArrowType direction, QColor color);
/// A filled rounded field with an edge.
void DrawField(QPainter& painter, const QRect& rect, QColor fill, QColor edge, int radius);

/// Plain text for a tooltip, which else would take what looks like markup for markup.
[[nodiscard]] QString PlainTip(const QString& text);

/// 0x00BBGGRR, as tools and host exchange colours.
[[nodiscard]] QColor FromColorRef(std::uint32_t color);

}  // namespace panel::theme
