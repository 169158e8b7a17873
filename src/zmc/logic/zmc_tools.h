// SPDX-License-Identifier: MIT
// What a tool means to the machining calculator: its category, whether DMC can be used with it and if not why, its
// picture, how the controls of the tool look, and which tools an operation offers. Rules and tables only: the tool
// table of the CNC is asked through its seam, and no control is touched.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <vector>

#include "base/text.h"
#include "facade/tables.h"
#include "zmc/logic/zmc_machine.h"

namespace pnl {

/// A tool as the tool table has it. `data` is all zeros unless found.
struct ZmcTool {
  bool found = false;
  ToolData data;
};

/// Asks the table for the tool that a text names: "T" and its number. Any other text names no tool.
[[nodiscard]] ZmcTool ZmcToolOf(ToolTables& tables, TextView text);
/// The number in such a text; 0 in any other.
[[nodiscard]] std::int32_t ZmcToolNumber(TextView text);

namespace tool_category {
inline constexpr int kOther = -1;
inline constexpr int kRotating = 0;  // diameter and teeth come from the tool table
inline constexpr int kOnPart = 1;    // the diameter is the part's, there is one tooth
inline constexpr int kManual = 2;    // the operator gives both
}  // namespace tool_category

/// The category by family and subfamily. A tool that isn't found is manual.
[[nodiscard]] int ToolCategory(const ZmcTool& tool);

/// Why DMC can't be used. The values are the ids of the statics that say so.
enum class DmcReason { kNone = 0, kOption = 3058, kDriveType = 3059, kNoSpindle = 3062, kToolType = 3057 };

/// The first reason that applies: option, drive, spindle, tool.
[[nodiscard]] DmcReason DmcReasonOf(const ZmcMachine& machine, const ZmcTool& tool);
[[nodiscard]] bool DmcUsable(const ZmcMachine& machine, const ZmcTool& tool);

/// The number of the tool's picture, 0 to 14.
[[nodiscard]] int ToolPicture(const ZmcTool& tool);

/// The controls of the tool by its category. Colours are 0x00BBGGRR.
struct ZmcToolControls {
  bool diameterEnabled;
  bool teethShown;
  bool teethEnabled;
  bool partLabel;  // the label of the diameter says that it is the part's
  std::uint32_t labelColor;
};
[[nodiscard]] const ZmcToolControls& ToolControlsOf(int category);

inline constexpr std::uint32_t kZmcLabelColor = 0xBFC9D3;
inline constexpr std::uint32_t kZmcToolLabelOff = 0x646E78;
inline constexpr std::uint32_t kZmcDmcLabelOff = 0x838D97;

/// The type of tools that an operation takes: its tool type compared without regard to case with texts of the language
/// pack, which `text` loads by number. Returns 0, for all tools, if none matches, and nothing for an operation without
/// a tool type, which offers no tool.
[[nodiscard]] std::optional<std::int32_t> ToolTypeOf(TextView toolType, const std::function<Text(int)>& text);
/// The names of the tools of a type, in the table's order.
[[nodiscard]] std::vector<Text> ToolNames(ToolTables& tables, std::int32_t type);
/// The name among `names` that a typed text means, in any case and with or without its "T". Returns nothing if there
/// is none.
[[nodiscard]] std::optional<Text> TypedTool(TextView typed, const std::vector<Text>& names);

}  // namespace pnl
