// SPDX-License-Identifier: MIT
#include "zmc/logic/zmc_block.h"

#include <gtest/gtest.h>

#include <limits>

#include "facade/variable_names.h"
#include "zmc/logic/zmc_rig.h"

namespace pnl::test {
namespace {

class ZmcBlockTest : public testing::Test {
 protected:
  ZmcBlockTest() {
    fields_.Material = u"Acero";
    fields_.Operation = u"Fresado";
    fields_.Tool = u"T3";
    fields_.Remark = u"Desbaste";
    fields_.S = u"3819";
    fields_.F = u"763";
    fields_.DmcText = u"#DMC ON [PWRSP = 29.95]";
    for (const VariableName& row : kVariableNames) {
      if (row.pattern.substr(0, 7) != u"DM.ZMC.") continue;
      NotedVariables::Value value;
      if (row.type == rig::VariableType::kInt) value = std::int32_t{-7};
      if (row.type == rig::VariableType::kDouble) value = -7.0;
      if (row.type == rig::VariableType::kText) value = Text(u"before");
      variables_.values[ToUtf8(row.pattern)] = value;
    }
  }
  void CheckAll() { checks_ = {true, true, 1, true, true, true}; }
  std::string Block() {
    variables_.log.clear();
    return ToUtf8(GenerateBlock({fields_, checks_, spindle_,
                                 [this] {
                                   variables_.log.emplace_back("may DMC be used");
                                   return dmcUsable_;
                                 }},
                                variables_));
  }
  std::vector<std::string> Written() {
    static_cast<void>(Block());
    return variables_.log;
  }

