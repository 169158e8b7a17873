// SPDX-License-Identifier: MIT
#include "facade/mill/machine_raised.h"

#include <algorithm>
#include <array>

#include "facade/mill/machine_record.h"

namespace pnl::sim {

namespace {

using Raised = rig::MachineControl::Fault;

constexpr std::uint16_t kWarningCode = 305;
constexpr std::uint16_t kFaultCode = 602;
constexpr std::uint32_t kHeartbeatLost = 0x8130;
constexpr std::uint8_t kNode = 5;

struct RaisedFault {
  Raised fault;
  std::int32_t source;
  std::int32_t number;
  std::uint16_t severity;
  TextView module;
  bool hasCause;
};
// clang-format off
constexpr std::array kFaults{
    RaisedFault{Raised::kDoorOpen,     error_source::kPlc,     5012, severity::kError,   u"PLC", true},
    RaisedFault{Raised::kDriveWarning, error_source::kDrive,   6101, severity::kWarning, u"DRV", false},
    RaisedFault{Raised::kDriveFault,   error_source::kDrive,   6201, severity::kError,   u"DRV", true},
    RaisedFault{Raised::kBusFault,     error_source::kCanOpen, 6301, severity::kError,   u"BUS", true},
    RaisedFault{Raised::kProgramLine,  error_source::kProgram, 1101, severity::kError,   u"NC",  false},
    RaisedFault{Raised::kConfirm,      error_source::kKernel,  3753, severity::kError,   u"NC",  false},
    RaisedFault{Raised::kFatal,        error_source::kKernel,  2001, severity::kFatal,   u"KRN", true},
};

// The PLC's texts are shown with their separator, so it is a blank.
constexpr std::array kTexts{
    TableText{"ReadPLCError", 5012, u" Safety door open", u" Puerta de seguridad abierta", 5012},
    TableText{"warning_drive_to_txt", 6101, u"\nMotor of the axis too warm", u"\nMotor del eje demasiado caliente", 6101},
    TableText{"error_drive_to_txt", 6201, u"\nDrive of the axis switched off",
              u"\nRegulador del eje desconectado", 6201},
    TableText{"emcy_Copen_to_txt", static_cast<std::int32_t>(kHeartbeatLost), u"\nBus node does not answer",
              u"\nEl nodo del bus no contesta", 6301},
    TableText{"error_to_txt", 1101, u"\nThe program block cannot be run",
              u"\nEl bloque del programa no se puede ejecutar", 1101},
    TableText{"error_to_txt", 3753, u"\nConfirm that the workpiece is clamped",
              u"\nConfirme que la pieza está amarrada", 3753},
    TableText{"error_to_txt", 2001, u"\nInternal fault of the kernel: the control must be switched off",
              u"\nFallo interno del núcleo: hay que apagar el control", 2001},
    TableText{"GetTextoSercosError", kWarningCode, u"Drive code %d: motor above 120 ºC",
              u"Código del regulador %d: motor por encima de 120 ºC", 0},
    TableText{"GetTextoSercosError", kFaultCode, u"Drive code %d: voltage of the power bus too low",
              u"Código del regulador %d: tensión del bus de potencia demasiado baja", 0},
};
// clang-format on

constexpr std::int32_t kFirstAxis = 1;

/// Null for a value that is no fault.
const RaisedFault* RowOf(Raised fault) {
  const auto* row = std::find_if(kFaults.begin(), kFaults.end(),
                                 [fault](const RaisedFault& candidate) { return candidate.fault == fault; });
  return row == kFaults.end() ? nullptr : row;
}

void PutDriveCode(RecordMaker& maker, std::uint16_t code) {
  maker.Parameter(parameter_meaning::kAxis, value_type::kInt32, kFirstAxis);
  maker.Parameter(parameter_meaning::kDriveCode, value_type::kUint16, code);
}

void PutSpot(RecordMaker& maker, const rig::ProgramSpot& spot) {
  constexpr std::int32_t kWidestSpan = 0xFFFF / 2;
  maker.Put(error_field::kProgramPath, spot.folder);
  maker.Put(error_field::kProgramName, spot.file);
  maker.Put(error_field::kFilePosition, spot.position);
  // The record counts the bytes of 16-bit text.
  const std::int32_t span = std::clamp(spot.span, 0, kWidestSpan);
  maker.Put(error_field::kFileSpan, static_cast<std::uint16_t>(2 * span));
}

}  // namespace

std::span<const TableText> RaisedTexts() { return kTexts; }

ErrorRecord MakeRaisedRecord(Raised fault, const rig::ProgramSpot& spot) {
  const RaisedFault* row = RowOf(fault);
  if (row == nullptr) return {};
  RecordMaker maker(row->source, row->number, row->severity, row->module);
  if (fault == Raised::kDriveWarning) PutDriveCode(maker, kWarningCode);
  if (fault == Raised::kDriveFault) PutDriveCode(maker, kFaultCode);
  if (fault == Raised::kProgramLine) PutSpot(maker, spot);
  if (fault == Raised::kBusFault) {
    maker.Parameter(parameter_meaning::kNode, value_type::kUint8, kNode);
    maker.EmergencyCode(kHeartbeatLost);
  }
  return maker.Record();
}

std::int32_t RaisedNumber(Raised fault) {
  const RaisedFault* row = RowOf(fault);
  return row == nullptr ? 0 : row->number;
}

bool HasCause(Raised fault) {
  const RaisedFault* row = RowOf(fault);
  return row != nullptr && row->hasCause;
}

}  // namespace pnl::sim
