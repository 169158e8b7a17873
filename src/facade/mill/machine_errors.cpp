// SPDX-License-Identifier: MIT
#include "facade/mill/machine_errors.h"

#include <algorithm>
#include <array>
#include <optional>

#include "base/format.h"
#include "facade/mill/machine_data.h"
#include "facade/mill/machine_diagnosis.h"
#include "facade/mill/machine_record.h"

namespace pnl::sim {

namespace {

// clang-format off
constexpr std::array kFaultTexts{
    FaultText{FaultCode::kUnknownCharacter, 1001, u"Unknown character",           u"Carácter desconocido"},
    FaultText{FaultCode::kNumberMissing,    1002, u"Number missing",              u"Falta el número"},
    FaultText{FaultCode::kBadNumber,        1003, u"Malformed number",            u"Número mal escrito"},
    FaultText{FaultCode::kCommentOpen,      1004, u"Comment not closed",          u"Comentario sin cerrar"},
    FaultText{FaultCode::kUnknownWord,      1005, u"Unknown word",                u"Palabra desconocida"},
    FaultText{FaultCode::kUnknownG,         1006, u"Unknown G code",              u"Código G desconocido"},
    FaultText{FaultCode::kUnknownM,         1007, u"Unknown M code",              u"Código M desconocido"},
    FaultText{FaultCode::kSameGroup,        1008, u"Two codes of one group",      u"Dos códigos del mismo grupo"},
    FaultText{FaultCode::kWordTwice,        1009, u"Word given twice",            u"Palabra repetida"},
    FaultText{FaultCode::kUnusedWord,       1010, u"Word of no use here",         u"Palabra sin uso en el bloque"},
    FaultText{FaultCode::kBadValue,         1011, u"Value out of range",          u"Valor fuera de rango"},
    FaultText{FaultCode::kFeedMissing,      1012, u"Feed missing",                u"Falta el avance"},
    FaultText{FaultCode::kFeedZero,         1013, u"Feed must be above zero",     u"El avance debe ser mayor que cero"},
    FaultText{FaultCode::kFeedTooHigh,      1014, u"Feed too high",               u"Avance demasiado alto"},
    FaultText{FaultCode::kArcCentre,        1015, u"Arc without one centre",      u"Arco sin un centro único"},
    FaultText{FaultCode::kArcEnd,           1016, u"Arc end off the arc",         u"Punto final fuera del arco"},
    FaultText{FaultCode::kArcRadius,        1017, u"Wrong arc radius",            u"Radio de arco incorrecto"},
    FaultText{FaultCode::kTravelLimit,      1018, u"Travel limit exceeded",       u"Límite de recorrido sobrepasado"},
    FaultText{FaultCode::kSpindleStopped,   1019, u"Spindle stopped",             u"Cabezal parado"},
    FaultText{FaultCode::kSpeedMissing,     1020, u"Spindle speed missing",       u"Falta la velocidad del cabezal"},
    FaultText{FaultCode::kSpeedTooHigh,     1021, u"Spindle speed too high",      u"Velocidad del cabezal demasiado alta"},
    FaultText{FaultCode::kUnknownTool,      1022, u"Unknown tool",                u"Herramienta desconocida"},
    FaultText{FaultCode::kNoToolDiameter,   1023, u"Tool without a diameter",     u"Herramienta sin diámetro"},
    FaultText{FaultCode::kDwellTime,        1024, u"Dwell without a time",        u"Temporización sin tiempo"},
    FaultText{FaultCode::kDivisionByZero,   1025, u"Division by zero",            u"División por cero"},
    FaultText{FaultCode::kNotInMdi,         1031, u"The channel is not in MDI",   u"El canal no está en MDI"},
    FaultText{FaultCode::kBusy,             1032, u"The channel is busy",         u"El canal está ocupado"},
    FaultText{FaultCode::kEmergencyStop,    1033, u"Emergency stop",              u"Parada de emergencia"},
};
// clang-format on

constexpr bool InOrder() {
  for (std::size_t i = 0; i < kFaultTexts.size(); ++i) {
    if (static_cast<std::size_t>(kFaultTexts[i].code) != i) return false;
  }
  return kFaultTexts.size() == static_cast<std::size_t>(FaultCode::kEmergencyStop) + 1;
}
static_assert(InOrder());

/// The room for messageText in a record with a diagnosis, which is further on in the same field.
constexpr std::size_t kRoomBeforeDiagnosis = error_field::kDiagnosisKind.offset - error_field::kMessageText.offset;
static_assert(kRoomBeforeDiagnosis / sizeof(char16_t) == 51);

/// The greatest place of a word that a record can have, in UTF-16 units.
constexpr std::size_t kLongestSpan = 0xFFFF / sizeof(char16_t);

const FaultText& Entry(FaultCode code) { return kFaultTexts[static_cast<std::size_t>(code)]; }

/// How a fact is stored in a record.
struct FactRow {
  FaultFact::Kind kind;
  std::int32_t meaning;
  std::int32_t valueType;
  std::int32_t unit;
  std::int32_t inchUnit;
  double stored;  // the stored number for 1
};
using Kind = FaultFact::Kind;
constexpr double kMicroseconds = 1e6;
constexpr double kTenThousandths = 1e4;
// clang-format off
constexpr std::array kFacts{
    FactRow{Kind::kAxis,         parameter_meaning::kAxis,    value_type::kInt32,  parameter_unit::kNone,                 parameter_unit::kNone,            1},
    FactRow{Kind::kLimit,        parameter_meaning::kLimit,   value_type::kDouble, parameter_unit::kMillimetres,          parameter_unit::kInches,          1},
    FactRow{Kind::kTarget,       parameter_meaning::kTarget,  value_type::kDouble, parameter_unit::kMillimetres,          parameter_unit::kInches,          1},
    FactRow{Kind::kFeed,         parameter_meaning::kFeed,    value_type::kDouble, parameter_unit::kMillimetresPerMinute, parameter_unit::kInchesPerMinute, 1},
    FactRow{Kind::kFeedPerRevolution, parameter_meaning::kFeed, value_type::kDouble, parameter_unit::kPerRevolution,      parameter_unit::kPerRevolution,   kTenThousandths},
    FactRow{Kind::kFeedLimit,  parameter_meaning::kHighest, value_type::kDouble, parameter_unit::kMillimetresPerMinute, parameter_unit::kInchesPerMinute, 1},
    FactRow{Kind::kSpeed,        parameter_meaning::kSpeed,   value_type::kDouble, parameter_unit::kRevolutions,          parameter_unit::kRevolutions,     1},
    FactRow{Kind::kSpeedLimit, parameter_meaning::kHighest, value_type::kDouble, parameter_unit::kRevolutions,          parameter_unit::kRevolutions,     1},
    FactRow{Kind::kTool,         parameter_meaning::kTool,    value_type::kInt32,  parameter_unit::kNone,                 parameter_unit::kNone,            1},
    FactRow{Kind::kLowest,       parameter_meaning::kLowest,  value_type::kInt32,  parameter_unit::kNone,                 parameter_unit::kNone,            1},
    FactRow{Kind::kHighest,      parameter_meaning::kHighest, value_type::kInt32,  parameter_unit::kNone,                 parameter_unit::kNone,            1},
    FactRow{Kind::kHighestTime,  parameter_meaning::kHighest, value_type::kDouble, parameter_unit::kMicroseconds,         parameter_unit::kMicroseconds,    kMicroseconds},
};
// clang-format on

void PutFact(RecordMaker& maker, const FaultFact& fact, bool inches) {
  const auto* row =
      std::find_if(kFacts.begin(), kFacts.end(), [&](const FactRow& candidate) { return candidate.kind == fact.kind; });
  if (row == kFacts.end()) return;
  const std::int32_t unit = inches ? row->inchUnit : row->unit;
  const bool converted = unit == parameter_unit::kInches || unit == parameter_unit::kInchesPerMinute;
  const double value = fact.value * row->stored / (converted ? kInch : 1);
  if (row->valueType == value_type::kInt32) {
    maker.Parameter(row->meaning, row->valueType, static_cast<std::int32_t>(value), unit);
  } else {
    maker.Parameter(row->meaning, row->valueType, value, unit);
  }
}

/// Cuts the text to that many units. An ellipsis at the end shows that it was cut.
Text Cut(TextView text, std::size_t units) {
  return text.size() <= units ? Text(text) : Text(text.substr(0, units - 1)).append(1, u'…');
}

void PutDiagnosis(RecordMaker& maker, const Diagnosis& diagnosis, TextView block) {
  maker.Put({"messageText", error_field::kMessageText.offset, kRoomBeforeDiagnosis, ErrorField::Kind::kText},
            Cut(block, kRoomBeforeDiagnosis / sizeof(char16_t) - 1));
  maker.Put(error_field::kDiagnosisKind, diagnosis.kind);
  maker.Put(error_field::kDiagnosisA, diagnosis.a);
  maker.Put(error_field::kDiagnosisB, diagnosis.b);
}

/// The block as a line of its own, for which the error display has no caption.
Text BlockLine(TextView block, MachineLanguage language) {
  return Text(language == MachineLanguage::kSpanish ? u"\nBloque: " : u"\nBlock: ").append(block);
}

}  // namespace

std::span<const FaultText> FaultTexts() { return kFaultTexts; }

std::int32_t FaultNumber(FaultCode code) { return Entry(code).number; }

Text DescriptionFile(std::string_view language) {
  return Format(u"C:\\CNC\\HELP\\ERRORS\\%s\\MACHINE.TXT", FromUtf8(language));
}

Text HelpRefOf(std::int32_t number, MachineLanguage language) {
  return Format(u"%s#%d", DescriptionFile(language == MachineLanguage::kSpanish ? "es" : "en"), number);
}

TextView Wording(FaultCode code, MachineLanguage language) {
  return language == MachineLanguage::kSpanish ? Entry(code).spanish : Entry(code).english;
}

ErrorRecord MakeErrorRecord(const Fault& fault, TextView block, MachineLanguage language) {
  const std::int32_t number = FaultNumber(fault.code);
  const std::optional<Diagnosis> diagnosis = DiagnosisOf(fault);
  RecordMaker maker(diagnosis ? error_source::kPreparation : error_source::kKernel, number, severity::kError, u"NC");
  // As in an error of a program: where the word begins, in bytes from the start of the block.
  maker.Put(error_field::kFileSpan, static_cast<std::uint16_t>(sizeof(char16_t) * std::min(fault.begin, kLongestSpan)));
  if (diagnosis) PutDiagnosis(maker, *diagnosis, block);
  if (!fault.word.empty()) maker.Parameter(parameter_meaning::kValue, fault.word);
  for (const FaultFact& fact : fault.facts) PutFact(maker, fact, fault.inches);
  // With a diagnosis the block is in messageText already.
  if (!diagnosis && !block.empty()) maker.Parameter(parameter_meaning::kNone, BlockLine(block, language));
  return maker.Record();
}

}  // namespace pnl::sim
