// SPDX-License-Identifier: MIT
// Everything that the tools need from the CNC, in one object: the simulated CNC (facade/sim) or a machine builder's own
// backend library. The library's instance owns it; it outlives every tool.
#pragma once

#include "facade/kernel.h"
#include "facade/tables.h"
#include "facade/utilities.h"
#include "facade/variables.h"

namespace pnl {

class CncFacade {
 public:
  virtual ~CncFacade() = default;
  [[nodiscard]] virtual Variables& Vars() = 0;
  [[nodiscard]] virtual Kernel& Kapi() = 0;
  [[nodiscard]] virtual ToolTables& Tapi() = 0;
  [[nodiscard]] virtual Utilities& Util() = 0;
  [[nodiscard]] virtual Passwords& Psw() = 0;
};

}  // namespace pnl
