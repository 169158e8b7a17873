// SPDX-License-Identifier: MIT
#include "facade/mill/machine_record.h"

namespace pnl::sim {

namespace {
constexpr std::int8_t kChannel = 1;
}

RecordMaker::RecordMaker(std::int32_t source, std::int32_t number, std::uint16_t severityCode, TextView module) {
  Put(error_field::kModule, module);
  Put(error_field::kSource, source);
  Put(error_field::kNumber, number);
  Put(error_field::kIdentifier, number);
  Put(error_field::kSeverity, severityCode);
  Put(error_field::kChannel, kChannel);
}

void RecordMaker::Parameter(std::int32_t meaning, TextView text) {
  Begin(meaning, value_type::kText, parameter_unit::kNone, [text](ErrorParameter& parameter) {
    const TextView cut = text.substr(0, sizeof parameter.value / sizeof(char16_t) - 1);
    std::memcpy(parameter.value, cut.data(), cut.size() * sizeof(char16_t));
  });
}

void RecordMaker::EmergencyCode(std::uint32_t code) { record_.Set(error_field::kEmergencyCodeOffset, code); }

}  // namespace pnl::sim
