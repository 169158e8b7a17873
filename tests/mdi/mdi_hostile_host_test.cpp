// SPDX-License-Identifier: MIT
// A host that destroys the tool's window in a callback, in each callback of each operation: the operation ends on a
// view that is no more, the host hears nothing further, and what was done is stored.
#include "mdi_fixture.h"

namespace pnl::test {
namespace {

using Step = void (*)(MdiRig& rig);

struct Operation {
  const char* name;
  std::vector<Step> before;  // leads there
  std::vector<Step> steps;   // in which the host destroys the window
};

void OpenIt(MdiRig& rig) { rig.Command(2); }
void OpenList(MdiRig& rig) { rig.OpenMda("A\r\nB\r\n"); }
void Run(MdiRig& rig) {
  rig.Type("M3");
  rig.Start();
}
void Running(MdiRig& rig) { rig.Status(2); }
void Interrupted(MdiRig& rig) { rig.Status(4); }
void Aborted(MdiRig& rig) { rig.Status(8); }
void Ready(MdiRig& rig) { rig.Status(1); }
template <int code>
void Command(MdiRig& rig) {
  rig.Command(code);
}
template <int id>
void Menu(MdiRig& rig) {
  rig.Menu(id);
}
void Escape(MdiRig& rig) { static_cast<void>(rig.Key(MdiKey::kEscape)); }
void Enter(MdiRig& rig) { static_cast<void>(rig.Key(MdiKey::kEnter)); }
void Delete(MdiRig& rig) { static_cast<void>(rig.Key(MdiKey::kDelete)); }
void FocusElsewhere(MdiRig& rig) { rig.view->Move(FakeMdiView::Focus::kElsewhere); }
void FocusList(MdiRig& rig) { rig.view->Move(FakeMdiView::Focus::kList); }
void FocusWindow(MdiRig& rig) { rig.view->Move(FakeMdiView::Focus::kWindow); }
void Inspect(MdiRig& rig) {
  rig.cnc.vars.At("[1].E.STARTONMDI").value = 2;
  rig.cnc.vars.Set("[1].E.INSPECSTATUS", 1);
  rig.Drain();
}
void AutomaticWork(MdiRig& rig) { rig.cnc.vars.At("[1].G.CNCAUTSTATUS").value |= 0x1000; }
void AskAgain(MdiRig& rig) { rig.Send(PNL_MSG_TOOL_NOTIFY, 1, 1); }
void FileChosen(MdiRig& rig) { rig.Send(PNL_MSG_RESULT_READY, 2); }
void CalcResult(MdiRig& rig) { rig.Send(PNL_MSG_RESULT_READY, 1); }

const Operation kOperations[] = {
    {"Opening", {}, {OpenIt}},
    {"OpeningAgain", {OpenIt}, {OpenIt}},
    {"Hiding", {OpenIt}, {Command<3>}},
    {"ShowingAgain", {OpenIt, Command<3>}, {Command<4>}},
    {"Closing", {OpenIt}, {Command<5>}},
    {"ClosingWhileAnItemIsEdited", {OpenList, Menu<32773>}, {Command<5>}},
    {"ACloseThatWaitsForAnInterruptedBlock", {OpenIt, Run, Running, Interrupted}, {Command<5>, Ready}},
    {"ClosingWhileInspecting", {OpenIt, Inspect}, {Command<6>}},
    {"RestoringTheCaret", {OpenList, FocusElsewhere}, {Command<7>}},
    {"SwitchingRoles", {OpenIt}, {Command<8>, Command<8>}},
    {"SwitchingRolesWithText", {OpenIt, [](MdiRig& rig) { rig.Type("M3"); }}, {Command<8>}},
    {"AutomaticWorkInAnIdleChannel", {OpenIt, AutomaticWork}, {[](MdiRig& rig) { rig.Command(10, 1); }}},
    {"AutomaticWorkInABusyOne", {OpenIt, Run, AutomaticWork}, {[](MdiRig& rig) { rig.Command(10, 1); }, Ready}},
    {"Escape", {OpenIt}, {Escape}},
    {"EscapeWhileABlockRuns", {OpenIt, Run, Running}, {Escape, Ready}},
    {"ABlock", {OpenIt}, {Run, Running, Interrupted, Running, Ready}},
    {"ABlockThatEndsInterrupted", {OpenIt}, {Run, Running, Interrupted, Ready}},
    {"ABlockThatIsAborted", {OpenIt}, {Run, Running, Interrupted, Aborted}},
    {"AnItem", {OpenList}, {Run, Running, Interrupted, Ready}},
    {"AnItemThatIsAborted", {OpenList}, {Run, Running, Interrupted, Aborted}},
    {"ANewItemThatIsRun", {OpenList, Menu<32773>}, {Run, Running, Interrupted, Ready}},
    {"ANewItem", {OpenList}, {Menu<32773>, [](MdiRig& rig) { rig.Type("M3"); }, Enter}},
    {"AChangedItem", {OpenList}, {Menu<32772>, [](MdiRig& rig) { rig.Type("M3"); }, Enter}},
    {"AnEditThatEnds", {OpenList, Menu<32773>}, {Escape}},
    {"AnEditThatEndsByTheFocus", {OpenList, Menu<32773>}, {FocusList}},
    {"TheWindowsFocus", {OpenList, FocusElsewhere}, {FocusWindow}},
    {"ListCommands", {OpenList}, {Menu<40003>, Menu<40004>, Delete, Menu<32776>}},
    {"Position", {OpenIt}, {Menu<40005>, Menu<40006>}},
    {"SavingAProgram", {OpenList}, {Menu<32775>, FileChosen}},
    {"TheCalculatorsResult", {OpenList, FocusElsewhere}, {CalcResult}},
    {"AskingForTheTakenChannel", {OpenIt}, {AskAgain}},
    {"AnInspection", {OpenIt}, {Inspect}},
    {"ARefusedBlock", {OpenList, [](MdiRig& rig) { rig.cnc.kernel.returns["MDILine"] = 1; }}, {Run}},
};

class MdiHostileHost : public MdiTest, public testing::WithParamInterface<Operation> {
 protected:
  /// Plays the operation on a fresh tool. The window ends in the host call of that number, if it comes to that.
  bool Play(int fatalCall) {
    cnc.kernel.returns = {{"IsNewInspecAllowed", 1}, {"PosibleMDICancel", 2}};
    cnc.kernel.blockInHand = false;
    for (const char* name : {"[1].G.CNCAUTSTATUS", "[1].E.INSPECSTATUS", "[1].E.STARTONMDI"}) {
      cnc.vars.At(name).value = 0;
    }
    cnc.vars.At("[1].G.FULLSTATUS").value = 0x100;
    MakeTool();
    files.disc["C:\\P108\\MDIC1.DAT"].clear();
    for (const Step step : GetParam().before) step(*this);
    int calls = 0;
    bool ended = false;
    onHostCall = [&](const std::string& call) {
      EXPECT_FALSE(ended) << "the host is called for a window that is gone: " << call;
      if (calls++ != fatalCall) return;
      ended = true;
      DestroyTool();
    };
    for (const Step step : GetParam().steps) {
      if (tool) step(*this);
    }
    if (tool) Drain();
    onHostCall = nullptr;
    return ended;
  }
};

TEST_P(MdiHostileHost, MayDestroyTheWindowInEachOfItsCallbacks) {
  int call = 0;
  for (; Play(call); ++call) {
    EXPECT_EQ(tool, nullptr);
    EXPECT_EQ(menus.Count(), 0u) << "call " << call;
    EXPECT_EQ(cnc.vars.OpenReports(), 0u) << "call " << call;
  }
  EXPECT_GT(call, 0) << "the operation calls no host";
}

INSTANTIATE_TEST_SUITE_P(AllOperations, MdiHostileHost, testing::ValuesIn(kOperations),
                         [](const testing::TestParamInfo<Operation>& row) { return row.param.name; });

using MdiEndInTheMiddle = MdiTest;

TEST_F(MdiEndInTheMiddle, ABlockThatHasRunIsStoredAlthoughTheWindowEndedWithItsMenus) {
  // The lists are stored when the window ends, and this block came behind it.
  for (const int last : {1, 8}) {
    MakeTool();
    Command(2);
    cnc.kernel.returns["CogerPlcFree"] = 1;
    Type("M3");
    Start();
    Status(2);
    Status(4);
    files.disc["C:\\P108\\MDIC1.DAT"].clear();
    onHostCall = [this](const std::string&) {
      if (tool) DestroyTool();
    };
    Status(last);
    onHostCall = nullptr;
    ASSERT_EQ(tool, nullptr);
    EXPECT_EQ(Disc("MDIC1.DAT"), "M3\r\n") << last;
    Forget();
    cnc.vars.At("[1].G.FULLSTATUS").value = 0x100;
  }
}

using MdiShownInTheMiddle = MdiTest;

TEST_F(MdiShownInTheMiddle, ABlockIsInTheListOnceAlthoughTheHostShowedTheToolWithItsMenus) {
  OpenMda("M0\r\n");
  Menu(mdi_command::kNewItem);
  Type("M3");
  Start();
  Status(2);
  Status(4);
  onHostCall = [this](const std::string& call) {
    if (!call.starts_with("main menu")) return;
    onHostCall = nullptr;
    EXPECT_EQ(Command(4), 0);
  };
  Status(1);
  EXPECT_FALSE(onHostCall) << "the host got no menus";
  EXPECT_EQ(view->Items(), (std::vector<std::string>{"M3", "M0"}));
  Menu(mdi_command::kNewItem);
  EXPECT_FALSE(view->readOnly) << "the edit of the item has ended, so that another can begin";
}

TEST_F(MdiEndInTheMiddle, AnOpeningThatTheHostEndsIsAnsweredAsRefused) {
  for (const char* last : {"HostToolOpening(6)", "ToolNotify 41 channel 1", "side menu position", "main menu none"}) {
    for (const int code : {2, 4}) {
      MakeTool();
      // Showing again answers so only as long as nothing of it has been done.
      const bool opens = code == 2 || std::string(last) == "HostToolOpening(6)";
      if (code == 4) {
        Open();
        Command(3);
      }
      onHostCall = [&](const std::string& call) {
        if (call == last) DestroyTool();
      };
      EXPECT_EQ(Command(code), opens ? -200 : 0) << code << ", " << last;
      onHostCall = nullptr;
      EXPECT_EQ(tool, nullptr) << code << ", " << last;
    }
  }
}

TEST_F(MdiEndInTheMiddle, AKeyThatEndsTheWindowIsConsumed) {
  Open();
  onHostCall = [this](const std::string&) {
    if (tool) DestroyTool();
  };
  EXPECT_TRUE(Key(MdiKey::kEscape));
  EXPECT_EQ(tool, nullptr);
}

TEST_F(MdiEndInTheMiddle, AWindowThatEndsBeforeTheInterlockIsTakenTakesNone) {
  // The edit's end updates the menus, once with the focus and once at last.
  for (int fatal : {1, 2}) {
    MakeTool();
    OpenMda("A\r\n");
    Menu(32773);
    onHostCall = [&](const std::string&) {
      if (--fatal == 0) DestroyTool();
    };
    Forget();
    Command(5);
    onHostCall = nullptr;
    ASSERT_EQ(tool, nullptr);
    EXPECT_EQ(cnc.kernel.grants, 0);
  }
}

TEST_F(MdiEndInTheMiddle, AChannelBeingGivenBackIsGivenBackWhole) {
  Command(2);
  onHostCall = [this](const std::string& call) {
    if (call == "ToolNotify 42 channel 1") DestroyTool();
  };
  Forget();
  Command(5);
  onHostCall = nullptr;
  ASSERT_EQ(tool, nullptr);
  EXPECT_THAT(Asked(), testing::IsSupersetOf({"SetMdi(1,0)=1", "EndMDIMode(1)=1", "SetMode(1,0)=1",
                                              "LiberarPlcFree(0,1,1)=1", "write [1].G.CNCAUTSTATUS=0 ok flag 1"}));
  EXPECT_EQ(cnc.kernel.grants, 0);
}

}  // namespace
}  // namespace pnl::test
