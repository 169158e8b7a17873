// SPDX-License-Identifier: MIT
// A disc for tests and fuzz targets: files in memory that fail as the test tells them, and a list of what was replaced.
// It is as strict as a real disc: names compare without regard to case, and a file needs its folder.
#pragma once

#include <algorithm>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "base/files.h"

namespace pnl::test {

/// Orders names without regard to case.
struct NameLess {
  bool operator()(const std::string& left, const std::string& right) const {
    return ToUpper(FromUtf8(left)) < ToUpper(FromUtf8(right));
  }
};

/// A disc in memory. A file whose name is in one of the sets fails as the set's name says.
class MemoryFiles final : public Files {
 public:
  std::map<std::string, std::string, NameLess> disc;
  std::set<std::string, NameLess> unreadable;
  std::set<std::string, NameLess> readOnly;
  /// The empty folders; the others are known from the files in them. Path id n is "C:\Pn".
  std::set<std::string, NameLess> folders{"C:",       "C:\\P1",  "C:\\P15",  "C:\\P18",  "C:\\P24",
                                          "C:\\P52",  "C:\\P57", "C:\\P61",  "C:\\P100", "C:\\P101",
                                          "C:\\P108", "C:\\PRG", "C:\\P113", "C:\\P118"};
  /// Folders that are out of reach, with everything below them.
  std::set<std::string, NameLess> away;
  bool full = false;
  /// The most that one read gives, as a slow disc may.
  std::size_t piece = std::string::npos;
  std::vector<std::string> replaced;

  FileInfo Query(TextView path) const override {
    const std::string key = Key(path);
    FileInfo info;
    info.outOfReach = !IsInReach(key);
    if (info.outOfReach) return info;
    const auto at = disc.find(key);
    info.folder = at == disc.end() && IsFolder(key);
    info.exists = info.folder || at != disc.end();
    info.writable = info.exists && readOnly.count(key) == 0;
    info.size = at == disc.end() ? 0 : at->second.size();
    return info;
  }
  std::unique_ptr<FileReader> OpenRead(TextView path, FileStatus* status) const override {
    const std::string key = Key(path);
    const FileInfo info = Query(path);
    FileStatus answer = FileStatus::kOk;
    if (info.outOfReach) {
      answer = FileStatus::kOutOfReach;
    } else if (!info.exists) {
      answer = FileStatus::kNotFound;
    } else if (info.folder) {
      answer = FileStatus::kIsFolder;
    } else if (unreadable.count(key) != 0) {
      answer = FileStatus::kDenied;
    }
    if (status != nullptr) *status = answer;
    return answer == FileStatus::kOk ? std::make_unique<Reader>(disc.at(key), piece) : nullptr;
  }
  FileStatus CanReplace(TextView path) const override {
    const FileInfo info = Query(path);
    if (info.outOfReach) return FileStatus::kOutOfReach;
    if (info.folder) return FileStatus::kIsFolder;
    return readOnly.count(Key(path)) != 0 ? FileStatus::kDenied : FileStatus::kOk;
  }
  FileStatus Replace(TextView path, std::string_view bytes) override {
    const FileStatus status = CanReplace(path);
    if (status != FileStatus::kOk) return status;
    if (full) return FileStatus::kDiscFull;
    disc[Key(path)] = std::string(bytes);
    replaced.push_back(ToUtf8(path));
    return FileStatus::kOk;
  }
  FileStatus MakeFolder(TextView path) override {
    const std::string key = Key(path);
    if (disc.count(key) != 0) return FileStatus::kFailed;
    if (!IsFolder(FolderOf(key)) && MakeFolder(FromUtf8(FolderOf(key))) != FileStatus::kOk) {
      return FileStatus::kOutOfReach;
    }
    folders.insert(key);
    return FileStatus::kOk;
  }
  std::optional<std::string> HostPath(TextView) const override { return std::nullopt; }
  /// A copy of the disc as it is now; later changes of one don't reach the other.
  std::unique_ptr<Files> ForAnotherThread() const override { return std::make_unique<MemoryFiles>(*this); }

 private:
  class Reader final : public FileReader {
   public:
    Reader(std::string bytes, std::size_t piece) : bytes_(std::move(bytes)), piece_(piece) {}
    std::int64_t Read(char* buffer, std::size_t size) override {
      const std::size_t count = std::min({size, piece_, bytes_.size() - at_});
      std::copy_n(bytes_.begin() + static_cast<std::ptrdiff_t>(at_), count, buffer);
      at_ += count;
      return static_cast<std::int64_t>(count);
    }
    bool Seek(std::uint64_t position) override {
      if (position > bytes_.size()) return false;
      at_ = position;
      return true;
    }
    std::uint64_t Position() const override { return at_; }
    std::uint64_t Size() const override { return bytes_.size(); }

   private:
    std::string bytes_;
    std::size_t piece_;
    std::size_t at_ = 0;
  };

  static std::string Key(TextView path) {
    std::string key = ToUtf8(path);
    std::replace(key.begin(), key.end(), '/', '\\');
    while (key.size() > 2 && key.back() == '\\') key.pop_back();
    return key;
  }
  static std::string FolderOf(const std::string& key) { return key.substr(0, key.rfind('\\')); }
  static bool IsBelow(const std::string& key, const std::string& folder) {
    return key.size() > folder.size() && key[folder.size()] == '\\' &&
           EqualNoCase(FromUtf8(key.substr(0, folder.size())), FromUtf8(folder));
  }
  bool IsFolder(const std::string& key) const {
    if (folders.count(key) != 0) return true;
    return std::any_of(disc.begin(), disc.end(), [&](const auto& file) { return IsBelow(file.first, key); });
  }
  bool IsInReach(const std::string& key) const {
    const bool drive = key.size() > 1 && key[1] == ':';
    const bool lost = std::any_of(away.begin(), away.end(),
                                  [&](const std::string& folder) { return folder == key || IsBelow(key, folder); });
    return drive && !lost && (key.size() == 2 || IsFolder(FolderOf(key)));
  }
};

}  // namespace pnl::test
