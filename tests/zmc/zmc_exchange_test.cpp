// SPDX-License-Identifier: MIT
// Export, import and the view of what the user's data change, through the whole tool.
#include "base/format.h"
#include "host/records.h"
#include "zmc/zmc_stage.h"

namespace pnl::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

constexpr const char* kTable = "C:\\P118\\materials.csv";

class ZmcExchangeTest : public ZmcSessionTest {
 protected:
  ZmcExchangeTest() {
    cnc.Define(u"E.XPLRDATA", rig::VariableType::kInt, std::int64_t{0}, true, true);
    language.UseNumbersForTexts(false);
    for (int text = 0; text < 8000; ++text) language.SetText(text, Format(u"T%d", text));
    language.SetText(7103, u"to %s: %d and %d");
    language.SetText(7105, u"faults in %s");
    language.SetText(7106, u"nothing new in %s");
    language.SetText(7108, u"imported %d");
    language.SetText(7109, u"no %s");
    language.SetText(7110, u"%d: no header");
    language.SetText(7115, u"%d: no force %s");
    language.SetText(7120, u"new %s");
    language.SetText(7122, u"material %s:");
    language.SetText(7124, u"%s %s now %s");
    language.SetText(7125, u"%s %s");
    language.SetText(7126, u"hidden");
    language.SetText(7132, u"%s at %s:");
    language.SetText(60001, u"not saved %s");
  }
  /// What the tool asked of the explorer.
  XPLRDATA_ST* Request() {
    std::int32_t number = 0;
    ZCVariable(cnc.Vars(), u"E.XPLRDATA").ReadInt(number);
    return static_cast<XPLRDATA_ST*>(ResolveRecord(number));
  }
  /// The operator accepts a file in the explorer.
  void Accept(TextView folder, TextView name) {
    SetField(Request()->Path, folder);
    SetField(Request()->File, name);
    Send(PNL_MSG_RESULT_READY, PNL_READY_FILE);
  }
  void Import(const std::string& bytes) {
    files.disc[kTable] = bytes;
    Menu(PNL_ZMC_IMPORT);
    Accept(u"C:\\P118", u"materials.csv");
  }
};

TEST_F(ZmcExchangeTest, AsksForAFileOfItsOwnKind) {
  Open();
  Forget();
  Menu(PNL_ZMC_EXPORT);
  const Log asked = Asked();
  EXPECT_EQ(asked.back(), "HostExplorerRequest");
  EXPECT_EQ(Request()->Owner, 1004);
  EXPECT_EQ(FieldText(Request()->Filter), u"*.csv");
  EXPECT_EQ(FieldText(Request()->Path), u"C:\\P118");
  EXPECT_EQ(Request()->Flags, XPLR_CONFIRMOVERWRITE | XPLR_NOREADONLY);
  Menu(PNL_ZMC_IMPORT);
  EXPECT_EQ(Request()->Flags, static_cast<std::uint32_t>(XPLR_MUSTEXIST));
}

TEST_F(ZmcExchangeTest, ExportsTheUsersRecordsAlone) {
  Open();
  Import("kind;description;kc;tooltype\nmaterial;Bronze;900;\noperation;Boring;;Drill\n");
  files.disc.erase(kTable);
  Menu(PNL_ZMC_EXPORT);
  Accept(u"C:\\P118", u"materials.csv");
  EXPECT_THAT(files.disc[kTable], HasSubstr("\xEF\xBB\xBFkind;"));
  EXPECT_THAT(files.disc[kTable], HasSubstr("material;Bronze;;;;900;;;20"));
  EXPECT_THAT(files.disc[kTable], HasSubstr("operation;Boring;;;;;Drill;;20"));
  EXPECT_THAT(files.disc[kTable], Not(HasSubstr("Steel")));
  EXPECT_EQ(messages.back(), "1 [to C:\\P118\\materials.csv: 1 and 1] back 2C8064");
}

