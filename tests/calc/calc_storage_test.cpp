// SPDX-License-Identifier: MIT
// What the operator is told about the calculator's files.
#include "calc_fixture.h"

namespace pnl::test {
namespace {

using testing::Contains;
using testing::HasSubstr;
using testing::Not;

class CalcStorage : public testing::Test, public CalcRig {};

TEST_F(CalcStorage, WhatCouldNotBeSavedIsNamedOnTheMessageLine) {
  // A full disc was silent, and the session's expressions were gone.
  MakeTool();
  Open();
  Confirm("1+1");
  files.full = true;
  DestroyTool();
  EXPECT_THAT(Asked(), Contains("message \"not saved: calc.htr, Calc7340.ini\""));
}

TEST_F(CalcStorage, WhatIsSavedIsNotSpokenOf) {
  MakeTool();
  Open();
  Confirm("1+1");
  DestroyTool();
  EXPECT_THAT(Asked(), Not(Contains(HasSubstr("message"))));
}

TEST_F(CalcStorage, ExpressionsComeInFrontOfAHistoryThatWasAwayWhenTheToolOpened) {
  files.disc["C:\\P1\\calc.htr"] = "old\r\n";
  files.away = {"C:\\P1"};
  MakeTool();
  Open();
  Confirm("1+1");
  files.away.clear();
  DestroyTool();
  EXPECT_EQ(files.disc["C:\\P1\\calc.htr"], "1+1\r\nold\r\n");
}

TEST_F(CalcStorage, APositionThatWasAwayWhenTheToolOpenedIsKept) {
  files.disc["C:\\P108\\Calc7340.ini"] = "; mine\r\n[COMMON]\r\nWindow=31,32\r\nMinimized=YES\r\n";
  const std::string before = files.disc["C:\\P108\\Calc7340.ini"];
  files.away = {"C:\\P108"};
  cnc.Returns("UTIL7340_DriveStatus", {0});
  MakeTool();
  Open();
  files.away.clear();
  DestroyTool();
  EXPECT_EQ(files.disc["C:\\P108\\Calc7340.ini"], before);
}

TEST_F(CalcStorage, AHistoryBeyondTenMegabytesIsSaidToBeSlow) {
  std::string& history = files.disc["C:\\P1\\calc.htr"];
  const std::string row = std::string(1023, '1') + "\n";
  while (history.size() <= 10u << 20) history += row;
  MakeTool();
  Open();
  EXPECT_THAT(Asked(), Contains("message \"calc.htr is slow\""));
}

}  // namespace
}  // namespace pnl::test
