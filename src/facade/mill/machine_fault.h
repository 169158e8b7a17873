// SPDX-License-Identifier: MIT
// The reason why the mill refuses a block: a code, the word at fault, its place in the block, and the facts.
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
  [[nodiscard]] Fault With(FaultFact::Kind kind, double fact) const {
    Fault more = *this;
    more.facts.push_back({kind, fact});
    return more;
  }
};

}  // namespace pnl::sim
