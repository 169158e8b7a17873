// SPDX-License-Identifier: MIT
// How a request to the cutting data ended. A failure is a value; nothing is thrown. A caller shows message 278 for
// kXmlEngine and passes over the others in silence.
#pragma once

#include <utility>

namespace pnl {

enum class CuttingError {
  kNone = 0,
  kOutOfReach = 1,   // it isn't known what is there, or reading broke off
  kNotWritable = 2,  // the file, or its folder, may not be written
  kXmlEngine = 3,    // the file is no well-formed document of ours in UTF-8 or UTF-16LE
  kDiscFull = 4,
  kNotFound = 5,     // the file doesn't exist
  kNotHoldable = 6,  // a text or number that no XML file can contain, or no parameter has that id
  kFailed = 7
};

/// A value, or the reason why there is none. The value of a failure is empty.
template <typename T>
class [[nodiscard]] CuttingResult {
 public:
  CuttingResult(T value) : value_(std::move(value)) {}
  CuttingResult(CuttingError error) : error_(error) {}

  [[nodiscard]] bool Ok() const { return error_ == CuttingError::kNone; }
  [[nodiscard]] CuttingError Error() const { return error_; }
  [[nodiscard]] const T& Value() const& { return value_; }
  [[nodiscard]] T&& Value() && { return std::move(value_); }

 private:
  CuttingError error_ = CuttingError::kNone;
  T value_{};
};

}  // namespace pnl
