// SPDX-License-Identifier: MIT
#include "base/locate.h"

#include <dirent.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <climits>
#include <memory>
#include <optional>

namespace pnl {
namespace {

std::string Under(const std::string& folder, const std::string& name) {
  return folder.back() == '/' ? folder + name : folder + "/" + name;
}

/// True for a folder whose entries can be reached. The owner's permission binds the superuser too.
bool CanBeEntered(const std::string& folder) {
  struct stat info {};
  return stat(folder.c_str(), &info) == 0 && S_ISDIR(info.st_mode) && (info.st_mode & S_IXUSR) != 0;
}

bool CanBeListed(const std::string& folder) {
  struct stat info {};
  return stat(folder.c_str(), &info) == 0 && (info.st_mode & S_IRUSR) != 0;
}

struct Entry {
  Presence presence = Presence::kOutOfReach;
  std::string name;  // as it is on the disc
};

/// Finds the entry of the folder that equals name without regard to case. Of several it takes the first in byte order,
/// so that the choice doesn't depend on the order in which the disc lists them.
Entry FindNoCase(const std::string& folder, const Text& name) {
  const std::unique_ptr<DIR, int (*)(DIR*)> names(CanBeListed(folder) ? opendir(folder.c_str()) : nullptr, closedir);
  if (!names) return {};
  std::optional<std::string> best;
  for (;;) {
    // At the end of the names readdir returns null and leaves errno alone; a disc that fails sets it.
    errno = 0;
    const dirent* entry = readdir(names.get());
    if (entry == nullptr) break;
    const std::string_view found = entry->d_name;
    if (EqualNoCase(FromUtf8(found), name) && (!best || found < *best)) best = found;
  }
  if (errno != 0) return {};
  return best ? Entry{Presence::kThere, *best} : Entry{Presence::kAbsent, {}};
}

Entry FindEntry(const std::string& folder, const Text& name) {
  if (!CanBeEntered(folder)) return {};
  std::string exact = ToUtf8(name);
  struct stat info {};
  if (lstat(Under(folder, exact).c_str(), &info) == 0) return {Presence::kThere, std::move(exact)};
  return errno == ENOENT ? FindNoCase(folder, name) : Entry{};
}

/// The presence of a link's missing target: absent when its folder can be searched, else out of reach.
Presence OfMissingTarget(const std::string& link) {
  const std::string target = ThroughLinks(link);
  struct stat info {};
  if (target == link || lstat(target.c_str(), &info) == 0 || errno != ENOENT) return Presence::kOutOfReach;
  const std::string folder = FolderOf(target);
  return CanBeEntered(folder) && CanBeListed(folder) ? Presence::kAbsent : Presence::kOutOfReach;
}

}  // namespace

Located Locate(const std::string& driveFolder, const std::vector<Text>& names) {
  Located located{Presence::kThere, driveFolder, {}};
  for (const Text& name : names) {
    Entry entry;
    if (located.presence == Presence::kThere) entry = FindEntry(located.host, name);
    located.host = Under(located.host, entry.presence == Presence::kThere ? entry.name : ToUtf8(name));
    // Nothing below a missing folder is known to be absent: the folder may come back with all that it contains.
    located.presence = &name == &names.back()               ? entry.presence
                       : entry.presence == Presence::kThere ? Presence::kThere
                                                            : Presence::kOutOfReach;
  }
  if (located.presence == Presence::kThere && stat(located.host.c_str(), &located.info) != 0) {
    located.presence = errno == ENOENT && !names.empty() ? OfMissingTarget(located.host) : Presence::kOutOfReach;
  }
  return located;
}

std::string ThroughLinks(const std::string& hostPath) {
  constexpr int kMostLinks = 40;
  std::string path = hostPath;
  for (int step = 0; step <= kMostLinks; ++step) {
    std::array<char, PATH_MAX> target{};
    const ssize_t length = readlink(path.c_str(), target.data(), target.size());
    if (length <= 0) return path;
    const std::string next(target.data(), static_cast<std::size_t>(length));
    path = next[0] == '/' ? next : Under(FolderOf(path), next);
  }
  return hostPath;
}

std::string FolderOf(const std::string& hostPath) {
  const std::size_t slash = hostPath.rfind('/');
  if (slash == std::string::npos) return ".";
  return slash == 0 ? "/" : hostPath.substr(0, slash);
}

}  // namespace pnl
