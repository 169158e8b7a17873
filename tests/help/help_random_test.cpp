// SPDX-License-Identifier: MIT
// Thousands of seeded steps of host, operator and slow manuals against a plain model: which manual is open, which pane
// is shown, where the focus is, and what the host was asked to do.
#include <random>

#include "help/help_rig.h"

namespace pnl::test {
namespace {

/// What the viewer should be in.
struct Model {
  bool visible = false;
  std::string manual;  // the open one, or that which is being opened; empty for none
  bool loaded = false;
  std::string missing;
  HelpPane pane = HelpPane::kContents;
  bool panes = true;
  HelpPart part = HelpPart::kNone;
  bool find = false;
  int openings = 0;
  int closings = 0;
  int wishes = 0;

  void Drop() {
    manual.clear();
    loaded = false;
    find = false;
  }
  [[nodiscard]] HelpPart First() const {
    return pane == HelpPane::kContents ? HelpPart::kContents
           : pane == HelpPane::kIndex  ? HelpPart::kIndexLine
                                       : HelpPart::kSearchLine;
  }
  void Next() {
    if (manual.empty()) return;
    using enum HelpPart;
    if (!panes) {
      part = kPage;
    } else if (part == kPage || part == kFindLine) {
      part = First();
    } else if (part == kIndexLine) {
      part = kIndexList;
    } else if (part == kSearchLine) {
      part = kResults;
    } else {
      part = kPage;
    }
  }
  void ShowPane(HelpPane which, bool canHide) {
    if (manual.empty()) return;
    panes = !canHide || !panes || pane != which;
    pane = which;
    part = panes ? First() : HelpPart::kPage;
  }
};

class HelpRandom : public HelpToolTest {
 protected:
  void Walk(unsigned seed, int steps) {
    random_.seed(seed);
    model_ = {};
    world.slow = false;
    MakeTool();
    onHostCall = [this](const std::string& call) {
      asked_.opened += call == "HostToolOpening(2)" ? 1 : 0;
      asked_.closed += call == "HostToolClosed(2,2)" ? 1 : 0;
      asked_.wished += call == "HostToolWantsClose(2)" ? 1 : 0;
    };
    asked_ = {};
    for (int step = 0; step < steps && !HasFailure(); ++step) {
      Step();
      Check();
      Forget();
    }
    onHostCall = nullptr;
    DestroyTool();
  }

 private:
  int Below(int limit) { return std::uniform_int_distribution<int>(0, limit - 1)(random_); }

  void Begin(const std::string& path) {
    model_.Drop();
    model_.manual = path;
    model_.missing.clear();
    if (world.slow) return;
    Arrive();
  }
  /// The answer of the shelf.
  void Arrive() {
    const OpenedBook answer = FakeShelf(world, log).Answer(model_.manual);
    if (answer.book != nullptr) {
      model_.loaded = true;
      return;
    }
    model_.Drop();
    model_.missing = "unusable prog.chm";
  }

  void Open() {
    struct Row {
      TextView mark;
      const char* manual;  // null: it doesn't open
    };
    static constexpr Row kRows[] = {{u"OPT0130", "oper.chm"}, {u"OPT0777", "oper.chm"}, {u"PRG0001", nullptr},
                                    {u"NIX0000", "gone.chm"}, {u"", nullptr},           {u"XYZ1", nullptr},
                                    {u"PRG0000", "prog.chm"}};
    const Row& row = kRows[static_cast<std::size_t>(Below(static_cast<int>(std::size(kRows))))];
    SetMark(row.mark);
    ++model_.openings;
    const bool boxed = row.mark == u"OPT0777" || row.mark == u"XYZ1" || row.mark == u"PRG0001";
    if (boxed) model_.part = HelpPart::kNone;  // the box gave the focus to the parent
    const bool opens = row.manual != nullptr || row.mark == u"PRG0001";
    if (!opens) {
      ++model_.closings;
      EXPECT_EQ(Command(PNL_COMMAND_OPEN), -200);
      return;
    }
    const std::string name = row.manual == nullptr ? "prog.chm" : row.manual;
    if (name == "gone.chm") {
      model_.Drop();
      model_.missing = "File not found.";
    } else {
      Begin("C:\\P113\\" + name);
    }
    model_.visible = true;
    model_.part = HelpPart::kNone;
    model_.Next();
    EXPECT_EQ(Command(PNL_COMMAND_OPEN), 0);
  }

  void Close() {
    static constexpr int kCommands[] = {PNL_COMMAND_HIDE, PNL_COMMAND_LEAVE, PNL_COMMAND_CLOSE_TOOL};
    const int command = kCommands[Below(3)];
    ++model_.closings;
    model_.visible = false;
    model_.part = HelpPart::kNone;
    model_.Drop();
    EXPECT_EQ(Command(command), command == PNL_COMMAND_CLOSE_TOOL ? 2 : 0);
  }

