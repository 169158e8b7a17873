// SPDX-License-Identifier: MIT
// Maps the drive letters of panel paths to folders of this machine.
#pragma once

#include <map>
#include <optional>
#include <string>
#include <vector>

namespace pnl {

/// Holds one folder of this machine for each drive letter.
class DriveMap {
 public:
  /// An empty folder takes the drive away. Letters compare without regard to case; others than A to Z are ignored.
  void Set(char letter, std::string hostFolder);
  [[nodiscard]] std::optional<std::string> Folder(char letter) const;
  [[nodiscard]] std::vector<char> Letters() const;

 private:
  std::map<char, std::string> folders_;
};

}  // namespace pnl
