// SPDX-License-Identifier: MIT
// What a block asks for: its G and M codes by group and its other words by letter, each at most once. One table defines
// groups and codes. machine_plan checks whether the machine can do it now.
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

/// A word that chose a code of a group. G70 and G71 mean G20 and G21, M2 means M30.
struct Choice {
  int code = 0;
  Word word;
};

class Request {
 public:
  /// The choice of that group; null when the block has none.
  [[nodiscard]] const Choice* Chosen(Group group) const;
  /// The word with that letter; null when the block has none. Must not be asked for G and M.
  [[nodiscard]] const Word* Find(char16_t letter) const;
  /// The word with one of these letters that comes first in the block; null when there is none.
  [[nodiscard]] const Word* First(TextView letters) const;
  /// Adds a word. Returns a fault, and adds nothing, when the word is unknown or excluded by an earlier one.
  std::optional<Fault> Add(const Word& word);

 private:
  std::optional<Fault> Choose(const Word& word);

  std::array<std::optional<Choice>, kGroupCount> choices_;
  std::array<std::optional<Word>, 26> letters_;
};

[[nodiscard]] std::variant<Request, Fault> ReadRequest(const Block& block);

/// The request as one line: the codes in the order of the groups, then the other words in a fixed order of letters.
[[nodiscard]] Text Print(const Request& request);

}  // namespace pnl::sim