  void GoToManual() {
    static constexpr TextView kNames[] = {u"oper.chm", u"prog.chm", u"gone.chm", u""};
    const TextView name = kNames[Below(4)];
    if (name == u"oper.chm" || name == u"prog.chm") Begin("C:\\P113\\" + ToUtf8(name));
    GoTo(name);
  }

  void PressMenu() {
    static constexpr int kIds[] = {2001, 2003, 2006, 2000, 2002, 2005, 40002, 4, 0};
    const int id = kIds[Below(9)];
    if (id == 2001) model_.ShowPane(HelpPane::kContents, true);
    if (id == 2003) model_.ShowPane(HelpPane::kIndex, true);
    if (id == 2006) model_.ShowPane(HelpPane::kSearch, true);
    if (id == 40002 && !model_.manual.empty()) {
      model_.find = true;
      model_.part = HelpPart::kFindLine;
    }
    Menu(id);
  }

  void PressKey() {
    static constexpr HelpKey kKeys[] = {HelpKey::kTab,    HelpKey::kUp,   HelpKey::kDown, HelpKey::kEnter,
                                        HelpKey::kEscape, HelpKey::kFind, HelpKey::kOther};
    const HelpKey key = kKeys[Below(7)];
    bool consumed = key != HelpKey::kOther;
    if (key == HelpKey::kEscape) {
      if (model_.part == HelpPart::kFindLine) {
        model_.find = false;
        model_.part = model_.manual.empty() ? model_.part : HelpPart::kPage;
      } else {
        ++model_.wishes;
      }
    } else if (key == HelpKey::kFind) {
      consumed = !model_.manual.empty();
      if (consumed) {
        model_.find = true;
        model_.part = HelpPart::kFindLine;
      }
    }
    EXPECT_EQ(Key(key), consumed);
  }

  void Step() {
    switch (Below(10)) {
      case 0:
      case 1:
        return Open();
      case 2:
        return Close();
      case 3:
        return GoToManual();
      case 4:
      case 5:
        return PressMenu();
      case 6:
        return PressKey();
      case 7:
        model_.Next();
        Command(PNL_COMMAND_RESTORE_FOCUS);
        return;
      case 8: {
        const auto pane = static_cast<HelpPane>(Below(3));
        model_.ShowPane(pane, false);
        Call(&HelpSession::OnPaneTab, pane);
        return;
      }
      default:
        return Shelve();
    }
  }

  /// The shelf gets slow or quick, or answers, or damages a manual.
  void Shelve() {
    if (world.done) {
      const auto done = std::exchange(world.done, nullptr);
      const OpenedBook answer = FakeShelf(world, log).Answer(model_.manual);
      Arrive();
      done(answer);
      return;
    }
    if (model_.manual.empty() || model_.loaded) world.slow = Below(2) == 0;
    const bool usable = Below(3) != 0;
    world.books["C:\\P113\\prog.chm"] = {usable ? ManualState::kDamaged : ManualState::kUnusable,
                                         usable ? other : nullptr};
  }

  void Check() {
    EXPECT_EQ(view->visible, model_.visible);
    EXPECT_EQ(tool->HasHelpWindow(), !model_.manual.empty());
    EXPECT_EQ(view->bookShown, !model_.manual.empty());
    EXPECT_EQ(!view->shownPage.empty(), model_.loaded);
    EXPECT_EQ(view->contents.empty(), !model_.loaded);
    EXPECT_EQ(view->missing, model_.missing);
    EXPECT_EQ(tool->Pane(), model_.pane);
    EXPECT_EQ(tool->ArePanesShown(), model_.panes);
    EXPECT_EQ(view->part, model_.part);
    EXPECT_EQ(view->findOpen, model_.find);
    EXPECT_EQ(asked_.opened, model_.openings);
    EXPECT_EQ(asked_.closed, model_.closings);
    EXPECT_EQ(asked_.wished, model_.wishes);
    EXPECT_LE(tool->Recent().All().size(), RecentPages::kMost);
    EXPECT_EQ(static_cast<bool>(world.done), !model_.manual.empty() && !model_.loaded);
  }

  struct Requests {
    int opened = 0;
    int closed = 0;
    int wished = 0;
  };
  std::mt19937 random_;
  Model model_;
  Requests asked_;
};

TEST_F(HelpRandom, TheViewerAgreesWithTheModelWhateverComes) {
  Disc("C:\\P113\\prog.mrk") = "[MARKS]\r\nPRG0000=home.htm\r\n";
  for (unsigned seed = 1; seed <= 40 && !HasFailure(); ++seed) {
    SCOPED_TRACE("seed " + std::to_string(seed));
    Walk(seed, 200);
  }
}

}  // namespace
}  // namespace pnl::test
