// SPDX-License-Identifier: MIT
// The golden table golden/expressions.txt as data: one case a line, as its head tells. It checks nothing. A line that
// can't be read becomes a failure of the test that reads it.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "base/text.h"
#include "calc/expr/calc_store.h"

namespace pnl::test {

enum class Answer { kExactly, kWithinPlaces, kToEightDigits, kDomainFailure, kRefused };

struct Golden {
  int line = 0;
  std::vector<std::pair<std::string, double>> before;  // names and values, "ACC" among them
  bool radians = false;
  Text expression;
  Answer answer = Answer::kRefused;
  std::string wanted;  // the answer's column as it stands
  double value = 0;
  int place = 0;
  std::vector<std::pair<std::string, double>> changes;
  Text tree;
};

/// All cases in the order of the file.
[[nodiscard]] const std::vector<Golden>& GoldenTable();
/// A store of zeros with these settings.
[[nodiscard]] CalcStore StoreWith(const std::vector<std::pair<std::string, double>>& settings);
void Set(CalcStore& store, const std::string& name, double value);

}  // namespace pnl::test
