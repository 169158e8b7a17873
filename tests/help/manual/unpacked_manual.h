// SPDX-License-Identifier: MIT
// An unpacked manual in a temporary folder, as pnl-chm leaves it, without a compiled one.
#pragma once

#include <memory>
#include <string>

#include "help/manual/manual.h"
#include "support/temp_folder.h"

namespace pnl::test {

class UnpackedManual {
 public:
  UnpackedManual& Add(const std::string& name, const std::string& content) {
    temp_.Write(std::string(ManualListing::kObjectFolder) + "/" + name, content);
    listing.objects.push_back({FromUtf8(name), content.size()});
    listing.bytes += content.size();
    return *this;
  }
  /// An object that the listing has and the disc hasn't.
  UnpackedManual& AddLost(const std::string& name) {
    listing.objects.push_back({FromUtf8(name), 1});
    return *this;
  }
  [[nodiscard]] std::shared_ptr<const Manual> Load() const {
    temp_.Write(ManualListing::kFile, WriteManualListing(listing));
    return Manual::Load(temp_.Path());
  }
  [[nodiscard]] const TempFolder& Folder() const { return temp_; }

  ManualListing listing;

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
