// SPDX-License-Identifier: MIT
#include "controls/video_player.h"

#include <dlfcn.h>

#include <cstdio>
#include <utility>

#include "base/locate.h"

namespace pnl {
namespace {

std::unique_ptr<VideoPlayer> Refused(const char* why) {
  std::fprintf(stderr, "pnltools: no videos: %s\n", why != nullptr ? why : "unknown failure");
  return nullptr;
}

std::unique_ptr<VideoPlayer> Load(const std::string& path, const VideoPlayer::Listener& listener) {
  void* const module = dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL);
  if (module == nullptr) return Refused(dlerror());
  const auto make = reinterpret_cast<MakeVideoPlayerFn>(dlsym(module, kVideoPlayerMaker));
  std::unique_ptr<VideoPlayer> player(make != nullptr ? make(kVideoPlayerVersion, &listener) : nullptr);
  // Never closed: the libraries that it brings have threads and types of their own.
  return player ? std::move(player) : Refused("the module is of another version, or its player can't start");
}

}  // namespace

MakeVideoPlayer VideoPlayerFrom(std::string modulePath) {
  return [path = std::move(modulePath)](const VideoPlayer::Listener& listener) { return Load(path, listener); };
}

std::string VideoModuleBesideLibrary() {
  Dl_info info{};
  if (dladdr(reinterpret_cast<void*>(&VideoModuleBesideLibrary), &info) == 0 || info.dli_fname == nullptr) return {};
  return FolderOf(info.dli_fname) + "/pnl-video.so";
}

}  // namespace pnl
