// SPDX-License-Identifier: MIT
// Keys, presses, focus and the drop list.
#include "mdi_fixture.h"

namespace pnl::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Focus = FakeMdiView::Focus;

enum class Where { kBefore, kMdi, kMdiRunning, kMda, kMdaEdit };

struct KeyRow {
  MdiKey key;
  Where where;
  bool consumed;
};

class MdiKeyTable : public MdiTest, public testing::WithParamInterface<KeyRow> {};

TEST_P(MdiKeyTable, SaysWhoGetsTheKey) {
  const Where where = GetParam().where;
  if (where == Where::kMdi || where == Where::kMdiRunning) Open();
  if (where == Where::kMdiRunning) {
    Type("M3");
    Start();
  }
  if (where == Where::kMda || where == Where::kMdaEdit) OpenMda("A\r\n");
  if (where == Where::kMdaEdit) Menu(32773);
  EXPECT_EQ(Key(GetParam().key), GetParam().consumed);
}

INSTANTIATE_TEST_SUITE_P(
    AllRows, MdiKeyTable,
    testing::Values(KeyRow{MdiKey::kTab, Where::kBefore, false}, KeyRow{MdiKey::kTab, Where::kMdi, false},
                    KeyRow{MdiKey::kTab, Where::kMda, false}, KeyRow{MdiKey::kEnter, Where::kBefore, true},
                    KeyRow{MdiKey::kEnter, Where::kMdi, true}, KeyRow{MdiKey::kEnter, Where::kMdiRunning, true},
                    KeyRow{MdiKey::kEnter, Where::kMda, true}, KeyRow{MdiKey::kEnter, Where::kMdaEdit, true},
                    KeyRow{MdiKey::kEscape, Where::kBefore, true}, KeyRow{MdiKey::kEscape, Where::kMdi, true},
                    KeyRow{MdiKey::kEscape, Where::kMdiRunning, true}, KeyRow{MdiKey::kEscape, Where::kMda, true},
                    KeyRow{MdiKey::kEscape, Where::kMdaEdit, true}, KeyRow{MdiKey::kUp, Where::kBefore, false},
                    KeyRow{MdiKey::kUp, Where::kMdi, true}, KeyRow{MdiKey::kDown, Where::kMdi, true},
                    KeyRow{MdiKey::kUp, Where::kMdiRunning, false}, KeyRow{MdiKey::kDown, Where::kMdiRunning, false},
                    KeyRow{MdiKey::kUp, Where::kMda, false}, KeyRow{MdiKey::kDown, Where::kMdaEdit, false},
                    KeyRow{MdiKey::kDelete, Where::kBefore, false}, KeyRow{MdiKey::kDelete, Where::kMdi, false},
                    KeyRow{MdiKey::kDelete, Where::kMda, true}, KeyRow{MdiKey::kDelete, Where::kMdaEdit, false}));

class MdiKeys : public MdiTest {};

TEST_F(MdiKeys, EnterInMdiRoleDoesNotRunTheBlock) {
  Open();
  Type("M3");
  Forget();
  EXPECT_TRUE(Key(MdiKey::kEnter));
  EXPECT_THAT(All(), IsEmpty());
}

TEST_F(MdiKeys, EscapeInAnIdleChannelGivesItBack) {
  Open();
  EXPECT_TRUE(Key(MdiKey::kEscape));
  EXPECT_FALSE(view->visible);
  EXPECT_EQ(cnc.vars.OpenReports(), 0u);
}

TEST_F(MdiKeys, EscapeWhileABlockRunsHidesAndKeepsTheChannel) {
  Open();
  Type("G1 X9");
  Start();
  Status(2);
  Forget();
  EXPECT_TRUE(Key(MdiKey::kEscape));
  EXPECT_THAT(Asked(), ElementsAre("HostToolClosed(6,2)"));
  EXPECT_FALSE(view->visible);
  Status(1);
  EXPECT_EQ(cnc.vars.OpenReports(), 1u);
}

TEST_F(MdiKeys, EscapeInAReadyStateOfABusyChannelHides) {
  Open();
  cnc.vars.At("[1].G.FULLSTATUS").value = 0x400;
  EXPECT_TRUE(Key(MdiKey::kEscape));
  EXPECT_FALSE(view->visible);
  EXPECT_EQ(cnc.vars.OpenReports(), 1u);
}

