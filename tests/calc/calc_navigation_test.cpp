// SPDX-License-Identifier: MIT
// The keys ahead of the controls, each with and without Ctrl, with the list closed and open.
#include "calc_fixture.h"

namespace pnl::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

struct KeyRow {
  const char* name;
  CalcKey key;
  bool ctrl;
  bool list;  // open
  bool taken;
  Log asked;  // without what opening and closing the list shows
};

class CalcKeyTest : public testing::TestWithParam<KeyRow>, public CalcRig {};

bool IsAboutLayout(const std::string& line) {
  for (const char* start : {"view show ", "view hide ", "view place ", "view focus ", "view caret ", "view status "}) {
    if (line.starts_with(start)) return true;
  }
  return false;
}

TEST_P(CalcKeyTest, DoesWhatItsRowSays) {
  const KeyRow& row = GetParam();
  files.disc["C:\\P52\\Calc7340.ini"] = "[COMMON]\r\nWindow=100,50\r\n";
  Open();
  Confirm("1+1");
  Line("8");
  if (row.list) {
    Key(CalcKey::kUp);
    Pick({0});
  }
  log.clear();
  EXPECT_EQ(Key(row.key, row.ctrl), row.taken);
  Log asked = All();
  std::erase_if(asked, IsAboutLayout);
  EXPECT_EQ(asked, row.asked);
}

const KeyRow kRows[] = {
    {"Enter", CalcKey::kEnter, false, false, true, {"view result 8", "view row 0 \"8\"", "view line \"\""}},
    {"EnterOnTheList", CalcKey::kEnter, false, true, true, {"view line \"1+1\""}},
    {"CtrlEnter", CalcKey::kEnter, true, false, true, {"view move 0,0"}},
    {"CtrlEnterOnTheList", CalcKey::kEnter, true, true, true, {"view move 0,0"}},
    {"Escape", CalcKey::kEscape, false, false, true, {"HostToolWantsClose(3)"}},
    {"EscapeOnTheList", CalcKey::kEscape, false, true, true, {"view line \"8\""}},
    {"CtrlEscape", CalcKey::kEscape, true, false, false, {}},
    {"CtrlEscapeOnTheList", CalcKey::kEscape, true, true, false, {}},
    {"Insert",
     CalcKey::kInsert,
     false,
     false,
     true,
     {"view result 8", "view row 0 \"8\"", "view line \"\"", "write E.CALCRESUL=8.0 ok", "view hide",
      "HostToolClosed(3,1)", "HostCalcResultAccepted", "view destroy"}},
    {"CtrlInsert", CalcKey::kInsert, true, false, false, {}},
    {"Delete", CalcKey::kDelete, false, false, false, {}},
    {"DeleteOnTheList", CalcKey::kDelete, false, true, true, {"view delete row 0"}},
    {"CtrlDelete", CalcKey::kDelete, true, false, false, {}},
    {"CtrlDeleteOnTheList", CalcKey::kDelete, true, true, false, {}},
    {"Left", CalcKey::kLeft, false, false, false, {}},
    {"LeftOnTheList", CalcKey::kLeft, false, true, false, {}},
    {"Right", CalcKey::kRight, false, false, false, {}},
    {"CtrlLeft", CalcKey::kLeft, true, false, true, {"view move 92,50"}},
    {"CtrlRight", CalcKey::kRight, true, false, true, {"view move 108,50"}},
    {"CtrlUp", CalcKey::kUp, true, false, true, {"view move 100,42"}},
    {"CtrlDown", CalcKey::kDown, true, false, true, {"view move 100,58"}},
    {"CtrlDownOnTheList", CalcKey::kDown, true, true, true, {"view move 100,58"}},
    {"Up", CalcKey::kUp, false, false, true, {}},
    {"Down", CalcKey::kDown, false, false, true, {}},
    {"UpOnTheList", CalcKey::kUp, false, true, false, {"view line \"1+1\""}},
    {"DownOnTheList", CalcKey::kDown, false, true, false, {"view line \"1+1\""}},
    {"AltF4", CalcKey::kAltF4, false, false, true, {"view close panel"}},
    {"AltF4OnTheList", CalcKey::kAltF4, false, true, true, {"view close panel"}},
    {"CtrlAltF4", CalcKey::kAltF4, true, false, false, {}},
    {"CtrlBases", CalcKey::kBases, true, false, false, {}},
};

INSTANTIATE_TEST_SUITE_P(Rows, CalcKeyTest, testing::ValuesIn(kRows),
                         [](const auto& row) { return std::string(row.param.name); });

class CalcNavigationTest : public OpenCalcTest {};

TEST_F(CalcNavigationTest, AtTheEdgeTheWindowStaysAndTheKeyIsTakenAllTheSame) {
  view->left = 776;
  log.clear();
  EXPECT_TRUE(Key(CalcKey::kRight, true));
  EXPECT_THAT(log, IsEmpty());
  EXPECT_TRUE(Key(CalcKey::kLeft, true));
  EXPECT_EQ(view->left, 768);
}

TEST_F(CalcNavigationTest, UpOpensTheListAndDownGoesToIt) {
  EXPECT_TRUE(Key(CalcKey::kUp));
  EXPECT_TRUE(tool->IsListOpen());
  EXPECT_FALSE(Key(CalcKey::kUp));
  EXPECT_TRUE(tool->IsListOpen());
}

TEST_F(CalcNavigationTest, AHostThatClosesTheToolOnItsWishFindsNothingHalfDone) {
  onHostCall = [this](const std::string& call) {
    if (call != "HostToolWantsClose(3)") return;
    EXPECT_EQ(Command(20), 2);
  };
  EXPECT_TRUE(Key(CalcKey::kEscape));
  EXPECT_THAT(All(), ElementsAre("HostToolWantsClose(3)", "view hide", "HostToolClosed(3,2)", "view destroy"));
}

}  // namespace
}  // namespace pnl::test
