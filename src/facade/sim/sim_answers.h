// SPDX-License-Identifier: MIT
// The results of the simulated CNC's functions where neither a table nor a machine decides: a start value for each
// function, and values that a script sets. Knows the functions by name only and calls none.
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
  /// Sets the results of a function: it returns the values in turn and then keeps returning the last one. An empty list
  /// removes an earlier setting. Returns false for a function that isn't known or returns no number.
  bool Set(std::string_view function, std::vector<std::int32_t> values);
  /// The next value that was set for the function; nothing when none is set.
  [[nodiscard]] std::optional<std::int32_t> TakePreset(std::string_view function);
  /// The next value that was set for the function, else its start value.
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
