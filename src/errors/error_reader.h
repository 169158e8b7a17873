// SPDX-License-Identifier: MIT
// The seam for reading the failing line from a program file. A file of 200 MB or a share that is gone takes long, so
// the lines may come later, and the panel goes on meanwhile.
#pragma once

#include <functional>
#include <optional>

#include "errors/error_program_line.h"

namespace pnl {

class ErrorLineReader {
 public:
  virtual ~ErrorLineReader() = default;
  /// Returns the lines if they can be read quickly. Otherwise returns nothing and later calls `later` once with the
  /// lines, on the window's thread. Another Read or a Drop before that cancels the call.
  virtual std::optional<ProgramLines> Read(const ProgramPlace& place, const ProgramCaptions& captions,
                                           std::function<void(const ProgramLines&)> later) = 0;
  /// Cancels the call that is still to come, if there is one.
  virtual void Drop() = 0;
};

}  // namespace pnl
