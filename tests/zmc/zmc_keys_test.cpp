// SPDX-License-Identifier: MIT
// Every key in every place of the main tab, and what the tab then does.
#include "zmc/zmc_keys.h"

#include "zmc/zmc_stage.h"

namespace pnl::test {
namespace {

namespace id = zmc_control;
using testing::ElementsAre;
using testing::HasSubstr;
using Kind = ZmcPlaceKind;

constexpr ZmcKey kKeys[] = {ZmcKey::kTab,   ZmcKey::kBackTab, ZmcKey::kUp,     ZmcKey::kDown,
                            ZmcKey::kLeft,  ZmcKey::kRight,   ZmcKey::kHome,   ZmcKey::kEnd,
                            ZmcKey::kEnter, ZmcKey::kSpace,   ZmcKey::kInsert, ZmcKey::kEscape};
constexpr const char* kKeyNames[] = {"Tab",  "Shift Tab", "Up",    "Down",  "Left",   "Right",
                                     "Home", "End",       "Enter", "Space", "Insert", "Escape"};
constexpr const char* kStepNames[] = {"",      "commit",  "begin", "first", "last",   "reset", "take", "toggle",
                                      "blank", "restore", "open",  "close", "accept", "prev",  "next", "insert"};

/// What the tab does, then "." when it keeps the key, "C" when the control gets it, ">" and "<" when the focus moves,
/// "X" when the tool closes.
std::string Written(const ZmcKeyAnswer& answer) {
  return std::string(kStepNames[static_cast<int>(answer.step)]) + ".C><X"[static_cast<int>(answer.end)];
}

struct PlaceRow {
  const char* name;
  ZmcKeyPlace place;
  std::vector<const char*> answers;  // by key
};

ZmcKeyPlace PlaceOf(Kind kind, bool open = false, bool toolEdited = false, bool lineEdit = false) {
  ZmcKeyPlace place;
  place.kind = kind;
  place.open = open;
  place.toolEdited = toolEdited;
  place.lineEdit = lineEdit;
  return place;
}

// clang-format off
const PlaceRow kPlaces[] = {
    //                        Tab      Shift Tab  Up      Down    Left    Right   Home End  Enter      Space    Insert     Escape
    {"nowhere",       PlaceOf(Kind::kNone),
                             {">",     "<",       "<",    ">",    "<",    ">",    "C", "C", ">",       "C",     "insert.", "X"}},
    {"a check box",   PlaceOf(Kind::kOther),
                             {">",     "<",       "<",    ">",    "<",    ">",    "C", "C", ">",       "C",     "insert.", "X"}},
    {"a data field",  PlaceOf(Kind::kDataField),
                             {">",     "<",       "<",    ">",    "<",    ">",    "C", "C", ">",       "C",     "insert.", "X"}},
    {"its open edit", PlaceOf(Kind::kDataField, true),
                             {">",     "<",       "C",    "C",    "C",    "C",    "C", "C", ">",       "C",     "insert.", "C"}},
    {"a list box",    PlaceOf(Kind::kListBox),
                             {">",     "<",       "<",    ">",    "<",    ">",    "C", "C", ">",       "open.", "insert.", "X"}},
    {"its open list", PlaceOf(Kind::kListBox, true),
                             {">",     "<",       "prev.", "next.", "prev.", "next.", "C", "C", "accept>", "C", "insert.", "close."}},
    {"the tool box",  PlaceOf(Kind::kToolBox),
                             {">",     "<",       "<",    ">",    "<",    ">",    "C", "C", "take.",   "open.", "insert.", "reset."}},
    {"its open list", PlaceOf(Kind::kToolBox, true),
                             {">",     "<",       "prev.", "next.", "prev.", "next.", "C", "C", "accept.", "C", "insert.", "reset."}},
    {"a typed tool",  PlaceOf(Kind::kToolBox, false, true),
                             {"reset>", "reset<", "<",    ">",    "C",    "C",    "C", "C", "take.",   "open.", "insert.", "reset."}},
    {"a typed tool and an open list", PlaceOf(Kind::kToolBox, true, true),
                             {"reset>", "reset<", "prev.", "next.", "prev.", "next.", "C", "C", "accept.", "C", "insert.", "reset."}},
    {"a text line",   PlaceOf(Kind::kTextLine),
                             {">",     "<",       "<",    ">",    "<",    ">",    "C", "C", "toggle.", "blank.", "insert.", "X"}},
    {"a line in edit mode", PlaceOf(Kind::kTextLine, true, false, true),
                             {"restore>", "restore<", "<", ">",   "C",    "C",    "C", "C", "toggle.", "C",     "C",       "restore."}},
    {"a list box while a line is in edit mode", PlaceOf(Kind::kListBox, false, false, true),
                             {">",     "<",       "<",    ">",    "<",    ">",    "C", "C", ">",       "open.", "C",       "X"}},
};
// clang-format on

TEST(ZmcKeys, EveryKeyHasItsMeaningInEveryPlace) {
  for (const PlaceRow& row : kPlaces) {
    ASSERT_EQ(row.answers.size(), std::size(kKeys));
    for (std::size_t key = 0; key < std::size(kKeys); ++key) {
      EXPECT_EQ(Written(AnswerToKey(kKeys[key], row.place)), row.answers[key]) << kKeyNames[key] << " in " << row.name;
    }
  }
}

std::string InGrid(ZmcKey key, ZmcCell cell, bool factoryPair, bool open) {
  ZmcKeyPlace place = PlaceOf(Kind::kGrid, open);
  place.cell = cell;
  place.firstCell = {1, factoryPair ? 3 : 1};
  return Written(AnswerToKey(key, place));
}

TEST(ZmcKeys, TheGridIsLeftOnlyAtItsEdges) {
  for (const bool factory : {false, true}) {
    for (int row = 1; row <= 4; ++row) {
      for (int col = 1; col <= 3; ++col) {
        const ZmcCell cell{row, col};
        SCOPED_TRACE(std::to_string(row) + "," + std::to_string(col) + (factory ? " of a factory pair" : ""));
        const bool first = cell == ZmcCell{1, 1} || (factory && cell == ZmcCell{1, 3});
        EXPECT_EQ(InGrid(ZmcKey::kTab, cell, factory, false), cell == (ZmcCell{4, 3}) ? ">" : "C");
        EXPECT_EQ(InGrid(ZmcKey::kBackTab, cell, factory, false), first ? "<" : "C");
        EXPECT_EQ(InGrid(ZmcKey::kUp, cell, factory, false), row == 1 ? "<" : "C");
        EXPECT_EQ(InGrid(ZmcKey::kDown, cell, factory, false), row == 4 ? ">" : "C");
        EXPECT_EQ(InGrid(ZmcKey::kLeft, cell, factory, false), col == 1 ? "<" : "C");
        EXPECT_EQ(InGrid(ZmcKey::kRight, cell, factory, false), col == 3 ? ">" : "C");
        EXPECT_EQ(InGrid(ZmcKey::kHome, cell, factory, false), "first.");
        EXPECT_EQ(InGrid(ZmcKey::kEnd, cell, factory, false), "last.");
        EXPECT_EQ(InGrid(ZmcKey::kEnter, cell, factory, false), "begin.");
        EXPECT_EQ(InGrid(ZmcKey::kSpace, cell, factory, false), "C");
        EXPECT_EQ(InGrid(ZmcKey::kInsert, cell, factory, false), "insert.");
        EXPECT_EQ(InGrid(ZmcKey::kEscape, cell, factory, false), "X");
      }
    }
  }
}

TEST(ZmcKeys, AnOpenCellKeepsItsKeysAndACommitStaysInTheCell) {
  constexpr const char* kAnswers[] = {"commit.", "commit.", "C",       "C", "C",       "C",
                                      "C",       "C",       "commit.", "C", "insert.", "C"};
  for (int row = 1; row <= 4; ++row) {
    for (int col = 1; col <= 3; ++col) {
      for (std::size_t key = 0; key < std::size(kKeys); ++key) {
        EXPECT_EQ(InGrid(kKeys[key], {row, col}, row % 2 == 0, true), kAnswers[key])
            << kKeyNames[key] << " in " << row << "," << col;
      }
    }
  }
}

// On the tab.

class ZmcKeysTest : public testing::Test, public ZmcStage {
 protected:
  void OpenPair(TextView material = u"Steel", TextView operation = u"Milling") {
    Open();
    Pick(id::kMaterial, material);
    Pick(id::kOperation, operation);
    Forget();
  }
};

TEST_F(ZmcKeysTest, EnterBeginsACellAndCommitsItInPlace) {
  OpenPair();
  view->focused = id::kGrid;
  view->main.Select({1, 3});
  EXPECT_TRUE(Key(ZmcKey::kEnter));
  EXPECT_TRUE(view->main.editing);
  view->main.TypeHere(u"90");
  EXPECT_TRUE(Key(ZmcKey::kEnter));
  EXPECT_FALSE(view->main.editing);
  EXPECT_EQ(view->main.current, (ZmcCell{1, 3}));
  EXPECT_EQ(CellOf(1, 3), "90");
  EXPECT_THAT(UserFile(), HasSubstr("900000000"));
}

TEST_F(ZmcKeysTest, EnterOnALimitOfTheFactoryBeginsNothing) {
  OpenPair();
  view->focused = id::kGrid;
  view->main.Select({1, 1});
  EXPECT_TRUE(Key(ZmcKey::kEnter));
  EXPECT_FALSE(view->main.editing);
}

TEST_F(ZmcKeysTest, TabCommitsAnOpenCellAndStays) {
  OpenPair();
  view->focused = id::kGrid;
  for (const ZmcKey key : {ZmcKey::kTab, ZmcKey::kBackTab}) {
    view->main.BeginEdit({4, 3});
    view->main.TypeHere(key == ZmcKey::kTab ? u"40" : u"30");
    EXPECT_TRUE(Key(key));
    EXPECT_FALSE(view->main.editing);
    EXPECT_EQ(view->focused, id::kGrid);
  }
  EXPECT_EQ(CellOf(4, 3), "30");
  EXPECT_TRUE(Key(ZmcKey::kTab));
  EXPECT_EQ(view->focused, id::kRemarkCheck) << "only the next one leaves the grid";
}

TEST_F(ZmcKeysTest, HomeAndEndGoToTheEditableCellsOfTheRow) {
  OpenPair();
  view->focused = id::kGrid;
  view->main.Select({2, 2});
  EXPECT_TRUE(Key(ZmcKey::kHome));
  EXPECT_EQ(view->main.current, (ZmcCell{2, 3})) << "the limits of a factory pair take no typing";
  view->main.Select({2, 2});
  EXPECT_TRUE(Key(ZmcKey::kEnd));
  EXPECT_EQ(view->main.current, (ZmcCell{2, 3}));
  SetUserFile("<MaterialDefinition><descripcion>Own</descripcion></MaterialDefinition>", "");
  OpenPair(u"Own");
  view->focused = id::kGrid;
  view->main.Select({2, 2});
  EXPECT_TRUE(Key(ZmcKey::kHome));
  EXPECT_EQ(view->main.current, (ZmcCell{2, 1}));
  EXPECT_TRUE(Key(ZmcKey::kEnd));
  EXPECT_EQ(view->main.current, (ZmcCell{2, 3}));
}

TEST_F(ZmcKeysTest, HomeStaysWhereNothingCanBeEdited) {
  Factory() = "<CondicionesCorte/>";
  Open();
  for (int row = 1; row <= 4; ++row) {
    for (int col = 1; col <= 3; ++col) view->main.SetReadOnly(row, col, true);
  }
  view->focused = id::kGrid;
  view->main.Select({3, 2});
  EXPECT_TRUE(Key(ZmcKey::kHome));
  EXPECT_EQ(view->main.current, (ZmcCell{3, 2}));
}

TEST_F(ZmcKeysTest, AnOpenListMovesItsItemAndEnterTakesItAndMovesOn) {
  Open();
  Focus(id::kMaterial);
  EXPECT_TRUE(Key(ZmcKey::kSpace));
  EXPECT_TRUE(Control(id::kMaterial).open);
  EXPECT_TRUE(Key(ZmcKey::kUp));
  EXPECT_EQ(TextOf(id::kMaterial), "Brass") << "only marked";
  EXPECT_TRUE(Key(ZmcKey::kEnter));
  EXPECT_EQ(TextOf(id::kMaterial), "Steel");
  EXPECT_FALSE(Control(id::kMaterial).open);
  EXPECT_EQ(view->focused, id::kOperation);
  DestroyTool();
  EXPECT_THAT(Ini(), HasSubstr("LastMat=Steel"));
}

TEST_F(ZmcKeysTest, EscapeClosesAnOpenListAndLeavesItsSelection) {
  Open();
  Focus(id::kMaterial);
  Key(ZmcKey::kSpace);
  Key(ZmcKey::kLeft);
  Forget();
  EXPECT_TRUE(Key(ZmcKey::kEscape));
  EXPECT_EQ(TextOf(id::kMaterial), "Brass");
  EXPECT_THAT(All(), ElementsAre("view close list 3008"));
}

TEST_F(ZmcKeysTest, TheArrowsMoveAMarkDownAndUp) {
  Open();
  Focus(id::kMaterial);
  Key(ZmcKey::kSpace);
  Forget();
  for (const ZmcKey key : {ZmcKey::kUp, ZmcKey::kDown, ZmcKey::kLeft, ZmcKey::kRight}) Key(key);
  EXPECT_THAT(All(), ElementsAre("view move in list 3008 -1", "view move in list 3008 1", "view move in list 3008 -1",
                                 "view move in list 3008 1"));
}

TEST_F(ZmcKeysTest, EscapeElsewhereClosesTheTool) {
  OpenPair();
  Focus(id::kFCheck);
  Forget();
  EXPECT_TRUE(Key(ZmcKey::kEscape));
  EXPECT_THAT(Asked(), ElementsAre("clear message", "HostToolClosed(4,2)"));
}

TEST_F(ZmcKeysTest, InsertPutsTheBlockIntoTheProgramFromAnyControl) {
  OpenPair();
  for (const int control : {id::kMaterial, id::kGrid, id::kF, id::kRemark, id::kTool}) {
    Open();
    Focus(control);
    Forget();
    EXPECT_TRUE(Key(ZmcKey::kInsert));
    EXPECT_THAT(Asked(), testing::Contains("HostInsertBlock")) << control;
  }
}

TEST_F(ZmcKeysTest, InsertIsTheTextLinesOwnWhileOneIsInEditMode) {
  OpenPair();
  Focus(id::kRemark);
  Key(ZmcKey::kEnter);
  Forget();
  EXPECT_FALSE(Key(ZmcKey::kInsert));
  EXPECT_THAT(All(), testing::IsEmpty());
}

// The text lines.

TEST_F(ZmcKeysTest, EnterTogglesTheEditModeOfTheRemarkAndTheSecondStoresIt) {
  OpenPair();
  Focus(id::kRemark);
  EXPECT_TRUE(Key(ZmcKey::kEnter));
  view->controls.at(id::kRemark).text = u"Rough";
  EXPECT_EQ(UserFile().size(), 218u);
  EXPECT_TRUE(Key(ZmcKey::kEnter));
  EXPECT_THAT(UserFile(), HasSubstr("<Descripcion>Rough</Descripcion>"));
  EXPECT_EQ(TextOf(id::kRemark), "Rough");
  EXPECT_EQ(view->focused, id::kRemark);
  Pick(id::kMaterial, u"Brass");
  EXPECT_EQ(TextOf(id::kRemark), "");
  Pick(id::kMaterial, u"Steel");
  EXPECT_EQ(TextOf(id::kRemark), "Rough");
}

TEST_F(ZmcKeysTest, TheDmcLineIsEditedInTheSameWayAndStoredNowhere) {
  OpenPair();
  ComputeSteel();
  const std::string before = UserFile();
  Focus(id::kDmcText);
  Key(ZmcKey::kEnter);
  view->controls.at(id::kDmcText).text = u"#DMC ON";
  Key(ZmcKey::kEnter);
  EXPECT_EQ(TextOf(id::kDmcText), "#DMC ON");
  EXPECT_EQ(UserFile(), before);
  EXPECT_TRUE(Key(ZmcKey::kEscape)) << "out of the edit mode it closes the tool";
  EXPECT_FALSE(view->visible);
}

TEST_F(ZmcKeysTest, EscapeTabAndTheLossOfTheFocusGiveTheOldTextBack) {
  for (const int line : {id::kRemark, id::kDmcText}) {
    for (const int way : {0, 1, 2, 3}) {
      Open();
      ComputeSteel();
      view->controls.at(line).text = u"before";
      Focus(line);
      Key(ZmcKey::kEnter);
      view->controls.at(line).text = u"typed";
      if (way == 0) Key(ZmcKey::kEscape);
      if (way == 1) Key(ZmcKey::kTab);
      if (way == 2) Key(ZmcKey::kBackTab);
      if (way == 3) Focus(id::kFCheck);
      EXPECT_EQ(TextOf(line), "before") << line << " " << way;
      EXPECT_EQ(view->focused == line, way == 0);
      EXPECT_TRUE(view->visible) << "the tool stays";
    }
  }
}

TEST_F(ZmcKeysTest, ALineOutOfEditModeKeepsWhatWasTyped) {
  OpenPair();
  Focus(id::kRemark);
  view->controls.at(id::kRemark).text = u"typed";
  Focus(id::kFCheck);
  EXPECT_EQ(TextOf(id::kRemark), "typed");
}

TEST_F(ZmcKeysTest, SpaceBeginsTheEditModeWithABlank) {
  OpenPair();
  view->controls.at(id::kRemark).text = u"before";
  Focus(id::kRemark);
  EXPECT_TRUE(Key(ZmcKey::kSpace));
  EXPECT_EQ(TextOf(id::kRemark), " ");
  EXPECT_FALSE(Key(ZmcKey::kSpace)) << "the next one is a character";
  EXPECT_TRUE(Key(ZmcKey::kEscape));
  EXPECT_EQ(TextOf(id::kRemark), "before");
}

TEST_F(ZmcKeysTest, ALineThatGetsTheFocusSelectsItsTextAndThenEndsTheGridsEdit) {
  OpenPair();
  view->focused = id::kGrid;
  view->main.BeginEdit({1, 3});
  view->main.TypeHere(u"77");
  Forget();
  Focus(id::kRemark);
  EXPECT_THAT(All(), ElementsAre("view focus 3033", "view select all 3033"));
  EXPECT_FALSE(view->main.editing);
  EXPECT_EQ(CellOf(1, 3), "77");
}

TEST_F(ZmcKeysTest, ARemarkWithoutAPairIsStoredNowhere) {
  Factory() = "<CondicionesCorte/>";
  Open();
  Focus(id::kRemark);
  Key(ZmcKey::kEnter);
  view->controls.at(id::kRemark).text = u"typed";
  Key(ZmcKey::kEnter);
  EXPECT_EQ(UserFile().size(), 218u);
  EXPECT_EQ(TextOf(id::kRemark), "typed");
}

// The order of the focus.

struct Facts {
  bool operations, m6, dmc;
  int category;
};

std::vector<int> OrderFor(const Facts& facts) {
  std::vector<int> order = {id::kMaterial, id::kOperation};
  if (facts.operations) order.push_back(id::kGrid);
  for (const int control : {id::kRemarkCheck, id::kRemark, id::kToolCheck, id::kTool}) order.push_back(control);
  if (facts.m6) order.push_back(id::kM6Check);
  if (facts.category != 0) order.push_back(id::kDiameter);
  if (facts.category != 0 && facts.category != 1) order.push_back(id::kTeeth);
  for (const int control : {id::kFCheck, id::kF, id::kFUnit, id::kSCheck, id::kS, id::kSUnit}) order.push_back(control);
  if (facts.dmc) {
    for (const int control : {id::kPower, id::kDmcCheck, id::kDmcText}) order.push_back(control);
  }
  return order;
}

TEST_F(ZmcKeysTest, TheFocusWalksInItsOrderAndBackInTheExactReverse) {
  // A tool of each category and of both answers to DMC, where there is one.
  cnc.Tables().SetTool(20, 20, {3, 0, 10000, 2});  // 0 with DMC
  cnc.Tables().SetTool(21, 20, {2, 0, 10000, 2});  // 0 without
  cnc.Tables().SetTool(22, 20, {5, 0, 10000, 2});  // 1
  cnc.Tables().SetTool(23, 20, {9, 0, 10000, 2});  // 2
  cnc.Tables().SetTool(24, 20, {6, 9, 10000, 2});  // -1
  const std::string withOperations = Factory();
  struct Tool {
    TextView name;
    int category;
    bool dmc;
  };
  for (const Tool& one :
       {Tool{u"T20", 0, true}, {u"T21", 0, false}, {u"T22", 1, false}, {u"T23", 2, false}, {u"T24", -1, false}}) {
    for (const bool operations : {false, true}) {
      for (const bool m6 : {false, true}) {
        SCOPED_TRACE(ToUtf8(one.name) + (operations ? " operations" : "") + (m6 ? " M6" : ""));
        Factory() = operations ? withOperations : "<CondicionesCorte/>";
        // An operation of an unknown tool type takes all tools.
        SetUserFile("",
                    operations ? "<Operacion><descripcion>Any</descripcion><ToolType>?</ToolType></Operacion>" : "");
        Open();
        if (operations) Pick(id::kOperation, u"Any");
        view->controls.at(id::kTool).text = Text(one.name);
        Turn(id::kToolCheck, m6);
        const std::vector<int> order = OrderFor({operations, m6, one.dmc, one.category});
        for (std::size_t step = 0; step < order.size(); ++step) {
          view->focused = order[step];
          view->main.current = {4, 3};
          EXPECT_TRUE(Key(ZmcKey::kTab));
          EXPECT_EQ(view->focused, order[(step + 1) % order.size()]) << "after " << order[step];
        }
        for (std::size_t step = order.size(); step-- > 0;) {
          view->focused = order[step];
          view->main.current = {1, 1};
          EXPECT_TRUE(Key(ZmcKey::kBackTab));
          EXPECT_EQ(view->focused, order[(step + order.size() - 1) % order.size()]) << "before " << order[step];
        }
      }
    }
  }
}

TEST_F(ZmcKeysTest, FromAnEmptyOperationBoxTheFocusGoesStraightToTheRemarkCheck) {
  Factory() = "<CondicionesCorte/>";
  Open();
  Focus(id::kOperation);
  EXPECT_TRUE(Key(ZmcKey::kDown));
  EXPECT_EQ(view->focused, id::kRemarkCheck);
}

TEST_F(ZmcKeysTest, TheGridIsEnteredAtItsFirstEditableCell) {
  SetUserFile("<MaterialDefinition><descripcion>Own</descripcion></MaterialDefinition>", "");
  for (const auto& [material, cell] : {std::pair(u"Steel", ZmcCell{1, 3}), std::pair(u"Own", ZmcCell{1, 1})}) {
    OpenPair(material);
    view->main.Select({3, 2});
    Focus(id::kOperation);
    Key(ZmcKey::kTab);
    EXPECT_EQ(view->focused, id::kGrid);
    EXPECT_EQ(view->main.current, cell);
    view->main.Select({3, 2});
    Focus(id::kRemarkCheck);
    Key(ZmcKey::kBackTab);
    EXPECT_EQ(view->main.current, cell);
  }
}

TEST_F(ZmcKeysTest, WithoutAFocusTheFirstStopIsTheMaterial) {
  Open();
  for (const ZmcKey key : {ZmcKey::kTab, ZmcKey::kBackTab}) {
    view->focused = 0;
    Key(key);
    EXPECT_EQ(view->focused, id::kMaterial);
  }
}

// What is left after a key.

TEST_F(ZmcKeysTest, EnterLeavesTheTextOfTheLineAndAfterEachEditInsertInserts) {
  OpenPair();
  Focus(id::kRemark);
  view->controls.at(id::kRemark).text = u"old";
  Key(ZmcKey::kEnter);
  EXPECT_EQ(TextOf(id::kRemark), "old") << "only the blank key blanks it";
  Key(ZmcKey::kEnter);
  Forget();
  EXPECT_TRUE(Key(ZmcKey::kInsert));
  EXPECT_THAT(Asked(), testing::Contains("HostInsertBlock"));
  Open();
  Focus(id::kRemark);
  Key(ZmcKey::kEnter);
  Key(ZmcKey::kEscape);
  Forget();
  EXPECT_TRUE(Key(ZmcKey::kInsert));
  EXPECT_THAT(Asked(), testing::Contains("HostInsertBlock"));
}

TEST_F(ZmcKeysTest, TheListOfToolsIsClosedWhenATypedToolIsTakenOrDropped) {
  OpenPair();
  TypeTool(u"4");
  Key(ZmcKey::kEnter);
  EXPECT_FALSE(Control(id::kTool).open);
  Key(ZmcKey::kSpace);
  ASSERT_TRUE(Control(id::kTool).open);
  Key(ZmcKey::kEscape);
  EXPECT_FALSE(Control(id::kTool).open);
}

TEST_F(ZmcKeysTest, AToolThatIsDroppedOrTakenLeavesNoLineInEditMode) {
  OpenPair();
  for (const ZmcKey key : {ZmcKey::kEscape, ZmcKey::kEnter}) {
    Open();
    TypeTool(u"3");
    Key(key);
    Forget();
    EXPECT_TRUE(Key(ZmcKey::kInsert));
    EXPECT_THAT(Asked(), testing::Contains("HostInsertBlock"));
  }
}

TEST_F(ZmcKeysTest, WhichStopsThereAreIsDecidedByTheToolThatCountsNotByTheTypedOne) {
  OpenPair();
  Pick(id::kTool, u"T3");
  TypeTool(u"T7");
  Key(ZmcKey::kDown);
  EXPECT_EQ(view->focused, id::kFCheck) << "the diameter of a cutter is the table's";
  EXPECT_EQ(TextOf(id::kTool), "T3");
}

TEST_F(ZmcKeysTest, SidewaysTheCaretMovesInATypedToolAlone) {
  OpenPair();
  TypeTool(u"T");
  EXPECT_FALSE(Key(ZmcKey::kLeft));
  EXPECT_FALSE(Key(ZmcKey::kRight));
  EXPECT_EQ(view->focused, id::kTool);
  Key(ZmcKey::kEscape);
  EXPECT_TRUE(Key(ZmcKey::kLeft));
  EXPECT_NE(view->focused, id::kTool);
  TypeTool(u"4");
  Key(ZmcKey::kEnter);
  EXPECT_TRUE(Key(ZmcKey::kLeft)) << "a tool that was taken isn't being typed any more";
  EXPECT_NE(view->focused, id::kTool);
}

TEST_F(ZmcKeysTest, BackTabLeavesTheGridOfTheFactoryAtItsFirstCellThatCanBeEdited) {
  OpenPair();
  Focus(id::kGrid);
  view->main.Select({1, 3});
  EXPECT_TRUE(Key(ZmcKey::kBackTab));
  EXPECT_EQ(view->focused, id::kOperation);
  Focus(id::kGrid);
  view->main.Select({2, 3});
  EXPECT_FALSE(Key(ZmcKey::kBackTab));
  EXPECT_EQ(view->focused, id::kGrid);
}

// What a key asks of the window: its own step and no other.

TEST_F(ZmcKeysTest, AKeyOfTheGridOrOfALineTouchesNoList) {
  OpenPair();
  Focus(id::kGrid);
  Forget();
  EXPECT_TRUE(Key(ZmcKey::kHome));
  EXPECT_THAT(All(), testing::IsEmpty());
  Focus(id::kRemark);
  Key(ZmcKey::kEnter);
  Forget();
  EXPECT_TRUE(Key(ZmcKey::kEscape));
  EXPECT_THAT(All(), testing::IsEmpty());
}

TEST_F(ZmcKeysTest, AKeyOfAListDoesOneThingWithIt) {
  OpenPair();
  Focus(id::kFUnit);
  Forget();
  EXPECT_TRUE(Key(ZmcKey::kSpace));
  EXPECT_EQ(All(), (Log{"view open list " + std::to_string(id::kFUnit)}));
  Forget();
  EXPECT_TRUE(Key(ZmcKey::kDown));
  EXPECT_EQ(All(), (Log{"view move in list " + std::to_string(id::kFUnit) + " 1"}));
  Forget();
  EXPECT_TRUE(Key(ZmcKey::kEnter));
  EXPECT_EQ(All().front(), "view accept " + std::to_string(id::kFUnit));
  EXPECT_THAT(All(), testing::Not(testing::Contains(testing::HasSubstr("move in list"))));
}

TEST_F(ZmcKeysTest, ALineThatLosesTheFocusIsNotSelected) {
  OpenPair();
  Focus(id::kRemark);
  Forget();
  Focus(id::kFCheck);
  EXPECT_THAT(All(), testing::Not(testing::Contains(testing::HasSubstr("select all"))));
}

}  // namespace
}  // namespace pnl::test
