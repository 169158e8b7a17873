// SPDX-License-Identifier: MIT
// The computation of the machining calculator: spindle speed, feed, power and DMC line from the texts on the screen,
// each alone or after an event. Reads and writes the fields that it is given; asks the tool table what the tool is,
// each time anew. Knows no window, no file and no language.
#pragma once

#include <cstdint>
#include <optional>

#include "base/text.h"
#include "facade/tables.h"
#include "zmc/logic/zmc_fields.h"
#include "zmc/logic/zmc_machine.h"
#include "zmc/logic/zmc_recompute.h"
#include "zmc/logic/zmc_tools.h"

namespace pnl {

class ZmcCascade {
 public:
  /// The machine and the tables must outlive the cascade.
  ZmcCascade(const ZmcMachine& machine, ToolTables& tables) : machine_(machine), tables_(tables) {}

  /// Clears what depends on the changed field, then recomputes. For a tool, its values are filled in between. For a
  /// pair, call ClearFields, load the pair, and call Recompute.
  void Apply(ZmcEvent event, ZmcFields& fields) const;
  void Recompute(ZmcEvent event, ZmcFields& fields) const;

  /// Each recomputes one field. Without one of its inputs it returns nothing and the field stays as it is. Else it
  /// returns the value before it was cut for the field.
  std::optional<double> UpdateS(ZmcFields& fields) const;
  std::optional<double> UpdateF(ZmcFields& fields) const;
  std::optional<double> UpdatePower(ZmcFields& fields) const;
  /// Replaces the DMC line, by an empty one if there is no power. Does nothing if DMC can't be used.
  void UpdateDmcText(ZmcFields& fields) const;
  /// The four above in this order.
  void RecalcConditions(ZmcFields& fields) const;

  /// What UpdateS, UpdateF and UpdatePower would write, as a number.
  [[nodiscard]] std::optional<double> SpindleSpeed(const ZmcFields& fields) const;
  [[nodiscard]] std::optional<double> Feed(const ZmcFields& fields) const;
  [[nodiscard]] std::optional<double> CuttingPower(const ZmcFields& fields) const;

  /// The spindle speed in revolutions as text, in the format of `S`; empty without one of its inputs.
  [[nodiscard]] Text SpindleRpmText(const ZmcFields& fields) const;
  /// The cutting speed for the `S` in the field, in the format of `S`; empty without one of its inputs.
  [[nodiscard]] Text CuttingSpeedFromS(const ZmcFields& fields) const;
  /// The teeth as text: "1" if the tool works on the part.
  [[nodiscard]] Text TeethText(const ZmcFields& fields) const;

  [[nodiscard]] ZmcTool Tool(const ZmcFields& fields) const { return ZmcToolOf(tables_, fields.Tool); }
  [[nodiscard]] int ToolCategory(const ZmcFields& fields) const { return pnl::ToolCategory(Tool(fields)); }
  [[nodiscard]] bool DmcUsable(const ZmcFields& fields) const { return pnl::DmcUsable(machine_, Tool(fields)); }
  [[nodiscard]] const ZmcMachine& Machine() const { return machine_; }

  /// The unit of `S` that the machine forces when the tool opens, and with a cutting speed forced on a panel whose
  /// stored unit is another, `S` as that speed. Does nothing if the machine forces none.
  void ForceSUnit(int storedSUnit, ZmcFields& fields) const;

 private:
  void TakeToolValues(ZmcFields& fields) const;

  const ZmcMachine& machine_;
  ToolTables& tables_;
};

}  // namespace pnl
