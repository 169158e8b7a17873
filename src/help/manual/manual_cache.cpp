// SPDX-License-Identifier: MIT
#include "help/manual/manual_cache.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <optional>
#include <string_view>
#include <utility>
#include <vector>

#include "base/files.h"
#include "help/manual/leftovers.h"

namespace pnl {
namespace {

namespace fs = std::filesystem;

/// What identifies a manual as it is now; nothing when there is no such file or it can't be read.
std::optional<std::string> KeyOf(const std::string& manual) {
  struct stat info {};
  if (stat(manual.c_str(), &info) != 0 || !S_ISREG(info.st_mode) || access(manual.c_str(), R_OK) != 0) {
    return std::nullopt;
  }
  std::uint64_t hash = 14695981039346656037u;
  for (const char c : manual) hash = (hash ^ static_cast<unsigned char>(c)) * 1099511628211u;
  char key[128];
  std::snprintf(key, sizeof key, "%016llx-%llx-%llx-%lx", static_cast<unsigned long long>(hash),
                static_cast<unsigned long long>(info.st_size), static_cast<unsigned long long>(info.st_mtim.tv_sec),
                static_cast<unsigned long>(info.st_mtim.tv_nsec));
  return key;
}

/// Notes that the manual was opened now. Without the note only the order in which manuals are thrown away suffers.
void NoteUse(const std::string& folder) {
  static_cast<void>(utimensat(AT_FDCWD, folder.c_str(), nullptr, AT_SYMLINK_NOFOLLOW));
}

OpenedManual Opened(std::shared_ptr<const Manual> manual) {
  const ManualState state = manual->IsDamaged() ? ManualState::kDamaged : ManualState::kWhole;
  return {state, std::move(manual)};
}

ManualState StateOf(Extraction extraction) {
  switch (extraction) {
    case Extraction::kNoProgram:
      return ManualState::kNoProgram;
    case Extraction::kNoRoom:
      return ManualState::kNoRoom;
    case Extraction::kCancelled:
      return ManualState::kCancelled;
    default:
      return ManualState::kUnusable;
  }
}

/// A manual in the cache.
struct Kept {
  std::string folder;
  std::uint64_t bytes = 0;
  timespec used{};

  friend bool operator<(const Kept& a, const Kept& b) {
    return std::pair(a.used.tv_sec, a.used.tv_nsec) > std::pair(b.used.tv_sec, b.used.tv_nsec);
  }
};

/// The manuals in the folder, the ones that were opened last first.
std::vector<Kept> KeptIn(const std::string& folder) {
  std::vector<Kept> all;
  std::error_code ignored;
  for (const auto& entry : fs::directory_iterator(folder, ignored)) {
    struct stat info {};
    const std::string path = entry.path().string();
    if (IsLeftover(path) || lstat(path.c_str(), &info) != 0 || !S_ISDIR(info.st_mode)) continue;
    const auto bytes = ReadHostFile(path + "/" + ManualListing::kFile, ManualListing::kMostBytes);
    const auto listing = bytes ? ReadManualListing(*bytes) : std::nullopt;
    // A folder without a listing isn't ours.
    if (listing) all.push_back({path, listing->bytes, info.st_mtim});
  }
  std::sort(all.begin(), all.end());
  return all;
}

}  // namespace

std::string ManualCache::FolderOf(const std::string& manual) const {
  const auto key = KeyOf(manual);
  return key && !folder_.empty() ? folder_ + "/" + *key : std::string();
}

OpenedManual ManualCache::Open(const std::string& manual, const std::function<bool()>& isCancelled) const {
  if (!KeyOf(manual)) return {ManualState::kMissing, nullptr};
  const std::string folder = FolderOf(manual);
  if (folder.empty()) return {ManualState::kNoRoom, nullptr};
  auto kept = Manual::Load(folder);
  if (!kept || !kept->IsComplete()) return Unpack(manual, folder, isCancelled);
  NoteUse(folder);
  return Opened(std::move(kept));
}

OpenedManual ManualCache::Unpack(const std::string& manual, const std::string& folder,
                                 const std::function<bool()>& isCancelled) const {
  std::error_code problem;
  fs::create_directories(folder_, problem);
  if (problem) return {ManualState::kNoRoom, nullptr};
  RemoveWhole(folder);
  const Extraction extraction = extractor_->Extract(manual, folder, isCancelled);
  Trim(folder);
  if (extraction != Extraction::kDone) return {StateOf(extraction), nullptr};
  auto unpacked = Manual::Load(folder);
  if (!unpacked) return {ManualState::kUnusable, nullptr};
  return Opened(std::move(unpacked));
}

void ManualCache::Trim(const std::string& keep) const {
  RemoveLeftovers(folder_);
  std::uint64_t bytes = 0;
  std::size_t count = 0;
  std::vector<Kept> all = KeptIn(folder_);
  // Times are coarse: the one that was opened just now may seem as old as others.
  std::stable_partition(all.begin(), all.end(), [&keep](const Kept& kept) { return kept.folder == keep; });
  for (const Kept& kept : all) {
    bytes += kept.bytes;
    ++count;
    if (kept.folder != keep && (bytes > limits_.bytes || count > limits_.manuals)) RemoveWhole(kept.folder);
  }
}

std::string ManualCacheFolder(const char* cacheHome, const char* home) {
  const std::string_view cache = cacheHome != nullptr ? cacheHome : "";
  if (cache.starts_with('/')) return std::string(cache) + "/pnltools/manuals";
  const std::string_view own = home != nullptr ? home : "";
  return own.starts_with('/') ? std::string(own) + "/.cache/pnltools/manuals" : std::string();
}

bool ManualOpener::Open(std::string manual, std::function<void(const OpenedManual&)> done) {
  Drop();
  job_ = worker_.Start([cache = cache_, manual = std::move(manual), done = std::move(done)](Job& job) {
    OpenedManual opened = cache->Open(manual, [&job] { return job.IsCancelled(); });
    job.Post([opened = std::move(opened), done] { done(opened); });
  });
  return job_ != 0;
}

void ManualOpener::Drop() { worker_.Cancel(std::exchange(job_, 0)); }

}  // namespace pnl
