// SPDX-License-Identifier: MIT
// What the kernel's block preparation says of a fault by itself: a kind and two numbers, which the error display words.
// A fault that it has no kind for, or whose numbers don't fit, has none.
#pragma once

#include <cstdint>
#include <optional>

#include "facade/mill/machine_fault.h"

namespace pnl::sim {

struct Diagnosis {
  std::uint16_t kind = 0;
  std::uint16_t a = 0;
  std::uint16_t b = 0;
};

[[nodiscard]] std::optional<Diagnosis> DiagnosisOf(const Fault& fault);

}  // namespace pnl::sim
