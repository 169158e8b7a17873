// SPDX-License-Identifier: MIT
// The main tab: how it opens, what a selection brings, what may be edited, and what follows from an edit.
#include <regex>

#include "zmc/zmc_stage.h"

namespace pnl::test {
namespace {

namespace id = zmc_control;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

class ZmcMainTest : public testing::Test, public ZmcStage {
 protected:
  std::vector<std::string> Results() const {
    return {TextOf(id::kS), TextOf(id::kF), TextOf(id::kPower), TextOf(id::kDmcText)};
  }
  bool IsReadOnly(int row, int col) const { return view->main.At(row, col).readOnly; }
};

constexpr const char* kOwnMaterial =
    "<MaterialDefinition><id>##</id><descripcion>Own</descripcion></MaterialDefinition>";

// Opening.

TEST_F(ZmcMainTest, TheLabelsAndUnitsHaveTheirTexts) {
  Open();
  const std::pair<int, const char*> kTexts[] = {
      {id::kTitle, "T55"},       {id::kMaterialLabel, "T56"}, {id::kOperationLabel, "T57"}, {id::kRemarkLabel, "T61"},
      {id::kToolLabel, "T58"},   {id::kDiameterLabel, "T59"}, {id::kPartLabel, "T105"},     {id::kTeethLabel, "T60"},
      {id::kBandTitle, "T50"},   {id::kFLabel, "T52"},        {id::kPowerLabel, "T51"},     {id::kDmcLabel, "T54"},
      {id::kDiameterUnit, "mm"}, {id::kTeethUnit, "z"},       {id::kM6Label, "M6"},         {id::kPercent, "%"},
      {id::kSLabel, "S"}};
  for (const auto& [control, text] : kTexts) EXPECT_EQ(TextOf(control), text) << control;
}

TEST_F(ZmcMainTest, TheGridsHeaderNamesRowsColumnsAndUnits) {
  for (const bool inches : {false, true}) {
    Define(u"MPG.INCHES", inches ? 1 : 0);
    Open();
    EXPECT_EQ(CellOf(0, 1), "T62");
    EXPECT_EQ(CellOf(0, 2), "T63");
    EXPECT_EQ(CellOf(0, 3), "T64");
    EXPECT_EQ(CellOf(1, 0), inches ? "T65 (sfm)" : "T65 (m/min)");
    EXPECT_EQ(CellOf(2, 0), inches ? "T66 (in/z)" : "T66 (mm/z)");
    EXPECT_EQ(CellOf(3, 0), inches ? "T67 (in)" : "T67 (mm)");
    EXPECT_EQ(CellOf(4, 0), "T68 (%)");
    EXPECT_EQ(TextOf(id::kDiameterUnit), inches ? "in" : "mm");
  }
}

TEST_F(ZmcMainTest, TheFieldsHaveTheMachinesDigits) {
  Open();
  struct Row {
    int control, whole, decimals;
  };
  for (const Row& row :
       {Row{id::kDiameter, 5, 4}, {id::kTeeth, 3, 0}, {id::kS, 5, 0}, {id::kF, 5, 1}, {id::kPower, 4, 2}}) {
    EXPECT_EQ(Control(row.control).digits.integerDigits, row.whole) << row.control;
    EXPECT_EQ(Control(row.control).digits.decimals, row.decimals) << row.control;
  }
  EXPECT_EQ(Control(id::kPower).digits.most, 1000.0);
  EXPECT_EQ(Control(id::kTeeth).digits.most, 100.0);
  EXPECT_EQ(view->main.At(1, 1).digits.integerDigits, 5);
  EXPECT_EQ(view->main.At(3, 3).digits.decimals, 4);
  EXPECT_EQ(view->main.At(4, 3).digits.integerDigits, 3);
  EXPECT_EQ(view->main.At(4, 3).digits.most, 100.0);
}

TEST_F(ZmcMainTest, TheCheckBoxesTakeTheirSavedValues) {
  const std::pair<const char*, int> kBoxes[] = {{"FChecked", id::kFCheck},
                                                {"SChecked", id::kSCheck},
                                                {"ToolChecked", id::kToolCheck},
                                                {"CommentsChecked", id::kRemarkCheck},
                                                {"DmcChecked", id::kDmcCheck}};
  for (const auto& [key, control] : kBoxes) {
    SetIni("LastOpe=Milling\r\n" + std::string(key) + "=YES\r\n");
    Open();
    for (const auto& [other, box] : kBoxes)
      EXPECT_EQ(Control(box).state, box == control ? 1 : 0) << key << " " << other;
  }
}

TEST_F(ZmcMainTest, WithoutTheToolCheckM6IsHiddenAndItsSavedValueLeftAlone) {
  SetIni("M6Checked=YES\r\n");
  Open();
  EXPECT_FALSE(Control(id::kM6Check).shown);
  EXPECT_FALSE(Control(id::kM6Label).shown);
  EXPECT_EQ(Control(id::kM6Check).state, 0);
  Turn(id::kToolCheck, true);
  EXPECT_TRUE(Control(id::kM6Check).shown);
  EXPECT_TRUE(Control(id::kM6Label).shown);
  EXPECT_EQ(Control(id::kM6Check).state, 1);
  Turn(id::kToolCheck, false);
  EXPECT_FALSE(Control(id::kM6Check).shown);
  DestroyTool();
  EXPECT_THAT(Ini(), HasSubstr("M6Checked=YES"));
}

TEST_F(ZmcMainTest, M6IsShownAtTheStartIfTheToolIsChecked) {
  SetIni("ToolChecked=YES\r\nM6Checked=YES\r\n");
  Open();
  EXPECT_TRUE(Control(id::kM6Check).shown);
  EXPECT_EQ(Control(id::kM6Check).state, 1);
}

TEST_F(ZmcMainTest, ALastMaterialThatIsGoneSelectsTheLastItemNotTheFirst) {
  for (const char* last : {"LastMat=Gone\r\nLastOpe=Gone\r\n", ""}) {
    SetIni(last);
    Open();
    EXPECT_EQ(TextOf(id::kMaterial), "Brass");
    EXPECT_EQ(TextOf(id::kOperation), "Turning");
  }
}

TEST_F(ZmcMainTest, WithoutALastSelectionARecordWithoutADescriptionIsNotIt) {
  SetUserFile("<MaterialDefinition><KC>1</KC></MaterialDefinition>", "<Operacion><ToolType>T89</ToolType></Operacion>");
  Open();
  EXPECT_THAT(Items(id::kMaterial), ElementsAre("", "Steel", "Brass"));
  EXPECT_EQ(TextOf(id::kMaterial), "Brass");
  EXPECT_EQ(TextOf(id::kOperation), "Turning");
}

TEST_F(ZmcMainTest, TheLastSelectionsComeBackInWhateverCase) {
  SetIni("LastMat=sTEEL\r\nLastOpe=MILLING\r\nLastTool=t3\r\n");
  Open();
  EXPECT_EQ(TextOf(id::kMaterial), "Steel");
  EXPECT_EQ(TextOf(id::kOperation), "Milling");
  EXPECT_EQ(TextOf(id::kTool), "T3");
}

TEST_F(ZmcMainTest, TheSelectionIsStoredAlsoAfterAFallback) {
  SetIni("LastMat=Gone\r\nLastOpe=Gone\r\nLastTool=T99\r\n");
  Open();
  DestroyTool();
  EXPECT_THAT(Ini(), HasSubstr("LastMat=Brass"));
  EXPECT_THAT(Ini(), HasSubstr("LastOpe=Turning"));
  EXPECT_THAT(Ini(), HasSubstr("LastTool=T7"));
}

TEST_F(ZmcMainTest, AnEmptyListForgetsNoSelection) {
  SetIni("LastMat=Steel\r\nLastOpe=Milling\r\nLastTool=T3\r\n");
  files.disc.erase(kFactoryPath);
  Open();
  EXPECT_THAT(Items(id::kMaterial), IsEmpty());
  DestroyTool();
  EXPECT_THAT(Ini(), HasSubstr("LastMat=Steel"));
  EXPECT_THAT(Ini(), HasSubstr("LastOpe=Milling"));
  EXPECT_THAT(Ini(), HasSubstr("LastTool=T3"));
}

TEST_F(ZmcMainTest, TheUnitBoxesFollowTheMachine) {
  struct Row {
    std::int64_t inches, dual;
    std::vector<std::string> feeds, speeds;
  };
  const Row kRows[] = {{0, 0, {"mm/min", "mm/rev"}, {"T85"}},
                       {0, 1, {"mm/min", "mm/rev"}, {"T85", "m/min"}},
                       {1, 0, {"in/min", "in/rev"}, {"T85"}},
                       {1, 1, {"in/min", "in/rev"}, {"T85", "sfm"}}};
  for (const Row& row : kRows) {
    Define(u"MPG.INCHES", row.inches);
    Define(u"DM.OPTION.DUALPURPOSE", row.dual);
    Open();
    EXPECT_EQ(Items(id::kFUnit), row.feeds);
    EXPECT_EQ(Items(id::kSUnit), row.speeds);
  }
}

TEST_F(ZmcMainTest, ASavedSpeedUnitWithoutDualPurposeLeavesTheBoxWithoutSelection) {
  SetIni("SUnit=1\r\nFUnit=1\r\n");
  Open();
  EXPECT_EQ(Control(id::kSUnit).selected, -1);
  EXPECT_EQ(Control(id::kFUnit).selected, 1);
  DestroyTool();
  EXPECT_THAT(Ini(), HasSubstr("SUnit=1")) << "another machine of the same kind has it";
  Define(u"DM.OPTION.DUALPURPOSE", 1);
  Open();
  EXPECT_EQ(Control(id::kSUnit).selected, 1);
}

TEST_F(ZmcMainTest, AForcedSpeedUnitIsSelectedAndTheSpeedFollows) {
  struct Row {
    std::int64_t forced;
    const char* saved;
    int selected;
    const char* speed;
  };
  const Row kRows[] = {{0, "0", 0, "3819"}, {9, "0", 0, "3819"}, {10, "0", 0, "3819"}, {10, "1", 0, "120"},
                       {11, "0", 1, "120"}, {11, "1", 1, "120"}, {12, "0", -1, "120"}};
  for (const Row& row : kRows) {
    SCOPED_TRACE(std::to_string(row.forced) + ", saved " + row.saved);
    Define(u"DM.OPTION.DUALPURPOSE", 1);
    Define(u"DM.ZMC.SUNIT", 0);
    SetIni("SUnit=0\r\n");
    Open();
    ComputeSteel();
    DestroyTool();
    Define(u"DM.ZMC.SUNIT", row.forced);
    SetIni("SUnit=" + std::string(row.saved) + "\r\nLastMat=Steel\r\nLastOpe=Milling\r\nLastTool=T3\r\n");
    Open();
    EXPECT_EQ(Control(id::kSUnit).selected, row.selected);
    EXPECT_EQ(TextOf(id::kS), row.speed);
  }
}

TEST_F(ZmcMainTest, ADamagedFactoryFileIsToldOnceAndTheTabStaysAsFarAsItGot) {
  Factory() = "<Condi";
  Open();
  EXPECT_THAT(TakeBoxes(), ElementsAre("T278"));
  EXPECT_TRUE(view->visible);
  EXPECT_THAT(Items(id::kMaterial), IsEmpty());
  EXPECT_THAT(Items(id::kFUnit), ElementsAre("mm/min", "mm/rev"));
  EXPECT_NE(sideMenu, 0u);
}

TEST_F(ZmcMainTest, AFileThatCannotBeReadIsPassedOverInSilence) {
  files.unreadable.insert(kFactoryPath);
  Open();
  EXPECT_THAT(TakeBoxes(), IsEmpty());
  EXPECT_THAT(Items(id::kMaterial), IsEmpty());
  EXPECT_TRUE(view->visible);
}

TEST_F(ZmcMainTest, TheFocusGoesToTheToolBoxAndThenToTheMaterial) {
  Open();
  Forget();
  Menu(zmc_command::kMainTab);
  std::vector<std::string> focus;
  for (const std::string& line : All()) {
    if (line.starts_with("view focus")) focus.push_back(line);
  }
  EXPECT_THAT(focus, ElementsAre("view focus 3012", "view focus 3008"));
}

// The pair.

TEST_F(ZmcMainTest, ALoadedPairLeavesTheGridAtItsLastCell) {
  Open();
  view->main.Select({1, 1});
  Pick(id::kMaterial, u"Steel");
  EXPECT_EQ(view->main.current, (ZmcCell{4, 3}));
}

TEST_F(ZmcMainTest, AnotherPairEmptiesWhatThePreviousOneShowed) {
  Open();
  ComputeSteel();
  view->controls.at(id::kRemark).text = u"old";
  Pick(id::kMaterial, u"Brass");
  for (int row = 1; row <= 4; ++row) {
    for (int col = 1; col <= 3; ++col) EXPECT_EQ(CellOf(row, col), "") << row << "," << col;
  }
  EXPECT_EQ(TextOf(id::kRemark), "");
  EXPECT_THAT(Results(), ElementsAre("", "", "", ""));
  EXPECT_EQ(messages.back(), "1 [] back 646E78");
}

TEST_F(ZmcMainTest, TheTwelveValuesAreShownInTheirCellsAndInTheScreensUnits) {
  SetUserFile(
      kOwnMaterial,
      "<Operacion><descripcion>Milling</descripcion><Materiales><Parametros><Material>Own</Material>"
      "<VelocidadCorte><Selected>1200000000</Selected><Min>800000000</Min><Max>1600000000</Max></VelocidadCorte>"
      "<AvancePorDiente><Selected>500</Selected><Min>200</Min><Max>1000</Max></AvancePorDiente>"
      "<Profundidad><Selected>15000</Selected><Min>5000</Min><Max>30000</Max></Profundidad>"
      "<PasadaRadial><Selected>50</Selected><Min>10</Min><Max>100</Max></PasadaRadial>"
      "<Observaciones><Descripcion>Slow</Descripcion></Observaciones>"
      "<CaracteristicasHta><Calidad>HSS</Calidad></CaracteristicasHta></Parametros></Materiales></Operacion>");
  struct Row {
    int inches;
    const char* cells[4][3];
  };
  const Row kRows[] = {{0,
                        {{"80.0000000", "160.0000000", "120.0000000"},
                         {"0.0200000", "0.1000000", "0.0500000"},
                         {"0.5000000", "3.0000000", "1.5000000"},
                         {"10.0000000", "100.0000000", "50.0000000"}}},
                       {1,
                        {{"262.4672000", "524.9344000", "393.7008000"},
                         {"0.0007874", "0.0039370", "0.0019685"},
                         {"0.0196850", "0.1181100", "0.0590550"},
                         {"10.0000000", "100.0000000", "50.0000000"}}}};
  for (const Row& row : kRows) {
    Define(u"MPG.INCHES", row.inches);
    Open();
    Pick(id::kMaterial, u"Own");
    Pick(id::kOperation, u"Milling");
    for (int line = 0; line < 4; ++line) {
      for (int col = 0; col < 3; ++col) EXPECT_EQ(CellOf(line + 1, col + 1), row.cells[line][col]);
    }
    EXPECT_EQ(TextOf(id::kRemark), "Slow");
    EXPECT_EQ(messages.back(), "1 [HSS] back 2C8064");
  }
}

struct RightsRow {
  const char* name;
  const char* material;
  const char* operation;
  bool limits, selected;  // may be edited
};

TEST_F(ZmcMainTest, TheRightsOfTheCellsFollowFromWhoHasThePair) {
  const RightsRow kRows[] = {{"both of the factory", "Steel", "Milling", false, true},
                             {"a factory pair without a block", "Brass", "Turning", false, true},
                             {"an own material", "Own", "Milling", true, true},
                             {"an own operation", "Steel", "Mine", true, true},
                             {"both own", "Own", "Mine", true, true}};
  SetUserFile(kOwnMaterial, "<Operacion><descripcion>Mine</descripcion></Operacion>");
  Open();
  for (const RightsRow& right : kRows) {
    Pick(id::kMaterial, FromUtf8(right.material));
    Pick(id::kOperation, FromUtf8(right.operation));
    for (int row = 1; row <= 4; ++row) {
      EXPECT_EQ(IsReadOnly(row, 1), !right.limits) << right.name;
      EXPECT_EQ(IsReadOnly(row, 2), !right.limits) << right.name;
      EXPECT_EQ(IsReadOnly(row, 3), !right.selected) << right.name;
    }
  }
}

TEST_F(ZmcMainTest, WithoutAPairTheSelectedColumnTakesNothingAndTheResultsAreBlank) {
  Factory() = "<CondicionesCorte/>";
  Open();
  for (int row = 1; row <= 4; ++row) {
    EXPECT_FALSE(IsReadOnly(row, 1));
    EXPECT_FALSE(IsReadOnly(row, 2));
    EXPECT_TRUE(IsReadOnly(row, 3));
  }
  EXPECT_TRUE(Cell(2, 1, u"5"));
  EXPECT_EQ(UserFile().size(), 218u) << "there is no pair to store it for";
  EXPECT_THAT(Results(), ElementsAre("", "", "", ""));
}

TEST_F(ZmcMainTest, ACellIsStoredInTheFilesUnits) {
  struct Row {
    int row, col;
    const char16_t* typed;
    const char* element;
  };
  const Row kRows[] = {{1, 1, u"120", "<VelocidadCorte><Min>1200000000<"},
                       {1, 2, u"120", "<VelocidadCorte><Max>1200000000<"},
                       {1, 3, u"120", "<VelocidadCorte><Selected>1200000000<"},
                       {2, 1, u"0.05", "<AvancePorDiente><Min>500<"},
                       {2, 2, u"0.05", "<AvancePorDiente><Max>500<"},
                       {2, 3, u"0.05", "<AvancePorDiente><Selected>500<"},
                       {3, 1, u"1.5", "<Profundidad><Min>15000<"},
                       {3, 2, u"1.5", "<Profundidad><Max>15000<"},
                       {3, 3, u"1.5", "<Profundidad><Selected>15000<"},
                       {4, 1, u"50", "<PasadaRadial><Min>50<"},
                       {4, 2, u"50", "<PasadaRadial><Max>50<"},
                       {4, 3, u"50", "<PasadaRadial><Selected>50<"}};
  for (const Row& row : kRows) {
    SetUserFile(kOwnMaterial, "");
    Open();
    Pick(id::kMaterial, u"Own");
    EXPECT_TRUE(Cell(row.row, row.col, row.typed));
    std::string file = UserFile();
    std::erase_if(file, [](char c) { return c == '\n' || c == '\t'; });
    file = std::regex_replace(file, std::regex("> +<"), "><");
    EXPECT_THAT(file, HasSubstr(row.element));
    DestroyTool();
  }
}

TEST_F(ZmcMainTest, AnEditOfAFactoryPairGoesIntoTheUsersFileAlone) {
  const std::string factory = Factory();
  Open();
  ComputeSteel();
  EXPECT_EQ(Factory(), factory);
  EXPECT_THAT(UserFile(), HasSubstr("<id>1</id>"));
  EXPECT_THAT(UserFile(), Not(HasSubstr("<Date>"))) << "an operation that was made for a cell is nobody's edit";
  DestroyTool();
  Open();
  EXPECT_THAT(Items(id::kOperation), ElementsAre("Milling", "Turning"));
  EXPECT_EQ(CellOf(1, 3), "120.0000000");
}

TEST_F(ZmcMainTest, ACellThatIsBeingTypedIsStoredForThePairItWasTypedFor) {
  // What was typed stayed on the screen of the next pair, was computed with there, and was stored for none.
  Open();
  ComputeSteel();
  view->main.BeginEdit({1, 3});
  view->main.TypeHere(u"60");
  Pick(id::kMaterial, u"Brass");
  EXPECT_FALSE(view->main.editing);
  EXPECT_EQ(CellOf(1, 3), "");
  EXPECT_EQ(TextOf(id::kS), "");
  Pick(id::kMaterial, u"Steel");
  EXPECT_EQ(CellOf(1, 3), "60.0000000");
  EXPECT_EQ(TextOf(id::kS), "1909");
}

TEST_F(ZmcMainTest, ACellThatIsBeingTypedIsStoredBeforeTheListsAreReadAnew) {
  for (const bool materials : {true, false}) {
    SetUserFile(kOwnMaterial, "<Operacion><descripcion>Mine</descripcion></Operacion>");
    Open();
    ComputeSteel();
    view->main.BeginEdit({1, 3});
    view->main.TypeHere(u"60");
    Menu(materials ? zmc_command::kMaterialsTab : zmc_command::kOperationsTab);
    EXPECT_TRUE((materials ? view->materials : view->operations).Type(1, 1, u"Renamed"));
    Menu(materials ? zmc_command::kSaveMaterials : zmc_command::kSaveOperations);
    EXPECT_EQ(CellOf(1, 3), "60.0000000");
    DestroyTool();
  }
}

// What follows from an edit.

TEST_F(ZmcMainTest, ACellIsStoredBeforeAnythingIsComputedWithIt) {
  Open();
  ComputeSteel();
  files.disc[kUserPath] = "<Condi";
  std::string speed;
  windows.onBox = [&] { speed = TextOf(id::kS); };
  EXPECT_TRUE(Cell(1, 3, u"60"));
  EXPECT_EQ(speed, "3819");
  EXPECT_EQ(TextOf(id::kS), "1909");
  windows.onBox = nullptr;
}

TEST_F(ZmcMainTest, WhatAnEditRecomputes) {
  struct Row {
    const char* name;
    std::function<void()> edit;
    std::vector<std::string> results;  // S, F, power, DMC: "=" as before, "" empty, "+" another text
  };
  const Row kRows[] = {
      {"Vc", [this] { Cell(1, 3, u"60"); }, {"1909", "381.800000", "14.972549", "+"}},
      {"Ae", [this] { Cell(4, 3, u"25"); }, {"=", "=", "14.976471", "+"}},
      {"a limit", [this] { Cell(1, 1, u"5"); }, {"=", "=", "=", "="}},
      {"FzMin", [this] { Cell(2, 1, u"0.01"); }, {"=", "=", "=", "+"}},
      {"FzMax", [this] { Cell(2, 2, u"0.2"); }, {"=", "=", "=", "+"}},
      {"S", [this] { Enter(id::kS, u"1000"); }, {"1000", "200.000000", "7.843137", "+"}},
      {"F", [this] { Enter(id::kF, u"100"); }, {"=", "100", "3.921569", "+"}},
      {"the power", [this] { Enter(id::kPower, u"5"); }, {"=", "=", "5", "+"}},
      {"no power", [this] { Enter(id::kPower, u"0"); }, {"=", "=", "0", ""}},
      {"the unit of F", [this] { Pick(id::kFUnit, u"mm/rev"); }, {"=", "0.200000", "=", "="}},
      {"the unit of S", [this] { Pick(id::kSUnit, u"m/min"); }, {"60", "=", "=", "="}},
  };
  SetUserFile("<MaterialDefinition><descripcion>Own</descripcion><KC>2000</KC></MaterialDefinition>", "");
  Define(u"DM.OPTION.DUALPURPOSE", 1);
  for (const Row& row : kRows) {
    SetIni("FUnit=0\r\nSUnit=0\r\n");
    Open();
    ComputeSteel();
    Pick(id::kMaterial, u"Own");
    for (int line = 1; line <= 4; ++line) {
      constexpr const char16_t* kValues[] = {u"120", u"0.05", u"2", u"50"};
      Cell(line, 3, kValues[line - 1]);
    }
    if (std::string(row.name) == "the unit of S") Cell(1, 3, u"60");
    const std::vector<std::string> before = Results();
    ASSERT_NE(before[2], "");
    row.edit();
    const std::vector<std::string> after = Results();
    for (std::size_t at = 0; at < 4; ++at) {
      SCOPED_TRACE(std::string(row.name) + ", result " + std::to_string(at));
      if (row.results[at] == "=") {
        EXPECT_EQ(after[at], before[at]);
      } else if (row.results[at] == "+") {
        EXPECT_NE(after[at], before[at]);
        EXPECT_NE(after[at], "");
      } else {
        EXPECT_EQ(after[at], row.results[at]);
      }
    }
    DestroyTool();
    SetUserFile("<MaterialDefinition><descripcion>Own</descripcion><KC>2000</KC></MaterialDefinition>", "");
  }
}

TEST_F(ZmcMainTest, ClearingVcLeavesSAndFEmptyAndThePowerZero) {
  Open();
  ComputeSteel();
  EXPECT_TRUE(Cell(1, 3, u""));
  // The depth and the radial pass are there, and an empty feed counts as 0.
  EXPECT_THAT(Results(), ElementsAre("", "", "0.000000", ""));
}

TEST_F(ZmcMainTest, ALimitOfTheFeedIsInTheDmcLineAtOnce) {
  SetUserFile("<MaterialDefinition><descripcion>Own</descripcion><KC>2000</KC></MaterialDefinition>", "");
  Open();
  ComputeSteel();
  Pick(id::kMaterial, u"Own");
  for (int line = 1; line <= 4; ++line) {
    constexpr const char16_t* kValues[] = {u"120", u"0.05", u"2", u"50"};
    Cell(line, 3, kValues[line - 1]);
  }
  EXPECT_EQ(TextOf(id::kDmcText), "#DMC ON [PWRSP = 29.952941]");
  EXPECT_TRUE(Cell(2, 1, u"0.01"));
  EXPECT_EQ(TextOf(id::kDmcText), "#DMC ON [PWRSP = 29.952941, FZMIN = 0.01]");
  EXPECT_TRUE(Cell(2, 2, u"0.0000000"));
  EXPECT_EQ(TextOf(id::kDmcText), "#DMC ON [PWRSP = 29.952941, FZMIN = 0.01, FZMAX = 0.0000000]");
}

TEST_F(ZmcMainTest, TheForceOfTheUsersRecordGoesBeforeTheFactorys) {
  SetUserFile("<MaterialDefinition><descripcion>Steel</descripcion><KC>1000</KC></MaterialDefinition>", "");
  Open();
  ComputeSteel();
  EXPECT_EQ(TextOf(id::kPower), "14.976471");
}

TEST_F(ZmcMainTest, AUsersRecordWithoutAForceLeavesTheFactorys) {
  SetUserFile("<MaterialDefinition><descripcion>Steel</descripcion><KC></KC></MaterialDefinition>", "");
  Open();
  ComputeSteel();
  EXPECT_EQ(TextOf(id::kPower), "29.952941");
}

TEST_F(ZmcMainTest, AMaterialWithoutAForceGivesNoPower) {
  SetUserFile(kOwnMaterial, "");
  Open();
  ComputeSteel();
  Pick(id::kMaterial, u"Own");
  for (int line = 1; line <= 4; ++line) Cell(line, 3, u"2");
  EXPECT_NE(TextOf(id::kF), "");
  EXPECT_EQ(TextOf(id::kPower), "");
  EXPECT_EQ(TextOf(id::kDmcText), "");
}

TEST_F(ZmcMainTest, ThePartsDiameterIsKeptFromToolToToolAndInInternalUnits) {
  for (const bool inches : {false, true}) {
    Define(u"MPG.INCHES", inches ? 1 : 0);
    SetIni("LastOpe=Turning\r\nLastPartDiameter=400000\r\n");
    Open();
    EXPECT_EQ(TextOf(id::kDiameter), inches ? "1.574800" : "40.000000");
    Enter(id::kDiameter, inches ? u"1.9685" : u"50");
    Pick(id::kOperation, u"Milling");
    EXPECT_NE(TextOf(id::kDiameter), "") << "the tool's own";
    Pick(id::kOperation, u"Turning");
    EXPECT_EQ(TextOf(id::kDiameter), inches ? "1.968500" : "50.000000");
    DestroyTool();
    EXPECT_THAT(Ini(), HasSubstr("LastPartDiameter=5e+05"));
  }
}

TEST_F(ZmcMainTest, EachCheckBoxIsInTheSettingsAtOnce) {
  const std::pair<int, const char*> kBoxes[] = {{id::kRemarkCheck, "CommentsChecked"},
                                                {id::kToolCheck, "ToolChecked"},
                                                {id::kM6Check, "M6Checked"},
                                                {id::kFCheck, "FChecked"},
                                                {id::kSCheck, "SChecked"},
                                                {id::kDmcCheck, "DmcChecked"}};
  for (const auto& [box, key] : kBoxes) {
    SetIni("LastOpe=Milling\r\nToolChecked=YES\r\n");
    for (const bool on : {true, false}) {
      Open();
      Turn(box, on);
      DestroyTool();
      EXPECT_THAT(Ini(), HasSubstr("\n" + std::string(key) + (on ? "=YES" : "=NO"))) << key;
      if (box == id::kToolCheck) break;
    }
  }
}

TEST_F(ZmcMainTest, TheUnitsAreInTheSettings) {
  Define(u"DM.OPTION.DUALPURPOSE", 1);
  Open();
  Pick(id::kFUnit, u"mm/rev");
  Pick(id::kSUnit, u"m/min");
  DestroyTool();
  EXPECT_THAT(Ini(), HasSubstr("\nFUnit=1"));
  EXPECT_THAT(Ini(), HasSubstr("\nSUnit=1"));
}

// Lists.

TEST_F(ZmcMainTest, TheUsersRecordsAreInTheListsAndHideTheFactorys) {
  SetUserFile(
      "<MaterialDefinition><descripcion>Old</descripcion><Date>2020/01/01 00:00:00</Date></MaterialDefinition>"
      "<MaterialDefinition><descripcion>New</descripcion><Date>2021/01/01 00:00:00</Date></MaterialDefinition>"
      "<MaterialDefinition><descripcion>Brass</descripcion><Oculto>true</Oculto></MaterialDefinition>",
      "<Operacion><descripcion>Turning</descripcion><id>2</id><Oculto>true</Oculto><Date>2020/01/01 "
      "00:00:00</Date></Operacion>");
  Open();
  EXPECT_THAT(Items(id::kMaterial), ElementsAre("New", "Old", "Steel"));
  EXPECT_THAT(Items(id::kOperation), ElementsAre("Milling"));
  SetIni("CustomMaterialFirst=NO\r\n");
  Open();
  EXPECT_THAT(Items(id::kMaterial), ElementsAre("Steel", "New", "Old"));
  SetIni("OrderingMaterialType=1\r\nMaterialAToZ=NO\r\n");
  Open();
  EXPECT_THAT(Items(id::kMaterial), ElementsAre("Steel", "Old", "New"));
}

TEST_F(ZmcMainTest, AnOperationOrderingThatIsNotKnownListsNothing) {
  SetIni("OrderingOperationType=3\r\nOrderingMaterialType=3\r\n");
  Open();
  EXPECT_THAT(Items(id::kOperation), IsEmpty());
  EXPECT_THAT(Items(id::kMaterial), ElementsAre("Brass", "Steel"));
}

TEST_F(ZmcMainTest, FiveThousandMaterialsOpenAndTheLastOneCanBeChosen) {
  std::string materials;
  for (int number = 0; number < 5000; ++number) {
    materials += "<MaterialDefinition><descripcion>M" + std::to_string(number) + "</descripcion></MaterialDefinition>";
  }
  Factory() = "<CondicionesCorte><MaterialesDefinition>" + materials + "</MaterialesDefinition></CondicionesCorte>";
  Open();
  EXPECT_EQ(Items(id::kMaterial).size(), 5000u);
  Pick(id::kMaterial, u"M4999");
  Menu(zmc_command::kMaterialsTab);
  EXPECT_EQ(view->materials.Rows(), 5001);
  EXPECT_EQ(view->materials.Column(7), std::vector<std::string>(5000, "O"));
}

}  // namespace
}  // namespace pnl::test
