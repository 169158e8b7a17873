// SPDX-License-Identifier: MIT
// Fills one error record field by field, and its typed parameters in the order of the calls. Knows the layout and the
// codes; the faults and their texts are in machine_errors and machine_raised.
#pragma once

#include <cstdint>
#include <type_traits>

#include "base/text.h"
#include "facade/error_record.h"

namespace pnl::sim {

namespace severity {
inline constexpr std::uint16_t kWarning = 0;
inline constexpr std::uint16_t kError = 1;
inline constexpr std::uint16_t kFatal = 7;
}  // namespace severity

/// The meanings of parameters that the mill uses.
namespace parameter_meaning {
inline constexpr std::int32_t kNone = 0;
inline constexpr std::int32_t kLimit = 1;
inline constexpr std::int32_t kValue = 2;
inline constexpr std::int32_t kLowest = 3;
inline constexpr std::int32_t kHighest = 4;
inline constexpr std::int32_t kAxis = 6;
inline constexpr std::int32_t kTarget = 10;
inline constexpr std::int32_t kFeed = 11;
inline constexpr std::int32_t kSpeed = 12;
inline constexpr std::int32_t kTool = 13;
inline constexpr std::int32_t kNode = 15;
inline constexpr std::int32_t kDriveCode = 17;
}  // namespace parameter_meaning

/// The units that the mill's parameters have.
namespace parameter_unit {
inline constexpr std::int32_t kNone = 0;
inline constexpr std::int32_t kMicroseconds = 5;
inline constexpr std::int32_t kPerRevolution = 9;  // in 1/10000 mm
inline constexpr std::int32_t kMillimetres = 11;
inline constexpr std::int32_t kMillimetresPerMinute = 12;
inline constexpr std::int32_t kRevolutions = 13;
inline constexpr std::int32_t kInches = 16;
inline constexpr std::int32_t kInchesPerMinute = 17;
}  // namespace parameter_unit

class RecordMaker {
 public:
  /// Begins a record with severityCode, module and the mill's only channel. The number becomes its identifier too.
  RecordMaker(std::int32_t source, std::int32_t number, std::uint16_t severityCode, TextView module);

  void Put(const ErrorField& field, TextView text) { record_.SetText(field.offset, field.size, text); }
  template <typename T>
  requires std::is_arithmetic_v<T>
  void Put(const ErrorField& field, T value) { record_.Set(field.offset, value); }

  /// Adds the next parameter. Does nothing when there are five already.
  template <typename T>
  requires std::is_arithmetic_v<T>
  void Parameter(std::int32_t meaning, std::int32_t valueType, T value, std::int32_t unit = parameter_unit::kNone) {
    Begin(meaning, valueType, unit,
          [value](ErrorParameter& parameter) { std::memcpy(parameter.value, &value, sizeof value); });
  }
  /// Adds a text, cut to what fits.
  void Parameter(std::int32_t meaning, TextView text);
  /// Puts the code into the value of the fifth parameter, which stays absent.
  void EmergencyCode(std::uint32_t code);

  [[nodiscard]] const ErrorRecord& Record() const { return record_; }

 private:
  template <typename Fill>
  void Begin(std::int32_t meaning, std::int32_t valueType, std::int32_t unit, Fill fill) {
    if (count_ == error_field::kParameterCount) return;
    ErrorParameter parameter{};
    parameter.valueType = valueType;
    parameter.unit = unit;
    parameter.meaning = meaning;
    fill(parameter);
    record_.Set(error_field::kParametersOffset + count_++ * sizeof parameter, parameter);
  }

  ErrorRecord record_{};
  std::size_t count_ = 0;
};

}  // namespace pnl::sim
