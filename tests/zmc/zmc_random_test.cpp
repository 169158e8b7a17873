// SPDX-License-Identifier: MIT
// Long random sessions over the whole tool: selections, edits, keys, tables, commands, failing discs, answers to boxes
// and the end of the window in any order. Whatever comes, some things hold; they are checked after every step.
#include <random>

#include "zmc/store/cutting_parser.h"
#include "zmc/zmc_stage.h"

namespace pnl::test {
namespace {

namespace id = zmc_control;

constexpr int kSteps = 500;

class ZmcRandom : public testing::TestWithParam<unsigned>, public ZmcStage {
 protected:
  ZmcRandom() : random_(GetParam()) {
    SetUserFile("<MaterialDefinition><descripcion>Own</descripcion><KC>900</KC></MaterialDefinition>",
                "<Operacion><descripcion>Mine</descripcion><ToolType>T89</ToolType></Operacion>");
    factory_ = Factory();
  }

  int Any(int count) { return static_cast<int>(random_() % static_cast<unsigned>(count)); }
  template <typename Value>
  Value OneOf(std::initializer_list<Value> values) {
    return *(values.begin() + Any(static_cast<int>(values.size())));
  }
  Text Word() {
    return Text(OneOf<TextView>({u"", u" ", u"Own", u"Steel", u"steel", u"New", u"A & B <c>", u"12.5", u"0", u"-3",
                                 u"1e300", u"Á", u"T89", u"T3", u"x"}));
  }

  void Step() {
    switch (Any(12)) {
      case 0:
        return Select();
      case 1:
        if (view->shownTabs.count(ZmcTab::kMain) != 0) Cell(1 + Any(4), 1 + Any(3), Word());
        return;
      case 2:
        return Check();
      case 3:
        return Type();
      case 4:
      case 5:
        Key(static_cast<ZmcKey>(Any(12)));
        return;
      case 6:
        Menu(OneOf(
            {32818, 32819, 32820, 32818, 32819, 32820, 32779, 32781, 32783, 32785, 32787, 32788, 32777, 32902, 32822}));
        return;
      case 7:
      case 8:
        return WorkInTable();
      case 9:
        return Disc();
      case 10:
        windows.boxAnswer = Any(2) == 0 ? BoxAnswer::kYes : BoxAnswer::kNo;
        return;
      default:
        return Host();
    }
  }

  void Select() {
    const int list = OneOf({id::kMaterial, id::kOperation, id::kTool, id::kFUnit, id::kSUnit});
    const auto& items = Control(list).items;
    if (!items.empty()) Pick(list, Text(items[static_cast<std::size_t>(Any(static_cast<int>(items.size())))]));
  }
  void Check() {
    const int box = OneOf({id::kRemarkCheck, id::kToolCheck, id::kM6Check, id::kFCheck, id::kSCheck, id::kDmcCheck});
    if (Control(box).shown && Control(box).enabled) Turn(box, Any(2) == 0);
  }
  void Type() {
    if (Any(3) == 0) return TypeTool(Word());
    if (Any(2) == 0) {
      view->controls.at(id::kRemark).text = Word();
      return Focus(OneOf({id::kRemark, id::kGrid, id::kF, id::kMaterial}));
    }
    const int field = OneOf({id::kDiameter, id::kTeeth, id::kS, id::kF, id::kPower});
    if (Control(field).shown && Control(field).enabled) Enter(field, Word());
  }
  void WorkInTable() {
    const ZmcTab tab = view->shownTabs.count(ZmcTab::kMaterials) != 0 ? ZmcTab::kMaterials : ZmcTab::kOperations;
    if (view->shownTabs.count(tab) == 0) return;
    FakeZmcGrid& grid = view->GridOf(tab);
    const int columns = tab == ZmcTab::kMaterials ? 7 : 4;
    if (Any(8) == 0) return ClickHeader(tab, Any(columns + 1));
    if (grid.Rows() == 1) return;
    const int row = 1 + Any(grid.Rows() - 1);
    MoveTo(tab, row, 1 + Any(columns - 1));
    if (Any(4) == 0) grid.lastSelected = 1 + Any(grid.Rows() - 1);
    if (grid.At(row, grid.current.col).kind == ZmcCellKind::kCheck) {
      grid.Check(row, grid.current.col, Any(2) == 0);
    } else if (Any(4) == 0) {
      grid.BeginEdit(grid.current);
      if (grid.editing) grid.TypeHere(Word());
    } else {
      grid.Type(row, grid.current.col, Word());
    }
  }
  void Disc() {
    switch (Any(6)) {
      case 0:
        files.full = !files.full;
        return;
      case 1:
        if (files.away.erase("C:\\P118") == 0) files.away.insert("C:\\P118");
        return;
      case 2:
        if (files.unreadable.erase(kFactoryPath) == 0) files.unreadable.insert(kFactoryPath);
        return;
      case 3:
        SetUserFile("<MaterialDefinition><descripcion>Theirs</descripcion></MaterialDefinition>", "");
        return;
      default:
        files.full = false;
        files.away.clear();
        files.unreadable.clear();
    }
  }
  void Host() {
    switch (Any(5)) {
      case 0:
        Command(PNL_COMMAND_CLOSE_TOOL);
        return;
      case 1:
        EXPECT_EQ(Command(PNL_COMMAND_ASK_UNSAVED) == PNL_UNSAVED_WORK, IsDirty());
        return;
      case 2:
        Call(&ZmcSession::OnShownAgain);
        return;
      case 3:
        Send(PNL_MSG_HELP_KEY);
        return;
      default:
        // The window goes, and the host makes another.
        files.full = false;
        files.away.clear();
        return Open();
    }
  }

