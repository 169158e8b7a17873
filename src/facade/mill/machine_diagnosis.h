// SPDX-License-Identifier: MIT
// The kernel's diagnosis of a fault in block preparation: a kind and two numbers, for which the error display has
// words.
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
