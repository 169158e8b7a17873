// SPDX-License-Identifier: MIT
// What waits to be shown in the PLC message view and which of it is on the screen: codes of PLC messages in ascending
// order, and documents in the order in which they came. Pure state: knows no window, no disc and no table of messages.
#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <vector>

#include "base/text.h"

namespace pnl {

/// A copy of a ShowFileRecord.
struct PlcFile {
  std::intptr_t first = 0;  // of the message that brought it; kept and not used
  std::uint32_t backColor = 0;
  std::uint32_t textColor = 0;
  Text file;
  Text title;
};

enum class PlcMode {
  kClosed = -1,
  kMessage = 0,
  kHelp = 1,  // from the error window; nothing displaces it
  kFile = 2,
};

/// What came to the screen.
enum class PlcItem { kNothing, kMessage, kFile };

class PlcQueue {
 public:
  /// The code that means none. A code that isn't lower than this never displaces anything.
  static constexpr std::uint32_t kNoCode = 2'000'000'000;

  [[nodiscard]] PlcMode Mode() const { return mode_; }
  [[nodiscard]] std::uint32_t CurrentCode() const { return currentCode_; }
  [[nodiscard]] const std::vector<std::uint32_t>& Codes() const { return codes_; }
  [[nodiscard]] const std::deque<PlcFile>& Files() const { return files_; }

  /// Adds a code, unless it is 0 or waits already.
  void AddCode(std::uint32_t code);
  void AddFile(PlcFile file) { files_.push_back(std::move(file)); }
  /// For the caller that shows help or the first file.
  void SetMode(PlcMode mode) { mode_ = mode; }

  /// Makes the lowest code the current one, if it is lower than the current one and no help is shown. Returns true when
  /// it did; the mode is then kMessage.
  bool TakeLowerCode();
  /// Removes what is on the screen, if it is a message or a file.
  void RemoveShown();
  /// Chooses what comes next and sets code and mode: the lowest code, else the first file, else nothing.
  PlcItem Advance();

  /// Messages and files that wait or are on the screen, with those that were removed since there was nothing left.
  [[nodiscard]] std::size_t Total() const { return removed_ + codes_.size() + files_.size(); }
  /// The place of what is on the screen among them, from 1; 0 for help and for nothing.
  [[nodiscard]] std::size_t Place() const;

 private:
  PlcMode mode_ = PlcMode::kClosed;
  std::uint32_t currentCode_ = kNoCode;
  std::vector<std::uint32_t> codes_;  // ascending, without duplicates
  std::deque<PlcFile> files_;
  std::size_t removed_ = 0;
};

}  // namespace pnl
