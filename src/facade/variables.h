// SPDX-License-Identifier: MIT
// Named CNC variables: the seam to the panel's variable server, and ZCVariable, the tools' handle on one variable.
// Every operation returns 0 on success and another code otherwise.
#pragma once

#include <cstdint>

#include "base/text.h"
#include "window/window.h"

namespace pnl {

/// The codes of the operations below. Tools compare them with 0 only; logs and tests distinguish them.
namespace variable_code {
inline constexpr int kDone = 0;
inline constexpr int kUnknown = 1;     // the variable doesn't exist, or no longer exists
inline constexpr int kNotAllowed = 2;  // the variable can't be read, or can't be written
inline constexpr int kNoValue = 3;     // the value can't be converted to or from the type of the call
inline constexpr int kNoReport = 4;    // no report is open
inline constexpr int kDeadWindow = 5;
}  // namespace variable_code

/// What the server reports about a variable when its name is bound.
struct VariableInfo {
  std::int32_t identifier = -1;  // -1: the name isn't known
  std::int32_t externalId = 0;
  std::int32_t integerDigits = 0;
  std::int32_t decimals = 0;
  char16_t pad = u' ';
  bool plc = false;
};

/// The seam. Identifiers come from Bind. A call with an identifier that isn't known, or no longer known, fails with a
/// code. The library never uses an index, so the calls have no index argument.
class Variables {
 public:
  virtual ~Variables() = default;
  [[nodiscard]] virtual VariableInfo Bind(TextView name) = 0;
  /// On failure value stays as it was. The other reads likewise.
  virtual int ReadInt(std::int32_t identifier, std::int32_t& value) = 0;
  virtual int WriteInt(std::int32_t identifier, std::int32_t value, int flag) = 0;
  virtual int ReadDouble(std::int32_t identifier, double& value) = 0;
  virtual int WriteDouble(std::int32_t identifier, double value) = 0;
  virtual int ReadTxt(std::int32_t identifier, Text& value) = 0;
  virtual int WriteTxt(std::int32_t identifier, TextView value) = 0;
  virtual int UpdateCache(std::int32_t identifier) = 0;
  /// From now on a change posts PNL_MSG_VARIABLE_REPORT to the window, with first = identifier and second = 0.
  virtual int OpenReport(std::int32_t identifier, WindowHandle window) = 0;
  virtual int CloseReport(std::int32_t identifier, WindowHandle window) = 0;
  /// Posts a report now, without a change.
  virtual int GeneraReport(std::int32_t identifier, WindowHandle window) = 0;
};

/// A handle on one variable. Without a known name every operation returns a code and does nothing. A handle can't be
/// copied. Moving hands the open report over. The destructor closes an open report.
class ZCVariable {
 public:
  explicit ZCVariable(Variables& variables) : variables_(&variables) {}
  ZCVariable(Variables& variables, TextView name) : variables_(&variables) { SetNombre(name); }
  ~ZCVariable();
  ZCVariable(ZCVariable&& other) noexcept;
  ZCVariable& operator=(ZCVariable&&) = delete;
  ZCVariable(const ZCVariable&) = delete;
  ZCVariable& operator=(const ZCVariable&) = delete;

  /// Closes an open report and binds the name. Returns 0 when the name is known.
  int SetNombre(TextView name);
  [[nodiscard]] bool IsValid() const { return info_.identifier != -1; }
  [[nodiscard]] std::int32_t GetIDExterno() const { return info_.externalId; }
  [[nodiscard]] std::int32_t GetNEnteros() const { return info_.integerDigits; }
  [[nodiscard]] std::int32_t GetNDecimales() const { return info_.decimals; }
  [[nodiscard]] char16_t GetPad() const { return info_.pad; }
  void SetPad(char16_t pad) { info_.pad = pad; }
  [[nodiscard]] bool IsReport() const { return window_ != 0; }
  [[nodiscard]] bool IsPLC() const { return info_.plc; }
  [[nodiscard]] std::int32_t GetHexView() const { return hexView_; }
  void SetHexView(std::int32_t view) { hexView_ = view; }

  int ReadInt(std::int32_t& value) const;
  int WriteInt(std::int32_t value, int flag = 0);
  int ReadDouble(double& value) const;
  int WriteDouble(double value);
  int ReadTxt(Text& value) const;
  int WriteTxt(TextView value);
  /// Updates the local copy, for a read that must see the present value.
  int UpdateCache();
  int OpenReport(WindowHandle window);
  int CloseReport();
  [[nodiscard]] bool IsReportOpened() const { return IsReport(); }
  /// Takes the arguments of a PNL_MSG_VARIABLE_REPORT. Returns true if the report is about this variable.
  [[nodiscard]] bool HandleReport(std::intptr_t first, std::intptr_t second) const;
  /// Posts a report now to the window that opened it, so that it gets the present value on the normal path.
  int GeneraReport();

 private:
  Variables* variables_;
  VariableInfo info_;
  WindowHandle window_ = 0;  // the window with the open report; 0 for none
  std::int32_t hexView_ = 0;
};

}  // namespace pnl
