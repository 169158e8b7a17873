// SPDX-License-Identifier: MIT
// The values that are shown beside the rows of the history. An expression that depends on nothing but itself always has
// the same value, which is computed when it is first asked for. The value of any other expression is the one that it
// had when it was confirmed in this session; of a row from the file it isn't known. Formats nothing and changes no
// variable.
#pragma once

#include <cstddef>
#include <map>
#include <optional>
#include <utility>
#include <vector>

#include "base/text.h"

namespace pnl {

/// Whether the value of the expression depends on nothing but itself and the angle unit: it reads neither ACC nor a
/// variable that it hasn't assigned before, and has no solver, because a solver reads its parameters from variables.
/// False for a text that isn't a list of tokens.
[[nodiscard]] bool StandsAlone(const Text& expression);

/// The values of the rows that were confirmed in this session. Rows beyond those that it knows have no value.
class CalcRowValues {
 public:
  using Value = std::optional<double>;
  /// A row was inserted there.
  void Insert(int row, Value value);
  /// The row was deleted. Returns its value.
  Value Erase(int row);
  [[nodiscard]] Value At(int row) const;

 private:
  std::vector<Value> values_;  // of the first rows
};

class CalcValues {
 public:
  CalcRowValues& Rows() { return rows_; }
  /// The value of the row with that expression; nothing if it isn't known, or if it can't be computed within a few
  /// steps.
  [[nodiscard]] std::optional<double> ValueOf(int row, const Text& expression, bool radians);

 private:
  CalcRowValues rows_;
  std::map<std::pair<Text, bool>, std::optional<double>> computed_;  // by expression and angle unit
};

}  // namespace pnl
