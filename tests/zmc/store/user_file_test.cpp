// SPDX-License-Identifier: MIT
#include "zmc/store/user_file.h"

#include "cutting_rig.h"
#include "support/failing_files.h"
#include "zmc/store/cutting_merge.h"

namespace pnl::test {
namespace {

class UserFile : public CuttingRig {};

TEST_F(UserFile, IsMadeAtTheFirstStartInTwoByteCharacters) {
  EXPECT_EQ(EnsureUserFile(files, kUserPath), FileStatus::kOk);
  const std::string literal =
      "<CondicionesCorte><MaterialesDefinition></MaterialesDefinition><Operaciones></Operaciones></CondicionesCorte>";
  std::string expected;
  for (const char c : literal) expected += {c, '\0'};
  EXPECT_EQ(User(), expected);
  EXPECT_EQ(User().size(), 218u);
}

TEST_F(UserFile, AfterTheFirstStartTheListsShowTheFactoryRecordsAlone) {
  PutFactory(CuttingFile("<MaterialDefinition><id>##</id><descripcion>Steel</descripcion></MaterialDefinition>",
                         "<Operacion><id>1</id><descripcion>Drilling</descripcion></Operacion>"));
  ASSERT_EQ(EnsureUserFile(files, kUserPath), FileStatus::kOk);
  const auto materials = parser.GetListaMateriales(kFactoryPath);
  const auto operations = parser.GetListaOperaciones(kFactoryPath);
  const auto rows = MergeMaterials(materials.Value(), UserMaterials(), {}, HiddenRecords::kSkip);
  ASSERT_EQ(rows.size(), 1u);
  EXPECT_EQ(rows[0].record->descripcion, u"Steel");
  EXPECT_EQ(rows[0].origin, CuttingOrigin::kFactory);
  const auto operationRows = MergeOperations(operations.Value(), UserOperations(), {}, HiddenRecords::kSkip);
  ASSERT_EQ(operationRows.size(), 1u);
  EXPECT_EQ(operationRows[0].record->descripcion, u"Drilling");
}

TEST_F(UserFile, ThatExistsIsLeftAlone) {
  PutUser("whatever it is");
  EXPECT_EQ(EnsureUserFile(files, kUserPath), FileStatus::kOk);
  EXPECT_EQ(User(), "whatever it is");
  EXPECT_TRUE(files.replaced.empty());
}

TEST_F(UserFile, IsMadeWithItsFolders) {
  EXPECT_EQ(EnsureUserFile(files, u"C:\\USERS\\CUTTING\\DATA\\CondicionesCorteP.xml"), FileStatus::kOk);
  EXPECT_EQ(files.disc.at("C:\\USERS\\CUTTING\\DATA\\CondicionesCorteP.xml").size(), 218u);
}

TEST_F(UserFile, IsNotMadeWhenItsFolderCannotBe) {
  FailingFiles failing(files);
  failing.Fail(FailingFiles::Call::kMakeFolder, u"C:\\P118", FileStatus::kDenied);
  EXPECT_EQ(EnsureUserFile(failing, kUserPath), FileStatus::kDenied);
  EXPECT_TRUE(files.disc.empty());
}

TEST_F(UserFile, ThatCannotBeWrittenIsReported) {
  files.full = true;
  EXPECT_EQ(EnsureUserFile(files, kUserPath), FileStatus::kDiscFull);
  EXPECT_TRUE(files.disc.empty());
  EXPECT_EQ(EnsureUserFile(files, u"CondicionesCorteP.xml"), FileStatus::kFailed);
}

/// A disc that makes folders but can't say what is in them.
class Unsure final : public DiscFiles {
 public:
  Unsure() : DiscFiles(none_) {}
  FileInfo Query(TextView) const override {
    FileInfo info;
    info.outOfReach = true;
    return info;
  }
  FileStatus MakeFolder(TextView) override { return FileStatus::kOk; }
  FileStatus Replace(TextView, std::string_view) override {
    written = true;
    return FileStatus::kOk;
  }
  bool written = false;

 private:
  DriveMap none_;
};

TEST_F(UserFile, IsNotMadeWhereItMayExistAlready) {
  Unsure unsure;
  EXPECT_EQ(EnsureUserFile(unsure, kUserPath), FileStatus::kOutOfReach);
  EXPECT_FALSE(unsure.written);
}

TEST_F(UserFile, IsNotMadeOnADriveThatIsAway) {
  files.away.insert("C:");
  EXPECT_NE(EnsureUserFile(files, kUserPath), FileStatus::kOk);
  EXPECT_TRUE(files.disc.empty());
}

}  // namespace
}  // namespace pnl::test
