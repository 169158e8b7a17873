// SPDX-License-Identifier: MIT
// The calculator's numbers that outlive an expression: the variables A to Z and the accumulator, with one backup of
// them. The whole program uses one store, and tests make their own. It isn't protected: only the thread of the
// calculator's window may use it.
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

/// The store of the program. All its numbers are 0 at the start.
[[nodiscard]] CalcStore& SharedCalcStore();

}  // namespace pnl
