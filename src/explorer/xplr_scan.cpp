// SPDX-License-Identifier: MIT
#include "explorer/xplr_scan.h"

#include "base/numbers.h"

namespace pnl {
namespace {

/// White space as C defines it, which is more than Trim removes.
bool IsSpace(char16_t c) { return c == u' ' || (c >= u'\t' && c <= u'\r'); }

bool IsDigit(char16_t c) { return c >= u'0' && c <= u'9'; }

void SkipSpace(TextView& text) {
  while (!text.empty() && IsSpace(text.front())) text.remove_prefix(1);
}

/// Takes the number at the start of the text away. Returns false when there is none.
bool TakeNumber(TextView& text, std::int32_t& number) {
  SkipSpace(text);
  std::size_t end = !text.empty() && (text[0] == u'-' || text[0] == u'+') ? 1 : 0;
  if (end == text.size() || !IsDigit(text[end])) return false;
  while (end < text.size() && IsDigit(text[end])) ++end;
  number = ParseIntPrefix(text.substr(0, end));
  text.remove_prefix(end);
  return true;
}

}  // namespace

std::size_t ScanNumbers(TextView text, TextView pattern, std::span<std::int32_t> numbers) {
  std::size_t count = 0;
  while (!pattern.empty()) {
    if (pattern.starts_with(u"%d")) {
      if (count == numbers.size() || !TakeNumber(text, numbers[count])) return count;
      ++count;
      pattern.remove_prefix(2);
      continue;
    }
    if (pattern.front() == u' ') {
      SkipSpace(text);
    } else {
      if (text.empty() || text.front() != pattern.front()) return count;
      text.remove_prefix(1);
    }
    pattern.remove_prefix(1);
  }
  return count;
}

}  // namespace pnl
