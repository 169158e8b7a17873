// SPDX-License-Identifier: MIT
#include "places/host_tree.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <memory>
#include <optional>
#include <string_view>

#include "base/descriptor.h"
#include "base/locate.h"
#include "base/replace_file.h"

namespace pnl {
namespace {

/// The first entries come soon, so that the operator sees something; a large folder then costs few batches.
constexpr std::size_t kFirstBatch = 64;
constexpr std::size_t kLargestBatch = 1024;

struct ErrorRow {
  int error;
  int place;
};

constexpr ErrorRow kErrors[] = {
    {0, place_error::kNone},
    {ENOENT, place_error::kPathNotFound},
    {ENOTDIR, place_error::kNoFolder},
    {EACCES, place_error::kAccessDenied},
    {EPERM, place_error::kAccessDenied},
    {ENOMEDIUM, place_error::kNotReady},
    {EIO, place_error::kNotReady},
    {ETIMEDOUT, place_error::kRemoteNotListening},
    {EHOSTDOWN, place_error::kRemoteNotListening},
};

/// Why a place below root can't be reached. As in base/files, a missing permission of the owner binds the superuser
/// too.
int WhyOutOfReach(const std::string& root, const std::string& host) {
  bool listable = true;
  for (std::size_t end = root.size();;) {
    struct stat info {};
    if (stat(host.substr(0, end).c_str(), &info) != 0) {
      // In a folder that can't be listed, the name may exist in another case.
      return errno == ENOENT && !listable ? place_error::kAccessDenied : PlaceErrorOf(errno);
    }
    if (end == host.size()) return place_error::kAccessDenied;
    if (!S_ISDIR(info.st_mode)) return place_error::kNoFolder;
    if ((info.st_mode & S_IXUSR) == 0) return place_error::kAccessDenied;
    listable = (info.st_mode & S_IRUSR) != 0;
    end = std::min(host.find('/', end + 1), host.size());
  }
}

/// Why the place can't be listed; kNone when it can.
int CheckFolder(const std::string& root, const Located& found) {
  if (found.presence == Presence::kAbsent) return place_error::kPathNotFound;
  if (found.presence == Presence::kOutOfReach) return WhyOutOfReach(root, found.host);
  if (!S_ISDIR(found.info.st_mode)) return place_error::kNoFolder;
  constexpr mode_t kNeeded = S_IRUSR | S_IXUSR;
  return (found.info.st_mode & kNeeded) == kNeeded ? place_error::kNone : place_error::kAccessDenied;
}

/// Describes an entry of the open folder. Returns nothing for one that has gone since its name was read, and for a name
/// that no panel path can contain.
std::optional<PlaceEntry> Describe(int folder, const dirent& found) {
  const std::string_view bytes = found.d_name;
  if (bytes.find('\\') != std::string_view::npos) return std::nullopt;
  PlaceEntry entry;
  entry.name = FromUtf8(bytes);
  entry.dots = bytes == "." || bytes == "..";
  entry.hidden = bytes[0] == '.' && !entry.dots;
  entry.folder = found.d_type == DT_DIR;
  struct stat info {};
  if (fstatat(folder, found.d_name, &info, 0) != 0) {
    const bool gone = errno == ENOENT;
    // A link that leads nowhere is a file without content.
    if (fstatat(folder, found.d_name, &info, AT_SYMLINK_NOFOLLOW) != 0) {
      if (gone && errno == ENOENT) return std::nullopt;
      return entry;
    }
    info.st_size = 0;
  }
  entry.folder = S_ISDIR(info.st_mode);
  entry.size = entry.folder ? 0 : static_cast<std::uint64_t>(info.st_size);
  entry.written = info.st_mtim.tv_sec;
  return entry;
}

/// Collects entries and hands them over in batches, each twice as large as the one before.
class Batches {
 public:
  Batches(std::size_t first, const FolderReader::Take& take) : size_(first), take_(take) {}

  /// Returns false when no more entries are wanted.
  bool Add(PlaceEntry&& entry) {
    entries_.push_back(std::move(entry));
    any_ = true;
    return entries_.size() < size_ || Flush();
  }
  bool Flush() {
    if (entries_.empty()) return true;
    size_ = std::min(size_ * 2, kLargestBatch);
    return take_(std::exchange(entries_, {}));
  }
  [[nodiscard]] bool Any() const { return any_; }

