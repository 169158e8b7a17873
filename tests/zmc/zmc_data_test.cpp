// SPDX-License-Identifier: MIT
// The cutting data by themselves: what becomes of the lists when one of the files is gone or damaged.
#include "zmc/zmc_data.h"

#include <gtest/gtest.h>

#include "support/fake_utilities.h"
#include "support/memory_files.h"

namespace pnl::test {
namespace {

const std::string kFactory = "C:\\P24\\CondicionesCorte.xml";
const std::string kUser = "C:\\P118\\CondicionesCorteP.xml";

std::string DataWith(const std::string& material, const std::string& operation) {
  return "<CondicionesCorte><MaterialesDefinition><MaterialDefinition><descripcion>" + material +
         "</descripcion><KC>7</KC></MaterialDefinition></MaterialesDefinition><Operaciones><Operacion><descripcion>" +
         operation + "</descripcion></Operacion></Operaciones></CondicionesCorte>";
}

class ZmcDataTest : public testing::Test {
 protected:
  ZmcDataTest() {
    files_.disc[kFactory] = DataWith("Steel", "Milling");
    files_.disc[kUser] = DataWith("Own", "Boring");
    EXPECT_EQ(data_.Open(), FileStatus::kOk);
  }
  void ExpectLoads(bool noFactoryFile, CuttingError error) {
    for (const ZmcLoad& load : {data_.LoadMaterials(), data_.LoadOperations()}) {
      EXPECT_EQ(load.noFactoryFile, noFactoryFile);
      EXPECT_EQ(load.error, error);
    }
  }

  const ZmcKept kept_;
  MemoryFiles files_;
  FakeUtilities utilities_;
  ZmcData data_{files_, utilities_};
};

TEST_F(ZmcDataTest, TheListsAreThoseOfBothFiles) {
  ExpectLoads(false, CuttingError::kNone);
  EXPECT_EQ(data_.MaterialNames(kept_), (std::vector<Text>{u"Own", u"Steel"}));
  EXPECT_EQ(data_.OperationNames(kept_), (std::vector<Text>{u"Boring", u"Milling"}));
  EXPECT_TRUE(data_.CanAccessUserFile());
}

TEST_F(ZmcDataTest, NothingIsListedBeforeItIsLoaded) {
  EXPECT_TRUE(data_.MaterialNames(kept_).empty());
  EXPECT_TRUE(data_.OperationNames(kept_).empty());
  EXPECT_EQ(data_.Kc(), std::nullopt);
  EXPECT_FALSE(data_.IsFactorySelection());
}

TEST_F(ZmcDataTest, AUserFileThatHasVanishedIsNoFailureAndListsNothing) {
  files_.disc.erase(kUser);
  ExpectLoads(false, CuttingError::kNone);
  EXPECT_TRUE(data_.MaterialNames(kept_).empty());
  EXPECT_TRUE(data_.OperationNames(kept_).empty());
  EXPECT_FALSE(data_.CanAccessUserFile());
}

TEST_F(ZmcDataTest, OfADamagedFileNothingIsListedAndTheRecordsInMemoryStay) {
  ExpectLoads(false, CuttingError::kNone);
  for (const std::string& damaged : {kUser, kFactory}) {
    const std::string good = std::exchange(files_.disc[damaged], "damaged");
    ExpectLoads(false, CuttingError::kXmlEngine);
    EXPECT_TRUE(data_.MaterialNames(kept_).empty()) << damaged;
    EXPECT_TRUE(data_.OperationNames(kept_).empty()) << damaged;
    EXPECT_EQ(data_.MaterialRows(kept_).size(), 2u) << damaged;
    EXPECT_EQ(data_.OperationRows(kept_).size(), 2u) << damaged;
    files_.disc[damaged] = good;
  }
}

TEST_F(ZmcDataTest, WithoutTheFactorysFileThereAreNoRecordsAtAll) {
  ExpectLoads(false, CuttingError::kNone);
  files_.disc.erase(kFactory);
  ExpectLoads(true, CuttingError::kNone);
  EXPECT_TRUE(data_.MaterialNames(kept_).empty());
  EXPECT_TRUE(data_.MaterialRows(kept_).empty());
  EXPECT_TRUE(data_.OperationRows(kept_).empty());
}

TEST_F(ZmcDataTest, OnlyAPairOfTheFactorysIsTheFactorys) {
  ExpectLoads(false, CuttingError::kNone);
  data_.SelectMaterial(u"Steel");
  EXPECT_EQ(data_.Kc(), 7.0);
  EXPECT_FALSE(data_.IsFactorySelection()) << "there is no operation yet";
  data_.SelectOperation(u"Milling");
  EXPECT_TRUE(data_.IsFactorySelection());
  data_.SelectOperation(u"Boring");
  EXPECT_FALSE(data_.IsFactorySelection());
  data_.SelectOperation(u"Milling");
  data_.SelectMaterial(u"Own");
  EXPECT_FALSE(data_.IsFactorySelection());
  data_.SelectMaterial(u"Tin");
  EXPECT_EQ(data_.Kc(), std::nullopt);
}

}  // namespace
}  // namespace pnl::test
