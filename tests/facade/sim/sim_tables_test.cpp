// SPDX-License-Identifier: MIT
#include "facade/sim/sim_tables.h"

#include "support/sim_fixture.h"

namespace pnl::sim {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class TablesTest : public test::SimFixture {
 protected:
  ToolTables& tables = cnc.Tapi();
};

TEST_F(TablesTest, APlcMessageIsReadAsTheViewReadsIt) {
  cnc.PlcMessage(1, 7, u"Door open", u"door.txt");
  ZCPlcMsgTable* table = tables.Connect();
  ASSERT_NE(table, nullptr);
  ZCMsg* message = table->CreateMsg();
  ASSERT_NE(message, nullptr);
  message->SetMsgType(1);
  message->SetIdMsg(7);
  EXPECT_TRUE(table->ReadMsg(*message));
  EXPECT_EQ(message->GetMsg(), u"Door open");
  EXPECT_EQ(message->GetInfo(), u"door.txt");
  table->DeleteMsg(message);
  table->Disconnect();
  EXPECT_THAT(sink.Take(), ElementsAre("Connect()=1", "CreateMsg()=1", "ReadMsg(1,7)=1", "DeleteMsg(1,7)=1",
                                       "Disconnect()=nothing"));
}

TEST_F(TablesTest, AMessageThatIsNotThereIsNotRead) {
  cnc.PlcMessage(1, 7, u"Door open", u"");
  ZCPlcMsgTable* table = tables.Connect();
  ZCMsg* message = table->CreateMsg();
  message->SetMsgType(2);
  message->SetIdMsg(7);
  EXPECT_FALSE(table->ReadMsg(*message));
  EXPECT_EQ(message->GetMsg(), u"");
}

TEST_F(TablesTest, AMessageIsReplacedByItsTypeAndIdentifier) {
  cnc.PlcMessage(1, 7, u"old", u"");
  cnc.PlcMessage(1, 7, u"new", u"");
  ZCPlcMsgTable* table = tables.Connect();
  ZCMsg message;
  message.SetMsgType(1);
  message.SetIdMsg(7);
  EXPECT_TRUE(table->ReadMsg(message));
  EXPECT_EQ(message.GetMsg(), u"new");
}

TEST_F(TablesTest, AMachinesMessageIsInTheTable) {
  cnc.Environment().SetPlcMessage(0, 3, u"Clamp", u"clamp.gif");
  ZCPlcMsgTable* table = tables.Connect();
  ZCMsg message;
  message.SetMsgType(0);
  message.SetIdMsg(3);
  EXPECT_TRUE(table->ReadMsg(message));
  EXPECT_EQ(message.GetMsg(), u"Clamp");
  EXPECT_EQ(message.GetInfo(), u"clamp.gif");
}

TEST_F(TablesTest, ATableThatDoesNotAnswerIsNull) {
  cnc.Returns("Connect", {0, 1});
  EXPECT_EQ(tables.Connect(), nullptr);
  EXPECT_NE(tables.Connect(), nullptr);
  EXPECT_THAT(sink.Take(), ElementsAre("Connect()=0", "Connect()=1"));
}

TEST_F(TablesTest, AReadCanBeMadeToFail) {
  cnc.PlcMessage(1, 7, u"Door open", u"");
  cnc.Returns("ReadMsg", {0});
  ZCPlcMsgTable* table = tables.Connect();
  ZCMsg message;
  message.SetMsgType(1);
  message.SetIdMsg(7);
  EXPECT_FALSE(table->ReadMsg(message));
  EXPECT_EQ(message.GetMsg(), u"");
}

TEST_F(TablesTest, AfterDisconnectTheTableGivesNothing) {
  cnc.PlcMessage(1, 7, u"Door open", u"");
  ZCPlcMsgTable* table = tables.Connect();
  table->Disconnect();
  EXPECT_EQ(table->CreateMsg(), nullptr);
  ZCMsg message;
  message.SetMsgType(1);
  message.SetIdMsg(7);
  EXPECT_FALSE(table->ReadMsg(message));
}

TEST_F(TablesTest, DeletingWhatIsNotTheTablesDoesNothing) {
  ZCPlcMsgTable* table = tables.Connect();
  ZCMsg stranger;
  table->DeleteMsg(&stranger);
  table->DeleteMsg(nullptr);
  ZCMsg* own = table->CreateMsg();
  table->DeleteMsg(own);
  table->DeleteMsg(own);
  EXPECT_THAT(sink.Take(), ElementsAre("Connect()=1", "DeleteMsg(nothing,nothing)=0", "DeleteMsg(nothing,nothing)=0",
                                       "CreateMsg()=1", "DeleteMsg(0,0)=1", "DeleteMsg(nothing,nothing)=0"));
}

TEST_F(TablesTest, ToolsAreListedByTypeInRisingOrder) {
  cnc.Tool(9, 2, 0, 0, 0, 0);
  cnc.Tool(3, 1, 0, 0, 0, 0);
  cnc.Tool(5, 2, 0, 0, 0, 0);
  EXPECT_THAT(tables.TAPI_Tools_GetList(2), ElementsAre(5, 9));
  EXPECT_THAT(tables.TAPI_Tools_GetList(0), ElementsAre(3, 5, 9));
  EXPECT_THAT(tables.TAPI_Tools_GetList(7), IsEmpty());
  EXPECT_THAT(sink.Take(), ElementsAre("TAPI_Tools_GetList(2)={0:5,1:9}", "TAPI_Tools_GetList(0)={0:3,1:5,2:9}",
                                       "TAPI_Tools_GetList(7)={}"));
}

TEST_F(TablesTest, AToolHasItsData) {
  cnc.Tool(5, 2, 10, 20, 120000, 4);
  ToolData data;
  EXPECT_NE(tables.TAPI_Tools_GetToolData(5, data), 0);
  EXPECT_EQ(data.family, 10);
  EXPECT_EQ(data.subfamily, 20);
  EXPECT_EQ(data.diameter, 120000);
  EXPECT_EQ(data.teeth, 4);
  EXPECT_THAT(sink.Take(), ElementsAre("TAPI_Tools_GetToolData(5,{family:10,subfamily:20,diameter:120000,teeth:4})=1"));
}

TEST_F(TablesTest, AToolThatIsNotThereLeavesTheData) {
  ToolData data{1, 2, 3, 4};
  EXPECT_EQ(tables.TAPI_Tools_GetToolData(5, data), 0);
  EXPECT_EQ(data.diameter, 3);
  cnc.Tool(5, 2, 10, 20, 120000, 4);
  cnc.Returns("TAPI_Tools_GetToolData", {0});
  EXPECT_EQ(tables.TAPI_Tools_GetToolData(5, data), 0);
  EXPECT_EQ(data.diameter, 3);
}

TEST_F(TablesTest, AccessIsGrantedUnlessToldOtherwise) {
  EXPECT_EQ(cnc.Psw().PSW_ConfirmarAcceso(4, 0, 0), 1);
  cnc.Returns("PSW_ConfirmarAcceso", {0});
  EXPECT_EQ(cnc.Psw().PSW_ConfirmarAcceso(4, 0, 0), 0);
  EXPECT_THAT(sink.Take(), ElementsAre("PSW_ConfirmarAcceso(4,0,0)=1", "PSW_ConfirmarAcceso(4,0,0)=0"));
}

}  // namespace
}  // namespace pnl::sim
