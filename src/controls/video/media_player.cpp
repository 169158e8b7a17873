// SPDX-License-Identifier: MIT
#include "controls/video/media_player.h"

#include <QUrl>
#include <QVideoFrame>
#include <utility>

namespace pnl {
namespace {

/// A larger frame isn't shown: it takes four bytes a pixel.
constexpr qint64 kMostPixels = 16'000'000;

}  // namespace

MediaPlayer::MediaPlayer(Listener listener) : listener_(std::move(listener)) {
  player_.setVideoSink(&sink_);
  // Queued, so that nothing comes inside a call of ours.
  QObject::connect(
      &sink_, &QVideoSink::videoFrameChanged, &sink_,
      [this](const QVideoFrame& frame) {
        const QSize size = frame.size();
        if (!frame.isValid() || qint64{size.width()} * size.height() > kMostPixels) return;
        const QImage image = frame.toImage();
        if (!image.isNull()) listener_.frame(image);
      },
      Qt::QueuedConnection);
  QObject::connect(
      &player_, &QMediaPlayer::mediaStatusChanged, &sink_,
      [this](QMediaPlayer::MediaStatus status) {
        if (status == QMediaPlayer::EndOfMedia) listener_.ended();
        if (status == QMediaPlayer::InvalidMedia) listener_.failed();
      },
      Qt::QueuedConnection);
}

MediaPlayer::~MediaPlayer() { player_.stop(); }

void MediaPlayer::Load(const std::string& hostPath) {
  // Always a file of this machine, however its name looks.
  player_.setSource(QUrl::fromLocalFile(QString::fromStdString(hostPath)));
}

void MediaPlayer::Play() { player_.play(); }

void MediaPlayer::Stop() { player_.pause(); }

void MediaPlayer::Rewind() { player_.setPosition(0); }

}  // namespace pnl

extern "C" __attribute__((visibility("default"))) pnl::VideoPlayer* PnlMakeVideoPlayer(
    int version, const pnl::VideoPlayer::Listener* listener) {
  return version == pnl::kVideoPlayerVersion ? new pnl::MediaPlayer(*listener) : nullptr;
}
