// SPDX-License-Identifier: MIT
#include "host/cutting_data.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <filesystem>
#include <string>

#include "panel/machine/qt/demo_machine.h"

namespace panel {
namespace {

namespace fs = std::filesystem;
constexpr int kCuttingData = 24;
const QString kCuttingSource = QStringLiteral(PNL_SHARE_FOLDER "/cutting");

std::string BuiltFile(const std::string& language) {
  return std::string(PNL_SHARE_FOLDER "/cutting/") + language + "/CondicionesCorte.xml";
}

std::string BytesOf(const std::string& file) {
  std::ifstream in(file, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), {}};
}

/// The demo machine with a folder of cutting data for this test.
class PlacedCuttingData : public ::testing::Test {
 protected:
  PlacedCuttingData() : files_(DemoMachine().Files()), folder_(files_.Path(kCuttingData)) {
    fs::remove_all(Host(u"C:\\CUTTING TEST"));
    files_.SetPath(kCuttingData, u"C:\\CUTTING TEST\\FACTORY");
  }
  ~PlacedCuttingData() override {
    fs::remove_all(Host(u"C:\\CUTTING TEST"));
    files_.SetPath(kCuttingData, folder_);
  }
  [[nodiscard]] std::string Host(std::u16string_view path) const { return files_.HostPath(path).value_or(""); }
  [[nodiscard]] std::string File() const { return Host(u"C:\\CUTTING TEST\\FACTORY\\CondicionesCorte.xml"); }

  pnl::rig::Storage& files_;
  std::u16string folder_;
};

TEST_F(PlacedCuttingData, AreThoseOfThePanelsLanguage) {
  for (const char* language : {"en", "es"}) {
    fs::remove(File());
    ASSERT_TRUE(PlaceCuttingData(files_, kCuttingSource, QString::fromLatin1(language)));
    EXPECT_FALSE(BytesOf(File()).empty());
    EXPECT_EQ(BytesOf(File()), BytesOf(BuiltFile(language))) << language;
  }
}

TEST_F(PlacedCuttingData, AreEnglishForALanguageWithoutAFile) {
  for (const char* language : {"none", "de"}) {
    fs::remove(File());
    ASSERT_TRUE(PlaceCuttingData(files_, kCuttingSource, QString::fromLatin1(language)));
    EXPECT_EQ(BytesOf(File()), BytesOf(BuiltFile("en"))) << language;
  }
}

TEST_F(PlacedCuttingData, LeaveAFileThatIsThereAlone) {
  ASSERT_TRUE(PlaceCuttingData(files_, kCuttingSource, QStringLiteral("en")));
  std::ofstream(File(), std::ios::binary) << "mine";
  ASSERT_TRUE(PlaceCuttingData(files_, kCuttingSource, QStringLiteral("es")));
  EXPECT_EQ(BytesOf(File()), "mine");
}

TEST_F(PlacedCuttingData, LeaveAnEmptyFileAlone) {
  fs::create_directories(fs::path(File()).parent_path());
  std::ofstream(File(), std::ios::binary) << "";
  ASSERT_TRUE(PlaceCuttingData(files_, kCuttingSource, QStringLiteral("en")));
  EXPECT_EQ(BytesOf(File()), "");
}

TEST_F(PlacedCuttingData, LeaveAFileInAnotherCaseAlone) {
  const fs::path other = fs::path(File()).parent_path() / "condicionescorte.XML";
  fs::create_directories(other.parent_path());
  std::ofstream(other, std::ios::binary) << "mine";
  ASSERT_TRUE(PlaceCuttingData(files_, kCuttingSource, QStringLiteral("en")));
  EXPECT_EQ(BytesOf(other.string()), "mine");
  EXPECT_EQ(std::distance(fs::directory_iterator(other.parent_path()), fs::directory_iterator()), 1);
}

TEST_F(PlacedCuttingData, ThatTheyCannotBePlacedIsReported) {
  EXPECT_FALSE(PlaceCuttingData(files_, QStringLiteral("/nowhere"), QStringLiteral("en")));
  EXPECT_FALSE(fs::exists(File()));
  fs::create_directories(Host(u"C:\\CUTTING TEST"));
  std::ofstream(Host(u"C:\\CUTTING TEST\\FACTORY"), std::ios::binary) << "a file in the folder's place";
  EXPECT_FALSE(PlaceCuttingData(files_, kCuttingSource, QStringLiteral("en")));
  files_.SetPath(kCuttingData, u"Y:\\CUTTING");
  EXPECT_FALSE(PlaceCuttingData(files_, kCuttingSource, QStringLiteral("en")));
  files_.SetPath(kCuttingData, u"");
  EXPECT_FALSE(PlaceCuttingData(files_, kCuttingSource, QStringLiteral("en")));
}

}  // namespace
}  // namespace panel
