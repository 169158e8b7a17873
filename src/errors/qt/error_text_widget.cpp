// SPDX-License-Identifier: MIT
#include "errors/qt/error_text_widget.h"

#include <QtGui/QPainter>
#include <QtSvg/QSvgRenderer>

#include "controls/draw_text.h"
#include "controls/fonts.h"
#include "errors/error_class.h"
#include "window/qt/control_properties.h"
#include "window/qt/qt_text.h"

namespace pnl {
namespace {

/// The margin to the left and the right of the text, in pixels.
constexpr int kPadding = 6;
constexpr std::uint32_t kLines = draw::kWordBreak | draw::kNoPrefix | draw::kExpandTabs | draw::kExternalLeading;

}  // namespace

ErrorTextWidget::ErrorTextWidget(int id, bool centred, QWidget* parent) : QWidget(parent), centred_(centred) {
  MarkControl(this, id, control_kind::kStatic);
  setAttribute(Qt::WA_OpaquePaintEvent);
}

void ErrorTextWidget::SetText(const QString& text) {
  if (text == text_) return;
  text_ = text;
  setAccessibleName(text);
  update();
}

void ErrorTextWidget::SetTextFont(const QFont& font) {
  font_ = font;
  update();
}

void ErrorTextWidget::SetCentred(bool centred) {
  centred_ = centred;
  update();
}

int ErrorTextWidget::HeightOf(const QString& text, int width) const {
  return MeasureText(QFontMetrics(font_), std::max(width - 2 * kPadding, 1), text, kLines).height();
}

int ErrorTextWidget::WidthOf(const QString& text) const {
  return QFontMetrics(font_).horizontalAdvance(text) + 2 * kPadding;
}

uint ErrorTextWidget::Back() const { return kErrorPanelColor; }

void ErrorTextWidget::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.fillRect(rect(), ToQColor(kErrorPanelColor));
  painter.setFont(font_);
  painter.setPen(ToQColor(Fore()));
  QRect area = rect().adjusted(kPadding, 0, -kPadding, 0);
  std::uint32_t flags = kLines;
  if (centred_) {
    flags |= draw::kCenter;
    const int height = HeightOf(text_, width());
    area.setTop(area.top() + std::max((area.height() - height) / 2, 0));
  }
  DrawText(painter, area, text_, flags);
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
