// SPDX-License-Identifier: MIT
#include "ui/theme.h"

#include <QApplication>
#include <QFontDatabase>
#include <QFontMetrics>
#include <QPalette>
#include <QProxyStyle>
#include <QScreen>
#include <QTextDocument>
#include <QTextLayout>
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
  palette.setColor(QPalette::PlaceholderText, QColor(kMuted));
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

/// The kit's style with scroll bars and handles that are big enough for a finger. Lists can be pulled by their rows
/// only on a touch screen that reports touches. On a screen that reports a mouse instead, the scroll bars are the only
/// way to scroll.
class FingerStyle : public QProxyStyle {
 public:
  FingerStyle() : QProxyStyle(QStringLiteral("Fusion")) {}
  [[nodiscard]] int pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const override {
    const bool finger = metric == PM_ScrollBarExtent || metric == PM_ScrollBarSliderMin;
    if (finger && widget != nullptr) return TouchPixels(*widget);
    return QProxyStyle::pixelMetric(metric, option, widget);
  }
};

/// The linear light of a colour channel, both from 0 to 1.
double Linear(double channel) {
  return channel <= 0.04045 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
}

double Luminance(const QColor& color) {
  return 0.2126 * Linear(color.redF()) + 0.7152 * Linear(color.greenF()) + 0.0722 * Linear(color.blueF());
}

/// Breaks text into lines of that width. Returns their height.
qreal BreakIntoLines(QTextLayout& layout, const QString& text, const QFont& font, Qt::Alignment alignment, int width) {
  QTextOption option(alignment);
  option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
  QString lines = text;
  lines.replace(QLatin1Char('\n'), QChar(QChar::LineSeparator));
  layout.setText(lines);
  layout.setFont(font);
  layout.setTextOption(option);
  layout.beginLayout();
  qreal height = 0;
  for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
    line.setLineWidth(width);
    line.setPosition(QPointF(0, height));
    height += line.height();
  }
  layout.endLayout();
  return height;
}

/// Keeps that many characters of a text, half of them from each end, with an ellipsis for the rest.
QString WithoutMiddle(const QString& text, qsizetype kept) {
  qsizetype first = (kept + 1) / 2;
  qsizetype last = text.size() - kept / 2;
  // A surrogate pair is kept whole or dropped.
  if (first > 0 && text.at(first - 1).isHighSurrogate()) --first;
  if (last < text.size() && text.at(last).isLowSurrogate()) ++last;
  return text.left(first) + QChar(0x2026) + text.mid(last);
}

qreal screenWidth = 0;

}  // namespace

double Contrast(const QColor& one, const QColor& other) {
  constexpr double kFlare = 0.05;
  const auto [dark, bright] = std::minmax({Luminance(one), Luminance(other)});
  return (bright + kFlare) / (dark + kFlare);
}

QColor InkOn(const QColor& fill) {
  const QColor light(kText);
  const QColor dark(kDark);
  return Contrast(light, fill) >= Contrast(dark, fill) ? light : dark;
}

QColor HoverOf(const QColor& fill) {
  // The field moves away from the colour of its text, so that the text is no harder to read.
  constexpr int kStep = 112;
  return InkOn(fill) == QColor(kText) ? fill.darker(kStep) : fill.lighter(kStep);
}

QColor LatchedOf(const QColor& tint) { return tint.darker(170); }

void Apply(QApplication& application) {
  QApplication::setStyle(new FingerStyle);
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
  // Widths grow nearly in proportion to sizes, so one step goes by proportion and the rest by trying. Advances are
  // rounded: a text exactly as wide as its room may really be a fraction wider and would be cut.
  if (needed >= width && needed > 0) size = std::max(least, size * width / needed + 1);
  while (size > least && QFontMetrics(Font(size, bold)).horizontalAdvance(text) >= width) --size;
  return Font(std::max(size, least), bold);
}

bool IsDensity(qreal dotsPerInch) { return dotsPerInch >= 40 && dotsPerInch <= 800; }

int PixelsOf(qreal millimetres, qreal dotsPerInch) {
  if (!IsDensity(dotsPerInch)) dotsPerInch = kUsualDensity;
  return static_cast<int>(std::ceil(millimetres * dotsPerInch / kMillimetresPerInch - 1e-6));
}

