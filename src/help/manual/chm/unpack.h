// SPDX-License-Identifier: MIT
// Unpacks one manual: watches the process that reads it, starts another one after a crash, and makes the folder whole.
// Never calls libchm itself.
#pragma once

#include <string>

#include "help/manual/manual_listing.h"

namespace pnl::chm {

struct Unpacked {
  int exit = 0;  // one of extractor_exit
  ManualListing listing;
};

/// Unpacks the manual into the folder, which must not exist. It appears whole, with its listing, when this returns with
/// extractor_exit::kDone; otherwise nothing is left of it.
[[nodiscard]] Unpacked Unpack(const std::string& manual, const std::string& folder);

}  // namespace pnl::chm
