// SPDX-License-Identifier: MIT
// The soft-key menus: where they stand, what can be pressed, which item an edit exchanges, preconditions of commands.
#include "mdi_fixture.h"

namespace pnl::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class MdiMenus : public MdiTest {
 protected:
  [[nodiscard]] std::vector<int> Enabled() {
    std::vector<int> ids;
    for (const MenuItem& item : menus.Find(mdaMenu)->items) {
      if (item.enabled) ids.push_back(item.id);
    }
    return ids;
  }
  [[nodiscard]] std::vector<int> Shown() {
    std::vector<int> ids;
    for (const MenuItem& item : menus.Find(mdaMenu)->items) {
      if (!item.hidden) ids.push_back(item.id);
    }
    return ids;
  }
  [[nodiscard]] const MenuItem* Item(int id) {
    for (MenuHandle menu = 1; menu < 1000; ++menu) {
      if (const MenuItem* item = menus.FindItem(menu, id)) return item;
    }
    return nullptr;
  }
  void Interrupt(const std::string& block) {
    if (!block.empty()) Type(block);
    Start();
    Status(2);
    Forget();
    Status(4);
  }
};

struct PictureRow {
  int id;
  int bitmap;
  const char16_t* helper;
};

class MdiPictures : public MdiMenus, public testing::WithParamInterface<PictureRow> {};

TEST_P(MdiPictures, AreSetWhenTheToolIsMade) {
  const MenuItem* item = Item(GetParam().id);
  ASSERT_NE(item, nullptr);
  EXPECT_EQ(item->bitmap, GetParam().bitmap);
  EXPECT_EQ(item->helper, GetParam().helper);
}

INSTANTIATE_TEST_SUITE_P(AllItems, MdiPictures,
                         testing::Values(PictureRow{40000, 3017, u"MDI1"}, PictureRow{40003, 3019, u"MDA1"},
                                         PictureRow{40004, 3020, u"MDA2"}, PictureRow{40005, 3026, u"MDI_Above"},
                                         PictureRow{40006, 3029, u"MDI_Shrink"}));

TEST_F(MdiMenus, SwitchingThePositionLaysOutAndChangesTheItem) {
  Open();
  Forget();
  Menu(40005);
  EXPECT_THAT(All(), ElementsAre("view place", "view writable", "side menu position"));
  EXPECT_EQ(view->layout.window.top, 0);
  EXPECT_EQ(Item(40005)->bitmap, 3027);
  EXPECT_EQ(Item(40005)->helper, u"MDI_Below");
  Menu(40005);
  EXPECT_EQ(view->layout.window.top, 571);
  EXPECT_EQ(Item(40005)->bitmap, 3026);
}

TEST_F(MdiMenus, SwitchingTheLengthLaysOutAndChangesTheItem) {
  Open();
  Forget();
  Menu(40006);
  EXPECT_THAT(All(), ElementsAre("view place", "view writable", "side menu position"));
  EXPECT_EQ(view->layout.window.right, 400);
  EXPECT_EQ(Item(40006)->bitmap, 3028);
  EXPECT_EQ(Item(40006)->helper, u"MDI_Stretch");
}

TEST_F(MdiMenus, PositionAndLengthSurviveARestart) {
  Open();
  Menu(40005);
  Menu(40006);
  MakeTool();
  EXPECT_EQ(view->layout.window, (Rect{0, 0, 400, 29}));
  EXPECT_EQ(Item(40005)->bitmap, 3027);
}

TEST_F(MdiMenus, SwitchingThePositionWhileABlockRunsLeavesTheEditReadOnly) {
  Open();
  Type("M3");
  Start();
  Menu(40005);
  EXPECT_TRUE(view->readOnly);
}

TEST_F(MdiMenus, CommandsBeforeTheFirstOpeningDoNothing) {
  Forget();
  for (int id = 32771; id <= 32776; ++id) Menu(id);
  for (int id = 40000; id <= 40006; ++id) Menu(id);
  EXPECT_THAT(All(), IsEmpty());
}

