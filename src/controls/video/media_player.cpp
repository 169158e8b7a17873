// SPDX-License-Identifier: MIT
#include "controls/video/media_player.h"

#include <QCoreApplication>
#include <QHash>
#include <QMediaPlayer>
#include <QThread>
#include <QUrl>
#include <QVideoFrame>
#include <QVideoSink>
#include <atomic>
#include <utility>

namespace pnl {

/// What a player and its reel have in common. It lives on the window's thread, where the reports arrive, and longer
/// than the reel's thread.
struct ReelDesk final : QObject {
  explicit ReelDesk(VideoPlayer::Listener toldTo) : listener(std::move(toldTo)) {}

  const VideoPlayer::Listener listener;
  bool closed = false;                     // the player has gone and nobody listens
  std::atomic<std::int64_t> position = 0;  // ms
  std::atomic<int> opened = 0;             // how often the file was opened
};

namespace {

/// A larger frame isn't shown: it takes four bytes a pixel.
constexpr qint64 kMostPixels = 16'000'000;
/// How long the end of the program waits for a thread, in milliseconds. One that takes longer is stuck.
constexpr unsigned long kLongestEnd = 1000;

using Threads = QHash<QThread*, std::shared_ptr<ReelDesk>>;

/// The threads that still run. It is never destroyed, because a stuck thread may outlive everything else.
Threads& Running() {
  static auto& running = *new Threads;
  return running;
}

/// Ends the threads before the application, whose objects they use.
void AwaitThreads() {
  for (QThread* thread : Running().keys()) {
    if (!thread->wait(kLongestEnd)) continue;
    Running().remove(thread);
    delete thread;
  }
}

QThread* StartThread(const std::shared_ptr<ReelDesk>& desk) {
  static const bool awaited = [] {
    qAddPostRoutine(&AwaitThreads);
    return true;
  }();
  (void)awaited;
  auto* thread = new QThread;
  Running().insert(thread, desk);
  QObject::connect(thread, &QThread::finished, QCoreApplication::instance(), [thread] {
    thread->wait();  // it has nothing left to do
    Running().remove(thread);
    delete thread;
  });
  thread->start();
  return thread;
}

QImage ImageOf(const QVideoFrame& frame) {
  const QSize size = frame.size();
  if (!frame.isValid() || qint64{size.width()} * size.height() > kMostPixels) return {};
  return frame.toImage();
}

}  // namespace

/// One video on its own thread.
class Reel final : public QObject {
 public:
  explicit Reel(std::shared_ptr<ReelDesk> desk) : desk_(std::move(desk)) {}

  void Load(const QUrl& file) {
    file_ = file;
    Open();
  }
  void Play() {
    if (!player_) return;
    if (player_->mediaStatus() == QMediaPlayer::EndOfMedia) Open();
    player_->play();
  }
  void Stop() {
    if (player_) player_->pause();
  }
  void Rewind() {
    if (!player_ || IsOpening()) return;
    const bool playing = player_->playbackState() == QMediaPlayer::PlayingState;
    Open();
    if (playing) {
      player_->play();
    } else {
      player_->pause();
    }
  }
  /// Ends the reel as soon as its file is open. While the library's threads open a file, an end can wait for them for
  /// ever.
  void Leave() {
    if (!IsOpening()) return deleteLater();
    connect(player_.get(), &QMediaPlayer::mediaStatusChanged, this, [this] {
      if (!IsOpening()) deleteLater();
    });
  }

 private:
  [[nodiscard]] bool IsOpening() const { return player_ && player_->mediaStatus() == QMediaPlayer::LoadingMedia; }

  /// Opens the file anew, with a player of its own: a seek isn't exact in every file.
  void Open() {
    const int opening = ++desk_->opened;
    desk_->position = 0;
    player_ = std::make_unique<QMediaPlayer>();
    sink_ = std::make_unique<QVideoSink>();
    // The reports go to the window's thread. Those of an earlier opening don't count.
    connect(sink_.get(), &QVideoSink::videoFrameChanged, desk_.get(),
            [desk = desk_, opening](const QVideoFrame& frame) {
              if (desk->closed || opening != desk->opened) return;
              const QImage image = ImageOf(frame);
              if (!image.isNull()) desk->listener.frame(image);
            });
    connect(player_.get(), &QMediaPlayer::mediaStatusChanged, desk_.get(), [desk = desk_, opening](auto status) {
      if (desk->closed || opening != desk->opened) return;
      if (status == QMediaPlayer::EndOfMedia) desk->listener.ended();
      if (status == QMediaPlayer::InvalidMedia) desk->listener.failed();
    });
    connect(player_.get(), &QMediaPlayer::positionChanged, this,
            [this](qint64 position) { desk_->position = position; });
    player_->setVideoSink(sink_.get());
    player_->setSource(file_);
  }

  std::shared_ptr<ReelDesk> desk_;
  QUrl file_;
  std::unique_ptr<QVideoSink> sink_;
  std::unique_ptr<QMediaPlayer> player_;
};

MediaPlayer::MediaPlayer(Listener listener)
    : desk_(std::make_shared<ReelDesk>(std::move(listener))), reel_(new Reel(desk_)) {
  // The library sets itself up on this thread, which lives as long as the program.
  const QVideoSink first;
  QThread* thread = StartThread(desk_);
  reel_->moveToThread(thread);
  QObject::connect(reel_, &QObject::destroyed, thread, &QThread::quit, Qt::DirectConnection);
}

MediaPlayer::~MediaPlayer() {
  desk_->closed = true;
  Tell([](Reel& reel) { reel.Leave(); });
}

std::int64_t MediaPlayer::Position() const { return desk_->position; }

template <typename Operation>
void MediaPlayer::Tell(Operation operation) {
  QMetaObject::invokeMethod(
      reel_, [reel = reel_, operation] { operation(*reel); }, Qt::QueuedConnection);
}

void MediaPlayer::Load(const std::string& hostPath) {
  // Always a file of this machine, however its name looks.
  Tell([file = QUrl::fromLocalFile(QString::fromStdString(hostPath))](Reel& reel) { reel.Load(file); });
}

void MediaPlayer::Play() {
  Tell([](Reel& reel) { reel.Play(); });
}

void MediaPlayer::Stop() {
  Tell([](Reel& reel) { reel.Stop(); });
}

void MediaPlayer::Rewind() {
  Tell([](Reel& reel) { reel.Rewind(); });
}

}  // namespace pnl

extern "C" __attribute__((visibility("default"))) pnl::VideoPlayer* PnlMakeVideoPlayer(
    int version, const pnl::VideoPlayer::Listener* listener) {
  return version == pnl::kVideoPlayerVersion ? new pnl::MediaPlayer(*listener) : nullptr;
}
