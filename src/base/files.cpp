// SPDX-License-Identifier: MIT
#include "base/files.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <climits>

#include "base/descriptor.h"
#include "base/panel_path.h"
#include "base/replace_file.h"

namespace pnl {
namespace {

/// A drive's own place is a folder even while its disc is missing: no file may take that name.
bool IsDriveRoot(TextView panelPath) {
  const auto path = ParsePanelPath(panelPath);
  return path && path->names.empty();
}

bool HasEntry(const std::string& path) {
  struct stat info {};
  return lstat(path.c_str(), &info) == 0;
}

std::string Under(const std::string& folder, const std::string& name) {
  return folder.back() == '/' ? folder + name : folder + "/" + name;
}

/// The name in the folder that equals this one but for case; of several the first in byte order, so that the choice
/// doesn't hang on the disc's own order.
std::optional<std::string> MatchNoCase(const std::string& folder, const Text& name) {
  const std::unique_ptr<DIR, int (*)(DIR*)> names(opendir(folder.c_str()), closedir);
  if (!names) return std::nullopt;
  std::optional<std::string> best;
  while (const dirent* entry = readdir(names.get())) {
    const std::string_view found = entry->d_name;
    if (EqualNoCase(FromUtf8(found), name) && (!best || found < *best)) best = found;
  }
  return best;
}

class DiscReader final : public FileReader {
 public:
  DiscReader(Descriptor file, std::uint64_t size) : file_(std::move(file)), size_(size) {}

  std::int64_t Read(char* buffer, std::size_t size) override {
    for (;;) {
      const ssize_t got = read(file_.Get(), buffer, std::min<std::size_t>(size, SSIZE_MAX));
      if (got < 0 && errno == EINTR) continue;
      if (got > 0) position_ += static_cast<std::uint64_t>(got);
      return got;
    }
  }
  bool Seek(std::uint64_t position) override {
    if (position > Size() || lseek(file_.Get(), static_cast<off_t>(position), SEEK_SET) < 0) return false;
    position_ = position;
    return true;
  }
  std::uint64_t Position() const override { return position_; }
  std::uint64_t Size() const override { return size_; }

