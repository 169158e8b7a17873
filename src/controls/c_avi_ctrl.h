// SPDX-License-Identifier: MIT
// CAviCtrl: an area that plays a video a given number of times. It paints the frames itself, so that a capture of the
// window has them, and at the end of the file it starts the player again. Without a player, or with a file that can't
// be decoded, it shows the file's name.
#pragma once

#include <QtGui/QImage>
#include <QtWidgets/QWidget>
#include <memory>
#include <string>

#include "controls/video_player.h"

namespace pnl {

class CAviCtrl : public QWidget {
  Q_OBJECT
  Q_PROPERTY(QString pnlText READ Name)
  Q_PROPERTY(bool pnlPlaying READ IsPlaying)
  Q_PROPERTY(qint64 pnlPosition READ Position)

 public:
  /// make is called when the first file is loaded.
  CAviCtrl(int id, MakeVideoPlayer make, QWidget* parent);
  ~CAviCtrl() override;

  /// Loads a file of this machine and shows nothing of it yet. name is what the area shows if it can't be played.
  void Load(const std::string& hostPath, const QString& name);
  /// Plays the file that many times from the present place on; 0 plays nothing.
  void Play(int times);
  void Stop();
  void Rewind();
  /// Forgets the file and the player.
  void Clear();

  [[nodiscard]] const QString& Name() const { return name_; }
  [[nodiscard]] bool IsPlaying() const { return times_ > 0; }
  /// The place in the video in milliseconds; 0 without one.
  [[nodiscard]] std::int64_t Position() const { return player_ ? player_->Position() : 0; }
  /// The frame that is shown; a null image when there is none.
  [[nodiscard]] const QImage& Frame() const { return frame_; }

 protected:
  void paintEvent(QPaintEvent* event) override;
  void showEvent(QShowEvent* event) override;
  void hideEvent(QHideEvent* event) override;

 private:
  void OnFrame(const QImage& frame);
  void OnEnded();
  void OnFailed();

  const MakeVideoPlayer make_;
  std::unique_ptr<VideoPlayer> player_;
  QString name_;
  QImage frame_;
  int times_ = 0;  // how often the file is still to be played, with the present time
};

}  // namespace pnl
