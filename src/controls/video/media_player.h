// SPDX-License-Identifier: MIT
// The player over the multimedia library. Frames go into a sink and from there to the listener; there is no sound. The
// module's own source: nothing else includes it.
#pragma once

#include <QMediaPlayer>
#include <QVideoSink>

#include "controls/video_player.h"

namespace pnl {

class MediaPlayer final : public VideoPlayer {
 public:
  explicit MediaPlayer(Listener listener);
  ~MediaPlayer() override;

  void Load(const std::string& hostPath) override;
  void Play() override;
  void Stop() override;
  void Rewind() override;
  [[nodiscard]] std::int64_t Position() const override { return player_.position(); }

 private:
  Listener listener_;
  QVideoSink sink_;
  QMediaPlayer player_;
};

}  // namespace pnl
