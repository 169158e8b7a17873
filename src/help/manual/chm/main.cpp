// SPDX-License-Identifier: MIT
// pnl-chm MANUAL FOLDER: unpacks a compiled manual into a new folder and prints its listing.
#include <cstdio>
#include <string>

#include "help/manual/chm/unpack.h"
#include "help/manual/manual_extractor.h"

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
