// SPDX-License-Identifier: MIT
// What is read of a file, and the questions about lists and pairs.
#include "zmc/store/cutting_parser.h"

#include "cutting_rig.h"
#include "support/failing_files.h"

namespace pnl::test {
namespace {

class CuttingParser : public CuttingRig {};

const char kPair[] =
    "<Operacion><id>7</id><descripcion>Drilling</descripcion><Oculto>true</Oculto><Date>2024/05/06 07:08:09</Date>"
    "<ToolType>Drill</ToolType>"
    "<Materiales><Parametros><Material>Brass</Material></Parametros></Materiales>"
    "<Materiales><Parametros><Material>Steel</Material>"
    "<VelocidadCorte><Selected>1</Selected><Min>2</Min><Max>3</Max></VelocidadCorte>"
    "<AvancePorDiente><Selected>4</Selected><Min>5</Min><Max>6</Max></AvancePorDiente>"
    "<Profundidad><Selected>7</Selected><Min>8</Min><Max>9</Max></Profundidad>"
    "<PasadaRadial><Selected>10</Selected><Min>11</Min><Max>12</Max></PasadaRadial>"
    "<Observaciones><Descripcion>slowly</Descripcion></Observaciones>"
    "<CaracteristicasHta><Calidad>K10</Calidad></CaracteristicasHta>"
    "</Parametros></Materiales></Operacion>";

TEST_F(CuttingParser, TheEngineIsAlwaysThere) { EXPECT_NE(CondicionesCorteParser::IsXml6DllRegistered(), 0); }

TEST_F(CuttingParser, AFileIsAccessibleWhenItExists) {
  EXPECT_FALSE(parser.CanAccess(kUserPath));
  PutUser("not even XML");
  EXPECT_TRUE(parser.CanAccess(kUserPath));
}

TEST_F(CuttingParser, AMaterialIsReadWithEveryField) {
  PutUser(CuttingFile(
      "<MaterialDefinition><id>a#b#c</id><descripcion>Steel</descripcion><Norma><AlemaniaW>a</AlemaniaW><UNE>b</UNE>"
      "<AISI>c</AISI></Norma><KC>1800.5</KC><Oculto>true</Oculto><Date>2024/05/06 07:08:09</Date>"
      "</MaterialDefinition><MaterialDefinition><descripcion>Brass</descripcion></MaterialDefinition>"));
  const CT_MaterialDefinition steel{u"a#b#c", u"Steel", {u"a", u"b", u"c"}, u"1800.5", true, u"2024/05/06 07:08:09"};
  CT_MaterialDefinition brass;
  brass.descripcion = u"Brass";
  EXPECT_EQ(UserMaterials().MaterialDefinition, (std::vector<CT_MaterialDefinition>{steel, brass}));
}

TEST_F(CuttingParser, AnOperationIsReadWithEveryField) {
  PutUser(CuttingFile("", kPair));
  EXPECT_EQ(UserOperations().Operacion,
            std::vector<CT_Operacion>{Operation(u"Drilling", u"7", u"Drill", u"2024/05/06 07:08:09", true)});
}

TEST_F(CuttingParser, ABlockIsReadWithEveryField) {
  PutUser(CuttingFile("", kPair));
  const CT_Parametros expected{{u"1", u"2", u"3"},    {u"4", u"5", u"6"}, {u"7", u"8", u"9"},
                               {u"10", u"11", u"12"}, {u"slowly"},        {u"K10"}};
  EXPECT_EQ(UserBlock(u"Steel", u"Drilling"), expected);
  EXPECT_EQ(UserBlock(u"Brass", u"Drilling"), CT_Parametros());
}

TEST_F(CuttingParser, APairThatTheFileDoesNotHaveHasNoBlock) {
  PutUser(CuttingFile("", kPair));
  const struct {
    TextView material;
    TextView operation;
  } kRows[] = {{u"Iron", u"Drilling"},   {u"Steel", u"Milling"}, {u"steel", u"Drilling"}, {u"Steel", u"drilling"},
               {u"Steel ", u"Drilling"}, {u"", u"Drilling"},     {u"Steel", u""},         {u"", u""}};
  for (const auto& row : kRows) {
    const auto block = parser.GetCondicionesCorte(kUserPath, row.material, row.operation);
    EXPECT_TRUE(block.Ok());
    EXPECT_FALSE(block.Value().has_value()) << ToUtf8(row.material) << ", " << ToUtf8(row.operation);
  }
}

TEST_F(CuttingParser, ABlockIsFoundUnderAnyOperationOfTheDescription) {
  PutUser(CuttingFile("", "<Operacion><id>1</id><descripcion>Drilling</descripcion></Operacion>" + std::string(kPair)));
  EXPECT_EQ(UserBlock(u"Steel", u"Drilling").CaracteristicasHta.Calidad, u"K10");
}

TEST_F(CuttingParser, AnEmptyElementIsAbsentButStillHides) {
  PutUser(
      CuttingFile("<MaterialDefinition><id/><descripcion>Steel</descripcion><KC></KC><Oculto/><Date></Date>"
                  "</MaterialDefinition>"));
  CT_MaterialDefinition steel;
  steel.descripcion = u"Steel";
  steel.Oculto = true;
  EXPECT_EQ(UserMaterials().MaterialDefinition, std::vector<CT_MaterialDefinition>{steel});
}

TEST_F(CuttingParser, ALeafIsTheTextOfItsElement) {
  const struct {
    const char* inside;
    CuttingLeaf leaf;
  } kRows[] = {
      {"", std::nullopt},
      {" ", u" "},
      {" a  b ", u" a  b "},
      {"a&lt;&gt;&amp;&quot;&apos;&#65;&#x42;", u"a<>&\"'AB"},
      {"<![CDATA[<a> & ]]>", u"<a> & "},
      {"<![CDATA[a]]>b", u"ab"},
      {"a<!-- not this -->b", u"ab"},
      {"a<b>not this</b>c", u"ac"},
      {"<b>not this</b>", std::nullopt},
      {"<!-- not this -->", std::nullopt},
      {"a\r\nb", u"a\nb"},
      {"a&#13;&#10;b", u"a\r\nb"},
      {"&unknown; & &", u"&unknown; & &"},
      {"1e999", u"1e999"},
      {"nan", u"nan"},
      {"0x10", u"0x10"},
      {"\xC3\x91 \xF0\x9F\x98\x80", u"\u00d1 \U0001F600"},
  };
  for (const auto& row : kRows) {
    PutUser(CuttingFile("<MaterialDefinition><KC>" + std::string(row.inside) + "</KC></MaterialDefinition>"));
    const auto list = UserMaterials();
    ASSERT_EQ(list.MaterialDefinition.size(), 1u);
    EXPECT_EQ(list.MaterialDefinition[0].KC, row.leaf) << row.inside;
  }
}

TEST_F(CuttingParser, OfElementsOfOneNameTheFirstCounts) {
  PutUser(CuttingFile("<MaterialDefinition><KC>2</KC><id>1</id><KC>3</KC><id>2</id><Date/><Date>2024</Date>"
                      "</MaterialDefinition>") +
          "<!-- end -->");
  CT_MaterialDefinition first;
  first.id = u"1";
  first.KC = u"2";
  EXPECT_EQ(UserMaterials().MaterialDefinition, std::vector<CT_MaterialDefinition>{first});
}

TEST_F(CuttingParser, MissingPartsAreEmptyLists) {
  for (const char* text : {"<CondicionesCorte/>", "<CondicionesCorte><MaterialesDefinition/></CondicionesCorte>",
                           "<CondicionesCorte><Operaciones/></CondicionesCorte>",
                           "<CondicionesCorte><Operaciones><Operacion><Materiales/></Operacion><Operacion><Materiales>"
                           "<Parametros/></Materiales></Operacion></Operaciones></CondicionesCorte>"}) {
    PutUser(text);
    EXPECT_TRUE(UserMaterials().MaterialDefinition.empty());
    for (const auto& each : UserOperations().Operacion) EXPECT_EQ(each, CT_Operacion());
    EXPECT_FALSE(parser.GetCondicionesCorte(kUserPath, u"Steel", u"Drilling").Value().has_value());
  }
}

TEST_F(CuttingParser, RecordsAreFoundByTheirExactDescription) {
  CT_MaterialesDefinition list;
  list.MaterialDefinition = {Material(u"Steel", u"1"), Material(u"STEEL", u"2"), Material(u"Steel", u"3")};
  EXPECT_TRUE(CondicionesCorteParser::ExistMaterial(list, u"Steel"));
  EXPECT_FALSE(CondicionesCorteParser::ExistMaterial(list, u"steel"));
  EXPECT_FALSE(CondicionesCorteParser::ExistMaterial(list, u"Steel "));
  EXPECT_EQ(CondicionesCorteParser::GetMaterialByDescription(list, u"Steel").Date, u"1");
  EXPECT_EQ(CondicionesCorteParser::GetMaterialByDescription(list, u"STEEL").Date, u"2");
  EXPECT_FALSE(CondicionesCorteParser::GetMaterialByDescription(list, u"steel").id);
}

TEST_F(CuttingParser, AnOperationIsFoundByDescriptionAndIdOrByDescriptionAlone) {
  CT_Operaciones list;
  list.Operacion = {Operation(u"Drilling", u"1"), Operation(u"Drilling", u"2"), Operation(u"Milling")};
  EXPECT_TRUE(CondicionesCorteParser::ExistOperation(list, u"Drilling", u"2"));
  EXPECT_FALSE(CondicionesCorteParser::ExistOperation(list, u"Drilling", u"3"));
  EXPECT_FALSE(CondicionesCorteParser::ExistOperation(list, u"Drilling", u""));
  EXPECT_TRUE(CondicionesCorteParser::ExistOperation(list, u"Milling", u""));
  EXPECT_TRUE(CondicionesCorteParser::ExistOperationByDescription(list, u"Drilling"));
  EXPECT_FALSE(CondicionesCorteParser::ExistOperationByDescription(list, u"drilling"));
  EXPECT_EQ(CondicionesCorteParser::GetOperationByDescription(list, u"Drilling").id, u"1");
  EXPECT_FALSE(CondicionesCorteParser::GetOperationByDescription(list, u"Turning").id);
}

TEST_F(CuttingParser, AnIdIsMadeOfTheThreeDesignations) {
  EXPECT_EQ(MaterialId({}), u"##");
  EXPECT_EQ(MaterialId({u"1.0503", u"F-1142", u"1045"}), u"1.0503#F-1142#1045");
  EXPECT_EQ(MaterialId({std::nullopt, u"F", std::nullopt}), u"#F#");
}

TEST_F(CuttingParser, AChangeBySomebodyElseIsSeenAtOnce) {
  PutUser(CuttingFile("<MaterialDefinition><KC>1</KC></MaterialDefinition>"));
  EXPECT_EQ(UserMaterials().MaterialDefinition[0].KC, u"1");
  // As many bytes, and no date that anybody could look at.
  PutUser(CuttingFile("<MaterialDefinition><KC>2</KC></MaterialDefinition>"));
  EXPECT_EQ(UserMaterials().MaterialDefinition[0].KC, u"2");
  PutUser(CuttingFile("<MaterialDefinition><KC>2</KC></MaterialDefinition>") + " ");
  EXPECT_EQ(UserMaterials().MaterialDefinition[0].KC, u"2");
  PutUser(CuttingFile(""));
  EXPECT_TRUE(UserMaterials().MaterialDefinition.empty());
}

TEST_F(CuttingParser, ManyFilesCanBeAskedInTurn) {
  for (int round = 0; round < 3; ++round) {
    for (const char* name : {"A", "B", "C", "D"}) {
      files.disc[std::string("C:\\P1\\") + name] =
          CuttingFile("<MaterialDefinition><KC>" + std::string(name) + "</KC></MaterialDefinition>");
      const auto list = parser.GetListaMateriales(FromUtf8(std::string("C:\\P1\\") + name));
      ASSERT_TRUE(list.Ok());
      EXPECT_EQ(list.Value().MaterialDefinition[0].KC, FromUtf8(name));
    }
  }
}

TEST_F(CuttingParser, AFileThatCannotBeReadIsReportedByReason) {
  PutUser(CuttingFile(""));
  FailingFiles failing(files);
  CondicionesCorteParser other(failing);
  const struct {
    FileStatus status;
    CuttingError error;
  } kRows[] = {{FileStatus::kNotFound, CuttingError::kNotFound},
               {FileStatus::kOutOfReach, CuttingError::kOutOfReach},
               {FileStatus::kDenied, CuttingError::kOutOfReach},
               {FileStatus::kIsFolder, CuttingError::kOutOfReach},
               {FileStatus::kFailed, CuttingError::kFailed}};
  for (const auto& row : kRows) {
    failing.Fail(FailingFiles::Call::kOpenRead, kUserPath, row.status, 1, 4);
    EXPECT_EQ(other.GetListaMateriales(kUserPath).Error(), row.error);
    EXPECT_EQ(other.GetListaOperaciones(kUserPath).Error(), row.error);
    EXPECT_EQ(other.GetCondicionesCorte(kUserPath, u"a", u"b").Error(), row.error);
    EXPECT_EQ(other.DeleteOperation(kUserPath, u"a"), row.error);
  }
  EXPECT_TRUE(other.GetListaMateriales(kUserPath).Ok());
}

TEST_F(CuttingParser, APairWithoutANameIsNoPair) {
  const std::string block =
      "<Parametros><Material>Steel</Material><PasadaRadial><Max>1</Max></PasadaRadial></Parametros>";
  PutUser(CuttingFile("", "<Operacion><Materiales>" + block +
                              "</Materiales></Operacion><Operacion><descripcion>Milling"
                              "</descripcion><Materiales><Parametros/></Materiales></Operacion>"));
  for (const auto& [material, operation] : {std::pair(u"Steel", u""), {u"", u"Milling"}, {u"", u""}}) {
    const auto found = parser.GetCondicionesCorte(kUserPath, material, operation);
    EXPECT_TRUE(found.Ok());
    EXPECT_FALSE(found.Value().has_value()) << ToUtf8(material) << " " << ToUtf8(operation);
  }
}

TEST_F(CuttingParser, AFileThatBreaksOffIsNoDocument) {
  PutUser(CuttingFile("<MaterialDefinition><KC>1</KC></MaterialDefinition>"));
  FailingFiles failing(files);
  CondicionesCorteParser other(failing);
  failing.FailReadsAfter(kUserPath, 40);
  EXPECT_EQ(other.GetListaMateriales(kUserPath).Error(), CuttingError::kOutOfReach);
  failing.Heal();
  EXPECT_TRUE(other.GetListaMateriales(kUserPath).Ok());
  // Also when the document is known already: nobody knows what the file contains now.
  failing.FailReadsAfter(kUserPath, 40);
  EXPECT_EQ(other.GetListaMateriales(kUserPath).Error(), CuttingError::kOutOfReach);
}

TEST_F(CuttingParser, ADiscThatGivesSmallPiecesIsReadWhole) {
  PutUser(CuttingFile("", kPair));
  for (const std::size_t piece : {1u, 2u, 7u, 100u}) {
    files.piece = piece;
    EXPECT_EQ(UserBlock(u"Steel", u"Drilling").PasadaRadial.Max, u"12");
    PutUser(User() + " ");
  }
}

}  // namespace
}  // namespace pnl::test
