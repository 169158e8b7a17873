// SPDX-License-Identifier: MIT
// What the mill can refuse, as data: every code with its number and its wording in English and Spanish, and the error
// record that carries one. A fault is a code, the word at fault, its place in the block and the facts behind it; its
// record is made only here.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

#include "base/text.h"
#include "facade/error_record.h"

namespace pnl::sim {

enum class FaultCode : std::uint8_t {
  kUnknownCharacter,
  kNumberMissing,
  kBadNumber,
  kCommentOpen,
  kUnknownWord,
  kUnknownG,
  kUnknownM,
  kSameGroup,
  kWordTwice,
  kUnusedWord,
  kBadValue,
  kFeedMissing,
  kFeedZero,
  kFeedTooHigh,
  kArcCentre,
  kArcEnd,
  kArcRadius,
  kTravelLimit,
  kSpindleStopped,
  kSpeedMissing,
  kSpeedTooHigh,
  kUnknownTool,
  kNoToolDiameter,
  kDwellTime,
  kDivisionByZero,
  kNotInMdi,
  kBusy,
  kEmergencyStop,
};

/// A fact behind a fault, for the parameters of its record. Lengths are mm, feeds mm/min, speeds rpm, times seconds.
struct FaultFact {
  enum class Kind : std::uint8_t {
    kAxis,  // logical number, from 1
    kLimit,
    kTarget,
    kFeed,
    kFeedPerRevolution,
    kFeedLimit,
    kFeedLeast,
    kSpeed,
    kSpeedLimit,
    kTool,
    kLowest,
    kHighest,
    kHighestTime,
  };
  Kind kind;
  double value;
};

/// Why a block can't run. Without a word the fault is of the machine's state and begin and length are 0.
struct Fault {
  FaultCode code = FaultCode::kUnknownCharacter;
  Text word;               // in upper case, without blanks
  std::size_t begin = 0;   // where it stands in the block
  std::size_t length = 0;  // how much of the block it takes
  double value = 0;        // the number of the word, as it is written
  bool inches = false;     // the block's lengths are inches
  std::vector<FaultFact> facts = {};

  /// The same with one fact more.
  [[nodiscard]] Fault With(FaultFact::Kind kind, double fact) const;
};

struct FaultText {
  FaultCode code;
  std::int32_t number;
  TextView english;
  TextView spanish;
};

enum class MachineLanguage : std::uint8_t { kEnglish, kSpanish };

/// All of them, in the order of FaultCode.
[[nodiscard]] std::span<const FaultText> FaultTexts();
[[nodiscard]] std::int32_t FaultNumber(FaultCode code);
/// The panel path of the file with the long descriptions in that language, "en" or "es".
[[nodiscard]] Text DescriptionFile(std::string_view language);
/// The reference to the entry of that number in it.
[[nodiscard]] Text HelpRefOf(std::int32_t number, MachineLanguage language);
/// The wording of its number.
[[nodiscard]] TextView Wording(FaultCode code, MachineLanguage language);
/// The record that puts a fault into the kernel's queue: with the kernel's own diagnosis where block preparation has
/// one for it, and always with the word at fault, the facts behind it and the block, so that two of one number can
/// stand in the queue and each says what happened.
[[nodiscard]] ErrorRecord MakeErrorRecord(const Fault& fault, TextView block, MachineLanguage language);

}  // namespace pnl::sim
