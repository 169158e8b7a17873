// SPDX-License-Identifier: MIT
// The cutting data that the build made, in both languages: what is in the files and that it makes sense.
#include <gtest/gtest.h>

#include <map>
#include <pugixml.hpp>
#include <set>
#include <sstream>
#include <string>
#include <vector>

namespace panel {
namespace {

std::string CuttingFile(const std::string& language) {
  return std::string(PNL_SHARE_FOLDER "/cutting/") + language + "/CondicionesCorte.xml";
}

/// The file of one language, parsed.
class CuttingData : public ::testing::TestWithParam<const char*> {
 protected:
  CuttingData() {
    const pugi::xml_parse_result parsed = document_.load_file(CuttingFile(GetParam()).c_str());
    EXPECT_TRUE(parsed) << parsed.description();
    root_ = document_.child("CondicionesCorte");
  }
  [[nodiscard]] std::vector<pugi::xml_node> Materials() const {
    const auto range = root_.child("MaterialesDefinition").children("MaterialDefinition");
    return {range.begin(), range.end()};
  }
  [[nodiscard]] std::vector<pugi::xml_node> Operations() const {
    const auto range = root_.child("Operaciones").children("Operacion");
    return {range.begin(), range.end()};
  }
  [[nodiscard]] std::vector<pugi::xml_node> Blocks() const {
    std::vector<pugi::xml_node> blocks;
    for (const pugi::xml_node& operation : Operations()) {
      for (const pugi::xml_node& holder : operation.children("Materiales"))
        blocks.push_back(holder.child("Parametros"));
    }
    return blocks;
  }
  [[nodiscard]] std::map<std::string, std::string> TypeTexts() const {
    if (std::string(GetParam()) == "es") {
      return {{"Fresa", "1"},
              {"Broca", "2"},
              {"Fresa de planear", "3"},
              {"Macho de roscar", "4"},
              {"Herramienta de torneado", "5"},
              {"Herramienta de roscar", "6"},
              {"Herramienta de ranurar", "7"},
              {"Herramienta de interiores", "8"},
              {"Otras", "9"},
              {"Palpador", "10"}};
    }
    return {{"Milling cutter", "1"}, {"Drill", "2"},          {"Face mill", "3"},     {"Tap", "4"},
            {"Turning tool", "5"},   {"Threading tool", "6"}, {"Grooving tool", "7"}, {"Inner turning tool", "8"},
            {"Other", "9"},          {"Probe", "10"}};
  }

