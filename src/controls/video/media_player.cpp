// SPDX-License-Identifier: MIT
#include "controls/video/media_player.h"

#include <QVideoFrame>
#include <utility>

namespace pnl {
namespace {

/// A larger frame isn't shown: it takes four bytes a pixel.
constexpr qint64 kMostPixels = 16'000'000;

}  // namespace

MediaPlayer::MediaPlayer(Listener listener) : listener_(std::move(listener)) {
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
}

void MediaPlayer::Open() {
  player_ = std::make_unique<QMediaPlayer>();
  player_->setVideoSink(&sink_);
  QObject::connect(
      player_.get(), &QMediaPlayer::mediaStatusChanged, &sink_,
      [this, opening = ++opened_](QMediaPlayer::MediaStatus status) {
        if (opening != opened_) return;
        if (status == QMediaPlayer::EndOfMedia) listener_.ended();
        if (status == QMediaPlayer::InvalidMedia) listener_.failed();
      },
      Qt::QueuedConnection);
  player_->setSource(file_);
}

void MediaPlayer::Load(const std::string& hostPath) {
  // Always a file of this machine, however its name looks.
  file_ = QUrl::fromLocalFile(QString::fromStdString(hostPath));
  Open();
}

void MediaPlayer::Play() {
  if (!player_) return;
  if (player_->mediaStatus() == QMediaPlayer::EndOfMedia) Open();
  player_->play();
}

void MediaPlayer::Stop() {
  if (player_) player_->pause();
}

void MediaPlayer::Rewind() {
  if (!player_) return;
  const bool playing = player_->playbackState() == QMediaPlayer::PlayingState;
  Open();
  if (playing) {
    player_->play();
  } else {
    player_->pause();
  }
}

}  // namespace pnl

extern "C" __attribute__((visibility("default"))) pnl::VideoPlayer* PnlMakeVideoPlayer(
    int version, const pnl::VideoPlayer::Listener* listener) {
  return version == pnl::kVideoPlayerVersion ? new pnl::MediaPlayer(*listener) : nullptr;
}
