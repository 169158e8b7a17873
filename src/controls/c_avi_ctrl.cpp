// SPDX-License-Identifier: MIT
#include "controls/c_avi_ctrl.h"

#include <QtGui/QPainter>
#include <algorithm>
#include <utility>

#include "window/qt/control_properties.h"

namespace pnl {

CAviCtrl::CAviCtrl(int id, MakeVideoPlayer make, QWidget* parent) : QWidget(parent), make_(std::move(make)) {
  MarkControl(this, id, control_kind::kStatic);
  setAttribute(Qt::WA_OpaquePaintEvent);
}

CAviCtrl::~CAviCtrl() = default;

void CAviCtrl::Load(const std::string& hostPath, const QString& name) {
  Clear();
  name_ = name;
  player_ =
      make_ ? make_({[this](const QImage& frame) { OnFrame(frame); }, [this] { OnEnded(); }, [this] { OnFailed(); }})
            : nullptr;
  if (player_) player_->Load(hostPath);
  update();
}

void CAviCtrl::Play(int times) {
  if (!player_ || times <= 0) return;
  times_ = times;
  if (isVisible()) player_->Play();
}

void CAviCtrl::Stop() {
  times_ = 0;
  if (player_) player_->Stop();
}

void CAviCtrl::Rewind() {
  if (player_) player_->Rewind();
}

void CAviCtrl::Clear() {
  times_ = 0;
  player_.reset();
  name_.clear();
  frame_ = {};
  update();
}

void CAviCtrl::OnFrame(const QImage& frame) {
  frame_ = frame;
  update();
}

void CAviCtrl::OnEnded() {
  if (times_ == 0) return;
  --times_;
  if (times_ == 0) return;
  player_->Rewind();
  player_->Play();
}

void CAviCtrl::OnFailed() {
  times_ = 0;
  frame_ = {};
  update();
}

void CAviCtrl::showEvent(QShowEvent* /*event*/) {
  if (IsPlaying()) player_->Play();
}

/// Nobody sees a hidden area, so it doesn't use the processor.
void CAviCtrl::hideEvent(QHideEvent* /*event*/) {
  if (IsPlaying()) player_->Stop();
}

void CAviCtrl::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.fillRect(rect(), Qt::black);
  if (frame_.isNull()) {
    painter.setPen(Qt::white);
    painter.drawText(rect(), Qt::AlignCenter | Qt::TextWrapAnywhere, name_);
    return;
  }
  QRect place(QPoint(), frame_.size().scaled(size(), Qt::KeepAspectRatio));
  place.moveCenter(rect().center());
  painter.setRenderHint(QPainter::SmoothPixmapTransform);
  painter.drawImage(place, frame_);
}

}  // namespace pnl
