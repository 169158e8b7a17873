// SPDX-License-Identifier: MIT
#include "facade/mill/machine_descriptions.h"

#include <charconv>
#include <optional>

namespace pnl::sim {

namespace {

std::optional<std::int32_t> NumberLine(std::string_view line) {
  if (line.size() < 3 || line.front() != '[' || line.back() != ']') return std::nullopt;
  std::int32_t number = 0;
  const char* const last = line.data() + line.size() - 1;
  const auto [end, error] = std::from_chars(line.data() + 1, last, number);
  if (error != std::errc() || end != last) return std::nullopt;
  return number;
}

/// Removes the first line from the front and returns it without its ending.
std::string_view TakeLine(std::string_view& bytes) {
  const std::size_t end = bytes.find('\n');
  std::string_view line = bytes.substr(0, end);
  bytes.remove_prefix(end == std::string_view::npos ? bytes.size() : end + 1);
  if (line.ends_with('\r')) line.remove_suffix(1);
  return line;
}

std::string_view WithoutBlankLines(std::string_view text) {
  while (text.starts_with('\n')) text.remove_prefix(1);
  while (text.ends_with('\n')) text.remove_suffix(1);
  return text;
}

}  // namespace

Descriptions ParseDescriptions(std::string_view bytes) {
  constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
  if (bytes.starts_with(kByteOrderMark)) bytes.remove_prefix(kByteOrderMark.size());
  Descriptions descriptions;
  std::optional<std::int32_t> number;
  std::string text;
  const auto finish = [&] {
    const std::string_view whole = WithoutBlankLines(text);
    if (number && !whole.empty()) descriptions.emplace_back(*number, FromUtf8(whole));
    text.clear();
  };
  while (!bytes.empty()) {
    const std::string_view line = TakeLine(bytes);
    if (line.starts_with(';')) continue;
    if (const auto next = NumberLine(line)) {
      finish();
      number = next;
    } else {
      text.append(line).push_back('\n');
    }
  }
  finish();
  return descriptions;
}

}  // namespace pnl::sim
