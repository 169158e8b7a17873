// SPDX-License-Identifier: MIT
#include "facade/sim/sim_kernel.h"

namespace pnl::sim {

template <typename Ask>
int SimKernel::Call(std::string_view name, const SimRecorder::Args& args, Ask ask) {
  const auto preset = answers_.TakePreset(name);
  int result = SimAnswers::StartValue(name);
  if (preset) {
    result = *preset;
  } else if (machine_ != nullptr) {
    result = ask(*machine_);
  }
  recorder_.Cnc(name, args, Recorded(result));
  return result;
}

int SimKernel::Call(std::string_view name, const SimRecorder::Args& args) {
  const int result = answers_.Take(name);
  recorder_.Cnc(name, args, Recorded(result));
  return result;
}

int SimKernel::ExisteKernel() { return Call("ExisteKernel", {}); }

// A machine has the inspection variables. Without a machine nobody serves them.
int SimKernel::IsNewInspecAllowed(int zero) {
  return Call("IsNewInspecAllowed", {Recorded(zero)}, [](KernelMachine&) { return 1; });
}

int SimKernel::EnProcesoInspec(int channel) {
  return Call("EnProcesoInspec", {Recorded(channel)},
              [&](KernelMachine& machine) { return machine.EnProcesoInspec(channel); });
}

int SimKernel::IsMDIAllowedInResetInspect(int channel) {
  return Call("IsMDIAllowedInResetInspect", {Recorded(channel)},
              [&](KernelMachine& machine) { return machine.IsMDIAllowedInResetInspect(channel); });
}

int SimKernel::CogerPlcFree(int zero, int channel) {
  return Call("CogerPlcFree", {Recorded(zero), Recorded(channel)},
              [&](KernelMachine& machine) { return machine.CogerPlcFree(channel); });
}

int SimKernel::LiberarPlcFree(int zero, int channel, int one) {
  return Call("LiberarPlcFree", {Recorded(zero), Recorded(channel), Recorded(one)},
              [&](KernelMachine& machine) { return machine.LiberarPlcFree(channel); });
}

int SimKernel::SetMdi(int channel, int on) {
  return Call("SetMdi", {Recorded(channel), Recorded(on)},
              [&](KernelMachine& machine) { return machine.SetMdi(channel, on); });
}

int SimKernel::EndMDIMode(int channel) {
  return Call("EndMDIMode", {Recorded(channel)}, [&](KernelMachine& machine) { return machine.EndMDIMode(channel); });
}

int SimKernel::SetMode(int channel, int mode) {
  return Call("SetMode", {Recorded(channel), Recorded(mode)},
              [&](KernelMachine& machine) { return machine.SetMode(channel, mode); });
}

int SimKernel::MDILine(int zero, TextView block, int none, int four, int last) {
  return Call("MDILine", {Recorded(zero), Recorded(block), Recorded(none), Recorded(four), Recorded(last)},
              [&](KernelMachine& machine) { return machine.MDILine(block); });
}

int SimKernel::NextSingleStep(int zero) {
  return Call("NextSingleStep", {Recorded(zero)}, [](KernelMachine& machine) { return machine.NextSingleStep(); });
}

int SimKernel::ClearFeedhold(int zero) {
  return Call("ClearFeedhold", {Recorded(zero)}, [](KernelMachine& machine) { return machine.ClearFeedhold(); });
}

int SimKernel::MDICancel(int channel) {
  return Call("MDICancel", {Recorded(channel)}, [&](KernelMachine& machine) { return machine.MDICancel(channel); });
}

int SimKernel::PosibleMDICancel(int channel) {
  return Call("PosibleMDICancel", {Recorded(channel)},
              [&](KernelMachine& machine) { return machine.PosibleMDICancel(channel); });
}

int SimKernel::WriteTxtInBlackBox(TextView text, int zero) {
  return Call("WriteTxtInBlackBox", {Recorded(text), Recorded(zero)});
}

int SimKernel::SWOption_IsZMCON() { return Call("SWOption_IsZMCON", {}); }

int SimKernel::ReadError(int index, ErrorRecord& record) {
  const auto preset = answers_.TakePreset("ReadError");
  const int wanted = index == -1 ? 0 : index;
  const ErrorRecord* found = wanted < 0 ? nullptr : errors_.At(static_cast<std::size_t>(wanted));
  const int result = preset ? *preset : (found == nullptr ? -1 : wanted);
  rig::Value read;
  if (result >= 0 && found != nullptr) {
    record = *found;
    read = Recorded(record);
  }
  recorder_.Cnc("ReadError", {Recorded(index), read}, Recorded(result));
  return result;
}

int SimKernel::ResetError(int index, int kind) {
  std::optional<std::size_t> wanted;
  if (index >= -1) wanted = index == -1 ? 0 : static_cast<std::size_t>(index);
  return TakeError("ResetError", {Recorded(index), Recorded(kind)}, wanted, SimErrorQueue::Fate::kAcknowledged);
}

int SimKernel::ResetErrorWithEnter(int zero, const ErrorRecord& record) {
  return TakeError("ResetErrorWithEnter", {Recorded(zero), Recorded(record)}, errors_.Find(record),
                   SimErrorQueue::Fate::kConfirmed);
}

// The call is recorded before the reports that it causes, so that a reader sees cause before effect. Therefore the
// result is computed before the error is removed.
int SimKernel::TakeError(std::string_view name, const SimRecorder::Args& args, std::optional<std::size_t> index,
                         SimErrorQueue::Fate fate) {
  const bool there = index && *index < errors_.Size();
  const auto preset = answers_.TakePreset(name);
  const int result = preset ? *preset : (there ? SimAnswers::StartValue(name) : -1);
  recorder_.Cnc(name, args, Recorded(result));
  if (there) {
    errors_.Take(*index, fate);
    if (machine_ != nullptr) machine_->OnErrorReset();
  }
  return result;
}

int SimKernel::AddLogOnInfo(TextView text) { return Call("AddLogOnInfo", {Recorded(text)}); }

int SimKernel::ChannelNumber() {
  return Call("ChannelNumber", {}, [](KernelMachine& machine) { return machine.ChannelNumber(); });
}

// Axes set by a script go before the machine's own. If a non-zero answer is set, the call fails.
int SimKernel::ConvertLogToName(int logicalNumber, Text& name) {
  Text found;
  int result = -1;
  const auto axis = axes_.find(logicalNumber);
  if (axis != axes_.end()) {
    found = axis->second;
    result = 0;
  } else if (machine_ != nullptr) {
    result = machine_->ConvertLogToName(logicalNumber, found);
  }
  const bool known = result == 0;
  if (const auto preset = answers_.TakePreset("ConvertLogToName")) result = *preset;
  rig::Value filled;
  if (known && result == 0) {
    name = found;
    filled = Recorded(name);
  }
  recorder_.Cnc("ConvertLogToName", {Recorded(logicalNumber), filled}, Recorded(result));
  return result;
}

int SimKernel::GetTextoMlinkError(int code, Text& text) { return FieldBusText("GetTextoMlinkError", code, text); }

int SimKernel::GetTextoSercosError(int code, Text& text) { return FieldBusText("GetTextoSercosError", code, text); }

int SimKernel::FieldBusText(std::string_view name, int code, Text& text) {
  const Text* found = texts_.Find(name, code);
  const auto preset = answers_.TakePreset(name);
  const int result = preset ? *preset : (found == nullptr ? -1 : SimAnswers::StartValue(name));
  rig::Value filled;
  if (result != -1 && found != nullptr) {
    text = *found;
    filled = Recorded(text);
  }
  recorder_.Cnc(name, {Recorded(code), filled}, Recorded(result));
  return result;
}

}  // namespace pnl::sim
