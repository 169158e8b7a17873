// SPDX-License-Identifier: MIT
#include "facade/mill/machine_diagnosis.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

#include "facade/mill/machine_data.h"

namespace pnl::sim {

namespace {

/// Where the first number of a diagnosis comes from.
enum class First : std::uint8_t { kNothing, kNumber, kNumberOrNone, kAxisOfWord, kAxisFact, kSpeedFact };

struct DiagnosisRow {
  FaultCode code;
  std::uint16_t kind;
  First first;
};
// clang-format off
constexpr std::array kRows{
    DiagnosisRow{FaultCode::kUnknownG,         1,  First::kNumberOrNone},
    DiagnosisRow{FaultCode::kWordTwice,        2,  First::kAxisOfWord},
    DiagnosisRow{FaultCode::kDivisionByZero,   4,  First::kNothing},
    DiagnosisRow{FaultCode::kSameGroup,        6,  First::kNumberOrNone},
    DiagnosisRow{FaultCode::kTravelLimit,      7,  First::kAxisFact},
    DiagnosisRow{FaultCode::kUnknownTool,      8,  First::kNumber},
    DiagnosisRow{FaultCode::kArcEnd,           12, First::kNothing},
    DiagnosisRow{FaultCode::kUnknownCharacter, 13, First::kNothing},
    DiagnosisRow{FaultCode::kNumberMissing,    13, First::kNothing},
    DiagnosisRow{FaultCode::kBadNumber,        13, First::kNothing},
    DiagnosisRow{FaultCode::kCommentOpen,      13, First::kNothing},
    DiagnosisRow{FaultCode::kUnknownWord,      13, First::kNothing},
    DiagnosisRow{FaultCode::kSpeedTooHigh,     16, First::kSpeedFact},
    DiagnosisRow{FaultCode::kUnknownM,         19, First::kNumber},
};
// clang-format on

/// The value as a number of a diagnosis; nothing when it isn't a whole number of 16 bits.
std::optional<std::uint16_t> SmallNumber(double value) {
  const bool fits = value >= 0 && value <= std::numeric_limits<std::uint16_t>::max() && value == std::floor(value);
  if (!fits) return std::nullopt;
  return static_cast<std::uint16_t>(value);
}

std::optional<std::uint16_t> AxisOfWord(const Fault& fault) {
  if (fault.word.empty()) return std::nullopt;
  for (std::size_t axis = 0; axis < kAxisCount; ++axis) {
    if (kAxes[axis].name == fault.word.front()) return static_cast<std::uint16_t>(axis + 1);
  }
  return std::nullopt;
}

std::optional<std::uint16_t> NumberOfFact(FaultFact::Kind kind, const Fault& fault) {
  for (const FaultFact& fact : fault.facts) {
    if (fact.kind == kind) return SmallNumber(std::round(fact.value));
  }
  return std::nullopt;
}

std::optional<std::uint16_t> FirstNumber(First first, const Fault& fault) {
  switch (first) {
    case First::kNumber:
      return SmallNumber(fault.value);
    case First::kNumberOrNone:
      return SmallNumber(fault.value).value_or(0);
    case First::kAxisOfWord:
      return AxisOfWord(fault);
    case First::kAxisFact:
      return NumberOfFact(FaultFact::Kind::kAxis, fault);
    case First::kSpeedFact:
      return NumberOfFact(FaultFact::Kind::kSpeed, fault);
    case First::kNothing:
      break;
  }
  return 0;
}

}  // namespace

std::optional<Diagnosis> DiagnosisOf(const Fault& fault) {
  const auto* row = std::find_if(kRows.begin(), kRows.end(),
                                 [&](const DiagnosisRow& candidate) { return candidate.code == fault.code; });
  if (row == kRows.end()) return std::nullopt;
  const std::optional<std::uint16_t> first = FirstNumber(row->first, fault);
  if (!first) return std::nullopt;
  return Diagnosis{row->kind, *first, 0};
}

}  // namespace pnl::sim
