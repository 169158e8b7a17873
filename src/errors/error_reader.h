// SPDX-License-Identifier: MIT
// Who reads the failing line out of a program file. A file of 200 MB or a share that is gone takes long, so whoever
// asks may have to wait; nobody else does.
#pragma once

#include <functional>
#include <optional>

#include "errors/error_program_line.h"

namespace pnl {

class ErrorLineReader {
 public:
  virtual ~ErrorLineReader() = default;
  /// The lines when they come quickly. Otherwise nothing, and `later` is called once with them, on the window's thread,
  /// unless another Read or a Drop comes first.
  virtual std::optional<ProgramLines> Read(const ProgramPlace& place, const ProgramCaptions& captions,
                                           std::function<void(const ProgramLines&)> later) = 0;
  virtual void Drop() = 0;
};

}  // namespace pnl
