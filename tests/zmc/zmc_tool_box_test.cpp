// SPDX-License-Identifier: MIT
// The tool box of the main tab: which tools it offers, what a tool changes on the screen, and a tool that is typed.
#include "zmc/zmc_stage.h"

namespace pnl::test {
namespace {

namespace id = zmc_control;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class ZmcToolBoxTest : public testing::Test, public ZmcStage {
 protected:
  /// Opens with one operation of that tool type.
  void OpenWithType(const std::string& toolType) {
    const std::string type = toolType.empty() ? "" : "<ToolType>" + toolType + "</ToolType>";
    Factory() =
        "<CondicionesCorte><MaterialesDefinition><MaterialDefinition><descripcion>Steel</descripcion>"
        "<KC>2000</KC></MaterialDefinition></MaterialesDefinition><Operaciones><Operacion><descripcion>Any"
        "</descripcion>" +
        type + "</Operacion></Operaciones></CondicionesCorte>";
    Open();
  }
  void OpenMilling() {
    Open();
    Pick(id::kOperation, u"Milling");
    Pick(id::kTool, u"T3");
  }
};

TEST_F(ZmcToolBoxTest, TheToolTypeOfTheOperationGivesTheTypeOfTools) {
  constexpr std::pair<const char*, int> kTypes[] = {{"T89", 1}, {"T90", 2}, {"T98", 3}, {"T91", 4},  {"T92", 5},
                                                    {"T93", 6}, {"T94", 7}, {"T95", 8}, {"T96", 10}, {"T97", 9}};
  for (int type = 1; type <= 10; ++type) cnc.Tables().SetTool(100 + type, type, {9, 0, 0, 0});
  for (const auto& [text, type] : kTypes) {
    for (const std::string& written : {std::string(text), "t" + std::string(text).substr(1)}) {
      OpenWithType(written);
      EXPECT_THAT(Items(id::kTool), testing::Contains("T" + std::to_string(100 + type))) << written;
      for (int other = 1; other <= 10; ++other) {
        if (other != type) {
          EXPECT_THAT(Items(id::kTool), testing::Not(testing::Contains("T" + std::to_string(100 + other)))) << written;
        }
      }
    }
  }
}

TEST_F(ZmcToolBoxTest, AToolTypeThatNoTextMatchesOffersAllTools) {
  OpenWithType("Fresa");
  EXPECT_THAT(Items(id::kTool), ElementsAre("T3", "T4", "T7", "T12"));
}

TEST_F(ZmcToolBoxTest, AnOperationWithoutAToolTypeLeavesTheBoxEmptyAndTheFieldsToTheOperator) {
  OpenWithType("");
  EXPECT_THAT(Items(id::kTool), IsEmpty());
  EXPECT_EQ(TextOf(id::kTool), "");
  EXPECT_EQ(TextOf(id::kDiameter), "");
  EXPECT_EQ(TextOf(id::kTeeth), "");
  EXPECT_TRUE(Control(id::kDiameter).enabled);
  EXPECT_TRUE(Control(id::kTeeth).enabled && Control(id::kTeeth).shown);
}

TEST_F(ZmcToolBoxTest, ATypeWithoutToolsLeavesTheBoxEmptyAndTheToolForgotten) {
  OpenMilling();
  OpenWithType("T93");
  EXPECT_THAT(Items(id::kTool), IsEmpty());
  EXPECT_EQ(TextOf(id::kTool), "");
  DestroyTool();
  EXPECT_THAT(Ini(), HasSubstr("LastTool=T3")) << "no tool was selected since";
}

TEST_F(ZmcToolBoxTest, AnotherOperationRefillsTheBoxAndAToolThatIsNotInItFallsBackToTheLastItem) {
  OpenMilling();
  Pick(id::kOperation, u"Turning");
  EXPECT_THAT(Items(id::kTool), ElementsAre("T7"));
  EXPECT_EQ(TextOf(id::kTool), "T7");
  Pick(id::kOperation, u"Milling");
  EXPECT_THAT(Items(id::kTool), ElementsAre("T3", "T4"));
  EXPECT_EQ(TextOf(id::kTool), "T4") << "the last item, as T7 isn't there";
}

TEST_F(ZmcToolBoxTest, TheLastToolIsSelectedAgainIfTheNewTypeHasIt) {
  SetUserFile("", "<Operacion><descripcion>Slotting</descripcion><ToolType>T89</ToolType></Operacion>");
  OpenMilling();
  Pick(id::kOperation, u"Slotting");
  EXPECT_EQ(TextOf(id::kTool), "T3");
}

// What a tool changes.

TEST_F(ZmcToolBoxTest, AToolBringsItsDiameterItsTeethAndItsPicture) {
  OpenMilling();
  EXPECT_EQ(TextOf(id::kDiameter), "10.000000");
  EXPECT_EQ(TextOf(id::kTeeth), "4");
  EXPECT_EQ(Control(id::kPicture).state, 1);
  Pick(id::kTool, u"T4");
  EXPECT_EQ(TextOf(id::kDiameter), "6.000000");
  EXPECT_EQ(TextOf(id::kTeeth), "2");
  EXPECT_EQ(Control(id::kPicture).state, 2);
  Pick(id::kOperation, u"Turning");
  EXPECT_EQ(Control(id::kPicture).state, 10);
}

TEST_F(ZmcToolBoxTest, ThePictureFollowsFamilyAndSubfamily) {
  for (int family = 0; family <= 11; ++family) {
    for (int subfamily = 0; subfamily <= 16; ++subfamily) {
      const std::set<std::pair<int, int>> own = {{1, 1},  {1, 2},  {1, 3},   {1, 6},  {2, 7},  {3, 8},
                                                 {4, 9},  {5, 10}, {6, 4},   {6, 5},  {7, 12}, {8, 11},
                                                 {8, 12}, {8, 13}, {10, 14}, {10, 15}};
      cnc.Tables().SetTool(50, 6, {family, subfamily, 10000, 1});
      if (family == 0 && subfamily == 0) OpenWithType("T93");
      Pick(id::kTool, u"T50");
      const int picture = own.count({family, subfamily}) == 0 ? 0 : subfamily == 15 ? 14 : subfamily;
      EXPECT_EQ(Control(id::kPicture).state, picture) << family << " " << subfamily;
    }
  }
}

struct CategoryRow {
  int family, subfamily, category;
};

TEST_F(ZmcToolBoxTest, TheControlsOfTheToolFollowItsCategory) {
  const CategoryRow kRows[] = {{1, 0, 0},  {2, 7, 0},  {3, 8, 0},  {4, 9, 0}, {5, 10, 1},   {7, 12, 1}, {6, 0, 2},
                               {6, 4, 0},  {6, 5, 1},  {6, 6, -1}, {8, 0, 1}, {8, 11, 1},   {8, 12, 1}, {8, 13, 1},
                               {8, 14, 2}, {8, 15, 2}, {8, 9, -1}, {9, 0, 2}, {10, 14, -1}, {0, 0, -1}};
  OpenWithType("T93");
  cnc.Tables().SetTool(50, 6, {1, 1, 10000, 3});
  OpenWithType("T93");
  for (const CategoryRow& row : kRows) {
    SCOPED_TRACE(std::to_string(row.family) + " " + std::to_string(row.subfamily));
    cnc.Tables().SetTool(50, 6, {row.family, row.subfamily, 10000, 3});
    Pick(id::kTool, u"T50");
    EXPECT_EQ(Control(id::kDiameter).enabled, row.category != 0);
    EXPECT_EQ(Control(id::kTeeth).shown, row.category != 1);
    if (row.category != 1) {
      EXPECT_EQ(Control(id::kTeeth).enabled, row.category != 0);
    }
    EXPECT_EQ(Control(id::kDiameterLabel).shown, row.category != 1);
    EXPECT_EQ(Control(id::kPartLabel).shown, row.category == 1);
    EXPECT_EQ(Control(id::kTeethLabel).shown, row.category != 1);
    EXPECT_EQ(Control(id::kTeethUnit).shown, row.category != 1);
    for (const int label : {id::kDiameterLabel, id::kPartLabel, id::kTeethLabel, id::kTeethUnit}) {
      EXPECT_EQ(Control(label).color, row.category == 0 ? 0x646E78u : 0xBFC9D3u) << label;
    }
    EXPECT_EQ(TextOf(id::kDiameter), row.category == 1 ? "0.000000" : "1.000000");
    EXPECT_EQ(TextOf(id::kTeeth), "3");
  }
}

struct ReasonRow {
  const char* name;
  std::int64_t option, drive, spindle;
  int family;
  int reason;  // 0: DMC can be used
};

TEST_F(ZmcToolBoxTest, DmcIsOffForOneReasonAtATime) {
  const ReasonRow kRows[] = {
      {"all there", 1, 16, 1, 1, 0},
      {"family 3", 1, 16, 1, 3, 0},
      {"drive bit", 1, 2, 1, 1, 0},
      {"drive bit among others", 1, 7, 1, 1, 0},
      {"drive 8", 1, 8, 1, 1, 0},
      {"spindle below 0", 1, 16, -1, 1, 0},
      {"no option", 0, 16, 1, 1, 3058},
      {"option 2", 2, 16, 1, 1, 3058},
      {"drive 1", 1, 1, 1, 1, 3059},
      {"drive 24", 1, 24, 1, 1, 3059},
      {"no spindle", 1, 16, 0, 1, 3062},
      {"family 2", 1, 16, 1, 2, 3057},
      {"option before drive", 0, 1, 0, 2, 3058},
      {"drive before spindle", 1, 1, 0, 2, 3059},
      {"spindle before tool", 1, 16, 0, 2, 3062},
  };
  for (const ReasonRow& row : kRows) {
    SCOPED_TRACE(row.name);
    Define(u"DM.OPTION.DMC", row.option);
    Define(u"MPA.DRIVETYPE.S", row.drive);
    Define(u"SP.DMCSPDL", row.spindle);
    cnc.Tables().SetTool(3, 1, {row.family, 0, 100000, 4});
    SetIni("LastOpe=Milling\r\nLastTool=T3\r\nDmcChecked=YES\r\n");
    Open();
    const bool usable = row.reason == 0;
    EXPECT_EQ(Control(id::kDmcCheck).state, usable ? 1 : 0);
    EXPECT_EQ(Control(id::kDmcCheck).enabled, usable);
    EXPECT_EQ(Control(id::kDmcCheck).shown, usable);
    EXPECT_EQ(Control(id::kDmcOffCheck).shown, !usable);
    EXPECT_EQ(Control(id::kDmcOffCheck).state, 0);
    EXPECT_FALSE(Control(id::kDmcOffCheck).enabled);
    EXPECT_EQ(Control(id::kDmcText).enabled, usable);
    EXPECT_EQ(Control(id::kPower).enabled, usable);
    for (const int label : {id::kDmcLabel, id::kPowerLabel, id::kPercent}) {
      EXPECT_EQ(Control(label).color, usable ? 0xBFC9D3u : 0x838D97u) << label;
    }
    for (const int reason : {3057, 3058, 3059, 3062}) EXPECT_EQ(Control(reason).shown, reason == row.reason) << reason;
    DestroyTool();
    EXPECT_THAT(Ini(), HasSubstr("DmcChecked=YES")) << "what was chosen is kept";
  }
}

TEST_F(ZmcToolBoxTest, WithoutAFocusChannelTheSpindlesTypeIsTheReason) {
  for (const std::int64_t channel : {0, -3}) {
    Define(u"G.FOCUSCHANNEL", channel);
    Open();
    Pick(id::kOperation, u"Milling");
    EXPECT_TRUE(Control(id::kReasonDrive).shown);
    EXPECT_EQ(TextOf(id::kSLabel), "");
  }
}

TEST_F(ZmcToolBoxTest, AMachineWithoutAnyVariableHasDmcOffAndComputesAllTheSame) {
  for (const TextView name :
       {u"MPG.INCHES", u"G.FOCUSCHANNEL", u"[1].G.MASTERSP", u"G.GSPDLNAME1", u"MPA.DRIVETYPE.S", u"DM.DMC.RATEDPOWER",
        u"DM.FFORMAT.WIDTH", u"DM.FFORMAT.PRECISION", u"DM.SFORMAT.WIDTH", u"DM.SFORMAT.PRECISION", u"DM.OPTION.DMC",
        u"DM.CNC.MODELID", u"DM.OPTION.DUALPURPOSE", u"DM.ZMC.SUNIT", u"SP.DMCSPDL", u"E.HELPDATA"}) {
    cnc.Define(name, rig::VariableType::kInt, std::int64_t{7}, false, false);
  }
  Open();
  ComputeSteel();
  EXPECT_TRUE(Control(id::kReasonOption).shown);
  EXPECT_EQ(TextOf(id::kS), "3819");
  EXPECT_EQ(TextOf(id::kF), "763");
  EXPECT_EQ(TextOf(id::kPower), "");
  EXPECT_THAT(Items(id::kSUnit), ElementsAre("T85"));
  EXPECT_EQ(Send(PNL_MSG_HELP_KEY), 0);
}

TEST_F(ZmcToolBoxTest, AToolChangeClearsTheResultsAndComputesThemAnew) {
  Open();
  ComputeSteel();
  Pick(id::kTool, u"T4");
  EXPECT_EQ(TextOf(id::kS), "6366");
  EXPECT_EQ(TextOf(id::kF), "636.600000");
  Pick(id::kOperation, u"Turning");
  EXPECT_EQ(TextOf(id::kS), "");
}

TEST_F(ZmcToolBoxTest, AChangeOfTheToolTableIsSeenAtTheNextSelection) {
  OpenMilling();
  cnc.Tables().SetTool(3, 1, {1, 1, 200000, 5});
  EXPECT_EQ(TextOf(id::kDiameter), "10.000000");
  Pick(id::kTool, u"T3");
  EXPECT_EQ(TextOf(id::kDiameter), "20.000000");
  EXPECT_EQ(TextOf(id::kTeeth), "5");
}

TEST_F(ZmcToolBoxTest, AMissingToolLeavesTheFieldsEmptyAndEditable) {
  OpenMilling();
  // The table loses the tool while the box still offers it.
  cnc.Returns("TAPI_Tools_GetToolData", {0});
  Pick(id::kTool, u"T4");
  EXPECT_EQ(TextOf(id::kTool), "T4");
  EXPECT_EQ(TextOf(id::kDiameter), "");
  EXPECT_EQ(TextOf(id::kTeeth), "");
  EXPECT_EQ(Control(id::kPicture).state, 0);
  EXPECT_TRUE(Control(id::kReasonTool).shown);
  Enter(id::kDiameter, u"10");
  Enter(id::kTeeth, u"2");
  Cell(1, 3, u"120");
  EXPECT_EQ(TextOf(id::kS), "3819");
}

// A tool that is typed.

struct TypedRow {
  const char* typed;
  const char* shown;
  bool refused;
};

TEST_F(ZmcToolBoxTest, EnterTakesAToolOfTheOperationAndRefusesOthers) {
  language.SetText(275, u"%s is no tool");
  const TypedRow kRows[] = {{"T4", "T4", false}, {"t4", "T4", false}, {"4", "T4", false},   {" 4 ", "T4", false},
                            {"", "T3", false},   {"T7", "T3", true},  {"7", "T3", true},    {"X", "T3", true},
                            {"T", "T3", true},   {"T04", "T3", true}, {"T4 x", "T3", true}, {"TT4", "T3", true}};
  for (const TypedRow& row : kRows) {
    SCOPED_TRACE(row.typed);
    OpenMilling();
    messages.clear();
    TypeTool(FromUtf8(row.typed));
    EXPECT_TRUE(Key(ZmcKey::kEnter));
    EXPECT_EQ(TextOf(id::kTool), row.shown);
    EXPECT_EQ(TextOf(id::kDiameter), std::string(row.shown) == "T4" ? "6.000000" : "10.000000");
    EXPECT_EQ(Items(id::kTool)[static_cast<std::size_t>(Control(id::kTool).selected)], row.shown);
    if (row.refused) {
      EXPECT_THAT(messages, ElementsAre("1 [" + ToUtf8(ToUpper(FromUtf8(row.typed))) + " is no tool] back 648064"));
    } else {
      EXPECT_THAT(messages, IsEmpty());
    }
    EXPECT_EQ(view->focused, id::kTool) << "the focus stays in the box";
    // It is taken: leaving the box changes nothing any more.
    Focus(id::kF);
    EXPECT_EQ(TextOf(id::kTool), row.shown);
  }
}

TEST_F(ZmcToolBoxTest, ATypedToolIsTheLastTool) {
  OpenMilling();
  TypeTool(u"4");
  Key(ZmcKey::kEnter);
  DestroyTool();
  EXPECT_THAT(Ini(), HasSubstr("LastTool=T4"));
}

TEST_F(ZmcToolBoxTest, ATypedToolThatIsNotTakenGoesWhenTheBoxIsLeft) {
  for (const int way : {0, 1, 2, 3}) {
    OpenMilling();
    Enter(id::kS, u"500");
    TypeTool(u"T4");
    if (way == 0) Key(ZmcKey::kTab);
    if (way == 1) Key(ZmcKey::kBackTab);
    if (way == 2) Focus(id::kF);
    if (way == 3) Key(ZmcKey::kEscape);
    EXPECT_EQ(TextOf(id::kTool), "T3") << way;
    EXPECT_EQ(view->focused == id::kTool, way == 3);
    EXPECT_EQ(TextOf(id::kDiameter), "10.000000");
    EXPECT_EQ(TextOf(id::kS), "500") << "it is the same tool: nothing is computed";
    EXPECT_TRUE(view->visible);
  }
}

TEST_F(ZmcToolBoxTest, EscapeInTheToolBoxNeverClosesTheTool) {
  OpenMilling();
  Focus(id::kTool);
  EXPECT_TRUE(Key(ZmcKey::kEscape));
  EXPECT_TRUE(Key(ZmcKey::kEscape));
  EXPECT_TRUE(view->visible);
}

TEST_F(ZmcToolBoxTest, ATextThatNobodyTypedStaysWhenTheBoxIsLeft) {
  OpenMilling();
  Focus(id::kTool);
  view->controls.at(id::kTool).text = u"T4";
  Focus(id::kF);
  EXPECT_EQ(TextOf(id::kTool), "T4");
}

TEST_F(ZmcToolBoxTest, ASelectedToolIsNoTypedOneAnyMore) {
  OpenMilling();
  TypeTool(u"T9");
  Pick(id::kTool, u"T4");
  EXPECT_TRUE(Key(ZmcKey::kRight)) << "no caret has to move";
  EXPECT_NE(view->focused, id::kTool);
  EXPECT_EQ(TextOf(id::kTool), "T4");
}

}  // namespace
}  // namespace pnl::test
