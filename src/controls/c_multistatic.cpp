// SPDX-License-Identifier: MIT
#include "controls/c_multistatic.h"

#include <QtCore/QPointer>
#include <QtGui/QKeyEvent>
#include <QtGui/QMouseEvent>
#include <QtGui/QPainter>
#include <QtSvg/QSvgRenderer>
#include <algorithm>
#include <utility>

#include "controls/grid_look.h"
#include "window/qt/control_properties.h"
#include "window/qt/qt_text.h"

namespace pnl {
namespace {

constexpr QColor kFocus(0x4D, 0xB2, 0xFF);
constexpr QColor kBox(0xF4, 0xF7, 0xFA);
constexpr QColor kInk(0x14, 0x1A, 0x21);
constexpr QColor kDisabledBox(0xA8, 0xAE, 0xB5);
constexpr QColor kDisabledInk(0x5A, 0x62, 0x6B);
constexpr int kFocusWidth = 2;

const char* KindOf(CMultistatic::Face face) {
  switch (face) {
    case CMultistatic::Face::kCheckBox:
      return control_kind::kCheck;
    case CMultistatic::Face::kPicture:
      return control_kind::kPicture;
    case CMultistatic::Face::kBand:
    default:
      return control_kind::kStatic;
  }
}

}  // namespace

CMultistatic::CMultistatic(int id, Face face, QWidget* parent) : QWidget(parent), face_(face) {
  MarkControl(this, id, KindOf(face));
  setAttribute(Qt::WA_OpaquePaintEvent);
  if (face == Face::kCheckBox) setFocusPolicy(Qt::StrongFocus);
}

CMultistatic::~CMultistatic() = default;

void CMultistatic::SetState(int state) {
  state_ = state;
  picture_.reset();
  const std::string* svg = pictures_ ? pictures_(state) : nullptr;
  if (svg != nullptr) {
    picture_ =
        std::make_unique<QSvgRenderer>(QByteArray::fromRawData(svg->data(), static_cast<qsizetype>(svg->size())));
    if (!picture_->isValid()) picture_.reset();
  }
  update();
}

void CMultistatic::SetPictures(PictureOf pictures) {
  pictures_ = std::move(pictures);
  SetState(state_);
}

void CMultistatic::SetBackColor(Color color) {
  back_ = color;
  update();
}

QVariant CMultistatic::Checked() const { return face_ == Face::kCheckBox ? QVariant(IsOn()) : QVariant(); }

void CMultistatic::Toggle() {
  SetState(IsOn() ? 0 : 1);
  turned_ = true;
}

bool CMultistatic::event(QEvent* event) {
  const QPointer<CMultistatic> alive(this);
  const bool handled = QWidget::event(event);
  // This comes last, because a listener may destroy the control.
  if (alive && std::exchange(turned_, false)) emit Changed(state_);
  return handled;
}

void CMultistatic::keyPressEvent(QKeyEvent* event) {
  if (face_ != Face::kCheckBox || event->key() != Qt::Key_Space || event->isAutoRepeat()) return event->ignore();
  Toggle();
}

void CMultistatic::mousePressEvent(QMouseEvent* event) {
  pressed_ = face_ == Face::kCheckBox && event->button() == Qt::LeftButton;
  event->setAccepted(pressed_);
}

void CMultistatic::mouseReleaseEvent(QMouseEvent* event) {
  const bool inside = rect().contains(event->position().toPoint());
  if (std::exchange(pressed_, false) && inside && event->button() == Qt::LeftButton) Toggle();
}

void CMultistatic::DrawCheckBox(QPainter& painter) const {
  const int side = std::min(width(), height());
  const int box = hasFocus() ? side - 2 * kFocusWidth : side;
  DrawCheckMark(painter, rect(), box, IsOn(), isEnabled() ? kInk : kDisabledInk, isEnabled() ? kBox : kDisabledBox);
  if (!hasFocus()) return;
  const QRect around((width() - side) / 2, (height() - side) / 2, side, side);
  painter.setPen(QPen(kFocus, kFocusWidth));
  painter.drawRect(around.adjusted(1, 1, -1, -1));
}

void CMultistatic::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.fillRect(rect(), ToQColor(back_));
  if (face_ == Face::kCheckBox) DrawCheckBox(painter);
  if (face_ != Face::kPicture || !picture_) return;
  const QSizeF size = QSizeF(picture_->defaultSize()).scaled(QSizeF(rect().size()), Qt::KeepAspectRatio);
  QRectF place(QPointF(0, 0), size);
  place.moveCenter(QRectF(rect()).center());
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setOpacity(isEnabled() ? 1.0 : 0.45);
  picture_->render(&painter, place);
}

}  // namespace pnl
