// SPDX-License-Identifier: MIT
#include "facade/sim/sim_kernel.h"

#include "support/sim_fixture.h"

namespace pnl::sim {
namespace {

using testing::ElementsAre;

class SimKernelTest : public test::SimFixture {
 protected:
  Kernel& kernel = cnc.Kapi();
};

/// One call of each function that the tools make, as they make it, with its record under the start values.
struct CallRow {
  const char* name;
  std::function<int(Kernel&)> call;
  const char* record;
};

const std::vector<CallRow>& Calls() {
  static const std::vector<CallRow> rows{
      {"ExisteKernel", [](Kernel& k) { return k.ExisteKernel(); }, "ExisteKernel()=0"},
      {"IsNewInspecAllowed", [](Kernel& k) { return k.IsNewInspecAllowed(0); }, "IsNewInspecAllowed(0)=0"},
      {"EnProcesoInspec", [](Kernel& k) { return k.EnProcesoInspec(1); }, "EnProcesoInspec(1)=0"},
      {"IsMDIAllowedInResetInspect", [](Kernel& k) { return k.IsMDIAllowedInResetInspect(1); },
       "IsMDIAllowedInResetInspect(1)=0"},
      {"CogerPlcFree", [](Kernel& k) { return k.CogerPlcFree(0, 1); }, "CogerPlcFree(0,1)=1"},
      {"LiberarPlcFree", [](Kernel& k) { return k.LiberarPlcFree(0, 1, 1); }, "LiberarPlcFree(0,1,1)=1"},
      {"SetMdi", [](Kernel& k) { return k.SetMdi(1, 0); }, "SetMdi(1,0)=1"},
      {"EndMDIMode", [](Kernel& k) { return k.EndMDIMode(1); }, "EndMDIMode(1)=1"},
      {"SetMode", [](Kernel& k) { return k.SetMode(1, 3); }, "SetMode(1,3)=1"},
      {"MDILine", [](Kernel& k) { return k.MDILine(0, u"G0 X1", 0, 4, 0); }, "MDILine(0,\"G0 X1\",0,4,0)=0"},
      {"NextSingleStep", [](Kernel& k) { return k.NextSingleStep(0); }, "NextSingleStep(0)=0"},
      {"ClearFeedhold", [](Kernel& k) { return k.ClearFeedhold(0); }, "ClearFeedhold(0)=0"},
      {"MDICancel", [](Kernel& k) { return k.MDICancel(1); }, "MDICancel(1)=0"},
      {"PosibleMDICancel", [](Kernel& k) { return k.PosibleMDICancel(1); }, "PosibleMDICancel(1)=0"},
      {"WriteTxtInBlackBox", [](Kernel& k) { return k.WriteTxtInBlackBox(u"note", 0); },
       "WriteTxtInBlackBox(\"note\",0)=0"},
      {"SWOption_IsZMCON", [](Kernel& k) { return k.SWOption_IsZMCON(); }, "SWOption_IsZMCON()=1"},
      {"AddLogOnInfo", [](Kernel& k) { return k.AddLogOnInfo(u"fatal"); }, "AddLogOnInfo(\"fatal\")=0"},
      {"ChannelNumber", [](Kernel& k) { return k.ChannelNumber(); }, "ChannelNumber()=1"},
  };
  return rows;
}

TEST_F(SimKernelTest, EveryCallIsRecordedWithItsArgumentsAndItsStartAnswer) {
  std::vector<std::string> expected;
  for (const CallRow& row : Calls()) {
    row.call(kernel);
    expected.emplace_back(row.record);
  }
  EXPECT_EQ(sink.Take(), expected);
}

TEST_F(SimKernelTest, EveryAnswerCanBeSet) {
  for (const CallRow& row : Calls()) {
    EXPECT_TRUE(cnc.Returns(row.name, {-7})) << row.name;
    EXPECT_EQ(row.call(kernel), -7) << row.name;
  }
}

TEST_F(SimKernelTest, AnswersComeInTurnAndTheLastStays) {
  cnc.Returns("CogerPlcFree", {0, 1, 5});
  for (const int answer : {0, 1, 5, 5, 5}) EXPECT_EQ(kernel.CogerPlcFree(0, 1), answer);
  cnc.Returns("CogerPlcFree", {3});
  EXPECT_EQ(kernel.CogerPlcFree(0, 1), 3);
}

TEST_F(SimKernelTest, NoAnswersGiveTheStartValueBack) {
  cnc.Returns("CogerPlcFree", {0});
  EXPECT_TRUE(cnc.Returns("CogerPlcFree", {}));
  EXPECT_EQ(kernel.CogerPlcFree(0, 1), 1);
}

TEST_F(SimKernelTest, AFunctionThatIsNotThereHasNoAnswer) {
  for (const char* name : {"", "mdiline", "NoSuchCall", "Get7340Path", "UTIL7340_GetCNCRect"}) {
    EXPECT_FALSE(cnc.Returns(name, {1})) << name;
  }
}

TEST_F(SimKernelTest, CallsAndWritesAreRecordedInOrder) {
  DefineInt(u"[1].E.PNLMODE", 0);
  kernel.CogerPlcFree(0, 1);
  ZCVariable(cnc.Vars(), u"[1].E.PNLMODE").WriteInt(2);
  kernel.MDILine(0, u"M3", 0, 4, 0);
  EXPECT_THAT(sink.Take(), ElementsAre("CogerPlcFree(0,1)=1", "write [1].E.PNLMODE=2 ok", "MDILine(0,\"M3\",0,4,0)=0"));
}

TEST_F(SimKernelTest, NobodyNeedListen) {
  cnc.SetSink(nullptr);
  for (const CallRow& row : Calls()) row.call(kernel);
  EXPECT_TRUE(sink.lines.empty());
}

TEST_F(SimKernelTest, AnAxisHasAName) {
  cnc.Axis(3, u"Z");
  Text name = u"preset";
  EXPECT_EQ(kernel.ConvertLogToName(3, name), 0);
  EXPECT_EQ(name, u"Z");
  EXPECT_THAT(sink.Take(), ElementsAre("ConvertLogToName(3,\"Z\")=0"));
}

TEST_F(SimKernelTest, AnUnknownAxisLeavesTheName) {
  Text name = u"preset";
  EXPECT_NE(kernel.ConvertLogToName(3, name), 0);
  EXPECT_EQ(name, u"preset");
  EXPECT_THAT(sink.Take(), ElementsAre("ConvertLogToName(3,nothing)=-1"));
}

TEST_F(SimKernelTest, AKnownAxisCanBeMadeToFail) {
  cnc.Axis(3, u"Z");
  cnc.Returns("ConvertLogToName", {1});
  Text name = u"preset";
  EXPECT_EQ(kernel.ConvertLogToName(3, name), 1);
  EXPECT_EQ(name, u"preset");
}

TEST_F(SimKernelTest, FieldBusTextsAreMinusOneForUnknownCodes) {
  Text text = u"preset";
  EXPECT_EQ(kernel.GetTextoSercosError(5, text), -1);
  EXPECT_EQ(kernel.GetTextoMlinkError(5, text), -1);
  EXPECT_EQ(text, u"preset");
  EXPECT_TRUE(cnc.ErrorText("GetTextoSercosError", 5, u"Sercos %d", u"", false));
  EXPECT_TRUE(cnc.ErrorText("GetTextoMlinkError", 5, u"Mlink %d", u"", false));
  EXPECT_EQ(kernel.GetTextoSercosError(5, text), 0);
  EXPECT_EQ(text, u"Sercos %d");
  EXPECT_EQ(kernel.GetTextoMlinkError(5, text), 0);
  EXPECT_EQ(text, u"Mlink %d");
  EXPECT_THAT(sink.Take(),
              ElementsAre("GetTextoSercosError(5,nothing)=-1", "GetTextoMlinkError(5,nothing)=-1",
                          "GetTextoSercosError(5,\"Sercos %d\")=0", "GetTextoMlinkError(5,\"Mlink %d\")=0"));
}

TEST_F(SimKernelTest, AnAnswerThatWasSetDecidesWhetherAFieldBusTextIsGiven) {
  cnc.ErrorText("GetTextoSercosError", 5, u"Sercos", u"", false);
  Text text = u"preset";
  cnc.Returns("GetTextoSercosError", {-1, 3});
  EXPECT_EQ(kernel.GetTextoSercosError(5, text), -1);
  EXPECT_EQ(text, u"preset");
  EXPECT_EQ(kernel.GetTextoSercosError(5, text), 3);
  EXPECT_EQ(text, u"Sercos");
  EXPECT_EQ(kernel.GetTextoSercosError(6, text = u"preset"), 3);
  EXPECT_EQ(text, u"preset") << "there is no text for that code";
}

TEST_F(SimKernelTest, AnAnswerOfZeroNamesNoAxisThatIsNotThere) {
  cnc.Returns("ConvertLogToName", {0});
  Text name = u"preset";
  EXPECT_EQ(kernel.ConvertLogToName(3, name), 0);
  EXPECT_EQ(name, u"preset");
}

/// Answers every call with a number of its own.
class NumberedMachine final : public KernelMachine {
 public:
  int EnProcesoInspec(int) override { return 101; }
  int IsMDIAllowedInResetInspect(int) override { return 102; }
  int CogerPlcFree(int) override { return 103; }
  int LiberarPlcFree(int) override { return 104; }
  int SetMdi(int, int on) override { return 105 + on; }
  int EndMDIMode(int) override { return 107; }
  int SetMode(int, int) override { return 108; }
  int MDILine(TextView block) override {
    blocks.push_back(ToUtf8(block));
    return 109;
  }
  int NextSingleStep() override { return 110; }
  int ClearFeedhold() override { return 111; }
  int MDICancel(int) override { return 112; }
  int PosibleMDICancel(int) override { return 2; }
  int ChannelNumber() override { return 114; }
  int ConvertLogToName(int number, Text& name) override {
    name = u"M";
    return number == 1 ? 0 : 1;
  }
  Text MarkOfBlock(TextView) const override { return u"PRG1000"; }
  void OnErrorReset() override { ++resets; }
  void OnWritten(TextView name) override { written.push_back(ToUtf8(name)); }

