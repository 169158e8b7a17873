// SPDX-License-Identifier: MIT
// The operator on a machine whose state is given: what each key asks of it, when it is possible, what the panel says,
// and what callbacks and messages lead to.
#include <algorithm>
#include <filesystem>
#include <limits>
#include <set>
#include <typeinfo>

#include "panel/qt/host_rig.h"
#include "support/temp_folder.h"

namespace panel {
namespace {

using State = pnl::rig::MachineState;
using pnl::rig::MachineFault;

struct ActionRow {
  Action action;
  void (*given)(State&);
  bool can;
  const char* calls;
};

void AsItIs(State&) {}
void Interrupted(State& s) { s.channelStatus = 4; }
void Inspecting(State& s) { s.inspecting = true; }
void Single(State& s) { s.singleBlock = true; }
void Stopped(State& s) { s.emergencyStop = true; }
template <int kPercent>
void Override(State& s) {
  s.feedOverride = kPercent;
}

class OperatorActions : public HostFixture, public ::testing::WithParamInterface<ActionRow> {};

TEST_P(OperatorActions, AskTheMachineForThis) {
  GetParam().given(rig.machine.state);
  EXPECT_EQ(op.Can(GetParam().action), GetParam().can);
  op.Do(GetParam().action);
  EXPECT_EQ(Calls(), GetParam().calls);
  EXPECT_EQ(Settle(), 1);
}

INSTANTIATE_TEST_SUITE_P(All, OperatorActions,
                         ::testing::Values(ActionRow{Action::kFeedHold, AsItIs, true, "FeedHold 1"},
                                           ActionRow{Action::kSingleBlock, AsItIs, true, "SingleBlock 1"},
                                           ActionRow{Action::kSingleBlock, Single, true, "SingleBlock 0"},
                                           ActionRow{Action::kReset, AsItIs, true, "Reset"},
                                           ActionRow{Action::kCancel, AsItIs, false, ""},
                                           ActionRow{Action::kCancel, Interrupted, true, "Cancel"},
                                           ActionRow{Action::kInspect, AsItIs, false, ""},
                                           ActionRow{Action::kInspect, Interrupted, true, "Inspection 1"},
                                           ActionRow{Action::kInspect, Inspecting, true, "Inspection 0"},
                                           ActionRow{Action::kOverrideDown, Override<100>, true, "FeedOverride 90"},
                                           ActionRow{Action::kOverrideDown, Override<5>, true, "FeedOverride 0"},
                                           ActionRow{Action::kOverrideDown, Override<1>, true, "FeedOverride 0"},
                                           ActionRow{Action::kOverrideDown, Override<0>, false, ""},
                                           ActionRow{Action::kOverrideUp, Override<100>, true, "FeedOverride 110"},
                                           ActionRow{Action::kOverrideUp, Override<195>, true, "FeedOverride 200"},
                                           ActionRow{Action::kOverrideUp, Override<199>, true, "FeedOverride 200"},
                                           ActionRow{Action::kOverrideUp, Override<200>, false, ""},
                                           ActionRow{Action::kOverrideFull, Override<99>, true, "FeedOverride 100"},
                                           ActionRow{Action::kOverrideFull, Override<100>, false, ""},
                                           ActionRow{Action::kOverrideFull, Override<101>, true, "FeedOverride 100"},
                                           ActionRow{Action::kCycleStart, Stopped, false, ""},
                                           ActionRow{Action::kCycleStart, AsItIs, true, ""},
                                           ActionRow{Action::kClearError, AsItIs, false, ""},
                                           ActionRow{Action::kFocusTool, AsItIs, false, ""},
                                           ActionRow{Action::kOpenProgram, AsItIs, true, ""}));

TEST_F(HostFixture, StartWithoutACommandLineEndsAHoldOrSaysThatThereIsNothing) {
  op.Do(Action::kCycleStart);
  EXPECT_EQ(Hint(), Warning(Word::kNothingToStart));
  rig.machine.state.feedHold = true;
  op.Do(Action::kCycleStart);
  EXPECT_EQ(Calls(), "FeedHold 0");
  EXPECT_EQ(Hint(), "");
  rig.machine.state.channelStatus = 4;
  op.Do(Action::kCycleStart);
  EXPECT_EQ(Calls(), "FeedHold 0") << "whatever the channel does, nobody owns its block";
  rig.machine.state.emergencyStop = true;
  op.Do(Action::kCycleStart);
  EXPECT_EQ(Hint(), Warning(Word::kReleaseEmergencyStop));
  EXPECT_EQ(Calls(), "");
}

TEST_F(HostFixture, AResetEmptiesTheQueueBeforeTheMachineRaisesAnew) {
  rig.queue = {12};
  op.Do(Action::kReset);
  EXPECT_EQ(Calls(), "ClearErrors\nReset");
  op.Do(Action::kReset);
  EXPECT_EQ(Calls(), "Reset") << "there is nothing to clear";
}

TEST_F(HostFixture, WithoutTheErrorToolTheClearKeyEmptiesTheQueue) {
  rig.queue = {12};
  EXPECT_TRUE(op.Can(Action::kClearError));
  op.Do(Action::kClearError);
  EXPECT_EQ(Calls(), "ClearErrors");
  EXPECT_EQ(Hint(), "");
  EXPECT_FALSE(op.Can(Action::kClearError));
}

TEST_F(HostFixture, WithoutAMachineTheKeysSaySo) {
  Operator lone(session, nullptr);
  EXPECT_FALSE(lone.HasMachine());
  EXPECT_TRUE(op.HasMachine());
  for (const Action action : {Action::kFeedHold, Action::kSingleBlock, Action::kReset, Action::kCancel,
                              Action::kInspect, Action::kOverrideDown, Action::kOverrideUp, Action::kOverrideFull}) {
    EXPECT_FALSE(lone.Can(action)) << static_cast<int>(action);
    lone.SetHint("other");
    lone.Do(action);
    EXPECT_EQ(lone.CurrentHint().text, Say(Word::kNoMachineHere)) << static_cast<int>(action);
    EXPECT_TRUE(lone.CurrentHint().warning);
  }
  lone.RaiseFault(DemoFaults()[1], std::nullopt);
  EXPECT_EQ(lone.CurrentHint().text, Say(Word::kNoMachineHere));
  EXPECT_TRUE(lone.CurrentHint().warning);
  EXPECT_EQ(lone.Mode(), Word::kAutomatic);
  EXPECT_TRUE(lone.Errors().empty());
  EXPECT_EQ(lone.Desk().Standing(), 0);
  EXPECT_EQ(lone.Files().Record(), nullptr);
  lone.Do(Action::kHelp);
  EXPECT_EQ(lone.CurrentHint().text, Say(Word::kNoHelpHere));
  lone.Do(Action::kCycleStart);
  EXPECT_EQ(lone.CurrentHint().text, Say(Word::kNothingToStart));
  lone.Do(Action::kOpenProgram);
  EXPECT_EQ(lone.CurrentHint().text, "") << "a key of the editor is none of the machine";
}

TEST_F(HostFixture, WithoutARigResultsAndBlocksGoNowhere) {
  Operator lone(session, nullptr);
  QStringList inserted;
  QObject::connect(&lone, &Operator::InsertValueWanted, [&](const QString& text) { inserted << text; });
  QObject::connect(&lone, &Operator::InsertBlockWanted, [&](const QString& text) { inserted << text; });
  Call(9);
  Call(12);
  EXPECT_TRUE(inserted.isEmpty());
  EXPECT_EQ(lone.CurrentHint().text, "");
}

TEST_F(HostFixture, AToolThatDoesNotExistIsSaidToBeMissing) {
  EXPECT_FALSE(op.OpenTool(99));
  EXPECT_EQ(Hint(), Warning(Word::kToolMissing));
}

TEST_F(HostFixture, AFaultKeyOrAToolsKeyTakesTheHintAwayAtOnce) {
  op.SetHint("other");
  Settle();
  op.RaiseFault(DemoFaults()[1], std::nullopt);
  EXPECT_EQ(Hint(), "");
  EXPECT_EQ(Settle(), 1);
  op.SetHint("other");
  Settle();
  op.SendCommand(PNL_TOOL_MDI, 1);
  EXPECT_EQ(Hint(), "");
  EXPECT_EQ(Settle(), 1);
  op.SetHint("other");
  Settle();
  op.RaisePlcMessage(1);
  EXPECT_EQ(Hint(), "");
  EXPECT_EQ(Settle(), 1);
}

TEST_F(HostFixture, TheHelpKeyLeavesNoWatchBehind) {
  const auto before = rig.watches.size();
  op.Do(Action::kHelp);
  EXPECT_EQ(rig.watches.size(), before);
  EXPECT_EQ(Hint(), Warning(Word::kNoHelpHere));
}

TEST_F(HostFixture, AHelpViewerThatFindsNoPageMakesTheHelpKeySaySo) {
  rig.variables[u"E.HELPDATA"] = std::u16string();
  op.Do(Action::kHelp);
  EXPECT_EQ(Calls(), "Set 'E.HELPDATA' 'OPT0140'") << "the page about the program";
  EXPECT_EQ(Hint(), Warning(Word::kNoHelpHere)) << "the library has no such variable";
}

TEST_F(HostFixture, PlcMessagesAreThoseOfTheMachine) {
  ASSERT_EQ(op.PlcMessages().size(), 2u);
  EXPECT_EQ(op.PlcMessages()[1].code, 0x10000002u);
  op.RaisePlcMessage(0x10000002u);
  EXPECT_EQ(Calls(), "RaisePlcMessage 268435458");
  Operator lone(session, nullptr);
  EXPECT_TRUE(lone.PlcMessages().empty());
  lone.RaisePlcMessage(1);
  EXPECT_EQ(Calls(), "");
}

TEST_F(HostFixture, FaultsAreRaisedAsTheirTableSays) {
  const pnl::rig::ProgramSpot spot{u"C:\\", u"A.NC", 7, 3};
  std::string calls;
  for (const DemoFault& fault : DemoFaults()) op.RaiseFault(fault, spot);
  EXPECT_EQ(Calls(),
            "EmergencyStop 1\nSetCause 0 1\nRaise 1 'A.NC' 7\nSetCause 2 1\nSetCause 3 1\n"
            "Raise 4 'A.NC' 7\nRaise 5 'A.NC' 7\nSetCause 6 1");
  op.SetHint("other");
  for (const DemoFault& fault : DemoFaults().subspan(1, 3)) op.RaiseFault(fault, std::nullopt);
  EXPECT_EQ(Calls(), "SetCause 0 1\nRaise 1 '' 0\nSetCause 2 1");
  EXPECT_EQ(Hint(), "");
  op.RaiseFault({Word::kFaultProgramLine, pnl::rig::MachineControl::Fault::kProgramLine}, std::nullopt);
  EXPECT_EQ(Hint(), Warning(Word::kFaultNeedsProgram));
  rig.machine.state.emergencyStop = true;
  op.RaiseFault(DemoFaults()[0], std::nullopt);
  EXPECT_EQ(Calls(), "EmergencyStop 0");
  EXPECT_EQ(Hint(), "");
  rig.machine.state.causes = {MachineFault::kDriveFault};
  for (const DemoFault& fault : DemoFaults().subspan(1, 3)) op.RaiseFault(fault, std::nullopt);
  EXPECT_EQ(Calls(), "SetCause 0 1\nRaise 1 '' 0\nSetCause 2 0") << "what stands is ended";
}

TEST_F(HostFixture, TheModeIsThatOfTheChannelOrOfTheMachine) {
  EXPECT_EQ(op.Mode(), Word::kAutomatic);
  rig.variables[u"[1].E.MANUALMODE"] = std::int64_t{1};
  EXPECT_EQ(op.Mode(), Word::kManual);
  rig.variables[u"[1].E.MANUALMODE"] = 1.0;
  EXPECT_EQ(op.Mode(), Word::kAutomatic) << "a real is no mode";
  const auto notice = [this](qint64 first, std::int32_t channel) {
    PnlToolNotify record{channel, 0};
    emit session.MessageArrived(PNL_MSG_TOOL_NOTIFY, first, reinterpret_cast<qint64>(&record));
    EXPECT_EQ(Settle(), 1) << first;
  };
  notice(41, 1);
  EXPECT_EQ(op.Mode(), Word::kMdiMode);
  notice(41, 1);
  notice(41, 2);
  notice(42, 1);
  EXPECT_EQ(op.Mode(), Word::kMdiMode) << "the other channel is still held";
  notice(42, 2);
  EXPECT_EQ(op.Mode(), Word::kAutomatic);
  emit session.MessageArrived(PNL_MSG_TOOL_NOTIFY, 41, 0);
  emit session.MessageArrived(PNL_MSG_TOOL_NOTIFY, 1, 1);
  EXPECT_EQ(op.Mode(), Word::kAutomatic) << "no record, no channel";
}

TEST_F(HostFixture, EverySourceOfAChangeIsToldAndManyAreOne) {
  EXPECT_EQ(Settle(), 0);
  emit session.MainMenuChanged();
  EXPECT_EQ(Settle(), 1);
  emit session.SideMenuChanged();
  EXPECT_EQ(Settle(), 1);
  emit session.MessagesChanged();
  EXPECT_EQ(Settle(), 1);
  emit session.ToolsChanged();
  EXPECT_EQ(Settle(), 1);
  emit op.Desk().Changed();
  EXPECT_EQ(Settle(), 1);
  emit op.Files().Changed();
  EXPECT_EQ(Settle(), 1);
  rig.machine.changed();
  EXPECT_EQ(Settle(), 1);
  ASSERT_EQ(rig.watches.size(), 3u);
  std::set<std::u16string> names;
  for (const auto& [number, watch] : rig.watches) {
    names.insert(watch.first);
    watch.second();
    EXPECT_EQ(Settle(), 1);
  }
  EXPECT_EQ(names, (std::set<std::u16string>{u"E.ERRORPRI", u"E.NERRORS", u"[1].E.MANUALMODE"}));
  for (int i = 0; i < 3; ++i) rig.machine.changed();
  EXPECT_EQ(Settle(), 1);
  bool closes = false;
  QObject::connect(&op, &Operator::CloseWanted, [&closes] { closes = true; });
  emit op.Desk().CloseWanted();
  EXPECT_TRUE(closes);
  EXPECT_EQ(op.Errors().at(0).number, 77);
}

TEST(OperatorEnd, TheRigHearsNothingMoreOfAnOperatorThatHasGone) {
  ASSERT_TRUE(PnlRig()->StartBare());
  HostRig rig;
  HostSession session;
  const std::type_info* listener = nullptr;
  {
    const Operator op(session, &rig);
    listener = &rig.machine.changed.target_type();
    EXPECT_EQ(rig.watches.size(), 3u);
    EXPECT_TRUE(rig.error);
  }
  EXPECT_TRUE(rig.watches.empty());
  EXPECT_FALSE(rig.error);
  EXPECT_NE(rig.machine.changed.target_type(), *listener) << "it would tell an operator that has gone";
  rig.machine.changed();
}

TEST_F(HostFixture, AHintGoesWithThePressTheActionOrItsCause) {
  op.SetHint("seen");
  EXPECT_EQ(Settle(), 1);
  op.OnPress();
  EXPECT_EQ(Hint(), "");
  EXPECT_EQ(Settle(), 1);
  op.OnPress();
  EXPECT_EQ(Settle(), 0) << "there was nothing to take away";
  op.SetHint("warned", true);
  Settle();
  op.OnPress();
  EXPECT_EQ(Hint(), "! warned");
  EXPECT_EQ(Settle(), 0);
  op.Do(Action::kOpenProgram);
  EXPECT_EQ(Hint(), "");
  bool cause = true;
  op.SetHint("caused", true, [&cause] { return cause; });
  Settle();
  EXPECT_EQ(Hint(), "! caused");
  cause = false;
  rig.machine.changed();
  Settle();
  EXPECT_EQ(Hint(), "");
  op.SetHint("lasting");
  rig.machine.changed();
  Settle();
  EXPECT_EQ(Hint(), "lasting");
  op.SendCommand(PNL_TOOL_MDI, 1);
  EXPECT_EQ(Hint(), "");
}

struct NumberRow {
  double value;
  const char* text;
};

class CalculatorResults : public HostFixture, public ::testing::WithParamInterface<NumberRow> {};

TEST_P(CalculatorResults, GoIntoTheProgramAsItTakesThem) {
  rig.variables[u"E.CALCRESUL"] = GetParam().value;
  QStringList inserted;
  QObject::connect(&op, &Operator::InsertValueWanted, [&](const QString& text) { inserted << text; });
  Call(9);
  EXPECT_EQ(inserted, QStringList{GetParam().text});
  EXPECT_EQ(Hint(), Say(Word::kResultInProgram, GetParam().text));
}

INSTANTIATE_TEST_SUITE_P(All, CalculatorResults,
                         ::testing::Values(NumberRow{0, "0"}, NumberRow{2.5, "2.5"}, NumberRow{0.1 + 0.2, "0.3"},
                                           NumberRow{100, "100"}, NumberRow{-1000000, "-1000000"},
                                           NumberRow{0.000001, "0.000001"}, NumberRow{0.0000001, "0"},
                                           NumberRow{-0.0000001, "0"}, NumberRow{1.0 / 3, "0.333333"},
                                           NumberRow{1e15, "1000000000000000"}));

TEST_F(HostFixture, AResultThatIsNoNumberIsRefused) {
  QStringList inserted;
  QObject::connect(&op, &Operator::InsertValueWanted, [&](const QString& text) { inserted << text; });
  rig.variables[u"E.CALCRESUL"] = std::numeric_limits<double>::infinity();
  Call(9);
  EXPECT_EQ(Hint(), Warning(Word::kResultNoNumber));
  op.SetHint("");
  rig.variables[u"E.CALCRESUL"] = std::u16string(u"7");
  Call(9);
  rig.variables.clear();
  Call(9);
  EXPECT_EQ(Hint(), "");
  EXPECT_TRUE(inserted.isEmpty());
}

TEST_F(HostFixture, EachCallbackLeadsToItsOwnWishAlone) {
  QStringList wishes;
  QObject::connect(&op, &Operator::InsertBlockWanted, [&](const QString& text) { wishes << "block " + text; });
  QObject::connect(&op, &Operator::KeyForwarded, [&](int key) { wishes << QString("key %1").arg(key); });
  const auto wish = [&](int slot, const QVariantList& args = {}) {
    Call(slot, args);
    Settle();
    return std::exchange(wishes, {});
  };
  EXPECT_EQ(wish(12), QStringList{"block G0 X1"});
  EXPECT_EQ(wish(15, {27, 1}), QStringList{"key 27"});
  EXPECT_EQ(wish(0, {0}) + wish(3) + wish(4) + wish(5) + wish(6) + wish(7), QStringList());
  EXPECT_EQ(Hint(), "");
  EXPECT_EQ(wish(8), QStringList());
  EXPECT_EQ(Hint(), Warning(Word::kNoRequest)) << "a request without a record";
  EXPECT_EQ(wish(18), QStringList());
  EXPECT_EQ(Hint(), Warning(Word::kMachiningMissing));
  session.SetReacting(false);
  for (int slot = 0; slot < kSlotCount; ++slot) EXPECT_EQ(wish(slot, {27, 2}), QStringList()) << slot;
}

using Fate = pnl::rig::CncControl::ErrorFate;
using Summary = pnl::rig::CncControl::ErrorSummary;

TEST_F(HostFixture, EveryErrorThatComesOrGoesIsToldAsAChange) {
  Summary error;
  error.serial = 1;
  for (const Fate fate : {Fate::kRaised, Fate::kAcknowledged}) {
    rig.error(error, fate);
    EXPECT_EQ(Settle(), 1);
  }
}

TEST_F(HostFixture, AForwardedKeyIsPassedOnWhenNoHelpOfAnErrorIsShown) {
  QList<int> forwarded;
  QObject::connect(&op, &Operator::KeyForwarded, [&forwarded](int key) { forwarded << key; });
  Call(13, {QVariantMap{{"header", "h"}, {"helpRef", "a#7"}}});
  EXPECT_FALSE(op.Desk().ShowsHelp()) << "there is no view";
  EXPECT_EQ(Settle(), 1);
  Call(14);
  EXPECT_EQ(Settle(), 1) << "that the errors are gone is drawn too";
  Call(15, {27});
  EXPECT_EQ(forwarded, QList<int>{27});
  op.Desk().OnHelpLeft();
  EXPECT_FALSE(op.Desk().ShowsHelp());
}

TEST_F(HostFixture, OnlyTheErrorWindowInterrupts) {
  int came = 0;
  QObject::connect(&op.Desk(), &ErrorDesk::WindowCame, [&came] { ++came; });
  Call(1, {PNL_TOOL_MDI});
  EXPECT_EQ(came, 0);
  Call(1, {PNL_TOOL_ERRORS});
  EXPECT_EQ(came, 1);
}

TEST_F(HostFixture, TheQuestionToCloseIsAskedOnceUntilThereIsANewReason) {
  int asked = 0;
  int closed = 0;
  QObject::connect(&op.Desk(), &ErrorDesk::CloseAsked, [&asked] { ++asked; });
  QObject::connect(&op, &Operator::CloseWanted, [&closed] { ++closed; });
  const auto ask = [&](qint64 first) {
    emit session.MessageArrived(PnlRegisterMessage("ZM_CLOSE7340"), first, 0);
    return std::exchange(asked, 0);
  };
  EXPECT_EQ(ask(0), 0);
  EXPECT_EQ(ask(2), 0);
  op.Desk().AnswerClose(true);
  EXPECT_EQ(closed, 0) << "nobody asked";
  EXPECT_EQ(ask(1), 1);
  EXPECT_TRUE(op.Desk().AsksToClose());
  EXPECT_EQ(ask(1), 0) << "it is asked already";
  Settle();
  op.Desk().AnswerClose(false);
  EXPECT_EQ(Settle(), 1);
  EXPECT_FALSE(op.Desk().AsksToClose());
  EXPECT_EQ(ask(1), 0);
  using Class = ErrorKind;
  const auto tell = [&](int number, Class kind, Fate fate) {
    Summary error;
    error.number = number;
    error.errorClass = kind;
    error.serial = number;
    rig.error(error, fate);
  };
  const auto reason = [&](int number, Class kind, Fate fate) {
    tell(number, kind, fate);
    const bool asks = ask(1) == 1;
    op.Desk().AnswerClose(false);
    return asks;
  };
  EXPECT_FALSE(reason(5, Class::kError, Fate::kRaised));
  EXPECT_FALSE(reason(200, Class::kError, Fate::kRaised));
  EXPECT_FALSE(reason(201, Class::kWarning, Fate::kRaised));
  EXPECT_FALSE(reason(201, Class::kError, Fate::kCleared));
  EXPECT_FALSE(reason(5, Class::kFatal, Fate::kAcknowledged));
  EXPECT_TRUE(reason(201, Class::kError, Fate::kRaised));
  EXPECT_TRUE(reason(5, Class::kFatal, Fate::kRaised));
  EXPECT_FALSE(reason(202, Class::kError, Fate::kRaised));
  EXPECT_EQ(closed, 0);
  tell(201, Class::kError, Fate::kRaised);
  EXPECT_EQ(ask(1), 1);
  op.Desk().AnswerClose(true);
  EXPECT_EQ(closed, 1);
  EXPECT_EQ(op.Desk().History().Rows().size(), 6u) << "each error is one of the history";
}

TEST_F(HostFixture, TheSignIsWhatTheToolAskedForLast) {
  emit session.MessageArrived(PnlRegisterMessage("ZM_UPDATE_NERRORS"), (2 << 16) | 7, (3 << 16) | 500);
  EXPECT_EQ(op.Desk().Sign(), (ErrorSign{7, ErrorKind::kWarning, 500, 3}));
  EXPECT_EQ(Settle(), 1);
  emit session.MessageArrived(PnlRegisterMessage("ZM_CLOSE7340"), 0, 0);
  EXPECT_EQ(op.Desk().Sign().count, 3);
  EXPECT_EQ(op.Desk().Standing(), 0) << "the queue is the kernel's";
  session.SetReacting(false);
  emit session.MessageArrived(PnlRegisterMessage("ZM_UPDATE_NERRORS"), 0, 0);
  EXPECT_EQ(op.Desk().Sign().count, 3) << "a script's session keeps nothing";
}

TEST(ErrorSigns, ANumberThatIsNoClassIsAnError) {
  const auto kindOf = [](qint64 number) { return ErrorSignOf((number << 16) | 7, (2 << 16) | 500).kind; };
  for (int number = 0; number < kErrorClasses; ++number) EXPECT_EQ(kindOf(number), static_cast<ErrorKind>(number));
  EXPECT_EQ(kErrorClasses, 5);
  EXPECT_EQ(kindOf(5), ErrorKind::kError);
  EXPECT_EQ(kindOf(0xFFFF), ErrorKind::kError);
  EXPECT_EQ(ErrorSignOf(7, (2 << 16) | 500), (ErrorSign{7, ErrorKind::kError, 500, 2}));
}

TEST_F(HostFixture, WithoutAKernelTheSignSaysHowManyStand) {
  ErrorDesk desk(session, nullptr);
  desk.OnMessage(PnlRegisterMessage("ZM_UPDATE_NERRORS"), 0, 4 << 16);
  EXPECT_EQ(desk.Standing(), 4);
  desk.OnShowError({{"helpRef", "a#7"}});
  EXPECT_FALSE(desk.ShowsHelp()) << "without the view";
}

TEST_F(HostFixture, UnderBareThereIsNoHistoryAndNoErrorTool) {
  session.SetReacting(false);
  rig.error = {};
  ErrorDesk desk(session, &rig);
  EXPECT_FALSE(rig.error);
  desk.StartTools();
  EXPECT_FALSE(desk.HasTool());
  EXPECT_FALSE(desk.BringBack());
}

TEST(ErrorColours, AreThoseOfTheErrorWindow) {
  EXPECT_EQ(ColorOfKind(ErrorKind::kError), 0x0000A0u);
  EXPECT_EQ(ColorOfKind(ErrorKind::kMarked), 0x0000A0u);
  EXPECT_EQ(ColorOfKind(ErrorKind::kWarning), 0x648064u);
  EXPECT_EQ(ColorOfKind(ErrorKind::kFatal), 0x806480u);
  EXPECT_EQ(ColorOfKind(ErrorKind::kConfirm), 0x806480u);
}

}  // namespace
}  // namespace panel
