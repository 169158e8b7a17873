// SPDX-License-Identifier: MIT
#include "pages/page_attributes.h"

#include <algorithm>

#include "pages/page_limits.h"

namespace pnl {
namespace {

constexpr TextView kWhite = u" \t\r\n\f";
constexpr int kMostSmall = 50;

bool IsWhite(char16_t c) { return kWhite.find(c) != TextView::npos; }
bool IsLetter(char16_t c) { return (c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z'); }
bool IsDigit(char16_t c) { return c >= u'0' && c <= u'9'; }

void SkipWhite(TextView& text) { text.remove_prefix(std::min(text.find_first_not_of(kWhite), text.size())); }

/// Reads the digits at the start of text; at most limit. A text without digits gives 0.
int LimitedNumber(TextView text, int limit) {
  int number = 0;
  for (const char16_t c : text) {
    if (!IsDigit(c)) break;
    number = std::min(number * 10 + (c - u'0'), limit);
  }
  return number;
}

Text Digits(int number) { return FromUtf8(std::to_string(number)); }

/// The style with every number limited.
Text LimitNumbers(TextView css) {
  Text limited;
  for (std::size_t i = 0; i < css.size();) {
    // A colour or a name, "#808080" or "a1000": its digits are no number.
    const bool word = css[i] == u'#' || IsLetter(css[i]) || css[i] == u'_';
    std::size_t end = i + 1;
    while (end < css.size() && (IsDigit(css[end]) ? word || IsDigit(css[i]) : word && IsLetter(css[end]))) ++end;
    const TextView part = css.substr(i, end - i);
    const bool large = IsDigit(css[i]) && LimitedNumber(part, page_limit::kNumber + 1) > page_limit::kNumber;
    limited += large ? Digits(page_limit::kNumber) : Text(part);
    i = end;
  }
  return limited;
}

/// Takes the value after a name, if there is one. Returns false when its quote isn't closed.
bool TakeValue(TextView& text, TextView& value) {
  TextView rest = text;
  SkipWhite(rest);
  if (!rest.starts_with(u'=')) return true;
  rest.remove_prefix(1);
  SkipWhite(rest);
  const bool quoted = rest.starts_with(u'"') || rest.starts_with(u'\'');
  const std::size_t close = quoted ? rest.find(rest[0], 1) : std::min(rest.find_first_of(u" \t\r\n\f>"), rest.size());
  if (close == TextView::npos) return false;
  value = quoted ? rest.substr(1, close - 1) : rest.substr(0, close);
  text = rest.substr(quoted ? close + 1 : close);
  return true;
}

Text CleanSmall(TextView value) {
  const bool relative = value.starts_with(u'+') || value.starts_with(u'-');
  const TextView sign = value.substr(0, relative ? 1 : 0);
  return Text(sign) + Digits(LimitedNumber(value.substr(sign.size()), kMostSmall));
}

}  // namespace

Text SmallLetters(TextView text) {
  Text small(text);
  for (char16_t& c : small) c = c >= u'A' && c <= u'Z' ? static_cast<char16_t>(c + (u'a' - u'A')) : c;
  return small;
}

std::optional<std::vector<PageAttribute>> TakePageAttributes(TextView& text) {
  std::vector<PageAttribute> all;
  while (!text.empty() && text[0] != u'>') {
    if (IsWhite(text[0]) || text[0] == u'/' || text[0] == u'=') {
      text.remove_prefix(1);
      continue;
    }
    const std::size_t end = std::min(text.find_first_of(u" \t\r\n\f/=>"), text.size());
    PageAttribute attribute{SmallLetters(text.substr(0, std::min(end, page_limit::kValue))), {}};
    text.remove_prefix(end);
    if (!TakeValue(text, attribute.value)) return std::nullopt;
    all.push_back(std::move(attribute));
  }
  if (text.empty()) return std::nullopt;
  text.remove_prefix(1);
  return all;
}

int SpanOf(TextView value) { return std::max(LimitedNumber(Trim(value), page_limit::kColumns), 1); }

Text CleanValue(ValueKind kind, TextView value) {
  // Clean markup stays as it is.
  if (kind == ValueKind::kPicture && value.starts_with(kPictureScheme)) value.remove_prefix(kPictureScheme.size());
  const TextView trimmed = Trim(value.substr(0, page_limit::kValue));
  Text clean(trimmed);
  switch (kind) {
    case ValueKind::kLength:
      clean = Digits(LimitedNumber(trimmed, page_limit::kNumber)) + (trimmed.ends_with(u'%') ? u"%" : u"");
      break;
    case ValueKind::kSmall:
      clean = CleanSmall(trimmed);
      break;
    case ValueKind::kSpan:
      clean = Digits(SpanOf(trimmed));
      break;
    case ValueKind::kCss:
      clean = LimitNumbers(trimmed);
      break;
    case ValueKind::kPicture:
      clean.insert(0, kPictureScheme);
      break;
    case ValueKind::kText:
    case ValueKind::kAddress:
      break;
  }
  std::replace(clean.begin(), clean.end(), u'"', u'\'');
  return clean;
}

Text CleanStyle(TextView css) {
  Text clean = LimitNumbers(css.substr(0, page_limit::kStyle));
  std::size_t rules = 0;
  for (std::size_t i = 0; i < clean.size(); ++i) {
    if (clean[i] == u'{' && ++rules > page_limit::kRules) {
      clean.resize(i);
      break;
    }
    // "<" would end the sheet, "@" begin an import.
    if (clean[i] == u'<' || clean[i] == u'@') clean[i] = u' ';
  }
  return clean;
}

}  // namespace pnl
