// SPDX-License-Identifier: MIT
// The first lines of a file, whatever its bytes are and wherever it was cut.
#include <string_view>

#include "explorer/xplr_preview.h"
#include "fuzz_check.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view bytes(reinterpret_cast<const char*>(data), size);
  for (const bool whole : {true, false}) {
    const std::vector<pnl::Text> lines = pnl::FirstLines(bytes.substr(0, pnl::kPreviewBytes), whole);
    FUZZ_CHECK(lines.size() <= pnl::kPreviewLines);
    for (const pnl::Text& line : lines) {
      for (const char16_t c : line) FUZZ_CHECK(c >= u' ');
    }
  }
  return 0;
}
