// SPDX-License-Identifier: MIT
// The ends of the calculator's window: whoever destroys it, whenever, nothing is left, nothing falls, and what the
// operator had lies on the disc.
#include "calc/expr/calc_store.h"
#include "calc_stage.h"
#include "support/deleting_host.h"

namespace pnl::test {
namespace {

class CalcEndTest : public CalcStage {};

TEST_F(CalcEndTest, DiesWithItsParentAndSaves) {
  Open();
  Write("1+2");
  Key(Qt::Key_Return);
  delete area;
  EXPECT_TRUE(tool.isNull());
  EXPECT_EQ(OnDisc("C:\\P1\\calc.htr"), "1+2\r\n");
  EXPECT_EQ(Send(PNL_MSG_TOOL_COMMAND, 20), 0) << "a message after death";
}

TEST_F(CalcEndTest, DiesWithItsParentWhileAListIsOpenAndANoteIsShown) {
  History(3);
  Open();
  Touch(calc_id::kShowBases);
  Key(Qt::Key_Down);
  ASSERT_TRUE(List()->isVisible());
  delete area;
  EXPECT_TRUE(tool.isNull());
}

TEST_F(CalcEndTest, TakesItsNoteAlong) {
  Open();
  Touch(calc_id::kShowSolver);
  ASSERT_NE(Note(), nullptr);
  delete tool;
  EXPECT_EQ(Note(), nullptr);
}

TEST_F(CalcEndTest, OutlivesANoteThatSomebodyElseDestroys) {
  Open();
  Touch(calc_id::kShowSolver);
  delete Note();
  Touch(calc_id::kShowBases);
  tool->move(10, 10);
  Write("1+1");
  EXPECT_EQ(Status(), "Result : 2");
  EXPECT_EQ(Note(), nullptr);
}

enum class HowItEnds { kAtOnce, kLater, kWithItsParent };

struct EndRow {
  const char* call;
  std::function<void()> act;
};

class CalcCallbackTest : public CalcEndTest, public testing::WithParamInterface<HowItEnds> {
 protected:
  void Destroy() {
    // While it opens, the stage doesn't know it yet.
    auto* target = area->findChild<ZCCalc7340*>();
    switch (GetParam()) {
      case HowItEnds::kAtOnce:
        delete target;
        break;
      case HowItEnds::kLater:
        target->deleteLater();
        break;
      case HowItEnds::kWithItsParent:
        delete area;
        break;
    }
  }
  /// Each of the ways to a callback, and the callback in which the host ends the tool.
  std::vector<EndRow> Rows() {
    const auto insert = [this] {
      Write("1");
      Key(Qt::Key_Insert);
    };
    const auto longInsert = [this] {
      SharedCalcStore().Variables['N' - 'A'] = 500000;
      SharedCalcStore().Variables[0] = 1;
      Line()->SetText("INTEGRAL(X" + QString("+X").repeated(20) + ")");
      Key(Qt::Key_Insert);
      WaitForComputing();
    };
    const auto machining = [this] { Menu(calc_id::kMenuMachining); };
    return {
        {"box", {}},
        {"HostToolOpening(3)", {}},
        {"main menu", {}},
        {"side menu", {}},
        {"HostUpdateSideMenu(3)", {}},
        {"HostUpdateSideMenu(3)", [this] { Menu(calc_id::kMenuBase); }},
        {"HostUpdateSideMenu(3)", [this] { Menu(calc_id::kMenuAngle); }},
        {"HostUpdateMainMenu(3)", [this] { Menu(calc_id::kMenuCompact); }},
        {"HostToolWantsClose(3)", [this] { Key(Qt::Key_Escape); }},
        {"HostToolClosed(3,2)", [this] { Command(20); }},
        {"HostToolClosed(3,2)", [this] { Command(34); }},
        {"HostToolClosed(3,2)", machining},
        {"HostOpenMachiningCalculator", machining},
        {"HostToolClosed(3,1)", insert},
        {"HostCalcResultAccepted", insert},
        {"HostToolClosed(3,1)", longInsert},
        {"HostCalcResultAccepted", longInsert},
    };
  }
};

// A host may put away the window in which the tool lies, and the tool with it, from within each of its callbacks.
TEST_P(CalcCallbackTest, TheHostMayEndItInEveryCallback) {
  for (const EndRow& row : Rows()) {
    SCOPED_TRACE(row.call);
    if (area.isNull()) MakeArea();
    language.Use(BuiltPack());
    bool done = false;
    const auto endOnce = [&](const std::string& call) {
      if (call != row.call || std::exchange(done, true)) return;
      Destroy();
    };
    if (!row.act) onHostCall = endOnce;
    Open();
    if (row.act) {
      onHostCall = endOnce;
      row.act();
    }
    Settle();
    EXPECT_TRUE(done);
    EXPECT_TRUE(tool.isNull());
    EXPECT_FALSE(windows.IsAlive(handle));
    EXPECT_EQ(timers.Running(), 0u);
    EXPECT_EQ(menus.Count(), 0u);
    onHostCall = nullptr;
  }
}

INSTANTIATE_TEST_SUITE_P(Ways, CalcCallbackTest,
                         testing::Values(HowItEnds::kAtOnce, HowItEnds::kLater, HowItEnds::kWithItsParent));

// Not what hands the result over: the host hears of that whoever deletes the window.
TEST_F(CalcEndTest, TheHostMayDeleteItsParentInEveryCall) {
  DeletingHost killer(table);
  windows.SetBoxAnswerer([&](const BoxSpec&) {
    killer.Called("box");
    return BoxAnswer::kOk;
  });
  const auto renew = [this] {
    delete area;
    MakeArea();
  };
  const auto open = [&] {
    renew();
    // The shared texts are asked for anew, and so the box comes.
    language.Use(BuiltPack());
    Open();
  };
  const auto close = [&] {
    Settle();
    renew();
    EXPECT_EQ(timers.Running(), 0u);
    EXPECT_EQ(menus.Count(), 0u);
    EXPECT_FALSE(windows.IsAlive(handle));
  };
  const auto menu = [this](int id) { return [this, id] { Menu(id); }; };
  const auto key = [this](int id) { return [this, id] { Key(id); }; };
  const auto calls = PlayWithEachCallFatal(
      killer, {open,
               {[this] { Write("1+2"); }, menu(calc_id::kMenuBase), key(Qt::Key_Return), key(Qt::Key_Down),
                menu(calc_id::kMenuCompact), menu(calc_id::kMenuCompact), [this] { Touch(calc_id::kShowVariables); },
                menu(calc_id::kMenuAngle), key(Qt::Key_Escape), key(Qt::Key_Escape), [this] { Command(20); }},
               [this] { delete area; },
               close});
  EXPECT_THAT(calls, testing::IsSupersetOf({"box", "HostToolOpening", "HostSetMainMenu", "HostSetSideMenu",
                                            "HostUpdateMainMenu", "HostUpdateSideMenu", "HostToolWantsClose",
                                            "HostToolClosed"}));
}

TEST_F(CalcEndTest, WhatTheOperatorHadIsSavedWhenTheHostEndsItInACallback) {
  Open();
  Write("1+2");
  Key(Qt::Key_Return);
  onHostCall = [this](const std::string& call) {
    if (call == "HostToolWantsClose(3)") delete area;
  };
  Key(Qt::Key_Escape);
  EXPECT_TRUE(tool.isNull());
  EXPECT_EQ(OnDisc("C:\\P1\\calc.htr"), "1+2\r\n");
  EXPECT_EQ(OnDisc("C:\\P52\\Calc7340.ini"), "[COMMON]\r\nWindow=0,0\r\nMinimized=NO\r\n");
}

TEST_F(CalcEndTest, ASecondOneReadsWhatTheFirstOneSavedEvenBeforeItIsGone) {
  Open();
  Write("2*3");
  Key(Qt::Key_Return);
  const QPointer<ZCCalc7340> first = tool;
  Command(34);
  EXPECT_FALSE(first.isNull()) << "its event isn't over";
  Open();
  EXPECT_EQ(List()->Item(0), u"2*3");
  Settle();
  EXPECT_TRUE(first.isNull());
  EXPECT_FALSE(tool.isNull());
}

TEST_F(CalcEndTest, TwoWindowsOfOneParentLiveSideBySide) {
  Open();
  const QPointer<ZCCalc7340> first = tool;
  Open();
  delete first;
  Write("1+1");
  Key(Qt::Key_Return);
  EXPECT_EQ(Result(), "2");
}

TEST_F(CalcEndTest, CommandSixGoesWithoutAWord) {
  Open();
  TakeHostCalls();
  EXPECT_EQ(Command(6), 0);
  Settle();
  EXPECT_TRUE(tool.isNull());
  EXPECT_TRUE(TakeHostCalls().empty());
}

TEST_F(CalcEndTest, PostedMessagesDieWithIt) {
  Open();
  TakeHostCalls();
  windows.Post(handle, {PNL_MSG_TOOL_COMMAND, 20, 1});
  delete tool;
  Settle();
  EXPECT_TRUE(TakeHostCalls().empty());
  EXPECT_EQ(Command(20), 0) << "as a message sent to it does";
}

TEST_F(CalcEndTest, ALineChangedByADyingWidgetTellsNobody) {
  Open();
  QObject::connect(tool, &QObject::destroyed, area, [line = QPointer<CalcLine>(Line())] {
    if (line) line->setText("9");
  });
  const std::int64_t then = now;
  const CalcStore before = SharedCalcStore();
  delete tool;
  EXPECT_EQ(now, then) << "nothing is previewed";
  EXPECT_EQ(SharedCalcStore().Acc, before.Acc);
}

}  // namespace
}  // namespace pnl::test
