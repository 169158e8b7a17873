// SPDX-License-Identifier: MIT
#include "ui/axis_display.h"

#include <QPainter>
#include <algorithm>
#include <cmath>

#include "ui/theme.h"
#include "ui/words.h"

namespace panel {

QString FormatPosition(double millimetres) {
  constexpr double kMost = 999999.999;
  if (!std::isfinite(millimetres) || std::abs(millimetres) > kMost) return QStringLiteral("-----");
  const QString text = QString::number(millimetres, 'f', 3);
  return text == QLatin1String("-0.000") ? QStringLiteral("0.000") : text;
}

AxisDisplay::AxisDisplay(QWidget* parent) : QWidget(parent) {}

void AxisDisplay::Show(std::vector<AxisReading> axes, bool moving) {
  if (axes == axes_ && moving == moving_) return;
  axes_ = std::move(axes);
  moving_ = moving;
  QStringList spoken;
  for (const auto& axis : axes_) spoken << axis.name + QLatin1Char(' ') + FormatPosition(axis.work);
  setAccessibleName(spoken.join(QStringLiteral(", ")));
  update();
}

void AxisDisplay::ShowMachinePositions(bool on) {
  machine_ = on;
  update();
}

void AxisDisplay::PaintAxis(QPainter& painter, const QRect& rect, const AxisReading& axis) const {
  theme::DrawField(painter, rect, QColor(theme::kSurface), QColor(theme::kBorder), 6);
  const QRect body = rect.adjusted(10, 4, -10, -4);
  const int below = std::clamp(body.height() / 4, 14, 26);
  const QRect digits(body.left(), body.top(), body.width(), body.height() - below);
  const int most = std::min(digits.height() * 9 / 10, 110);
  const QString value = FormatPosition(machine_ ? axis.machine : axis.work);
  const int nameWidth = std::min(digits.width() / 6, most);
  const QRect valueRect = digits.adjusted(nameWidth, 0, 0, 0);
  // The size follows a full-length number, so that digits don't breathe while an axis moves.
  const QFont font = theme::FittingFont(QStringLiteral("-0000.000"), valueRect.width(), most, 12, true);
  theme::DrawText(painter, digits, Qt::AlignLeft | Qt::AlignVCenter, axis.name,
                  theme::FittingFont(axis.name, nameWidth, font.pixelSize(), 12, true), QColor(theme::kAccent));
  theme::DrawText(painter, valueRect, Qt::AlignRight | Qt::AlignVCenter, value, font, QColor(theme::kText));
  const QFont small = theme::Font(std::max(12, below * 4 / 5));
  const QRect foot(body.left(), body.bottom() + 1 - below, body.width(), below);
  const Word other = machine_ ? Word::kWorkPosition : Word::kMachinePosition;
  const QString left = Say(other) + QLatin1Char(' ') + FormatPosition(machine_ ? axis.work : axis.machine);
  const QString right = Say(Word::kToGo) + QLatin1Char(' ') + FormatPosition(axis.toGo);
  const bool going = moving_ && std::abs(axis.toGo) >= 0.0005;
  theme::DrawText(painter, foot.adjusted(0, 0, -foot.width() / 2, 0), Qt::AlignLeft | Qt::AlignVCenter, left, small,
                  QColor(theme::kMuted));
  theme::DrawText(painter, foot.adjusted(foot.width() / 2, 0, 0, 0), Qt::AlignRight | Qt::AlignVCenter, right, small,
                  QColor(going ? theme::kAmber : theme::kMuted));
}

void AxisDisplay::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  if (axes_.empty()) {
    theme::DrawField(painter, rect(), QColor(theme::kSurface), QColor(theme::kBorder), 6);
    theme::DrawText(painter, rect(), Qt::AlignCenter, Say(Word::kNoMachine), theme::Font(20), QColor(theme::kFaint));
    return;
  }
  const int count = static_cast<int>(axes_.size());
  // A number is some five times as broad as high, so rows fit until the field is broader than a band.
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
