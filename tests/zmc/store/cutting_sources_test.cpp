// SPDX-License-Identifier: MIT
// When a file of cutting data is parsed: a document keeps its address as long as nobody else has written its file.
#include "zmc/store/cutting_sources.h"

#include "cutting_rig.h"

namespace pnl::test {
namespace {

class CuttingSourcesTest : public CuttingRig {
 protected:
  CuttingSourcesTest() { PutFactory(CuttingFile("")); }
  CuttingDocument* Open() { return sources.Open(kFactoryPath).Value(); }

  CuttingSources sources{files};
};

TEST_F(CuttingSourcesTest, AFileIsParsedAgainOnlyWhenItsBytesDiffer) {
  CuttingDocument* first = Open();
  ASSERT_NE(first, nullptr);
  EXPECT_EQ(Open(), first);
  ASSERT_EQ(sources.Write(kFactoryPath), CuttingError::kNone);
  const std::string written = Factory();
  EXPECT_NE(written, CuttingFile("")) << "it is written in the store's own form";
  EXPECT_EQ(Open(), first) << "what the store wrote, it knows";
  PutFactory(CuttingFile("<MaterialDefinition><descripcion>Iron</descripcion></MaterialDefinition>"));
  ASSERT_NE(Open(), nullptr);
  ASSERT_EQ(sources.Write(kFactoryPath), CuttingError::kNone);
  EXPECT_NE(Factory().find("Iron"), std::string::npos);
}

}  // namespace
}  // namespace pnl::test