TEST_F(MdiKeys, EscapeInAnEditOnlyEndsTheEdit) {
  OpenMda("A\r\n");
  Menu(32772);
  EXPECT_TRUE(Key(MdiKey::kEscape));
  EXPECT_TRUE(view->visible);
  EXPECT_EQ(view->focus, Focus::kList);
  EXPECT_EQ(MdaItem(32774), nullptr);
  EXPECT_TRUE(Key(MdiKey::kEscape));
  EXPECT_FALSE(view->visible);
}

TEST_F(MdiKeys, EscapeInAChannelThatIsNotHeldDoesNothing) {
  cnc.vars.At("[1].E.MANUALMODE").writable = false;
  Open();
  Forget();
  EXPECT_TRUE(Key(MdiKey::kEscape));
  EXPECT_THAT(All(), IsEmpty());
  EXPECT_TRUE(view->visible);
}

TEST_F(MdiKeys, DeleteInTheListDeletesTheItem) {
  OpenMda("A\r\nB\r\n");
  EXPECT_TRUE(Key(MdiKey::kDelete));
  EXPECT_THAT(view->Items(), ElementsAre("B"));
}

class MdiDropping : public MdiTest {
 protected:
  void SetUp() override {
    files.disc["C:\\P108\\MDIC1.DAT"] = "H1\r\nH2\r\nH3\r\n";
    Open();
    Forget();
  }
};

TEST_F(MdiDropping, DownOpensTheHistoryUnderItsPlace) {
  Type("G0 X1");
  view->selection = {2, 4};
  EXPECT_TRUE(Key(MdiKey::kDown));
  ASSERT_NE(view->dropList, nullptr);
  EXPECT_THAT(view->dropItems, ElementsAre(u"H1", u"H2", u"H3"));
  EXPECT_EQ(view->dropSpec.screenRect, (Rect{165, 420, 864, 570}));
  EXPECT_EQ(view->dropSpec.back, 0x78643Cu);
  EXPECT_EQ(view->dropSpec.text, 0xFFFFFFu);
  EXPECT_EQ(view->signFore, 0x05B9D2u);
  EXPECT_EQ(view->signBack, 0x23D7F0u);
  view->CancelInDropList();
  EXPECT_EQ(view->signFore, 0x05B9D2u);
}

TEST_F(MdiDropping, AboveTheListHangsUnderTheEdit) {
  Menu(40005);
  static_cast<void>(Key(MdiKey::kUp));
  EXPECT_EQ(view->dropSpec.screenRect, (Rect{165, 601, 864, 751}));
}

TEST_F(MdiDropping, APickedTextGoesIntoTheEditWithTheFocus) {
  static_cast<void>(Key(MdiKey::kDown));
  view->dropSelected = 1;
  Forget();
  view->OkInDropList();
  EXPECT_EQ(view->edit, u"H2");
  EXPECT_EQ(view->focus, Focus::kEdit);
  EXPECT_EQ(view->dropList, nullptr);
  EXPECT_EQ(view->signBack, 0x02B6E8u);
}

TEST_F(MdiDropping, ACancelledListGivesTheSelectionBack) {
  Type("G0 X1");
  view->selection = {2, 4};
  static_cast<void>(Key(MdiKey::kDown));
  view->selection = {};
  view->CancelInDropList();
  EXPECT_EQ(view->edit, u"G0 X1");
  EXPECT_EQ(view->selection, (TextSelection{2, 4}));
  EXPECT_EQ(view->focus, Focus::kEdit);
  EXPECT_EQ(view->dropList, nullptr);
}

TEST_F(MdiDropping, AnyOtherVerdictIsACancel) {
  Type("X");
  static_cast<void>(Key(MdiKey::kDown));
  Send(RegisterMessage("MDI_ENDLIST"), 77);
  EXPECT_EQ(view->edit, u"X");
  EXPECT_EQ(view->dropList, nullptr);
}

