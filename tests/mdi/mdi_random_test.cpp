// SPDX-License-Identifier: MIT
// Long random sessions: commands, keys, reports, refusals, failures and the end of the window in any order. Whatever
// comes, some things hold; they are checked after every step.
#include <random>
#include <set>

#include "mdi_fixture.h"

namespace pnl::test {
namespace {

constexpr int kSteps = 600;

const char* const kBlocks[] = {"", "G0 X1", "G0 X2", "M3", "M30", "%s%n%d", "\xE2\x82\xAC \xC3\xB1", " "};
const MdiKey kKeys[] = {MdiKey::kTab, MdiKey::kEnter, MdiKey::kEscape, MdiKey::kUp, MdiKey::kDown, MdiKey::kDelete};

class Session : public MdiRig {
 public:
  explicit Session(unsigned seed) : random_(seed) {
    files.disc["C:\\P108\\MDIMAN.INI"] = "[PRIVATE]\r\nNItems=100000\r\n";
    if (Roll(2) == 0) cnc.kernel.returns["IsNewInspecAllowed"] = 1;
    DestroyTool();
    files.disc["C:\\P108\\MDIMAN.INI"] = "[PRIVATE]\r\nNItems=100000\r\n";
    MakeTool();
    Forget();
  }

  void Step() {
    switch (Roll(16)) {
      case 0:
      case 1:
        Start();
        break;
      case 2:
        if (!Running() || Roll(5) == 0) Type(kBlocks[Roll(std::size(kBlocks))]);
        break;
      case 3:
      case 4:
        Report();
        break;
      case 5:
        Command(std::array{2, 2, 2, 3, 4, 5, 6, 7, 8, 8, 99}[Roll(11)], Roll(8) == 0 ? Roll(4) - 1 : 1);
        break;
      case 6:
        Command(10, static_cast<std::intptr_t>(Roll(3)) << 16 | 1);
        break;
      case 7:
        Menu(Roll(2) == 0 ? 32771 + Roll(6) : 40000 + Roll(7));
        break;
      case 8:
        static_cast<void>(Key(kKeys[Roll(std::size(kKeys))]));
        break;
      case 9:
        Drop();
        break;
      case 10:
        MoveFocus();
        break;
      case 11:
        Messages();
        break;
      case 12:
        Answers();
        break;
      case 13:
        Failures();
        break;
      case 14:
        Select();
        break;
      default:
        if (Roll(8) == 0) Restart();
        break;
    }
    Drain();
    Check();
  }

  void End() {
    Restart();
    const std::string history = Disc("MDIC1.DAT");
    for (const std::string& block : ran_) {
      EXPECT_NE(("\r\n" + history).find("\r\n" + block + "\r\n"), std::string::npos) << block << " was lost";
    }
  }

 private:
  int Roll(std::size_t sides) { return static_cast<int>(random_() % sides); }
  [[nodiscard]] bool Running() const { return tool->ControlColors(MdiControl::kOther, false).has_value(); }

  void Report() {
    const std::string sent = Running() ? inHand_ : "";
    const int byte = std::array{1, 1, 1, 2, 2, 4, 8, 0, 3}[Roll(9)];
    Status(byte, std::array{0, 1, 4, 5, 6, 15}[Roll(6)]);
    if (!sent.empty() && tool && !Running()) ran_.insert(sent);
    if (cnc.vars.At("[1].G.FULLSTATUS").value >> 8 != 1 && Roll(2) == 0) {
      cnc.vars.At("[1].G.FULLSTATUS").value = 0x100;
      cnc.kernel.blockInHand = false;
    }
  }
  void Drop() {
    if (Roll(3) == 0) Tell([ended = Roll(2) == 0](MdiSession& session) { session.OnLeftPress(ended); });
    if (view->dropList != nullptr && Roll(2) == 0) view->dropSelected = Roll(view->dropItems.size() + 1) - 1;
    if (Roll(2) == 0) {
      view->OkInDropList();
    } else {
      view->CancelInDropList();
    }
    if (Roll(5) == 0) Send(RegisterMessage("MDI_ENDLIST"), Roll(4));
  }
  void MoveFocus() {
    if (!view->visible) return;
    const auto to = static_cast<FakeMdiView::Focus>(Roll(5));
    if (to == FakeMdiView::Focus::kList && (!view->listEnabled || !view->layout.listShown)) return;
    view->Move(to);
  }
  void Messages() {
    switch (Roll(5)) {
      case 0:
        Send(PNL_MSG_EXPLORER_ENDED, 5, Roll(2));
        break;
      case 1:
        Send(PNL_MSG_RESULT_READY, Roll(4));
        break;
      case 2:
        Send(PNL_MSG_HELP_KEY, 0);
        break;
      case 3:
        Send(PNL_MSG_CYCLE_START, Roll(6), 0);
        break;
      default:
        // A report of a window that closed meanwhile, or of nobody.
        Send(PNL_MSG_VARIABLE_REPORT, cnc.vars.Id("[1].G.FULLSTATUS") + Roll(3) - 1);
        break;
    }
  }
  void Answers() {
    cnc.kernel.returns["CogerPlcFree"] = Roll(4) != 0;
    cnc.kernel.returns["MDILine"] = Roll(4) == 0;
    cnc.kernel.returns["PosibleMDICancel"] = Roll(3);
    cnc.kernel.returns["EnProcesoInspec"] = Roll(4) == 0;
    cnc.vars.At("[1].G.CNCAUTSTATUS").value ^= Roll(6) == 0 ? 0x1000 : 0;
    cnc.vars.At("[1].E.STARTONMDI").value = Roll(3);
    if (Roll(3) == 0) cnc.vars.Set("[1].E.INSPECSTATUS", Roll(3));
  }
  void Failures() {
    cnc.vars.At("[1].G.FULLSTATUS").readable = Roll(4) != 0;
    cnc.vars.At("[1].E.INSPECSTATUS").readable = Roll(4) != 0;
    cnc.vars.At("[1].E.MANUALMODE").writable = Roll(4) != 0;
    cnc.vars.At("[1].E.MANUALMODE").value = Roll(3);
  }
  void Select() {
    if (Running()) return;
    view->selected = Roll(view->items.size() + 1) - 1;
    view->selection = {Roll(view->edit.size() + 1), static_cast<int>(view->edit.size())};
    std::tie(view->selection.start, view->selection.end) = std::minmax({view->selection.start, view->selection.end});
  }
  void Restart() {
    DestroyTool();
    EXPECT_EQ(menus.Count(), 0u) << "menus leak";
    EXPECT_EQ(cnc.vars.OpenReports(), 0u) << "reports leak";
    // A channel that was held when its window went is the host's to clean up.
    held_ = false;
    cnc.vars.At("[1].G.CNCAUTSTATUS").value &= 0x3F000;
    cnc.vars.At("[1].G.CNCMANSTATUS").value = 0;
    cnc.vars.At("[1].G.FULLSTATUS").value = 0x100;
    cnc.kernel.blockInHand = false;
    Forget();
    MakeTool();
  }

