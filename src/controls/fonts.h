// SPDX-License-Identifier: MIT
// Fonts as the tools ask for them: a face, a height in pixels and a weight. The one place where these become a QFont;
// "Arial" is drawn with the metric-compatible Liberation Sans where it isn't installed.
#pragma once

#include <QtGui/QFont>
#include <QtGui/QFontMetrics>
#include <optional>

namespace pnl {

/// A font of that face. height > 0 is the height of the line's cell (ascent and descent), height < 0 the height of the
/// characters, 0 the application's own. weight runs from 1 (thin) to 1000, 400 is normal and 700 bold; 0 is normal.
/// Nothing for an empty face or one of more than 31 characters, a height beyond 4000 or a weight out of range.
[[nodiscard]] std::optional<QFont> MakeFont(const QString& face, int height, int weight);

/// The height of a line without what stands between two lines.
[[nodiscard]] inline int CellHeight(const QFontMetrics& metrics) { return metrics.ascent() + metrics.descent(); }

}  // namespace pnl
