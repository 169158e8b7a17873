// SPDX-License-Identifier: MIT
// The rows that the operator has deleted from the history, so that a host can offer them back. It knows neither the
// history nor its file.
#pragma once

#include <optional>
#include <utility>
#include <vector>

#include "base/text.h"

namespace pnl {

/// Rows that were deleted together, the first one first.
struct CalcRemoval {
  int number = 0;  // each removal has its own
  std::vector<std::pair<int, Text>> rows;
  std::vector<std::optional<double>> values;  // of the rows
  int left = 0;                               // how many rows stayed
};

class CalcRemoved {
 public:
  /// Gives the removal its number and keeps it. Of more than kMostRemovals the oldest one goes.
  void Note(CalcRemoval removal);
  /// The last one, or null.
  [[nodiscard]] const CalcRemoval* Last() const { return removals_.empty() ? nullptr : &removals_.back(); }
  /// The number of the last one, or 0.
  [[nodiscard]] int Number() const { return removals_.empty() ? 0 : removals_.back().number; }
  /// Returns the last one and forgets it. Without any, the result has no rows.
  [[nodiscard]] CalcRemoval TakeLast();
  void Forget() { removals_.clear(); }

 private:
  std::vector<CalcRemoval> removals_;
  int last_ = 0;
};

}  // namespace pnl
