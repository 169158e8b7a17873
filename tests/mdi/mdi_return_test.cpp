// SPDX-License-Identifier: MIT
// A window that comes back after its channel waited, was given back or couldn't be given back: whatever the way, in
// State 1 the operator can write and choose in it as its role says.
#include "mdi_fixture.h"

namespace pnl::test {
namespace {

using Focus = FakeMdiView::Focus;

enum class Kind { kMdi, kMda, kMdaNew, kMdaChange };

struct ReturnRow {
  const char* name;
  void (*go)(MdiRig& rig);  // from a running block to an open window in State 1
};

void AutomaticWork(MdiRig& rig, bool waits) {
  std::int32_t& word = rig.cnc.vars.At("[1].G.CNCAUTSTATUS").value;
  word = waits ? word | 0x1000 : word & ~0x1000;
}

const ReturnRow kReturns[] = {
    {"ClosedByCode5AndOpenedAgain",
     [](MdiRig& rig) {
       EXPECT_EQ(rig.Command(5), 1);
       rig.Status(1);
       EXPECT_EQ(rig.Command(2), 0);
     }},
    {"ClosedByCode5AndOpenedAgainBeforeItsEnd",
     [](MdiRig& rig) {
       EXPECT_EQ(rig.Command(5), 1);
       EXPECT_EQ(rig.Command(2), 0);
       rig.Status(1);
     }},
    {"ClosedForAutomaticWorkByCode10AndOpenedAgain",
     [](MdiRig& rig) {
       AutomaticWork(rig, true);
       EXPECT_EQ(rig.Command(10), 0);
       rig.Status(1);
       AutomaticWork(rig, false);
       EXPECT_EQ(rig.Command(2), 0);
     }},
    {"ClosedForAutomaticWorkAtTheEndOfTheBlockAndOpenedAgain",
     [](MdiRig& rig) {
       AutomaticWork(rig, true);
       rig.Status(1);
       EXPECT_FALSE(rig.view->visible);
       AutomaticWork(rig, false);
       EXPECT_EQ(rig.Command(2), 0);
     }},
    {"StillOpenBecauseTheInterlockWasRefusedToAutomaticWork",
     [](MdiRig& rig) {
       AutomaticWork(rig, true);
       rig.cnc.kernel.returns["CogerPlcFree"] = 0;
       rig.Status(1);
     }},
    {"HiddenByCode5WithoutTheInterlockAndOpenedAgain",
     [](MdiRig& rig) {
       EXPECT_EQ(rig.Command(5), 1);
       rig.cnc.kernel.returns["CogerPlcFree"] = 0;
       rig.Status(1);
       EXPECT_EQ(rig.Command(2), 0);
     }},
    {"HiddenByCode5WithoutTheInterlockAndShownAgain",
     [](MdiRig& rig) {
       EXPECT_EQ(rig.Command(5), 1);
       rig.cnc.kernel.returns["CogerPlcFree"] = 0;
       rig.Status(1);
       EXPECT_EQ(rig.Command(4), 0);
       rig.view->Move(Focus::kWindow);
     }},
    {"HiddenByCode3AndOpenedAgain",
     [](MdiRig& rig) {
       EXPECT_EQ(rig.Command(3), 0);
       rig.Status(1);
       EXPECT_EQ(rig.Command(2), 0);
     }},
    {"HiddenByCode3AndShownAgain",
     [](MdiRig& rig) {
       EXPECT_EQ(rig.Command(3), 0);
       rig.Status(1);
       EXPECT_EQ(rig.Command(4), 0);
       rig.view->Move(Focus::kWindow);
     }},
    {"HiddenByEscapeAndOpenedAgain",
     [](MdiRig& rig) {
       EXPECT_TRUE(rig.Key(MdiKey::kEscape));
       rig.Status(1);
       EXPECT_EQ(rig.Command(2), 0);
     }},
    {"HiddenByCode3AndGivenBackByCode5AndOpenedAgain",
     [](MdiRig& rig) {
       EXPECT_EQ(rig.Command(3), 0);
       rig.Status(1);
       EXPECT_EQ(rig.Command(5), 0);
       EXPECT_EQ(rig.Command(2), 0);
     }},
};

class MdiBack : public MdiTest {
 protected:
  void Run(Kind kind) {
    if (kind == Kind::kMdi) {
      Open();
    } else {
      OpenMda("A\r\nB\r\n");
    }
    if (kind == Kind::kMdaNew) Menu(32773);
    if (kind == Kind::kMdaChange) Menu(32772);
    if (kind != Kind::kMda) Type("G1 X9");
    Start();
    Status(2);
    ASSERT_TRUE(cnc.kernel.blockInHand);
    ASSERT_TRUE(view->readOnly);
  }
  void ExpectUsable(bool mda, bool editing) {
    EXPECT_TRUE(view->visible);
    EXPECT_EQ(view->readOnly, mda && !editing);
    EXPECT_EQ(view->focus, mda && !editing ? Focus::kList : Focus::kEdit);
    if (mda) {
      EXPECT_TRUE(view->listEnabled);
    }
  }
};

class MdiReturn : public MdiBack, public testing::WithParamInterface<std::tuple<ReturnRow, Kind>> {};

TEST_P(MdiReturn, FindsTheWindowUsable) {
  const auto& [way, kind] = GetParam();
  Run(kind);
  way.go(*this);
  const bool mda = kind != Kind::kMdi;
  ExpectUsable(mda, false);
  if (!mda) return;
  // And an edit in such a window begins and ends as in any other.
  Menu(32773);
  ExpectUsable(true, true);
  Menu(32774);
  ExpectUsable(true, false);
}

std::string NameOf(const testing::TestParamInfo<std::tuple<ReturnRow, Kind>>& row) {
  const char* const kinds[] = {"Mdi", "Mda", "MdaNew", "MdaChange"};
  return std::string(std::get<0>(row.param).name) + kinds[static_cast<int>(std::get<1>(row.param))];
}

INSTANTIATE_TEST_SUITE_P(AllWays, MdiReturn,
                         testing::Combine(testing::ValuesIn(kReturns),
                                          testing::Values(Kind::kMdi, Kind::kMda, Kind::kMdaNew, Kind::kMdaChange)),
                         NameOf);

TEST_F(MdiBack, AnItemAbortedWhileTheCloseWaitedIsStillInTheEdit) {
  Run(Kind::kMdaNew);
  Status(4);
  EXPECT_EQ(Command(5), 1);
  Status(8);
  EXPECT_EQ(Command(2), 0);
  EXPECT_EQ(view->edit, u"G1 X9");
  ExpectUsable(true, true);
}

TEST_F(MdiBack, AnAbortOutOfSightLeavesTheListsEditReadOnly) {
  Run(Kind::kMda);
  Status(4);
  EXPECT_EQ(Command(5), 1);
  Status(8);
  EXPECT_EQ(Command(2), 0);
  ExpectUsable(true, false);
}

TEST_F(MdiBack, AWindowThatComesBackWhileItsBlockRunsCannotBeWrittenInto) {
  Run(Kind::kMda);
  EXPECT_EQ(Command(5), 1);
  EXPECT_EQ(Command(2), 0);
  EXPECT_TRUE(view->readOnly);
  EXPECT_FALSE(view->listEnabled);
}

TEST_F(MdiBack, AnEditThatEndsOutOfSightLeavesTheLineReadOnly) {
  OpenMda("A\r\n");
  Menu(32773);
  Command(3);
  Menu(32774);
  EXPECT_TRUE(view->readOnly);
}

TEST_F(MdiBack, AnEditEndedByACloseThatIsRefusedLeavesTheListUsable) {
  OpenMda("A\r\n");
  Menu(32773);
  cnc.kernel.returns["CogerPlcFree"] = 0;
  EXPECT_EQ(Command(5), 0);
  ExpectUsable(true, false);
}

}  // namespace
}  // namespace pnl::test
