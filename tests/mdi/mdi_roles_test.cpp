// SPDX-License-Identifier: MIT
// The change between MDI and MDA, and blocks that run out of the list or of an edit of an item.
#include "mdi_fixture.h"

namespace pnl::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Focus = FakeMdiView::Focus;

class MdiRoles : public MdiTest {
 protected:
  /// What the store holds, seen through the file at the end.
  [[nodiscard]] std::string Stored() {
    const std::string before = files.disc["C:\\P108\\MDAC1.DAT"];
    DestroyTool();
    return files.disc["C:\\P108\\MDAC1.DAT"];
  }
  void OpenAbc() {
    OpenMda("A\r\nB\r\nC\r\n");
    files.replaced.clear();
  }
  [[nodiscard]] bool ListFileWritten() {
    DestroyTool();
    return std::find(files.replaced.begin(), files.replaced.end(), "C:\\P108\\MDAC1.DAT") != files.replaced.end();
  }
};

TEST_F(MdiRoles, SwitchingToMdaLaysOutAndInstallsTheMenusLast) {
  files.disc["C:\\P108\\MDAC1.DAT"] = "A\r\nB\r\n";
  Open();
  Forget();
  EXPECT_EQ(Command(8), 0);
  EXPECT_THAT(All(), ElementsAre("view clear focus", "view redraw edit", "view place", "view read-only", "view list on",
                                 "view title MDA", "view blink 0", "view select 0,0", "view list select 0",
                                 "view focus list", "view edit \"\"", "view read-only", "view redraw edit",
                                 "HostUpdateMainMenu(6)", "main menu mda", "side menu none", "clear message"));
  EXPECT_EQ(view->focus, Focus::kList);
  EXPECT_EQ(view->selected, 0);
  EXPECT_TRUE(view->layout.listShown);
}

TEST_F(MdiRoles, TheListStaysThereWhenTheParentGetsAnotherSize) {
  OpenMda("A\r\n");
  view->parent = {0, 0, 500, 300};
  Tell([](MdiSession& session) { session.OnParentResized(); });
  EXPECT_TRUE(view->layout.listShown);
  EXPECT_EQ(view->layout.window, (Rect{0, 0, 500, 300}));
  EXPECT_TRUE(view->readOnly);
}

TEST_F(MdiRoles, TheLineIsPlacedAnewWhenItIsOpenedAgain) {
  Open();
  Command(3);
  view->parent = {0, 0, 500, 300};
  Open();
  EXPECT_EQ(view->layout.window, (Rect{0, 271, 500, 300}));
}

TEST_F(MdiRoles, ShowingTheLineAgainClosesTheDropList) {
  Open();
  Key(MdiKey::kDown);
  ASSERT_TRUE(view->dropList);
  EXPECT_EQ(Command(4), 0);
  EXPECT_FALSE(view->dropList);
}

TEST_F(MdiRoles, TypedTextBecomesANewItemWhenSwitchingToMda) {
  Open();
  Type("G0 X1");
  Command(8);
  EXPECT_EQ(view->edit, u"G0 X1");
  EXPECT_EQ(view->selection, (TextSelection{5, 5}));
  EXPECT_EQ(view->focus, Focus::kEdit);
  EXPECT_FALSE(view->readOnly);
  EXPECT_NE(MdaItem(32774), nullptr);
  EXPECT_TRUE(Key(MdiKey::kEnter));
  EXPECT_THAT(view->Items(), ElementsAre("G0 X1"));
}

TEST_F(MdiRoles, SwitchingBackFromAnEditLeavesTheTextInTheEdit) {
  Open();
  Type("G0 X1");
  Command(8);
  Forget();
  Command(8);
  EXPECT_EQ(view->edit, u"G0 X1");
  EXPECT_EQ(view->focus, Focus::kEdit);
  EXPECT_EQ(view->title, u"MDI");
  EXPECT_EQ(view->blinking, 800);
  EXPECT_FALSE(view->readOnly);
  EXPECT_EQ(MdaItem(32774), nullptr);
  const Log asked = Asked();
  EXPECT_THAT(asked, ElementsAre("side menu position", "main menu none", "clear message"));
}

TEST_F(MdiRoles, TheRoleDoesNotChangeWhileABlockRuns) {
  Open();
  Type("M3");
  Start();
  Forget();
  EXPECT_EQ(Command(8), 0);
  EXPECT_THAT(All(), IsEmpty());
}

TEST_F(MdiRoles, TheRoleDoesNotSurviveARestart) {
  OpenAbc();
  MakeTool();
  Open();
  EXPECT_EQ(view->title, u"MDI");
}