  std::vector<std::string> blocks;
  std::vector<std::string> written;
  int resets = 0;
};

class WithAMachine : public SimKernelTest {
 protected:
  WithAMachine() { cnc.AttachMachine(&machine); }
  ~WithAMachine() override { cnc.AttachMachine(nullptr); }
  NumberedMachine machine;
};

TEST_F(WithAMachine, TheMachineAnswersWhatConcernsIt) {
  std::vector<int> answers;
  for (const CallRow& row : Calls()) answers.push_back(row.call(kernel));
  EXPECT_THAT(answers, ElementsAre(0, 1, 101, 102, 103, 104, 105, 107, 108, 109, 110, 111, 112, 2, 0, 1, 0, 114));
  EXPECT_THAT(machine.blocks, ElementsAre("G0 X1"));
  EXPECT_EQ(sink.lines.size(), Calls().size());
}

TEST_F(WithAMachine, AnAnswerThatWasSetKeepsTheCallFromTheMachine) {
  cnc.Returns("MDILine", {0});
  EXPECT_EQ(kernel.MDILine(0, u"M30", 0, 4, 0), 0);
  EXPECT_TRUE(machine.blocks.empty());
}

TEST_F(WithAMachine, AxesThatWereSetGoBeforeTheMachines) {
  Text name;
  EXPECT_EQ(kernel.ConvertLogToName(1, name), 0);
  EXPECT_EQ(name, u"M");
  EXPECT_EQ(kernel.ConvertLogToName(2, name = u"preset"), 1);
  EXPECT_EQ(name, u"preset");
  cnc.Axis(2, u"Y");
  EXPECT_EQ(kernel.ConvertLogToName(2, name), 0);
  EXPECT_EQ(name, u"Y");
}

TEST_F(WithAMachine, TheMachineHearsOfEveryWriteThatHeld) {
  DefineInt(u"A", 1);
  DefineInt(u"B", 1, true, false);
  ZCVariable(cnc.Vars(), u"A").WriteInt(1);
  ZCVariable(cnc.Vars(), u"A").WriteInt(2);
  ZCVariable(cnc.Vars(), u"B").WriteInt(2);
  cnc.Set(u"A", std::int64_t{3});
  EXPECT_THAT(machine.written, ElementsAre("A", "A"));
}

TEST_F(WithAMachine, TheMachineHearsOfEveryErrorTakenOut) {
  ErrorRecord record{};
  cnc.Environment().PushError(record);
  cnc.Environment().PushError(record);
  EXPECT_EQ(machine.resets, 0);
  kernel.ResetError(0, 1);
  EXPECT_EQ(machine.resets, 1);
  kernel.ResetErrorWithEnter(0, record);
  EXPECT_EQ(machine.resets, 2);
  kernel.ResetError(0, 1);
  EXPECT_EQ(machine.resets, 2) << "nothing was taken out";
  cnc.ClearErrors();
  EXPECT_EQ(machine.resets, 3);
}

TEST_F(WithAMachine, AMachineTakenAwayIsNotAsked) {
  cnc.AttachMachine(nullptr);
  EXPECT_EQ(kernel.CogerPlcFree(0, 1), 1);
  DefineInt(u"A", 1);
  ZCVariable(cnc.Vars(), u"A").WriteInt(2);
  EXPECT_TRUE(machine.written.empty());
}

TEST_F(SimKernelTest, TheMachinesSideDefinesSetsAndReads) {
  MachineEnvironment& side = cnc.Environment();
  const WindowHandle window = windows.Open();
  side.Define(u"A", rig::VariableType::kInt, std::int64_t{4});
  side.Define(u"T", rig::VariableType::kText, Text(u"5"));
  ZCVariable variable(cnc.Vars(), u"A");
  variable.OpenReport(window);
  EXPECT_EQ(side.GetInt(u"A"), 4);
  EXPECT_EQ(side.GetInt(u"T"), 0) << "not an integer";
  EXPECT_EQ(side.GetInt(u"NO"), 0);
  side.Define(u"L", rig::VariableType::kInt, std::int64_t{1} << 40);
  EXPECT_EQ(side.GetInt(u"L"), 0) << "too large";
  side.Set(u"A", std::int64_t{4});
  EXPECT_EQ(TakeReports(window).size(), 1U);
  side.Set(u"NO", std::int64_t{4});
  EXPECT_EQ(Get(u"NO"), "absent");
  EXPECT_EQ(&side.Clock(), &timers);
  side.SetErrorText("error_to_txt", 77, u"\nWord at fault", u"F#1");
  Z7340ERRORINFO_ST info{};
  EXPECT_EQ(cnc.Util().ErrorText(ErrorTextFunction::kErrorToTxt, 77, info), 0);
  EXPECT_EQ(FieldText(info.text), u"\nWord at fault");
  EXPECT_EQ(FieldText(info.helpRef), u"F#1");
}

}  // namespace
}  // namespace pnl::sim
