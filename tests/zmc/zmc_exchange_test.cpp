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

TEST_F(ZmcExchangeTest, AWindowThatGoesInABoxEndsTheImport) {
  Open();
  windows.onBox = [this] { DestroyTool(); };
  Import("kind;description\nmaterial;Bronze\n");
  EXPECT_EQ(tool, nullptr);
}

}  // namespace
}  // namespace pnl::test
