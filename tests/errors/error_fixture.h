// SPDX-License-Identifier: MIT
// Records by the fields that a test is about, and a composer over the simulated CNC whose words read "Tn".
#pragma once

#include <map>
#include <string>

#include "errors/error_composer.h"
#include "errors/error_values.h"
#include "support/memory_files.h"
#include "support/sim_fixture.h"

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

/// The kernel's queue, and the texts of some errors.
inline void DefineErrors(rig::CncControl& cnc) {
  for (const char16_t* name : {u"E.NERRORS", u"E.ERRORPRI"}) {
    cnc.Define(name, rig::VariableType::kInt, std::int64_t{0}, true, true);
  }
  for (const int number : {1000, 1001, 1002, 2000, 201, 3753}) {
    cnc.ErrorText("error_to_txt", number, u"|fault " + FromUtf8(std::to_string(number)), u"", false);
  }
}

inline void PushRecord(rig::CncControl& cnc, const ErrorRecord& record) {
  cnc.PushErrorRecord({reinterpret_cast<const char*>(record.bytes), sizeof record.bytes});
}

class ErrorFixture : public SimFixture {
 protected:
  ErrorFixture() {
    for (int id = 200; id < 270; ++id) texts[id] = FromUtf8("T" + std::to_string(id));
    for (int id = 57340; id < 57360; ++id) texts[id] = FromUtf8("T" + std::to_string(id));
  }

  ComposedError Compose(const ErrorRecord& record) { return ComposeError(record, Around()); }
  std::string DescriptionOf(const ErrorRecord& record) { return ToUtf8(Compose(record).Description()); }
  std::string Line(const ErrorParameter& parameter) { return ToUtf8(ComposeParameter(parameter, words, cnc.Kapi())); }
  ErrorSurroundings Around() { return {cnc.Kapi(), cnc.Util(), disc, words, widths}; }

  std::map<int, Text> texts;
  ErrorWords words{texts};
  TextWidths widths{[](TextView text) { return static_cast<int>(text.size()) * 8; }, 4000};
  MemoryFiles disc;
};

}  // namespace pnl::test
