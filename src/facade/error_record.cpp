// SPDX-License-Identifier: MIT
#include "facade/error_record.h"

#include <algorithm>

namespace pnl {

namespace {
/// How many of the size bytes at that offset are inside the record.
std::size_t Inside(std::size_t offset, std::size_t size) {
  return offset >= sizeof(ErrorRecord) ? 0 : std::min(size, sizeof(ErrorRecord) - offset);
}
}  // namespace

Text ErrorRecord::GetText(std::size_t offset, std::size_t size) const {
  Text text;
  for (std::size_t at = 0; at + sizeof(char16_t) <= Inside(offset, size); at += sizeof(char16_t)) {
    const auto unit = Get<char16_t>(offset + at);
    if (unit == u'\0') break;
    text.push_back(unit);
  }
  return text;
}

// The bytes after the terminator may belong to a field that overlaps with this one.
void ErrorRecord::SetText(std::size_t offset, std::size_t size, TextView text) {
  const std::size_t units = Inside(offset, size) / sizeof(char16_t);
  if (units == 0) return;
  const TextView cut = text.substr(0, units - 1);
  for (std::size_t i = 0; i < cut.size(); ++i) Set(offset + i * sizeof(char16_t), cut[i]);
  Set(offset + cut.size() * sizeof(char16_t), u'\0');
}

}  // namespace pnl
