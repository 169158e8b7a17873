// SPDX-License-Identifier: MIT
#include "ui/status_strip.h"

#include <QPainter>
#include <algorithm>

#include "ui/theme.h"

namespace panel {

namespace {

ChannelLook MotionOf(const pnl::rig::MachineState& state) {
  constexpr int kRunning = 2;
  constexpr int kInterrupted = 4;
  constexpr int kAborted = 8;
  // Feed hold is one kind of interruption; the more exact word wins.
  if (state.channelStatus == kAborted) return {Word::kAborted, theme::kRed};
  if (state.feedHold) return {Word::kFeedHold, theme::kAmber};
  if (state.channelStatus == kInterrupted) return {Word::kInterrupted, theme::kAmber};
  if (state.channelStatus == kRunning) return {Word::kRunning, theme::kGreen};
  return {Word::kReady, theme::kSteel};
}

}  // namespace

ChannelLook LookOf(const pnl::rig::MachineState& state) {
  // Nothing runs while the emergency stop is pressed, whatever else the channel reports.
  if (state.emergencyStop) return {Word::kEmergencyStop, theme::kRed};
  ChannelLook look = MotionOf(state);
  if (!state.inspecting) return look;
  // Moving axes must show as moving during an inspection too.
  if (look.word == Word::kReady) return {Word::kInspection, theme::kViolet};
  look.inspecting = true;
  return look;
}

ChannelLook LookWithoutMachine() { return {Word::kNoMachine, theme::kSurface}; }

StatusStrip::StatusStrip(QWidget* parent) : QWidget(parent), indicator_(new ErrorIndicator(this)) {}

void StatusStrip::Show(const ChannelLook& channel, const QString& mode) {
  channel_ = channel;
  mode_ = mode;
  setAccessibleName(StateText() + QLatin1Char(' ') + mode);
  update();
}

QString StatusStrip::StateText() const {
  return (channel_.inspecting ? Say(Word::kInspection) + QStringLiteral(", ") : QString()) + Say(channel_.word);
}

void StatusStrip::SetFontPixels(int pixels) {
  fontPixels_ = pixels;
  indicator_->SetFontPixels(pixels);
  indicator_->setGeometry(Place().errors);
  update();
}

StatusStrip::Fields StatusStrip::Place() const {
  constexpr int kGap = 4;
  const int most = std::min(220 * fontPixels_ / 15, width() * 9 / 20);
  const QRect state(0, 0, most, height());
  const int rest = width() - state.width() - 2 * kGap;
  const QRect mode(state.right() + 1 + kGap, 0, std::min(rest / 2, most), height());
  const int errors = std::min(rest - mode.width(), most);
  return {state, mode, QRect(width() - errors, 0, errors, height())};
}

void StatusStrip::resizeEvent(QResizeEvent*) { indicator_->setGeometry(Place().errors); }

void StatusStrip::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  const Fields fields = Place();
  const QColor fill(channel_.color);
  theme::DrawField(painter, fields.state, fill, fill.lighter(130), 6);
  const QColor ink = theme::InkOn(fill);
  theme::DrawText(painter, fields.state.adjusted(8, 0, -8, 0), Qt::AlignCenter, StateText(),
                  theme::FittingFont(StateText(), fields.state.width() - 16, fontPixels_ * 5 / 4, 11, true), ink);
  theme::DrawField(painter, fields.mode, QColor(theme::kSurface), QColor(theme::kBorder), 6);
  theme::DrawText(painter, fields.mode.adjusted(6, 0, -6, 0), Qt::AlignCenter, mode_,
                  theme::FittingFont(mode_, fields.mode.width() - 12, fontPixels_ * 5 / 4, 11, true),
                  QColor(theme::kText));
}

}  // namespace panel
