// SPDX-License-Identifier: MIT
#include "explorer/qt/xplr_icons.h"

#include <QtGui/QPainter>
#include <QtSvg/QSvgRenderer>

namespace pnl {
namespace {

constexpr int kIcons = 13;
constexpr int kSize = 16;

}  // namespace

ImageList MakeXplrIcons(const std::string* strip, double pixelRatio) {
  QPixmap all(QSize(kIcons * kSize, kSize) * pixelRatio);
  all.fill(Qt::transparent);
  if (strip != nullptr) {
    QSvgRenderer picture(QByteArray(strip->data(), static_cast<qsizetype>(strip->size())));
    QPainter painter(&all);
    picture.render(&painter);
  }
  ImageList icons{QSize(kSize, kSize), {}};
  for (int i = 0; i < kIcons; ++i) {
    const double side = kSize * pixelRatio;
    QPixmap icon = all.copy(QRectF(i * side, 0, side, side).toRect());
    icon.setDevicePixelRatio(pixelRatio);
    icons.images.push_back(std::move(icon));
  }
  return icons;
}

}  // namespace pnl
