// SPDX-License-Identifier: MIT
// The player over the multimedia library. Frames go into a sink and from there to the listener; there is no sound. The
// module's own source: nothing else includes it.
#pragma once

#include <memory>

#include "controls/video_player.h"

namespace pnl {

class Reel;
struct ReelDesk;

/// Plays on a thread of its own, because the multimedia library can wait for ever for its own threads when a video is
/// opened, rewound or left. The window's thread never waits for that thread.
class MediaPlayer final : public VideoPlayer {
 public:
  explicit MediaPlayer(Listener listener);
  ~MediaPlayer() override;
  MediaPlayer(const MediaPlayer&) = delete;
  MediaPlayer& operator=(const MediaPlayer&) = delete;

  void Load(const std::string& hostPath) override;
  void Play() override;
  void Stop() override;
  void Rewind() override;
  [[nodiscard]] std::int64_t Position() const override;

 private:
  template <typename Operation>
  void Tell(Operation operation);

  std::shared_ptr<ReelDesk> desk_;
  Reel* reel_;  // lives on its own thread, which ends after it
};

}  // namespace pnl
