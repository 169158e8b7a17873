// SPDX-License-Identifier: MIT
#include "mdi/qt/mdi_list_key.h"

#include <QtGui/QPainter>

#include "controls/draw_text.h"
#include "controls/fonts.h"

namespace pnl {
namespace {

constexpr int kMargin = 6;
constexpr int kSmallestText = 10;
constexpr QRgb kGround = 0xff24303b;
constexpr QRgb kPressed = 0xff1f6fb2;
constexpr QRgb kEdge = 0xff4db2ff;
constexpr QRgb kText = 0xffeef3f7;
constexpr QRgb kDisabledText = 0xff9fb0c0;

}  // namespace

MdiListKey::MdiListKey(const QString& name, QWidget* panel) : QAbstractButton(panel) {
  setObjectName(name);
  setFocusPolicy(Qt::NoFocus);
  setAttribute(Qt::WA_OpaquePaintEvent);
  if (const auto made = MakeFont(QStringLiteral("Arial"), -15, 600)) setFont(*made);
  hide();
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
