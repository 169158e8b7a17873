// SPDX-License-Identifier: MIT
// Records whose address travels between tools through a 32-bit CNC variable: a number stands for the address until the
// owner withdraws it, so that a stale or invented number can't be followed into memory.
#pragma once

#include <cstddef>
#include <cstdint>

namespace pnl {

/// The number of a record; the same record keeps its number while it is published. 0 for null.
[[nodiscard]] std::int32_t PublishRecord(void* record);
/// The address, or null once it was withdrawn.
[[nodiscard]] void* ResolveRecord(std::int32_t number);
/// A number that isn't in use is left alone.
void WithdrawRecord(std::int32_t number);
/// How many records are published, for leak checks.
[[nodiscard]] std::size_t PublishedRecords();

}  // namespace pnl