 private:
  Descriptor file_;
  std::uint64_t size_;
  std::uint64_t position_ = 0;
};

struct OpenedFile {
  FileStatus status = FileStatus::kFailed;
  Descriptor file;
  std::uint64_t size = 0;
};

/// A regular file that its owner may read. Anything else (a pipe, a device) is refused before it is opened, because
/// opening alone could wait for ever or do something to the device.
FileStatus CheckReadable(const struct stat& info) {
  if (S_ISDIR(info.st_mode)) return FileStatus::kIsFolder;
  return S_ISREG(info.st_mode) && (info.st_mode & S_IRUSR) != 0 ? FileStatus::kOk : FileStatus::kDenied;
}

OpenedFile OpenRegular(const std::string& path) {
  struct stat info {};
  if (stat(path.c_str(), &info) != 0) return {StatusOfError(errno), {}, 0};
  if (const FileStatus status = CheckReadable(info); status != FileStatus::kOk) return {status, {}, 0};
  Descriptor file(open(path.c_str(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC));
  if (!file) return {StatusOfError(errno), {}, 0};
  // Somebody may have put another thing in its place meanwhile.
  if (fstat(file.Get(), &info) != 0) return {StatusOfError(errno), {}, 0};
  const FileStatus status = CheckReadable(info);
  return {status, std::move(file), static_cast<std::uint64_t>(info.st_size)};
}

}  // namespace

std::optional<std::string> DiscFiles::HostPath(TextView panelPath) const {
  const auto path = ParsePanelPath(panelPath);
  if (!path) return std::nullopt;
  const auto root = drives_.Folder(path->drive);
  if (!root) return std::nullopt;
  std::string host = *root;
  bool exists = true;
  for (const Text& name : path->names) {
    std::string next = Under(host, ToUtf8(name));
    if (exists && !HasEntry(next)) {
      const auto match = MatchNoCase(host, name);
      exists = match.has_value();
      if (exists) next = Under(host, *match);
    }
    host = std::move(next);
  }
  return host;
}

FileInfo DiscFiles::Query(TextView panelPath) const {
  const auto host = HostPath(panelPath);
  struct stat info {};
  if (!host || stat(host->c_str(), &info) != 0) return {};
  return {true, S_ISDIR(info.st_mode), IsWritable(*host, info.st_mode), static_cast<std::uint64_t>(info.st_size)};
}

std::unique_ptr<FileReader> DiscFiles::OpenRead(TextView panelPath, FileStatus* status) const {
  const auto host = HostPath(panelPath);
  OpenedFile opened = host ? OpenRegular(*host) : OpenedFile{FileStatus::kNotFound, {}, 0};
  if (status != nullptr) *status = opened.status;
  if (opened.status != FileStatus::kOk) return nullptr;
  return std::make_unique<DiscReader>(std::move(opened.file), opened.size);
}

FileStatus DiscFiles::CanReplace(TextView panelPath) const {
  const auto host = HostPath(panelPath);
  if (!host) return FileStatus::kNotFound;
  return IsDriveRoot(panelPath) ? FileStatus::kIsFolder : CheckReplace(*host);
}

FileStatus DiscFiles::Replace(TextView panelPath, std::string_view bytes) {
  const auto host = HostPath(panelPath);
  if (!host) return FileStatus::kNotFound;
  return IsDriveRoot(panelPath) ? FileStatus::kIsFolder : ReplaceFile(*host, bytes);
}

FileStatus DiscFiles::MakeFolder(TextView panelPath) {
  const auto host = HostPath(panelPath);
  if (!host) return FileStatus::kNotFound;
  const std::string root = *drives_.Folder(ParsePanelPath(panelPath)->drive);
  std::size_t end = root.size();
  for (;;) {
    const std::string folder = host->substr(0, end);
    struct stat info {};
    if (stat(folder.c_str(), &info) == 0) {
      if (!S_ISDIR(info.st_mode)) return FileStatus::kFailed;
    } else {
      // A drive's own folder is never made: its disc may be missing.
      if (errno != ENOENT || end == root.size()) return StatusOfError(errno);
      const std::string parent = folder.substr(0, std::max<std::size_t>(folder.rfind('/'), 1));
      if (stat(parent.c_str(), &info) != 0) return StatusOfError(errno);
      if (!IsWritable(parent, info.st_mode)) return FileStatus::kDenied;
      if (mkdir(folder.c_str(), 0777) != 0 && errno != EEXIST) return StatusOfError(errno);
    }
    if (end >= host->size()) return FileStatus::kOk;
    end = std::min(host->find('/', end + 1), host->size());
  }
}

std::optional<std::string> ReadWhole(const Files& files, TextView panelPath, std::uint64_t limit) {
  limit = std::min<std::uint64_t>(limit, 1ull << 40);
  const auto reader = files.OpenRead(panelPath);
  if (!reader || reader->Size() > limit) return std::nullopt;
  std::string bytes;
  std::size_t used = 0;
  // One byte more than the file had, so that the end is met without growing; a file that grows meanwhile is followed up
  // to the limit.
  std::uint64_t room = std::min(reader->Size(), limit) + 1;
  for (;;) {
    bytes.resize(static_cast<std::size_t>(room));
    const std::int64_t got = reader->Read(bytes.data() + used, bytes.size() - used);
    if (got < 0) return std::nullopt;
    used += static_cast<std::size_t>(got);
    if (used > limit) return std::nullopt;
    if (got == 0) break;
    if (used == bytes.size()) room = std::min(std::max<std::uint64_t>(room * 2, 4096), limit + 1);
  }
  bytes.resize(used);
  return bytes;
}

namespace {

struct DrivesOfItsOwn {
  DriveMap drives;
};

/// Disc files over a copy of the drive map.
class CopiedDiscFiles final : private DrivesOfItsOwn, public DiscFiles {
 public:
  explicit CopiedDiscFiles(const DriveMap& original) : DrivesOfItsOwn{original}, DiscFiles(drives) {}
};

}  // namespace

std::unique_ptr<Files> DiscFiles::ForAnotherThread() const { return std::make_unique<CopiedDiscFiles>(drives_); }

}  // namespace pnl
