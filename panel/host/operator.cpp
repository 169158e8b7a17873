// SPDX-License-Identifier: MIT
#include "host/operator.h"

#include <QWidget>
#include <algorithm>
#include <bit>
#include <cmath>

namespace panel {
namespace {

constexpr int kChannel = 1;

/// A number as a program takes it: with a point, without an exponent or trailing zeros.
QString PlainNumber(double value) {
  constexpr int kDecimals = 6;
  QString text = QString::number(value, 'f', kDecimals);
  while (text.endsWith(QLatin1Char('0'))) text.chop(1);
  if (text.endsWith(QLatin1Char('.'))) text.chop(1);
  return text == QLatin1String("-0") ? QStringLiteral("0") : text;
}

}  // namespace

Operator::Operator(HostSession& session, pnl::rig::Rig* rig, QObject* parent)
    : QObject(parent),
      session_(session),
      rig_(rig),
      machine_(rig == nullptr ? nullptr : rig->Machine()),
      errors_(session, rig),
      files_(session, rig),
      help_(session, rig) {
  connect(&session_, &HostSession::Called, this, &Operator::OnCalled);
  connect(&session_, &HostSession::MessageArrived, this, &Operator::OnMessage);
  connect(&session_, &HostSession::MainMenuChanged, this, &Operator::Touch);
  connect(&session_, &HostSession::SideMenuChanged, this, &Operator::Touch);
  connect(&session_, &HostSession::MessagesChanged, this, &Operator::Touch);
  connect(&session_, &HostSession::ToolsChanged, this, &Operator::Touch);
  connect(&errors_, &ErrorDesk::Changed, this, &Operator::Touch);
  connect(&errors_, &ErrorDesk::CloseWanted, this, &Operator::CloseWanted);
  connect(&files_, &FileDesk::Changed, this, &Operator::Touch);
  connect(&files_, &FileDesk::Said, this, [this](const QString& text, bool warning) { SetHint(text, warning); });
  if (rig_ == nullptr) return;
  for (const char16_t* name : {u"E.NERRORS", u"E.ERRORPRI", u"[1].E.MANUALMODE"}) {
    watches_.push_back(rig_->Cnc().Watch(name, [this] { Touch(); }));
  }
  if (machine_ != nullptr) machine_->OnChanged([this] { Touch(); });
}

Operator::~Operator() {
  if (machine_ != nullptr) machine_->OnChanged([] {});
  for (const int watch : watches_) rig_->Cnc().Unwatch(watch);
}

void Operator::Touch() {
  if (touched_) return;
  touched_ = true;
  QMetaObject::invokeMethod(
      this,
      [this] {
        touched_ = false;
        DropStaleHint();
        emit Changed();
      },
      Qt::QueuedConnection);
}

void Operator::SetHint(const QString& text, bool warning, std::function<bool()> holds) {
  hint_ = {text, warning, std::move(holds)};
  Touch();
}

void Operator::OnPress() {
  if (hint_.text.isEmpty() || hint_.warning) return;
  hint_ = {};
  Touch();
}

void Operator::DropStaleHint() {
  if (hint_.holds && !hint_.holds()) hint_ = {};
}

pnl::rig::MachineState Operator::Machine() const {
  return machine_ == nullptr ? pnl::rig::MachineState{} : machine_->State();
}

qint64 Operator::Int(const char16_t* name) const {
  if (rig_ == nullptr) return 0;
  const auto value = rig_->Cnc().Get(name);
  const auto* number = value ? std::get_if<std::int64_t>(&*value) : nullptr;
  return number == nullptr ? 0 : *number;
}

Word Operator::Mode() const {
  if (!heldChannels_.empty()) return Word::kMdiMode;
  return Int(u"[1].E.MANUALMODE") == 1 ? Word::kManual : Word::kAutomatic;
}

std::vector<pnl::rig::CncControl::ErrorSummary> Operator::Errors() const {
  if (rig_ == nullptr) return {};
  return rig_->Cnc().Errors();
}

void Operator::Do(Action action) {
  hint_ = {};
  Touch();
  if (!Can(action)) {
    if (const auto why = WhyNot(action))
      SetHint(Say(*why), true, [this, action, why] { return WhyNot(action) == why; });
    return;
  }
  switch (action) {
    case Action::kCycleStart:
      return CycleStart();
    case Action::kOpenMdi:
      return OpenMdi();
    case Action::kSwitchRole:
      return SwitchRole();
    case Action::kHelp:
      return AskHelp();
    case Action::kClearError:
      return ClearError();
    case Action::kOpenCalculator:
      return OpenCalculator();
    case Action::kOpenMachining:
      return OpenMachining();
    case Action::kFocusTool:
      return TurnTo(session_.FrontTool());
    default:
      return DoMachine(action);
  }
}

bool Operator::OpenTool(int tool) {
  PnlWindow window = session_.ToolWindow(tool);
  if (window == 0) window = session_.LoadTool(tool, session_.ToolArea());
  if (window == 0) {
    SetHint(Say(Word::kToolMissing), true);
    return false;
  }
  if (tool == PNL_TOOL_MDI && PnlSendMessage(window, PNL_MSG_TOOL_COMMAND, PNL_COMMAND_OPEN, kChannel) == PNL_REFUSED) {
    SetHint(Say(Word::kMdiRefused), true, [this] { return !session_.IsToolOpen(PNL_TOOL_MDI); });
    return false;
  }
  return true;
}

void Operator::OpenMdi() {
  const int tool = PNL_TOOL_MDI;
  if (session_.IsToolOpen(tool) && session_.FrontTool() == tool) return TurnTo(tool);
  OpenTool(tool);
}

void Operator::OpenCalculator() {
  // An open calculator comes to the front. A second one would have a history of its own.
  if (session_.IsToolOpen(PNL_TOOL_CALCULATOR)) return session_.BringToFront(PNL_TOOL_CALCULATOR);
  OpenTool(PNL_TOOL_CALCULATOR);
}

void Operator::OpenMachining() {
  const int tool = PNL_TOOL_MACHINING_CALCULATOR;
  if (session_.IsToolOpen(tool)) return session_.BringToFront(tool);
  // A closed one is only hidden: it opens again when it is shown, with what the operator had chosen.
  if (auto* closed = static_cast<QWidget*>(PnlWidgetOf(session_.ToolWindow(tool)))) {
    closed->show();
  } else {
    (void)OpenTool(tool);
  }
  if (!session_.IsToolOpen(tool)) SetHint(Say(Word::kMachiningMissing), true);
}

void Operator::TurnTo(int tool) {
  session_.BringToFront(tool);
  const PnlWindow window = session_.ToolWindow(tool);
  // With the focus in a list this command would choose the first item, and cycle start would run it. So it is sent only
  // while a line is typed in.
  if (tool == PNL_TOOL_MDI && HostSession::IsTypedIn(window)) {
    PnlSendMessage(window, PNL_MSG_TOOL_COMMAND, PNL_COMMAND_RESTORE_FOCUS, kChannel);
  }
}

void Operator::CloseTool(int tool) {
  // On PNL_COMMAND_LEAVE the calculators don't report that they close, and the machining calculator doesn't ask about
  // its rows.
  const bool calculator = tool == PNL_TOOL_CALCULATOR || tool == PNL_TOOL_MACHINING_CALCULATOR;
  const int code = calculator ? PNL_COMMAND_CLOSE_TOOL : PNL_COMMAND_LEAVE;
  // Posted, because the tool is still inside the key that asked for it.
  PnlPostMessage(session_.ToolWindow(tool), PNL_MSG_TOOL_COMMAND, code, 0);
}

bool Operator::CloseUnsaved() {
  const int tool = PNL_TOOL_MACHINING_CALCULATOR;
  const PnlWindow window = session_.ToolWindow(tool);
  if (PnlSendMessage(window, PNL_MSG_TOOL_COMMAND, PNL_COMMAND_ASK_UNSAVED, 0) != PNL_UNSAVED_WORK) return true;
  session_.BringToFront(tool);
  return PnlSendMessage(window, PNL_MSG_TOOL_COMMAND, PNL_COMMAND_CLOSE_TOOL, 0) != PNL_CLOSE_REFUSED;
}

void Operator::InsertBlock() {
  if (rig_ == nullptr) return;
  emit InsertBlockWanted(QString::fromStdU16String(rig_->ClipboardText()));
  // The tool closes next. The operator goes on in the program, whichever other tool is open.
  session_.WorkInProgram();
}

void Operator::TakeCalcResult() {
  if (session_.IsToolOpen(PNL_TOOL_MDI)) {
    session_.BringToFront(PNL_TOOL_MDI);
    PnlSendMessage(session_.ToolWindow(PNL_TOOL_MDI), PNL_MSG_RESULT_READY, PNL_READY_CALC_RESULT, 0);
    return;
  }
  const auto result = rig_ == nullptr ? std::nullopt : rig_->Cnc().Get(u"E.CALCRESUL");
  const auto* value = result ? std::get_if<double>(&*result) : nullptr;
  if (value == nullptr) return;
  if (!std::isfinite(*value)) return SetHint(Say(Word::kResultNoNumber), true);
  const QString text = PlainNumber(*value);
  emit InsertValueWanted(text);
  SetHint(Say(Word::kResultInProgram, text));
}

void Operator::SwitchRole() {
  if (!session_.IsToolOpen(PNL_TOOL_MDI) && !OpenTool(PNL_TOOL_MDI)) return;
  // The error window stays in front of the tool that caused the error.
  if (session_.FrontTool() != PNL_TOOL_ERRORS) session_.BringToFront(PNL_TOOL_MDI);
  PnlSendMessage(session_.ToolWindow(PNL_TOOL_MDI), PNL_MSG_TOOL_COMMAND, PNL_COMMAND_SWITCH_ROLE, kChannel);
}

void Operator::AskHelp() {
  switch (help_.Ask([this] { return errors_.ShowsHelp(); })) {
    case HelpEnd::kNone:
      return SetHint(Say(Word::kNoHelpHere), true);
    case HelpEnd::kMissing:
      return SetHint(Say(Word::kToolMissing), true);
    case HelpEnd::kShown:
    case HelpEnd::kByTool:
      return;
  }
}

void Operator::ClearError() {
  const bool seen = errors_.WindowShown();
  const int before = errors_.Standing();
  errors_.Acknowledge();
  const auto stays = [this, before] { return errors_.WindowShown() && errors_.Standing() == before; };
  if (seen && stays()) SetHint(Say(Word::kErrorStays), true, stays);
}

std::vector<pnl::rig::MachineControl::PlcMessage> Operator::PlcMessages() const {
  if (machine_ == nullptr) return {};
  return machine_->PlcMessages();
}

void Operator::RaisePlcMessage(std::uint32_t code) {
  hint_ = {};
  Touch();
  if (machine_ != nullptr) machine_->RaisePlcMessage(code);
}

void Operator::SendCommand(int tool, int id) {
  hint_ = {};
  // An operator who presses a tool's soft key works in that tool.
  if (session_.FrontTool() == tool) session_.BringToFront(tool);
  PnlSendMessage(session_.ToolWindow(tool), PNL_MSG_COMMAND, id, 0);
  Touch();
}

void Operator::OnCalled(const HostCall& call) {
  if (!session_.Reacting()) return;
  switch (call.slot) {
    case PNL_SLOT_TOOL_OPENING:
      if (call.args.value(0).toInt() == PNL_TOOL_ERRORS) errors_.OnWindowOpening();
      return;
    case PNL_SLOT_CALC_RESULT_ACCEPTED:
      return TakeCalcResult();
    case PNL_SLOT_INSERT_BLOCK:
      return InsertBlock();
    case PNL_SLOT_SHOW_ERROR:
      return errors_.OnShowError(call.args.value(0).toMap());
    case PNL_SLOT_ERRORS_GONE:
      return errors_.OnErrorsGone();
    case PNL_SLOT_FORWARD_KEY:
      // The key by which the operator has left an error's help; it does nothing else.
      if (errors_.ShowsHelp()) return errors_.OnHelpLeft();
      emit KeyForwarded(call.args.value(0).toInt());
      return;
    case PNL_SLOT_TOOL_WANTS_CLOSE:
      return CloseTool(call.args.value(0).toInt());
    case PNL_SLOT_OPEN_CALCULATOR:
      return OpenCalculator();
    case PNL_SLOT_OPEN_MACHINING_CALCULATOR:
      return OpenMachining();
    default:
      return;
  }
}

void Operator::OnMessage(std::uint32_t message, qint64 first, qint64 second) {
  const bool taken = first == PNL_NOTIFY_CHANNEL_TAKEN;
  if (message == PNL_MSG_TOOL_NOTIFY && (taken || first == PNL_NOTIFY_CHANNEL_GIVEN) && second != 0) {
    const auto channel = std::bit_cast<const PnlToolNotify*>(static_cast<intptr_t>(second))->channel;
    heldChannels_.erase(std::remove(heldChannels_.begin(), heldChannels_.end(), channel), heldChannels_.end());
    if (taken) heldChannels_.push_back(channel);
    return Touch();
  }
  if (!session_.Reacting()) return;
  errors_.OnMessage(message, first, second);
}

}  // namespace panel
