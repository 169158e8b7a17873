// SPDX-License-Identifier: MIT
// The kernel's error records for tests, by the fields that a test is about.
#pragma once

#include <cstring>

#include "errors/error_class.h"
#include "facade/error_record.h"
#include "pnltools/rig.h"

namespace pnl::test {

/// A kernel error of class 0 in channel 1, changed field by field.
class RecordBuilder {
 public:
  RecordBuilder() {
    Int(error_field::kNumber, 1000);
    Int(error_field::kIdentifier, 77);
    Text(error_field::kModule, u"NC");
    Word(error_field::kSeverity, 1);
  }
  RecordBuilder& Source(std::int32_t source) { return Int(error_field::kSource, source); }
  RecordBuilder& Number(std::int32_t number) { return Int(error_field::kNumber, number); }
  RecordBuilder& Severity(std::uint16_t severity) { return Word(error_field::kSeverity, severity); }
  RecordBuilder& Marked() { return Byte(error_field::kMarked, 1); }
  RecordBuilder& Channel(int channel) { return Byte(error_field::kChannel, static_cast<std::uint8_t>(channel)); }
  RecordBuilder& Diagnosis(std::uint16_t kind, std::uint16_t a, std::uint16_t b) {
    Source(error_source::kPreparation);
    Word(error_field::kDiagnosisKind, kind);
    Word(error_field::kDiagnosisA, a);
    return Word(error_field::kDiagnosisB, b);
  }
  RecordBuilder& Int(const ErrorField& field, std::int32_t value) { return Put(field, value); }
  RecordBuilder& Word(const ErrorField& field, std::uint16_t value) { return Put(field, value); }
  RecordBuilder& Byte(const ErrorField& field, std::uint8_t value) { return Put(field, value); }
  RecordBuilder& Text(const ErrorField& field, TextView text) {
    record_.SetText(field.offset, field.size, text);
    return *this;
  }
  RecordBuilder& Parameter(std::size_t index, const ErrorParameter& parameter) {
    record_.Set(error_field::kParametersOffset + index * sizeof(ErrorParameter), parameter);
    return *this;
  }
  RecordBuilder& Extra(std::size_t index, const ErrorValue& value) {
    record_.Set(error_field::kExtraValuesOffset + index * sizeof(ErrorValue), value);
    return *this;
  }
  operator const ErrorRecord&() const { return record_; }

 private:
  template <typename T>
  RecordBuilder& Put(const ErrorField& field, T value) {
    record_.Set(field.offset, value);
    return *this;
  }
  ErrorRecord record_{};
};

template <typename T>
ErrorParameter Parameter(std::int32_t type, std::int32_t unit, std::int32_t meaning, T value) {
  ErrorParameter parameter{};
  parameter.valueType = type;
  parameter.unit = unit;
  parameter.meaning = meaning;
  std::memcpy(parameter.value, &value, sizeof value);
  return parameter;
}

inline ErrorParameter TextParameter(std::int32_t meaning, TextView text) {
  ErrorParameter parameter{};
  parameter.valueType = 17;
  parameter.meaning = meaning;
  std::memcpy(parameter.value, text.data(), text.size() * sizeof(char16_t));
  return parameter;
}

template <typename T>
ErrorValue ExtraValue(std::int32_t type, T value) {
  ErrorValue extra{};
  extra.valueType = type;
  std::memcpy(extra.value, &value, sizeof value);
  return extra;
}

/// Into the queue of a simulated CNC.
inline void PushRecord(rig::CncControl& cnc, const ErrorRecord& record) {
  cnc.PushErrorRecord({reinterpret_cast<const char*>(record.bytes), sizeof record.bytes});
}

}  // namespace pnl::test
