// SPDX-License-Identifier: MIT
#include "explorer/xplr_settings.h"

#include <gtest/gtest.h>

#include "support/fake_utilities.h"
#include "support/memory_files.h"

namespace pnl::test {
namespace {

class XplrSettingsTest : public testing::Test {
 protected:
  XplrSettingsTest() { ForgetQualityTest(); }
  XplrSettings Opened() {
    XplrSettings settings(files_, utilities_);
    settings.Open();
    return settings;
  }
  bool QualityTestWith(const std::string& file) {
    ForgetQualityTest();
    files_.disc["C:\\P108\\HMI_Settings.ini"] = file;
    return IsQualityTest(files_, utilities_);
  }
  const std::string path_ = "C:\\P52\\XPLR7340.ini";
  MemoryFiles files_;
  FakeUtilities utilities_;
};

TEST_F(XplrSettingsTest, WithoutAFileThereIsNoOrderAndNoPin) {
  XplrSettings settings = Opened();
  EXPECT_TRUE(settings.Sort().empty());
  EXPECT_TRUE(settings.PinnedFolder(1006).empty());
  EXPECT_TRUE(files_.replaced.empty()) << "reading stores nothing";
}

TEST_F(XplrSettingsTest, TheOrderIsStoredUnderItsKey) {
  XplrSettings settings = Opened();
  EXPECT_TRUE(settings.SaveSort(u"1 0 1 1,2"));
  EXPECT_EQ(files_.disc[path_], "[PRIVATE]\r\nPrgSort=1 0 1 1,2\r\n");
  EXPECT_TRUE(Opened().Sort() == u"1 0 1 1,2");
}

TEST_F(XplrSettingsTest, EachToolThatAsksHasItsOwnPin) {
  XplrSettings settings = Opened();
  EXPECT_TRUE(settings.SavePinnedFolder(1006, u"C:\\PRG"));
  EXPECT_TRUE(settings.SavePinnedFolder(-1, u"C:\\P1"));
  EXPECT_EQ(files_.disc[path_], "[USER_1006]\r\nPinnedFolder=C:\\PRG\r\n\r\n[USER_-1]\r\nPinnedFolder=C:\\P1\r\n");
  EXPECT_TRUE(Opened().PinnedFolder(1006) == u"C:\\PRG");
  EXPECT_TRUE(Opened().PinnedFolder(-1) == u"C:\\P1");
  EXPECT_TRUE(Opened().PinnedFolder(1000).empty());
}

TEST_F(XplrSettingsTest, APinLosesTheBlanksAtBothEnds) {
  files_.disc[path_] = "[USER_1006]\nPinnedFolder =   C:\\A B  \n";
  EXPECT_TRUE(Opened().PinnedFolder(1006) == u"C:\\A B");
}

TEST_F(XplrSettingsTest, APinThatIsTakenAwayDeletesItsKeyAndNothingElse) {
  files_.disc[path_] = "; mine\r\n[USER_1006]\r\nPinnedFolder=C:\\PRG\r\nFileType=3\r\n";
  EXPECT_TRUE(Opened().SavePinnedFolder(1006, std::nullopt));
  EXPECT_EQ(files_.disc[path_], "; mine\r\n[USER_1006]\r\nFileType=3\r\n");
}

TEST_F(XplrSettingsTest, AFileThatCannotBeReadIsNotOverwritten) {
  files_.disc[path_] = "[USER_1000]\r\nPinnedFolder=C:\\OTHER\r\n";
  files_.unreadable.insert(path_);
  XplrSettings settings = Opened();
  EXPECT_FALSE(settings.SavePinnedFolder(1006, u"C:\\PRG"));
  EXPECT_EQ(files_.disc[path_], "[USER_1000]\r\nPinnedFolder=C:\\OTHER\r\n");
}

TEST_F(XplrSettingsTest, AFileThatIsBackGetsWhatWasChangedMeanwhile) {
  files_.disc[path_] = "[USER_1000]\r\nPinnedFolder=C:\\OTHER\r\n";
  files_.away.insert("C:\\P52");
  XplrSettings settings = Opened();
  EXPECT_FALSE(settings.SavePinnedFolder(1006, u"C:\\PRG"));
  files_.away.clear();
  EXPECT_TRUE(settings.SaveSort(u"1 1 1 1,0"));
  EXPECT_EQ(files_.disc[path_],
            "[USER_1000]\r\nPinnedFolder=C:\\OTHER\r\n\r\n[USER_1006]\r\nPinnedFolder=C:\\PRG\r\n\r\n[PRIVATE]\r\n"
            "PrgSort=1 1 1 1,0\r\n");
}

TEST_F(XplrSettingsTest, AFullDiscLeavesTheOldFile) {
  files_.disc[path_] = "[PRIVATE]\r\nPrgSort=1 1 1 1,0\r\n";
  XplrSettings settings = Opened();
  files_.full = true;
  EXPECT_FALSE(settings.SaveSort(u"0 0 0 0,0"));
  EXPECT_EQ(files_.disc[path_], "[PRIVATE]\r\nPrgSort=1 1 1 1,0\r\n");
}

TEST_F(XplrSettingsTest, OnlyAYesInSpanishMarksASystemForQualityTests) {
  EXPECT_FALSE(IsQualityTest(files_, utilities_)) << "no file";
  EXPECT_TRUE(QualityTestWith("[CALIDAD]\nTest=SI\n"));
  EXPECT_TRUE(QualityTestWith("[CALIDAD]\nTest=si\n"));
  EXPECT_FALSE(QualityTestWith("[CALIDAD]\nTest=YES\n"));
  EXPECT_FALSE(QualityTestWith("[CALIDAD]\nTest=1\n"));
  EXPECT_FALSE(QualityTestWith("[CALIDAD]\nTest=SI, but only here and there\n"));
  EXPECT_FALSE(QualityTestWith("[OTHER]\nTest=SI\n"));
}

TEST_F(XplrSettingsTest, TheMarkOfQualityTestsIsReadOnceAProcess) {
  EXPECT_TRUE(QualityTestWith("[CALIDAD]\nTest=SI\n"));
  files_.disc.clear();
  EXPECT_TRUE(IsQualityTest(files_, utilities_));
  ForgetQualityTest();
  EXPECT_FALSE(IsQualityTest(files_, utilities_));
  files_.disc["C:\\P108\\HMI_Settings.ini"] = "[CALIDAD]\nTest=SI\n";
  EXPECT_FALSE(IsQualityTest(files_, utilities_)) << "the no is kept, too";
}

}  // namespace
}  // namespace pnl::test
