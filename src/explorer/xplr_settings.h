// SPDX-License-Identifier: MIT
// "XPLR7340.ini": what the explorer keeps between runs: the order of the list, and for each tool that asks the folder
// that the operator has pinned. In the machine's setup folder. Also the machine's mark of a system for quality tests.
#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "base/ini_file.h"
#include "facade/utilities.h"

namespace pnl {

class XplrSettings {
 public:
  XplrSettings(Files& files, Utilities& utilities) : files_(files), utilities_(utilities), ini_(files) {}

  /// Reads the file into the object that stays open until the end.
  void Open();
  /// The order as it is stored ("PrgSort"); empty when it isn't.
  [[nodiscard]] Text Sort();
  /// Stores the order. Returns false when the file couldn't be written.
  [[nodiscard]] bool SaveSort(TextView sort);
  /// The pinned folder of a tool, without blanks at its ends; empty when it has none. The folder may be gone.
  [[nodiscard]] Text PinnedFolder(std::int32_t owner);
  /// Stores the pinned folder, or with nothing deletes it. Returns false when the file couldn't be written.
  [[nodiscard]] bool SavePinnedFolder(std::int32_t owner, const std::optional<Text>& folder);

 private:
  struct Change {
    Text section;
    Text key;
    std::optional<Text> value;  // nothing deletes the key
  };
  /// Makes the change and stores the file, also when it couldn't be read at the start and can be now.
  [[nodiscard]] bool Store(Change change);
  [[nodiscard]] Text Path() const;

  Files& files_;
  Utilities& utilities_;
  CIniFile ini_;
  bool unread_ = false;  // the file may exist, but couldn't be read
  std::vector<Change> unstored_;
};

/// True on a system for quality tests, by "HMI_Settings.ini" in the user's settings folder. The first answer is kept
/// for the length of the process.
[[nodiscard]] bool IsQualityTest(Files& files, Utilities& utilities);
/// Lets the next IsQualityTest read the file again, for tests.
void ForgetQualityTest();

}  // namespace pnl
