// SPDX-License-Identifier: MIT
// The path of a block: start key, kernel, status reports, history and list. Between the kernel's acceptance and the
// next report the record's State is what the panel believes; nothing here asks the time.
#pragma once

#include "mdi/mdi_session.h"

namespace pnl::mdi {

/// Bits 8 to 15 and 0 to 7 of a channel's status word.
[[nodiscard]] constexpr std::int32_t StatusByte(std::int32_t status) { return status >> 8 & 0xFF; }
[[nodiscard]] constexpr std::int32_t StatusDetail(std::int32_t status) { return status & 0xFF; }

/// The start key, or with fromKey false the control's own start during an inspection. Channel 0 is the current one.
std::intptr_t Start(MdiSession& session, std::intptr_t channel, bool fromKey);
/// The channel's status changed. kRefused when it can't be read; then nothing changes.
std::intptr_t OnStatusReport(MdiSession& session, MDIDATA_ST& record);
/// The channel's inspection status changed.
void OnInspectReport(MdiSession& session, MDIDATA_ST& record);

/// Puts the block in hand where its role says: at the end of the list (MDI), before the selected item (a new item) or
/// in the place of the item being changed. An empty block, or one run straight from the list, changes nothing.
void StoreBlock(MdiSession& session, MDIDATA_ST& record);

}  // namespace pnl::mdi
