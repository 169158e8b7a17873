// SPDX-License-Identifier: MIT
#include "pages/page_markup.h"

#include <algorithm>
#include <array>
#include <optional>
#include <vector>

#include "pages/page_tags.h"

namespace pnl {
namespace {

constexpr TextView kWhite = u" \t\r\n\f";

/// The characters of Windows-1252 from 0x80 to 0x9F. A byte without a character keeps its number.
constexpr std::array<char16_t, 32> kWindows1252 = {0x20AC, 0x81,   0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                                   0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x8D,   0x017D, 0x8F,
                                                   0x90,   0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                                   0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x9D,   0x017E, 0x0178};

char16_t ToSmall(char16_t c) { return c >= u'A' && c <= u'Z' ? static_cast<char16_t>(c + 32) : c; }
bool IsWhite(char16_t c) { return kWhite.find(c) != TextView::npos; }
bool IsLetter(char16_t c) { return ToSmall(c) >= u'a' && ToSmall(c) <= u'z'; }
bool IsDigit(char16_t c) { return c >= u'0' && c <= u'9'; }

Text Small(TextView text) {
  Text small(text);
  std::transform(small.begin(), small.end(), small.begin(), ToSmall);
  return small;
}

/// Reads the digits at the start of text; at most limit. The text without digits gives 0.
int LimitedNumber(TextView text, int limit) {
  int number = 0;
  for (const char16_t c : text) {
    if (!IsDigit(c)) break;
    number = std::min(number * 10 + (c - u'0'), limit);
  }
  return number;
}

Text Digits(int number) { return FromUtf8(std::to_string(number)); }

/// The style with every number limited. A number is also limited after a '#', where no colour has so many digits.
Text LimitNumbers(TextView css) {
  Text limited;
  for (std::size_t i = 0; i < css.size();) {
    // A colour or a name, "#808080" or "a1000": its digits are no number.
    const bool word = css[i] == u'#' || IsLetter(css[i]) || css[i] == u'_';
    std::size_t end = i + 1;
    while (end < css.size() && (IsDigit(css[end]) || (word && (IsLetter(css[end]) || css[end] == u'-')))) ++end;
    const TextView part = css.substr(i, end - i);
    const bool number = IsDigit(css[i]) && LimitedNumber(part, page_limit::kNumber + 1) > page_limit::kNumber;
    limited += number ? Digits(page_limit::kNumber) : Text(part);
    i = end;
  }
  std::replace(limited.begin(), limited.end(), u'<', u' ');
  return limited;
}

struct Attribute {
  Text name;
  TextView value;
};

/// Takes the attributes off the front of text, up to and with the tag's end. Returns nothing when the tag has no end.
std::optional<std::vector<Attribute>> TakeAttributes(TextView& text) {
  std::vector<Attribute> all;
  while (!text.empty() && text[0] != u'>') {
    if (IsWhite(text[0]) || text[0] == u'/' || text[0] == u'=') {
      text.remove_prefix(1);
      continue;
    }
    const std::size_t end = std::min(text.find_first_of(u" \t\r\n\f/=>"), text.size());
    Attribute attribute{Small(text.substr(0, std::min(end, page_limit::kValue))), {}};
    text.remove_prefix(end);
    TextView rest = text;
    rest.remove_prefix(std::min(rest.find_first_not_of(kWhite), rest.size()));
    if (!rest.empty() && rest[0] == u'=') {
      rest.remove_prefix(1);
      rest.remove_prefix(std::min(rest.find_first_not_of(kWhite), rest.size()));
      const bool quoted = !rest.empty() && (rest[0] == u'"' || rest[0] == u'\'');
      const std::size_t close =
          quoted ? rest.find(rest[0], 1) : std::min(rest.find_first_of(u" \t\r\n\f>"), rest.size());
      if (close == TextView::npos) return std::nullopt;
      attribute.value = quoted ? rest.substr(1, close - 1) : rest.substr(0, close);
      text = rest.substr(quoted ? close + 1 : close);
    }
    all.push_back(std::move(attribute));
  }
  if (text.empty()) return std::nullopt;
  text.remove_prefix(1);
  return all;
}

/// The value as it may pass.
Text CleanValue(ValueKind kind, TextView value) {
  constexpr int kMostSmall = 50;
  value = value.substr(0, page_limit::kValue);
  const TextView trimmed = Trim(value);
  switch (kind) {
    case ValueKind::kLength:
      return Digits(LimitedNumber(trimmed, page_limit::kNumber)) + (trimmed.ends_with(u'%') ? u"%" : u"");
    case ValueKind::kSmall:
      // Also relative sizes: "+1".
      if (trimmed.starts_with(u'+') || trimmed.starts_with(u'-')) {
        return Text(trimmed.substr(0, 1)) + Digits(LimitedNumber(trimmed.substr(1), kMostSmall));
      }
      return Digits(LimitedNumber(trimmed, kMostSmall));
    case ValueKind::kSpan:
      return Digits(std::max(LimitedNumber(trimmed, page_limit::kColumns), 1));
    case ValueKind::kCss:
      return LimitNumbers(value);
    case ValueKind::kText:
    case ValueKind::kAddress:
      break;
  }
  return Text(value);
}

/// Cleans one page. It keeps the tags that are open, so that it can close them.
class Cleaner {
 public:
  explicit Cleaner(TextView markup) : rest_(markup) {}

