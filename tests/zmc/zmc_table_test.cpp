// SPDX-License-Identifier: MIT
// The two tables: what they list, what may be edited, and how rows are added, changed, checked, deleted and ordered.
#include <map>

#include "zmc/zmc_stage.h"

namespace pnl::test {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

namespace id = zmc_control;

/// What the tests of both tables say in the words of one.
struct TableRow {
  const char* name;
  ZmcTab tab;
  int show, add, erase, save;
  int columns, hidden;
  const char* question;
  const char* element;
};
void PrintTo(const TableRow& row, std::ostream* out) { *out << row.name; }

constexpr TableRow kTables[] = {
    {"Materials", ZmcTab::kMaterials, 32819, 32779, 32781, 32783, 7, 6, "T268", "MaterialDefinition"},
    {"Operations", ZmcTab::kOperations, 32820, 32785, 32787, 32788, 4, 3, "T272", "Operacion"}};

constexpr const char* kUserMaterials =
    "<MaterialDefinition><id>##</id><descripcion>Old</descripcion><Date>2020/01/01 00:00:00</Date></MaterialDefinition>"
    "<MaterialDefinition><id>##</id><descripcion>New</descripcion><Date>2021/01/01 "
    "00:00:00</Date></MaterialDefinition>";
constexpr const char* kUserOperations =
    "<Operacion><id></id><descripcion>Old</descripcion><Date>2020/01/01 00:00:00</Date></Operacion>"
    "<Operacion><id></id><descripcion>New</descripcion><ToolType>T90</ToolType><Date>2021/01/01 00:00:00</Date>"
    "</Operacion>";

class ZmcTableTest : public testing::TestWithParam<TableRow>, public ZmcStage {
 protected:
  /// Rows: New, Old, and two of the factory.
  void OpenTable() {
    const bool materials = Table().tab == ZmcTab::kMaterials;
    SetUserFile(materials ? kUserMaterials : "", materials ? "" : kUserOperations);
    Reopen();
  }
  void Reopen() {
    Open();
    Menu(Table().show);
    Forget();
    TakeBoxes();
  }
  static const TableRow& Table() { return GetParam(); }
  FakeZmcGrid& Grid() { return view->GridOf(Table().tab); }
  std::vector<std::string> Names() { return Grid().Column(1); }
  void Save() { Menu(Table().save); }
  void Delete(int first, int last) {
    MoveTo(Table().tab, first, 1);
    Grid().lastSelected = last;
    Menu(Table().erase);
  }
  bool CanSave() { return Item(Table().save)->enabled; }
  bool CanDelete() { return Item(Table().erase)->enabled; }
  std::vector<std::string> Origins() { return Grid().Column(Table().columns); }
};

TEST_P(ZmcTableTest, ListsAllRecordsOfBothFilesWithTheirOrigin) {
  OpenTable();
  const bool materials = Table().tab == ZmcTab::kMaterials;
  EXPECT_EQ(Names(), materials ? (std::vector<std::string>{"New", "Old", "Steel", "Brass"})
                               : (std::vector<std::string>{"New", "Old", "Milling", "Turning"}));
  EXPECT_THAT(Origins(), ElementsAre("C", "C", "O", "O"));
  for (int row = 1; row <= 4; ++row) {
    EXPECT_EQ(Grid().rows[static_cast<std::size_t>(row)].state, row <= 2 ? 1 : 0);
    EXPECT_FALSE(Grid().IsChecked(row, Table().hidden));
  }
}

TEST_P(ZmcTableTest, AFactoryRowTakesNoEditButItsHiddenFlag) {
  OpenTable();
  for (int col = 1; col <= Table().columns; ++col) {
    EXPECT_EQ(Grid().IsReadOnly(3, col), col != Table().hidden) << col;
  }
  for (int col = 1; col < Table().columns; ++col) EXPECT_FALSE(Grid().IsReadOnly(1, col)) << col;
}

TEST_P(ZmcTableTest, AHiddenRecordIsListedWithItsFlagAndLeavesTheMainTab) {
  OpenTable();
  EXPECT_TRUE(Grid().Check(3, Table().hidden, true));
  Save();
  EXPECT_THAT(Origins(), Contains("O").Times(2));
  int hidden = 0;
  for (int row = 1; row < Grid().Rows(); ++row) hidden += Grid().IsChecked(row, Table().hidden) ? 1 : 0;
  EXPECT_EQ(hidden, 1);
  const int list = Table().tab == ZmcTab::kMaterials ? id::kMaterial : id::kOperation;
  EXPECT_EQ(Items(list).size(), 3u);
  Reopen();
  hidden = 0;
  for (int row = 1; row < Grid().Rows(); ++row) hidden += Grid().IsChecked(row, Table().hidden) ? 1 : 0;
  EXPECT_EQ(hidden, 1);
  EXPECT_EQ(Grid().Rows(), 5);
}

TEST_P(ZmcTableTest, SavingIsEnabledByAChangeAndNotByACommitWithoutOne) {
  OpenTable();
  EXPECT_FALSE(CanSave());
  EXPECT_TRUE(Grid().Type(1, 1, u"New"));
  EXPECT_FALSE(CanSave());
  EXPECT_THAT(Asked(), IsEmpty());
  EXPECT_TRUE(Grid().Type(1, 1, u"Newer"));
  EXPECT_TRUE(CanSave());
  EXPECT_THAT(Asked(), ElementsAre("HostUpdateSideMenu(4)"));
  Save();
  EXPECT_FALSE(CanSave());
  EXPECT_THAT(Asked(), Contains("HostUpdateSideMenu(4)"));
}

TEST_P(ZmcTableTest, TheHiddenFlagIsAChangeToo) {
  OpenTable();
  EXPECT_TRUE(Grid().Check(1, Table().hidden, true));
  EXPECT_TRUE(CanSave());
  EXPECT_EQ(Command(PNL_COMMAND_ASK_UNSAVED), PNL_UNSAVED_WORK);
}

TEST_P(ZmcTableTest, DeletingIsDisabledOnARowOfTheFactory) {
  OpenTable();
  for (const auto& [row, enabled] :
       {std::pair(1, true), std::pair(3, false), std::pair(2, true), std::pair(4, false)}) {
    MoveTo(Table().tab, row, 1);
    EXPECT_EQ(CanDelete(), enabled) << row;
  }
}

TEST_P(ZmcTableTest, WithoutRowsNothingCanBeDeleted) {
  Factory() = "<CondicionesCorte/>";
  SetUserFile("", "");
  Reopen();
  EXPECT_FALSE(CanDelete());
  Menu(Table().erase);
  EXPECT_THAT(TakeBoxes(), IsEmpty());
}

TEST_P(ZmcTableTest, AnAddedRowIsAtTheEndAndItsDescriptionIsBeingEdited) {
  OpenTable();
  Menu(Table().add);
  EXPECT_EQ(Grid().Rows(), 6);
  EXPECT_EQ(Grid().current, (ZmcCell{5, 1}));
  EXPECT_TRUE(Grid().editing);
  EXPECT_EQ(Origins().back(), "C");
  EXPECT_TRUE(CanSave());
  EXPECT_TRUE(CanDelete());
  EXPECT_EQ(Grid().At(5, Table().hidden).kind, ZmcCellKind::kCheck);
  EXPECT_EQ(Grid().rows[5].state, 1);
}

TEST_P(ZmcTableTest, AddingARowStoresTheOpenEditFirst) {
  OpenTable();
  Grid().BeginEdit({1, 1});
  Grid().TypeHere(u"Typed");
  Menu(Table().add);
  EXPECT_EQ(Names().front(), "Typed");
  EXPECT_EQ(Grid().current, (ZmcCell{5, 1}));
}

TEST_P(ZmcTableTest, ARowWithoutADescriptionBlocksTheSaveUntilItIsFilledOrDeleted) {
  OpenTable();
  const std::string before = UserFile();
  Menu(Table().add);
  Forget();
  Save();
  EXPECT_THAT(TakeBoxes(), ElementsAre("T270"));
  EXPECT_EQ(UserFile(), before);
  EXPECT_EQ(Grid().rows[5].state, 2);
  EXPECT_THAT(All(), Contains("view focus grid " + std::to_string(static_cast<int>(Table().tab))));
  EXPECT_TRUE(CanSave());
  Grid().Type(5, 1, u"  ");
  Save();
  EXPECT_THAT(TakeBoxes(), ElementsAre("T270")) << "blanks are no description";
  Grid().Type(5, 1, u" Bronze ");
  Save();
  EXPECT_THAT(TakeBoxes(), IsEmpty());
  EXPECT_THAT(UserFile(), HasSubstr("<descripcion>Bronze</descripcion>"));
  EXPECT_THAT(Names(), Contains("Bronze"));
  Menu(Table().add);
  Delete(Grid().Rows() - 1, Grid().Rows() - 1);
  TakeBoxes();
  EXPECT_FALSE(CanSave());
}

TEST_P(ZmcTableTest, ADoubleDescriptionRefusesTheWholeSave) {
  OpenTable();
  const std::string before = UserFile();
  Grid().Type(1, 1, u"Newest");
  Grid().Type(2, 1, Table().tab == ZmcTab::kMaterials ? u" Steel " : u" Milling ");
  Save();
  EXPECT_THAT(TakeBoxes(), ElementsAre("T270"));
  EXPECT_EQ(UserFile(), before);
  EXPECT_EQ(Grid().rows[1].state, 1);
  EXPECT_EQ(Grid().rows[2].state, 2);
  EXPECT_TRUE(CanSave());
  // Until the next attempt.
  Grid().Type(2, 1, u"steel");
  EXPECT_EQ(Grid().rows[2].state, 2);
  Save();
  EXPECT_THAT(TakeBoxes(), IsEmpty()) << "another case is another description";
  EXPECT_THAT(Names(), Contains("steel"));
}

TEST_P(ZmcTableTest, ARefusedRowThatIsPutRightIsNormalAfterTheNextAttempt) {
  OpenTable();
  Grid().Type(1, 1, u"");
  Grid().Type(2, 1, u"");
  Save();
  EXPECT_EQ(Grid().rows[1].state, 2);
  Grid().Type(1, 1, u"Right");
  Save();
  EXPECT_EQ(Grid().rows[1].state, 1);
  EXPECT_EQ(Grid().rows[2].state, 2);
}

TEST_P(ZmcTableTest, ASaveStoresTheOpenEditFirst) {
  OpenTable();
  Grid().BeginEdit({2, 1});
  Grid().TypeHere(u"Typed");
  Save();
  EXPECT_THAT(UserFile(), HasSubstr("Typed"));
  EXPECT_THAT(UserFile(), Not(HasSubstr(">Old<")));
}

TEST_P(ZmcTableTest, ARenamedRecordIsWrittenOverTheOldOne) {
  OpenTable();
  Grid().Type(2, 1, u"Once");
  Grid().Type(2, 1, u"Twice");
  Save();
  EXPECT_THAT(UserFile(), HasSubstr(">Twice<"));
  EXPECT_THAT(UserFile(), Not(HasSubstr(">Old<")));
  EXPECT_THAT(UserFile(), Not(HasSubstr(">Once<")));
  EXPECT_THAT(UserFile(), HasSubstr(">New<"));
}

// A row that took another one's description overwrote that one's record.
TEST_P(ZmcTableTest, RowsThatPassTheirDescriptionsOnKeepTheirOwnRecords) {
  const bool materials = Table().tab == ZmcTab::kMaterials;
  const auto record = [materials](const char* description, int number) {
    const std::string n = std::to_string(number);
    const std::string head = std::string("<descripcion>") + description + "</descripcion><Date>202" + n + "</Date>";
    return materials ? "<MaterialDefinition><id>##</id>" + head + "<KC>" + n + "</KC></MaterialDefinition>"
                     : "<Operacion>" + head + "<ToolType>" + n +
                           "</ToolType><Materiales><Parametros><Material>Steel</Material><VelocidadCorte><Selected>" +
                           n + "</Selected></VelocidadCorte></Parametros></Materiales></Operacion>";
  };
  struct Row {
    const char* name;
    std::vector<const char16_t*> typed;  // from the first row on, which is record 3
    std::vector<std::string> saved;      // the descriptions of records 3, 2 and 1
  };
  const Row kRows[] = {{"downwards", {u"B", u"C", u"D"}, {"B", "C", "D"}},
                       {"upwards", {u"D", u"A", u"B"}, {"D", "A", "B"}},
                       {"two change places", {u"B", u"A"}, {"B", "A", "C"}},
                       {"in a circle", {u"B", u" C ", u"A"}, {"B", "C", "A"}},
                       {"a free name is taken meanwhile", {u"B", u"A", u"B_"}, {"B", "A", "B_"}}};
  for (const Row& row : kRows) {
    SCOPED_TRACE(row.name);
    const std::string records = record("A", 3) + record("B", 2) + record("C", 1);
    SetUserFile(materials ? records : "", materials ? "" : records);
    Reopen();
    for (std::size_t at = 0; at < row.typed.size(); ++at) Grid().Type(static_cast<int>(at) + 1, 1, row.typed[at]);
    Save();
    EXPECT_THAT(TakeBoxes(), IsEmpty());
    std::map<std::string, std::string> found;
    for (int line = 1; line < Grid().Rows(); ++line) {
      if (Grid().CellText(line, Table().columns) != u"C") continue;
      found[ToUtf8(Grid().CellText(line, materials ? 5 : 2))] += ToUtf8(Grid().CellText(line, 1));
    }
    EXPECT_EQ(found,
              (std::map<std::string, std::string>{{"3", row.saved[0]}, {"2", row.saved[1]}, {"1", row.saved[2]}}));
    CondicionesCorteParser parser(files);
    for (std::size_t at = 0; at < 3 && !materials; ++at) {
      const auto block = parser.GetCondicionesCorte(FromUtf8(kUserPath), u"Steel", FromUtf8(row.saved[at]));
      ASSERT_TRUE(block.Ok() && block.Value());
      EXPECT_EQ(block.Value()->VelocidadCorte.Selected, FromUtf8(std::to_string(3 - at))) << "its own pairs";
    }
    DestroyTool();
  }
}

TEST_P(ZmcTableTest, ARowThatIsRenamedAgainAfterTheTabWasLeftIsStillTheSameRecord) {
  OpenTable();
  Grid().Type(2, 1, u" Once ");
  Menu(32818);
  EXPECT_THAT(TakeBoxes(), ElementsAre(Table().question));
  Menu(Table().show);
  EXPECT_THAT(Names(), Contains("Once"));
  Grid().Type(2, 1, u"Twice");
  Save();
  EXPECT_THAT(UserFile(), HasSubstr(">Twice<"));
  EXPECT_THAT(UserFile(), Not(HasSubstr(">Once<")));
  EXPECT_THAT(UserFile(), Not(HasSubstr(">Old<")));
}

// The main tab still had the old name, and a row that was changed again lost its id.
TEST_P(ZmcTableTest, WhatWasSavedBeforeAFailureIsInTheListsAtOnce) {
  const bool materials = Table().tab == ZmcTab::kMaterials;
  SetUserFile(materials ? kUserMaterials : "",
              materials ? ""
                        : "<Operacion><id>7</id><descripcion>New</descripcion><Date>2021</Date></Operacion>"
                          "<Operacion><descripcion>Old</descripcion><Date>2020</Date></Operacion>");
  Reopen();
  Grid().Type(1, 1, u"Stored");
  Grid().Type(2, 1, u"No file has \x01");
  Save();
  EXPECT_TRUE(CanSave());
  EXPECT_THAT(UserFile(), HasSubstr(">Stored<"));
  EXPECT_THAT(Items(materials ? id::kMaterial : id::kOperation), ElementsAre("Stored", "Old", testing::_, testing::_));
  Grid().Type(1, 1, u"Stored again");
  Grid().Type(2, 1, u"Renamed");
  Save();
  EXPECT_FALSE(CanSave());
  EXPECT_THAT(UserFile(), HasSubstr(">Stored again<"));
  EXPECT_THAT(UserFile(), HasSubstr(">Renamed<"));
  EXPECT_THAT(UserFile(), Not(HasSubstr(">Stored<")));
  EXPECT_EQ(UserFile().find("<id>7</id>") != std::string::npos, !materials);
}

TEST_P(ZmcTableTest, AValueThatIsTypedBackAfterASaveThatFailedHalfwayIsStoredAgain) {
  const int column = Table().tab == ZmcTab::kMaterials ? 5 : 2;
  OpenTable();
  const Text before = Grid().CellText(1, column);
  Grid().Type(1, column, u"77");
  Grid().Type(2, 1, u"No file has \x01");
  Save();
  EXPECT_THAT(UserFile(), HasSubstr(">77<"));
  Grid().Type(1, column, before);
  Grid().Type(2, 1, u"Old");
  Save();
  EXPECT_FALSE(CanSave());
  EXPECT_THAT(UserFile(), Not(HasSubstr(">77<")));
}

// Its columns can be typed in until then; that it is a row of the factory is in its last column.
TEST_P(ZmcTableTest, ARowOfTheFactoryThatPassedTheCheckIsNormalUntilTheRowsAreFilledAgain) {
  OpenTable();
  Grid().Check(3, Table().hidden, true);
  Grid().Type(1, 1, u"");
  Save();
  EXPECT_EQ(Grid().rows[3].state, 1);
  MoveTo(Table().tab, 3, 1);
  EXPECT_FALSE(CanDelete());
  Grid().Type(1, 1, u"Right");
  Save();
  EXPECT_THAT(TakeBoxes(), ElementsAre("T270"));
  for (int row = 1; row < Grid().Rows(); ++row) {
    EXPECT_EQ(Grid().rows[static_cast<std::size_t>(row)].state,
              Origins()[static_cast<std::size_t>(row - 1)] == "O" ? 0 : 1);
  }
}

// Deleting.

TEST_P(ZmcTableTest, OneRowIsDeletedAfterAQuestionWithItsDescription) {
  language.SetText(271, u"Delete %s?");
  OpenTable();
  windows.boxAnswer = BoxAnswer::kNo;
  Delete(1, 1);
  EXPECT_THAT(TakeBoxes(), ElementsAre("Delete New?"));
  EXPECT_EQ(Grid().Rows(), 5);
  EXPECT_THAT(UserFile(), HasSubstr(">New<"));
  windows.boxAnswer = BoxAnswer::kYes;
  const int redrawn = Grid().redrawn;
  Delete(1, 1);
  EXPECT_EQ(Names().front(), "Old");
  EXPECT_THAT(UserFile(), Not(HasSubstr(">New<")));
  EXPECT_GT(Grid().redrawn, redrawn);
  const int list = Table().tab == ZmcTab::kMaterials ? id::kMaterial : id::kOperation;
  EXPECT_EQ(Items(list).front(), "Old") << "the lists of the main tab are read anew";
}

TEST_P(ZmcTableTest, SeveralRowsAreDeletedAfterOneQuestion) {
  OpenTable();
  Delete(1, 2);
  EXPECT_THAT(TakeBoxes(), ElementsAre("T283"));
  EXPECT_THAT(Origins(), ElementsAre("O", "O"));
  EXPECT_THAT(UserFile(), Not(HasSubstr("descripcion")));
}

TEST_P(ZmcTableTest, ARangeWithOneRowOfTheFactoryIsNotDeletedAtAll) {
  OpenTable();
  const std::string before = UserFile();
  Forget();
  Delete(2, 3);
  EXPECT_THAT(TakeBoxes(), ElementsAre("T281"));
  EXPECT_THAT(All(), Contains("view focus grid " + std::to_string(static_cast<int>(Table().tab))));
  EXPECT_EQ(Grid().Rows(), 5);
  EXPECT_EQ(UserFile(), before);
}

TEST_P(ZmcTableTest, DeletingAnUnsavedRowForgetsItAndTheFileHasNothingToDelete) {
  OpenTable();
  const std::string before = UserFile();
  Menu(Table().add);
  Grid().TypeHere(u"New");  // another record has this description
  Grid().CommitEdit();
  EXPECT_TRUE(CanSave());
  Delete(5, 5);
  EXPECT_FALSE(CanSave());
  EXPECT_EQ(UserFile(), before);
  EXPECT_EQ(Grid().Rows(), 5);
}

TEST_P(ZmcTableTest, ARenamedRowIsDeletedByItsOldDescription) {
  OpenTable();
  Grid().Type(2, 1, u"Renamed");
  Delete(2, 2);
  EXPECT_THAT(UserFile(), Not(HasSubstr(">Old<")));
  EXPECT_FALSE(CanSave());
}

TEST_P(ZmcTableTest, ChangedRowsAreStillTheirOwnAfterOneAboveIsDeleted) {
  OpenTable();
  Menu(Table().add);
  Grid().TypeHere(u"Added");
  Grid().CommitEdit();
  Grid().Type(2, 1, u"Renamed");
  Delete(1, 1);
  EXPECT_TRUE(CanSave());
  Save();
  TakeBoxes();
  EXPECT_THAT(UserFile(), HasSubstr(">Added<"));
  EXPECT_THAT(UserFile(), HasSubstr(">Renamed<"));
  EXPECT_THAT(UserFile(), Not(HasSubstr(">Old<")));
  EXPECT_THAT(UserFile(), Not(HasSubstr(">Steel<")));
  EXPECT_THAT(UserFile(), Not(HasSubstr(">Milling<")));
}

TEST_P(ZmcTableTest, TheRowsBelowADeletedOneAreStillTheirOwn) {
  OpenTable();
  Delete(1, 1);
  EXPECT_TRUE(Grid().Type(1, 1, u"Old"));
  EXPECT_FALSE(CanSave()) << "that is its description";
  EXPECT_TRUE(Grid().Type(1, 1, u"Renamed"));
  Save();
  EXPECT_THAT(UserFile(), HasSubstr(">Renamed<"));
  EXPECT_THAT(UserFile(), Not(HasSubstr(">Old<")));
}

TEST_P(ZmcTableTest, DeletingDropsAnOpenEdit) {
  OpenTable();
  Grid().BeginEdit({1, 1});
  Grid().TypeHere(u"Typed");
  Menu(Table().erase);
  EXPECT_THAT(Names(), Not(Contains("Typed")));
  EXPECT_THAT(Names(), Not(Contains("New")));
}

TEST_P(ZmcTableTest, RowsThatWereFilledAnewDuringTheQuestionAreNotDeleted) {
  OpenTable();
  Menu(Table().add);
  Grid().TypeHere(u"Added");
  Grid().CommitEdit();
  // The host closes the tool while the question is open; the changes are dropped, and the row with them.
  windows.onBox = [this] {
    windows.onBox = nullptr;
    windows.boxAnswer = BoxAnswer::kNo;
    Command(PNL_COMMAND_CLOSE_TOOL);
    windows.boxAnswer = BoxAnswer::kYes;
  };
  Delete(5, 5);
  EXPECT_EQ(Grid().Rows(), 5);
  EXPECT_THAT(UserFile(), HasSubstr(">Old<"));
}

// Leaving.

TEST_P(ZmcTableTest, ATabWithoutChangesIsLeftWithoutAQuestion) {
  OpenTable();
  Menu(32818);
  EXPECT_THAT(TakeBoxes(), IsEmpty());
}

TEST_P(ZmcTableTest, LeavingAsksAndYesSavesWhileNoDrops) {
  for (const bool yes : {true, false}) {
    OpenTable();
    Grid().Type(1, 1, u"Changed");
    windows.boxAnswer = yes ? BoxAnswer::kYes : BoxAnswer::kNo;
    Menu(32818);
    EXPECT_THAT(TakeBoxes(), ElementsAre(Table().question));
    EXPECT_EQ(UserFile().find("Changed") != std::string::npos, yes);
    Menu(Table().show);
    EXPECT_EQ(Names().front(), yes ? "Changed" : "New");
    EXPECT_FALSE(CanSave());
    Menu(32818);
    EXPECT_THAT(TakeBoxes(), IsEmpty());
  }
}

TEST_P(ZmcTableTest, AnEditThatIsOpenWhenTheTabIsLeftCounts) {
  OpenTable();
  Grid().BeginEdit({1, 1});
  Grid().TypeHere(u"Typed");
  Menu(32818);
  EXPECT_THAT(TakeBoxes(), ElementsAre(Table().question));
  EXPECT_THAT(UserFile(), HasSubstr("Typed"));
}

TEST_P(ZmcTableTest, TheRowsStayWhenTheTabIsShownAgain) {
  OpenTable();
  SetUserFile("", "");
  Menu(32818);
  Menu(Table().show);
  EXPECT_EQ(Grid().Rows(), 5) << "they are filled at the first time, after a save and after dropped changes";
}

TEST_P(ZmcTableTest, ShowingPutsTheFocusOnTheGridLast) {
  OpenTable();
  Menu(32818);
  Forget();
  Menu(Table().show);
  const Log calls = All();
  ASSERT_GE(calls.size(), 2u);
  EXPECT_EQ(calls.back(), "view focus grid " + std::to_string(static_cast<int>(Table().tab)));
  EXPECT_EQ(calls[calls.size() - 2], "side menu menu");
}

// Order.

TEST_P(ZmcTableTest, AClickOnTheHeaderOrdersUpThenDownThenByDateAgain) {
  OpenTable();
  const std::vector<std::string> byDate = Names();
  std::vector<std::string> up = byDate;
  std::sort(up.begin(), up.end());
  const std::vector<std::string> down(up.rbegin(), up.rend());
  EXPECT_EQ(Grid().sortColumn, 0);
  ClickHeader(Table().tab, 1);
  EXPECT_EQ(Names(), up);
  EXPECT_EQ(Grid().sortColumn, 1);
  EXPECT_TRUE(Grid().ascending);
  const int list = Table().tab == ZmcTab::kMaterials ? id::kMaterial : id::kOperation;
  EXPECT_EQ(Items(list), up);
  ClickHeader(Table().tab, 1);
  EXPECT_EQ(Names(), down);
  EXPECT_EQ(Grid().sortColumn, 1);
  EXPECT_FALSE(Grid().ascending);
  Menu(32818);
  Grid().sortColumn = 0;
  Menu(Table().show);
  EXPECT_EQ(Grid().sortColumn, 1) << "the marker is restored";
  ClickHeader(Table().tab, 1);
  EXPECT_EQ(Names(), byDate);
  EXPECT_EQ(Grid().sortColumn, 0);
  DestroyTool();
  EXPECT_THAT(Ini(), HasSubstr("AToZ=YES"));
  EXPECT_THAT(Ini(), Not(HasSubstr("AToZ=NO")));
  EXPECT_THAT(Ini(), HasSubstr("MaterialType=0"));
}

TEST_P(ZmcTableTest, AfterOrderingTheSoftKeysAreThoseOfTheRowThatCameToTheTop) {
  OpenTable();
  EXPECT_TRUE(CanDelete()) << "a row of the user's";
  ClickHeader(Table().tab, 1);
  EXPECT_EQ(Origins().front(), "O");
  EXPECT_FALSE(CanDelete());
  EXPECT_THAT(Asked(), Contains("HostUpdateSideMenu(4)"));
}

TEST_P(ZmcTableTest, AColumnThatOrdersNothingAsksNothing) {
  OpenTable();
  Grid().Type(1, 1, u"Changed");
  for (int col = Table().tab == ZmcTab::kMaterials ? 2 : 3; col <= Table().columns; ++col) {
    ClickHeader(Table().tab, col);
  }
  ClickHeader(Table().tab, 0);
  EXPECT_THAT(TakeBoxes(), IsEmpty());
  EXPECT_TRUE(CanSave());
}

TEST_P(ZmcTableTest, OrderingAsksAboutChangesFirst) {
  OpenTable();
  Grid().Type(1, 1, u"");
  ClickHeader(Table().tab, 1);
  EXPECT_THAT(TakeBoxes(), ElementsAre(Table().question, "T270"));
  EXPECT_EQ(Grid().sortColumn, 0);
}

// Keys.

TEST_P(ZmcTableTest, EscapeIsTheOpenEditsOwnAndElseClosesTheTool) {
  OpenTable();
  Grid().BeginEdit({1, 1});
  EXPECT_FALSE(Key(ZmcKey::kEscape));
  EXPECT_TRUE(view->visible);
  Grid().CancelEdit();
  EXPECT_TRUE(Key(ZmcKey::kEscape));
  EXPECT_FALSE(view->visible);
}

TEST_P(ZmcTableTest, EscapeIsRefusedByARowThatCannotBeSaved) {
  OpenTable();
  Grid().Type(1, 1, u"");
  EXPECT_TRUE(Key(ZmcKey::kEscape));
  EXPECT_TRUE(view->visible);
}

TEST_P(ZmcTableTest, TabAndEnterEndTheEditAndMoveOn) {
  OpenTable();
  for (const ZmcKey key : {ZmcKey::kTab, ZmcKey::kEnter, ZmcKey::kBackTab}) {
    Grid().BeginEdit({2, 1});
    EXPECT_TRUE(Key(key));
    EXPECT_FALSE(Grid().editing);
    // The last column isn't shown.
    EXPECT_EQ(Grid().current, key == ZmcKey::kBackTab ? (ZmcCell{1, Table().columns - 1}) : (ZmcCell{2, 2}));
  }
  Grid().Select({1, Table().columns - 1});
  EXPECT_TRUE(Key(ZmcKey::kTab));
  EXPECT_EQ(Grid().current, (ZmcCell{2, 1}));
}

TEST_P(ZmcTableTest, AnEditAtTheBeginningIsStoredByBackTabToo) {
  OpenTable();
  Grid().BeginEdit({1, 1});
  Grid().TypeHere(u"Newer");
  EXPECT_TRUE(Key(ZmcKey::kBackTab));
  EXPECT_FALSE(Grid().editing);
  EXPECT_EQ(Names().front(), "Newer");
  EXPECT_EQ(Grid().current, (ZmcCell{1, 1}));
  EXPECT_TRUE(CanSave());
}

TEST_P(ZmcTableTest, ACommitOutsideTheTableOrWithoutAChangeChangesNothing) {
  OpenTable();
  const int columns = Table().columns;
  const std::pair<int, int> cells[] = {
      {0, 1}, {-1, 1}, {5, 1}, {99, 1}, {1, 0}, {1, -1}, {1, columns + 1}, {1, 1}, {4, 1}, {1, 2}, {1, Table().hidden}};
  for (const auto& [row, col] : cells) {
    Call(&ZmcSession::OnCellCommitted, Table().tab, row, col);
    EXPECT_FALSE(CanSave()) << row << "," << col;
  }
  EXPECT_THAT(Asked(), IsEmpty());
}

TEST_P(ZmcTableTest, FilledAnewItBeginsAtItsFirstRow) {
  OpenTable();
  EXPECT_EQ(Grid().current, (ZmcCell{1, 1}));
  MoveTo(Table().tab, 3, 1);
  ClickHeader(Table().tab, 1);
  EXPECT_EQ(Grid().current, (ZmcCell{1, 1}));
  MoveTo(Table().tab, 3, 1);
  Menu(zmc_command::kMainTab);
  Menu(Table().show);
  EXPECT_EQ(Grid().current, (ZmcCell{3, 1})) << "and is left where it is when it is only shown";
}

TEST_P(ZmcTableTest, TheEndsOfTheTableAreEnds) {
  OpenTable();
  Grid().Select({1, 1});
  Key(ZmcKey::kBackTab);
  EXPECT_EQ(Grid().current, (ZmcCell{1, 1}));
  Grid().Select({1, 2});
  Key(ZmcKey::kBackTab);
  EXPECT_EQ(Grid().current, (ZmcCell{1, 1}));
  Grid().Select({4, Table().columns - 1});
  Key(ZmcKey::kTab);
  EXPECT_EQ(Grid().current, (ZmcCell{4, Table().columns - 1}));
}

TEST_P(ZmcTableTest, EnterBeginsAnEditWhereOneIsAllowed) {
  OpenTable();
  Grid().Select({1, 1});
  EXPECT_TRUE(Key(ZmcKey::kEnter));
  EXPECT_TRUE(Grid().editing);
  Grid().CancelEdit();
  Grid().Select({3, 1});
  EXPECT_TRUE(Key(ZmcKey::kEnter));
  EXPECT_FALSE(Grid().editing);
  EXPECT_EQ(Grid().current, (ZmcCell{3, 2})) << "a factory row: on to the next cell";
}

TEST_P(ZmcTableTest, TheGridHasItsOtherKeysItself) {
  OpenTable();
  for (const ZmcKey key : {ZmcKey::kSpace, ZmcKey::kHome, ZmcKey::kEnd, ZmcKey::kUp, ZmcKey::kDown, ZmcKey::kLeft,
                           ZmcKey::kRight, ZmcKey::kInsert}) {
    EXPECT_FALSE(Key(key));
  }
  EXPECT_THAT(All(), IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(Tables, ZmcTableTest, testing::ValuesIn(kTables),
                         [](const auto& row) { return std::string(row.param.name); });

// What the two have of their own.

class ZmcOwnTableTest : public testing::Test, public ZmcStage {};

TEST_F(ZmcOwnTableTest, TheMaterialsHaveTheirColumns) {
  SetUserFile(
      "<MaterialDefinition><descripcion>Own</descripcion><Norma><AlemaniaW>1</AlemaniaW><UNE>2</UNE><AISI>3</AISI>"
      "</Norma><KC>1500</KC><Oculto/></MaterialDefinition>",
      "");
  Open();
  Menu(32819);
  const FakeZmcGrid& grid = view->materials;
  constexpr const char* kHeader[] = {"T69", "T70", "T71", "T72", "T73 (N/mm2)", "T74", ""};
  constexpr const char* kRow[] = {"Own", "1", "2", "3", "1500", "", "C"};
  for (int col = 1; col <= 7; ++col) {
    EXPECT_EQ(ToUtf8(grid.CellText(0, col)), kHeader[col - 1]);
    EXPECT_EQ(ToUtf8(grid.CellText(1, col)), kRow[col - 1]);
    const ZmcCellKind kind = col == 5 ? ZmcCellKind::kNumber : col == 6 ? ZmcCellKind::kCheck : ZmcCellKind::kText;
    EXPECT_EQ(grid.At(1, col).kind, kind) << col;
  }
  EXPECT_TRUE(grid.IsChecked(1, 6)) << "an empty mark hides too";
  EXPECT_EQ(grid.At(1, 5).digits.integerDigits, 5);
  EXPECT_EQ(grid.At(1, 5).digits.decimals, 4);
}

TEST_F(ZmcOwnTableTest, TheOperationsHaveTheirColumnsAndTheListOfToolTypes) {
  Open();
  Menu(32820);
  const FakeZmcGrid& grid = view->operations;
  constexpr const char* kHeader[] = {"T69", "T88", "T74", ""};
  constexpr const char* kRow[] = {"Milling", "T89", "", "O"};
  constexpr ZmcCellKind kKinds[] = {ZmcCellKind::kText, ZmcCellKind::kList, ZmcCellKind::kCheck, ZmcCellKind::kText};
  for (int col = 1; col <= 4; ++col) {
    EXPECT_EQ(ToUtf8(grid.CellText(0, col)), kHeader[col - 1]);
    EXPECT_EQ(ToUtf8(grid.CellText(1, col)), kRow[col - 1]);
    EXPECT_EQ(grid.At(1, col).kind, kKinds[col - 1]) << col;
  }
  EXPECT_EQ(Utf8Rows(grid.At(1, 2).items),
            (std::vector<std::string>{"T89", "T90", "T98", "T91", "T92", "T93", "T94", "T95", "T96", "T97"}));
}

TEST_F(ZmcOwnTableTest, OperationsAreOrderedByToolTypeToo) {
  SetUserFile("",
              "<Operacion><descripcion>Any</descripcion></Operacion>"
              "<Operacion><descripcion>Turning</descripcion><ToolType>T90</ToolType></Operacion>");
  Open();
  Menu(32820);
  ClickHeader(ZmcTab::kOperations, 2);
  EXPECT_EQ(view->operations.Column(1), (std::vector<std::string>{"Any", "Milling", "Turning", "Turning"}))
      << "one description of two tool types is two rows";
  EXPECT_EQ(view->operations.sortColumn, 2);
  ClickHeader(ZmcTab::kOperations, 2);
  EXPECT_EQ(view->operations.Column(2), (std::vector<std::string>{"T92", "T90", "T89", ""}));
  EXPECT_FALSE(view->operations.ascending);
  ClickHeader(ZmcTab::kOperations, 1);
  EXPECT_EQ(view->operations.sortColumn, 1);
  EXPECT_TRUE(view->operations.ascending) << "another column begins ascending";
}

TEST_F(ZmcOwnTableTest, TheSettingsOrderTheTables) {
  SetUserFile(kUserMaterials, kUserOperations);
  struct Row {
    const char* ini;
    std::vector<std::string> materials, operations;
  };
  const Row kRows[] = {
      {"CustomMaterialFirst=NO\r\nCustomOperationFirst=NO\r\n",
       {"Steel", "Brass", "New", "Old"},
       {"Milling", "Turning", "New", "Old"}},
      {"OrderingMaterialType=1\r\nMaterialAToZ=NO\r\nOrderingOperationType=1\r\nOperationAToZ=NO\r\n",
       {"Steel", "Old", "New", "Brass"},
       {"Turning", "Old", "New", "Milling"}},
      {"OrderingMaterialType=2\r\nOrderingOperationType=2\r\n",
       {"Brass", "New", "Old", "Steel"},
       {"Old", "Milling", "New", "Turning"}},
      {"OrderingMaterialType=7\r\nOrderingOperationType=7\r\n", {"Brass", "New", "Old", "Steel"}, {}},
  };
  for (const Row& row : kRows) {
    SetIni(row.ini);
    Open();
    Menu(32819);
    EXPECT_EQ(view->materials.Column(1), row.materials) << row.ini;
    Menu(32820);
    EXPECT_EQ(view->operations.Column(1), row.operations) << row.ini;
  }
}

TEST_F(ZmcOwnTableTest, AnOperationWithAnotherIdThanTheFactorysIsTheUsersOwn) {
  SetUserFile("",
              "<Operacion><id>77</id><descripcion>Milling</descripcion><Date>2020/01/01 00:00:00</Date></Operacion>");
  Open();
  Menu(32820);
  EXPECT_EQ(view->operations.Column(1), (std::vector<std::string>{"Milling", "Turning"}));
  EXPECT_EQ(view->operations.Column(4), (std::vector<std::string>{"C", "O"}));
}

TEST_F(ZmcOwnTableTest, AHiddenOperationWithoutADateIsListed) {
  SetUserFile("", "<Operacion><id>1</id><descripcion>Milling</descripcion><Oculto>true</Oculto></Operacion>");
  Open();
  EXPECT_THAT(Items(id::kOperation), ElementsAre("Turning"));
  Menu(32820);
  EXPECT_EQ(view->operations.Column(1), (std::vector<std::string>{"Milling", "Turning"}));
  EXPECT_TRUE(view->operations.IsChecked(1, 3));
}

TEST_F(ZmcOwnTableTest, AFactoryRecordsOwnHiddenMarkHidesItInTheAlphabeticalListsAlone) {
  Factory() =
      "<CondicionesCorte><MaterialesDefinition><MaterialDefinition><descripcion>Lead</descripcion><Oculto/>"
      "</MaterialDefinition></MaterialesDefinition></CondicionesCorte>";
  Open();
  EXPECT_THAT(Items(id::kMaterial), ElementsAre("Lead"));
  SetIni("OrderingMaterialType=1\r\n");
  Open();
  EXPECT_THAT(Items(id::kMaterial), IsEmpty());
}

TEST_F(ZmcOwnTableTest, ASavedOperationRebuildsTheToolBox) {
  SetUserFile("", "<Operacion><descripcion>Mine</descripcion><ToolType>T89</ToolType></Operacion>");
  SetIni("LastOpe=Mine\r\n");
  Open();
  EXPECT_THAT(Items(id::kTool), ElementsAre("T3", "T4"));
  Menu(32820);
  view->operations.Type(1, 2, u"T90");
  Menu(32788);
  EXPECT_THAT(Items(id::kTool), ElementsAre("T12"));
  EXPECT_EQ(TextOf(id::kTool), "T12");
}

TEST_F(ZmcOwnTableTest, ASavedMaterialReadsTheMaterialsAnewAndLeavesTheOperations) {
  Open();
  Pick(id::kMaterial, u"Steel");
  Menu(32819);
  SetUserFile("", kUserOperations);
  Menu(32779);
  view->materials.TypeHere(u"Bronze");
  view->materials.CommitEdit();
  Menu(32783);
  EXPECT_THAT(Items(id::kMaterial), ElementsAre("Bronze", "Steel", "Brass"));
  EXPECT_EQ(TextOf(id::kMaterial), "Steel");
  EXPECT_THAT(Items(id::kOperation), ElementsAre("Milling", "Turning"));
}

TEST_F(ZmcOwnTableTest, ASavedMaterialReloadsThePair) {
  Open();
  ComputeSteel();
  Menu(32819);
  view->materials.Check(1, 6, true);
  Menu(32783);
  EXPECT_EQ(TextOf(id::kMaterial), "Brass") << "the selected one is hidden now";
  EXPECT_EQ(CellOf(1, 3), "");
}

TEST_F(ZmcOwnTableTest, OfTwoRecordsAFactoryRowIsTheOneWithTheFactorysId) {
  SetUserFile(
      "<MaterialDefinition><id>x</id><descripcion>Steel</descripcion></MaterialDefinition>"
      "<MaterialDefinition><id>1.0503#F-1142#1045</id><descripcion>Steel</descripcion><KC>7</KC>"
      "</MaterialDefinition>",
      "");
  SetIni("OrderingMaterialType=1\r\n");
  Open();
  Menu(32819);
  EXPECT_EQ(view->materials.Column(1), (std::vector<std::string>{"Brass", "Steel"}));
  view->materials.Check(2, 6, true);
  Menu(32783);
  EXPECT_THAT(UserFile(), HasSubstr("<id>x</id>"));
  EXPECT_THAT(UserFile(), Not(HasSubstr("<KC>7</KC>")));
}

TEST_F(ZmcOwnTableTest, ANewOperationTakesNoIdFromARecordWithoutADescription) {
  SetUserFile("", "<Operacion><id>9</id></Operacion>");
  Open();
  Menu(32820);
  Menu(32785);
  view->operations.TypeHere(u"Boring");
  view->operations.CommitEdit();
  Menu(32788);
  const std::string file = UserFile();
  EXPECT_EQ(file.find("<id>9</id>"), file.rfind("<id>9</id>"));
  EXPECT_THAT(view->operations.Column(4), Contains("C"));
}

TEST_F(ZmcOwnTableTest, TheDateIsLocalTimeAndSortsByTime) {
  EXPECT_EQ(ToUtf8(CuttingDate(0)).size(), 19u);
  Text before;
  for (std::int64_t seconds = 1700000000; seconds < 1800000000; seconds += 7777777) {
    const Text date = CuttingDate(seconds);
    EXPECT_LT(before, date);
    before = date;
  }
  std::tm local = {};
  const std::time_t time = 1700000000;
  localtime_r(&time, &local);
  char text[32];
  std::strftime(text, sizeof text, "%Y/%m/%d %H:%M:%S", &local);
  EXPECT_EQ(ToUtf8(CuttingDate(1700000000)), text);
}

}  // namespace
}  // namespace pnl::test
