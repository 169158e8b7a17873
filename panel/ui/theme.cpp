// SPDX-License-Identifier: MIT
#include "ui/theme.h"

#include <QApplication>
#include <QFontDatabase>
#include <QFontMetrics>
#include <QPalette>
#include <QScreen>
#include <QStyleFactory>
#include <QWidget>
#include <algorithm>
#include <cmath>

namespace panel::theme {
namespace {

QString FirstInstalled(const QStringList& families, QFontDatabase::SystemFont otherwise) {
  const QStringList installed = QFontDatabase::families();
  for (const QString& family : families) {
    if (installed.contains(family)) return family;
  }
  return QFontDatabase::systemFont(otherwise).family();
}

const QString& Family() {
  static const QString family =
      FirstInstalled({QStringLiteral("Liberation Sans"), QStringLiteral("DejaVu Sans")}, QFontDatabase::GeneralFont);
  return family;
}

const QString& MonoFamily() {
  static const QString family =
      FirstInstalled({QStringLiteral("Liberation Mono"), QStringLiteral("DejaVu Sans Mono")}, QFontDatabase::FixedFont);
  return family;
}

QPalette DarkPalette() {
  QPalette palette;
  palette.setColor(QPalette::Window, QColor(kBackground));
  palette.setColor(QPalette::WindowText, QColor(kText));
  palette.setColor(QPalette::Base, QColor(kSurface));
  palette.setColor(QPalette::AlternateBase, QColor(kRaised));
  palette.setColor(QPalette::Text, QColor(kText));
  palette.setColor(QPalette::PlaceholderText, QColor(kFaint));
  palette.setColor(QPalette::Button, QColor(kRaised));
  palette.setColor(QPalette::ButtonText, QColor(kText));
  palette.setColor(QPalette::BrightText, QColor(kRed));
  palette.setColor(QPalette::Highlight, QColor(kPressed));
  palette.setColor(QPalette::HighlightedText, QColor(kText));
  palette.setColor(QPalette::ToolTipBase, QColor(kRaised));
  palette.setColor(QPalette::ToolTipText, QColor(kText));
  palette.setColor(QPalette::Link, QColor(kAccent));
  for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
    palette.setColor(QPalette::Disabled, role, QColor(kFaint));
  }
  return palette;
}

}  // namespace

void Apply(QApplication& application) {
  if (QStyle* fusion = QStyleFactory::create(QStringLiteral("Fusion"))) QApplication::setStyle(fusion);
  QApplication::setPalette(DarkPalette());
  application.setFont(Font(15));
  QApplication::setCursorFlashTime(0);
}

QFont Font(int pixels, bool bold) {
  QFont font(Family());
  font.setPixelSize(std::max(pixels, 6));
  font.setWeight(bold ? QFont::DemiBold : QFont::Normal);
  return font;
}

QFont MonoFont(int pixels) {
  QFont font(MonoFamily());
  font.setPixelSize(std::max(pixels, 6));
  return font;
}

QFont FittingFont(const QString& text, int width, int pixels, int least, bool bold) {
  int size = pixels;
  const int needed = QFontMetrics(Font(size, bold)).horizontalAdvance(text);
  // Widths grow as sizes do, nearly: one step by proportion, the rest by trying.
  // Advances are rounded: a text exactly as wide as its room may be a fraction wider, and would be cut.
  if (needed >= width && needed > 0) size = std::max(least, size * width / needed + 1);
  while (size > least && QFontMetrics(Font(size, bold)).horizontalAdvance(text) >= width) --size;
  return Font(std::max(size, least), bold);
}

int TouchPixels(qreal dotsPerInch) {
  constexpr qreal kTouchMillimetres = 9;
  constexpr qreal kMillimetresPerInch = 25.4;
  constexpr int kLeast = 34;
  // A screen that doesn't know its size answers 0, infinity or nonsense.
  if (!(dotsPerInch >= 40 && dotsPerInch <= 800)) dotsPerInch = 96;
  return std::max(kLeast, static_cast<int>(std::ceil(kTouchMillimetres * dotsPerInch / kMillimetresPerInch - 1e-6)));
}

int TouchPixels(const QWidget& widget) {
  const QScreen* screen = widget.screen();
  return TouchPixels(screen == nullptr ? 96 : screen->physicalDotsPerInch());
}

void DrawText(QPainter& painter, const QRect& rect, int flags, const QString& text, const QFont& font, QColor color) {
  if (rect.width() <= 0 || rect.height() <= 0) return;
  painter.setFont(font);
  painter.setPen(color);
  const QString shown =
      (flags & Qt::TextWordWrap) != 0 ? text : QFontMetrics(font).elidedText(text, Qt::ElideRight, rect.width());
  painter.drawText(rect, flags, shown);
}

void DrawField(QPainter& painter, const QRect& rect, QColor fill, QColor edge, int radius) {
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(edge, 1));
  painter.setBrush(fill);
  painter.drawRoundedRect(QRectF(rect).adjusted(0.5, 0.5, -0.5, -0.5), radius, radius);
  painter.restore();
}

QColor FromColorRef(std::uint32_t color) {
  return {static_cast<int>(color & 0xff), static_cast<int>((color >> 8) & 0xff),
          static_cast<int>((color >> 16) & 0xff)};
}

}  // namespace panel::theme
