// SPDX-License-Identifier: MIT
#include "zmc/logic/zmc_settings.h"

#include <gtest/gtest.h>

#include "support/fake_utilities.h"
#include "support/memory_files.h"

namespace pnl::test {
namespace {

const char* const kDefaultFile =
    "[PRIVATE]\r\nLastMat=\r\nLastOpe=\r\nLastTool=\r\nFChecked=NO\r\nSChecked=NO\r\nDmcChecked=NO\r\n"
    "ToolChecked=NO\r\nM6Checked=NO\r\nCommentsChecked=NO\r\nCustomMaterialFirst=YES\r\nCustomOperationFirst=YES\r\n"
    "MaterialAToZ=YES\r\nOperationAToZ=YES\r\nOrderingMaterialType=0\r\nOrderingOperationType=0\r\nFUnit=0\r\n"
    "SUnit=0\r\nLastPartDiameter=0\r\n";

class ZmcSettingsTest : public testing::Test {
 protected:
  ZmcSettings Opened() {
    ZmcSettings settings(files_, utilities_);
    settings.Open();
    return settings;
  }
  ZmcKept Kept() { return Opened().kept; }
  const std::string path_ = "C:\\P52\\ZMC7340.ini";
  MemoryFiles files_;
  FakeUtilities utilities_;
};

/// Another value than its default for every setting.
ZmcKept Others() {
  ZmcKept kept;
  kept.LastMat = u"Acero";
  kept.LastOpe = u"Fresado";
  kept.LastTool = u"T3";
  kept.FChecked = kept.SChecked = kept.DmcChecked = kept.ToolChecked = kept.M6Checked = kept.CommentsChecked = true;
  kept.CustomMaterialFirst = kept.CustomOperationFirst = kept.MaterialAToZ = kept.OperationAToZ = false;
  kept.OrderingMaterialType = 1;
  kept.OrderingOperationType = 2;
  kept.FUnit = 1;
  kept.SUnit = 3;
  kept.LastPartDiameter = 425000.125;
  return kept;
}

TEST_F(ZmcSettingsTest, WithoutAFileTheSettingsAreTheDefaultsAndNothingIsWritten) {
  EXPECT_EQ(Kept(), ZmcKept{});
  EXPECT_TRUE(files_.replaced.empty());
}

TEST_F(ZmcSettingsTest, ANewFileHasEveryKeyWithItsDefault) {
  EXPECT_TRUE(Opened().Save());
  EXPECT_EQ(files_.disc[path_], kDefaultFile);
}

TEST_F(ZmcSettingsTest, EverySettingIsStoredUnderItsKey) {
  ZmcSettings settings = Opened();
  settings.kept = Others();
  EXPECT_TRUE(settings.Save());
  EXPECT_EQ(files_.disc[path_],
            "[PRIVATE]\r\nLastMat=Acero\r\nLastOpe=Fresado\r\nLastTool=T3\r\nFChecked=YES\r\nSChecked=YES\r\n"
            "DmcChecked=YES\r\nToolChecked=YES\r\nM6Checked=YES\r\nCommentsChecked=YES\r\nCustomMaterialFirst=NO\r\n"
            "CustomOperationFirst=NO\r\nMaterialAToZ=NO\r\nOperationAToZ=NO\r\nOrderingMaterialType=1\r\n"
            "OrderingOperationType=2\r\nFUnit=1\r\nSUnit=3\r\nLastPartDiameter=425000.125\r\n");
  EXPECT_EQ(Kept(), Others());
  EXPECT_EQ(files_.replaced, std::vector<std::string>{path_}) << "in this folder alone, and once";
}

struct KeyRow {
  const char* line;
  void (*change)(ZmcKept&);
};

const KeyRow kKeyRows[] = {
    {"LastMat=Aluminio", [](ZmcKept& k) { k.LastMat = u"Aluminio"; }},
    {"LastOpe=Taladrado", [](ZmcKept& k) { k.LastOpe = u"Taladrado"; }},
    {"LastTool=T7", [](ZmcKept& k) { k.LastTool = u"T7"; }},
    {"FChecked=1", [](ZmcKept& k) { k.FChecked = true; }},
    {"SChecked=yes", [](ZmcKept& k) { k.SChecked = true; }},
    {"DmcChecked=YES", [](ZmcKept& k) { k.DmcChecked = true; }},
    {"ToolChecked=YES", [](ZmcKept& k) { k.ToolChecked = true; }},
    {"M6Checked=YES", [](ZmcKept& k) { k.M6Checked = true; }},
    {"CommentsChecked=YES", [](ZmcKept& k) { k.CommentsChecked = true; }},
    {"CustomMaterialFirst=NO", [](ZmcKept& k) { k.CustomMaterialFirst = false; }},
    {"CustomOperationFirst=0", [](ZmcKept& k) { k.CustomOperationFirst = false; }},
    {"MaterialAToZ=TRUE", [](ZmcKept& k) { k.MaterialAToZ = false; }},
    {"OperationAToZ=NO", [](ZmcKept& k) { k.OperationAToZ = false; }},
    {"OrderingMaterialType=2", [](ZmcKept& k) { k.OrderingMaterialType = 2; }},
    {"OrderingOperationType=-3", [](ZmcKept& k) { k.OrderingOperationType = -3; }},
    {"FUnit=1", [](ZmcKept& k) { k.FUnit = 1; }},
    {"SUnit=1", [](ZmcKept& k) { k.SUnit = 1; }},
    {"LastPartDiameter=1e5", [](ZmcKept& k) { k.LastPartDiameter = 100000; }},
    {"lastpartdiameter=423.5", [](ZmcKept& k) { k.LastPartDiameter = 423.5; }},
    {"LastPartDiameter=nan", [](ZmcKept&) {}},
    {"LastPartDiameter=inf", [](ZmcKept&) {}},
    {"LastPartDiameter=1e999", [](ZmcKept&) {}},
    {"LastPartDiameter=text", [](ZmcKept&) {}},
    {"Other=1", [](ZmcKept&) {}},
};

TEST_F(ZmcSettingsTest, EachKeyAloneChangesItsSettingAloneAndTheRestAreDefaults) {
  for (const KeyRow& row : kKeyRows) {
    files_.disc[path_] = "[PRIVATE]\r\n" + std::string(row.line) + "\r\n";
    ZmcKept expected;
    row.change(expected);
    EXPECT_EQ(Kept(), expected) << row.line;
  }
}

TEST_F(ZmcSettingsTest, KeysInAnotherSectionAreNotRead) {
  files_.disc[path_] = "[COMMON]\r\nFUnit=1\r\n";
  EXPECT_EQ(Kept(), ZmcKept{});
}

TEST_F(ZmcSettingsTest, OnlyTheSetupFolderCounts) {
  files_.disc["C:\\P108\\ZMC7340.ini"] = "[PRIVATE]\r\nFUnit=1\r\n";
  EXPECT_EQ(Kept(), ZmcKept{});
}

TEST_F(ZmcSettingsTest, ThePartsDiameterIsInInternalUnitsAndKeepsItsPrecision) {
  for (const double value : {425000.0, 0.1, 1079502.1590043180, 1e-7, -3.5}) {
    ZmcSettings settings = Opened();
    settings.kept.LastPartDiameter = value;
    EXPECT_TRUE(settings.Save());
    EXPECT_EQ(Kept().LastPartDiameter, value);
  }
}

TEST_F(ZmcSettingsTest, UnknownKeysAndCommentsStay) {
  files_.disc[path_] = "; mine\r\n[PRIVATE]\r\nFUnit=1\r\nTheirs=7\r\n\r\n[OTHER]\r\nFUnit=9\r\n";
  ZmcSettings settings = Opened();
  settings.kept.FUnit = 0;
  EXPECT_TRUE(settings.Save());
  const std::string& stored = files_.disc[path_];
  EXPECT_EQ(stored.rfind("; mine\r\n[PRIVATE]\r\nFUnit=0\r\nTheirs=7\r\n", 0), 0u) << stored;
  EXPECT_NE(stored.find("[OTHER]\r\nFUnit=9\r\n"), std::string::npos) << stored;
}

TEST_F(ZmcSettingsTest, AFileThatCannotBeReadIsNotOverwritten) {
  files_.disc[path_] = "[PRIVATE]\r\nLastMat=Acero\r\n";
  files_.unreadable.insert(path_);
  ZmcSettings settings = Opened();
  EXPECT_EQ(settings.kept, ZmcKept{});
  settings.kept.FUnit = 1;
  EXPECT_FALSE(settings.Save());
  EXPECT_EQ(files_.disc[path_], "[PRIVATE]\r\nLastMat=Acero\r\n");
}

TEST_F(ZmcSettingsTest, AFileThatIsBackGetsOnlyWhatHasChanged) {
  files_.disc[path_] = "[PRIVATE]\r\nLastMat=Acero\r\nSUnit=1\r\nLastPartDiameter=425000\r\n";
  files_.unreadable.insert(path_);
  ZmcSettings settings = Opened();
  settings.kept.FUnit = 1;
  settings.kept.MaterialAToZ = false;
  EXPECT_FALSE(settings.Save());
  files_.unreadable.clear();
  EXPECT_TRUE(settings.Save());
  ZmcKept expected;
  expected.LastMat = u"Acero";
  expected.SUnit = 1;
  expected.LastPartDiameter = 425000;
  expected.FUnit = 1;
  expected.MaterialAToZ = false;
  EXPECT_EQ(Kept(), expected);
  settings.kept.FUnit = 0;
  EXPECT_TRUE(settings.Save());
  EXPECT_EQ(Kept().FUnit, 0) << "from then on everything is written, a default too";
}

TEST_F(ZmcSettingsTest, AFolderThatIsBackGetsOnlyWhatHasChanged) {
  files_.disc[path_] = "[PRIVATE]\r\nLastMat=Acero\r\n";
  files_.away.insert("C:\\P52");
  ZmcSettings settings = Opened();
  settings.kept.LastTool = u"T3";
  EXPECT_FALSE(settings.Save());
  files_.away.clear();
  EXPECT_TRUE(settings.Save());
  EXPECT_TRUE(Kept().LastMat == u"Acero" && Kept().LastTool == u"T3");
}

TEST_F(ZmcSettingsTest, AFullOrReadOnlyDiscIsReported) {
  files_.disc[path_] = "[PRIVATE]\r\nLastMat=Acero\r\n";
  ZmcSettings settings = Opened();
  files_.full = true;
  EXPECT_FALSE(settings.Save());
  files_.full = false;
  files_.readOnly.insert(path_);
  EXPECT_FALSE(settings.Save());
  EXPECT_EQ(files_.disc[path_], "[PRIVATE]\r\nLastMat=Acero\r\n");
}

TEST_F(ZmcSettingsTest, OpeningAgainTakesTheFileAsItIsThen) {
  ZmcSettings settings = Opened();
  settings.kept.FUnit = 1;
  files_.disc[path_] = "[PRIVATE]\r\nSUnit=1\r\n";
  settings.Open();
  EXPECT_EQ(settings.kept.FUnit, 0);
  EXPECT_EQ(settings.kept.SUnit, 1);
}

}  // namespace
}  // namespace pnl::test