TEST_F(MdiDropping, AVerdictWithoutAListIsNone) {
  Type("X");
  Forget();
  EXPECT_EQ(Send(RegisterMessage("MDI_ENDLIST"), 1), 0);
  EXPECT_THAT(All(), IsEmpty());
  EXPECT_EQ(view->edit, u"X");
}

TEST_F(MdiDropping, EscapeClosesTheListAndStops) {
  static_cast<void>(Key(MdiKey::kDown));
  EXPECT_TRUE(Key(MdiKey::kEscape));
  EXPECT_EQ(view->dropList, nullptr);
  EXPECT_TRUE(view->visible);
}

TEST_F(MdiDropping, APressOpensAndClosesTheList) {
  Tell([](MdiSession& session) { session.OnLeftPress(false); });
  ASSERT_NE(view->dropList, nullptr);
  Tell([](MdiSession& session) { session.OnLeftPress(false); });
  EXPECT_EQ(view->dropList, nullptr);
}

TEST_F(MdiDropping, ThePressThatEndedTheListDoesNotOpenItAgain) {
  Tell([](MdiSession& session) { session.OnLeftPress(false); });
  view->CancelInDropList();
  Tell([](MdiSession& session) { session.OnLeftPress(true); });
  EXPECT_EQ(view->dropList, nullptr);
  Tell([](MdiSession& session) { session.OnLeftPress(false); });
  EXPECT_NE(view->dropList, nullptr);
  view->CancelInDropList();
}

TEST_F(MdiDropping, NothingDropsOutsideMdiRoleInState1) {
  Type("M3");
  Start();
  Tell([](MdiSession& session) { session.OnLeftPress(false); });
  EXPECT_EQ(view->dropList, nullptr);
  Status(1);
  Command(8);
  Tell([](MdiSession& session) { session.OnLeftPress(false); });
  EXPECT_EQ(view->dropList, nullptr);
}

TEST_F(MdiDropping, TheStartKeyRunsTheTextSelectedInTheOpenList) {
  Type("typed");
  static_cast<void>(Key(MdiKey::kDown));
  view->dropSelected = 2;
  Forget();
  Start();
  EXPECT_THAT(Asked(), ElementsAre("CogerPlcFree(0,1)=1", "MDILine(0,\"H3\",0,4,0)=0"));
  EXPECT_EQ(view->edit, u"H3");
  EXPECT_EQ(view->dropList, nullptr);
}

TEST_F(MdiDropping, TheStartKeyOverAListWithoutASelectionSendsNothing) {
  Type("typed");
  static_cast<void>(Key(MdiKey::kDown));
  view->dropSelected = -1;
  Forget();
  Start();
  EXPECT_THAT(Asked(), IsEmpty());
  EXPECT_EQ(view->edit, u"typed");
  EXPECT_EQ(view->dropList, nullptr);
}

TEST_F(MdiDropping, EveryWayOutOfSightTakesTheListAlong) {
  for (const std::intptr_t code : {3, 5, 8}) {
    MakeTool();
    Open();
    static_cast<void>(Key(MdiKey::kDown));
    ASSERT_NE(view->dropList, nullptr);
    Command(code);
    EXPECT_EQ(view->dropList, nullptr) << code;
  }
  MakeTool();
  Open();
  static_cast<void>(Key(MdiKey::kDown));
  cnc.vars.At("[1].G.CNCAUTSTATUS").value |= 0x1000;
  Status(1);
  EXPECT_EQ(view->dropList, nullptr);
  EXPECT_FALSE(view->visible);
}

TEST_F(MdiDropping, LayingOutClosesTheList) {
  static_cast<void>(Key(MdiKey::kDown));
  Menu(40006);
  EXPECT_EQ(view->dropList, nullptr);
}

TEST_F(MdiDropping, AHistoryOf10000BlocksIsHandedOverWithoutACopy) {
  std::string bytes;
  for (int i = 0; i < 10000; ++i) bytes += "G1 X" + std::to_string(i) + "\r\n";
  files.disc["C:\\P108\\MDIC1.DAT"] = bytes;
  files.disc["C:\\P108\\MDIMAN.INI"] = "[PRIVATE]\r\nNItems=10000\r\n";
  DestroyTool();
  files.disc["C:\\P108\\MDIC1.DAT"] = bytes;
  files.disc["C:\\P108\\MDIMAN.INI"] = "[PRIVATE]\r\nNItems=10000\r\n";
  MakeTool();
  Open();
  EXPECT_EQ(HistoryShown().size(), 10000u);
}

