// SPDX-License-Identifier: MIT
// The outside world of the command line for its tests: a kernel and its like that do as told and write what was
// asked of them into one ordered log, a line a call. Reads are not logged.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "facade/cnc_facade.h"
#include "mdi_fake_variables.h"
#include "support/fake_window_system.h"

namespace pnl::test {

/// Its interlock is a real one: refused while a block is in hand, counted, and never given back without having been
/// taken. An accepted block takes one grant over.
class FakeKernel final : public Kernel {
 public:
  explicit FakeKernel(Log& log) : log_(log) {}
  std::map<std::string, int> returns;
  int grants = 0;
  bool blockInHand = false;

  int ExisteKernel() override { return Answer("ExisteKernel", 0); }
  int IsNewInspecAllowed(int) override { return Answer("IsNewInspecAllowed", 0); }
  int EnProcesoInspec(int) override { return Answer("EnProcesoInspec", 0); }
  int IsMDIAllowedInResetInspect(int) override { return Answer("IsMDIAllowedInResetInspect", 0); }
  int CogerPlcFree(int zero, int channel) override {
    const bool granted = !blockInHand && Answer("CogerPlcFree", 1) != 0;
    if (granted) ++grants;
    return Note("CogerPlcFree", granted ? 1 : 0, {zero, channel});
  }
  int LiberarPlcFree(int zero, int channel, int one) override {
    const bool held = grants > 0;
    EXPECT_TRUE(held) << "the interlock was given back without having been taken";
    if (held) --grants;
    return Note("LiberarPlcFree", held ? 1 : 0, {zero, channel, one});
  }
  int SetMdi(int channel, int on) override { return Call("SetMdi", 1, {channel, on}); }
  int EndMDIMode(int channel) override { return Call("EndMDIMode", 1, {channel}); }
  int SetMode(int channel, int mode) override { return Call("SetMode", 1, {channel, mode}); }
  int MDILine(int zero, TextView block, int none, int four, int last) override {
    const int result = Answer("MDILine", 0);
    log_.push_back("MDILine(" + std::to_string(zero) + ",\"" + ToUtf8(block) + "\"," + std::to_string(none) + "," +
                   std::to_string(four) + "," + std::to_string(last) + ")=" + std::to_string(result));
    if (result == 0) {
      EXPECT_GT(grants, 0) << "a block was sent without the interlock";
      EXPECT_FALSE(blockInHand) << "a block was sent while another one is in hand";
      --grants;
      blockInHand = true;
    }
    return result;
  }
  int NextSingleStep(int zero) override { return Call("NextSingleStep", 0, {zero}); }
  int ClearFeedhold(int zero) override { return Call("ClearFeedhold", 0, {zero}); }
  int MDICancel(int channel) override { return Call("MDICancel", 0, {channel}); }
  int PosibleMDICancel(int channel) override { return Call("PosibleMDICancel", 0, {channel}); }
  int WriteTxtInBlackBox(TextView text, int zero) override {
    log_.push_back("black box \"" + ToUtf8(text) + "\"," + std::to_string(zero));
    return 0;
  }
  int SWOption_IsZMCON() override { return 0; }
  int ReadError(int, ErrorRecord&) override { return -1; }
  int ResetError(int, int) override { return 0; }
  int ResetErrorWithEnter(int, const ErrorRecord&) override { return 0; }
  int AddLogOnInfo(TextView) override { return 0; }
  int ChannelNumber() override { return 1; }
  int ConvertLogToName(int, Text&) override { return 1; }
  int GetTextoMlinkError(int, Text&) override { return -1; }
  int GetTextoSercosError(int, Text&) override { return -1; }

 private:
  [[nodiscard]] int Answer(const char* name, int usual) const {
    const auto set = returns.find(name);
    return set == returns.end() ? usual : set->second;
  }
  int Call(const char* name, int usual, std::initializer_list<int> args) {
    return Note(name, Answer(name, usual), args);
  }
  int Note(const char* name, int result, std::initializer_list<int> args) {
    std::string line = std::string(name) + "(";
    for (const int arg : args) line += (line.back() == '(' ? "" : ",") + std::to_string(arg);
    log_.push_back(line + ")=" + std::to_string(result));
    return result;
  }
  Log& log_;
};

class FakeUtilities final : public Utilities {
 public:
  std::map<Text, Text> marks;

  Text Get7340Path(int id) override { return Text(u"C:\\P") + FromUtf8(std::to_string(id)); }
  int ErrorText(ErrorTextFunction, std::int32_t, Z7340ERRORINFO_ST&) override { return 0; }
  bool desc_to_txt(std::int32_t, Text&, TextView) override { return false; }
  /// No drive is ready: nothing of the command line may depend on one that is.
  int UTIL7340_DriveStatus(int) override { return 1; }
  void UTIL7340_CopyToClipboard_Text(WindowHandle, TextView) override {}
  int Util7340_MarcaHelpAsignadaABloque(TextView block, Text& mark) override {
    const auto found = marks.find(Text(block));
    if (found == marks.end()) return 1;
    mark = found->second;
    return 0;
  }
  Rect UTIL7340_GetCNCRect() override { return {0, 0, 800, 600}; }
  bool UTIL7340_AreSoftkeyMetricsStandard() override { return true; }
  int UTIL7340_FitFontSize(int height) override { return height; }
  int UTIL7340_FitHeight(int height) override { return height; }
  bool UTIL7340_Is7335() override { return false; }
};

class FakePasswords final : public Passwords {
 public:
  int PSW_ConfirmarAcceso(int, int, int) override { return 1; }
};

class FakeToolTables final : public ToolTables {
 public:
  ZCPlcMsgTable* Connect() override { return nullptr; }
  std::vector<std::int32_t> TAPI_Tools_GetList(std::int32_t) override { return {}; }
  int TAPI_Tools_GetToolData(std::int32_t, ToolData&) override { return 0; }
};

class FakeCnc final : public CncFacade {
 public:
  FakeCnc(Log& log, FakeWindowSystem& windows) : vars(log, windows), kernel(log) {}
  Variables& Vars() override { return vars; }
  Kernel& Kapi() override { return kernel; }
  ToolTables& Tapi() override { return tables_; }
  Utilities& Util() override { return utilities; }
  Passwords& Psw() override { return passwords_; }

  FakeVariables vars;
  FakeKernel kernel;
  FakeUtilities utilities;

 private:
  FakeToolTables tables_;
  FakePasswords passwords_;
};

}  // namespace pnl::test
