// SPDX-License-Identifier: MIT
// The class of an error, which decides how it is shown and acknowledged. Window, indicator and list all get it from
// here, so that they agree.
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

/// The number of the error that the operator confirms with Enter.
inline constexpr std::int32_t kConfirmNumber = 3753;

[[nodiscard]] ErrorClass ClassifyError(const ErrorRecord& record);

}  // namespace pnl
