// SPDX-License-Identifier: MIT
#include "places/share_url.h"

namespace pnl {
namespace {

bool IsPlain(unsigned char byte) {
  return (byte >= 'a' && byte <= 'z') || (byte >= 'A' && byte <= 'Z') || (byte >= '0' && byte <= '9') || byte == '-' ||
         byte == '_' || byte == '.';
}

void AddName(std::string& url, TextView name) {
  constexpr const char* kDigits = "0123456789ABCDEF";
  url += '/';
  for (const char c : ToUtf8(name)) {
    const auto byte = static_cast<unsigned char>(c);
    if (IsPlain(byte)) {
      url += c;
    } else {
      url += {'%', kDigits[byte >> 4], kDigits[byte & 15]};
    }
  }
}

}  // namespace

std::string ShareUrl(const SharePlace& place) {
  std::string url = "smb://" + place.host;
  if (place.port != 0) url += ':' + std::to_string(place.port);
  AddName(url, place.share);
  for (const Text& name : place.names) AddName(url, name);
  return url;
}

}  // namespace pnl
