// SPDX-License-Identifier: MIT
#include "host/demo_disc.h"

#include <gtest/gtest.h>

#include <QDir>
#include <filesystem>

#include "support/temp_folder.h"

namespace panel {
namespace {

class DemoDiscTest : public ::testing::Test {
 protected:
  DemoDiscTest() {
    folder_.Write("source/READ ME.TXT", "hello");
    folder_.Write("source/A/B/c.nc", "G0");
  }
  [[nodiscard]] bool Make() const {
    return MakeDemoDisc(QString::fromStdString((folder_.Path() / "source").string()),
                        QString::fromStdString((folder_.Path() / "disc").string()));
  }
  [[nodiscard]] std::ptrdiff_t SeriesCount() const {
    return std::distance(std::filesystem::directory_iterator(folder_.Path() / "disc/SERIES"),
                         std::filesystem::directory_iterator());
  }
  pnl::test::TempFolder folder_;
};

TEST_F(DemoDiscTest, HasTheFilesOfItsSourceAndTenThousandOfASeries) {
  ASSERT_TRUE(Make());
  EXPECT_EQ(folder_.Read("disc/READ ME.TXT"), "hello");
  EXPECT_EQ(folder_.Read("disc/A/B/c.nc"), "G0");
  EXPECT_EQ(SeriesCount(), 10'000);
  EXPECT_EQ(folder_.Read("disc/SERIES/P00123.NC"), "(SERIES 123)\r\nG0 X23 Y1\r\nM30\r\n");
}

TEST_F(DemoDiscTest, IsCompletedAfterAKillAndKeepsWhatTheOperatorChanged) {
  ASSERT_TRUE(Make());
  folder_.Write("disc/A/B/c.nc", "mine");
  folder_.Write("disc/SERIES/P00001.NC", "mine");
  std::filesystem::remove(folder_.Path() / "disc/READ ME.TXT");
  std::filesystem::remove(folder_.Path() / "disc/SERIES/P00002.NC");
  std::filesystem::remove(folder_.Path() / "disc/SERIES/P10000.NC");
  ASSERT_TRUE(Make());
  EXPECT_EQ(folder_.Read("disc/A/B/c.nc"), "mine");
  EXPECT_EQ(folder_.Read("disc/SERIES/P00001.NC"), "mine");
  EXPECT_EQ(folder_.Read("disc/READ ME.TXT"), "hello");
  EXPECT_EQ(SeriesCount(), 10'000);
}

TEST_F(DemoDiscTest, AFileThatFindsNoPlaceIsAnsweredAndTheOthersAreThere) {
  folder_.Write("disc/A", "a file in the place of its folder");
  EXPECT_FALSE(Make());
  EXPECT_EQ(folder_.Read("disc/READ ME.TXT"), "hello");
  EXPECT_EQ(SeriesCount(), 10'000);
}

TEST_F(DemoDiscTest, ASeriesThatFindsNoPlaceIsAnswered) {
  folder_.Write("disc/SERIES", "a file in its place");
  EXPECT_FALSE(Make());
  EXPECT_EQ(folder_.Read("disc/A/B/c.nc"), "G0");
}

TEST_F(DemoDiscTest, ThatItCannotBeMadeIsAnswered) {
  folder_.Write("disc", "a file in its place");
  EXPECT_FALSE(Make());
}

}  // namespace
}  // namespace panel
