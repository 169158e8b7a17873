// SPDX-License-Identifier: MIT
#include "facade/sim/machine_errors.h"

#include <array>

#include "base/format.h"

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

/// An error whose title and second line stand in the record itself.
constexpr std::int32_t kSourceWithText = 15;
constexpr std::uint16_t kSeverityError = 1;

const FaultText& Entry(FaultCode code) { return kFaultTexts[static_cast<std::size_t>(code)]; }

void Put(ErrorRecord& record, const ErrorField& field, TextView text) {
  record.SetText(field.offset, field.size, text);
}

}  // namespace

std::span<const FaultText> FaultTexts() { return kFaultTexts; }

std::int32_t FaultNumber(FaultCode code) { return Entry(code).number; }

Text DescriptionFile(std::string_view language) {
  return u"C:\\CNC\\HELP\\ERRORS\\" + FromUtf8(language) + u"\\MACHINE.TXT";
}

Text HelpRefOf(std::int32_t number, MachineLanguage language) {
  return DescriptionFile(language == MachineLanguage::kSpanish ? "es" : "en") + Format(u"#%d", number);
}

Text Describe(const Fault& fault, MachineLanguage language) {
  const FaultText& entry = Entry(fault.code);
  Text text(language == MachineLanguage::kSpanish ? entry.spanish : entry.english);
  if (!fault.word.empty()) text.append(u": ").append(fault.word);
  return text;
}

ErrorRecord MakeErrorRecord(const Fault& fault, TextView block, MachineLanguage language) {
  ErrorRecord record{};
  const std::int32_t number = FaultNumber(fault.code);
  Put(record, error_field::kModule, u"NC");
  record.Set(error_field::kSource.offset, kSourceWithText);
  record.Set(error_field::kNumber.offset, number);
  record.Set(error_field::kIdentifier.offset, number);
  record.Set(error_field::kSeverity.offset, kSeverityError);
  record.Set(error_field::kChannel.offset, std::int8_t{1});
  Put(record, error_field::kMessageText, Describe(fault, language));
  Put(record, error_field::kExtraText, block);
  return record;
}

}  // namespace pnl::sim
