// SPDX-License-Identifier: MIT
#include "ui/panel_key.h"

#include <QImage>
#include <QKeyEvent>
#include <QPainter>
#include <QSvgRenderer>
#include <algorithm>
#include <cmath>

#include "ui/theme.h"

namespace panel {
namespace {

constexpr int kRadius = 6;
constexpr int kPad = 5;
constexpr int kLeastLetters = 11;  // pixels
constexpr int kPictureSide = 64;   // rendered once at this size, then scaled

QImage Render(const QByteArray& svg) {
  QSvgRenderer renderer(svg);
  if (!renderer.isValid()) return {};
  renderer.setAspectRatioMode(Qt::KeepAspectRatio);
  QImage image(kPictureSide, kPictureSide, QImage::Format_ARGB32_Premultiplied);
  image.fill(Qt::transparent);
  QPainter painter(&image);
  renderer.render(&painter);
  return image;
}

}  // namespace

PanelKey::PanelKey(QWidget* parent) : QAbstractButton(parent) {
  setFocusPolicy(Qt::TabFocus);
  setAttribute(Qt::WA_Hover);
}

void PanelKey::setText(const QString& text) {
  QAbstractButton::setText(text);
  setShortcut({});
}

void PanelKey::SetArrow(Qt::ArrowType arrow) {
  arrow_ = arrow;
  update();
}

void PanelKey::SetTip(const QString& text) { setToolTip(theme::PlainTip(text)); }

void PanelKey::SetKeyName(const QString& name) {
  keyName_ = name;
  update();
}

void PanelKey::SetPicture(const QByteArray& svg) {
  if (svg == svg_) return;
  svg_ = svg;
  picture_ = svg.isEmpty() ? QImage() : Render(svg);
  update();
}

void PanelKey::SetTint(const QColor& tint) {
  if (tint == tint_) return;
  tint_ = tint;
  update();
}

void PanelKey::SetNote(const QString& note) {
  if (note == note_) return;
  note_ = note;
  update();
}

void PanelKey::SetFilled(bool filled) {
  filled_ = filled;
  update();
}

void PanelKey::SetFontPixels(int pixels) {
  fontPixels_ = pixels;
  update();
}

void PanelKey::SetLeadsOn(bool leadsOn) {
  if (leadsOn == leadsOn_) return;
  leadsOn_ = leadsOn;
  update();
}

QSize PanelKey::sizeHint() const {
  const int side = theme::TouchPixels(*this);
  return {2 * side, side};
}

void PanelKey::enterEvent(QEnterEvent* /*event*/) { update(); }

void PanelKey::leaveEvent(QEvent* /*event*/) { update(); }

bool PanelKey::event(QEvent* event) {
  // A disabled button takes touches and does nothing with them.
  if (event->type() == QEvent::MouseButtonPress && !isEnabled()) emit DimPressed();
  return QAbstractButton::event(event);
}

void PanelKey::keyPressEvent(QKeyEvent* event) {
  // Many panel keyboards have no space bar, so Enter presses the key too.
  if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) return click();
  QAbstractButton::keyPressEvent(event);
}

QColor PanelKey::Fill() const {
  if (!isEnabled()) return QColor(theme::kSurface);
  if (isDown()) return QColor(theme::kPressed);
  if (filled_ && tint_.isValid()) return underMouse() ? theme::HoverOf(tint_) : tint_;
  if (isChecked()) return tint_.isValid() ? theme::LatchedOf(tint_) : QColor(theme::kSteel);
  return underMouse() ? QColor(theme::kRaisedHover) : QColor(theme::kRaised);
}

QColor PanelKey::Ink() const {
  if (!isEnabled()) return QColor(theme::kFaint);
  return theme::InkOn(Fill());
}

QColor PanelKey::SoftInk() const {
  const QColor muted(theme::kMuted);
  const bool readable = theme::Contrast(muted, Fill()) >= theme::kLeastContrast;
  return isEnabled() && !filled_ && readable ? muted : Ink();
}

int PanelKey::KeyNamePixels() const { return std::max(12, fontPixels_ * 6 / 7); }

bool PanelKey::ShowsKeyName() const {
  if (keyName_.isEmpty()) return false;
  const QFontMetricsF metrics(theme::Font(fontPixels_, filled_));
  const bool wraps = text().contains(QLatin1Char(' ')) && metrics.horizontalAdvance(text()) > width() - 2 * kPad - 4;
  const int both = 2 * static_cast<int>(std::ceil(metrics.height()));
  return !wraps || height() - KeyNamePixels() - 8 >= both || height() - 8 < both;
}

