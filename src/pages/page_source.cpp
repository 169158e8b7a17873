// SPDX-License-Identifier: MIT
#include "pages/page_source.h"

#include <algorithm>
#include <optional>
#include <vector>

namespace pnl {
namespace {

/// Longer references are of no use: no name on a disc is that long.
constexpr std::size_t kLongestReference = 4096;

bool IsLetter(char16_t c) { return (c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z'); }
bool IsSchemeCharacter(char16_t c) {
  return IsLetter(c) || (c >= u'0' && c <= u'9') || c == u'+' || c == u'-' || c == u'.';
}

int HexDigit(char16_t c) {
  if (c >= u'0' && c <= u'9') return c - u'0';
  if (c >= u'a' && c <= u'f') return c - u'a' + 10;
  if (c >= u'A' && c <= u'F') return c - u'A' + 10;
  return -1;
}

/// Decodes percent signs: the bytes are UTF-8, or Latin-1 if they aren't well-formed. Returns nothing for a percent
/// sign without two digits.
std::optional<Text> DecodePercent(TextView text) {
  if (text.find(u'%') == TextView::npos) return Text(text);
  std::string bytes;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] != u'%') {
      std::size_t end = std::min(text.find(u'%', i), text.size());
      bytes += ToUtf8(text.substr(i, end - i));
      i = end - 1;
      continue;
    }
    if (i + 2 >= text.size()) return std::nullopt;
    const int high = HexDigit(text[i + 1]);
    const int low = HexDigit(text[i + 2]);
    if (high < 0 || low < 0) return std::nullopt;
    bytes.push_back(static_cast<char>(high * 16 + low));
    i += 2;
  }
  return DecodeFile(bytes);
}

/// The refusal of a path that names more than names below a folder.
PageRefusal CheckPath(TextView path) {
  if (std::any_of(path.begin(), path.end(), [](char16_t c) { return c < u' ' || c == u'\\'; })) {
    return PageRefusal::kBadAddress;
  }
  if (path.starts_with(u"//")) return PageRefusal::kForeign;
  if (path.starts_with(u"/")) return PageRefusal::kOutside;
  const std::size_t colon = path.find(u':');
  if (colon == TextView::npos) return PageRefusal::kNone;
  const TextView scheme = path.substr(0, colon);
  if (scheme.size() == 1 && IsLetter(scheme[0])) return PageRefusal::kOutside;
  const bool named =
      !scheme.empty() && IsLetter(scheme[0]) && std::all_of(scheme.begin(), scheme.end(), IsSchemeCharacter);
  return named ? PageRefusal::kForeign : PageRefusal::kBadAddress;
}

/// Adds the names of path to names. Returns false when ".." leaves the document's folder.
bool AddNames(TextView path, std::vector<TextView>& names) {
  while (!path.empty()) {
    const std::size_t end = std::min(path.find(u'/'), path.size());
    const TextView name = path.substr(0, end);
    path.remove_prefix(std::min(end + 1, path.size()));
    if (name == u"..") {
      if (names.empty()) return false;
      names.pop_back();
    } else if (!name.empty() && name != u".") {
      names.push_back(name);
    }
  }
  return true;
}

Text Joined(const std::vector<TextView>& names) {
  Text all;
  for (const TextView name : names) {
    if (!all.empty()) all += u'/';
    all += name;
  }
  return all;
}

PageAddress Refuse(PageRefusal reason) { return {reason, {}, {}}; }

}  // namespace

PageAddress ResolvePageAddress(TextView page, TextView reference) {
  reference = Trim(reference);
  const std::size_t hash = std::min(reference.find(u'#'), reference.size());
  const TextView raw = reference.substr(0, hash);
  // Before the length is looked at: a "data:" address may be as long as a picture.
  if (const PageRefusal refusal = CheckPath(raw); refusal != PageRefusal::kNone) return Refuse(refusal);
  if (reference.empty() || reference.size() > kLongestReference) return Refuse(PageRefusal::kBadAddress);
  const auto anchor = DecodePercent(reference.substr(std::min(hash + 1, reference.size())));
  const auto path = DecodePercent(raw.substr(0, raw.find(u'?')));
  if (!anchor || !path) return Refuse(PageRefusal::kBadAddress);
  if (raw.empty()) return page.empty() ? Refuse(PageRefusal::kBadAddress) : PageAddress{{}, Text(page), *anchor};
  // Again, because percent signs may have hidden anything.
  if (const PageRefusal refusal = CheckPath(*path); refusal != PageRefusal::kNone) return Refuse(refusal);
  std::vector<TextView> names;
  const std::size_t slash = page.rfind(u'/');
  if (slash != TextView::npos && !AddNames(page.substr(0, slash), names)) return Refuse(PageRefusal::kOutside);
  if (!AddNames(*path, names)) return Refuse(PageRefusal::kOutside);
  if (names.empty()) return Refuse(PageRefusal::kBadAddress);
  return {PageRefusal::kNone, Joined(names), *anchor};
}

Text PageReference(TextView name) {
  Text reference;
  for (std::size_t i = 0; i < name.size(); ++i) {
    const char16_t c = name[i];
    const bool end = i == 0 || i + 1 == name.size();
    // A blank at an end would be taken for no part of the reference.
    if (c == u' ' && end) {
      reference += u"%20";
    } else if (c == u'%') {
      reference += u"%25";
    } else if (c == u'#') {
      reference += u"%23";
    } else if (c == u'?') {
      reference += u"%3F";
    } else {
      reference += c;
    }
  }
  return reference;
}

PageAddress PageSource::Resolve(TextView page, TextView reference) {
  PageAddress address = AddressOf(page, reference);
  ++refused_[static_cast<std::size_t>(address.refusal)];
  return address;
}

PageBytes PageSource::Read(TextView page) {
  const PageRefusal refusal = CheckPath(page);
  std::vector<TextView> names;
  PageBytes read{refusal, {}};
  if (refusal == PageRefusal::kNone && (!AddNames(page, names) || names.empty())) read.refusal = PageRefusal::kOutside;
  if (read.refusal == PageRefusal::kNone) read = Load(Joined(names));
  ++refused_[static_cast<std::size_t>(read.refusal)];
  return read;
}

}  // namespace pnl
