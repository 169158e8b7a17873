// SPDX-License-Identifier: MIT
// The file of the panel's settings: what is read, what is kept of others, and that no bytes do harm.
#include "host/panel_settings.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>
#include <random>

#include "support/temp_folder.h"

namespace panel {
namespace {

const PanelSettings kAll{"es", 345.6, true};

TEST(PanelSettingsTest, WhatIsWrittenIsRead) {
  EXPECT_EQ(WithSettings({}, kAll), "[Panel]\r\nLanguage=es\r\nScreenWidth=345.6\r\nTouchKeyboard=1\r\n");
  EXPECT_EQ(ReadSettings(WithSettings({}, kAll)), kAll);
  EXPECT_EQ(ReadSettings(WithSettings({}, {"en", {}, false})), (PanelSettings{"en", {}, false}));
  EXPECT_EQ(WithSettings({}, {}), "");
}

TEST(PanelSettingsTest, WhatIsNotChangedStaysAndSoDoLinesOfOthers) {
  const QByteArray old =
      "; of the machine builder\r\n[Other]\r\nLanguage=fr\r\n\r\n[PANEL]\r\nlanguage = en\r\nColour=red\r\n\r\n"
      "[Last]\r\nScreenWidth=1\r\n";
  EXPECT_EQ(WithSettings(old, {"es", 300.0, {}}),
            "; of the machine builder\r\n[Other]\r\nLanguage=fr\r\n\r\n[PANEL]\r\nLanguage=es\r\nColour=red\r\n"
            "ScreenWidth=300.0\r\n\r\n[Last]\r\nScreenWidth=1\r\n");
  EXPECT_EQ(WithSettings("[Other]\nA=1\n", {{}, {}, false}), "[Other]\r\nA=1\r\n\r\n[Panel]\r\nTouchKeyboard=0\r\n");
  EXPECT_EQ(ReadSettings(old), (PanelSettings{"en", {}, {}})) << "another section's keys aren't the panel's";
}

TEST(PanelSettingsTest, AKeyThatIsThereTwiceCountsTheFirstTime) {
  const QByteArray twice = "[Panel]\nLanguage=es\nLanguage=en\n[Panel]\nTouchKeyboard=1\n";
  EXPECT_EQ(ReadSettings(twice), (PanelSettings{"es", {}, true}));
  EXPECT_EQ(ReadSettings(WithSettings(twice, {"en", {}, {}})).language, "en");
}

TEST(PanelSettingsTest, AWrongValueCountsAsMissing) {
  for (const char* wrong : {"Language=",
                            "Language=fr",
                            "Language=../../x",
                            "ScreenWidth=",
                            "ScreenWidth=wide",
                            "ScreenWidth=nan",
                            "ScreenWidth=inf",
                            "ScreenWidth=-300",
                            "ScreenWidth=0",
                            "ScreenWidth=49.9",
                            "ScreenWidth=3000.1",
                            "ScreenWidth=1e308",
                            "ScreenWidth=300,5",
                            "ScreenWidth=300 mm",
                            "TouchKeyboard=2",
                            "TouchKeyboard=yes",
                            "=es",
                            "Language",
                            "Language es",
                            "[Panel",
                            ";Language=es"}) {
    EXPECT_EQ(ReadSettings(QByteArray("[Panel]\n") + wrong + "\n"), PanelSettings()) << wrong;
  }
  EXPECT_EQ(ReadSettings("[Panel]\nScreenWidth=50\n").screenMillimetres, 50.0);
  EXPECT_EQ(ReadSettings("[Panel]\nScreenWidth=3000\n").screenMillimetres, 3000.0);
}

TEST(PanelSettingsTest, ALineCountsWithoutItsEndButNotBeforeItsSection) {
  EXPECT_EQ(ReadSettings("[Panel]\nScreenWidth=300\nLanguage=es"), (PanelSettings{"es", 300.0, {}}));
  EXPECT_EQ(ReadSettings("Language=es\n[Panel]\nTouchKeyboard=1\n"), (PanelSettings{{}, {}, true}));
}

TEST(PanelSettingsTest, OnlyWhatIsKnownTakesTheOldSettingsPlace) {
  PanelSettings settings = kAll;
  settings.Update({});
  EXPECT_EQ(settings, kAll);
  settings.Update({"en", {}, false});
  EXPECT_EQ(settings, (PanelSettings{"en", 345.6, false}));
  settings.Update({{}, 300.0, {}});
  EXPECT_EQ(settings, (PanelSettings{"en", 300.0, false}));
}

TEST(PanelSettingsTest, ADamagedFileCountsAsAnEmptyOne) {
  const QByteArray good = WithSettings({}, kAll);
  EXPECT_EQ(ReadSettings("\xEF\xBB\xBF" + good), kAll) << "a mark is no damage";
  for (const QByteArray& bytes :
       {good + QByteArray(1, '\0'), good + "\xff", good + "\xed\xa0\x80", good + QByteArray(kMostSettingsBytes, ' ')}) {
    EXPECT_EQ(ReadSettings(bytes), PanelSettings());
    EXPECT_EQ(WithSettings(bytes, kAll), good);
  }
  EXPECT_EQ(ReadSettings({}), PanelSettings());
}

TEST(PanelSettingsTest, NoBytesDoHarm) {
  std::mt19937 random(7);
  const QByteArray good = WithSettings({}, kAll);
  for (int round = 0; round < 3000; ++round) {
    QByteArray bytes = good;
    for (int hit = 0; hit < 1 + round % 4; ++hit) {
      bytes[static_cast<qsizetype>(random() % static_cast<unsigned>(bytes.size()))] = static_cast<char>(random());
    }
    bytes.truncate(static_cast<qsizetype>(random() % static_cast<unsigned>(bytes.size() + 1)));
    const PanelSettings read = ReadSettings(bytes);
    EXPECT_TRUE(read.language.isEmpty() || read.language == "en" || read.language == "es");
    if (read.screenMillimetres) {
      EXPECT_GE(*read.screenMillimetres, kLeastScreenMillimetres);
      EXPECT_LE(*read.screenMillimetres, kMostScreenMillimetres);
    }
    EXPECT_EQ(ReadSettings(WithSettings(bytes, kAll)), kAll) << bytes.toHex().toStdString();
  }
}

class SettingsFileTest : public ::testing::Test {
 protected:
  [[nodiscard]] QString File(const std::string& name) const {
    return QString::fromStdString((folder_.Path() / name).string());
  }
  pnl::test::TempFolder folder_;
};

TEST_F(SettingsFileTest, AFileIsMadeWithItsFolderAndChangedLater) {
  EXPECT_EQ(LoadSettings(File("USER/PNLPANEL.INI")), PanelSettings());
  EXPECT_TRUE(StoreSettings(File("USER/PNLPANEL.INI"), {"es", {}, {}}));
  EXPECT_TRUE(StoreSettings(File("USER/PNLPANEL.INI"), {{}, 345.6, true}));
  EXPECT_EQ(LoadSettings(File("USER/PNLPANEL.INI")), kAll);
  EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder_.Path() / "USER"), {}), 1) << "and nothing else";
}

