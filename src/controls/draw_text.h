// SPDX-License-Identifier: MIT
// Text in a rectangle by draw flags: where it lies, where it breaks, how it is shortened when it doesn't fit. All
// controls draw their texts through it, so that they agree. Not a rich text: one font, one colour.
#pragma once

#include <QtCore/QRect>
#include <QtCore/QString>
#include <QtGui/QFontMetrics>
#include <cstdint>

class QPainter;

namespace pnl {

/// Draw flags; 0 is left and top, lines broken only where the text says so, '&' marking the next character.
namespace draw {
inline constexpr std::uint32_t kCenter = 0x1;
inline constexpr std::uint32_t kRight = 0x2;
inline constexpr std::uint32_t kVCenter = 0x4;            // single lines only
inline constexpr std::uint32_t kBottom = 0x8;             // single lines only
inline constexpr std::uint32_t kWordBreak = 0x10;         // lines break between words
inline constexpr std::uint32_t kSingleLine = 0x20;        // line ends in the text don't break
inline constexpr std::uint32_t kExpandTabs = 0x40;        // to every eighth character
inline constexpr std::uint32_t kNoClip = 0x100;           // what is too large is drawn beyond the rectangle
inline constexpr std::uint32_t kExternalLeading = 0x200;  // lines keep the font's own distance
inline constexpr std::uint32_t kCalcRect = 0x400;         // nothing is drawn, only measured
inline constexpr std::uint32_t kNoPrefix = 0x800;         // '&' is a character like any other
inline constexpr std::uint32_t kEditControl = 0x2000;     // long words break too, no line is drawn in part
inline constexpr std::uint32_t kPathEllipsis = 0x4000;    // shortened inside a path, its last part kept
inline constexpr std::uint32_t kEndEllipsis = 0x8000;     // shortened at the end
inline constexpr std::uint32_t kModifyString = 0x10000;   // the shortened text is handed back
}  // namespace draw

/// Draws with the painter's font and pen and answers the size that the text takes. A text with an ellipsis flag is
/// measured as shortened unless kCalcRect is set. With kModifyString, text becomes what was drawn.
QSize DrawText(QPainter& painter, const QRect& rect, QString& text, std::uint32_t flags);
/// The same for a text that stays.
QSize DrawText(QPainter& painter, const QRect& rect, const QString& text, std::uint32_t flags);

/// The size of the whole text, wrapped at width where the flags say so.
[[nodiscard]] QSize MeasureText(const QFontMetrics& metrics, int width, const QString& text, std::uint32_t flags);

/// The text as the flags shorten it to fit the size, lines joined by line feeds as the flags break them.
[[nodiscard]] QString ShortenText(const QFontMetrics& metrics, QSize size, const QString& text, std::uint32_t flags);

}  // namespace pnl
