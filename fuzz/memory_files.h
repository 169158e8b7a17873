// SPDX-License-Identifier: MIT
// Files in memory for fuzz targets: no disc, no drive map, any path is a name. Reads can come in short pieces, as from
// a slow disc.
#pragma once

#include <algorithm>
#include <map>
#include <memory>
#include <string>

#include "base/files.h"

namespace pnl::fuzz {

class MemoryReader final : public FileReader {
 public:
  MemoryReader(std::string bytes, std::size_t piece) : bytes_(std::move(bytes)), piece_(piece) {}

  std::int64_t Read(char* buffer, std::size_t size) override {
    const std::size_t got = bytes_.copy(buffer, std::min(size, piece_), position_);
    position_ += got;
    return static_cast<std::int64_t>(got);
  }
  bool Seek(std::uint64_t position) override {
    if (position > bytes_.size()) return false;
    position_ = static_cast<std::size_t>(position);
    return true;
  }
  std::uint64_t Position() const override { return position_; }
  std::uint64_t Size() const override { return bytes_.size(); }

 private:
  std::string bytes_;
  std::size_t piece_;
  std::size_t position_ = 0;
};

class MemoryFiles final : public Files {
 public:
  std::map<Text, std::string> content;
  /// The most bytes that one read returns.
  std::size_t piece = 1u << 20;

  FileInfo Query(TextView path) const override {
    const auto found = content.find(Text(path));
    if (found == content.end()) return {};
    return {true, false, true, found->second.size()};
  }
  std::unique_ptr<FileReader> OpenRead(TextView path, FileStatus* status) const override {
    const auto found = content.find(Text(path));
    if (status != nullptr) *status = found == content.end() ? FileStatus::kNotFound : FileStatus::kOk;
    if (found == content.end()) return nullptr;
    return std::make_unique<MemoryReader>(found->second, piece);
  }
  FileStatus CanReplace(TextView) const override { return FileStatus::kOk; }
  FileStatus Replace(TextView path, std::string_view bytes) override {
    content[Text(path)] = std::string(bytes);
    return FileStatus::kOk;
  }
  FileStatus MakeFolder(TextView) override { return FileStatus::kOk; }
  std::optional<std::string> HostPath(TextView) const override { return std::nullopt; }
};

}  // namespace pnl::fuzz
