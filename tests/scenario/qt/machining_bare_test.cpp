// SPDX-License-Identifier: MIT
// The machining calculator on a CNC that has no variable, no tool and no factory file, and under hosts that offer it
// nothing.
#include "scenario/qt/machining_session.h"

namespace panel::test {
namespace {

class MachiningBare : public MachiningSession {
 protected:
  void OpenBare() { Open({"--bare", "--lang", "none"}); }
};

TEST_F(MachiningBare, SaysForEachListThatThereIsNoFactoryFileAndOpens) {
  OpenBare();
  EXPECT_EQ(client->TraceText(),
            "host HostToolOpening [4]\nbox \"info\" \"CNC\" \"T285\" \"ok\"\nbox \"info\" \"CNC\" \"T285\" \"ok\"\n"
            "host HostSetSideMenu [4,[32902,32777,32822]]\nhost HostSetMainMenu [4,[32818,32819,32820]]\n");
  const QJsonObject window = client->Window(tool);
  EXPECT_EQ(window["rect"], (QJsonArray{0, 0, 800, 600}));
  EXPECT_EQ(window["focus"].toInt(), zmc::kMaterial);
  for (const int list : {zmc::kMaterial, zmc::kOperation, zmc::kTool}) {
    EXPECT_EQ(client->Control(tool, list)["items"], QJsonArray()) << list;
  }
  EXPECT_EQ(client->Control(tool, zmc::kSUnit)["items"], QJsonArray{"T85"});
}

TEST_F(MachiningBare, ClosesCleanlyAndKeepsItsFiles) {
  OpenBare();
  client->Trace();
  Key("Escape");
  EXPECT_EQ(client->TraceText(),
            "host HostShowMessage [4,{\"back\":6581880,\"fore\":6581880,\"line\":1,\"text\":\"\"}]\n"
            "host HostToolClosed [4,2]\n");
  EXPECT_FALSE(Visible());
  EXPECT_EQ(client->Finish(), 0);
  EXPECT_TRUE(temp.Has("root/P118/CondicionesCorteP.xml"));
  EXPECT_TRUE(temp.Has("root/P52/ZMC7340.ini"));
  EXPECT_FALSE(temp.Has("root/P24/CondicionesCorte.xml"));
}

TEST_F(MachiningBare, AUsersMaterialIsStoredButNotListedWithoutAFactoryFile) {
  OpenBare();
  AddMaterial("My steel");
  Menu(zmc::kSaveMaterials);
  Menu(zmc::kMainTab);
  EXPECT_EQ(client->Control(tool, zmc::kMaterial)["items"].toArray().size(), 0);
  EXPECT_NE(temp.Read("root/P118/CondicionesCorteP.xml").find("My steel"), std::string::npos);
}

TEST_F(MachiningBare, InsertClosesItThoughNobodyTakesTheBlock) {
  Start({"--bare", "--lang", "none"});
  client->Call("host.api", {{"offered", "none"}});
  tool = client->Load(kMachining);
  ASSERT_NE(tool, 0);
  Menu(zmc::kInsert);
  EXPECT_FALSE(Visible());
  EXPECT_EQ(client->TraceText({"host"}), "");
}

TEST_F(MachiningBare, ABlockOfAnEmptyScreenIsTheToolsLineAlone) {
  OpenBare();
  for (const int check : {zmc::kToolCheck, zmc::kFCheck, zmc::kSCheck, zmc::kRemarkCheck}) Click(check);
  Menu(zmc::kInsert);
  EXPECT_EQ(Clipboard(), "                ;### ZMC #  #  # \r\n");
}

TEST_F(MachiningBare, WithoutALiveParentItIsNotMade) {
  Start({"--bare", "--lang", "none"});
  for (const char* parent : {"none", "dead"}) {
    client->Trace();
    EXPECT_EQ(client->Call("tool.load", {{"tool", kMachining}, {"parent", parent}})["window"].toInt(), 0) << parent;
    EXPECT_EQ(client->TraceText(), "host HostToolOpening [4]\nhost HostToolClosed [4,2]\n") << parent;
  }
}

TEST_F(MachiningBare, WithoutAPlaceForTheUsersFileItIsNotMade) {
  Start({"--bare", "--lang", "none"});
  client->Call("path.set", {{"id", 118}, {"path", "Q:\\NOWHERE"}});
  client->Trace();
  EXPECT_EQ(client->Load(kMachining), 0);
  EXPECT_EQ(client->TraceText(), "host HostToolOpening [4]\nhost HostToolClosed [4,2]\n");
}

TEST_F(MachiningBare, ADamagedFactoryFileIsNamedAndItStaysOpen) {
  temp.Write("root/P24/CondicionesCorte.xml", "<CondicionesCorte><Mat");
  OpenBare();
  EXPECT_TRUE(Visible());
  EXPECT_NE(client->TraceText({"box"}).find("T278"), std::string::npos);
}

}  // namespace
}  // namespace panel::test
