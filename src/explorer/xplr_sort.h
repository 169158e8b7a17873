// SPDX-License-Identifier: MIT
// Sorts the rows of the file list as CompareRows (xplr_order.h) compares their texts, from keys that are made once a
// row instead of from texts. The rows come out as a stable merge sort by that comparison leaves them, also where the
// comparison is no order.
#pragma once

#include <vector>

#include "explorer/xplr_order.h"
#include "explorer/xplr_rows.h"

namespace pnl {

/// Afterwards the list contains the same rows, each once. Rows that compare alike keep their order.
void SortRows(std::vector<XplrRow>& rows, const SortState& state);

}  // namespace pnl