  void Check() {
    CheckCalls();
    const bool marked =
        ((cnc.vars.At("[1].G.CNCAUTSTATUS").value | cnc.vars.At("[1].G.CNCMANSTATUS").value) & 0x10000000) != 0;
    if (!held_) {
      EXPECT_FALSE(marked) << "a status word says MDI although the channel is not held";
    }
    Send(PNL_MSG_TOOL_NOTIFY, 1, 1);
    EXPECT_EQ(Asked(), held_ ? Log{"ToolNotify 41 channel 1"} : Log{}) << "InMDI and the kernel disagree";
    if (Running()) {
      EXPECT_TRUE(view->readOnly) << "a running block can be typed over";
      EXPECT_TRUE(held_) << "a block runs in a channel that is not held";
      EXPECT_EQ(view->dropList, nullptr);
    } else if (view->visible) {
      const bool mda = view->title == u"MDA";
      const bool editing = MdaItem(32774) != nullptr;
      if (!mda || editing) {
        EXPECT_FALSE(view->readOnly) << "the line can't be written into";
      }
      EXPECT_TRUE(!mda || view->listEnabled) << "the list can't be used";
    }
    EXPECT_LE(cnc.vars.OpenReports(), 2u);
    EXPECT_EQ(menus.Count(), 3u);
    EXPECT_EQ(view->visible && view->title == u"MDI" ? 800 : 0, view->blinking);
    EXPECT_EQ(MdaItem(32774) != nullptr, MdaItem(40003) == nullptr);
    EXPECT_EQ(MdaItem(32774) != nullptr, MdaItem(40004)->hidden);
  }
  void CheckCalls() {
    bool granted = false;
    for (const std::string& line : Asked()) {
      if (line == "CogerPlcFree(0,1)=1") granted = true;
      if (line.compare(0, 14, "LiberarPlcFree") == 0) {
        EXPECT_TRUE(granted) << "the interlock was given back without having been taken";
        granted = false;
      }
      if (line == "SetMdi(1,1)=1") {
        EXPECT_FALSE(held_) << "taken twice";
        held_ = true;
      }
      if (line == "SetMdi(1,0)=1") {
        EXPECT_TRUE(held_) << "given back twice";
        held_ = false;
      }
      if (line.compare(0, 8, "MDILine(") == 0) {
        EXPECT_TRUE(granted) << "a block was sent without the interlock";
        EXPECT_TRUE(held_) << "a block was sent into a channel that is not held";
        if (line.back() == '0') inHand_ = line.substr(11, line.rfind("\",0,4") - 11);
      }
    }
  }

  std::mt19937 random_;
  bool held_ = false;
  std::string inHand_;
  std::set<std::string> ran_;
};

class MdiRandom : public testing::TestWithParam<unsigned> {};

TEST_P(MdiRandom, SessionsKeepTheirInvariants) {
  Session session(GetParam());
  for (int step = 0; step < kSteps; ++step) {
    session.Step();
    ASSERT_FALSE(testing::Test::HasFailure()) << "seed " << GetParam() << ", step " << step;
  }
  session.End();
}

INSTANTIATE_TEST_SUITE_P(Seeds, MdiRandom, testing::Range(1u, 41u));

}  // namespace
}  // namespace pnl::test
