// SPDX-License-Identifier: MIT
// CScaner: turns the text of one expression into a list of tokens. It only classifies characters; a failure is a place
// in the text. It holds nothing between two texts, and what it made belongs to the caller.
#pragma once

#include <array>
#include <cstdint>
#include <memory>

#include "base/text.h"
#include "calc/expr/token.h"

namespace pnl {

class CScaner {
 public:
  /// On success the list's head and a pointer to the terminator; on failure no list and a pointer to the offending
  /// character. A text of more than 255 units fails at unit 255. Without memory: no list and a null pointer.
  const char16_t* ScanExpression(const char16_t* text, std::unique_ptr<Token>& head);
  static void FreeTokens(std::unique_ptr<Token>& head);

 private:
  static constexpr std::size_t kBufferSize = 256;  // terminator included

  bool CopyUpper(const char16_t* text);
  /// Tries number, keyword and delimiter; TOK_END when nothing takes the character at tokenStart.
  TokenKind ScanToken(TokenValue& value);
  [[nodiscard]] std::int32_t CursorIndex() const { return static_cast<std::int32_t>(cursor_ - buffer_.data()); }

  // Each leaves the cursor behind what it took.
  int ScanNumber(double& number);
  int ScanKeyword(std::int32_t& index);
  int ScanDelimiter(std::int32_t& index);
  char16_t GetChar() { return *cursor_++; }  // goes past the terminator too
  void UngetChar() { --cursor_; }

  // Parts of ScanNumber.
  int ScanRadix(unsigned radix, int mostDigits, double& number);
  /// Takes all digits there are and appends the first that fit under kMostDigits in all; how many were appended.
  int ScanDigits(Text& digits, int kept);
  int ScanExponent(Text& exponent);

  const char16_t* tokenStart_ = nullptr;
  const char16_t* cursor_ = nullptr;
  std::array<char16_t, kBufferSize> buffer_;
};

}  // namespace pnl
