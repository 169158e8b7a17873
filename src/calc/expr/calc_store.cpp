// SPDX-License-Identifier: MIT
#include "calc/expr/calc_store.h"

namespace pnl {

CalcStore& SharedCalcStore() {
  static CalcStore store;
  return store;
}

}  // namespace pnl
