// SPDX-License-Identifier: MIT
// The ends of the command line's window: whoever destroys it, whenever, nothing is left and nothing falls.
#include "host/records.h"
#include "mdi_stage.h"

namespace pnl::test {
namespace {

class MdiEndTest : public MdiStage {
 public:
  using MdiStage::Command;
  using MdiStage::Edit;
  using MdiStage::Key;
  using MdiStage::List;
  using MdiStage::other;
  using MdiStage::Send;
  using MdiStage::StartKey;
  using MdiStage::Status;
  using MdiStage::SwitchRole;
  using MdiStage::Title;
  using MdiStage::tool;

 protected:
  void TestBox(bool parent);
};

TEST_F(MdiEndTest, DiesWithItsParentWhileOpen) {
  History(3);
  Open();
  Type(Edit(), "G0");
  delete area;
  EXPECT_TRUE(tool.isNull());
  EXPECT_EQ(Send(PNL_MSG_TOOL_COMMAND, 2, 1), 0) << "a message after death";
}

TEST_F(MdiEndTest, DiesWithItsParentWhileTheDropListIsOpen) {
  History(3);
  Open();
  Key(Qt::Key_Down);
  ASSERT_NE(Drop(), nullptr);
  delete area;
  EXPECT_EQ(Drop(), nullptr);
}

TEST_F(MdiEndTest, ADropListGoesBeforeItsOwnerWithThePanel) {
  History(3);
  auto second = std::make_unique<QWidget>();
  second->resize(300, 300);
  WindowRegistry::Instance().Attach(second.get(), nullptr, nullptr);
  Make(second.get());
  Activate(*second);
  Open();
  Key(Qt::Key_Down);
  second.reset();
  EXPECT_TRUE(tool.isNull());
}

/// Steps on an open or closed window, each of which may find it gone.
struct Operation {
  const char* name;
  std::vector<std::function<void(MdiEndTest&)>> before;
  std::vector<std::function<void(MdiEndTest&)>> steps;
};

class MdiEndInCallback : public MdiEndTest, public testing::WithParamInterface<Operation> {
 protected:
  /// Plays the operation on a new window. In the host call of that number the host destroys the tool or its parent, at
  /// once or when control is back at the event loop. False when it doesn't come to so many calls.
  bool Play(int fatalCall, bool parent, bool atOnce) {
    if (area.isNull()) MakeArea();
    for (const char16_t* name : {u"[1].G.CNCAUTSTATUS", u"[1].E.MANUALMODE", u"[1].E.PNLMODE"}) {
      cnc.Set(name, std::int64_t{0});
    }
    Status(1);
    Make();
    for (const auto& step : GetParam().before) step(*this);
    Settle();
    int calls = 0;
    bool ended = false;
    onHostCall = [&](const std::string&) {
      if (calls++ != fatalCall) return;
      ended = true;
      QWidget* const victim = parent ? area.data() : static_cast<QWidget*>(tool.data());
      atOnce ? delete victim : victim->deleteLater();
    };
    for (const auto& step : GetParam().steps) {
      if (!tool.isNull()) step(*this);
    }
    Settle();
    onHostCall = nullptr;
    EXPECT_EQ(tool.isNull(), ended) << "call " << fatalCall;
    delete tool.data();
    EXPECT_EQ(menus.Count(), 0u) << "call " << fatalCall;
    EXPECT_EQ(cnc.OpenReports(), 0u) << "call " << fatalCall;
    return ended;
  }
};

TEST_P(MdiEndInCallback, TheHostMayDestroyTheToolOrItsParent) {
  Disc("MDAC1.DAT", "G0\r\nG1\r\n");
  for (const bool parent : {false, true}) {
    for (const bool atOnce : {false, true}) {
      SCOPED_TRACE(std::string(parent ? "the parent" : "the tool") + (atOnce ? " at once" : " later"));
      int call = 0;
      while (Play(call, parent, atOnce)) ++call;
      EXPECT_GT(call, 0) << "the operation calls no host";
    }
  }
}

void OpenIt(MdiEndTest& stage) { stage.Command(2); }
void OpenTheList(MdiEndTest& stage) {
  stage.Command(2);
  stage.SwitchRole();
}
template <int id>
void Choose(MdiEndTest& stage) {
  stage.Send(PNL_MSG_COMMAND, id);
}
template <int code>
void Tell(MdiEndTest& stage) {
  stage.Command(code);
}
template <int key>
void Press(MdiEndTest& stage) {
  stage.Key(key);
}
template <int byte>
void Report(MdiEndTest& stage) {
  stage.Status(byte);
}
void TypeBlock(MdiEndTest& stage) { Type(stage.Edit(), "G0"); }
void Run(MdiEndTest& stage) { stage.StartKey(); }

const Operation kOperations[] = {
    {"Opening", {}, {OpenIt}},
    {"ClosingByEscape", {OpenIt}, {Press<Qt::Key_Escape>}},
    {"ClosingByCommand", {OpenIt}, {Tell<5>}},
    {"HidingAndShowing", {OpenIt}, {Tell<3>, Tell<4>}},
    {"SwitchingRoles", {OpenIt}, {Tell<8>, Tell<8>}},
    {"ABlock", {OpenIt, TypeBlock}, {Run, Report<2>, Report<4>, Report<2>, Report<1>}},
    {"AnItem", {OpenTheList}, {Run, Report<2>, Report<4>, Report<8>}},
    {"ACloseThatWaits", {OpenIt, TypeBlock, Run, Report<2>}, {Tell<5>, Report<1>}},
    {"AnItemTyped", {OpenTheList}, {Choose<32773>, TypeBlock, Press<Qt::Key_Return>}},
    {"AnItemChanged", {OpenTheList}, {Press<Qt::Key_Return>, TypeBlock, Press<Qt::Key_Enter>}},
    {"AnEditEndedByEscape", {OpenTheList, Choose<32773>}, {Press<Qt::Key_Escape>}},
    {"AnEditEndedByAPressOnTheList", {OpenTheList, Choose<32773>}, {[](MdiEndTest& stage) {
       PressMouse(stage.List()->viewport(), QPoint(10, 10));
     }}},
    {"AnEditEndedByTab", {OpenTheList, Choose<32773>}, {Press<Qt::Key_Tab>}},
    {"APressOnTheTitle", {OpenTheList, [](MdiEndTest& stage) { stage.other->setFocus(); }}, {[](MdiEndTest& stage) {
       PressMouse(stage.Title(), QPoint(5, 5));
     }}},
    {"AnItemDeleted", {OpenTheList}, {Press<Qt::Key_Delete>}},
    {"ListCommands", {OpenTheList}, {Choose<40003>, Choose<40004>, Choose<32776>}},
    {"Position", {OpenIt}, {Choose<40005>, Choose<40006>}},
    {"SavingAProgram", {OpenTheList}, {Choose<32775>, [](MdiEndTest& stage) { stage.Send(PNL_MSG_RESULT_READY, 2); }}},
    {"TheCalculatorsResult", {OpenTheList, [](MdiEndTest& stage) { stage.other->setFocus(); }}, {[](MdiEndTest& stage) {
       stage.Send(PNL_MSG_RESULT_READY, 1);
     }}},
    {"AskingForTheTakenChannel", {OpenIt}, {[](MdiEndTest& stage) { stage.Send(PNL_MSG_TOOL_NOTIFY, 1, 1); }}},
};

INSTANTIATE_TEST_SUITE_P(AllOperations, MdiEndInCallback, testing::ValuesIn(kOperations),
                         [](const testing::TestParamInfo<Operation>& row) { return row.param.name; });

TEST_F(MdiEndTest, AClosedToolHasGivenItsChannelBackBeforeTheHostHearsOfIt) {
  Open();
  ASSERT_NE(std::get<std::int64_t>(*cnc.Get(u"[1].G.CNCAUTSTATUS")), 0);
  std::int64_t word = -1;
  onHostCall = [&](const std::string& call) {
    if (call != "HostToolClosed(6,2)") return;
    word = std::get<std::int64_t>(*cnc.Get(u"[1].G.CNCAUTSTATUS"));
    delete area;
  };
  Key(Qt::Key_Escape);
  EXPECT_TRUE(tool.isNull());
  EXPECT_EQ(word, 0) << "the mark of a held channel";
}

void MdiEndTest::TestBox(bool parent) {
  Disc("P.NC", "x");
  std::filesystem::permissions(disc.Path() / "P108" / "P.NC", std::filesystem::perms::owner_read);
  OpenMda();
  Send(PNL_MSG_COMMAND, 32775);
  int boxes = 0;
  windows.SetBoxAnswerer([&](const BoxSpec&) {
    ++boxes;
    delete (parent ? area.data() : static_cast<QWidget*>(tool.data()));
    return BoxAnswer::kOk;
  });
  // The answer record lies in the tool; a file that can't be written brings the box.
  const auto published = cnc.Get(u"E.XPLRDATA");
  ASSERT_TRUE(published);
  auto* record =
      static_cast<XPLRDATA_ST*>(ResolveRecord(static_cast<std::int32_t>(std::get<std::int64_t>(*published))));
  ASSERT_NE(record, nullptr);
  SetField(record->Path, u"C:\\P108");
  SetField(record->File, u"P.NC");
  Send(PNL_MSG_RESULT_READY, 2);
  EXPECT_EQ(boxes, 1);
  EXPECT_TRUE(tool.isNull());
}

TEST_F(MdiEndTest, MayBeDestroyedWhileABoxIsOpen) { TestBox(false); }

TEST_F(MdiEndTest, MayLoseItsParentWhileABoxIsOpen) { TestBox(true); }

TEST_F(MdiEndTest, PostedMessagesDieWithIt) {
  Open();
  windows.Post(handle, {PNL_MSG_TOOL_COMMAND, 3, 1});
  windows.Post(handle, {PNL_MSG_TOOL_COMMAND, 5, 1});
  delete tool;
  hostCalls.clear();
  Settle();
  EXPECT_THAT(TakeHostCalls(), testing::IsEmpty());
}

TEST_F(MdiEndTest, PostedMessagesAreHandledWhileItLives) {
  Open();
  hostCalls.clear();
  windows.Post(handle, {PNL_MSG_TOOL_COMMAND, 3, 1});
  Settle();
  EXPECT_THAT(TakeHostCalls(), testing::ElementsAre("HostToolClosed(6,2)"));
}

TEST_F(MdiEndTest, TwoWindowsOfOneParentLiveSideBySide) {
  Open();
  auto* second = new ZCMDIWindow(context, area);
  second->Start();
  const WindowHandle secondHandle = WindowRegistry::Instance().HandleOf(second);
  ASSERT_NE(secondHandle, handle);
  EXPECT_TRUE(second->isHidden());
  Command(5);
  delete tool;
  Settle();
  EXPECT_EQ(windows.Send(secondHandle, {PNL_MSG_TOOL_COMMAND, 2, 1}), 0);
  Settle();
  EXPECT_TRUE(second->isVisible());
  EXPECT_EQ(second->geometry(), QRect(0, 400 - 29, 600, 29));
  EXPECT_TRUE(second->isAncestorOf(Focus()));
  delete second;
  EXPECT_EQ(menus.Count(), 0u);
}

}  // namespace
}  // namespace pnl::test