  pugi::xml_document document_;
  pugi::xml_node root_;
};

TEST_P(CuttingData, HaveEnoughOfEverything) {
  EXPECT_EQ(Materials().size(), 18U);
  EXPECT_EQ(Operations().size(), 13U);
  EXPECT_EQ(Blocks().size(), 150U);
}

TEST_P(CuttingData, EveryMaterialHasADescriptionOfItsOwnAndACuttingForce) {
  std::set<std::string> names;
  for (const pugi::xml_node& material : Materials()) {
    const std::string name = material.child_value("descripcion");
    EXPECT_TRUE(names.insert(name).second) << name;
    EXPECT_FALSE(name.empty());
    const int force = material.child("KC").text().as_int();
    EXPECT_GE(force, 100) << name;
    EXPECT_LE(force, 8000) << name;
  }
}

/// The key of a material is made of its designations. A designation that it doesn't have is no element.
TEST_P(CuttingData, AMaterialsKeyIsMadeOfItsDesignations) {
  int whole = 0;
  for (const pugi::xml_node& material : Materials()) {
    const pugi::xml_node standards = material.child("Norma");
    std::string key;
    for (const char* name : {"AlemaniaW", "UNE", "AISI"}) {
      key +=
          (key.empty() && std::string_view(name) == "AlemaniaW" ? "" : "#") + std::string(standards.child_value(name));
      EXPECT_TRUE(!standards.child(name) || *standards.child_value(name) != 0) << name;
    }
    EXPECT_EQ(key, material.child_value("id"));
    if (standards.child("AlemaniaW") && standards.child("UNE") && standards.child("AISI")) ++whole;
  }
  EXPECT_EQ(whole, 17) << "all but the plastic";
  EXPECT_STREQ(Materials().back().child_value("id"), "#POM#");
}

TEST_P(CuttingData, TheOperationsCoverAllToolTypes) {
  std::set<std::string> names;
  std::set<std::string> keys;
  std::set<std::string> types;
  const auto texts = TypeTexts();
  for (const pugi::xml_node& operation : Operations()) {
    EXPECT_TRUE(names.insert(operation.child_value("descripcion")).second);
    EXPECT_TRUE(keys.insert(operation.child_value("id")).second);
    const auto type = texts.find(operation.child_value("ToolType"));
    ASSERT_NE(type, texts.end()) << operation.child_value("ToolType");
    types.insert(type->second);
  }
  EXPECT_EQ(types.size(), 10U);
}

TEST_P(CuttingData, EveryBlockNamesAMaterialFirstAndNoneTwiceInAnOperation) {
  std::set<std::string> names;
  for (const pugi::xml_node& material : Materials()) names.insert(material.child_value("descripcion"));
  for (const pugi::xml_node& operation : Operations()) {
    std::set<std::string> seen;
    for (const pugi::xml_node& holder : operation.children("Materiales")) {
      EXPECT_EQ(std::distance(holder.begin(), holder.end()), 1);
      const pugi::xml_node first = holder.child("Parametros").first_child();
      EXPECT_STREQ(first.name(), "Material");
      EXPECT_EQ(names.count(first.child_value()), 1U) << first.child_value();
      EXPECT_TRUE(seen.insert(first.child_value()).second) << first.child_value();
    }
  }
}

struct LimitsRow {
  const char* name;
  double lowest;
  double highest;
};
/// In the file's units: what any machining stays within.
constexpr LimitsRow kLimits[] = {
    {"VelocidadCorte", 3 * 1e7, 1000 * 1e7},
    {"AvancePorDiente", 0.01 * 1e4, 3 * 1e4},
    {"Profundidad", 0.05 * 1e4, 20 * 1e4},
    {"PasadaRadial", 5, 100},
};

TEST_P(CuttingData, EveryPairsLimitsAreOrderedAndNothingIsSelected) {
  for (const pugi::xml_node& block : Blocks()) {
    SCOPED_TRACE(std::string(block.parent().parent().child_value("descripcion")) + ", " +
                 block.child_value("Material"));
    EXPECT_TRUE(block.child("VelocidadCorte")) << "every pair has a speed";
    EXPECT_TRUE(block.child("AvancePorDiente")) << "every pair has a feed";
    for (const LimitsRow& row : kLimits) {
      const pugi::xml_node limits = block.child(row.name);
      if (!limits) continue;
      const double low = limits.child("Min").text().as_double(-1);
      const double high = limits.child("Max").text().as_double(-1);
      EXPECT_LE(low, high) << row.name;
      EXPECT_GE(low, row.lowest) << row.name;
      EXPECT_LE(high, row.highest) << row.name;
      EXPECT_FALSE(limits.child("Selected"));
    }
  }
}

TEST_P(CuttingData, SomePairsSayWhatToolTheyNeed) {
  int with = 0;
  for (const pugi::xml_node& block : Blocks()) {
    const pugi::xml_node quality = block.child("CaracteristicasHta").child("Calidad");
    if (!quality) continue;
    ++with;
    EXPECT_STRNE(quality.child_value(), "");
  }
  EXPECT_EQ(with, 149) << "all but the milling of the plastic";
}

/// One pair as the file has it, in full: names, order and units.
TEST_P(CuttingData, APairReadsAsTold) {
  const bool spanish = std::string(GetParam()) == "es";
  std::ostringstream text;
  Blocks().front().print(text, "", pugi::format_raw);
  EXPECT_EQ(text.str(), std::string("<Parametros><Material>") +
                            (spanish ? "Acero estructural S275JR" : "Structural steel S275JR") +
                            "</Material>"
                            "<VelocidadCorte><Min>1500000000</Min><Max>2200000000</Max></VelocidadCorte>"
                            "<AvancePorDiente><Min>900</Min><Max>1100</Max></AvancePorDiente>"
                            "<Profundidad><Min>20000</Min><Max>200000</Max></Profundidad>"
                            "<PasadaRadial><Min>10</Min><Max>40</Max></PasadaRadial>"
                            "<CaracteristicasHta><Calidad>" +
                            (spanish ? "Metal duro integral, recubierto" : "Solid carbide, coated") +
                            "</Calidad></CaracteristicasHta></Parametros>");
}

/// Every leaf is an element, never an attribute.
TEST_P(CuttingData, HaveNoAttributes) {
  struct Walker : pugi::xml_tree_walker {
    bool for_each(pugi::xml_node& node) override {
      EXPECT_FALSE(node.first_attribute()) << node.name();
      return true;
    }
  } walker;
  root_.traverse(walker);
}

INSTANTIATE_TEST_SUITE_P(Languages, CuttingData, ::testing::Values("en", "es"));

TEST(CuttingDataLanguages, DifferInWordsOnly) {
  pugi::xml_document documents[2];
  ASSERT_TRUE(documents[0].load_file(CuttingFile("en").c_str()));
  ASSERT_TRUE(documents[1].load_file(CuttingFile("es").c_str()));
  const auto figures = [](const pugi::xml_document& document) {
    std::vector<std::string> all;
    for (const auto& found : document.select_nodes("//Min | //Max | //KC | //id | //AlemaniaW | //UNE | //AISI")) {
      all.push_back(std::string(found.node().name()) + found.node().child_value());
    }
    return all;
  };
  EXPECT_EQ(figures(documents[0]), figures(documents[1]));
  EXPECT_GT(figures(documents[0]).size(), 800U);
}

}  // namespace
}  // namespace panel
