// SPDX-License-Identifier: MIT
// The block and the variables for all combinations of the six checks, on a mill and on a lathe, beside a golden file.
// With PNL_GOLDEN_OUT set to a folder the file is written there instead of being compared.
#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <sstream>

#include "zmc/logic/zmc_block.h"
#include "zmc/logic/zmc_rig.h"

namespace pnl::test {
namespace {

constexpr const char* kBlocksFile = "/zmc/logic/goldens/blocks.txt";

struct BlockScene {
  const char* name;
  ZmcFields fields;
  Text spindle;
};

std::vector<BlockScene> Scenes() {
  ZmcFields mill;
  mill.Material = u"Acero";
  mill.Operation = u"Fresado";
  mill.Tool = u"T3";
  mill.Remark = u"Desbaste";
  mill.S = u"3819";
  mill.F = u"763";
  mill.DmcText = u"#DMC ON [PWRSP = 29.952941, FZMIN = 0.0200000]";
  ZmcFields lathe = mill;
  lathe.Operation = u"Torneado";
  lathe.Tool = u"T12";
  lathe.S = u"120.000000";
  lathe.F = u"0.200000";
  lathe.FUnit = lathe.SUnit = 1;
  lathe.DmcText = u"";
  return {{"mill", mill, u"S"}, {"lathe", lathe, u"S2"}};
}

ZmcChecks ChecksOf(int bits) {
  return {(bits & 1) != 0, (bits & 2) != 0,  (bits & 4) != 0 ? 1 : 0,
          (bits & 8) != 0, (bits & 16) != 0, (bits & 32) != 0};
}

std::string NameOf(const ZmcChecks& checks) {
  std::string name;
  if (checks.Comments) name += " remark";
  if (checks.Tool) name += " tool";
  if (checks.M6 != 0) name += " M6";
  if (checks.F) name += " F";
  if (checks.S) name += " S";
  if (checks.Dmc) name += " DMC";
  return name.empty() ? " nothing" : name;
}

/// The ends of the lines and the tab are made visible.
std::string Visible(const std::string& block) {
  std::string all;
  for (const char c : block) {
    if (c == '\t')
      all += "<TAB>";
    else if (c == '\r')
      all += "<CR>";
    else
      all += c;
  }
  return all;
}

std::string AllBlocks() {
  std::string all;
  for (const BlockScene& scene : Scenes()) {
    for (int bits = 0; bits < 64; ++bits) {
      const ZmcChecks checks = ChecksOf(bits);
      NotedVariables variables;
      variables.values = {{"DM.ZMC.INFO", Text()}, {"DM.ZMC.COMMENT", Text()}, {"DM.ZMC.T", 0},
                          {"DM.ZMC.M6", 0},        {"DM.ZMC.FUNIT", 0},        {"DM.ZMC.F", 0.0},
                          {"DM.ZMC.SUNIT", 0},     {"DM.ZMC.S", 0.0},          {"DM.ZMC.DMC", Text()}};
      const Text block = GenerateBlock({scene.fields, checks, scene.spindle, [] { return true; }}, variables);
      all += "== " + std::string(scene.name) + ":" + NameOf(checks) + "\n" + Visible(ToUtf8(block));
      for (const std::string& line : variables.log) all += "  " + line + "\n";
    }
  }
  return all;
}

TEST(ZmcBlockGolden, TheBlocksOfAllChecksAreThoseOfTheFile) {
  const std::string now = AllBlocks();
  if (const char* folder = std::getenv("PNL_GOLDEN_OUT")) {
    std::ofstream(std::string(folder) + "/blocks.txt", std::ios::binary) << now;
    return;
  }
  std::ifstream in(std::string(PNL_TESTS_FOLDER) + kBlocksFile, std::ios::binary);
  ASSERT_TRUE(in) << kBlocksFile;
  std::istringstream fresh(now);
  std::string old;
  std::string line;
  int number = 0;
  for (std::string scene; std::getline(fresh, line);) {
    ++number;
    if (line.substr(0, 2) == "==") scene = line;
    ASSERT_TRUE(std::getline(in, old)) << "the file ends before line " << number;
    EXPECT_EQ(line, old) << number << " " << scene;
  }
  EXPECT_FALSE(std::getline(in, old)) << "the file goes on: " << old;
}

}  // namespace
}  // namespace pnl::test
