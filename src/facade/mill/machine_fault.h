// SPDX-License-Identifier: MIT
// The reason why the mill refuses a block: a code, the word at fault, its place in the block, and facts for the
// operator.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "base/text.h"

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

/// A fact about a fault, which becomes a parameter of its record. Lengths are mm, feeds mm/min, speeds rpm, times
/// seconds.
struct FaultFact {
  enum class Kind : std::uint8_t {
    kAxis,  // logical number, from 1
    kLimit,
    kTarget,
    kFeed,
    kFeedPerRevolution,
    kFeedLimit,
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

/// Why a block can't run. Without a word the machine's state is the reason; begin and length are then 0.
struct Fault {
  FaultCode code = FaultCode::kUnknownCharacter;
  Text word;               // in upper case, without blanks
  std::size_t begin = 0;   // its place in the block, in UTF-16 units
  std::size_t length = 0;  // its length in the block, in UTF-16 units
  double value = 0;        // the word's number as it is written
  bool inches = false;     // true when the block's lengths are inches
  std::vector<FaultFact> facts = {};

  /// The same fault with one more fact.
  [[nodiscard]] Fault With(FaultFact::Kind kind, double fact) const {
    Fault more = *this;
    more.facts.push_back({kind, fact});
    return more;
  }
};

}  // namespace pnl::sim
