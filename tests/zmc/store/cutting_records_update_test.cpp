// SPDX-License-Identifier: MIT
// Many records in one replacement, and all pairs of a file.
#include <gmock/gmock.h>

#include "cutting_rig.h"

namespace pnl::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

class CuttingRecordsUpdate : public CuttingRig {
 protected:
  CuttingRecordsUpdate() {
    PutUser(CuttingFile("<MaterialDefinition><descripcion>Steel</descripcion><KC>2000</KC></MaterialDefinition>",
                        "<Operacion><id>7</id><descripcion>Drilling</descripcion><Materiales><Parametros>"
                        "<Material>Steel</Material><Observaciones><Descripcion>slowly</Descripcion></Observaciones>"
                        "</Parametros></Materiales></Operacion>"));
    before = User();
  }
  std::string before;
};

TEST_F(CuttingRecordsUpdate, WritesOverRecordsOfTheSameDescriptionAndAddsTheOthers) {
  const CuttingRecords records{{Material(u"Brass", {}, false, u"800"), Material(u"Steel", {}, true, u"2100")},
                               {Operation(u"Milling", u"9", u"Face mill")}};
  EXPECT_EQ(parser.UpdateRecords(kUserPath, records), CuttingError::kNone);
  EXPECT_THAT(UserMaterials().MaterialDefinition,
              ElementsAre(Material(u"Steel", {}, true, u"2100"), Material(u"Brass", {}, false, u"800")));
  EXPECT_THAT(UserOperations().Operacion,
              ElementsAre(Operation(u"Drilling", u"7"), Operation(u"Milling", u"9", u"Face mill")));
  EXPECT_THAT(files.replaced, SizeIs(1));
}

TEST_F(CuttingRecordsUpdate, AnOperationThatIsThereKeepsItsIdAndItsBlocks) {
  EXPECT_EQ(parser.UpdateRecords(kUserPath, {{}, {Operation(u"Drilling", u"other", u"Drill")}}), CuttingError::kNone);
  EXPECT_THAT(UserOperations().Operacion, ElementsAre(Operation(u"Drilling", u"7", u"Drill")));
  EXPECT_EQ(UserBlock(u"Steel", u"Drilling").Observaciones.Descripcion, u"slowly");
}

TEST_F(CuttingRecordsUpdate, OneRecordThatCannotBeHeldKeepsAllOthersOut) {
  EXPECT_EQ(parser.UpdateRecords(kUserPath, {{Material(u"Brass"), Material(u"Le\x1"
                                                                           u"ad")},
                                             {}}),
            CuttingError::kNotHoldable);
  EXPECT_EQ(parser.UpdateRecords(kUserPath, {{Material(u"Brass")}, {Operation(u"Mill\xD800")}}),
            CuttingError::kNotHoldable);
  EXPECT_EQ(User(), before);
}

TEST_F(CuttingRecordsUpdate, AFullDiscKeepsTheOldFile) {
  files.full = true;
  EXPECT_EQ(parser.UpdateRecords(kUserPath, {{Material(u"Brass")}, {}}), CuttingError::kDiscFull);
  EXPECT_EQ(User(), before);
}

TEST_F(CuttingRecordsUpdate, ADamagedFileStaysAsItIs) {
  PutUser("<CondicionesCorte>");
  EXPECT_EQ(parser.UpdateRecords(kUserPath, {{Material(u"Brass")}, {}}), CuttingError::kXmlEngine);
  EXPECT_EQ(User(), "<CondicionesCorte>");
}

TEST_F(CuttingRecordsUpdate, WithoutRecordsNothingIsWritten) {
  EXPECT_EQ(parser.UpdateRecords(kUserPath, {}), CuttingError::kNone);
  EXPECT_THAT(files.replaced, IsEmpty());
}

TEST_F(CuttingRecordsUpdate, AllPairsAreReadWithTheirNames) {
  ASSERT_EQ(Update(2, 12345), CuttingError::kNone);
  const auto pairs = parser.GetPairs(kUserPath);
  ASSERT_THAT(pairs.Value(), SizeIs(1));
  EXPECT_EQ(pairs.Value()[0].operation, u"Drilling");
  EXPECT_EQ(pairs.Value()[0].material, u"Steel");
  EXPECT_EQ(pairs.Value()[0].block.VelocidadCorte.Selected, u"12345");
  EXPECT_EQ(pairs.Value()[0].block.Observaciones.Descripcion, u"slowly");
}

TEST_F(CuttingRecordsUpdate, PairsOfAMissingFileAreAFailure) {
  files.disc.clear();
  EXPECT_EQ(parser.GetPairs(kUserPath).Error(), CuttingError::kNotFound);
}

}  // namespace
}  // namespace pnl::test
