// SPDX-License-Identifier: MIT
#include "controls/picture_area.h"

#include <QtGui/QImageReader>
#include <QtGui/QPainter>
#include <algorithm>
#include <cmath>

namespace pnl {
namespace {

/// A picture with more pixels is decoded smaller: no panel shows them.
constexpr double kMostKept = 8'000'000;

QSize KeptSize(QSize size) {
  const double pixels = static_cast<double>(size.width()) * size.height();
  if (pixels <= kMostKept) return size;
  const double scale = std::sqrt(kMostKept / pixels);
  return {std::max(1, static_cast<int>(size.width() * scale)), std::max(1, static_cast<int>(size.height() * scale))};
}

}  // namespace

PictureArea::PictureArea(QWidget* parent) : QWidget(parent) { setFocusPolicy(Qt::NoFocus); }

PictureArea::~PictureArea() {
  // The movie reads from the buffer.
  movie_.reset();
}

void PictureArea::Clear() {
  movie_.reset();
  buffer_.close();
  bytes_.clear();
  image_ = {};
  scaled_ = {};
  update();
}

bool PictureArea::SetPicture(const std::string& bytes, PictureFit fit) {
  Clear();
  fit_ = fit;
  bytes_ = QByteArray(bytes.data(), static_cast<qsizetype>(bytes.size()));
  buffer_.setBuffer(&bytes_);
  if (!buffer_.open(QIODevice::ReadOnly)) return false;
  QImageReader reader(&buffer_);
  if (reader.supportsAnimation() && reader.imageCount() > 1) {
    buffer_.seek(0);
    movie_ = std::make_unique<QMovie>(&buffer_);
    connect(movie_.get(), &QMovie::frameChanged, this, [this] { update(); });
    const bool reads = movie_->jumpToFrame(0);
    if (!reads) Clear();
    if (reads && isVisible()) movie_->start();
    return reads;
  }
  const QSize size = reader.size();
  if (size.isValid() && KeptSize(size) != size) reader.setScaledSize(KeptSize(size));
  QImage read = reader.read();
  Clear();
  image_ = std::move(read);
  return !image_.isNull();
}

QRect PictureArea::PictureRect() const {
  const QSize size = movie_ ? movie_->currentPixmap().size() : image_.size();
  if (size.isEmpty()) return {};
  if (fit_ == PictureFit::kStretch) return rect();
  QRect place(QPoint(), size.scaled(rect().size(), Qt::KeepAspectRatio));
  place.moveCenter(rect().center());
  return place;
}

void PictureArea::paintEvent(QPaintEvent* /*event*/) {
  const QRect place = PictureRect();
  QPainter painter(this);
  if (movie_) {
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    return painter.drawPixmap(place, movie_->currentPixmap());
  }
  if (scaled_.size() != place.size()) {
    scaled_ = QPixmap::fromImage(image_.scaled(place.size(), Qt::IgnoreAspectRatio, Qt::SmoothTransformation));
  }
  painter.drawPixmap(place.topLeft(), scaled_);
}

void PictureArea::showEvent(QShowEvent* /*event*/) {
  if (!movie_) return;
  if (movie_->state() == QMovie::Paused) {
    movie_->setPaused(false);
  } else if (movie_->state() == QMovie::NotRunning) {
    movie_->start();
  }
}

void PictureArea::hideEvent(QHideEvent* /*event*/) {
  if (movie_) movie_->setPaused(true);
}

}  // namespace pnl
