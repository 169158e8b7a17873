// SPDX-License-Identifier: MIT
#include "calc/qt/calc_key_widget.h"

#include <QtGui/QPainter>
#include <QtSvg/QSvgRenderer>

#include "calc/qt/calc_look.h"
#include "window/qt/control_properties.h"

namespace pnl {
namespace {

constexpr qreal kRadius = 3;
constexpr int kMargin = 2;
constexpr int kSmallest = 8;
constexpr int kTextHeight = 12;

}  // namespace

CalcKeyWidget::CalcKeyWidget(int id, const QString& text, QRgb ground, QWidget* parent)
    : QAbstractButton(parent), ground_(ground) {
  MarkControl(this, id, control_kind::kButton);
  setText(text);
  setAccessibleName(text);
  setFocusPolicy(Qt::NoFocus);
  setAutoRepeat(false);
}

CalcKeyWidget::~CalcKeyWidget() = default;

void CalcKeyWidget::SetPicture(const std::string& svg) {
  auto picture = std::make_unique<QSvgRenderer>(QByteArray(svg.data(), static_cast<qsizetype>(svg.size())));
  if (!picture->isValid()) return;
  picture->setAspectRatioMode(Qt::KeepAspectRatio);
  picture_ = std::move(picture);
  drawn_ = QPixmap();
  update();
}

const QPixmap& CalcKeyWidget::Drawn(QSize size) {
  const qreal ratio = devicePixelRatioF();
  if (drawn_.size() == size * ratio) return drawn_;
  drawn_ = QPixmap(size * ratio);
  drawn_.setDevicePixelRatio(ratio);
  drawn_.fill(Qt::transparent);
  QPainter painter(&drawn_);
  picture_->render(&painter, QRectF(QPointF(), size));
  return drawn_;
}

void CalcKeyWidget::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QColor(calc_look::kKeyEdge));
  painter.setBrush(QColor(isDown() ? calc_look::kPressedKey : ground_));
  painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), kRadius, kRadius);
  const QRect face = rect().adjusted(kMargin, kMargin, -kMargin, -kMargin);
  if (face.isEmpty()) return;
  if (picture_) return painter.drawPixmap(face.topLeft(), Drawn(face.size()));
  painter.setPen(QColor(calc_look::kText));
  painter.setFont(
      calc_look::FittingFont(calc_look::Font(kTextHeight, calc_look::kBoldWeight), text(), face.width(), kSmallest));
  painter.drawText(face, Qt::AlignCenter | Qt::TextSingleLine, text());
}

}  // namespace pnl
