// SPDX-License-Identifier: MIT
// The process that reads a manual with libchm, which a damaged manual may crash. It is a fork of the watching process,
// confined before it reads anything, and writes all objects into one file. What it has done it reports.
#pragma once

#include <cstdint>
#include <string>

#include "help/manual/chm/queue.h"

namespace pnl::chm {

/// The parts of the work. A reader that crashes in one is followed by one that begins with the next.
namespace stage {
inline constexpr int kKnown = 0;    // what the manual says of itself, and the usual names
inline constexpr int kListing = 1;  // the list of its objects
}  // namespace stage

struct ReaderTask {
  std::string manual;
  std::string file;           // for the objects; it exists and has those that were unpacked before
  int pipe = -1;              // for reports
  ObjectQueue queue;          // what is known of the manual, and where to go on
  int stage = 0;              // the part of the work to begin with
  std::uint64_t objects = 0;  // unpacked so far
  std::uint64_t bytes = 0;    // of these, at the start of the file
};

/// Confines the process, reads the manual and reports until it is done. Returns the process's exit code.
[[nodiscard]] int RunReader(ReaderTask task);

}  // namespace pnl::chm