TEST(MdiDropListTest, AnEmptyListAcceptsWithAnEmptyText) {
  FakeWindowSystem windows;
  const WindowHandle owner = windows.Open();
  MdiDropList list(windows, owner);
  list.Accept(std::nullopt);
  ASSERT_EQ(windows.sent.size(), 1u);
  EXPECT_EQ(windows.sent[0].window, owner);
  EXPECT_EQ(windows.sent[0].message.number, RegisterMessage("MDI_ENDLIST"));
  EXPECT_EQ(windows.sent[0].message.first, 1);
  EXPECT_EQ(windows.sent[0].message.second, 0);
  EXPECT_FALSE(windows.sent[0].posted);
  EXPECT_EQ(list.GetText(), u"");
}

TEST(MdiDropListTest, AfterTheEndNothingMoreIsSent) {
  FakeWindowSystem windows;
  MdiDropList list(windows, windows.Open());
  EXPECT_FALSE(list.Finished());
  list.Accept(Text(u"H1"));
  EXPECT_TRUE(list.Finished());
  list.Accept(Text(u"H2"));
  list.Cancel();
  EXPECT_EQ(windows.sent.size(), 1u);
  EXPECT_EQ(list.GetText(), u"H1");
}

TEST(MdiDropListTest, CancelSendsTheSecondVerdictWithoutAText) {
  FakeWindowSystem windows;
  MdiDropList list(windows, windows.Open());
  list.Cancel();
  list.Cancel();
  ASSERT_EQ(windows.sent.size(), 1u);
  EXPECT_EQ(windows.sent[0].message.first, 2);
  EXPECT_EQ(list.GetText(), u"");
}

TEST(MdiDropListTest, ADeadOwnerIsNoProblem) {
  FakeWindowSystem windows;
  MdiDropList list(windows, 99);
  list.Accept(Text(u"H1"));
  EXPECT_TRUE(windows.sent.empty());
}

TEST_F(MdiKeys, TheFocusRestoresTheSelectionAndShowsTheCaret) {
  Open();
  Type("G0 X1");
  Command(7);
  view->selection = {};
  Forget();
  Tell([](MdiSession& session) { session.OnEditFocus(true); });
  EXPECT_THAT(All(), ElementsAre("view select 5,5", "view scroll caret", "view redraw edit"));
  Tell([](MdiSession& session) { session.OnEditFocus(false); });
  EXPECT_THAT(All(), ElementsAre("view redraw edit"));
}

TEST_F(MdiKeys, TheWindowsFocusGoesToTheEditOrTheList) {
  OpenMda("A\r\n");
  view->Move(Focus::kElsewhere);
  view->Move(Focus::kWindow);
  EXPECT_EQ(view->focus, Focus::kList);
  Menu(32773);
  view->Move(Focus::kElsewhere);
  view->Move(Focus::kWindow);
  EXPECT_EQ(view->focus, Focus::kEdit);
  EXPECT_EQ(view->signFore, 0x05B9D2u);
}

TEST_F(MdiKeys, ControlsTakeTheRunningColoursOutsideState1) {
  EXPECT_EQ(tool->ControlColors(MdiControl::kEdit, true), (MdiColorPair{0, 0xD3BF97}));
  Open();
  Type("M3");
  Start();
  EXPECT_EQ(tool->ControlColors(MdiControl::kEdit, true), (MdiColorPair{0, 0x00A573}));
  EXPECT_EQ(tool->ControlColors(MdiControl::kList, true), (MdiColorPair{0xFFFFFF, 0x78643C}));
  Status(2);
  Status(4);
  EXPECT_EQ(tool->ControlColors(MdiControl::kEdit, false), (MdiColorPair{0, 0x00A573}));
  Status(1);
  EXPECT_EQ(tool->ControlColors(MdiControl::kEdit, false), (MdiColorPair{0xFFFFFF, 0x78643C}));
}

}  // namespace
}  // namespace pnl::test
