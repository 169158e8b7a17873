// SPDX-License-Identifier: MIT
// The record that the kernel fills for one error. Its layout is the exchange format with the kernel, so static_asserts
// check it. Some fields share bytes; the error's source decides which of them is valid. Texts for the operator are made
// elsewhere.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>

#include "base/text.h"

namespace pnl {

/// One typed parameter, 536 bytes.
struct ErrorParameter {
  std::int32_t valueType;  // 0: this parameter is absent
  std::int32_t unit;
  std::int32_t meaning;
  std::int32_t unused;
  unsigned char value[520];  // valueType says how to read it
};
static_assert(sizeof(ErrorParameter) == 536);
static_assert(offsetof(ErrorParameter, value) == 16);

/// One bare value, 24 bytes.
struct ErrorValue {
  std::int32_t valueType;
  std::int32_t unused;
  unsigned char value[16];
};
static_assert(sizeof(ErrorValue) == 24);
static_assert(offsetof(ErrorValue, value) == 8);

/// The values of valueType in parameters and extra values.
namespace value_type {
inline constexpr std::int32_t kAbsent = 0;
inline constexpr std::int32_t kBool = 1;
inline constexpr std::int32_t kUint8 = 2;
inline constexpr std::int32_t kInt8 = 3;
inline constexpr std::int32_t kUint16 = 4;
inline constexpr std::int32_t kInt16 = 5;
inline constexpr std::int32_t kUint32 = 6;
inline constexpr std::int32_t kInt32 = 7;
inline constexpr std::int32_t kDouble = 8;
inline constexpr std::int32_t kHexWord = 10;
inline constexpr std::int32_t kChar16 = 16;
inline constexpr std::int32_t kText = 17;
inline constexpr std::int32_t kHexValue = 18;
}  // namespace value_type

/// The record's 4048 bytes. Fields may overlap, so they are read and written by the offsets in error_field.
struct alignas(8) ErrorRecord {
  unsigned char bytes[4048];