TEST_F(ZmcExchangeTest, AnExportThatFailsIsNamed) {
  Open();
  Menu(PNL_ZMC_EXPORT);
  files.full = true;
  Accept(u"C:\\P118", u"materials.csv");
  EXPECT_THAT(messages.back(), HasSubstr("not saved materials.csv"));
}

TEST_F(ZmcExchangeTest, LeavingTheExplorerChangesNothing) {
  Open();
  Menu(PNL_ZMC_IMPORT);
  files.disc[kTable] = "kind;description\nmaterial;Bronze\n";
  Send(PNL_MSG_RESULT_READY, PNL_READY_EXPLORER_LEFT);
  // A late answer belongs to no request.
  Send(PNL_MSG_RESULT_READY, PNL_READY_FILE);
  EXPECT_THAT(windows.boxes, IsEmpty());
  EXPECT_EQ(UserFile().size(), 218u);
}

TEST_F(ZmcExchangeTest, AnImportShowsWhatItChangesAndStoresAllOfIt) {
  Open();
  Import("kind;description;kc\nmaterial;Bronze;900\nmaterial;Gold;\n");
  ASSERT_EQ(windows.boxes.size(), 1u);
  EXPECT_EQ(windows.boxes[0].style, BoxStyle::kQuestion);
  EXPECT_EQ(ToUtf8(windows.boxes[0].text), "T7107\nnew Bronze, T73 900\nnew Gold");
  EXPECT_THAT(Items(zmc_control::kMaterial), ElementsAre("Bronze", "Gold", "Steel", "Brass"));
  EXPECT_EQ(messages.back(), "1 [imported 2] back 2C8064");
}

TEST_F(ZmcExchangeTest, BothTablesListWhatWasImported) {
  Open();
  Menu(zmc_command::kMaterialsTab);
  Menu(zmc_command::kOperationsTab);
  Import("kind;description\nmaterial;Bronze\noperation;Reaming\n");
  EXPECT_THAT(view->operations.Column(1), testing::Contains("Reaming"));
  Menu(zmc_command::kMaterialsTab);
  EXPECT_THAT(view->materials.Column(1), testing::Contains("Bronze"));
}

TEST_F(ZmcExchangeTest, AnImportThatIsRefusedStoresNothing) {
  Open();
  windows.boxAnswer = BoxAnswer::kNo;
  Import("kind;description\nmaterial;Bronze\n");
  EXPECT_EQ(UserFile().size(), 218u);
}

TEST_F(ZmcExchangeTest, ATableWithFaultsIsNotImportedAndAllOfThemAreNamed) {
  Open();
  Import("kind;description;kc\nmaterial;Bronze;much\nmaterial;Gold;1\nmaterial;Lead;9e9\n");
  ASSERT_EQ(windows.boxes.size(), 1u);
  EXPECT_EQ(windows.boxes[0].style, BoxStyle::kInfo);
  EXPECT_EQ(ToUtf8(windows.boxes[0].text), "faults in materials.csv\n2: no force much\n4: no force 9e9");
  EXPECT_EQ(UserFile().size(), 218u);
}

TEST_F(ZmcExchangeTest, AnImportThatCannotBeStoredStoresNothing) {
  Open();
  files.disc[kTable] = "kind;description\nmaterial;Bronze\nmaterial;Gold\n";
  Menu(PNL_ZMC_IMPORT);
  files.full = true;
  Accept(u"C:\\P118", u"materials.csv");
  EXPECT_THAT(messages.back(), HasSubstr("not saved CondicionesCorteP.xml"));
  EXPECT_EQ(UserFile().size(), 218u);
  EXPECT_THAT(Items(zmc_control::kMaterial), ElementsAre("Steel", "Brass"));
}

