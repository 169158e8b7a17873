// SPDX-License-Identifier: MIT
// The player over the multimedia library. Frames go into a sink and from there to the listener; there is no sound. The
// module's own source: nothing else includes it.
#pragma once

#include <QMediaPlayer>
#include <QUrl>
#include <QVideoSink>
#include <memory>

#include "controls/video_player.h"

namespace pnl {

class MediaPlayer final : public VideoPlayer {
 public:
  explicit MediaPlayer(Listener listener);

  void Load(const std::string& hostPath) override;
  void Play() override;
  void Stop() override;
  void Rewind() override;
  [[nodiscard]] std::int64_t Position() const override { return player_ ? player_->position() : 0; }

 private:
  /// Opens the file anew, with a player of its own. A player never seeks: that can wait for ever for the player's
  /// threads, and the panel with it. Nor does it stop, because it seeks then.
  void Open();

  Listener listener_;
  QUrl file_;
  int opened_ = 0;  // how often the file was opened; reports of an earlier player don't count
  QVideoSink sink_;
  std::unique_ptr<QMediaPlayer> player_;
};

}  // namespace pnl
