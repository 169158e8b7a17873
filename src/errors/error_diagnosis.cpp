// SPDX-License-Identifier: MIT
#include "errors/error_diagnosis.h"

#include <algorithm>
#include <array>
#include <optional>

#include "base/format.h"

namespace pnl {

namespace {

/// The arguments of a text: the record's numbers A and B. Some texts take the name of axis A in place of the number.
enum class Arguments { kNone, kA, kAB, kAxisA, kAxisAB };

struct Wording {
  int text = 0;
  Arguments arguments = Arguments::kNone;
  TextView line = u"\n%s ";
};

/// One kind of finding. Some kinds have another wording if A or B is 0.
struct DiagnosisRow {
  int kind;
  enum class Asks { kNothing, kA, kB } zeroOf;
  Wording ifZero;
  Wording otherwise;
};

using Asks = DiagnosisRow::Asks;
constexpr TextView kWithNumber = u"\n%s %d";
constexpr TextView kWithSet = u"\n%s SET: %d.";
constexpr TextView kWithoutBlank = u"\n%s";

// clang-format off
constexpr std::array kRows{
    DiagnosisRow{1,  Asks::kA,       {229},                         {57345, Arguments::kA}},
    DiagnosisRow{2,  Asks::kNothing, {},                            {230, Arguments::kAxisA}},
    DiagnosisRow{3,  Asks::kNothing, {},                            {231, Arguments::kAxisAB}},
    DiagnosisRow{4,  Asks::kNothing, {},                            {232}},
    DiagnosisRow{5,  Asks::kA,       {233},                         {245, Arguments::kA}},
    DiagnosisRow{6,  Asks::kA,       {234},                         {234, Arguments::kNone, kWithNumber}},
    DiagnosisRow{7,  Asks::kB,       {235, Arguments::kAxisA},      {246, Arguments::kAxisAB}},
    DiagnosisRow{8,  Asks::kB,       {238, Arguments::kA},          {247, Arguments::kAB}},
    DiagnosisRow{9,  Asks::kNothing, {},                            {241, Arguments::kA}},
    DiagnosisRow{10, Asks::kNothing, {},                            {242, Arguments::kAxisA}},
    DiagnosisRow{11, Asks::kNothing, {},                            {243, Arguments::kAxisAB}},
    DiagnosisRow{12, Asks::kNothing, {},                            {244}},
    DiagnosisRow{13, Asks::kNothing, {},                            {57353}},
    DiagnosisRow{16, Asks::kA,       {57347},                       {57347, Arguments::kNone, kWithNumber}},
    DiagnosisRow{17, Asks::kNothing, {},                            {57348, Arguments::kA}},
    DiagnosisRow{18, Asks::kNothing, {},                            {57349, Arguments::kA}},
    DiagnosisRow{19, Asks::kNothing, {},                            {57352, Arguments::kA}},
    DiagnosisRow{20, Asks::kB,       {252, Arguments::kA},          {252, Arguments::kA, kWithSet}},
    DiagnosisRow{21, Asks::kNothing, {},                            {263, Arguments::kA, kWithoutBlank}},
    DiagnosisRow{22, Asks::kNothing, {},                            {57355, Arguments::kA}},
};
// clang-format on

Text AxisName(int logicalNumber, Kernel& kapi) {
  Text name;
  return kapi.ConvertLogToName(logicalNumber, name) == 0 ? name : Text();
}

Text Apply(TextView format, Arguments arguments, int a, int b, Kernel& kapi) {
  switch (arguments) {
    case Arguments::kNone:
      return Format(format);
    case Arguments::kA:
      return Format(format, a);
    case Arguments::kAB:
      return Format(format, a, b);
    case Arguments::kAxisA:
      return Format(format, AxisName(a, kapi));
    case Arguments::kAxisAB:
      return Format(format, AxisName(a, kapi), b);
  }
  return {};
}

}  // namespace

Text ComposeDiagnosis(const ErrorRecord& record, const ErrorWords& words, Kernel& kapi) {
  const int kind = record.Get<std::uint16_t>(error_field::kDiagnosisKind.offset);
  const int a = record.Get<std::uint16_t>(error_field::kDiagnosisA.offset);
  const int b = record.Get<std::uint16_t>(error_field::kDiagnosisB.offset);
  const auto row = std::find_if(kRows.begin(), kRows.end(),
                                [kind](const DiagnosisRow& candidate) { return candidate.kind == kind; });
  if (row == kRows.end()) return {};
  const bool zero = (row->zeroOf == Asks::kA && a == 0) || (row->zeroOf == Asks::kB && b == 0);
  const Wording& wording = zero ? row->ifZero : row->otherwise;
  // Some lines print a number after the text. It is the argument on which the row's wording depends.
  const int number = row->zeroOf == Asks::kB ? b : a;
  return Format(wording.line, Apply(words(wording.text), wording.arguments, a, b, kapi), number);
}

}  // namespace pnl