TEST_F(ZmcExchangeTest, ASecondImportOfTheSameTableIsNothingNew) {
  Open();
  Import("kind;description;kc\nmaterial;Bronze;900\n");
  Import("kind;description;kc\nmaterial;Bronze;900\n");
  EXPECT_EQ(ToUtf8(windows.boxes.back().text), "nothing new in materials.csv");
}

TEST_F(ZmcExchangeTest, AnImportedOperationOfTheFactoryKeepsItsId) {
  Open();
  Import("kind;description;tooltype\noperation;Milling;T90\n");
  EXPECT_THAT(UserFile(), HasSubstr("<id>1</id>"));
}

TEST_F(ZmcExchangeTest, ChangedRowsOfATableAreAskedAboutFirst) {
  Open();
  Menu(zmc_command::kMaterialsTab);
  Menu(zmc_command::kAddMaterial);
  Forget();
  windows.boxAnswer = BoxAnswer::kYes;  // to save, which a row without a description refuses
  Menu(PNL_ZMC_EXPORT);
  EXPECT_EQ(Request(), nullptr);
  EXPECT_EQ(windows.boxes.back().text, u"T270");
}

TEST_F(ZmcExchangeTest, ShowsWhatTheUsersDataChange) {
  Open();
  Menu(PNL_ZMC_CHANGES);
  EXPECT_EQ(windows.boxes.back().text, u"T7131");
  Import("kind;description;alemaniaw;une;aisi;kc;hidden\nmaterial;Steel;1.0503;F-1142;1045;2100;1\n");
  Pick(zmc_control::kOperation, u"Milling");
  EXPECT_TRUE(Cell(1, 3, u"120"));
  Menu(PNL_ZMC_CHANGES);
  EXPECT_EQ(ToUtf8(windows.boxes.back().text),
            "T7130\nmaterial Steel: T73 2000 now 2100, hidden\nBrass at Milling: T65 120");
}

TEST_F(ZmcExchangeTest, ChangedRecordsAreShownAlsoWithoutAnyPair) {
  Open();
  Import("kind;description;kc\nmaterial;Bronze;900\n");
  Menu(PNL_ZMC_CHANGES);
  EXPECT_EQ(ToUtf8(windows.boxes.back().text), "T7130\nnew Bronze, T73 900");
}

TEST_F(ZmcExchangeTest, OfAFileThatIsDamagedNoChangesAreShown) {
  Open();
  Import("kind;description;kc\nmaterial;Bronze;900\n");
  TakeBoxes();
  files.disc[kUserPath] = "damaged";
  Menu(PNL_ZMC_CHANGES);
  EXPECT_THAT(TakeBoxes(), ElementsAre(ToUtf8(Format(u"T%d", zmc_text::kDamaged))));
  files.unreadable.insert(kUserPath);
  Menu(PNL_ZMC_CHANGES);
  EXPECT_THAT(TakeBoxes(), IsEmpty());
}

TEST_F(ZmcExchangeTest, ATableThatWasShownHasWhatIsImportedAndOneThatWasNotIsNotMade) {
  Open();
  Menu(zmc_command::kMaterialsTab);
  Menu(zmc_command::kMainTab);
  Import("kind;description\nmaterial;Bronze\noperation;Boring\n");
  EXPECT_THAT(view->materials.Column(1), ElementsAre("Bronze", "Steel", "Brass"));
  EXPECT_EQ(view->made.count(ZmcTab::kOperations), 0u);
  Menu(zmc_command::kOperationsTab);
  EXPECT_THAT(view->operations.Column(1), ElementsAre("Boring", "Milling", "Turning"));
}

TEST_F(ZmcExchangeTest, TheRequestIsNobodysWhenTheToolIsGone) {
  Open();
  Menu(PNL_ZMC_EXPORT);
  ASSERT_NE(Request(), nullptr);
  DestroyTool();
  EXPECT_EQ(Request(), nullptr);
}

