// SPDX-License-Identifier: MIT
#include "base/text.h"

#include <algorithm>

#include "base/case_table.h"
#include "base/encoding.h"

namespace pnl {
namespace {

bool IsHighSurrogate(char16_t c) { return c >= 0xD800 && c <= 0xDBFF; }
bool IsLowSurrogate(char16_t c) { return c >= 0xDC00 && c <= 0xDFFF; }

void AppendUtf8(char32_t code, std::string& bytes) {
  const auto put = [&](char32_t value) { bytes.push_back(static_cast<char>(value)); };
  if (code < 0x80) {
    put(code);
    return;
  }
  if (code < 0x800) {
    put(0xC0 | code >> 6);
  } else {
    if (code < 0x10000) {
      put(0xE0 | code >> 12);
    } else {
      put(0xF0 | code >> 18);
      put(0x80 | (code >> 12 & 0x3F));
    }
    put(0x80 | (code >> 6 & 0x3F));
  }
  put(0x80 | (code & 0x3F));
}

bool IsBlank(char16_t c) { return c == u' ' || c == u'\t' || c == u'\r' || c == u'\n'; }

}  // namespace

std::string ToUtf8(TextView text) {
  std::string bytes;
  bytes.reserve(text.size());
  for (std::size_t i = 0; i < text.size(); ++i) {
    char32_t code = text[i];
    if (IsHighSurrogate(text[i]) && i + 1 < text.size() && IsLowSurrogate(text[i + 1])) {
      code = 0x10000 + ((code - 0xD800) << 10) + (text[++i] - 0xDC00u);
    } else if (code >= 0xD800 && code <= 0xDFFF) {
      code = 0xFFFD;
    }
    AppendUtf8(code, bytes);
  }
  return bytes;
}

Text FromUtf8(std::string_view bytes) {
  Text text;
  text.reserve(bytes.size());
  Decode(Encoding::kUtf8, bytes, true, text);
  return text;
}

bool IsUtf8(std::string_view bytes) { return ValidUtf8Prefix(bytes) == bytes.size(); }

Text DecodeFile(std::string_view bytes) {
  EncodingMark mark{IsUtf8(bytes) ? Encoding::kUtf8 : Encoding::kLatin1, 0};
  if (const auto found = MarkOf(bytes)) mark = *found;
  const std::string_view rest = bytes.substr(mark.length);
  Text text;
  text.reserve(rest.size());
  Decode(mark.encoding, rest, true, text);
  return text;
}

char16_t ToUpper(char16_t c) {
  if (c < 0x80) return c >= u'a' && c <= u'z' ? static_cast<char16_t>(c - 0x20) : c;
  return CapitalBeyondAscii(c);
}

Text ToUpper(TextView text) {
  Text upper(text);
  for (char16_t& c : upper) c = ToUpper(c);
  return upper;
}

int CompareNoCase(TextView a, TextView b) {
  const std::size_t common = std::min(a.size(), b.size());
  for (std::size_t i = 0; i < common; ++i) {
    if (a[i] == b[i]) continue;
    const int difference = static_cast<int>(ToUpper(a[i])) - static_cast<int>(ToUpper(b[i]));
    if (difference != 0) return difference;
  }
  return static_cast<int>(a.size() > b.size()) - static_cast<int>(a.size() < b.size());
}

bool EqualNoCase(TextView a, TextView b) { return a.size() == b.size() && CompareNoCase(a, b) == 0; }

TextView Trim(TextView text) {
  while (!text.empty() && IsBlank(text.front())) text.remove_prefix(1);
  while (!text.empty() && IsBlank(text.back())) text.remove_suffix(1);
  return text;
}

}  // namespace pnl
