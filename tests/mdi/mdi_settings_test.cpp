// SPDX-License-Identifier: MIT
// "MDIMAN.INI" in its two copies.
#include "mdi/mdi_settings.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/strict_cnc.h"

namespace pnl::test {
namespace {

using testing::HasSubstr;
using testing::Not;

constexpr const char* kUser = "C:\\P108\\MDIMAN.INI";
constexpr const char* kMachine = "C:\\P52\\MDIMAN.INI";

class MdiSettingsTest : public testing::Test, public StrictGround {
 protected:
  MdiSettingsTest() : settings(files, cnc.utilities) {}
  void User(const std::string& keys) { files.disc[kUser] = "[PRIVATE]\r\n" + keys; }
  void Machine(const std::string& keys) { files.disc[kMachine] = "[PRIVATE]\r\n" + keys; }

  MdiSettings settings;
};

TEST_F(MdiSettingsTest, WithoutFilesTheDefaultsHold) {
  settings.Open();
  EXPECT_EQ(settings.Dir, u"");
  EXPECT_TRUE(settings.FullLength);
  EXPECT_TRUE(settings.Below);
  EXPECT_EQ(settings.colors.textFocus, 0u);
}

TEST_F(MdiSettingsTest, TheUsersCopyGoesBeforeTheMachines) {
  User("Dir=C:\\PRG\r\nBelow=NO\r\n");
  Machine("Dir=C:\\OTHER\r\nFullLength=NO\r\n");
  settings.Open();
  EXPECT_EQ(settings.Dir, u"C:\\PRG");
  EXPECT_FALSE(settings.Below);
  EXPECT_TRUE(settings.FullLength);
}

TEST_F(MdiSettingsTest, TheMachinesCopyStandsInForAMissingUsersCopy) {
  Machine("Dir=C:\\OTHER\r\nFullLength=NO\r\n");
  settings.Open();
  EXPECT_EQ(settings.Dir, u"C:\\OTHER");
  EXPECT_FALSE(settings.FullLength);
}

TEST_F(MdiSettingsTest, TheWordFailKeepsTheFolder) {
  User("Dir=FAIL\r\n");
  settings.Dir = u"C:\\HELD";
  settings.Open();
  EXPECT_EQ(settings.Dir, u"C:\\HELD");
}

struct BoolRow {
  const char* value;
  bool expected;
};

class MdiBooleans : public MdiSettingsTest, public testing::WithParamInterface<BoolRow> {};

TEST_P(MdiBooleans, AreTakenInCapitals) {
  User(std::string("Below=") + GetParam().value + "\r\n");
  settings.Open();
  EXPECT_EQ(settings.Below, GetParam().expected) << GetParam().value;
}

INSTANTIATE_TEST_SUITE_P(AllWords, MdiBooleans,
                         testing::Values(BoolRow{"YES", true}, BoolRow{"yes", true}, BoolRow{"1", true},
                                         BoolRow{"NO", false}, BoolRow{"no", false}, BoolRow{"0", false},
                                         // "TRUE" is false by falling through, and stays so.
                                         BoolRow{"TRUE", false}, BoolRow{"FALSE", false}, BoolRow{"2", false},
                                         BoolRow{"", false}));

TEST_F(MdiSettingsTest, CustomColoursComeFromTheMachinesCopyOnly) {
  User("CustomColors=YES\r\nRGB_Text=1 2 3\r\n");
  settings.Open();
  EXPECT_EQ(settings.colors.text, 0xFFFFFFu);
  Machine("CustomColors=YES\r\nRGB_Text=1 2 3\r\n");
  settings.Open();
  EXPECT_EQ(settings.colors.text, 0x030201u);
}

TEST_F(MdiSettingsTest, CustomColoursDefaultToWhiteFocusedText) {
  Machine("CustomColors=1\r\n");
  settings.Open();
  const MdiColors builtIn;
  EXPECT_EQ(settings.colors.textFocus, 0xFFFFFFu);
  EXPECT_EQ(settings.colors.back, builtIn.back);
  EXPECT_EQ(settings.colors.backFocus, builtIn.backFocus);
  EXPECT_EQ(settings.colors.backRunning, builtIn.backRunning);
  EXPECT_EQ(settings.colors.text, builtIn.text);
  EXPECT_EQ(settings.colors.textRunning, builtIn.textRunning);
  EXPECT_EQ(settings.colors.backList, builtIn.backList);
  EXPECT_EQ(settings.colors.textList, builtIn.textList);
}

TEST_F(MdiSettingsTest, AllEightColoursAreRead) {
  Machine(
      "CustomColors=YES\r\nRGB_Bkgnd=1 0 0\r\nRGB_BkgndFocus=2 0 0\r\nRGB_BkgndRunning=3 0 0\r\nRGB_Text=4 0 "
      "0\r\nRGB_TextFocus=5 0 0\r\nRGB_TextRunning=6 0 0\r\nRGB_Bkgnd_List=7 0 0\r\nRGB_Text_List=8 0 0\r\n");
  settings.Open();
  EXPECT_EQ(settings.colors.back, 1u);
  EXPECT_EQ(settings.colors.backFocus, 2u);
  EXPECT_EQ(settings.colors.backRunning, 3u);
  EXPECT_EQ(settings.colors.text, 4u);
  EXPECT_EQ(settings.colors.textFocus, 5u);
  EXPECT_EQ(settings.colors.textRunning, 6u);
  EXPECT_EQ(settings.colors.backList, 7u);
  EXPECT_EQ(settings.colors.textList, 8u);
}

TEST_F(MdiSettingsTest, TheWordTrueDoesNotSwitchCustomColoursOn) {
  Machine("CustomColors=TRUE\r\nRGB_Text=1 2 3\r\n");
  settings.Open();
  EXPECT_EQ(settings.colors.text, 0xFFFFFFu);
}

TEST_F(MdiSettingsTest, SavingWritesTheThreeKeysToBothCopies) {
  User("; mine\r\nNItems=7\r\n");
  Machine("RGB_Text=1 2 3\r\n");
  settings.Open();
  settings.Dir = u"C:\\PRG";
  settings.Below = false;
  EXPECT_TRUE(settings.SaveSettings());
  EXPECT_EQ(files.disc[kUser], "[PRIVATE]\r\n; mine\r\nNItems=7\r\nDir=C:\\PRG\r\nFullLength=YES\r\nBelow=NO\r\n");
  EXPECT_EQ(files.disc[kMachine], "[PRIVATE]\r\nRGB_Text=1 2 3\r\nDir=C:\\PRG\r\nFullLength=YES\r\nBelow=NO\r\n");
}

TEST_F(MdiSettingsTest, TheMachinesCopyIsSavedFirst) {
  settings.Open();
  EXPECT_TRUE(settings.SaveSettings());
  EXPECT_THAT(files.replaced, testing::ElementsAre(kMachine, kUser));
}

TEST_F(MdiSettingsTest, TheItemLimitReachesTheDiscOnlyThroughTheUsersCopy) {
  settings.Open();
  EXPECT_EQ(settings.HistoryLimit(), 10);
  EXPECT_TRUE(settings.SaveSettings());
  EXPECT_THAT(files.disc[kUser], HasSubstr("NItems=10"));
  EXPECT_THAT(files.disc[kMachine], Not(HasSubstr("NItems")));
}

TEST_F(MdiSettingsTest, WithoutAUsersCopyTheMachinesKeysGoIntoIt) {
  Machine("NItems=4\r\nCustomColors=YES\r\n");
  settings.Open();
  EXPECT_TRUE(settings.SaveSettings());
  EXPECT_THAT(files.disc[kUser], HasSubstr("NItems=4"));
  EXPECT_THAT(files.disc[kUser], HasSubstr("CustomColors=YES"));
}

TEST_F(MdiSettingsTest, ACopyThatCouldNotBeReadIsLeftAlone) {
  User("NItems=7\r\n");
  Machine("RGB_Text=1 2 3\r\n");
  const auto before = files.disc;
  files.unreadable = {kUser, kMachine};
  settings.Open();
  EXPECT_FALSE(settings.SaveSettings());
  EXPECT_EQ(files.disc, before);
}

TEST_F(MdiSettingsTest, AFullDiscLeavesBothCopies) {
  User("NItems=7\r\n");
  const auto before = files.disc;
  settings.Open();
  files.full = true;
  EXPECT_FALSE(settings.SaveSettings());
  EXPECT_EQ(files.disc, before);
}

TEST_F(MdiSettingsTest, AUsersCopyThatWasAwayGetsOnlyWhatTheSessionChanged) {
  // It lost its comments, its unknown keys and the folder that the operator had chosen.
  User("; mine\r\nNItems=7\r\nDir=C:\\MINE\r\nBelow=NO\r\nOdd=1\r\n");
  Machine("Dir=C:\\MACHINE\r\n");
  files.away = {"C:\\P108"};
  settings.Open();
  EXPECT_EQ(settings.Dir, u"C:\\MACHINE");
  settings.FullLength = false;
  files.away.clear();
  EXPECT_TRUE(settings.SaveSettings());
  EXPECT_EQ(files.disc[kUser],
            "[PRIVATE]\r\n; mine\r\nNItems=7\r\nDir=C:\\MINE\r\nBelow=NO\r\nOdd=1\r\nFullLength=NO\r\n");
  EXPECT_EQ(settings.HistoryLimit(), 7);
}

TEST_F(MdiSettingsTest, AFolderChosenWhileTheUsersCopyWasAwayGoesIntoIt) {
  User("Dir=C:\\MINE\r\nFullLength=NO\r\nBelow=NO\r\n");
  files.away = {"C:\\P108"};
  settings.Open();
  settings.Dir = u"C:\\NEW";
  files.away.clear();
  EXPECT_TRUE(settings.SaveSettings());
  EXPECT_EQ(files.disc[kUser], "[PRIVATE]\r\nDir=C:\\NEW\r\nFullLength=NO\r\nBelow=NO\r\n");
}

TEST_F(MdiSettingsTest, AUsersCopyThatComesBackUnreadableIsLeftAlone) {
  User("NItems=7\r\n");
  const std::string before = files.disc[kUser];
  files.away = {"C:\\P108"};
  settings.Open();
  files.away.clear();
  files.unreadable = {kUser};
  EXPECT_FALSE(settings.SaveSettings());
  EXPECT_EQ(files.disc[kUser], before);
  EXPECT_TRUE(settings.LimitUnknown()) << "or the history would be cut to a limit that isn't its own";
}

TEST_F(MdiSettingsTest, AUsersCopyThatStaysAwayIsTold) {
  files.away = {"C:\\P108"};
  settings.Open();
  EXPECT_FALSE(settings.SaveSettings());
}

TEST_F(MdiSettingsTest, AMachinesCopyThatIsAwayIsLeftAlone) {
  Machine("; theirs\r\n");
  files.away = {"C:\\P52"};
  settings.Open();
  files.away.clear();
  EXPECT_TRUE(settings.SaveSettings());
  EXPECT_EQ(files.disc[kMachine], "[PRIVATE]\r\nDir=\r\nFullLength=YES\r\nBelow=YES\r\n; theirs\r\n");
}

}  // namespace
}  // namespace pnl::test