TEST_F(ZmcExchangeTest, TheRequestsHaveTheirTitlesAndTheExportItsName) {
  Open();
  Menu(PNL_ZMC_EXPORT);
  EXPECT_EQ(FieldText(Request()->Title), u"T7101");
  EXPECT_EQ(FieldText(Request()->File), u"materials.csv");
  EXPECT_EQ(FieldText(Request()->Extension), u"csv");
  Menu(PNL_ZMC_IMPORT);
  EXPECT_EQ(FieldText(Request()->Title), u"T7102");
  EXPECT_EQ(FieldText(Request()->File), u"") << "nothing of the request before";
  EXPECT_EQ(FieldText(Request()->Extension), u"csv");
}

TEST_F(ZmcExchangeTest, EachFaultHasItsText) {
  for (int fault = 7110; fault <= 7117; ++fault) language.SetText(fault, Format(u"%d at %%d: %%s", fault));
  const std::pair<const char*, const char*> rows[] = {
      {"kc\n", "7110 at 1: kc"},
      {"kind;description\nmaterial;A;7\n", "7111 at 2: 7"},
      {"kind;description\ntool;A\n", "7112 at 2: tool"},
      {"kind;description\nmaterial;\n", "7113 at 2: "},
      {"kind;description\nmaterial;A\nmaterial;A\n", "7114 at 3: A"},
      {"kind;description;kc\nmaterial;A;x\n", "7115 at 2: x"},
      {"kind;description\nmaterial;A\x01\n", "7116 at 2: A\x01"},
      {"kind;description\nmaterial;A\n\n\"", "7117 at 4: "},
  };
  Open();
  for (const auto& [lines, text] : rows) {
    Import(lines);
    EXPECT_EQ(ToUtf8(windows.boxes.back().text), std::string("faults in materials.csv\n") + text);
  }
}

TEST_F(ZmcExchangeTest, ATableThatIsGoneOrTooLargeCannotBeRead) {
  Open();
  Menu(PNL_ZMC_IMPORT);
  Accept(u"C:\\P118", u"gone.csv");
  ASSERT_EQ(windows.boxes.size(), 1u);
  EXPECT_EQ(ToUtf8(windows.boxes[0].text), "no gone.csv");
  EXPECT_EQ(windows.boxes[0].style, BoxStyle::kInfo);
  std::string large = "kind;description\nmaterial;Bronze\n";
  large.resize(16u << 20, ' ');
  Import(large + " ");
  EXPECT_EQ(ToUtf8(windows.boxes.back().text), "no materials.csv");
  Import(large);
  EXPECT_EQ(ToUtf8(windows.boxes.back().text), "T7107\nnew Bronze") << "sixteen megabytes and no more";
}

TEST_F(ZmcExchangeTest, OfVeryManyChangesTheFirstTwoHundredAreShownAndTheirNumber) {
  Open();
  windows.boxAnswer = BoxAnswer::kNo;
  const auto import = [this](int materials) {
    std::string lines = "kind;description\n";
    for (int i = 0; i < materials; ++i) lines += "material;M" + std::to_string(i) + "\n";
    Import(lines);
    return ToUtf8(windows.boxes.back().text);
  };
  std::string shown = "T7107";
  for (int i = 0; i < 200; ++i) shown += "\nnew M" + std::to_string(i);
  EXPECT_EQ(import(200), shown);
  EXPECT_EQ(import(201), shown + "\n... (201)");
}

