// SPDX-License-Identifier: MIT
// pnl-chm MANUAL FOLDER: unpacks a compiled manual into a new folder and prints its listing.
#include <cstdio>
#include <string>

#include "help/manual/chm/unpack.h"
#include "help/manual/manual_extractor.h"

// The limits of the address sanitizer, which takes the place of the system's limit of memory. Nobody else calls it.
extern "C" const char* __asan_default_options();   // NOLINT(bugprone-reserved-identifier)
extern "C" const char* __asan_default_options() {  // NOLINT(bugprone-reserved-identifier)
  return "max_allocation_size_mb=400:allocator_may_return_null=1:detect_leaks=0";
}

int main(int count, char** words) {
  if (count != 3) {
    std::fputs("pnl-chm MANUAL FOLDER unpacks a compiled manual into a new folder and prints what it found.\n", stderr);
    return pnl::extractor_exit::kUsage;
  }
  const pnl::chm::Unpacked unpacked = pnl::chm::Unpack(words[1], words[2]);
  if (unpacked.exit == pnl::extractor_exit::kDone) {
    std::fputs(pnl::WriteManualListing(unpacked.listing).c_str(), stdout);
  } else {
    const bool nothing = unpacked.exit == pnl::extractor_exit::kNothing;
    std::fprintf(stderr, "pnl-chm: %s\n", nothing ? "nothing could be unpacked" : "the folder can't be written");
  }
  return unpacked.exit;
}
