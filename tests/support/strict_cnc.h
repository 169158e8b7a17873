// SPDX-License-Identifier: MIT
// A CNC for tests that is stricter than the simulated one: its interlock is counted, its variables want an update of
// the cache before each read. It does as told and notes what was asked of it; reads of the kernel are not noted.
#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <map>
#include <string>
#include <vector>

#include "facade/cnc_facade.h"
#include "support/fake_utilities.h"
#include "support/strict_variables.h"
#include "support/tool_stage.h"

namespace pnl::test {

/// Its interlock is a real one: refused while a block is in hand, counted, and never given back without having been
/// taken. An accepted block takes one grant over.
class StrictKernel final : public Kernel {
 public:
  explicit StrictKernel(RecordingSink& sink) : sink_(sink) {}
  std::map<std::string, int> returns;
  int grants = 0;
  bool blockInHand = false;
  std::function<void()> onRefused;  // a refused block was sent, and the error that says why has to come
  std::vector<ErrorRecord> errors;  // the queue, which no report announces

  int ExisteKernel() override { return Answer("ExisteKernel", 0); }
  int IsNewInspecAllowed(int) override { return Answer("IsNewInspecAllowed", 0); }
  int EnProcesoInspec(int) override { return Answer("EnProcesoInspec", 0); }
  int IsMDIAllowedInResetInspect(int) override { return Answer("IsMDIAllowedInResetInspect", 0); }
  int CogerPlcFree(int zero, int channel) override {
    const bool granted = !blockInHand && Answer("CogerPlcFree", 1) != 0;
    if (granted) ++grants;
    return Note("CogerPlcFree", granted ? 1 : 0, zero, channel);
  }
  int LiberarPlcFree(int zero, int channel, int one) override {
    const bool held = grants > 0;
    EXPECT_TRUE(held) << "the interlock was given back without having been taken";
    if (held) --grants;
    return Note("LiberarPlcFree", held ? 1 : 0, zero, channel, one);
  }
  int SetMdi(int channel, int on) override { return Call("SetMdi", 1, channel, on); }
  int EndMDIMode(int channel) override { return Call("EndMDIMode", 1, channel); }
  int SetMode(int channel, int mode) override { return Call("SetMode", 1, channel, mode); }
  int MDILine(int zero, TextView block, int none, int four, int last) override {
    const int result = Call("MDILine", 0, zero, block, none, four, last);
    if (result == 0) {
      EXPECT_GT(grants, 0) << "a block was sent without the interlock";
      EXPECT_FALSE(blockInHand) << "a block was sent while another one is in hand";
      --grants;
      blockInHand = true;
    } else if (onRefused) {
      onRefused();
    }
    return result;
  }
  int NextSingleStep(int zero) override { return Call("NextSingleStep", 0, zero); }
  int ClearFeedhold(int zero) override { return Call("ClearFeedhold", 0, zero); }
  int MDICancel(int channel) override { return Call("MDICancel", 0, channel); }
  int PosibleMDICancel(int channel) override { return Call("PosibleMDICancel", 0, channel); }
  int WriteTxtInBlackBox(TextView text, int zero) override { return Call("WriteTxtInBlackBox", 0, text, zero); }
  int SWOption_IsZMCON() override { return 0; }
  int ReadError(int index, ErrorRecord& record) override {
    if (index < 0 || index >= static_cast<int>(errors.size())) return -1;
    record = errors[static_cast<std::size_t>(index)];
    return index;
  }
  int ResetError(int, int) override { return 0; }
  int ResetErrorWithEnter(int, const ErrorRecord&) override { return 0; }
  int AddLogOnInfo(TextView) override { return 0; }
  int ChannelNumber() override { return 1; }
  int ConvertLogToName(int, Text&) override { return 1; }
  int GetTextoMlinkError(int, Text&) override { return -1; }
  int GetTextoSercosError(int, Text&) override { return -1; }

 private:
  static rig::Value ToValue(int number) { return std::int64_t{number}; }
  static rig::Value ToValue(TextView text) { return Text(text); }
  [[nodiscard]] int Answer(const char* name, int usual) const {
    const auto set = returns.find(name);
    return set == returns.end() ? usual : set->second;
  }
  template <typename... Args>
  int Call(const char* name, int usual, const Args&... args) {
    return Note(name, Answer(name, usual), args...);
  }
  template <typename... Args>
  int Note(const char* name, int result, const Args&... args) {
    sink_.Cnc(name, {ToValue(args)...}, ToValue(result));
    return result;
  }
  RecordingSink& sink_;
};

class NoPasswords final : public Passwords {
 public:
  int PSW_ConfirmarAcceso(int, int, int) override { return 1; }
};

class NoToolTables final : public ToolTables {
 public:
  ZCPlcMsgTable* Connect() override { return nullptr; }
  std::vector<std::int32_t> TAPI_Tools_GetList(std::int32_t) override { return {}; }
  int TAPI_Tools_GetToolData(std::int32_t, ToolData&) override { return 0; }
};

class StrictCnc final : public CncFacade {
 public:
  explicit StrictCnc(StageGround& ground) : vars(ground.sink, ground.windows), kernel(ground.sink) {}
  Variables& Vars() override { return vars; }
  Kernel& Kapi() override { return kernel; }
  ToolTables& Tapi() override { return tables_; }
  Utilities& Util() override { return utilities; }
  Passwords& Psw() override { return passwords_; }

  StrictVariables vars;
  StrictKernel kernel;
  FakeUtilities utilities;

 private:
  NoToolTables tables_;
  NoPasswords passwords_;
};

/// A stage's ground with it.
struct StrictGround : StageGround {
  StrictCnc cnc{*this};
};

}  // namespace pnl::test
