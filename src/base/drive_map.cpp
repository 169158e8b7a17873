// SPDX-License-Identifier: MIT
#include "base/drive_map.h"

namespace pnl {
namespace {

/// The letter as a capital; 0 when it isn't a drive letter.
char DriveLetter(char letter) {
  if (letter >= 'a' && letter <= 'z') return static_cast<char>(letter - 0x20);
  return letter >= 'A' && letter <= 'Z' ? letter : '\0';
}

}  // namespace

void DriveMap::Set(char letter, std::string hostFolder) {
  const char drive = DriveLetter(letter);
  if (drive == '\0') return;
  while (hostFolder.size() > 1 && hostFolder.back() == '/') hostFolder.pop_back();
  if (hostFolder.empty()) {
    folders_.erase(drive);
  } else {
    folders_[drive] = std::move(hostFolder);
  }
}

std::optional<std::string> DriveMap::Folder(char letter) const {
  const auto found = folders_.find(DriveLetter(letter));
  if (found == folders_.end()) return std::nullopt;
  return found->second;
}

std::vector<char> DriveMap::Letters() const {
  std::vector<char> letters;
  for (const auto& [letter, folder] : folders_) letters.push_back(letter);
  return letters;
}

}  // namespace pnl
