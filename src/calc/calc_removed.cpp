// SPDX-License-Identifier: MIT
#include "calc/calc_removed.h"

#include "host/kept_work.h"

namespace pnl {

void CalcRemoved::Note(CalcRemoval removal) {
  if (removals_.size() >= kMostRemovals) removals_.erase(removals_.begin());
  removal.number = ++last_;
  removals_.push_back(std::move(removal));
}

CalcRemoval CalcRemoved::TakeLast() {
  CalcRemoval last;
  if (removals_.empty()) return last;
  last = std::move(removals_.back());
  removals_.pop_back();
  return last;
}

}  // namespace pnl
