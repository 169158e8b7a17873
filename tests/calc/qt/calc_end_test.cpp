// SPDX-License-Identifier: MIT
// The ends of the calculator's window: whoever destroys it, whenever, nothing is left, nothing falls, and what the
// operator had lies on the disc.
#include "calc_stage.h"

namespace pnl::test {
namespace {

class CalcEndTest : public CalcStage {};

TEST_F(CalcEndTest, DiesWithItsParentAndSaves) {
  Open();
  Write("1+2");
  Key(Qt::Key_Return);
  delete std::exchange(area, nullptr);
  EXPECT_TRUE(tool.isNull());
  EXPECT_EQ(OnDisc("C:\\P1\\calc.htr"), "1+2\r\n");
  EXPECT_EQ(Send(kMsgToolCommand, 20), 0) << "a message after death";
}

TEST_F(CalcEndTest, DiesWithItsParentWhileAListIsOpenAndANoteStands) {
  History(3);
  Open();
  Touch(calc_id::kShowBases);
  Key(Qt::Key_Down);
  ASSERT_TRUE(List()->isVisible());
  delete std::exchange(area, nullptr);
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
}

struct EndRow {
  const char* call;
  std::function<void()> act;
};

TEST_F(CalcEndTest, MayBeDestroyedByTheHostInEveryCallback) {
  const EndRow rows[] = {
      {"opening 3", [] {}},
      {"update side", [] {}},
      {"wants close 3", [this] { Key(Qt::Key_Escape); }},
      {"closed 3,2", [this] { Command(20); }},
      {"closed 3,1",
       [this] {
         Write("1");
         Key(Qt::Key_Insert);
       }},
      {"accepted",
       [this] {
         Write("1");
         Key(Qt::Key_Insert);
       }},
      {"machining", [this] { Menu(calc_id::kMenuMachining); }},
      {"update main", [this] { Menu(calc_id::kMenuCompact); }},
  };
  for (const EndRow& row : rows) {
    for (const bool atOnce : {false, true}) {
      SCOPED_TRACE(testing::Message() << row.call << (atOnce ? " at once" : " later"));
      bool done = false;
      onHostCall = [&](const std::string& call) {
        if (call != row.call || std::exchange(done, true)) return;
        // While it opens, the stage doesn't know it yet.
        auto* target = area->findChild<ZCCalc7340*>();
        atOnce ? delete target : target->deleteLater();
      };
      Open();
      if (!tool.isNull()) row.act();
      Settle();
      EXPECT_TRUE(done);
      EXPECT_TRUE(tool.isNull());
      onHostCall = nullptr;
    }
  }
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
  windows.Post(handle, {kMsgToolCommand, 20, 1});
  delete tool;
  Settle();
}

TEST_F(CalcEndTest, ALineChangedByADyingWidgetTellsNobody) {
  Open();
  QObject::connect(tool, &QObject::destroyed, area, [line = QPointer<CalcLine>(Line())] {
    if (line) line->setText("9");
  });
  delete tool;
}

}  // namespace
}  // namespace pnl::test
