// SPDX-License-Identifier: MIT
#include "zmc/qt/zmc_power_bar.h"

#include <QtGui/QPainter>
#include <algorithm>
#include <cmath>

#include "base/format.h"
#include "window/qt/control_properties.h"
#include "window/qt/qt_text.h"
#include "zmc/qt/zmc_look.h"

namespace pnl {
namespace {

constexpr double kFull = 100;
constexpr double kHigh = 80;

Color ColorOf(double percent) {
  if (percent > kFull) return zmc_look::kPowerOver;
  return percent > kHigh ? zmc_look::kPowerHigh : zmc_look::kPowerGood;
}

}  // namespace

ZmcPowerBar::ZmcPowerBar(int id, QWidget* parent) : QWidget(parent) {
  MarkControl(this, id, control_kind::kStatic);
  setAttribute(Qt::WA_OpaquePaintEvent);
  setAttribute(Qt::WA_TransparentForMouseEvents);
}

void ZmcPowerBar::SetPercent(std::optional<double> percent) {
  if (percent_ == percent) return;
  percent_ = percent;
  update();
}

QString ZmcPowerBar::WindowText() const { return percent_ ? ToQString(Format(u"%.2f %%", *percent_)) : QString(); }

void ZmcPowerBar::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.fillRect(rect(), ToQColor(zmc_look::kPage));
  // Also a value that is no number leaves the bar empty.
  if (!percent_ || !(*percent_ > 0)) return;
  const double share = std::min(*percent_, kFull) / kFull;
  painter.fillRect(QRect(0, 0, static_cast<int>(std::lround(width() * share)), height()), ToQColor(ColorOf(*percent_)));
}

}  // namespace pnl
