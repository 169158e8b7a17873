// SPDX-License-Identifier: MIT
// The picture that a test expects of a widget. The test draws it with the theme's functions: fields and texts at places
// that it names. So a picture depends on no font's metrics.
#pragma once

#include "support/text_catcher.h"
#include "ui/theme.h"

namespace panel {

using Strokes = std::vector<std::string>;

class Picture {
 public:
  explicit Picture(QPainter& painter) : painter_(painter) {}

  Picture& Fill(const QRect& rect, QColor fill) {
    painter_.fillRect(rect, fill);
    return *this;
  }
  Picture& Field(const QRect& rect, QColor fill, QColor edge, int radius = 6) {
    theme::DrawField(painter_, rect, fill, edge, radius);
    return *this;
  }
  Picture& Text(const QRect& rect, int flags, const QString& text, const QFont& font, QColor color,
                Qt::TextElideMode cut = Qt::ElideRight) {
    theme::DrawText(painter_, rect, flags, text, font, color, cut);
    return *this;
  }
  Picture& Left(const QRect& rect, const QString& text, const QFont& font, QRgb color) {
    return Text(rect, Qt::AlignLeft | Qt::AlignVCenter, text, font, QColor(color));
  }
  Picture& Right(const QRect& rect, const QString& text, const QFont& font, QRgb color) {
    return Text(rect, Qt::AlignRight | Qt::AlignVCenter, text, font, QColor(color));
  }
  Picture& Middle(const QRect& rect, const QString& text, const QFont& font, QColor color) {
    return Text(rect, Qt::AlignCenter, text, font, color);
  }
  Picture& Paragraph(const QRect& rect, Qt::Alignment alignment, const QString& text, const QFont& font, QColor color) {
    theme::DrawParagraph(painter_, rect, alignment, text, font, color);
    return *this;
  }
  [[nodiscard]] QPainter& Painter() { return painter_; }

 private:
  QPainter& painter_;
};

/// The strokes of such a picture.
template <typename Draw>
Strokes Pictured(Draw draw) {
  return pnl::test::Drawn([&draw](QPainter& painter) {
    Picture picture(painter);
    draw(picture);
  });
}

}  // namespace panel
