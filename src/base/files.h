// SPDX-License-Identifier: MIT
// Files by panel path: the seam between the tools and the discs of this machine. A panel path keeps its drive letter
// and its backslashes everywhere ("C:\P108\MDIMAN.INI"); only here does it become a path of this machine. DiscFiles is
// the real thing, FailingFiles a decorator that fails what it is told to.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/drive_map.h"
#include "base/file_status.h"
#include "base/text.h"

namespace pnl {

struct Located;

/// What is known of a path: it exists, it doesn't, or it is out of reach. Only what is known not to exist may be made
/// afresh. What was out of reach may come back with all that it holds.
struct FileInfo {
  bool exists = false;
  bool folder = false;
  /// False for a file or folder without its owner's write permission, for the superuser too.
  bool writable = false;
  std::uint64_t size = 0;
  /// Nobody can say whether it exists: the drive isn't mapped, a folder on the way is missing or can't be looked
  /// through, a link leads to such a place, the disc doesn't answer. Never together with exists.
  bool outOfReach = false;
};

/// An open file being read. Reads never see a later change by Replace: they keep the file they opened.
class FileReader {
 public:
  virtual ~FileReader() = default;
  /// Bytes read into buffer; 0 at the end, -1 on a failure.
  virtual std::int64_t Read(char* buffer, std::size_t size) = 0;
  /// False when the position can't be reached; the place then stays as it was.
  virtual bool Seek(std::uint64_t position) = 0;
  virtual std::uint64_t Position() const = 0;
  virtual std::uint64_t Size() const = 0;
};

class Files {
 public:
  virtual ~Files() = default;
  virtual FileInfo Query(TextView panelPath) const = 0;
  /// Null with *status set when it can't be opened: kNotFound only for what is known not to exist; kDenied also for
  /// what is no regular file and for a file without its owner's read permission, for the superuser too. status may be
  /// null.
  virtual std::unique_ptr<FileReader> OpenRead(TextView panelPath, FileStatus* status = nullptr) const = 0;
  /// Could Replace start now? Checks the folder, the file's write permission and that the path is no folder; changes
  /// nothing on the disc.
  virtual FileStatus CanReplace(TextView panelPath) const = 0;
  /// Replaces the file whole: a temporary file in the same folder, flushed to the disc, renamed over the old one. On
  /// any failure the old file stays as it was and no temporary file is left. Refuses a file or folder that isn't
  /// writable in the sense of FileInfo.
  virtual FileStatus Replace(TextView panelPath, std::string_view bytes) = 0;
  /// The same with a content that is never in memory whole, where these files can do that.
  virtual FileStatus ReplaceInPieces(TextView panelPath, const PieceSource& next);
  /// Makes a folder and its parents, each flushed to the disc; kOk when it is there already. Never makes a drive's own
  /// folder: kOutOfReach.
  virtual FileStatus MakeFolder(TextView panelPath) = 0;
  /// The path on this machine: drive by the drive map, each name by exact match, else without regard to case; names
  /// that don't exist are kept as they are. Nothing when the drive isn't mapped or the path can't be one.
  virtual std::optional<std::string> HostPath(TextView panelPath) const = 0;
  /// The same files for one other thread, as the drives are now; null when only this thread may read them.
  [[nodiscard]] virtual std::unique_ptr<Files> ForAnotherThread() const { return nullptr; }
};

/// The whole file; nothing when it can't be read or is larger than limit.
[[nodiscard]] std::optional<std::string> ReadWhole(const Files& files, TextView panelPath,
                                                   std::uint64_t limit = 1ull << 30);

class DiscFiles : public Files {
 public:
  explicit DiscFiles(const DriveMap& drives) : drives_(drives) {}
  FileInfo Query(TextView panelPath) const override;
  std::unique_ptr<FileReader> OpenRead(TextView panelPath, FileStatus* status) const override;
  FileStatus CanReplace(TextView panelPath) const override;
  FileStatus Replace(TextView panelPath, std::string_view bytes) override;
  FileStatus ReplaceInPieces(TextView panelPath, const PieceSource& next) override;
  FileStatus MakeFolder(TextView panelPath) override;
  std::optional<std::string> HostPath(TextView panelPath) const override;
  std::unique_ptr<Files> ForAnotherThread() const override;

 private:
  [[nodiscard]] std::optional<Located> Find(TextView panelPath) const;
  const DriveMap& drives_;
};

/// Joins with one backslash: "C:\P1" and "a.txt" give "C:\P1\a.txt".
[[nodiscard]] Text JoinPath(TextView folder, TextView name);
/// What is behind the last backslash, slash or drive colon.
[[nodiscard]] TextView FileNameOf(TextView path);
/// The file name without its extension (what stands before its last point).
[[nodiscard]] TextView FileTitleOf(TextView path);

}  // namespace pnl