TEST_F(ZmcExchangeTest, EveryFieldOfAChangeHasItsName) {
  language.SetText(7121, u"new operation %s");
  language.SetText(7123, u"operation %s:");
  language.SetText(7127, u"shown");
  language.SetText(7128, u"none");
  Open();
  Import(
      "kind;description;alemaniaw;une;aisi;kc;tooltype;hidden\n"
      "material;Bronze;1.1;F-1;11;900;;1\noperation;Boring;;;;;Drill;\n");
  EXPECT_EQ(ToUtf8(windows.boxes.back().text),
            "T7107\nnew Bronze, T70 1.1, T71 F-1, T72 11, T73 900, hidden\nnew operation Boring, T88 Drill");
  Import("kind;description;alemaniaw;une;aisi;kc\nmaterial;Bronze;2.2;F-1;;\noperation;Boring;;;;\n");
  EXPECT_EQ(ToUtf8(windows.boxes.back().text),
            "T7107\nmaterial Bronze: T70 1.1 now 2.2, T72 11 now none, T73 900 now none, shown\n"
            "operation Boring: T88 Drill now none");
  Import("kind;description;alemaniaw;une;aisi;kc\nmaterial;Bronze;2.2;F-1;12;\n");
  EXPECT_EQ(ToUtf8(windows.boxes.back().text), "T7107\nmaterial Bronze: T72 none now 12");
}

TEST_F(ZmcExchangeTest, ADateOfTheTableIsKeptAndAMissingOneIsToday) {
  Open();
  Import(
      "kind;description;date\nmaterial;Bronze;2001/02/03 04:05:06\noperation;Boring;2002/02/03 04:05:06\n"
      "material;Gold;\noperation;Reaming;\n");
  const std::string all = UserFile();
  EXPECT_THAT(all, HasSubstr("2001/02/03 04:05:06"));
  EXPECT_THAT(all, HasSubstr("2002/02/03 04:05:06"));
  std::size_t dates = 0;
  for (std::size_t at = all.find("<Date>2"); at != std::string::npos; at = all.find("<Date>2", at + 1)) ++dates;
  EXPECT_EQ(dates, 4u);
}

TEST_F(ZmcExchangeTest, APairIsShownWithAllItsValuesAndItsRemark) {
  const std::string block =
      "<Operacion><id>1</id><descripcion>Milling</descripcion><Materiales><Parametros><Material>Steel</Material>"
      "<VelocidadCorte><Selected>1200000000</Selected></VelocidadCorte>"
      "<AvancePorDiente><Selected>500</Selected></AvancePorDiente>"
      "<Profundidad><Selected>15000</Selected></Profundidad><PasadaRadial><Selected>50</Selected></PasadaRadial>"
      "<Observaciones><Descripcion>with oil</Descripcion></Observaciones></Parametros></Materiales>"
      "<Materiales><Parametros><Material>Brass</Material>"
      "<Observaciones><Descripcion>dry</Descripcion></Observaciones></Parametros></Materiales></Operacion>";
  SetUserFile("", block);
  Open();
  Menu(PNL_ZMC_CHANGES);
  const std::string shown = ToUtf8(windows.boxes.back().text);
  EXPECT_THAT(shown, HasSubstr("Steel at Milling: T65 120, T66 0.05, T67 1.5, T68 50, with oil\n"));
  EXPECT_THAT(shown, HasSubstr("Brass at Milling: dry"));
  EXPECT_EQ(windows.boxes.back().style, BoxStyle::kInfo);
}

TEST_F(ZmcExchangeTest, APairOfAnInchMachineIsShownInInches) {
  Define(u"MPG.INCHES", 1);
  SetUserFile(
      "",
      "<Operacion><id>1</id><descripcion>Milling</descripcion><Materiales><Parametros><Material>Steel</Material>"
      "<Profundidad><Selected>254000</Selected></Profundidad></Parametros></Materiales></Operacion>");
  Open();
  Menu(PNL_ZMC_CHANGES);
  EXPECT_THAT(ToUtf8(windows.boxes.back().text), HasSubstr("Steel at Milling: T67 0.999998"));
}

TEST_F(ZmcExchangeTest, AWindowThatGoesInABoxEndsTheImport) {
  Open();
  windows.onBox = [this] { DestroyTool(); };
  Import("kind;description\nmaterial;Bronze\n");
  EXPECT_EQ(tool, nullptr);
}

}  // namespace
}  // namespace pnl::test
