// SPDX-License-Identifier: MIT
#include "help/manual/chm_system.h"

namespace pnl {
namespace {

constexpr std::size_t kVersionBytes = 4;

enum Code : std::uint32_t { kContents = 0, kIndex = 1, kDefaultPage = 2, kTitle = 3, kLanguage = 4 };

/// A number in little endian; the bytes that are there count.
std::uint32_t NumberOf(std::string_view bytes) {
  std::uint32_t value = 0;
  for (std::size_t i = bytes.size(); i > 0; --i) value = value << 8 | static_cast<unsigned char>(bytes[i - 1]);
  return value;
}

void SetOnce(std::string& field, std::string_view data) {
  if (field.empty()) field = data.substr(0, data.find('\0'));
}

void TakeEntry(ChmSystem& system, std::uint32_t code, std::string_view data) {
  switch (code) {
    case kContents:
      SetOnce(system.contents, data);
      break;
    case kIndex:
      SetOnce(system.index, data);
      break;
    case kDefaultPage:
      SetOnce(system.page, data);
      break;
    case kTitle:
      SetOnce(system.title, data);
      break;
    case kLanguage:
      if (system.language == 0) system.language = NumberOf(data.substr(0, 4));
      break;
    default:
      break;
  }
}

}  // namespace

ChmSystem ParseChmSystem(std::string_view bytes) {
  ChmSystem system;
  bytes.remove_prefix(bytes.size() < kVersionBytes ? bytes.size() : kVersionBytes);
  while (bytes.size() >= 4) {
    const std::uint32_t code = NumberOf(bytes.substr(0, 2));
    const std::string_view data = bytes.substr(4, NumberOf(bytes.substr(2, 2)));
    TakeEntry(system, code, data);
    bytes.remove_prefix(4 + data.size());
  }
  return system;
}

}  // namespace pnl
