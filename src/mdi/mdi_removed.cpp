// SPDX-License-Identifier: MIT
#include "mdi/mdi_removed.h"

#include <utility>

#include "host/kept_work.h"

namespace pnl {

void MdiRemoved::Note(MdiRemoval removal) {
  if (removals_.size() >= kMostRemovals) removals_.erase(removals_.begin());
  removal.number = ++last_;
  removals_.push_back(std::move(removal));
}

void MdiRemoved::DropLast() {
  if (!removals_.empty()) removals_.pop_back();
}

}  // namespace pnl
