// SPDX-License-Identifier: MIT
#include "mdi/qt/mdi_list_key.h"

#include <QtGui/QPainter>
#include <algorithm>
#include <cmath>

#include "controls/draw_text.h"
#include "controls/fonts.h"
#include "window/qt/control_properties.h"

namespace pnl {
namespace {

constexpr int kFingerHeight = 34;
constexpr double kFingerMillimetres = 9;
constexpr double kMillimetresPerInch = 25.4;
constexpr int kMargin = 6;
constexpr int kSmallestText = 10;
constexpr QRgb kGround = 0xff24303b;
constexpr QRgb kPressed = 0xff1f6fb2;
constexpr QRgb kEdge = 0xff4db2ff;
constexpr QRgb kText = 0xffeef3f7;
constexpr QRgb kDisabledText = 0xff9fb0c0;

}  // namespace

MdiListKey::MdiListKey(int id, WindowHandle owner, QWidget* panel) : QAbstractButton(panel) {
  MarkControl(this, id, control_kind::kButton);
  setProperty(property::kOwner, owner);
  setFocusPolicy(Qt::NoFocus);
  setAttribute(Qt::WA_OpaquePaintEvent);
  if (const auto made = MakeFont(QStringLiteral("Arial"), -15, 600)) setFont(*made);
  hide();
}

int MdiListKey::LeastHeight() const {
  const double pixels = kFingerMillimetres * std::max(physicalDpiY(), 1) / kMillimetresPerInch;
  return std::max(kFingerHeight, static_cast<int>(std::ceil(std::min(pixels, 4.0 * kFingerHeight))));
}

void MdiListKey::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.fillRect(rect(), QColor(isDown() ? kPressed : kGround));
  painter.setPen(QColor(kEdge));
  painter.drawRect(rect().adjusted(0, 0, -1, -1));
  const QRect room = rect().adjusted(kMargin, 0, -kMargin, 0);
  QFont fitting = font();
  while (fitting.pixelSize() > kSmallestText && QFontMetrics(fitting).horizontalAdvance(text()) > room.width()) {
    fitting.setPixelSize(fitting.pixelSize() - 1);
  }
  painter.setFont(fitting);
  painter.setPen(QColor(isEnabled() ? kText : kDisabledText));
  DrawText(painter, room, text(),
           draw::kSingleLine | draw::kVCenter | draw::kCenter | draw::kNoPrefix | draw::kEndEllipsis);
}

}  // namespace pnl
