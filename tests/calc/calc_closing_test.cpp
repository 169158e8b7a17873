// SPDX-License-Identifier: MIT
// The ways to close the calculator, what is saved when its window goes, and that nothing happens afterwards.
#include <functional>
#include <utility>

#include "calc_fixture.h"

namespace pnl::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr const char* kHistory = "C:\\P1\\calc.htr";
constexpr const char* kUsers = "C:\\P108\\Calc7340.ini";
constexpr const char* kMachines = "C:\\P52\\Calc7340.ini";

class CalcClosingTest : public OpenCalcTest {
 protected:
  /// Whatever may still come from the panel.
  void DoEverything() {
    for (const CalcKey key : {CalcKey::kEnter, CalcKey::kEscape, CalcKey::kInsert, CalcKey::kDelete, CalcKey::kUp,
                              CalcKey::kBases, CalcKey::kVariables, CalcKey::kSolver, CalcKey::kAltF4}) {
      EXPECT_FALSE(Key(key));
      EXPECT_FALSE(Key(key, true));
    }
    EXPECT_FALSE(Character(u'+'));
    LineChanged();
    PressLine();
    SelectInList();
    DoubleClickList();
    PickVariable();
    HandleValue();
    for (const int id : {1012, 1013, 1017, 1036, 1101, 1102, 1103}) Button(id);
    for (const int id : {32779, 32781, 32784, 32817, 32821}) Menu(id);
    for (const int code : {6, 20, 34, 0}) EXPECT_EQ(Command(code), 0);
    Work();
    timers.Advance(1000);
  }
};

TEST_F(CalcClosingTest, Code6HidesAndDestroysWithoutAWordToTheHost) {
  EXPECT_EQ(Command(6), 0);
  EXPECT_THAT(All(), ElementsAre("view hide", "view destroy"));
}

TEST_F(CalcClosingTest, Code20ClosesAndAnswers2) {
  EXPECT_EQ(Command(20), 2);
  EXPECT_THAT(All(), ElementsAre("view hide", "HostToolClosed(3,2)", "view destroy"));
}

TEST_F(CalcClosingTest, Code34ClosesAndAnswers0) {
  EXPECT_EQ(Command(34), 0);
  EXPECT_THAT(All(), ElementsAre("view hide", "HostToolClosed(3,2)", "view destroy"));
}

TEST_F(CalcClosingTest, OtherCodesDoNothing) {
  for (const int code : {0, 1, 2, 3, 4, 5, 7, 8, 10, 14, 19, 21, 33, 35, -1}) {
    EXPECT_EQ(Command(code), 0) << code;
  }
  EXPECT_THAT(All(), IsEmpty());
}

TEST_F(CalcClosingTest, AfterClosingNothingIsDoneAnyMore) {
  Command(20);
  log.clear();
  EXPECT_EQ(timers.Running(), 0u);
  DoEverything();
  EXPECT_THAT(All(), IsEmpty());
}

TEST_F(CalcClosingTest, AfterTheWindowWentNothingIsDoneAnyMore) {
  view->closing = true;
  tool->End();
  view->dead = true;
  log.clear();
  files.replaced.clear();
  DoEverything();
  tool->End();
  EXPECT_THAT(All(), IsEmpty());
  EXPECT_THAT(files.replaced, IsEmpty());
  EXPECT_EQ(timers.Running(), 0u);
  EXPECT_EQ(menus.Count(), 0u);
}

TEST_F(CalcClosingTest, ASessionThatEndsWithoutAWordTouchesNothing) {
  view->dead = true;
  view->onLineChanged = nullptr;
  tool.reset();
  EXPECT_EQ(timers.Running(), 0u);
  EXPECT_EQ(menus.Count(), 0u);
  EXPECT_THAT(files.replaced, IsEmpty());
}

TEST_F(CalcClosingTest, HistoryAndSettingsAreSavedWhenTheWindowGoes) {
  Confirm("1+1");
  Confirm("2+2");
  Menu(calc_id::kMenuCompact);
  view->left = 33;
  view->top = 44;
  onHostCall = [this](const std::string&) { EXPECT_THAT(files.replaced, IsEmpty()) << "not before the window goes"; };
  Command(34);
  EXPECT_THAT(files.replaced, ElementsAre(kHistory, kUsers, kMachines));
  EXPECT_EQ(files.disc[kHistory], "2+2\r\n1+1\r\n");
  EXPECT_EQ(files.disc[kUsers], "[COMMON]\r\nWindow=33,44\r\nMinimized=YES\r\n");
  EXPECT_EQ(files.disc[kMachines], files.disc[kUsers]);
}

TEST_F(CalcClosingTest, AWindowThatTheHostDestroysIsSavedToo) {
  Confirm("1+1");
  DestroyTool();
  EXPECT_EQ(files.disc[kHistory], "1+1\r\n");
  EXPECT_EQ(timers.Running(), 0u);
}

TEST_F(CalcClosingTest, DiscsThatTakeNothingAreNoFailure) {
  files.full = true;
  Confirm("1+1");
  DestroyTool();
  EXPECT_THAT(files.replaced, IsEmpty());
  EXPECT_TRUE(windows.boxes.empty());
}

TEST_F(CalcTest, AToolThatNeverOpenedSavesNothing) {
  files.disc[kHistory] = "old\r\n";
  DestroyTool();
  EXPECT_THAT(files.replaced, IsEmpty());
}

