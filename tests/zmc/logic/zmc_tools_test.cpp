// SPDX-License-Identifier: MIT
#include "zmc/logic/zmc_tools.h"

#include <gtest/gtest.h>

#include <map>
#include <set>

#include "zmc/logic/zmc_rig.h"

namespace pnl::test {
namespace {

ZmcTool Found(std::int32_t family, std::int32_t subfamily) { return {true, {family, subfamily, 0, 0}}; }

struct CategoryCase {
  std::int32_t family;
  std::set<std::int32_t> subfamilies;  // empty: any
  int category;
};

const CategoryCase kCategoryCases[] = {
    {1, {}, 0},       {2, {}, 0},  {3, {}, 0},  {4, {}, 0},  {5, {}, 1},
    {7, {}, 1},       {6, {0}, 2}, {6, {4}, 0}, {6, {5}, 1}, {8, {0, 11, 12, 13}, 1},
    {8, {14, 15}, 2}, {9, {}, 2},
};

TEST(ZmcTools, TheCategoryFollowsFromFamilyAndSubfamily) {
  for (std::int32_t family = -2; family <= 12; ++family) {
    for (std::int32_t subfamily = -2; subfamily <= 20; ++subfamily) {
      int expected = -1;
      for (const CategoryCase& row : kCategoryCases) {
        const bool subfamilyFits = row.subfamilies.empty() || row.subfamilies.count(subfamily) != 0;
        if (row.family == family && subfamilyFits) expected = row.category;
      }
      EXPECT_EQ(ToolCategory(Found(family, subfamily)), expected) << family << "," << subfamily;
    }
  }
}

TEST(ZmcTools, AToolThatIsNotInTheTableIsManual) { EXPECT_EQ(ToolCategory(ZmcTool{}), 2); }

struct NumberRow {
  TextView text;
  std::int32_t number;
};

const NumberRow kNumbers[] = {
    {u"T3", 3},
    {u"T", 0},
    {u"", 0},
    {u"3", 0},
    {u"t3", 0},
    {u"T12x", 12},
    {u"T 7", 7},
    {u"Tx", 0},
    {u"T-4", -4},
    {u" T3", 0},
    {u"T99999999999", 2147483647},
    {u"T0x10", 0},
};

TEST(ZmcTools, TheNumberOfAToolIsTheIntegerAfterItsLetter) {
  for (const NumberRow& row : kNumbers) EXPECT_EQ(ZmcToolNumber(row.text), row.number) << ToUtf8(row.text);
}

TEST(ZmcTools, OnlyATextWithTheLetterIsAskedOfTheTable) {
  std::vector<std::string> log;
  NotedTools tables;
  tables.log = &log;
  tables.tools[3] = {1, 2, 100000, 4};
  const ZmcTool tool = ZmcToolOf(tables, u"T3");
  EXPECT_TRUE(tool.found);
  EXPECT_EQ(tool.data.diameter, 100000);
  EXPECT_EQ(tool.data.teeth, 4);
  EXPECT_FALSE(ZmcToolOf(tables, u"T4").found);
  for (const TextView text : {TextView(u""), TextView(u"3"), TextView(u"t3")}) {
    EXPECT_FALSE(ZmcToolOf(tables, text).found) << ToUtf8(text);
  }
  EXPECT_EQ(log, (std::vector<std::string>{"tool 3", "tool 4"}));
}

ZmcMachine MachineWithDmc() {
  ZmcMachine machine;
  machine.DmcOption = true;
  machine.DriveType = 8;
  machine.DmcSpindle = 1;
  return machine;
}

TEST(ZmcTools, DmcNeedsOptionDriveSpindleAndToolAndNamesTheFirstThatIsMissing) {
  for (int missing = 0; missing < 16; ++missing) {
    ZmcMachine machine = MachineWithDmc();
    if ((missing & 1) != 0) machine.DmcOption = false;
    if ((missing & 2) != 0) machine.DriveType = 4;
    if ((missing & 4) != 0) machine.DmcSpindle = 0;
    const ZmcTool tool = Found((missing & 8) != 0 ? 2 : 1, 0);
    int expected = 0;
    if ((missing & 8) != 0) expected = 3057;
    if ((missing & 4) != 0) expected = 3062;
    if ((missing & 2) != 0) expected = 3059;
    if ((missing & 1) != 0) expected = 3058;
    EXPECT_EQ(static_cast<int>(DmcReasonOf(machine, tool)), expected) << missing;
    EXPECT_EQ(DmcUsable(machine, tool), missing == 0) << missing;
  }
}

TEST(ZmcTools, DmcIsForTheFamiliesOneAndThree) {
  for (std::int32_t family = -1; family <= 11; ++family) {
    EXPECT_EQ(DmcUsable(MachineWithDmc(), Found(family, 1)), family == 1 || family == 3) << family;
  }
  EXPECT_EQ(DmcReasonOf(MachineWithDmc(), ZmcTool{}), DmcReason::kToolType) << "an unknown tool has no family";
  EXPECT_EQ(DmcReasonOf(MachineWithDmc(), ZmcTool{false, {1, 1, 0, 0}}), DmcReason::kToolType);
}

TEST(ZmcTools, AnySpindleNumberButZeroIsADmcSpindle) {
  ZmcMachine machine = MachineWithDmc();
  machine.DmcSpindle = -1;
  EXPECT_TRUE(DmcUsable(machine, Found(1, 1)));
}

TEST(ZmcTools, WithoutAFocusChannelTheSpindlesTypeIsTheReason) {
  NotedVariables variables;
  variables.values = {{"G.FOCUSCHANNEL", 0}, {"DM.OPTION.DMC", 1}, {"SP.DMCSPDL", 1}};
  EXPECT_EQ(DmcReasonOf(ReadZmcMachine(variables), Found(1, 1)), DmcReason::kDriveType);
}

TEST(ZmcTools, ThePictureIsTheSubfamilyWhereTheFamilyAllowsIt) {
  const std::map<std::int32_t, std::set<std::int32_t>> allowed = {{1, {1, 2, 3, 6}}, {2, {7}},          {3, {8}},
                                                                  {4, {9}},          {5, {10}},         {6, {4, 5}},
                                                                  {7, {12}},         {8, {11, 12, 13}}, {10, {14, 15}}};
  for (std::int32_t family = -1; family <= 12; ++family) {
    for (std::int32_t subfamily = -1; subfamily <= 20; ++subfamily) {
      const auto row = allowed.find(family);
      const bool has = row != allowed.end() && row->second.count(subfamily) != 0;
      const int expected = !has ? 0 : subfamily == 15 ? 14 : subfamily;
      EXPECT_EQ(ToolPicture(Found(family, subfamily)), expected) << family << "," << subfamily;
    }
  }
  EXPECT_EQ(ToolPicture(ZmcTool{false, {1, 1, 0, 0}}), 0);
}

struct ControlsCase {
  int category;
  ZmcToolControls controls;
};

const ControlsCase kControls[] = {
    {0, {false, true, false, false, 0x646E78}},
    {1, {true, false, false, true, 0xBFC9D3}},
    {2, {true, true, true, false, 0xBFC9D3}},
    {-1, {true, true, true, false, 0xBFC9D3}},
};

TEST(ZmcTools, TheControlsFollowTheCategory) {
  for (const ControlsCase& row : kControls) {
    const ZmcToolControls& controls = ToolControlsOf(row.category);
    EXPECT_EQ(controls.diameterEnabled, row.controls.diameterEnabled) << row.category;
    EXPECT_EQ(controls.teethShown, row.controls.teethShown) << row.category;
    EXPECT_EQ(controls.teethEnabled && controls.teethShown, row.controls.teethEnabled) << row.category;
    EXPECT_EQ(controls.partLabel, row.controls.partLabel) << row.category;
    EXPECT_EQ(controls.labelColor, row.controls.labelColor) << row.category;
  }
  EXPECT_EQ(kZmcDmcLabelOff, 0x838D97u);
}

/// The texts of a language pack: each is its number, but one is there twice.
Text NumberedText(int id) { return id == 98 ? Text(u"type 90") : Format(u"Type %d", id); }

TEST(ZmcTools, TheTypeOfToolsIsFoundByATextWithoutRegardToCase) {
  const std::map<int, std::int32_t> types = {{89, 1}, {90, 2}, {91, 4},  {92, 5}, {93, 6},
                                             {94, 7}, {95, 8}, {96, 10}, {97, 9}};
  for (const auto& [id, type] : types) {
    EXPECT_EQ(ToolTypeOf(Format(u"TYPE %d", id), NumberedText), type) << id;
  }
  EXPECT_EQ(ToolTypeOf(u"third", [](int id) { return id == 98 ? Text(u"Third") : Text(u"-"); }), 3);
}

TEST(ZmcTools, AnUnknownToolTypeMeansAllToolsAndNoneMeansNoTool) {
  EXPECT_EQ(ToolTypeOf(u"Type 88", NumberedText), 0);
  EXPECT_EQ(ToolTypeOf(u"Type 99", NumberedText), 0);
  EXPECT_FALSE(ToolTypeOf(u"", NumberedText));
  EXPECT_FALSE(ToolTypeOf(u"", [](int) { return Text(); })) << "also if a text of the pack is missing";
}

TEST(ZmcTools, TheToolsOfATypeAreNamedInTheTablesOrder) {
  NotedTools tables;
  tables.lists = {{0, {7, 3, 12}}, {2, {3}}};
  EXPECT_TRUE(ToolNames(tables, 0) == (std::vector<Text>{u"T7", u"T3", u"T12"}));
  EXPECT_TRUE(ToolNames(tables, 2) == std::vector<Text>{u"T3"});
  EXPECT_TRUE(ToolNames(tables, 5).empty());
}

struct TypedRow {
  TextView typed;
  const char16_t* name;  // null: none
};

const TypedRow kTyped[] = {
    {u"T3", u"T3"},  {u"t3", u"T3"},   {u"3", u"T3"},   {u" 12 ", u"T12"}, {u"", nullptr},
    {u" ", nullptr}, {u"T4", nullptr}, {u"T", nullptr}, {u"03", nullptr},  {u"TT3", nullptr},
};

TEST(ZmcTools, ATypedToolIsTakenIfTheTypeOfToolsHasIt) {
  const std::vector<Text> names = {u"T3", u"T12"};
  for (const TypedRow& row : kTyped) {
    const auto name = TypedTool(row.typed, names);
    EXPECT_EQ(name.has_value(), row.name != nullptr) << ToUtf8(row.typed);
    EXPECT_EQ(ToUtf8(name.value_or(u"")), ToUtf8(row.name != nullptr ? row.name : u"")) << ToUtf8(row.typed);
  }
  EXPECT_FALSE(TypedTool(u" ", {u"T"})) << "a blank is no tool, not even one without a number";
}

}  // namespace
}  // namespace pnl::test
