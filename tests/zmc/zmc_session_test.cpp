// SPDX-License-Identifier: MIT
#include "zmc/zmc_stage.h"

namespace pnl::test {
namespace {

namespace id = zmc_control;
using testing::ElementsAre;

TEST_F(ZmcSessionTest, OpensWithTheHostToldFirstAndTheMenusLast) {
  Open();
  EXPECT_THAT(Asked(), ElementsAre("HostToolOpening(4)", "clear message", "side menu menu", "main menu menu"));
}

TEST_F(ZmcSessionTest, MakesTheUserFileAtTheFirstStart) {
  Open();
  EXPECT_EQ(UserFile().size(), 218u);
}

TEST_F(ZmcSessionTest, WithoutAPlaceForTheUserFileTheToolCloses) {
  files.readOnly.insert("C:\\P118");
  files.full = true;
  Open();
  EXPECT_THAT(Asked(), ElementsAre("HostToolOpening(4)", "HostToolClosed(4,2)"));
  EXPECT_TRUE(view->closing);
}

TEST_F(ZmcSessionTest, FillsTheListsAndSelectsTheLastItems) {
  Open();
  EXPECT_THAT(Items(id::kMaterial), ElementsAre("Steel", "Brass"));
  EXPECT_THAT(Items(id::kOperation), ElementsAre("Milling", "Turning"));
  EXPECT_EQ(TextOf(id::kMaterial), "Brass");
  EXPECT_EQ(TextOf(id::kOperation), "Turning");
  EXPECT_THAT(Items(id::kTool), ElementsAre("T7"));
}

TEST_F(ZmcSessionTest, APairShowsItsLimitsAndTheUsersValues) {
  Open();
  Pick(id::kMaterial, u"Steel");
  Pick(id::kOperation, u"Milling");
  EXPECT_EQ(CellOf(1, 1), "80.0000000");
  EXPECT_EQ(CellOf(1, 2), "160.0000000");
  EXPECT_EQ(CellOf(1, 3), "");  // what the factory has selected counts for nobody
  EXPECT_EQ(CellOf(4, 2), "100.0000000");
  EXPECT_EQ(messages.back(), "1 [Carbide P25] back 2C8064");
}

TEST_F(ZmcSessionTest, ComputesTheBlockFromThePair) {
  Open();
  Pick(id::kMaterial, u"Steel");
  Pick(id::kOperation, u"Milling");
  Pick(id::kTool, u"T3");
  EXPECT_TRUE(Cell(1, 3, u"120"));
  EXPECT_EQ(TextOf(id::kS), "3819");
  EXPECT_TRUE(Cell(2, 3, u"0.05"));
  EXPECT_EQ(TextOf(id::kF), "763.800000");
  EXPECT_TRUE(Cell(3, 3, u"2"));
  EXPECT_TRUE(Cell(4, 3, u"50"));
  EXPECT_EQ(TextOf(id::kPower), "29.952941");
  EXPECT_EQ(TextOf(id::kDmcText), "#DMC ON [PWRSP = 29.952941, FZMIN = 0.0200000, FZMAX = 0.1000000]");
  EXPECT_THAT(UserFile(), testing::HasSubstr("1200000000"));
}

TEST_F(ZmcSessionTest, TheLimitsOfAFactoryPairTakeNoTyping) {
  Open();
  Pick(id::kMaterial, u"Steel");
  Pick(id::kOperation, u"Milling");
  EXPECT_FALSE(Cell(1, 1, u"5"));
  EXPECT_TRUE(Cell(1, 3, u"5"));
}

TEST_F(ZmcSessionTest, InsertsTheBlockAndCloses) {
  Open();
  Pick(id::kOperation, u"Milling");
  Turn(id::kToolCheck, true);
  Pick(id::kTool, u"T3");
  Forget();
  Menu(zmc_command::kInsert);
  EXPECT_EQ(ToUtf8(windows.clipboard), "T3              ;### ZMC # Brass # Milling # T3\r\n");
  const Log asked = Asked();
  EXPECT_EQ(std::vector(asked.end() - 2, asked.end()), (Log{"clear message", "HostToolClosed(4,2)"}));
  EXPECT_EQ(*(asked.end() - 3), "HostInsertBlock");
}

TEST_F(ZmcSessionTest, TheClipboardIsGivenTheTabsOwnWindow) {
  Open();
  Forget();
  Menu(zmc_command::kCopy);
  EXPECT_THAT(Asked(), testing::Contains("UTIL7340_CopyToClipboard_Text(100,\"\")=nothing"));
}

TEST_F(ZmcSessionTest, AMissingFactoryFileIsToldOnceForEachList) {
  files.disc.erase("C:\\P24\\CondicionesCorte.xml");
  Open();
  ASSERT_EQ(windows.boxes.size(), 2u);
  EXPECT_EQ(windows.boxes[0].text, u"T285");
  EXPECT_EQ(windows.boxes[1].text, u"T285");
  EXPECT_EQ(windows.boxes[0].title, u"CNC");
}

TEST_F(ZmcSessionTest, ADamagedUserFileIsToldAndStaysAsItIs) {
  files.disc["C:\\P118\\CondicionesCorteP.xml"] = "<CondicionesCorte><Mat";
  Open();
  ASSERT_EQ(windows.boxes.size(), 1u);
  EXPECT_EQ(windows.boxes[0].text, u"T278");
  EXPECT_EQ(UserFile(), "<CondicionesCorte><Mat");
}

TEST_F(ZmcSessionTest, WritesTheHelpTopic) {
  Open();
  Forget();
  EXPECT_EQ(Send(PNL_MSG_HELP_KEY), 0);
  EXPECT_THAT(Asked(), ElementsAre("write E.HELPDATA=\"OPT0330\" ok"));
}

TEST_F(ZmcSessionTest, KeepsTheSettingsAtItsEnd) {
  Open();
  Pick(id::kMaterial, u"Steel");
  Turn(id::kFCheck, true);
  DestroyTool();
  const std::string& ini = files.disc["C:\\P52\\ZMC7340.ini"];
  EXPECT_THAT(ini, testing::HasSubstr("LastMat=Steel"));
  EXPECT_THAT(ini, testing::HasSubstr("FChecked="));
}

}  // namespace
}  // namespace pnl::test
