// SPDX-License-Identifier: MIT
// The screen of the machining calculator as data: the text of every cell and field, and the choices. A field's text is
// what was last written or typed, character for character; nothing here is rounded for display. The session keeps one
// and shows it; the cascade computes on it, the block generator reads it.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <vector>

#include "base/text.h"
#include "zmc/logic/zmc_units.h"

namespace pnl {

inline constexpr int kZmcNoSelection = -1;

struct ZmcFields {
  std::array<Text, kZmcCells> Cells;  // the conditions grid, by parameter id
  Text D;                             // diameter of the tool, or of the part
  Text Z;                             // teeth
  Text S;
  Text F;
  Text Power;
  Text DmcText;
  Text Remark;
  Text Material;  // the selected descriptions; empty without a selection
  Text Operation;
  Text Tool;                    // "T" and its number, or whatever was typed
  std::optional<double> Kc;     // of the selected material, in N/mm2
  int FUnit = 0;                // 0: length/min, 1: length/rev
  int SUnit = 0;                // 0: revolutions, 1: cutting speed
  double LastPartDiameter = 0;  // in internal units; kept from one tool that works on the part to the next

  /// The cells that the computation reads, each by its parameter id.
  [[nodiscard]] const Text& Vc() const { return Cells[2]; }
  [[nodiscard]] const Text& FzMin() const { return Cells[3]; }
  [[nodiscard]] const Text& FzMax() const { return Cells[4]; }
  [[nodiscard]] const Text& Fz() const { return Cells[5]; }
  [[nodiscard]] const Text& Ap() const { return Cells[8]; }
  [[nodiscard]] const Text& Ae() const { return Cells[11]; }
};

/// The check boxes that decide what goes into a block.
struct ZmcChecks {
  bool Comments = false;
  bool Tool = false;
  int M6 = 0;  // the box's own state; any value but 0 is on
  bool F = false;
  bool S = false;
  bool Dmc = false;

  /// Whether a block can be asked for. M6 doesn't count, as it needs the tool.
  [[nodiscard]] bool AnyWord() const { return F || S || Dmc || Comments || Tool; }
};

/// Whether a text counts as absent: empty, "0" or " 0". "0.0" is a value. Use it for `D`, `Z`, `Ae` and speeds as text.
[[nodiscard]] bool BlankField(TextView text);
/// The same for `Vc`, `Fz` and `Ap`: empty or "0" only. The two differ on purpose: " 0" in these cells is a value.
[[nodiscard]] bool BlankCell(TextView text);
/// The decimal number at the start of a text, after optional white space: C's strtod limited to decimal numbers. There
/// is none in "nan" and "inf", and "0x10" is 0. A number that is too large is infinite. Returns 0 if there is none.
[[nodiscard]] double DecimalOf(TextView text);
/// The text of a grid cell for a number.
[[nodiscard]] Text CellText(double value);
/// A result as its field gets it: cut to an integer if the field has no decimals, else with six decimals.
[[nodiscard]] Text ResultText(double value, std::int32_t precision);
/// The index if a box of that many items has it, else no selection.
[[nodiscard]] int SelectableIndex(int index, int count);
/// The item with that text, in whatever case; else the last one. -1 in an empty list.
[[nodiscard]] int IndexOrLast(const std::vector<Text>& items, TextView text);

}  // namespace pnl