TEST_F(MdiMenus, UnknownCommandsDoNothing) {
  Open();
  Forget();
  for (const int id : {0, 1, 2, 32770, 32777, 40001, 40002, 40007, -1}) Menu(id);
  EXPECT_THAT(All(), IsEmpty());
}

TEST_F(MdiMenus, ListCommandsNeedTheMdaRole) {
  Open();
  RunBlock("M3");
  Forget();
  for (int id = 32771; id <= 32776; ++id) Menu(id);
  EXPECT_THAT(All(), IsEmpty());
}

TEST_F(MdiMenus, ListCommandsNeedState1) {
  OpenMda("A\r\nB\r\n");
  Start();
  Forget();
  for (int id = 32771; id <= 32776; ++id) Menu(id);
  Menu(40003);
  Menu(40004);
  EXPECT_THAT(All(), IsEmpty());
}

TEST_F(MdiMenus, CancelNeedsState4) {
  Open();
  Forget();
  Menu(40000);
  Type("M3");
  Start();
  Forget();
  Menu(40000);
  EXPECT_THAT(All(), IsEmpty());
}

TEST_F(MdiMenus, AnEmptyListOffersOnlyANewItem) {
  OpenMda();
  EXPECT_THAT(Enabled(), ElementsAre(32773));
}

TEST_F(MdiMenus, AListWithItemsOffersAll) {
  OpenMda("A\r\n");
  EXPECT_THAT(Enabled(), ElementsAre(32771, 32772, 32773, 32775, 32776, 40003, 40004));
}

TEST_F(MdiMenus, EmptyIsWhatTheBoxShows) {
  OpenMda("A\r\n");
  Menu(32771);
  EXPECT_THAT(Enabled(), ElementsAre(32773));
}

TEST_F(MdiMenus, AnEditPutsItsEndInThePlaceOfMoveUp) {
  OpenMda("A\r\n");
  Menu(32772);
  EXPECT_THAT(Shown(), ElementsAre(32771, 32772, 32773, 32775, 32776, 32774));
  EXPECT_THAT(Enabled(), ElementsAre(32774));
  EXPECT_EQ(MdaItem(32774)->text, u"End edit");
  EXPECT_EQ(MdaItem(32774)->bitmap, 0);
  EXPECT_EQ(MdaItem(32774)->helper, u"");
  EXPECT_TRUE(MdaItem(40004)->hidden);
}

TEST_F(MdiMenus, TheEndOfAnEditPutsMoveUpBack) {
  OpenMda("A\r\n");
  Menu(32772);
  Menu(32774);
  EXPECT_THAT(Shown(), ElementsAre(32771, 32772, 32773, 32775, 32776, 40003, 40004));
  EXPECT_EQ(MdaItem(40003)->bitmap, 3019);
  EXPECT_EQ(MdaItem(40003)->helper, u"MDA1");
  EXPECT_EQ(MdaItem(40003)->text, u"Up");
  EXPECT_EQ(Enabled().size(), 7u);
}

TEST_F(MdiMenus, WhileABlockRunsAllItemsAreGreyAndTheBarIsUpdated) {
  OpenMda("A\r\n");
  Start();
  EXPECT_THAT(Enabled(), IsEmpty());
  EXPECT_EQ(Asked().back(), "HostUpdateMainMenu(6)");
}

TEST_F(MdiMenus, TheMenuOfAnEditThatStartsByTypingIsGreyWhenItIsHandedOver) {
  Open();
  Type("M3");
  Command(8);
  EXPECT_THAT(Enabled(), ElementsAre(32774));
}

TEST_F(MdiMenus, InMdiRoleNoMainMenuIsUpdated) {
  Open();
  Forget();
  RunBlock("M3");
  for (const std::string& line : All()) EXPECT_NE(line, "HostUpdateMainMenu(6)");
}

