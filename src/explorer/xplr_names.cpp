// SPDX-License-Identifier: MIT
#include "explorer/xplr_names.h"

#include <algorithm>

#include "base/format.h"

namespace pnl {
namespace {

bool IsLetter(char16_t c) { return (c >= u'A' && c <= u'Z') || (c >= u'a' && c <= u'z'); }

/// The parts of a text between separators, without the empty ones.
std::vector<Text> Cut(TextView text, TextView separators) {
  std::vector<Text> parts;
  while (!text.empty()) {
    const std::size_t end = std::min(text.find_first_of(separators), text.size());
    if (end > 0) parts.emplace_back(text.substr(0, end));
    text.remove_prefix(std::min(end + 1, text.size()));
  }
  return parts;
}

bool FitsAll(TextView pattern) { return pattern == u"*" || pattern == u"*.*"; }

}  // namespace

NameParts SplitName(TextView name) {
  const std::size_t point = std::min(name.rfind(u'.'), name.size());
  return {name.substr(0, point), name.substr(point)};
}

bool IsPlainName(TextView name) {
  if (name == u"." || name == u"..") return false;
  if (name.size() >= 2 && IsLetter(name[0]) && name[1] == u':') return false;
  return name.find_first_of(TextView(u"/\\\0", 3)) == TextView::npos;
}

Outcome MatchFilter(TextView extension, TextView filter) {
  if (filter.empty() || FitsAll(filter)) return Outcome::kNameAcceptable;
  for (const Text& token : Cut(filter, u", ")) {
    const TextView wanted = SplitName(token).extension;
    if (!wanted.empty() && EqualNoCase(wanted, extension)) return Outcome::kNameAcceptable;
  }
  return Outcome::kNotInFilter;
}

Outcome CheckFileName(TextView name, TextView filter, bool noBlanks) {
  const NameParts parts = SplitName(name);
  if (noBlanks && parts.title.find(u' ') != TextView::npos) return Outcome::kBlankInName;
  if (parts.title.empty()) return Outcome::kEmptyName;
  if (!IsExtension(parts.extension)) return Outcome::kNoExtension;
  return MatchFilter(parts.extension, filter);
}

Text ApplyDefaultExtension(TextView name, TextView defaultExtension) {
  const NameParts parts = SplitName(name);
  if (IsExtension(parts.extension)) return Text(name);
  if (defaultExtension.empty() || defaultExtension == u"*") return Text(parts.title);
  return Format(u"%s.%s", parts.title, defaultExtension);
}

std::vector<Text> ListingPatterns(TextView filter) { return Cut(filter, u","); }

bool MatchesPattern(TextView name, TextView pattern) {
  if (FitsAll(pattern)) return true;
  std::size_t at = 0;
  std::size_t in = 0;
  std::size_t star = TextView::npos;  // the last star met, and the first character of the name that it doesn't cover
  std::size_t covered = 0;
  while (at < name.size()) {
    if (in < pattern.size() && pattern[in] == u'*') {
      star = in++;
      covered = at;
    } else if (in < pattern.size() && (pattern[in] == u'?' || ToUpper(pattern[in]) == ToUpper(name[at]))) {
      ++in;
      ++at;
    } else if (star != TextView::npos) {
      in = star + 1;
      at = ++covered;
    } else {
      return false;
    }
  }
  return pattern.find_first_not_of(u'*', in) == TextView::npos;
}

}  // namespace pnl
