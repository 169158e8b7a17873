// SPDX-License-Identifier: MIT
#include "mdi/mdi_drop_list.h"

#include <utility>

namespace pnl {

void MdiDropList::Accept(std::optional<Text> selected) {
  if (finished_) return;
  picked_ = std::move(selected).value_or(Text());
  EndList(kPicked);
}

void MdiDropList::Cancel() {
  if (finished_) return;
  picked_.clear();
  EndList(kCancelled);
}

void MdiDropList::EndList(std::intptr_t value) {
  finished_ = true;
  // This comes last, because the owner destroys the list in this message.
  windows_.Send(owner_, {RegisterMessage("MDI_ENDLIST"), value, 0});
}

}  // namespace pnl
