// SPDX-License-Identifier: MIT
#include "help/manual/leftovers.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <filesystem>
#include <string_view>
#include <vector>

namespace pnl {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view kEnding = ".part";

/// A path that no other process and no other call uses.
std::string NextPart(const std::string& folder) {
  static std::atomic<unsigned> count{0};
  return folder + "." + std::to_string(getpid()) + "-" + std::to_string(count++) + std::string(kEnding);
}

/// Opens and locks a folder. Returns nothing when another process has it.
Descriptor Lock(const std::string& folder) {
  Descriptor handle(open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
  if (handle && flock(handle.Get(), LOCK_EX | LOCK_NB) != 0) return Descriptor();
  return handle;
}

void RemoveTree(const std::string& folder) {
  std::error_code ignored;
  fs::remove_all(folder, ignored);
}

}  // namespace

std::optional<PartFolder> MakePart(const std::string& folder) {
  for (int attempt = 0; attempt < 100; ++attempt) {
    PartFolder part;
    part.path = NextPart(folder);
    if (mkdir(part.path.c_str(), 0700) != 0) {
      if (errno == EEXIST) continue;
      return std::nullopt;
    }
    part.lock = Lock(part.path);
    // Somebody who cleans up may have seen it before it was locked.
    struct stat info {};
    if (part.lock && stat(part.path.c_str(), &info) == 0) return part;
  }
  return std::nullopt;
}

bool IsLeftover(const std::string& path) { return std::string_view(path).ends_with(kEnding); }

void RemoveWhole(const std::string& folder) {
  const std::string away = NextPart(folder);
  if (rename(folder.c_str(), away.c_str()) == 0) RemoveTree(away);
}

void RemoveLeftovers(const std::string& cacheFolder) {
  std::vector<std::string> paths;
  std::error_code ignored;
  for (const auto& entry : fs::directory_iterator(cacheFolder, ignored)) {
    if (IsLeftover(entry.path().string())) paths.push_back(entry.path().string());
  }
  for (const std::string& path : paths) {
    if (const Descriptor lock = Lock(path)) RemoveTree(path);
  }
}

}  // namespace pnl
