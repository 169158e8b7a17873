// SPDX-License-Identifier: MIT
#include "help/manual/manual_names.h"

#include <algorithm>
#include <cstdint>
#include <string>

#include "base/encoding.h"

namespace pnl {
namespace {

constexpr std::size_t kLongestPart = 255;  // what file systems take, in bytes

bool EndsWith(TextView name, TextView ending) {
  return name.size() >= ending.size() && EqualNoCase(name.substr(name.size() - ending.size()), ending);
}

bool IsGoodPart(TextView part) {
  return !part.empty() && part != u"." && part != u".." && ToUtf8(part).size() <= kLongestPart;
}

/// Calls take with each part of a name.
template <typename Take>
void ForEachPart(TextView name, Take take) {
  for (;;) {
    const std::size_t slash = name.find(u'/');
    take(name.substr(0, slash));
    if (slash == TextView::npos) return;
    name.remove_prefix(slash + 1);
  }
}

bool IsForbidden(char16_t c) { return c < 0x20 || c == 0x7F || c == u'\\' || c == u':'; }

/// Below 0 for what is no digit.
int HexDigit(char c) {
  if (c <= '9') return c - '0';
  if (c >= 'a' && c <= 'f') return c - 'a' + 10;
  return c >= 'A' && c <= 'F' ? c - 'A' + 10 : -1;
}

/// The text with "%41" as "A". Encoded bytes are UTF-8, else Latin-1. A percent sign without two digits stays.
Text DecodePercent(TextView text) {
  if (text.find(u'%') == TextView::npos) return Text(text);
  const std::string bytes = ToUtf8(text);
  std::string decoded;
  for (std::size_t i = 0; i < bytes.size(); ++i) {
    // The null at the end of a string is no digit either.
    const int high = bytes[i] == '%' ? HexDigit(bytes[i + 1]) : -1;
    const int low = high >= 0 ? HexDigit(bytes[i + 2]) : -1;
    if (low >= 0) {
      decoded.push_back(static_cast<char>(high * 16 + low));
      i += 2;
    } else {
      decoded.push_back(bytes[i]);
    }
  }
  if (IsUtf8(decoded)) return FromUtf8(decoded);
  Text latin;
  Decode(Encoding::kLatin1, decoded, true, latin);
  return latin;
}

/// True when the text begins with a scheme: "http:", "mailto:", also a drive letter.
bool HasScheme(TextView text) {
  const std::size_t colon = text.find(u':');
  if (colon == TextView::npos) return false;
  const TextView before = text.substr(0, colon);
  return before.find_first_of(u"/\\?#") == TextView::npos;
}

/// "ms-its:manual.chm" of "ms-its:manual.chm::/page.htm", and its like; empty without such a beginning.
TextView ManualPart(TextView reference) {
  const std::size_t mark = reference.substr(0, reference.find(u'#')).find(u"::");
  const TextView part = mark == TextView::npos ? TextView() : reference.substr(0, mark);
  return EndsWith(part, u".chm") ? part : TextView();
}

/// Drops the manual's name. Returns false when what is left names something outside the manual.
bool DropManual(TextView& reference) {
  const TextView part = ManualPart(reference);
  if (!part.empty()) reference.remove_prefix(part.size() + 2);
  return !HasScheme(reference);
}

/// Joins the folder of from with a relative name. Returns nothing when ".." leads out.
std::optional<Text> Join(TextView from, TextView name) {
  std::vector<TextView> parts;
  const auto add = [&parts](TextView part) {
    if (part.empty() || part == u".") return true;
    if (part != u"..") {
      parts.push_back(part);
      return true;
    }
    if (parts.empty()) return false;
    parts.pop_back();
    return true;
  };
  bool inside = true;
  if (!name.starts_with(u'/')) {
    const std::size_t slash = from.rfind(u'/');
    if (slash != TextView::npos)
      ForEachPart(from.substr(0, slash), [&](TextView part) { inside = add(part) && inside; });
  }
  ForEachPart(name, [&](TextView part) { inside = inside && add(part); });
  if (!inside) return std::nullopt;
  Text joined;
  for (const TextView part : parts) {
    if (!joined.empty()) joined.push_back(u'/');
    joined.append(part);
  }
  return joined;
}

}  // namespace

std::optional<Text> NameOfObject(std::string_view object) {
  if (!object.starts_with('/')) return std::nullopt;
  object.remove_prefix(1);
  Text name;
  if (IsUtf8(object)) {
    name = FromUtf8(object);
  } else {
    Decode(Encoding::kLatin1, object, true, name);
  }
  return IsManualName(name) ? std::optional(name) : std::nullopt;
}

bool IsManualName(TextView name) {
  if (std::any_of(name.begin(), name.end(), IsForbidden)) return false;
  if (name.size() > kLongestManualName || ToUtf8(name).size() > kLongestManualName) return false;
  std::size_t parts = 0;
  bool good = true;
  ForEachPart(name, [&](TextView part) {
    ++parts;
    good = good && IsGoodPart(part);
  });
  return good && parts <= kDeepestManualName;
}

std::optional<ManualReference> ResolveManualReference(TextView from, TextView reference) {
  reference = Trim(reference);
  if (reference.empty() || !DropManual(reference)) return std::nullopt;
  ManualReference result;
  const std::size_t hash = reference.find(u'#');
  if (hash != TextView::npos) result.anchor = DecodePercent(reference.substr(hash + 1));
  TextView path = reference.substr(0, hash);
  path = path.substr(0, path.find(u'?'));
  if (path.empty()) {
    // Only an anchor: in the same page.
    result.name = from;
    return result;
  }
  Text name = DecodePercent(path);
  std::replace(name.begin(), name.end(), u'\\', u'/');
  // "//server/page" names another machine.
  if (name.starts_with(u"//")) return std::nullopt;
  auto joined = Join(from, name);
  if (!joined || !IsManualName(*joined)) return std::nullopt;
  result.name = std::move(*joined);
  return result;
}

Text ManualNamedIn(TextView reference) {
  const Text part = DecodePercent(ManualPart(Trim(reference)));
  return part.substr(part.find_last_of(u":/\\") + 1);
}

bool IsPageName(TextView name) {
  return EndsWith(name, u".htm") || EndsWith(name, u".html") || EndsWith(name, u".xhtml");
}

bool IsStyleName(TextView name) { return EndsWith(name, u".css"); }

bool IsSitemapName(TextView name) { return EndsWith(name, u".hhc") || EndsWith(name, u".hhk"); }

}  // namespace pnl
