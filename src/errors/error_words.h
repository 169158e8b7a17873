// SPDX-License-Identifier: MIT
// The fixed words of error texts, by the numbers that bind them to the logic. Several are formats whose arguments the
// composer applies; the wording is the language's.
#pragma once

#include <map>

#include "base/text.h"

namespace pnl {

namespace error_text {
inline constexpr int kError = 203;
inline constexpr int kPlcError = 205;
inline constexpr int kWarning = 206;
inline constexpr int kLine = 210;
inline constexpr int kCause = 214;
inline constexpr int kValue = 216;
inline constexpr int kProgram = 237;
inline constexpr int kText = 239;
inline constexpr int kLineNumber = 240;
inline constexpr int kDrive = 251;
inline constexpr int kBus = 254;
inline constexpr int kCanOpen = 57356;
}  // namespace error_text

/// The words of the language in use, by number. Borrowed: the map belongs to the language. None until it is given one.
class ErrorWords {
 public:
  ErrorWords() = default;
  explicit ErrorWords(const std::map<int, Text>& texts) : texts_(&texts) {}
  /// Empty for a number without a text.
  [[nodiscard]] TextView operator()(int id) const {
    if (texts_ == nullptr) return {};
    const auto found = texts_->find(id);
    return found == texts_->end() ? TextView() : TextView(found->second);
  }

 private:
  const std::map<int, Text>* texts_ = nullptr;
};

}  // namespace pnl
