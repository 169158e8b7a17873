// SPDX-License-Identifier: MIT
// The class of an error: what its record says about how it is shown and acknowledged. The one place that sorts errors;
// window, indicator and list all get their class from here.
#pragma once

#include <cstdint>

#include "facade/error_record.h"

namespace pnl {

enum class ErrorClass : std::int32_t {
  kError = 0,
  kMarked = 1,
  kWarning = 2,
  kFatal = 3,
  kConfirm = 4,
};

/// The error that is confirmed with Enter.
inline constexpr std::int32_t kConfirmNumber = 3753;

[[nodiscard]] ErrorClass ClassifyError(const ErrorRecord& record);

}  // namespace pnl
