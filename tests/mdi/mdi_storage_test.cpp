// SPDX-License-Identifier: MIT
// What the operator is told about the command line's files.
#include "mdi_fixture.h"

namespace pnl::test {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

class MdiStorage : public MdiTest {};

TEST_F(MdiStorage, WhatCouldNotBeSavedAtTheEndIsNamedOnTheMessageLine) {
  // A full disc was silent, and the session's blocks were gone.
  Open();
  RunBlock("G0 X1");
  files.full = true;
  Forget();
  DestroyTool();
  EXPECT_THAT(Asked(), Contains("message \"not saved: MDIMAN.INI, MDIC1.DAT, MDAC1.DAT\""));
}

TEST_F(MdiStorage, AProtectedFileIsNamedAlone) {
  files.disc["C:\\P108\\MDIC1.DAT"] = "old\r\n";
  files.readOnly = {"C:\\P108\\MDIC1.DAT"};
  Open();
  RunBlock("G0 X1");
  Forget();
  DestroyTool();
  EXPECT_THAT(Asked(), Contains("message \"not saved: MDIC1.DAT\""));
}

TEST_F(MdiStorage, WhatIsSavedIsNotSpokenOf) {
  Open();
  RunBlock("G0 X1");
  Forget();
  DestroyTool();
  EXPECT_THAT(Asked(), Not(Contains(HasSubstr("not saved"))));
}

TEST_F(MdiStorage, AListBeyondTenMegabytesIsSaidToBeSlow) {
  DestroyTool();
  std::string& list = files.disc["C:\\P108\\MDAC1.DAT"];
  const std::string row = std::string(1023, 'X') + "\n";
  while (list.size() < 10u << 20) list += row;
  MakeTool();
  Open();
  EXPECT_THAT(Asked(), Not(Contains(HasSubstr("slow"))));
  DestroyTool();
  list += '\n';
  MakeTool();
  Open();
  const Log asked = Asked();
  ASSERT_FALSE(asked.empty());
  EXPECT_EQ(asked.back(), "message \"MDAC1.DAT is slow\"") << "after everything that clears the line";
}

}  // namespace
}  // namespace pnl::test
