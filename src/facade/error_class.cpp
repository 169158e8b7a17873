// SPDX-License-Identifier: MIT
#include "facade/error_class.h"

namespace pnl {

// The order of the checks matters: a warning is a warning whatever else is set, and a mark goes before a fatal
// severity.
ErrorClass ClassifyError(const ErrorRecord& record) {
  constexpr std::uint16_t kSeverityWarning = 0;
  constexpr std::uint16_t kSeverityFatal = 7;
  const auto severity = record.Get<std::uint16_t>(error_field::kSeverity.offset);
  if (severity == kSeverityWarning) return ErrorClass::kWarning;
  if (record.Get<std::uint8_t>(error_field::kMarked.offset) != 0) return ErrorClass::kMarked;
  if (record.Get<std::int32_t>(error_field::kNumber.offset) == kConfirmNumber) return ErrorClass::kConfirm;
  return severity == kSeverityFatal ? ErrorClass::kFatal : ErrorClass::kError;
}

}  // namespace pnl
