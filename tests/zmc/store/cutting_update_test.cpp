// SPDX-License-Identifier: MIT
// What each kind of update leaves in the files, to the byte.
#include "cutting_rig.h"
#include "zmc/store/user_file.h"

namespace pnl::test {
namespace {

constexpr char kFactory[] = "<CondicionesCorte><MaterialesDefinition/><Operaciones/></CondicionesCorte>\n";

const std::string kHead = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<CondicionesCorte>\n";

std::string Lists(const std::string& materials, const std::string& operations) {
  const auto list = [](const std::string& name, const std::string& inside) {
    return inside.empty() ? "\t<" + name + " />\n" : "\t<" + name + ">\n" + inside + "\t</" + name + ">\n";
  };
  return kHead + list("MaterialesDefinition", materials) + list("Operaciones", operations) + "</CondicionesCorte>\n";
}

class CuttingUpdate : public CuttingRig {
 protected:
  CuttingUpdate() {
    PutFactory(kFactory);
    EXPECT_EQ(EnsureUserFile(files, kUserPath), FileStatus::kOk);
  }
  ~CuttingUpdate() override {
    EXPECT_EQ(Factory(), kFactory);
    // What the store has in memory is what a fresh one reads.
    CondicionesCorteParser fresh(files);
    EXPECT_EQ(UserMaterials().MaterialDefinition, fresh.GetListaMateriales(kUserPath).Value().MaterialDefinition);
    EXPECT_EQ(UserOperations().Operacion, fresh.GetListaOperaciones(kUserPath).Value().Operacion);
  }
  [[nodiscard]] CuttingError SaveMaterial(TextView old, const CT_MaterialDefinition& record, TextView oldId = {}) {
    return parser.UpdateMaterialDefinition(kUserPath, old, oldId, record);
  }
  [[nodiscard]] CuttingError SaveOperation(TextView old, const CT_Operacion& record, TextView oldId = {}) {
    return parser.UpdateOperationWithoutMaterials(kUserPath, old, oldId, record);
  }
};

const char kSteel[] =
    "\t\t<MaterialDefinition>\n"
    "\t\t\t<id>1.0503##1045</id>\n"
    "\t\t\t<descripcion>Steel</descripcion>\n"
    "\t\t\t<Norma>\n"
    "\t\t\t\t<AlemaniaW>1.0503</AlemaniaW>\n"
    "\t\t\t\t<AISI>1045</AISI>\n"
    "\t\t\t</Norma>\n"
    "\t\t\t<KC>1800</KC>\n"
    "\t\t\t<Oculto>true</Oculto>\n"
    "\t\t\t<Date>2024/05/06 07:08:09</Date>\n"
    "\t\t</MaterialDefinition>\n";
const char kBrass[] =
    "\t\t<MaterialDefinition>\n"
    "\t\t\t<id>##</id>\n"
    "\t\t\t<descripcion>Brass</descripcion>\n"
    "\t\t\t<Date>2024/05/06 07:08:10</Date>\n"
    "\t\t</MaterialDefinition>\n";

CT_MaterialDefinition Steel() {
  CT_MaterialDefinition steel = Material(u"  Steel\t", u"2024/05/06 07:08:09", true, u"1800");
  steel.Norma = {u"1.0503", std::nullopt, u"1045"};
  steel.id = MaterialId(steel.Norma);
  return steel;
}

TEST_F(CuttingUpdate, ANewMaterialIsAdded) {
  EXPECT_EQ(SaveMaterial(u"", Steel()), CuttingError::kNone);
  EXPECT_EQ(User(), Lists(kSteel, ""));
  EXPECT_EQ(SaveMaterial(u"", Material(u"Brass", u"2024/05/06 07:08:10")), CuttingError::kNone);
  EXPECT_EQ(User(), Lists(std::string(kSteel) + kBrass, ""));
}

TEST_F(CuttingUpdate, AMaterialWithoutDesignationsHasNoNormaAndTwoMarksAsId) {
  CT_MaterialDefinition plain = Material(u"Brass", u"2024/05/06 07:08:10");
  plain.id = MaterialId(plain.Norma);
  EXPECT_EQ(SaveMaterial(u"", plain), CuttingError::kNone);
  EXPECT_EQ(User(), Lists(kBrass, ""));
}

TEST_F(CuttingUpdate, AMaterialIsWrittenOverTheOneOfItsOldDescription) {
  ASSERT_EQ(SaveMaterial(u"", Steel()), CuttingError::kNone);
  ASSERT_EQ(SaveMaterial(u"", Material(u"Iron")), CuttingError::kNone);
  EXPECT_EQ(SaveMaterial(u"Iron", Material(u"Brass", u"2024/05/06 07:08:10")), CuttingError::kNone);
  EXPECT_EQ(User(), Lists(std::string(kSteel) + kBrass, ""));
  EXPECT_EQ(SaveMaterial(u"Steel", Material(u"Brass", u"2024/05/06 07:08:10")), CuttingError::kNone);
  EXPECT_EQ(User(), Lists(std::string(kBrass) + kBrass, ""));
}

TEST_F(CuttingUpdate, AnOldDescriptionThatIsNotInTheFileAdds) {
  ASSERT_EQ(SaveMaterial(u"", Steel()), CuttingError::kNone);
  EXPECT_EQ(SaveMaterial(u"steel", Material(u"Brass", u"2024/05/06 07:08:10")), CuttingError::kNone);
  EXPECT_EQ(User(), Lists(std::string(kSteel) + kBrass, ""));
}

TEST_F(CuttingUpdate, ANewRecordNeverReplacesOneWithoutDescription) {
  PutUser(CuttingFile("<MaterialDefinition><KC>1</KC></MaterialDefinition>", "<Operacion><id>1</id></Operacion>"));
  EXPECT_EQ(SaveMaterial(u"", Material(u"Brass")), CuttingError::kNone);
  EXPECT_EQ(SaveOperation(u"", Operation(u"Milling")), CuttingError::kNone);
  EXPECT_EQ(UserMaterials().MaterialDefinition[0].KC, u"1");
  EXPECT_EQ(UserMaterials().MaterialDefinition.size(), 2u);
  EXPECT_EQ(UserOperations().Operacion.size(), 2u);
}

TEST_F(CuttingUpdate, OfSeveralRecordsTheOneWithTheOldIdIsWritten) {
  const std::string one = "<MaterialDefinition><id>1</id><descripcion>a</descripcion></MaterialDefinition>";
  const std::string two = "<MaterialDefinition><id>2</id><descripcion>a</descripcion></MaterialDefinition>";
  PutUser(CuttingFile(one + two,
                      "<Operacion><id>1</id><descripcion>o</descripcion></Operacion>"
                      "<Operacion><id>2</id><descripcion>o</descripcion></Operacion>"));
  EXPECT_EQ(SaveMaterial(u"a", Material(u"b"), u"2"), CuttingError::kNone);
  EXPECT_EQ(UserMaterials().MaterialDefinition[0].descripcion, u"a");
  EXPECT_EQ(UserMaterials().MaterialDefinition[1].descripcion, u"b");
  EXPECT_EQ(SaveOperation(u"o", Operation(u"p"), u"2"), CuttingError::kNone);
  EXPECT_EQ(UserOperations().Operacion[1].descripcion, u"p");
  // An id that none has: the first one.
  EXPECT_EQ(SaveMaterial(u"a", Material(u"c"), u"9"), CuttingError::kNone);
  EXPECT_EQ(UserMaterials().MaterialDefinition[0].descripcion, u"c");
}

TEST_F(CuttingUpdate, AMaterialIsRemoved) {
  ASSERT_EQ(SaveMaterial(u"", Steel()), CuttingError::kNone);
  ASSERT_EQ(SaveMaterial(u"", Material(u"Brass", u"2024/05/06 07:08:10")), CuttingError::kNone);
  EXPECT_EQ(parser.DeleteMaterialDefinition(kUserPath, u"Steel"), CuttingError::kNone);
  EXPECT_EQ(User(), Lists(kBrass, ""));
  EXPECT_EQ(parser.DeleteMaterialDefinition(kUserPath, u"Brass"), CuttingError::kNone);
  EXPECT_EQ(User(), Lists("", ""));
}

TEST_F(CuttingUpdate, TheFirstOfTwoEqualRecordsIsRemoved) {
  ASSERT_EQ(SaveMaterial(u"", Material(u"Steel", u"1")), CuttingError::kNone);
  ASSERT_EQ(SaveMaterial(u"", Material(u"Steel", u"2")), CuttingError::kNone);
  EXPECT_EQ(parser.DeleteMaterialDefinition(kUserPath, u"Steel"), CuttingError::kNone);
  EXPECT_EQ(UserMaterials().MaterialDefinition, std::vector<CT_MaterialDefinition>{Material(u"Steel", u"2")});
}

TEST_F(CuttingUpdate, ADeleteThatFindsNothingWritesNothing) {
  const std::string before = User();
  files.replaced.clear();
  EXPECT_EQ(parser.DeleteMaterialDefinition(kUserPath, u"Steel"), CuttingError::kNone);
  EXPECT_EQ(parser.DeleteMaterialDefinition(kUserPath, u""), CuttingError::kNone);
  EXPECT_EQ(parser.DeleteOperation(kUserPath, u"Drilling"), CuttingError::kNone);
  EXPECT_EQ(parser.DeleteOperation(kUserPath, u""), CuttingError::kNone);
  EXPECT_TRUE(files.replaced.empty());
  EXPECT_EQ(User(), before);
}

std::string DrillingWith(const std::string& blocks, const std::string& own = "\t\t\t<ToolType>Drill</ToolType>\n") {
  return "\t\t<Operacion>\n\t\t\t<id>7</id>\n\t\t\t<descripcion>Drilling</descripcion>\n" + own + blocks +
         "\t\t</Operacion>\n";
}
std::string SteelBlock(const std::string& inside) {
  return "\t\t\t<Materiales>\n\t\t\t\t<Parametros>\n\t\t\t\t\t<Material>Steel</Material>\n" + inside +
         "\t\t\t\t</Parametros>\n\t\t\t</Materiales>\n";
}

TEST_F(CuttingUpdate, AFirstValueMakesOperationBlockAndElement) {
  EXPECT_EQ(Update(2, 1200000000), CuttingError::kNone);
  EXPECT_EQ(User(), Lists("", DrillingWith(SteelBlock("\t\t\t\t\t<VelocidadCorte>\n"
                                                      "\t\t\t\t\t\t<Selected>1200000000</Selected>\n"
                                                      "\t\t\t\t\t</VelocidadCorte>\n"))));
}

TEST_F(CuttingUpdate, EveryParameterHasItsElement) {
  for (int param = 12; param >= 0; --param) EXPECT_EQ(Update(param, param + 0.5, u"slowly"), CuttingError::kNone);
  const auto range = [](const std::string& name, const std::string& values) {
    return "\t\t\t\t\t<" + name + ">\n" + values + "\t\t\t\t\t</" + name + ">\n";
  };
  const auto values = [](const std::string& selected, const std::string& least, const std::string& most) {
    return "\t\t\t\t\t\t<Selected>" + selected + "</Selected>\n\t\t\t\t\t\t<Min>" + least +
           "</Min>\n\t\t\t\t\t\t<Max>" + most + "</Max>\n";
  };
  EXPECT_EQ(
      User(),
      Lists("", DrillingWith(SteelBlock(range("VelocidadCorte", values("2.5", "0.5", "1.5")) +
                                        range("AvancePorDiente", values("5.5", "3.5", "4.5")) +
                                        range("Profundidad", values("8.5", "6.5", "7.5")) +
                                        range("PasadaRadial", values("11.5", "9.5", "10.5")) +
                                        range("Observaciones", "\t\t\t\t\t\t<Descripcion>slowly</Descripcion>\n")))));
}

TEST_F(CuttingUpdate, EachParameterIdMeansOneField) {
  const struct {
    int param;
    CuttingLeaf CT_VelocidadCorte::*leaf;
    CT_VelocidadCorte CT_Parametros::*row;
  } kRows[] = {
      {0, &CT_VelocidadCorte::Min, &CT_Parametros::VelocidadCorte},
      {1, &CT_VelocidadCorte::Max, &CT_Parametros::VelocidadCorte},
      {2, &CT_VelocidadCorte::Selected, &CT_Parametros::VelocidadCorte},
      {3, &CT_VelocidadCorte::Min, &CT_Parametros::AvancePorDiente},
      {4, &CT_VelocidadCorte::Max, &CT_Parametros::AvancePorDiente},
      {5, &CT_VelocidadCorte::Selected, &CT_Parametros::AvancePorDiente},
      {6, &CT_VelocidadCorte::Min, &CT_Parametros::Profundidad},
      {7, &CT_VelocidadCorte::Max, &CT_Parametros::Profundidad},
      {8, &CT_VelocidadCorte::Selected, &CT_Parametros::Profundidad},
      {9, &CT_VelocidadCorte::Min, &CT_Parametros::PasadaRadial},
      {10, &CT_VelocidadCorte::Max, &CT_Parametros::PasadaRadial},
      {11, &CT_VelocidadCorte::Selected, &CT_Parametros::PasadaRadial},
  };
  for (const auto& row : kRows) {
    PutUser(CuttingFile(""));
    ASSERT_EQ(Update(row.param, 15000, u"not this"), CuttingError::kNone);
    CT_Parametros expected;
    (expected.*row.row).*row.leaf = u"15000";
    EXPECT_EQ(UserBlock(u"Steel", u"Drilling"), expected) << row.param;
  }
  PutUser(CuttingFile(""));
  ASSERT_EQ(Update(12, 15000, u"a remark"), CuttingError::kNone);
  CT_Parametros expected;
  expected.Observaciones.Descripcion = u"a remark";
  EXPECT_EQ(UserBlock(u"Steel", u"Drilling"), expected);
}

TEST_F(CuttingUpdate, StoredUnitsAreDigits) {
  EXPECT_EQ(Update(11, 50), CuttingError::kNone);
  EXPECT_EQ(Update(8, 1.5 * 10000), CuttingError::kNone);
  EXPECT_EQ(Update(2, 120 * 10000000.0), CuttingError::kNone);
  const CT_Parametros block = UserBlock(u"Steel", u"Drilling");
  EXPECT_EQ(block.PasadaRadial.Selected, u"50");
  EXPECT_EQ(block.Profundidad.Selected, u"15000");
  EXPECT_EQ(block.VelocidadCorte.Selected, u"1200000000");
}

TEST_F(CuttingUpdate, AnOperationMadeByACellIsNeitherDatedNorHidden) {
  EXPECT_EQ(parser.UpdateCondicionesCorteParam(kUserPath, Operation(u" Drilling ", u"7", u"Drill", u"2024", true),
                                               Material(u" Steel "), 12, 0, u"x"),
            CuttingError::kNone);
  EXPECT_EQ(UserOperations().Operacion, std::vector<CT_Operacion>{Operation(u" Drilling ", u"7", u"Drill")});
  // The pair is found again by the same descriptions, and a second value goes to the same block.
  EXPECT_EQ(
      parser.UpdateCondicionesCorteParam(kUserPath, Operation(u" Drilling ", u"7"), Material(u" Steel "), 0, 1, {}),
      CuttingError::kNone);
  EXPECT_EQ(UserBlock(u" Steel ", u" Drilling ").Observaciones.Descripcion, u"x");
  EXPECT_EQ(UserOperations().Operacion.size(), 1u);
}

TEST_F(CuttingUpdate, AClearedRemarkIsAbsent) {
  ASSERT_EQ(Update(12, 0, u"slowly"), CuttingError::kNone);
  EXPECT_EQ(Update(12, 0, u""), CuttingError::kNone);
  EXPECT_FALSE(UserBlock(u"Steel", u"Drilling").Observaciones.Descripcion);
  EXPECT_EQ(User(), Lists("", DrillingWith(SteelBlock("\t\t\t\t\t<Observaciones>\n\t\t\t\t\t\t<Descripcion />\n"
                                                      "\t\t\t\t\t</Observaciones>\n"))));
}

TEST_F(CuttingUpdate, AnOperationIsWrittenAndItsBlocksStay) {
  ASSERT_EQ(Update(11, 50), CuttingError::kNone);
  const std::string block =
      SteelBlock("\t\t\t\t\t<PasadaRadial>\n\t\t\t\t\t\t<Selected>50</Selected>\n\t\t\t\t\t</PasadaRadial>\n");
  EXPECT_EQ(SaveOperation(u"Drilling", Operation(u" Drilling", u"7", u"Mill", u"2024/05/06 07:08:09", true), u"7"),
            CuttingError::kNone);
  EXPECT_EQ(User(), Lists("", DrillingWith(block,
                                           "\t\t\t<Oculto>true</Oculto>\n"
                                           "\t\t\t<Date>2024/05/06 07:08:09</Date>\n"
                                           "\t\t\t<ToolType>Mill</ToolType>\n")));
  // A rename takes the blocks along.
  EXPECT_EQ(SaveOperation(u"Drilling", Operation(u"Boring", u"7"), u"7"), CuttingError::kNone);
  EXPECT_EQ(UserBlock(u"Steel", u"Boring").PasadaRadial.Selected, u"50");
}

TEST_F(CuttingUpdate, ANewOperationIsAddedWithoutBlocks) {
  EXPECT_EQ(SaveOperation(u"", Operation(u"Milling", u"", u"Mill", u"2024/05/06 07:08:09")), CuttingError::kNone);
  EXPECT_EQ(User(), Lists("",
                          "\t\t<Operacion>\n\t\t\t<descripcion>Milling</descripcion>\n"
                          "\t\t\t<Date>2024/05/06 07:08:09</Date>\n\t\t\t<ToolType>Mill</ToolType>\n"
                          "\t\t</Operacion>\n"));
}

TEST_F(CuttingUpdate, AnOperationIsRemovedWithItsBlocks) {
  ASSERT_EQ(Update(11, 50), CuttingError::kNone);
  ASSERT_EQ(SaveOperation(u"", Operation(u"Drilling", u"8")), CuttingError::kNone);
  EXPECT_EQ(parser.DeleteOperation(kUserPath, u"Drilling"), CuttingError::kNone);
  EXPECT_EQ(UserOperations().Operacion, std::vector<CT_Operacion>{Operation(u"Drilling", u"8")});
  EXPECT_EQ(parser.DeleteOperation(kUserPath, u"Drilling"), CuttingError::kNone);
  EXPECT_EQ(User(), Lists("", ""));
}

TEST_F(CuttingUpdate, AValueGoesToTheOperationWithTheBlock) {
  PutUser(CuttingFile("",
                      "<Operacion><id>1</id><descripcion>Drilling</descripcion></Operacion>"
                      "<Operacion><id>2</id><descripcion>Drilling</descripcion><Materiales><Parametros>"
                      "<Material>Steel</Material></Parametros></Materiales></Operacion>"));
  EXPECT_EQ(Update(11, 50), CuttingError::kNone);
  EXPECT_EQ(UserBlock(u"Steel", u"Drilling").PasadaRadial.Selected, u"50");
  EXPECT_EQ(UserOperations().Operacion.size(), 2u);
}

TEST_F(CuttingUpdate, ABlockThatIsMissingGoesToTheOperationOfTheId) {
  PutUser(CuttingFile("",
                      "<Operacion><id>1</id><descripcion>Drilling</descripcion></Operacion>"
                      "<Operacion><id>7</id><descripcion>Drilling</descripcion></Operacion>"));
  EXPECT_EQ(Update(11, 50), CuttingError::kNone);
  EXPECT_EQ(UserOperations().Operacion.size(), 2u);
  EXPECT_LT(User().find("<id>7</id>"), User().find("<Materiales>"));
}

TEST_F(CuttingUpdate, ListsThatAreMissingAreMade) {
  PutUser("<CondicionesCorte/>");
  EXPECT_EQ(SaveOperation(u"", Operation(u"Milling")), CuttingError::kNone);
  EXPECT_EQ(SaveMaterial(u"", Material(u"Brass", u"2024/05/06 07:08:10")), CuttingError::kNone);
  EXPECT_EQ(User(), Lists(kBrass, "\t\t<Operacion>\n\t\t\t<descripcion>Milling</descripcion>\n\t\t</Operacion>\n"));
}

TEST_F(CuttingUpdate, ADeclarationThatSaysNothingGetsItsEncoding) {
  PutUser("<?xml ?><CondicionesCorte/>");
  EXPECT_EQ(SaveOperation(u"", Operation(u"Milling")), CuttingError::kNone);
  EXPECT_TRUE(User().starts_with("<?xml encoding=\"UTF-8\"?>\n<CondicionesCorte>\n")) << User();
}

TEST_F(CuttingUpdate, WhatSomebodyElsePutIntoTheFileSurvives) {
  PutUser(
      "<?xml version=\"1.0\" standalone=\"yes\"?><!-- by hand --><?editor a > b?><!DOCTYPE CondicionesCorte [<!ENTITY "
      "x \"y\">]><CondicionesCorte version=\"2\" xmlns:v=\"urn:v\"><v:shop>A &amp; B</v:shop><MaterialesDefinition "
      "sorted=\"no\"><!-- our own --><MaterialDefinition note=\"a&#10;&quot;b\"><v:price>12</v:price><descripcion "
      "lang=\"en\">Steel<!-- mild --></descripcion><Norma><JIS>S45C</JIS><UNE>F</UNE></Norma><KC>1</KC>"
      "<blank> </blank><![CDATA[<raw>]]></MaterialDefinition></MaterialesDefinition><Operaciones/></CondicionesCorte>"
      "<!-- end -->");
  EXPECT_EQ(SaveMaterial(u"Steel", Material(u"Iron", u"2024", false, u"2")), CuttingError::kNone);
  EXPECT_EQ(User(),
            "<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"yes\"?>\n"
            "<!-- by hand -->\n"
            "<?editor a > b?>\n"
            "<!DOCTYPE CondicionesCorte [<!ENTITY x \"y\">]>\n"
            "<CondicionesCorte version=\"2\" xmlns:v=\"urn:v\">\n"
            "\t<v:shop>A &amp; B</v:shop>\n"
            "\t<MaterialesDefinition sorted=\"no\">\n"
            "\t\t<!-- our own -->\n"
            "\t\t<MaterialDefinition note=\"a&#10;&quot;b\">\n"
            "\t\t\t<v:price>12</v:price>\n"
            "\t\t\t<id>##</id>\n"
            "\t\t\t<descripcion lang=\"en\">\n"
            "\t\t\t\t<!-- mild -->Iron</descripcion>\n"
            "\t\t\t<Norma>\n"
            "\t\t\t\t<JIS>S45C</JIS>\n"
            "\t\t\t</Norma>\n"
            "\t\t\t<KC>2</KC>\n"
            "\t\t\t<blank> </blank><![CDATA[<raw>]]><Date>2024</Date>\n"
            "\t\t</MaterialDefinition>\n"
            "\t</MaterialesDefinition>\n"
            "\t<Operaciones />\n"
            "</CondicionesCorte>\n"
            "<!-- end -->\n");
  const std::string once = User();
  EXPECT_EQ(SaveMaterial(u"Iron", Material(u"Iron", u"2024", false, u"2")), CuttingError::kNone);
  EXPECT_EQ(User(), once);
}

TEST_F(CuttingUpdate, TheRecordsOfASecondProgramAreKept) {
  ASSERT_EQ(SaveMaterial(u"", Material(u"Steel")), CuttingError::kNone);
  ASSERT_EQ(UserMaterials().MaterialDefinition.size(), 1u);
  // The tool is open and has read the file; now another program adds a record to it.
  CondicionesCorteParser second(files);
  ASSERT_EQ(second.UpdateMaterialDefinition(kUserPath, u"", u"", Material(u"Iron")), CuttingError::kNone);
  EXPECT_EQ(SaveMaterial(u"Steel", Material(u"Brass")), CuttingError::kNone);
  EXPECT_EQ(UserMaterials().MaterialDefinition,
            (std::vector<CT_MaterialDefinition>{Material(u"Brass"), Material(u"Iron")}));
}

}  // namespace
}  // namespace pnl::test
