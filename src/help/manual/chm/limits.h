// SPDX-License-Identifier: MIT
// How much of a manual is unpacked, and how long that may take. What is beyond a limit is left out, and the listing
// says so.
#pragma once

#include <chrono>
#include <cstdint>

#include "help/manual/manual.h"
#include "help/manual/manual_listing.h"

namespace pnl::chm {

inline constexpr std::uint64_t kMostObjectBytes = Manual::kMostBytes;
inline constexpr std::uint64_t kMostObjects = ManualListing::kMostObjects;
inline constexpr std::uint64_t kMostBytes = 400'000'000;  // of all objects
inline constexpr std::size_t kMostListed = 100'000;
inline constexpr std::uint64_t kMemory = 512'000'000;
inline constexpr unsigned kProcessorSeconds = 15;

/// Of the whole run; the panel waits a little longer (ProgramExtractor::kLimit).
inline constexpr std::chrono::seconds kWholeTime{20};
/// Without a report. A reader that is silent for longer hangs.
inline constexpr std::chrono::seconds kSilence{6};
/// So often a crashed reader is followed by another one.
inline constexpr int kMostCrashes = 20;

}  // namespace pnl::chm
