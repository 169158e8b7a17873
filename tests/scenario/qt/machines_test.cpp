// SPDX-License-Identifier: MIT
// The machines that the panel offers, in sessions of a script: their values, their blocks, and the cutting data that a
// machine has and a bare panel hasn't.
#include <gtest/gtest.h>

#include <fstream>

#include "scenario/qt/panel_client.h"
#include "support/temp_folder.h"

namespace panel::test {
namespace {

constexpr const char* kFactoryFile = "root/CNC/CUTTING/CondicionesCorte.xml";

class Machines : public ::testing::Test {
 protected:
  QStringList Options(const QStringList& more) {
    return QStringList{"--time", "manual", "--root", QString::fromStdString(temp.Folder("root"))} + more;
  }
  pnl::test::TempFolder temp;
};

TEST_F(Machines, EachIsChosenByItsName) {
  struct Row {
    QStringList options;
    int inches;
    int dual;
    int dmc;
  };
  const Row rows[] = {{{}, 0, 0, 1},
                      {{"--machine", "demo"}, 0, 0, 1},
                      {{"--machine", "demo-dual"}, 0, 1, 0},
                      {{"--machine", "demo-inch"}, 1, 0, 1}};
  for (const Row& row : rows) {
    SCOPED_TRACE(row.options.join(' ').toStdString());
    PanelClient client(Options(row.options));
    EXPECT_EQ(client.Get("MPG.INCHES").toInt(-1), row.inches);
    EXPECT_EQ(client.Get("DM.OPTION.DUALPURPOSE").toInt(-1), row.dual);
    EXPECT_EQ(client.Get("DM.OPTION.DMC").toInt(-1), row.dmc);
    EXPECT_EQ(client.Finish(), 0);
  }
}

TEST_F(Machines, AnUnknownNameIsRefused) {
  PanelClient client(Options({"--machine", "demo-lathe"}));
  EXPECT_EQ(client.WaitForEnd(), 2);
}

TEST_F(Machines, AMachineHasItsCuttingDataInTheLanguageOfItsFirstStart) {
  {
    PanelClient client(Options({"--lang", "es"}));
    EXPECT_EQ(client.Finish(), 0);
  }
  const std::string first = temp.Read(kFactoryFile);
  EXPECT_NE(first.find("<ToolType>Fresa</ToolType>"), std::string::npos);
  PanelClient client(Options({"--lang", "en"}));
  EXPECT_EQ(client.Finish(), 0);
  EXPECT_EQ(temp.Read(kFactoryFile), first);
}

TEST_F(Machines, AFactoryFileOfTheOwnerStays) {
  temp.Write(kFactoryFile, "<CondicionesCorte/>");
  PanelClient client(Options({}));
  EXPECT_EQ(client.Finish(), 0);
  EXPECT_EQ(temp.Read(kFactoryFile), "<CondicionesCorte/>");
}

TEST_F(Machines, ABarePanelHasNoCuttingData) {
  PanelClient client(Options({"--bare"}));
  EXPECT_EQ(client.Finish(), 0);
  EXPECT_TRUE(temp.Has("root/P24"));
  EXPECT_FALSE(temp.Has("root/P24/CondicionesCorte.xml"));
  EXPECT_FALSE(temp.Has(kFactoryFile));
}

}  // namespace
}  // namespace panel::test
