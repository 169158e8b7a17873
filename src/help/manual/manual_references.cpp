// SPDX-License-Identifier: MIT
#include <algorithm>
#include <iterator>

#include "help/manual/manual_names.h"
#include "help/manual/markup.h"

namespace pnl {
namespace {

constexpr TextView kAttributes[] = {u"HREF", u"SRC", u"BACKGROUND", u"DATA", u"LONGDESC", u"LOWSRC"};

void Add(std::vector<Text>& references, TextView reference) {
  reference = Trim(reference);
  if (!reference.empty() && references.size() < kMostReferences) references.emplace_back(reference);
}

/// The text up to one of the ends, without blanks and quotes around it.
TextView Unquoted(TextView text, TextView ends) {
  text = Trim(text.substr(0, text.find_first_of(ends)));
  while (!text.empty() && (text.front() == u'"' || text.front() == u'\'')) text.remove_prefix(1);
  while (!text.empty() && (text.back() == u'"' || text.back() == u'\'')) text.remove_suffix(1);
  return text;
}

/// "url(a.png)" and "@import 'b.css'".
void AddFromStyle(std::vector<Text>& references, TextView style) {
  constexpr std::size_t kLongest = 2 * kLongestManualName;
  std::size_t at = 0;
  while (references.size() < kMostReferences && (at = style.find(u"url(", at)) != TextView::npos) {
    at += 4;
    Add(references, Unquoted(style.substr(at, kLongest), u")"));
  }
  at = 0;
  while (references.size() < kMostReferences && (at = style.find(u"@import", at)) != TextView::npos) {
    at += 7;
    const TextView rest = Trim(style.substr(at, kLongest));
    if (!rest.starts_with(u"url(")) Add(references, Unquoted(rest, u";\n"));
  }
}

void AddFromTag(std::vector<Text>& references, const MarkupPiece& tag) {
  for (const auto& [name, value] : tag.attributes) {
    if (std::find(std::begin(kAttributes), std::end(kAttributes), name) != std::end(kAttributes)) {
      Add(references, value);
    } else if (name == u"STYLE") {
      AddFromStyle(references, value);
    }
  }
}

/// The files that the objects of a contents file, an index or a page name.
void AddFromParameter(std::vector<Text>& references, const MarkupPiece& tag) {
  if (EqualNoCase(tag.Attribute(u"NAME").value_or(TextView()), u"Local")) {
    Add(references, tag.Attribute(u"VALUE").value_or(TextView()));
  }
}

}  // namespace

std::vector<Text> ReferencesOf(TextView name, TextView markup) {
  std::vector<Text> references;
  if (IsStyleName(name)) {
    AddFromStyle(references, markup);
    return references;
  }
  MarkupReader reader(markup);
  bool inStyle = false;
  while (references.size() < kMostReferences) {
    const auto piece = reader.Next();
    if (!piece) break;
    if (piece->kind == MarkupPiece::Kind::kText) {
      if (inStyle) AddFromStyle(references, piece->text);
    } else if (piece->IsStart(u"PARAM")) {
      AddFromParameter(references, *piece);
    } else if (piece->kind == MarkupPiece::Kind::kStart) {
      AddFromTag(references, *piece);
    }
    inStyle = piece->IsStart(u"STYLE");
  }
  return references;
}

}  // namespace pnl
