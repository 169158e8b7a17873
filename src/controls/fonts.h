// SPDX-License-Identifier: MIT
// Makes fonts from the values that the tools have: a face, a height in pixels and a weight. Nothing else turns these
// into a QFont. If "Arial" or "Times New Roman" isn't installed, the metric-compatible Liberation Sans or Liberation
// Serif takes its place.
#pragma once

#include <QtGui/QFont>
#include <QtGui/QFontMetrics>
#include <optional>

namespace pnl {

/// Makes a font of that face. A positive height is the height of the line's cell (ascent plus descent), a negative one
/// the height of the characters, 0 the application's own height. weight is from 1 (thin) to 1000; 400 is normal and 700
/// bold, and 0 means normal. Returns nothing for an empty face or one of more than 31 characters, a height beyond 4000
/// or a weight out of range.
[[nodiscard]] std::optional<QFont> MakeFont(const QString& face, int height, int weight);

/// The height of a line without the leading.
[[nodiscard]] inline int CellHeight(const QFontMetrics& metrics) { return metrics.ascent() + metrics.descent(); }

}  // namespace pnl
