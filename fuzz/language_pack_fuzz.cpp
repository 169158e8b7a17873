// SPDX-License-Identifier: MIT
// Language packs: any bytes as a file, and, since checksums would keep most of them out, any bytes as the payload of
// each kind of entry in a file that is otherwise whole.
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
    // Whatever an entry holds, the one behind it is found.
    FUZZ_CHECK(pack.FindText(2) != nullptr && *pack.FindText(2) == u"next");
  }
  return 0;
}