TEST_F(SettingsFileTest, AnotherPanelsChangeIsKept) {
  ASSERT_TRUE(StoreSettings(File("A.INI"), kAll));
  folder_.Write("A.INI", "[Panel]\nLanguage=en\nScreenWidth=345.6\nMore=1\n");
  ASSERT_TRUE(StoreSettings(File("A.INI"), {{}, {}, false}));
  EXPECT_EQ(folder_.Read("A.INI"), "[Panel]\r\nLanguage=en\r\nScreenWidth=345.6\r\nMore=1\r\nTouchKeyboard=0\r\n");
}

TEST_F(SettingsFileTest, AFileThatSaysSoAlreadyIsNotWrittenAgain) {
  ASSERT_TRUE(StoreSettings(File("A.INI"), kAll));
  // A file that is written is another one, of which this isn't a name.
  std::filesystem::create_hard_link(folder_.Path() / "A.INI", folder_.Path() / "B.INI");
  EXPECT_TRUE(StoreSettings(File("A.INI"), kAll));
  EXPECT_EQ(std::filesystem::hard_link_count(folder_.Path() / "A.INI"), 2u);
  EXPECT_TRUE(StoreSettings(File("A.INI"), {"en", {}, {}}));
  EXPECT_EQ(std::filesystem::hard_link_count(folder_.Path() / "A.INI"), 1u);
}

TEST_F(SettingsFileTest, AFileThatMayNotBeWrittenStays) {
  folder_.Write("A.INI", "[Panel]\nLanguage=en\n");
  std::filesystem::permissions(folder_.Path() / "A.INI", std::filesystem::perms::owner_read);
  EXPECT_FALSE(StoreSettings(File("A.INI"), kAll));
  EXPECT_EQ(folder_.Read("A.INI"), "[Panel]\nLanguage=en\n");
  // A folder that can't be made: a file has its name.
  EXPECT_FALSE(StoreSettings(File("A.INI/B.INI"), kAll));
}

TEST_F(SettingsFileTest, WhatIsNoFileIsNeitherReadNorWrittenOver) {
  std::filesystem::create_directory(folder_.Path() / "FOLDER.INI");
  ASSERT_EQ(mkfifo((folder_.Path() / "PIPE.INI").c_str(), 0600), 0);
  std::filesystem::create_symlink("/dev/zero", folder_.Path() / "DEVICE.INI");
  std::filesystem::create_symlink(folder_.Path() / "nowhere", folder_.Path() / "LINK.INI");
  for (const char* name : {"FOLDER.INI", "PIPE.INI", "DEVICE.INI", "LINK.INI"}) {
    EXPECT_EQ(LoadSettings(File(name)), PanelSettings()) << name;
    EXPECT_FALSE(StoreSettings(File(name), kAll)) << name;
  }
  EXPECT_FALSE(folder_.Has("nowhere"));
}

TEST_F(SettingsFileTest, ADamagedFileIsReplaced) {
  folder_.Write("A.INI", std::string("\0\xff\x01", 3));
  EXPECT_TRUE(StoreSettings(File("A.INI"), kAll));
  EXPECT_EQ(LoadSettings(File("A.INI")), kAll);
}

}  // namespace
}  // namespace panel
