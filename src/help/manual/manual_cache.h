// SPDX-License-Identifier: MIT
// The unpacked manuals of this machine. A manual is unpacked once and found again by its path, size and time of change;
// the ones that were opened longest ago are thrown away above a limit. ManualCache works on the thread that calls it,
// ManualOpener on the worker. Several panels may use one cache folder at the same time.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>

#include "help/manual/manual.h"
#include "help/manual/manual_extractor.h"
#include "window/worker.h"

namespace pnl {

enum class ManualState {
  kWhole,
  kDamaged,    // there is a manual, with what could be unpacked
  kUnusable,   // nothing could be unpacked, or it took too long
  kMissing,    // there is no such file, or it can't be read
  kNoProgram,  // this machine has nothing that unpacks manuals
  kNoRoom,     // the cache folder can't be used
  kCancelled,
};

struct OpenedManual {
  ManualState state = ManualState::kMissing;
  std::shared_ptr<const Manual> manual;  // null unless kWhole or kDamaged
};

class ManualCache {
 public:
  struct Limits {
    std::uint64_t bytes = 600'000'000;
    std::size_t manuals = 24;
  };

  ManualCache(std::string folder, std::shared_ptr<const ManualExtractor> extractor)
      : ManualCache(std::move(folder), std::move(extractor), Limits()) {}
  ManualCache(std::string folder, std::shared_ptr<const ManualExtractor> extractor, Limits limits)
      : folder_(std::move(folder)), extractor_(std::move(extractor)), limits_(limits) {}

  /// Opens the manual at a path of this machine. Unpacks it first if the cache doesn't have it as it is now. May take
  /// long; any thread may call it.
  [[nodiscard]] OpenedManual Open(const std::string& manual, const std::function<bool()>& isCancelled) const;
  /// The folder in which the manual is or would be unpacked; empty when there is no such file.
  [[nodiscard]] std::string FolderOf(const std::string& manual) const;

 private:
  [[nodiscard]] OpenedManual Unpack(const std::string& manual, const std::string& folder,
                                    const std::function<bool()>& isCancelled) const;
  /// Throws away what is above the limits, but not the folder keep, and what ended processes left.
  void Trim(const std::string& keep) const;

  std::string folder_;
  std::shared_ptr<const ManualExtractor> extractor_;
  Limits limits_;
};

/// The folder of the cache: "<cacheHome>/pnltools/manuals", without an absolute cacheHome below "<home>/.cache", and
/// without both empty. Either text may be null.
[[nodiscard]] std::string ManualCacheFolder(const char* cacheHome, const char* home);

/// Opens manuals beside the window's thread, one at a time. Used on that thread.
class ManualOpener {
 public:
  ManualOpener(Worker& worker, std::shared_ptr<const ManualCache> cache) : worker_(worker), cache_(std::move(cache)) {}
  ~ManualOpener() { Drop(); }
  ManualOpener(const ManualOpener&) = delete;
  ManualOpener& operator=(const ManualOpener&) = delete;

  /// Opens the manual and calls done on the window's thread, in an event of its own or, with a worker that runs jobs at
  /// once, before Open returns. Drops what was asked for before. Returns false when nothing can be started.
  [[nodiscard]] bool Open(std::string manual, std::function<void(const OpenedManual&)> done);
  /// The answer that is under way doesn't come any more.
  void Drop();

 private:
  Worker& worker_;
  std::shared_ptr<const ManualCache> cache_;
  JobId job_ = 0;
};

}  // namespace pnl
