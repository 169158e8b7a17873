// SPDX-License-Identifier: MIT
#include "ui/message_zone.h"

#include <QPainter>
#include <algorithm>

#include "ui/theme.h"

namespace panel {

MessageZone::MessageZone(QWidget* parent) : QWidget(parent) {}

void MessageZone::Show(std::vector<ZoneLine> lines) {
  if (lines.size() > kMaxLines) lines.resize(kMaxLines);
  if (lines == lines_) return;
  lines_ = std::move(lines);
  QStringList spoken;
  for (const auto& line : lines_) spoken << line.text;
  setAccessibleName(spoken.join(QStringLiteral("; ")));
  setToolTip(theme::PlainTip(spoken.join(QLatin1Char('\n'))));
  update();
}

void MessageZone::SetFontPixels(int pixels) {
  fontPixels_ = pixels;
  update();
}

void MessageZone::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  theme::DrawField(painter, rect(), QColor(theme::kSurface), QColor(theme::kBorder), 6);
  const int count = static_cast<int>(lines_.size());
  for (int i = 0; i < count; ++i) {
    const ZoneLine& line = lines_[static_cast<std::size_t>(i)];
    const int top = height() * i / count;
    const QRect row(0, top, width(), height() * (i + 1) / count - top);
    theme::DrawField(painter, row, line.back, line.back, 6);
    const QRect body = row.adjusted(12, 0, -12, 0);
    const QFont font = theme::Font(std::min(fontPixels_, row.height() * 9 / 10), line.strong);
    // A long text that has the zone to itself wraps to two lines before its middle is cut: the end often says more,
    // such as a file or a number.
    const bool wraps = QFontMetrics(font).horizontalAdvance(line.text) > body.width() && count == 1;
    const QFont used = wraps ? theme::Font(std::min(fontPixels_, row.height() * 2 / 5), line.strong) : font;
    theme::DrawParagraph(painter, body, Qt::AlignLeft | Qt::AlignVCenter, line.text, used, line.fore);
  }
}

}  // namespace panel
