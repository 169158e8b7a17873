// SPDX-License-Identifier: MIT
#include "pages/page_markup.h"

#include <algorithm>
#include <vector>

#include "pages/page_attributes.h"
#include "pages/page_limits.h"
#include "pages/page_tags.h"
#include "pages/page_words.h"

namespace pnl {
namespace {

/// A longer name is no tag's.
constexpr std::size_t kLongestTag = 32;

/// Only letters begin the name of a tag; every other '<' is a character.
bool IsLetter(char16_t c) { return (c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z'); }

/// Counts the columns of a table. The browser reserves rows times columns of it, so one wide row among many, or cells
/// that push others aside for many rows, would fill the memory.
class TableColumns {
 public:
  void BeginRow() {
    used_.erase(used_.begin());
    used_.push_back(0);
  }
  /// Returns false when the row has no room for the cell.
  [[nodiscard]] bool TakeCell(const std::vector<PageAttribute>& attributes) {
    int columns = 1;
    int rows = 1;
    for (const PageAttribute& attribute : attributes) {
      if (attribute.name == u"colspan") columns = SpanOf(attribute.value);
      if (attribute.name == u"rowspan") rows = SpanOf(attribute.value);
    }
    const auto end = used_.begin() + rows;
    if (std::any_of(used_.begin(), end, [&](int used) { return used + columns > page_limit::kColumns; })) return false;
    std::for_each(used_.begin(), end, [&](int& used) { used += columns; });
    return true;
  }

 private:
  /// Columns that are taken in the present row and in those below it.
  std::vector<int> used_ = std::vector<int>(page_limit::kColumns, 0);
};

/// Whether a word goes on after the tag.
bool IsInsideWords(const TagRow& tag) {
  return tag.kind == TagKind::kInline || tag.kind == TagKind::kStyle || tag.name == u"link";
}

/// Cleans one page. It keeps the tags that are open, so that it can close them.
class Cleaner {
 public:
  explicit Cleaner(TextView markup) : rest_(markup) {}

  CleanPage Run() {
    while (!rest_.empty() && !page_.cut) {
      const std::size_t tag = std::min(rest_.find(u'<'), rest_.size());
      words_.Write(rest_.substr(0, tag), page_.markup);
      rest_.remove_prefix(tag);
      if (!rest_.empty()) TakeTag();
    }
    CloseDownTo(0);
    return std::move(page_);
  }

 private:
  void TakeTag();
  void SkipPast(TextView end);
  void Open(const TagRow& tag, const std::vector<PageAttribute>& attributes);
  void Close(TextView name);
  void CloseDownTo(std::size_t count);
  /// Closes what the tag ends without saying so: an item ends the item before it.
  void EndImplied(const TagRow& tag);
  template <typename Ends, typename Bounds>
  void CloseOpen(Ends ends, Bounds bounds);
  [[nodiscard]] bool MayOpen(const TagRow& tag, const std::vector<PageAttribute>& attributes);
  [[nodiscard]] std::size_t CountOpen(TagKind kind) const;
  void Write(const TagRow& tag, const std::vector<PageAttribute>& attributes);
  void SkipContent(TextView name, Text* content);

  TextView rest_;
  CleanPage page_;
  WordBreaker words_;
  std::vector<const TagRow*> open_;
  std::vector<TableColumns> tables_;  // of each open table
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
    words_.WriteWhole(u"&lt;", page_.markup);
    return rest_.remove_prefix(1);
  }
  const std::size_t end = std::min(rest.find_first_of(u" \t\r\n\f/>"), rest.size());
  const Text name = SmallLetters(rest.substr(0, std::min(end, kLongestTag)));
  rest.remove_prefix(end);
  const auto attributes = TakePageAttributes(rest);
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

bool Cleaner::MayOpen(const TagRow& tag, const std::vector<PageAttribute>& attributes) {
  if (open_.size() >= page_limit::kDepth) return false;
  if (tag.kind == TagKind::kTable) return CountOpen(TagKind::kTable) < page_limit::kTables;
  if (tag.kind == TagKind::kList) return CountOpen(TagKind::kList) < page_limit::kLists;
  if (tag.name == u"img") return ++pictures_ <= page_limit::kPictures;
  if (tag.kind == TagKind::kSection || tag.kind == TagKind::kRow) return !tables_.empty();
  if (tag.kind != TagKind::kCell) return true;
  return !tables_.empty() && tables_.back().TakeCell(attributes);
}

void Cleaner::Open(const TagRow& tag, const std::vector<PageAttribute>& attributes) {
  if (++tags_ > page_limit::kTags) {
    page_.cut = true;
    return;
  }
  EndImplied(tag);
  if (!MayOpen(tag, attributes)) {
    page_.cut |= pictures_ > page_limit::kPictures;
    return;
  }
  if (tag.kind == TagKind::kStyle) {
    Text content;
    SkipContent(tag.name, &content);
    page_.markup += u"<style type=\"text/css\">" + CleanStyle(content) + u"</style>";
    return;
  }
  Write(tag, attributes);
  if (tag.kind == TagKind::kVoid) return;
  open_.push_back(&tag);
  if (tag.kind == TagKind::kTable) tables_.emplace_back();
  if (tag.kind == TagKind::kRow) tables_.back().BeginRow();
}

void Cleaner::Write(const TagRow& tag, const std::vector<PageAttribute>& attributes) {
  if (!IsInsideWords(tag)) words_.EndWord();
  page_.markup += u'<';
  page_.markup += tag.name;
  bool typed = false;
  for (const PageAttribute& attribute : attributes) {
    const AttributeRow* row = FindAttribute(attribute.name);
    if (row == nullptr) continue;
    typed |= row->name == u"type";
    const Text value = CleanValue(row->kind, attribute.value);
    page_.markup += u' ';
    page_.markup += row->name;
    page_.markup += u"=\"" + value + u'"';
  }
  // The text browser ignores a style sheet that doesn't say its type.
  if (tag.name == u"link" && !typed) page_.markup += u" type=\"text/css\"";
  page_.markup += u'>';
  // The text browser takes it for the parent of all that follows, and shows none of that.
  if (tag.name == u"link") page_.markup += u"</link>";
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
    if (tag.kind == TagKind::kTable) tables_.pop_back();
    if (!IsInsideWords(tag)) words_.EndWord();
    page_.markup += u"</";
    page_.markup += tag.name;
    page_.markup += u'>';
  }
}

}  // namespace

CleanPage CleanMarkup(TextView markup) { return Cleaner(markup).Run(); }

}  // namespace pnl
