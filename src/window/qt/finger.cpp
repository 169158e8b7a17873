// SPDX-License-Identifier: MIT
#include "window/qt/finger.h"

#include <QtCore/QVariant>
#include <QtGui/QScreen>
#include <algorithm>
#include <cmath>

#include "window/qt/control_properties.h"

namespace pnl {
namespace {

constexpr int kLeast = 34;
constexpr int kMost = 400;
constexpr double kMillimetres = 9;
constexpr double kMillimetresPerInch = 25.4;

double DensityOf(const QWidget& widget) {
  const QScreen* screen = widget.screen();
  const double dots = screen == nullptr ? 0 : screen->physicalDotsPerInch();
  return dots >= 40 && dots <= 800 ? dots : 96;
}

}  // namespace

int FingerPixels(const QWidget& widget) {
  for (const QWidget* around = &widget; around != nullptr; around = around->parentWidget()) {
    const QVariant wanted = around->property(property::kFinger);
    if (wanted.isValid()) return std::clamp(wanted.toInt(), kLeast, kMost);
  }
  const double pixels = kMillimetres * DensityOf(widget) / kMillimetresPerInch;
  return std::max(kLeast, static_cast<int>(std::ceil(pixels - 1e-6)));
}

}  // namespace pnl