TEST_F(MdiRoles, TheSelectedItemIsRunAndStaysWhereItIs) {
  OpenAbc();
  view->selected = 1;
  Start();
  EXPECT_THAT(All(), ElementsAre("CogerPlcFree(0,1)=1", "MDILine(0,\"B\",0,4,0)=0", "view clear focus",
                                 "view redraw edit", "view read-only", "view list off", "view focus window",
                                 "view sign", "view focus list", "HostUpdateMainMenu(6)"));
  Status(2);
  Forget();
  Status(1);
  EXPECT_THAT(All(), ElementsAre("view edit \"\"", "view redraw edit", "view read-only", "view list on",
                                 "view focus list", "view edit \"\"", "view read-only", "view redraw edit",
                                 "HostUpdateMainMenu(6)", "HostUpdateMainMenu(6)"));
  EXPECT_THAT(view->Items(), ElementsAre("A", "B", "C"));
  EXPECT_EQ(view->selected, 1);
  Command(8);
  EXPECT_THAT(HistoryShown(), ElementsAre("B"));
}

TEST_F(MdiRoles, WithoutASelectionNothingIsSentEvenIfAnOldBlockIsStillInHand) {
  OpenAbc();
  Start();
  Status(1);
  view->selected = -1;
  Forget();
  EXPECT_EQ(Start(), 0);
  EXPECT_THAT(Asked(), ElementsAre("HostUpdateMainMenu(6)"));
}

TEST_F(MdiRoles, ANewItemThatIsRunGoesBeforeTheSelectedOne) {
  OpenAbc();
  view->selected = 1;
  Menu(32773);
  Type("M3");
  Start();
  EXPECT_TRUE(view->readOnly);
  Status(1);
  EXPECT_THAT(view->Items(), ElementsAre("A", "M3", "B", "C"));
  EXPECT_EQ(view->selected, 1);
  EXPECT_EQ(view->focus, Focus::kList);
  EXPECT_EQ(view->edit, u"");
  EXPECT_EQ(Stored(), "A\r\nM3\r\nB\r\nC\r\n");
  EXPECT_EQ(Disc("MDIC1.DAT"), "M3\r\n");
}

TEST_F(MdiRoles, ANewItemThatIsRunWithoutASelectionGoesToTheEnd) {
  OpenAbc();
  view->selected = -1;
  Menu(32773);
  Type("M3");
  Start();
  Status(1);
  EXPECT_THAT(view->Items(), ElementsAre("A", "B", "C", "M3"));
}

TEST_F(MdiRoles, AChangedItemThatIsRunReplacesTheOldOne) {
  OpenAbc();
  view->selected = 1;
  Menu(32772);
  EXPECT_EQ(view->edit, u"B");
  EXPECT_EQ(view->selection, (TextSelection{1, 1}));
  Type("B2");
  Start();
  Status(1);
  EXPECT_THAT(view->Items(), ElementsAre("A", "B2", "C"));
  EXPECT_EQ(view->selected, 1);
  EXPECT_EQ(Stored(), "A\r\nB2\r\nC\r\n");
}

TEST_F(MdiRoles, AChangeThatWasRefusedAndCorrectedStillReplacesItsItem) {
  OpenAbc();
  view->selected = 1;
  Menu(32772);
  Type("BX");
  cnc.kernel.returns["MDILine"] = 1;
  Start();
  EXPECT_EQ(view->edit, u"BX");
  cnc.kernel.returns["MDILine"] = 0;
  Type("B2");
  Start();
  Status(1);
  EXPECT_THAT(view->Items(), ElementsAre("A", "B2", "C"));
}

TEST_F(MdiRoles, AChangeReplacesItsOwnItemWhateverIsSelectedMeanwhile) {
  OpenAbc();
  view->selected = 1;
  Menu(32772);
  Type("B2");
  view->selected = 2;
  Start();
  Status(1);
  EXPECT_THAT(view->Items(), ElementsAre("A", "B2", "C"));
}

TEST_F(MdiRoles, AnAbortedItemOfAnEditStaysInTheEdit) {
  OpenAbc();
  Menu(32773);
  Type("M3");
  Start();
  Status(2);
  Status(4);
  Forget();
  Status(8);
  EXPECT_THAT(Asked(), ElementsAre("main menu mda", "side menu none", "HostUpdateMainMenu(6)"));
  EXPECT_EQ(view->edit, u"M3");
  EXPECT_FALSE(view->readOnly);
  EXPECT_THAT(view->Items(), ElementsAre("A", "B", "C"));
}

}  // namespace
}  // namespace pnl::test
