// SPDX-License-Identifier: MIT
// Draws text in a rectangle by draw flags, which say where it is placed, where its lines break and how it is shortened
// when it doesn't fit. All controls use it, so that they agree. A text has one font and one colour.
#pragma once

#include <QtCore/QRect>
#include <QtCore/QString>
#include <QtGui/QFontMetrics>
#include <cstdint>

class QPainter;

namespace pnl {

/// Draw flags. 0 means: left and top, lines break only at line ends in the text, '&' underlines the next character.
namespace draw {
inline constexpr std::uint32_t kCenter = 0x1;
inline constexpr std::uint32_t kRight = 0x2;
inline constexpr std::uint32_t kVCenter = 0x4;            // single lines only
inline constexpr std::uint32_t kBottom = 0x8;             // single lines only
inline constexpr std::uint32_t kWordBreak = 0x10;         // lines break between words
inline constexpr std::uint32_t kSingleLine = 0x20;        // line ends in the text become blanks
inline constexpr std::uint32_t kExpandTabs = 0x40;        // a tab leads to the next multiple of eight characters
inline constexpr std::uint32_t kNoClip = 0x100;           // a text that is too large is drawn beyond the rectangle
inline constexpr std::uint32_t kExternalLeading = 0x200;  // the font's leading is between the lines
inline constexpr std::uint32_t kCalcRect = 0x400;         // only measures, draws nothing
inline constexpr std::uint32_t kNoPrefix = 0x800;         // '&' is an ordinary character
inline constexpr std::uint32_t kEditControl = 0x2000;     // with kWordBreak long words break too; a line that is only
                                                          // partly inside isn't drawn, except the first
inline constexpr std::uint32_t kPathEllipsis = 0x4000;    // shortens a path in the middle and keeps its last part
inline constexpr std::uint32_t kEndEllipsis = 0x8000;     // shortens at the end
inline constexpr std::uint32_t kModifyString = 0x10000;   // the caller's text becomes the shortened one
}  // namespace draw

/// Draws with the painter's font and pen and returns the size of the text. With an ellipsis flag this is the size of
/// the shortened text, unless kCalcRect is set. With kModifyString, text becomes the shortened text if it was
/// shortened.
QSize DrawText(QPainter& painter, const QRect& rect, QString& text, std::uint32_t flags);
/// Does the same without changing text.
QSize DrawText(QPainter& painter, const QRect& rect, const QString& text, std::uint32_t flags);

/// The size of the whole text, wrapped at width if the flags say so.
[[nodiscard]] QSize MeasureText(const QFontMetrics& metrics, int width, const QString& text, std::uint32_t flags);

/// The text, broken and shortened to the size as the flags say. Line feeds separate its lines.
[[nodiscard]] QString ShortenText(const QFontMetrics& metrics, QSize size, const QString& text, std::uint32_t flags);

}  // namespace pnl
