// SPDX-License-Identifier: MIT
// Thousands of intentions in any order, from fixed seeds: whatever an operator, a host and a machine do, the calculator
// stays consistent.
#include <random>

#include "calc_fixture.h"

namespace pnl::test {
namespace {

class CalcRandomTest : public testing::TestWithParam<unsigned>, public CalcRig {
 protected:
  int Number(int below) { return std::uniform_int_distribution<int>(0, below - 1)(random); }
  template <typename T, std::size_t N>
  const T& One(const T (&values)[N]) {
    return values[static_cast<std::size_t>(Number(static_cast<int>(N)))];
  }

  void Act() {
    static constexpr int kCommands[] = {1012,  1013,  1014,  1015,  1016,  1017,  1020,  1021,  1031,  1033,  1034,
                                        1035,  1036,  1037,  1101,  1102,  1103,  32779, 32781, 32783, 32784, 32788,
                                        32791, 32799, 32800, 32801, 32815, 32817, 1038,  0,     -1};
    static const char* const kLines[] = {"",
                                         "1",
                                         "2+3*4",
                                         "A=5;B=A*2",
                                         "1/0",
                                         "1+",
                                         "#",
                                         "SETMENU(TRUE)",
                                         "  ",
                                         "SETMENU(FALSE)",
                                         "N=9999999;B=2;A=0",
                                         "INTEGRAL(X^3+SIN X)",
                                         "2000000000!",
                                         "A=1;ZERO(X^2+1)",
                                         "ZERO(X^2-2)",
                                         "NOT 0",
                                         "ACC+1",
                                         "\xF0\x9D\x95\x8F",
                                         "A=0;1/A",
                                         "B101+$FF"};
    static constexpr char kCharacters[] = {'1', '+', '=', '(', ')', 'x', '!', ' ', '#', '^', '.', '/'};
    static constexpr CalcKey kKeys[] = {CalcKey::kEnter,     CalcKey::kEscape, CalcKey::kDelete, CalcKey::kLeft,
                                        CalcKey::kRight,     CalcKey::kUp,     CalcKey::kDown,   CalcKey::kBases,
                                        CalcKey::kVariables, CalcKey::kSolver, CalcKey::kAltF4};
    switch (Number(14)) {
      case 0:
        Line(One(kLines));
        break;
      case 1:
        Type(std::string(1, One(kCharacters)));
        break;
      case 2:
        Button(One(kCommands));
        break;
      case 3:
        Menu(One(kCommands));
        break;
      case 4:
      case 5:
        Key(One(kKeys), Number(4) == 0);
        break;
      case 6:
        Mark(Number(1 + static_cast<int>(view->line.size())), Number(1 + static_cast<int>(view->line.size())));
        if (view->selection.start > view->selection.end) std::swap(view->selection.start, view->selection.end);
        break;
      case 7:
        timers.Advance(Number(600));
        break;
      case 8:
        for (int pieces = Number(30); pieces > 0; --pieces) Work();
        break;
      case 9:
        if (tool->IsListOpen() && !view->rows.empty()) Pick({Number(static_cast<int>(view->rows.size()))});
        break;
      case 10:
        if (!view->variables.empty()) view->variable = Number(1 + static_cast<int>(view->variables.size())) - 1;
        PickVariable();
        break;
      case 11:
        Number(2) == 0 ? DoubleClickList() : PressLine();
        break;
      case 12:
        if (Number(2) == 0) cnc.Set(u"E.CALCRESUL", 0.37 * Number(1000));
        HandleValue();
        break;
      default:
        if (Number(8) == 0) Key(CalcKey::kInsert);
        if (Number(8) == 0) Command(Number(40));
        if (Number(8) == 0) Menu(calc_id::kMenuMachining);
        break;
    }
  }

  void Check() {
    if (view->closing) {
      EXPECT_EQ(timers.Running(), 0u);
      EXPECT_FALSE(tool->IsComputing());
      return;
    }
    EXPECT_EQ(view->working, tool->IsComputing());
    const bool variables = view->shown.count(calc_id::kVariables) != 0 && view->Shows(calc_id::kVariables);
    const bool history = view->shown.count(calc_id::kHistory) != 0 && view->Shows(calc_id::kHistory);
    EXPECT_FALSE(variables && history);
    EXPECT_EQ(history, tool->IsListOpen());
    for (int key = 1013; key <= 1036; ++key) EXPECT_EQ(view->Shows(key), !variables && !history);
    EXPECT_EQ(view->attached != 0, tool->IsMenuAttached());
    EXPECT_LE(view->selection.end, static_cast<int>(view->line.size()));
    EXPECT_TRUE(view->visible);
    EXPECT_EQ(timers.Running(), 1u);
    EXPECT_EQ(Item(calc_id::kMenuBase)->bitmap, 365 + tool->NumberBase());
    EXPECT_EQ(Item(calc_id::kMenuAngle)->bitmap, tool->Radians() ? 369 : 368);
    EXPECT_TRUE(view->height == 221 || view->height == 87);
    EXPECT_EQ(Item(calc_id::kMenuCompact)->checked, view->height == 87);
    const bool saysSo = Status() == "Confirming" || Status() == "Computing";
    EXPECT_TRUE(!saysSo || tool->IsComputing());
    if (!tool->IsComputing() && view->line.empty() && !history && view->selection == TextSelection{}) {
      EXPECT_TRUE(Status() == "Empty" || Status().starts_with("Failed: ")) << Status();
    }
  }

  std::mt19937 random{GetParam()};
};

TEST_P(CalcRandomTest, StaysConsistent) {
  files.disc["C:\\P1\\calc.htr"] = "1+1\r\n2+2\r\n";
  Open();
  for (int step = 0; step < 4000 && !HasFailure(); ++step) {
    if (!view->closing) Act();
    Check();
    log.clear();
    if (view->closing && Number(3) == 0) {
      DestroyTool();
      MakeTool();
      Open();
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Seeds, CalcRandomTest, testing::Range(1U, 5U));

}  // namespace
}  // namespace pnl::test
