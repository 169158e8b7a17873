// SPDX-License-Identifier: MIT
#include "help/manual/search_words.h"

#include "help/manual/accent_table.h"

namespace pnl {
namespace {

bool IsCombiningMark(char16_t c) { return c >= 0x0300 && c <= 0x036F; }

bool IsOfScriptWithoutBlanks(char16_t c) { return (c >= 0x3040 && c <= 0x9FFF) || (c >= 0xAC00 && c <= 0xFAFF); }

bool IsWordCharacter(char16_t c) {
  if (c < 0x80) return (c >= u'0' && c <= u'9') || (c >= u'A' && c <= u'Z') || (c >= u'a' && c <= u'z') || c == u'_';
  if (c < 0xC0) return c == 0xAA || c == 0xB5 || c == 0xBA;
  if (c == 0xD7 || c == 0xF7 || c == 0xFFFD) return false;
  // Punctuation, arrows, operators, boxes and the blanks of wide scripts.
  return !(c >= 0x2000 && c <= 0x2BFF) && !(c >= 0x3000 && c <= 0x303F) && !(c >= 0xFF00 && c <= 0xFF0F);
}

}  // namespace

char16_t FoldForSearch(char16_t c) {
  if (c < 0x80) return c >= u'a' && c <= u'z' ? static_cast<char16_t>(c - u'a' + u'A') : c;
  if (IsCombiningMark(c)) return 0;
  return WithoutAccent(ToUpper(c));
}

std::vector<Text> SearchWordsOf(TextView text) {
  std::vector<Text> words;
  Text word;
  const auto finish = [&words, &word] {
    if (!word.empty()) words.push_back(word);
    word.clear();
  };
  for (const char16_t c : text) {
    if (!IsWordCharacter(c)) {
      finish();
      continue;
    }
    if (IsOfScriptWithoutBlanks(c)) {
      finish();
      words.emplace_back(1, c);
      continue;
    }
    const char16_t folded = FoldForSearch(c);
    if (folded != 0 && word.size() < kLongestSearchWord) word.push_back(folded);
  }
  finish();
  return words;
}

}  // namespace pnl
