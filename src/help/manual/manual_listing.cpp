// SPDX-License-Identifier: MIT
#include "help/manual/manual_listing.h"

#include <algorithm>
#include <charconv>

#include "help/manual/manual_names.h"

namespace pnl {
namespace {

constexpr std::string_view kHeading = "pnl-chm 2";
constexpr std::string_view kEnd = "end";
constexpr std::size_t kLongestText = 1'000;

void AddText(std::string& out, std::string_view key, TextView value) {
  if (value.empty()) return;
  Text line(value.substr(0, kLongestText));
  std::replace_if(
      line.begin(), line.end(), [](char16_t c) { return c < u' '; }, u' ');
  out.append(key).append(" ").append(ToUtf8(line)).append("\n");
}

void AddNumber(std::string& out, std::string_view key, std::uint64_t value) {
  out.append(key).append(" ").append(std::to_string(value)).append("\n");
}

std::uint64_t NumberOf(std::string_view text) {
  std::uint64_t value = 0;
  const auto end = std::from_chars(text.data(), text.data() + text.size(), value);
  return end.ec == std::errc() && end.ptr == text.data() + text.size() ? value : 0;
}

void TakeObject(ManualListing& listing, std::string_view value) {
  const std::size_t first = value.find(' ');
  const std::size_t second = first == std::string_view::npos ? first : value.find(' ', first + 1);
  if (second == std::string_view::npos || listing.objects.size() >= ManualListing::kMostObjects) return;
  Text name = FromUtf8(value.substr(second + 1));
  if (!IsManualName(name)) return;
  const std::uint64_t start = NumberOf(value.substr(first + 1, second - first - 1));
  listing.objects.push_back({std::move(name), NumberOf(value.substr(0, first)), start});
}

void TakeLine(ManualListing& listing, std::string_view key, std::string_view value) {
  if (key == "title") listing.title = FromUtf8(value);
  if (key == "page") listing.page = FromUtf8(value);
  if (key == "contents") listing.contents = FromUtf8(value);
  if (key == "index") listing.index = FromUtf8(value);
  if (key == "language") listing.language = static_cast<std::uint32_t>(NumberOf(value));
  if (key == "codepage") listing.codePage = static_cast<int>(std::min<std::uint64_t>(NumberOf(value), 0xFFFF));
  if (key == "bytes") listing.bytes = NumberOf(value);
  if (key == "refused") listing.refused = NumberOf(value);
  if (key == "unreadable") listing.unreadable = NumberOf(value);
  if (key == "crashes") listing.crashes = NumberOf(value);
  if (key == "overrun") listing.overrun = NumberOf(value) != 0;
  if (key == "object") TakeObject(listing, value);
}

}  // namespace

std::string WriteManualListing(const ManualListing& listing) {
  std::string out(kHeading);
  out.append("\n");
  AddText(out, "title", listing.title);
  AddText(out, "page", listing.page);
  AddText(out, "contents", listing.contents);
  AddText(out, "index", listing.index);
  AddNumber(out, "language", listing.language);
  AddNumber(out, "codepage", static_cast<std::uint64_t>(listing.codePage));
  AddNumber(out, "files", listing.objects.size());
  AddNumber(out, "bytes", listing.bytes);
  AddNumber(out, "refused", listing.refused);
  AddNumber(out, "unreadable", listing.unreadable);
  AddNumber(out, "crashes", listing.crashes);
  AddNumber(out, "overrun", listing.overrun ? 1 : 0);
  for (const ListedObject& object : listing.objects) {
    out.append("object ").append(std::to_string(object.size)).append(" ").append(std::to_string(object.start));
    out.append(" ").append(ToUtf8(object.name)).append("\n");
  }
  return out.append(kEnd).append("\n");
}

std::optional<ManualListing> ReadManualListing(std::string_view bytes) {
  ManualListing listing;
  bool first = true;
  for (;;) {
    const std::size_t end = bytes.find('\n');
    // Every line of a whole listing has its line end.
    if (end == std::string_view::npos) return std::nullopt;
    const std::string_view line = bytes.substr(0, end);
    bytes.remove_prefix(end + 1);
    if (first && line != kHeading) return std::nullopt;
    if (!first && line == kEnd) return listing;
    const std::size_t blank = line.find(' ');
    if (!first && blank != std::string_view::npos) TakeLine(listing, line.substr(0, blank), line.substr(blank + 1));
    first = false;
  }
}

}  // namespace pnl
