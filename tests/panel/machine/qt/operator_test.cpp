// SPDX-License-Identifier: MIT
// What the panel does on the operator's behalf around stops, inspection, help, lamps, requests and its own end.
#include "host/operator.h"

#include <gtest/gtest.h>

#include <set>

#include "panel/machine/qt/panel_fixture.h"
#include "remote/trace.h"
#include "ui/operator_keys.h"
#include "ui/panel_key.h"
#include "ui/panel_menu.h"
#include "ui/soft_key_bar.h"
#include "ui/status_strip.h"

namespace panel {
namespace {

using Fault = pnl::rig::MachineControl::Fault;

constexpr int kHide = 3;
constexpr int kClose = 5;

class OperatorTest : public PanelFixture {
 protected:
  intptr_t Command(int code) {
    const intptr_t answer = PnlSendMessage(session_.ToolWindow(PNL_TOOL_MDI), PNL_MSG_TOOL_COMMAND, code, 1);
    Settle();
    return answer;
  }
  /// An error without a description behind it.
  void PushWithoutHelp() {
    pnl::rig::ErrorSpec spec;
    spec.fields = {{"number", std::int64_t{5}}, {"severity", std::int64_t{1}}};
    std::string problem;
    ASSERT_TRUE(rig_.Cnc().PushError(spec, problem)) << problem;
    Settle();
  }
  void StopEmergency(bool on) {
    rig_.Machine()->EmergencyStop(on);
    Settle();
  }
  [[nodiscard]] QString State() const { return window_->Status().StateText(); }
  [[nodiscard]] PanelKey* StartKey() const { return window_->Keys().Key(Action::kCycleStart); }
};

TEST_F(OperatorTest, AnEmergencyStopShowsForAsLongAsItIsPressed) {
  // It read READY, with the start key lit, and a reset took the last trace of it away.
  StopEmergency(true);
  EXPECT_EQ(State(), "EMERGENCY STOP");
  EXPECT_FALSE(StartKey()->isEnabled());
  EXPECT_EQ(Queue(), 1u);
  Do(Action::kReset);
  Advance(100);
  EXPECT_EQ(State(), "EMERGENCY STOP");
  EXPECT_FALSE(StartKey()->isEnabled());
  EXPECT_EQ(Queue(), 1u) << "the cause stands, so its error does";
  EXPECT_TRUE(ErrorsShown());
  StopEmergency(false);
  EXPECT_EQ(State(), "READY");
  EXPECT_TRUE(StartKey()->isEnabled());
  Do(Action::kReset);
  EXPECT_EQ(Queue(), 0u);
  EXPECT_FALSE(ErrorsShown());
}

TEST_F(OperatorTest, StartUnderAnEmergencyStopSaysWhatToDoAndSendsNothing) {
  Do(Action::kOpenMdi);
  Type("G0 X1");
  StopEmergency(true);
  Do(Action::kCycleStart);
  EXPECT_EQ(ZoneText(), Say(Word::kReleaseEmergencyStop));
  EXPECT_EQ(Line(PNL_TOOL_MDI)->text(), "G0 X1");
  EXPECT_EQ(Queue(), 1u) << "no refusal beside the cause";
}

TEST_F(OperatorTest, AnEmergencyStopInTheMiddleOfABlockShowsTooAndTheFaultKeyReleasesIt) {
  Do(Action::kOpenMdi);
  Type("G1 X50 F100");
  Do(Action::kCycleStart);
  Advance(100);
  StopEmergency(true);
  EXPECT_EQ(State(), "EMERGENCY STOP");
  EXPECT_TRUE(op_->EmergencyStop()) << "whoever pressed it";
  op_->RaiseFault(DemoFaults()[0], std::nullopt);
  Settle();
  EXPECT_FALSE(op_->Machine().emergencyStop);
}

TEST_F(OperatorTest, ACauseThatStandsOutlivesAResetAndStartSaysWhyItIsDim) {
  struct Row {
    Fault fault;
    const char* state;
    Word note;
    Word reason;
  };
  for (const Row& row : {Row{Fault::kDoorOpen, "DOOR OPEN", Word::kDoorNote, Word::kCloseDoor},
                         Row{Fault::kDriveFault, "FAULT", Word::kFaultNote, Word::kDriveIsOff},
                         Row{Fault::kBusFault, "FAULT", Word::kFaultNote, Word::kBusIsDown},
                         Row{Fault::kFatal, "FAULT", Word::kFaultNote, Word::kControlIsDown}}) {
    SetCause(row.fault);
    EXPECT_EQ(State(), row.state);
    EXPECT_EQ(Queue(), 1u);
    Do(Action::kReset);
    Advance(100);
    EXPECT_EQ(State(), row.state) << "no reset ends a cause";
    EXPECT_EQ(Queue(), 1u) << "so its error comes back";
    EXPECT_TRUE(ErrorsShown());
    EXPECT_FALSE(StartKey()->isEnabled());
    EXPECT_EQ(StartKey()->Note(), Say(row.note));
    EXPECT_TRUE(StartKey()->toolTip().contains(Say(row.reason)));
    Do(Action::kCycleStart);
    EXPECT_EQ(ZoneText(), Say(row.reason));
    SetCause(row.fault, false);
    EXPECT_EQ(ZoneText(), "") << "it is no longer true";
    EXPECT_EQ(State(), "READY");
    EXPECT_TRUE(StartKey()->isEnabled());
    EXPECT_EQ(StartKey()->Note(), "");
    EXPECT_FALSE(StartKey()->toolTip().contains(Say(row.reason)));
    Do(Action::kReset);
    EXPECT_EQ(Queue(), 0u);
  }
}

TEST_F(OperatorTest, ATouchOnADimKeySaysWhy) {
  SetCause(Fault::kDoorOpen);
  Touch(StartKey(), StartKey()->rect().center());
  EXPECT_EQ(ZoneText(), Say(Word::kCloseDoor));
  Touch(window_->Keys().Key(Action::kCancel), QPoint(10, 10));
  EXPECT_EQ(ZoneText(), Say(Word::kNothingInterrupted));
}

TEST_F(OperatorTest, HoldAtRestAndStartOnAnEmptyLineSayWhyNothingHappens) {
  Do(Action::kOpenMdi);
  Do(Action::kFeedHold);
  EXPECT_EQ(ZoneText(), Say(Word::kNothingToHold));
  Do(Action::kCycleStart);
  EXPECT_EQ(ZoneText(), Say(Word::kLineIsEmpty));
  Type("G");
  EXPECT_EQ(ZoneText(), "") << "the line isn't empty any more";
  Type("1 X50 F100");
  Do(Action::kCycleStart);
  EXPECT_EQ(ZoneText(), "");
  Advance(50);
  Do(Action::kCycleStart);
  EXPECT_EQ(ZoneText(), Say(Word::kRunsAlready));
  Do(Action::kFeedHold);
  EXPECT_EQ(ZoneText(), "");
  Do(Action::kFeedHold);
  EXPECT_EQ(ZoneText(), Say(Word::kHeldAlready));
  Do(Action::kReset);
  Advance(100);
  Line(PNL_TOOL_MDI)->setText("G999");
  Do(Action::kCycleStart);
  EXPECT_EQ(ZoneText(), "") << "the error window says why";
  EXPECT_TRUE(ErrorsShown());
}

TEST_F(OperatorTest, StartOnAnEmptyLineSaysSoDuringAnInspectionToo) {
  Do(Action::kOpenMdi);
  Type("G91 G1 X50 F1000");
  Do(Action::kCycleStart);
  Advance(100);
  Do(Action::kFeedHold);
  Do(Action::kInspect);
  Line(PNL_TOOL_MDI)->setText("");
  Do(Action::kCycleStart);
  EXPECT_TRUE(ZoneText().contains(Say(Word::kLineIsEmpty))) << ZoneText().toStdString();
  Line(PNL_TOOL_MDI)->setText("G91 G1 X5 F100");
  Do(Action::kCycleStart);
  Advance(50);
  EXPECT_EQ(State(), "INSPECTION, RUNNING");
  EXPECT_FALSE(ZoneText().contains(Say(Word::kLineIsEmpty)));
  Do(Action::kInspect);
  EXPECT_TRUE(ZoneText().contains(Say(Word::kInspectionHasBlock)));
}

TEST_F(OperatorTest, AFeedOfNothingIsNotReady) {
  rig_.Machine()->FeedOverride(0);
  Settle();
  EXPECT_EQ(State(), "FEED 0 %");
  Do(Action::kOpenMdi);
  Type("G1 X50 F100");
  Do(Action::kCycleStart);
  Advance(1000);
  EXPECT_EQ(State(), "RUNNING, FEED 0 %");
  EXPECT_EQ(ZoneText(), Say(Word::kFeedIsZero));
  Do(Action::kOverrideUp);
  EXPECT_EQ(State(), "RUNNING");
  EXPECT_EQ(ZoneText(), "");
}

TEST_F(OperatorTest, ADoorThatOpensHoldsTheBlockAndShowsIt) {
  Do(Action::kOpenMdi);
  Type("G1 X50 F1000");
  Do(Action::kCycleStart);
  Advance(100);
  SetCause(Fault::kDoorOpen);
  EXPECT_EQ(State(), "DOOR OPEN, FEED HOLD");
  Do(Action::kCycleStart);
  Advance(100);
  EXPECT_EQ(State(), "DOOR OPEN, FEED HOLD");
  SetCause(Fault::kDoorOpen, false);
  EXPECT_EQ(State(), "FEED HOLD");
  Do(Action::kCycleStart);
  EXPECT_EQ(State(), "RUNNING");
}

TEST_F(OperatorTest, InspectionSaysWhetherAxesMove) {
  // It said INSPECTION while they ran and while they were held.
  Do(Action::kOpenMdi);
  Type("G91 G1 X50 F1000");
  Do(Action::kCycleStart);
  Advance(100);
  Do(Action::kFeedHold);
  Do(Action::kInspect);
  ASSERT_TRUE(op_->Machine().inspecting);
  EXPECT_EQ(State(), "INSPECTION");
  ASSERT_EQ(rig_.Machine()->State().channelStatus, 1);
  Advance(100);
  Line(PNL_TOOL_MDI)->setText("G91 G1 X5 F500");
  Do(Action::kCycleStart);
  Advance(100);
  EXPECT_EQ(State(), "INSPECTION, RUNNING");
  Do(Action::kFeedHold);
  EXPECT_EQ(State(), "INSPECTION, FEED HOLD");
  UseWords("es");
  EXPECT_EQ(State(), "INSPECCIÓN, RETENCIÓN");
  UseWords("en");
}

TEST_F(OperatorTest, AMessageLineIsKeptUntilItsToolClearsIt) {
  const QObject here;  // who listens during the test
  int shown = 0;
  int cleared = 0;
  int changes = 0;
  QObject::connect(&session_, &HostSession::MessagesChanged, &here, [&changes] { ++changes; });
  QObject::connect(&session_, &HostSession::Called, &here, [&](const HostCall& call) {
    if (call.slot != 7) return;
    const QVariantMap message = call.args.value(1).toMap();
    const auto kept = session_.Messages().find(message["line"].toInt());
    const bool shows = kept != session_.Messages().end();
    EXPECT_EQ(shows, !message["text"].toString().isEmpty());
    ++(shows ? shown : cleared);
    if (!shows) return;
    EXPECT_EQ(kept->second.text, message["text"].toString());
    EXPECT_EQ(kept->second.back, message["back"].toUInt());
    EXPECT_EQ(kept->second.fore, message["fore"].toUInt());
    EXPECT_NE(kept->second.fore, kept->second.back);
  });
  Do(Action::kOpenMdi);
  Type("G91 G1 X50 F1000");
  Do(Action::kCycleStart);
  Advance(100);
  Do(Action::kFeedHold);
  Do(Action::kInspect);
  Do(Action::kSwitchRole);
  EXPECT_GT(shown, 0) << "what to do in inspection";
  Do(Action::kInspect);
  Do(Action::kSwitchRole);
  EXPECT_GT(cleared, 0);
  EXPECT_EQ(changes, shown + cleared);
}

TEST_F(OperatorTest, TheHelpKeyOverTheErrorWindowOpensItsHelpAndSaysNothingElse) {
  // Every answer but 0 was taken for a failure: the help opened beside "This tool is not installed".
  Raise(Fault::kDriveFault);
  ASSERT_TRUE(ErrorsShown());
  Do(Action::kHelp);
  EXPECT_TRUE(op_->Desk().ShowsHelp());
  EXPECT_EQ(ZoneText(), "");
}

TEST_F(OperatorTest, TheHelpKeyOpensThePageOfWhatIsInFront) {
  const auto asked = [this] {
    Do(Action::kHelp);
    EXPECT_TRUE(session_.IsToolOpen(PNL_TOOL_HELP));
    EXPECT_EQ(ZoneText(), "");
    const auto mark = rig_.Cnc().Get(u"E.HELPDATA");
    PnlSendMessage(session_.ToolWindow(PNL_TOOL_HELP), PNL_MSG_TOOL_COMMAND, PNL_COMMAND_LEAVE, 0);
    Settle();
    EXPECT_FALSE(session_.IsToolOpen(PNL_TOOL_HELP));
    return mark ? std::get<std::u16string>(*mark) : std::u16string();
  };
  EXPECT_EQ(asked(), u"OPT0140") << "the program";
  Do(Action::kOpenMdi);
  EXPECT_EQ(asked(), u"OPT0130");
  EXPECT_EQ(asked(), u"OPT0130") << "the same mark once more";
  Do(Action::kOpenCalculator);
  EXPECT_EQ(asked(), u"OPT0300") << "and not the mark that another tool left";
  rig_.Machine()->RaisePlcMessage(1);
  Settle();
  ASSERT_EQ(session_.FrontTool(), PNL_TOOL_PLC_MESSAGES);
  EXPECT_EQ(asked(), u"OPT0500");
  Do(Action::kHelp);
  Do(Action::kHelp);
  EXPECT_EQ(std::get<std::u16string>(*rig_.Cnc().Get(u"E.HELPDATA")), u"OPT0600") << "over a manual";
}

TEST_F(OperatorTest, TheHelpKeyOverAnErrorWithoutHelpSaysSo) {
  PushWithoutHelp();
  ASSERT_TRUE(ErrorsShown());
  Do(Action::kHelp);
  EXPECT_EQ(ZoneText(), Say(Word::kNoHelpHere));
  EXPECT_TRUE(ErrorsShown());
  EXPECT_FALSE(session_.IsToolOpen(PNL_TOOL_HELP));
}

TEST_F(OperatorTest, TheLampOfAToolStaysLitWhenItsKeyIsTouched) {
  // The press put the lamp out, and nothing lit it again.
  Do(Action::kOpenMdi);
  PanelKey* key = window_->MainBar().Key(0);
  ASSERT_EQ(key->text(), "MDI");
  ASSERT_TRUE(key->isChecked());
  key->click();
  Settle();
  EXPECT_TRUE(key->isChecked());
}

TEST_F(OperatorTest, ALampOfTheMachineFollowsTheMachineAlone) {
  PanelKey* key = window_->Keys().Key(Action::kSingleBlock);
  key->click();
  EXPECT_EQ(key->isChecked(), false) << "not before the machine says so";
  Settle();
  EXPECT_TRUE(key->isChecked());
}

TEST_F(OperatorTest, StartReachesAHiddenCommandLineWhoseBlockIsInterrupted) {
  Do(Action::kOpenMdi);
  Type("M0");
  Do(Action::kCycleStart);
  Advance(100);
  ASSERT_EQ(op_->Machine().channelStatus, 4);
  ASSERT_EQ(Command(kHide), 0);
  ASSERT_FALSE(session_.IsToolOpen(PNL_TOOL_MDI));
  Do(Action::kCycleStart);
  Advance(100);
  EXPECT_EQ(op_->Machine().channelStatus, 1) << "the block went on to its end";
}

TEST_F(OperatorTest, StartReachesAHiddenCommandLineWhoseBlockRuns) {
  Do(Action::kOpenMdi);
  Type("G91 G1 X50 F1000");
  Do(Action::kCycleStart);
  Advance(100);
  ASSERT_EQ(Command(kHide), 0);
  ASSERT_EQ(op_->Machine().channelStatus, 2);
  Do(Action::kCycleStart);
  EXPECT_EQ(ZoneText(), Say(Word::kRunsAlready)) << "and not that there is nothing to start";
}

TEST_F(OperatorTest, StartWithAHiddenCommandLineAtRestSaysThatThereIsNothing) {
  Do(Action::kOpenMdi);
  Type("G0 X1");
  ASSERT_EQ(Command(kHide), 0);
  Do(Action::kCycleStart);
  EXPECT_EQ(ZoneText(), Say(Word::kNothingToStart));
  EXPECT_EQ(Line(PNL_TOOL_MDI)->text(), "G0 X1");
}

TEST_F(OperatorTest, AStartInInspectionIsSaidUntilInspectionEnds) {
  Do(Action::kOpenMdi);
  Type("G91 G1 X50 F1000");
  Do(Action::kCycleStart);
  EXPECT_EQ(op_->CurrentHint().text, "") << "an ordinary start says nothing";
  Advance(100);
  Do(Action::kFeedHold);
  Do(Action::kInspect);
  Advance(100);
  Line(PNL_TOOL_MDI)->setText("G91 G1 X5 F500");
  Do(Action::kCycleStart);
  EXPECT_EQ(op_->CurrentHint().text, Say(Word::kStartInInspection));
  EXPECT_FALSE(op_->CurrentHint().warning);
  Advance(60000);
  rig_.Machine()->Inspection(false);
  Settle();
  ASSERT_FALSE(op_->Machine().inspecting);
  EXPECT_EQ(op_->CurrentHint().text, "");
}

TEST_F(OperatorTest, TheKeyThatLeadsToTheToolLeadsToTheErrorWindow) {
  EXPECT_FALSE(op_->Can(Action::kFocusTool));
  Raise(Fault::kDriveFault);
  EXPECT_TRUE(op_->Can(Action::kFocusTool));
  window_->Editor().Edit().setFocus();
  Do(Action::kFocusTool);
  EXPECT_TRUE(Has(Errors()));
}

TEST_F(OperatorTest, TheKeyOfAnOpenCommandLineInFrontOpensItNoSecondTime) {
  const QObject here;  // who listens during the test
  int opened = 0;
  QObject::connect(&session_, &HostSession::Called, &here, [&opened](const HostCall& call) {
    if (call.slot == 1) ++opened;
  });
  Do(Action::kOpenMdi);
  Do(Action::kOpenMdi);
  EXPECT_EQ(opened, 1);
}

TEST_F(OperatorTest, ACommandLineThatTakesAResultComesInFront) {
  Do(Action::kOpenMdi);
  Do(Action::kOpenCalculator);
  ASSERT_EQ(session_.FrontTool(), PNL_TOOL_CALCULATOR);
  emit session_.Called({9, {}});
  EXPECT_EQ(session_.FrontTool(), PNL_TOOL_MDI);
}

TEST_F(OperatorTest, ARefusedCommandLineIsSaidUntilItOpens) {
  rig_.Cnc().Define(u"DM.MDI.ENABLEC1", pnl::rig::VariableType::kInt, std::int64_t{0}, true, true);
  Do(Action::kOpenMdi);
  EXPECT_EQ(ZoneText(), Say(Word::kMdiRefused));
  EXPECT_TRUE(op_->CurrentHint().warning);
  EXPECT_FALSE(op_->OpenTool(PNL_TOOL_MDI));
  rig_.Cnc().Undefine(u"DM.MDI.ENABLEC1");
  EXPECT_TRUE(op_->OpenTool(PNL_TOOL_MDI));
  Settle();
  EXPECT_EQ(ZoneText(), "");
}

TEST_F(OperatorTest, NothingToStartIsSaidUntilTheCommandLineOpens) {
  Do(Action::kCycleStart);
  ASSERT_EQ(ZoneText(), Say(Word::kNothingToStart));
  EXPECT_TRUE(op_->OpenTool(PNL_TOOL_MDI));
  Settle();
  EXPECT_EQ(ZoneText(), "");
}

TEST_F(OperatorTest, TheClearKeyEndsAHelpThatIsShownAlone) {
  op_->Desk().OnShowError({{"header", "ERROR 7"}, {"helpRef", "none.txt#7"}});
  Settle();
  ASSERT_EQ(Queue(), 0u);
  ASSERT_TRUE(op_->Desk().ShowsHelp());
  EXPECT_TRUE(op_->Can(Action::kClearError));
  Do(Action::kClearError);
  EXPECT_FALSE(op_->Desk().ShowsHelp());
  EXPECT_FALSE(op_->Can(Action::kClearError));
}

TEST_F(OperatorTest, AChannelThatIsTakenTwiceIsLetGoOnce) {
  Do(Action::kOpenMdi);
  EXPECT_EQ(op_->Mode(), Word::kMdiMode);
  // The command line reports again that it has the channel.
  PnlSendMessage(session_.ToolWindow(PNL_TOOL_MDI), PNL_MSG_TOOL_NOTIFY, 1, 1);
  Command(kClose);
  EXPECT_EQ(op_->Mode(), Word::kAutomatic);
}

TEST_F(OperatorTest, TheTraceOfAMenuLeavesItsHiddenItemsOut) {
  constexpr int kNewItem = 32773;
  constexpr int kMoveDown = 40004;
  Do(Action::kSwitchRole);
  EXPECT_TRUE(VisibleItemIds(session_.MainMenu()).toArray().contains(kMoveDown));
  op_->SendCommand(PNL_TOOL_MDI, kNewItem);
  EXPECT_FALSE(VisibleItemIds(session_.MainMenu()).toArray().contains(kMoveDown)) << "hidden while an item is typed";
}

TEST_F(OperatorTest, ABarLeavesTheHiddenItemsOfItsMenuOut) {
  constexpr int kNewItem = 32773;
  constexpr int kMoveDown = 40004;
  const auto shown = [this] {
    std::set<int> ids;
    for (const SoftKeyItem& item : window_->MainBar().Items()) ids.insert(item.id);
    return ids;
  };
  Do(Action::kSwitchRole);
  EXPECT_EQ(shown().count(kMoveDown), 1u);
  op_->SendCommand(PNL_TOOL_MDI, kNewItem);
  Settle();
  EXPECT_EQ(shown().count(kMoveDown), 0u) << "hidden while an item is typed";
  EXPECT_EQ(shown().count(kNewItem), 1u);
}

}  // namespace
}  // namespace panel
