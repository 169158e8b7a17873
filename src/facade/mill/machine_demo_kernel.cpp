// SPDX-License-Identifier: MIT
#include "facade/mill/machine_demo.h"
#include "facade/mill/machine_messages.h"
#include "facade/mill/machine_raised.h"
#include "facade/mill/machine_variables.h"

namespace pnl::sim {

namespace {
constexpr int kChannel = 1;
constexpr int kCanCancel = 2;
constexpr int kStartAsked = 1;
constexpr int kStartAnswered = 2;
/// Every error text begins with a separator, which its readers skip.
constexpr TextView kSeparator = u"\n";
constexpr std::string_view kKernelTexts = "error_to_txt";
}  // namespace

void DemoMachine::SetInt(TextView name, int value) { environment_.Set(name, static_cast<std::int64_t>(value)); }

void DemoMachine::SetLanguage(std::string_view code) {
  language_ = code.substr(0, 2) == "es" ? MachineLanguage::kSpanish : MachineLanguage::kEnglish;
  for (const FaultText& entry : FaultTexts()) {
    environment_.SetErrorText(kKernelTexts, entry.number, Text(kSeparator).append(Wording(entry.code, language_)),
                              HelpRefOf(entry.number, language_));
  }
  const bool spanish = language_ == MachineLanguage::kSpanish;
  for (const TableText& entry : RaisedTexts()) {
    environment_.SetErrorText(entry.function, entry.number, spanish ? entry.spanish : entry.english,
                              entry.description == 0 ? Text() : HelpRefOf(entry.description, language_));
  }
  for (const sim::PlcMessage& message : sim::PlcMessages()) {
    environment_.SetPlcMessage(message.type, message.id, spanish ? message.spanish : message.english, message.document);
  }
}

int DemoMachine::InterlocksHeld() const {
  return grants_ + (task_ && task_->interlock ? 1 : 0) + (parked_ && parked_->interlock ? 1 : 0);
}

int DemoMachine::EnProcesoInspec(int channel) { return channel == kChannel && inspecting_ ? 1 : 0; }

int DemoMachine::IsMDIAllowedInResetInspect(int channel) { return EnProcesoInspec(channel); }

int DemoMachine::CogerPlcFree(int channel) {
  if (channel != kChannel || task_ || aborting_) return 0;
  ++grants_;
  return 1;
}

int DemoMachine::LiberarPlcFree(int channel) {
  if (channel != kChannel || grants_ == 0) return 0;
  --grants_;
  return 1;
}

int DemoMachine::SetMdi(int channel, int on) {
  if (channel != kChannel) return 0;
  mdi_ = on != 0;
  if (!mdi_ && (task_ || inspecting_)) Abort(true);
  return 1;
}

int DemoMachine::EndMDIMode(int channel) {
  if (SetMdi(channel, 0) == 0) return 0;
  SetInt(machine_variable::kPanelMode, 0);
  return 1;
}

int DemoMachine::SetMode(int channel, int mode) {
  if (channel != kChannel) return 0;
  SetInt(machine_variable::kManualMode, mode);
  Changed();
  return 1;
}

std::optional<sim::Fault> DemoMachine::CheckState() const {
  const auto fault = [](FaultCode code) { return sim::Fault{code, {}, 0, 0}; };
  if (emergency_) return fault(FaultCode::kEmergencyStop);
  if (!mdi_) return fault(FaultCode::kNotInMdi);
  if (task_ || aborting_) return fault(FaultCode::kBusy);
  return std::nullopt;
}

int DemoMachine::MDILine(TextView block) {
  TakeStartRequest();
  if (const std::optional<sim::Fault> fault = CheckState()) return Refuse(*fault, block);
  if (!causes_.empty()) {
    const std::int32_t number = RaisedNumber(*causes_.begin());
    RaiseCauses();
    return number;
  }
  const std::variant<Block, sim::Fault> parsed = ParseBlock(block);
  if (const sim::Fault* fault = std::get_if<sim::Fault>(&parsed)) return Refuse(*fault, block);
  const std::variant<Request, sim::Fault> request = ReadRequest(std::get<Block>(parsed));
  if (const sim::Fault* fault = std::get_if<sim::Fault>(&request)) return Refuse(*fault, block);
  std::variant<Plan, sim::Fault> plan = PlanBlock(std::get<Request>(request), condition_);
  if (const sim::Fault* fault = std::get_if<sim::Fault>(&plan)) return Refuse(*fault, block);
  Accept(block, std::get<Plan>(std::move(plan)));
  return 0;
}

int DemoMachine::Refuse(const sim::Fault& fault, TextView block) {
  PushFault(fault, block);
  return FaultNumber(fault.code);
}

void DemoMachine::PushFault(const sim::Fault& fault, TextView block) {
  environment_.PushError(MakeErrorRecord(fault, block, language_));
}

void DemoMachine::Accept(TextView block, Plan plan) {
  condition_.modal = plan.after;
  task_ = Task{BlockRun(Text(block), std::move(plan.steps), Now(), percent_), Halt::kNone, grants_ > 0, std::nullopt};
  if (task_->interlock) --grants_;
  Publish();
}

/// Clears the tool's start request, because the block or release that it announced has come.
void DemoMachine::TakeStartRequest() {
  if (inspecting_ && environment_.GetInt(machine_variable::kStartOnMdi) != 0) {
    SetInt(machine_variable::kStartOnMdi, 0);
  }
}

int DemoMachine::NextSingleStep() {
  TakeStartRequest();
  if (MayNotGoOn() || !task_ || task_->halt == Halt::kNone || task_->halt == Halt::kFeedHold) return 1;
  Release();
  return 0;
}

int DemoMachine::ClearFeedhold() {
  TakeStartRequest();
  if (MayNotGoOn() || !task_ || task_->halt != Halt::kFeedHold) return 1;
  Release();
  return 0;
}

int DemoMachine::MDICancel(int channel) {
  if (channel != kChannel || !Interrupted()) return 1;
  Abort(false);
  return 0;
}

int DemoMachine::PosibleMDICancel(int channel) { return channel == kChannel && Interrupted() ? kCanCancel : 0; }

int DemoMachine::ChannelNumber() { return kChannel; }

int DemoMachine::ConvertLogToName(int logicalNumber, Text& name) {
  if (logicalNumber < 1 || logicalNumber > static_cast<int>(kAxisCount)) return -1;
  name = Text(1, kAxes[static_cast<std::size_t>(logicalNumber - 1)].name);
  return 0;
}

void DemoMachine::OnWritten(TextView name) {
  if (!inspecting_) return;
  const int value = environment_.GetInt(name);
  if (name == machine_variable::kStartOnMdi && value == kStartAsked) {
    SetInt(machine_variable::kStartOnMdi, kStartAnswered);
    SetInt(machine_variable::kInspection, 1);
  }
  // A tool that gives the channel back writes 0, which ends the inspection.
  if (name == machine_variable::kInspection && value == 0) Inspection(false);
}

}  // namespace pnl::sim
