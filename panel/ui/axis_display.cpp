// SPDX-License-Identifier: MIT
#include "ui/axis_display.h"

#include <QPainter>
#include <algorithm>
#include <cmath>

#include "common/words.h"
#include "ui/theme.h"
#include "ui/units.h"

namespace panel {

namespace {
constexpr int kSmallest = 6;  // a number shrinks to this before it loses a digit
constexpr int kLegible = 11;
}  // namespace

QString FormatPosition(double millimetres, bool inches) {
  constexpr double kMost = 999999.999;
  if (!std::isfinite(millimetres) || std::abs(millimetres) > kMost) return QStringLiteral("-----");
  const QString text =
      inches ? QString::number(millimetres / kMillimetresPerInch, 'f', 4) : QString::number(millimetres, 'f', 3);
  const bool nothing = text.startsWith(QLatin1Char('-')) && text.toDouble() == 0;
  return nothing ? text.mid(1) : text;
}

AxisDisplay::AxisDisplay(QWidget* parent) : QWidget(parent) {}

void AxisDisplay::Show(std::vector<AxisReading> axes, bool moving, bool inches) {
  if (axes == axes_ && moving == moving_ && inches == inches_) return;
  axes_ = std::move(axes);
  moving_ = moving;
  inches_ = inches;
  QStringList spoken;
  for (const auto& axis : axes_) spoken << axis.name + QLatin1Char(' ') + FormatPosition(axis.work, inches_);
  setAccessibleName(spoken.join(QStringLiteral(", ")));
  update();
}

void AxisDisplay::SetFontPixels(int pixels) {
  fontPixels_ = pixels;
  update();
}

void AxisDisplay::ShowMachinePositions(bool on) {
  machine_ = on;
  update();
}

void AxisDisplay::SetFrame(const QString& frame) {
  if (frame == frame_) return;
  frame_ = frame;
  update();
}

QString AxisDisplay::FrameText() const {
  const QString work = frame_.isEmpty() ? Say(Word::kWorkFrame) : frame_;
  return Say(inches_ ? Word::kInches : Word::kMillimetres) + QStringLiteral(", ") +
         (machine_ ? Say(Word::kMachineFrame) : work);
}

QString AxisDisplay::OtherText(const AxisReading& axis) const {
  const Word other = machine_ ? Word::kWorkPosition : Word::kMachinePosition;
  return Say(other) + QLatin1Char(' ') + FormatPosition(machine_ ? axis.work : axis.machine, inches_);
}

QString AxisDisplay::ToGoText(const AxisReading& axis) const {
  return Say(Word::kToGo) + QLatin1Char(' ') + FormatPosition(axis.toGo, inches_);
}

AxisDisplay::Foot AxisDisplay::FitFoot(const QString& left, const QString& right, int width, int pixels) {
  const QString both = left + QStringLiteral("   ") + right;
  const int beside = theme::FittingFont(both, width, pixels, kLegible).pixelSize();
  if (QFontMetrics(theme::Font(beside)).horizontalAdvance(both) < width) return {beside, false};
  const int below = std::min(theme::FittingFont(left, width, pixels, kSmallest).pixelSize(),
                             theme::FittingFont(right, width, pixels, kSmallest).pixelSize());
  return {below, true};
}

void AxisDisplay::PaintFoot(QPainter& painter, const QRect& foot, const AxisReading& axis, const Foot& fit) const {
  const QFont font = theme::Font(fit.pixels);
  const bool going = moving_ && std::abs(axis.toGo) >= 0.0005;
  const int row = fit.twoRows ? foot.height() / 2 : foot.height();
  theme::DrawText(painter, QRect(foot.left(), foot.top(), foot.width(), row), Qt::AlignLeft | Qt::AlignVCenter,
                  OtherText(axis), font, QColor(theme::kMuted));
  theme::DrawText(painter, QRect(foot.left(), foot.bottom() + 1 - row, foot.width(), row),
                  Qt::AlignRight | Qt::AlignVCenter, ToGoText(axis), font,
                  QColor(going ? theme::kAmber : theme::kMuted));
}

void AxisDisplay::PaintAxis(QPainter& painter, const QRect& rect, const AxisReading& axis) const {
  theme::DrawField(painter, rect, QColor(theme::kSurface), QColor(theme::kBorder), 6);
  const QRect body = rect.adjusted(10, 4, -10, -4);
  Foot fit = FitFoot(OtherText(axis), ToGoText(axis), body.width(), fontPixels_);
  // In a low row the number has half of the height, as long as the texts around it can be read: their two lines are
  // 35/16 of their letters high.
  if (!fit.twoRows) fit.pixels = std::min(fit.pixels, std::max(kLegible, body.height() * 8 / 35));
  const int line = fit.pixels * 5 / 4;
  const int below = std::min(fit.twoRows ? 2 * line : line, body.height() / 2);
  // Unit and frame have a row of their own above the number, in letters that take little of its height.
  const int small = std::max(kLegible, fit.pixels * 3 / 4);
  const int above = std::min(small * 5 / 4, (body.height() - below) / 2);
  const QRect head(body.left(), body.top(), body.width(), above);
  theme::DrawText(painter, head, Qt::AlignRight | Qt::AlignVCenter, FrameText(),
                  theme::FittingFont(FrameText(), head.width(), small, kSmallest),
                  QColor(machine_ ? theme::kOrchid : theme::kMuted));
  const QRect digits(body.left(), body.top() + above, body.width(), body.height() - below - above);
  const int most = std::min(digits.height() * 9 / 10, 110);
  const QString value = FormatPosition(machine_ ? axis.machine : axis.work, inches_);
  const int nameWidth = std::min(digits.width() / 6, most);
  const QRect valueRect = digits.adjusted(nameWidth, 0, 0, 0);
  // The size is that of a number of full length, so that the digits don't change size while an axis moves.
  const int usual =
      theme::FittingFont(QStringLiteral("-0000.000"), valueRect.width(), most, kSmallest, true).pixelSize();
  theme::DrawText(painter, digits, Qt::AlignLeft | Qt::AlignVCenter, axis.name,
                  theme::FittingFont(axis.name, nameWidth, usual, kSmallest, true), QColor(theme::kAccent));
  theme::DrawText(painter, valueRect, Qt::AlignRight | Qt::AlignVCenter, value,
                  theme::FittingFont(value, valueRect.width(), usual, kSmallest, true),
                  QColor(machine_ ? theme::kOrchid : theme::kText));
  PaintFoot(painter, QRect(body.left(), body.bottom() + 1 - below, body.width(), below), axis, fit);
}

void AxisDisplay::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  if (axes_.empty()) {
    theme::DrawField(painter, rect(), QColor(theme::kSurface), QColor(theme::kBorder), 6);
    theme::DrawText(painter, rect(), Qt::AlignCenter, Say(Word::kNoMachine), theme::Font(fontPixels_ * 4 / 3),
                    QColor(theme::kMuted));
    return;
  }
  const int count = static_cast<int>(axes_.size());
  // A number is about five times as wide as high, so rows fit unless the field is a wide band.
  const bool columns = width() > 3 * height();
  constexpr int kGap = 4;
  for (int i = 0; i < count; ++i) {
    const int length = (columns ? width() : height()) + kGap;
    const int from = length * i / count;
    const int size = length * (i + 1) / count - from - kGap;
    PaintAxis(painter, columns ? QRect(from, 0, size, height()) : QRect(0, from, width(), size),
              axes_[static_cast<std::size_t>(i)]);
  }
}

}  // namespace panel
