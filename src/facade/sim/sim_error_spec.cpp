// SPDX-License-Identifier: MIT
#include "facade/sim/sim_error_spec.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace pnl::sim {

namespace {

struct GivenField {
  const ErrorField* field;
  const rig::Value* value;
};

const ErrorField* FindField(std::string_view name) {
  const auto* found = std::find_if(std::begin(error_field::kAll), std::end(error_field::kAll),
                                   [name](const ErrorField& field) { return name == field.name; });
  return found == std::end(error_field::kAll) ? nullptr : found;
}

/// The number, if it is whole and fits in that many bits, signed or unsigned.
std::optional<std::int64_t> WholeNumber(const rig::Value& value, unsigned bits) {
  std::int64_t number = 0;
  if (const auto* whole = std::get_if<std::int64_t>(&value)) {
    number = *whole;
  } else if (const auto* real = std::get_if<double>(&value)) {
    if (!(std::abs(*real) <= 4294967296.0) || *real != std::trunc(*real)) return std::nullopt;
    number = static_cast<std::int64_t>(*real);
  } else {
    return std::nullopt;
  }
  const std::int64_t span = std::int64_t{1} << bits;
  if (number < -(span / 2) || number >= span) return std::nullopt;
  return number;
}

/// Writes a number of that many bytes in the machine's byte order, as in the kernel's record. Returns false when the
/// value isn't such a number.
bool PutNumber(unsigned char* to, std::size_t bytes, const rig::Value& value) {
  const auto number = WholeNumber(value, static_cast<unsigned>(bytes) * 8);
  if (!number) return false;
  const auto word = static_cast<std::uint32_t>(*number);
  const auto half = static_cast<std::uint16_t>(word & 0xFFFFU);
  const auto byte = static_cast<std::uint8_t>(word & 0xFFU);
  if (bytes == 4) std::memcpy(to, &word, sizeof word);
  if (bytes == 2) std::memcpy(to, &half, sizeof half);
  if (bytes == 1) std::memcpy(to, &byte, sizeof byte);
  return true;
}

bool PutText(unsigned char* to, std::size_t bytes, const rig::Value& value) {
  const auto* text = std::get_if<std::u16string>(&value);
  if (text == nullptr) return false;
  const TextView cut = TextView(*text).substr(0, bytes / sizeof(char16_t) - 1);
  std::memcpy(to, cut.data(), cut.size() * sizeof(char16_t));
  return true;
}

bool PutChar(unsigned char* to, const rig::Value& value) {
  const auto* text = std::get_if<std::u16string>(&value);
  if (text == nullptr) return PutNumber(to, 2, value);
  if (text->size() != 1) return false;
  std::memcpy(to, text->data(), sizeof(char16_t));
  return true;
}

bool PutDouble(unsigned char* to, const rig::Value& value) {
  double real = 0;
  if (const auto* whole = std::get_if<std::int64_t>(&value)) {
    real = static_cast<double>(*whole);
  } else if (const auto* given = std::get_if<double>(&value)) {
    real = *given;
  } else {
    return false;
  }
  std::memcpy(to, &real, sizeof real);
  return true;
}

bool PutTyped(unsigned char* to, std::size_t room, const rig::ErrorParameterSpec& spec) {
  if (std::holds_alternative<std::monostate>(spec.value)) return true;  // the value stays zero
  switch (spec.valueType) {
    case value_type::kBool:
    case value_type::kUint8:
    case value_type::kInt8:
      return PutNumber(to, 1, spec.value);
    case value_type::kUint16:
    case value_type::kInt16:
      return PutNumber(to, 2, spec.value);
    case value_type::kDouble:
      return PutDouble(to, spec.value);
    case value_type::kChar16:
      return PutChar(to, spec.value);
    case value_type::kText:
      return PutText(to, room, spec.value);
    default:
      return PutNumber(to, 4, spec.value);
  }
}

bool PutField(ErrorRecord& record, const GivenField& given, std::size_t room) {
  unsigned char* to = record.bytes + given.field->offset;
  if (given.field->kind == ErrorField::Kind::kText) {
    return room < 2 * sizeof(char16_t) ? std::holds_alternative<std::u16string>(*given.value)
                                       : PutText(to, room, *given.value);
  }
  return PutNumber(to, given.field->size, *given.value);
}

/// Writes the fields in ascending order of their offsets, whatever the order in which they were given, because some
/// share bytes: a field then cuts the text before it, and a number at the offset of a text replaces the text.
bool PutFields(ErrorRecord& record, std::vector<GivenField> given, std::string& problem) {
  std::stable_sort(given.begin(), given.end(), [](const GivenField& a, const GivenField& b) {
    if (a.field->offset != b.field->offset) return a.field->offset < b.field->offset;
    return a.field->kind == ErrorField::Kind::kText && b.field->kind != ErrorField::Kind::kText;
  });
  for (std::size_t i = 0; i < given.size(); ++i) {
    std::size_t room = given[i].field->size;
    if (i + 1 < given.size()) room = std::min(room, given[i + 1].field->offset - given[i].field->offset);
    if (PutField(record, given[i], room)) continue;
    problem = given[i].field->name;
    return false;
  }
  return true;
}

bool PutParameters(ErrorRecord& record, const std::vector<rig::ErrorParameterSpec>& specs, std::string& problem) {
  if (specs.size() > error_field::kParameterCount) {
    problem = "parameters";
    return false;
  }
  for (std::size_t i = 0; i < specs.size(); ++i) {
    ErrorParameter parameter{};
    parameter.valueType = specs[i].valueType;
    parameter.unit = specs[i].unit;
    parameter.meaning = specs[i].meaning;
    if (!PutTyped(parameter.value, sizeof parameter.value, specs[i])) {
      problem = "parameters[" + std::to_string(i) + "].value";
      return false;
    }
    record.Set(error_field::kParametersOffset + i * sizeof parameter, parameter);
  }
  return true;
}

bool PutExtraValues(ErrorRecord& record, const std::vector<rig::ErrorParameterSpec>& specs, std::string& problem) {
  if (specs.size() > error_field::kExtraValueCount) {
    problem = "extraValues";
    return false;
  }
  for (std::size_t i = 0; i < specs.size(); ++i) {
    ErrorValue value{};
    value.valueType = specs[i].valueType;
    if (!PutTyped(value.value, sizeof value.value, specs[i])) {
      problem = "extraValues[" + std::to_string(i) + "].value";
      return false;
    }
    record.Set(error_field::kExtraValuesOffset + i * sizeof value, value);
  }
  return true;
}

}  // namespace

std::optional<ErrorRecord> MakeErrorRecord(const rig::ErrorSpec& spec, std::string& problem) {
  std::vector<GivenField> given;
  for (const rig::Field& field : spec.fields) {
    const ErrorField* known = FindField(field.name);
    if (known == nullptr) {
      problem = field.name;
      return std::nullopt;
    }
    given.push_back({known, &field.value});
  }
  ErrorRecord record{};
  if (!PutFields(record, std::move(given), problem)) return std::nullopt;
  if (!PutParameters(record, spec.parameters, problem)) return std::nullopt;
  if (!PutExtraValues(record, spec.extraValues, problem)) return std::nullopt;
  return record;
}

}  // namespace pnl::sim