  /// As the soft key of the shown table says.
  bool IsDirty() {
    const MenuItem* save = nullptr;
    if (view->shownTabs.count(ZmcTab::kMaterials) != 0) save = Item(32783);
    if (view->shownTabs.count(ZmcTab::kOperations) != 0) save = Item(32788);
    return save != nullptr && save->enabled;
  }

  void CheckWhatHolds() {
    EXPECT_EQ(Factory(), factory_) << "the factory's file is never written";
    const bool away = !files.away.empty();
    if (!away && files.disc.count(kUserPath) != 0) {
      CondicionesCorteParser parser(files);
      EXPECT_TRUE(parser.GetListaMateriales(u"C:\\P118\\CondicionesCorteP.xml").Ok()) << UserFile();
    }
    EXPECT_LE(view->shownTabs.size(), 1u);
    EXPECT_FALSE(view->dead);
    CheckMain();
    for (const ZmcTab tab : {ZmcTab::kMaterials, ZmcTab::kOperations}) {
      if (view->shownTabs.count(tab) != 0) CheckTable(tab);
    }
  }
  void CheckMain() {
    if (view->made.count(ZmcTab::kMain) == 0) return;
    for (const int list : {id::kMaterial, id::kOperation, id::kFUnit, id::kSUnit}) {
      EXPECT_LT(Control(list).selected, static_cast<int>(Control(list).items.size()));
    }
    const bool pair = Control(id::kMaterial).selected >= 0 && Control(id::kOperation).selected >= 0;
    for (int row = 1; row <= 4; ++row) {
      EXPECT_EQ(view->main.At(row, 3).readOnly, !pair);
      EXPECT_EQ(view->main.At(row, 1).readOnly, view->main.At(1, 1).readOnly);
      EXPECT_EQ(view->main.At(row, 2).readOnly, view->main.At(1, 1).readOnly);
    }
    EXPECT_EQ(Control(id::kM6Check).shown, Control(id::kToolCheck).state != 0);
    EXPECT_NE(Control(id::kDmcCheck).shown, Control(id::kDmcOffCheck).shown);
    EXPECT_NE(Control(id::kDiameterLabel).shown, Control(id::kPartLabel).shown);
    int reasons = 0;
    for (const int reason : {3057, 3058, 3059, 3062}) reasons += Control(reason).shown ? 1 : 0;
    EXPECT_EQ(reasons, Control(id::kDmcCheck).shown ? 0 : 1);
    if (view->shownTabs.count(ZmcTab::kMain) == 0 || sideMenu == 0) return;
    if (const MenuItem* insert = Item(32902)) {
      bool any = false;
      for (const int box : {225, 226, 227, 228, 229}) any = any || Control(box).state != 0;
      EXPECT_EQ(insert->enabled, any);
      EXPECT_EQ(Item(32777)->enabled, any);
    }
  }
  void CheckTable(ZmcTab tab) {
    FakeZmcGrid& grid = view->GridOf(tab);
    const int origin = tab == ZmcTab::kMaterials ? 7 : 4;
    for (int row = 1; row < grid.Rows(); ++row) {
      const Text from = grid.CellText(row, origin);
      EXPECT_TRUE(from == u"O" || from == u"C") << ToUtf8(from);
      if (grid.rows[static_cast<std::size_t>(row)].state == zmc_row_state::kFactory) {
        EXPECT_EQ(from, u"O");
      }
    }
    EXPECT_EQ(Command(PNL_COMMAND_ASK_UNSAVED) == PNL_UNSAVED_WORK, IsDirty());
    // The last step may have set the cell without the event of it.
    Call(&ZmcSession::OnCellMoved, tab);
    const int row = grid.current.row;
    const bool own = row >= 1 && row < grid.Rows() && grid.CellText(row, origin) == u"C";
    EXPECT_EQ(Item(tab == ZmcTab::kMaterials ? 32781 : 32787)->enabled, own);
  }

 private:
  std::mt19937 random_;
  std::string factory_;
};

TEST_P(ZmcRandom, WhateverComesSomeThingsHold) {
  Open();
  for (int step = 0; step < kSteps; ++step) {
    SCOPED_TRACE(step);
    Step();
    if (view->closing) Open();
    CheckWhatHolds();
    if (HasFailure()) return;
  }
  DestroyTool();
  EXPECT_EQ(menus.Count(), 0u);
}

INSTANTIATE_TEST_SUITE_P(Seeds, ZmcRandom, testing::Range(1u, 9u));

}  // namespace
}  // namespace pnl::test
