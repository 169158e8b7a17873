// SPDX-License-Identifier: MIT
#include "zmc/logic/zmc_tools.h"

#include <algorithm>

#include "base/format.h"
#include "base/numbers.h"

namespace pnl {

namespace {

constexpr char16_t kToolLetter = u'T';
/// The family of a tool that isn't in the table.
constexpr std::int32_t kNoFamily = 9;
constexpr std::int32_t kAny = -1;

struct CategoryRow {
  std::int32_t family;
  std::int32_t subfamily;  // kAny: all
  int category;
};

constexpr CategoryRow kCategories[] = {
    {1, kAny, tool_category::kRotating}, {2, kAny, tool_category::kRotating},
    {3, kAny, tool_category::kRotating}, {4, kAny, tool_category::kRotating},
    {5, kAny, tool_category::kOnPart},   {7, kAny, tool_category::kOnPart},
    {6, 0, tool_category::kManual},      {6, 4, tool_category::kRotating},
    {6, 5, tool_category::kOnPart},      {8, 0, tool_category::kOnPart},
    {8, 11, tool_category::kOnPart},     {8, 12, tool_category::kOnPart},
    {8, 13, tool_category::kOnPart},     {8, 14, tool_category::kManual},
    {8, 15, tool_category::kManual},     {kNoFamily, kAny, tool_category::kManual},
};

struct PictureRow {
  std::int32_t family;
  std::int32_t subfamily;
  int picture;
};

/// Whatever isn't here has picture 0. Two subfamilies share picture 14.
constexpr PictureRow kPictures[] = {
    {1, 1, 1}, {1, 2, 2}, {1, 3, 3},   {1, 6, 6},   {2, 7, 7},   {3, 8, 8},   {4, 9, 9},    {5, 10, 10},
    {6, 4, 4}, {6, 5, 5}, {7, 12, 12}, {8, 11, 11}, {8, 12, 12}, {8, 13, 13}, {10, 14, 14}, {10, 15, 14},
};

struct ToolTypeRow {
  int textId;
  std::int32_t type;
};

constexpr ToolTypeRow kToolTypes[] = {
    {89, 1}, {90, 2}, {98, 3}, {91, 4}, {92, 5}, {93, 6}, {94, 7}, {95, 8}, {96, 10}, {97, 9},
};

constexpr ZmcToolControls kRotatingControls{false, true, false, false, kZmcToolLabelOff};
constexpr ZmcToolControls kOnPartControls{true, false, false, true, kZmcLabelColor};
constexpr ZmcToolControls kOtherControls{true, true, true, false, kZmcLabelColor};

bool NamesTool(TextView text) { return !text.empty() && text.front() == kToolLetter; }

bool FamilyAllowsDmc(const ZmcTool& tool) { return tool.found && (tool.data.family == 1 || tool.data.family == 3); }

}  // namespace

std::int32_t ZmcToolNumber(TextView text) { return NamesTool(text) ? ParseIntPrefix(text.substr(1)) : 0; }

ZmcTool ZmcToolOf(ToolTables& tables, TextView text) {
  ZmcTool tool;
  if (!NamesTool(text)) return tool;
  ToolData data;
  tool.found = tables.TAPI_Tools_GetToolData(ZmcToolNumber(text), data) != 0;
  if (tool.found) tool.data = data;
  return tool;
}

int ToolCategory(const ZmcTool& tool) {
  const std::int32_t family = tool.found ? tool.data.family : kNoFamily;
  for (const CategoryRow& row : kCategories) {
    const bool subfamily = row.subfamily == kAny || row.subfamily == tool.data.subfamily;
    if (row.family == family && subfamily) return row.category;
  }
  return tool_category::kOther;
}

DmcReason DmcReasonOf(const ZmcMachine& machine, const ZmcTool& tool) {
  if (!machine.DmcOption) return DmcReason::kOption;
  if (!machine.DriveTypeAllowsDmc()) return DmcReason::kDriveType;
  if (machine.DmcSpindle == 0) return DmcReason::kNoSpindle;
  return FamilyAllowsDmc(tool) ? DmcReason::kNone : DmcReason::kToolType;
}

bool DmcUsable(const ZmcMachine& machine, const ZmcTool& tool) {
  return DmcReasonOf(machine, tool) == DmcReason::kNone;
}

int ToolPicture(const ZmcTool& tool) {
  for (const PictureRow& row : kPictures) {
    if (tool.found && row.family == tool.data.family && row.subfamily == tool.data.subfamily) return row.picture;
  }
  return 0;
}

const ZmcToolControls& ToolControlsOf(int category) {
  if (category == tool_category::kRotating) return kRotatingControls;
  return category == tool_category::kOnPart ? kOnPartControls : kOtherControls;
}

std::optional<std::int32_t> ToolTypeOf(TextView toolType, const std::function<Text(int)>& text) {
  if (toolType.empty()) return std::nullopt;
  for (const ToolTypeRow& row : kToolTypes) {
    if (EqualNoCase(toolType, text(row.textId))) return row.type;
  }
  return 0;
}

std::vector<Text> ToolNames(ToolTables& tables, std::int32_t type) {
  std::vector<Text> names;
  for (const std::int32_t number : tables.TAPI_Tools_GetList(type)) names.push_back(Format(u"T%d", number));
  return names;
}

std::optional<Text> TypedTool(TextView typed, const std::vector<Text>& names) {
  Text name = ToUpper(Trim(typed));
  if (name.empty()) return std::nullopt;
  if (name.front() != kToolLetter) name.insert(name.begin(), kToolLetter);
  if (std::find(names.begin(), names.end(), name) == names.end()) return std::nullopt;
  return name;
}

}  // namespace pnl
