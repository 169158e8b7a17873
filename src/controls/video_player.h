// SPDX-License-Identifier: MIT
// The seam to whatever decodes videos. The real player is in a module of its own (controls/video), because it brings
// many libraries; CAviCtrl loads it when the first video is shown. The tests have a fake one.
#pragma once

#include <QtGui/QImage>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>

namespace pnl {

/// Plays one file. Everything happens on the window's thread.
class VideoPlayer {
 public:
  /// What the player reports, never inside a call of one of its operations.
  struct Listener {
    std::function<void(const QImage&)> frame;
    std::function<void()> ended;   // the last frame was shown
    std::function<void()> failed;  // the file can't be opened or decoded
  };

  virtual ~VideoPlayer() = default;
  /// Opens a file of this machine, at its beginning.
  virtual void Load(const std::string& hostPath) = 0;
  virtual void Play() = 0;
  /// Keeps the place in the file.
  virtual void Stop() = 0;
  virtual void Rewind() = 0;
  /// The place in the file in milliseconds; 0 before the first frame.
  [[nodiscard]] virtual std::int64_t Position() const = 0;
};

using MakeVideoPlayer = std::function<std::unique_ptr<VideoPlayer>(VideoPlayer::Listener)>;

/// The function of that name in the module. The caller owns the player. Returns null for another version.
inline constexpr const char* kVideoPlayerMaker = "PnlMakeVideoPlayer";
inline constexpr int kVideoPlayerVersion = 2;
using MakeVideoPlayerFn = VideoPlayer* (*)(int version, const VideoPlayer::Listener* listener);

/// A maker that loads the module at that path. It returns null, and prints why to standard error, when the module or a
/// library that it needs is missing. A loaded module stays for the life of the process.
[[nodiscard]] MakeVideoPlayer VideoPlayerFrom(std::string modulePath);
/// The module beside the library that contains this function.
[[nodiscard]] std::string VideoModuleBesideLibrary();

}  // namespace pnl
