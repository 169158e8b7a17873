// SPDX-License-Identifier: MIT
#include "errors/error_values.h"

#include <array>
#include <cfloat>
#include <cstring>
#include <optional>

#include "base/format.h"
#include "base/numbers.h"

namespace pnl {

namespace {

namespace meaning {
constexpr std::int32_t kAxis = 6;
constexpr std::int32_t kSercosError = 17;
constexpr std::int32_t kMlinkError = 18;
}  // namespace meaning

/// The scale of speeds, which are shown per minute.
constexpr double kPerMinute = 16.666666666666668;

// By code. The texts are formats, so a percent sign is doubled. Only "inc" has no blanks around it.
constexpr std::array kUnits{
    ErrorUnit{u" ", 1, false},
    ErrorUnit{u" [mm(º)] ", 10000, false},
    ErrorUnit{u" [mm(º)/min] ", kPerMinute, false},
    ErrorUnit{u" [mm(º)/s^2] ", 1, false},
    ErrorUnit{u" [mm(º)/s^3] ", 1, false},
    ErrorUnit{u" [s] ", 1000000, false},
    ErrorUnit{u" [%%] ", 10, false},
    ErrorUnit{u" ", 1, false},
    ErrorUnit{u"inc", 1, false},
    ErrorUnit{u" [mm(º)/U] ", 10000, false},
    ErrorUnit{u" [mm(º)/min] ", kPerMinute, false},
    ErrorUnit{u" [mm(º)] ", 1, false},
    ErrorUnit{u" [mm(º)/min] ", 1, false},
    ErrorUnit{u" [rpm] ", 1, false},
    ErrorUnit{u" [ms] ", 1, false},
    ErrorUnit{u" [%%] ", 1, false},
    ErrorUnit{u" [inch] ", 1, true},
    ErrorUnit{u" [inch/min] ", 1, true},
    ErrorUnit{u" [inch/s^2] ", 1, true},
    ErrorUnit{u" [inch/s^3] ", 1, true},
};

/// By meaning. 0 means that there is no caption or that the kernel has it.
constexpr std::array kCaptions{0,   215, 216, 217, 218, 219, 220, 221, 222, 223, 224,
                               225, 226, 227, 228, 248, 249, 0,   0,   264, 265};

constexpr int kPrecision = 4;
constexpr int kInchPrecision = 5;

template <typename T>
T Read(const unsigned char* bytes) {
  T value;
  std::memcpy(&value, bytes, sizeof value);
  return value;
}

/// The number in a value of that type. Returns nothing if the type isn't a whole number.
std::optional<double> WholeNumber(std::int32_t type, const unsigned char* bytes) {
  switch (type) {
    case value_type::kUint8:
      return Read<std::uint8_t>(bytes);
    case value_type::kInt8:
      return Read<std::int8_t>(bytes);
    case value_type::kUint16:
      return Read<std::uint16_t>(bytes);
    case value_type::kInt16:
      return Read<std::int16_t>(bytes);
    case value_type::kUint32:
    case value_type::kHexWord:
    case value_type::kHexValue:
      return Read<std::uint32_t>(bytes);
    case value_type::kInt32:
      return Read<std::int32_t>(bytes);
    default:
      return std::nullopt;
  }
}

/// The text of a value that is printed in the same way in a parameter and in an extra value.
Text PlainValue(std::int32_t type, const unsigned char* bytes, std::size_t size) {
  switch (type) {
    case value_type::kBool:
      return bytes[0] != 0 ? u" TRUE" : u" FALSE";
    case value_type::kChar16: {
      const auto character = Read<char16_t>(bytes);
      return character == u'\0' ? Text(u" ") : Format(u" %c", character);
    }
    case value_type::kText: {
      Text text(1, u' ');
      for (std::size_t at = 0; at + sizeof(char16_t) <= size; at += sizeof(char16_t)) {
        const auto unit = Read<char16_t>(bytes + at);
        if (unit == u'\0') break;
        text.push_back(unit);
      }
      return text;
    }
    default:
      return {};
  }
}

Text ScaledValue(const ErrorParameter& parameter, const ErrorUnit& unit) {
  if (parameter.valueType == value_type::kDouble) {
    return FormatDouble(Read<double>(parameter.value) / unit.scale, unit.inch ? kInchPrecision : kPrecision);
  }
  const auto number = WholeNumber(parameter.valueType, parameter.value);
  if (!number) return PlainValue(parameter.valueType, parameter.value, sizeof parameter.value);
  // Only the low 32 bits are printed, and "%d" reads them with a sign. So large unsigned values appear as negative.
  const std::uint32_t scaled = TruncateToLowWord(*number / unit.scale);
  const bool hex = parameter.valueType == value_type::kHexWord || parameter.valueType == value_type::kHexValue;
  return hex ? Format(u"0x%X", scaled) : Format(u" %d", scaled);
}

/// The line for the code of a drive or bus error. The kernel's text is a format that takes the code. It is one blank if
/// the kernel doesn't know the code.
Text CodeCaption(const ErrorParameter& parameter, Kernel& kapi) {
  const auto code = Read<std::uint16_t>(parameter.value);
  Text text;
  const int known = parameter.meaning == meaning::kSercosError ? kapi.GetTextoSercosError(code, text)
                                                               : kapi.GetTextoMlinkError(code, text);
  if (known == -1) text = u" ";
  return u"\n" + Format(text, code);
}

}  // namespace

ErrorUnit UnitOf(std::int32_t code) {
  if (code < 0 || static_cast<std::size_t>(code) >= kUnits.size()) return {TextView(), 1, false};
  return kUnits[static_cast<std::size_t>(code)];
}

int CaptionTextOf(std::int32_t code) {
  if (code < 0 || static_cast<std::size_t>(code) >= kCaptions.size()) return 0;
  return kCaptions[static_cast<std::size_t>(code)];
}

Text FormatDouble(double value, int precision) {
  constexpr auto kLimit = static_cast<float>(3.4e38);
  // The comparison is in single precision. The first part avoids converting a value that is out of its range.
  const auto beyond = [](double number) {
    return number > static_cast<double>(FLT_MAX) || static_cast<float>(number) > kLimit;
  };
  return Format(beyond(value) || beyond(-value) ? u" %.*e" : u" %.*f", precision, value);
}

Text ComposeValue(const ErrorValue& value) {
  switch (value.valueType) {
    case value_type::kDouble:
      return FormatDouble(Read<double>(value.value), kPrecision);
    case value_type::kHexWord:
      return {};
    case value_type::kHexValue:
      return Format(u"0x%X", Read<std::uint32_t>(value.value));
    default:
      break;
  }
  const auto number = WholeNumber(value.valueType, value.value);
  if (number) return Format(u" %d", TruncateToLowWord(*number));
  return PlainValue(value.valueType, value.value, sizeof value.value);
}

Text ComposeParameter(const ErrorParameter& parameter, const ErrorWords& words, Kernel& kapi) {
  if (parameter.valueType == value_type::kAbsent) return {};
  if (parameter.meaning == meaning::kSercosError || parameter.meaning == meaning::kMlinkError) {
    return CodeCaption(parameter, kapi);
  }
  const ErrorUnit unit = UnitOf(parameter.unit);
  Text value = ScaledValue(parameter, unit);
  // A text without a meaning is a whole line of the kernel. It has no caption, no unit and no blank before it.
  if (parameter.valueType == value_type::kText && parameter.meaning == 0) return value.substr(1);
  const int captionText = CaptionTextOf(parameter.meaning);
  Text line = captionText == 0 ? Text() : Format(u"\n%s", words(captionText));
  if (parameter.meaning == meaning::kAxis) {
    Text name;
    if (kapi.ConvertLogToName(ParseIntPrefix(value), name) == 0) line += name;
    return line;
  }
  line += value;
  line += Format(unit.text);
  return line;
}

}  // namespace pnl
