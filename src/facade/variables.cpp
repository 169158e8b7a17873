// SPDX-License-Identifier: MIT
#include "facade/variables.h"

#include <utility>

namespace pnl {

ZCVariable::~ZCVariable() { CloseReport(); }

ZCVariable::ZCVariable(ZCVariable&& other) noexcept
    : variables_(other.variables_),
      info_(std::exchange(other.info_, VariableInfo{})),
      window_(std::exchange(other.window_, 0)),
      hexView_(std::exchange(other.hexView_, 0)) {}

int ZCVariable::SetNombre(TextView name) {
  CloseReport();
  info_ = variables_->Bind(name);
  return IsValid() ? variable_code::kDone : variable_code::kUnknown;
}

int ZCVariable::ReadInt(std::int32_t& value) const {
  return IsValid() ? variables_->ReadInt(info_.identifier, value) : variable_code::kUnknown;
}

int ZCVariable::WriteInt(std::int32_t value, int flag) {
  return IsValid() ? variables_->WriteInt(info_.identifier, value, flag) : variable_code::kUnknown;
}

int ZCVariable::ReadDouble(double& value) const {
  return IsValid() ? variables_->ReadDouble(info_.identifier, value) : variable_code::kUnknown;
}

int ZCVariable::WriteDouble(double value) {
  return IsValid() ? variables_->WriteDouble(info_.identifier, value) : variable_code::kUnknown;
}

int ZCVariable::ReadTxt(Text& value) const {
  return IsValid() ? variables_->ReadTxt(info_.identifier, value) : variable_code::kUnknown;
}

int ZCVariable::WriteTxt(TextView value) {
  return IsValid() ? variables_->WriteTxt(info_.identifier, value) : variable_code::kUnknown;
}

int ZCVariable::UpdateCache() {
  return IsValid() ? variables_->UpdateCache(info_.identifier) : variable_code::kUnknown;
}

int ZCVariable::OpenReport(WindowHandle window) {
  if (!IsValid()) return variable_code::kUnknown;
  if (window == 0) return variable_code::kDeadWindow;
  if (window == window_) return variable_code::kDone;
  CloseReport();
  const int code = variables_->OpenReport(info_.identifier, window);
  if (code == variable_code::kDone) window_ = window;
  return code;
}

int ZCVariable::CloseReport() {
  if (!IsReport()) return variable_code::kNoReport;
  return variables_->CloseReport(info_.identifier, std::exchange(window_, 0));
}

bool ZCVariable::HandleReport(std::intptr_t first, std::intptr_t /*second*/) const {
  return IsValid() && first == info_.identifier;
}

int ZCVariable::GeneraReport() {
  if (!IsReport()) return variable_code::kNoReport;
  return variables_->GeneraReport(info_.identifier, window_);
}

}  // namespace pnl
