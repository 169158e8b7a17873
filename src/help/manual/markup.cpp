// SPDX-License-Identifier: MIT
#include "help/manual/markup.h"

#include <algorithm>

namespace pnl {
namespace {

bool IsSpace(char16_t c) { return c == u' ' || (c >= u'\t' && c <= u'\r'); }

bool IsAsciiLetter(char16_t c) { return (c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z'); }

/// Capitals by ASCII alone: names of tags and attributes have no others.
Text AsciiCapitals(TextView text) {
  Text result(text);
  for (char16_t& c : result) {
    if (c >= u'a' && c <= u'z') c = static_cast<char16_t>(c - u'a' + u'A');
  }
  return result;
}

}  // namespace

std::optional<TextView> MarkupPiece::Attribute(TextView name) const {
  for (const auto& [key, value] : attributes) {
    if (key == name) return value;
  }
  return std::nullopt;
}

std::optional<MarkupPiece> MarkupReader::Next() {
  if (!raw_.empty()) {
    if (auto raw = ReadRaw()) return raw;
  }
  while (!AtEnd()) {
    if (markup_[at_] != u'<') return ReadText();
    if (SkipDeclaration()) continue;
    if (!BeginsTag(at_)) return ReadText();
    auto tag = ReadTag();
    if (!tag) break;
    if (tag->IsStart(u"SCRIPT") || tag->IsStart(u"STYLE")) raw_ = tag->text;
    return tag;
  }
  return std::nullopt;
}

bool MarkupReader::BeginsTag(std::size_t at) const {
  const char16_t next = at + 1 < markup_.size() ? markup_[at + 1] : u' ';
  if (next != u'/') return IsAsciiLetter(next);
  return at + 2 < markup_.size() && IsAsciiLetter(markup_[at + 2]);
}

bool MarkupReader::SkipDeclaration() {
  const TextView rest = markup_.substr(at_);
  const bool comment = rest.starts_with(u"<!--");
  if (!comment && !rest.starts_with(u"<!") && !rest.starts_with(u"<?")) return false;
  const TextView mark = comment ? TextView(u"-->") : TextView(u">");
  const std::size_t end = rest.find(mark, 2);
  at_ = end == TextView::npos ? markup_.size() : at_ + end + mark.size();
  return true;
}

std::optional<MarkupPiece> MarkupReader::ReadTag() {
  MarkupPiece tag;
  ++at_;
  tag.kind = markup_[at_] == u'/' ? MarkupPiece::Kind::kEnd : MarkupPiece::Kind::kStart;
  if (tag.kind == MarkupPiece::Kind::kEnd) ++at_;
  const std::size_t first = at_;
  while (!AtEnd() && !IsSpace(markup_[at_]) && markup_[at_] != u'>' && markup_[at_] != u'/') ++at_;
  tag.text = AsciiCapitals(markup_.substr(first, at_ - first));
  while (ReadAttribute(tag)) {
  }
  if (AtEnd()) return std::nullopt;
  ++at_;
  if (tag.kind == MarkupPiece::Kind::kEnd) tag.attributes.clear();
  return tag;
}

/// Returns false at the end of the tag or of the markup.
bool MarkupReader::ReadAttribute(MarkupPiece& tag) {
  while (!AtEnd() && (IsSpace(markup_[at_]) || markup_[at_] == u'/')) ++at_;
  if (AtEnd() || markup_[at_] == u'>') return false;
  const std::size_t first = at_;
  // A "=" at the start belongs to the name, so that each turn takes at least one character.
  do ++at_;
  while (!AtEnd() && !IsSpace(markup_[at_]) && markup_[at_] != u'>' && markup_[at_] != u'/' && markup_[at_] != u'=');
  const TextView name = markup_.substr(first, at_ - first);
  SkipSpace();
  Text value;
  if (!AtEnd() && markup_[at_] == u'=') {
    ++at_;
    SkipSpace();
    value = ReadValue();
  }
  if (tag.attributes.size() < MarkupPiece::kMostAttributes) {
    tag.attributes.emplace_back(AsciiCapitals(name), std::move(value));
  }
  return true;
}

Text MarkupReader::ReadValue() {
  if (AtEnd()) return {};
  std::size_t first = at_;
  std::size_t end = 0;
  if (const char16_t quote = markup_[at_]; quote == u'"' || quote == u'\'') {
    ++first;
    end = std::min(markup_.find(quote, first), markup_.size());
    at_ = std::min(end + 1, markup_.size());
  } else {
    while (!AtEnd() && !IsSpace(markup_[at_]) && markup_[at_] != u'>') ++at_;
    end = at_;
  }
  return ReplaceReferences(markup_.substr(first, end - first));
}

MarkupPiece MarkupReader::ReadText() {
  const std::size_t first = at_;
  const auto stops = [this](std::size_t at) {
    const char16_t next = at + 1 < markup_.size() ? markup_[at + 1] : u' ';
    return next == u'!' || next == u'?' || BeginsTag(at);
  };
  std::size_t end = markup_.find(u'<', first + 1);
  while (end != TextView::npos && !stops(end)) end = markup_.find(u'<', end + 1);
  at_ = std::min(end, markup_.size());
  MarkupPiece piece;
  piece.text = markup_.substr(first, at_ - first);
  return piece;
}

/// The content of a script or style sheet, up to its end tag or the end of the markup. Returns nothing when it is
/// empty.
std::optional<MarkupPiece> MarkupReader::ReadRaw() {
  const std::size_t first = at_;
  std::size_t end = markup_.find(u"</", first);
  while (end != TextView::npos && AsciiCapitals(markup_.substr(end + 2, raw_.size())) != raw_) {
    end = markup_.find(u"</", end + 2);
  }
  at_ = std::min(end, markup_.size());
  raw_.clear();
  if (at_ == first) return std::nullopt;
  MarkupPiece piece;
  piece.text = markup_.substr(first, at_ - first);
  return piece;
}

void MarkupReader::SkipSpace() {
  while (!AtEnd() && IsSpace(markup_[at_])) ++at_;
}

}  // namespace pnl