 private:
  std::size_t size_;
  const FolderReader::Take& take_;
  std::vector<PlaceEntry> entries_;
  bool any_ = false;
};

/// The entries "." and "..": a disc need not list them itself.
dirent DotsEntry(std::string_view name) {
  dirent entry{};
  std::copy(name.begin(), name.end(), std::begin(entry.d_name));
  entry.d_type = DT_DIR;
  return entry;
}

/// Lists the folder on the disc. Returns 0 or the errno of the first failure; *wanted becomes false when the taker
/// wants no more.
int ReadEntries(DIR* folder, bool withDots, Batches& batches, bool& wanted) {
  if (withDots) {
    for (const std::string_view name : {".", ".."}) {
      auto entry = Describe(dirfd(folder), DotsEntry(name));
      if (entry) wanted = wanted && batches.Add(std::move(*entry));
    }
  }
  while (wanted) {
    errno = 0;
    const dirent* found = readdir(folder);
    if (found == nullptr) return errno;
    const std::string_view name = found->d_name;
    if (name == "." || name == "..") continue;
    if (auto entry = Describe(dirfd(folder), *found)) wanted = batches.Add(std::move(*entry));
  }
  return 0;
}

}  // namespace

int PlaceErrorOf(int error) {
  const auto row =
      std::find_if(std::begin(kErrors), std::end(kErrors), [&](const ErrorRow& each) { return each.error == error; });
  return row != std::end(kErrors) ? row->place : place_error::kAccessDenied;
}

int HostTree::ListInBatches(const Names& names, std::size_t first, const FolderReader::Take& take) const {
  const Located found = Locate(folder_, names);
  const int refused = CheckFolder(folder_, found);
  if (refused != place_error::kNone) return refused;
  const std::unique_ptr<DIR, int (*)(DIR*)> folder(opendir(found.host.c_str()), closedir);
  if (!folder) return PlaceErrorOf(errno);
  // Without the permission to search, a folder gives names but nothing about them.
  if (faccessat(dirfd(folder.get()), ".", X_OK, AT_EACCESS) != 0) return PlaceErrorOf(errno);
  Batches batches(first, take);
  bool wanted = true;
  const int error = ReadEntries(folder.get(), root_ == Root::kShare || !names.empty(), batches, wanted);
  if (!wanted || !batches.Flush()) return place_error::kNone;
  if (error != 0) return PlaceErrorOf(error);
  return batches.Any() ? place_error::kNone : place_error::kNothingFound;
}

int HostTree::List(const Names& names, const FolderReader::Take& take) const {
  return ListInBatches(names, kFirstBatch, take);
}

int HostTree::Probe(const Names& names) const {
  return ListInBatches(names, 1, [](std::vector<PlaceEntry>&&) { return false; });
}

bool HostTree::Exists(const Names& names) const { return Locate(folder_, names).presence == Presence::kThere; }

bool HostTree::IsReadOnly(const Names& names) const {
  const Located found = Locate(folder_, names);
  return found.presence == Presence::kThere && (found.info.st_mode & S_IWUSR) == 0;
}

int HostTree::MakeFolder(const Names& names) const {
  const Located found = Locate(folder_, names);
  if (found.presence == Presence::kThere) return place_error::kAlreadyExists;
  if (found.presence == Presence::kOutOfReach) {
    // Folders that are missing on the way are made too; nothing else that keeps the place out of reach may be passed.
    const int why = WhyOutOfReach(folder_, found.host);
    if (why != place_error::kPathNotFound) return why;
  }
  const FileStatus status = MakeFolders(folder_, found.host);
  if (status == FileStatus::kOutOfReach || status == FileStatus::kNotFound) return place_error::kPathNotFound;
  // Where a link leads nowhere its name is taken, but no folder comes to exist.
  return status == FileStatus::kOk && Exists(names) ? place_error::kNone : place_error::kAccessDenied;
}

std::optional<std::string> HostTree::ReadStart(const Names& names, std::size_t most) const {
  const Located found = Locate(folder_, names);
  if (found.presence != Presence::kThere || !S_ISREG(found.info.st_mode)) return std::nullopt;
  if ((found.info.st_mode & S_IRUSR) == 0) return std::nullopt;
  // What has taken the file's place meanwhile may be a pipe, for which nobody writes.
  const Descriptor file(open(found.host.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
  struct stat info {};
  if (!file || fstat(file.Get(), &info) != 0 || !S_ISREG(info.st_mode)) return std::nullopt;
  std::string bytes(most, '\0');
  std::size_t size = 0;
  while (size < most) {
    const ssize_t count = read(file.Get(), bytes.data() + size, most - size);
    if (count < 0 && errno == EINTR) continue;
    if (count < 0) return std::nullopt;
    if (count == 0) break;
    size += static_cast<std::size_t>(count);
  }
  bytes.resize(size);
  return bytes;
}

bool HostTree::IsMissing() const {
  struct stat info {};
  return stat(folder_.c_str(), &info) != 0 && errno == ENOENT;
}

}  // namespace pnl
