// SPDX-License-Identifier: MIT
// The seam between the tools and the discs of this machine: files by panel path. A panel path keeps its drive letter
// and its backslashes everywhere ("C:\P108\MDIMAN.INI"). Only this seam turns it into a path of this machine. DiscFiles
// works on the real discs.
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

/// What is known about a path: it exists, it doesn't exist, or it is out of reach. Only a file that is known not to
/// exist may be created: a file that is out of reach may come back with its old content.
struct FileInfo {
  bool exists = false;
  bool folder = false;
  /// True when the owner's write permission is set and this process may write. The permission binds the superuser too.
  bool writable = false;
  std::uint64_t size = 0;
  /// True when it can't be found out whether the path exists: the drive isn't mapped, a folder on the way is missing or
  /// can't be searched, a link leads to such a place, or the disc doesn't respond. Never true together with exists.
  bool outOfReach = false;
};

/// A file that is open for reading. A later Replace doesn't change what it reads: it keeps the file that it opened.
class FileReader {
 public:
  virtual ~FileReader() = default;
  /// Reads up to size bytes into buffer. Returns how many were read: 0 at the end, -1 on a failure.
  virtual std::int64_t Read(char* buffer, std::size_t size) = 0;
  /// Moves to that byte. Returns false when it can't be reached; the position then stays as it was.
  virtual bool Seek(std::uint64_t position) = 0;
  virtual std::uint64_t Position() const = 0;
  virtual std::uint64_t Size() const = 0;
};

class Files {
 public:
  virtual ~Files() = default;
  virtual FileInfo Query(TextView panelPath) const = 0;
  /// Opens a file. Returns null when it can't be opened. *status reports how it ended: kNotFound only when the file is
  /// known not to exist; kDenied also when it isn't a regular file, or lacks its owner's read permission (which binds
  /// the superuser too). status may be null.
  virtual std::unique_ptr<FileReader> OpenRead(TextView panelPath, FileStatus* status = nullptr) const = 0;
  /// Whether Replace could start now. Checks the folder, the file's write permission and that the path isn't a folder.
  /// Changes nothing on the disc.
  virtual FileStatus CanReplace(TextView panelPath) const = 0;
  /// Replaces the file whole: a temporary file in the same folder, flushed to the disc, renamed over the old one. On
  /// any failure the old file stays as it was and no temporary file is left. Refuses a file or folder that isn't
  /// writable in the sense of FileInfo.
  virtual FileStatus Replace(TextView panelPath, std::string_view bytes) = 0;
  /// Does the same with a content that comes in pieces. DiscFiles never has the whole content in memory; the default
  /// implementation collects it first.
  virtual FileStatus ReplaceInPieces(TextView panelPath, const PieceSource& next);
  /// Makes a folder and its parents and flushes each to the disc. Returns kOk when the folder exists already. Never
  /// makes a drive's own folder: if that is missing, returns kOutOfReach.
  virtual FileStatus MakeFolder(TextView panelPath) = 0;
  /// The path on this machine. The drive map gives the drive's folder. Each name is matched exactly, else without
  /// regard to case; a name that doesn't exist is kept as it is. Returns nothing when the drive isn't mapped or the
  /// text isn't a panel path.
  virtual std::optional<std::string> HostPath(TextView panelPath) const = 0;
  /// The same files for use by one other thread, with the drives as they are now. Returns null when only this thread
  /// may read them.
  [[nodiscard]] virtual std::unique_ptr<Files> ForAnotherThread() const { return nullptr; }
};

/// The bytes of the whole file. Returns nothing when the file can't be read or is larger than limit bytes.
[[nodiscard]] std::optional<std::string> ReadWhole(const Files& files, TextView panelPath,
                                                   std::uint64_t limit = 1ull << 30);
/// The same for a file that is named by its path on this machine, outside all drives.
[[nodiscard]] std::optional<std::string> ReadHostFile(const std::string& hostPath, std::uint64_t limit);

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
/// The part after the last backslash, slash or drive colon.
[[nodiscard]] TextView FileNameOf(TextView path);
/// The file name without its extension: the part before its last point.
[[nodiscard]] TextView FileTitleOf(TextView path);

}  // namespace pnl
