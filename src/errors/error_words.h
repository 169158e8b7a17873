// SPDX-License-Identifier: MIT
// The words of the error texts, by the numbers that the logic knows. The language has their wording. Some of them are
// formats, which the composer gives their arguments.
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

/// The words of the language in use, by number. The map belongs to the language. A default-constructed object has no
/// words.
class ErrorWords {
 public:
  ErrorWords() = default;
  explicit ErrorWords(const std::map<int, Text>& texts) : texts_(&texts) {}
  /// The text with that number, or an empty text if there is none.
  [[nodiscard]] TextView operator()(int id) const {
    if (texts_ == nullptr) return {};
    const auto found = texts_->find(id);
    return found == texts_->end() ? TextView() : TextView(found->second);
  }

 private:
  const std::map<int, Text>* texts_ = nullptr;
};

}  // namespace pnl
