// SPDX-License-Identifier: MIT
// A mill that is attached to the simulated CNC: what the tools get to know of its marks and messages.
#include "facade/mill/machine.h"
#include "facade/mill/machine_messages.h"
#include "support/sim_fixture.h"

namespace pnl::sim {
namespace {

using testing::ElementsAre;

class MachineOnACnc : public test::SimFixture {
 protected:
  MachineOnACnc() { cnc.AttachMachine(machine.get()); }
  ~MachineOnACnc() override { cnc.AttachMachine(nullptr); }

  Utilities& util = cnc.Util();
  const std::unique_ptr<Machine> machine = MakeMachine("demo", cnc.Environment());
  Text mark = u"OPT0130";
};

TEST_F(MachineOnACnc, ABlockHasTheMarkOfItsFirstWord) {
  EXPECT_EQ(util.Util7340_MarcaHelpAsignadaABloque(u"N10 G1 X100 F500", mark), 0);
  EXPECT_EQ(mark, u"PRG1001");
  EXPECT_THAT(sink.Take(), ElementsAre("Util7340_MarcaHelpAsignadaABloque(\"N10 G1 X100 F500\",\"PRG1001\")=0"));
}

TEST_F(MachineOnACnc, ABlockWithoutAMarkLeavesTheMarkAsItWas) {
  EXPECT_NE(util.Util7340_MarcaHelpAsignadaABloque(u"(only a comment)", mark), 0);
  EXPECT_EQ(mark, u"OPT0130");
}

TEST_F(MachineOnACnc, AMarkThatWasGivenToExactlyThisBlockGoesBeforeTheMachines) {
  cnc.BlockMark(u"G1", u"OWN1");
  EXPECT_EQ(util.Util7340_MarcaHelpAsignadaABloque(u"G1", mark), 0);
  EXPECT_EQ(mark, u"OWN1");
  EXPECT_EQ(util.Util7340_MarcaHelpAsignadaABloque(u"g1", mark), 0);
  EXPECT_EQ(mark, u"PRG1001");
}

TEST_F(MachineOnACnc, AnAnswerThatWasSetGoesBeforeTheMachines) {
  cnc.Returns("Util7340_MarcaHelpAsignadaABloque", {1});
  EXPECT_EQ(util.Util7340_MarcaHelpAsignadaABloque(u"G1", mark), 1);
  EXPECT_EQ(mark, u"OPT0130");
}

TEST_F(MachineOnACnc, WithoutTheMachineABlockHasNoMarkAnyMore) {
  cnc.AttachMachine(nullptr);
  EXPECT_NE(util.Util7340_MarcaHelpAsignadaABloque(u"G1", mark), 0);
  EXPECT_EQ(mark, u"OPT0130");
}

TEST_F(MachineOnACnc, ItsMessagesAreInTheTableOfThePlc) {
  ZCPlcMsgTable* table = cnc.Tapi().Connect();
  ASSERT_NE(table, nullptr);
  for (const PlcMessage& row : PlcMessages()) {
    ZCMsg message;
    message.SetMsgType(row.type);
    message.SetIdMsg(row.id);
    EXPECT_TRUE(table->ReadMsg(message)) << ToUtf8(row.english);
    EXPECT_EQ(message.GetMsg(), row.english);
    EXPECT_EQ(message.GetInfo(), row.document);
  }
}

TEST_F(MachineOnACnc, AMessageIsRaisedByWritingItsCode) {
  constexpr WindowHandle kView = 7;
  windows.alive.insert(kView);
  ZCVariable variable(cnc.Vars(), u"E.PLCMSGDATA");
  variable.OpenReport(kView);
  for (const PlcMessage& row : PlcMessages()) {
    ASSERT_TRUE(cnc.Set(u"E.PLCMSGDATA", static_cast<std::int64_t>(CodeOf(row))));
    EXPECT_EQ(TakeReports(kView).size(), 1u);
    std::int32_t code = 0;
    ASSERT_EQ(variable.ReadInt(code), 0);
    EXPECT_EQ(static_cast<std::uint32_t>(code), CodeOf(row));
  }
}

}  // namespace
}  // namespace pnl::sim
