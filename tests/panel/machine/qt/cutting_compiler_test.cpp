// SPDX-License-Identifier: MIT
// The compiler of the cutting data on small tables: what it writes, and the mistakes at which it stops.
#include <gtest/gtest.h>

#include <QProcess>
#include <map>
#include <string>

#include "support/temp_folder.h"

namespace panel {
namespace {

using Tables = std::map<std::string, std::string>;

const Tables kGoodTables{
    {"tool_types.csv", "# types\n1;Cutter;Fresa\n10;Probe;Palpador\n"},
    {"qualities.csv", "q;Carbide;Metal duro\n"},
    {"operations.csv", "mill;1;Milling;Fresado\n\nprobe;10;Probing;Palpado\n"},
    {"materials.csv", "a;1.1;U1;A1;1500.5;Steel;Acero\nb;-;POM;-;240;Plastic;Plástico\n"},
    {"pairs.csv", "mill;a;0.3;120;0.0003;0.15;-;-;5;100;q;T1\nmill;b;100;200;0.1;0.1;1;2;-;-;-;U1 T2\n"},
};

class CuttingCompiler : public ::testing::Test {
 protected:
  /// Compiles the tables. Returns the exit code.
  int Run(const Tables& tables, const QString& language = QStringLiteral("en")) {
    for (const auto& [name, text] : tables) folder_.Write(name, text);
    QProcess compiler;
    compiler.start(QStringLiteral(PNL_CUTTING_COMPILER),
                   {QString::fromStdString(folder_.Path().string()), language,
                    QString::fromStdString((folder_.Path() / "out/data.xml").string())});
    compiler.waitForFinished(-1);
    says_ = compiler.readAllStandardError().toStdString();
    return compiler.exitStatus() == QProcess::NormalExit ? compiler.exitCode() : -1;
  }
  pnl::test::TempFolder folder_;
  std::string says_;
};

TEST_F(CuttingCompiler, WritesTheFileOfALanguage) {
  ASSERT_EQ(Run(kGoodTables, QStringLiteral("es")), 0) << says_;
  EXPECT_EQ(folder_.Read("out/data.xml"), R"(<?xml version="1.0"?>
<CondicionesCorte>
 <MaterialesDefinition>
  <MaterialDefinition>
   <id>1.1#U1#A1</id>
   <descripcion>Acero</descripcion>
   <Norma>
    <AlemaniaW>1.1</AlemaniaW>
    <UNE>U1</UNE>
    <AISI>A1</AISI>
   </Norma>
   <KC>1500.5</KC>
  </MaterialDefinition>
  <MaterialDefinition>
   <id>#POM#</id>
   <descripcion>Plástico</descripcion>
   <Norma>
    <UNE>POM</UNE>
   </Norma>
   <KC>240</KC>
  </MaterialDefinition>
 </MaterialesDefinition>
 <Operaciones>
  <Operacion>
   <id>1</id>
   <descripcion>Fresado</descripcion>
   <ToolType>Fresa</ToolType>
   <Materiales>
    <Parametros>
     <Material>Acero</Material>
     <VelocidadCorte>
      <Min>3000000</Min>
      <Max>1200000000</Max>
     </VelocidadCorte>
     <AvancePorDiente>
      <Min>3</Min>
      <Max>1500</Max>
     </AvancePorDiente>
     <PasadaRadial>
      <Min>5</Min>
      <Max>100</Max>
     </PasadaRadial>
     <CaracteristicasHta>
      <Calidad>Metal duro</Calidad>
     </CaracteristicasHta>
    </Parametros>
   </Materiales>
   <Materiales>
    <Parametros>
     <Material>Plástico</Material>
     <VelocidadCorte>
      <Min>1000000000</Min>
      <Max>2000000000</Max>
     </VelocidadCorte>
     <AvancePorDiente>
      <Min>1000</Min>
      <Max>1000</Max>
     </AvancePorDiente>
     <Profundidad>
      <Min>10000</Min>
      <Max>20000</Max>
     </Profundidad>
    </Parametros>
   </Materiales>
  </Operacion>
  <Operacion>
   <id>2</id>
   <descripcion>Palpado</descripcion>
   <ToolType>Palpador</ToolType>
  </Operacion>
 </Operaciones>
</CondicionesCorte>
)");
}

TEST_F(CuttingCompiler, StopsAtTheFirstMistakeAndNamesItsPlace) {
  struct Row {
    const char* table;
    const char* text;
    const char* says;
  };
  const Row rows[] = {
      {"tool_types.csv", "1;Cutter;Fresa\n1;Probe;Palpador\n", "tool_types.csv:2: 1 is there twice"},
      {"tool_types.csv", "1;Cutter;Fresa\n", "operations.csv:3: 10 is unknown"},
      {"tool_types.csv", "1;Cutter\n", "tool_types.csv:1: has not 3 fields"},
      {"tool_types.csv", "1;Cutter;Fresa;x\n", "tool_types.csv:1: has not 3 fields"},
      {"tool_types.csv", "1;Cutter;\n", "tool_types.csv:1: an empty field"},
      {"tool_types.csv", "1;;Fresa\n", "tool_types.csv:1: an empty field"},
      {"tool_types.csv", "1;Cutter;\xE1\n", "tool_types.csv:1: not UTF-8"},
      {"materials.csv", "a;1;2;3;-;S;A\nb;1;2;3;4;P;Q\n", "materials.csv:1: no cutting force"},
      {"materials.csv", "a;1;2;3;1,5;S;A\nb;1;2;3;4;P;Q\n", "materials.csv:1: 1,5 is no limit"},
      {"pairs.csv", "mill;x;1;2;-;-;-;-;-;-;-;T\n", "pairs.csv:1: x is unknown"},
      {"pairs.csv", "turn;a;1;2;-;-;-;-;-;-;-;T\n", "pairs.csv:1: turn is unknown"},
      {"pairs.csv", "mill;a;1;2;-;-;-;-;-;-;x;T\n", "pairs.csv:1: x is unknown"},
      {"pairs.csv", "mill;a;2;1;-;-;-;-;-;-;q;T\n", "pairs.csv:1: limits in the wrong order"},
      {"pairs.csv", "mill;a;1;-;-;-;-;-;-;-;q;T\n", "pairs.csv:1: one limit without the other"},
      {"pairs.csv", "mill;a;0;1;-;-;-;-;-;-;q;T\n", "pairs.csv:1: 0 is no limit"},
      {"pairs.csv", "mill;a;1;100001;-;-;-;-;-;-;q;T\n", "pairs.csv:1: 100001 is no limit"},
      {"pairs.csv", "mill;a;1;nan;-;-;-;-;-;-;q;T\n", "pairs.csv:1: nan is no limit"},
      {"pairs.csv", "mill;a;1;2;-;-;-;-;-;-;q;T\nmill;a;1;2;-;-;-;-;-;-;q;T\n", "pairs.csv:2: mill;a is there twice"},
  };
  for (const Row& row : rows) {
    Tables tables = kGoodTables;
    tables[row.table] = row.text;
    EXPECT_EQ(Run(tables), 1) << row.text;
    EXPECT_NE(says_.find(row.says), std::string::npos) << row.text << says_;
    EXPECT_FALSE(folder_.Has("out/data.xml")) << row.text;
  }
}

TEST_F(CuttingCompiler, KnowsItsLanguagesOnly) {
  EXPECT_EQ(Run(kGoodTables, QStringLiteral("de")), 1);
  EXPECT_NE(says_.find("de: no such language"), std::string::npos);
}

}  // namespace
}  // namespace panel
