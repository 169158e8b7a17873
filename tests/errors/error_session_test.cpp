// SPDX-License-Identifier: MIT
// When the window shows itself, what the host hears, how the queue is walked and acknowledged.
#include "errors/error_session.h"

#include <limits>

#include "errors/error_rig.h"

namespace pnl::test {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;

constexpr const char* kCountZero = "ZM_UPDATE_NERRORS number 0 class 0 flash 0 count 0";

RecordBuilder Kernel(int number) { return RecordBuilder().Number(number); }
RecordBuilder Warning(int number) { return RecordBuilder().Number(number).Severity(0); }
RecordBuilder Fatal(int number) { return RecordBuilder().Number(number).Severity(7); }
RecordBuilder Marked(int number) { return RecordBuilder().Number(number).Marked(); }

// Start.

TEST_F(ErrorToolTest, StartsHiddenAndIdle) {
  MakeTool();
  EXPECT_FALSE(tool->IsActive());
  EXPECT_FALSE(view->visible);
  EXPECT_TRUE(view->hotKey);
  EXPECT_FALSE(view->raisedLook[error_id::kTitleBox]);
  EXPECT_FALSE(view->raisedLook[error_id::kChannelBox]);
  EXPECT_EQ(view->window, kDefaultErrorWindow);
  EXPECT_EQ(view->titleFont, (ErrorFont{u"Arial", 21, 400, false, false, false}));
  EXPECT_EQ(Current(), "\"\"");
}

TEST_F(ErrorToolTest, ReadsTheQueueAtItsStart) {
  cnc.SetSink(nullptr);
  const ErrorRecord record = Kernel(1000);
  PushRecord(cnc, record);
  cnc.SetSink(&sink);
  MakeTool();
  EXPECT_TRUE(view->visible);
  EXPECT_EQ(Box(), "ERROR 1000");
}

TEST_F(ErrorToolTest, WithoutTheVariablesStaysIdle) {
  cnc.Undefine(u"E.NERRORS");
  cnc.Undefine(u"E.ERRORPRI");
  MakeTool();
  EXPECT_FALSE(tool->IsActive());
  EXPECT_THAT(All(), ElementsAre("view hide"));
}

// The error that the first report reads is told of by the second one, which brings the count.
TEST_F(ErrorToolTest, ReadsTheErrorBeforeTheCountAtItsStart) {
  Ini() = "[PRIVATE]\r\nHideErrors=TRUE\r\n";
  cnc.SetSink(nullptr);
  const ErrorRecord record = Kernel(1000);
  PushRecord(cnc, record);
  cnc.SetSink(&sink);
  MakeTool();
  const char* told = "ZM_UPDATE_NERRORS number 1000 class 0 flash 500 count 1";
  EXPECT_THAT(All(), ElementsAre("view hide", "ReadError(-1)=0",
                                 "write DM.HMI.ERROR.CURRENT=\"ERROR 1000: fault 1000\" ok", told, told));
}

TEST_F(ErrorToolTest, AtItsEndGivesItsHotKeyBackAndStopsBothTimers) {
  MakeTool();
  Push(Kernel(201));
  EXPECT_EQ(timers.Running(), 2u);
  // A call that is under way keeps the logic.
  const std::shared_ptr<ErrorSession> kept = tool;
  DestroyTool();
  EXPECT_FALSE(view->hotKey);
  EXPECT_EQ(timers.Running(), 0u);
  EXPECT_EQ(cnc.OpenReports(), 0u);
}

// One error.

TEST_F(ErrorToolTest, AnErrorOpensTheWindow) {
  MakeTool();
  All();
  Push(Kernel(1000));
  EXPECT_THAT(All(), ElementsAre("ReadError(-1)=0", "HostToolOpening(0)", "view show", "view top", "view focus window",
                                 "write DM.HMI.ERROR.CURRENT=\"ERROR 1000: fault 1000\" ok"));
  EXPECT_EQ(Box(), "ERROR 1000");
  EXPECT_EQ(Title(), "fault 1000");
  EXPECT_EQ(Description(), "\nID: NC-77");
  EXPECT_EQ(view->classColor, 0x0000A0u);
  EXPECT_EQ(Counters(), "-/-");
  EXPECT_EQ(Current(), "\"ERROR 1000: fault 1000\"");
}

TEST_F(ErrorToolTest, TheSignBelongsToTheClass) {
  struct SignCase {
    RecordBuilder record;
    bool acknowledge, confirm, marked;
  };
  const SignCase cases[] = {{Kernel(1000), true, false, false},
                            {Marked(1000), false, false, true},
                            {Warning(1000), false, false, false},
                            {Fatal(1000), false, false, false},
                            {Kernel(3753), false, true, false}};
  for (const SignCase& row : cases) {
    cnc.ClearErrors();
    if (!tool) MakeTool();
    Push(row.record);
    EXPECT_EQ(view->Shows(error_id::kAcknowledge), row.acknowledge);
    EXPECT_EQ(view->Shows(error_id::kConfirmSign), row.confirm);
    EXPECT_EQ(view->Shows(error_id::kMarkedSign), row.marked);
  }
}

TEST_F(ErrorToolTest, TheChannelStandsInItsBoxWhereThereAreSeveral) {
  cnc.Returns("ChannelNumber", {2});
  MakeTool();
  Push(RecordBuilder().Channel(2));
  EXPECT_TRUE(view->Shows(error_id::kChannelBox));
  EXPECT_EQ(view->texts[error_id::kChannelBox], "2");
  EXPECT_EQ(view->rects[error_id::kTitleBox].left, view->rects[error_id::kChannelBox].right);
  Key(ErrorKey::kEscape);
  Push(RecordBuilder().Channel(5));
  EXPECT_FALSE(view->Shows(error_id::kChannelBox));
  EXPECT_EQ(view->rects[error_id::kTitleBox].left, (710 - 320) / 2);
}

TEST_F(ErrorToolTest, FatalAndConfirmErrorsOfTheKernelGoToTheMachinesLog) {
  struct LogCase {
    RecordBuilder record;
    const char* line;  // null: none
  };
  const LogCase cases[] = {{Kernel(1000), nullptr},
                           {Marked(1000).Severity(7), nullptr},
                           {Warning(3753), nullptr},
                           {Fatal(1000), "AddLogOnInfo(\"ERROR 1000 : fault 1000\")=0"},
                           {Kernel(3753), "AddLogOnInfo(\"ERROR 3753 : fault 3753\")=0"},
                           {Fatal(1000).Source(18), "AddLogOnInfo(\"ERROR 1000 : fault 1000\")=0"},
                           {Fatal(1000).Source(10), nullptr},
                           {Fatal(1000).Source(13), nullptr},
                           {Fatal(1000).Source(19), nullptr}};
  MakeTool();
  for (const LogCase& row : cases) {
    cnc.ClearErrors();
    Drain();
    All();
    Push(row.record);
    const Log asked = All();
    if (row.line != nullptr) {
      EXPECT_THAT(asked, Contains(row.line));
    } else {
      EXPECT_THAT(asked, Not(Contains(testing::HasSubstr("AddLogOnInfo"))));
    }
  }
}

TEST_F(ErrorToolTest, BoxesAreFlatInTheColourOfTheClass) {
  MakeTool();
  Push(Warning(1000));
  EXPECT_EQ(view->boxColors[error_id::kTitleBox], std::pair(0xFFFFFFu, 0x648064u));
}

// The colour of the error before, until the next flash: kept, because it costs nothing and is gone in half a second.
TEST_F(ErrorToolTest, ADrivesBoxTakesTheColourOfTheErrorBeforeUntilItFlashes) {
  MakeTool();
  Push(Kernel(1000));
  Key(ErrorKey::kEscape);
  Push(RecordBuilder().Source(13).Severity(7));
  EXPECT_EQ(view->boxColors[error_id::kTitleBox], std::pair(0xFFFFFFu, 0x0000A0u));
  timers.Advance(500);
  EXPECT_EQ(view->boxColors[error_id::kTitleBox], std::pair(0x806480u, 0xFFFFFFu));
}

TEST_F(ErrorToolTest, TheBoxesFlash) {
  cnc.Returns("ChannelNumber", {2});
  MakeTool();
  Push(RecordBuilder().Channel(1));
  const std::pair plain(0xFFFFFFu, 0x0000A0u);
  const std::pair inverted(0x0000A0u, 0xFFFFFFu);
  EXPECT_EQ(view->boxColors[error_id::kTitleBox], plain);
  timers.Advance(500);
  EXPECT_EQ(view->boxColors[error_id::kTitleBox], inverted);
  EXPECT_EQ(view->boxColors[error_id::kChannelBox], inverted);
  timers.Advance(500);
  EXPECT_EQ(view->boxColors[error_id::kTitleBox], plain);
  EXPECT_EQ(view->boxColors[error_id::kChannelBox], plain);
}

TEST_F(ErrorToolTest, AFlashPeriodOfZeroDoesNotFlash) {
  Ini() = "[PRIVATE]\r\nFlash=0\r\n";
  MakeTool();
  Push(Kernel(1000));
  EXPECT_EQ(timers.Running(), 0u);
}

// A millisecond in the file cost hundreds of wake-ups a second. What the host hears is the number of the file.
TEST_F(ErrorToolTest, FlashesTwentyTimesASecondAtMostAndReportsThePeriodAsRead) {
  for (const auto& [period, ticks] : {std::pair(1, 20), {49, 20}, {50, 20}, {51, 19}, {100, 10}}) {
    cnc.ClearErrors();
    Drain();
    Ini() = "[PRIVATE]\r\nFlash=" + std::to_string(period) + "\r\n";
    MakeTool();
    Push(Kernel(1000));
    int seen = 0;
    timers.SetAfterTick([&seen] { ++seen; });
    timers.Advance(1000);
    timers.SetAfterTick(nullptr);
    EXPECT_EQ(seen, ticks) << period;
    All();
    tool->OnHotKey();
    EXPECT_THAT(All(), Contains("ZM_UPDATE_NERRORS number 1000 class 0 flash " + std::to_string(period) + " count 1"));
  }
}

TEST_F(ErrorToolTest, ALongTitleGetsMoreLines) {
  MakeTool();
  cnc.ErrorText("error_to_txt", 1001, u"|" + Text(200, u'x'), u"", false);
  Push(Kernel(1001));
  EXPECT_EQ(view->rects[error_id::kTitleLine].Height(), 60);
  EXPECT_FALSE(view->titleCentred);
  EXPECT_EQ(view->rects[error_id::kDescription].top, view->rects[error_id::kTitleLine].bottom + 12);
  Key(ErrorKey::kEscape);
  Push(Kernel(1000));
  EXPECT_EQ(view->rects[error_id::kTitleLine].Height(), 34);
  EXPECT_TRUE(view->titleCentred);
}

// The program line.

class ErrorInProgram : public ErrorToolTest {
 protected:
  ErrorInProgram() { files.disc["C:\\P\\A.NC"] = "G0 X1\r\nG1 X2 F0\r\n"; }
  static RecordBuilder Record() {
    return RecordBuilder()
        .Source(1)
        .Text(error_field::kProgramPath, u"C:\\P")
        .Text(error_field::kProgramName, u"A.NC")
        .Int(error_field::kFilePosition, 7)
        .Word(error_field::kFileSpan, 12);
  }
};

TEST_F(ErrorInProgram, TheFailingLineIsShown) {
  MakeTool();
  Push(Record());
  EXPECT_EQ(Description(), "\nT237  C:\\P\\A.NC\nT240 2\nT210 G1 X2 <F>0\nID: NC-77");
}

TEST_F(ErrorInProgram, AFileThatTakesLongKeepsTheRestWaitingForNothing) {
  MakeTool();
  reader->slow = true;
  Push(Record());
  EXPECT_TRUE(view->visible);
  EXPECT_EQ(Description(), "\nT237  C:\\P\\A.NC\nID: NC-77");
  ASSERT_TRUE(reader->later);
  reader->later({u"\nT240 2", u"\nT210 G1"});
  EXPECT_EQ(Description(), "\nT237  C:\\P\\A.NC\nT240 2\nT210 G1\nID: NC-77");
}

TEST_F(ErrorInProgram, ALineThatComesTooLateIsNotAskedForAnyMore) {
  MakeTool();
  reader->slow = true;
  Push(Record());
  Key(ErrorKey::kEscape);
  EXPECT_FALSE(reader->later);
}

TEST_F(ErrorInProgram, TheFileIsReadOnlyWhenAnotherErrorIsShown) {
  MakeTool();
  Push(Record());
  EXPECT_EQ(reader->reads, 1);
  cnc.Set(u"E.NERRORS", std::int64_t{5});
  Drain();
  EXPECT_EQ(view->texts[error_id::kAfter], "4");
  EXPECT_EQ(reader->reads, 1) << "a change of the count alone updates the counters and nothing else";
  Push(Kernel(1001));
  EXPECT_EQ(reader->reads, 2) << "the kernel told of its primary error";
  Key(ErrorKey::kRight);
  EXPECT_EQ(reader->reads, 2);
  Key(ErrorKey::kLeft);
  EXPECT_EQ(reader->reads, 3);
}

// Hide settings and the states.

struct StateCase {
  const char* ini;
  RecordBuilder record;
  bool shows;
  const char* message;
};

TEST_F(ErrorToolTest, HideSettingsDecideWhichErrorsOpenTheWindow) {
  const char* warnings = "[PRIVATE]\r\nHideWarnings=TRUE\r\n";
  const char* errors = "[PRIVATE]\r\nHideErrors=TRUE\r\n";
  const StateCase cases[] = {
      {"", Kernel(1000), true, nullptr},
      {"", Marked(1000), true, nullptr},
      {"", Warning(1000), true, nullptr},
      {"", Fatal(1000), true, nullptr},
      {"", Kernel(3753), true, nullptr},
      {warnings, Kernel(1000), true, nullptr},
      {warnings, Warning(1000), false, "ZM_UPDATE_NERRORS number 1000 class 2 flash 500 count 1"},
      {warnings, Fatal(1000), true, nullptr},
      {errors, Kernel(1000), false, "ZM_UPDATE_NERRORS number 1000 class 0 flash 500 count 1"},
      {errors, Marked(1000), false, "ZM_UPDATE_NERRORS number 1000 class 1 flash 500 count 1"},
      {errors, Warning(1000), false, "ZM_UPDATE_NERRORS number 1000 class 2 flash 500 count 1"},
      {errors, Fatal(1000), true, nullptr},
      {errors, Kernel(3753), true, nullptr},
  };
  for (const StateCase& row : cases) {
    cnc.ClearErrors();
    Drain();
    Ini() = row.ini;
    MakeTool();
    All();
    Push(row.record);
    const Log asked = All();
    const std::string where =
        std::string(row.ini) + " class " + std::to_string(static_cast<int>(ClassifyError(row.record)));
    EXPECT_EQ(view->visible, row.shows) << where;
    EXPECT_TRUE(tool->IsActive()) << where;
    if (row.message != nullptr) {
      EXPECT_THAT(asked, Contains(row.message)) << where;
    }
  }
}

TEST_F(ErrorToolTest, AHiddenWarningTogglesTheWindowAwayUnlessErrorsAreHiddenToo) {
  Ini() = "[PRIVATE]\r\nHideWarnings=TRUE\r\n";
  MakeTool();
  All();
  Push(Warning(1000));
  EXPECT_THAT(All(), Contains("HostToolClosed(0,2)"));
  Ini() = "[PRIVATE]\r\nHideErrors=TRUE\r\n";
  cnc.ClearErrors();
  Drain();
  MakeTool();
  All();
  Push(Warning(1000));
  EXPECT_THAT(All(), Not(Contains("HostToolClosed(0,2)")));
}

TEST_F(ErrorToolTest, SuppressedErrorsStayQuietButFatalOnesShow) {
  MakeTool();
  Notify(1, 1);
  All();
  Push(Kernel(1000));
  EXPECT_FALSE(view->visible);
  EXPECT_THAT(All(), Contains("ZM_UPDATE_NERRORS number 1000 class 0 flash 500 count 1"));
  Key(ErrorKey::kEscape);
  Push(Fatal(1001));
  EXPECT_TRUE(view->visible);
  Notify(1, 0);
}

TEST_F(ErrorToolTest, ABlockedWindowNeverShows) {
  MakeTool();
  Notify(79, 1);
  for (const RecordBuilder& record : {Kernel(1000), Fatal(1001), Kernel(3753)}) {
    cnc.ClearErrors();
    Drain();
    Push(record);
    EXPECT_FALSE(view->visible);
    EXPECT_TRUE(tool->IsActive());
  }
  All();
  tool->OnHotKey();
  EXPECT_FALSE(view->visible);
  EXPECT_THAT(All(), ElementsAre("ZM_UPDATE_NERRORS number 3753 class 4 flash 500 count 1"));
}

TEST_F(ErrorToolTest, BlockingHidesAWindowThatIsShown) {
  MakeTool();
  Push(Kernel(1000));
  All();
  Notify(79, 1);
  EXPECT_THAT(All(), ElementsAre("view hide", "HostToolClosed(0,2)",
                                 "ZM_UPDATE_NERRORS number 1000 class 0 flash 500 count 1"));
}

TEST_F(ErrorToolTest, TheHotKeyHidesAndShows) {
  MakeTool();
  tool->OnHotKey();
  EXPECT_FALSE(view->visible) << "no error stands";
  Push(Kernel(1000));
  All();
  tool->OnHotKey();
  EXPECT_THAT(All(), ElementsAre("view hide", "HostToolClosed(0,2)",
                                 "ZM_UPDATE_NERRORS number 1000 class 0 flash 500 count 1"));
  tool->OnHotKey();
  EXPECT_THAT(All(), ElementsAre(kCountZero, "HostErrorsGone", "HostToolOpening(0)", "view show", "view top",
                                 "view focus window"));
}

TEST_F(ErrorToolTest, TheHotKeyIsRegisteredAndUnregisteredOnRequest) {
  MakeTool();
  Notify(2, 0);
  EXPECT_FALSE(view->hotKey);
  Notify(2, 1);
  EXPECT_TRUE(view->hotKey);
  Notify(2, 5);
  EXPECT_FALSE(view->hotKey);
}

TEST_F(ErrorToolTest, ADoubleClickBesideThePicturesHides) {
  MakeTool();
  Push(Kernel(1000));
  Click(0);
  EXPECT_TRUE(view->visible);
  DoubleClick(0);
  EXPECT_FALSE(view->visible);
  EXPECT_TRUE(tool->IsActive());
}

// The first tap was for what lay there before; the error would go unread.
TEST_F(ErrorToolTest, ADoubleClickWhoseFirstPressCameBeforeTheWindowIsAFirstPress) {
  MakeTool();
  Push(Kernel(1000));
  DoubleClick(0);
  EXPECT_TRUE(view->visible);
  DoubleClick(0);
  EXPECT_FALSE(view->visible);
  tool->OnHotKey();
  DoubleClick(0);
  EXPECT_TRUE(view->visible) << "what came before the window went counts no more";
}

TEST_F(ErrorToolTest, AHiddenWindowTellsEachChangeOfTheCount) {
  MakeTool();
  Push(Kernel(1000));
  tool->OnHotKey();
  All();
  cnc.Set(u"E.NERRORS", std::int64_t{2});
  Drain();
  EXPECT_THAT(All(), ElementsAre("ZM_UPDATE_NERRORS number 1000 class 0 flash 500 count 2"));
}

// Walking the queue.

class ThreeErrors : public ErrorToolTest {
 protected:
  ThreeErrors() {
    MakeTool();
    for (const int number : {1000, 1001, 1002}) Push(Kernel(number));
    All();
  }
};

TEST_F(ThreeErrors, TheFirstOneShowsHowManyLieAfterIt) {
  EXPECT_EQ(Box(), "ERROR 1000");
  EXPECT_EQ(Counters(), "-/2");
}

TEST_F(ThreeErrors, WalkingToTheLastHidesTheWayOn) {
  Key(ErrorKey::kRight);
  EXPECT_EQ(Box(), "ERROR 1001");
  EXPECT_EQ(Counters(), "1/1");
  EXPECT_EQ(Current(), "\"ERROR 1001: fault 1001\"");
  Key(ErrorKey::kDown);
  EXPECT_EQ(Box(), "ERROR 1002");
  EXPECT_EQ(Counters(), "2/-");
  All();
  Key(ErrorKey::kRight);
  EXPECT_THAT(All(), IsEmpty()) << "there is none behind it";
}

TEST_F(ThreeErrors, WalkingBackToTheFirstHidesTheWayBack) {
  Click(error_id::kNext);
  Click(error_id::kNext);
  Key(ErrorKey::kLeft);
  EXPECT_EQ(Counters(), "1/1");
  Key(ErrorKey::kUp);
  EXPECT_EQ(Box(), "ERROR 1000");
  EXPECT_EQ(Counters(), "-/2");
  All();
  Click(error_id::kPrevious);
  EXPECT_THAT(All(), IsEmpty());
}

// The second tap went through to the window, and put it away with the last error unread.
TEST_F(ThreeErrors, TwoQuickTapsOnAnArrowThatTheFirstOneHidesLeaveTheWindow) {
  Click(error_id::kNext);
  Click(error_id::kNext);
  ASSERT_FALSE(view->Shows(error_id::kNext));
  DoubleClick(0);
  EXPECT_TRUE(view->visible);
  EXPECT_EQ(Box(), "ERROR 1002");
}

TEST_F(ThreeErrors, TwoQuickTapsOnAnArrowAreTwoSteps) {
  Click(error_id::kNext);
  DoubleClick(error_id::kNext);
  EXPECT_EQ(Box(), "ERROR 1002");
}

TEST_F(ThreeErrors, ASecondTapThatOnlyNowHitsThePictureIsATapOnIt) {
  Click(0);
  DoubleClick(error_id::kNext);
  EXPECT_TRUE(view->visible);
  EXPECT_EQ(Box(), "ERROR 1001");
}

TEST_F(ThreeErrors, TheSecondTapOnASignThatTheFirstOneHidesMeansNothing) {
  cnc.ClearErrors();
  Drain();
  Push(Kernel(1000));
  Push(Warning(1001));
  Click(error_id::kAcknowledge);
  ASSERT_FALSE(view->Shows(error_id::kAcknowledge));
  DoubleClick(0);
  EXPECT_TRUE(view->visible);
  EXPECT_EQ(Box(), "WARNING 1001");
}

// Where the sign of the first error was, the next one has another: what was meant for the first isn't meant for that.
TEST_F(ThreeErrors, TheSecondTapDoesNotReachThePictureThatTookTheFirstOnesPlace) {
  cnc.ClearErrors();
  Drain();
  Push(Kernel(1000));
  Push(Marked(1001));
  Click(error_id::kNext);
  All();
  DoubleClick(error_id::kAcknowledge);
  EXPECT_THAT(All(), IsEmpty());
}

TEST_F(ThreeErrors, AskForTheIndexOnly) {
  Key(ErrorKey::kRight);
  EXPECT_THAT(All(), ElementsAre("ReadError(1)=1", "write DM.HMI.ERROR.CURRENT=\"ERROR 1001: fault 1001\" ok"));
}

TEST_F(ThreeErrors, ResettingTheFirstShowsTheNextPrimaryOne) {
  Key(ErrorKey::kEscape);
  const char* written = "write DM.HMI.ERROR.CURRENT=\"ERROR 1001: fault 1001\" ok";
  // The kernel's own report of its new primary error follows.
  EXPECT_THAT(All(), ElementsAre("view wait", "ResetError(0,1)=0", "ReadError(-1)=0", written, "view ready",
                                 "ReadError(-1)=0", written));
  EXPECT_EQ(Box(), "ERROR 1001");
  EXPECT_EQ(Counters(), "-/1");
}

TEST_F(ThreeErrors, ResettingTheSecondShowsTheFirst) {
  Key(ErrorKey::kRight);
  All();
  Key(ErrorKey::kEscape);
  const char* written = "write DM.HMI.ERROR.CURRENT=\"ERROR 1000: fault 1000\" ok";
  EXPECT_THAT(All(), ElementsAre("view wait", "ResetError(1,1)=0", "ReadError(0)=0", written, "view ready"));
  EXPECT_EQ(Box(), "ERROR 1000");
  EXPECT_EQ(Counters(), "-/1");
}

TEST_F(ThreeErrors, ResettingTheLastGoesOneBack) {
  Key(ErrorKey::kRight);
  Key(ErrorKey::kRight);
  Key(ErrorKey::kEscape);
  EXPECT_EQ(Box(), "ERROR 1001");
  EXPECT_EQ(view->texts[error_id::kBefore], "1");
}

TEST_F(ThreeErrors, ResettingAllLeavesTheWindowIdle) {
  Key(ErrorKey::kEscape);
  Key(ErrorKey::kEscape);
  All();
  Key(ErrorKey::kEscape);
  EXPECT_FALSE(view->visible);
  EXPECT_FALSE(tool->IsActive());
  EXPECT_THAT(cnc.ErrorQueue(), IsEmpty());
  // And once more at the kernel's own report: the queue ran empty.
  EXPECT_THAT(All(), ElementsAre("view wait", "ResetError(0,1)=0", "ReadError(-1,nothing)=-1", "view hide",
                                 "HostToolClosed(0,2)", "HostErrorsGone", "write DM.HMI.ERROR.CURRENT=\"\" ok",
                                 "view ready", "ReadError(-1,nothing)=-1", "view hide", "HostToolClosed(0,2)",
                                 "HostErrorsGone", "write DM.HMI.ERROR.CURRENT=\"\" ok"));
  EXPECT_EQ(Current(), "\"\"");
  EXPECT_EQ(timers.Running(), 0u);
}

TEST_F(ThreeErrors, TheToolIsIdleBeforeTheHostHearsThatItsWindowIsGone) {
  Key(ErrorKey::kEscape);
  Key(ErrorKey::kEscape);
  onHostCall = [this](const std::string& call) {
    if (!call.starts_with("HostToolClosed")) return;
    log.emplace_back(tool->IsActive() ? "active" : "idle");
    log.emplace_back(view->visible ? "visible" : "hidden");
  };
  All();
  Key(ErrorKey::kEscape);
  EXPECT_THAT(All(), ElementsAre("view wait", "ResetError(0,1)=0", "ReadError(-1,nothing)=-1", "view hide",
                                 "HostToolClosed(0,2)", "idle", "hidden", "HostErrorsGone",
                                 "write DM.HMI.ERROR.CURRENT=\"\" ok", "view ready", "ReadError(-1,nothing)=-1",
                                 "view hide", "HostToolClosed(0,2)", "idle", "hidden", "HostErrorsGone",
                                 "write DM.HMI.ERROR.CURRENT=\"\" ok"));
}

// Keys by class.

struct KeyCase {
  RecordBuilder record;
  ErrorKey key;
  const char* call;
};

TEST_F(ErrorToolTest, EachClassHasItsKey) {
  const KeyCase cases[] = {
      {Kernel(1000), ErrorKey::kEscape, "ResetError(0,1)=0"},
      {Marked(1000), ErrorKey::kEscape, "ResetError(0,1)=0"},
      {Warning(1000), ErrorKey::kEscape, "ResetError(0,0)=0"},
      {Fatal(1000), ErrorKey::kEscape, nullptr},
      {Kernel(3753), ErrorKey::kEscape, nullptr},
      {Kernel(1000), ErrorKey::kEnter, nullptr},
      {Marked(1000), ErrorKey::kEnter, nullptr},
      {Warning(1000), ErrorKey::kEnter, nullptr},
      {Fatal(1000), ErrorKey::kEnter, nullptr},
      {Kernel(3753), ErrorKey::kEnter, "ResetErrorWithEnter(0)=0"},
  };
  MakeTool();
  for (const KeyCase& row : cases) {
    cnc.ClearErrors();
    Drain();
    Push(row.record);
    All();
    Key(row.key);
    const std::string where = "class " + std::to_string(static_cast<int>(ClassifyError(row.record)));
    if (row.call != nullptr) {
      EXPECT_THAT(All(), Contains(row.call)) << where;
      EXPECT_THAT(cnc.ErrorQueue(), IsEmpty()) << where;
    } else {
      EXPECT_THAT(All(), Not(Contains(testing::HasSubstr("ResetError")))) << where;
      EXPECT_EQ(cnc.ErrorQueue().size(), 1u) << where;
    }
  }
}

// The two signs look crossed, and are kept so: a click on the one of class 4 does nothing.
TEST_F(ErrorToolTest, TheSignOfAConfirmErrorDoesNothingWhenClicked) {
  MakeTool();
  Push(Kernel(3753));
  All();
  Click(error_id::kConfirmSign);
  EXPECT_THAT(All(), IsEmpty());
  Click(error_id::kMarkedSign);
  EXPECT_THAT(All(), Contains("ResetErrorWithEnter(0)=0"));
}

TEST_F(ErrorToolTest, AClickOnTheAcknowledgeSignIsEscape) {
  MakeTool();
  Push(Kernel(1000));
  All();
  Click(error_id::kAcknowledge);
  EXPECT_THAT(All(), Contains("ResetError(0,1)=0"));
}

TEST_F(ErrorToolTest, EscapeOnAFatalErrorHidesTheWindowWhenItIsTheOnlyOne) {
  MakeTool();
  Push(Fatal(1000));
  All();
  Key(ErrorKey::kEscape);
  EXPECT_FALSE(view->visible);
  EXPECT_THAT(All(), ElementsAre("view wait", "view hide", "HostToolClosed(0,2)",
                                 "ZM_UPDATE_NERRORS number 1000 class 3 flash 500 count 1", "view ready"));
}

TEST_F(ErrorToolTest, EscapeOnAFatalErrorGoesToTheNext) {
  MakeTool();
  Push(Fatal(1000));
  Push(Kernel(1001));
  Key(ErrorKey::kEscape);
  EXPECT_TRUE(view->visible);
  EXPECT_EQ(Box(), "ERROR 1001");
}

// Closing the panel.

TEST_F(ErrorToolTest, Error201ClosesThePanelAfterFiveSeconds) {
  MakeTool();
  Push(Kernel(201));
  All();
  timers.Advance(4999);
  EXPECT_THAT(All(), Not(Contains("ZM_CLOSE7340(1,0)")));
  timers.Advance(1);
  EXPECT_THAT(All(), Contains("ZM_CLOSE7340(1,0)"));
  timers.Advance(5000);
  EXPECT_THAT(All(), Contains("ZM_CLOSE7340(1,0)")) << "and again until it does";
}

TEST_F(ErrorToolTest, Error201ClosesThePanelForTheKernelsSourcesOnly) {
  for (const auto& [source, closes] : {std::pair(0, true),
                                       {1, true},
                                       {2, true},
                                       {3, true},
                                       {9, false},
                                       {10, false},
                                       {11, true},
                                       {12, true},
                                       {13, false},
                                       {14, false},
                                       {15, false},
                                       {16, false},
                                       {17, false},
                                       {18, true},
                                       {19, true}}) {
    cnc.ClearErrors();
    Ini() = "[PRIVATE]\r\nFlash=0\r\n";
    Drain();
    MakeTool();
    Push(Kernel(201).Source(source));
    EXPECT_EQ(timers.Running(), closes ? 1u : 0u) << source;
    tool->End();
  }
}

TEST_F(ErrorToolTest, Error201AsAWarningStartsNoTimer) {
  Ini() = "[PRIVATE]\r\nFlash=0\r\n";
  MakeTool();
  Push(Warning(201));
  EXPECT_EQ(timers.Running(), 0u);
}

TEST_F(ErrorToolTest, AfterEscapeOnAFatalErrorThePanelClosesWhenTheQueueRunsEmpty) {
  MakeTool();
  Push(Fatal(201));
  Key(ErrorKey::kEscape);
  All();
  cnc.ClearErrors();
  Drain();
  EXPECT_THAT(All(), Contains("ZM_CLOSE7340(1,0)"));
  EXPECT_EQ(timers.Running(), 0u);
}

TEST_F(ErrorToolTest, WithoutTheClosingTimerAnEmptyQueueClosesNothing) {
  MakeTool();
  Push(Fatal(1000));
  Key(ErrorKey::kEscape);
  All();
  cnc.ClearErrors();
  Drain();
  EXPECT_THAT(All(), Not(Contains("ZM_CLOSE7340(1,0)")));
}

TEST_F(ErrorToolTest, TheClosingTimerOutlivesAnOrdinaryReset) {
  MakeTool();
  Push(Kernel(201));
  Key(ErrorKey::kEscape);
  EXPECT_FALSE(tool->IsActive());
  All();
  timers.Advance(5000);
  EXPECT_THAT(All(), Contains("ZM_CLOSE7340(1,0)"));
}

// Help.

class ErrorWithHelp : public ErrorToolTest {
 protected:
  void Define(bool byItself) { cnc.ErrorText("error_to_txt", 2000, u"\nbroken", u"C:\\H.TXT#7", byItself); }
};

TEST_F(ErrorWithHelp, ThePictureIsShownWhereThereIsAReference) {
  Define(false);
  MakeTool();
  Push(Kernel(1000));
  EXPECT_FALSE(view->Shows(error_id::kHelp));
  Key(ErrorKey::kEscape);
  Push(Kernel(2000));
  EXPECT_TRUE(view->Shows(error_id::kHelp));
}

TEST_F(ErrorWithHelp, AskingForItHidesTheWindowAndOffersTheErrorToTheHost) {
  Define(false);
  MakeTool();
  Push(Kernel(2000));
  All();
  Click(error_id::kHelp);
  EXPECT_THAT(All(),
              ElementsAre("view hide", "HostToolClosed(0,2)", "ZM_UPDATE_NERRORS number 2000 class 0 flash 500 count 1",
                          "HostShowError(0000A0,C:\\H.TXT#7,Error 2000 : broken)"));
  EXPECT_TRUE(tool->IsActive());
}

TEST_F(ErrorWithHelp, TheWindowComesBackWhenTheHelpHasEnded) {
  Define(false);
  MakeTool();
  Push(Kernel(2000));
  EXPECT_TRUE(tool->ShowHelp());
  All();
  tool->HelpEnded();
  EXPECT_THAT(All(), ElementsAre(kCountZero, "HostToolOpening(0)", "view show", "view top", "view focus window"));
  tool->HelpEnded();
  EXPECT_THAT(All(), IsEmpty()) << "it is there already";
}

TEST_F(ErrorWithHelp, AnErrorThatOpensItsHelpByItselfLeavesTheWindowAway) {
  Define(true);
  MakeTool();
  All();
  Push(Kernel(2000));
  EXPECT_FALSE(view->visible);
  EXPECT_THAT(All(), Contains("HostShowError(0000A0,C:\\H.TXT#7,Error 2000 : broken)"));
}

TEST_F(ErrorWithHelp, WithoutAnErrorOrAReferenceThereIsNone) {
  MakeTool();
  EXPECT_FALSE(tool->ShowHelp());
  tool->HelpEnded();
  Push(Kernel(1000));
  All();
  EXPECT_FALSE(tool->ShowHelp());
  EXPECT_THAT(All(), IsEmpty());
  EXPECT_TRUE(view->visible);
}

TEST_F(ErrorWithHelp, APlcErrorHasThePictureOnlyWithItsDescription) {
  MakeTool();
  files.disc["C:\\D.TXT"] = "there";
  cnc.ErrorText("ReadPLCError", 1000, u"door", u"C:\\D.TXT#3", false);
  Push(RecordBuilder().Source(10));
  EXPECT_FALSE(view->Shows(error_id::kHelp));
  Key(ErrorKey::kEscape);
  cnc.Description(u"C:\\D.TXT", 3, u"The door is open.");
  Push(RecordBuilder().Source(10));
  EXPECT_TRUE(view->Shows(error_id::kHelp));
  EXPECT_EQ(Description(), "The door is open.");
}

// What is written for the machine.

TEST_F(ErrorToolTest, TheCurrentErrorIsWrittenInAtMost260Units) {
  cnc.ErrorText("error_to_txt", 1001, u"|" + Text(400, u'x'), u"", false);
  MakeTool();
  Push(Kernel(1001));
  EXPECT_EQ(Current().size(), 260u + 2);
}

TEST_F(ErrorToolTest, WithoutTheVariableNothingIsWritten) {
  cnc.Undefine(u"DM.HMI.ERROR.CURRENT");
  MakeTool();
  All();
  Push(Kernel(1000));
  EXPECT_THAT(All(), Not(Contains(testing::HasSubstr("DM.HMI"))));
}

TEST_F(ErrorToolTest, TenThousandErrorsAtOnceAreAllCounted) {
  MakeTool();
  const ErrorRecord record = Kernel(1000);
  for (int i = 0; i < 10000; ++i) PushRecord(cnc, record);
  Drain();
  EXPECT_EQ(view->texts[error_id::kAfter], "9999");
  for (int i = 0; i < 10000; ++i) Key(ErrorKey::kEscape);
  EXPECT_THAT(cnc.ErrorQueue(), IsEmpty());
  EXPECT_FALSE(tool->IsActive());
}

// A kernel may answer anything; its numbers are only compared and counted with room to spare.
TEST_F(ErrorToolTest, AnyIndexAndCountOfTheKernelAreCountedRight) {
  struct NumberCase {
    std::int32_t index;
    std::int32_t count;
    const char* after;
    bool next;
  };
  constexpr std::int32_t kMost = std::numeric_limits<std::int32_t>::max();
  constexpr std::int32_t kLeast = std::numeric_limits<std::int32_t>::min();
  const NumberCase cases[] = {{kMost, 5, "-2147483643", false},      {kMost, kMost, "-1", false},
                              {0, kMost, "2147483646", true},        {kMost - 1, kMost, "0", false},
                              {kMost, kLeast, "-4294967296", false}, {kLeast, kMost, "4294967294", true},
                              {0, kLeast, "-2147483649", false}};
  MakeTool();
  Push(Kernel(1000));
  for (const NumberCase& row : cases) {
    cnc.Returns("ReadError", {row.index});
    cnc.Set(u"E.NERRORS", std::int64_t{row.count});
    cnc.Set(u"E.ERRORPRI", std::int64_t{row.index % 1000});
    Drain();
    Tell([](ErrorSession& session) { session.OnResized(); });
    EXPECT_EQ(view->texts[error_id::kBefore], std::to_string(row.index));
    EXPECT_EQ(view->texts[error_id::kAfter], row.after);
    for (const ErrorKey key : {ErrorKey::kRight, ErrorKey::kLeft, ErrorKey::kEscape, ErrorKey::kEnter}) Key(key);
    cnc.Set(u"E.NERRORS", std::int64_t{3});
    cnc.Set(u"E.NERRORS", std::int64_t{row.count});
    Drain();
    EXPECT_EQ(view->Shows(error_id::kNext), row.next) << row.index << " of " << row.count;
  }
}

TEST_F(ErrorToolTest, TheHostHearsTheLowHalfOfALongNumberAndItsClass) {
  MakeTool();
  Push(Warning(0x12345));
  All();
  tool->OnHotKey();
  EXPECT_THAT(All(), Contains("ZM_UPDATE_NERRORS number " + std::to_string(0x2345) + " class 2 flash 500 count 1"));
}

// Only the title box of such a source takes the colour of the error before.
TEST_F(ErrorToolTest, TheChannelBoxHasTheColourOfItsOwnErrorFromTheStart) {
  cnc.Returns("ChannelNumber", {2});
  MakeTool();
  Push(Warning(1000));
  Key(ErrorKey::kEscape);
  Push(Kernel(1001).Channel(2));
  EXPECT_EQ(view->boxColors[error_id::kChannelBox], std::pair(0xFFFFFFu, 0x0000A0u));
}

// A window whose size stays reports no change of it.
TEST_F(ErrorToolTest, AWindowThatHasItsSizeFromTheStartIsLaidOutToo) {
  MakeTool();
  const Rect size = view->client;
  MakeTool(context);
  view->client = size;
  Call(&ErrorSession::Start);
  EXPECT_EQ(view->client, size);
  EXPECT_EQ(view->rects[error_id::kDescription].right, view->rects[error_id::kTitleLine].right);
  EXPECT_GT(view->rects[error_id::kTitleLine].right, size.right - 30);
}

TEST_F(ErrorToolTest, AWiderWindowMovesTheArrowOnTheRightAlone) {
  MakeTool();
  const Rect previous = view->rects[error_id::kPrevious];
  const Rect next = view->rects[error_id::kNext];
  view->SetWindowRect({0, 0, 810, 298});
  EXPECT_EQ(view->rects[error_id::kPrevious], previous);
  EXPECT_EQ(view->rects[error_id::kNext].left, next.left + 100);
  EXPECT_EQ(view->rects[error_id::kBefore], (Rect{19, previous.bottom, 49, previous.bottom + 16}));
  EXPECT_EQ(view->rects[error_id::kAfter], (Rect{763, next.bottom, 793, next.bottom + 16}));
  EXPECT_EQ(view->rects[error_id::kTitleLine], (Rect{10, 63, 800, 97}));
}

}  // namespace
}  // namespace pnl::test
