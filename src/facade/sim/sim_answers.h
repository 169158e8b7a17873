// SPDX-License-Identifier: MIT
// What the functions of the simulated CNC answer where no table and no machine decides: a start value for each, and
// values that a script sets. Knows the functions by name only; it calls none.
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace pnl::sim {

class SimAnswers {
 public:
  /// The values are given in turn and the last one stays; none at all takes an earlier setting back. False for a
  /// function that isn't known or has no number to answer.
  bool Set(std::string_view function, std::vector<std::int32_t> values);
  /// The next value that was set for the function; nothing when none was.
  [[nodiscard]] std::optional<std::int32_t> TakePreset(std::string_view function);
  /// The next value that was set, else the start value.
  [[nodiscard]] std::int32_t Take(std::string_view function);
  [[nodiscard]] static std::int32_t StartValue(std::string_view function);

 private:
  struct Values {
    std::vector<std::int32_t> values;
    std::size_t next = 0;
  };
  std::map<std::string, Values, std::less<>> presets_;
};

}  // namespace pnl::sim
