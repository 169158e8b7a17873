// SPDX-License-Identifier: MIT
// Numbers for records whose address tools pass through a 32-bit CNC variable. A number means the address until the
// owner withdraws it, so that a stale or invented number can't lead into memory.
#pragma once

#include <cstddef>
#include <cstdint>

namespace pnl {

/// Publishes a record and returns its number. A record that is published already keeps its number. Returns 0 for null.
[[nodiscard]] std::int32_t PublishRecord(void* record);
/// The address of the record with that number; null when it was withdrawn or never published.
[[nodiscard]] void* ResolveRecord(std::int32_t number);
/// Ends the number. Does nothing when it isn't in use.
void WithdrawRecord(std::int32_t number);
/// How many records are published, for leak checks.
[[nodiscard]] std::size_t PublishedRecords();

}  // namespace pnl
