// SPDX-License-Identifier: MIT
// The kernel's queue of errors, oldest first, and what it tells about itself through "E.NERRORS" (how many) and
// "E.ERRORPRI" (another one is first). Makes these two variables when they aren't there. Composes no texts.
#pragma once

#include <deque>
#include <memory>
#include <optional>
#include <vector>

#include "facade/error_record.h"
#include "facade/sim/sim_variables.h"

namespace pnl::sim {

class SimErrorQueue {
 public:
  explicit SimErrorQueue(SimVariables& variables) : variables_(variables) {}

  void Push(const ErrorRecord& record);
  /// Takes the error with that index out. False when there is none.
  bool Take(std::size_t index);
  void Clear();
  [[nodiscard]] std::size_t Size() const { return records_.size(); }
  /// Null when there is none. The pointer holds until the next change.
  [[nodiscard]] const ErrorRecord* At(std::size_t index) const;
  /// The first error that is the same byte for byte; else the first with the same number and source.
  [[nodiscard]] std::optional<std::size_t> Find(const ErrorRecord& record) const;
  [[nodiscard]] std::vector<std::int32_t> Numbers() const;

 private:
  void ReportCount();
  void ReportFirst();

  SimVariables& variables_;
  // By pointer, since taking one of thousands out would otherwise move 4 KB for each one behind it.
  std::deque<std::unique_ptr<ErrorRecord>> records_;
};

}  // namespace pnl::sim
