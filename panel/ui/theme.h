// SPDX-License-Identifier: MIT
// The panel's look: colours, fonts and sizes in one place. The tools bring their own colours, so nothing here sets a
// style sheet on a parent of theirs.
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
inline constexpr QRgb kFaint = 0xff8192a3;  // for what can't be used now: dim, but read on kSurface
inline constexpr QRgb kAccent = 0xff4db2ff;
inline constexpr QRgb kGreen = 0xff1b7a40;
inline constexpr QRgb kAmber = 0xffe8961e;
inline constexpr QRgb kRed = 0xffc62f37;
inline constexpr QRgb kViolet = 0xff7650c8;
inline constexpr QRgb kOrchid = 0xffcfa8ff;  // for positions of the machine in place of the workpiece
inline constexpr QRgb kSteel = 0xff3b5670;
inline constexpr QRgb kDark = 0xff06080b;  // text on bright fields

/// The contrast of two colours for reading, from 1 to 21, as the web's accessibility guidelines compute it.
[[nodiscard]] double Contrast(const QColor& one, const QColor& other);
/// The least contrast for text in small letters.
inline constexpr double kLeastContrast = 4.5;
/// Returns kText or kDark, whichever is easier to read on that field.
[[nodiscard]] QColor InkOn(const QColor& fill);
/// The colour of a key's field under a mouse, and when it is latched. Text stays readable on both.
[[nodiscard]] QColor HoverOf(const QColor& fill);
[[nodiscard]] QColor LatchedOf(const QColor& tint);

/// Sets style, palette and font of the whole program. The cursor doesn't blink, so that an idle panel sleeps.
void Apply(QApplication& application);

/// A font of that height in pixels, at least 6. Its digits all have the same width.
[[nodiscard]] QFont Font(int pixels, bool bold = false);
[[nodiscard]] QFont MonoFont(int pixels);
/// The biggest font, up to pixels high, in which text fits into width. Never smaller than least.
[[nodiscard]] QFont FittingFont(const QString& text, int width, int pixels, int least, bool bold = false);

/// How many pixels that many millimetres take at least on a screen of that density (dots per inch). An impossible
/// density counts as 96.
[[nodiscard]] int PixelsOf(qreal millimetres, qreal dotsPerInch);
inline constexpr qreal kTouchMillimetres = 9;
inline constexpr int kLeastTouchPixels = 34;
/// The least side of a key in pixels: kTouchMillimetres, but at least kLeastTouchPixels.
[[nodiscard]] int TouchPixels(qreal dotsPerInch);
[[nodiscard]] int TouchPixels(const QWidget& widget);
/// The density of the screen that shows the widget, in dots per inch. It follows from the screen's width if that was
/// set. Otherwise it is what the screen reports.
[[nodiscard]] qreal DensityOf(const QWidget& widget);
/// Sets how wide the screen is, in millimetres; 0 when nobody knows. A width with which the density would be impossible
/// counts as unknown.
void SetScreenWidth(qreal millimetres);
[[nodiscard]] qreal ScreenWidth();
/// Whether a screen can have that density. One that doesn't know its size reports 0, infinity or nonsense.
[[nodiscard]] bool IsDensity(qreal dotsPerInch);
inline constexpr qreal kMillimetresPerInch = 25.4;
inline constexpr qreal kUsualDensity = 96;

/// Draws text on one line within rect. A text that is too long is cut at cut, with an ellipsis.
void DrawText(QPainter& painter, const QRect& rect, int flags, const QString& text, const QFont& font, QColor color,
              Qt::TextElideMode cut = Qt::ElideRight);
/// Draws text on as many lines as fit into rect, broken between words, or within a word that is longer than a line. A
/// text that is too long loses its middle. One line is always drawn, even when rect is too low for it.
void DrawParagraph(QPainter& painter, const QRect& rect, Qt::Alignment alignment, const QString& text,
                   const QFont& font, QColor color);
/// Returns the text that DrawParagraph shows in a field of that size.
[[nodiscard]] QString ParagraphIn(const QString& text, const QFont& font, QSize field);
/// Draws an arrow in the middle of rect. It is no character, because not every system has a font with arrows.
void DrawArrow(QPainter& painter, const QRect& rect, Qt::ArrowType direction, QColor color);
/// Draws a filled rounded field with an edge.
void DrawField(QPainter& painter, const QRect& rect, QColor fill, QColor edge, int radius);

/// Returns text that a tooltip shows literally. Otherwise it would interpret what looks like markup.
[[nodiscard]] QString PlainTip(const QString& text);

/// Converts from 0x00BBGGRR, the form in which tools and host exchange colours.
[[nodiscard]] QColor FromColorRef(std::uint32_t color);

}  // namespace panel::theme
