// SPDX-License-Identifier: MIT
// Maps the drive letters of panel paths to folders of this machine.
#pragma once

#include <map>
#include <optional>
#include <string>
#include <vector>

namespace pnl {

/// The folder of this machine for each drive letter.
class DriveMap {
 public:
  /// Sets the folder of a drive. An empty folder removes the drive. Letters compare without regard to case; a character
  /// that isn't A to Z is ignored.
  void Set(char letter, std::string hostFolder);
  [[nodiscard]] std::optional<std::string> Folder(char letter) const;
  [[nodiscard]] std::vector<char> Letters() const;

 private:
  std::map<char, std::string> folders_;
};

}  // namespace pnl