TEST_F(CalcTest, AHistoryThatCouldNotBeReadSurvivesTheSession) {
  files.disc[kHistory] = "precious\r\n";
  files.unreadable = {kHistory};
  Open();
  Confirm("1+1");
  DestroyTool();
  EXPECT_EQ(files.disc[kHistory], "precious\r\n");
}

/// A callback that ends the tool, what brings it, and what the host still hears then: what it must know all the same.
struct CallbackRow {
  const char* call;
  std::function<void(CalcRig&)> act;
  Log after;
};

TEST_F(CalcTest, AHostThatDestroysTheWindowInACallbackHearsOnlyWhatItMustKnow) {
  const auto insert = [](CalcRig& rig) {
    rig.Type("1");
    rig.Key(CalcKey::kInsert);
  };
  const auto machining = [](CalcRig& rig) { rig.Menu(calc_id::kMenuMachining); };
  const CallbackRow rows[] = {
      {"HostToolOpening(3)", {}, {}},
      {"main menu main", {}, {}},
      {"side menu side", {}, {}},
      {"HostUpdateSideMenu(3)", {}, {}},
      {"HostUpdateSideMenu(3)", [](CalcRig& rig) { rig.Menu(calc_id::kMenuBase); }, {}},
      {"HostUpdateSideMenu(3)", [](CalcRig& rig) { rig.Menu(calc_id::kMenuAngle); }, {}},
      {"HostUpdateMainMenu(3)", [](CalcRig& rig) { rig.Menu(calc_id::kMenuCompact); }, {}},
      {"HostToolWantsClose(3)", [](CalcRig& rig) { rig.Key(CalcKey::kEscape); }, {}},
      {"HostToolClosed(3,2)", [](CalcRig& rig) { rig.Command(20); }, {}},
      {"HostToolClosed(3,2)", [](CalcRig& rig) { rig.Command(34); }, {}},
      {"HostToolClosed(3,2)", machining, {"HostOpenMachiningCalculator"}},
      {"HostOpenMachiningCalculator", machining, {}},
      {"HostToolClosed(3,1)", insert, {"HostCalcResultAccepted"}},
      {"HostCalcResultAccepted", insert, {}},
  };
  for (const CallbackRow& row : rows) {
    SCOPED_TRACE(row.call);
    MakeTool();
    bool done = false;
    const auto destroyOnce = [&](const std::string& call) {
      if (call != row.call || std::exchange(done, true)) return;
      log.clear();
      DestroyTool();
    };
    if (!row.act) onHostCall = destroyOnce;
    Open();
    if (row.act) {
      onHostCall = destroyOnce;
      row.act(*this);
    }
    onHostCall = nullptr;
    EXPECT_TRUE(done);
    EXPECT_EQ(All(), row.after);
    EXPECT_EQ(timers.Running(), 0u);
    EXPECT_EQ(menus.Count(), 0u);
  }
}

TEST_F(CalcClosingTest, AHostThatDestroysTheWindowWhileItClosesFindsNothingLeftToDo) {
  for (const int code : {20, 34}) {
    MakeTool();
    Open();
    onHostCall = [this](const std::string& call) {
      if (call.starts_with("HostToolClosed")) DestroyTool();
    };
    log.clear();
    Command(code);
    onHostCall = nullptr;
    EXPECT_THAT(All(), ElementsAre("view hide", "HostToolClosed(3,2)"));
    EXPECT_EQ(timers.Running(), 0u);
  }
}

TEST_F(CalcClosingTest, AHostThatDestroysTheWindowOnTheWayToTheMachiningCalculator) {
  onHostCall = [this](const std::string& call) {
    if (call == "HostOpenMachiningCalculator") DestroyTool();
  };
  Menu(calc_id::kMenuMachining);
  EXPECT_THAT(All(), ElementsAre("HostToolClosed(3,2)", "HostOpenMachiningCalculator"));
}

/// A machine whose variable, when it is written, ends the tool.
class EndingSink final : public rig::EventSink {
 public:
  explicit EndingSink(CalcRig& rig) : rig_(rig) {}
  void Cnc(std::string_view, const std::vector<rig::Value>&, const rig::Value&) override {}
  void Write(std::u16string_view, const rig::Value&, bool) override { rig_.DestroyTool(); }
  void MessageToHost(PnlWindow, std::uint32_t, std::intptr_t, std::intptr_t) override {}
  void Box(std::u16string_view, std::u16string_view, std::string_view, std::string_view) override {}

 private:
  CalcRig& rig_;
};

TEST_F(CalcClosingTest, AToolThatEndsWhileItHandsItsValueOverClosesNoSecondTime) {
  EndingSink ending(*this);
  cnc.SetSink(&ending);
  Key(CalcKey::kInsert);
  cnc.SetSink(&sink);
  EXPECT_EQ(tool, nullptr);
  EXPECT_THAT(Asked(), IsEmpty());
}

TEST_F(CalcClosingTest, VariablesOutliveTheTool) {
  Confirm("A=5");
  DestroyTool();
  MakeTool();
  Open();
  Line("A+ACC");
  EXPECT_EQ(Status(), "Value : 10");
  EXPECT_EQ(Result(), "0") << "the value is the tool's own";
}

}  // namespace
}  // namespace pnl::test
