// SPDX-License-Identifier: MIT
// The user's file after each kind of save, byte for byte but for the dates.
#include "zmc/zmc_stage.h"

namespace pnl::test {
namespace {

namespace id = zmc_control;

class ZmcSaveTest : public testing::Test, public ZmcStage {
 protected:
  void OpenTable(ZmcTab tab) {
    SetUserFile(
        "<MaterialDefinition><id>a#b#c</id><descripcion>Own</descripcion><Norma><AlemaniaW>a</AlemaniaW><UNE>b"
        "</UNE><AISI>c</AISI></Norma><KC>1500</KC><Date>2020/01/01 00:00:00</Date></MaterialDefinition>",
        "<Operacion><id>7</id><descripcion>Mine</descripcion><Date>2020/01/01 00:00:00</Date><ToolType>T90"
        "</ToolType><Materiales><Parametros><Material>Own</Material><VelocidadCorte><Selected>5</Selected>"
        "</VelocidadCorte></Parametros></Materiales></Operacion>");
    Open();
    Menu(tab == ZmcTab::kMaterials ? 32819 : 32820);
  }
  void Save(ZmcTab tab) {
    Menu(tab == ZmcTab::kMaterials ? 32783 : 32788);
    EXPECT_THAT(TakeBoxes(), testing::IsEmpty());
  }
  /// The lists of the file without its frame and indents.
  std::string Saved() const {
    std::string file = UserFileWithoutDates();
    std::string flat;
    for (std::size_t at = 0; at < file.size();) {
      if (file[at] == '\n') {
        at = file.find_first_not_of(" \t\r\n", at);
        if (at == std::string::npos) break;
        continue;
      }
      flat += file[at++];
    }
    const std::size_t begin = flat.find("<MaterialesDefinition");
    return flat.substr(begin, flat.rfind("</CondicionesCorte>") - begin);
  }
};

constexpr const char* kOwnMaterial =
    "<MaterialDefinition><id>a#b#c</id><descripcion>Own</descripcion><Norma><AlemaniaW>a</AlemaniaW><UNE>b</UNE>"
    "<AISI>c</AISI></Norma><KC>1500</KC><Date>DATE</Date></MaterialDefinition>";
constexpr const char* kMine =
    "<Operacion><id>7</id><descripcion>Mine</descripcion><Date>DATE</Date><ToolType>T90</ToolType><Materiales>"
    "<Parametros><Material>Own</Material><VelocidadCorte><Selected>5</Selected></VelocidadCorte></Parametros>"
    "</Materiales></Operacion>";

std::string Lists(const std::string& materials, const std::string& operations) {
  const auto list = [](const std::string& name, const std::string& records) {
    return records.empty() ? "<" + name + " />" : "<" + name + ">" + records + "</" + name + ">";
  };
  return list("MaterialesDefinition", materials) + list("Operaciones", operations);
}

struct SaveRow {
  const char* name;
  ZmcTab tab;
  std::function<void(FakeZmcGrid&)> edit;
  std::string materials, operations;
};

TEST_F(ZmcSaveTest, EachKindOfSave) {
  constexpr ZmcTab kM = ZmcTab::kMaterials;
  constexpr ZmcTab kO = ZmcTab::kOperations;
  const std::vector<SaveRow> rows = {
      {"a renamed material", kM, [](FakeZmcGrid& grid) { grid.Type(1, 1, u"Renamed"); },
       "<MaterialDefinition><id>a#b#c</id><descripcion>Renamed</descripcion><Norma><AlemaniaW>a</AlemaniaW><UNE>b</UNE>"
       "<AISI>c</AISI></Norma><KC>1500</KC><Date>DATE</Date></MaterialDefinition>",
       kMine},
      {"a changed designation", kM, [](FakeZmcGrid& grid) { grid.Type(1, 3, u""); },
       "<MaterialDefinition><id>a##c</id><descripcion>Own</descripcion><Norma><AlemaniaW>a</AlemaniaW><AISI>c</AISI>"
       "</Norma><KC>1500</KC><Date>DATE</Date></MaterialDefinition>",
       kMine},
      {"no designation and no force", kM,
       [](FakeZmcGrid& grid) {
         for (int col = 2; col <= 5; ++col) grid.Type(1, col, u"");
       },
       "<MaterialDefinition><id>##</id><descripcion>Own</descripcion><Date>DATE</Date></MaterialDefinition>", kMine},
      {"a hidden own material", kM, [](FakeZmcGrid& grid) { grid.Check(1, 6, true); },
       "<MaterialDefinition><id>a#b#c</id><descripcion>Own</descripcion><Norma><AlemaniaW>a</AlemaniaW><UNE>b</UNE>"
       "<AISI>c</AISI></Norma><KC>1500</KC><Oculto>true</Oculto><Date>DATE</Date></MaterialDefinition>",
       kMine},
      {"a hidden factory material", kM, [](FakeZmcGrid& grid) { grid.Check(2, 6, true); },
       std::string(kOwnMaterial) +
           "<MaterialDefinition><id>1.0503#F-1142#1045</id><descripcion>Steel</descripcion><Norma><AlemaniaW>1.0503"
           "</AlemaniaW><UNE>F-1142</UNE><AISI>1045</AISI></Norma><KC>2000</KC><Oculto>true</Oculto><Date>DATE</Date>"
           "</MaterialDefinition>",
       kMine},
      {"a new material", kM,
       [this](FakeZmcGrid& grid) {
         Menu(32779);
         grid.TypeHere(u"  Bronze ");
         grid.CommitEdit();
         grid.Type(4, 4, u"C932");
         grid.Type(4, 5, u"700.50");
       },
       std::string(kOwnMaterial) +
           "<MaterialDefinition><id>##C932</id><descripcion>Bronze</descripcion><Norma><AISI>C932</AISI></Norma>"
           "<KC>700.50</KC><Date>DATE</Date></MaterialDefinition>",
       kMine},
      {"a deleted material", kM,
       [this](FakeZmcGrid&) {
         MoveTo(ZmcTab::kMaterials, 1, 1);
         Menu(32781);
         TakeBoxes();
       },
       "", kMine},
      {"a renamed operation", kO, [](FakeZmcGrid& grid) { grid.Type(1, 1, u"Renamed"); }, kOwnMaterial,
       "<Operacion><id>7</id><descripcion>Renamed</descripcion><Date>DATE</Date><ToolType>T90</ToolType><Materiales>"
       "<Parametros><Material>Own</Material><VelocidadCorte><Selected>5</Selected></VelocidadCorte></Parametros>"
       "</Materiales></Operacion>"},
      {"another tool type", kO, [](FakeZmcGrid& grid) { grid.Type(1, 2, u"T89"); }, kOwnMaterial,
       "<Operacion><id>7</id><descripcion>Mine</descripcion><Date>DATE</Date><ToolType>T89</ToolType><Materiales>"
       "<Parametros><Material>Own</Material><VelocidadCorte><Selected>5</Selected></VelocidadCorte></Parametros>"
       "</Materiales></Operacion>"},
      {"a hidden factory operation", kO, [](FakeZmcGrid& grid) { grid.Check(2, 3, true); }, kOwnMaterial,
       std::string(kMine) + "<Operacion><id>1</id><descripcion>Milling</descripcion><Oculto>true</Oculto><Date>DATE"
                            "</Date><ToolType>T89</ToolType></Operacion>"},
      {"a new operation", kO,
       [this](FakeZmcGrid& grid) {
         Menu(32785);
         grid.TypeHere(u" Boring");
         grid.CommitEdit();
         grid.Type(4, 2, u"T95");
       },
       kOwnMaterial,
       std::string(kMine) +
           "<Operacion><descripcion>Boring</descripcion><Date>DATE</Date><ToolType>T95</ToolType></Operacion>"},
      {"a deleted operation", kO,
       [this](FakeZmcGrid&) {
         MoveTo(ZmcTab::kOperations, 1, 1);
         Menu(32787);
         TakeBoxes();
       },
       kOwnMaterial, ""},
  };
  const std::string factory = Factory();
  for (const SaveRow& row : rows) {
    SCOPED_TRACE(row.name);
    OpenTable(row.tab);
    row.edit(view->GridOf(row.tab));
    Save(row.tab);
    EXPECT_EQ(Saved(), Lists(row.materials, row.operations));
    EXPECT_EQ(Factory(), factory);
    DestroyTool();
  }
}

TEST_F(ZmcSaveTest, ASavedRecordHasTheTimeOfTheSave) {
  OpenTable(ZmcTab::kMaterials);
  const Text before = CuttingDate(std::time(nullptr));
  view->materials.Type(1, 1, u"Renamed");
  Save(ZmcTab::kMaterials);
  const Text after = CuttingDate(std::time(nullptr));
  const std::string file = UserFile();
  const std::size_t at = file.find("<Date>") + 6;
  const std::string date = file.substr(at, 19);
  EXPECT_GE(date, ToUtf8(before));
  EXPECT_LE(date, ToUtf8(after));
}

TEST_F(ZmcSaveTest, TheForceOfASavedFactoryRowGoesBeforeTheFactorys) {
  OpenTable(ZmcTab::kMaterials);
  view->materials.Check(2, 6, true);
  Save(ZmcTab::kMaterials);
  for (int row = 1; row < view->materials.Rows(); ++row) {
    if (view->materials.CellText(row, 1) == u"Steel") view->materials.Check(row, 6, false);
  }
  Save(ZmcTab::kMaterials);
  Factory().replace(Factory().find("<KC>2000"), 8, "<KC>9999");
  Open();
  ComputeSteel();
  EXPECT_EQ(TextOf(id::kPower), "29.952941");
}

}  // namespace
}  // namespace pnl::test
