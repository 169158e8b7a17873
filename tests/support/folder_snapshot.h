// SPDX-License-Identifier: MIT
// What is in a folder of this machine at a moment, so that a test can show what has changed in it: each entry below it
// with its kind, permissions, time of the last change and content. Links are not followed.
#pragma once

#include <sys/stat.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <set>
#include <string>

namespace pnl::test {

/// A description of each entry, by its path below the folder. The times of folders are not part of it: a file made in
/// one and removed again would change them; their entries are.
using FolderSnapshot = std::map<std::string, std::string>;

inline FolderSnapshot SnapshotOf(const std::filesystem::path& folder, const std::set<std::string>& without = {}) {
  FolderSnapshot snapshot;
  for (const auto& entry : std::filesystem::recursive_directory_iterator(folder)) {
    const std::string path = entry.path().lexically_relative(folder).string();
    if (without.count(path) != 0) continue;
    struct stat info {};
    if (lstat(entry.path().c_str(), &info) != 0) continue;
    std::string& text = snapshot[path];
    text = std::to_string(info.st_mode);
    if (S_ISDIR(info.st_mode)) continue;
    text += " " + std::to_string(info.st_mtim.tv_sec) + "." + std::to_string(info.st_mtim.tv_nsec) + " ";
    if (S_ISREG(info.st_mode)) {
      std::ifstream in(entry.path(), std::ios::binary);
      text.append(std::istreambuf_iterator<char>(in), {});
    }
  }
  return snapshot;
}

}  // namespace pnl::test