void PanelKey::PaintMarks(QPainter& painter) const {
  const QColor soft = SoftInk();
  if (ShowsKeyName()) {
    theme::DrawText(painter, rect().adjusted(kPad + 1, 3, -kPad, 0), Qt::AlignLeft | Qt::AlignTop, keyName_,
                    theme::Font(KeyNamePixels()), soft);
  }
  painter.setRenderHint(QPainter::Antialiasing);
  if (isChecked() && isCheckable()) {
    // A tick in the corner, so that the state isn't shown by colour alone.
    QPen pen(isEnabled() ? QColor(theme::kText) : QColor(theme::kFaint), 2.4);
    pen.setCapStyle(Qt::RoundCap);
    painter.setPen(pen);
    const QPointF corner(width() - kPad - 14, kPad + 7);
    painter.drawPolyline(QPolygonF({corner, corner + QPointF(4, 4), corner + QPointF(12, -5)}));
  }
  if (leadsOn_) {
    painter.setPen(Qt::NoPen);
    painter.setBrush(soft);
    const QPointF tip(width() - kPad, height() - kPad - 5);
    painter.drawPolygon(QPolygonF({tip, tip + QPointF(-7, -5), tip + QPointF(-7, 5)}));
  }
}

QRect PanelKey::PaintArrow(QPainter& painter, const QRect& body) const {
  if (arrow_ == Qt::NoArrow) return body;
  const int side = std::min({fontPixels_, body.width(), body.height()});
  const int words =
      text().isEmpty() ? 0 : QFontMetrics(theme::Font(fontPixels_, filled_)).horizontalAdvance(text()) + 8;
  const int left = body.left() + std::max(0, (body.width() - side - words) / 2);
  theme::DrawArrow(painter, QRect(left, body.top(), side, body.height()), arrow_, Ink());
  return text().isEmpty() ? body : QRect(QPoint(left + side + 8, body.top()), body.bottomRight());
}

int PanelKey::PaintNote(QPainter& painter) const {
  if (note_.isEmpty()) return 0;
  constexpr int kLeast = 8;
  const QFont font = theme::FittingFont(note_, width() - 6, KeyNamePixels(), kLeast);
  const int high = std::min(QFontMetrics(font).height(), height() / 3);
  theme::DrawText(painter, QRect(3, height() - 3 - high, width() - 6, high), Qt::AlignCenter, note_, font,
                  QColor(theme::kAmber));
  return high;
}

void PanelKey::PaintFace(QPainter& painter) const {
  const int top = ShowsKeyName() ? KeyNamePixels() + 4 : 4;
  QRect body = rect().adjusted(kPad, top, -kPad, -4 - PaintNote(painter));
  // A long caption takes two lines, in slightly smaller letters below a picture.
  const bool wraps = text().contains(QLatin1Char(' ')) &&
                     QFontMetrics(theme::Font(fontPixels_, filled_)).horizontalAdvance(text()) > body.width() - 4;
  const int pixels = wraps && !picture_.isNull() ? std::max(12, fontPixels_ * 6 / 7) : fontPixels_;
  const int line = QFontMetrics(theme::Font(pixels, filled_)).height();
  // The height that DrawParagraph needs for two lines: one pixel less, and it would cut the second.
  const int both = 2 * static_cast<int>(std::ceil(QFontMetricsF(theme::Font(pixels, filled_)).height()));
  if (!picture_.isNull()) {
    // In a flat key the picture may use the height of the corner where the key's name is.
    const bool shortName = keyName_.size() <= 3;
    if (height() < 5 * fontPixels_ && shortName) body = rect().adjusted(kPad, 3, -kPad, -2);
    const int caption = text().isEmpty() ? 0 : (wraps ? both : line);
    const int side = std::min({body.height() - caption, body.width(), kPictureSide});
    if (side >= 12) {
      body.setTop(body.top() + (body.height() - side - caption) / 2);
      painter.setRenderHint(QPainter::SmoothPixmapTransform);
      painter.setOpacity(isEnabled() ? 1.0 : 0.35);
      painter.drawImage(QRect(body.center().x() - side / 2, body.top(), side, side), picture_);
      painter.setOpacity(1.0);
      body = QRect(body.left(), body.top() + side, body.width(), caption);
    }
  }
  body = PaintArrow(painter, body);
  const bool twoLines = wraps && body.height() >= both;
  // The font is chosen so that the longest word fits, and two lines hold all words. Otherwise the caption is cut.
  QString longest;
  for (const QString& word : twoLines ? text().split(QLatin1Char(' ')) : QStringList{text()}) {
    if (word.size() > longest.size()) longest = word;
  }
  QFont font = theme::FittingFont(longest, body.width() - 4, pixels, kLeastLetters, filled_);
  while (twoLines && font.pixelSize() > kLeastLetters && theme::ParagraphIn(text(), font, body.size()) != text()) {
    font = theme::Font(font.pixelSize() - 1, filled_);
  }
  if (twoLines) return theme::DrawParagraph(painter, body, Qt::AlignCenter, text(), font, Ink());
  theme::DrawText(painter, body, arrow_ == Qt::NoArrow ? Qt::AlignCenter : Qt::AlignLeft | Qt::AlignVCenter, text(),
                  font, Ink());
}

void PanelKey::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  const QColor edge = hasFocus()                       ? QColor(theme::kAccent)
                      : tint_.isValid() && isEnabled() ? tint_
                                                       : QColor(isEnabled() ? theme::kBorder : theme::kRaised);
  theme::DrawField(painter, rect(), Fill(), edge, kRadius);
  if (hasFocus()) theme::DrawField(painter, rect().adjusted(1, 1, -1, -1), Qt::transparent, edge, kRadius);
  PaintMarks(painter);
  PaintFace(painter);
}

}  // namespace panel
