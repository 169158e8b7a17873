// SPDX-License-Identifier: MIT
#include "errors/qt/error_text_widget.h"

#include <QtGui/QFontInfo>
#include <QtGui/QPainter>
#include <QtSvg/QSvgRenderer>
#include <algorithm>

#include "controls/draw_text.h"
#include "controls/fonts.h"
#include "errors/error_class.h"
#include "window/qt/control_properties.h"
#include "window/qt/qt_text.h"

namespace pnl {
namespace {

/// The margin to the left and the right of the text, in pixels.
constexpr int kPadding = 6;
/// Smaller letters can't be read from some distance, in pixels.
constexpr int kLeastLetters = 13;
/// The thumb is as wide as the padding allows, and so high that it can be seen, in pixels.
constexpr int kThumbWidth = 4;
constexpr int kLeastThumb = 12;
constexpr std::uint32_t kThumbColor = 0x606060;
constexpr std::uint32_t kLines = draw::kWordBreak | draw::kNoPrefix | draw::kExpandTabs | draw::kExternalLeading;

}  // namespace

ErrorTextWidget::ErrorTextWidget(int id, bool centred, QWidget* parent) : QWidget(parent), centred_(centred) {
  MarkControl(this, id, control_kind::kStatic);
  setAttribute(Qt::WA_OpaquePaintEvent);
}

void ErrorTextWidget::SetText(const QString& text) {
  if (text == text_) return;
  text_ = text;
  pulled_ = 0;
  setAccessibleName(text);
  Fit();
}

void ErrorTextWidget::SetTextFont(const QFont& font) {
  font_ = font;
  Fit();
}

void ErrorTextWidget::SetCentred(bool centred) {
  centred_ = centred;
  update();
}

int ErrorTextWidget::HeightIn(const QFont& font, const QString& text, int width) const {
  return MeasureText(QFontMetrics(font), std::max(width - 2 * kPadding, 1), text, kLines).height();
}

int ErrorTextWidget::HeightOf(const QString& text, int width) const { return HeightIn(font_, text, width); }

void ErrorTextWidget::Fit() {
  const auto use = [this](const QFont& font) {
    fitted_ = font;
    textHeight_ = HeightIn(font, text_, width());
    return textHeight_ <= height();
  };
  const int most = QFontInfo(font_).pixelSize();
  QFont font = font_;
  if (!use(font) && most > kLeastLetters) {
    // A long text takes its time to be measured. If the least letters don't suffice, none in between does.
    font.setPixelSize(kLeastLetters);
    if (use(font)) {
      int size = most;
      do font.setPixelSize(--size);
      while (!use(font));
    }
  }
  PullBy(0);
  update();
}

void ErrorTextWidget::PullBy(int pixels) {
  const int most = std::max(textHeight_ - height(), 0);
  const int moved = std::clamp(pixels, -pulled_, most - pulled_);
  pulled_ += moved;
  if (moved != 0) update();
}

void ErrorTextWidget::resizeEvent(QResizeEvent* /*event*/) { Fit(); }

int ErrorTextWidget::WidthOf(const QString& text) const {
  return QFontMetrics(font_).horizontalAdvance(text) + 2 * kPadding;
}

uint ErrorTextWidget::Back() const { return kErrorPanelColor; }

void ErrorTextWidget::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.fillRect(rect(), ToQColor(kErrorPanelColor));
  painter.setFont(fitted_);
  painter.setPen(ToQColor(Fore()));
  QRect area = rect().adjusted(kPadding, -pulled_, -kPadding, 0);
  std::uint32_t flags = kLines;
  if (centred_) {
    flags |= draw::kCenter;
    area.setTop(area.top() + std::max((height() - textHeight_) / 2, 0));
  }
  DrawText(painter, area, text_, flags);
  if (textHeight_ > height()) PaintThumb(painter);
}

void ErrorTextWidget::PaintThumb(QPainter& painter) const {
  const int length = std::min(std::max(height() * height() / textHeight_, kLeastThumb), height());
  const int top = (height() - length) * pulled_ / (textHeight_ - height());
  painter.fillRect(width() - kThumbWidth - 1, top, kThumbWidth, length, ToQColor(kThumbColor));
}

ErrorPictureWidget::ErrorPictureWidget(int id, const std::string* svg, const QString& instead, QWidget* parent)
    : QWidget(parent), instead_(instead) {
  MarkControl(this, id, control_kind::kStatic);
  setAttribute(Qt::WA_OpaquePaintEvent);
  if (svg != nullptr) svg_ = QByteArray(svg->data(), static_cast<qsizetype>(svg->size()));
}

void ErrorPictureWidget::SetBack(std::uint32_t color) {
  back_ = color;
  update();
}

void ErrorPictureWidget::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.fillRect(rect(), ToQColor(back_));
  QSvgRenderer picture(svg_);
  if (picture.isValid()) {
    picture.setAspectRatioMode(Qt::KeepAspectRatio);
    return picture.render(&painter, QRectF(rect()));
  }
  painter.setPen(Qt::white);
  painter.drawText(rect(), Qt::AlignCenter, instead_);
}

}  // namespace pnl
