// SPDX-License-Identifier: MIT
// The messages by which a host keeps what an operator has typed or removed in a tool, and gives it back. The tools
// recognise them here; what they do about them is their own.
#pragma once

#include <pnltools/pnltools.h>

#include <cstdint>
#include <optional>

#include "base/text.h"

namespace pnl {

enum class KeptWorkMessage { kReadUnfinished, kRestoreUnfinished, kRemoved, kStoreRows };

/// The message with that number; nothing for any other message.
[[nodiscard]] std::optional<KeptWorkMessage> KeptWorkMessageOf(std::uint32_t number);

/// The record at an address in a message. Null for 0.
[[nodiscard]] PnlUnfinished* UnfinishedAt(std::intptr_t address);
/// Fills the record. If a text is too long for it, the record says that there is nothing.
void FillUnfinished(PnlUnfinished& record, PnlUnfinishedKind kind, TextView text, int item = -1,
                    TextView original = {});
/// Fills the record at an address in a message, if there is one. Returns the number of rows.
std::intptr_t FillRemoved(std::intptr_t address, std::size_t rows, bool whole, TextView firstRow);

/// More removals than this aren't kept.
inline constexpr std::size_t kMostRemovals = 50;

}  // namespace pnl
