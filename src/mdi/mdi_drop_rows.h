// SPDX-License-Identifier: MIT
// The rows of the drop list and their marks. The list opens with the history as it is. The operator can have it
// arranged: the block that was refused last, the pinned blocks, then the rest of the history, each block once, and only
// those that begin as he has typed. Plain functions over a channel's record.
#pragma once

#include <cstdint>
#include <vector>

#include "base/text.h"
#include "base/text_rows.h"
#include "mdi/mdi_data.h"

namespace pnl {

enum class MdiRowMark : std::uint8_t { kNone, kPinned, kRefused };

struct MdiDropRows {
  TextRows items;
  std::vector<MdiRowMark> marks;  // one for each item, or none at all if no item has a mark
  int selected = -1;
};

/// Whether the block begins as typed. Blanks don't count, nor does the case of letters. Every block begins with
/// nothing.
[[nodiscard]] bool BeginsAs(TextView block, TextView typed);
/// The history as the list opens with it: the first row is selected.
[[nodiscard]] MdiDropRows HistoryRows(const MDIDATA_ST& record);
/// The arranged rows. None is selected, because the operator may be about to run what he has typed.
[[nodiscard]] MdiDropRows ArrangedRows(const MDIDATA_ST& record, TextView typed);

}  // namespace pnl
