// SPDX-License-Identifier: MIT
// Reads any bytes as a language pack. Checksums refuse most of them, so the same bytes are also the payload of each
// kind of entry in an otherwise valid pack.
#include <cstdint>
#include <string_view>

#include "fuzz_check.h"
#include "host/language_pack.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view bytes(reinterpret_cast<const char*>(data), size);
  pnl::LanguagePack pack;
  pack.Parse(bytes);
  for (std::uint32_t kind = 0; kind < 6; ++kind) {
    const std::string entries =
        pnl::pack_format::Entry(kind, 1, bytes) + pnl::pack_format::Entry(pnl::pack_format::kText, 2, "next");
    FUZZ_CHECK(pack.Parse(pnl::pack_format::File(entries, 2)));
    // The entry after it must be found, whatever the payload is.
    FUZZ_CHECK(pack.FindText(2) != nullptr && *pack.FindText(2) == u"next");
  }
  return 0;
}