  CleanPage Run() {
    while (!rest_.empty() && !page_.cut) {
      const std::size_t tag = std::min(rest_.find(u'<'), rest_.size());
      page_.markup += rest_.substr(0, tag);
      rest_.remove_prefix(tag);
      if (!rest_.empty()) TakeTag();
    }
    CloseDownTo(0);
    return std::move(page_);
  }

 private:
  void TakeTag();
  void SkipPast(TextView end);
  void Open(const TagRow& tag, const std::vector<Attribute>& attributes);
  void Close(TextView name);
  void CloseDownTo(std::size_t count);
  /// Closes what the tag ends without saying so: an item ends the item before it.
  void EndImplied(const TagRow& tag);
  template <typename Ends, typename Bounds>
  void CloseOpen(Ends ends, Bounds bounds);
  [[nodiscard]] bool MayOpen(const TagRow& tag, const std::vector<Attribute>& attributes);
  [[nodiscard]] std::size_t CountOpen(TagKind kind) const;
  void Write(const TagRow& tag, const std::vector<Attribute>& attributes);
  void SkipContent(TextView name, Text* content);

  TextView rest_;
  CleanPage page_;
  std::vector<const TagRow*> open_;
  std::vector<int> columns_;  // of the present row of each open table
  std::size_t tags_ = 0;
  std::size_t pictures_ = 0;
};

void Cleaner::SkipPast(TextView end) {
  const std::size_t at = rest_.find(end);
  rest_.remove_prefix(at == TextView::npos ? rest_.size() : at + end.size());
}

void Cleaner::TakeTag() {
  if (rest_.starts_with(u"<!--")) return SkipPast(u"-->");
  const TextView second = rest_.substr(1);
  const bool closes = second.starts_with(u'/');
  TextView rest = second.substr(closes ? 1 : 0);
  if (rest.empty() || !IsLetter(rest[0])) {
    if (second.starts_with(u'!') || second.starts_with(u'?') || closes) return SkipPast(u">");
    page_.markup += u"&lt;";
    return rest_.remove_prefix(1);
  }
  const std::size_t end = std::min(rest.find_first_of(u" \t\r\n\f/>"), rest.size());
  const Text name = Small(rest.substr(0, std::min<std::size_t>(end, 32)));
  rest.remove_prefix(end);
  const auto attributes = TakeAttributes(rest);
  rest_ = attributes ? rest : TextView();
  const TagRow* tag = FindTag(name);
  if (!attributes || tag == nullptr) return;
  if (closes) return Close(tag->name);
  if (tag->kind == TagKind::kSkipped) return SkipContent(tag->name, nullptr);
  Open(*tag, *attributes);
}

void Cleaner::SkipContent(TextView name, Text* content) {
  const Text end = Text(u"</") + Text(name);
  for (std::size_t at = rest_.find(u'<'); at != TextView::npos; at = rest_.find(u'<', at + 1)) {
    if (!EqualNoCase(rest_.substr(at, end.size()), end)) continue;
    if (content != nullptr) *content = Text(rest_.substr(0, at));
    rest_.remove_prefix(at);
    return SkipPast(u">");
  }
  rest_ = {};
}

std::size_t Cleaner::CountOpen(TagKind kind) const {
  return static_cast<std::size_t>(
      std::count_if(open_.begin(), open_.end(), [kind](const TagRow* tag) { return tag->kind == kind; }));
}

bool Cleaner::MayOpen(const TagRow& tag, const std::vector<Attribute>& attributes) {
  if (open_.size() >= page_limit::kDepth) return false;
  if (tag.kind == TagKind::kTable) return CountOpen(TagKind::kTable) < page_limit::kTables;
  if (tag.kind == TagKind::kList) return CountOpen(TagKind::kList) < page_limit::kLists;
  if (tag.name == u"img") return ++pictures_ <= page_limit::kPictures;
  if (tag.kind == TagKind::kSection || tag.kind == TagKind::kRow) return !columns_.empty();
  if (tag.kind != TagKind::kCell) return true;
  // A table has as many cells as rows times columns, so few wide rows among many would fill the memory.
  if (columns_.empty()) return false;
  int span = 1;
  for (const Attribute& attribute : attributes) {
    if (attribute.name == u"colspan") span = std::max(LimitedNumber(Trim(attribute.value), page_limit::kColumns), 1);
  }
  columns_.back() += span;
  return columns_.back() <= page_limit::kColumns;
}

void Cleaner::Open(const TagRow& tag, const std::vector<Attribute>& attributes) {
  if (++tags_ > page_limit::kTags) {
    page_.cut = true;
    return;
  }
  EndImplied(tag);
  if (!MayOpen(tag, attributes)) {
    page_.cut |= tag.name == u"img";
    return;
  }
  if (tag.kind == TagKind::kStyle) {
    Text content;
    SkipContent(tag.name, &content);
    page_.markup += u"<style type=\"text/css\">" + LimitNumbers(content) + u"</style>";
    return;
  }
  Write(tag, attributes);
  if (tag.kind == TagKind::kVoid) return;
  open_.push_back(&tag);
  if (tag.kind == TagKind::kTable) columns_.push_back(0);
  if (tag.kind == TagKind::kRow) columns_.back() = 0;
}

void Cleaner::Write(const TagRow& tag, const std::vector<Attribute>& attributes) {
  page_.markup += u'<';
  page_.markup += tag.name;
  bool typed = false;
  for (const Attribute& attribute : attributes) {
    const AttributeRow* row = FindAttribute(attribute.name);
    if (row == nullptr) continue;
    typed |= row->name == u"type";
    Text value = CleanValue(row->kind, attribute.value);
    std::replace(value.begin(), value.end(), u'"', u'\'');
    page_.markup += u' ';
    page_.markup += row->name;
    page_.markup += u"=\"" + value + u'"';
  }
  // The text browser ignores a style sheet that doesn't say its type.
  if (tag.name == u"link" && !typed) page_.markup += u" type=\"text/css\"";
  page_.markup += u'>';
}

template <typename Ends, typename Bounds>
void Cleaner::CloseOpen(Ends ends, Bounds bounds) {
  for (std::size_t i = open_.size(); i > 0 && !bounds(open_[i - 1]->kind); --i) {
    if (ends(*open_[i - 1])) return CloseDownTo(i - 1);
  }
}

void Cleaner::EndImplied(const TagRow& tag) {
  const auto isCell = [](TagKind kind) { return kind == TagKind::kCell || kind == TagKind::kTable; };
  if (tag.kind == TagKind::kCell || tag.kind == TagKind::kRow || tag.kind == TagKind::kSection) {
    const TagKind inner = tag.kind;
    CloseOpen([inner](const TagRow& open) { return open.kind == TagKind::kCell && inner == TagKind::kCell; },
              [](TagKind kind) { return kind == TagKind::kTable || kind == TagKind::kRow; });
    if (inner != TagKind::kCell) {
      CloseOpen([](const TagRow& open) { return open.kind == TagKind::kRow; },
                [](TagKind kind) { return kind == TagKind::kTable; });
    }
    if (inner == TagKind::kSection) {
      CloseOpen([](const TagRow& open) { return open.kind == TagKind::kSection; },
                [](TagKind kind) { return kind == TagKind::kTable; });
    }
    return;
  }
  if (tag.kind == TagKind::kItem) {
    return CloseOpen([](const TagRow& open) { return open.kind == TagKind::kItem; },
                     [&](TagKind kind) { return kind == TagKind::kList || isCell(kind); });
  }
  const bool block = tag.kind == TagKind::kBlock || tag.kind == TagKind::kList || tag.kind == TagKind::kTable;
  if (!block) return;
  CloseOpen([](const TagRow& open) { return open.name == u"p"; },
            [&](TagKind kind) { return kind == TagKind::kItem || isCell(kind); });
}

void Cleaner::Close(TextView name) {
  const auto bound = [&](TagKind kind) { return kind == TagKind::kTable && name != u"table"; };
  CloseOpen([&](const TagRow& open) { return open.name == name; }, bound);
}

void Cleaner::CloseDownTo(std::size_t count) {
  while (open_.size() > count) {
    const TagRow& tag = *open_.back();
    open_.pop_back();
    if (tag.kind == TagKind::kTable) columns_.pop_back();
    page_.markup += u"</";
    page_.markup += tag.name;
    page_.markup += u'>';
  }
}

/// Takes the bytes of a sequence that the limit has cut off the end.
std::string_view WithoutHalfSequence(std::string_view bytes) {
  std::size_t back = 0;
  while (back < 3 && back < bytes.size() && (bytes[bytes.size() - 1 - back] & 0xC0) == 0x80) ++back;
  if (back < bytes.size() && (bytes[bytes.size() - 1 - back] & 0xC0) == 0xC0) ++back;
  return bytes.substr(0, bytes.size() - back);
}

}  // namespace

Text DecodePage(std::string_view bytes) {
  const bool cut = bytes.size() > page_limit::kBytes;
  bytes = bytes.substr(0, page_limit::kBytes);
  if (cut && IsUtf8(WithoutHalfSequence(bytes))) bytes = WithoutHalfSequence(bytes);
  Text text = DecodeFile(bytes);
  const bool marked = bytes.starts_with("\xFF\xFE") || bytes.starts_with("\xFE\xFF");
  if (!marked && !IsUtf8(bytes)) {
    for (char16_t& c : text) c = c >= 0x80 && c < 0xA0 ? kWindows1252[c - 0x80u] : c;
  }
  return text;
}

CleanPage CleanMarkup(TextView markup) { return Cleaner(markup).Run(); }

}  // namespace pnl
