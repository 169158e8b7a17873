// SPDX-License-Identifier: MIT
// The ends of the error manager: whoever destroys its window, in whatever call, the operation under way ends without
// it.
#include "errors/error_rig.h"
#include "support/deleting_host.h"

namespace pnl::test {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::IsSupersetOf;

class ErrorEnd : public ErrorToolTest {
 protected:
  ErrorEnd() {
    cnc.ErrorText("error_to_txt", 2000, u"\nbroken", u"C:\\H.TXT#7", false);
    cnc.ErrorText("error_to_txt", 2001, u"\nbroken", u"C:\\H.TXT#8", true);
  }
  /// A life from the making to the end; some calls of the host lie in each step.
  FatalScene Scene(std::vector<std::function<void()>> steps) {
    return {[this] { MakeTool(); }, std::move(steps), [this] { DestroyTool(); },
            [this] {
              DestroyTool();
              EXPECT_EQ(timers.Running(), 0u);
              EXPECT_EQ(cnc.OpenReports(), 0u);
              cnc.ClearErrors();
              windows.posted.clear();
            }};
  }
  std::function<void()> Pushing(const RecordBuilder& record) {
    return [this, record] { Push(record); };
  }
  std::function<void()> Pressing(ErrorKey key) {
    return [this, key] { Key(key); };
  }
  std::function<void()> Toggling() {
    return [this] { Tell([](ErrorSession& session) { session.OnHotKey(); }); };
  }
};

TEST_F(ErrorEnd, TheWindowMayGoInEveryCallOfTheHost) {
  DeletingHost killer(table);
  const auto calls = PlayWithEachCallFatal(
      killer,
      Scene({Pushing(RecordBuilder()), Pushing(RecordBuilder().Number(2000)), Toggling(), Toggling(),
             [this] { Click(0), DoubleClick(0); }, Toggling(), Pressing(ErrorKey::kRight),
             [this] { Click(error_id::kHelp); }, [this] { Tell([](ErrorSession& session) { session.HelpEnded(); }); },
             [this] { Notify(79, 1), Notify(79, 0); }, Toggling(), Pressing(ErrorKey::kEscape),
             Pressing(ErrorKey::kEscape)}));
  EXPECT_THAT(calls, IsSupersetOf({"HostToolOpening", "HostToolClosed", "HostErrorsGone", "HostShowError"}));
}

TEST_F(ErrorEnd, TheWindowMayGoWhileEachClassIsAcknowledged) {
  DeletingHost killer(table);
  for (const RecordBuilder& record :
       {RecordBuilder(), RecordBuilder().Marked(), RecordBuilder().Severity(0), RecordBuilder().Severity(7),
        RecordBuilder().Number(201).Severity(7), RecordBuilder().Number(3753)}) {
    const auto calls = PlayWithEachCallFatal(
        killer, Scene({Pushing(record), Pressing(ErrorKey::kEscape), Pressing(ErrorKey::kEnter), [this] {
                         cnc.ClearErrors();
                         Drain();
                       }}));
    EXPECT_THAT(calls, IsSupersetOf({"HostToolOpening", "HostToolClosed", "HostErrorsGone"}));
  }
}

TEST_F(ErrorEnd, TheWindowMayGoWhereErrorsAreHiddenOrOpenTheirHelp) {
  DeletingHost killer(table);
  for (const char* ini : {"", "[PRIVATE]\r\nHideWarnings=TRUE\r\n", "[PRIVATE]\r\nHideErrors=TRUE\r\n"}) {
    Ini() = ini;
    const auto calls = PlayWithEachCallFatal(
        killer,
        Scene({Pushing(RecordBuilder().Severity(0)), Toggling(), Pressing(ErrorKey::kEscape),
               Pushing(RecordBuilder().Number(2001)), Toggling(), Pressing(ErrorKey::kEscape), [this] { Notify(1, 1); },
               Pushing(RecordBuilder().Number(2001).Severity(0)), Pressing(ErrorKey::kEscape)}));
    EXPECT_THAT(calls, IsSupersetOf({"HostToolOpening", "HostToolClosed", "HostErrorsGone", "HostShowError"}));
  }
}

// The errors stand when the tool is made, so that its first reports open it.
TEST_F(ErrorEnd, TheWindowMayGoWhileItStarts) {
  DeletingHost killer(table);
  FatalScene scene = Scene({Pressing(ErrorKey::kEscape)});
  scene.open = [this] {
    const ErrorRecord record = RecordBuilder();
    PushRecord(cnc, record);
    MakeTool();
  };
  EXPECT_THAT(PlayWithEachCallFatal(killer, scene), Contains("HostToolOpening"));
}

// The box runs an event loop, in which the host closes what it likes.
TEST_F(ErrorEnd, TheWindowMayGoWhileTheBoxForAMissingLanguageLibraryIsOpen) {
  Language fresh(menus, cnc.Util(), files, windows);
  const ToolContext bare{host, cnc, windows, timers, fresh, files, places, network, worker};
  files.disc.erase("C:\\P15\\LPNLTOOLS.DLL");
  MakeTool(bare);
  EXPECT_THAT(windows.boxes, IsEmpty()) << "not before the window is whole";
  windows.onBox = [this] { DestroyTool(); };
  Tell([](ErrorSession& session) { session.Start(); });
  EXPECT_EQ(windows.boxes.size(), 1u);
  EXPECT_EQ(tool, nullptr);
  EXPECT_EQ(cnc.OpenReports(), 0u);
}

// The wait cursor is the whole panel's: it would stay for ever.
TEST_F(ErrorEnd, AWindowThatGoesWhileItWaitsGivesTheCursorBack) {
  MakeTool();
  Push(RecordBuilder());
  onHostCall = [this](const std::string& call) {
    if (!call.starts_with("HostToolClosed")) return;
    EXPECT_TRUE(view->waits);
    DestroyTool();
  };
  Key(ErrorKey::kEscape);
  EXPECT_EQ(tool, nullptr);
  EXPECT_FALSE(view->waits);
}

TEST_F(ErrorEnd, TheHelpOfAWindowThatGoesMeanwhileIsNotShown) {
  MakeTool();
  Push(RecordBuilder().Number(2000));
  onHostCall = [this](const std::string& call) {
    if (call.starts_with("HostToolClosed")) DestroyTool();
  };
  All();
  Click(error_id::kHelp);
  EXPECT_EQ(tool, nullptr);
  EXPECT_THAT(All(), ElementsAre("view hide", "HostToolClosed(0,2)"));
}

TEST_F(ErrorEnd, ALineThatIsReadWhenTheWindowIsGoneIsNotWaitedFor) {
  files.disc["C:\\P\\A.NC"] = "G0 X1\r\n";
  MakeTool();
  reader->slow = true;
  Push(RecordBuilder().Source(1).Text(error_field::kProgramPath, u"C:\\P").Text(error_field::kProgramName, u"A.NC"));
  ASSERT_TRUE(reader->later);
  const std::shared_ptr<ErrorSession> kept = tool;
  DestroyTool();
  EXPECT_FALSE(reader->later);
}

TEST_F(ErrorEnd, AnEndedLogicDoesNothing) {
  MakeTool();
  Push(RecordBuilder());
  const std::shared_ptr<ErrorSession> kept = tool;
  DestroyTool();
  All();
  const ErrorRecord another = RecordBuilder().Number(1001);
  cnc.SetSink(nullptr);
  PushRecord(cnc, another);
  cnc.SetSink(&sink);
  EXPECT_TRUE(kept->HasEnded());
  EXPECT_FALSE(RunOperation(kept, [](ErrorSession&) { ADD_FAILURE(); }));
  kept->End();
  EXPECT_THAT(All(), IsEmpty());
  EXPECT_FALSE(kept->IsActive());
  EXPECT_FALSE(kept->IsVisible());
}

}  // namespace
}  // namespace pnl::test
