// SPDX-License-Identifier: MIT
// The ends of the help viewer: whoever destroys its window, in whatever call, the operation under way ends without it.
#include "help/help_rig.h"
#include "support/deleting_host.h"

namespace pnl::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::IsSupersetOf;

class HelpEnd : public HelpToolTest {
 protected:
  FatalScene Scene(std::vector<std::function<void()>> steps) {
    return {[this] { MakeTool(); }, std::move(steps), [this] { DestroyTool(); },
            [this] {
              DestroyTool();
              EXPECT_EQ(menus.Count(), 0u);
              EXPECT_EQ(timers.Running(), 0u);
              EXPECT_EQ(cnc.OpenReports(), 0u);
            }};
  }
  std::function<void()> Opening(TextView mark) {
    return [this, mark] {
      SetMark(mark);
      Command(PNL_COMMAND_OPEN);
    };
  }
  std::function<void()> Sending(int command) {
    return [this, command] { Command(command); };
  }
};

TEST_F(HelpEnd, TheWindowMayGoInEveryCallOfTheHost) {
  DeletingHost killer(table);
  // A box counts as a call: its event loop may bring the end too.
  windows.onBox = [&] { killer.Called("box"); };
  const auto calls = PlayWithEachCallFatal(
      killer, Scene({Opening(u"OPT0130"), Opening(u"OPT0777"), Opening(u"XYZ"), Opening(u"NIX0000"), Opening(u""),
                     [this] { Key(HelpKey::kEscape); }, Sending(PNL_COMMAND_HIDE), Opening(u"OPT0130"),
                     Sending(PNL_COMMAND_LEAVE), Sending(PNL_COMMAND_CLOSE_TOOL)}));
  EXPECT_THAT(calls,
              IsSupersetOf({"HostSetMainMenu", "HostToolOpening", "HostToolClosed", "HostToolWantsClose", "box"}));
}

TEST_F(HelpEnd, TheWindowMayGoWhileAPageIsShown) {
  MakeTool();
  view->onPageShown = [this](TextView, TextView) { DestroyTool(); };
  SetMark(u"OPT0130");
  Command(PNL_COMMAND_OPEN);
  EXPECT_EQ(tool, nullptr);
}

TEST_F(HelpEnd, AnotherManualMayBeOpenedWhileAPageIsShown) {
  MakeTool();
  int depth = 0;
  view->onPageShown = [&](TextView page, TextView anchor) {
    Tell([&](HelpSession& session) { session.OnPageShown(page, anchor); });
    if (++depth == 1) GoTo(u"prog.chm");
  };
  SetMark(u"OPT0777");
  Command(PNL_COMMAND_OPEN);
  EXPECT_EQ(world.asked, "C:\\P113\\prog.chm");
  EXPECT_EQ(view->note, "") << "the first manual's note isn't for the second";
}

TEST_F(HelpEnd, TheWindowMayGoWhileAKeyIsSent) {
  for (const HelpKey key : {HelpKey::kTab, HelpKey::kUp, HelpKey::kDown, HelpKey::kEnter}) {
    MakeTool();
    OpenAt();
    view->onKey = [this](HelpKey, HelpPart) { DestroyTool(); };
    Key(key);
    EXPECT_EQ(tool, nullptr);
  }
}

TEST_F(HelpEnd, TheWindowMayGoInTheMessageThatThePickerSends) {
  MakeTool();
  OpenAt();
  view->choice = ManualChoice{ManualChoice::List::kManuals, 1};
  windows.onSend = [this](WindowHandle, const Message&) {
    DestroyTool();
    return 0;
  };
  Menu(2004);
  EXPECT_EQ(tool, nullptr);
}

TEST_F(HelpEnd, AnEndedToolAsksNobody) {
  MakeTool();
  OpenAt();
  const auto kept = tool;
  DestroyTool();
  Forget();
  for (const int command : {2, 3, 6, 7, 20}) {
    RunOperation(kept, [&](HelpSession& session) { session.OnToolCommand(command); });
  }
  kept->End();
  EXPECT_THAT(All(), IsEmpty());
}

TEST_F(HelpEnd, TwoToolsDontDisturbEachOther) {
  MakeTool();
  OpenAt();
  FakeHelpView second(log, windows);
  FakeShelf::World others = world;
  auto session = std::make_shared<HelpSession>(context, second, std::make_unique<FakeShelf>(others, log));
  RunOperation(session, [](HelpSession& each) { each.Start(); });
  RunOperation(session, [](HelpSession& each) { each.OnToolCommand(PNL_COMMAND_OPEN); });
  EXPECT_EQ(second.shownPage, view->shownPage);
  Command(PNL_COMMAND_HIDE);
  EXPECT_EQ(second.shownPage, "mdi.htm#OPT0130");
  session->End();
}

}  // namespace
}  // namespace pnl::test
