// SPDX-License-Identifier: MIT
#include "base/replace_file.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <cerrno>
#include <climits>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <optional>
#include <utility>

#include "base/descriptor.h"
#include "base/locate.h"

namespace pnl {
namespace {

/// The start of the name of every temporary file of one target. It contains a hash of the target's name, because the
/// name itself might be too long to add to.
std::string TemporaryPrefix(const std::string& path) {
  std::uint64_t hash = 14695981039346656037u;
  for (const char c : path.substr(path.rfind('/') + 1)) hash = (hash ^ static_cast<unsigned char>(c)) * 1099511628211u;
  std::array<char, 32> text{};
  std::snprintf(text.data(), text.size(), ".pnl-%016llx-", static_cast<unsigned long long>(hash));
  return text.data();
}

std::string NextSuffix() {
  static std::atomic<unsigned> count{0};
  return std::to_string(getpid()) + "-" + std::to_string(count++) + ".tmp";
}

/// Removes the temporary files that killed writers of the same file left. A living writer, in this process or another,
/// holds a lock on its temporary file, and its death releases the lock. So a living writer, however slow, loses
/// nothing.
void RemoveLeftovers(const std::string& folder, const std::string& prefix) {
  const std::unique_ptr<DIR, int (*)(DIR*)> names(opendir(folder.c_str()), closedir);
  if (!names) return;
  while (const dirent* entry = readdir(names.get())) {
    const std::string_view name = entry->d_name;
    if (name.substr(0, prefix.size()) != prefix) continue;
    const std::string path = folder + "/" + std::string(name);
    const Descriptor file(open(path.c_str(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC));
    if (file && flock(file.Get(), LOCK_EX | LOCK_NB) == 0) unlink(path.c_str());
  }
}

/// The file that is written beside its target. The destructor removes it unless it has been renamed.
class Temporary {
 public:
  Temporary(std::string folder, const std::string& prefix) : folder_(std::move(folder)), prefix_(prefix) {}
  ~Temporary() {
    if (!path_.empty()) unlink(path_.c_str());
  }
  Temporary(const Temporary&) = delete;
  Temporary& operator=(const Temporary&) = delete;

  /// Makes and locks the file. Returns 0 or an errno.
  int Create(mode_t mode) {
    for (int attempt = 0; attempt < 100; ++attempt) {
      const std::string path = folder_ + "/" + prefix_ + NextSuffix();
      file_ = Descriptor(open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, mode));
      if (!file_ && (errno == EEXIST || errno == EINTR)) continue;
      if (!file_) return errno;
      path_ = path;
      if (OwnsItsName()) return 0;
      path_.clear();
    }
    return EEXIST;
  }

  [[nodiscard]] int Write(const PieceSource& next) const {
    for (std::string_view piece = next(); !piece.empty(); piece = next()) {
      const int error = Write(piece);
      if (error != 0) return error;
    }
    return 0;
  }

  [[nodiscard]] int Write(std::string_view bytes) const {
    while (!bytes.empty()) {
      const ssize_t written = write(file_.Get(), bytes.data(), bytes.size());
      if (written < 0 && errno == EINTR) continue;
      if (written <= 0) return written < 0 ? errno : ENOSPC;
      bytes.remove_prefix(static_cast<std::size_t>(written));
    }
    return 0;
  }

  /// Takes over the old file's owner, as far as this process may set it, and then its mode: a change of owner may clear
  /// bits of the mode.
  [[nodiscard]] int Resemble(const struct stat& old) const {
    if (old.st_uid != geteuid() || old.st_gid != getegid()) {
      const int ignored = fchown(file_.Get(), old.st_uid, old.st_gid);
      static_cast<void>(ignored);
    }
    return fchmod(file_.Get(), old.st_mode & 07777) == 0 ? 0 : errno;
  }

  [[nodiscard]] int Flush() const {
    while (fsync(file_.Get()) != 0) {
      // The file system can't flush, so there is nothing to wait for.
      if (errno == EINVAL || errno == ENOTSUP) return 0;
      if (errno != EINTR) return errno;
    }
    return 0;
  }

  int RenameTo(const std::string& target) {
    if (rename(path_.c_str(), target.c_str()) != 0) return errno;
    path_.clear();
    return 0;
  }

 private:
  /// Locks the new file. Another writer may have taken the file for a leftover before it was locked; then it has lost
  /// its name or is about to, and this returns false.
  [[nodiscard]] bool OwnsItsName() const {
    if (flock(file_.Get(), LOCK_EX | LOCK_NB) != 0) return errno != EWOULDBLOCK;
    struct stat info {};
    return fstat(file_.Get(), &info) == 0 && info.st_nlink > 0;
  }

  std::string folder_;
  std::string prefix_;
  std::string path_;
  Descriptor file_;
};

void FlushFolder(const std::string& folder) {
  // The new file is in place now. If the folder can't be flushed, a power cut may still bring the old file back, whole.
  const Descriptor names(open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  if (names) fsync(names.Get());
}

/// Returns the errno of the first operation that fails; 0 on success.
int WriteAndRename(Temporary& file, const std::optional<struct stat>& old, const PieceSource& next,
                   const std::string& target) {
  int error = file.Create(old ? 0600 : 0666);
  if (error == 0 && old) error = file.Resemble(*old);
  if (error == 0) error = file.Write(next);
  if (error == 0) error = file.Flush();
  return error == 0 ? file.RenameTo(target) : error;
}

}  // namespace

FileStatus StatusOfError(int error) {
  switch (error) {
    case 0:
      return FileStatus::kOk;
    case ENOENT:
      return FileStatus::kNotFound;
    case ENOTDIR:
    case ELOOP:
    case ENODEV:
    case ENXIO:
    case ESTALE:
    case ETIMEDOUT:
    case ENOTCONN:
    case EHOSTDOWN:
    case EHOSTUNREACH:
      return FileStatus::kOutOfReach;
    case EACCES:
    case EPERM:
    case EROFS:
      return FileStatus::kDenied;
    case EISDIR:
      return FileStatus::kIsFolder;
    case ENOSPC:
    case EDQUOT:
    case EFBIG:
      return FileStatus::kDiscFull;
    default:
      return FileStatus::kFailed;
  }
}

bool IsWritable(const std::string& hostPath, unsigned mode) {
  return (mode & S_IWUSR) != 0 && faccessat(AT_FDCWD, hostPath.c_str(), W_OK, AT_EACCESS) == 0;
}

FileStatus CheckReplace(const std::string& hostPath) {
  struct stat info {};
  const std::string target = ThroughLinks(hostPath);
  if (stat(target.c_str(), &info) == 0) {
    if (S_ISDIR(info.st_mode)) return FileStatus::kIsFolder;
    if (!S_ISREG(info.st_mode) || !IsWritable(target, info.st_mode)) return FileStatus::kDenied;
  } else if (errno != ENOENT) {
    return StatusOfError(errno);
  }
  const std::string folder = FolderOf(target);
  if (stat(folder.c_str(), &info) != 0) return errno == ENOENT ? FileStatus::kOutOfReach : StatusOfError(errno);
  return IsWritable(folder, info.st_mode) ? FileStatus::kOk : FileStatus::kDenied;
}

PieceSource OnePiece(std::string_view bytes) {
  return [bytes]() mutable { return std::exchange(bytes, {}); };
}

FileStatus ReplaceFile(const std::string& hostPath, const PieceSource& next) {
  const FileStatus check = CheckReplace(hostPath);
  if (check != FileStatus::kOk) return check;
  const std::string target = ThroughLinks(hostPath);
  const std::string folder = FolderOf(target);
  const std::string prefix = TemporaryPrefix(target);
  RemoveLeftovers(folder, prefix);

  struct stat info {};
  std::optional<struct stat> old;
  if (stat(target.c_str(), &info) == 0) old = info;
  Temporary file(folder, prefix);
  const int error = WriteAndRename(file, old, next, target);
  if (error == 0) FlushFolder(folder);
  return StatusOfError(error);
}

FileStatus ReplaceFile(const std::string& hostPath, std::string_view bytes) {
  return ReplaceFile(hostPath, OnePiece(bytes));
}

FileStatus MakeFolders(const std::string& root, const std::string& hostPath) {
  // The root is never made: its disc may not be mounted.
  struct stat info {};
  if (stat(root.c_str(), &info) != 0) return FileStatus::kOutOfReach;
  if (!S_ISDIR(info.st_mode)) return FileStatus::kFailed;
  for (std::size_t end = root.size(); end < hostPath.size();) {
    const std::string parent = hostPath.substr(0, end);
    end = std::min(hostPath.find('/', end + 1), hostPath.size());
    const std::string folder = hostPath.substr(0, end);
    if (stat(folder.c_str(), &info) == 0) {
      if (!S_ISDIR(info.st_mode)) return FileStatus::kFailed;
      continue;
    }
    if (errno != ENOENT) return StatusOfError(errno);
    if (stat(parent.c_str(), &info) != 0) return StatusOfError(errno);
    if (!IsWritable(parent, info.st_mode)) return FileStatus::kDenied;
    if (mkdir(folder.c_str(), 0777) != 0 && errno != EEXIST) return StatusOfError(errno);
    // Without the flush a power cut could undo the folder, with every file that was flushed into it.
    FlushFolder(parent);
  }
  return FileStatus::kOk;
}

}  // namespace pnl
