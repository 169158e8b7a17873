// SPDX-License-Identifier: MIT
// The kernel's table of mounts, in which anybody who may mount writes names.
#include <string_view>

#include "fuzz_check.h"
#include "places/mount_table.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  for (const std::string& folder : pnl::ParseMountTable({reinterpret_cast<const char*>(data), size})) {
    FUZZ_CHECK(folder.starts_with('/'));
  }
  return 0;
}
