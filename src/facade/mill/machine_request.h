// SPDX-License-Identifier: MIT
// What a block asks for: its G and M codes by group and its other words by letter, each at most once. Groups and codes
// are one table. Not whether the machine can do it now: that is machine_plan.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <variant>

#include "facade/mill/machine_block.h"

namespace pnl::sim {

/// Codes of one group exclude each other.
enum class Group : std::uint8_t {
  kMotion,              // G0 to G3
  kDwell,               // G4, in its block only
  kPlane,               // G17 to G19
  kUnits,               // G20, G21
  kRadius,              // G40 to G42
  kLength,              // G43, G44
  kMachineCoordinates,  // G53, in its block only
  kOffset,              // G54 to G59
  kDistance,            // G90, G91
  kFeedMode,            // G94, G95
  kSpeedMode,           // G96, G97
  kStop,                // M0, M1, M2, M30
  kSpindle,             // M3 to M5
  kToolChange,          // M6
  kCoolant,             // M7 to M9
};
inline constexpr std::size_t kGroupCount = static_cast<std::size_t>(Group::kCoolant) + 1;

/// A word that chose a code of a group. G70 and G71 are other names of 20 and 21, M2 of 30.
struct Choice {
  int code = 0;
  Word word;
};

class Request {
 public:
  /// Null when the block says nothing of that group.
  [[nodiscard]] const Choice* Chosen(Group group) const;
  /// Null when the block has no such word. Not for G and M.
  [[nodiscard]] const Word* Find(char16_t letter) const;
  /// The first of these letters in the order of the block.
  [[nodiscard]] const Word* First(TextView letters) const;
  /// The fault of this word, if it can't join what is there already.
  std::optional<Fault> Add(const Word& word);

 private:
  std::optional<Fault> Choose(const Word& word);

  std::array<std::optional<Choice>, kGroupCount> choices_;
  std::array<std::optional<Word>, 26> letters_;
};

[[nodiscard]] std::variant<Request, Fault> ReadRequest(const Block& block);

/// One line: the codes in the order of the groups, then the other words by letter.
[[nodiscard]] Text Print(const Request& request);

}  // namespace pnl::sim
