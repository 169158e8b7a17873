// SPDX-License-Identifier: MIT
// CScaner: turns the text of one expression into a list of tokens. It only classifies characters. A failure is a place
// in the text. It keeps nothing from one text to the next, and the list belongs to the caller.
#pragma once

#include <array>
#include <cstdint>
#include <memory>

#include "base/text.h"
#include "calc/expr/token.h"

namespace pnl {

class CScaner {
 public:
  /// Makes the list and returns a pointer to the terminator of the text. If that fails, head is null and the result is
  /// a pointer to the wrong character. A text of more than 255 units fails at unit 255. If there is no memory, head and
  /// the result are null.
  const char16_t* ScanExpression(const char16_t* text, std::unique_ptr<Token>& head);
  static void FreeTokens(std::unique_ptr<Token>& head);

 private:
  static constexpr std::size_t kBufferSize = 256;  // with the terminator

  bool CopyUpper(const char16_t* text);
  /// Tries number, keyword and delimiter in this order. Returns TOK_END if none of them begins at tokenStart_.
  TokenKind ScanToken(TokenValue& value);
  [[nodiscard]] std::int32_t CursorIndex() const { return static_cast<std::int32_t>(cursor_ - buffer_.data()); }

  // Each of these leaves the cursor after the characters that it has read, even if they are no such token.
  int ScanNumber(double& number);
  int ScanKeyword(std::int32_t& index);
  int ScanDelimiter(std::int32_t& index);
  char16_t GetChar() { return *cursor_++; }  // goes past the terminator too
  void UngetChar() { --cursor_; }

  // Parts of ScanNumber.
  int ScanRadix(unsigned radix, int mostDigits, double& number);
  /// Reads all digits that follow and appends the first of them. kept and the appended ones are kMostDigits at most.
  /// Returns how many were appended.
  int ScanDigits(Text& digits, int kept);
  bool ScanExponent(Text& exponent);

  const char16_t* tokenStart_ = nullptr;
  const char16_t* cursor_ = nullptr;
  std::array<char16_t, kBufferSize> buffer_;
};

}  // namespace pnl
