// SPDX-License-Identifier: MIT
// The calculator's numbers that outlive an expression: the variables A to Z and the accumulator, with one level of
// backup for previews. One store serves the whole program; tests make their own. Not protected: it belongs to the
// thread of the calculator's window.
#pragma once

#include <array>

namespace pnl {

inline constexpr int kVariableCount = 26;

struct CalcStore {
  std::array<double, kVariableCount> Variables{};  // A to Z
  double Acc = 0;
  std::array<double, kVariableCount> SavedVariables{};
  double SavedAcc = 0;
};

/// The program's store; zero at start.
[[nodiscard]] CalcStore& SharedCalcStore();

}  // namespace pnl