  template <typename T>
  [[nodiscard]] T Get(std::size_t offset) const {
    T value;
    std::memcpy(&value, bytes + offset, sizeof value);
    return value;
  }
  template <typename T>
  void Set(std::size_t offset, T value) {
    std::memcpy(bytes + offset, &value, sizeof value);
  }
  /// Reads the text of a field of size bytes, up to its terminator or the field's end.
  [[nodiscard]] Text GetText(std::size_t offset, std::size_t size) const;
  /// Writes a text, cut to what fits, and its terminator. The bytes after the terminator stay as they were.
  void SetText(std::size_t offset, std::size_t size, TextView text);
};
static_assert(sizeof(ErrorRecord) == 4048);

/// One field: its name in scripts and logs, its place, and the kind of its value.
struct ErrorField {
  enum class Kind { kText, kInt32, kUint16, kInt8, kUint8 };
  const char* name;
  std::size_t offset;
  std::size_t size;  // in bytes
  Kind kind;
};

/// Values of the field kSource. All sources that aren't here are further parts of the kernel.
namespace error_source {
inline constexpr std::int32_t kKernel = 0;
inline constexpr std::int32_t kProgram = 1;
inline constexpr std::int32_t kPreparation = 2;
inline constexpr std::int32_t kPartner = 3;
inline constexpr std::int32_t kScript = 9;
inline constexpr std::int32_t kPlc = 10;
inline constexpr std::int32_t kTextBelow = 11;
inline constexpr std::int32_t kTextAlone = 12;
inline constexpr std::int32_t kDrive = 13;
inline constexpr std::int32_t kUnknownDrive = 14;
inline constexpr std::int32_t kOwnText = 15;
inline constexpr std::int32_t kMechatrolink = 16;
inline constexpr std::int32_t kFieldBus = 17;
inline constexpr std::int32_t kCanOpen = 19;
}  // namespace error_source

namespace error_field {
inline constexpr ErrorField kModule{"module", 0, 12, ErrorField::Kind::kText};
inline constexpr ErrorField kSource{"source", 12, 4, ErrorField::Kind::kInt32};
inline constexpr ErrorField kNumber{"number", 24, 4, ErrorField::Kind::kInt32};
inline constexpr ErrorField kIdentifier{"identifier", 28, 4, ErrorField::Kind::kInt32};
inline constexpr ErrorField kSeverity{"severity", 32, 2, ErrorField::Kind::kUint16};
inline constexpr ErrorField kChannel{"channel", 36, 1, ErrorField::Kind::kInt8};
inline constexpr ErrorField kMarked{"marked", 38, 1, ErrorField::Kind::kUint8};
inline constexpr ErrorField kMessageText{"messageText", 40, 168, ErrorField::Kind::kText};
inline constexpr ErrorField kCode{"code", 40, 4, ErrorField::Kind::kInt32};
inline constexpr ErrorField kPartner{"partner", 44, 4, ErrorField::Kind::kInt32};
inline constexpr ErrorField kDiagnosisKind{"diagnosisKind", 142, 2, ErrorField::Kind::kUint16};
inline constexpr ErrorField kDiagnosisA{"diagnosisA", 144, 2, ErrorField::Kind::kUint16};
inline constexpr ErrorField kDiagnosisB{"diagnosisB", 146, 2, ErrorField::Kind::kUint16};
inline constexpr ErrorField kProgramName{"programName", 168, 128, ErrorField::Kind::kText};
inline constexpr ErrorField kExtraText{"extraText", 208, 88, ErrorField::Kind::kText};
inline constexpr ErrorField kFilePosition{"filePosition", 296, 4, ErrorField::Kind::kInt32};
inline constexpr ErrorField kFileSpan{"fileSpan", 306, 2, ErrorField::Kind::kUint16};
inline constexpr ErrorField kProgramPath{"programPath", 308, 148, ErrorField::Kind::kText};
inline constexpr ErrorField kScriptState{"scriptState", 456, 4, ErrorField::Kind::kInt32};
inline constexpr ErrorField kScriptText{"scriptText", 460, 512, ErrorField::Kind::kText};
inline constexpr ErrorField kScriptPath{"scriptPath", 972, 244, ErrorField::Kind::kText};
inline constexpr ErrorField kScriptPosition{"scriptPosition", 1216, 4, ErrorField::Kind::kInt32};
inline constexpr ErrorField kScriptSpan{"scriptSpan", 1220, 2, ErrorField::Kind::kUint16};
/// All fields in order of their offsets.
inline constexpr ErrorField kAll[] = {
    kModule,   kSource,      kNumber,        kIdentifier, kSeverity,   kChannel,        kMarked,    kMessageText,
    kCode,     kPartner,     kDiagnosisKind, kDiagnosisA, kDiagnosisB, kProgramName,    kExtraText, kFilePosition,
    kFileSpan, kProgramPath, kScriptState,   kScriptText, kScriptPath, kScriptPosition, kScriptSpan};
inline constexpr std::size_t kParametersOffset = 1224;
inline constexpr std::size_t kParameterCount = 5;
inline constexpr std::size_t kExtraValuesOffset = 3904;
inline constexpr std::size_t kExtraValueCount = 4;
static_assert(kParametersOffset + kParameterCount * sizeof(ErrorParameter) == kExtraValuesOffset);
static_assert(kExtraValuesOffset + kExtraValueCount * sizeof(ErrorValue) <= sizeof(ErrorRecord));
/// An emergency of CANopen has its code, a 32-bit number, in the value of the last parameter.
inline constexpr std::size_t kEmergencyCodeOffset =
    kParametersOffset + (kParameterCount - 1) * sizeof(ErrorParameter) + offsetof(ErrorParameter, value);
static_assert(kEmergencyCodeOffset == 3384);
}  // namespace error_field

/// The record that Utilities::ErrorText fills.
struct Z7340ERRORINFO_ST {
  char16_t text[500];     // its first character is a separator
  char16_t helpRef[260];  // path and number separated by '#', or empty
  std::int32_t hasHelp;   // non-zero: the help view may open without being asked for
};
static_assert(sizeof(Z7340ERRORINFO_ST) == 1524);

}  // namespace pnl
