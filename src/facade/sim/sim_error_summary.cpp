// SPDX-License-Identifier: MIT
#include "facade/sim/sim_error_summary.h"

#include <algorithm>
#include <array>
#include <optional>
#include <string_view>
#include <utility>

#include "base/format.h"
#include "facade/error_class.h"
#include "facade/utilities.h"

namespace pnl::sim {

namespace {

struct TableOfSource {
  std::int32_t source;
  ErrorTextFunction error;
  ErrorTextFunction warning;
};
constexpr std::array kTables{
    TableOfSource{error_source::kPlc, ErrorTextFunction::kReadPlcError, ErrorTextFunction::kReadPlcError},
    TableOfSource{error_source::kDrive, ErrorTextFunction::kErrorDrive, ErrorTextFunction::kWarningDrive},
    TableOfSource{error_source::kUnknownDrive, ErrorTextFunction::kErrorUnknownDrive,
                  ErrorTextFunction::kWarningUnknownDrive},
    TableOfSource{error_source::kMechatrolink, ErrorTextFunction::kErrorMlink, ErrorTextFunction::kWarningDrive},
    TableOfSource{error_source::kFieldBus, ErrorTextFunction::kErrorCs, ErrorTextFunction::kWarningCs},
    TableOfSource{error_source::kCanOpen, ErrorTextFunction::kEmcyCopen, ErrorTextFunction::kEmcyCopen},
};

Text FieldOf(const ErrorRecord& record, const ErrorField& field) { return record.GetText(field.offset, field.size); }

Text WithoutLeadingLineFeed(Text text) {
  if (text.starts_with(u'\n')) text.erase(0, 1);
  return text;
}

template <typename T>
T Read(const unsigned char* bytes) {
  T value;
  std::memcpy(&value, bytes, sizeof value);
  return value;
}

Text OwnText(const ErrorRecord& record, std::int32_t source) {
  if (source == error_source::kPartner) return {};
  const ErrorField& field = source == error_source::kScript ? error_field::kScriptText : error_field::kMessageText;
  return WithoutLeadingLineFeed(FieldOf(record, field));
}

/// The row of the tables of texts that belongs to a record.
struct TableRow {
  std::string_view function;
  std::int32_t number;
};

TableRow RowOf(const ErrorRecord& record, std::int32_t source) {
  const bool warning = record.Get<std::uint16_t>(error_field::kSeverity.offset) == 0;
  const auto* row = std::find_if(kTables.begin(), kTables.end(),
                                 [source](const TableOfSource& candidate) { return candidate.source == source; });
  auto function = ErrorTextFunction::kErrorToTxt;
  if (row != kTables.end()) function = warning ? row->warning : row->error;
  const std::size_t number =
      source == error_source::kCanOpen ? error_field::kEmergencyCodeOffset : error_field::kNumber.offset;
  return {ErrorTextFunctionName(function), record.Get<std::int32_t>(number)};
}

/// The text for the record's number in the table of its source; null when there is none.
const Text* TableText(const ErrorRecord& record, std::int32_t source, const SimErrorTexts& texts) {
  const TableRow row = RowOf(record, source);
  return texts.Find(row.function, row.number);
}

std::optional<rig::ProgramSpot> SpotOf(const ErrorRecord& record, std::int32_t source) {
  const bool script = source == error_source::kScript;
  if (!script && source != error_source::kProgram) return std::nullopt;
  rig::ProgramSpot spot;
  spot.file = FieldOf(record, error_field::kProgramName);
  if (spot.file.empty()) return std::nullopt;
  spot.folder = FieldOf(record, script ? error_field::kScriptPath : error_field::kProgramPath);
  spot.position = record.Get<std::int32_t>((script ? error_field::kScriptPosition : error_field::kFilePosition).offset);
  // The record counts in bytes of the text in memory, two for each unit.
  spot.span = record.Get<std::uint16_t>((script ? error_field::kScriptSpan : error_field::kFileSpan).offset) / 2;
  return spot;
}

Text OperatorText(const ErrorRecord& record, std::int32_t source, const SimErrorTexts& texts) {
  Text own = OwnText(record, source);
  // The text in such a record goes before the table's.
  const bool ownFirst = source == error_source::kOwnText || source == error_source::kScript;
  if (ownFirst && !own.empty()) return own;
  const Text* known = TableText(record, source, texts);
  return known != nullptr && known->size() > 1 ? known->substr(1) : own;
}

}  // namespace

Text PlainValue(std::int32_t valueType, const unsigned char* bytes, std::size_t size) {
  switch (valueType) {
    case value_type::kBool:
      return bytes[0] != 0 ? u"TRUE" : u"FALSE";
    case value_type::kUint8:
      return Format(u"%d", Read<std::uint8_t>(bytes));
    case value_type::kInt8:
      return Format(u"%d", Read<std::int8_t>(bytes));
    case value_type::kUint16:
      return Format(u"%d", Read<std::uint16_t>(bytes));
    case value_type::kInt16:
      return Format(u"%d", Read<std::int16_t>(bytes));
    case value_type::kUint32:
      return Format(u"%u", Read<std::uint32_t>(bytes));
    case value_type::kInt32:
      return Format(u"%d", Read<std::int32_t>(bytes));
    case value_type::kDouble:
      return Format(u"%.10g", Read<double>(bytes));
    case value_type::kHexWord:
    case value_type::kHexValue:
      return Format(u"0x%X", Read<std::uint32_t>(bytes));
    case value_type::kChar16: {
      const auto unit = Read<char16_t>(bytes);
      return unit == u'\0' ? Text() : Text(1, unit);
    }
    case value_type::kText: {
      Text text;
      for (std::size_t at = 0; at + sizeof(char16_t) <= size; at += sizeof(char16_t)) {
        const auto unit = Read<char16_t>(bytes + at);
        if (unit == u'\0') break;
        text.push_back(unit);
      }
      return WithoutLeadingLineFeed(std::move(text));
    }
    default:
      return {};
  }
}

rig::CncControl::ErrorSummary Summarize(const ErrorRecord& record, std::int64_t serial, const SimErrorTexts& texts) {
  rig::CncControl::ErrorSummary summary;
  summary.number = record.Get<std::int32_t>(error_field::kNumber.offset);
  // It is a number that may be negative, not a character.
  summary.channel = record.Get<std::int8_t>(error_field::kChannel.offset);  // NOLINT(bugprone-signed-char-misuse)
  summary.severity = record.Get<std::uint16_t>(error_field::kSeverity.offset);
  summary.errorClass = static_cast<rig::CncControl::ErrorClass>(ClassifyError(record));
  summary.source = record.Get<std::int32_t>(error_field::kSource.offset);
  summary.identifier = record.Get<std::int32_t>(error_field::kIdentifier.offset);
  summary.module = FieldOf(record, error_field::kModule);
  summary.text = OperatorText(record, summary.source, texts);
  summary.serial = serial;
  summary.program = SpotOf(record, summary.source);
  const TableRow row = RowOf(record, summary.source);
  if (const Text* helpRef = texts.FindHelpRef(row.function, row.number)) summary.helpRef = *helpRef;
  for (std::size_t i = 0; i < error_field::kParameterCount; ++i) {
    const std::size_t at = error_field::kParametersOffset + i * sizeof(ErrorParameter);
    const auto type = record.Get<std::int32_t>(at + offsetof(ErrorParameter, valueType));
    if (type == value_type::kAbsent) continue;
    summary.parameters.push_back(
        PlainValue(type, record.bytes + at + offsetof(ErrorParameter, value), sizeof(ErrorParameter::value)));
  }
  return summary;
}

}  // namespace pnl::sim
