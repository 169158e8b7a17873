// SPDX-License-Identifier: MIT
// A disc for tests: files in memory that fail as told and note what was replaced.
#pragma once

#include <algorithm>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "base/files.h"

namespace pnl::test {

/// A disc in memory. Names in the sets fail as their names say.
class MemoryFiles final : public Files {
 public:
  std::map<std::string, std::string> disc;
  std::set<std::string> unreadable;
  std::set<std::string> readOnly;
  bool full = false;
  std::vector<std::string> replaced;

  FileInfo Query(TextView path) const override {
    const std::string key = ToUtf8(path);
    const auto at = disc.find(key);
    if (at == disc.end()) return {};
    return {true, false, readOnly.count(key) == 0, at->second.size()};
  }
  std::unique_ptr<FileReader> OpenRead(TextView path, FileStatus* status) const override {
    const std::string key = ToUtf8(path);
    const auto at = disc.find(key);
    const bool there = at != disc.end();
    const bool readable = there && unreadable.count(key) == 0;
    if (status != nullptr) {
      *status = readable ? FileStatus::kOk : there ? FileStatus::kDenied : FileStatus::kNotFound;
    }
    return readable ? std::make_unique<Reader>(at->second) : nullptr;
  }
  FileStatus CanReplace(TextView path) const override {
    return readOnly.count(ToUtf8(path)) != 0 ? FileStatus::kDenied : FileStatus::kOk;
  }
  FileStatus Replace(TextView path, std::string_view bytes) override {
    if (full) return FileStatus::kDiscFull;
    if (CanReplace(path) != FileStatus::kOk) return FileStatus::kDenied;
    disc[ToUtf8(path)] = std::string(bytes);
    replaced.push_back(ToUtf8(path));
    return FileStatus::kOk;
  }
  FileStatus MakeFolder(TextView) override { return FileStatus::kOk; }
  std::optional<std::string> HostPath(TextView) const override { return std::nullopt; }

 private:
  class Reader final : public FileReader {
   public:
    explicit Reader(std::string bytes) : bytes_(std::move(bytes)) {}
    std::int64_t Read(char* buffer, std::size_t size) override {
      const std::size_t count = std::min(size, bytes_.size() - at_);
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
    std::size_t at_ = 0;
  };
};

}  // namespace pnl::test