  ZmcFields fields_;
  ZmcChecks checks_;
  Text spindle_ = u"S";
  bool dmcUsable_ = true;
  NotedVariables variables_;
};

const std::string kInfo = "### ZMC # Acero # Fresado # T3";

TEST_F(ZmcBlockTest, ABlockWithEverythingHasItsSixLines) {
  CheckAll();
  EXPECT_EQ(Block(),
            ";Desbaste\r\n"
            "T3              ;" +
                kInfo +
                "\r\n"
                "M6              ;" +
                kInfo +
                "\r\n"
                "G94 F763            ;" +
                kInfo +
                "\r\n"
                "G97 S3819           ;" +
                kInfo +
                "\r\n"
                "#DMC ON [PWRSP = 29.95]\t;" +
                kInfo + "\r\n");
}

TEST_F(ZmcBlockTest, EveryValueGoesIntoItsVariableInOrder) {
  CheckAll();
  const std::vector<std::string> expected = {
      "write text DM.ZMC.INFO=" + kInfo,
      "write text DM.ZMC.COMMENT=Desbaste",
      "write int DM.ZMC.T=3",
      "write int DM.ZMC.M6=1",
      "write int DM.ZMC.FUNIT=0",
      "write double DM.ZMC.F=763",
      "write int DM.ZMC.SUNIT=0",
      "write double DM.ZMC.S=3819",
      "may DMC be used",
      "write text DM.ZMC.DMC=#DMC ON [PWRSP = 29.95]",
  };
  EXPECT_EQ(Written(), expected);
  for (const auto& [name, value] : variables_.values) {
    EXPECT_FALSE(value == NotedVariables::Value(std::int32_t{-7}) || value == NotedVariables::Value(-7.0) ||
                 value == NotedVariables::Value(Text(u"before")))
        << name << " has another type than the block writes";
  }
}

TEST_F(ZmcBlockTest, WithEverythingOffTheBlockIsEmptyAndTheVariablesGetTheirValues) {
  EXPECT_EQ(Block(), "");
  const std::vector<std::string> expected = {"write text DM.ZMC.INFO=" + kInfo,
                                             "write text DM.ZMC.COMMENT=",
                                             "write int DM.ZMC.T=0",
                                             "write int DM.ZMC.M6=0",
                                             "write double DM.ZMC.F=0",
                                             "write double DM.ZMC.S=0",
                                             "may DMC be used",
                                             "write text DM.ZMC.DMC="};
  EXPECT_EQ(variables_.log, expected);
}

TEST_F(ZmcBlockTest, AToolWithoutItsLetterGivesALineAndTheNumberZero) {
  checks_.Tool = true;
  for (const TextView tool : {TextView(u"FRESA 8"), TextView(u"t3"), TextView(u"12")}) {
    fields_.Tool = tool;
    const std::string name = ToUtf8(tool);
    const std::string padded = name + std::string(15 - name.size(), ' ');
    EXPECT_EQ(Block(), padded + " ;### ZMC # Acero # Fresado # " + name + "\r\n");
    EXPECT_EQ(variables_.log[2], "write int DM.ZMC.T=0");
  }
}

TEST_F(ZmcBlockTest, AToolNumberIsReadUpToItsLastDigit) {
  checks_.Tool = true;
  fields_.Tool = u"T12.3";
  EXPECT_EQ(Written()[2], "write int DM.ZMC.T=12");
}

TEST_F(ZmcBlockTest, M6NeedsTheTool) {
  checks_.M6 = 1;
  EXPECT_EQ(Block(), "");
  EXPECT_EQ(variables_.log[3], "write int DM.ZMC.M6=0");
}

TEST_F(ZmcBlockTest, TheStateOfTheM6BoxIsWrittenAndAnyButZeroIsOn) {
  checks_.Tool = true;
  for (const int state : {1, 2, -1}) {
    checks_.M6 = state;
    EXPECT_EQ(Block(), "T3              ;" + kInfo + "\r\nM6              ;" + kInfo + "\r\n");
    EXPECT_EQ(variables_.log[3], "write int DM.ZMC.M6=" + std::to_string(state));
  }
}

TEST_F(ZmcBlockTest, AFeedOfZeroGivesNoLineAndLeavesItsUnit) {
  checks_.F = true;
  for (const TextView text : {TextView(u"0"), TextView(u"0.000000"), TextView(u""), TextView(u"nan"), TextView(u"inf"),
                              TextView(u"0x10"), TextView(u"-0")}) {
    fields_.F = text;
    EXPECT_EQ(Block(), "") << ToUtf8(text);
    EXPECT_TRUE(variables_.values.at("DM.ZMC.FUNIT") == NotedVariables::Value(std::int32_t{-7})) << ToUtf8(text);
    EXPECT_TRUE(variables_.values.at("DM.ZMC.F") == NotedVariables::Value(0.0)) << ToUtf8(text);
  }
}

TEST_F(ZmcBlockTest, ASpeedOfZeroGivesNoLineAndLeavesItsUnit) {
  checks_.S = true;
  fields_.S = u" 0.0 ";
  EXPECT_EQ(Block(), "");
  EXPECT_TRUE(variables_.values.at("DM.ZMC.SUNIT") == NotedVariables::Value(std::int32_t{-7}));
  EXPECT_TRUE(variables_.values.at("DM.ZMC.S") == NotedVariables::Value(0.0));
}

TEST_F(ZmcBlockTest, AFeedThatIsTooLargeIsWrittenAsItIs) {
  checks_.F = true;
  fields_.F = u"1e999";
  EXPECT_EQ(Block(), "G94 F1e999          ;" + kInfo + "\r\n");
  EXPECT_TRUE(variables_.values.at("DM.ZMC.F") == NotedVariables::Value(std::numeric_limits<double>::infinity()));
}

TEST_F(ZmcBlockTest, AnEmptyRemarkGivesNoLineAndTheNextIsTheFirst) {
  CheckAll();
  fields_.Remark = u"";
  EXPECT_EQ(Block().substr(0, 20), "T3              ;###");
  EXPECT_EQ(variables_.log[1], "write text DM.ZMC.COMMENT=");
}

TEST_F(ZmcBlockTest, ARemarkThatIsNotCheckedCountsAsEmpty) { EXPECT_EQ(Written()[1], "write text DM.ZMC.COMMENT="); }

TEST_F(ZmcBlockTest, ARemarkOfABlankIsALine) {
  checks_.Comments = true;
  fields_.Remark = u" ";
  EXPECT_EQ(Block(), "; \r\n");
}

struct SpindleRow {
  TextView name;
  const char* line;
};

const SpindleRow kSpindles[] = {
    {u"S", "G97 S3819           ;"},    {u"s", "G97 s3819           ;"}, {u"S2", "G97 S2=3819           ;"},
    {u"S1", "G97 S1=3819           ;"}, {u"", "G97 =3819           ;"},
};

TEST_F(ZmcBlockTest, AnySpindleButSTakesAnEqualsSign) {
  checks_.S = true;
  for (const SpindleRow& row : kSpindles) {
    spindle_ = row.name;
    EXPECT_EQ(Block(), row.line + kInfo + "\r\n");
  }
}

TEST_F(ZmcBlockTest, AnyUnitButTheFirstIsTheSecondOne) {
  checks_.F = checks_.S = true;
  for (const int unit : {1, 2, kZmcNoSelection}) {
    fields_.FUnit = fields_.SUnit = unit;
    EXPECT_EQ(Block(), "G95 F763            ;" + kInfo + "\r\nG96 S3819           ;" + kInfo + "\r\n");
    EXPECT_TRUE(variables_.values.at("DM.ZMC.FUNIT") == NotedVariables::Value(std::int32_t{1}));
    EXPECT_TRUE(variables_.values.at("DM.ZMC.SUNIT") == NotedVariables::Value(std::int32_t{1}));
  }
}

TEST_F(ZmcBlockTest, ABlockOfOneLineEndsInALineBreakToo) {
  checks_.Comments = true;
  EXPECT_EQ(Block(), ";Desbaste\r\n");
}

TEST_F(ZmcBlockTest, NumbersAreTrimmedAndWidthsCutNothing) {
  CheckAll();
  fields_.Tool = u"T1234567890123456";
  fields_.F = u"  123456789.123456 ";
  fields_.S = u"\t12";
  const std::string block = Block();
  EXPECT_NE(block.find("\r\nT1234567890123456 ;### ZMC"), std::string::npos) << block;
  EXPECT_NE(block.find("\r\nG94 F123456789.123456 ;###"), std::string::npos) << block;
  EXPECT_NE(block.find("\r\nG97 S12             ;###"), std::string::npos) << block;
}

TEST_F(ZmcBlockTest, AnEmptyDmcLineGivesTheCommentAlone) {
  checks_.Dmc = true;
  fields_.DmcText = u"";
  EXPECT_EQ(Block(), "\t;" + kInfo + "\r\n");
  EXPECT_EQ(variables_.log.back(), "write text DM.ZMC.DMC=");
}

TEST_F(ZmcBlockTest, WithoutDmcThereIsNoLineAndItsVariableIsEmptied) {
  checks_.Dmc = true;
  dmcUsable_ = false;
  EXPECT_EQ(Block(), "");
  EXPECT_EQ(variables_.log.back(), "write text DM.ZMC.DMC=");
}

TEST_F(ZmcBlockTest, WithoutMaterialAndOperationTheirPlacesStayEmpty) {
  checks_.F = true;
  fields_.Material = fields_.Operation = fields_.Tool = u"";
  EXPECT_EQ(Block(), "G94 F763            ;### ZMC #  #  # \r\n");
}

TEST_F(ZmcBlockTest, VariablesThatCannotBeWrittenChangeNothingInTheBlock) {
  CheckAll();
  const std::string block = Block();
  for (const auto& [name, value] : variables_.values) variables_.unwritable.insert(name);
  EXPECT_EQ(Block(), block);
  variables_.values.clear();
  EXPECT_EQ(Block(), block);
}

TEST_F(ZmcBlockTest, ATextWithLineBreaksStaysInItsLine) {
  CheckAll();
  fields_.Remark = u"a\r\nG0 Z-100";
  fields_.Material = u"b\nM3";
  fields_.Operation = u"c\u2028d\u2029e\u0085f\v\f";
  fields_.Tool = u"T3\rM5";
  fields_.DmcText = u"x\ny";
  fields_.F = u"1\nG1";
  fields_.S = u"2\rG2";
  spindle_ = u"S\n";
  const std::string info = "### ZMC # b M3 # c d e f   # T3 M5";
  EXPECT_EQ(Block(),
            ";a  G0 Z-100\r\n"
            "T3 M5           ;" +
                info +
                "\r\n"
                "M6              ;" +
                info +
                "\r\n"
                "G94 F1 G1           ;" +
                info +
                "\r\n"
                "G97 S =2 G2           ;" +
                info +
                "\r\n"
                "x y\t;" +
                info + "\r\n");
}

TEST_F(ZmcBlockTest, FormatsInTextsPrintThemselves) {
  checks_.Comments = checks_.Tool = true;
  fields_.Remark = u"100%s %n";
  fields_.Tool = u"%d";
  EXPECT_EQ(Block(), ";100%s %n\r\n%d              ;### ZMC # Acero # Fresado # %d\r\n");
}

}  // namespace
}  // namespace pnl::test
