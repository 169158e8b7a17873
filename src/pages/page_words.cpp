// SPDX-License-Identifier: MIT
#include "pages/page_words.h"

#include "pages/page_limits.h"

namespace pnl {

void WordBreaker::Write(TextView text, Text& to) {
  for (const char16_t c : text) {
    const bool white = c == u' ' || (c >= u'\t' && c <= u'\r');
    // Not between the halves of one character.
    const bool half = c >= 0xDC00 && c <= 0xDFFF;
    if (!white && !half) MakeRoom(1, to);
    length_ = white ? 0 : length_ + 1;
    to += c;
  }
}

void WordBreaker::WriteWhole(TextView part, Text& to) {
  MakeRoom(part.size(), to);
  length_ += part.size();
  to += part;
}

void WordBreaker::MakeRoom(std::size_t size, Text& to) {
  if (length_ + size <= page_limit::kWord) return;
  to += u' ';
  length_ = 0;
}

Text BreakLongWords(TextView text) {
  Text broken;
  broken.reserve(text.size());
  WordBreaker().Write(text, broken);
  return broken;
}

}  // namespace pnl