int TouchPixels(qreal dotsPerInch) { return std::max(kLeastTouchPixels, PixelsOf(kTouchMillimetres, dotsPerInch)); }

int TouchPixels(const QWidget& widget) { return TouchPixels(DensityOf(widget)); }

qreal DensityOf(const QWidget& widget) {
  const QScreen* screen = widget.screen();
  if (screen == nullptr) return kUsualDensity;
  const qreal set = screenWidth > 0 ? screen->size().width() * kMillimetresPerInch / screenWidth : 0;
  return IsDensity(set) ? set : screen->physicalDotsPerInch();
}

void SetScreenWidth(qreal millimetres) { screenWidth = millimetres; }

qreal ScreenWidth() { return screenWidth; }

void DrawText(QPainter& painter, const QRect& rect, int flags, const QString& text, const QFont& font, QColor color,
              Qt::TextElideMode cut) {
  if (rect.width() <= 0 || rect.height() <= 0) return;
  painter.setFont(font);
  painter.setPen(color);
  painter.drawText(rect, flags, QFontMetrics(font).elidedText(text, cut, rect.width()));
}

QString ParagraphIn(const QString& text, const QFont& font, QSize field) {
  const auto fits = [&](const QString& shown) {
    QTextLayout layout;
    const qreal height = BreakIntoLines(layout, shown, font, Qt::AlignLeft, field.width());
    return height <= field.height() || layout.lineCount() == 1;
  };
  // No field of the panel has room for more, so a longer text costs no more than one of this length.
  constexpr qsizetype kMost = 4000;
  QString shown = text.size() > kMost ? WithoutMiddle(text, kMost) : text;
  if (fits(shown)) return shown;
  qsizetype fitting = 0;
  qsizetype tooMany = std::min(text.size(), kMost);
  while (tooMany - fitting > 1) {
    const qsizetype kept = (fitting + tooMany) / 2;
    (fits(WithoutMiddle(text, kept)) ? fitting : tooMany) = kept;
  }
  return WithoutMiddle(text, fitting);
}

void DrawParagraph(QPainter& painter, const QRect& rect, Qt::Alignment alignment, const QString& text,
                   const QFont& font, QColor color) {
  if (rect.width() <= 0 || rect.height() <= 0) return;
  QTextLayout layout;
  const qreal height = BreakIntoLines(layout, ParagraphIn(text, font, rect.size()), font,
                                      alignment & Qt::AlignHorizontal_Mask, rect.width());
  const qreal spare = rect.height() - height;
  const qreal above = (alignment & Qt::AlignVCenter) != 0 ? spare / 2 : (alignment & Qt::AlignBottom) != 0 ? spare : 0;
  painter.setPen(color);
  layout.draw(&painter, QPointF(rect.left(), rect.top() + above));
}

void DrawArrow(QPainter& painter, const QRect& rect, Qt::ArrowType direction, QColor color) {
  // The arrow points to the right around the origin; then it is turned.
  const QPolygonF arrow({{0.45, 0}, {-0.35, -0.5}, {-0.35, 0.5}});
  const qreal degrees = direction == Qt::DownArrow   ? 90
                        : direction == Qt::LeftArrow ? 180
                        : direction == Qt::UpArrow   ? 270
                                                     : 0;
  const qreal side = std::min(rect.width(), rect.height());
  QTransform place;
  place.translate(rect.x() + rect.width() / 2.0, rect.y() + rect.height() / 2.0).rotate(degrees).scale(side, side);
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  painter.setBrush(color);
  painter.drawPolygon(place.map(arrow));
  painter.restore();
}

void DrawField(QPainter& painter, const QRect& rect, QColor fill, QColor edge, int radius) {
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(edge, 1));
  painter.setBrush(fill);
  painter.drawRoundedRect(QRectF(rect).adjusted(0.5, 0.5, -0.5, -0.5), radius, radius);
  painter.restore();
}

QString PlainTip(const QString& text) { return Qt::mightBeRichText(text) ? Qt::convertFromPlainText(text) : text; }

QColor FromColorRef(std::uint32_t color) {
  return {static_cast<int>(color & 0xff), static_cast<int>((color >> 8) & 0xff),
          static_cast<int>((color >> 16) & 0xff)};
}

}  // namespace panel::theme
