// SPDX-License-Identifier: MIT
// An unpacked manual in a temporary folder, as pnl-chm leaves it, without a compiled one.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "help/manual/manual.h"
#include "support/temp_folder.h"

namespace pnl::test {

/// What is in the folder of an unpacked manual.
class UnpackedObjects {
 public:
  UnpackedObjects& Add(const std::string& name, const std::string& content) {
    listing.objects.push_back({FromUtf8(name), content.size(), bytes_.size()});
    listing.bytes += content.size();
    bytes_ += content;
    return *this;
  }
  /// An object that the listing has and the disc hasn't.
  UnpackedObjects& AddLost(const std::string& name, std::uint64_t start = 1'000'000, std::uint64_t size = 1) {
    listing.objects.push_back({FromUtf8(name), size, start});
    return *this;
  }
  /// Writes the files; makes the folder.
  void WriteTo(const std::filesystem::path& folder) const {
    std::filesystem::create_directories(folder);
    std::ofstream(folder / ManualListing::kObjectFile, std::ios::binary) << bytes_;
    std::ofstream(folder / ManualListing::kFile, std::ios::binary) << WriteManualListing(listing);
  }

  ManualListing listing;

 private:
  std::string bytes_;
};

class UnpackedManual : public UnpackedObjects {
 public:
  [[nodiscard]] std::shared_ptr<const Manual> Load() const {
    WriteTo(temp_.Path());
    return Manual::Load(temp_.Path());
  }
  [[nodiscard]] const TempFolder& Folder() const { return temp_; }

 private:
  TempFolder temp_;
};

/// A line of a contents file.
inline std::string SitemapLine(const std::string& name, const std::string& local) {
  std::string line = "<LI><OBJECT type=\"text/sitemap\"><param name=\"Name\" value=\"" + name + "\">";
  if (!local.empty()) line += "<param name=\"Local\" value=\"" + local + "\">";
  return line + "</OBJECT>\n";
}

}  // namespace pnl::test
