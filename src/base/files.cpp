// SPDX-License-Identifier: MIT
#include "base/files.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <climits>

#include "base/descriptor.h"
#include "base/locate.h"
#include "base/panel_path.h"
#include "base/replace_file.h"

namespace pnl {
namespace {

FileStatus CheckTarget(TextView panelPath, const std::optional<Located>& found) {
  if (!found) return FileStatus::kOutOfReach;
  // A drive's root is a folder even while its disc is missing, so no file may take that name.
  if (ParsePanelPath(panelPath)->names.empty()) return FileStatus::kIsFolder;
  return found->presence == Presence::kOutOfReach ? FileStatus::kOutOfReach : CheckReplace(found->host);
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

/// Returns kOk for a regular file that its owner may read. Anything else (a pipe, a device) is refused before it is
/// opened, because opening alone could block for ever or have an effect on the device.
FileStatus CheckReadable(const struct stat& info) {
  if (S_ISDIR(info.st_mode)) return FileStatus::kIsFolder;
  return S_ISREG(info.st_mode) && (info.st_mode & S_IRUSR) != 0 ? FileStatus::kOk : FileStatus::kDenied;
}

OpenedFile OpenRegular(const Located& found) {
  if (found.presence == Presence::kOutOfReach) return {FileStatus::kOutOfReach, {}, 0};
  if (found.presence == Presence::kAbsent) return {FileStatus::kNotFound, {}, 0};
  if (const FileStatus status = CheckReadable(found.info); status != FileStatus::kOk) return {status, {}, 0};
  Descriptor file(open(found.host.c_str(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC));
  if (!file) return {StatusOfError(errno), {}, 0};
  // Something else may have been put in its place since the check.
  struct stat info {};
  if (fstat(file.Get(), &info) != 0) return {StatusOfError(errno), {}, 0};
  const FileStatus status = CheckReadable(info);
  return {status, std::move(file), static_cast<std::uint64_t>(info.st_size)};
}

}  // namespace

std::optional<Located> DiscFiles::Find(TextView panelPath) const {
  const auto path = ParsePanelPath(panelPath);
  if (!path) return std::nullopt;
  const auto root = drives_.Folder(path->drive);
  if (!root) return std::nullopt;
  return Locate(*root, path->names);
}

std::optional<std::string> DiscFiles::HostPath(TextView panelPath) const {
  auto found = Find(panelPath);
  if (!found) return std::nullopt;
  return std::move(found->host);
}

FileInfo DiscFiles::Query(TextView panelPath) const {
  FileInfo answer;
  const Located found = Find(panelPath).value_or(Located{});
  answer.outOfReach = found.presence == Presence::kOutOfReach;
  if (found.presence != Presence::kThere) return answer;
  answer.exists = true;
  answer.folder = S_ISDIR(found.info.st_mode);
  answer.writable = IsWritable(found.host, found.info.st_mode);
  answer.size = static_cast<std::uint64_t>(found.info.st_size);
  return answer;
}

std::unique_ptr<FileReader> DiscFiles::OpenRead(TextView panelPath, FileStatus* status) const {
  OpenedFile opened = OpenRegular(Find(panelPath).value_or(Located{}));
  if (status != nullptr) *status = opened.status;
  if (opened.status != FileStatus::kOk) return nullptr;
  return std::make_unique<DiscReader>(std::move(opened.file), opened.size);
}

FileStatus DiscFiles::CanReplace(TextView panelPath) const { return CheckTarget(panelPath, Find(panelPath)); }

FileStatus DiscFiles::Replace(TextView panelPath, std::string_view bytes) {
  return ReplaceInPieces(panelPath, OnePiece(bytes));
}

FileStatus DiscFiles::ReplaceInPieces(TextView panelPath, const PieceSource& next) {
  const auto found = Find(panelPath);
  const FileStatus status = CheckTarget(panelPath, found);
  return status == FileStatus::kOk ? ReplaceFile(found->host, next) : status;
}

FileStatus DiscFiles::MakeFolder(TextView panelPath) {
  const auto found = Find(panelPath);
  if (!found) return FileStatus::kOutOfReach;
  return MakeFolders(*drives_.Folder(ParsePanelPath(panelPath)->drive), found->host);
}

FileStatus Files::ReplaceInPieces(TextView panelPath, const PieceSource& next) {
  std::string bytes;
  for (std::string_view piece = next(); !piece.empty(); piece = next()) bytes += piece;
  return Replace(panelPath, bytes);
}

std::optional<std::string> ReadWhole(const Files& files, TextView panelPath, std::uint64_t limit) {
  limit = std::min<std::uint64_t>(limit, 1ull << 40);
  const auto reader = files.OpenRead(panelPath);
  if (!reader || reader->Size() > limit) return std::nullopt;
  std::string bytes;
  std::size_t used = 0;
  // One byte more than the file had, so that the read which finds the end needs no larger buffer. A file that grows
  // meanwhile is read up to the limit.
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

std::optional<std::string> ReadHostFile(const std::string& hostPath, std::uint64_t limit) {
  // A drive of the file's own folder brings the checks of DiscFiles.
  DriveMap drives;
  drives.Set('C', FolderOf(hostPath));
  return ReadWhole(DiscFiles(drives), u"C:\\" + FromUtf8(hostPath.substr(hostPath.rfind('/') + 1)), limit);
}

namespace {

struct OwnDrives {
  DriveMap drives;
};

/// Disc files with a copy of the drive map of their own.
class CopiedDiscFiles final : private OwnDrives, public DiscFiles {
 public:
  explicit CopiedDiscFiles(const DriveMap& original) : OwnDrives{original}, DiscFiles(drives) {}
};

}  // namespace

std::unique_ptr<Files> DiscFiles::ForAnotherThread() const { return std::make_unique<CopiedDiscFiles>(drives_); }

}  // namespace pnl