TEST_F(MdiMenus, TheMdaBarsOfAnInterruptionHoldCancelOrTheMdaMenu) {
  OpenMda("A\r\n");
  cnc.kernel.returns["PosibleMDICancel"] = 2;
  Interrupt("");
  EXPECT_THAT(Asked(), ElementsAre("PosibleMDICancel(1)=2",
                                   "WriteTxtInBlackBox(\"MDA: BLOQUE INTERRUMPIDO: ES POSIBLE CANCELAR EL "
                                   "BLOQUE(PosibleMDICancel = 2)\",0)=0",
                                   "main menu cancel", "side menu none"));
  cnc.kernel.returns["PosibleMDICancel"] = 0;
  Status(2);
  Forget();
  Status(4);
  EXPECT_THAT(Asked(), ElementsAre("PosibleMDICancel(1)=0",
                                   "WriteTxtInBlackBox(\"MDA: BLOQUE INTERRUMPIDO: NO ES POSIBLE CANCELAR EL "
                                   "BLOQUE(PosibleMDICancel = 0)\",0)=0",
                                   "main menu mda", "side menu none"));
  EXPECT_THAT(Enabled(), IsEmpty());
}

TEST_F(MdiMenus, InAnInterruptionTheBarIsNotUpdated) {
  OpenMda("A\r\n");
  Interrupt("");
  Forget();
  Tell([](MdiSession& session) { session.OnListFocus(); });
  EXPECT_THAT(Asked(), IsEmpty());
  EXPECT_THAT(Enabled(), IsEmpty());
}

struct BlackBoxRow {
  bool mda;
  int possible;
  const char* text;
};

class MdiBlackBox : public MdiMenus, public testing::WithParamInterface<BlackBoxRow> {};

// Only the first text has a blank before its bracket: a search of the trace log relies on each as it is.
TEST_P(MdiBlackBox, LearnsTheOutcomeInTheExactWords) {
  if (GetParam().mda) {
    OpenMda("A\r\n");
  } else {
    Open();
    Type("A");
  }
  cnc.kernel.returns["PosibleMDICancel"] = GetParam().possible;
  Interrupt("");
  EXPECT_THAT(Asked(), testing::Contains(std::string("WriteTxtInBlackBox(\"") + GetParam().text + "\",0)=0"));
}

INSTANTIATE_TEST_SUITE_P(
    AllTexts, MdiBlackBox,
    testing::Values(
        BlackBoxRow{false, 2, "MDI: BLOQUE INTERRUMPIDO: ES POSIBLE CANCELAR EL BLOQUE (PosibleMDICancel = 2)"},
        BlackBoxRow{false, 1, "MDI: BLOQUE INTERRUMPIDO: NO ES POSIBLE CANCELAR EL BLOQUE(PosibleMDICancel = 1)"},
        BlackBoxRow{false, -5, "MDI: BLOQUE INTERRUMPIDO: NO ES POSIBLE CANCELAR EL BLOQUE(PosibleMDICancel = -5)"},
        BlackBoxRow{true, 2, "MDA: BLOQUE INTERRUMPIDO: ES POSIBLE CANCELAR EL BLOQUE(PosibleMDICancel = 2)"},
        BlackBoxRow{true, 3, "MDA: BLOQUE INTERRUMPIDO: NO ES POSIBLE CANCELAR EL BLOQUE(PosibleMDICancel = 3)"}));

TEST_F(MdiMenus, WithoutMenusInTheLanguageTheBarsAreCleared) {
  language.Use(LanguagePack());
  MakeTool();
  EXPECT_EQ(Command(2), 0);
  Forget();
  Command(8);
  const Log asked = Asked();
  EXPECT_THAT(asked, testing::Contains("main menu none"));
  Menu(32773);
  Type("M3");
  EXPECT_TRUE(Key(MdiKey::kEnter));
  EXPECT_THAT(view->Items(), ElementsAre("M3"));
}

}  // namespace
}  // namespace pnl::test
